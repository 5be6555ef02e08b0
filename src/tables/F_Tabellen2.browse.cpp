#include "tables/F_Tabellen2.h"

#include "basic/Convert.h"
#include "basic/Text.h"
#include "common/M_Common.h"

namespace kvx {

bool F_Tabellen2::HasRow() const
{
    const ado::Recordset& rows = Data1.Recordset();
    return rows.State() == ado::adStateOpen && !rows.Eof() && !rows.Bof();
}

std::string F_Tabellen2::FieldText(std::int32_t index)
{
    return Siblings().NewDBHelper()->FieldToString(Data1.Recordset()[index].Value(), false, false);
}

// The rows anew; the boxes keep what they show.
void F_Tabellen2::RefreshData()
{
    bolLoading = true;
    try {
        Data1.Refresh();
    } catch (...) {
        bolLoading = false;
        throw;
    }
    bolLoading = false;
}

void F_Tabellen2::SSTab1_Click(std::int16_t)
{
    if (!bolLoading) SelectTab();
}

void F_Tabellen2::SelectTab()
{
    if (kind == nullptr) return;
    const std::int16_t tab = SSTab1.Tab();
    const CodeListTab& row = kind->tabs[static_cast<std::size_t>(tab)];
    std::string_view query = kind->tabQuery;
    if (!query.empty()) {
        strGroup = row.group;
        if (!row.table.empty()) strTable = row.table;
    }
    if (intKind == kWageGroupKind) query = kWageGroupQuery;
    if (!query.empty()) strQuery = FillCodeListQuery(query, kvxvar, strGroup, strTable, SSTab1.TabCaption(tab));

    Data1.SetRecordSource(strQuery);
    RefreshData();
    if (Visible()) DataGrid1.SetFocus();
    FillFields();
    SetColumnCaptions();
    SetColumnWidths();
}

void F_Tabellen2::Data1_MoveComplete()
{
    if (!bolLoading) FillFields();
}

void F_Tabellen2::FillFields()
{
    if (kind == nullptr) return;
    ado::Recordset& rows = Data1.Recordset();
    if (!HasRow()) {
        txtField1.SetText("");
        txtField2.SetText("");
        if (bytFieldCount == 3) {
            txtField3.SetText("");
            bolFilling = true;
            chkDisable.SetValue(ui::vbUnchecked);
            bolFilling = false;
        }
        return;
    }
    txtField1.SetText(FieldText(0));
    if (rows.Fields().Count() > 1) txtField2.SetText(FieldText(1));
    if (bytFieldCount != 3) return;
    if (kind->layout.showDisable) FillDisable();
    if (intKind == 10) {
        const auto helper = Siblings().NewDBHelper();
        lngGroupId = basic::CLng(helper->FieldToNumber(rows["GRUPPE"].Value()));
        txtField3.SetText(helper->LookupText(kvxvar, "NUMBER", "BBF_GRUPPE", "ID = " + std::to_string(lngGroupId)));
    } else if (!kind->layout.showDisable) {
        txtField3.SetText(FieldText(2));
    }
}

void F_Tabellen2::FillDisable()
{
    const basic::Variant flag = Data1.Recordset()["DISABLE"].Value();
    const bool disabled = !flag.IsNull() && !flag.IsEmpty() && basic::CBool(flag);
    bolFilling = true;
    chkDisable.SetValue(disabled ? ui::vbChecked : ui::vbUnchecked);
    bolFilling = false;
}

void F_Tabellen2::DataGrid1_GotFocus()
{
    bolNew = false;
    FillFields();
    btnNeu.SetEnabled(bolEditable);
    btnLoschen.SetEnabled(bolEditable);
    btnSpeichern.SetEnabled(false);
    btnAbrechen.SetEnabled(false);
}

void F_Tabellen2::EnterEdit()
{
    btnLoschen.SetEnabled(false);
    btnSpeichern.SetEnabled(true);
    btnAbrechen.SetEnabled(true);
}

void F_Tabellen2::chkDisable_Click()
{
    if (!bolFilling) EnterEdit();
}

void F_Tabellen2::btnNeu_Click()
{
    bolNew = true;
    btnNeu.SetEnabled(false);
    // In the other lists the user overwrites the values of the row that was current.
    const bool startsEmpty = (intKind >= 1 && intKind <= 13) || intKind == 17;
    if (!startsEmpty) return;
    for (ui::TextBox* box : fieldBoxes)
        box->SetText("");
    txtField1.SetFocus();
}

void F_Tabellen2::btnAbrechen_Click()
{
    DataGrid1.SetFocus();
}

void F_Tabellen2::cmdPrint_Click()
{
    if (kind == nullptr) return;
    PrintDataGrid(SSTab1.TabCaption(SSTab1.Tab()), DataGrid1, Data1.Recordset().Clone(), false);
}

// The third visible column is the flag in most lists, and the third box is then empty: a row that is disabled counts as
// changed. The users know the question.
bool F_Tabellen2::RowDiffersFromFields()
{
    auto columns = DataGrid1.Columns();
    const auto helper = Siblings().NewDBHelper();
    std::size_t visible = 0;
    for (std::int32_t i = 0; i < columns.Count() && visible < fieldBoxes.size(); ++i) {
        if (!columns[i].Visible()) continue;
        const basic::Variant value = Data1.Recordset()[columns[i].DataField()].Value();
        // A flag may be a bit or a number, and off or never set: all that is no difference to an empty box.
        const auto place = static_cast<std::size_t>(i);
        const bool isFlag = kind != nullptr && place < kind->columns.size() && kind->columns[place].isFlag;
        const bool isOff = isFlag && helper->FieldToNumber(value) == 0;
        const std::string stored = isOff ? std::string() : helper->FieldToString(value, false, false);
        if (stored != fieldBoxes[visible++]->Text()) return true;
    }
    return false;
}

void F_Tabellen2::btnOK_Click()
{
    if (HasRow() && RowDiffersFromFields() && ShowMessage(GetText(4103), ui::vbYesNo) == ui::vbYes) {
        btnSpeichern_Click();
        return;
    }
    Unload();
}

}  // namespace kvx
