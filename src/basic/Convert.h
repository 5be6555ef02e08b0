#pragma once

#include "basic/Variant.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Conversions by the current locale. Common errors: 13 = the value cannot be read as that kind, 6 = out of range,
// 94 = Null, 91 = Nothing. An object stands for its default property.
namespace kvx::basic {

/// "Integer", "String", "Null", "Empty", "Nothing", "Variant()" ...; for an object the name of its kind.
std::string TypeName(const Variant& value);
/// The number of the kind, e.g. 8 for text; arrays are 8204.
std::int16_t VarTypeOf(const Variant& value);

/// The value as text: local decimal separator, at most 15 digits, no grouping; dates as short date, with the time only
/// if there is one. @throws Error 94: Null, 13: an array
std::string CStr(const Variant& value);
/// As CStr, but Null is "": what "" & value gives.
std::string ToText(const Variant& value);
/// A number as CStr writes it.
std::string NumberText(double value);
std::string BooleanText(bool value);

double CDbl(const Variant& value);
float CSng(const Variant& value);
/// Whole numbers: half goes to the even neighbour.
std::int16_t CInt(const Variant& value);
std::int32_t CLng(const Variant& value);
std::uint8_t CByte(const Variant& value);
/// Any number but 0 is true; texts may be the words of the locale or the English ones, in any case.
bool CBool(const Variant& value);
/// What a program wrote as a truth value, be it on a German or an English machine: both languages' words in any case,
/// or a number; nothing when the text is neither.
std::optional<bool> ReadBoolean(std::string_view text);
Date CDate(const Variant& value);
Currency CCur(const Variant& value);
/// An exact decimal with at most 18 digits; Doubles and texts count with 15.
Decimal CDec(const Variant& value);

/// True when CDbl would succeed and the value is neither Null nor a Date; never raises.
bool IsNumeric(const Variant& value);
/// True for a Date and for a text that is written as a date or a time; never raises.
bool IsDate(const Variant& value);

/// Reads a number by the current locale, nothing when the text is none or the number is too large.
std::optional<double> ReadNumber(std::string_view text);

/// Reads from the left with a decimal point only, whatever the locale; stops at what it does not know. 0 when there is
/// nothing to read.
double ReadVal(std::string_view text);
/// ReadVal of the value's text. @throws Error 94: Null
double Val(const Variant& value);
/// Decimal point, a blank in front of what is not negative, no zero before the point.
std::string Str(const Variant& value);

/// Cut towards zero, and down; the kind of number stays (a text becomes a Double), Null stays Null.
Variant Fix(const Variant& value);
Variant Int(const Variant& value);
double Fix(double value);
double Int(double value);

/// The nearest number with so many decimals, half to even, as the classic platform rounds.
double Round(double value, std::int32_t decimals = 0);
/// The same, half away from zero on the decimal digits of the number, as Format rounds.
double RoundHalfUp(double value, std::int32_t decimals);

/// Calendar parts of a date.
struct DateParts {
    std::int32_t year = 1899, month = 12, day = 30;
    std::int32_t hour = 0, minute = 0, second = 0;
};
/// @throws Error 6: outside the years 100 to 9999
DateParts PartsOf(Date date);
/// The parts may be out of their range (month 13, day 0): they roll over. Years count as written.
/// @throws Error 6: outside the years 100 to 9999
Date DateOf(const DateParts& parts);

/// As DateOf, but years 0 to 29 mean 20xx, 30 to 99 mean 19xx.
/// @throws Error 6: an argument beyond 16 bits; 5: outside the years 100 to 9999; 13: a text that is no number
Date DateSerial(const Variant& year, const Variant& month, const Variant& day);
Date TimeSerial(const Variant& hour, const Variant& minute, const Variant& second);

std::int16_t Year(const Variant& date);
std::int16_t Month(const Variant& date);
std::int16_t Day(const Variant& date);
std::int16_t Hour(const Variant& date);
std::int16_t Minute(const Variant& date);
std::int16_t Second(const Variant& date);
/// 1 = Sunday .. 7 = Saturday.
std::int16_t Weekday(const Variant& date);

/// True when both are the same for whoever looks for changes: Null equals Null, Empty equals Empty, numbers (also of
/// different kinds), dates and truth values by value, texts binary, objects by identity, arrays item by item.
bool SameValue(const Variant& a, const Variant& b);
/// What "=" gives as a condition: false when either is Null; Empty counts as 0 or ""; a number and a text differ
/// unless the text reads as that number.
bool Equals(const Variant& a, const Variant& b);

} // namespace kvx::basic
