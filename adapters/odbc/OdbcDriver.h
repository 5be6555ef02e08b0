#pragma once

#include "ado/Driver.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>

// Database servers through ODBC: SQL Server, Oracle, and any other engine that has a driver.
namespace kvx::adapters::odbc {

/// Makes the driver known as
///   MSDASQL (also without any Provider=)   DSN=...; or Driver={...}; and the parts that driver knows
///   SQLOLEDB, SQLNCLI11, MSOLEDBSQL ...    SQL Server: Data Source=host\instance,port; Initial Catalog; User ID;
///   Password OraOLEDB.Oracle, MSDAORA               Oracle: Data Source=net service name; User ID; Password
/// Parts of every connection string: Connect Timeout (seconds, 15 when not given). Driver= chooses another driver than
/// the first that is installed for the server.
/// Errors of opening: 80004005 no such driver or server, 80040E4D the login failed, 80040E31 nobody answered in time.
void RegisterOdbcDriver();

/// Opens without the registry. @throws basic::Error as above
std::unique_ptr<ado::DriverConnection> OpenOdbc(const ado::ConnectionProperties& properties);

/// What ODBC is given for a connection string.
/// @param installed  names of the drivers on this machine, for servers that are named without one
/// @throws basic::Error 80004005: no driver for this server is installed
std::string OdbcConnectionString(const ado::ConnectionProperties& properties, std::span<const std::string> installed);

}  // namespace kvx::adapters::odbc
