#pragma once

#include <string>

namespace kvx::adapters::office {

/// The user's documents folder as the desktop names it; the home folder when there is none; the folder for temporary
/// files when there is no home.
std::string DefaultFolder();

/// Makes an empty file "Korvex DATE TIME.docx" with a name that no other file of the folder has.
/// @param folder made when it is missing
/// @return its path
/// @throws basic::Error 70: not allowed; 75, 76: the folder cannot be made or written to
std::string ClaimDocumentName(const std::string& folder);

}  // namespace kvx::adapters::office
