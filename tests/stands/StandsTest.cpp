#include "stands/StandsTest.h"

#include "basic/Convert.h"
#include "basic/Text.h"
#include "common/FormInstance.h"
#include "stands/F_Waldort.h"

#include <algorithm>

namespace kvx::test {

namespace {

void AddNodes(const ui::Node& parent, const std::string& path, Lines& nodes)
{
    for (ui::Node node = parent.Child(); node; node = node.Next()) {
        const std::string own = path.empty() ? node.Text() : path + "/" + node.Text();
        nodes.push_back(own + (node.ForeColor() == ui::kColorGrayText ? "*" : ""));
        AddNodes(node, own, nodes);
    }
}

}  // namespace

void Maintain(Scenario& s, const Script& script, bool onlyRead)
{
    s.In("F_Waldort", script);
    c_Waldort().WaldortSimple(s.kvxvar(), /*bolPrint=*/0, s.ID_AL, onlyRead ? 1 : 0, s.ID_WALDORT_Root);
}

void BeOracle(Scenario& s)
{
    s.kvxvar().bOracle = -1;
}

ui::TreeView& Tree(Dialog& f)
{
    return dynamic_cast<ui::TreeView&>(*f.Form().FindControl("TreeView1"));
}

Lines Nodes(Dialog& f)
{
    Lines nodes;
    if (const ui::Node root = Tree(f).FirstTop()) AddNodes(root, "", nodes);
    return nodes;
}

std::string NodeKey(Dialog& f, const Dialog::Path& path)
{
    return basic::Replace(f.FindNode("TreeView1", path).Key(), "\r\n", "|");
}

bool IsGrey(Dialog& f, const Dialog::Path& path)
{
    return f.FindNode("TreeView1", path).ForeColor() == ui::kColorGrayText;
}

std::string Selected(Dialog& f)
{
    const ui::Node node = Tree(f).SelectedItem();
    if (!node) return "(none)";
    if (!node.Parent()) return "(root)";
    std::string path = node.Text();
    for (ui::Node above = node.Parent(); above.Parent(); above = above.Parent())
        path = above.Text() + "/" + path;
    return path;
}

void Rename(Dialog& f, std::string_view text)
{
    f.EditLabel("TreeView1", text);
}

std::string KeyBoxes(Dialog& f)
{
    std::string key;
    for (const char* box : {"txtWO1", "txtWO2", "txtWO3", "txtWO4", "txtWO5", "txtWO6"})
        key += (key.empty() && box[5] == '1' ? "" : "|") + f.Text(box);
    return key;
}

std::size_t PlaceOf(const Scenario& s, std::string_view start)
{
    const auto& log = s.Log();
    const auto found = std::ranges::find_if(log, [start](const std::string& text) { return text.starts_with(start); });
    EXPECT_NE(found, log.end()) << start;
    return static_cast<std::size_t>(found - log.begin()) + 1;
}

void BarWatch::Attach()
{
    bar_ = &FormInstance<F_Waldort>::Get()->ProgressBar1;
    window_ = bar_->GetView();
    bar_->SetView(this);
}

void BarWatch::Detach()
{
    if (bar_ != nullptr && bar_->GetView() == this) bar_->SetView(window_);
    bar_ = nullptr;
}

void BarWatch::Changed(ui::Change what)
{
    if (window_ != nullptr) window_->Changed(what);
    isHundredths = isHundredths && bar_->Min() == 0 && bar_->Max() == 100;
    const std::string state = bar_->Visible() ? basic::ToText(bar_->Value()) : "hidden";
    if (!states.empty() && states.back() == state) return;
    states.push_back(state);
    pointers.push_back(bar_->Owner().MousePointer());
}

void BarWatch::Gone()
{
    if (window_ != nullptr) window_->Gone();
    bar_ = nullptr;
}

}  // namespace kvx::test
