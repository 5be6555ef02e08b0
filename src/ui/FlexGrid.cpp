#include "ui/FlexGrid.h"

#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Text.h"

#include <algorithm>

namespace kvx::ui {
namespace {

constexpr std::int32_t kDefaultColWidth = 960;
constexpr std::int32_t kDefaultRowHeight = 240;

std::size_t Place(std::int32_t index)
{
    return static_cast<std::size_t>(index);
}

}  // namespace

FlexGrid::FlexGrid(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

void FlexGrid::Reset()
{
    Control::Reset();
    rows_.assign(2, RowRecord{{"", ""}});
    columns_.assign(2, {});
    looks_.clear();
    cols_ = 2;
    fixedRows_ = fixedCols_ = row_ = col_ = rowSel_ = colSel_ = topRow_ = leftCol_ = 1;
    mouseRow_ = mouseCol_ = 0;
    selectionMode_ = flexSelectionFree;
    redraw_ = true;
}

void FlexGrid::CheckRow(std::int32_t row) const
{
    if (row < 0 || row >= Rows()) basic::Raise(kErrGridRow, "Invalid Row value");
}

void FlexGrid::CheckCol(std::int32_t col) const
{
    if (col < 0 || col >= cols_) basic::Raise(kErrGridCol, "Invalid Col value");
}

// --- size ---

void FlexGrid::SetRows(std::int32_t rows)
{
    if (rows < fixedRows_ || rows < 0) basic::Raise(kErrGridFixedRows, "FixedRows must be less than Rows");
    rows_.resize(Place(rows), RowRecord{std::vector<std::string>(Place(cols_))});
    std::erase_if(looks_, [rows](const auto& look) { return look.first.first >= rows; });
    row_ = std::clamp(row_, 0, std::max(0, rows - 1));
    rowSel_ = std::clamp(rowSel_, 0, std::max(0, rows - 1));
    topRow_ = std::clamp(topRow_, std::min(fixedRows_, rows), std::max(fixedRows_, rows - 1));
    Notify(Change::Items);
}

void FlexGrid::SetCols(std::int32_t cols)
{
    if (cols < fixedCols_ || cols < 0) basic::Raise(kErrGridFixedCols, "FixedCols must be less than Cols");
    for (RowRecord& row : rows_)
        row.cells.resize(Place(cols));
    columns_.resize(Place(cols));
    std::erase_if(looks_, [cols](const auto& look) { return look.first.second >= cols; });
    cols_ = cols;
    col_ = std::clamp(col_, 0, std::max(0, cols - 1));
    colSel_ = std::clamp(colSel_, 0, std::max(0, cols - 1));
    leftCol_ = std::clamp(leftCol_, std::min(fixedCols_, cols), std::max(fixedCols_, cols - 1));
    Notify(Change::Items);
}

void FlexGrid::SetFixedRows(std::int32_t rows)
{
    if (rows < 0 || rows >= std::max(1, Rows())) basic::Raise(kErrGridFixedRows, "FixedRows must be less than Rows");
    fixedRows_ = topRow_ = rows;
    Notify(Change::Items);
}

void FlexGrid::SetFixedCols(std::int32_t cols)
{
    if (cols < 0 || cols >= std::max(1, cols_)) basic::Raise(kErrGridFixedCols, "FixedCols must be less than Cols");
    fixedCols_ = leftCol_ = cols;
    Notify(Change::Items);
}

// --- cells ---

const std::string& FlexGrid::TextMatrix(std::int32_t row, std::int32_t col) const
{
    if (row < 0 || row >= Rows() || col < 0 || col >= cols_) basic::Raise(basic::kErrInvalidIndex);
    return rows_[Place(row)].cells[Place(col)];
}

void FlexGrid::SetTextMatrix(std::int32_t row, std::int32_t col, std::string_view text)
{
    TextMatrix(row, col);
    rows_[Place(row)].cells[Place(col)] = text;
    if (redraw_) Notify(Change::Text);
}

const std::string& FlexGrid::Text() const
{
    return TextMatrix(row_, col_);
}

void FlexGrid::SetText(std::string_view text)
{
    SetTextMatrix(row_, col_, text);
}

void FlexGrid::AddItem(std::string_view item, std::int32_t index)
{
    if (index < -1 || index > Rows()) basic::Raise(kErrGridRow, "Invalid Row value");
    RowRecord row{std::vector<std::string>(Place(cols_))};
    const std::vector<std::string> cells = basic::Split(item, "\t");
    for (std::size_t i = 0; i < cells.size() && i < row.cells.size(); ++i)
        row.cells[i] = cells[i];
    const std::int32_t place = index == -1 ? Rows() : index;
    rows_.insert(rows_.begin() + place, std::move(row));
    std::map<std::pair<std::int32_t, std::int32_t>, CellLook> moved;
    for (const auto& [at, look] : looks_)
        moved[{at.first >= place ? at.first + 1 : at.first, at.second}] = look;
    looks_ = std::move(moved);
    Notify(Change::Items);
}

void FlexGrid::RemoveItem(std::int32_t row)
{
    CheckRow(row);
    if (row < fixedRows_ || Rows() - 1 <= fixedRows_)
        basic::Raise(kErrGridFixedRows, "Cannot remove a fixed row or the last row that is not fixed");
    rows_.erase(rows_.begin() + row);
    std::map<std::pair<std::int32_t, std::int32_t>, CellLook> moved;
    for (const auto& [at, look] : looks_)
        if (at.first != row) moved[{at.first > row ? at.first - 1 : at.first, at.second}] = look;
    looks_ = std::move(moved);
    row_ = std::min(row_, Rows() - 1);
    rowSel_ = std::min(rowSel_, Rows() - 1);
    topRow_ = std::clamp(topRow_, fixedRows_, Rows() - 1);
    Notify(Change::Items);
}

void FlexGrid::Clear()
{
    for (RowRecord& row : rows_)
        std::fill(row.cells.begin(), row.cells.end(), std::string{});
    looks_.clear();
    Notify(Change::Items);
}

// --- the current cell ---

void FlexGrid::MoveTo(std::int32_t row, std::int32_t col)
{
    if (row == row_ && col == col_) return;
    LeaveCell.Raise();
    // The handler may have made the grid smaller.
    if (row >= Rows() || col >= cols_) return;
    row_ = row;
    col_ = col;
    rowSel_ = selectionMode_ == flexSelectionByColumn ? Rows() - 1 : row;
    colSel_ = selectionMode_ == flexSelectionByRow ? cols_ - 1 : col;
    Notify(Change::Selection);
    SelChange.Raise();
    EnterCell.Raise();
    RowColChange.Raise();
}

void FlexGrid::SetRow(std::int32_t row)
{
    CheckRow(row);
    MoveTo(row, col_);
}

void FlexGrid::SetCol(std::int32_t col)
{
    CheckCol(col);
    MoveTo(row_, col);
}

void FlexGrid::SetRowSel(std::int32_t row)
{
    CheckRow(row);
    if (row == rowSel_) return;
    rowSel_ = row;
    Notify(Change::Selection);
    SelChange.Raise();
}

void FlexGrid::SetColSel(std::int32_t col)
{
    CheckCol(col);
    if (col == colSel_) return;
    colSel_ = col;
    Notify(Change::Selection);
    SelChange.Raise();
}

void FlexGrid::SetSelectionMode(std::int16_t mode)
{
    if (mode < flexSelectionFree || mode > flexSelectionByColumn) basic::Raise(basic::kErrInvalidProperty);
    selectionMode_ = mode;
    Notify(Change::Look);
}

// --- sizes and places ---

std::int32_t FlexGrid::ColWidth(std::int32_t col) const
{
    CheckCol(col);
    const std::int32_t width = columns_[Place(col)].width;
    return width < 0 ? kDefaultColWidth : width;
}

void FlexGrid::SetColWidth(std::int32_t col, std::int32_t twips)
{
    CheckCol(col);
    if (twips < -1) basic::Raise(basic::kErrInvalidProperty);
    columns_[Place(col)].width = twips;
    Notify(Change::Look);
}

std::int32_t FlexGrid::RowHeight(std::int32_t row) const
{
    CheckRow(row);
    const std::int32_t height = rows_[Place(row)].height;
    return height < 0 ? kDefaultRowHeight : height;
}

void FlexGrid::SetRowHeight(std::int32_t row, std::int32_t twips)
{
    CheckRow(row);
    if (twips < -1) basic::Raise(basic::kErrInvalidProperty);
    rows_[Place(row)].height = twips;
    Notify(Change::Look);
}

std::int16_t FlexGrid::ColAlignment(std::int32_t col) const
{
    CheckCol(col);
    return columns_[Place(col)].alignment;
}

void FlexGrid::SetColAlignment(std::int32_t col, std::int16_t alignment)
{
    CheckCol(col);
    if (alignment < flexAlignLeftTop || alignment > flexAlignGeneral) basic::Raise(basic::kErrInvalidProperty);
    columns_[Place(col)].alignment = alignment;
    Notify(Change::Look);
}

std::int32_t FlexGrid::RowData(std::int32_t row) const
{
    CheckRow(row);
    return rows_[Place(row)].data;
}

void FlexGrid::SetRowData(std::int32_t row, std::int32_t data)
{
    CheckRow(row);
    rows_[Place(row)].data = data;
}

std::int32_t FlexGrid::ColData(std::int32_t col) const
{
    CheckCol(col);
    return columns_[Place(col)].data;
}

void FlexGrid::SetColData(std::int32_t col, std::int32_t data)
{
    CheckCol(col);
    columns_[Place(col)].data = data;
}

// Distance from the grid's corner; behind the fixed ones the first in sight is topRow_ or leftCol_.
std::int32_t FlexGrid::RowTop(std::int32_t row) const
{
    std::int32_t top = 0;
    for (std::int32_t i = 0; i < std::min(row, fixedRows_); ++i)
        top += RowHeight(i);
    for (std::int32_t i = topRow_; i < row; ++i)
        top += RowHeight(i);
    return top;
}

std::int32_t FlexGrid::ColLeft(std::int32_t col) const
{
    std::int32_t left = 0;
    for (std::int32_t i = 0; i < std::min(col, fixedCols_); ++i)
        left += ColWidth(i);
    for (std::int32_t i = leftCol_; i < col; ++i)
        left += ColWidth(i);
    return left;
}

void FlexGrid::ShowCell()
{
    if (row_ >= Rows() || col_ >= cols_) return;
    const std::int32_t oldTop = topRow_, oldLeft = leftCol_;
    if (row_ >= fixedRows_) {
        topRow_ = std::min(topRow_, row_);
        while (Height() > 0 && topRow_ < row_ && RowTop(row_) + RowHeight(row_) > Height())
            ++topRow_;
    }
    if (col_ >= fixedCols_) {
        leftCol_ = std::min(leftCol_, col_);
        while (Width() > 0 && leftCol_ < col_ && ColLeft(col_) + ColWidth(col_) > Width())
            ++leftCol_;
    }
    if (oldTop == topRow_ && oldLeft == leftCol_) return;
    Notify(Change::Look);
    Scroll.Raise();
}

std::int32_t FlexGrid::CellLeft()
{
    ShowCell();
    return ColLeft(col_);
}

std::int32_t FlexGrid::CellTop()
{
    ShowCell();
    return RowTop(row_);
}

std::int32_t FlexGrid::CellWidth()
{
    ShowCell();
    return ColWidth(col_);
}

std::int32_t FlexGrid::CellHeight()
{
    ShowCell();
    return RowHeight(row_);
}

void FlexGrid::SetTopRow(std::int32_t row)
{
    CheckRow(row);
    if (row < fixedRows_) basic::Raise(kErrGridRow, "Invalid Row value");
    UserScroll(row, leftCol_);
}

void FlexGrid::SetLeftCol(std::int32_t col)
{
    CheckCol(col);
    if (col < fixedCols_) basic::Raise(kErrGridCol, "Invalid Col value");
    UserScroll(topRow_, col);
}

// --- look ---

FlexGrid::CellLook FlexGrid::LookAt(std::int32_t row, std::int32_t col) const
{
    const auto found = looks_.find({row, col});
    if (found != looks_.end()) return found->second;
    const bool fixed = row < fixedRows_ || col < fixedCols_;
    return {fixed ? kColorButtonFace : BackColor(), fixed ? kColorButtonText : ForeColor(), false};
}

FlexGrid::CellLook& FlexGrid::LookOf(std::int32_t row, std::int32_t col)
{
    const CellLook present = LookAt(row, col);
    Notify(Change::Colour);
    return looks_.try_emplace({row, col}, present).first->second;
}

Color FlexGrid::CellBackColor() const
{
    return LookAt(row_, col_).back;
}
void FlexGrid::SetCellBackColor(Color color)
{
    LookOf(row_, col_).back = color;
}
Color FlexGrid::CellForeColor() const
{
    return LookAt(row_, col_).fore;
}
void FlexGrid::SetCellForeColor(Color color)
{
    LookOf(row_, col_).fore = color;
}
bool FlexGrid::CellFontBold() const
{
    return LookAt(row_, col_).bold;
}
void FlexGrid::SetCellFontBold(bool bold)
{
    LookOf(row_, col_).bold = bold;
}

bool FlexGrid::AlignsRight(std::int32_t row, std::int32_t col) const
{
    const std::int16_t alignment = ColAlignment(col);
    if (alignment == flexAlignGeneral) return row >= fixedRows_ && basic::IsNumeric(TextMatrix(row, col));
    return alignment >= flexAlignRightTop;
}

void FlexGrid::SetRedraw(bool redraw)
{
    const bool again = redraw && !redraw_;
    redraw_ = redraw;
    if (again) Notify(Change::Items);
}

// --- what the user did ---

void FlexGrid::UserClickCell(std::int32_t row, std::int32_t col)
{
    CheckRow(row);
    CheckCol(col);
    mouseRow_ = row;
    mouseCol_ = col;
    if (row >= fixedRows_ && col >= fixedCols_) MoveTo(row, col);
    Click.Raise();
}

void FlexGrid::UserDblClickCell(std::int32_t row, std::int32_t col)
{
    UserClickCell(row, col);
    DblClick.Raise();
}

void FlexGrid::UserScroll(std::int32_t topRow, std::int32_t leftCol)
{
    topRow = std::clamp(topRow, fixedRows_, std::max(fixedRows_, Rows() - 1));
    leftCol = std::clamp(leftCol, fixedCols_, std::max(fixedCols_, cols_ - 1));
    if (topRow == topRow_ && leftCol == leftCol_) return;
    topRow_ = topRow;
    leftCol_ = leftCol;
    Notify(Change::Look);
    Scroll.Raise();
}

void FlexGrid::UserResizeColumn(std::int32_t col, std::int32_t widthTwips)
{
    SetColWidth(col, std::max(0, widthTwips));
}

bool FlexGrid::DefaultKeyDown(std::int16_t keyCode, std::int16_t shift)
{
    if (Rows() <= fixedRows_ || cols_ <= fixedCols_) return false;
    const bool far = (shift & vbCtrlMask) != 0;
    const std::int32_t lastRow = Rows() - 1, lastCol = cols_ - 1;
    std::int32_t row = row_, col = col_;
    switch (keyCode) {
    case vbKeyUp: row = far ? fixedRows_ : row - 1; break;
    case vbKeyDown: row = far ? lastRow : row + 1; break;
    case vbKeyLeft: col = far ? fixedCols_ : col - 1; break;
    case vbKeyRight: col = far ? lastCol : col + 1; break;
    case vbKeyHome:
        col = fixedCols_;
        if (far) row = fixedRows_;
        break;
    case vbKeyEnd:
        col = lastCol;
        if (far) row = lastRow;
        break;
    case vbKeyPageUp: row -= std::max(1, Height() / kDefaultRowHeight - fixedRows_); break;
    case vbKeyPageDown: row += std::max(1, Height() / kDefaultRowHeight - fixedRows_); break;
    default: return false;
    }
    MoveTo(std::clamp(row, fixedRows_, lastRow), std::clamp(col, fixedCols_, lastCol));
    ShowCell();
    return true;
}

}  // namespace kvx::ui
