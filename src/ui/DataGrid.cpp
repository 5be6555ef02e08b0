#include "ui/DataGrid.h"

#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Format.h"
#include "ui/DataControl.h"

#include <algorithm>

namespace kvx::ui {
namespace {

constexpr std::int32_t kErrInvalidRow = 6148;

bool IsNumberOrDate(ado::DataTypeEnum type)
{
    switch (type) {
    case ado::adSmallInt:
    case ado::adInteger:
    case ado::adSingle:
    case ado::adDouble:
    case ado::adCurrency:
    case ado::adDate:
    case ado::adDecimal:
    case ado::adUnsignedTinyInt:
    case ado::adBigInt:
    case ado::adNumeric:
    case ado::adDBDate:
    case ado::adDBTime:
    case ado::adDBTimeStamp: return true;
    default: return false;
    }
}

}  // namespace

// --- columns ---

void DataColumn::SetDataField(std::string_view field)
{
    dataField_ = field;
    if (grid_ != nullptr) grid_->Notify(Change::Items);
}

void DataColumn::SetCaption(std::string_view caption)
{
    caption_ = caption;
    if (grid_ != nullptr) grid_->Notify(Change::Look);
}

void DataColumn::SetWidth(std::int32_t twips)
{
    if (twips < 0) basic::Raise(basic::kErrInvalidProperty);
    width_ = twips;
    if (grid_ != nullptr) grid_->Notify(Change::Look);
}

void DataColumn::SetVisible(bool visible)
{
    visible_ = visible;
    if (grid_ != nullptr) grid_->Notify(Change::Look);
}

void DataColumn::SetAlignment(std::int16_t alignment)
{
    if (alignment < dbgLeft || alignment > dbgGeneral) basic::Raise(basic::kErrInvalidProperty);
    alignment_ = alignment;
    if (grid_ != nullptr) grid_->Notify(Change::Look);
}

void DataColumn::SetNumberFormat(std::string_view mask)
{
    numberFormat_ = mask;
    if (grid_ != nullptr) grid_->Notify(Change::Items);
}

std::int32_t DataColumn::ColIndex() const
{
    if (grid_ == nullptr) return -1;
    const auto& columns = grid_->columns_;
    const auto found = std::find_if(columns.begin(), columns.end(), [this](const auto& c) { return c.get() == this; });
    return static_cast<std::int32_t>(found - columns.begin());
}

std::string DataColumn::Shown(const ado::Recordset& at) const
{
    const basic::Variant value = at[std::string_view{dataField_}].Value();
    return numberFormat_.empty() ? basic::ToText(value) : basic::Format(value, numberFormat_);
}

std::string DataColumn::Text() const
{
    return grid_ != nullptr && grid_->HasRow() ? Shown(grid_->Rows()) : std::string{};
}

basic::Variant DataColumn::Value() const
{
    return grid_ != nullptr && grid_->HasRow() ? grid_->Rows()[std::string_view{dataField_}].Value() : basic::Variant{};
}

std::string DataColumn::CellText(const basic::Variant& bookmark) const
{
    if (grid_ == nullptr) return {};
    ado::Recordset at = grid_->Rows().Clone();
    at.SetBookmark(bookmark);
    return Shown(at);
}

basic::Variant DataColumn::CellValue(const basic::Variant& bookmark) const
{
    if (grid_ == nullptr) return {};
    ado::Recordset at = grid_->Rows().Clone();
    at.SetBookmark(bookmark);
    return at[std::string_view{dataField_}].Value();
}

DataColumn& DataGrid::ColumnList::operator[](std::int32_t index) const
{
    if (index < 0 || index >= Count()) basic::Raise(basic::kErrSubscript);
    return *grid_.columns_[static_cast<std::size_t>(index)];
}

DataColumn& DataGrid::ColumnList::operator[](std::string_view field) const
{
    for (const auto& column : grid_.columns_)
        if (basic::SameName(column->dataField_, field)) return *column;
    basic::Raise(basic::kErrSubscript);
}

bool DataGrid::ColumnList::Has(std::string_view field) const
{
    return std::any_of(grid_.columns_.begin(), grid_.columns_.end(),
                       [&](const auto& column) { return basic::SameName(column->dataField_, field); });
}

// --- the grid ---

DataGrid::DataGrid(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

DataGrid::~DataGrid()
{
    if (View* view = GetView(); view != nullptr) {
        SetView(nullptr);
        view->Gone();
    }
    SetDataSource(nullptr);
}

void DataGrid::Reset()
{
    Control::Reset();
    SetDataSource(nullptr);
    rowHeight_ = 240;
}

void DataGrid::SetDataSource(DataControl* source)
{
    if (source_ != nullptr) std::erase(source_->grids_, this);
    source_ = source;
    if (source_ != nullptr) source_->grids_.push_back(this);
    ReBind();
}

ado::Recordset& DataGrid::Rows() const
{
    return source_->Recordset();
}

bool DataGrid::HasRows() const
{
    return source_ != nullptr && Rows().State() == ado::adStateOpen;
}

bool DataGrid::HasRow() const
{
    return HasRows() && !Rows().Bof() && !Rows().Eof();
}

void DataGrid::Refresh()
{
    readerFresh_ = false;
    Notify(Change::Items);
}

void DataGrid::ReBind()
{
    for (const auto& column : columns_)
        column->grid_ = nullptr;
    columns_.clear();
    reader_ = {};
    readerFresh_ = false;
    col_ = firstRow_ = 0;
    if (HasRows()) {
        try {
            Rows().AbsolutePosition();
        } catch (const basic::Error& error) {
            if (error.Number == ado::kErrNotSupported) basic::Raise(kErrNoBookmarks, "The rowset is not bookmarkable");
            throw;
        }
        const ado::Fields fields = Rows().Fields();
        for (std::int32_t i = 0; i < fields.Count(); ++i) {
            std::shared_ptr<DataColumn> column{new DataColumn{*this}};
            column->self_ = column;
            column->dataField_ = column->caption_ = fields[i].Name();
            columns_.push_back(std::move(column));
        }
    }
    Notify(Change::Look);
    Notify(Change::Items);
}

void DataGrid::RowMoved()
{
    ShowRow();
    Notify(Change::Selection);
}

void DataGrid::ShowRow()
{
    const std::int32_t row = CurrentRow();
    if (row < 0) return;
    firstRow_ = std::clamp(firstRow_, std::max(0, row - VisibleRows() + 1), row);
}

std::int32_t DataGrid::VisibleRows() const
{
    // The head of the columns takes a row's height.
    return rowHeight_ > 0 ? std::max(1, Height() / rowHeight_ - 1) : 1;
}

std::int32_t DataGrid::RowCount() const
{
    return HasRows() ? static_cast<std::int32_t>(std::max<std::int64_t>(0, Rows().RecordCount())) : 0;
}

std::int32_t DataGrid::RowsHere() const
{
    return HasRows() ? static_cast<std::int32_t>(Rows().RowsHere()) : 0;
}

bool DataGrid::Reaches(std::int32_t row) const
{
    return row < RowsHere() || row < RowCount();
}

std::int32_t DataGrid::CurrentRow() const
{
    return HasRow() ? static_cast<std::int32_t>(Rows().AbsolutePosition()) - 1 : -1;
}

std::int32_t DataGrid::Row() const
{
    const std::int32_t row = CurrentRow() - firstRow_;
    return CurrentRow() < 0 || row < 0 || row >= VisibleRows() ? -1 : row;
}

void DataGrid::SetRow(std::int32_t row)
{
    if (row < 0 || firstRow_ + row >= RowCount()) basic::Raise(kErrInvalidRow, "Invalid row number");
    Rows().SetAbsolutePosition(firstRow_ + row + 1);
}

void DataGrid::SetCol(std::int32_t col)
{
    At(col);
    col_ = col;
    Notify(Change::Selection);
}

void DataGrid::SetFirstRow(std::int32_t position)
{
    firstRow_ = std::clamp(position, 0, std::max(0, RowCount() - 1));
    Notify(Change::Look);
}

void DataGrid::SetRowHeight(std::int32_t twips)
{
    if (twips < 0) basic::Raise(basic::kErrInvalidProperty);
    rowHeight_ = twips;
    Notify(Change::Look);
}

const DataColumn& DataGrid::At(std::int32_t col) const
{
    if (col < 0 || col >= static_cast<std::int32_t>(columns_.size())) basic::Raise(basic::kErrSubscript);
    return *columns_[static_cast<std::size_t>(col)];
}

std::string DataGrid::Text() const
{
    return columns_.empty() ? std::string{} : At(col_).Text();
}

basic::Variant DataGrid::Bookmark() const
{
    return HasRow() ? Rows().Bookmark() : basic::Variant{basic::Null{}};
}

void DataGrid::SetBookmark(const basic::Variant& bookmark)
{
    if (!HasRows()) basic::Raise(kErrInvalidRow, "Invalid row number");
    Rows().SetBookmark(bookmark);
}

// Rows are read by a clone, so that painting never moves the user's row.
ado::Recordset& DataGrid::ReaderAt(std::int32_t row) const
{
    if (!readerFresh_) {
        reader_ = Rows().Clone();
        readerFresh_ = true;
    }
    if (reader_.AbsolutePosition() != row + 1) reader_.SetAbsolutePosition(row + 1);
    return reader_;
}

std::string DataGrid::CellText(std::int32_t row, std::int32_t col) const
{
    const DataColumn& column = At(col);
    return row < 0 || !Reaches(row) ? std::string{} : column.Shown(ReaderAt(row));
}

bool DataGrid::AlignsRight(std::int32_t col) const
{
    const DataColumn& column = At(col);
    if (column.alignment_ != dbgGeneral) return column.alignment_ == dbgRight;
    return HasRows() && IsNumberOrDate(Rows()[std::string_view{column.dataField_}].Type());
}

void DataGrid::UserSelectCell(std::int32_t row, std::int32_t col, bool byMouse)
{
    if (row < 0 || !Reaches(row)) return;
    At(col);
    const std::int32_t oldRow = CurrentRow(), oldCol = col_;
    const basic::Variant oldBookmark = Bookmark();
    if (row != oldRow) Rows().SetAbsolutePosition(row + 1);
    // A handler of the move may have opened other rows.
    if (col < static_cast<std::int32_t>(columns_.size())) col_ = col;
    Notify(Change::Selection);
    if (row != oldRow || col != oldCol) RowColChange.Raise(oldBookmark, oldCol);
    if (byMouse) Click.Raise();
}

void DataGrid::UserResizeColumn(std::int32_t col, std::int32_t widthTwips)
{
    const std::shared_ptr<DataColumn> column = columns_.at(static_cast<std::size_t>(col));
    const std::int32_t before = column->Width();
    column->SetWidth(std::max(0, widthTwips));
    bool cancel = false;
    ColResize.Raise(col, cancel);
    if (cancel) column->SetWidth(before);
}

void DataGrid::UserHeadClick(std::int32_t col)
{
    HeadClick.Raise(col);
}

void DataGrid::UserScroll(std::int32_t firstRow)
{
    firstRow_ = firstRow > 0 && !Reaches(firstRow) ? std::max(0, RowCount() - 1) : std::max(0, firstRow);
}

bool DataGrid::DefaultKeyDown(std::int16_t keyCode, std::int16_t shift)
{
    if (RowsHere() == 0) return false;
    const std::int32_t row = CurrentRow();
    const auto step = [&](std::int32_t by) {
        std::int32_t col = col_ + by;
        while (col >= 0 && col < static_cast<std::int32_t>(columns_.size()) && !At(col).Visible())
            col += by;
        if (col >= 0 && col < static_cast<std::int32_t>(columns_.size())) UserSelectCell(std::max(row, 0), col, false);
    };
    const auto go = [&](std::int32_t to) {
        UserSelectCell(Reaches(to) ? to : std::clamp(to, 0, RowCount() - 1), col_, false);
    };
    switch (keyCode) {
    case vbKeyUp: go(row - 1); return true;
    case vbKeyDown: go(row + 1); return true;
    case vbKeyPageUp: go(row - VisibleRows()); return true;
    case vbKeyPageDown: go(row + VisibleRows()); return true;
    case vbKeyHome:
        if ((shift & vbCtrlMask) != 0) go(0);
        return true;
    case vbKeyEnd:
        if ((shift & vbCtrlMask) != 0) go(RowCount() - 1);
        return true;
    case vbKeyLeft: step(-1); return true;
    case vbKeyRight: step(1); return true;
    default: return false;
    }
}

}  // namespace kvx::ui
