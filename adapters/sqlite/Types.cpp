#include "adapters/sqlite/Types.h"

#include "adapters/sqlite/Dates.h"
#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Tokenizer.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>

namespace kvx::adapters::sqlite {
namespace {

using Kind = ado::Cell::Kind;

struct TypeName {
    std::string_view name;
    ado::DataTypeEnum type;
    std::int32_t definedSize;  // 0: characters stand in brackets
    std::uint8_t precision, scale;
};

constexpr std::int32_t kLongText = 2147483647, kLongWideText = 1073741823;

// clang-format off
constexpr TypeName kTypeNames[] = {
    {"int",              ado::adInteger,         4,  10, 255},
    {"integer",          ado::adInteger,         4,  10, 255},
    {"smallint",         ado::adSmallInt,        2,   5, 255},
    {"tinyint",          ado::adUnsignedTinyInt, 1,   3, 255},
    {"bigint",           ado::adBigInt,          8,  19, 255},
    {"bit",              ado::adBoolean,         2, 255, 255},
    {"real",             ado::adSingle,          4,   7, 255},
    {"float",            ado::adDouble,          8,  15, 255},
    {"double precision", ado::adDouble,          8,  15, 255},
    {"money",            ado::adCurrency,        8,  19, 255},
    {"smallmoney",       ado::adCurrency,        8,  10, 255},
    {"numeric",          ado::adNumeric,        19,  18,   0},
    {"decimal",          ado::adNumeric,        19,  18,   0},
    {"dec",              ado::adNumeric,        19,  18,   0},
    {"smalldatetime",    ado::adDBTimeStamp,    16,  16,   0},
    {"datetime",         ado::adDBTimeStamp,    16,  23,   3},
    {"datetime2",        ado::adDBTimeStamp,    16,  23,   3},
    {"date",             ado::adDBTimeStamp,    16,  16,   0},
    {"nvarchar",         ado::adVarWChar,        0, 255, 255},
    {"varchar",          ado::adVarChar,         0, 255, 255},
    {"nchar",            ado::adWChar,           0, 255, 255},
    {"char",             ado::adChar,            0, 255, 255},
    {"sysname",          ado::adVarWChar,      128, 255, 255},
    {"ntext",            ado::adLongVarWChar, kLongWideText, 255, 255},
    {"text",             ado::adLongVarChar,  kLongText,     255, 255},
    {"image",            ado::adLongVarBinary, kLongText,    255, 255},
    {"blob",             ado::adLongVarBinary, kLongText,    255, 255},
    {"varbinary",        ado::adVarBinary,       0, 255, 255},
};
// clang-format on

int ReadInt(std::string_view text, int fallback)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    int value = fallback;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

DeclaredType Make(ado::DataTypeEnum type, std::int32_t size, int precision = 255, int scale = 255)
{
    return {type, size, static_cast<std::uint8_t>(precision), static_cast<std::uint8_t>(scale)};
}

long double PowerOfTen(int exponent)
{
    long double result = 1;
    for (; exponent > 0; --exponent)
        result *= 10;
    return result;
}

std::string_view Trim(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

// The parts of a plain decimal number; nothing for any other text.
struct Digits {
    bool negative = false;
    std::string_view whole, fraction;
};

std::optional<Digits> SplitNumber(std::string_view text)
{
    Digits result;
    text = Trim(text);
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        result.negative = text.front() == '-';
        text.remove_prefix(1);
    }
    const std::size_t point = text.find('.');
    result.whole = text.substr(0, point);
    if (point != std::string_view::npos) result.fraction = text.substr(point + 1);
    const auto digits = [](std::string_view part) {
        return part.find_first_not_of("0123456789") == std::string_view::npos;
    };
    if (result.whole.empty() && result.fraction.empty()) return std::nullopt;
    if (!digits(result.whole) || !digits(result.fraction)) return std::nullopt;
    while (result.whole.size() > 1 && result.whole.front() == '0')
        result.whole.remove_prefix(1);
    return result;
}

void SetReal(Value& value, double number)
{
    value.kind = Kind::Real;
    value.real = number;
}

void SetInteger(Value& value, std::int64_t number)
{
    value.kind = Kind::Integer;
    value.integer = number;
}

std::string NumberText(const Value& value)
{
    if (value.kind == Kind::Integer) return std::to_string(value.integer);
    if (value.kind == Kind::Text) return value.text;
    char buffer[64];
    const int length = std::snprintf(buffer, sizeof buffer, "%.15g", value.real);
    return {buffer, static_cast<std::size_t>(length)};
}

[[noreturn]] void RaiseConversion(const Value& value, std::string_view typeName)
{
    throw MakeError(ado::kErrConversion, "Conversion failed when converting the varchar value '" + NumberText(value) +
                                             "' to data type " + std::string(typeName) + ".");
}

[[noreturn]] void RaiseOverflow(std::string_view typeName, std::string_view column)
{
    throw MakeError(ado::kErrOutOfRange, "Arithmetic overflow error converting a value to data type " +
                                             std::string(typeName) + " of column " + std::string(column) + ".");
}

// Half is rounded away from zero on the digits as written: 2.555 becomes 2.56 whatever the nearest binary fraction is.
void ConvertToNumeric(Value& value, std::string_view written, const DeclaredType& type, std::string_view column)
{
    const std::string own = written.empty() ? NumberText(value) : std::string();
    const std::optional<Digits> parts = SplitNumber(written.empty() ? std::string_view(own) : written);
    const int scale = type.scale, wholeDigits = type.precision - type.scale;
    if (!parts) {
        if (value.kind == Kind::Text) {
            throw MakeError(ado::kErrConversion, "Error converting data type varchar to numeric.");
        }
        if (std::abs(value.real) >= static_cast<double>(PowerOfTen(wholeDigits))) RaiseOverflow("numeric", column);
        const long double factor = PowerOfTen(scale);
        SetReal(value, static_cast<double>(std::round(static_cast<long double>(value.real) * factor) / factor));
        return;
    }
    const std::size_t kept = std::min(parts->fraction.size(), static_cast<std::size_t>(scale));
    if (parts->whole.size() + kept > 18) {  // beyond what is counted exactly
        if (static_cast<int>(parts->whole.size()) > wholeDigits) RaiseOverflow("numeric", column);
        SetReal(value, std::strtod(std::string(Trim(written.empty() ? own : written)).c_str(), nullptr));
        return;
    }
    std::int64_t units = 0;
    for (char c : parts->whole)
        units = units * 10 + (c - '0');
    for (char c : parts->fraction.substr(0, kept))
        units = units * 10 + (c - '0');
    if (parts->fraction.size() > kept && parts->fraction[kept] >= '5') ++units;
    std::int64_t power = 1;
    for (std::size_t i = 0; i < kept; ++i)
        power *= 10;
    if (static_cast<long double>(units / power) >= PowerOfTen(wholeDigits)) RaiseOverflow("numeric", column);
    if (parts->negative) units = -units;
    if (units % power == 0)
        SetInteger(value, units / power);
    else
        SetReal(value, static_cast<double>(static_cast<long double>(units) / static_cast<long double>(power)));
}

void ConvertToWhole(Value& value, const DeclaredType& type, std::string_view column)
{
    struct Range {
        std::int64_t min, max;
        std::string_view name;
    };
    const Range range = type.type == ado::adSmallInt          ? Range{-32768, 32767, "smallint"}
                        : type.type == ado::adUnsignedTinyInt ? Range{0, 255, "tinyint"}
                        : type.type == ado::adBigInt          ? Range{std::numeric_limits<std::int64_t>::min(),
                                                             std::numeric_limits<std::int64_t>::max(), "bigint"}
                                                              : Range{-2147483648LL, 2147483647, "int"};
    if (value.kind == Kind::Text) {
        const std::string_view text = Trim(value.text);
        std::int64_t number = 0;  // an empty text is 0, as on SQL Server
        const char* begin = text.data() + (text.starts_with('+') ? 1 : 0);
        const auto [end, error] = std::from_chars(begin, text.data() + text.size(), number);
        if (error == std::errc::result_out_of_range) RaiseOverflow(range.name, column);
        if (!text.empty() && (error != std::errc() || end != text.data() + text.size())) {
            RaiseConversion(value, range.name);
        }
        SetInteger(value, number);
    } else if (value.kind == Kind::Real) {
        if (std::abs(value.real) >= 9.2e18) RaiseOverflow(range.name, column);
        SetInteger(value, static_cast<std::int64_t>(value.real));
    }
    if (value.integer < range.min || value.integer > range.max) RaiseOverflow(range.name, column);
}

void ConvertToBit(Value& value)
{
    if (value.kind == Kind::Text) {
        const std::string_view text = Trim(value.text);
        if (SameText(text, "true") || SameText(text, "false")) {
            SetInteger(value, SameText(text, "true") ? 1 : 0);
            return;
        }
        std::int64_t number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (!text.empty() && (error != std::errc() || end != text.data() + text.size())) RaiseConversion(value, "bit");
        SetInteger(value, number != 0 ? 1 : 0);
        return;
    }
    SetInteger(value, value.kind == Kind::Real ? value.real != 0 : value.integer != 0);
}

void ConvertToReal(Value& value)
{
    if (value.kind == Kind::Integer) {
        SetReal(value, static_cast<double>(value.integer));
        return;
    }
    if (value.kind != Kind::Text) return;
    const std::string text(Trim(value.text));
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    if (end != text.c_str() + text.size()) {
        throw MakeError(ado::kErrConversion, "Error converting data type varchar to float.");
    }
    SetReal(value, number);
}

void ConvertToDate(Value& value, const DeclaredType& type)
{
    const bool small = type.precision == 16;
    const std::string typeName = small ? "smalldatetime" : "datetime";
    std::optional<DateTime> date;
    if (value.kind == Kind::Text) {
        date = ParseDate(value.text);
    } else {  // a bare number counts days from 1900, the fraction is the time of day
        const double days = value.kind == Kind::Integer ? static_cast<double>(value.integer) : value.real;
        if (std::abs(days) < 3'000'000) {
            const double whole = std::floor(days);
            date = DateTime{DaysOf({1900, 1, 1}) + static_cast<std::int32_t>(whole),
                            static_cast<std::int32_t>((days - whole) * 86'400'000)};
        }
    }
    const std::int32_t first = DaysOf(small ? CalendarDay{1900, 1, 1} : CalendarDay{1753, 1, 1});
    const std::int32_t last = DaysOf(small ? CalendarDay{2079, 6, 6} : CalendarDay{9999, 12, 31});
    if (!date || date->days < first || date->days > last) {
        throw MakeError(ado::kErrConversion, "The conversion of a varchar data type to a " + typeName +
                                                 " data type resulted in an out-of-range value: '" + NumberText(value) +
                                                 "'.");
    }
    if (small) {  // whole minutes, half a minute up
        date->milliseconds = (date->milliseconds + 30'000) / 60'000 * 60'000;
        if (date->milliseconds >= 86'400'000) *date = {date->days + 1, 0};
    }
    value.text = IsoText(*date);
    value.kind = Kind::Text;
}

void ConvertToText(Value& value, std::string_view written, const DeclaredType& type, std::string_view column)
{
    if (value.kind != Kind::Text) {
        value.text = written.empty() ? NumberText(value) : std::string(written);
        value.kind = Kind::Text;
    }
    const auto size = static_cast<std::size_t>(type.definedSize);
    if (value.text.size() <= size) return;
    std::size_t characters = CountCharacters(value.text);
    while (characters > size && value.text.back() == ' ') {  // blanks that do not fit are dropped
        value.text.pop_back();
        --characters;
    }
    if (characters > size) {
        throw MakeError(ado::kErrOutOfRange, "String or binary data would be truncated: column " + std::string(column) +
                                                 " takes " + std::to_string(size) + " characters.");
    }
}

}  // namespace

bool DeclaredType::IsText() const
{
    switch (type) {
    case ado::adVarChar:
    case ado::adVarWChar:
    case ado::adChar:
    case ado::adWChar:
    case ado::adLongVarChar:
    case ado::adLongVarWChar: return true;
    default: return false;
    }
}

bool DeclaredType::IsWhole() const
{
    return type == ado::adInteger || type == ado::adSmallInt || type == ado::adUnsignedTinyInt || type == ado::adBigInt;
}

DeclaredType IntType()
{
    return Make(ado::adInteger, 4, 10);
}

DeclaredType TextType(std::size_t characters, bool wide)
{
    return Make(wide ? ado::adVarWChar : ado::adVarChar,
                static_cast<std::int32_t>(std::max<std::size_t>(characters, 1)));
}

DeclaredType NumericType(int precision, int scale)
{
    return Make(ado::adNumeric, 19, std::min(precision, 38), std::min(scale, 38));
}

DeclaredType DateTimeType()
{
    return Make(ado::adDBTimeStamp, 16, 23, 3);
}

DeclaredType ParseDeclaredType(std::string_view declared)
{
    const std::size_t bracket = declared.find('(');
    std::string_view name = Trim(declared.substr(0, bracket));
    std::string_view arguments;
    if (bracket != std::string_view::npos) arguments = declared.substr(bracket + 1);
    constexpr std::string_view kKeptAsText = " text";  // how dates are declared
    if (name.size() > kKeptAsText.size() && SameText(name.substr(name.size() - kKeptAsText.size()), kKeptAsText)) {
        name = Trim(name.substr(0, name.size() - kKeptAsText.size()));
    }
    const auto* found = std::ranges::find_if(kTypeNames, [&](const TypeName& t) { return SameText(t.name, name); });
    if (found == std::end(kTypeNames)) return Make(ado::adLongVarWChar, kLongWideText);
    DeclaredType result = Make(found->type, found->definedSize, found->precision, found->scale);
    if (found->type == ado::adNumeric && !arguments.empty()) {
        const std::size_t comma = arguments.find(',');
        result.precision = static_cast<std::uint8_t>(std::clamp(ReadInt(arguments, 18), 1, 38));
        const int scale = comma == std::string_view::npos ? 0 : ReadInt(arguments.substr(comma + 1), 0);
        result.scale = static_cast<std::uint8_t>(std::clamp(scale, 0, int{result.precision}));
    }
    if (found->definedSize == 0) {
        if (SameText(Trim(arguments.substr(0, arguments.find(')'))), "max")) {
            if (result.IsWide())
                result = Make(ado::adLongVarWChar, kLongWideText);
            else
                result = Make(result.IsText() ? ado::adLongVarChar : ado::adLongVarBinary, kLongText);
        } else {
            result.definedSize = std::max(1, ReadInt(arguments, 1));
        }
    }
    return result;
}

bool ReadNumberLiteral(std::string_view digits, Value& value)
{
    std::int64_t units = 0;
    int count = 0, decimals = 0;
    bool point = false;
    for (char c : digits) {
        if (c == '.') {
            point = true;
            continue;
        }
        if (c < '0' || c > '9' || ++count > 18) return false;
        units = units * 10 + (c - '0');
        if (point) ++decimals;
    }
    if (!point) {
        SetInteger(value, units);
        return true;
    }
    // The same steps that SQLite takes, so that a bound number is the number it would have read itself.
    while (decimals > 0 && units % 10 == 0) {
        units /= 10;
        --decimals;
    }
    SetReal(value, decimals == 0 ? static_cast<double>(units)
                                 : static_cast<double>(static_cast<long double>(units) / PowerOfTen(decimals)));
    return true;
}

void ConvertForColumn(Value& value, std::string_view written, const DeclaredType& type, std::string_view column)
{
    if (value.kind == Kind::Null) return;
    if (type.IsText())
        ConvertToText(value, written, type, column);
    else if (type.IsWhole())
        ConvertToWhole(value, type, column);
    else if (type.IsDate())
        ConvertToDate(value, type);
    else if (type.type == ado::adBoolean)
        ConvertToBit(value);
    else if (type.type == ado::adNumeric)
        ConvertToNumeric(value, written, type, column);
    else if (type.type == ado::adCurrency)
        ConvertToNumeric(value, written, NumericType(19, 4), column);
    else if (type.type == ado::adDouble || type.type == ado::adSingle)
        ConvertToReal(value);
}

std::size_t CountCharacters(std::string_view text)
{
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

}  // namespace kvx::adapters::sqlite
