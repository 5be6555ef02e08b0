#include "ado/Cursor.h"
#include "ado/Errors.h"
#include "ado/Values.h"
#include "basic/Error.h"
#include "basic/Object.h"

#include <algorithm>

namespace kvx::ado {
namespace {

// How a written row shows in the trace.
std::string DescribeInsert(const RowChange& change)
{
    if (change.columns.empty()) return "INSERT INTO " + change.table + " DEFAULT VALUES";
    std::string columns, values;
    for (std::size_t index = 0; index < change.columns.size(); ++index) {
        const char* comma = index == 0 ? "" : ", ";
        columns += comma + change.columns[index];
        values += comma + SqlLiteral(change.values[index]);
    }
    return "INSERT INTO " + change.table + " (" + columns + ") VALUES (" + values + ")";
}

std::string DescribeUpdate(const RowChange& change, std::string_view keyName)
{
    std::string text = "UPDATE " + change.table + " SET ";
    for (std::size_t index = 0; index < change.columns.size(); ++index)
        text += (index == 0 ? "" : ", ") + change.columns[index] + " = " + SqlLiteral(change.values[index]);
    return text + " WHERE " + std::string(keyName) + " = " + SqlLiteral(*change.rowKey);
}

} // namespace

EditModeEnum Cursor::EditMode() const
{
    RequireOpen();
    if (!edit_) return adEditNone;
    return edit_->adding ? adEditAdd : adEditInProgress;
}

void Cursor::StartEdit(bool adding)
{
    edit_ = Edit{.adding = adding, .values = {}, .place = place_, .row = row_};
    edit_->values.resize(visible_);
}

void Cursor::SetValue(std::size_t column, const basic::Variant& value)
{
    RequireOpen();
    const ColumnInfo& info = Column(column);
    RequireUpdatable();
    if (!edit_ && place_ != Place::On) RaiseAdo(kErrNoCurrentRecord);
    if (!info.baseTable || !info.baseColumn) RaiseAdo(kErrMultiStep, "ADODB.Field"); // computed
    basic::Variant converted = ToColumnValue(info, value);
    if (!edit_) StartEdit(/*adding=*/false);
    edit_->values[column] = std::move(converted);
}

void Cursor::AddNew()
{
    RequireUpdatable();
    FinishEdit();
    StartEdit(/*adding=*/true);
    place_ = Place::On;
    FireMoveComplete();
}

void Cursor::CancelUpdate()
{
    RequireUpdatable();
    if (!edit_) return;
    const Edit dropped = std::move(*edit_);
    edit_.reset();
    place_ = dropped.place;
    row_ = dropped.row;
    if (dropped.adding) FireMoveComplete();
}

void Cursor::Update()
{
    RequireUpdatable();
    if (!edit_) return;
    if (edit_->adding)
        WriteNewRow();
    else
        WriteChanges();
    edit_.reset(); // a failed write stays in edit mode: the next move tries it again
}

basic::Variant Cursor::Write(const RowChange& change)
{
    std::string text;
    if (change.rowKey)
        text = DescribeUpdate(change, (*infos_)[*RowKeyColumn(change.table)].name);
    else
        text = DescribeInsert(change);
    basic::Variant key;
    connection_->Send(text, /*rowWrite=*/true, [&] {
        key = connection_->Driver().WriteRow(change);
        return std::int64_t{1};
    });
    return key;
}

std::optional<std::size_t> Cursor::RowKeyColumn(std::string_view table) const
{
    for (std::size_t column = visible_; column < infos_->size(); ++column) {
        const ColumnInfo& info = (*infos_)[column];
        if (info.rowKey && info.baseTable && basic::SameName(*info.baseTable, table)) return column;
    }
    return {};
}

// The table a new row goes to: that of the assigned fields, which must all be of one; without any that of the first.
std::string Cursor::TableOfNewRow() const
{
    const std::string* table = nullptr;
    for (std::size_t column = 0; column < visible_; ++column) {
        const std::optional<std::string>& of = (*infos_)[column].baseTable;
        if (!edit_->values[column] || !of) continue;
        if (table != nullptr && !basic::SameName(*table, *of)) RaiseAdo(kErrNotSupported);
        table = &*of;
    }
    if (table != nullptr) return *table;
    for (const ColumnInfo& info : *infos_)
        if (info.baseTable) return *info.baseTable;
    RaiseAdo(kErrNotSupported);
}

void Cursor::WriteNewRow()
{
    RowChange change;
    change.table = TableOfNewRow();
    std::vector<OwnedCell> cells(infos_->size());
    for (std::size_t column = 0; column < visible_; ++column) {
        const std::optional<basic::Variant>& value = edit_->values[column];
        if (!value) continue;
        change.columns.push_back(*(*infos_)[column].baseColumn);
        change.values.push_back(*value);
        cells[column] = ToOwnedCell(*value);
    }
    const OwnedCell key = ToOwnedCell(Write(change));
    for (std::size_t column = 0; column < infos_->size(); ++column) {
        const ColumnInfo& info = (*infos_)[column];
        const bool ofTable = info.baseTable && basic::SameName(*info.baseTable, change.table);
        if (ofTable && (info.rowKey || (info.autoIncrement && !cells[column].assigned))) cells[column] = key;
    }
    rows_->ReadRest();
    row_ = rows_->Add(std::move(cells));
    place_ = Place::On;
}

void Cursor::WriteChanges()
{
    // Mostly one table; a join is written table by table.
    while (true) {
        RowChange change;
        std::vector<std::size_t> columns;
        for (std::size_t column = 0; column < visible_; ++column) {
            const ColumnInfo& info = (*infos_)[column];
            if (!edit_->values[column] || (!columns.empty() && !basic::SameName(*info.baseTable, change.table)))
                continue;
            change.table = *info.baseTable;
            change.columns.push_back(*info.baseColumn);
            change.values.push_back(*edit_->values[column]);
            // What the database filled in when the row was added here is not known.
            if (rows_->IsUnassigned(column, row_))
                change.oldValues.push_back(basic::Empty{});
            else
                change.oldValues.push_back(ToVariant(info, rows_->At(column, row_)));
            columns.push_back(column);
        }
        if (columns.empty()) return;
        const std::optional<std::size_t> keyColumn = RowKeyColumn(change.table);
        if (keyColumn) change.rowKey = ToRowKey(rows_->At(*keyColumn, row_));
        if (!change.rowKey)
            RaiseAdo(kErrNotSupported, "ADODB.Recordset",
                     "Insufficient key column information for updating or refreshing.");
        const OwnedCell key = ToOwnedCell(Write(change));
        if (key.assigned) rows_->Change(row_, *keyColumn, key);
        for (const std::size_t column : columns) {
            rows_->Change(row_, column, ToOwnedCell(*edit_->values[column]));
            edit_->values[column].reset();
        }
    }
}

} // namespace kvx::ado
