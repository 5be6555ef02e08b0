#include "ado/Values.h"

#include "ado/Errors.h"
#include "ado/Numbers.h"
#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Object.h"
#include "basic/Text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace kvx::ado {
namespace {

constexpr std::uint8_t kNoScale = 255;
constexpr std::uint8_t kMostDigits = 18;
constexpr std::string_view kSource = "ADODB.Field";

constexpr std::array<std::int64_t, 19> kPowers = [] {
    std::array<std::int64_t, 19> powers{};
    std::int64_t power = 1;
    for (std::int64_t& entry : powers) {
        entry = power;
        if (power <= std::numeric_limits<std::int64_t>::max() / 10) power *= 10;
    }
    return powers;
}();

std::string_view TrimBlanks(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

// Reads digits off the front; nothing when there are fewer or more than asked for.
std::optional<std::int32_t> TakeNumber(std::string_view& text, std::size_t fewest, std::size_t most)
{
    std::size_t count = 0;
    while (count < text.size() && IsDigit(text[count]))
        ++count;
    if (count < fewest || count > most) return {};
    std::int32_t value = 0;
    std::from_chars(text.data(), text.data() + count, value);
    text.remove_prefix(count);
    return value;
}

bool Take(std::string_view& text, char character)
{
    if (text.empty() || text.front() != character) return false;
    text.remove_prefix(1);
    return true;
}

bool ReadTime(std::string_view text, basic::DateParts& parts)
{
    const auto hour = TakeNumber(text, 1, 2);
    if (!hour || !Take(text, ':')) return false;
    const auto minute = TakeNumber(text, 1, 2);
    if (!minute) return false;
    std::int32_t seconds = 0;
    if (Take(text, ':')) {
        const auto second = TakeNumber(text, 1, 2);
        if (!second) return false;
        seconds = *second;
        if ((Take(text, '.') || Take(text, ',')) && !TakeNumber(text, 1, 9)) return false;
    }
    if (!text.empty() || *hour > 23 || *minute > 59 || seconds > 59) return false;
    parts.hour = *hour;
    parts.minute = *minute;
    parts.second = seconds;
    return true;
}

bool ReadDay(std::string_view text, basic::DateParts& parts)
{
    std::optional<std::int32_t> year, month, day;
    if (text.size() == 8 && text.find_first_of(".-") == std::string_view::npos) {
        std::string_view piece = text.substr(0, 4);
        year = TakeNumber(piece, 4, 4);
        piece = text.substr(4, 2);
        month = TakeNumber(piece, 2, 2);
        piece = text.substr(6, 2);
        day = TakeNumber(piece, 2, 2);
        text = {};
    } else if (text.find('-') != std::string_view::npos) {
        year = TakeNumber(text, 4, 4);
        if (!Take(text, '-')) return false;
        month = TakeNumber(text, 1, 2);
        if (!Take(text, '-')) return false;
        day = TakeNumber(text, 1, 2);
    } else {
        day = TakeNumber(text, 1, 2);
        if (!Take(text, '.')) return false;
        month = TakeNumber(text, 1, 2);
        if (!Take(text, '.')) return false;
        year = TakeNumber(text, 4, 4);
    }
    if (!text.empty() || !year || !month || !day || *year < 100) return false;
    constexpr std::int32_t kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (*month < 1 || *month > 12 || *day < 1) return false;
    const bool leap = (*year % 4 == 0 && *year % 100 != 0) || *year % 400 == 0;
    if (*day > kDays[*month - 1] + (*month == 2 && leap ? 1 : 0)) return false;
    parts.year = *year;
    parts.month = *month;
    parts.day = *day;
    return true;
}

// The decimal nearest to a binary number, with so many decimals; half goes away from zero. Nothing when too large.
std::optional<basic::Decimal> DecimalOf(double value, std::uint8_t scale)
{
    if (!std::isfinite(value)) return {};
    if (scale == kNoScale) {
        std::array<char, 64> buffer;
        const auto result =
            std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed);
        if (result.ec != std::errc{}) return {};
        return ParseDecimal({buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data())});
    }
    const double scaled = value * static_cast<double>(kPowers[std::min(scale, kMostDigits)]);
    if (std::abs(scaled) >= 9.0e18) return {};
    return basic::Decimal{std::llround(scaled), std::min(scale, kMostDigits)};
}

// The same decimal with another scale; half goes away from zero. Nothing when too large.
std::optional<basic::Decimal> Rescaled(basic::Decimal value, std::uint8_t scale)
{
    while (value.scale < scale) {
        if (std::abs(value.units) > std::numeric_limits<std::int64_t>::max() / 10) return {};
        value.units *= 10;
        ++value.scale;
    }
    if (value.scale > scale) {
        const std::int64_t power = kPowers[std::min<std::size_t>(value.scale - scale, kMostDigits)];
        const std::int64_t rest = value.units % power;
        value.units /= power;
        if (std::abs(rest) >= power - std::abs(rest)) value.units += rest < 0 ? -1 : 1;
        value.scale = scale;
    }
    return value;
}

basic::Variant StoredAsIs(const Cell& cell)
{
    switch (cell.kind) {
    case Cell::Kind::Null: return basic::Null{};
    case Cell::Kind::Integer: return cell.integer;
    case Cell::Kind::Real: return cell.real;
    case Cell::Kind::Text: return cell.text;
    }
    return {};
}

std::optional<double> NumberOf(const Cell& cell)
{
    switch (cell.kind) {
    case Cell::Kind::Integer: return static_cast<double>(cell.integer);
    case Cell::Kind::Real: return cell.real;
    case Cell::Kind::Text: return ParseDouble(cell.text);
    case Cell::Kind::Null: break;
    }
    return {};
}

std::optional<std::int64_t> WholeOf(const Cell& cell)
{
    if (cell.kind == Cell::Kind::Integer) return cell.integer;
    const std::optional<double> number = NumberOf(cell);
    if (!number || *number != std::floor(*number) || std::abs(*number) >= 9.2e18) return {};
    return static_cast<std::int64_t>(*number);
}

std::optional<basic::Decimal> DecimalOfCell(const Cell& cell, std::uint8_t scale)
{
    std::optional<basic::Decimal> decimal;
    if (cell.kind == Cell::Kind::Real) return DecimalOf(cell.real, scale);
    if (cell.kind == Cell::Kind::Integer)
        decimal = basic::Decimal{cell.integer, 0};
    else if (cell.kind == Cell::Kind::Text)
        decimal = ParseDecimal(cell.text);
    if (!decimal || scale == kNoScale) return decimal;
    const std::optional<basic::Decimal> rescaled = Rescaled(*decimal, scale);
    return rescaled ? rescaled : decimal;
}

template <class T>
basic::Variant WholeVariant(const Cell& cell)
{
    const std::optional<std::int64_t> value = WholeOf(cell);
    if (!value || *value < std::numeric_limits<T>::min() || *value > std::numeric_limits<T>::max())
        return StoredAsIs(cell);
    return static_cast<T>(*value);
}

// What the caller gives for a number column, as double or exact decimal.
struct Given {
    double number = 0;
    std::optional<basic::Decimal> exact;
};

Given GivenNumber(const basic::Variant& value)
{
    using basic::VarType;
    switch (value.Type()) {
    case VarType::String: {
        const std::string_view text = TrimBlanks(*value.As<std::string>());
        const std::optional<double> number = ParseDouble(text);
        if (!number) RaiseAdo(kErrWrongValueType, kSource);
        return {*number, ParseDecimal(text)};
    }
    case VarType::Decimal: return {basic::CDbl(value), *value.As<basic::Decimal>()};
    case VarType::Currency: return {basic::CDbl(value), basic::Decimal{value.As<basic::Currency>()->tenThousandths, 4}};
    case VarType::Boolean: return {*value.As<bool>() ? -1.0 : 0.0, basic::Decimal{*value.As<bool>() ? -1 : 0, 0}};
    case VarType::Byte: return {basic::CDbl(value), basic::Decimal{*value.As<std::uint8_t>(), 0}};
    case VarType::Integer: return {basic::CDbl(value), basic::Decimal{*value.As<std::int16_t>(), 0}};
    case VarType::Long: return {basic::CDbl(value), basic::Decimal{*value.As<std::int32_t>(), 0}};
    case VarType::Single: {
        // Seven digits are meant; the binary rest of a single would show in a numeric column.
        const std::string text = basic::Str(value);
        return {static_cast<double>(*value.As<float>()), ParseDecimal(TrimBlanks(text))};
    }
    case VarType::Double: return {*value.As<double>(), DecimalOf(*value.As<double>(), kNoScale)};
    default: RaiseAdo(kErrWrongValueType, kSource);
    }
}

template <class T>
T WholeValue(const Given& given)
{
    const double whole = std::nearbyint(given.number);
    if (!(whole >= static_cast<double>(std::numeric_limits<T>::min()) &&
          whole <= static_cast<double>(std::numeric_limits<T>::max())))
        RaiseAdo(kErrMultiStep, kSource);
    return static_cast<T>(whole);
}

basic::Variant NumberValue(const ColumnInfo& column, const basic::Variant& value)
{
    if (column.type == adBoolean && value.Type() == basic::VarType::String) {
        const std::optional<bool> truth = basic::ReadBoolean(*value.As<std::string>()); // "True" and "Wahr" too
        if (!truth) RaiseAdo(kErrWrongValueType, kSource);
        return *truth;
    }
    const Given given = GivenNumber(value);
    switch (column.type) {
    case adBoolean: return given.number != 0;
    case adUnsignedTinyInt: return WholeValue<std::uint8_t>(given);
    case adSmallInt: return WholeValue<std::int16_t>(given);
    case adInteger: return WholeValue<std::int32_t>(given);
    case adSingle: return static_cast<float>(given.number);
    case adDouble: return given.number;
    default: break;
    }
    std::uint8_t scale = column.scale;
    if (column.type == adBigInt) scale = 0;
    if (column.type == adCurrency) scale = 4;
    std::optional<basic::Decimal> decimal = given.exact ? given.exact : DecimalOf(given.number, scale);
    if (decimal && scale != kNoScale) decimal = Rescaled(*decimal, scale);
    if (!decimal) RaiseAdo(kErrMultiStep, kSource);
    if (column.type == adCurrency) return basic::Currency{decimal->units};
    if (column.type != adBigInt && column.precision < kMostDigits &&
        std::abs(decimal->units) >= kPowers[column.precision])
        RaiseAdo(kErrMultiStep, kSource);
    return *decimal;
}

basic::Variant DateValue(const basic::Variant& value)
{
    using basic::VarType;
    if (value.As<basic::Date>() != nullptr) return value;
    if (const std::string* text = value.As<std::string>()) {
        if (const std::optional<basic::Date> date = ParseDate(TrimBlanks(*text))) return *date;
        if (!basic::IsDate(value)) RaiseAdo(kErrWrongValueType, kSource);
        return basic::CDate(value); // as the machine's language writes dates
    }
    if (value.Type() == VarType::Boolean) RaiseAdo(kErrWrongValueType, kSource);
    return basic::Date{GivenNumber(value).number};
}

basic::Variant TextValue(const ColumnInfo& column, const basic::Variant& value)
{
    std::string text = basic::CStr(value);
    if (column.definedSize > 0 && basic::Len(text) > column.definedSize) RaiseAdo(kErrMultiStep, kSource);
    return text;
}

std::string DateLiteral(basic::Date date)
{
    const basic::DateParts parts = basic::PartsOf(date);
    std::array<char, 64> buffer;
    std::snprintf(buffer.data(), buffer.size(), "'%04d%02d%02d", parts.year, parts.month, parts.day);
    std::string text = buffer.data();
    if (parts.hour != 0 || parts.minute != 0 || parts.second != 0) {
        std::snprintf(buffer.data(), buffer.size(), " %02d:%02d:%02d", parts.hour, parts.minute, parts.second);
        text += buffer.data();
    }
    return text + "'";
}

} // namespace

bool IsTextType(DataTypeEnum type)
{
    return type == adChar || type == adWChar || type == adVarChar || type == adLongVarChar || type == adVarWChar ||
           type == adLongVarWChar;
}

bool IsDateType(DataTypeEnum type)
{
    return type == adDate || type == adDBDate || type == adDBTime || type == adDBTimeStamp;
}

bool IsNumberType(DataTypeEnum type)
{
    switch (type) {
    case adSmallInt:
    case adInteger:
    case adSingle:
    case adDouble:
    case adCurrency:
    case adBoolean:
    case adDecimal:
    case adUnsignedTinyInt:
    case adBigInt:
    case adNumeric: return true;
    default: return false;
    }
}

basic::Variant ToVariant(const ColumnInfo& column, const Cell& cell)
{
    if (cell.kind == Cell::Kind::Null) return basic::Null{};
    switch (column.type) {
    case adInteger: return WholeVariant<std::int32_t>(cell);
    case adSmallInt: return WholeVariant<std::int16_t>(cell);
    case adUnsignedTinyInt: return WholeVariant<std::uint8_t>(cell);
    case adBigInt: return WholeVariant<std::int64_t>(cell);
    case adBoolean:
        if (const auto number = NumberOf(cell)) return *number != 0;
        return StoredAsIs(cell);
    case adSingle:
        if (const auto number = NumberOf(cell)) return static_cast<float>(*number);
        return StoredAsIs(cell);
    case adDouble:
        if (const auto number = NumberOf(cell)) return *number;
        return StoredAsIs(cell);
    case adCurrency:
        if (const auto decimal = DecimalOfCell(cell, 4); decimal && decimal->scale == 4)
            return basic::Currency{decimal->units};
        return StoredAsIs(cell);
    case adNumeric:
    case adDecimal:
        if (const auto decimal = DecimalOfCell(cell, column.scale)) return *decimal;
        return StoredAsIs(cell);
    case adDate:
    case adDBDate:
    case adDBTime:
    case adDBTimeStamp:
        if (cell.kind == Cell::Kind::Real) return basic::Date{cell.real};
        if (cell.kind == Cell::Kind::Text) {
            if (const auto date = ParseDate(TrimBlanks(cell.text))) return *date;
        } else if (const auto date = ParseDate(std::to_string(cell.integer))) {
            return *date; // an engine that took '20240201' for a number
        }
        return StoredAsIs(cell);
    default: break;
    }
    if (cell.kind == Cell::Kind::Text) return cell.text;
    return cell.kind == Cell::Kind::Integer ? std::to_string(cell.integer) : std::string(Digits(cell.real));
}

basic::Variant ToColumnValue(const ColumnInfo& column, const basic::Variant& value)
{
    if (value.IsNull()) {
        if (!column.nullable) RaiseAdo(kErrMultiStep, kSource);
        return value;
    }
    if (value.IsEmpty() || value.AsArray() != nullptr) RaiseAdo(kErrWrongValueType, kSource);
    if (value.IsObject()) return ToColumnValue(column, value.ToObject()->Get(""));
    if (IsNumberType(column.type)) return NumberValue(column, value);
    if (IsDateType(column.type)) return DateValue(value);
    return TextValue(column, value);
}

OwnedCell ToOwnedCell(const Cell& cell)
{
    return {true, cell.kind, cell.integer, cell.real, std::string(cell.text)};
}

OwnedCell ToOwnedCell(const basic::Variant& value)
{
    using basic::VarType;
    const auto whole = [](std::int64_t integer) { return OwnedCell{true, Cell::Kind::Integer, integer, 0, {}}; };
    const auto text = [](std::string characters) {
        return OwnedCell{true, Cell::Kind::Text, 0, 0, std::move(characters)};
    };
    switch (value.Type()) {
    case VarType::Empty: return {};
    case VarType::Null: return {true, Cell::Kind::Null, 0, 0, {}};
    case VarType::Boolean: return whole(*value.As<bool>() ? 1 : 0);
    case VarType::Byte: return whole(*value.As<std::uint8_t>());
    case VarType::Integer: return whole(*value.As<std::int16_t>());
    case VarType::Long: return whole(*value.As<std::int32_t>());
    case VarType::Single: return {true, Cell::Kind::Real, 0, static_cast<double>(*value.As<float>()), {}};
    case VarType::Double: return {true, Cell::Kind::Real, 0, *value.As<double>(), {}};
    case VarType::Currency: return text(DecimalText({value.As<basic::Currency>()->tenThousandths, 4}));
    case VarType::Decimal: {
        const basic::Decimal decimal = *value.As<basic::Decimal>();
        return decimal.scale == 0 ? whole(decimal.units) : text(DecimalText(decimal));
    }
    case VarType::Date: {
        const std::string literal = DateLiteral(*value.As<basic::Date>());
        return text(literal.substr(1, literal.size() - 2));
    }
    default: return text(basic::ToText(value));
    }
}

std::optional<basic::Variant> ToRowKey(const Cell& cell)
{
    if (cell.kind == Cell::Kind::Null) return {};
    return StoredAsIs(cell);
}

std::optional<basic::Date> ParseDate(std::string_view text)
{
    basic::DateParts parts;
    const std::size_t gap = text.find_first_of(" T");
    if (gap == std::string_view::npos) {
        if (!(text.find(':') != std::string_view::npos ? ReadTime(text, parts) : ReadDay(text, parts))) return {};
    } else if (!ReadDay(text.substr(0, gap), parts) || !ReadTime(text.substr(gap + 1), parts)) {
        return {};
    }
    return basic::DateOf(parts);
}

std::optional<basic::Decimal> ParseDecimal(std::string_view text)
{
    const bool negative = Take(text, '-');
    if (!negative) Take(text, '+');
    basic::Decimal decimal;
    std::size_t digits = 0;
    bool point = false;
    for (const char character : text) {
        if (character == '.' && !point) {
            point = true;
            continue;
        }
        if (!IsDigit(character)) return {};
        if (decimal.units >= kPowers[kMostDigits - 1] * 9) return {};
        decimal.units = decimal.units * 10 + (character - '0');
        if (point) ++decimal.scale;
        ++digits;
    }
    if (digits == 0 || decimal.scale > kMostDigits) return {};
    if (negative) decimal.units = -decimal.units;
    return decimal;
}

std::optional<double> ParseDouble(std::string_view text)
{
    text = TrimBlanks(text);
    if (text.starts_with('+')) text.remove_prefix(1);
    const std::size_t first = text.starts_with('-') ? 1 : 0; // no "inf", no "nan"
    if (text.size() <= first || !(IsDigit(text[first]) || text[first] == '.')) return {};
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc{} || result.ptr != text.data() + text.size()) return {};
    return value;
}

std::string DecimalText(basic::Decimal value)
{
    std::string digits = std::to_string(value.units);
    const std::string sign = value.units < 0 ? "-" : "";
    digits.erase(0, sign.size());
    if (value.scale > 0) {
        if (digits.size() <= value.scale) digits.insert(0, value.scale + 1 - digits.size(), '0');
        digits.insert(digits.size() - value.scale, ".");
    }
    return sign + digits;
}

std::string SqlLiteral(const basic::Variant& value)
{
    using basic::VarType;
    switch (value.Type()) {
    case VarType::Empty:
    case VarType::Null: return "NULL";
    case VarType::Date: return DateLiteral(*value.As<basic::Date>());
    case VarType::String: return "'" + basic::Replace(*value.As<std::string>(), "'", "''") + "'";
    default: break;
    }
    const OwnedCell cell = ToOwnedCell(value);
    if (cell.kind == Cell::Kind::Integer) return std::to_string(cell.integer);
    if (cell.kind == Cell::Kind::Real) return std::string(Digits(cell.real));
    return cell.text;
}

} // namespace kvx::ado
