#pragma once

#include "adapters/office/PrintedTable.h"

#include <cstdint>
#include <vector>

namespace kvx::adapters::office {

struct ColumnLayout {
    std::vector<std::int32_t> widths;  ///< twips, a column each; together the width asked for
    std::int32_t cellMargin = 0;       ///< twips, left and right of a cell's text
};

/// Shares the width out so that columns get what their texts need: as long as there is room, no text is broken; then
/// none is broken within a word; and a table that is too wide even so is squeezed evenly.
/// @param widthTwips between the page's margins
ColumnLayout LayOutColumns(const PrintedTable& table, std::int32_t widthTwips);

}  // namespace kvx::adapters::office
