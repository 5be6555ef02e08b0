#include "korvex_loc/Sql.h"

#include "ado/Recordset.h"
#include "basic/Convert.h"
#include "basic/Text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace kvx::loc {

std::string Quoted(std::string_view text)
{
    return "'" + basic::Replace(text, "'", "''") + "'";
}

std::string NumberOrNull(const basic::Variant& value)
{
    if (basic::Trim(basic::ToText(value)).empty()) return "NULL";
    if (const bool* flag = value.As<bool>()) return *flag ? "1" : "0";  // true is -1 as a number, 1 in a database
    const double number = basic::CDbl(value);
    std::array<char, 400> digits{};  // the longest double has 309 places
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
    return std::string(digits.data(), end.ptr);
}

std::string IdList(std::span<const std::int32_t> ids)
{
    std::string list;
    for (const std::int32_t id : ids) {
        if (!list.empty()) list += ',';
        list += std::to_string(id);
    }
    return list;
}

bool IsSqlName(std::string_view text)
{
    return !text.empty() && std::ranges::all_of(text, [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
    });
}

basic::Variant FirstValue(const KvxVar& kvxvar, std::string_view select)
{
    ado::Recordset rows;
    rows.Open(select, kvxvar.dbAdo, ado::adOpenForwardOnly, ado::adLockReadOnly);
    return rows.Eof() ? basic::Variant() : rows[0].Value();
}

void UpdateOrInsert(const KvxVar& kvxvar, std::string_view update, std::string_view insert)
{
    std::int64_t recordsAffected = 0;
    kvxvar.dbAdo.Execute(update, &recordsAffected);
    if (recordsAffected == 0) kvxvar.dbAdo.Execute(insert);
}

}  // namespace kvx::loc
