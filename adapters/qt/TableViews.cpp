#include "adapters/qt/Accessible.h"
#include "adapters/qt/FormWindow.h"
#include "adapters/qt/GridView.h"
#include "adapters/qt/Strings.h"
#include "ui/DataGrid.h"
#include "ui/FlexGrid.h"
#include "ui/ListView.h"

#include <algorithm>

namespace kvx::adapters::qt {
namespace {

constexpr int kHeadMargin = 8;  // what a head adds to the line of text

// A list view in report style: row 0 is the head, rows of the control follow. Other styles show the first column only.
class ReportView final : public GridView, public ui::ListViewListener {
public:
    ReportView(FormWindow& window, ui::ListView& list, QWidget* parent) : GridView(window, list, parent), list_(list)
    {
        list.SetListener(this);
    }
    ~ReportView() override
    {
        if (Model() != nullptr) list_.SetListener(nullptr);
    }
    void Leave() override
    {
        if (Model() != nullptr) list_.SetListener(nullptr);
        GridView::Leave();
    }

    int Rows() const override { return Model() == nullptr ? 0 : list_.ListItems().Count() + Heads(); }
    int Columns() const override
    {
        if (Model() == nullptr) return 0;
        return Heads() == 0 ? 1 : std::max(1, list_.ColumnHeaders().Count());
    }
    int FixedRows() const override { return Heads(); }
    int ColumnWidth(int column) const override
    {
        if (Heads() == 0 || list_.ColumnHeaders().Count() == 0) return area_->viewport()->width();
        return Window().GetScale().X(list_.ColumnHeaders()[column + 1].Width());
    }
    int RowHeight(int row) const override
    {
        const int text = area_->fontMetrics().height();
        return row < Heads() ? text + kHeadMargin : std::max(text + 2, Window().GetScale().Y(list_.RowHeight()));
    }
    bool UniformRows() const override { return true; }
    bool GridLines() const override { return list_.GridLines(); }
    bool HasFocusFrame(int row, int column) const override
    {
        return column == 0 && list_.MultiSelect() && row == CurrentRow();
    }
    int CurrentRow() const override
    {
        if (Model() == nullptr || list_.SelectedItem() == nullptr) return -1;
        return list_.SelectedItem()->Index() - 1 + Heads();
    }
    GridCell Cell(int row, int column) const override
    {
        GridCell cell;
        if (row < Heads()) {
            cell.head = true;
            if (list_.ColumnHeaders().Count() > 0) {
                cell.text = ToQt(list_.ColumnHeaders()[column + 1].Text());
                cell.alignment = AlignmentOf(column);
            }
            return cell;
        }
        const ui::ListItem& item = list_.ListItems()[row - Heads() + 1];
        cell.text = ToQt(column == 0 ? item.Text() : item.SubItems(column));
        cell.bold = item.Bold();
        cell.alignment = AlignmentOf(column);
        if (item.ForeColor() != ui::kColorWindowText) cell.fore = ToQtColor(item.ForeColor(), area_->palette());
        cell.selected =
            item.Selected() && (column == 0 || list_.FullRowSelect()) && (!list_.HideSelection() || area_->hasFocus());
        if (column == 0 && list_.Checkboxes()) cell.check = item.Checked();
        return cell;
    }

    void Pressed(int row, int, Qt::KeyboardModifiers modifiers) override
    {
        Act([&] { list_.UserSelectItem(list_.ListItems()[row - Heads() + 1], ShiftOf(modifiers)); });
    }
    void CheckPressed(int row) override
    {
        Act([&] { list_.UserToggleCheck(list_.ListItems()[row - Heads() + 1]); });
    }
    void HeadPressed(int column) override
    {
        if (list_.ColumnHeaders().Count() == 0) return;
        Act([&] { list_.UserColumnClick(list_.ColumnHeaders()[column + 1]); });
    }
    bool CanResize(int column) const override { return column < list_.ColumnHeaders().Count(); }
    void Resized(int column, int width) override
    {
        Act([&] { list_.UserResizeColumn(list_.ColumnHeaders()[column + 1], Window().GetScale().TwipsX(width)); });
        area_->Relayout();
    }
    void Scrolled() override
    {
        if (Model() != nullptr) list_.UserScroll(area_->TopRow() - Heads() + 1);
    }
    void ReactToKey(std::int16_t keyCode, std::int16_t shift) override
    {
        if (keyCode != ui::vbKeyPageUp && keyCode != ui::vbKeyPageDown) return;
        const int count = list_.ListItems().Count();
        const int by = std::max(1, area_->RowsPerPage() - 1) * (keyCode == ui::vbKeyPageUp ? -1 : 1);
        const int from = list_.SelectedItem() == nullptr ? 1 : list_.SelectedItem()->Index();
        if (count > 0) Act([&] { list_.UserSelectItem(list_.ListItems()[std::clamp(from + by, 1, count)], shift); });
    }

    // Changes are shown together; a wish to see a row counts when the rows are there.
    void ItemsReset() override { Changed(ui::Change::Items); }
    void ItemInserted(std::int32_t) override { Changed(ui::Change::Items); }
    void ItemRemoved(std::int32_t) override { Changed(ui::Change::Items); }
    void ItemChanged(std::int32_t) override { Changed(ui::Change::Selection); }
    void ColumnsChanged() override { Changed(ui::Change::Items); }
    void EnsureVisible(std::int32_t position) override
    {
        wanted_ = position + Heads();
        Changed(ui::Change::Selection);
    }

protected:
    void Show(unsigned changes) override
    {
        if (Has(changes, ui::Change::Items) || Has(changes, ui::Change::Look)) area_->Relayout();
        if (CurrentRow() != shown_) {
            shown_ = CurrentRow();
            area_->ShowRow(shown_);
            AnnounceCurrentRow(*area_);
        }
        if (wanted_ >= 0) area_->ShowRow(std::exchange(wanted_, -1));
        area_->viewport()->update();
    }

private:
    int Heads() const { return list_.View() == ui::lvwReport ? 1 : 0; }
    Qt::Alignment AlignmentOf(int column) const
    {
        if (list_.ColumnHeaders().Count() == 0) return Qt::AlignLeft | Qt::AlignVCenter;
        const std::int16_t alignment = list_.ColumnHeaders()[column + 1].Alignment();
        return Qt::AlignVCenter | (alignment == ui::lvwColumnRight    ? Qt::AlignRight
                                   : alignment == ui::lvwColumnCenter ? Qt::AlignHCenter
                                                                      : Qt::AlignLeft);
    }

    ui::ListView& list_;
    int shown_ = -1, wanted_ = -1;
};

// The rows of a recordset. Hidden columns are left out, so the columns here are those that show.
class DataView final : public GridView {
public:
    DataView(FormWindow& window, ui::DataGrid& grid, QWidget* parent) : GridView(window, grid, parent), grid_(grid) {}

    int Rows() const override { return Model() == nullptr ? 0 : grid_.RowsHere() + 1; }
    int Columns() const override { return static_cast<int>(columns_.size()); }
    int FixedRows() const override { return 1; }
    int ColumnWidth(int column) const override
    {
        return Window().GetScale().X(grid_.Columns()[ModelColumn(column)].Width());
    }
    int RowHeight(int row) const override
    {
        return row == 0 ? area_->fontMetrics().height() + kHeadMargin : TextRowHeight(grid_.RowHeight());
    }
    bool GridLines() const override { return true; }
    bool HasFocusFrame(int row, int column) const override
    {
        return row > 0 && row - 1 == grid_.CurrentRow() && ModelColumn(column) == grid_.Col();
    }
    int CurrentRow() const override
    {
        if (Model() == nullptr || grid_.CurrentRow() < 0) return -1;
        return grid_.CurrentRow() + 1;
    }
    GridCell Cell(int row, int column) const override
    {
        GridCell cell;
        const std::int32_t col = ModelColumn(column);
        cell.alignment = Qt::AlignVCenter | (grid_.AlignsRight(col) ? Qt::AlignRight : Qt::AlignLeft);
        if (row == 0) {
            cell.head = true;
            cell.text = ToQt(grid_.Columns()[col].Caption());
            return cell;
        }
        cell.text = ToQt(grid_.CellText(row - 1, col));
        cell.selected = row - 1 == grid_.CurrentRow();
        return cell;
    }

    void Pressed(int row, int column, Qt::KeyboardModifiers) override
    {
        Act([&] { grid_.UserSelectCell(row - 1, ModelColumn(column)); });
    }
    void HeadPressed(int column) override
    {
        Act([&] { grid_.UserHeadClick(ModelColumn(column)); });
    }
    bool CanResize(int) const override { return true; }
    void Resized(int column, int width) override
    {
        Act([&] { grid_.UserResizeColumn(ModelColumn(column), Window().GetScale().TwipsX(width)); });
        area_->Relayout();
    }
    void Scrolled() override
    {
        if (!showing_ && Model() != nullptr) grid_.UserScroll(area_->TopRow() - 1);
    }
    void ReactToKey(std::int16_t keyCode, std::int16_t) override
    {
        if ((keyCode != ui::vbKeyPageUp && keyCode != ui::vbKeyPageDown) || grid_.RowsHere() == 0) return;
        const int by = std::max(1, area_->RowsPerPage() - 1) * (keyCode == ui::vbKeyPageUp ? -1 : 1);
        const int to = std::clamp(grid_.CurrentRow() + by, 0, grid_.RowCount() - 1);
        Act([&] { grid_.UserSelectCell(to, grid_.Col(), /*byMouse=*/false); });
    }

protected:
    void Show(unsigned) override
    {
        columns_.clear();
        for (std::int32_t i = 0; i < grid_.Columns().Count(); ++i)
            if (grid_.Columns()[i].Visible() && grid_.Columns()[i].Width() > 0) columns_.push_back(i);
        area_->Relayout();
        if (grid_.FirstRow() != area_->TopRow() - 1 && grid_.FirstRow() != shownFirst_)
            area_->ScrollToRow(grid_.FirstRow() + 1);
        if (CurrentRow() != shown_) {
            shown_ = CurrentRow();
            area_->ShowRow(shown_);
            AnnounceCurrentRow(*area_);
        }
        shownFirst_ = area_->TopRow() - 1;
        if (shownFirst_ != grid_.FirstRow() && shownFirst_ >= 0) grid_.UserScroll(shownFirst_);
        area_->viewport()->update();
    }

private:
    std::int32_t ModelColumn(int column) const { return columns_[static_cast<std::size_t>(column)]; }

    ui::DataGrid& grid_;
    std::vector<std::int32_t> columns_;
    int shown_ = -1;
    std::int32_t shownFirst_ = 0;
};

class FlexView final : public GridView {
public:
    FlexView(FormWindow& window, ui::FlexGrid& grid, QWidget* parent) : GridView(window, grid, parent), grid_(grid)
    {
        // Cells are where the form computes them: from the control's own corner, without a frame's width.
        area_->setFrameStyle(QFrame::Box | QFrame::Plain);
    }

    int Rows() const override { return Model() == nullptr ? 0 : grid_.Rows(); }
    int Columns() const override { return Model() == nullptr ? 0 : grid_.Cols(); }
    int FixedRows() const override { return grid_.FixedRows(); }
    int FixedColumns() const override { return grid_.FixedCols(); }
    int ColumnWidth(int column) const override { return Window().GetScale().X(grid_.ColWidth(column)); }
    int RowHeight(int row) const override { return Window().GetScale().Y(grid_.RowHeight(row)); }
    bool UniformRows() const override { return false; }
    bool ScrollsByColumn() const override { return true; }
    bool GridLines() const override { return true; }
    int CurrentRow() const override { return Model() == nullptr ? -1 : grid_.Row(); }
    bool HasFocusFrame(int row, int column) const override { return row == grid_.Row() && column == grid_.Col(); }
    GridCell Cell(int row, int column) const override
    {
        GridCell cell;
        cell.text = ToQt(grid_.TextMatrix(row, column));
        cell.head = row < grid_.FixedRows() || column < grid_.FixedCols();
        const ui::FlexGrid::CellLook look = grid_.LookAt(row, column);
        cell.bold = look.bold;
        if (!cell.head && look.back != ui::kColorWindow) cell.back = ToQtColor(look.back, area_->palette());
        if (!cell.head && look.fore != ui::kColorWindowText) cell.fore = ToQtColor(look.fore, area_->palette());
        cell.alignment = AlignmentOf(row, column);
        cell.selected = !cell.head && IsSelected(row, column);
        return cell;
    }

    void Pressed(int row, int column, Qt::KeyboardModifiers) override
    {
        Act([&] { grid_.UserClickCell(row, column); });
    }
    void HeadPressed(int column) override
    {
        Act([&] { grid_.UserClickCell(0, column); });
    }
    bool CanResize(int) const override { return true; }
    void Resized(int column, int width) override
    {
        Act([&] { grid_.UserResizeColumn(column, Window().GetScale().TwipsX(width)); });
        area_->Relayout();
    }
    void Scrolled() override
    {
        if (!showing_ && Model() != nullptr) Act([&] { grid_.UserScroll(area_->TopRow(), area_->LeftColumn()); });
    }
    void ReactToKey(std::int16_t keyCode, std::int16_t) override
    {
        if ((keyCode != ui::vbKeyPageUp && keyCode != ui::vbKeyPageDown) || grid_.Rows() <= grid_.FixedRows()) return;
        const int by = std::max(1, area_->RowsPerPage() - 1) * (keyCode == ui::vbKeyPageUp ? -1 : 1);
        Act([&] { grid_.SetRow(std::clamp(grid_.Row() + by, grid_.FixedRows(), grid_.Rows() - 1)); });
    }

protected:
    void Show(unsigned) override
    {
        if (!grid_.Redraw()) return;
        area_->Relayout();
        if (grid_.Rows() > grid_.FixedRows()) area_->ScrollToRow(grid_.TopRow());
        area_->ScrollToColumn(grid_.LeftCol());
        if (grid_.Row() != shownRow_ || grid_.Col() != shownColumn_) {
            shownRow_ = grid_.Row();
            shownColumn_ = grid_.Col();
            area_->ShowRow(shownRow_);
            AnnounceCurrentRow(*area_);
            area_->ShowColumn(shownColumn_);
        }
        area_->viewport()->update();
        // The window may be too high for the row that the form wants on top; the form is told, but not from here.
        if (grid_.TopRow() != area_->TopRow() || grid_.LeftCol() != area_->LeftColumn())
            QMetaObject::invokeMethod(
                area_, [this] { Scrolled(); }, Qt::QueuedConnection);
    }

private:
    bool IsSelected(int row, int column) const
    {
        const bool inRows =
            row >= std::min(grid_.Row(), grid_.RowSel()) && row <= std::max(grid_.Row(), grid_.RowSel());
        const bool inColumns =
            column >= std::min(grid_.Col(), grid_.ColSel()) && column <= std::max(grid_.Col(), grid_.ColSel());
        if (grid_.SelectionMode() == ui::flexSelectionByRow) return inRows;
        if (grid_.SelectionMode() == ui::flexSelectionByColumn) return inColumns;
        return inRows && inColumns;
    }

    Qt::Alignment AlignmentOf(int row, int column) const
    {
        const std::int16_t alignment = grid_.ColAlignment(column);
        if (alignment == ui::flexAlignGeneral || row < grid_.FixedRows())
            return Qt::AlignVCenter | (grid_.AlignsRight(row, column) ? Qt::AlignRight : Qt::AlignLeft);
        constexpr Qt::AlignmentFlag kAcross[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
        constexpr Qt::AlignmentFlag kDown[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
        return kAcross[alignment / 3] | kDown[alignment % 3];
    }

    ui::FlexGrid& grid_;
    std::int32_t shownRow_ = -1, shownColumn_ = -1;
};

}  // namespace

std::unique_ptr<ControlView> MakeTableView(FormWindow& window, ui::Control& control, QWidget* parent)
{
    if (auto* list = dynamic_cast<ui::ListView*>(&control)) return std::make_unique<ReportView>(window, *list, parent);
    return nullptr;
}

std::unique_ptr<ControlView> MakeGridView(FormWindow& window, ui::Control& control, QWidget* parent)
{
    if (auto* grid = dynamic_cast<ui::DataGrid*>(&control)) return std::make_unique<DataView>(window, *grid, parent);
    if (auto* grid = dynamic_cast<ui::FlexGrid*>(&control)) return std::make_unique<FlexView>(window, *grid, parent);
    return nullptr;
}

}  // namespace kvx::adapters::qt
