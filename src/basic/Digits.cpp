#include "basic/Digits.h"

#include "basic/Locale.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace kvx::basic {
namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsWhite(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

void StripZeros(Digits& digits)
{
    while (digits.count > 0 && digits.digit[static_cast<std::size_t>(digits.count - 1)] == '0')
        --digits.count;
    if (digits.count == 0) digits.point = 0;
}

/// Takes a beginning off the text, if it stands there.
bool Take(std::string_view& text, std::string_view beginning)
{
    if (beginning.empty() || !text.starts_with(beginning)) return false;
    text.remove_prefix(beginning.size());
    return true;
}

void SkipWhite(std::string_view& text)
{
    while (!text.empty() && IsWhite(text.front()))
        text.remove_prefix(1);
}

/// Digits of a number written as &H or &O, behind these two characters.
std::optional<NumberRead> ReadBaseNumber(std::string_view text, int base)
{
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (end == text.data() || text.front() == '-') return std::nullopt;
    NumberRead read;
    read.value = static_cast<double>(value);
    read.based = true;
    read.tooLarge = error == std::errc::result_out_of_range;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    SkipWhite(text);
    if (!text.empty()) return std::nullopt;
    return read;
}

/// What stands around the digits.
struct Signs {
    bool sign = false, minus = false, bracket = false, currency = false;
};

Signs TakeLeadingSigns(std::string_view& text, const Locale& locale)
{
    Signs signs;
    for (;;) {
        SkipWhite(text);
        if (!signs.sign && (text.starts_with('+') || text.starts_with('-'))) {
            signs.sign = true;
            signs.minus = text.front() == '-';
            text.remove_prefix(1);
        } else if (!signs.sign && text.starts_with('(')) {
            signs.sign = signs.bracket = signs.minus = true;
            text.remove_prefix(1);
        } else if (!signs.currency && Take(text, locale.currencySign)) {
            signs.currency = true;
        } else {
            return signs;
        }
    }
}

/// False when something stands behind the number that does not belong to it.
bool TakeTrailingSigns(std::string_view& text, const Locale& locale, Signs& signs)
{
    bool bracketClosed = !signs.bracket;
    for (;;) {
        SkipWhite(text);
        if (!signs.sign && (text.starts_with('+') || text.starts_with('-'))) {
            signs.sign = true;
            signs.minus = text.front() == '-';
            text.remove_prefix(1);
        } else if (!bracketClosed && text.starts_with(')')) {
            bracketClosed = true;
            text.remove_prefix(1);
        } else if (!signs.currency && Take(text, locale.currencySign)) {
            signs.currency = true;
        } else {
            return text.empty() && bracketClosed;
        }
    }
}

/// Moves the digits into a number that from_chars reads; false when there are none.
bool TakeDigits(std::string_view& text, const Locale& locale, std::string& number)
{
    bool anyDigit = false;
    bool decimal = false;
    for (;;) {
        std::size_t run = 0;
        while (run < text.size() && IsDigit(text[run]))
            ++run;
        if (run > 0) {
            number.append(text.substr(0, run));
            text.remove_prefix(run);
            anyDigit = true;
        } else if (!decimal && Take(text, locale.decimalSeparator)) {
            if (!anyDigit) number.push_back('0');
            number.push_back('.');
            decimal = true;
        } else if (!anyDigit || decimal || !Take(text, locale.thousandsSeparator)) {
            break;
        }
    }
    if (!anyDigit) return false;
    if (number.back() == '.') number.push_back('0');
    return true;
}

/// False when a letter of an exponent stands there without digits.
bool TakeExponent(std::string_view& text, std::string& number)
{
    if (text.empty() || std::string_view("eEdD").find(text.front()) == std::string_view::npos) return true;
    text.remove_prefix(1);
    number.push_back('e');
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
        number.push_back(text.front());
        text.remove_prefix(1);
    }
    if (number.back() == '+') number.pop_back();
    std::size_t run = 0;
    while (run < text.size() && IsDigit(text[run]))
        ++run;
    if (run == 0) return false;
    number.append(text.substr(0, run));
    text.remove_prefix(run);
    return true;
}

} // namespace

Digits DigitsOf(double value, std::int32_t significant)
{
    Digits digits;
    if (value == 0 || !std::isfinite(value)) return digits;
    digits.negative = value < 0;
    char buffer[40];
    const auto [end, error] =
        std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value), std::chars_format::scientific, significant - 1);
    const char* read = buffer;
    for (; read != end && *read != 'e'; ++read)
        if (*read != '.') digits.digit[static_cast<std::size_t>(digits.count++)] = *read;
    std::int32_t exponent = 0;
    const char* exponentText = read + 1 + (read[1] == '+' ? 1 : 0);
    std::from_chars(exponentText, end, exponent);
    digits.point = exponent + 1;
    StripZeros(digits);
    return digits;
}

Digits ScaledDigits(std::int64_t units, std::uint8_t scale)
{
    Digits digits;
    if (units == 0) return digits;
    digits.negative = units < 0;
    const std::uint64_t magnitude =
        units < 0 ? ~static_cast<std::uint64_t>(units) + 1 : static_cast<std::uint64_t>(units);
    const auto [end, error] = std::to_chars(digits.digit.data(), digits.digit.data() + digits.digit.size(), magnitude);
    digits.count = static_cast<std::int32_t>(end - digits.digit.data());
    digits.point = digits.count - scale;
    StripZeros(digits);
    return digits;
}

void RoundAt(Digits& digits, std::int32_t decimals, Half half)
{
    const std::int32_t keep = digits.point + decimals;
    if (keep >= digits.count) return;
    if (keep < 0) {
        digits.count = 0;
        digits.point = 0;
        return;
    }
    const auto at = [&](std::int32_t index) -> char& { return digits.digit[static_cast<std::size_t>(index)]; };
    bool up = at(keep) >= '5';
    if (half == Half::ToEven && at(keep) == '5' && digits.count == keep + 1)
        up = keep > 0 && (at(keep - 1) - '0') % 2 == 1;
    digits.count = keep;
    if (up) {
        while (digits.count > 0 && at(digits.count - 1) == '9')
            --digits.count;
        if (digits.count == 0) {
            at(0) = '1';
            digits.count = 1;
            ++digits.point;
        } else {
            ++at(digits.count - 1);
        }
    }
    StripZeros(digits);
}

double ValueOf(const Digits& digits)
{
    if (digits.IsZero()) return 0;
    char buffer[48];
    char* out = buffer;
    if (digits.negative) *out++ = '-';
    *out++ = '0';
    *out++ = '.';
    for (std::int32_t i = 0; i < digits.count; ++i)
        *out++ = digits.digit[static_cast<std::size_t>(i)];
    *out++ = 'e';
    out = std::to_chars(out, buffer + sizeof buffer, digits.point).ptr;
    double value = 0;
    std::from_chars(buffer, out, value);
    return value;
}

std::string TextOf(const Digits& digits, std::string_view decimalSeparator, std::int32_t significant,
                   bool zeroBeforePoint)
{
    std::string text;
    if (digits.IsZero()) return "0";
    if (digits.negative) text.push_back('-');
    const std::string_view all(digits.digit.data(), static_cast<std::size_t>(digits.count));
    const std::int32_t decimals = digits.count - digits.point;
    if (digits.point > significant || decimals > significant) {
        text.push_back(all.front());
        if (all.size() > 1) text.append(decimalSeparator).append(all.substr(1));
        const std::int32_t exponent = digits.point - 1;
        const std::int32_t magnitude = exponent < 0 ? -exponent : exponent;
        text.append(exponent < 0 ? "E-" : "E+");
        if (magnitude < 10) text.push_back('0');
        text.append(std::to_string(magnitude));
        return text;
    }
    if (digits.point <= 0) {
        if (zeroBeforePoint) text.push_back('0');
        text.append(decimalSeparator).append(static_cast<std::size_t>(-digits.point), '0').append(all);
        return text;
    }
    const auto before = static_cast<std::size_t>(digits.point);
    if (before >= all.size()) return text.append(all).append(before - all.size(), '0');
    return text.append(all.substr(0, before)).append(decimalSeparator).append(all.substr(before));
}

std::optional<NumberRead> ReadNumberText(std::string_view text)
{
    const Locale& locale = CurrentLocale();
    Signs signs = TakeLeadingSigns(text, locale);
    if (text.starts_with('&') && text.size() > 2 && !signs.sign && !signs.currency) {
        if (text[1] == 'H' || text[1] == 'h') return ReadBaseNumber(text.substr(2), 16);
        if (text[1] == 'O' || text[1] == 'o') return ReadBaseNumber(text.substr(2), 8);
        return std::nullopt;
    }
    std::string number;
    if (!TakeDigits(text, locale, number) || !TakeExponent(text, number)) return std::nullopt;
    if (!TakeTrailingSigns(text, locale, signs)) return std::nullopt;

    NumberRead read;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), read.value);
    // Out of range is reported for both ends; only numbers below 1 can be too small to hold, and these count as 0.
    if (error == std::errc::result_out_of_range) {
        const bool tooSmall = number.find("e-") != std::string::npos || number.starts_with("0.");
        read.value = 0;
        read.tooLarge = !tooSmall;
    }
    if (signs.minus) read.value = -read.value;
    return read;
}

} // namespace kvx::basic
