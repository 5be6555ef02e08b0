#pragma once

#include "basic/Object.h"
#include "ui/Constants.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kvx::ui {

class TreeView;

/// Where TreeView::Add puts a new node, seen from its relative.
enum TreeRelationship : std::int16_t {
    tvwFirst = 0,     ///< first of the relative's siblings
    tvwLast = 1,      ///< last of them
    tvwNext = 2,      ///< behind the relative
    tvwPrevious = 3,  ///< before it
    tvwChild = 4,     ///< its last child
};

constexpr std::int32_t kErrNodeGone = 35605;

/// A node of a tree: a small value that names it, to be copied at will. Nothing is the null node, `node == nullptr`.
/// A node that was removed stays gone: its handles never come to mean another one.
/// Every member raises 91 on Nothing and 35605 on a removed node, unless it says otherwise.
class Node {
public:
    Node() = default;
    Node(std::nullptr_t) {}
    Node(TreeView* tree, std::uint32_t id, std::uint32_t epoch) : tree_(tree), id_(id), epoch_(epoch) {}

    bool operator==(std::nullptr_t) const { return tree_ == nullptr; }  ///< raises nothing
    bool operator==(const Node& other) const = default;                 ///< raises nothing
    explicit operator bool() const { return tree_ != nullptr; }         ///< raises nothing
    /// Not Nothing, and not removed meanwhile; raises nothing.
    bool IsThere() const;

    std::string Text() const;
    std::string_view TextView() const;  ///< good until a text of the tree changes
    void SetText(std::string_view text) const;
    /// Empty when the node has none.
    std::string Key() const;
    /// In a tree with path keys a key that begins with the parent's changes only the node's own part, and the keys of
    /// the whole subtree follow. @throws basic::Error 35602: taken; 35603: reads as a number
    void SetKey(std::string_view key) const;
    /// Own part of a path key; the whole key of any other node. Good until a key or text of the tree changes.
    std::string_view KeyPart() const;
    void SetKeyPart(std::string_view part) const;  ///< @throws basic::Error 35602: a sibling has it

    Color ForeColor() const;
    void SetForeColor(Color color) const;
    Color BackColor() const;
    void SetBackColor(Color color) const;
    bool Bold() const;
    void SetBold(bool bold) const;
    bool Checked() const;
    void SetChecked(bool checked) const;  ///< raises nothing
    const std::string& Tag() const;
    void SetTag(std::string_view tag) const;
    bool Expanded() const;
    void SetExpanded(bool expanded) const;  ///< raises Expand or Collapse of the tree on a change
    bool Selected() const;
    void SetSelected(bool selected) const;  ///< as TreeView::SetSelectedItem: raises no NodeClick
    bool Sorted() const;
    void SetSorted(bool sorted) const;  ///< sorts the children now; children added later go to their places

    Node Parent() const;  ///< Nothing for a top node
    Node Child() const;   ///< first child; Nothing without any
    Node LastChild() const;
    Node Next() const;  ///< next sibling, or Nothing
    Node Previous() const;
    Node FirstSibling() const;
    Node LastSibling() const;
    Node Root() const;  ///< the top node above
    std::int32_t Children() const;
    /// Child at a position from 0; quick when asked in order. @throws basic::Error 35600
    Node ChildAt(std::int32_t position) const;
    std::int32_t Position() const;  ///< among the siblings, from 0
    std::int32_t Level() const;     ///< 0 for a top node
    std::int32_t Index() const;     ///< place in TreeView's flat collection, from 1
    std::string FullPath() const;   ///< texts from the top on, joined by the tree's PathSeparator

    /// Opens everything above; a window scrolls to it. @return true when something had to be opened
    bool EnsureVisible() const;

    TreeView* Tree() const { return tree_; }
    std::uint32_t Id() const { return id_; }  ///< one number per node, dense, never used again until Clear

    basic::ObjectRef Object() const;  ///< for late binding; Nothing gives an empty reference

private:
    friend class TreeView;
    TreeView& There() const;  // @throws 91, 35605
    TreeView* tree_ = nullptr;
    std::uint32_t id_ = 0, epoch_ = 0;
};

}  // namespace kvx::ui
