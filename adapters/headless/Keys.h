#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace kvx::adapters::headless {

struct KeyStroke {
    std::int16_t keyCode = 0;    ///< 0 = only a character
    std::int16_t shift = 0;      ///< vbShiftMask, vbCtrlMask, vbAltMask
    std::int32_t character = 0;  ///< 0 = a key without a character
};

/// Reads keys as SendKeys takes them: characters as they stand, "{TAB}" "{ENTER}" "{ESC}" "{DEL}" "{BS}" "{HOME}"
/// "{F2}"
/// ..., "{TAB 3}" three times, "+" "^" "%" before a key (or a group in brackets) for Shift, Ctrl and Alt, "~" for
/// Enter,
/// "{+}" for the sign itself.
/// @throws basic::Error 5: a name that no key has, or a bracket without end
std::vector<KeyStroke> ParseKeys(std::string_view keys);

/// The strokes that type a text, every character as it stands.
std::vector<KeyStroke> TypeKeys(std::string_view text);

}  // namespace kvx::adapters::headless
