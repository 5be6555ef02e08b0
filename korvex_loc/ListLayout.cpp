#include "korvex_loc/ListLayout.h"

#include "basic/Convert.h"
#include "basic/Text.h"
#include "korvex_loc/Sql.h"
#include "ui/DataGrid.h"
#include "ui/FlexGrid.h"
#include "ui/ListView.h"

#include <algorithm>
#include <functional>

namespace kvx::loc {

namespace {

// A column of any of the three kinds of control.
struct Column {
    std::string name;
    std::int32_t width;
    std::function<void(std::int32_t)> setWidth;
};

// The separators of the stored text cannot stand in a name.
std::string StoredName(std::string_view name)
{
    return basic::Replace(basic::Replace(name, ";", ","), "\n", " ");
}

std::vector<Column> ColumnsOf(ui::Control& control)
{
    std::vector<Column> columns;
    if (auto* list = dynamic_cast<ui::ListView*>(&control)) {
        for (std::int32_t i = 1; i <= list->ColumnHeaders().Count(); ++i) {
            ui::ColumnHeader& header = list->ColumnHeaders()[i];
            columns.push_back({StoredName(header.Key().empty() ? header.Text() : header.Key()), header.Width(),
                               [&header](std::int32_t twips) { header.SetWidth(twips); }});
        }
    } else if (auto* grid = dynamic_cast<ui::DataGrid*>(&control)) {
        for (std::int32_t i = 0; i < grid->Columns().Count(); ++i) {
            ui::DataColumn& column = grid->Columns()[i];
            columns.push_back({StoredName(column.DataField()), column.Width(),
                               [&column](std::int32_t twips) { column.SetWidth(twips); }});
        }
    } else if (auto* flex = dynamic_cast<ui::FlexGrid*>(&control)) {
        for (std::int32_t i = 0; i < flex->Cols(); ++i)
            columns.push_back(
                {std::to_string(i), flex->ColWidth(i), [flex, i](std::int32_t twips) { flex->SetColWidth(i, twips); }});
    } else {
        basic::Raise(basic::kErrTypeMismatch);
    }
    return columns;
}

std::string RowCondition(const KvxVar& kvxvar, std::string_view layout, const ui::Control& control)
{
    return " WHERE ID_USER = " + std::to_string(kvxvar.ID_USER) + " AND NAME = " + Quoted(layout) +
           " AND CONTROL = " + Quoted(control.FullName());
}

}  // namespace

void ListLayout::LoadLayout(const KvxVar& kvxvar, std::string_view layout, ui::Control& control)
{
    std::vector<Column> columns = ColumnsOf(control);
    const std::string stored =
        basic::ToText(FirstValue(kvxvar, "SELECT COLUMN_TEXT FROM LAYOUTS" + RowCondition(kvxvar, layout, control)));
    for (const std::string& pair : basic::Split(stored, ";")) {
        const std::size_t equals = pair.find('=');
        if (equals == std::string::npos) continue;
        const double width = basic::Val(pair.substr(0, equals));
        const auto column = std::ranges::find(columns, std::string_view(pair).substr(equals + 1), &Column::name);
        if (column == columns.end() || width < 0 || width > 100000) continue;
        column->setWidth(static_cast<std::int32_t>(width));
        columns.erase(column);  // of two columns of one name the second pair means the second
    }
}

void ListLayout::SaveLayout(const KvxVar& kvxvar, std::string_view layout, ui::Control& control)
{
    std::string stored;
    for (const Column& column : ColumnsOf(control)) {
        if (!stored.empty()) stored += ';';
        stored += std::to_string(column.width) + '=' + column.name;
    }
    UpdateOrInsert(kvxvar, "UPDATE LAYOUTS SET COLUMN_TEXT = " + Quoted(stored) + RowCondition(kvxvar, layout, control),
                   "INSERT INTO LAYOUTS (ID_USER,NAME,CONTROL,COLUMN_TEXT) VALUES (" + std::to_string(kvxvar.ID_USER) +
                       "," + Quoted(layout) + "," + Quoted(control.FullName()) + "," + Quoted(stored) + ")");
}

}  // namespace kvx::loc
