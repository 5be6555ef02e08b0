#pragma once

#include "adapters/office/PrintedTable.h"
#include "adapters/office/ZipFile.h"

#include <memory>
#include <vector>

namespace kvx::adapters::office {

/// The parts of a .docx file of the table.
/// @param table read while the parts are; must stay and stay unchanged as long as they are used
std::vector<std::unique_ptr<ZipPart>> DocxParts(const PrintedTable& table);

}  // namespace kvx::adapters::office
