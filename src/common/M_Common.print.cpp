#include "ado/Recordset.h"
#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Text.h"
#include "common/M_Common.h"
#include "common/ModuleState.h"
#include "os/WordProcessor.h"
#include "ui/DataGrid.h"
#include "ui/Desktop.h"

#include <functional>
#include <vector>

namespace kvx {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

using ColumnText = std::function<std::string(const ui::DataColumn&)>;

std::string LineOfVisibleColumns(ui::DataGrid& grid, std::string_view start, const ColumnText& text)
{
    std::string line(start);
    bool first = true;
    for (std::int32_t i = 0; i < grid.Columns().Count(); ++i) {
        const ui::DataColumn& column = grid.Columns()[i];
        if (!column.Visible()) continue;
        if (!first) line += '\t';
        first = false;
        line += text(column);
    }
    return line.append(kLineEnd);
}

// False: there is no word processor, and the print ends without a word to the user.
bool StartWordProcessor(ModuleState& module)
{
    if (module.objWord != nullptr && module.objWord->TypeName() == "Application") return true;
    try {
        module.objWord = os::CreateWordProcessor();
    } catch (const basic::Error&) {
        module.objWord = nullptr;
    }
    return module.objWord != nullptr;
}

}  // namespace

void PrintDataGrid(std::string_view title, ui::DataGrid& grid, ado::Recordset recordset, bool flag)
{
    std::string text = LineOfVisibleColumns(grid, title, [](const ui::DataColumn&) { return std::string(); });
    text += LineOfVisibleColumns(grid, "", [](const ui::DataColumn& column) { return column.Caption(); });
    if (!(recordset.Bof() && recordset.Eof())) {
        for (recordset.MoveFirst(); !recordset.Eof(); recordset.MoveNext()) {
            text += LineOfVisibleColumns(grid, "", [&recordset](const ui::DataColumn& column) {
                return basic::ToText(recordset[column.DataField()].Value());
            });
        }
    }
    PrintTextToWord(text, flag);
    if (const auto document = Module().objWordDocument) FinishWordTable(*document);
}

void PrintTextToWord(std::string_view text, bool flag)
{
    ModuleState& module = Module();
    if (!StartWordProcessor(module)) return;
    os::WordApplication& application = *module.objWord;
    application.SetWindowState(os::kWordWindowMinimized);
    module.objWordDocument = application.AddDocument();
    application.SetVisible(false);

    os::WordDocument& document = *module.objWordDocument;
    document.SetMirrored(true);
    document.SetSectionStart(os::kWordSectionNewPage);
    document.SetWindowFlag(flag);

    // The text ends with a line end, so the last element is empty and the upper bound is the number of rows.
    const std::vector<std::string> lines = basic::Split(text, "\n");
    const std::vector<std::string> cells = basic::Split(basic::Piece(lines, 0), "\t");
    document.AddTable(static_cast<std::int32_t>(lines.size()) - 1, static_cast<std::int32_t>(cells.size()));

    document.SelectTable();
    ui::Desktop& desktop = ui::CurrentDesktop();
    desktop.SetClipboardText("");
    desktop.SetClipboardText(text);
    document.PasteText(desktop.ClipboardText());

    document.SelectRow(1);
    document.SetBold(true);
    document.SetShading(0xC0C0C0);
    document.SelectRow(2);
    document.SetBold(true);
    document.SelectTable();
    document.SetFont("Arial", 10);

    document.SetRowSetting(os::kWordRowsCentered);
    document.MoveToStart();
    application.SetVisible(true);
}

void FinishWordTable(os::WordDocument& document)
{
    document.SetHeadingRow(1, true);
    document.SetHeadingRow(2, true);
    document.AddFooterPageNumber(os::kWordPageNumberRight, true);
}

}  // namespace kvx
