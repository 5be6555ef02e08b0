#include "adapters/qt/Accessible.h"
#include "adapters/qt/FormWindow.h"
#include "adapters/qt/GridView.h"
#include "adapters/qt/Strings.h"
#include "ui/FileListBox.h"
#include "ui/ListBox.h"

#include <algorithm>

namespace kvx::adapters::qt {

GridView::GridView(FormWindow& window, ui::Control& control, QWidget* parent)
    : ControlView(window, control), area_(new GridArea(*this, parent))
{
    SetWidget(area_);
    window.Watch(area_, this);
    window.Watch(area_->viewport(), this);
}

void GridView::Gone()
{
    if (Widget() != nullptr) area_->SourceGone();
    ControlView::Gone();
}

void GridView::ApplyColours()
{
    const QPalette inherited = Window().palette();
    QPalette palette = inherited;
    if (Model()->BackColor() != ui::kColorWindow)
        palette.setColor(QPalette::Base, ToQtColor(Model()->BackColor(), inherited));
    if (Model()->ForeColor() != ui::kColorWindowText)
        palette.setColor(QPalette::Text, ToQtColor(Model()->ForeColor(), inherited));
    area_->setPalette(palette);
}

int GridView::TextRowHeight(std::int32_t designTwips) const
{
    return std::max(Window().GetScale().Y(designTwips), area_->fontMetrics().height() + 2);
}

std::int16_t GridView::ShiftOf(Qt::KeyboardModifiers modifiers)
{
    int mask = 0;
    if (modifiers.testFlag(Qt::ShiftModifier)) mask |= ui::vbShiftMask;
    if (modifiers.testFlag(Qt::ControlModifier)) mask |= ui::vbCtrlMask;
    return static_cast<std::int16_t>(mask);
}

namespace {

// A list of texts without a head.
template <class C>
class TextListView : public GridView {
public:
    TextListView(FormWindow& window, C& list, QWidget* parent) : GridView(window, list, parent), list_(list) {}

    int Rows() const override { return Model() == nullptr ? 0 : list_.ListCount(); }
    int Columns() const override { return 1; }
    int ColumnWidth(int) const override { return area_->viewport()->width(); }
    int RowHeight(int) const override { return area_->fontMetrics().height() + 2; }
    int CurrentRow() const override { return Model() == nullptr ? -1 : list_.ListIndex(); }

    void ReactToKey(std::int16_t keyCode, std::int16_t shift) override
    {
        if (keyCode != ui::vbKeyPageUp && keyCode != ui::vbKeyPageDown) return;
        const int by = std::max(1, area_->RowsPerPage() - 1) * (keyCode == ui::vbKeyPageUp ? -1 : 1);
        const int to = std::clamp(list_.ListIndex() + by, 0, list_.ListCount() - 1);
        if (list_.ListCount() > 0 && to != list_.ListIndex()) Act([&] { Choose(to, shift); });
    }

    void Pressed(int row, int, Qt::KeyboardModifiers modifiers) override
    {
        Act([&] { Choose(row, ShiftOf(modifiers)); });
    }

protected:
    virtual void Choose(int row, std::int16_t shift) = 0;

    void Show(unsigned changes) override
    {
        if (Has(changes, ui::Change::Items) || Has(changes, ui::Change::Look)) area_->Relayout();
        if (list_.ListIndex() != shownIndex_) {
            shownIndex_ = list_.ListIndex();
            area_->ShowRow(shownIndex_);
            AnnounceCurrentRow(*area_);
        }
        area_->viewport()->update();
    }

    C& list_;

private:
    std::int32_t shownIndex_ = -1;
};

class ListBoxView final : public TextListView<ui::ListBox> {
public:
    using TextListView::TextListView;

    bool HasFocusFrame(int row, int) const override
    {
        return list_.MultiSelect() != ui::vbMultiSelectNone && row == list_.ListIndex();
    }
    GridCell Cell(int row, int) const override
    {
        GridCell cell;
        cell.text = ToQt(list_.List(row));
        cell.selected = list_.Selected(row);
        return cell;
    }
    void Scrolled() override
    {
        if (showing_ || Model() == nullptr) return;
        list_.UserScroll(area_->TopRow());
        shownTop_ = area_->TopRow();
    }

protected:
    void Choose(int row, std::int16_t shift) override { list_.UserSelectItem(row, shift); }
    void Show(unsigned changes) override
    {
        TextListView::Show(changes);
        if (list_.TopIndex() != shownTop_) area_->ScrollToRow(list_.TopIndex());
        list_.UserScroll(area_->TopRow());
        shownTop_ = area_->TopRow();
    }

private:
    std::int32_t shownTop_ = 0;
};

class FileListView final : public TextListView<ui::FileListBox> {
public:
    using TextListView::TextListView;

    bool HasFocusFrame(int, int) const override { return false; }
    GridCell Cell(int row, int) const override
    {
        GridCell cell;
        cell.text = ToQt(list_.List(row));
        cell.selected = row == list_.ListIndex();
        return cell;
    }

protected:
    void Choose(int row, std::int16_t) override { list_.UserSelectItem(row); }
};

}  // namespace

std::unique_ptr<ControlView> MakeListView(FormWindow& window, ui::Control& control, QWidget* parent)
{
    if (auto* list = dynamic_cast<ui::ListBox*>(&control)) return std::make_unique<ListBoxView>(window, *list, parent);
    if (auto* files = dynamic_cast<ui::FileListBox*>(&control))
        return std::make_unique<FileListView>(window, *files, parent);
    return MakeTableView(window, control, parent);
}

}  // namespace kvx::adapters::qt
