#pragma once

#include <string_view>

namespace kvx::loc {

// The files of korvex_loc/texts, byte for byte; the source is written while building.
extern const std::string_view kCatalogueFile;
extern const std::string_view kCaptionsFile;
extern const std::string_view kColumnsFile;

} // namespace kvx::loc
