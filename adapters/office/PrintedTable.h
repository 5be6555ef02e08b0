#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::adapters::office {

struct CellFormat {
    bool bold = false;
    std::optional<std::uint32_t> shading;  ///< 0xRRGGBB; empty = none
    std::string fontName;                  ///< empty = the program's own
    std::int32_t fontPoints = 0;           ///< 0 = the program's own
    bool operator==(const CellFormat&) const = default;
};

struct PageNumber {
    std::int32_t alignment = 0;
    bool onFirstPage = true;
    bool operator==(const PageNumber&) const = default;
};

/// What a printed document holds: one table and how its pages look. Rows count from 1.
struct PrintedTable {
    bool mirrored = false;
    std::int32_t sectionStart = -1;  ///< -1 = not given
    bool landscape = false;

    std::vector<std::string_view> lines;  ///< a row each, cells parted by tabs; views into a text of the owner
    std::int32_t columns = 0;             ///< 0 = no table
    std::int32_t rowSetting = -1;         ///< -1 = not given
    CellFormat format;                    ///< of every row that has none of its own
    std::map<std::int32_t, CellFormat> rowFormats;
    std::set<std::int32_t> headingRows;
    std::optional<PageNumber> pageNumber;

    std::int32_t Rows() const { return static_cast<std::int32_t>(lines.size()); }
    const CellFormat& FormatOf(std::int32_t row) const
    {
        const auto found = rowFormats.find(row);
        return found == rowFormats.end() ? format : found->second;
    }
};

/// Calls take(column, text) for each cell of a line, column 0 first. A line with fewer cells ends early; what a line
/// has beyond the last column goes into that column's cell, tabs and all, so that nothing printed is lost.
template <class Take>
void ForEachCell(std::string_view line, std::int32_t columns, Take take)
{
    for (std::int32_t column = 0; column < columns; ++column) {
        const std::size_t tab = column + 1 < columns ? line.find('\t') : std::string_view::npos;
        take(column, line.substr(0, tab));
        if (tab == std::string_view::npos) return;
        line.remove_prefix(tab + 1);
    }
}

}  // namespace kvx::adapters::office
