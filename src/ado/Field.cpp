#include "ado/Field.h"

#include "ado/Cursor.h"
#include "ado/Errors.h"
#include "ado/Numbers.h"
#include "basic/Convert.h"
#include "basic/Object.h"

namespace kvx::ado {

const std::string& Field::Name() const
{
    return cursor_->Column(column_).name;
}

DataTypeEnum Field::Type() const
{
    return cursor_->Column(column_).type;
}

std::int32_t Field::DefinedSize() const
{
    return cursor_->Column(column_).definedSize;
}

std::uint8_t Field::Precision() const
{
    return cursor_->Column(column_).precision;
}

std::uint8_t Field::NumericScale() const
{
    return cursor_->Column(column_).scale;
}

basic::Variant Field::Value() const
{
    return cursor_->Value(column_);
}

void Field::SetValue(const basic::Variant& value)
{
    cursor_->SetValue(column_, value);
}

basic::Variant Field::Properties(std::string_view name) const
{
    const ColumnInfo& info = cursor_->Column(column_);
    const auto orNull = [](const std::optional<std::string>& text) {
        return text ? basic::Variant(*text) : basic::Variant(basic::Null{});
    };
    if (basic::SameName(name, "BASETABLENAME")) return orNull(info.baseTable);
    if (basic::SameName(name, "BASECOLUMNNAME")) return orNull(info.baseColumn);
    RaiseAdo(kErrItemNotFound, "ADODB.Field");
}

bool Field::IsNull() const
{
    return cursor_->Current(column_).kind == Cell::Kind::Null;
}

std::string_view Field::TextView() const
{
    const Cell cell = cursor_->Current(column_);
    switch (cell.kind) {
    case Cell::Kind::Text: return cell.text;
    case Cell::Kind::Integer: return Digits(cell.integer);
    case Cell::Kind::Real: return Digits(cell.real);
    case Cell::Kind::Null: break;
    }
    return {};
}

std::int64_t Field::Int64() const
{
    const Cell cell = cursor_->Current(column_);
    switch (cell.kind) {
    case Cell::Kind::Text: return LeadingInteger(cell.text);
    case Cell::Kind::Integer: return cell.integer;
    case Cell::Kind::Real: return IntegerOf(cell.real);
    case Cell::Kind::Null: break;
    }
    return 0;
}

double Field::Double() const
{
    const Cell cell = cursor_->Current(column_);
    switch (cell.kind) {
    case Cell::Kind::Text: return LeadingDouble(cell.text);
    case Cell::Kind::Integer: return static_cast<double>(cell.integer);
    case Cell::Kind::Real: return cell.real;
    case Cell::Kind::Null: break;
    }
    return 0;
}

std::int32_t Fields::Count() const
{
    return static_cast<std::int32_t>(cursor_->Columns());
}

Field Fields::operator[](std::string_view name) const
{
    return {cursor_, cursor_->ColumnIndex(name)};
}

Field Fields::At(std::int64_t index) const
{
    return {cursor_, cursor_->ColumnIndex(index)};
}

Field Fields::Item(const basic::Variant& nameOrIndex) const
{
    if (const std::string* name = nameOrIndex.As<std::string>()) return (*this)[*name];
    return At(basic::CLng(nameOrIndex));
}

bool Fields::Has(std::string_view name) const
{
    return cursor_->FindColumn(name).has_value();
}

} // namespace kvx::ado
