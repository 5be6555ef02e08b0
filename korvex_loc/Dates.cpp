#include "korvex_loc/Dates.h"

#include "basic/Convert.h"
#include "basic/Format.h"
#include "basic/Locale.h"
#include "basic/Text.h"

#include <algorithm>

namespace kvx::loc {

std::string Dates::DateToSQL(const basic::Variant& date, std::string_view format)
{
    if (!basic::IsDate(date)) return basic::ToText(date);
    return basic::Format(basic::CDate(date), format.empty() ? "DD.MM.YYYY" : format);
}

std::string Dates::NumberToSQL(std::string_view number, std::string_view separator)
{
    std::string text = basic::Trim(number);
    if (!separator.empty() && separator != "." && separator != ",") text = basic::Replace(text, separator, ".");
    const auto points = std::ranges::count(text, '.'), commas = std::ranges::count(text, ',');
    const std::size_t last = text.find_last_of(".,");
    const bool decimals = points + commas == 1 || (points > 0 && commas > 0);
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '.' && text[i] != ',')
            result += text[i];
        else if (decimals && i == last)
            result += '.';
    }
    // Str writes " .5" and "-.5"; statements and logs read better with the zero.
    const std::size_t first = result.starts_with('-') || result.starts_with('+') ? 1 : 0;
    if (result.size() > first && result[first] == '.') result.insert(first, "0");
    return result;
}

std::string Dates::DateForUpdate(std::string_view text)
{
    return std::string(text);
}

std::string Dates::ClearDecimal(std::string_view text)
{
    return basic::Replace(text, basic::CurrentLocale().thousandsSeparator, "");
}

std::string Dates::DateForQuery(const basic::Variant& date, const ado::Connection&)
{
    return DateToSQL(date, "YYYYMMDD");
}

}  // namespace kvx::loc
