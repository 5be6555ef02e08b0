#pragma once

#include <cstdint>
#include <string_view>

// Numbers and texts as engines write them: decimal point, no grouping.
namespace kvx::ado {

/// The shortest digits that read back as the number, in a buffer that the thread's next such call overwrites.
std::string_view Digits(std::int64_t value);
std::string_view Digits(double value);

/// The number a text starts with, blanks in front ignored; 0 when there is none.
std::int64_t LeadingInteger(std::string_view text);
double LeadingDouble(std::string_view text);

/// Cut to a whole number; 0 when it is too large for one.
std::int64_t IntegerOf(double value);

} // namespace kvx::ado
