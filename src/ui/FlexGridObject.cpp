#include "ui/FlexGrid.h"
#include "ui/MemberRows.h"

namespace kvx::ui {

const basic::MemberTable<FlexGrid>& FlexGrid::Members()
{
    using namespace rows;
    using T = FlexGrid;
    static constexpr basic::Member<T> kRows[] = {
        ReadWrite<T, &T::Text, &T::SetText>("Text"),
        ReadWrite<T, &T::Text, &T::SetText>(""),
        {.name = "TextMatrix", .get = GetAt2<T, &T::TextMatrix>, .put = PutAt2<T, &T::SetTextMatrix>},
        ReadWrite<T, &T::Rows, &T::SetRows>("Rows"),
        ReadWrite<T, &T::Cols, &T::SetCols>("Cols"),
        ReadWrite<T, &T::FixedRows, &T::SetFixedRows>("FixedRows"),
        ReadWrite<T, &T::FixedCols, &T::SetFixedCols>("FixedCols"),
        ReadWrite<T, &T::Row, &T::SetRow>("Row"),
        ReadWrite<T, &T::Col, &T::SetCol>("Col"),
        ReadWrite<T, &T::RowSel, &T::SetRowSel>("RowSel"),
        ReadWrite<T, &T::ColSel, &T::SetColSel>("ColSel"),
        ReadWrite<T, &T::SelectionMode, &T::SetSelectionMode>("SelectionMode"),
        Indexed<T, &T::ColWidth, &T::SetColWidth>("ColWidth"),
        Indexed<T, &T::RowHeight, &T::SetRowHeight>("RowHeight"),
        Indexed<T, &T::ColAlignment, &T::SetColAlignment>("ColAlignment"),
        Indexed<T, &T::RowData, &T::SetRowData>("RowData"),
        Indexed<T, &T::ColData, &T::SetColData>("ColData"),
        ReadOnly<T, &T::CellLeft>("CellLeft"),
        ReadOnly<T, &T::CellTop>("CellTop"),
        ReadOnly<T, &T::CellWidth>("CellWidth"),
        ReadOnly<T, &T::CellHeight>("CellHeight"),
        ReadWrite<T, &T::CellBackColor, &T::SetCellBackColor>("CellBackColor"),
        ReadWrite<T, &T::CellForeColor, &T::SetCellForeColor>("CellForeColor"),
        ReadWrite<T, &T::CellFontBold, &T::SetCellFontBold>("CellFontBold"),
        ReadWrite<T, &T::TopRow, &T::SetTopRow>("TopRow"),
        ReadWrite<T, &T::LeftCol, &T::SetLeftCol>("LeftCol"),
        ReadOnly<T, &T::MouseRow>("MouseRow"),
        ReadOnly<T, &T::MouseCol>("MouseCol"),
        ReadWrite<T, &T::Redraw, &T::SetRedraw>("Redraw"),
        {.name = "AddItem",
         .call =
             [](T& grid, std::span<Variant> args) {
                 grid.AddItem(basic::CStr(Required(args, 0)), args.size() > 1 ? basic::CLng(args[1]) : -1);
                 return Variant{};
             }},
        {.name = "RemoveItem", .call = Call1<T, &T::RemoveItem>},
        Method<T, &T::Clear>("Clear"),
    };
    static constexpr basic::MemberTable<T> kTable{"MSFlexGrid", kRows};
    return kTable;
}

}  // namespace kvx::ui
