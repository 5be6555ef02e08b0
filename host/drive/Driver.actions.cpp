#include "host/drive/Driver.h"
#include "adapters/headless/Keys.h"
#include "adapters/headless/User.h"
#include "basic/Convert.h"
#include "basic/Text.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/DTPicker.h"
#include "ui/DataGrid.h"
#include "ui/FileListBox.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/ListBox.h"
#include "ui/ListView.h"
#include "ui/OptionButton.h"
#include "ui/SSTab.h"
#include "ui/TreeView.h"

// What a person does to the dialog in front. Everything is checked before it is touched: a fault has changed nothing.
namespace kvx::host::drive {

using adapters::headless::KeyStroke;
using adapters::headless::User;

namespace {

template <class T>
T& As(ui::Control& control, std::string_view what)
{
    T* typed = dynamic_cast<T*>(&control);
    if (typed == nullptr) throw Fault("wrong-kind", control.FullName() + " is no " + std::string(what));
    return *typed;
}

std::int32_t Long(const Json& message, const char* name)
{
    return static_cast<std::int32_t>(NumberField(message, name));
}

std::int16_t ShiftOf(const Json& message)
{
    std::int16_t shift = 0;
    if (BoolField(message, "shift", false)) shift |= ui::vbShiftMask;
    if (BoolField(message, "ctrl", false)) shift |= ui::vbCtrlMask;
    if (BoolField(message, "alt", false)) shift |= ui::vbAltMask;
    return shift;
}

[[noreturn]] void NoItem(const ui::Control& control, const std::string& what)
{
    throw Fault("no-such-item", control.FullName() + " has no " + what);
}

// --- an entry of a list: by number from 0, or by text

template <class L>
std::int32_t IndexIn(const L& list, const Json& message)
{
    if (message.contains("index")) {
        const std::int32_t index = Long(message, "index");
        if (index < 0 || index >= list.ListCount()) NoItem(list, "entry " + std::to_string(index));
        return index;
    }
    const std::string text = TextField(message, "text");
    for (std::int32_t i = 0; i < list.ListCount(); ++i)
        if (list.List(i) == text) return i;
    NoItem(list, "entry \"" + text + "\"");
}

std::int32_t IndexOf(ui::Control& control, const Json& message)
{
    if (const auto* combo = dynamic_cast<ui::ComboBox*>(&control); combo != nullptr) return IndexIn(*combo, message);
    if (const auto* list = dynamic_cast<ui::ListBox*>(&control); list != nullptr) return IndexIn(*list, message);
    if (const auto* files = dynamic_cast<ui::FileListBox*>(&control); files != nullptr) return IndexIn(*files, message);
    throw Fault("wrong-kind", control.FullName() + " has no entries to pick");
}

// --- a row of a list view: by number from 1, by key, or by text

std::int32_t RowOf(const ui::ListView& list, const Json& message)
{
    if (message.contains("row")) {
        const std::int32_t row = Long(message, "row");
        if (row < 1 || row > list.ListItems().Count()) NoItem(list, "row " + std::to_string(row));
        return row;
    }
    if (message.contains("key")) {
        const std::string key = TextField(message, "key");
        const ui::ListItem* item = list.ListItems().Find(key);
        if (item == nullptr) NoItem(list, "row with the key \"" + key + "\"");
        return item->Index();
    }
    const std::string text = TextField(message, "text");
    for (std::int32_t i = 1; i <= list.ListItems().Count(); ++i)
        if (list.ListItems()[i].Text() == text) return i;
    NoItem(list, "row \"" + text + "\"");
}

// Where an entry stands in its list, in the middle of its line.
std::int32_t PlaceOf(ui::Control& control, std::int32_t entry)
{
    if (const auto* box = dynamic_cast<ui::ListBox*>(&control); box != nullptr) {
        if (entry < 0 || entry >= box->ListCount()) NoItem(control, "entry " + std::to_string(entry));
        return (entry - box->TopIndex()) * box->ItemHeight() + box->ItemHeight() / 2;
    }
    const auto& list = As<ui::ListView>(control, "list");
    if (entry < 1 || entry > list.ListItems().Count()) NoItem(control, "row " + std::to_string(entry));
    const ui::ListItem& item = list.ListItems()[entry];
    return item.Top() + item.Height() / 2;
}

}  // namespace

ui::Control& Driver::ReachableOf(const Json& message, const char* field) const
{
    const ui::Form& form = FrontOf(message);
    const std::string name = TextField(message, field);
    ui::Control* control = form.FindControl(name);
    if (control == nullptr) throw Fault("unknown-control", form.Name() + " has no control \"" + name + "\"");
    if (!control->IsReachable() || !control->IsShown())
        throw Fault("not-reachable", form.Name() + "." + control->FullName() + " is hidden or disabled");
    return *control;
}

void Driver::Focus(ui::Control& control)
{
    User(*this, control.Owner()).Focus(control.FullName());
}

// --- mouse and keys

void Driver::OnClick(const Json& message)
{
    const ui::Control& control = ReachableOf(message);
    User(*this, control.Owner()).Click(control.FullName());
}

void Driver::OnDblClick(const Json& message)
{
    const ui::Control& control = ReachableOf(message);
    User(*this, control.Owner()).DblClick(control.FullName());
}

void Driver::OnFocus(const Json& message)
{
    ui::Control& control = ReachableOf(message);
    if (!control.TakesFocus()) throw Fault("wrong-kind", control.FullName() + " takes no focus");
    Focus(control);
}

void Driver::Strokes(std::string_view text, bool typed)
{
    const std::vector<KeyStroke> strokes =
        typed ? adapters::headless::TypeKeys(text) : adapters::headless::ParseKeys(text);
    for (const KeyStroke& stroke : strokes) {
        Stroke(stroke.keyCode, stroke.shift, stroke.character);
        Settle();
    }
}

void Driver::OnType(const Json& message)
{
    const std::string text = TextField(message, "text");
    FrontOf(message);
    if (message.contains("control")) {
        ui::Control& control = ReachableOf(message);
        Focus(control);
        if (!control.HasFocus()) return;  // a handler sent it elsewhere: nobody types blindly
    }
    Strokes(text, true);
}

void Driver::OnKeys(const Json& message)
{
    const std::string keys = TextField(message, "keys");
    try {
        adapters::headless::ParseKeys(keys);
    } catch (const basic::Error&) {
        throw Fault("bad-message", "no keys: \"" + keys + "\"");
    }
    FrontOf(message);
    if (message.contains("control")) {
        ui::Control& control = ReachableOf(message);
        Focus(control);
        if (!control.HasFocus()) return;
    }
    Strokes(keys, false);
}

void Driver::OnKey(const Json& message)
{
    constexpr std::int32_t kLastCode = 255;
    const std::int32_t code = static_cast<std::int32_t>(NumberField(message, "code", 0));
    if (code < 0 || code > kLastCode) throw Fault("bad-message", "\"code\" must be 0 to 255");
    std::int32_t character = 0;
    if (message.contains("character")) {
        const std::string text = TextField(message, "character");
        if (basic::Len(text) != 1) throw Fault("bad-message", "\"character\" must be one character");
        character = basic::AscW(text);
    }
    if (code == 0 && character == 0) throw Fault("bad-message", "\"code\" or \"character\" is missing");
    ui::Form& form = FrontOf(message);
    if (message.contains("control")) Focus(ReachableOf(message));
    if (code == ui::vbKeyControl && character == 0)
        GetHands().CtrlAlone(form);
    else
        Stroke(static_cast<std::int16_t>(code), ShiftOf(message), character);
    Settle();
}

void Driver::OnClose(const Json& message)
{
    User(*this, FrontOf(message)).CloseBox();
}

void Driver::OnResize(const Json& message)
{
    const std::int32_t width = Long(message, "width"), height = Long(message, "height");
    User(*this, FrontOf(message)).Resize(width, height);
}

// --- lists

void Driver::OnPick(const Json& message)
{
    ui::Control& control = ReachableOf(message);
    User user(*this, control.Owner());
    if (const auto* list = dynamic_cast<ui::ListView*>(&control); list != nullptr)
        user.PickRow(control.FullName(), RowOf(*list, message), ShiftOf(message));
    else
        user.Pick(control.FullName(), IndexOf(control, message), ShiftOf(message));
}

void Driver::OnTick(const Json& message)
{
    ui::Control& control = ReachableOf(message);
    const bool checked = BoolField(message, "checked", true);
    User user(*this, control.Owner());
    if (const auto* box = dynamic_cast<ui::CheckBox*>(&control); box != nullptr) {
        if ((box->Value() != 0) != checked) user.Click(control.FullName());
    } else if (const auto* option = dynamic_cast<ui::OptionButton*>(&control); option != nullptr) {
        if (!checked) throw Fault("wrong-kind", control.FullName() + " is unticked by ticking another one");
        if (!option->Value()) user.Click(control.FullName());
    } else if (auto* list = dynamic_cast<ui::ListView*>(&control); list != nullptr) {
        const std::int32_t row = RowOf(*list, message);
        if (!list->Checkboxes()) throw Fault("wrong-kind", control.FullName() + " has no check boxes");
        if (list->ListItems()[row].Checked() != checked) user.ToggleCheck(control.FullName(), row);
    } else {
        auto& tree = As<ui::TreeView>(control, "check box, option button, list view or tree");
        const ui::Node node = NodeOf(tree, message, true);
        if (!tree.CheckBoxes()) throw Fault("wrong-kind", control.FullName() + " has no check boxes");
        if (node.Checked() == checked) return;
        Focus(tree);
        ShowNode(tree, node);
        if (node.IsThere()) GetHands().CheckNode(tree, node, checked);
        Settle();
    }
}

void Driver::OnColumn(const Json& message)
{
    auto& list = As<ui::ListView>(ReachableOf(message), "list view");
    const std::int32_t index = Long(message, "index");
    if (index < 1 || index > list.ColumnHeaders().Count()) NoItem(list, "column " + std::to_string(index));
    User(*this, list.Owner()).ClickColumn(list.FullName(), index);
}

void Driver::OnTab(const Json& message)
{
    auto& strip = As<ui::SSTab>(ReachableOf(message), "tab strip");
    std::int32_t tab = -1;
    if (message.contains("caption")) {
        const std::string caption = TextField(message, "caption");
        for (std::int16_t i = strip.Tabs(); i-- > 0;)
            if (strip.TabCaption(i) == caption) tab = i;
        if (tab < 0) NoItem(strip, "tab \"" + caption + "\"");
    } else {
        tab = Long(message, "tab");
        if (tab < 0 || tab >= strip.Tabs()) NoItem(strip, "tab " + std::to_string(tab));
    }
    const auto index = static_cast<std::int16_t>(tab);
    if (!strip.TabEnabled(index) || !strip.TabVisible(index))
        throw Fault("not-reachable",
                    "tab " + std::to_string(tab) + " of " + strip.FullName() + " is hidden or disabled");
    User(*this, strip.Owner()).SelectTab(strip.FullName(), index);
}

void Driver::OnDate(const Json& message)
{
    const auto& picker = As<ui::DTPicker>(ReachableOf(message), "date box");
    User(*this, picker.Owner()).SetDate(picker.FullName(), ReadDate(TextField(message, "date")));
}

// --- trees

ui::Node Driver::NodeOf(ui::TreeView& tree, const Json& message, bool required) const
{
    if (message.contains("key")) {
        const std::string key = TextField(message, "key");
        const ui::Node node = tree.Find(key);
        if (node == nullptr) NoItem(tree, "node with the key \"" + key + "\"");
        return node;
    }
    if (!message.contains("path")) {
        if (required) throw Fault("bad-message", "\"path\" or \"key\" is missing");
        return {};
    }
    const Json& path = message["path"];
    if (!path.is_array()) throw Fault("bad-message", "\"path\" must be a list of texts");
    ui::Node node = tree.FirstTop();
    if (node == nullptr) NoItem(tree, "nodes");
    for (const Json& part : path) {
        if (!part.is_string()) throw Fault("bad-message", "\"path\" must be a list of texts");
        const std::string text = part.get<std::string>();
        ui::Node child = node.Child();
        while (child != nullptr && child.TextView() != text)
            child = child.Next();
        if (child == nullptr) NoItem(tree, "node \"" + text + "\" there");
        node = child;
    }
    return node;
}

// What is above opens, from the top down: only what is in sight can be clicked.
void Driver::ShowNode(ui::TreeView& tree, const ui::Node& node)
{
    std::vector<ui::Node> closed;
    for (ui::Node above = node.Parent(); above != nullptr; above = above.Parent())
        if (!above.Expanded()) closed.push_back(above);
    for (; !closed.empty(); closed.pop_back())
        if (closed.back().IsThere()) GetHands().ExpandNode(tree, closed.back(), true);
}

void Driver::OnSelect(const Json& message)
{
    auto& tree = As<ui::TreeView>(ReachableOf(message), "tree");
    const ui::Node node = NodeOf(tree, message, true);
    Focus(tree);
    if (!tree.HasFocus() || !node.IsThere()) return;
    ShowNode(tree, node);
    if (node.IsThere()) GetHands().ClickNode(tree, node);
    Settle();
}

void Driver::OnExpand(const Json& message)
{
    auto& tree = As<ui::TreeView>(ReachableOf(message), "tree");
    const ui::Node node = NodeOf(tree, message, true);
    const bool expanded = BoolField(message, "expanded", true);
    Focus(tree);
    if (!tree.HasFocus() || !node.IsThere()) return;
    ShowNode(tree, node);
    if (node.IsThere()) GetHands().ExpandNode(tree, node, expanded);
    Settle();
}

void Driver::OnLabel(const Json& message)
{
    auto& tree = As<ui::TreeView>(ReachableOf(message), "tree");
    const std::string text = TextField(message, "text");
    const bool accept = BoolField(message, "accept", true);
    if (message.contains("path") || message.contains("key")) {
        const ui::Node node = NodeOf(tree, message, true);
        Focus(tree);
        if (!tree.HasFocus() || !node.IsThere()) return;
        ShowNode(tree, node);
        if (node.IsThere() && !node.Selected()) GetHands().ClickNode(tree, node);
        Settle();
    }
    if (!tree.IsEditing()) {
        Focus(tree);
        GetHands().StartEdit(tree);
        Settle();
    }
    if (!tree.IsEditing()) throw Fault("refused", tree.FullName() + " starts no edit of a label");
    Strokes("{HOME}+{END}{DEL}", false);
    Strokes(text, true);
    Strokes(accept ? "{ENTER}" : "{ESC}", false);
}

// --- grids

void Driver::OnCell(const Json& message)
{
    ui::Control& grid = ReachableOf(message);
    const std::int32_t row = Long(message, "row"), col = Long(message, "col");
    std::int32_t rows = 0, cols = 0;
    if (const auto* flex = dynamic_cast<ui::FlexGrid*>(&grid); flex != nullptr) {
        rows = flex->Rows();
        cols = flex->Cols();
    } else {
        auto& data = As<ui::DataGrid>(grid, "grid");
        rows = data.RowCount();
        cols = data.Columns().Count();
    }
    if (row < 0 || row >= rows || col < 0 || col >= cols)
        NoItem(grid, "cell " + std::to_string(row) + ", " + std::to_string(col));
    User user(*this, grid.Owner());
    if (BoolField(message, "double", false))
        user.DblClickCell(grid.FullName(), row, col);
    else
        user.ClickCell(grid.FullName(), row, col);
}

// --- dragging

void Driver::OnDrag(const Json& message)
{
    ui::Control& source = ReachableOf(message);
    ui::Control& target = message.contains("target") ? ReachableOf(message, "target") : source;
    auto x = static_cast<std::int32_t>(NumberField(message, "x", target.Width() / 2));
    auto y = static_cast<std::int32_t>(NumberField(message, "y", target.Height() / 2));
    if (message.contains("onto")) y = PlaceOf(target, Long(message, "onto"));
    User user(*this, source.Owner());
    if (message.contains("entry")) {
        // The press that begins a drag marks the entry first.
        const std::int32_t entry = Long(message, "entry");
        static_cast<void>(PlaceOf(source, entry));
        if (dynamic_cast<ui::ListView*>(&source) != nullptr)
            user.PickRow(source.FullName(), entry);
        else
            user.Pick(source.FullName(), entry);
        if (!source.Owner().Visible()) return;
    }
    user.Drag(source.FullName(), target.FullName(), x, y);
}

}  // namespace kvx::host::drive
