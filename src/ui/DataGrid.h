#pragma once

#include "ado/Recordset.h"
#include "ui/ControlOf.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::ui {

class DataControl;
class DataGrid;

constexpr std::int16_t dbgLeft = 0;
constexpr std::int16_t dbgRight = 1;
constexpr std::int16_t dbgCenter = 2;
constexpr std::int16_t dbgGeneral = 3;  ///< numbers and dates to the right

constexpr std::int32_t kErrNoBookmarks = 7004;

/// A column of a data grid. Rebuilding the columns ends it.
class DataColumn {
public:
    const std::string& DataField() const { return dataField_; }
    void SetDataField(std::string_view field);
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string_view caption);
    std::int32_t Width() const { return width_; }
    void SetWidth(std::int32_t twips);  ///< @throws basic::Error 380: negative
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    std::int16_t Alignment() const { return alignment_; }
    void SetAlignment(std::int16_t alignment);
    /// How values are shown, a mask of basic::Format: "dd.mm.yyyy", "0.00", "Yes/No"; empty = as text.
    const std::string& NumberFormat() const { return numberFormat_; }
    void SetNumberFormat(std::string_view mask);
    std::int32_t ColIndex() const;

    std::string Text() const;      ///< of the current row as it is shown; "" with no rows
    basic::Variant Value() const;  ///< of the current row; Empty with no rows
    std::string CellText(const basic::Variant& bookmark) const;
    basic::Variant CellValue(const basic::Variant& bookmark) const;
    basic::ObjectRef Object() const;

private:
    friend class DataGrid;
    explicit DataColumn(DataGrid& grid) : grid_(&grid) {}
    std::string Shown(const ado::Recordset& at) const;
    DataGrid* grid_;  // nullptr: the columns were built anew
    std::string dataField_, caption_, numberFormat_;
    std::int32_t width_ = 1440;
    std::int16_t alignment_ = dbgGeneral;
    bool visible_ = true;
    std::weak_ptr<DataColumn> self_;
};

/// The rows of a data control, to look at and to walk through.
class DataGrid final : public ControlOf<DataGrid> {
public:
    DataGrid(Form& form, std::string_view name);
    ~DataGrid() override;
    std::string_view TypeName() const override { return "DataGrid"; }
    static const basic::MemberTable<DataGrid>& Members();

    DataControl* DataSource() const { return source_; }
    void SetDataSource(DataControl* source);

    /// The columns, from 0.
    class ColumnList {
    public:
        explicit ColumnList(DataGrid& grid) : grid_(grid) {}
        std::int32_t Count() const { return static_cast<std::int32_t>(grid_.columns_.size()); }
        DataColumn& operator[](std::int32_t index) const;      ///< @throws basic::Error 9
        DataColumn& operator[](std::string_view field) const;  ///< by DataField, case ignored. @throws basic::Error 9
        bool Has(std::string_view field) const;

    private:
        DataGrid& grid_;
    };
    ColumnList Columns() { return ColumnList{*this}; }

    /// Shows the rows anew; columns stay.
    void Refresh();
    /// Builds the columns anew from the fields: captions, widths, visibility, formats set before are gone.
    /// @throws basic::Error 7004: the recordset has no bookmarks
    void ReBind();

    std::int32_t Row() const;       ///< current row, counted from the first one in sight; -1 = none
    void SetRow(std::int32_t row);  ///< @throws basic::Error 6148: not in sight
    std::int32_t Col() const { return col_; }
    void SetCol(std::int32_t col);                       ///< @throws basic::Error 9
    std::int32_t FirstRow() const { return firstRow_; }  ///< position of the first row in sight, from 0
    void SetFirstRow(std::int32_t position);
    std::int32_t VisibleRows() const;
    std::string Text() const;  ///< of the current cell
    basic::Variant Bookmark() const;
    void SetBookmark(const basic::Variant& bookmark);
    std::int32_t RowHeight() const { return rowHeight_; }
    void SetRowHeight(std::int32_t twips);

    // For windows.
    std::int32_t RowCount() const;
    std::int32_t RowsHere() const;    ///< as RowCount, without waiting for rows that are still being read
    std::int32_t CurrentRow() const;  ///< position in the recordset, from 0; -1 = none
    std::string CellText(std::int32_t row, std::int32_t col) const;
    bool AlignsRight(std::int32_t col) const;

    void Reset() override;

    // --- what the user did ---
    /// Clicked a cell, or arrowed to it: the recordset moves (MoveComplete), RowColChange, and Click for the mouse.
    void UserSelectCell(std::int32_t row, std::int32_t col, bool byMouse = true);
    void UserResizeColumn(std::int32_t col, std::int32_t widthTwips);
    void UserHeadClick(std::int32_t col);
    void UserScroll(std::int32_t firstRow);
    bool DefaultKeyDown(std::int16_t keyCode, std::int16_t shift) override;

    ui::Event<const basic::Variant&, std::int32_t> RowColChange;  ///< bookmark of the row before, column before
    ui::Event<std::int32_t, bool&> ColResize;                     ///< column; set true to keep the old width
    ui::Event<std::int32_t> HeadClick;

protected:
    Color DrawnBackColor() const override { return kColorWindow; }
    Color DrawnForeColor() const override { return kColorWindowText; }

private:
    friend class DataControl;
    friend class DataColumn;
    void RowMoved();
    bool HasRows() const;                  // an open recordset
    bool HasRow() const;                   // with a current row
    bool Reaches(std::int32_t row) const;  // reads on only for rows that are not here yet
    ado::Recordset& Rows() const;
    ado::Recordset& ReaderAt(std::int32_t row) const;
    const DataColumn& At(std::int32_t col) const;
    void ShowRow();
    DataControl* source_ = nullptr;
    std::vector<std::shared_ptr<DataColumn>> columns_;
    mutable ado::Recordset reader_;  // a clone to read other rows with
    mutable bool readerFresh_ = false;
    std::int32_t col_ = 0, firstRow_ = 0, rowHeight_ = 240;
};

}  // namespace kvx::ui
