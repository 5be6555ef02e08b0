#pragma once

#include "ui/ControlOf.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvx::ui {

constexpr std::int16_t flexAlignLeftTop = 0;
constexpr std::int16_t flexAlignLeftCenter = 1;
constexpr std::int16_t flexAlignLeftBottom = 2;
constexpr std::int16_t flexAlignCenterTop = 3;
constexpr std::int16_t flexAlignCenterCenter = 4;
constexpr std::int16_t flexAlignCenterBottom = 5;
constexpr std::int16_t flexAlignRightTop = 6;
constexpr std::int16_t flexAlignRightCenter = 7;
constexpr std::int16_t flexAlignRightBottom = 8;
constexpr std::int16_t flexAlignGeneral = 9;  ///< numbers right, texts left

constexpr std::int16_t flexSelectionFree = 0;
constexpr std::int16_t flexSelectionByRow = 1;
constexpr std::int16_t flexSelectionByColumn = 2;

constexpr std::int32_t kErrGridRow = 30009;
constexpr std::int32_t kErrGridCol = 30010;
constexpr std::int32_t kErrGridFixedRows = 30016;
constexpr std::int32_t kErrGridFixedCols = 30015;

/// A grid of texts with fixed rows and columns; "MSFlexGrid" for late binding. Rows and columns count from 0, with the
/// fixed ones. A change of the current cell, by the user or by code, raises LeaveCell (position still the old one),
/// then SelChange, EnterCell, RowColChange. TextMatrix raises nothing.
class FlexGrid final : public ControlOf<FlexGrid> {
public:
    FlexGrid(Form& form, std::string_view name);
    std::string_view TypeName() const override { return "MSFlexGrid"; }
    static const basic::MemberTable<FlexGrid>& Members();

    std::int32_t Rows() const { return static_cast<std::int32_t>(rows_.size()); }
    void SetRows(std::int32_t rows);  ///< @throws basic::Error 30016: fewer than FixedRows
    std::int32_t Cols() const { return cols_; }
    void SetCols(std::int32_t cols);  ///< @throws basic::Error 30015: fewer than FixedCols
    std::int32_t FixedRows() const { return fixedRows_; }
    void SetFixedRows(std::int32_t rows);  ///< @throws basic::Error 30016: not below Rows
    std::int32_t FixedCols() const { return fixedCols_; }
    void SetFixedCols(std::int32_t cols);  ///< @throws basic::Error 30015: not below Cols

    const std::string& TextMatrix(std::int32_t row, std::int32_t col) const;  ///< @throws basic::Error 381
    void SetTextMatrix(std::int32_t row, std::int32_t col, std::string_view text);
    /// Of the current cell.
    const std::string& Text() const;
    void SetText(std::string_view text);

    std::int32_t Row() const { return row_; }
    void SetRow(std::int32_t row);  ///< events on a change. @throws basic::Error 30009
    std::int32_t Col() const { return col_; }
    void SetCol(std::int32_t col);  ///< events on a change. @throws basic::Error 30010
    std::int32_t RowSel() const { return rowSel_; }
    void SetRowSel(std::int32_t row);  ///< @throws basic::Error 30009
    std::int32_t ColSel() const { return colSel_; }
    void SetColSel(std::int32_t col);  ///< @throws basic::Error 30010
    std::int16_t SelectionMode() const { return selectionMode_; }
    void SetSelectionMode(std::int16_t mode);

    /// Twips; -1 assigned = default; 0 hides.
    std::int32_t ColWidth(std::int32_t col) const;  ///< @throws basic::Error 30010
    void SetColWidth(std::int32_t col, std::int32_t twips);
    std::int32_t RowHeight(std::int32_t row) const;  ///< @throws basic::Error 30009
    void SetRowHeight(std::int32_t row, std::int32_t twips);
    std::int16_t ColAlignment(std::int32_t col) const;  ///< @throws basic::Error 30010
    void SetColAlignment(std::int32_t col, std::int16_t alignment);
    std::int32_t RowData(std::int32_t row) const;
    void SetRowData(std::int32_t row, std::int32_t data);
    std::int32_t ColData(std::int32_t col) const;
    void SetColData(std::int32_t col, std::int32_t data);

    /// Place of the current cell, twips from the grid's own corner; asking scrolls it into sight.
    std::int32_t CellLeft();
    std::int32_t CellTop();
    std::int32_t CellWidth();
    std::int32_t CellHeight();
    Color CellBackColor() const;  ///< of the current cell
    void SetCellBackColor(Color color);
    Color CellForeColor() const;
    void SetCellForeColor(Color color);
    bool CellFontBold() const;
    void SetCellFontBold(bool bold);

    std::int32_t TopRow() const { return topRow_; }
    void SetTopRow(std::int32_t row);  ///< raises Scroll on a change
    std::int32_t LeftCol() const { return leftCol_; }
    void SetLeftCol(std::int32_t col);  ///< raises Scroll on a change
    std::int32_t MouseRow() const { return mouseRow_; }
    std::int32_t MouseCol() const { return mouseCol_; }
    bool Redraw() const { return redraw_; }
    void SetRedraw(bool redraw);

    /// A new row; tabs part its cells. @param index  -1 = at the end
    void AddItem(std::string_view item, std::int32_t index = -1);
    void RemoveItem(std::int32_t row);  ///< @throws basic::Error 30009, 30016: a fixed row, or the last one
    void Clear();                       ///< empties every cell; sizes stay

    // For windows.
    struct CellLook {
        Color back = 0, fore = 0;
        bool bold = false;
    };
    CellLook LookAt(std::int32_t row, std::int32_t col) const;
    bool AlignsRight(std::int32_t row, std::int32_t col) const;

    void Reset() override;

    // --- what the user did ---
    /// Clicked a cell: the move with its events, then Click. A fixed cell moves nothing.
    void UserClickCell(std::int32_t row, std::int32_t col);
    void UserDblClickCell(std::int32_t row, std::int32_t col);
    void UserScroll(std::int32_t topRow, std::int32_t leftCol);
    void UserResizeColumn(std::int32_t col, std::int32_t widthTwips);
    bool DefaultKeyDown(std::int16_t keyCode, std::int16_t shift) override;

    ui::Event<> EnterCell, LeaveCell, RowColChange, SelChange, Scroll;

protected:
    Color DrawnBackColor() const override { return kColorWindow; }
    Color DrawnForeColor() const override { return kColorWindowText; }

private:
    struct RowRecord {
        std::vector<std::string> cells;
        std::int32_t height = -1, data = 0;
    };
    struct ColumnRecord {
        std::int32_t width = -1, data = 0;
        std::int16_t alignment = flexAlignGeneral;
    };
    void MoveTo(std::int32_t row, std::int32_t col);
    void CheckRow(std::int32_t row) const;
    void CheckCol(std::int32_t col) const;
    void ShowCell();
    std::int32_t RowTop(std::int32_t row) const;
    std::int32_t ColLeft(std::int32_t col) const;
    CellLook& LookOf(std::int32_t row, std::int32_t col);
    std::vector<RowRecord> rows_;
    std::vector<ColumnRecord> columns_;
    std::map<std::pair<std::int32_t, std::int32_t>, CellLook> looks_;
    std::int32_t cols_ = 2, fixedRows_ = 1, fixedCols_ = 1, row_ = 1, col_ = 1, rowSel_ = 1, colSel_ = 1, topRow_ = 1,
                 leftCol_ = 1, mouseRow_ = 0, mouseCol_ = 0;
    std::int16_t selectionMode_ = flexSelectionFree;
    bool redraw_ = true;
};

}  // namespace kvx::ui
