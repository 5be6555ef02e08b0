#pragma once

#include "basic/Variant.h"

#include <string>
#include <string_view>
#include <vector>

// Files as the dialogs need them. Paths may be written with "\" as well as with "/".
// Errors: 53 = no such file, 76 = no such folder, 70 = not allowed, 75 = anything else that keeps it from working.
namespace kvx::os {

/// The path with "/" between its parts.
std::string NativePath(std::string_view path);

bool FileExists(std::string_view path);   ///< never raises; a folder is no file
bool FolderExists(std::string_view path); ///< never raises

/// The whole content as UTF-8: as it stands when it is valid (a byte order mark is taken off), else read as
/// Windows-1252. @throws basic::Error 53, 70, 75, 76
std::string ReadText(std::string_view path);
/// The same by lines; a line ends at CR LF, CR or LF, and the last one needs no end.
std::vector<std::string> ReadLines(std::string_view path);

/// Adds a line and its end (LF); makes the file if there is none. @throws basic::Error 70, 75, 76
void AppendLine(std::string_view path, std::string_view line);
/// Replaces the file. @throws basic::Error 70, 75, 76
void WriteText(std::string_view path, std::string_view text);

/// Local date and time of the last change, whole seconds. @throws basic::Error 53, 76
basic::Date LastModified(std::string_view path);

/// Names of the files in a folder that match, sorted by name without regard to case.
/// @param pattern  "*" any characters, "?" one; several parted by ";"; case is ignored; "*.*" is every file
/// @throws basic::Error 76, 70
std::vector<std::string> ListFiles(std::string_view folder, std::string_view pattern);
/// True when the name matches the pattern of ListFiles.
bool MatchesPattern(std::string_view name, std::string_view pattern);

} // namespace kvx::os
