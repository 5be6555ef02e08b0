#include "adapters/odbc/Connection.h"
#include "adapters/odbc/Describe.h"
#include "adapters/odbc/RowStatement.h"
#include "ado/Constants.h"
#include "ado/Values.h"
#include "basic/Convert.h"
#include "basic/Object.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <deque>

namespace kvx::adapters::odbc {
namespace {

// Values of a statement's question marks. They stay where they are until it has run.
class Parameters {
public:
    Parameters(Connection& connection, const StatementHandle& statement)
        : connection_(connection), statement_(statement)
    {
    }

    /// @return what stands for the value in the text
    std::string Add(const basic::Variant& value, const ado::ColumnInfo& column)
    {
        // PostgreSQL's driver writes the values into the text itself, with casts in that engine's words.
        if (connection_.Kind() == Engine::HyperSql) return Literal(value);
        connection_.Check(statement_, Bind(value, column));
        return "?";
    }

private:
    SQLRETURN Bind(const basic::Variant& value, const ado::ColumnInfo& column)
    {
        Place& place = places_.emplace_back();
        using basic::VarType;
        switch (value.Type()) {
        case VarType::Empty:
        case VarType::Null: {
            place.length = SQL_NULL_DATA;
            SQLSMALLINT type = SQL_WVARCHAR;
            if (ado::IsDateType(column.type)) type = SQL_TYPE_TIMESTAMP;
            if (ado::IsNumberType(column.type)) type = SQL_INTEGER;
            return BindPlace(place, SQL_C_CHAR, type, type == SQL_TYPE_TIMESTAMP ? 19 : 1, 0, nullptr, 0);
        }
        case VarType::Boolean: return AddWhole(place, *value.As<bool>() ? 1 : 0);
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long: return AddWhole(place, basic::CLng(value));
        case VarType::Single:
        case VarType::Double:
            place.real = basic::CDbl(value);
            return BindPlace(place, SQL_C_DOUBLE, SQL_DOUBLE, 15, 0, &place.real, sizeof(place.real));
        case VarType::Currency:
            return AddDecimal(place, basic::Decimal{value.As<basic::Currency>()->tenThousandths, 4});
        case VarType::Decimal: return AddDecimal(place, *value.As<basic::Decimal>());
        case VarType::Date: {
            const basic::DateParts parts = basic::PartsOf(*value.As<basic::Date>());
            place.stamp = {static_cast<SQLSMALLINT>(parts.year),
                           static_cast<SQLUSMALLINT>(parts.month),
                           static_cast<SQLUSMALLINT>(parts.day),
                           static_cast<SQLUSMALLINT>(parts.hour),
                           static_cast<SQLUSMALLINT>(parts.minute),
                           static_cast<SQLUSMALLINT>(parts.second),
                           0};
            return BindPlace(place, SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, 19, 0, &place.stamp, sizeof(place.stamp));
        }
        default: {
            place.wide = ToWide(basic::CStr(value));
            place.length = static_cast<SQLLEN>((place.wide.size() - 1) * sizeof(SQLWCHAR));
            const bool isLong = column.type == ado::adLongVarWChar || column.type == ado::adLongVarChar;
            return BindPlace(place, SQL_C_WCHAR, isLong ? SQL_WLONGVARCHAR : SQL_WVARCHAR,
                             std::max<SQLULEN>(place.wide.size() - 1, 1), 0, place.wide.data(), place.length);
        }
        }
    }

    static std::string Literal(const basic::Variant& value)
    {
        const auto* date = value.As<basic::Date>();
        if (date == nullptr) return ado::SqlLiteral(value);
        const basic::DateParts parts = basic::PartsOf(*date);
        std::array<char, 64> text{};
        std::snprintf(text.data(), text.size(), "TIMESTAMP '%04d-%02d-%02d %02d:%02d:%02d'", parts.year, parts.month,
                      parts.day, parts.hour, parts.minute, parts.second);
        return text.data();
    }

    struct Place {
        SQLLEN length = 0;
        SQLINTEGER whole = 0;
        double real = 0;
        SQL_TIMESTAMP_STRUCT stamp{};
        std::string text;
        std::vector<SQLWCHAR> wide;
    };

    SQLRETURN AddWhole(Place& place, std::int32_t value)
    {
        place.whole = value;
        return BindPlace(place, SQL_C_SLONG, SQL_INTEGER, 10, 0, &place.whole, sizeof(place.whole));
    }
    SQLRETURN AddDecimal(Place& place, basic::Decimal value)
    {
        place.text = ado::DecimalText(value);
        place.length = static_cast<SQLLEN>(place.text.size());
        return BindPlace(place, SQL_C_CHAR, SQL_DECIMAL, 19, value.scale, place.text.data(), place.length);
    }
    SQLRETURN BindPlace(Place& place, SQLSMALLINT cType, SQLSMALLINT type, SQLULEN size, SQLSMALLINT digits,
                        SQLPOINTER value, SQLLEN bytes)
    {
        if (place.length == 0) place.length = bytes;
        return SQLBindParameter(statement_.Get(), static_cast<SQLUSMALLINT>(places_.size()), SQL_PARAM_INPUT, cType,
                                type, size, digits, value, bytes, &place.length);
    }

    Connection& connection_;
    const StatementHandle& statement_;
    std::deque<Place> places_;
};

ado::ColumnInfo IntegerInfo()
{
    ado::ColumnInfo info;
    info.type = ado::adInteger;
    return info;
}

[[noreturn]] void RaiseRowChanged()
{
    throw MakeError(ado::kErrRowChanged, "Row cannot be located for updating. Some values may have been changed since "
                                         "it was last read.");
}

// The columns of a key with the values that the row's key text stands for.
std::vector<basic::Variant> KeyValues(const basic::Variant& rowKey, std::size_t count)
{
    if (count == 1) return {rowKey};
    std::vector<basic::Variant> values;
    const std::string text = basic::CStr(rowKey);
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(kKeySeparator, begin), text.size());
        values.emplace_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    if (values.size() != count) throw MakeError(ado::kErrMultiStep, "The key is none of this table.");
    return values;
}

bool SameStored(const basic::Variant& stored, const basic::Variant& old)
{
    if (stored.IsNull() || old.IsNull()) return stored.IsNull() == old.IsNull();
    return basic::SameValue(stored, old);
}

}  // namespace

OwnTransaction::OwnTransaction(SQLHDBC connection, bool insideAnother) : connection_(connection)
{
    if (insideAnother) return;
    open_ = SQL_SUCCEEDED(
        SQLSetConnectAttrW(connection_, SQL_ATTR_AUTOCOMMIT, NumberValue(SQL_AUTOCOMMIT_OFF), SQL_IS_UINTEGER));
}

OwnTransaction::~OwnTransaction()
{
    if (!open_) return;
    SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK);
    SQLSetConnectAttrW(connection_, SQL_ATTR_AUTOCOMMIT, NumberValue(SQL_AUTOCOMMIT_ON), SQL_IS_UINTEGER);
}

bool OwnTransaction::Commit()
{
    if (!open_) return true;
    if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_COMMIT))) return false;
    open_ = false;
    SQLSetConnectAttrW(connection_, SQL_ATTR_AUTOCOMMIT, NumberValue(SQL_AUTOCOMMIT_ON), SQL_IS_UINTEGER);
    return true;
}

// Names of the schema are plain; quotes are for the words that the engine keeps for itself. A quoted name must be
// spelled as the engine stores it, which folds plain names to capitals on Oracle and HyperSQL.
std::string Connection::QuotedName(std::string_view name) const
{
    const bool folds = engine_ == Engine::Oracle || engine_ == Engine::HyperSql;
    std::string text = quote_;
    for (const char character : folds ? Upper(name) : std::string(name)) {
        text += character;
        if (quote_.size() == 1 && character == quote_.front()) text += character;
    }
    return text + (quote_ == "[" ? "]" : quote_);
}

basic::Variant Connection::WriteRow(const ado::RowChange& change)
{
    RequireAlive();
    const TableDef* table = FindTable(change.table);
    if (table == nullptr) throw MakeError(ado::kErrNoSuchTable, "no such table: " + change.table);
    return change.rowKey ? UpdateRow(change, *table) : InsertRow(change, *table);
}

basic::Variant Connection::InsertRow(const ado::RowChange& change, const TableDef& table)
{
    StatementHandle statement = NewStatement();
    Parameters parameters(*this, statement);
    std::string columns, places;
    bool identityGiven = false;
    for (std::size_t index = 0; index < change.columns.size(); ++index) {
        if (change.values[index].IsEmpty()) continue;  // left to the database
        const TableColumn* column = table.Find(change.columns[index]);
        if (column == nullptr) throw MakeError(ado::kErrStatement, "no such column: " + change.columns[index]);
        columns += (columns.empty() ? "" : ",") + QuotedName(column->name);
        identityGiven = identityGiven || column->info.autoIncrement;
        places += (places.empty() ? "" : ",") + parameters.Add(change.values[index], column->info);
    }
    std::string text = "INSERT INTO " + QuotedName(table.name);
    if (!columns.empty())
        text += " (" + columns + ") VALUES (" + places + ")";
    else
        text += engine_ == Engine::MariaDb ? " () VALUES ()" : " DEFAULT VALUES";
    OwnTransaction transaction(handle_.Get(), inTransaction_);
    SendText(statement, text);
    statement.Reset();
    std::optional<std::int64_t> identity;
    const bool counts =
        std::ranges::any_of(table.columns, [](const TableColumn& column) { return column.info.autoIncrement; });
    if (counts && !identityGiven) identity = LastIdentity();
    if (!transaction.Commit()) throw MakeError(engine_, Diagnose(SQL_HANDLE_DBC, handle_.Get()));
    // The key of the new row: what was given, or what the engine counted.
    std::string key;
    for (const std::string& name : table.keys) {
        std::optional<basic::Variant> value;
        for (std::size_t index = 0; index < change.columns.size(); ++index)
            if (basic::SameName(change.columns[index], name) && !change.values[index].IsEmpty())
                value = change.values[index];
        if (!value && identity && table.Find(name) != nullptr && table.Find(name)->info.autoIncrement)
            value = basic::Decimal{*identity, 0};
        if (!value) return {};
        if (table.keys.size() == 1) return *value;
        if (!key.empty()) key += kKeySeparator;
        key += basic::CStr(*value);
    }
    if (key.empty()) return {};
    return key;
}

std::optional<std::int64_t> Connection::LastIdentity()
{
    const char* text = nullptr;
    switch (engine_) {
    case Engine::SqlServer: text = "SELECT CAST(@@IDENTITY AS numeric(18,0))"; break;
    case Engine::MariaDb: text = "SELECT LAST_INSERT_ID()"; break;
    case Engine::HyperSql: text = "SELECT IDENTITY() FROM (VALUES(0))"; break;
    default: return {};
    }
    const std::vector<std::vector<std::string>> rows = Rows(text);
    if (rows.empty() || rows.front().front().empty()) return {};
    return basic::CLng(basic::Variant(rows.front().front()));
}

basic::Variant Connection::UpdateRow(const ado::RowChange& change, const TableDef& table)
{
    if (table.keys.empty()) throw MakeError(ado::kErrMultiStep, "The table has no key: " + table.name);
    const std::vector<basic::Variant> keys = KeyValues(*change.rowKey, table.keys.size());
    std::string list;
    std::vector<const TableColumn*> columns;
    for (const std::string& name : change.columns) {
        const TableColumn* column = table.Find(name);
        if (column == nullptr) throw MakeError(ado::kErrStatement, "no such column: " + name);
        columns.push_back(column);
        list += (list.empty() ? "" : ",") + QuotedName(column->name);
    }
    const auto keyCondition = [&](Parameters& parameters) {
        std::string where;
        for (std::size_t index = 0; index < keys.size(); ++index) {
            const auto* whole = keys[index].As<basic::Decimal>();
            const bool isSmall = whole != nullptr && whole->scale == 0 && std::abs(whole->units) <= 0x7FFFFFFF;
            where += (where.empty() ? " WHERE " : " AND ") + QuotedName(table.keys[index]) + "=" +
                     (isSmall ? parameters.Add(static_cast<std::int32_t>(whole->units), IntegerInfo())
                              : parameters.Add(keys[index], table.Find(table.keys[index])->info));
        }
        return where;
    };
    OwnTransaction transaction(handle_.Get(), inTransaction_);
    {
        // The row is held until it is written, so that nobody comes between the look and the change.
        StatementHandle look = NewStatement();
        Parameters parameters(*this, look);
        const bool hint = engine_ == Engine::SqlServer;
        const bool forUpdate = engine_ == Engine::MariaDb || engine_ == Engine::Oracle;
        SendText(look, "SELECT " + list + " FROM " + QuotedName(table.name) + (hint ? " WITH (UPDLOCK)" : "") +
                           keyCondition(parameters) + (forUpdate ? " FOR UPDATE" : ""));
        const std::vector<DriverColumn> told = DescribeByDriver(*this, look, static_cast<SQLSMALLINT>(columns.size()));
        std::vector<ado::ColumnInfo> infos;
        infos.reserve(columns.size());
        for (const TableColumn* column : columns)
            infos.push_back(column->info);
        RowStatement current(*this, std::move(look), told, std::move(infos), columns.size(), {});
        if (!current.Step()) RaiseRowChanged();
        for (std::size_t index = 0; index < change.oldValues.size() && index < columns.size(); ++index) {
            if (change.oldValues[index].IsEmpty()) continue;
            if (!SameStored(ado::ToVariant(columns[index]->info, current.At(index)), change.oldValues[index]))
                RaiseRowChanged();
        }
    }
    StatementHandle update = NewStatement();
    Parameters parameters(*this, update);
    std::string text;
    for (std::size_t index = 0; index < columns.size(); ++index)
        text += (text.empty() ? "UPDATE " + QuotedName(table.name) + " SET " : ",") + QuotedName(columns[index]->name) +
                "=" + parameters.Add(change.values[index], columns[index]->info);
    text += keyCondition(parameters);
    SendText(update, text);
    update.Reset();
    if (!transaction.Commit()) throw MakeError(engine_, Diagnose(SQL_HANDLE_DBC, handle_.Get()));
    // A key that was written is the row's key from now on.
    std::string key;
    for (std::size_t index = 0; index < table.keys.size(); ++index) {
        basic::Variant value = keys[index];
        for (std::size_t written = 0; written < columns.size(); ++written)
            if (basic::SameName(columns[written]->name, table.keys[index])) value = change.values[written];
        if (table.keys.size() == 1) return value;
        if (index > 0) key += kKeySeparator;
        key += basic::CStr(value);
    }
    return key;
}

}  // namespace kvx::adapters::odbc
