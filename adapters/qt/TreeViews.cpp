#include "adapters/qt/Accessible.h"
#include "adapters/qt/ControlView.h"
#include "adapters/qt/FormWindow.h"
#include "adapters/qt/Positions.h"
#include "adapters/qt/Strings.h"
#include "adapters/qt/TreeArea.h"
#include "ui/TreeView.h"

#include <QMetaObject>

#include <algorithm>

namespace kvx::adapters::qt {
namespace {

class TreeControlView final : public ControlView, public ui::TreeListener, public TreeUser {
public:
    TreeControlView(FormWindow& window, ui::TreeView& tree, QWidget* parent)
        : ControlView(window, tree), tree_(tree), area_(new TreeArea(tree, *this, parent))
    {
        SetWidget(area_);
        window.Watch(area_, this);
        window.Watch(area_->viewport(), this);
        tree.SetListener(this);
    }
    ~TreeControlView() override
    {
        if (Model() != nullptr) tree_.SetListener(nullptr);
    }

    void Gone() override
    {
        if (Widget() != nullptr) area_->TreeGone();
        ControlView::Gone();
    }
    void Leave() override
    {
        if (Model() != nullptr) tree_.SetListener(nullptr);
        ControlView::Leave();
    }

    QWidget* FocusWidget() const override
    {
        return area_->Editor() != nullptr ? static_cast<QWidget*>(area_->Editor()) : area_;
    }
    bool DoubleClicks() const override { return false; }  // the area knows where
    void ReactToKey(std::int16_t keyCode, std::int16_t) override
    {
        if (keyCode != ui::vbKeyPageUp && keyCode != ui::vbKeyPageDown) return;
        const int count = area_->Rows().Count();
        if (count == 0) return;
        const int by = std::max(1, area_->RowsPerPage() - 1) * (keyCode == ui::vbKeyPageUp ? -1 : 1);
        const int from = std::max(0, area_->Rows().RowOf(tree_.SelectedItem()));
        const ui::Node to = area_->Rows().At(std::clamp(from + by, 0, count - 1));
        Act([&] { tree_.UserMoveTo(to); });
    }

    // --- what the tree tells. Rows are counted on at once, the rest is shown when the handler has returned.
    void NodesReset() override
    {
        area_->Rows().Reset();
        wanted_ = tree_.SelectedItem();
        Changed(ui::Change::Items);
    }
    void NodeInserting(const ui::Node&, std::int32_t) override {}
    void NodeInserted(const ui::Node& node) override
    {
        area_->Rows().Inserted(node);
        Changed(ui::Change::Items);
    }
    void NodeRemoving(const ui::Node& node) override { area_->Rows().Removing(node); }
    void NodeRemoved(const ui::Node&, std::int32_t) override { Changed(ui::Change::Items); }
    void NodeChanged(const ui::Node&) override { Changed(ui::Change::Colour); }
    void NodeExpanded(const ui::Node& node) override
    {
        area_->Rows().OpenChanged(node);
        Changed(ui::Change::Items);
    }
    void SelectionChanged(const ui::Node& node) override
    {
        wanted_ = node;
        Changed(ui::Change::Selection);
    }
    void EnsureVisible(const ui::Node& node) override
    {
        wanted_ = node;
        Changed(ui::Change::Selection);
    }
    void EditStarted(const ui::Node& node) override { area_->OpenEditor(node); }
    void EditEnded(const ui::Node&) override { area_->CloseEditor(); }

    // --- what the user did
    void Clicked(const ui::Node& node) override
    {
        Act([&] { tree_.UserClickNode(node); });
    }
    void ClickedBeside() override
    {
        Act([&] { tree_.UserClick(); });
    }
    void NodeDoubleClicked(const ui::Node& node) override
    {
        Act([&] {
            tree_.UserDblClick();
            if (node.IsThere() && node.Children() > 0) tree_.UserExpand(node, !node.Expanded());
        });
    }
    void Toggled(const ui::Node& node) override
    {
        Act([&] { tree_.UserExpand(node, !node.Expanded()); });
    }
    void Checked(const ui::Node& node) override
    {
        Act([&] { tree_.UserCheck(node, !node.Checked()); });
    }
    void ClickedAgain(const ui::Node& node) override
    {
        if (node.Selected() && tree_.HasFocus()) Act([&] { tree_.UserStartEdit(); });
    }
    void Edited() override
    {
        const LabelEditor* editor = area_->Editor();
        if (editor == nullptr || Model() == nullptr || !tree_.IsEditing()) return;
        const QString text = editor->text();
        const int start = editor->hasSelectedText() ? editor->selectionStart() : editor->cursorPosition();
        const auto length = CharactersOf(editor->selectedText(), editor->selectionLength());
        const std::string utf8 = FromQt(text);
        Act([&] { tree_.UserEditText(utf8, CharactersOf(text, start), length); });
    }
    void EditEnded(bool accept) override
    {
        if (Model() != nullptr && tree_.IsEditing()) Act([&] { tree_.UserEndEdit(accept); });
    }
    void EditKey(int key) override { Window().KeyTaken(key); }
    void EditLeftByTab(bool backwards) override
    {
        Act([&] { tree_.Owner().UserTab(backwards); });
    }

protected:
    void Show(unsigned changes) override
    {
        if (Has(changes, ui::Change::Items) || Has(changes, ui::Change::Look)) area_->Relayout();
        if (wanted_ != nullptr) {
            const ui::Node wanted = std::exchange(wanted_, ui::Node{});
            if (wanted.IsThere()) area_->ShowRow(area_->Rows().RowOf(wanted));
            AnnounceCurrentRow(*area_);
        }
        area_->viewport()->update();
    }
    void ApplyColours() override
    {
        const QPalette inherited = Window().palette();
        QPalette palette = inherited;
        if (tree_.BackColor() != ui::kColorWindow)
            palette.setColor(QPalette::Base, ToQtColor(tree_.BackColor(), inherited));
        if (tree_.ForeColor() != ui::kColorWindowText)
            palette.setColor(QPalette::Text, ToQtColor(tree_.ForeColor(), inherited));
        area_->setPalette(palette);
    }

private:
    ui::TreeView& tree_;
    TreeArea* area_;
    ui::Node wanted_;  // to be scrolled into sight
};

}  // namespace

std::unique_ptr<ControlView> MakeTreeView(FormWindow& window, ui::Control& control, QWidget* parent)
{
    if (auto* tree = dynamic_cast<ui::TreeView*>(&control))
        return std::make_unique<TreeControlView>(window, *tree, parent);
    return nullptr;
}

}  // namespace kvx::adapters::qt
