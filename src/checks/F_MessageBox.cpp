#include "checks/F_MessageBox.h"

#include "basic/Convert.h"
#include "common/FormInstance.h"
#include "os/Files.h"

#include <array>

namespace kvx {

F_MessageBox::F_MessageBox() : Form("F_MessageBox")
{
    Wire();
}

void F_MessageBox::Design()
{
    SetCaption("Korvex32");
    SetSize(7800, 5200);
    SetSizable(true);

    Frame1.Move(60, 60, 7560, 4200);
    LabelPrompt.Move(180, 195, 7320, 390);  // two lines: a record's name may be long
    List1.Move(180, 600, 7320, 3540);
    btnOK.Move(4980, 4380, 1260, 345);
    btnCancel.Move(6360, 4380, 1260, 345);

    LabelPrompt.SetAnchors(ui::kAnchorLeft | ui::kAnchorTop | ui::kAnchorRight);
    Frame1.SetAnchors(ui::kAnchorAll);
    List1.SetAnchors(ui::kAnchorAll);
    for (ui::Button* button : {&btnOK, &btnCancel})
        button->SetAnchors(ui::kAnchorRight | ui::kAnchorBottom);

    // The list has the focus first: Enter closes the dialog and Esc cancels the pick without a mouse.
    List1.SetTabIndex(0);
    btnOK.SetTabIndex(1);
    btnCancel.SetTabIndex(2);
    // These texts are no catalogue's: the dialog gets no session.
    btnOK.SetCaption("Ok");
    btnCancel.SetCaption("Abbrechen");
    btnCancel.SetVisible(false);
}

void F_MessageBox::Wire()
{
    On(FormLoad, &F_MessageBox::Form_Load);
    On(QueryUnload, &F_MessageBox::Form_QueryUnload);
    On(List1.DblClick, &F_MessageBox::List1_DblClick);
    On(List1.KeyPress, &F_MessageBox::List1_KeyPress);
    On(btnOK.Click, &F_MessageBox::btnOK_Click);
    On(btnCancel.Click, &F_MessageBox::btnCancel_Click);
}

void F_MessageBox::Run(std::uint8_t mode, std::string_view strLabel, std::string_view strValue,
                       const basic::ObjectRef& cmbBox)
{
    bytMode = mode;
    Load();
    if (bytMode == kPickFromCombo) {
        FillListFromCombo(cmbBox);
        strOldValue = strValue;
        LayoutPick();
        SelectOldValue();
        btnCancel.SetVisible(true);
    } else if (bytMode == kTextFile) {
        LoadListFromFile(strValue);
    }
    LabelPrompt.SetCaption(strLabel);
    Show();
}

void F_MessageBox::ShowWhereUsed(std::string_view strLabel)
{
    bytMode = kWhereUsed;  // the object may have served another mode before
    LabelPrompt.SetCaption(strLabel);
    Show();
}

void F_MessageBox::LayoutPick()
{
    LabelPrompt.Move(LabelPrompt.Left(), Frame1.Top(), LabelPrompt.Width(), 195);  // the list begins right below
    List1.SetTop(Frame1.Top() + 200);
    SetHeight(7000);
    Frame1.SetHeight(ScaleHeight() - 498);
    List1.SetHeight(Frame1.Height() - 240);
    btnOK.SetTop(ScaleHeight() - 390);
    btnCancel.SetTop(ScaleHeight() - 390);
}

void F_MessageBox::LayoutHostLines()
{
    List1.SetTop(Frame1.Top() + 200);
    List1.SetHeight(Frame1.Height() - 240);
}

void F_MessageBox::FillListFromCombo(const basic::ObjectRef& cmbBox)
{
    List1.Clear();
    basic::Object& combo = basic::Deref(cmbBox);
    const std::int32_t count = basic::CLng(combo.Get("ListCount"));
    for (std::int32_t i = 0; i < count; ++i) {
        const std::array<basic::Variant, 1> index{basic::Variant(i)};
        const std::string entry = basic::CStr(combo.Get("List", index));
        // Without the empty entries lines and entries no longer match: the result is a text, never an index.
        if (!entry.empty()) List1.AddItem(entry);
    }
}

void F_MessageBox::SelectOldValue()
{
    for (std::int32_t i = 0; i < List1.ListCount(); ++i) {
        if (List1.List(i) == strOldValue) {
            List1.SetSelected(i, true);
            return;
        }
    }
}

void F_MessageBox::LoadListFromFile(std::string_view path)
{
    List1.Clear();
    for (const std::string& line : os::ReadLines(path))
        List1.AddItem(line);
}

void F_MessageBox::Form_Load()
{
    List1.Clear();
}

// The close box must not hand an empty value to the host: it cancels the pick.
void F_MessageBox::Form_QueryUnload(std::int16_t&, std::int16_t UnloadMode)
{
    if (UnloadMode == ui::vbFormControlMenu && bytMode == kPickFromCombo) strResult = strOldValue;
}

void F_MessageBox::List1_DblClick()
{
    if (bytMode != kHostLines) btnOK_Click();
}

void F_MessageBox::List1_KeyPress(std::int32_t& KeyAscii)
{
    if (KeyAscii == ui::vbKeyEscape && bytMode == kPickFromCombo) {
        strResult = strOldValue;
        Unload();
    } else if (KeyAscii == ui::vbKeyReturn) {
        btnOK_Click();
    }
}

void F_MessageBox::btnOK_Click()
{
    if (bytMode == kPickFromCombo) strResult = List1.List(List1.ListIndex());
    Unload();
}

void F_MessageBox::btnCancel_Click()
{
    if (bytMode == kPickFromCombo) strResult = strOldValue;
    Unload();
}

std::shared_ptr<F_MessageBox> LoadMessageBox()
{
    auto form = FormInstance<F_MessageBox>::Get();
    form->Load();
    return form;
}

void ReleaseMessageBox()
{
    if (FormInstance<F_MessageBox>::Exists()) FormInstance<F_MessageBox>::Get()->Unload();
    FormInstance<F_MessageBox>::Release();
}

}  // namespace kvx
