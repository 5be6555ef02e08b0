#include "ui/TreeView.h"
#include "basic/Error.h"
#include "basic/Text.h"
#include "ui/Form.h"

// What the user does to a tree: selecting, opening, editing labels.
namespace kvx::ui {

void TreeView::SelectFromUser(const Node& node)
{
    if (!IsThere(node)) return;
    const bool moved = selected_ != node.id_;
    selected_ = node.id_;
    if (moved) Tell(&TreeListener::SelectionChanged, node);
    Node clicked = node;
    NodeClick.Raise(clicked);
    Click.Raise();
}

void TreeView::UserClickNode(const Node& node)
{
    UserEndEdit(true);
    SelectFromUser(node);
}

void TreeView::UserMoveTo(const Node& node)
{
    if (node == nullptr || node == Handle(selected_)) return;
    UserEndEdit(true);  // while its node is still the selected one
    if (!IsThere(node)) return;
    OpenAbove(IdOf(node));
    SelectFromUser(node);
}

void TreeView::UserExpand(const Node& node, bool expanded)
{
    Open(IdOf(node), expanded);
}

void TreeView::UserCheck(const Node& node, bool checked)
{
    if (!checkBoxes_ || node.Checked() == checked) return;
    node.SetChecked(checked);
    Node ticked = node;
    NodeCheck.Raise(ticked);
}

void TreeView::UserStartEdit()
{
    if (labelEdit_ == tvwAutomatic) StartLabelEdit();
}

void TreeView::StartLabelEdit()
{
    BeginEdit({}, false);
}

void TreeView::StartLabelEdit(std::string_view offered)
{
    BeginEdit(offered, true);
}

void TreeView::BeginEdit(std::string_view offered, bool withOffer)
{
    if (ending_) {
        // Inside the handler the old edit has not ended yet: its answer would close the new one.
        PostProtected([this, text = std::string{offered}, withOffer] { BeginEdit(text, withOffer); });
        return;
    }
    UserEndEdit(false);
    if (selected_ == TreeStore::kNone) return;
    const Node node = Handle(selected_);
    bool cancel = false;
    BeforeLabelEdit.Raise(cancel);
    if (cancel || !IsThere(node)) return;
    // The name is typed at once, also when a button began it: its Enter must not press the button again.
    if (!HasFocus() && IsReachable() && Owner().Visible()) SetFocus();
    OpenAbove(node.id_);
    edited_ = node.id_;
    editing_ = true;
    edit_.SetText(withOffer ? offered : store_.Text(edited_));
    edit_.SelectAll();
    Tell(&TreeListener::EnsureVisible, node);
    Tell(&TreeListener::EditStarted, node);
}

Node TreeView::EditedNode()
{
    return editing_ ? Handle(edited_) : Node{};
}

void TreeView::StopEdit()
{
    if (!editing_) return;
    editing_ = false;
    Tell(&TreeListener::EditEnded, Handle(edited_));
}

void TreeView::UserEditText(std::string_view text, std::int32_t selStart, std::int32_t selLength)
{
    if (!editing_) return;
    edit_.SetText(text);
    edit_.Select(selStart, selLength);
}

void TreeView::UserEndEdit(bool accept)
{
    if (!editing_) return;
    const Node node = Handle(edited_);
    std::string text = edit_.Text();
    StopEdit();
    if (!accept) return;
    struct Ending {
        bool& flag;
        explicit Ending(bool& ending) : flag(ending) { flag = true; }
        ~Ending() { flag = false; }
    };
    bool cancel = false;
    {
        const Ending ending{ending_};
        AfterLabelEdit.Raise(cancel, text);
    }
    // The handler may have removed the node, or the whole tree with its form.
    if (!cancel && IsThere(node)) node.SetText(text);
}

bool TreeView::DefaultKeyDown(std::int16_t keyCode, std::int16_t shift)
{
    if (editing_) {
        const bool used = edit_.KeyDown(keyCode, shift, false);
        Notify(Change::Selection);
        return used;
    }
    if (keyCode == vbKeyF2 && shift == 0 && selected_ != TreeStore::kNone) {
        UserStartEdit();
        return true;
    }
    if (selected_ == TreeStore::kNone) return false;
    const Node node = Handle(selected_);
    switch (keyCode) {
    case vbKeyUp: UserMoveTo(PreviousVisible(node)); return true;
    case vbKeyDown: UserMoveTo(NextVisible(node)); return true;
    case vbKeyHome: UserMoveTo(FirstTop()); return true;
    case vbKeyEnd: {
        Node last = FirstTop().LastSibling();
        while (last.Expanded() && last.Children() > 0)
            last = last.LastChild();
        UserMoveTo(last);
        return true;
    }
    case vbKeyLeft:
        if (node.Expanded() && node.Children() > 0)
            UserExpand(node, false);
        else
            UserMoveTo(node.Parent());
        return true;
    case vbKeyRight:
        if (node.Children() > 0 && !node.Expanded())
            UserExpand(node, true);
        else
            UserMoveTo(node.Child());
        return true;
    default: return false;
    }
}

bool TreeView::DefaultKeyPress(std::int32_t key)
{
    if (editing_) {
        if (key == vbKeyReturn || key == vbKeyEscape)
            UserEndEdit(key == vbKeyReturn);
        else
            edit_.KeyPress(key, 0, false, false);
        Notify(Change::Selection);
        return true;
    }
    if (key == vbKeySpace && checkBoxes_ && selected_ != TreeStore::kNone) {
        const Node node = Handle(selected_);
        UserCheck(node, !node.Checked());
        return true;
    }
    return false;
}

}  // namespace kvx::ui
