#include "adapters/odbc/Connection.h"
#include "adapters/odbc/Describe.h"
#include "adapters/odbc/RowStatement.h"
#include "ado/Constants.h"

#include <charconv>

namespace kvx::adapters::odbc {
namespace {

std::string Literal(std::string_view text)
{
    std::string literal = "'";
    for (const char character : text) {
        literal += character;
        if (character == '\'') literal += '\'';
    }
    return literal + "'";
}

std::int64_t Number(std::string_view text)
{
    std::int64_t number = -1;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

// Where the schema views of an engine differ.
struct SchemaWords {
    std::string_view type;      // the declared type's word
    std::string_view identity;  // 1: the engine counts the column up
    std::string_view isUnsigned, unicode;
    std::string_view ofTable;  // the condition of one table, {} = its name as a literal; tables and keys both
};

// SQL Server finds an unqualified name by its own rules (the user's schema, then dbo), so OBJECT_ID is asked.
constexpr SchemaWords kSqlServer{
    "C.DATA_TYPE",
    "COLUMNPROPERTY(OBJECT_ID(QUOTENAME(C.TABLE_SCHEMA)+'.'+QUOTENAME(C.TABLE_NAME)),C.COLUMN_NAME,'IsIdentity')", "1",
    "0", "OBJECT_ID(QUOTENAME(C.TABLE_SCHEMA)+'.'+QUOTENAME(C.TABLE_NAME)) = OBJECT_ID({})"};
constexpr SchemaWords kMariaDb{"C.DATA_TYPE", "CASE WHEN C.EXTRA LIKE '%auto_increment%' THEN 1 ELSE 0 END",
                               "CASE WHEN C.COLUMN_TYPE LIKE '%unsigned%' THEN 1 ELSE 0 END",
                               "CASE WHEN C.CHARACTER_SET_NAME LIKE 'utf8%' THEN 1 ELSE 0 END",
                               "C.TABLE_SCHEMA = DATABASE() AND C.TABLE_NAME = {}"};
// Types of SQL Server that HyperSQL lacks can be made there as domains; the domain's name then tells the type.
constexpr SchemaWords kHyperSql{
    "CASE WHEN C.DOMAIN_NAME IN ('MONEY','SMALLMONEY','SMALLDATETIME') THEN C.DOMAIN_NAME ELSE C.DATA_TYPE END",
    "CASE WHEN C.IS_IDENTITY = 'YES' THEN 1 ELSE 0 END", "1", "1",
    "C.TABLE_SCHEMA = CURRENT_SCHEMA AND C.TABLE_NAME = UPPER({})"};

const SchemaWords* WordsOf(Engine engine)
{
    switch (engine) {
    case Engine::SqlServer: return &kSqlServer;
    case Engine::MariaDb: return &kMariaDb;
    case Engine::HyperSql: return &kHyperSql;
    default: return nullptr;
    }
}

std::string ForTable(std::string_view condition, std::string_view name)
{
    const std::size_t place = condition.find("{}");
    return std::string(condition.substr(0, place)) + Literal(name) + std::string(condition.substr(place + 2));
}

}  // namespace

const TableDef* Connection::FindTable(std::string_view name)
{
    const std::string upper = Upper(name);
    if (const auto known = tables_.find(upper); known != tables_.end()) return known->second.get();
    std::unique_ptr<TableDef> table = ReadTable(name);
    if (!table) return nullptr;  // asked again next time: somebody may make it
    return tables_.emplace(upper, std::move(table)).first->second.get();
}

std::unique_ptr<TableDef> Connection::ReadTable(std::string_view name)
{
    std::unique_ptr<TableDef> table = WordsOf(engine_) != nullptr ? ReadBySchemaViews(name) : ReadByCatalogue(name);
    if (table && table->columns.empty()) table.reset();
    return table;
}

std::unique_ptr<TableDef> Connection::ReadBySchemaViews(std::string_view name)
{
    const SchemaWords& words = *WordsOf(engine_);
    const std::string condition = ForTable(words.ofTable, name);
    auto table = std::make_unique<TableDef>();
    table->name = name;
    for (const std::vector<std::string>& row :
         Rows("SELECT C.COLUMN_NAME," + std::string(words.type) +
              ",C.CHARACTER_MAXIMUM_LENGTH,C.NUMERIC_PRECISION,"
              "CASE WHEN C.NUMERIC_SCALE IS NULL THEN C.DATETIME_PRECISION ELSE C.NUMERIC_SCALE END,C.IS_NULLABLE," +
              std::string(words.identity) + "," + std::string(words.isUnsigned) + "," + std::string(words.unicode) +
              " FROM INFORMATION_SCHEMA.COLUMNS C WHERE " + condition + " ORDER BY C.ORDINAL_POSITION")) {
        TableColumn column;
        column.name = row[0];
        column.info =
            DeclaredType(row[1], Number(row[2]), Number(row[3]), Number(row[4]), row[7] == "1", row[8] == "1");
        column.info.nullable = row[5] != "NO";
        column.info.autoIncrement = row[6] == "1";
        table->columns.push_back(std::move(column));
    }
    if (table->columns.empty()) return table;
    for (const std::vector<std::string>& row :
         Rows("SELECT K.COLUMN_NAME FROM INFORMATION_SCHEMA.TABLE_CONSTRAINTS C INNER JOIN "
              "INFORMATION_SCHEMA.KEY_COLUMN_USAGE K ON K.CONSTRAINT_NAME = C.CONSTRAINT_NAME AND K.TABLE_NAME = "
              "C.TABLE_NAME AND K.TABLE_SCHEMA = C.TABLE_SCHEMA WHERE C.CONSTRAINT_TYPE = 'PRIMARY KEY' AND " +
              condition + " ORDER BY K.ORDINAL_POSITION"))
        table->keys.push_back(row[0]);
    return table;
}

// ODBC's own catalogue functions, for engines without schema views: Oracle, and those not known.
std::unique_ptr<TableDef> Connection::ReadByCatalogue(std::string_view name)
{
    SQLUSMALLINT spelling = SQL_IC_UPPER;
    SQLGetInfoW(handle_.Get(), SQL_IDENTIFIER_CASE, &spelling, sizeof(spelling), nullptr);
    std::vector<SQLWCHAR> wide = ToWide(spelling == SQL_IC_UPPER ? Upper(name) : std::string(name));
    const auto length = static_cast<SQLSMALLINT>(wide.size() - 1);
    const auto text = [](const StatementHandle& statement, SQLUSMALLINT column) {
        SQLWCHAR value[256];
        SQLLEN size = 0;
        if (!SQL_SUCCEEDED(SQLGetData(statement.Get(), column, SQL_C_WCHAR, value, sizeof(value), &size)) || size < 0)
            return std::string();
        return FromWide(value, static_cast<std::size_t>(size) / sizeof(SQLWCHAR));
    };
    auto table = std::make_unique<TableDef>();
    table->name = name;
    {
        const StatementHandle columns = NewStatement();
        if (!SQL_SUCCEEDED(SQLColumnsW(columns.Get(), nullptr, 0, nullptr, 0, wide.data(), length, nullptr, 0)))
            return nullptr;
        while (SQL_SUCCEEDED(SQLFetch(columns.Get()))) {
            TableColumn column;
            column.name = text(columns, 4);
            DriverColumn told;
            told.type = static_cast<SQLSMALLINT>(Number(text(columns, 5)));
            told.typeName = text(columns, 6);
            told.size = static_cast<SQLULEN>(std::max<std::int64_t>(Number(text(columns, 7)), 0));
            told.digits = static_cast<SQLSMALLINT>(std::max<std::int64_t>(Number(text(columns, 9)), 0));
            told.nullable = text(columns, 11) != "0";
            column.info = InfoOf(told);
            if (table->Find(column.name) != nullptr) break;  // a second schema's table of that name
            table->columns.push_back(std::move(column));
        }
    }
    const StatementHandle keys = NewStatement();
    if (SQL_SUCCEEDED(SQLPrimaryKeysW(keys.Get(), nullptr, 0, nullptr, 0, wide.data(), length)))
        while (SQL_SUCCEEDED(SQLFetch(keys.Get())))
            table->keys.push_back(text(keys, 4));
    return table;
}

std::vector<std::vector<std::string>> Connection::Rows(std::string_view text)
{
    StatementHandle statement = NewStatement();
    SendText(statement, text);
    SQLSMALLINT count = 0;
    Check(statement, SQLNumResultCols(statement.Get(), &count));
    const std::vector<DriverColumn> columns = DescribeByDriver(*this, statement, count);
    std::vector<ado::ColumnInfo> infos;
    infos.reserve(columns.size());
    for (const DriverColumn& column : columns)
        infos.push_back(InfoOf(column));
    const std::size_t visible = columns.size();
    RowStatement rows(*this, std::move(statement), columns, std::move(infos), visible, {});
    std::vector<std::vector<std::string>> result;
    while (rows.Step()) {
        std::vector<std::string>& row = result.emplace_back();
        for (std::size_t column = 0; column < visible; ++column) {
            const ado::Cell cell = rows.At(column);
            if (cell.kind == ado::Cell::Kind::Integer)
                row.push_back(std::to_string(cell.integer));
            else if (cell.kind == ado::Cell::Kind::Real)
                row.push_back(std::to_string(static_cast<std::int64_t>(cell.real)));
            else
                row.emplace_back(cell.text);
        }
    }
    return result;
}

}  // namespace kvx::adapters::odbc
