#include "host/drive/Look.h"

#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/DTPicker.h"
#include "ui/DataGrid.h"
#include "ui/FileListBox.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/Frame.h"
#include "ui/Label.h"
#include "ui/ListBox.h"
#include "ui/ListView.h"
#include "ui/OptionButton.h"
#include "ui/ProgressBar.h"
#include "ui/SSTab.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"
#include "ui/TreeView.h"

#include <algorithm>

namespace kvx::host::drive {

using namespace ui;

namespace {

template <class T, class Look>
bool If(Control& control, const Look& look)
{
    T* typed = dynamic_cast<T*>(&control);
    if (typed != nullptr) look(*typed);
    return typed != nullptr;
}

Json PathOf(const Node& node)
{
    Json path = Json::array();
    for (Node at = node; at != nullptr; at = at.Parent())
        path.insert(path.begin(), at.Text());
    return path;
}

// What a kind adds to name, kind and state.
void LookAtKind(Control& control, Json& look)
{
    const auto caption = [&](const auto& labelled) { look["text"] = labelled.Caption(); };
    const auto tick = [&](const auto& box) {
        caption(box);
        look["value"] = ToJson(basic::Variant(box.Value()));
    };
    If<TextBox>(control,
                [&](const TextBox& box) {
                    look["text"] = box.Text();
                    if (box.Locked()) look["locked"] = true;
                }) ||
        If<Label>(control, caption) || If<Button>(control, caption) || If<Frame>(control, caption) ||
        If<CheckBox>(control, tick) || If<OptionButton>(control, tick) ||
        If<ComboBox>(control,
                     [&](const ComboBox& box) {
                         look["text"] = box.Text();
                         look["index"] = box.ListIndex();
                         look["count"] = box.ListCount();
                         if (box.Locked()) look["locked"] = true;
                     }) ||
        If<ListBox>(control,
                    [&](const ListBox& box) {
                        look["text"] = box.Text();
                        look["index"] = box.ListIndex();
                        look["count"] = box.ListCount();
                    }) ||
        If<FileListBox>(control,
                        [&](const FileListBox& box) {
                            look["text"] = box.FileName();
                            look["index"] = box.ListIndex();
                            look["count"] = box.ListCount();
                        }) ||
        If<ListView>(control,
                     [&](ListView& list) {
                         look["count"] = list.ListItems().Count();
                         look["row"] = list.SelectedItem() == nullptr ? 0 : list.SelectedItem()->Index();
                     }) ||
        If<TreeView>(control,
                     [&](TreeView& tree) {
                         look["count"] = tree.Count();
                         const Node node = tree.SelectedItem();
                         look["selected"] = node == nullptr ? Json(nullptr) : PathOf(node);
                         if (tree.IsEditing()) look["edit"] = tree.EditText();
                     }) ||
        If<DataGrid>(control,
                     [&](DataGrid& grid) {
                         look["count"] = grid.RowCount();
                         look["row"] = grid.CurrentRow();
                         look["col"] = grid.Col();
                     }) ||
        If<FlexGrid>(control,
                     [&](const FlexGrid& grid) {
                         look["rows"] = grid.Rows();
                         look["cols"] = grid.Cols();
                         look["row"] = grid.Row();
                         look["col"] = grid.Col();
                     }) ||
        If<SSTab>(control,
                  [&](const SSTab& strip) {
                      look["text"] = strip.Caption();
                      look["tab"] = strip.Tab();
                      Json tabs = Json::array();
                      for (std::int16_t i = 0; i < strip.Tabs(); ++i)
                          tabs.push_back(strip.TabCaption(i));
                      look["tabs"] = std::move(tabs);
                  }) ||
        If<DTPicker>(control,
                     [&](const DTPicker& picker) {
                         look["text"] = picker.Text();
                         look["date"] = DateText(picker.Value());
                     }) ||
        If<ProgressBar>(control,
                        [&](const ProgressBar& bar) { look["value"] = ToJson(basic::Variant(bar.Value())); }) ||
        If<Timer>(control, [&](const Timer& timer) { look["interval"] = timer.Interval(); });
}

template <class L>
Json ListRow(const L& list, std::int32_t index, bool selected)
{
    Json row = {{"row", index}, {"cells", Json::array({list.List(index)})}};
    if constexpr (requires { list.ItemData(index); }) row["data"] = list.ItemData(index);
    if (selected) row["selected"] = true;
    return row;
}

Json NodeLook(const Node& node, std::int32_t levels)
{
    Json look = {{"text", node.Text()}, {"key", node.Key()}, {"children", node.Children()}};
    if (node.Expanded()) look["expanded"] = true;
    if (node.Checked()) look["checked"] = true;
    if (node.Bold()) look["bold"] = true;
    if (node.Selected()) look["selected"] = true;
    if (levels > 1 && node.Children() > 0) look["nodes"] = LookAtNodes(*node.Tree(), node, levels - 1);
    return look;
}

}  // namespace

Json LookAtControl(Control& control)
{
    Json look = {{"name", control.FullName()}, {"kind", control.TypeName()}};
    LookAtKind(control, look);
    look["enabled"] = control.Enabled();
    look["visible"] = control.Visible();
    look["reachable"] = control.IsReachable() && control.IsShown();
    if (control.Owner().ActiveControl() == &control) look["focus"] = true;
    if (control.Container() != nullptr) look["container"] = control.Container()->FullName();
    return look;
}

Json LookAtForm(const Form& form)
{
    Json controls = Json::array();
    for (Control* control : form.Controls())
        controls.push_back(LookAtControl(*control));
    return {{"form", form.Name()},
            {"caption", form.Caption()},
            {"enabled", form.Enabled()},
            {"visible", form.Visible()},
            {"controls", std::move(controls)}};
}

Json LookAtRows(Control& control, std::int32_t from, std::int32_t count)
{
    Json columns = Json::array(), rows = Json::array();
    std::int32_t total = -1;
    const auto each = [&](std::int32_t end, const auto& row) {
        total = end;
        for (std::int32_t i = std::max(0, from); i < end && static_cast<std::int32_t>(rows.size()) < count; ++i)
            rows.push_back(row(i));
    };
    const auto texts = [&](const auto& list) {
        each(list.ListCount(), [&](std::int32_t i) { return ListRow(list, i, i == list.ListIndex()); });
    };
    If<ComboBox>(control, texts) || If<FileListBox>(control, texts) ||
        If<ListBox>(control,
                    [&](const ListBox& list) {
                        const bool several = list.MultiSelect() != vbMultiSelectNone;
                        each(list.ListCount(), [&](std::int32_t i) {
                            return ListRow(list, i, several ? list.Selected(i) : i == list.ListIndex());
                        });
                    }) ||
        If<ListView>(control,
                     [&](ListView& list) {
                         for (std::int32_t i = 1; i <= list.ColumnHeaders().Count(); ++i)
                             columns.push_back(list.ColumnHeaders()[i].Text());
                         each(list.ListItems().Count(), [&](std::int32_t i) {
                             const ListItem& item = list.ListItems()[i + 1];
                             Json cells = Json::array({item.Text()});
                             for (std::int32_t column = 1; column < list.ColumnHeaders().Count(); ++column)
                                 cells.push_back(item.SubItems(column));
                             Json row = {{"row", i + 1}, {"key", item.Key()}, {"cells", std::move(cells)}};
                             if (item.Checked()) row["checked"] = true;
                             if (item.Selected()) row["selected"] = true;
                             return row;
                         });
                     }) ||
        If<DataGrid>(control,
                     [&](DataGrid& grid) {
                         for (std::int32_t i = 0; i < grid.Columns().Count(); ++i)
                             columns.push_back(grid.Columns()[i].Caption());
                         each(grid.RowCount(), [&](std::int32_t i) {
                             Json cells = Json::array();
                             for (std::int32_t column = 0; column < grid.Columns().Count(); ++column)
                                 cells.push_back(grid.CellText(i, column));
                             Json row = {{"row", i}, {"cells", std::move(cells)}};
                             if (i == grid.CurrentRow()) row["selected"] = true;
                             return row;
                         });
                     }) ||
        If<FlexGrid>(control, [&](const FlexGrid& grid) {
            each(grid.Rows(), [&](std::int32_t i) {
                Json cells = Json::array();
                for (std::int32_t column = 0; column < grid.Cols(); ++column)
                    cells.push_back(grid.TextMatrix(i, column));
                Json row = {{"row", i}, {"cells", std::move(cells)}};
                if (i == grid.Row()) row["selected"] = true;
                return row;
            });
        });
    if (total < 0) throw Fault("wrong-kind", control.FullName() + " has no rows");
    Json look = {{"count", total}};
    if (!columns.empty()) look["columns"] = std::move(columns);
    look["rows"] = std::move(rows);
    return look;
}

Json LookAtNodes(TreeView& tree, const Node& above, std::int32_t levels)
{
    Json nodes = Json::array();
    for (Node node = above == nullptr ? tree.FirstTop() : above.Child(); node != nullptr; node = node.Next())
        nodes.push_back(NodeLook(node, levels));
    return nodes;
}

}  // namespace kvx::host::drive
