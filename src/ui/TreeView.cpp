#include "ui/TreeView.h"

#include "basic/Convert.h"
#include "basic/Error.h"
#include "ui/Form.h"

namespace kvx::ui {

TreeView::TreeView(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

void TreeView::Reset()
{
    Control::Reset();
    Clear();
    store_.SetPathKeys("", "", "");
    store_.SetSorted(TreeStore::kNone, false);
    loading_ = 0;
    checkBoxes_ = false;
    hideSelection_ = true;
    labelEdit_ = tvwAutomatic;
    pathSeparator_ = "\\";
}

void TreeView::SetPathKeys(std::string_view rootKey, std::string_view prefix, std::string_view separator)
{
    if (store_.Count() > 0) basic::Raise(basic::kErrInvalidCall);
    store_.SetPathKeys(rootKey, prefix, separator);
}

bool TreeView::IsThere(const Node& node) const
{
    return node.tree_ == this && node.epoch_ == epoch_ && store_.IsThere(node.id_);
}

std::uint32_t TreeView::IdOf(const Node& node) const
{
    if (node == nullptr) basic::Raise(basic::kErrObjectNotSet);
    if (node.tree_ != this) basic::Raise(basic::kErrInvalidCall);
    if (!IsThere(node)) basic::Raise(kErrNodeGone, "This item's control has been deleted");
    return node.id_;
}

void TreeView::Tell(void (TreeListener::*what)(const Node&), const Node& node)
{
    if (listener_ != nullptr && loading_ == 0) (listener_->*what)(node);
}

void TreeView::CheckKey(std::string_view key) const
{
    if (key.empty()) return;
    if (basic::IsNumeric(key)) basic::Raise(basic::kErrNodeKeyInvalid);
    if (store_.FindKey(key) != TreeStore::kNone) basic::Raise(basic::kErrNodeKeyExists);
}

Node TreeView::Add(const Node& relative, TreeRelationship relationship, std::string_view key, std::string_view text)
{
    CheckKey(key);
    return Place(relative, relationship, key, text);
}

Node TreeView::Add(std::string_view relativeKey, TreeRelationship relationship, std::string_view key,
                   std::string_view text)
{
    const Node relative = Item(relativeKey);
    return Add(relative, relationship, key, text);
}

Node TreeView::Place(const Node& relative, TreeRelationship relationship, std::string_view key, std::string_view text)
{
    std::uint32_t parent = TreeStore::kNone, before = TreeStore::kNone;
    if (relative != nullptr) {
        const std::uint32_t id = IdOf(relative);
        parent = relationship == tvwChild ? id : store_.Parent(id);
        switch (relationship) {
        case tvwFirst: before = store_.FirstChild(parent); break;
        case tvwNext: before = store_.Next(id); break;
        case tvwPrevious: before = id; break;
        case tvwLast:
        case tvwChild: break;
        }
    }
    if (store_.Sorted(parent)) before = store_.SortedPlace(parent, text);
    if (listener_ != nullptr && loading_ == 0) {
        const std::uint32_t position = before == TreeStore::kNone ? store_.ChildCount(parent) : store_.Position(before);
        listener_->NodeInserting(Handle(parent), static_cast<std::int32_t>(position));
    }
    const std::uint32_t id = store_.Insert(parent, before, text);
    store_.SetKey(id, key);
    const Node node = Handle(id);
    Tell(&TreeListener::NodeInserted, node);
    return node;
}

Node TreeView::TryAddChild(const Node& parent, std::string_view part, std::string_view text)
{
    const std::uint32_t above = IdOf(parent);
    if (store_.Sorted(above)) {
        if (store_.FindChild(above, part) != TreeStore::kNone) return {};
        const Node node = Place(parent, tvwChild, "", text);
        store_.SetKeyPart(node.id_, part);
        return node;
    }
    const bool telling = listener_ != nullptr && loading_ == 0;
    if (telling && store_.FindChild(above, part) != TreeStore::kNone) return {};
    if (telling) listener_->NodeInserting(parent, static_cast<std::int32_t>(store_.ChildCount(above)));
    const Node node = Handle(store_.AppendChild(above, part, text));
    if (telling && node != nullptr) listener_->NodeInserted(node);
    return node;
}

Node TreeView::AddChild(const Node& parent, std::string_view part, std::string_view text)
{
    const Node node = TryAddChild(parent, part, text);
    if (node == nullptr) basic::Raise(basic::kErrNodeKeyExists);
    return node;
}

void TreeView::Remove(const Node& node)
{
    const std::uint32_t id = IdOf(node), parent = store_.Parent(id);
    const auto inside = [&](std::uint32_t other) {
        for (; other != TreeStore::kNone; other = store_.Parent(other))
            if (other == id) return true;
        return false;
    };
    if (editing_ && inside(edited_)) StopEdit();
    std::uint32_t selection = selected_;
    if (inside(selected_)) {
        selection = store_.Next(id);
        if (selection == TreeStore::kNone) selection = store_.Previous(id);
        if (selection == TreeStore::kNone) selection = parent;
    }
    std::int32_t position = 0;
    if (listener_ != nullptr && loading_ == 0) {
        position = static_cast<std::int32_t>(store_.Position(id));
        listener_->NodeRemoving(node);
    }
    store_.Remove(id);
    const bool moved = selection != selected_;
    selected_ = selection;
    if (listener_ != nullptr && loading_ == 0) listener_->NodeRemoved(Handle(parent), position);
    if (moved) Tell(&TreeListener::SelectionChanged, Handle(selected_));
}

void TreeView::Remove(std::string_view key)
{
    Remove(Item(key));
}

void TreeView::Clear()
{
    StopEdit();
    store_.Clear();
    ++epoch_;
    selected_ = TreeStore::kNone;
    if (listener_ != nullptr && loading_ == 0) listener_->NodesReset();
}

Node TreeView::Item(std::int32_t index)
{
    if (index < 1 || index > Count()) basic::Raise(basic::kErrNodeIndex);
    return Handle(store_.ByIndex(static_cast<std::uint32_t>(index - 1)));
}

Node TreeView::Item(std::string_view key)
{
    const Node node = Find(key);
    if (node == nullptr) basic::Raise(basic::kErrNodeNotFound);
    return node;
}

Node TreeView::Find(std::string_view key)
{
    return Handle(store_.FindKey(key));
}

Node TreeView::FindChild(const Node& parent, std::string_view part)
{
    return Handle(store_.FindChild(parent == nullptr ? TreeStore::kNone : IdOf(parent), part));
}

Node TreeView::FirstTop()
{
    return Handle(store_.FirstChild(TreeStore::kNone));
}

std::int32_t TreeView::TopCount() const
{
    return static_cast<std::int32_t>(store_.ChildCount(TreeStore::kNone));
}

Node TreeView::TopAt(std::int32_t position)
{
    if (position < 0 || position >= TopCount()) basic::Raise(basic::kErrNodeIndex);
    return Handle(store_.ChildAt(TreeStore::kNone, static_cast<std::uint32_t>(position)));
}

Node TreeView::NextVisible(const Node& node)
{
    std::uint32_t id = IdOf(node);
    if (store_.Has(id, TreeStore::kExpanded) && store_.ChildCount(id) > 0) return Handle(store_.FirstChild(id));
    while (id != TreeStore::kNone && store_.Next(id) == TreeStore::kNone)
        id = store_.Parent(id);
    return id == TreeStore::kNone ? Node{} : Handle(store_.Next(id));
}

Node TreeView::PreviousVisible(const Node& node)
{
    const std::uint32_t start = IdOf(node);
    std::uint32_t id = store_.Previous(start);
    if (id == TreeStore::kNone) return Handle(store_.Parent(start));
    while (store_.Has(id, TreeStore::kExpanded) && store_.ChildCount(id) > 0)
        id = store_.LastChild(id);
    return Handle(id);
}

void TreeView::BeginLoad()
{
    ++loading_;
}

void TreeView::EndLoad()
{
    if (loading_ > 0 && --loading_ == 0 && listener_ != nullptr) listener_->NodesReset();
}

Node TreeView::SelectedItem()
{
    return Handle(selected_);
}

void TreeView::SetSelectedItem(const Node& node)
{
    const std::uint32_t id = node == nullptr ? TreeStore::kNone : IdOf(node);
    if (id != TreeStore::kNone) OpenAbove(id);
    if (id == selected_) return;
    selected_ = id;
    Tell(&TreeListener::SelectionChanged, node);
}

void TreeView::Open(std::uint32_t id, bool expanded)
{
    if (store_.Has(id, TreeStore::kExpanded) == expanded) return;
    store_.Set(id, TreeStore::kExpanded, expanded);
    Node node = Handle(id);
    Tell(&TreeListener::NodeExpanded, node);
    (expanded ? Expand : Collapse).Raise(node);
}

bool TreeView::OpenAbove(std::uint32_t id)
{
    std::vector<std::uint32_t> closed;
    for (std::uint32_t above = store_.Parent(id); above != TreeStore::kNone; above = store_.Parent(above))
        if (!store_.Has(above, TreeStore::kExpanded)) closed.push_back(above);
    const std::uint32_t epoch = epoch_;
    for (auto above = closed.rbegin(); above != closed.rend() && epoch == epoch_; ++above)
        if (store_.IsThere(*above)) Open(*above, true);
    return !closed.empty();
}

void TreeView::SetSorted(bool sorted)
{
    store_.SetSorted(TreeStore::kNone, sorted);
    if (listener_ != nullptr && loading_ == 0) listener_->NodesReset();
}

void TreeView::SetCheckBoxes(bool checkBoxes)
{
    checkBoxes_ = checkBoxes;
    Notify(Change::Look);
}

void TreeView::FocusGained()
{
    if (selected_ != TreeStore::kNone || store_.Count() == 0) return;
    selected_ = store_.FirstChild(TreeStore::kNone);
    Tell(&TreeListener::SelectionChanged, Handle(selected_));
}

void TreeView::FocusLosing()
{
    UserEndEdit(true);
}

}  // namespace kvx::ui
