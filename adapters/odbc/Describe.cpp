#include "adapters/odbc/Describe.h"

#include "ado/Constants.h"
#include "basic/Object.h"

#include <algorithm>
#include <array>

namespace kvx::adapters::odbc {
namespace {

ado::ColumnInfo IntegerInfo()
{
    ado::ColumnInfo info;
    info.type = ado::adInteger;
    info.definedSize = 4;
    info.precision = 10;
    return info;
}

// The column of a name among the tables of a FROM; nothing when it can't be told.
std::optional<Told> FollowName(Connection& connection, const Select& select, const SelectItem& item)
{
    std::optional<Told> found;
    for (const SelectTable& table : select.tables) {
        if (!item.qualifier.empty() && !basic::SameName(table.alias, item.qualifier)) continue;
        if (!table.name.empty()) {
            const TableDef* def = connection.FindTable(table.name);
            const TableColumn* column = def == nullptr ? nullptr : def->Find(item.name);
            if (column != nullptr) return Told{false, {}, table.name, column->name, column, {}};
            continue;
        }
        const std::optional<ToldList> inner = table.derived ? Follow(connection, *table.derived) : std::nullopt;
        if (!inner) continue;
        for (const Told& told : *inner)
            if (basic::SameName(told.alias.empty() ? told.column : told.alias, item.name)) {
                found = told;
                found->alias.clear();
                return found;
            }
    }
    return found;
}

Told FollowItem(Connection& connection, const Select& select, const SelectItem& item)
{
    using Kind = SelectItem::Kind;
    Told told;
    told.computed = true;
    switch (item.kind) {
    case Kind::Column:
        if (std::optional<Told> column = FollowName(connection, select, item)) return *column;
        told.computed = false;  // a column of something that could not be followed: the driver may know
        return told;
    case Kind::NumberLiteral:
    case Kind::Null: told.type = IntegerInfo(); break;
    case Kind::TextLiteral: {
        ado::ColumnInfo info;
        info.type = ado::adVarChar;
        info.definedSize = static_cast<std::int32_t>(std::max<std::size_t>(item.size, 1));
        told.type = info;
        break;
    }
    case Kind::Function:
    case Kind::Case: {
        if (item.name == "COUNT") {
            told.type = IntegerInfo();
            break;
        }
        constexpr std::array<std::string_view, 6> kTypeOfFirst = {"ISNULL", "NVL", "IFNULL", "MAX", "MIN", "("};
        if (item.kind == Kind::Function && std::ranges::find(kTypeOfFirst, item.name) == kTypeOfFirst.end()) break;
        if (!item.inner) break;
        const Told inner = FollowItem(connection, select, *item.inner);
        if (inner.declared != nullptr)
            told.type = inner.declared->info;
        else
            told.type = inner.type;
        break;
    }
    case Kind::SubSelect: {
        const std::optional<ToldList> inner = item.sub ? Follow(connection, *item.sub) : std::nullopt;
        if (!inner || inner->size() != 1) break;
        if (inner->front().declared != nullptr)
            told.type = inner->front().declared->info;
        else
            told.type = inner->front().type;
        break;
    }
    case Kind::Star:
    case Kind::Other: break;
    }
    return told;
}

std::string AttributeText(const StatementHandle& statement, SQLUSMALLINT column, SQLUSMALLINT field)
{
    std::array<SQLWCHAR, 512> text{};
    SQLSMALLINT bytes = 0;
    if (!SQL_SUCCEEDED(SQLColAttributeW(statement.Get(), column, field, text.data(), sizeof(text), &bytes, nullptr)) ||
        bytes < 0)
        return {};
    return FromWide(text.data(), std::min(static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR), text.size() - 1));
}

SQLLEN AttributeNumber(const StatementHandle& statement, SQLUSMALLINT column, SQLUSMALLINT field)
{
    SQLLEN number = 0;
    SQLColAttributeW(statement.Get(), column, field, nullptr, 0, nullptr, &number);
    return number;
}

}  // namespace

std::optional<ToldList> Follow(Connection& connection, const Select& select)
{
    ToldList list;
    for (const SelectItem& item : select.items) {
        if (item.kind != SelectItem::Kind::Star) {
            Told told = FollowItem(connection, select, item);
            if (!item.alias.empty()) told.alias = item.alias;
            list.push_back(std::move(told));
            continue;
        }
        for (const SelectTable& table : select.tables) {
            if (!item.qualifier.empty() && !basic::SameName(table.alias, item.qualifier)) continue;
            if (!table.name.empty()) {
                const TableDef* def = connection.FindTable(table.name);
                if (def == nullptr) return {};
                for (const TableColumn& column : def->columns)
                    list.push_back({false, {}, table.name, column.name, &column, {}});
            } else {
                std::optional<ToldList> inner = table.derived ? Follow(connection, *table.derived) : std::nullopt;
                if (!inner) return {};
                list.insert(list.end(), inner->begin(), inner->end());
            }
        }
    }
    return list;
}

std::vector<DriverColumn> DescribeByDriver(Connection& connection, const StatementHandle& statement, SQLSMALLINT count)
{
    std::vector<DriverColumn> columns(static_cast<std::size_t>(count));
    for (SQLSMALLINT index = 0; index < count; ++index) {
        const auto number = static_cast<SQLUSMALLINT>(index + 1);
        DriverColumn& column = columns[static_cast<std::size_t>(index)];
        std::array<SQLWCHAR, 512> name{};
        SQLSMALLINT length = 0, nullable = SQL_NULLABLE_UNKNOWN;
        connection.Check(statement,
                         SQLDescribeColW(statement.Get(), number, name.data(), static_cast<SQLSMALLINT>(name.size()),
                                         &length, &column.type, &column.size, &column.digits, &nullable));
        column.name = FromWide(name.data(),
                               std::min(static_cast<std::size_t>(std::max<SQLSMALLINT>(length, 0)), name.size() - 1));
        column.nullable = nullable != SQL_NO_NULLS;
        if (column.type == SQL_TINYINT)
            column.isUnsigned = AttributeNumber(statement, number, SQL_DESC_UNSIGNED) == SQL_TRUE;
        if (column.type == SQL_DECIMAL || column.type == SQL_NUMERIC)
            column.typeName = AttributeText(statement, number, SQL_DESC_TYPE_NAME);
        if (column.type == SQL_INTEGER || column.type == SQL_BIGINT || column.type == SQL_SMALLINT)
            column.autoIncrement = AttributeNumber(statement, number, SQL_DESC_AUTO_UNIQUE_VALUE) == SQL_TRUE;
    }
    return columns;
}

std::vector<ado::ColumnInfo> Describe(Connection& connection, const std::vector<DriverColumn>& columns,
                                      std::size_t visible, const std::optional<ToldList>& told)
{
    const bool trustsDriver = connection.Kind() == Engine::SqlServer;
    const bool follows = told && told->size() == visible;
    std::vector<ado::ColumnInfo> infos;
    for (std::size_t index = 0; index < visible && index < columns.size(); ++index) {
        ado::ColumnInfo info = InfoOf(columns[index]);
        info.name = columns[index].name;
        if (follows) {
            const Told& known = (*told)[index];
            if (known.declared != nullptr) {
                const bool nullable = info.nullable || known.declared->info.nullable;
                if (!trustsDriver) info = known.declared->info;
                info.nullable = nullable;
                info.autoIncrement = known.declared->info.autoIncrement;
                info.name = known.column;
                info.baseTable = known.table;
                info.baseColumn = known.column;
            } else if (known.computed) {
                if (known.type && !trustsDriver) info = *known.type;
                info.autoIncrement = false;
                info.name.clear();
            }
            if (!known.alias.empty()) info.name = known.alias;
        }
        infos.push_back(std::move(info));
    }
    return infos;
}

}  // namespace kvx::adapters::odbc
