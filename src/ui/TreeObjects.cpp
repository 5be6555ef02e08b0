#include "basic/Object.h"
#include "ui/MemberRows.h"
#include "ui/TreeView.h"

#include <memory>

// Trees and their nodes as late binding sees them.
namespace kvx::ui {
namespace {

using namespace rows;

class NodeObject final : public basic::Object {
public:
    explicit NodeObject(const Node& node) : tree_(node.Tree()->Object()), node_(node) {}
    const Node& TheNode() const
    {
        // Raises 91 when the tree is gone, which the node itself could not know.
        tree_->Get("Name");
        return node_;
    }

    std::string TypeName() const override { return "Node"; }
    Variant Get(std::string_view member, Args args) override;
    void Put(std::string_view member, const Variant& value, Args args) override;
    Variant Call(std::string_view member, std::span<Variant> args) override;

private:
    basic::ObjectRef tree_;
    Node node_;
};

template <Node (Node::*Function)() const>
Variant GetNode(const Node& node, Args)
{
    return (node.*Function)().Object();
}

constexpr basic::Member<const Node> kNodeRows[] = {
    {.name = "Text", .get = Get<const Node, &Node::Text>, .put = Put<const Node, &Node::SetText>},
    {.name = "", .get = Get<const Node, &Node::Text>, .put = Put<const Node, &Node::SetText>},
    {.name = "Key", .get = Get<const Node, &Node::Key>, .put = Put<const Node, &Node::SetKey>},
    {.name = "Tag", .get = Get<const Node, &Node::Tag>, .put = Put<const Node, &Node::SetTag>},
    {.name = "Checked", .get = Get<const Node, &Node::Checked>, .put = Put<const Node, &Node::SetChecked>},
    {.name = "Bold", .get = Get<const Node, &Node::Bold>, .put = Put<const Node, &Node::SetBold>},
    {.name = "Expanded", .get = Get<const Node, &Node::Expanded>, .put = Put<const Node, &Node::SetExpanded>},
    {.name = "Selected", .get = Get<const Node, &Node::Selected>, .put = Put<const Node, &Node::SetSelected>},
    {.name = "Sorted", .get = Get<const Node, &Node::Sorted>, .put = Put<const Node, &Node::SetSorted>},
    {.name = "ForeColor", .get = Get<const Node, &Node::ForeColor>, .put = Put<const Node, &Node::SetForeColor>},
    {.name = "BackColor", .get = Get<const Node, &Node::BackColor>, .put = Put<const Node, &Node::SetBackColor>},
    {.name = "Index", .get = Get<const Node, &Node::Index>},
    {.name = "Children", .get = Get<const Node, &Node::Children>},
    {.name = "FullPath", .get = Get<const Node, &Node::FullPath>},
    {.name = "Parent", .get = GetNode<&Node::Parent>},
    {.name = "Child", .get = GetNode<&Node::Child>},
    {.name = "Next", .get = GetNode<&Node::Next>},
    {.name = "Previous", .get = GetNode<&Node::Previous>},
    {.name = "FirstSibling", .get = GetNode<&Node::FirstSibling>},
    {.name = "LastSibling", .get = GetNode<&Node::LastSibling>},
    {.name = "Root", .get = GetNode<&Node::Root>},
    {.name = "EnsureVisible",
     .call = [](const Node& node, std::span<Variant>) { return Variant(node.EnsureVisible()); }},
};
constexpr basic::MemberTable<const Node> kNodeMembers{"Node", kNodeRows};

Variant NodeObject::Get(std::string_view member, Args args)
{
    return kNodeMembers.Get(TheNode(), member, args);
}

void NodeObject::Put(std::string_view member, const Variant& value, Args args)
{
    kNodeMembers.Put(TheNode(), member, value, args);
}

Variant NodeObject::Call(std::string_view member, std::span<Variant> args)
{
    return kNodeMembers.Call(TheNode(), member, args);
}

// A node as callers give it: an object, a key, or an index.
Node NodeFrom(TreeView& tree, const Variant& value)
{
    if (value.IsEmpty()) return {};
    if (value.IsObject()) {
        const basic::ObjectRef object = *value.As<basic::ObjectRef>();
        if (object == nullptr) return {};
        const auto* node = dynamic_cast<const NodeObject*>(object.get());
        if (node == nullptr) basic::Raise(basic::kErrTypeMismatch);
        return node->TheNode();
    }
    if (value.IsText()) return tree.Item(std::string_view{*value.As<std::string>()});
    return tree.Item(basic::CLng(value));
}

const Variant kLeftOut;

class NodesObject final : public basic::Object {
public:
    explicit NodesObject(TreeView& tree) : alive_(tree.Object()), tree_(tree) {}
    std::string TypeName() const override { return "Nodes"; }

    Variant Get(std::string_view member, Args args) override
    {
        alive_->Get("Name");  // raises 91 when the tree is gone
        if (basic::SameName(member, "Count")) return tree_.Count();
        if (!member.empty() && !basic::SameName(member, "Item")) basic::RaiseNoMember(TypeName(), member);
        return NodeFrom(tree_, Required(args, 0)).Object();
    }
    void Put(std::string_view member, const Variant&, Args) override
    {
        if (!basic::SameName(member, "Count")) basic::RaiseNoMember(TypeName(), member);
        basic::Raise(basic::kErrReadOnlyProperty);
    }
    Variant Call(std::string_view member, std::span<Variant> args) override
    {
        alive_->Get("Name");
        if (basic::SameName(member, "Clear")) {
            tree_.Clear();
        } else if (basic::SameName(member, "Remove")) {
            tree_.Remove(NodeFrom(tree_, Required(args, 0)));
        } else if (basic::SameName(member, "Add")) {
            const auto argument = [&](std::size_t i) -> const Variant& { return basic::ArgumentOr(args, i, kLeftOut); };
            const Variant& how = argument(1);
            return tree_
                .Add(NodeFrom(tree_, argument(0)),
                     how.IsEmpty() ? tvwNext : static_cast<TreeRelationship>(basic::CInt(how)),
                     basic::ToText(argument(2)), basic::ToText(argument(3)))
                .Object();
        } else {
            return Get(member, args);
        }
        return {};
    }

private:
    basic::ObjectRef alive_;
    TreeView& tree_;
};

}  // namespace

basic::ObjectRef Node::Object() const
{
    return tree_ == nullptr ? basic::ObjectRef{} : std::make_shared<NodeObject>(*this);
}

const basic::MemberTable<TreeView>& TreeView::Members()
{
    using T = TreeView;
    static constexpr basic::Member<T> kRows[] = {
        {.name = "Nodes",
         .get =
             [](T& tree, Args args) {
                 const basic::ObjectRef nodes = std::make_shared<NodesObject>(tree);
                 return args.empty() ? Variant(nodes) : nodes->Get("Item", args);
             }},
        {.name = "SelectedItem",
         .get = [](T& tree, Args) { return Variant(tree.SelectedItem().Object()); },
         .put = [](T& tree, const Variant& node, Args) { tree.SetSelectedItem(NodeFrom(tree, node)); }},
        {.name = "StartLabelEdit",
         .call =
             [](T& tree, std::span<Variant>) {
                 tree.StartLabelEdit();
                 return Variant{};
             }},
        ReadWrite<T, &T::LabelEdit, &T::SetLabelEdit>("LabelEdit"),
        ReadWrite<T, &T::Sorted, &T::SetSorted>("Sorted"),
        ReadWrite<T, &T::CheckBoxes, &T::SetCheckBoxes>("Checkboxes"),
        ReadWrite<T, &T::PathSeparator, &T::SetPathSeparator>("PathSeparator"),
        ReadWrite<T, &T::HideSelection, &T::SetHideSelection>("HideSelection"),
    };
    static constexpr basic::MemberTable<T> kTable{"TreeView", kRows};
    return kTable;
}

}  // namespace kvx::ui
