#pragma once

#include "basic/Variant.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Files by path. Errors: 53 = no such file, 76 = no such folder, 70 = no permission, 75 = cannot be read or written.
namespace kvx::os {

/// A path as this system writes it: the library composes paths with the classic separator "\".
std::string NativePath(std::string_view path);

bool FileExists(std::string_view path);
/// Local date and time of the last change. @return nothing when there is no such file
std::optional<basic::Date> LastModified(std::string_view path);

/// Lines of a text file, empty ones included. Line ends may be CR LF, CR or LF; the text is UTF-8 where it is valid,
/// else Windows-1252. A line end at the very end of the file begins no further line.
/// @throws basic::Error 53, 70, 75, 76
std::vector<std::string> ReadLines(std::string_view path);
/// The file as it stands. @throws basic::Error 53, 70, 75, 76
std::string ReadBytes(std::string_view path);
/// Writes the file anew. @throws basic::Error 70, 75, 76
void WriteBytes(std::string_view path, std::string_view bytes);
/// Appends a line with its line end; makes the file when there is none. @throws basic::Error 70, 75, 76
void AppendLine(std::string_view path, std::string_view line);

/// Names (no paths) of the files in a folder that match a pattern such as "*.pdf", sorted, case ignored.
/// @throws basic::Error 76
std::vector<std::string> ListFiles(std::string_view folder, std::string_view pattern);

}  // namespace kvx::os
