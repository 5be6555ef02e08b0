#pragma once

#include "basic/Variant.h"

#include <string>
#include <string_view>

namespace kvx::basic {

/// Writes a value by a mask. "." of a number mask is the decimal place and "," the grouping whatever the locale; the
/// result uses the locale's signs. Rounds half away from zero on the 15 significant digits; a negative number that
/// rounds to zero keeps its sign ("-0,00"). "-", "+", blanks and brackets of a mask are printed as they stand.
/// @param value  a text that reads as a number (or, for a date mask, as a date) counts as such; other texts come back
///               unchanged; Null gives ""
/// @param mask   number mask of up to four sections, date mask, text mask ("@", "&") or a name ("Fixed", "Short Date");
///               empty: the value as CStr writes it
/// @throws Error 13: an array; 91: Nothing
std::string Format(const Variant& value, std::string_view mask = {});

} // namespace kvx::basic
