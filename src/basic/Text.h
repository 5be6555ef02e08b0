#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Text is UTF-8; lengths and positions count characters (code points). A byte that is no valid UTF-8 counts as one
// character and is carried along unchanged. Comparisons are binary: case counts.
namespace kvx::basic {

/// Number of characters.
std::int32_t Len(std::string_view text);

/// The first or last characters; all of the text when it is shorter. @throws Error 5: length below 0
std::string Left(std::string_view text, std::int32_t length);
std::string Right(std::string_view text, std::int32_t length);

/// Characters from a position on; "" when it lies past the end.
/// @param start  counts from 1
/// @throws Error 5: start below 1, length below 0
std::string Mid(std::string_view text, std::int32_t start);
std::string Mid(std::string_view text, std::int32_t start, std::int32_t length);

/// Position of the first occurrence, counted from 1; 0 = none. An empty text is found where the search starts.
/// @param start  position to search from. @throws Error 5: start below 1
std::int32_t InStr(std::string_view text, std::string_view sought);
std::int32_t InStr(std::int32_t start, std::string_view text, std::string_view sought);

/// Position of the last occurrence, counted from 1; 0 = none.
std::int32_t InStrRev(std::string_view text, std::string_view sought);

/// Take off the blank (32) only: tabs, line ends and no-break blanks stay.
std::string Trim(std::string_view text);
std::string LTrim(std::string_view text);
std::string RTrim(std::string_view text);

/// Capital and small letters of Latin, Greek and Cyrillic script; "ß" has no capital and stays.
std::string UCase(std::string_view text);
std::string LCase(std::string_view text);

/// Every occurrence replaced, from left to right; an empty sought text changes nothing.
std::string Replace(std::string_view text, std::string_view sought, std::string_view replacement);

/// Pieces between the delimiters, empty ones included; an empty text has none.
/// @param limit  at most so many pieces, the last one takes the rest; -1 = all
/// @throws Error 5: limit below -1
std::vector<std::string> Split(std::string_view text, std::string_view delimiter = " ", std::int32_t limit = -1);
std::string Join(const std::vector<std::string>& pieces, std::string_view delimiter = " ");

/// A piece of a split text. @throws Error 9: no such piece
const std::string& Piece(const std::vector<std::string>& pieces, std::int32_t index);

/// -1, 0, 1: by code points.
std::int32_t StrCompare(std::string_view a, std::string_view b);
/// True when the texts differ at most in case.
bool SameTextIgnoringCase(std::string_view a, std::string_view b);

bool StartsWith(std::string_view text, std::string_view beginning);
bool EndsWith(std::string_view text, std::string_view end);

std::string Space(std::int32_t count);                              ///< @throws Error 5: below 0
std::string String(std::int32_t count, std::string_view character); ///< its first character. @throws Error 5
std::string StrReverse(std::string_view text);

/// The character of a code point. @throws Error 5: no code point of Unicode
std::string ChrW(std::int32_t codePoint);
/// Code point of the first character. @throws Error 5: empty text
std::int32_t AscW(std::string_view text);

/// Takes the first character off. A byte that is no valid UTF-8 gives itself (128 to 255).
/// @param text  not empty; by reference, shortened by the character
char32_t NextCharacter(std::string_view& text);
/// Appends a code point as UTF-8.
void AppendCharacter(std::string& text, char32_t codePoint);

/// One character in capital or small letters.
char32_t UpperCharacter(char32_t character);
char32_t LowerCharacter(char32_t character);

bool IsValidUtf8(std::string_view text);
std::string Utf8FromWindows1252(std::string_view bytes);
std::string Utf8FromLatin1(std::string_view bytes);
/// Characters outside the code page become "?".
std::string Windows1252FromUtf8(std::string_view text);
/// UTF-8 as it stands when it is valid (a byte order mark is taken off), else read as Windows-1252.
std::string Utf8FromFileBytes(std::string_view bytes);

} // namespace kvx::basic
