#include "adapters/sqlite/Connection.h"
#include "adapters/sqlite/Collation.h"
#include "adapters/sqlite/Dates.h"
#include "adapters/sqlite/Errors.h"
#include "ado/Constants.h"
#include "basic/Convert.h"

#include <cmath>
#include <sqlite3.h>

namespace kvx::adapters::sqlite {
namespace {

using Kind = ado::Cell::Kind;

/// A value on its way from a field, with the digits of a decimal as they are.
struct FieldValue {
    Value value;
    std::string written;
};

std::string DecimalText(basic::Decimal decimal)
{
    std::string digits = std::to_string(decimal.units);
    if (decimal.scale == 0) return digits;
    const std::size_t sign = digits.front() == '-' ? 1 : 0;
    while (digits.size() - sign <= decimal.scale)
        digits.insert(sign, 1, '0');
    digits.insert(digits.size() - decimal.scale, 1, '.');
    return digits;
}

void SetInteger(FieldValue& field, std::int64_t integer)
{
    field.value.kind = Kind::Integer;
    field.value.integer = integer;
}

void SetReal(FieldValue& field, double real)
{
    field.value.kind = Kind::Real;
    field.value.real = real;
}

void SetDecimal(FieldValue& field, basic::Decimal decimal)
{
    field.written = DecimalText(decimal);
    SetReal(field, static_cast<double>(decimal.units) / std::pow(10.0, decimal.scale));
    if (decimal.scale == 0) SetInteger(field, decimal.units);
}

FieldValue ToFieldValue(const basic::Variant& variant)
{
    FieldValue field;
    using basic::VarType;
    switch (variant.Type()) {
    case VarType::Boolean: SetInteger(field, *variant.As<bool>() ? 1 : 0); break;
    case VarType::Byte: SetInteger(field, *variant.As<std::uint8_t>()); break;
    case VarType::Integer: SetInteger(field, *variant.As<std::int16_t>()); break;
    case VarType::Long: SetInteger(field, *variant.As<std::int32_t>()); break;
    case VarType::Single: SetReal(field, static_cast<double>(*variant.As<float>())); break;
    case VarType::Double: SetReal(field, *variant.As<double>()); break;
    case VarType::Currency: SetDecimal(field, {variant.As<basic::Currency>()->tenThousandths, 4}); break;
    case VarType::Decimal: SetDecimal(field, *variant.As<basic::Decimal>()); break;
    case VarType::Date: {
        const basic::DateParts parts = basic::PartsOf(*variant.As<basic::Date>());
        field.value.kind = Kind::Text;
        field.value.text = IsoText({DaysOf({parts.year, parts.month, parts.day}),
                                    ((parts.hour * 60 + parts.minute) * 60 + parts.second) * 1000});
        break;
    }
    case VarType::String:
        field.value.kind = Kind::Text;
        field.value.text = *variant.As<std::string>();
        break;
    case VarType::Empty:
    case VarType::Null: break;
    default: throw MakeError(ado::kErrMultiStep, "A value of this kind can't be written.");
    }
    return field;
}

Value ToColumn(const basic::Variant& variant, const TableColumn& column)
{
    FieldValue field = ToFieldValue(variant);
    const bool number = field.value.kind != Kind::Text;
    if (field.value.kind == Kind::Text && field.value.text.empty() && !column.type.IsText())
        throw MakeError(ado::kErrMultiStep, "An empty text is no value of column " + column.name + ".");
    try {
        ConvertForColumn(field.value, number ? std::string_view(field.written) : std::string_view(), column.type,
                         column.name);
    } catch (const basic::Error& error) {
        throw MakeError(ado::kErrMultiStep, error.Description);
    }
    return std::move(field.value);
}

Value ReadValue(sqlite3_stmt* statement, int column)
{
    Value value;
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL: break;
    case SQLITE_INTEGER:
        value.kind = Kind::Integer;
        value.integer = sqlite3_column_int64(statement, column);
        break;
    case SQLITE_FLOAT:
        value.kind = Kind::Real;
        value.real = sqlite3_column_double(statement, column);
        break;
    default:
        value.kind = Kind::Text;
        value.text.assign(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                          static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
        break;
    }
    return value;
}

double NumberOf(const Value& value)
{
    return value.kind == Kind::Integer ? static_cast<double>(value.integer) : value.real;
}

// A field shows a value in the precision of its type; two values that show the same are the same.
bool SameForField(const Value& stored, const Value& seen, const DeclaredType& type)
{
    if (stored.kind == Kind::Null || seen.kind == Kind::Null) return stored.kind == seen.kind;
    if (stored.kind == Kind::Text || seen.kind == Kind::Text) {
        if (stored.kind != seen.kind) return false;
        return type.IsDate() ? CompareDates(stored.text, seen.text) == 0 : stored.text == seen.text;
    }
    const double a = NumberOf(stored), b = NumberOf(seen);
    switch (type.type) {
    case ado::adBoolean: return (a != 0) == (b != 0);
    case ado::adSingle: return static_cast<float>(a) == static_cast<float>(b);
    case ado::adNumeric:
    case ado::adCurrency: {
        const double unit = std::pow(10.0, type.type == ado::adCurrency ? 4 : type.scale);
        return std::round(a * unit) == std::round(b * unit);
    }
    default:
        return stored.kind == Kind::Integer && seen.kind == Kind::Integer ? stored.integer == seen.integer : a == b;
    }
}

void BindValue(sqlite3* database, sqlite3_stmt* statement, int index, const Value& value)
{
    int result = SQLITE_OK;
    switch (value.kind) {
    case Kind::Null: result = sqlite3_bind_null(statement, index); break;
    case Kind::Integer: result = sqlite3_bind_int64(statement, index, value.integer); break;
    case Kind::Real: result = sqlite3_bind_double(statement, index, value.real); break;
    case Kind::Text:
        result = sqlite3_bind_text(statement, index, value.text.data(), static_cast<int>(value.text.size()),
                                   SQLITE_TRANSIENT);
        break;
    }
    Check(database, result);
}

[[noreturn]] void RaiseRowChanged()
{
    throw MakeError(ado::kErrRowChanged, "Row cannot be located for updating. Some values may have been changed since "
                                         "it was last read.");
}

}  // namespace

basic::Variant Connection::WriteRow(const ado::RowChange& change)
{
    const TableDef* table = FindTable(change.table);
    if (table == nullptr) throw MakeError(ado::kErrNoSuchTable, "no such table: " + change.table);
    std::vector<const TableColumn*> columns;
    std::vector<Value> values;
    std::vector<basic::Variant> oldValues;
    for (std::size_t i = 0; i < change.columns.size(); ++i) {
        if (!change.rowKey && change.values[i].IsEmpty()) continue;  // left to the database
        const TableColumn* column = table->Find(change.columns[i]);
        if (column == nullptr) throw MakeError(ado::kErrStatement, "no such column: " + change.columns[i]);
        columns.push_back(column);
        values.push_back(ToColumn(change.values[i], *column));
        if (i < change.oldValues.size()) oldValues.push_back(change.oldValues[i]);
    }
    FinishReads();
    OwnTransaction transaction(*this);
    const std::string name = Bracketed(table->name);
    if (!change.rowKey) {
        std::string list, places;
        for (const TableColumn* column : columns) {
            list += (list.empty() ? "" : ",") + Bracketed(column->name);
            places += places.empty() ? "?" : ",?";
        }
        const std::string sql =
            "INSERT INTO " + name + (list.empty() ? " DEFAULT VALUES" : " (" + list + ") VALUES (" + places + ")");
        const StatementPtr insert = Prepare(database_.get(), sql, false);
        for (std::size_t i = 0; i < values.size(); ++i)
            BindValue(database_.get(), insert.get(), static_cast<int>(i) + 1, values[i]);
        Check(database_.get(), sqlite3_step(insert.get()));
        const std::int64_t key = sqlite3_last_insert_rowid(database_.get());
        sqlite3_reset(insert.get());
        transaction.Commit();
        return basic::Decimal{key, 0};
    }
    const auto* key = change.rowKey->As<basic::Decimal>();
    if (key == nullptr) throw MakeError(ado::kErrMultiStep, "The key is none of this provider.");
    if (columns.empty()) return *change.rowKey;
    std::string assignments, list;
    for (const TableColumn* column : columns) {
        assignments += (assignments.empty() ? "" : ",") + Bracketed(column->name) + "=?";
        list += (list.empty() ? "" : ",") + Bracketed(column->name);
    }
    const StatementPtr current = Prepare(database_.get(), "SELECT " + list + " FROM " + name + " WHERE rowid=?", false);
    Check(database_.get(), sqlite3_bind_int64(current.get(), 1, key->units));
    const int found = sqlite3_step(current.get());
    Check(database_.get(), found);
    if (found != SQLITE_ROW) RaiseRowChanged();
    for (std::size_t i = 0; i < oldValues.size(); ++i) {
        if (oldValues[i].IsEmpty()) continue;
        const Value stored = ReadValue(current.get(), static_cast<int>(i));
        if (!SameForField(stored, ToFieldValue(oldValues[i]).value, columns[i]->type)) RaiseRowChanged();
    }
    sqlite3_reset(current.get());
    const StatementPtr update =
        Prepare(database_.get(), "UPDATE " + name + " SET " + assignments + " WHERE rowid=?", false);
    for (std::size_t i = 0; i < values.size(); ++i)
        BindValue(database_.get(), update.get(), static_cast<int>(i) + 1, values[i]);
    Check(database_.get(), sqlite3_bind_int64(update.get(), static_cast<int>(values.size()) + 1, key->units));
    Check(database_.get(), sqlite3_step(update.get()));
    sqlite3_reset(update.get());
    transaction.Commit();
    return *change.rowKey;
}

}  // namespace kvx::adapters::sqlite
