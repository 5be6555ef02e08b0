#pragma once

#include "ado/Driver.h"
#include "basic/Variant.h"

#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace kvx::ado {

class Cursor;

/// One column of a recordset. It follows the recordset: its value is always that of the current row.
/// Take it once in front of a loop, not once a row. What describes the column can be read without any row.
class Field {
public:
    Field(std::shared_ptr<Cursor> cursor, std::size_t column) : cursor_(std::move(cursor)), column_(column) {}

    const std::string& Name() const; ///< alias or column name; empty for an expression without one
    DataTypeEnum Type() const;
    std::int32_t DefinedSize() const;  ///< characters for text, bytes for the rest
    std::uint8_t Precision() const;    ///< 255 = does not apply
    std::uint8_t NumericScale() const; ///< 255 = does not apply

    /// The value of the current row in the kind that belongs to the column's type: int Long, smallint Integer,
    /// tinyint Byte, bigint Decimal, bit Boolean, numeric Decimal, money Currency, any date Date, text String.
    /// NULL is Null; a field of a new row that nobody assigned is Empty. A stored value that does not fit its column's
    /// type comes as it is stored.
    /// @throws basic::Error 3021: no current row; 3704: closed
    basic::Variant Value() const;

    /// Assigns a field of the current row and starts editing it; Update writes it. Text with a decimal point is read
    /// as a number whatever the machine's language.
    /// @throws basic::Error 3251: read-only recordset; 3421: value of a wrong kind ('' for a number or date too);
    ///         -2147217887: too long, too large, Null where none may be, or a computed column; 3021, 3704 as Value
    void SetValue(const basic::Variant& value);

    /// "BASETABLENAME" or "BASECOLUMNNAME": where the column really comes from, whatever its alias; Null for anything
    /// computed. @throws basic::Error 3265: any other name
    basic::Variant Properties(std::string_view name) const;

    // The value of the current row without a copy and without a Variant, for long reads. They throw as Value does.
    bool IsNull() const;
    std::string_view TextView() const; ///< good until the next move; NULL is empty; a number gives its digits
    std::int64_t Int64() const;        ///< NULL is 0; a text gives the whole number it starts with
    double Double() const;             ///< NULL is 0; a text gives the number it starts with (decimal point)

    basic::ObjectRef AsObject() const; ///< for late binding; the default property is Value

private:
    std::shared_ptr<Cursor> cursor_;
    std::size_t column_;
};

/// The columns of a recordset, in the order of the statement.
class Fields {
public:
    explicit Fields(std::shared_ptr<Cursor> cursor) : cursor_(std::move(cursor)) {}

    std::int32_t Count() const; ///< 0 when the recordset is closed

    /// Case is ignored; of two columns of one name the first. @throws basic::Error 3265: none; 3704: closed
    Field operator[](std::string_view name) const;
    /// From 0. @throws basic::Error 3265: none; 3704: closed
    Field operator[](std::integral auto index) const { return At(static_cast<std::int64_t>(index)); }
    /// By name or index as late binding gives it.
    Field Item(const basic::Variant& nameOrIndex) const;
    /// True when there is such a column; raises nothing.
    bool Has(std::string_view name) const;

    basic::ObjectRef AsObject() const; ///< for late binding; the default property is Item

private:
    Field At(std::int64_t index) const;

    std::shared_ptr<Cursor> cursor_;
};

} // namespace kvx::ado
