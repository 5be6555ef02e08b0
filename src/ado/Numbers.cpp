#include "ado/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>

namespace kvx::ado {
namespace {

template <class T>
std::string_view Write(T value)
{
    thread_local std::array<char, 40> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data())};
}

template <class T>
T Read(std::string_view text)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '+'))
        text.remove_prefix(1);
    T value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

} // namespace

std::string_view Digits(std::int64_t value)
{
    return Write(value);
}

std::string_view Digits(double value)
{
    return Write(value);
}

std::int64_t LeadingInteger(std::string_view text)
{
    return Read<std::int64_t>(text);
}

double LeadingDouble(std::string_view text)
{
    return Read<double>(text);
}

std::int64_t IntegerOf(double value)
{
    return std::abs(value) < 9.2e18 ? static_cast<std::int64_t>(value) : 0;
}

} // namespace kvx::ado
