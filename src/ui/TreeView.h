#pragma once

#include "ui/ControlOf.h"
#include "ui/Node.h"
#include "ui/TextEdit.h"
#include "ui/TreeStore.h"

#include <string>
#include <string_view>

namespace kvx::ui {

constexpr std::int16_t tvwAutomatic = 0;  ///< a second click on the selected label starts an edit
constexpr std::int16_t tvwManual = 1;     ///< only StartLabelEdit does

/// What a window wants to know of a tree, besides View. `Inserting` and `Removing` come before, the others after the
/// change. Parent Nothing = top level.
class TreeListener {
public:
    virtual ~TreeListener() = default;
    virtual void NodesReset() = 0;  ///< everything may be different: Clear, mass loading, sorting
    virtual void NodeInserting(const Node& parent, std::int32_t position) = 0;
    virtual void NodeInserted(const Node& node) = 0;
    virtual void NodeRemoving(const Node& node) = 0;  ///< with its subtree
    virtual void NodeRemoved(const Node& parent, std::int32_t position) = 0;
    virtual void NodeChanged(const Node& node) = 0;   ///< text, colour, bold, check
    virtual void NodeExpanded(const Node& node) = 0;  ///< or collapsed
    virtual void SelectionChanged(const Node& node) = 0;
    virtual void EnsureVisible(const Node& node) = 0;
    virtual void EditStarted(const Node& node) = 0;  ///< show an editor with EditText(), all of it marked
    virtual void EditEnded(const Node& node) = 0;    ///< take the editor away; handlers run after this
};

/// A tree of texts, made for a million nodes: a node takes some 40 bytes, look-up by key included less than 64.
///
/// Keys are any texts that do not read as a number, or none. A tree may be told that keys are paths (SetPathKeys): then
/// the key of a node is its parent's key, a separator and the node's own part. It is not stored, and follows when
/// something above is renamed.
class TreeView final : public ControlOf<TreeView> {
public:
    TreeView(Form& form, std::string_view name);
    std::string_view TypeName() const override { return "TreeView"; }
    static const basic::MemberTable<TreeView>& Members();

    // --- keys ---

    /// From now on keys are paths: the key of a child of the node `rootKey` is prefix + separator + its part, deeper
    /// down it is the parent's key + separator + its part. Only on an empty tree.
    void SetPathKeys(std::string_view rootKey, std::string_view prefix, std::string_view separator);
    bool HasPathKeys() const { return store_.HasPathKeys(); }

    // --- nodes ---

    /// @param relative      Nothing: a new last top node
    /// @param key           empty = none
    /// @throws basic::Error 35602: key taken; 35603: key reads as a number; 35605: relative was removed
    Node Add(const Node& relative, TreeRelationship relationship, std::string_view key, std::string_view text);
    /// The same, with the relative given by key. @throws basic::Error 35601: no such relative
    Node Add(std::string_view relativeKey, TreeRelationship relationship, std::string_view key, std::string_view text);
    /// A new last top node.
    Node Add(std::string_view key, std::string_view text) { return Add(Node{}, tvwNext, key, text); }
    /// Mass loading of a tree with path keys: a new last child. Quick while the parts of siblings come in rising order.
    /// @param part  own part of the key; when it equals the text it takes no space of its own
    /// @throws basic::Error 35602: a sibling has this part
    Node AddChild(const Node& parent, std::string_view part, std::string_view text);
    /// As AddChild, but a part that a sibling has gives Nothing instead of an error.
    Node TryAddChild(const Node& parent, std::string_view part, std::string_view text);

    void Remove(const Node& node);      ///< with its subtree; a selection inside moves to a neighbour or the parent
    void Remove(std::string_view key);  ///< @throws basic::Error 35601
    void Clear();
    std::int32_t Count() const { return store_.Count(); }
    /// In the order of creation, from 1. @throws basic::Error 35600
    Node Item(std::int32_t index);
    Node Item(std::string_view key);  ///< @throws basic::Error 35601: no such key
    Node Find(std::string_view key);  ///< Nothing when there is none
    /// Child whose own part of the key is this; Nothing when there is none.
    Node FindChild(const Node& parent, std::string_view part);
    Node FirstTop();  ///< first top node, Nothing in an empty tree
    std::int32_t TopCount() const;
    Node TopAt(std::int32_t position);
    Node NextVisible(const Node& node);      ///< the line below, going by what is expanded; Nothing at the end
    Node PreviousVisible(const Node& node);  ///< the line above

    /// Between the two a window hears nothing but one NodesReset at the end. They nest.
    void BeginLoad();
    void EndLoad();
    /// EndLoad at the end of a scope, whatever ends it.
    class Loading {
    public:
        explicit Loading(TreeView& tree) : tree_(tree) { tree_.BeginLoad(); }
        ~Loading() { tree_.EndLoad(); }
        Loading(const Loading&) = delete;
        Loading& operator=(const Loading&) = delete;

    private:
        TreeView& tree_;
    };

    // --- selection ---

    Node SelectedItem();  ///< Nothing when none is
    /// Raises no event; opens what is above the node. @param node  Nothing = no selection
    void SetSelectedItem(const Node& node);

    // --- label edit ---

    /// Starts an edit of the selected node: BeforeLabelEdit, then an editor with the text fully marked; returns at
    /// once. Called while an edit is ending, it starts from the message loop, after that handler.
    /// @param offered  text to start with instead of the node's
    void StartLabelEdit();
    void StartLabelEdit(std::string_view offered);
    bool IsEditing() const { return editing_; }
    Node EditedNode();
    const std::string& EditText() const { return edit_.Text(); }
    std::int32_t EditSelStart() const { return edit_.SelStart(); }
    std::int32_t EditSelLength() const { return edit_.SelLength(); }
    std::int16_t LabelEdit() const { return labelEdit_; }
    void SetLabelEdit(std::int16_t mode) { labelEdit_ = mode; }

    // --- look ---

    bool Sorted() const { return store_.Sorted(TreeStore::kNone); }
    void SetSorted(bool sorted);  ///< top nodes: as Node::SetSorted
    bool CheckBoxes() const { return checkBoxes_; }
    void SetCheckBoxes(bool checkBoxes);
    const std::string& PathSeparator() const { return pathSeparator_; }
    void SetPathSeparator(std::string_view separator) { pathSeparator_ = separator; }
    bool HideSelection() const { return hideSelection_; }
    void SetHideSelection(bool hide) { hideSelection_ = hide; }

    void Reset() override;
    bool CapturesKeys() const override { return editing_; }

    /// The window; one at most, not owned.
    void SetListener(TreeListener* listener) { listener_ = listener; }
    /// Bytes held for nodes, texts, keys and look-up.
    std::size_t MemoryBytes() const { return store_.MemoryBytes(); }

    // --- what the user did ---

    /// A mouse click on icon or label: selection, NodeClick, Click. A second click on the selected label may start an
    /// edit; the window asks LabelEdit().
    void UserClickNode(const Node& node);
    /// The keyboard moved the selection: NodeClick, Click.
    void UserMoveTo(const Node& node);
    void UserExpand(const Node& node, bool expanded);
    void UserCheck(const Node& node, bool checked);  ///< raises NodeCheck
    void UserStartEdit();                            ///< F2 or a second click, unless LabelEdit is manual
    void UserEditText(std::string_view text, std::int32_t selStart, std::int32_t selLength = 0);
    /// Enter or focus loss (accept), Esc (not). AfterLabelEdit comes for accept only.
    void UserEndEdit(bool accept);
    bool DefaultKeyDown(std::int16_t keyCode, std::int16_t shift) override;
    bool DefaultKeyPress(std::int32_t key) override;

    ui::Event<Node&> NodeClick;  ///< the user's selections only; Click follows
    ui::Event<Node&> NodeCheck, Expand, Collapse;
    ui::Event<bool&> BeforeLabelEdit;  ///< set true: no edit
    /// Text typed: a handler may change it; set the first true to keep the old one. The node still has its old text.
    ui::Event<bool&, std::string&> AfterLabelEdit;

protected:
    Color DrawnBackColor() const override { return kColorWindow; }
    Color DrawnForeColor() const override { return kColorWindowText; }
    void FocusGained() override;
    void FocusLosing() override;

private:
    friend class Node;
    Node Handle(std::uint32_t id) { return id == TreeStore::kNone ? Node{} : Node{this, id, epoch_}; }
    bool IsThere(const Node& node) const;
    std::uint32_t IdOf(const Node& node) const;  // @throws 91, 35605, 5: of another tree
    void CheckKey(std::string_view key) const;   // @throws 35602, 35603
    Node Place(const Node& relative, TreeRelationship relationship, std::string_view key, std::string_view text);
    void SelectFromUser(const Node& node);
    void StopEdit();
    void Open(std::uint32_t id, bool expanded);
    bool OpenAbove(std::uint32_t id);
    void TellChanged(const Node& node) { Tell(&TreeListener::NodeChanged, node); }
    void BeginEdit(std::string_view offered, bool withOffer);
    void Tell(void (TreeListener::*what)(const Node&), const Node& node);

    TreeStore store_;
    TreeListener* listener_ = nullptr;
    std::uint32_t epoch_ = 1, selected_ = TreeStore::kNone, edited_ = TreeStore::kNone;
    std::int32_t loading_ = 0;
    bool editing_ = false, ending_ = false, checkBoxes_ = false, hideSelection_ = true;
    TextEdit edit_;
    std::int16_t labelEdit_ = tvwAutomatic;
    std::string pathSeparator_ = "\\";
};

}  // namespace kvx::ui
