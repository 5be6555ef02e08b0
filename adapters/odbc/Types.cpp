#include "adapters/odbc/Types.h"

#include "adapters/odbc/Select.h"
#include "ado/Constants.h"
#include "basic/Object.h"

#include <algorithm>
#include <limits>
#include <sqlext.h>
#include <sqlucode.h>

namespace kvx::adapters::odbc {
namespace {

using namespace ado;

constexpr std::int32_t kLongWide = 1073741823;  // ntext
constexpr std::int32_t kLongNarrow = 2147483647;
constexpr SQLULEN kLongestText = 8000;  // above it a varchar is a text

struct Fixed {
    DataTypeEnum type;
    std::int32_t size;
    std::uint8_t precision;
};

ColumnInfo FixedInfo(const Fixed& fixed)
{
    ColumnInfo info;
    info.type = fixed.type;
    info.definedSize = fixed.size;
    info.precision = fixed.precision;
    return info;
}

constexpr Fixed kTiny{adUnsignedTinyInt, 1, 3}, kSmall{adSmallInt, 2, 5}, kInt{adInteger, 4, 10}, kBig{adBigInt, 8, 19},
    kBit{adBoolean, 2, 255}, kReal{adSingle, 4, 7}, kFloat{adDouble, 8, 15}, kMoney{adCurrency, 8, 19},
    kSmallMoney{adCurrency, 8, 10};

ColumnInfo TextInfo(bool wide, bool fixedLength, SQLULEN characters)
{
    ColumnInfo info;
    if (characters == 0 || characters > kLongestText) {
        info.type = wide ? adLongVarWChar : adLongVarChar;
        info.definedSize = wide ? kLongWide : kLongNarrow;
        return info;
    }
    info.type = fixedLength ? (wide ? adWChar : adChar) : (wide ? adVarWChar : adVarChar);
    info.definedSize = static_cast<std::int32_t>(characters);
    return info;
}

ColumnInfo NumericInfo(std::uint64_t precision, std::int64_t scale)
{
    ColumnInfo info;
    info.type = adNumeric;
    info.definedSize = 19;
    info.precision = static_cast<std::uint8_t>(std::min<std::uint64_t>(precision, 38));
    info.scale = static_cast<std::uint8_t>(std::clamp<std::int64_t>(scale, 0, 38));
    return info;
}

ColumnInfo DateInfo(std::uint64_t size, std::int64_t digits)
{
    ColumnInfo info;
    info.type = adDBTimeStamp;
    info.definedSize = 16;
    info.precision = static_cast<std::uint8_t>(std::min<std::uint64_t>(size, 254));
    info.scale = static_cast<std::uint8_t>(std::clamp<std::int64_t>(digits, 0, 9));
    return info;
}

}  // namespace

bool IsCharacterType(SQLSMALLINT type)
{
    switch (type) {
    case SQL_CHAR:
    case SQL_VARCHAR:
    case SQL_LONGVARCHAR:
    case SQL_WCHAR:
    case SQL_WVARCHAR:
    case SQL_WLONGVARCHAR: return true;
    default: return false;
    }
}

ColumnInfo InfoOf(const DriverColumn& column)
{
    const std::string word = Upper(column.typeName);
    ColumnInfo info;
    switch (column.type) {
    case SQL_BIT: info = FixedInfo(kBit); break;
    case SQL_TINYINT: info = FixedInfo(column.isUnsigned ? kTiny : kSmall); break;
    case SQL_SMALLINT: info = FixedInfo(kSmall); break;
    case SQL_INTEGER: info = FixedInfo(kInt); break;
    case SQL_BIGINT: info = FixedInfo(kBig); break;
    case SQL_REAL: info = FixedInfo(kReal); break;
    case SQL_FLOAT: info = FixedInfo(column.size > 0 && column.size <= 7 ? kReal : kFloat); break;
    case SQL_DOUBLE: info = FixedInfo(kFloat); break;
    case SQL_NUMERIC:
    case SQL_DECIMAL:
        if (word == "MONEY")
            info = FixedInfo(kMoney);
        else if (word == "SMALLMONEY")
            info = FixedInfo(kSmallMoney);
        else
            info = NumericInfo(column.size, column.digits);
        break;
    case SQL_TYPE_TIMESTAMP:
    case SQL_TYPE_DATE: info = DateInfo(column.size, column.digits); break;
    case SQL_CHAR: info = TextInfo(false, true, column.size); break;
    case SQL_WCHAR: info = TextInfo(true, true, column.size); break;
    case SQL_VARCHAR: info = TextInfo(false, false, column.size); break;
    case SQL_LONGVARCHAR: info = TextInfo(false, false, 0); break;
    case SQL_WLONGVARCHAR: info = TextInfo(true, false, 0); break;
    default: info = TextInfo(true, false, column.size); break;
    }
    info.nullable = column.nullable;
    info.autoIncrement = column.autoIncrement;
    return info;
}

const TableColumn* TableDef::Find(std::string_view column) const
{
    const auto found =
        std::ranges::find_if(columns, [&](const TableColumn& known) { return basic::SameName(known.name, column); });
    return found == columns.end() ? nullptr : &*found;
}

ColumnInfo DeclaredType(std::string_view word, std::int64_t length, std::int64_t precision, std::int64_t scale,
                        bool isUnsigned, bool unicode)
{
    const std::string name = Upper(word);
    const auto is = [&](std::initializer_list<std::string_view> words) {
        return std::ranges::find(words, name) != words.end();
    };
    if (is({"BIT", "BOOLEAN"})) return FixedInfo(kBit);
    if (is({"TINYINT"})) return FixedInfo(kTiny);
    if (is({"SMALLINT"})) return FixedInfo(kSmall);
    if (is({"INT", "INTEGER", "MEDIUMINT"})) return FixedInfo(kInt);
    if (is({"BIGINT"})) return FixedInfo(kBig);
    if (is({"REAL"}) || (is({"FLOAT"}) && precision > 0 && precision <= 24)) return FixedInfo(kReal);
    if (is({"FLOAT", "DOUBLE", "DOUBLE PRECISION"})) return FixedInfo(kFloat);
    if (is({"MONEY"})) return FixedInfo(kMoney);
    if (is({"SMALLMONEY"})) return FixedInfo(kSmallMoney);
    if (is({"NUMERIC", "DECIMAL"})) return NumericInfo(static_cast<std::uint64_t>(precision), scale);
    if (is({"SMALLDATETIME"})) return DateInfo(16, 0);
    if (is({"DATETIME"}) && scale < 0) return DateInfo(23, 3);
    if (is({"DATETIME", "TIMESTAMP", "DATETIME2"}) || name.starts_with("TIMESTAMP"))
        return DateInfo(static_cast<std::uint64_t>(19 + (scale > 0 ? scale + 1 : 0)), scale);
    if (is({"DATE"})) return DateInfo(10, 0);
    static_cast<void>(isUnsigned);
    const bool fixedLength = is({"CHAR", "NCHAR", "CHARACTER"});
    const bool wide = is({"NCHAR", "NVARCHAR", "NTEXT"}) || unicode;
    const bool isLong = is({"TEXT", "NTEXT", "LONGTEXT", "MEDIUMTEXT", "CLOB"}) || length <= 0;
    return TextInfo(wide, fixedLength, isLong ? 0 : static_cast<SQLULEN>(length));
}

}  // namespace kvx::adapters::odbc
