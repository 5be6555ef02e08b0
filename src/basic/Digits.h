#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Numbers as decimal digits: what conversions and formats share. Not meant for the layers above.
namespace kvx::basic {

/// A decimal number: 0.d1d2d3... times ten to the power of point. No digits = 0.
struct Digits {
    std::array<char, 24> digit{}; ///< '0' to '9'; neither the first nor the last is '0'
    std::int32_t count = 0;
    std::int32_t point = 0;
    bool negative = false;

    bool IsZero() const { return count == 0; }
    /// The digit of the place value 10^place; '0' where there is none.
    char At(std::int32_t place) const
    {
        const std::int32_t index = point - 1 - place;
        return index >= 0 && index < count ? digit[static_cast<std::size_t>(index)] : '0';
    }
};

/// The number cut to so many significant digits (15 for a Double, 7 for a Single), rounded to the nearest.
/// Infinity and "not a number" count as 0.
Digits DigitsOf(double value, std::int32_t significant = 15);
/// Units of 10^-scale, exactly.
Digits ScaledDigits(std::int64_t units, std::uint8_t scale);

enum class Half : std::uint8_t { AwayFromZero, ToEven };
/// Rounds to so many decimals (below 0: tens, hundreds ...). The sign stays when nothing is left.
void RoundAt(Digits& digits, std::int32_t decimals, Half half = Half::AwayFromZero);

/// The digits as a Double.
double ValueOf(const Digits& digits);

/// Fixed notation while neither side of the decimal sign needs more than the significant digits, else "1,5E+20".
std::string TextOf(const Digits& digits, std::string_view decimalSeparator, std::int32_t significant = 15,
                   bool zeroBeforePoint = true);

/// What a text that reads as a number holds.
struct NumberRead {
    double value = 0;
    bool based = false;    ///< written as &H or &O: in 16 or 32 bits the top bit is the sign
    bool tooLarge = false; ///< no Double holds it; value is then 0
};
/// By the current locale: blanks around, one sign before or behind, brackets as minus, currency sign, thousands signs
/// anywhere behind the first digit, one decimal sign, exponent, &H and &O. Nothing when the text is no number.
std::optional<NumberRead> ReadNumberText(std::string_view text);

} // namespace kvx::basic
