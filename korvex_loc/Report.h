#pragma once

#include "korvex_loc/TableFile.h"
#include "session/SiblingClasses.h"

namespace kvx::loc {

/// Exports grid texts as table files.
class Report final : public c_Report {
public:
    /// Writes the title and the rows into a table file in the user's documents and opens it.
    /// @param text  rows as GridTextLines reads them
    /// @throws basic::Error 70, 75, 76: the file cannot be written
    void ExportTable(const ado::Connection& connection, std::string_view title, std::string_view text) override;
};

/// The rows of a grid's export text. The text begins with "B"; a row is cells with a tab behind each, its end is CR LF,
/// and rows have ";" between them. A row whose first cell is the word TABLE, FORMAT or ROW is an instruction: FORMAT
/// brings the columns' formats with ";" between them ("0" = number), the cells behind ROW are a row, TABLE only opens
/// the text.
TableLines GridTextLines(std::string_view text);

} // namespace kvx::loc
