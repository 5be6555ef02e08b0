#include "basic/Text.h"

#include "basic/Error.h"

#include <algorithm>
#include <array>

namespace kvx::basic {
namespace {

constexpr bool IsAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

bool IsAscii(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return IsAscii(c); });
}

/// Bytes of the character at the beginning; 1 for a byte that is no valid UTF-8. 0 at the end.
std::size_t CharacterSize(std::string_view text)
{
    if (text.empty()) return 0;
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto continues = [&](std::size_t i) { return i < text.size() && (byte(i) & 0xC0) == 0x80; };
    const unsigned char lead = byte(0);
    if (lead < 0xC2 || lead > 0xF4) return 1;
    if (!continues(1)) return 1;
    if (lead < 0xE0) return 2;
    if (!continues(2)) return 1;
    if (lead < 0xF0) {
        // Overlong forms and surrogates are no characters.
        if ((lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xED && byte(1) > 0x9F)) return 1;
        return 3;
    }
    if (!continues(3)) return 1;
    if ((lead == 0xF0 && byte(1) < 0x90) || (lead == 0xF4 && byte(1) > 0x8F)) return 1;
    return 4;
}

/// Byte position behind so many characters; the text's size when it is shorter.
std::size_t OffsetOf(std::string_view text, std::int32_t characters)
{
    std::size_t offset = 0;
    for (; characters > 0 && offset < text.size(); --characters)
        offset += IsAscii(text[offset]) ? 1 : CharacterSize(text.substr(offset));
    return offset;
}

/// Byte position from which a text may be searched; npos when the start lies past the end.
std::size_t SearchOffset(std::string_view text, std::int32_t start)
{
    if (start < 1) Raise(kErrInvalidCall);
    const std::size_t offset = OffsetOf(text, start - 1);
    return offset == text.size() && Len(text) < start - 1 ? std::string_view::npos : offset;
}

/// Pairs of a capital letter directly followed by its small one.
constexpr bool IsPairBlock(char32_t c)
{
    return (c >= 0x100 && c <= 0x12F) || (c >= 0x132 && c <= 0x137) || (c >= 0x14A && c <= 0x177) ||
           (c >= 0x1DE && c <= 0x1EF) || (c >= 0x1F8 && c <= 0x21F) || (c >= 0x222 && c <= 0x233) ||
           (c >= 0x3D8 && c <= 0x3EF) || (c >= 0x460 && c <= 0x481) || (c >= 0x48A && c <= 0x4BF) ||
           (c >= 0x4D0 && c <= 0x52F) || (c >= 0x1E00 && c <= 0x1E95) || (c >= 0x1EA0 && c <= 0x1EFF);
}
/// The same with the capital letter on odd numbers.
constexpr bool IsOddPairBlock(char32_t c)
{
    return (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E) || (c >= 0x1CD && c <= 0x1DC) ||
           (c >= 0x4C1 && c <= 0x4CE);
}

/// Code points of the bytes 0x80 to 0x9F; the five that are not in use keep their number.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

template <class Map>
std::string Mapped(std::string_view text, Map map)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        if (IsAscii(text.front())) {
            result.push_back(static_cast<char>(map(static_cast<char32_t>(text.front()))));
            text.remove_prefix(1);
            continue;
        }
        const std::size_t size = CharacterSize(text);
        if (size == 1) {
            result.push_back(text.front());
            text.remove_prefix(1);
            continue;
        }
        AppendCharacter(result, map(NextCharacter(text)));
    }
    return result;
}

} // namespace

std::int32_t Len(std::string_view text)
{
    std::int32_t count = 0;
    for (std::size_t offset = 0; offset < text.size(); ++count)
        offset += IsAscii(text[offset]) ? 1 : CharacterSize(text.substr(offset));
    return count;
}

std::string Left(std::string_view text, std::int32_t length)
{
    if (length < 0) Raise(kErrInvalidCall);
    return std::string(text.substr(0, OffsetOf(text, length)));
}

std::string Right(std::string_view text, std::int32_t length)
{
    if (length < 0) Raise(kErrInvalidCall);
    const std::int32_t all = Len(text);
    return std::string(text.substr(OffsetOf(text, length >= all ? 0 : all - length)));
}

std::string Mid(std::string_view text, std::int32_t start)
{
    if (start < 1) Raise(kErrInvalidCall);
    return std::string(text.substr(OffsetOf(text, start - 1)));
}

std::string Mid(std::string_view text, std::int32_t start, std::int32_t length)
{
    if (start < 1 || length < 0) Raise(kErrInvalidCall);
    const std::string_view rest = text.substr(OffsetOf(text, start - 1));
    return std::string(rest.substr(0, OffsetOf(rest, length)));
}

std::int32_t InStr(std::string_view text, std::string_view sought)
{
    return InStr(1, text, sought);
}

std::int32_t InStr(std::int32_t start, std::string_view text, std::string_view sought)
{
    const std::size_t from = SearchOffset(text, start);
    if (from == std::string_view::npos || text.empty()) return 0;
    if (sought.empty()) return from == text.size() ? 0 : start;
    const std::size_t found = text.find(sought, from);
    return found == std::string_view::npos ? 0 : Len(text.substr(0, found)) + 1;
}

std::int32_t InStrRev(std::string_view text, std::string_view sought)
{
    if (text.empty()) return 0;
    if (sought.empty()) return Len(text);
    const std::size_t found = text.rfind(sought);
    return found == std::string_view::npos ? 0 : Len(text.substr(0, found)) + 1;
}

std::string LTrim(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return std::string(text);
}

std::string RTrim(std::string_view text)
{
    return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::string Trim(std::string_view text)
{
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return std::string(text);
}

char32_t UpperCharacter(char32_t c)
{
    if (c < 0x80) return c >= U'a' && c <= U'z' ? c - 32 : c;
    if (c < 0x100) {
        if (c == 0xB5) return 0x39C; // the micro sign is a small mu
        if (c == 0xFF) return 0x178;
        return c >= 0xE0 && c != 0xF7 ? c - 32 : c;
    }
    if (IsPairBlock(c)) return c & ~char32_t{1};
    if (IsOddPairBlock(c)) return c % 2 == 0 ? c - 1 : c;
    if (c >= 0x3B1 && c <= 0x3CB) return c == 0x3C2 ? 0x3A3 : c - 32;
    switch (c) {
    case 0x131: return U'I';
    case 0x3AC: return 0x386;
    case 0x3AD:
    case 0x3AE:
    case 0x3AF: return c - 37;
    case 0x3CC: return 0x38C;
    case 0x3CD:
    case 0x3CE: return c - 63;
    case 0x4CF: return 0x4C0;
    default: break;
    }
    if (c >= 0x430 && c <= 0x44F) return c - 32;
    if (c >= 0x450 && c <= 0x45F) return c - 80;
    return c;
}

char32_t LowerCharacter(char32_t c)
{
    if (c < 0x80) return c >= U'A' && c <= U'Z' ? c + 32 : c;
    if (c < 0x100) return c >= 0xC0 && c <= 0xDE && c != 0xD7 ? c + 32 : c;
    if (c == 0x1E9E) return 0xDF;
    if (IsPairBlock(c)) return c | 1;
    if (IsOddPairBlock(c)) return c % 2 == 1 ? c + 1 : c;
    if (c >= 0x391 && c <= 0x3AB && c != 0x3A2) return c + 32;
    switch (c) {
    case 0x130: return U'i';
    case 0x178: return 0xFF;
    case 0x386: return 0x3AC;
    case 0x388:
    case 0x389:
    case 0x38A: return c + 37;
    case 0x38C: return 0x3CC;
    case 0x38E:
    case 0x38F: return c + 63;
    case 0x4C0: return 0x4CF;
    default: break;
    }
    if (c >= 0x410 && c <= 0x42F) return c + 32;
    if (c >= 0x400 && c <= 0x40F) return c + 80;
    return c;
}

std::string UCase(std::string_view text)
{
    return Mapped(text, UpperCharacter);
}

std::string LCase(std::string_view text)
{
    return Mapped(text, LowerCharacter);
}

std::string Replace(std::string_view text, std::string_view sought, std::string_view replacement)
{
    if (sought.empty()) return std::string(text);
    std::string result;
    result.reserve(text.size());
    for (;;) {
        const std::size_t found = text.find(sought);
        if (found == std::string_view::npos) return result.append(text);
        result.append(text.substr(0, found)).append(replacement);
        text.remove_prefix(found + sought.size());
    }
}

std::vector<std::string> Split(std::string_view text, std::string_view delimiter, std::int32_t limit)
{
    if (limit < -1) Raise(kErrInvalidCall);
    std::vector<std::string> pieces;
    if (text.empty() || limit == 0) return pieces;
    while (limit == -1 || std::ssize(pieces) + 1 < limit) {
        const std::size_t found = delimiter.empty() ? std::string_view::npos : text.find(delimiter);
        if (found == std::string_view::npos) break;
        pieces.emplace_back(text.substr(0, found));
        text.remove_prefix(found + delimiter.size());
    }
    pieces.emplace_back(text);
    return pieces;
}

std::string Join(const std::vector<std::string>& pieces, std::string_view delimiter)
{
    std::string result;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0) result.append(delimiter);
        result.append(pieces[i]);
    }
    return result;
}

const std::string& Piece(const std::vector<std::string>& pieces, std::int32_t index)
{
    if (index < 0 || index >= std::ssize(pieces)) Raise(kErrSubscript);
    return pieces[static_cast<std::size_t>(index)];
}

std::int32_t StrCompare(std::string_view a, std::string_view b)
{
    // The order of UTF-8 bytes is the order of the code points.
    const int order = a.compare(b);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

bool SameTextIgnoringCase(std::string_view a, std::string_view b)
{
    while (!a.empty() && !b.empty()) {
        if (LowerCharacter(NextCharacter(a)) != LowerCharacter(NextCharacter(b))) return false;
    }
    return a.empty() && b.empty();
}

bool StartsWith(std::string_view text, std::string_view beginning)
{
    return text.starts_with(beginning);
}

bool EndsWith(std::string_view text, std::string_view end)
{
    return text.ends_with(end);
}

std::string Space(std::int32_t count)
{
    if (count < 0) Raise(kErrInvalidCall);
    return std::string(static_cast<std::size_t>(count), ' ');
}

std::string String(std::int32_t count, std::string_view character)
{
    if (count < 0 || character.empty()) Raise(kErrInvalidCall);
    const std::string_view first = character.substr(0, CharacterSize(character));
    std::string result;
    result.reserve(static_cast<std::size_t>(count) * first.size());
    for (std::int32_t i = 0; i < count; ++i)
        result.append(first);
    return result;
}

std::string StrReverse(std::string_view text)
{
    std::string result(text.size(), '\0');
    std::size_t end = text.size();
    while (!text.empty()) {
        const std::size_t size = CharacterSize(text);
        end -= size;
        result.replace(end, size, text.substr(0, size));
        text.remove_prefix(size);
    }
    return result;
}

std::string ChrW(std::int32_t codePoint)
{
    if (codePoint < 0 || codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint <= 0xDFFF)) Raise(kErrInvalidCall);
    std::string text;
    AppendCharacter(text, static_cast<char32_t>(codePoint));
    return text;
}

std::int32_t AscW(std::string_view text)
{
    if (text.empty()) Raise(kErrInvalidCall);
    return static_cast<std::int32_t>(NextCharacter(text));
}

char32_t NextCharacter(std::string_view& text)
{
    const std::size_t size = CharacterSize(text);
    const auto bits = [&](std::size_t i) { return static_cast<char32_t>(static_cast<unsigned char>(text[i])); };
    char32_t c = bits(0);
    if (size == 2) c = (c & 0x1F) << 6 | (bits(1) & 0x3F);
    if (size == 3) c = (c & 0x0F) << 12 | (bits(1) & 0x3F) << 6 | (bits(2) & 0x3F);
    if (size == 4) c = (c & 0x07) << 18 | (bits(1) & 0x3F) << 12 | (bits(2) & 0x3F) << 6 | (bits(3) & 0x3F);
    text.remove_prefix(size);
    return c;
}

void AppendCharacter(std::string& text, char32_t c)
{
    const auto put = [&](char32_t byte) { text.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | c >> 6);
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | c >> 12);
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | c >> 18);
        put(0x80 | (c >> 12 & 0x3F));
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

bool IsValidUtf8(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t size = CharacterSize(text);
        if (size == 1 && !IsAscii(text.front())) return false;
        text.remove_prefix(size);
    }
    return true;
}

std::string Utf8FromWindows1252(std::string_view bytes)
{
    if (IsAscii(bytes)) return std::string(bytes);
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        AppendCharacter(text, value >= 0x80 && value < 0xA0 ? kWindows1252[value - 0x80u] : value);
    }
    return text;
}

std::string Utf8FromLatin1(std::string_view bytes)
{
    if (IsAscii(bytes)) return std::string(bytes);
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes)
        AppendCharacter(text, static_cast<unsigned char>(byte));
    return text;
}

std::string Windows1252FromUtf8(std::string_view text)
{
    if (IsAscii(text)) return std::string(text);
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        const char32_t c = NextCharacter(text);
        const auto* high = std::ranges::find(kWindows1252, c);
        char32_t byte = U'?';
        if (high != kWindows1252.end()) {
            byte = static_cast<char32_t>(0x80 + (high - kWindows1252.begin()));
        } else if (c < 0x80 || (c >= 0xA0 && c < 0x100)) {
            byte = c;
        }
        bytes.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
    }
    return bytes;
}

std::string Utf8FromFileBytes(std::string_view bytes)
{
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    return IsValidUtf8(bytes) ? std::string(bytes) : Utf8FromWindows1252(bytes);
}

} // namespace kvx::basic
