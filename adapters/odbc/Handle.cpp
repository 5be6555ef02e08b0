#include "adapters/odbc/Handle.h"

#include <cstdint>

namespace kvx::adapters::odbc {
namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;

std::uint32_t NextCodePoint(std::string_view text, std::size_t& position)
{
    const auto lead = static_cast<unsigned char>(text[position++]);
    if (lead < 0x80) return lead;
    const int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : -1;
    if (more < 0 || position + static_cast<std::size_t>(more) > text.size()) return kReplacement;
    std::uint32_t code = lead & (0x3Fu >> more);
    for (int index = 0; index < more; ++index) {
        const auto next = static_cast<unsigned char>(text[position]);
        if ((next & 0xC0) != 0x80) return kReplacement;
        code = code << 6 | (next & 0x3Fu);
        ++position;
    }
    return code;
}

void AppendCodePoint(std::string& text, std::uint32_t code)
{
    const auto put = [&text](std::uint32_t byte) { text += static_cast<char>(byte); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | code >> 6);
        put(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        put(0xE0 | code >> 12);
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    } else {
        put(0xF0 | code >> 18);
        put(0x80 | (code >> 12 & 0x3F));
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    }
}

}  // namespace

std::vector<SQLWCHAR> ToWide(std::string_view utf8)
{
    std::vector<SQLWCHAR> wide;
    wide.reserve(utf8.size() + 1);
    for (std::size_t position = 0; position < utf8.size();) {
        const std::uint32_t code = NextCodePoint(utf8, position);
        if (code < 0x10000) {
            wide.push_back(static_cast<SQLWCHAR>(code));
        } else {
            wide.push_back(static_cast<SQLWCHAR>(0xD800 + ((code - 0x10000) >> 10)));
            wide.push_back(static_cast<SQLWCHAR>(0xDC00 + ((code - 0x10000) & 0x3FF)));
        }
    }
    wide.push_back(0);
    return wide;
}

void AppendUtf8(std::string& text, const SQLWCHAR* wide, std::size_t size)
{
    for (std::size_t index = 0; index < size; ++index) {
        const std::uint32_t unit = wide[index];
        if (unit < 0x80) {
            text += static_cast<char>(unit);
        } else if (unit < 0xD800 || unit > 0xDFFF) {
            AppendCodePoint(text, unit);
        } else if (unit < 0xDC00 && index + 1 < size && wide[index + 1] >= 0xDC00 && wide[index + 1] <= 0xDFFF) {
            AppendCodePoint(text, 0x10000 + ((unit - 0xD800) << 10) + (wide[++index] - 0xDC00u));
        } else {
            AppendCodePoint(text, kReplacement);
        }
    }
}

std::string FromWide(const SQLWCHAR* wide, std::size_t size)
{
    std::string text;
    AppendUtf8(text, wide, size);
    return text;
}

}  // namespace kvx::adapters::odbc
