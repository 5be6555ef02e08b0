#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kvx::loc {

/// What a mask of a number box allows: "-#######0.00" is a sign, eight digits and two decimals. "#" and "0" count
/// alike,
/// "," is grouping and counts nothing.
struct NumberMask {
    explicit NumberMask(std::string_view mask);

    bool limits = false;    ///< false: the mask names no digits, every key passes
    bool minus = false;     ///< the mask begins with "-"
    std::int32_t whole = 0; ///< digits before the decimal sign
    std::int32_t decimals = 0;

    /// The key that may go into the text.
    ///
    /// A key is judged by the place where it lands: digits already there that break the mask (a value loaded with more
    /// decimals) do not lock the rest of the box. Below 32 and 127 (Backspace, Enter, Ctrl combinations) all pass.
    /// The point counts as the decimal sign in every language, since it is the key of many numeric keypads and boxes
    /// never hold thousands signs; a comma counts where the language writes decimals with it.
    /// @param key       character typed
    /// @param before    text in front of the caret
    /// @param behind    text behind the marked text, which the key replaces
    /// @param decimalSign  the locale's
    /// @return the key, the decimal sign in its place, or 0
    std::int32_t Admit(std::int32_t key, std::string_view before, std::string_view behind,
                       std::string_view decimalSign) const;
};

} // namespace kvx::loc
