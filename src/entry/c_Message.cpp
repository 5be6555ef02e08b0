#include "entry/c_Message.h"

#include "checks/F_MessageBox.h"

namespace kvx {

std::string c_Message::MessageBoxCmb(std::string_view strLabel, std::string_view Parameter,
                                     const basic::ObjectRef& cmbBox)
{
    const auto form = LoadMessageBox();
    form->Run(F_MessageBox::kPickFromCombo, strLabel, Parameter, cmbBox);
    ReleaseMessageBox();
    return form->strResult;
}

void c_Message::MessageBox_Clear()
{
    LoadMessageBox()->List1.Clear();
}

void c_Message::MessageBox_AddItem(std::string_view s)
{
    LoadMessageBox()->List1.AddItem(s);
}

std::int16_t c_Message::MessageBox_ItemCount()
{
    return static_cast<std::int16_t>(LoadMessageBox()->List1.ListCount());
}

void c_Message::MessageBox_Show(std::string_view strCaption)
{
    const auto form = LoadMessageBox();
    form->SetCaption(strCaption);
    form->LayoutHostLines();
    form->Run(F_MessageBox::kHostLines, "");
    form->Unload();
}

void c_Message::MessageBoxNL(std::string_view strLabel, std::string_view strFileName)
{
    const auto form = LoadMessageBox();
    form->Run(F_MessageBox::kTextFile, strLabel, strFileName);
    ReleaseMessageBox();
}

}  // namespace kvx
