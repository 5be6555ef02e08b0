#include "stands/F_Waldort.h"

#include "basic/Convert.h"
#include "basic/Text.h"
#include "common/M_Common.h"
#include "stands/F_Waldort_Info.h"

#include <utility>

namespace kvx {

F_Waldort::F_Waldort() : Form("F_Waldort")
{
    Wire();
}

void F_Waldort::Wire()
{
    On(FormLoad, &F_Waldort::Form_Load);
    On(FormActivate, &F_Waldort::Form_Activate);
    On(FormUnload, &F_Waldort::Form_Unload);
    On(TreeView1.NodeClick, &F_Waldort::TreeView1_NodeClick);
    On(TreeView1.Click, &F_Waldort::TreeView1_Click);
    On(TreeView1.BeforeLabelEdit, &F_Waldort::TreeView1_BeforeLabelEdit);
    On(TreeView1.AfterLabelEdit, &F_Waldort::TreeView1_AfterLabelEdit);
    WireFields();
    On(btnNeuerWO.Click, &F_Waldort::btnNeuerWO_Click);
    On(btnLoschen.Click, &F_Waldort::btnLoschen_Click);
    On(btnInfo.Click, &F_Waldort::btnInfo_Click);
    On(cmdPrint.Click, &F_Waldort::cmdPrint_Click);
    On(btnOK.Click, &F_Waldort::btnOK_Click);
    On(btnCancel.Click, &F_Waldort::btnCancel_Click);
}

void F_Waldort::Run(const KvxVar& kvxvar_dll, std::int32_t ID_AL_dll, bool OnlyRead, std::int32_t ID_WALDORT_Root_dll,
                    const basic::ObjectRef& ListBox)
{
    // An instance that a failed call left behind starts afresh.
    if (IsLoaded()) Unload();
    blnDirty = blnNewNode = blnActivated = blnOK = false;
    const bool print = std::exchange(bolPrint, false);

    kvxvar = kvxvar_dll;
    ID_AL = ID_AL_dll;
    blnOnlyRead = OnlyRead;
    ID_WALDORT_Root = ID_WALDORT_Root_dll;
    objListBox = ListBox;

    Load();
    ApplyInputLimits();
    ReadLevelOption();
    if (print) {
        cmdPrint_Click();
        return;
    }
    ApplyClientRules();
    Show();
}

std::int32_t F_Waldort::KeyLength() const
{
    return kvxvar.g_Client == "SACHSEN" || kvxvar.g_Client == "BB" ? 6 : 25;
}

void F_Waldort::ApplyInputLimits()
{
    for (ui::TextBox* box : keyBoxes)
        box->SetMaxLength(KeyLength());
    // Oracle's columns are measured in bytes and were made twice as long.
    const std::int32_t factor = kvxvar.bOracle != 0 ? 2 : 1;
    txtName.SetMaxLength(200 * factor);
    for (ui::TextBox* box : {&txtGemarkung, &txtFlurStuck, &txtParzelle})
        box->SetMaxLength(30 * factor);
}

// An installation uses one to six levels; what the option says beyond that is written back as six.
void F_Waldort::ReadLevelOption()
{
    const std::int32_t levels = Siblings().NewDBHelper()->GetOptionNumber(kvxvar, "WALDORTLEVEL");
    intLevels = static_cast<std::int16_t>(levels < 1 || levels > 6 ? 6 : levels);
    if (levels != intLevels) Siblings().NewDBWriter()->PutOptionNumber(kvxvar, "WALDORTLEVEL", std::int32_t{6});
    for (std::size_t i = 1; i < kStandLevels; ++i) {
        if (intLevels > static_cast<std::int16_t>(i)) continue;
        keyBoxes[i]->SetVisible(false);
        keyLabels[i]->SetVisible(false);
    }
}

void F_Waldort::ApplyClientRules()
{
    // The tag outlasts the clicks on nodes: "NO" keeps the button off for the whole call.
    if (kvxvar.g_Client == "BB") {
        cmdPrint.SetVisible(false);
        // Only a level that stands above others may get new stands.
        const bool mayCreate = HasRow(
            kvxvar, "SELECT ID FROM ACCESS_LEVELS WHERE RIGHT(ACCESS_LEVELS,2)='00' AND ID = " + std::to_string(ID_AL));
        btnNeuerWO.SetEnabled(mayCreate);
        btnNeuerWO.SetTag(mayCreate ? "" : "NO");
    }
    if (blnOnlyRead || ID_WALDORT_Root != 0) {
        btnNeuerWO.SetEnabled(false);
        btnOK.SetEnabled(false);
        btnNeuerWO.SetTag("NO");
    }
}

void F_Waldort::Form_Load()
{
    if (loc == nullptr) loc = Siblings().NewLoc();
    loc->LocalizeForm(kvxvar, *this);
}

void F_Waldort::Form_Unload(std::int16_t&)
{
    loc.reset();
}

std::string F_Waldort::GetText(std::int32_t id)
{
    if (loc == nullptr) loc = Siblings().NewLoc();
    return loc->GetText(id, kvxvar);
}

// A refused statement must not cost the user the dialog: everything before it is saved already.
void F_Waldort::EventFailed(const basic::Error& error)
{
    ShowMessage(error.Description, ui::vbCritical);
}

void F_Waldort::btnOK_Click()
{
    if (objListBox != nullptr) {
        AddToListBox();
        return;
    }
    blnOK = true;
    blnActivated = false;
    Hide();
}

// With a list box the user picks stand after stand; one that is in the list already is only selected there.
void F_Waldort::AddToListBox()
{
    if (!Is_In_Table(kvxvar, ID_AL)) return;
    const std::int32_t id = GetID(ID_AL);
    if (id == 0) return;
    std::string text = PutWaldortStr(Key(), txtName.Text());
    if (const std::int32_t name = basic::InStrRev(text, ": "); name > 0) text = basic::Left(text, name - 1);

    basic::Object& list = *objListBox;
    const auto select = [&list](const basic::Variant& index) { list.Put("Selected", true, {&index, 1}); };
    const std::int32_t count = basic::CLng(list.Get("ListCount"));
    for (std::int32_t i = 0; i < count; ++i) {
        const basic::Variant index(i);
        if (basic::CLng(list.Get("ItemData", {&index, 1})) != id) continue;
        select(index);
        return;
    }
    basic::Variant item(text);
    list.Call("AddItem", {&item, 1});
    const basic::Variant index = list.Get("NewIndex");  // a sorted list puts it anywhere
    list.Put("ItemData", id, {&index, 1});
    select(index);
}

void F_Waldort::btnCancel_Click()
{
    blnActivated = false;
    Hide();
}

void F_Waldort::btnInfo_Click()
{
    ShowStandInfo(kvxvar, BuildNodeWhere(/*bySelection=*/false, /*wholeLevelList=*/false));
}

// Left the tree, right the stand, below the buttons. The tree takes what a larger window gives. The tab order is that
// of the declarations.
void F_Waldort::Design()
{
    using namespace ui;
    constexpr std::int32_t kMargin = 120, kRow = 420, kBoxHeight = 315, kLabelWidth = 1500;
    constexpr std::int32_t kTreeWidth = 5400, kRight = kTreeWidth + 2 * kMargin, kRightWidth = 6300;
    constexpr std::int32_t kKeysHeight = 3 * kRow, kFrameTop = kMargin + kKeysHeight + 60;
    constexpr std::int32_t kFrameHeight = 8 * kRow + 300, kTreeHeight = 6600;
    constexpr std::int32_t kButtonsTop = kMargin + kTreeHeight + 420;

    SetCaption("Waldort Verwaltung");
    SetSizable(true);
    SetSize(kRight + kRightWidth + kMargin + 120, kButtonsTop + 345 + kMargin + 405);

    TreeView1.Move(kMargin, kMargin, kTreeWidth, kTreeHeight);
    TreeView1.SetAnchors(kAnchorAll);
    TreeView1.SetPathKeys("ROOT", "K", kLevelSeparator);
    ProgressBar1.Move(kMargin, kMargin + kTreeHeight + 75, kRight + kRightWidth - kMargin, 225);
    ProgressBar1.SetAnchors(kAnchorLeft | kAnchorRight | kAnchorBottom);
    ProgressBar1.SetVisible(false);

    // Two levels a row.
    constexpr std::int32_t kColumn = kRightWidth / 2;
    for (std::size_t i = 0; i < kStandLevels; ++i) {
        const std::int32_t left = kRight + static_cast<std::int32_t>(i % 2) * kColumn;
        const std::int32_t top = kMargin + static_cast<std::int32_t>(i / 2) * kRow;
        keyLabels[i]->Move(left, top + 45, 600, 255);
        keyBoxes[i]->Move(left + 660, top, kColumn - 660 - (i % 2 == 0 ? 2 * kMargin : 0), kBoxHeight);
        keyBoxes[i]->SetLocked(true);  // a level is named in the tree
        for (Control* control : {static_cast<Control*>(keyLabels[i]), static_cast<Control*>(keyBoxes[i])})
            control->SetAnchors(kAnchorTop | kAnchorRight);
    }

    frame.Move(kRight, kFrameTop, kRightWidth, kFrameHeight);
    frame.SetAnchors(kAnchorTop | kAnchorRight);
    struct Line {
        Label& label;
        Control& control;
        std::int32_t width;
    };
    constexpr std::int32_t kWide = kRightWidth - kLabelWidth - 3 * kMargin;
    std::int32_t top = 240;
    for (const Line& line :
         {Line{lblName, txtName, kWide}, Line{lblHolzart, cmbHolzart, 1800}, Line{lblFlaeche, txtFlaeche, 1800},
          Line{lblAlter, txtAlter, 1800}, Line{lblGemarkung, txtGemarkung, kWide},
          Line{lblFlurStuck, txtFlurStuck, kWide}, Line{lblParzelle, txtParzelle, kWide}}) {
        line.label.SetContainer(&frame);
        line.label.Move(kMargin, top + 45, kLabelWidth, 255);
        line.control.SetContainer(&frame);
        line.control.Move(kMargin + kLabelWidth + kMargin, top, line.width, kBoxHeight);
        top += kRow;
    }
    for (TextBox* box : {&txtFlaeche, &txtAlter})
        box->SetAlignment(1);
    chkDisable.SetContainer(&frame);
    chkDisable.Move(kMargin + kLabelWidth + kMargin, top, kWide, kBoxHeight);
    chkDisable.SetVisible(false);  // means nothing before the tree is there

    constexpr std::int32_t kButtonWidth = 1380, kButtonStep = kButtonWidth + kMargin;
    std::int32_t left = kMargin;
    for (Button* button : {&btnNeuerWO, &btnLoschen, &btnInfo, &cmdPrint}) {
        button->Move(left, kButtonsTop, kButtonWidth, 345);
        button->SetAnchors(kAnchorLeft | kAnchorBottom);
        left += kButtonStep;
    }
    left = kRight + kRightWidth - kButtonStep - kButtonWidth;
    for (Button* button : {&btnOK, &btnCancel}) {
        button->Move(left, kButtonsTop, kButtonWidth, 345);
        button->SetAnchors(kAnchorRight | kAnchorBottom);
        left += kButtonStep;
    }
}

}  // namespace kvx
