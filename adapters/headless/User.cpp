#include "adapters/headless/User.h"

#include "adapters/headless/Keys.h"
#include "basic/Convert.h"
#include "basic/Error.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/DTPicker.h"
#include "ui/DataGrid.h"
#include "ui/FileListBox.h"
#include "ui/FlexGrid.h"
#include "ui/ListBox.h"
#include "ui/ListView.h"
#include "ui/SSTab.h"
#include "ui/TreeView.h"

namespace kvx::adapters::headless {

using namespace ui;

void User::Fail(std::string_view what, std::string_view control)
{
    desktop_.Fail(form_.Name() + "." + std::string{control} + ": " + std::string{what});
}

Control* User::Find(std::string_view control)
{
    Control* found = form_.FindControl(control);
    if (found == nullptr) Fail("no such control", control);
    return found;
}

template <class T>
T* User::FindAs(std::string_view control)
{
    Control* found = Find(control);
    T* typed = dynamic_cast<T*>(found);
    if (found != nullptr && typed == nullptr) Fail("is another kind of control", control);
    return typed;
}

template <class T>
T* User::Reach(std::string_view control)
{
    T* found = FindAs<T>(control);
    if (found == nullptr) return nullptr;
    if (!found->IsReachable() || !found->IsShown()) {
        Fail("cannot be reached", control);
        return nullptr;
    }
    if (found->TakesFocus() && !desktop_.GetHands().Focus(*found)) {
        desktop_.Settle();
        return nullptr;  // Validate kept the focus, or a handler sent it elsewhere: the click comes to nothing
    }
    return found;
}

void User::Act(const std::function<void(Hands&)>& action)
{
    action(desktop_.GetHands());
    desktop_.Settle();
}

void User::Keys(std::string_view keys)
{
    for (const KeyStroke& stroke : ParseKeys(keys)) {
        desktop_.Stroke(stroke.keyCode, stroke.shift, stroke.character);
        desktop_.Settle();
    }
}

void User::Type(std::string_view control, std::string_view text)
{
    if (Reach<Control>(control) == nullptr) return;
    desktop_.Settle();
    for (const KeyStroke& stroke : TypeKeys(text)) {
        desktop_.Stroke(stroke.keyCode, stroke.shift, stroke.character);
        desktop_.Settle();
    }
}

void User::Tab(bool backwards)
{
    Keys(backwards ? "+{TAB}" : "{TAB}");
}

void User::CtrlAlone()
{
    desktop_.GetHands().CtrlAlone(form_);
    desktop_.Settle();
}

void User::Focus(std::string_view control)
{
    Reach<Control>(control);
    desktop_.Settle();
}

void User::Click(std::string_view control)
{
    Control* found = Find(control);
    if (found == nullptr) return;
    if (!found->IsReachable() || !found->IsShown()) return Fail("cannot be reached", control);
    desktop_.GetHands().Click(*found);
    desktop_.Settle();
}

void User::DblClick(std::string_view control)
{
    Click(control);
    Control* found = form_.FindControl(control);
    if (found != nullptr && form_.Visible() && found->IsReachable()) Act([&](Hands& hands) { hands.DblClick(*found); });
}

void User::CloseBox()
{
    Act([&](Hands& hands) { hands.CloseBox(form_); });
}

void User::Resize(std::int32_t widthTwips, std::int32_t heightTwips)
{
    Act([&](Hands& hands) { hands.Resize(form_, widthTwips, heightTwips); });
}

void User::Drag(std::string_view source, std::string_view target, std::int32_t xTwips, std::int32_t yTwips)
{
    Control* from = Reach<Control>(source);
    Control* to = Find(target);
    if (from == nullptr || to == nullptr) return;
    if (!to->IsReachable() || !to->IsShown()) return Fail("cannot be reached", target);
    Act([&](Hands& hands) { hands.Drag(*from, *to, xTwips, yTwips); });
}

void User::Pick(std::string_view control, std::string_view text)
{
    const std::vector<std::string> lines = Lines(control);
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i] == text) return Pick(control, static_cast<std::int32_t>(i));
    Fail("has no item \"" + std::string{text} + "\"", control);
}

void User::Pick(std::string_view control, std::int32_t index, std::int16_t shift)
{
    if (index < 0 || index >= static_cast<std::int32_t>(Lines(control).size()))
        return Fail("has no item " + std::to_string(index), control);
    Control* found = Reach<Control>(control);
    if (found != nullptr) Act([&](Hands& hands) { hands.PickItem(*found, index, shift); });
}

void User::PickRow(std::string_view listView, std::string_view key)
{
    const ListView* list = FindAs<ListView>(listView);
    if (list == nullptr) return;
    const ListItem* item = list->ListItems().Find(key);
    if (item == nullptr) return Fail("has no row " + std::string{key}, listView);
    PickRow(listView, item->Index());
}

void User::PickRow(std::string_view listView, std::int32_t index, std::int16_t shift)
{
    ListView* list = Reach<ListView>(listView);
    if (list == nullptr) return;
    if (index < 1 || index > list->ListItems().Count()) return Fail("has no row " + std::to_string(index), listView);
    Act([&](Hands& hands) { hands.PickRow(*list, list->ListItems()[index], shift); });
}

void User::ToggleCheck(std::string_view listView, std::string_view key)
{
    const ListView* list = FindAs<ListView>(listView);
    if (list == nullptr) return;
    const ListItem* item = list->ListItems().Find(key);
    if (item == nullptr) return Fail("has no row " + std::string{key}, listView);
    ToggleCheck(listView, item->Index());
}

void User::ToggleCheck(std::string_view listView, std::int32_t index)
{
    ListView* list = Reach<ListView>(listView);
    if (list == nullptr) return;
    if (index < 1 || index > list->ListItems().Count()) return Fail("has no row " + std::to_string(index), listView);
    if (!list->Checkboxes()) return Fail("has no check boxes", listView);
    Act([&](Hands& hands) { hands.ToggleCheck(*list, list->ListItems()[index]); });
}

void User::ClickColumn(std::string_view listView, std::int32_t index)
{
    ListView* list = Reach<ListView>(listView);
    if (list == nullptr) return;
    if (index < 1 || index > list->ColumnHeaders().Count())
        return Fail("has no column " + std::to_string(index), listView);
    Act([&](Hands& hands) { hands.ClickColumn(*list, index); });
}

void User::SelectTab(std::string_view tabStrip, std::int16_t tab)
{
    SSTab* strip = Reach<SSTab>(tabStrip);
    if (strip == nullptr) return;
    if (tab < 0 || tab >= strip->Tabs()) return Fail("has no tab " + std::to_string(tab), tabStrip);
    Act([&](Hands& hands) { hands.SelectTab(*strip, tab); });
}

void User::SetDate(std::string_view picker, basic::Date date)
{
    if (DTPicker* found = Reach<DTPicker>(picker); found != nullptr)
        Act([&](Hands& hands) { hands.SetDate(*found, date); });
}

Node User::FindNode(std::string_view tree, const Path& path)
{
    TreeView* found = FindAs<TreeView>(tree);
    if (found == nullptr) return {};
    Node node = found->FirstTop();
    for (const std::string& text : path) {
        Node child = node == nullptr ? Node{} : node.Child();
        while (child != nullptr && child.TextView() != text)
            child = child.Next();
        node = child;
        if (node == nullptr) {
            Fail("has no node \"" + text + "\"", tree);
            return {};
        }
    }
    if (node == nullptr) Fail("has no nodes", tree);
    return node;
}

void User::Select(std::string_view tree, const Path& path)
{
    TreeView* found = Reach<TreeView>(tree);
    if (found == nullptr) return;
    const Node node = FindNode(tree, path);
    if (node == nullptr) return;
    Act([&](Hands& hands) {
        // A click needs the node in sight: what is above opens, from the top down.
        std::vector<Node> closed;
        for (Node above = node.Parent(); above != nullptr; above = above.Parent())
            if (!above.Expanded()) closed.push_back(above);
        for (; !closed.empty(); closed.pop_back())
            hands.ExpandNode(*found, closed.back(), true);
        if (node.IsThere()) hands.ClickNode(*found, node);
    });
}

void User::Expand(std::string_view tree, const Path& path, bool expanded)
{
    TreeView* found = Reach<TreeView>(tree);
    const Node node = found == nullptr ? Node{} : FindNode(tree, path);
    if (node != nullptr) Act([&](Hands& hands) { hands.ExpandNode(*found, node, expanded); });
}

void User::CheckNode(std::string_view tree, const Path& path, bool checked)
{
    TreeView* found = Reach<TreeView>(tree);
    const Node node = found == nullptr ? Node{} : FindNode(tree, path);
    if (node != nullptr) Act([&](Hands& hands) { hands.CheckNode(*found, node, checked); });
}

void User::EditLabel(std::string_view tree, std::string_view text)
{
    TreeView* found = Reach<TreeView>(tree);
    if (found == nullptr) return;
    if (!found->IsEditing()) Act([&](Hands& hands) { hands.StartEdit(*found); });
    if (!found->IsEditing()) return Fail("starts no label edit", tree);
    Keys("{HOME}+{END}{DEL}");
    for (const KeyStroke& stroke : TypeKeys(text))
        desktop_.Stroke(stroke.keyCode, stroke.shift, stroke.character);
    Keys("{ENTER}");
}

void User::ClickCell(std::string_view grid, std::int32_t row, std::int32_t col)
{
    Control* found = Reach<Control>(grid);
    if (auto* flex = dynamic_cast<FlexGrid*>(found); flex != nullptr) {
        if (row < 0 || row >= flex->Rows() || col < 0 || col >= flex->Cols()) return Fail("has no such cell", grid);
        Act([&](Hands& hands) { hands.ClickCell(*flex, row, col); });
    } else if (auto* data = dynamic_cast<DataGrid*>(found); data != nullptr) {
        if (row < 0 || row >= data->RowCount() || col < 0 || col >= data->Columns().Count())
            return Fail("has no such cell", grid);
        Act([&](Hands& hands) { hands.ClickCell(*data, row, col); });
    } else if (found != nullptr) {
        Fail("is no grid", grid);
    }
}

void User::DblClickCell(std::string_view grid, std::int32_t row, std::int32_t col)
{
    ClickCell(grid, row, col);
    Control* found = form_.FindControl(grid);
    if (found != nullptr && form_.Visible() && found->IsReachable())
        Act([&](Hands& hands) { hands.DblClickCell(*found, row, col); });
}

basic::Variant User::Read(std::string_view control, std::string_view member, const std::vector<basic::Variant>& args)
{
    Control* found = Find(control);
    return found == nullptr ? basic::Variant{} : found->GetMember(member, args);
}

std::string User::Text(std::string_view control, std::string_view member)
{
    return basic::ToText(Read(control, member));
}

std::vector<std::string> User::Lines(std::string_view list)
{
    std::vector<std::string> lines;
    Control* found = Find(list);
    if (found == nullptr) return lines;
    const std::int32_t count = basic::CLng(found->GetMember("ListCount", {}));
    for (std::int32_t i = 0; i < count; ++i) {
        const basic::Variant index{i};
        lines.push_back(basic::ToText(found->GetMember("List", {&index, 1})));
    }
    return lines;
}

bool User::CanReach(std::string_view control)
{
    const Control* found = Find(control);
    return found != nullptr && found->IsReachable() && found->IsShown();
}

std::string User::FocusedControl() const
{
    return form_.ActiveControl() != nullptr ? form_.ActiveControl()->FullName() : std::string{};
}

}  // namespace kvx::adapters::headless
