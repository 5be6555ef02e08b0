#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Format.h"
#include "basic/Text.h"
#include "basic/UseLocale.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <fstream>
#include <map>
#include <sstream>

// Every line of tests/data/value-vectors.tsv; its head explains the columns.
namespace kvx::basic {
namespace {

/// One line of the file.
struct ValueCase {
    std::size_t line = 0;
    std::string arguments, mask, expected;
};

std::vector<std::string> Columns(const std::string& line)
{
    return Split(line, "\t");
}

/// Takes the escapes of the file out of one text.
std::string Unescaped(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            result.push_back(text[i]);
            continue;
        }
        const char c = text[++i];
        result.push_back(c == 't' ? '\t' : c == 'r' ? '\r' : c == 'n' ? '\n' : c);
    }
    return result;
}

/// Parts between bars; a bar behind a backslash is none.
std::vector<std::string> BarParts(std::string_view text)
{
    std::vector<std::string> parts(1);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size()) {
            parts.back().append(text.substr(i++, 2));
        } else if (text[i] == '|') {
            parts.emplace_back();
        } else {
            parts.back().push_back(text[i]);
        }
    }
    return parts;
}

double ToDouble(std::string_view text)
{
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    EXPECT_TRUE(error == std::errc{} && end == text.data() + text.size()) << "bad number in the file: " << text;
    return value;
}

std::int32_t ToLong(std::string_view text)
{
    return static_cast<std::int32_t>(ToDouble(text));
}

/// "yyyy-mm-dd" with or without " hh:nn:ss".
Date ToDate(const std::string& text)
{
    DateParts parts;
    parts.year = ToLong(Mid(text, 1, 4));
    parts.month = ToLong(Mid(text, 6, 2));
    parts.day = ToLong(Mid(text, 9, 2));
    if (text.size() > 10) {
        parts.hour = ToLong(Mid(text, 12, 2));
        parts.minute = ToLong(Mid(text, 15, 2));
        parts.second = ToLong(Mid(text, 18, 2));
    }
    return DateOf(parts);
}

/// A value as the file writes it: tag, colon, text.
Variant ToVariant(const std::string& written)
{
    const std::string text = Unescaped(written.substr(std::min<std::size_t>(2, written.size())));
    switch (written.empty() ? ' ' : written.front()) {
    case 'd': return ToDouble(text);
    case 'i': return static_cast<std::int16_t>(ToLong(text));
    case 'l': return ToLong(text);
    case 's': return text;
    case 'b': return text == "True";
    case 't': return ToDate(text);
    case 'n': return Null{};
    case 'e': return Empty{};
    default: break;
    }
    ADD_FAILURE() << "bad value in the file: " << written;
    return {};
}

std::string Plain(double value)
{
    char buffer[40];
    return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

/// A result as the file writes it.
std::string Written(const Variant& value)
{
    switch (value.Type()) {
    case VarType::Null: return "n:";
    case VarType::Empty: return "e:";
    case VarType::Boolean: return value.Held<bool>() ? "b:True" : "b:False";
    case VarType::Byte: return "y:" + std::to_string(value.Held<std::uint8_t>());
    case VarType::Integer: return "i:" + std::to_string(value.Held<std::int16_t>());
    case VarType::Long: return "l:" + std::to_string(value.Held<std::int32_t>());
    case VarType::Double: return "d:" + Plain(value.Held<double>());
    case VarType::String: return "s:" + value.Held<std::string>();
    case VarType::Date: {
        const DateParts parts = PartsOf(value.Held<Date>());
        char buffer[40];
        std::snprintf(buffer, sizeof buffer, "t:%04d-%02d-%02d %02d:%02d:%02d", parts.year, parts.month, parts.day,
                      parts.hour, parts.minute, parts.second);
        return buffer;
    }
    default: return TypeName(value);
    }
}

std::string WrittenPieces(const std::vector<std::string>& pieces)
{
    return "a" + std::to_string(pieces.size()) + ":" + Join(pieces, "|");
}

/// Calls the function of a case; the result as the file writes it.
std::string Result(const std::string& function, const std::vector<Variant>& arguments, const std::string& mask)
{
    const Variant& value = arguments.at(0);
    if (function == "CBool") return Written(CBool(value));
    if (function == "CByte") return Written(CByte(value));
    if (function == "CDate") return Written(CDate(value));
    if (function == "CDbl") return Written(CDbl(value));
    if (function == "CInt") return Written(CInt(value));
    if (function == "CLng") return Written(CLng(value));
    if (function == "CStr") return Written(CStr(value));
    if (function == "Fix") return Written(Fix(value));
    if (function == "Format") return Written(mask.empty() ? Format(value) : Format(value, Unescaped(mask.substr(2))));
    if (function == "IsDate") return Written(IsDate(value));
    if (function == "IsNumeric") return Written(IsNumeric(value));
    if (function == "Str") return Written(Str(value));
    if (function == "Val") return Written(Val(value));
    if (function == "Split") {
        const std::string delimiter = arguments.size() > 1 ? CStr(arguments[1]) : " ";
        const std::int32_t limit = arguments.size() > 2 ? CLng(arguments[2]) : -1;
        return WrittenPieces(Split(CStr(value), delimiter, limit));
    }
    return "no such function";
}

std::string ResultOrError(const std::string& function, const ValueCase& valueCase)
{
    std::vector<Variant> arguments;
    const std::vector<std::string> written =
        function == "Format" ? std::vector{valueCase.arguments} : BarParts(valueCase.arguments);
    for (const std::string& argument : written)
        arguments.push_back(ToVariant(argument));
    try {
        return Result(function, arguments, valueCase.mask);
    } catch (const Error& error) {
        return "x:" + std::to_string(error.Number);
    }
}

/// Equal as the file wants it: Doubles to 1e-14 of their size, everything else to the byte.
bool Matches(const std::string& expected, const std::string& actual)
{
    if (!expected.starts_with("d:") || !actual.starts_with("d:")) return Unescaped(expected) == actual;
    const double wanted = ToDouble(expected.substr(2));
    const double got = ToDouble(actual.substr(2));
    return wanted == got || std::fabs(wanted - got) < 1e-14 * std::fabs(wanted);
}

using CaseTable = std::map<std::string, std::vector<ValueCase>>;

/// The cases by function and locale: "CStr de-DE".
const CaseTable& Cases()
{
    static const CaseTable cases = [] {
        CaseTable table;
        std::ifstream file(KVX_SOURCE_DIR "/tests/data/value-vectors.tsv", std::ios::binary);
        std::string line;
        std::size_t number = 0;
        while (std::getline(file, line)) {
            ++number;
            if (line.starts_with("#") || line.starts_with("function\t")) continue;
            const std::vector<std::string> columns = Columns(line);
            if (columns.size() < 5) throw std::runtime_error("bad line " + std::to_string(number));
            table[columns[0] + " " + columns[1]].push_back({number, columns[2], columns[3], columns[4]});
        }
        return table;
    }();
    return cases;
}

struct Group {
    const char* function;
    const char* locale;
};

class ValueVectors : public testing::TestWithParam<Group> {};

TEST_P(ValueVectors, EveryRecordedCaseComesOut)
{
    const Group& group = GetParam();
    const UseLocale use(std::string_view(group.locale) == "de-DE" ? GermanLocale() : EnglishLocale());
    const std::string function = group.function;
    const auto cases = Cases().find(function + " " + group.locale);
    ASSERT_NE(cases, Cases().end());
    for (const ValueCase& valueCase : cases->second) {
        const std::string actual = ResultOrError(function, valueCase);
        EXPECT_TRUE(Matches(valueCase.expected, actual))
            << "line " << valueCase.line << ": " << function << "(" << valueCase.arguments << "; " << valueCase.mask
            << ") should be " << valueCase.expected << " and is " << actual;
    }
}

constexpr Group kGroups[] = {
    {"CBool", "de-DE"},     {"CBool", "en-US"},     {"CByte", "de-DE"},  {"CByte", "en-US"},  {"CDate", "de-DE"},
    {"CDate", "en-US"},     {"CDbl", "de-DE"},      {"CDbl", "en-US"},   {"CInt", "de-DE"},   {"CInt", "en-US"},
    {"CLng", "de-DE"},      {"CLng", "en-US"},      {"CStr", "de-DE"},   {"CStr", "en-US"},   {"Fix", "de-DE"},
    {"Fix", "en-US"},       {"Format", "de-DE"},    {"Format", "en-US"}, {"IsDate", "de-DE"}, {"IsDate", "en-US"},
    {"IsNumeric", "de-DE"}, {"IsNumeric", "en-US"}, {"Split", "de-DE"},  {"Split", "en-US"},  {"Str", "de-DE"},
    {"Str", "en-US"},       {"Val", "de-DE"},       {"Val", "en-US"},
};

INSTANTIATE_TEST_SUITE_P(All, ValueVectors, testing::ValuesIn(kGroups), [](const auto& group) {
    return std::string(group.param.function) + (std::string_view(group.param.locale) == "de-DE" ? "German" : "English");
});

TEST(ValueVectors, TheFileHoldsNoGroupThatIsNotRun)
{
    std::size_t cases = 0;
    for (const auto& [name, list] : Cases())
        cases += list.size();
    EXPECT_EQ(Cases().size(), std::size(kGroups));
    EXPECT_EQ(cases, 5508u);
}

} // namespace
} // namespace kvx::basic
