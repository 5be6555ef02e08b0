#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// SQLite has no dates. They are kept as texts, and one column may hold several spellings of the same day.
namespace kvx::adapters::sqlite {

/// A point in time without a zone.
struct DateTime {
    std::int32_t days = 0;  ///< since 1 January 1970
    std::int32_t milliseconds = 0;

    auto operator<=>(const DateTime&) const = default;
};

struct CalendarDay {
    std::int32_t year = 1970;
    std::int32_t month = 1;
    std::int32_t day = 1;
};

std::int32_t DaysOf(const CalendarDay& day);
CalendarDay CalendarDayOf(std::int32_t days);

/// Reads dd.mm.yyyy, yyyymmdd and yyyy-mm-dd, each also with hh:mm[:ss[.fff]] behind it. The empty text is 1 January
/// 1900, as on SQL Server. Nothing for any other text and for a day that does not exist.
std::optional<DateTime> ParseDate(std::string_view text);

/// Reads a text by one of the styles of convert: 101 mm/dd/yyyy, 103 dd/mm/yyyy, 104 dd.mm.yyyy, 105 dd-mm-yyyy; any
/// other style as ParseDate.
std::optional<DateTime> ParseDate(std::string_view text, std::int32_t style);

/// yyyy-mm-dd, with hh:mm:ss only when there is a time of day.
std::string IsoText(const DateTime& value);

}  // namespace kvx::adapters::sqlite
