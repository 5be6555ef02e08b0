#include "tables/F_Tabellen2.h"

#include "basic/Format.h"
#include "basic/Text.h"

#include <algorithm>
#include <utility>

namespace kvx {

namespace {
constexpr std::int32_t kDesignWidthTwips = 8000, kDesignHeightTwips = 6600;
constexpr std::int32_t kDesignBoxTwips = 3000;
constexpr std::int32_t kGapTwips = 10;
constexpr std::int32_t kDisableTwips = 1150;
constexpr std::int32_t kWideBoxTwips = 3000;
}  // namespace

F_Tabellen2::F_Tabellen2() : Form("F_Tabellen2")
{
    Wire();
}

void F_Tabellen2::Design()
{
    SetCaption("Tabellen");
    SetSize(kDesignWidthTwips, kDesignHeightTwips);
    SetSizable(true);

    DataGrid1.SetContainer(&Frame1);
    DataGrid1.SetDataSource(&Data1);
    Data1.SetVisible(false);
    for (ui::Control* control : std::initializer_list<ui::Control*>{&txtField1, &txtField2, &txtField3, &chkDisable})
        control->SetContainer(&Frame1);
    for (ui::TextBox* box : fieldBoxes)
        box->SetWidth(kDesignBoxTwips);

    chkDisable.SetCaption("Disable");
    btnNeu.SetCaption("Neu");
    btnAbrechen.SetCaption("Bearb. Abbr.");
    btnSpeichern.SetCaption("Speichern");
    btnLoschen.SetCaption("Löschen");
    cmdPrint.SetCaption("Print");
    btnOK.SetCaption("Ok");
    for (ui::Button* button : {&btnNeu, &btnAbrechen, &btnSpeichern, &btnLoschen})
        button->SetEnabled(false);
    Timer1.SetInterval(500);
    Timer1.SetEnabled(false);

    // The tab strip comes first, so that opening the form does not begin to browse.
    std::int16_t tabIndex = 0;
    for (ui::Control* control :
         std::initializer_list<ui::Control*>{&SSTab1, &DataGrid1, &txtField1, &txtField2, &txtField3, &chkDisable,
                                             &btnNeu, &btnSpeichern, &btnAbrechen, &btnLoschen, &cmdPrint, &btnOK})
        control->SetTabIndex(tabIndex++);
}

void F_Tabellen2::Wire()
{
    On(FormActivate, &F_Tabellen2::Form_Activate);
    On(FormResize, &F_Tabellen2::Form_Resize);
    On(FormUnload, &F_Tabellen2::Form_Unload);
    On(SSTab1.Click, &F_Tabellen2::SSTab1_Click);
    On(Data1.MoveComplete, &F_Tabellen2::Data1_MoveComplete);
    On(DataGrid1.GotFocus, &F_Tabellen2::DataGrid1_GotFocus);
    On(txtField1.GotFocus, &F_Tabellen2::txtField1_GotFocus);
    On(txtField2.GotFocus, &F_Tabellen2::txtField2_GotFocus);
    On(txtField3.GotFocus, &F_Tabellen2::txtField3_GotFocus);
    On(txtField1.KeyPress, &F_Tabellen2::txtField1_KeyPress);
    On(txtField2.KeyDown, &F_Tabellen2::txtField2_KeyDown);
    On(txtField2.KeyPress, &F_Tabellen2::txtField2_KeyPress);
    On(txtField3.KeyDown, &F_Tabellen2::txtField3_KeyDown);
    On(txtField3.KeyPress, &F_Tabellen2::txtField3_KeyPress);
    On(chkDisable.Click, &F_Tabellen2::chkDisable_Click);
    On(btnNeu.Click, &F_Tabellen2::btnNeu_Click);
    On(btnAbrechen.Click, &F_Tabellen2::btnAbrechen_Click);
    On(btnSpeichern.Click, &F_Tabellen2::btnSpeichern_Click);
    On(btnLoschen.Click, &F_Tabellen2::btnLoschen_Click);
    On(cmdPrint.Click, &F_Tabellen2::cmdPrint_Click);
    On(btnOK.Click, &F_Tabellen2::btnOK_Click);
    On(Timer1.Tick, &F_Tabellen2::Timer1_Timer);
}

void F_Tabellen2::Run(const KvxVar& kvxvar_dll, std::string_view strTableName_dll, std::string_view strProtokolPath_dll,
                      std::int32_t intIdString_dll, std::string_view strUserName_dll)
{
    kvxvar = kvxvar_dll;
    strProtokolPath = strProtokolPath_dll;
    strUserName = strUserName_dll;
    strTableName = strTableName_dll;
    intIdString = intIdString_dll;
    bolSaved = false;
    bolLoading = true;
    bolNew = false;
    // A call that an error ended has left the form loaded, as its list wanted it: the next list starts from the design.
    if (!Visible()) Unload();
    Load();
    strDecimal = basic::Mid(basic::Format(0.0, "0.0"), 2, 1);
    Timer1.SetEnabled(false);

    LoadKind();
    SetFieldLayout();
    SetColumnWidths();
    SSTab1.SetTab(0);
    SetColumnCaptions();
    bolLoading = false;
    if (intKind == 1) {
        SetSize(9240, 7140);
    } else {
        SetWidth(Width() + 100);
    }
    Loc().LocalizeForm(kvxvar, *this);

    if (!bolPrint) {
        // The edit line shows the first row before the grid is clicked: who edits it at once sees what will be saved.
        FillFields();
        Show();
        return;
    }
    for (std::int16_t tab = 0; kind != nullptr && tab < SSTab1.Tabs(); ++tab) {
        SSTab1.SetTab(tab);
        cmdPrint_Click();
    }
    Unload();
}

// One for the dialog's life: it reads the customer's own wording once.
c_Loc& F_Tabellen2::Loc()
{
    if (loc == nullptr) loc = Siblings().NewLoc();
    return *loc;
}

std::string F_Tabellen2::GetText(std::int32_t id)
{
    return Loc().GetText(id, kvxvar);
}

void F_Tabellen2::LoadKind()
{
    kind = FindCodeListKind(intIdString);
    intKind = kind != nullptr ? kind->intKind : std::int16_t{0};
    bytFieldCount = kind != nullptr ? kind->bytFieldCount : std::uint8_t{0};
    bolEditable = intKind != 1;
    strQuery.clear();
    if (kind == nullptr) {
        SSTab1.SetTabs(1);
        return;
    }

    SSTab1.SetTabs(static_cast<std::int16_t>(kind->tabs.size()));
    if (kind->tabsPerRow != 0) SSTab1.SetTabsPerRow(kind->tabsPerRow);
    std::int16_t tab = 0;
    for (const CodeListTab& row : kind->tabs)
        SSTab1.SetTabCaption(tab++, GetText(row.captionText));
    strTable = kind->table;
    strKeyField = kind->keyField;
    strGroup = kind->tabs[0].group;
    strQuery = FillCodeListQuery(kind->firstQuery, kvxvar, strGroup, strTable, SSTab1.TabCaption(0));

    Data1.SetConnectionString(kvxvar.strConnection);
    Data1.SetRecordSource(strQuery);
    Data1.Refresh();
    SetColumnWidths();
}

void F_Tabellen2::SetFieldLayout()
{
    if (kind == nullptr) {
        for (ui::TextBox* box : fieldBoxes)
            box->SetVisible(false);
        chkDisable.SetVisible(false);
        return;
    }
    const CodeListLayout& layout = kind->layout;
    const std::array<std::int32_t, 3> widths{layout.field1Width, layout.field2Width, layout.field3Width};
    for (std::size_t i = 0; i < fieldBoxes.size(); ++i) {
        fieldBoxes[i]->SetVisible(widths[i] != 0);
        if (widths[i] > 0) fieldBoxes[i]->SetWidth(widths[i]);
    }
    chkDisable.SetVisible(layout.showDisable);
    // The standard wording of the program's own fields is not the customer's to change.
    txtField1.SetEnabled(intKind != 1);
    LayoutEditLine();
}

// Each box stands close behind the one before; the second grows with the form, so that the line fills its frame. Where
// it would become narrower than another wide box, both share what is left.
void F_Tabellen2::LayoutEditLine()
{
    const std::int32_t top = std::max(0, Frame1.Height() - 480);
    const std::int32_t inner = Frame1.Width() - 240;
    if (kind != nullptr && kind->layout.field2Width != 0 && inner > 0) {
        const CodeListLayout& layout = kind->layout;
        std::int32_t left = inner;
        if (chkDisable.Visible()) left -= kDisableTwips + kGapTwips;
        ui::TextBox* wide = nullptr;
        for (const auto& [box, width] : {std::pair{&txtField1, layout.field1Width}, {&txtField3, layout.field3Width}}) {
            if (width == 0) continue;
            if (width >= kWideBoxTwips) wide = box;
            box->SetWidth(width);
            left -= width + kGapTwips;
        }
        if (wide != nullptr && left < wide->Width()) {
            left = (left + wide->Width()) / 2;
            wide->SetWidth(left);
        }
        txtField2.SetWidth(std::max(600, left));
    }
    std::int32_t left = 120;
    for (ui::TextBox* box : fieldBoxes) {
        if (!box->Visible()) continue;
        box->Move(left, top, box->Width(), 315);
        left += box->Width() + kGapTwips;
    }
    chkDisable.Move(left, top, kDisableTwips, 315);
}

void F_Tabellen2::SetColumnCaptions()
{
    if (kind == nullptr) return;
    auto columns = DataGrid1.Columns();
    std::int32_t i = 0;
    for (const CodeListColumn& column : kind->columns) {
        if (i >= columns.Count()) return;
        columns[i].SetCaption(column.captionText != 0 ? GetText(column.captionText) : std::string(column.caption));
        if (column.isFlag) columns[i].SetNumberFormat("Yes/No");
        ++i;
    }
}

// A shown column is as wide as the box that edits it; ids and keys behind them are hidden.
void F_Tabellen2::SetColumnWidths()
{
    if (kind == nullptr) return;
    auto columns = DataGrid1.Columns();
    const auto shown = static_cast<std::int32_t>(kind->columns.size());
    std::size_t box = 0;
    for (std::int32_t i = 0; i < columns.Count(); ++i) {
        columns[i].SetVisible(i < shown);
        if (i >= shown) continue;
        const bool isFlag = kind->columns[static_cast<std::size_t>(i)].isFlag;
        columns[i].SetWidth(isFlag ? kDisableTwips : fieldBoxes[box++]->Width());
    }
}

void F_Tabellen2::Form_Activate()
{
    if (kind == nullptr) return;
    switch (kind->layout.formWidth) {
    case kFormWidthFromBoxes: SetWidth(kind->layout.field1Width + kind->layout.field2Width + 2920); break;
    case kFormWidthDesign: SetWidth(kDesignWidthTwips + 100); break;
    default: SetWidth(kind->layout.formWidth); break;
    }
    SetColumnWidths();
}

void F_Tabellen2::Form_Resize()
{
    if (Width() < 6000 || Height() < 4000) {
        SetSize(std::max(Width(), 6000), std::max(Height(), 4000));
        return;  // the new size has come here again
    }
    const std::int32_t width = ScaleWidth(), height = ScaleHeight();
    Frame2.Move(60, 0, width - 120, height - 60);
    SSTab1.Move(120, 200, width - 1600, Frame2.Height() - 375);
    const std::int32_t fullRows = SSTab1.Tabs() / SSTab1.TabsPerRow();
    const std::int32_t stripHeight = 330 * SSTab1.Rows() + 60;
    // The frame lies over the strip, not on a page of it: every tab shows the same grid.
    Frame1.Move(SSTab1.Left() + 120, SSTab1.Top() + stripHeight, SSTab1.Width() - 240 - 160 * fullRows,
                SSTab1.Height() - 1200);
    DataGrid1.Move(120, 200, Frame1.Width() - 240, Frame1.Height() - 840);

    const std::int32_t left = width - 1400;
    std::int32_t top = 200;
    for (ui::Button* button : {&btnNeu, &btnSpeichern, &btnAbrechen, &btnLoschen, &cmdPrint}) {
        button->Move(left, top, 1260, 345);
        top += 435;
    }
    btnOK.Move(left, Frame2.Height() - 520, 1260, 345);
    LayoutEditLine();
    SetColumnWidths();
}

void F_Tabellen2::Form_Unload(std::int16_t&)
{
    loc.reset();
}

}  // namespace kvx
