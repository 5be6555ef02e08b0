#include "ui/Node.h"

#include "basic/Error.h"
#include "ui/TreeView.h"

namespace kvx::ui {
namespace {

std::int32_t Signed(std::uint32_t number)
{
    return static_cast<std::int32_t>(number);
}

}  // namespace

bool Node::IsThere() const
{
    return tree_ != nullptr && tree_->IsThere(*this);
}

TreeView& Node::There() const
{
    if (tree_ == nullptr) basic::Raise(basic::kErrObjectNotSet);
    tree_->IdOf(*this);
    return *tree_;
}

std::string Node::Text() const
{
    return std::string{There().store_.Text(id_)};
}

std::string_view Node::TextView() const
{
    return There().store_.Text(id_);
}

void Node::SetText(std::string_view text) const
{
    There().store_.SetText(id_, text);
    tree_->TellChanged(*this);
}

std::string Node::Key() const
{
    return There().store_.Key(id_);
}

void Node::SetKey(std::string_view key) const
{
    TreeView& tree = There();
    // The node's own key is no other's.
    if (tree.store_.FindKey(key) != id_) tree.CheckKey(key);
    tree.store_.SetKey(id_, key);
}

std::string_view Node::KeyPart() const
{
    return There().store_.KeyPart(id_);
}

void Node::SetKeyPart(std::string_view part) const
{
    if (!There().store_.SetKeyPart(id_, part)) basic::Raise(basic::kErrNodeKeyExists);
}

Color Node::ForeColor() const
{
    const TreeView& tree = There();
    return tree.store_.ForeColor(id_, tree.ForeColor());
}

void Node::SetForeColor(Color color) const
{
    There().store_.SetForeColor(id_, color);
    tree_->TellChanged(*this);
}

Color Node::BackColor() const
{
    const TreeView& tree = There();
    return tree.store_.BackColor(id_, tree.BackColor());
}

void Node::SetBackColor(Color color) const
{
    There().store_.SetBackColor(id_, color);
    tree_->TellChanged(*this);
}

bool Node::Bold() const
{
    return There().store_.Has(id_, TreeStore::kBold);
}

void Node::SetBold(bool bold) const
{
    There().store_.Set(id_, TreeStore::kBold, bold);
    tree_->TellChanged(*this);
}

bool Node::Checked() const
{
    return There().store_.Has(id_, TreeStore::kChecked);
}

void Node::SetChecked(bool checked) const
{
    There().store_.Set(id_, TreeStore::kChecked, checked);
    tree_->TellChanged(*this);
}

const std::string& Node::Tag() const
{
    return There().store_.Tag(id_);
}

void Node::SetTag(std::string_view tag) const
{
    There().store_.SetTag(id_, tag);
}

bool Node::Expanded() const
{
    return There().store_.Has(id_, TreeStore::kExpanded);
}

void Node::SetExpanded(bool expanded) const
{
    There().Open(id_, expanded);
}

bool Node::Selected() const
{
    return There().selected_ == id_;
}

void Node::SetSelected(bool selected) const
{
    if (selected)
        There().SetSelectedItem(*this);
    else if (Selected())
        tree_->SetSelectedItem(nullptr);
}

bool Node::Sorted() const
{
    return There().store_.Sorted(id_);
}

void Node::SetSorted(bool sorted) const
{
    TreeView& tree = There();
    tree.store_.SetSorted(id_, sorted);
    if (sorted && tree.listener_ != nullptr && tree.loading_ == 0) tree.listener_->NodesReset();
}

Node Node::Parent() const
{
    return There().Handle(tree_->store_.Parent(id_));
}
Node Node::Child() const
{
    return There().Handle(tree_->store_.FirstChild(id_));
}
Node Node::LastChild() const
{
    return There().Handle(tree_->store_.LastChild(id_));
}
Node Node::Next() const
{
    return There().Handle(tree_->store_.Next(id_));
}
Node Node::Previous() const
{
    return There().Handle(tree_->store_.Previous(id_));
}

Node Node::FirstSibling() const
{
    const TreeStore& store = There().store_;
    return tree_->Handle(store.FirstChild(store.Parent(id_)));
}

Node Node::LastSibling() const
{
    const TreeStore& store = There().store_;
    return tree_->Handle(store.LastChild(store.Parent(id_)));
}

Node Node::Root() const
{
    Node top = *this;
    for (Node above = Parent(); above != nullptr; above = above.Parent())
        top = above;
    return top;
}

std::int32_t Node::Children() const
{
    return Signed(There().store_.ChildCount(id_));
}

Node Node::ChildAt(std::int32_t position) const
{
    if (position < 0 || position >= Children()) basic::Raise(basic::kErrNodeIndex);
    return tree_->Handle(tree_->store_.ChildAt(id_, static_cast<std::uint32_t>(position)));
}

std::int32_t Node::Position() const
{
    return Signed(There().store_.Position(id_));
}

std::int32_t Node::Level() const
{
    std::int32_t level = 0;
    for (Node above = Parent(); above != nullptr; above = above.Parent())
        ++level;
    return level;
}

std::int32_t Node::Index() const
{
    return Signed(There().store_.IndexOf(id_)) + 1;
}

std::string Node::FullPath() const
{
    std::string path = Text();
    for (Node above = Parent(); above != nullptr; above = above.Parent())
        path.insert(0, above.Text() + tree_->PathSeparator());
    return path;
}

bool Node::EnsureVisible() const
{
    const bool opened = There().OpenAbove(id_);
    tree_->Tell(&TreeListener::EnsureVisible, *this);
    return opened;
}

}  // namespace kvx::ui
