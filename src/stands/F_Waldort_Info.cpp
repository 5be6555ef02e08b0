#include "stands/F_Waldort_Info.h"

#include "ado/Recordset.h"
#include "basic/Convert.h"
#include "basic/Format.h"
#include "basic/Text.h"
#include "common/FormInstance.h"
#include "common/M_Common.h"
#include "ui/Desktop.h"

namespace kvx {

namespace {

constexpr std::int32_t kFields = 5;  // of each kind
constexpr std::string_view kNumberFormat = "#####0.00";

std::string InfoAssignment(const std::string& number, const std::string& text)
{
    return "INFO" + number + " = " + (text.empty() ? "NULL" : "'" + text + "'");
}

// A number that the user has cleared is unknown, not 0.
std::string ZahlAssignment(const std::string& number, const std::string& text)
{
    return "ZAHL" + number + " = " + (text.empty() ? "NULL" : basic::Replace(text, ",", "."));
}

}  // namespace

F_Waldort_Info::F_Waldort_Info() : Form("F_Waldort_Info")
{
    Wire();
}

void F_Waldort_Info::Design()
{
    using namespace ui;
    constexpr std::int32_t kMargin = 120, kRow = 420, kBoxHeight = 315, kLabelWidth = 900, kTextWidth = 4200;
    constexpr std::int32_t kZahlLeft = 3 * kMargin + kLabelWidth + kTextWidth, kZahlWidth = 1500;
    constexpr std::int32_t kButtonsTop = 2 * kMargin + 5 * kRow;

    SetCaption("Info");
    SetSizable(true);
    SetSize(kZahlLeft + kLabelWidth + kZahlWidth + 2 * kMargin + 120, kButtonsTop + 345 + kMargin + 405);
    for (std::int32_t i = 0; i < kFields; ++i) {
        const std::int32_t top = kMargin + i * kRow;
        lblInfo[i].Move(kMargin, top + 45, kLabelWidth, 255);
        txtInfo[i].Move(kMargin + kLabelWidth, top, kTextWidth, kBoxHeight);
        txtInfo[i].SetAnchors(kAnchorLeft | kAnchorTop | kAnchorRight);
        lblZahl[i].Move(kZahlLeft, top + 45, kLabelWidth, 255);
        lblZahl[i].SetAnchors(kAnchorTop | kAnchorRight);
        txtZahl[i].Move(kZahlLeft + kLabelWidth, top, kZahlWidth, kBoxHeight);
        txtZahl[i].SetAnchors(kAnchorTop | kAnchorRight);
        txtZahl[i].SetAlignment(1);
        txtInfo[i].SetTabIndex(static_cast<std::int16_t>(i));
        txtZahl[i].SetTabIndex(static_cast<std::int16_t>(5 + i));
    }
    LockAll(true);

    constexpr std::int32_t kButtonWidth = 1500;
    std::int32_t left = kMargin;
    std::int16_t tabIndex = 10;
    for (Button* button : {&btnBearbeiten, &btnSpeichern, &btnAbbrechen}) {
        button->Move(left, kButtonsTop, kButtonWidth, 345);
        left += kButtonWidth + kMargin;
        button->SetTabIndex(tabIndex++);
    }
    btnClose.Move(kZahlLeft + kLabelWidth + kZahlWidth - kButtonWidth, kButtonsTop, kButtonWidth, 345);
    btnClose.SetAnchors(kAnchorTop | kAnchorRight);
    btnClose.SetTabIndex(tabIndex);
    btnSpeichern.SetEnabled(false);
    btnAbbrechen.SetEnabled(false);
}

void F_Waldort_Info::Wire()
{
    On(FormLoad, &F_Waldort_Info::Form_Load);
    On(FormUnload, &F_Waldort_Info::Form_Unload);
    for (std::int32_t i = 0; i < kFields; ++i) {
        On(txtInfo[i].GotFocus, &F_Waldort_Info::Box_GotFocus);
        On(txtInfo[i].KeyPress, &F_Waldort_Info::txtInfo_KeyPress, i);
        On(txtZahl[i].GotFocus, &F_Waldort_Info::Box_GotFocus);
        On(txtZahl[i].KeyPress, &F_Waldort_Info::txtZahl_KeyPress, i);
        On(txtZahl[i].LostFocus, &F_Waldort_Info::txtZahl_LostFocus, i);
    }
    On(btnBearbeiten.Click, &F_Waldort_Info::btnBearbeiten_Click);
    On(btnSpeichern.Click, &F_Waldort_Info::btnSpeichern_Click);
    On(btnAbbrechen.Click, &F_Waldort_Info::btnAbbrechen_Click);
    On(btnClose.Click, &F_Waldort_Info::btnClose_Click);
}

void F_Waldort_Info::Run(const KvxVar& kvxvar_dll, std::string_view where)
{
    strWhere = where;
    kvxvar = kvxvar_dll;
    Load();
    GetData(kvxvar, strWhere);
    Show();
}

void F_Waldort_Info::GetData(const KvxVar& kvxvar_dll, std::string_view where)
{
    ado::Recordset stand;
    stand.Open("SELECT INFO1, INFO2, INFO3, INFO4, INFO5, ZAHL1, ZAHL2, ZAHL3, ZAHL4, ZAHL5 FROM WALDORT " +
                   std::string(where),
               kvxvar_dll.dbAdo, ado::adOpenForwardOnly, ado::adLockReadOnly);
    if (stand.Eof()) return;
    for (std::int32_t i = 0; i < kFields; ++i) {
        txtInfo[i].SetText(basic::ToText(stand[i].Value()));
        txtZahl[i].SetText(basic::Format(stand[i + kFields].Value(), "0.00"));
    }
}

void F_Waldort_Info::LockBox(bool locked, ui::TextBox& box)
{
    box.SetLocked(locked);
    box.SetTabStop(!locked);
}

void F_Waldort_Info::LockAll(bool locked)
{
    for (ui::TextBox& box : txtInfo)
        LockBox(locked, box);
    for (ui::TextBox& box : txtZahl)
        LockBox(locked, box);
}

// Two states only: looking (edit, close) and editing (save, abandon).
void F_Waldort_Info::ToggleButtons()
{
    for (ui::Button* button : {&btnBearbeiten, &btnSpeichern, &btnAbbrechen, &btnClose})
        button->SetEnabled(!button->Enabled());
}

void F_Waldort_Info::Form_Load()
{
    if (loc == nullptr) loc = Siblings().NewLoc();
    loc->LocalizeForm(kvxvar, *this);
}

void F_Waldort_Info::Form_Unload(std::int16_t&)
{
    loc.reset();
}

void F_Waldort_Info::btnBearbeiten_Click()
{
    LockAll(false);
    ToggleButtons();
}

void F_Waldort_Info::btnSpeichern_Click()
{
    for (std::int32_t i = 0; i < kFields; ++i) {
        const std::string number = std::to_string(i + 1);
        kvxvar.dbAdo.Execute("UPDATE WALDORT SET " + InfoAssignment(number, txtInfo[i].Text()) + strWhere);
        kvxvar.dbAdo.Execute("UPDATE WALDORT SET " + ZahlAssignment(number, txtZahl[i].Text()) + strWhere);
    }
    ToggleButtons();
    LockAll(true);
}

void F_Waldort_Info::btnAbbrechen_Click()
{
    GetData(kvxvar, strWhere);
    ToggleButtons();
    LockAll(true);
}

void F_Waldort_Info::btnClose_Click()
{
    Unload();
}

// Queued, so that the contents are marked after a click has set the caret.
void F_Waldort_Info::Box_GotFocus()
{
    ui::CurrentDesktop().SendKeys("{HOME}+{END}");
}

void F_Waldort_Info::txtInfo_KeyPress(std::int32_t Index, std::int32_t& KeyAscii)
{
    if (KeyAscii != ui::vbKeyReturn) return;
    KeyAscii = 0;
    ui::TextBox& next = Index + 1 < kFields ? txtInfo[Index + 1] : txtZahl[0];
    next.SetFocus();
}

void F_Waldort_Info::txtZahl_KeyPress(std::int32_t Index, std::int32_t& KeyAscii)
{
    if (KeyAscii != ui::vbKeyReturn) {
        NumberKey(KeyAscii, txtZahl[Index], kNumberFormat);
        return;
    }
    KeyAscii = 0;
    if (Index + 1 < kFields)
        txtZahl[Index + 1].SetFocus();
    else if (btnSpeichern.Enabled())
        btnSpeichern.SetFocus();
    else
        txtInfo[0].SetFocus();
}

void F_Waldort_Info::txtZahl_LostFocus(std::int32_t Index)
{
    FormatBox(kNumberFormat, txtZahl[Index]);
}

void ShowStandInfo(const KvxVar& kvxvar, std::string_view where)
{
    const auto form = FormInstance<F_Waldort_Info>::Get();
    if (form->IsLoaded()) form->Unload();  // a failed save left it behind
    form->Run(kvxvar, where);
    FormInstance<F_Waldort_Info>::Release();
}

}  // namespace kvx
