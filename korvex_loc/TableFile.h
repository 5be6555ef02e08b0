#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::loc {

using TableLines = std::vector<std::vector<std::string>>;

/// The lines as a file that spreadsheets open by a double click: UTF-8 with a mark, CR LF, cells parted by the sign
/// that the machine's language uses for lists (";" where the comma is the decimal sign).
std::string TableFileText(const TableLines& lines);

/// Where users look for their files: XDG_DOCUMENTS_DIR, else the folder Documents or Dokumente of the home folder, else
/// that itself, else the folder for temporary files.
std::filesystem::path DocumentsFolder();

/// Writes the lines into a new file of the documents folder, named by title and time; an older file is never replaced.
/// @return the file
/// @throws basic::Error 70, 75, 76
std::filesystem::path WriteTableFile(std::string_view title, const TableLines& lines);

/// Opens the file with the program that the user has for it; without one a message tells where the file lies.
void OpenTableFile(const std::filesystem::path& file);

} // namespace kvx::loc
