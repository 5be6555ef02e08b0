#include "korvex_loc/Report.h"

#include "basic/Convert.h"
#include "basic/Format.h"
#include "basic/Text.h"

namespace kvx::loc {

TableLines GridTextLines(std::string_view text)
{
    if (text.starts_with('B')) text.remove_prefix(1);
    std::vector<std::string> formats;
    TableLines lines;
    for (const std::string& piece : basic::Split(basic::Replace(text, "\r\n", "\n"), "\n")) {
        std::string_view line = piece;
        if (line.starts_with(';')) line.remove_prefix(1);
        if (line.ends_with('\t')) line.remove_suffix(1);
        if (line.empty()) continue;
        std::vector<std::string> cells = basic::Split(line, "\t");
        if (cells[0] == "TABLE") continue;
        if (cells[0] == "FORMAT") {
            formats = cells.size() > 1 ? basic::Split(cells[1], ";") : std::vector<std::string>();
            continue;
        }
        if (cells[0] == "ROW") cells.erase(cells.begin());
        for (std::size_t i = 0; i < cells.size() && i < formats.size(); ++i)
            if (!formats[i].empty() && basic::IsNumeric(cells[i])) cells[i] = basic::Format(cells[i], formats[i]);
        lines.push_back(std::move(cells));
    }
    return lines;
}

void Report::ExportTable(const ado::Connection&, std::string_view title, std::string_view text)
{
    TableLines lines = GridTextLines(text);
    lines.insert(lines.begin(), {std::string(title)});
    OpenTableFile(WriteTableFile(title, lines));
}

}  // namespace kvx::loc
