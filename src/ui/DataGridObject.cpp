#include "ui/DataGrid.h"
#include "ui/MemberRows.h"
#include "ui/PartObject.h"

#include <memory>

// A data grid and its columns as late binding sees them.
namespace kvx::ui {
namespace {

using namespace rows;

constexpr basic::Member<DataColumn> kColumnRows[] = {
    ReadWrite<DataColumn, &DataColumn::DataField, &DataColumn::SetDataField>("DataField"),
    ReadWrite<DataColumn, &DataColumn::Caption, &DataColumn::SetCaption>("Caption"),
    ReadWrite<DataColumn, &DataColumn::Width, &DataColumn::SetWidth>("Width"),
    ReadWrite<DataColumn, &DataColumn::Visible, &DataColumn::SetVisible>("Visible"),
    ReadWrite<DataColumn, &DataColumn::Alignment, &DataColumn::SetAlignment>("Alignment"),
    ReadWrite<DataColumn, &DataColumn::NumberFormat, &DataColumn::SetNumberFormat>("NumberFormat"),
    ReadWrite<DataColumn, &DataColumn::NumberFormat, &DataColumn::SetNumberFormat>("DataFormat"),
    ReadOnly<DataColumn, &DataColumn::ColIndex>("ColIndex"),
    ReadOnly<DataColumn, &DataColumn::Text>("Text"),
    ReadOnly<DataColumn, &DataColumn::Value>("Value"),
    ReadOnly<DataColumn, &DataColumn::Value>(""),
    {.name = "CellText",
     .call = [](DataColumn& column, std::span<Variant> args) { return Variant(column.CellText(Required(args, 0))); }},
    {.name = "CellValue",
     .call = [](DataColumn& column, std::span<Variant> args) { return column.CellValue(Required(args, 0)); }},
};
constexpr basic::MemberTable<DataColumn> kColumnMembers{"Column", kColumnRows};

class ColumnsObject final : public basic::Object {
public:
    explicit ColumnsObject(DataGrid& grid) : alive_(grid.Object()), grid_(grid) {}
    std::string TypeName() const override { return "Columns"; }
    Variant Get(std::string_view member, Args args) override
    {
        alive_->Get("Name");  // raises 91 when the grid is gone
        if (basic::SameName(member, "Count")) return grid_.Columns().Count();
        if (!member.empty() && !basic::SameName(member, "Item")) basic::RaiseNoMember(TypeName(), member);
        const Variant& which = Required(args, 0);
        if (which.IsText()) return grid_.Columns()[std::string_view{*which.As<std::string>()}].Object();
        return grid_.Columns()[basic::CLng(which)].Object();
    }
    void Put(std::string_view, const Variant&, Args) override { basic::Raise(basic::kErrReadOnlyProperty); }
    Variant Call(std::string_view member, std::span<Variant> args) override { return Get(member, args); }

private:
    basic::ObjectRef alive_;
    DataGrid& grid_;
};

}  // namespace

basic::ObjectRef DataColumn::Object() const
{
    return std::make_shared<PartObject<DataColumn>>(self_.lock(), kColumnMembers, "Column");
}

const basic::MemberTable<DataGrid>& DataGrid::Members()
{
    using T = DataGrid;
    static constexpr basic::Member<T> kRows[] = {
        {.name = "Columns",
         .get =
             [](T& grid, Args args) {
                 const basic::ObjectRef columns = std::make_shared<ColumnsObject>(grid);
                 return args.empty() ? Variant(columns) : columns->Get("Item", args);
             }},
        ReadOnly<T, &T::Text>("Text"),
        ReadOnly<T, &T::Text>(""),
        ReadWrite<T, &T::Row, &T::SetRow>("Row"),
        ReadWrite<T, &T::Col, &T::SetCol>("Col"),
        ReadWrite<T, &T::FirstRow, &T::SetFirstRow>("FirstRow"),
        ReadOnly<T, &T::VisibleRows>("VisibleRows"),
        ReadWrite<T, &T::RowHeight, &T::SetRowHeight>("RowHeight"),
        ReadWrite<T, &T::Bookmark, &T::SetBookmark>("Bookmark"),
        Method<T, &T::Refresh>("Refresh"),
        Method<T, &T::ReBind>("ReBind"),
    };
    static constexpr basic::MemberTable<T> kTable{"DataGrid", kRows};
    return kTable;
}

}  // namespace kvx::ui
