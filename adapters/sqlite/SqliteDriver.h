#pragma once

#include "ado/Driver.h"

#include <string>
#include <string_view>
#include <vector>

// The embedded database: SQL Server's texts on an SQLite file.
namespace kvx::adapters::sqlite {

/// Makes the driver known as "Korvex.SQLite" and "SQLite". A connection string has these parts:
///   Data Source    path of the file, or ":memory:"
///   User ID, Password  for a database that carries a login
///   Create=1       make the file when it is missing; otherwise a missing file is an error
///   Mode=ReadOnly
///   Busy Timeout   milliseconds to wait for other processes, 5000 when not given
///   Synchronous    FULL when not given: what was acknowledged survives a power cut
/// Errors of opening are one line: 80004005 no such file, no database, not readable; 80040E4D the login failed.
void RegisterSqliteDriver();

/// Opens without the registry. @throws basic::Error as above
std::unique_ptr<ado::DriverConnection> OpenSqlite(const ado::ConnectionProperties& properties);

/// Runs a script of batches that lines with GO part, in one transaction: all of it or nothing.
/// @throws basic::Error the first failure, with its statement
void RunScript(ado::DriverConnection& connection, std::string_view script);

/// Gives the database a login, or an existing user a new password. From then on every connection must name one.
/// @param connectionString  of a user who may log in so far
void SetLogin(std::string_view connectionString, std::string_view user, std::string_view password);

/// Text columns ("WALDORT.WO1") that compare by bytes because their table was not made through this driver.
std::vector<std::string> ColumnsWithoutCollation(ado::DriverConnection& connection);

/// What the engine is given for a text: one string a statement, lifted values as ?1, ?2 ... For looking into a text
/// that does not do what it should.
std::vector<std::string> TranslateText(ado::DriverConnection& connection, std::string_view text,
                                       const ado::ExecuteOptions& options = {});

}  // namespace kvx::adapters::sqlite
