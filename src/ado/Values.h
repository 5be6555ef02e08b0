#pragma once

#include "ado/Driver.h"
#include "basic/Variant.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// How an engine's cells become typed values and back.
namespace kvx::ado {

bool IsTextType(DataTypeEnum type);
bool IsDateType(DataTypeEnum type);
bool IsNumberType(DataTypeEnum type); ///< bit counts as a number

/// The value of a cell in the kind that belongs to the column's type. A stored value that does not fit the type comes
/// as it is stored: an engine with loose types must not make a look-up fail.
basic::Variant ToVariant(const ColumnInfo& column, const Cell& cell);

/// The value as the column takes it: converted to its kind, rounded to its scale; Null stays Null.
/// @throws basic::Error 3421: wrong kind; -2147217887: too long, too large, Null where none may be
basic::Variant ToColumnValue(const ColumnInfo& column, const basic::Variant& value);

/// A value that outlives its row: a cell that owns its text. Empty stands for a field nobody assigned.
struct OwnedCell {
    bool assigned = false;
    Cell::Kind kind = Cell::Kind::Null;
    std::int64_t integer = 0;
    double real = 0;
    std::string text;

    Cell View() const { return {kind, integer, real, text}; }
};
OwnedCell ToOwnedCell(const basic::Variant& value);
OwnedCell ToOwnedCell(const Cell& cell);

/// A row's key for RowChange: Decimal of scale 0 or String; nothing for NULL.
std::optional<basic::Variant> ToRowKey(const Cell& cell);

/// Reads yyyy-mm-dd, dd.mm.yyyy and yyyymmdd, each also with a time (hh:mm, hh:mm:ss, fractions of a second), and a
/// time alone. Nothing when it is none of these or no such day exists.
std::optional<basic::Date> ParseDate(std::string_view text);

/// Reads digits with a decimal point, a sign in front, at most 18 digits.
std::optional<basic::Decimal> ParseDecimal(std::string_view text);
/// Reads a whole text as a number with a decimal point.
std::optional<double> ParseDouble(std::string_view text);

/// The value as it would stand in a statement: 'text', 12.5, '20240201', NULL. For the trace.
std::string SqlLiteral(const basic::Variant& value);

std::string DecimalText(basic::Decimal value); ///< decimal point, as many decimals as the scale

} // namespace kvx::ado
