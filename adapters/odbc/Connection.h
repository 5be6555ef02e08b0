#pragma once

#include "adapters/odbc/Errors.h"
#include "adapters/odbc/Handle.h"
#include "adapters/odbc/Select.h"
#include "adapters/odbc/Types.h"
#include "ado/Driver.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::adapters::odbc {

struct Told;

/// One connection to a server.
class Connection final : public ado::DriverConnection {
public:
    /// @param odbcString     as OdbcConnectionString gives it
    /// @throws basic::Error 80004005 nobody there, 80040E4D login refused, 80040E31 no answer in time
    Connection(std::string_view odbcString, std::int32_t connectTimeoutSeconds);
    ~Connection() override;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    const ado::DriverTraits& Traits() const override { return traits_; }
    std::unique_ptr<ado::DriverStatement> Execute(std::string_view text, const ado::ExecuteOptions& options) override;
    basic::Variant WriteRow(const ado::RowChange& change) override;
    bool IsAlive() const override;

    Engine Kind() const { return engine_; }
    /// Bytes of bound texts are UTF-8, not UTF-16.
    bool TextIsUtf8() const { return textIsUtf8_; }

    /// A table's columns and keys; read from the server once. nullptr: no such table.
    const TableDef* FindTable(std::string_view name);

    /// Raises the failure of a statement. @throws basic::Error always
    [[noreturn]] void Raise(const StatementHandle& statement);
    void Check(const StatementHandle& statement, SQLRETURN result);
    /// @param timeoutSeconds  0 = none, -1 = whatever is set; for statements of the driver itself
    StatementHandle NewStatement(std::int32_t timeoutSeconds = -1);

private:
    using Result = std::unique_ptr<ado::DriverStatement>;

    // Hidden key columns that a text is given, so that its rows can be found again.
    struct KeyPlan {
        struct Table {
            std::string name;
            std::vector<std::string> keys;
            std::vector<std::size_t> positions;  // of the keys among the columns of the result
        };
        std::vector<Table> tables;
        std::string text;         // with the columns added; empty: none had to be
        std::size_t added = 0;    // columns at the end that the caller does not see
        std::size_t columns = 0;  // of the result, them included
    };

    // Connection.cpp
    void RequireAlive() const;
    void AskServer();
    void SendText(StatementHandle& statement, std::string_view text);
    Result RunText(std::string_view text, const std::optional<std::vector<Told>>& told, const KeyPlan& keys,
                   std::int32_t timeoutSeconds);
    Result RunTransaction(std::string_view word);
    std::string CommandText(std::string_view text, const ado::ExecuteOptions& options);
    KeyPlan PlanKeys(std::string_view text, const Select& select);
    void DrainResults(const StatementHandle& statement);
    void ForgetChangedTables(std::string_view text);

    // Connection.schema.cpp
    std::unique_ptr<TableDef> ReadTable(std::string_view name);
    std::unique_ptr<TableDef> ReadBySchemaViews(std::string_view name);
    std::unique_ptr<TableDef> ReadByCatalogue(std::string_view name);
    std::vector<std::vector<std::string>> Rows(std::string_view text);

    // Connection.write.cpp
    std::string QuotedName(std::string_view name) const;
    basic::Variant InsertRow(const ado::RowChange& change, const TableDef& table);
    basic::Variant UpdateRow(const ado::RowChange& change, const TableDef& table);
    std::optional<std::int64_t> LastIdentity();

    Handle<SQL_HANDLE_DBC> handle_;
    bool connected_ = false;
    mutable bool lost_ = false;
    bool inTransaction_ = false;  // of the caller
    Engine engine_ = Engine::Other;
    bool textIsUtf8_ = false;
    bool hasQueryTimeout_ = true;
    std::int32_t sessionTimeout_ = 0;  // seconds; MariaDB's limit as it was set last
    std::string quote_ = "\"";
    ado::DriverTraits traits_;
    std::map<std::string, std::unique_ptr<TableDef>, std::less<>> tables_;  // by name in upper case
};

/// Several statements that are written all or not at all. Inside a transaction of the caller it does nothing.
class OwnTransaction {
public:
    OwnTransaction(SQLHDBC connection, bool insideAnother);
    ~OwnTransaction();
    OwnTransaction(const OwnTransaction&) = delete;
    OwnTransaction& operator=(const OwnTransaction&) = delete;
    /// @return false: the server could not write it
    bool Commit();

private:
    SQLHDBC connection_;
    bool open_ = false;
};

}  // namespace kvx::adapters::odbc
