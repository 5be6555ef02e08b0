#include "adapters/headless/Hands.h"

#include "ui/ComboBox.h"
#include "ui/DTPicker.h"
#include "ui/DataGrid.h"
#include "ui/FileListBox.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/ListBox.h"
#include "ui/ListView.h"
#include "ui/SSTab.h"
#include "ui/TreeView.h"

namespace kvx::adapters::headless {

bool Hands::Focus(ui::Control& control)
{
    return control.Owner().UserFocus(control);
}

void Hands::Click(ui::Control& control)
{
    control.Owner().UserClickOn(control);
}

void Hands::DblClick(ui::Control& control)
{
    control.Owner().Protect([&] { control.UserDblClick(); });
}

void Hands::CtrlAlone(ui::Form& form)
{
    form.UserKeyDown(ui::vbKeyControl, ui::vbCtrlMask);
    form.UserKeyUp(ui::vbKeyControl, 0);
}

void Hands::CloseBox(ui::Form& form)
{
    form.UserClose();
}

void Hands::Resize(ui::Form& form, std::int32_t widthTwips, std::int32_t heightTwips)
{
    form.UserResize(widthTwips, heightTwips);
}

void Hands::Drag(ui::Control& from, ui::Control& to, std::int32_t xTwips, std::int32_t yTwips)
{
    to.Owner().Protect([&] { to.UserDrop(from, xTwips, yTwips); });
}

void Hands::PickItem(ui::Control& list, std::int32_t index, std::int16_t shift)
{
    list.Owner().Protect([&] {
        if (auto* combo = dynamic_cast<ui::ComboBox*>(&list); combo != nullptr) {
            combo->DropDown.Raise();
            combo->UserPick(index);
        } else if (auto* box = dynamic_cast<ui::ListBox*>(&list); box != nullptr) {
            box->UserSelectItem(index, shift);
        } else if (auto* files = dynamic_cast<ui::FileListBox*>(&list); files != nullptr) {
            files->UserSelectItem(index);
        }
    });
}

void Hands::PickRow(ui::ListView& list, ui::ListItem& item, std::int16_t shift)
{
    list.Owner().Protect([&] { list.UserSelectItem(item, shift); });
}

void Hands::ToggleCheck(ui::ListView& list, ui::ListItem& item)
{
    list.Owner().Protect([&] { list.UserToggleCheck(item); });
}

void Hands::ClickColumn(ui::ListView& list, std::int32_t index)
{
    list.Owner().Protect([&] { list.UserColumnClick(list.ColumnHeaders()[index]); });
}

void Hands::SelectTab(ui::SSTab& strip, std::int16_t tab)
{
    strip.Owner().Protect([&] { strip.UserSelectTab(tab); });
}

void Hands::SetDate(ui::DTPicker& picker, basic::Date date)
{
    picker.Owner().Protect([&] { picker.UserSetValue(date); });
}

void Hands::ClickNode(ui::TreeView& tree, const ui::Node& node)
{
    tree.Owner().Protect([&] { tree.UserClickNode(node); });
}

void Hands::ExpandNode(ui::TreeView& tree, const ui::Node& node, bool expanded)
{
    tree.Owner().Protect([&] { tree.UserExpand(node, expanded); });
}

void Hands::CheckNode(ui::TreeView& tree, const ui::Node& node, bool checked)
{
    tree.Owner().Protect([&] { tree.UserCheck(node, checked); });
}

void Hands::StartEdit(ui::TreeView& tree)
{
    tree.Owner().Protect([&] { tree.UserStartEdit(); });
}

void Hands::ClickCell(ui::Control& grid, std::int32_t row, std::int32_t col)
{
    grid.Owner().Protect([&] {
        if (auto* flex = dynamic_cast<ui::FlexGrid*>(&grid); flex != nullptr)
            flex->UserClickCell(row, col);
        else if (auto* data = dynamic_cast<ui::DataGrid*>(&grid); data != nullptr)
            data->UserSelectCell(row, col);
    });
}

void Hands::DblClickCell(ui::Control& grid, std::int32_t, std::int32_t)
{
    grid.Owner().Protect([&] { grid.UserDblClick(); });
}

}  // namespace kvx::adapters::headless
