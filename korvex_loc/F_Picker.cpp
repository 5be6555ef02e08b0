#include "korvex_loc/F_Picker.h"

#include "ado/Recordset.h"
#include "basic/Convert.h"
#include "basic/Text.h"
#include "korvex_loc/DBHelper.h"
#include "korvex_loc/DBWriter.h"
#include "korvex_loc/Loc.h"

#include <algorithm>

namespace kvx::loc {

namespace {

bool IsNumber(ado::DataTypeEnum type)
{
    switch (type) {
    case ado::adSmallInt:
    case ado::adInteger:
    case ado::adSingle:
    case ado::adDouble:
    case ado::adCurrency:
    case ado::adDecimal:
    case ado::adUnsignedTinyInt:
    case ado::adBigInt:
    case ado::adNumeric: return true;
    default: return false;
    }
}

}  // namespace

F_Picker::F_Picker() : Form("F_Picker")
{
    Wire();
}

void F_Picker::Design()
{
    SetSizable(true);
    SetSize(6000, 6300);
    lblFilter.Move(120, 165, 900, 240);
    lblFilter.SetCaption("&Suchen:");
    txtFilter.Move(1080, 120, ScaleWidth() - 1200, 315);
    txtFilter.SetAnchors(ui::kAnchorLeft | ui::kAnchorTop | ui::kAnchorRight);
    ListView1.Move(120, 540, ScaleWidth() - 240, ScaleHeight() - 1140);
    ListView1.SetAnchors(ui::kAnchorAll);
    ListView1.SetViewStyle(ui::lvwReport);
    ListView1.SetFullRowSelect(true);
    ListView1.SetHideSelection(false);
    btnOK.Move(ScaleWidth() - 2760, ScaleHeight() - 480, 1260, 375);
    btnOK.SetAnchors(ui::kAnchorRight | ui::kAnchorBottom);
    btnOK.SetCaption("&OK");
    btnOK.SetDefault(true);
    btnCancel.Move(ScaleWidth() - 1380, ScaleHeight() - 480, 1260, 375);
    btnCancel.SetAnchors(ui::kAnchorRight | ui::kAnchorBottom);
    btnCancel.SetCaption("&Abbrechen");
    btnCancel.SetCancel(true);
}

void F_Picker::Wire()
{
    On(txtFilter.Change, &F_Picker::txtFilter_Change);
    On(txtFilter.KeyDown, &F_Picker::txtFilter_KeyDown);
    On(ListView1.ItemClick, &F_Picker::ListView1_ItemClick);
    On(ListView1.DblClick, &F_Picker::ListView1_DblClick);
    On(btnOK.Click, &F_Picker::btnOK_Click);
    On(btnCancel.Click, &F_Picker::btnCancel_Click);
}

std::string F_Picker::Run(const KvxVar& kvxvar, std::string_view select, std::string_view title,
                          std::string_view current, std::string_view mask)
{
    strResult = current;
    ReadRows(kvxvar, select, mask);
    Load();
    Loc().LocalizeForm(kvxvar, *this);
    ShowColumns(kvxvar);
    SetCaption(title.empty() ? std::string_view(ListView1.ColumnHeaders()[1].Text()) : title);
    for (std::size_t row = 0; row < rows.Rows(); ++row)
        shownRows.push_back(row);
    const auto found = std::ranges::find_if(shownRows, [&](std::size_t row) { return CellText(0, row) == current; });
    if (found != shownRows.end()) selectedRow = *found;
    ShowRows();
    DBWriter().ListViewAutoSize(kvxvar, ListView1);
    std::int32_t columnsWidth = 0;
    for (std::int32_t i = 1; i <= ListView1.ColumnHeaders().Count(); ++i)
        columnsWidth += ListView1.ColumnHeaders()[i].Width();
    constexpr std::int32_t kBeside = 800, kNarrowest = 4800, kWidest = 14000;  // scroll bar and margins
    SetWidth(std::clamp(columnsWidth + kBeside, kNarrowest, kWidest));
    Show();
    Unload();
    return strResult;
}

void F_Picker::ReadRows(const KvxVar& kvxvar, std::string_view select, std::string_view mask)
{
    ado::Recordset recordset;
    recordset.Open(select, kvxvar.dbAdo, ado::adOpenForwardOnly, ado::adLockReadOnly);
    const auto columns = static_cast<std::size_t>(recordset.Fields().Count());
    for (std::size_t column = 0; column < columns; ++column) {
        const bool hidden = column < mask.size() && mask[column] == '1';
        if (!hidden) shownColumns.push_back(column);
        columnNames.push_back(recordset[column].Name());
        numberColumns.push_back(IsNumber(recordset[column].Type()));
    }
    if (shownColumns.empty()) shownColumns.push_back(0);
    if (!recordset.Eof()) rows = recordset.GetRows();
}

void F_Picker::ShowColumns(const KvxVar& kvxvar)
{
    for (const std::size_t column : shownColumns) {
        const std::string caption = DBHelper().ColumnCaption(columnNames[column], kvxvar);
        // The first column of a list view cannot stand to the right.
        const bool right = numberColumns[column] && column != shownColumns.front();
        ListView1.ColumnHeaders().Add(0, "", caption, -1, right ? ui::lvwColumnRight : ui::lvwColumnLeft);
    }
}

// Fills the list with shownRows and keeps the selected row, or selects the first.
void F_Picker::ShowRows()
{
    ListView1.ListItems().Clear();
    for (const std::size_t row : shownRows) {
        ui::ListItem& item = ListView1.ListItems().Add("", CellText(shownColumns[0], row));
        for (std::size_t i = 1; i < shownColumns.size(); ++i)
            item.SetSubItems(static_cast<std::int32_t>(i), CellText(shownColumns[i], row));
    }
    btnOK.SetEnabled(!shownRows.empty());
    if (shownRows.empty()) return;
    const auto at = std::ranges::lower_bound(shownRows, selectedRow);
    const bool kept = at != shownRows.end() && *at == selectedRow;
    SelectItem(kept ? static_cast<std::int32_t>(at - shownRows.begin()) + 1 : 1);
}

void F_Picker::SelectItem(std::int32_t index)
{
    ui::ListItem& item = ListView1.ListItems()[index];
    ListView1.SetSelectedItem(&item);
    item.EnsureVisible();
    selectedRow = shownRows[static_cast<std::size_t>(index) - 1];
}

std::string F_Picker::CellText(std::size_t column, std::size_t row) const
{
    return DBHelper().FieldToText(rows.Value(column, row));
}

bool F_Picker::Matches(std::size_t row, std::string_view filter) const
{
    return std::ranges::any_of(shownColumns, [&](std::size_t column) {
        return basic::LCase(CellText(column, row)).find(filter) != std::string::npos;
    });
}

void F_Picker::txtFilter_Change()
{
    const std::string filter = basic::LCase(txtFilter.Text());
    if (filter == strFilter) return;
    // One more letter can only drop rows: the rest need not be looked at again.
    if (!basic::StartsWith(filter, strFilter)) {
        shownRows.clear();
        for (std::size_t row = 0; row < rows.Rows(); ++row)
            shownRows.push_back(row);
    }
    strFilter = filter;
    std::erase_if(shownRows, [&](std::size_t row) { return !Matches(row, filter); });
    ShowRows();
}

// The arrows move the selection in the list while the user goes on typing.
void F_Picker::txtFilter_KeyDown(std::int16_t& KeyCode, std::int16_t)
{
    const ui::ListItem* item = ListView1.SelectedItem();
    if (item == nullptr || (KeyCode != ui::vbKeyUp && KeyCode != ui::vbKeyDown)) return;
    const std::int32_t index = item->Index() + (KeyCode == ui::vbKeyDown ? 1 : -1);
    if (index >= 1 && index <= ListView1.ListItems().Count()) SelectItem(index);
    KeyCode = 0;
}

void F_Picker::ListView1_ItemClick(ui::ListItem& Item)
{
    selectedRow = shownRows[static_cast<std::size_t>(Item.Index()) - 1];
}

void F_Picker::ListView1_DblClick()
{
    if (ListView1.SelectedItem() != nullptr) btnOK_Click();
}

void F_Picker::btnOK_Click()
{
    const ui::ListItem* item = ListView1.SelectedItem();
    if (item == nullptr) return;
    strResult = CellText(0, shownRows[static_cast<std::size_t>(item->Index()) - 1]);
    Hide();
}

void F_Picker::btnCancel_Click()
{
    Hide();
}

}  // namespace kvx::loc
