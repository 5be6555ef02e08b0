#include "adapters/sqlite/Describe.h"

#include "adapters/sqlite/Analysis.h"

#include <algorithm>
#include <sqlite3.h>

namespace kvx::adapters::sqlite {
namespace {

void SetType(ado::ColumnInfo& info, const DeclaredType& type)
{
    info.type = type.type;
    info.definedSize = type.definedSize;
    info.precision = type.precision;
    info.scale = type.scale;
}

const TableColumn* FindColumn(Schema& schema, const std::optional<std::string>& table,
                              const std::optional<std::string>& column)
{
    if (!table || !column) return nullptr;
    const TableDef* definition = schema.FindTable(*table);
    return definition == nullptr ? nullptr : definition->Find(*column);
}

std::string TextOf(const char* text)
{
    return text == nullptr ? std::string() : std::string(text);
}

}  // namespace

std::vector<ado::ColumnInfo> DescribeByEngine(sqlite3_stmt* prepared, Schema& schema)
{
    std::vector<ado::ColumnInfo> result(static_cast<std::size_t>(sqlite3_column_count(prepared)));
    for (std::size_t i = 0; i < result.size(); ++i) {
        const int index = static_cast<int>(i);
        ado::ColumnInfo& info = result[i];
        info.name = TextOf(sqlite3_column_name(prepared, index));
        if (const char* declared = sqlite3_column_decltype(prepared, index))
            SetType(info, ParseDeclaredType(declared));
        else
            SetType(info, TextType(4000, true));
        if (const char* table = sqlite3_column_table_name(prepared, index)) {
            info.baseTable = table;
            info.baseColumn = TextOf(sqlite3_column_origin_name(prepared, index));
            if (const TableColumn* column = FindColumn(schema, info.baseTable, info.baseColumn)) {
                info.nullable = column->nullable;
                info.autoIncrement = column->identity;
            }
        }
    }
    return result;
}

std::vector<ado::ColumnInfo> Describe(sqlite3_stmt* prepared, const Shaper& shaper, const Statement& statement,
                                      const Translation& translation, Schema& schema)
{
    const auto count = static_cast<std::size_t>(sqlite3_column_count(prepared));
    if (count == 0) return {};
    const std::size_t visible = count - std::min(count, translation.rowKeyTables.size());
    const Analysis analysis(shaper.Tokens(), schema);
    std::vector<ado::ColumnInfo> result;
    auto columns = statement.kind == StatementKind::Select ? analysis.Columns(statement.first, statement.last, nullptr)
                                                           : std::nullopt;
    if (columns && columns->size() == visible) {
        result.reserve(count);
        for (ResultColumn& column : *columns) {
            ado::ColumnInfo info;
            info.name = std::move(column.name);
            SetType(info, column.type);
            if (column.column != nullptr) {
                info.baseTable = column.table->name;
                info.baseColumn = column.column->name;
                info.nullable = column.column->nullable;
                info.autoIncrement = column.column->identity;
            }
            result.push_back(std::move(info));
        }
    } else {
        result = DescribeByEngine(prepared, schema);
        result.resize(visible);
    }
    for (const std::string& table : translation.rowKeyTables) {
        ado::ColumnInfo key;
        SetType(key, ParseDeclaredType("bigint"));
        key.baseTable = table;
        key.rowKey = true;
        result.push_back(std::move(key));
    }
    return result;
}

}  // namespace kvx::adapters::sqlite
