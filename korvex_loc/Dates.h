#pragma once

#include "session/SiblingClasses.h"

namespace kvx::loc {

/// Dates and numbers as statements take them.
class Dates final : public c_Dates {
public:
    /// @param date    a date, or a text that the locale reads as one; any other text comes back as it is
    /// @param format  date mask; empty: "DD.MM.YYYY"
    /// @return empty for Null, Empty and empty text
    std::string DateToSQL(const basic::Variant& date, std::string_view format) override;
    /// Sign and digits as they stand. Of a point and a comma in one text the last is the decimal sign; one alone is it
    /// too, whatever the locale; the same sign several times parts thousands.
    /// @param separator  a decimal sign other than these two; otherwise without effect
    std::string NumberToSQL(std::string_view number, std::string_view separator) override;
    std::string DateForUpdate(std::string_view text) override;
    std::string ClearDecimal(std::string_view text) override;
    /// "20240131": read alike whatever the login's language; otherwise as DateToSQL.
    std::string DateForQuery(const basic::Variant& date, const ado::Connection& connection) override;
};

} // namespace kvx::loc
