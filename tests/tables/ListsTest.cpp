#include "tables/ListsTest.h"

#include "basic/Convert.h"

namespace kvx::test {

std::string Open(Scenario& s, std::int32_t id, const Script& script, std::string_view protocol)
{
    s.In("F_Tabellen2", script);
    std::string path(protocol);
    const basic::Variant changed = c_Tabellen2().Tabellen2(s.kvxvar(), "Liste", path, id, /*bolPrint=*/0, "Anna");
    EXPECT_EQ(path, protocol);
    return basic::ToText(changed);
}

void ExpectHostError(Scenario& s, std::int32_t id, std::int32_t number, std::string_view description)
{
    std::string path;
    try {
        c_Tabellen2().Tabellen2(s.kvxvar(), "Liste", path, id, /*bolPrint=*/0, "Anna");
        ADD_FAILURE() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, number);
        EXPECT_EQ(error.Description, description);
    }
}

F_Tabellen2& List(Dialog& f)
{
    return dynamic_cast<F_Tabellen2&>(f.Form());
}

Lines Rows(Dialog& f)
{
    ui::DataGrid& grid = List(f).DataGrid1;
    Lines rows;
    for (std::int32_t row = 0; row < grid.RowCount(); ++row) {
        std::string line;
        for (std::int32_t col = 0; col < grid.Columns().Count(); ++col) {
            if (!grid.Columns()[col].Visible()) continue;
            if (col > 0) line += '|';
            line += grid.CellText(row, col);
        }
        rows.push_back(line);
    }
    return rows;
}

std::string EditLine(Dialog& f)
{
    const F_Tabellen2& list = List(f);
    return list.txtField1.Text() + "|" + list.txtField2.Text() + "|" + list.txtField3.Text() + "|" +
           (list.chkDisable.Value() == ui::vbChecked ? "x" : "");
}

std::string Buttons(Dialog& f)
{
    const F_Tabellen2& list = List(f);
    std::string states;
    states += list.btnNeu.Enabled() ? 'N' : '-';
    states += list.btnLoschen.Enabled() ? 'L' : '-';
    states += list.btnSpeichern.Enabled() ? 'S' : '-';
    states += list.btnAbrechen.Enabled() ? 'A' : '-';
    return states;
}

void Go(Dialog& f, std::int32_t row)
{
    f.ClickCell("DataGrid1", row, 0);
}

void Retype(Dialog& f, std::string_view box, std::string_view text)
{
    f.Focus(box);
    f.Keys("{HOME}+{END}{DEL}");
    f.Type(box, text);
}

}  // namespace kvx::test
