#pragma once

#include "adapters/odbc/Connection.h"

#include <optional>
#include <string>
#include <vector>

namespace kvx::adapters::odbc {

/// The columns of a result as the driver tells them.
std::vector<DriverColumn> DescribeByDriver(Connection& connection, const StatementHandle& statement, SQLSMALLINT count);

/// What the text of a SELECT says about one column of its result.
struct Told {
    bool computed = false;
    std::string alias;
    std::string table, column;  ///< of a plain column; the table as the text writes it
    const TableColumn* declared = nullptr;
    std::optional<ado::ColumnInfo> type;  ///< of something computed
};
using ToldList = std::vector<Told>;

/// Follows the columns of a SELECT to the tables they come from. Asks the server for tables not seen before, so it
/// comes before the SELECT is sent: a server may answer one thing at a time only. Nothing when a "*" can't be followed.
std::optional<ToldList> Follow(Connection& connection, const Select& select);

/// The first `visible` columns as SQL Server's provider would describe them. Names, bases and, but for SQL Server
/// itself, types come from the text and the tables' declarations as far as they were followed; the rest is the driver's
/// word.
std::vector<ado::ColumnInfo> Describe(Connection& connection, const std::vector<DriverColumn>& columns,
                                      std::size_t visible, const std::optional<ToldList>& told);

}  // namespace kvx::adapters::odbc
