#pragma once

#include "session/SiblingClasses.h"

namespace kvx::loc {

/// Value conversion, lookups and options, and the key filters of number and date boxes.
class DBHelper final : public c_DBHelper {
public:
    /// @throws basic::Error 13: an array; 91: Nothing
    std::string FieldToString(const basic::Variant& value, bool flag1, bool flag2) override;
    /// Blank text is 0 too. @throws basic::Error 13: a text that is no number
    double FieldToNumber(const basic::Variant& value) override;
    std::string FieldToText(const basic::Variant& value) override;

    /// @param where  text behind WHERE; empty: any row
    std::string LookupText(const KvxVar& kvxvar, std::string_view column, std::string_view table,
                           std::string_view where) override;
    double LookupNumber(const KvxVar& kvxvar, std::string_view column, std::string_view table,
                        std::string_view where) override;

    /// @return characters, at most 32767 (for text without a limit too); 0 for a column of another kind, which is
    ///         what a box takes for "no limit"
    std::int16_t ColumnLength(std::string_view table, std::string_view column, const KvxVar& kvxvar) override;
    /// From columns.tsv; a column that is not there keeps its name.
    std::string ColumnCaption(std::string_view column, const KvxVar& kvxvar) override;

    std::int32_t GetOptionNumber(const KvxVar& kvxvar, std::string_view key) override;
    std::string GetOptionText(const KvxVar& kvxvar, std::string_view key) override;

    /// A "-" of the mask only says that the number may be negative and is not printed. Empty text and text that is no
    /// number stay: what a wrong entry means is the dialog's to say.
    void FormatTextBox(std::string_view format, ui::TextBox& textBox) override;
    /// The rules are NumberMask's. @param KeyAscii by reference: 0, or the decimal sign for a typed point
    void FilterNumberKey(std::int32_t& KeyAscii, ui::TextBox& textBox, std::string_view format) override;
    /// Digits, the point and the locale's date sign pass, and keys that type nothing.
    bool FilterDateKey(std::int32_t& KeyAscii, ui::TextBox& textBox) override;

    /// Among the standards that the user sees an own one goes before one published to his level, and that before a
    /// locked one: who has chosen something for himself must get it. Of a model of several rows it is the first.
    std::int32_t ModelItems(const KvxVar& kvxvar, std::string_view relation, std::int32_t reserved) override;
    /// As ColumnCaption: lists and fields share one file of names.
    std::string ListItemCaption(const KvxVar& kvxvar, std::string_view name) override;
};

} // namespace kvx::loc
