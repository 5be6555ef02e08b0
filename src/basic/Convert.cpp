#include "basic/Convert.h"

#include "basic/Dates.h"
#include "basic/Digits.h"
#include "basic/Error.h"
#include "basic/Locale.h"
#include "basic/Object.h"
#include "basic/Text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace kvx::basic {
namespace {

/// Digits that never need an exponent: those of exact decimals.
constexpr std::int32_t kExactDigits = 40;

/// An object stands for its default property.
/// @param held  keeps what the property gave
const Variant& Resolve(const Variant& value, Variant& held)
{
    const Variant* current = &value;
    while (const ObjectRef* object = current->As<ObjectRef>()) {
        const ObjectRef alive = *object; // held is about to change under it
        held = Deref(alive).Get("");
        current = &held;
    }
    return *current;
}

/// What every conversion but that to text does with a value: a number, or the error why it is none.
/// @param based  by reference: set when a text was written as &H or &O
double NumberOf(const Variant& value, bool& based)
{
    Variant held;
    const Variant& plain = Resolve(value, held);
    switch (plain.Type()) {
    case VarType::Empty: return 0;
    case VarType::Null: Raise(kErrInvalidNull);
    case VarType::Boolean: return plain.Held<bool>() ? -1 : 0;
    case VarType::Byte: return plain.Held<std::uint8_t>();
    case VarType::Integer: return plain.Held<std::int16_t>();
    case VarType::Long: return plain.Held<std::int32_t>();
    case VarType::Single: return static_cast<double>(plain.Held<float>());
    case VarType::Double: return plain.Held<double>();
    case VarType::Currency: return ValueOf(ScaledDigits(plain.Held<Currency>().tenThousandths, 4));
    case VarType::Decimal: return ValueOf(ScaledDigits(plain.Held<Decimal>().units, plain.Held<Decimal>().scale));
    case VarType::Date: return plain.Held<Date>().days;
    case VarType::String: {
        const std::optional<NumberRead> read = ReadNumberText(plain.Held<std::string>());
        if (!read) Raise(kErrTypeMismatch);
        if (read->tooLarge) Raise(kErrOverflow);
        based = read->based;
        return read->value;
    }
    case VarType::Object:
    case VarType::Array: break;
    }
    Raise(kErrTypeMismatch);
}

double NumberOf(const Variant& value)
{
    bool based = false;
    return NumberOf(value, based);
}

/// The digits of a number; those of exact kinds are exact.
Digits NumberDigits(const Variant& value)
{
    Variant held;
    const Variant& plain = Resolve(value, held);
    if (const auto* currency = plain.As<Currency>()) return ScaledDigits(currency->tenThousandths, 4);
    if (const auto* decimal = plain.As<Decimal>()) return ScaledDigits(decimal->units, decimal->scale);
    if (const auto* single = plain.As<float>()) return DigitsOf(static_cast<double>(*single), 7);
    return DigitsOf(NumberOf(plain));
}

/// The nearest whole number, half to even.
double WholeNumberOf(const Variant& value, bool& based)
{
    Variant held;
    const Variant& plain = Resolve(value, held);
    if (plain.As<Currency>() != nullptr || plain.As<Decimal>() != nullptr) {
        Digits digits = NumberDigits(plain);
        RoundAt(digits, 0, Half::ToEven);
        return ValueOf(digits);
    }
    return std::nearbyint(NumberOf(plain, based));
}

template <class Whole>
Whole ToWhole(const Variant& value)
{
    bool based = false;
    double number = WholeNumberOf(value, based);
    // "&HFFFF" fills 16 bits: read as a signed number it is -1.
    constexpr auto highest = static_cast<double>(std::numeric_limits<Whole>::max());
    constexpr auto lowest = static_cast<double>(std::numeric_limits<Whole>::min());
    if (std::numeric_limits<Whole>::is_signed && based && number > highest && number <= 2 * highest + 1)
        number -= 2 * (highest + 1);
    if (!(number >= lowest && number <= highest)) Raise(kErrOverflow);
    return static_cast<Whole>(number);
}

/// The digits as a count of 10^-scale. @throws Error 6: too large
std::int64_t UnitsOf(Digits digits, std::int32_t scale)
{
    RoundAt(digits, scale, Half::ToEven);
    if (digits.IsZero()) return 0;
    const std::int32_t length = digits.point + scale;
    if (length > 19) Raise(kErrOverflow);
    std::array<char, 24> text{};
    char* out = text.data();
    if (digits.negative) *out++ = '-';
    for (std::int32_t place = digits.point - 1; place >= -scale; --place)
        *out++ = digits.At(place);
    std::int64_t units = 0;
    const auto [end, error] = std::from_chars(text.data(), out, units);
    if (error != std::errc{}) Raise(kErrOverflow);
    return units;
}

template <class T>
std::string WholeText(T value)
{
    char buffer[24];
    return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

std::string DateText(Date date)
{
    const DateParts parts = PartsOf(date);
    const bool hasTime = parts.hour != 0 || parts.minute != 0 || parts.second != 0;
    const bool hasDay = parts.year != 1899 || parts.month != 12 || parts.day != 30;
    const Locale& locale = CurrentLocale();
    if (!hasDay) return FormatDate(date, locale.longTimeMask);
    std::string text = FormatDate(date, locale.shortDateMask);
    if (hasTime) text.append(" ").append(FormatDate(date, locale.longTimeMask));
    return text;
}

/// The words that mean true and false: those of the locale, the English ones, and what the classic platform writes
/// into files.
std::optional<bool> ReadBooleanWord(std::string_view text, const Locale& locale)
{
    if (SameTextIgnoringCase(text, locale.trueWord) || SameName(text, "True") || SameName(text, "#TRUE#")) return true;
    if (SameTextIgnoringCase(text, locale.falseWord) || SameName(text, "False") || SameName(text, "#FALSE#"))
        return false;
    return std::nullopt;
}

/// Cuts a number; what its kind is afterwards.
template <class Cut>
Variant CutNumber(const Variant& value, Cut cut)
{
    Variant held;
    const Variant& plain = Resolve(value, held);
    switch (plain.Type()) {
    case VarType::Null:
    case VarType::Byte:
    case VarType::Integer:
    case VarType::Long: return plain;
    case VarType::Empty: return std::int16_t{0};
    case VarType::Boolean: return static_cast<std::int16_t>(plain.Held<bool>() ? -1 : 0);
    case VarType::Single: return static_cast<float>(cut(static_cast<double>(plain.Held<float>())));
    case VarType::Date: return Date{cut(plain.Held<Date>().days)};
    case VarType::Currency: {
        const std::int64_t all = plain.Held<Currency>().tenThousandths;
        const std::int64_t whole = all / 10000 * 10000;
        const bool down = all < 0 && all != whole && cut(-0.5) < 0;
        return Currency{down ? whole - 10000 : whole};
    }
    case VarType::Decimal: {
        const Decimal& decimal = plain.Held<Decimal>();
        std::int64_t divisor = 1;
        for (std::uint8_t i = 0; i < decimal.scale && i < 18; ++i)
            divisor *= 10;
        const std::int64_t whole = decimal.units / divisor;
        const bool down = decimal.units < 0 && decimal.units % divisor != 0 && cut(-0.5) < 0;
        return Decimal{down ? whole - 1 : whole, 0};
    }
    default: return cut(NumberOf(plain));
    }
}

bool IsNumberKind(VarType type)
{
    switch (type) {
    case VarType::Boolean:
    case VarType::Byte:
    case VarType::Integer:
    case VarType::Long:
    case VarType::Single:
    case VarType::Double:
    case VarType::Currency:
    case VarType::Decimal:
    case VarType::Date: return true;
    default: return false;
    }
}

bool SameDigits(const Digits& a, const Digits& b)
{
    return a.negative == b.negative && a.point == b.point &&
           std::string_view(a.digit.data(), static_cast<std::size_t>(a.count)) ==
               std::string_view(b.digit.data(), static_cast<std::size_t>(b.count));
}

bool SameNumber(const Variant& a, const Variant& b)
{
    const auto isExact = [](const Variant& v) { return v.As<Currency>() != nullptr || v.As<Decimal>() != nullptr; };
    if (isExact(a) || isExact(b)) return SameDigits(NumberDigits(a), NumberDigits(b));
    return NumberOf(a) == NumberOf(b);
}

} // namespace

std::string TypeName(const Variant& value)
{
    switch (value.Type()) {
    case VarType::Empty: return "Empty";
    case VarType::Null: return "Null";
    case VarType::Integer: return "Integer";
    case VarType::Long: return "Long";
    case VarType::Single: return "Single";
    case VarType::Double: return "Double";
    case VarType::Currency: return "Currency";
    case VarType::Date: return "Date";
    case VarType::String: return "String";
    case VarType::Object: {
        const ObjectRef& object = value.Held<ObjectRef>();
        return object == nullptr ? "Nothing" : object->TypeName();
    }
    case VarType::Boolean: return "Boolean";
    case VarType::Decimal: return "Decimal";
    case VarType::Byte: return "Byte";
    case VarType::Array: break;
    }
    return "Variant()";
}

std::int16_t VarTypeOf(const Variant& value)
{
    constexpr std::int16_t kVariantItems = 12;
    const auto number = static_cast<std::int16_t>(value.Type());
    return value.IsArray() ? static_cast<std::int16_t>(number + kVariantItems) : number;
}

std::string NumberText(double value)
{
    constexpr double kFastLimit = 1e9;
    if (value > -kFastLimit && value < kFastLimit && value == std::trunc(value))
        return WholeText(static_cast<std::int32_t>(value));
    return TextOf(DigitsOf(value), CurrentLocale().decimalSeparator);
}

std::string BooleanText(bool value)
{
    return value ? CurrentLocale().trueWord : CurrentLocale().falseWord;
}

std::string CStr(const Variant& value)
{
    Variant held;
    const Variant& plain = Resolve(value, held);
    switch (plain.Type()) {
    case VarType::Empty: return {};
    case VarType::Null: Raise(kErrInvalidNull);
    case VarType::Boolean: return BooleanText(plain.Held<bool>());
    case VarType::Byte: return WholeText(static_cast<std::int32_t>(plain.Held<std::uint8_t>()));
    case VarType::Integer: return WholeText(static_cast<std::int32_t>(plain.Held<std::int16_t>()));
    case VarType::Long: return WholeText(plain.Held<std::int32_t>());
    case VarType::Single: return TextOf(NumberDigits(plain), CurrentLocale().decimalSeparator, 7);
    case VarType::Double: return NumberText(plain.Held<double>());
    case VarType::Currency:
    case VarType::Decimal: return TextOf(NumberDigits(plain), CurrentLocale().decimalSeparator, kExactDigits);
    case VarType::Date: return DateText(plain.Held<Date>());
    case VarType::String: return plain.Held<std::string>();
    case VarType::Object:
    case VarType::Array: break;
    }
    Raise(kErrTypeMismatch);
}

std::string ToText(const Variant& value)
{
    Variant held;
    const Variant& plain = Resolve(value, held);
    return plain.IsNull() ? std::string() : CStr(plain);
}

double CDbl(const Variant& value)
{
    return NumberOf(value);
}

float CSng(const Variant& value)
{
    const double number = NumberOf(value);
    if (std::fabs(number) > static_cast<double>(std::numeric_limits<float>::max())) Raise(kErrOverflow);
    return static_cast<float>(number);
}

std::int16_t CInt(const Variant& value)
{
    return ToWhole<std::int16_t>(value);
}

std::int32_t CLng(const Variant& value)
{
    if (const auto* whole = value.As<std::int32_t>()) return *whole;
    return ToWhole<std::int32_t>(value);
}

std::uint8_t CByte(const Variant& value)
{
    Variant held;
    const Variant& plain = Resolve(value, held);
    // True has all bits set.
    if (const auto* boolean = plain.As<bool>()) return *boolean ? 255 : 0;
    return ToWhole<std::uint8_t>(plain);
}

bool CBool(const Variant& value)
{
    Variant held;
    const Variant& plain = Resolve(value, held);
    if (const auto* text = plain.As<std::string>()) {
        if (const std::optional<bool> word = ReadBooleanWord(*text, CurrentLocale())) return *word;
    }
    return NumberOf(plain) != 0;
}

std::optional<bool> ReadBoolean(std::string_view text)
{
    const std::string trimmed = Trim(text);
    for (const Locale* locale : {&CurrentLocale(), &GermanLocale()})
        if (const std::optional<bool> word = ReadBooleanWord(trimmed, *locale)) return word;
    const std::optional<double> number = ReadNumber(trimmed);
    if (!number) return std::nullopt;
    return *number != 0;
}

Date CDate(const Variant& value)
{
    Variant held;
    const Variant& plain = Resolve(value, held);
    if (const auto* date = plain.As<Date>()) return *date;
    if (const auto* text = plain.As<std::string>()) {
        if (const std::optional<Date> date = ReadDateText(*text)) return *date;
        if (!MayBeSerial(*text)) Raise(kErrTypeMismatch);
    }
    const double days = NumberOf(plain);
    if (!IsInDateRange(days)) Raise(kErrOverflow);
    return Date{days};
}

Currency CCur(const Variant& value)
{
    return Currency{UnitsOf(NumberDigits(value), 4)};
}

Decimal CDec(const Variant& value)
{
    constexpr std::int32_t kMostDigits = 18;
    const Digits digits = NumberDigits(value);
    const std::int32_t decimals = std::max(digits.count - digits.point, 0);
    const std::int32_t scale = std::min(decimals, kMostDigits - std::min(std::max(digits.point, 0), kMostDigits));
    return Decimal{UnitsOf(digits, scale), static_cast<std::uint8_t>(scale)};
}

bool IsNumeric(const Variant& value)
{
    if (value.IsObject()) {
        try {
            Variant held;
            return IsNumeric(Resolve(value, held));
        } catch (const Error&) {
            return false; // an object without a value is no number; the question itself must not fail
        }
    }
    if (const auto* text = value.As<std::string>()) return ReadNumber(*text).has_value();
    return value.IsEmpty() || (IsNumberKind(value.Type()) && value.As<Date>() == nullptr);
}

bool IsDate(const Variant& value)
{
    if (value.IsObject()) {
        try {
            Variant held;
            return IsDate(Resolve(value, held));
        } catch (const Error&) {
            return false; // an object without a value is no date; the question itself must not fail
        }
    }
    if (const auto* text = value.As<std::string>()) return ReadDateText(*text).has_value();
    return value.As<Date>() != nullptr;
}

std::optional<double> ReadNumber(std::string_view text)
{
    const std::optional<NumberRead> read = ReadNumberText(text);
    if (!read || read->tooLarge) return std::nullopt;
    return read->value;
}

double ReadVal(std::string_view text)
{
    // Blanks, tabs and line ends do not count, wherever they stand.
    std::string packed;
    packed.reserve(text.size());
    for (const char c : text)
        if (c != ' ' && c != '\t' && c != '\n' && c != '\r') packed.push_back(c);

    if (packed.size() > 2 && packed[0] == '&') {
        const char kind = packed[1];
        const int base = kind == 'H' || kind == 'h' ? 16 : kind == 'O' || kind == 'o' ? 8 : 0;
        if (base == 0) return 0;
        std::uint32_t number = 0;
        const char* last = packed.data() + packed.size();
        const auto [end, error] = std::from_chars(packed.data() + 2, last, number, base);
        if (error != std::errc{}) return 0;
        // Without "&" behind it, what fits 16 bits is a 16-bit number with a sign.
        const bool isLong = end != last && *end == '&';
        if (!isLong && number <= 0xFFFF) return static_cast<std::int16_t>(static_cast<std::uint16_t>(number));
        return static_cast<std::int32_t>(number);
    }

    std::size_t at = 0;
    const auto isDigit = [&] { return at < packed.size() && packed[at] >= '0' && packed[at] <= '9'; };
    if (at < packed.size() && packed[at] == '+')
        packed.erase(0, 1);
    else if (at < packed.size() && packed[at] == '-')
        ++at;
    const std::size_t firstDigit = at;
    while (isDigit())
        ++at;
    std::size_t digits = at - firstDigit;
    if (at < packed.size() && packed[at] == '.') {
        const std::size_t point = at++;
        while (isDigit())
            ++at;
        digits += at - point - 1;
    }
    if (digits == 0) return 0;
    std::size_t end = at;
    if (at < packed.size() && std::string_view("eEdD").find(packed[at]) != std::string_view::npos) {
        const std::size_t letter = at++;
        if (at < packed.size() && (packed[at] == '+' || packed[at] == '-')) ++at;
        const std::size_t firstOfExponent = at;
        while (isDigit())
            ++at;
        if (at > firstOfExponent) {
            packed[letter] = 'e';
            end = at;
        }
    }
    double value = 0;
    const auto [stop, error] = std::from_chars(packed.data(), packed.data() + end, value);
    if (error == std::errc::result_out_of_range) return 0;
    return value;
}

double Val(const Variant& value)
{
    return ReadVal(CStr(value));
}

std::string Str(const Variant& value)
{
    Variant held;
    const Variant& plain = Resolve(value, held);
    if (plain.As<Date>() != nullptr || plain.As<bool>() != nullptr) return CStr(plain);
    const bool isExact = plain.As<Currency>() != nullptr || plain.As<Decimal>() != nullptr;
    const std::int32_t significant = isExact ? kExactDigits : plain.As<float>() != nullptr ? 7 : 15;
    const Digits digits = NumberDigits(plain);
    std::string text = TextOf(digits, ".", significant, /*zeroBeforePoint=*/false);
    if (!digits.negative) text.insert(0, 1, ' ');
    return text;
}

Variant Fix(const Variant& value)
{
    return CutNumber(value, [](double number) { return std::trunc(number); });
}

Variant Int(const Variant& value)
{
    return CutNumber(value, [](double number) { return std::floor(number); });
}

double Fix(double value)
{
    return std::trunc(value);
}

double Int(double value)
{
    return std::floor(value);
}

double Round(double value, std::int32_t decimals)
{
    Digits digits = DigitsOf(value);
    RoundAt(digits, decimals, Half::ToEven);
    return ValueOf(digits);
}

double RoundHalfUp(double value, std::int32_t decimals)
{
    Digits digits = DigitsOf(value);
    RoundAt(digits, decimals);
    return ValueOf(digits);
}

bool SameValue(const Variant& a, const Variant& b)
{
    if (IsNumberKind(a.Type()) && IsNumberKind(b.Type())) return SameNumber(a, b);
    if (a.Type() != b.Type()) return false;
    if (const auto* text = a.As<std::string>()) return *text == b.Held<std::string>();
    if (const auto* object = a.As<ObjectRef>()) return *object == b.Held<ObjectRef>();
    if (const VariantArray* items = a.AsArray()) {
        const VariantArray& others = *b.AsArray();
        if (items->size() != others.size()) return false;
        for (std::size_t i = 0; i < items->size(); ++i)
            if (!SameValue((*items)[i], others[i])) return false;
    }
    return true;
}

bool Equals(const Variant& a, const Variant& b)
{
    Variant heldA, heldB;
    const Variant& left = Resolve(a, heldA);
    const Variant& right = Resolve(b, heldB);
    if (left.IsNull() || right.IsNull()) return false;
    if (left.IsArray() || right.IsArray()) Raise(kErrTypeMismatch);
    if (left.IsText() && right.IsText()) return left.Held<std::string>() == right.Held<std::string>();
    if (left.IsText() || right.IsText()) {
        const std::string& text = (left.IsText() ? left : right).Held<std::string>();
        const Variant& other = left.IsText() ? right : left;
        if (other.IsEmpty()) return text.empty();
        const std::optional<double> number = ReadNumber(text);
        return number && SameNumber(*number, other);
    }
    return SameNumber(left.IsEmpty() ? Variant(0.0) : left, right.IsEmpty() ? Variant(0.0) : right);
}

} // namespace kvx::basic
