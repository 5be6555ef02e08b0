#pragma once

#include "adapters/odbc/Errors.h"
#include "ado/Driver.h"

#include <sql.h>
#include <string>
#include <string_view>
#include <vector>

// SQL types as SQL Server's provider would name and measure them.
namespace kvx::adapters::odbc {

/// What the driver says about a column of a result.
struct DriverColumn {
    std::string name;
    SQLSMALLINT type = SQL_UNKNOWN_TYPE;  ///< SQL_WVARCHAR ...
    std::string typeName;                 ///< the engine's word: "money", "ntext"
    SQLULEN size = 0;                     ///< characters, or digits
    SQLSMALLINT digits = 0;               ///< behind the decimal point
    bool isUnsigned = false;
    bool nullable = true;
    bool autoIncrement = false;
};

/// Type, size, precision and scale; names and base stay empty.
ado::ColumnInfo InfoOf(const DriverColumn& column);

/// A column of a table, as it was declared.
struct TableColumn {
    std::string name;
    ado::ColumnInfo info;  ///< type, sizes, nullable, autoIncrement
};

struct TableDef {
    std::string name;
    std::vector<TableColumn> columns;
    std::vector<std::string> keys;  ///< columns of the primary key, in its order

    const TableColumn* Find(std::string_view column) const;  ///< case is ignored; nullptr: no such column
};

/// The declared type by its word in INFORMATION_SCHEMA ("nvarchar", "bit", "CHARACTER VARYING").
/// @param unicode  false: the column's character set knows one alphabet only (varchar on SQL Server)
ado::ColumnInfo DeclaredType(std::string_view word, std::int64_t length, std::int64_t precision, std::int64_t scale,
                             bool isUnsigned, bool unicode);

bool IsCharacterType(SQLSMALLINT type);

}  // namespace kvx::adapters::odbc
