#include "adapters/sqlite/SqliteDriver.h"

#include "adapters/sqlite/Collation.h"
#include "adapters/sqlite/Connection.h"
#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Functions.h"
#include "adapters/sqlite/Login.h"
#include "adapters/sqlite/Tokenizer.h"
#include "adapters/sqlite/Translate.h"
#include "ado/Constants.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <sqlite3.h>

namespace kvx::adapters::sqlite {
namespace {

constexpr int kBusyTimeout = 5000;

[[noreturn]] void RaiseOpen(const std::string& path, const std::string& what)
{
    throw MakeError(ado::kErrUnspecified, "The database '" + path + "' " + what);
}

bool IsSet(const ado::ConnectionProperties& properties, std::initializer_list<std::string_view> names)
{
    const std::string value = properties.Get(names);
    return value == "1" || SameText(value, "true") || SameText(value, "yes");
}

int BusyTimeout(const ado::ConnectionProperties& properties)
{
    const std::string text = properties.Get({"busy timeout"});
    int value = kBusyTimeout;
    if (!text.empty()) {
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error != std::errc() || end != text.data() + text.size() || value < 0)
            throw MakeError(ado::kErrUnspecified, "Busy Timeout is no number of milliseconds: '" + text + "'.");
    }
    return value;
}

std::string Synchronous(const ado::ConnectionProperties& properties)
{
    const std::string value = properties.Get({"synchronous"});
    if (value.empty()) return "FULL";
    for (const char* known : {"OFF", "NORMAL", "FULL", "EXTRA"})
        if (SameText(value, known)) return known;
    throw MakeError(ado::kErrUnspecified, "Synchronous is none of OFF, NORMAL, FULL, EXTRA: '" + value + "'.");
}

void CheckFile(const std::string& path, bool create)
{
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (std::filesystem::is_directory(status)) RaiseOpen(path, "is a folder.");
    if (!create && !std::filesystem::exists(status)) RaiseOpen(path, "does not exist.");
}

DatabasePtr OpenFile(const std::string& path, int flags)
{
    sqlite3* raw = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &raw, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    DatabasePtr database(raw);
    if (result != SQLITE_OK) RaiseOpen(path, std::string("can't be opened: ") + sqlite3_errstr(result) + ".");
    return database;
}

// The first look into the file tells whether it is one of ours.
void CheckContent(sqlite3* database, const std::string& path)
{
    const int result = sqlite3_exec(database, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
    if (result == SQLITE_OK) return;
    if ((result & 0xFF) == SQLITE_NOTADB) RaiseOpen(path, "is no database of this provider, or it is encrypted.");
    RaiseOpen(path, std::string("can't be read: ") + sqlite3_errmsg(database) + ".");
}

}  // namespace

std::unique_ptr<ado::DriverConnection> OpenSqlite(const ado::ConnectionProperties& properties)
{
    const std::string path = properties.Get({"data source", "server", "database", "initial catalog"});
    if (path.empty()) throw MakeError(ado::kErrUnspecified, "The connection string names no Data Source.");
    const bool inMemory = path == ":memory:";
    const bool readOnly = SameText(properties.Get({"mode"}), "readonly") || SameText(properties.Get({"mode"}), "read");
    const bool create = !readOnly && (inMemory || IsSet(properties, {"create"}));
    const int busyTimeout = BusyTimeout(properties);
    const std::string synchronous = Synchronous(properties);
    if (!inMemory) CheckFile(path, create);
    DatabasePtr database =
        OpenFile(path, readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0));
    sqlite3* raw = database.get();
    sqlite3_busy_timeout(raw, busyTimeout);
    sqlite3_db_config(raw, SQLITE_DBCONFIG_ENABLE_FKEY, 1, nullptr);
    sqlite3_db_config(raw, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);  // a misspelt name is an error, not a text
    sqlite3_db_config(raw, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    RegisterCollations(raw);
    RegisterFunctions(raw);
    CheckContent(raw, path);
    auto connection = std::make_unique<Connection>(std::move(database));
    if (!readOnly && sqlite3_db_readonly(raw, "main") == 0) {
        if (!inMemory) connection->Run("PRAGMA journal_mode = WAL");
        connection->Run(("PRAGMA synchronous = " + synchronous).c_str());
    }
    CheckLogin(*connection, properties.Get({"user id", "uid"}), properties.Get({"password", "pwd"}));
    return connection;
}

void RegisterSqliteDriver()
{
    ado::RegisterDriver("Korvex.SQLite", OpenSqlite);
    ado::RegisterDriver("SQLite", OpenSqlite);
}

void RunScript(ado::DriverConnection& connection, std::string_view script)
{
    connection.Execute("BEGIN TRANSACTION", {});
    std::string_view current;
    try {
        for (std::string_view batch : SplitBatches(script)) {
            current = batch;
            connection.Execute(batch, {});
        }
        current = {};
        connection.Execute("COMMIT", {});
    } catch (basic::Error& error) {
        error.Statement = current;
        try {
            connection.Execute("ROLLBACK", {});
        } catch (const basic::Error&) {
            // The engine gave the transaction up itself; the first error is the one that counts.
        }
        throw;
    }
}

void SetLogin(std::string_view connectionString, std::string_view user, std::string_view password)
{
    const std::unique_ptr<ado::DriverConnection> connection = OpenSqlite(ado::ConnectionProperties(connectionString));
    WriteLogin(static_cast<Connection&>(*connection), user, password);
}

std::vector<std::string> ColumnsWithoutCollation(ado::DriverConnection& connection)
{
    sqlite3* database = dynamic_cast<Connection&>(connection).Database();
    std::vector<std::string> result;
    const StatementPtr columns =
        Prepare(database,
                "SELECT m.name, c.name, c.type FROM sqlite_master m, pragma_table_info(m.name) c "
                "WHERE m.type = 'table' AND m.name NOT LIKE 'sqlite\\_%' ESCAPE '\\' "
                "AND m.name NOT LIKE 'KORVEX\\_%' ESCAPE '\\' ORDER BY m.name, c.cid",
                false);
    while (sqlite3_step(columns.get()) == SQLITE_ROW) {
        const auto text = [&](int column) {
            return std::string(reinterpret_cast<const char*>(sqlite3_column_text(columns.get(), column)));
        };
        const DeclaredType type = ParseDeclaredType(text(2));
        if (!type.IsText() && !type.IsDate()) continue;
        const char* collation = nullptr;
        sqlite3_table_column_metadata(database, nullptr, text(0).c_str(), text(1).c_str(), nullptr, &collation, nullptr,
                                      nullptr, nullptr);
        if (collation == nullptr || !StartsWithText(collation, "KVX")) result.push_back(text(0) + "." + text(1));
    }
    return result;
}

std::vector<std::string> TranslateText(ado::DriverConnection& connection, std::string_view text,
                                       const ado::ExecuteOptions& options)
{
    return dynamic_cast<Connection&>(connection).Translations(text, options);
}

}  // namespace kvx::adapters::sqlite
