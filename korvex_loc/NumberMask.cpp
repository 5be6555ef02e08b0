#include "korvex_loc/NumberMask.h"

#include "basic/Text.h"

#include <algorithm>

namespace kvx::loc {

namespace {

std::int32_t Digits(std::string_view text)
{
    return static_cast<std::int32_t>(std::ranges::count_if(text, [](char c) { return c >= '0' && c <= '9'; }));
}

}  // namespace

NumberMask::NumberMask(std::string_view mask) : minus(mask.starts_with('-'))
{
    bool behindPoint = false;
    for (const char c : mask) {
        if (c == '.') behindPoint = true;
        if (c != '#' && c != '0') continue;
        limits = true;
        ++(behindPoint ? decimals : whole);
    }
}

std::int32_t NumberMask::Admit(std::int32_t key, std::string_view before, std::string_view behind,
                               std::string_view decimalSign) const
{
    if (!limits || key < 32 || key == 127) return key;
    const std::size_t signBefore = before.find(decimalSign), signBehind = behind.find(decimalSign);
    constexpr std::size_t kNone = std::string_view::npos;
    if (key == '-') {
        return minus && before.empty() && !behind.starts_with('-') ? key : 0;
    }
    if (behind.starts_with('-')) return 0;  // nothing goes in front of the sign
    if (key >= '0' && key <= '9') {
        const bool inDecimals = signBefore != kNone;
        const std::int32_t there = inDecimals ? Digits(before.substr(signBefore)) + Digits(behind)
                                              : Digits(before) + Digits(behind.substr(0, signBehind));
        return there < (inDecimals ? decimals : whole) ? key : 0;
    }
    const std::int32_t sign = basic::AscW(decimalSign);
    if (key != '.' && key != sign) return 0;
    const bool fits = decimals > 0 && signBefore == kNone && signBehind == kNone && Digits(behind) <= decimals;
    return fits ? sign : 0;
}

}  // namespace kvx::loc
