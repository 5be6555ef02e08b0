#pragma once

#include "ado/Constants.h"
#include "ado/Driver.h"

#include <cstdint>
#include <string>
#include <string_view>

// SQLite stores any value in any column. What a column is declared as decides here how a field is described and what
// may be written into it.
namespace kvx::adapters::sqlite {

/// A column's type as SQL Server's provider would describe it.
struct DeclaredType {
    ado::DataTypeEnum type = ado::adVarWChar;
    std::int32_t definedSize = 0;  ///< characters for text, bytes for the rest
    std::uint8_t precision = 255;
    std::uint8_t scale = 255;

    bool IsText() const;
    bool IsWide() const { return type == ado::adVarWChar || type == ado::adLongVarWChar || type == ado::adWChar; }
    bool IsWhole() const;  ///< tinyint, smallint, int, bigint
    bool IsDate() const { return type == ado::adDBTimeStamp; }
    bool operator==(const DeclaredType&) const = default;
};

/// Reads "nvarchar(25)", "numeric(8,2)", "INT", "smalldatetime text" ...; an unknown name is a text of any length.
DeclaredType ParseDeclaredType(std::string_view declared);

DeclaredType IntType();
DeclaredType TextType(std::size_t characters, bool wide);
DeclaredType NumericType(int precision, int scale);
DeclaredType DateTimeType();

/// A value on its way into a statement; the text is a view of the caller's.
struct Value {
    ado::Cell::Kind kind = ado::Cell::Kind::Null;
    std::int64_t integer = 0;
    double real = 0;
    std::string text;
};

/// A number as it is written in a statement: digits, perhaps a point, no exponent.
/// @return false when it has an exponent or more digits than are kept exactly
bool ReadNumberLiteral(std::string_view digits, Value& value);

/// Makes of a value what SQL Server stores when it is assigned to a column: 1 or 0 for bit, rounded to the scale for
/// numeric, cut to a whole number for int, one spelling for dates.
/// @param written  the number as it was written, for exact rounding; empty when there is no such text
/// @throws basic::Error 80040E07: no value of that type; 80040E57: too large, too long
void ConvertForColumn(Value& value, std::string_view written, const DeclaredType& type, std::string_view column);

/// Characters of a UTF-8 text.
std::size_t CountCharacters(std::string_view text);

}  // namespace kvx::adapters::sqlite
