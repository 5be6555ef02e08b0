#include "adapters/odbc/Connection.h"

#include "adapters/odbc/Describe.h"
#include "adapters/odbc/RowStatement.h"
#include "ado/Constants.h"
#include "basic/Object.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace kvx::adapters::odbc {
namespace {

// One environment for the process; it outlives every connection.
SQLHENV Environment()
{
    static const Handle<SQL_HANDLE_ENV> environment = [] {
        Handle<SQL_HANDLE_ENV> made(nullptr);
        SQLSetEnvAttr(made.Get(), SQL_ATTR_ODBC_VERSION, NumberValue(SQL_OV_ODBC3), 0);
        return made;
    }();
    return environment.Get();
}

std::string InfoText(SQLHDBC connection, SQLUSMALLINT what)
{
    std::array<SQLWCHAR, 256> text{};
    SQLSMALLINT bytes = 0;
    if (!SQL_SUCCEEDED(SQLGetInfoW(connection, what, text.data(), sizeof(text), &bytes)) || bytes < 0) return {};
    return FromWide(text.data(), std::min(static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR), text.size() - 1));
}

bool Contains(std::string_view text, std::string_view part)
{
    return Upper(text).find(part) != std::string::npos;
}

bool IsAny(std::string_view word, std::initializer_list<std::string_view> words)
{
    return std::ranges::find(words, word) != words.end();
}

// HyperSQL misreads letters beyond ASCII that come in PostgreSQL's protocol. It takes them in escaped literals.
std::string EscapedLiterals(std::string_view text)
{
    const auto beyondAscii = [](char character) { return static_cast<unsigned char>(character) >= 0x80; };
    if (std::ranges::none_of(text, beyondAscii)) return std::string(text);
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t open = std::min(text.find('\'', at), text.size());
        result += text.substr(at, open - at);
        if (open == text.size()) break;
        std::size_t end = open + 1;
        while (end < text.size() && (text[end] != '\'' || (end + 1 < text.size() && text[end + 1] == '\'')))
            end += text[end] == '\'' ? 2 : 1;
        end = std::min(end + 1, text.size());
        const std::string_view literal = text.substr(open, end - open);
        at = end;
        if (std::ranges::none_of(literal, beyondAscii)) {
            result += literal;
            continue;
        }
        result += "U&";
        const std::vector<SQLWCHAR> units = ToWide(literal);
        for (std::size_t index = 0; index + 1 < units.size(); ++index) {
            std::array<char, 8> escape{};
            if (units[index] >= 0x80)
                std::snprintf(escape.data(), escape.size(), "\\%04X", units[index]);
            else if (units[index] == '\\')
                std::snprintf(escape.data(), escape.size(), "\\\\");
            else
                escape[0] = static_cast<char>(units[index]);
            result += escape.data();
        }
    }
    return result;
}

}  // namespace

Connection::Connection(std::string_view odbcString, std::int32_t connectTimeoutSeconds) : handle_(Environment())
{
    if (!handle_) throw MakeError(ado::kErrUnspecified, "ODBC gives no connection handle.");
    SQLSetConnectAttrW(handle_.Get(), SQL_ATTR_LOGIN_TIMEOUT, NumberValue(static_cast<SQLULEN>(connectTimeoutSeconds)),
                       SQL_IS_UINTEGER);
    std::vector<SQLWCHAR> text = ToWide(odbcString);
    const SQLRETURN result =
        SQLDriverConnectW(handle_.Get(), nullptr, text.data(), static_cast<SQLSMALLINT>(text.size() - 1), nullptr, 0,
                          nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(result)) {
        const Diagnosis diagnosis = Diagnose(SQL_HANDLE_DBC, handle_.Get());
        // Which engine refused is not known yet; logins are told apart by state, or by the numbers of the engines that
        // hide them behind a general one.
        for (const Engine engine : {Engine::Other, Engine::MariaDb, Engine::SqlServer, Engine::Oracle})
            if (NumberOf(engine, diagnosis) == ado::kErrLogin) throw MakeError(ado::kErrLogin, diagnosis.message);
        throw MakeError(Engine::Other, diagnosis);
    }
    connected_ = true;
    try {
        AskServer();
    } catch (...) {
        SQLDisconnect(handle_.Get());
        throw;
    }
}

Connection::~Connection()
{
    if (!connected_) return;
    if (inTransaction_) SQLEndTran(SQL_HANDLE_DBC, handle_.Get(), SQL_ROLLBACK);
    SQLDisconnect(handle_.Get());
}

// What the engine is and how its driver wants to be spoken to.
void Connection::AskServer()
{
    const std::string product = InfoText(handle_.Get(), SQL_DBMS_NAME);
    const std::string driver = InfoText(handle_.Get(), SQL_DRIVER_NAME);
    traits_.name = product;
    if (Contains(product, "SQL SERVER"))
        engine_ = Engine::SqlServer;
    else if (Contains(product, "ORACLE"))
        engine_ = Engine::Oracle;
    else if (Contains(product, "MARIADB") || Contains(product, "MYSQL"))
        engine_ = Engine::MariaDb;
    else if (Contains(product, "POSTGRESQL")) {
        // HyperSQL answers in PostgreSQL's protocol and under its name; only its own catalogue tells it.
        StatementHandle probe = NewStatement();
        std::vector<SQLWCHAR> text = ToWide("SELECT 1 FROM INFORMATION_SCHEMA.SYSTEM_USERS WHERE 1=0");
        if (SQL_SUCCEEDED(SQLExecDirectW(probe.Get(), text.data(), SQL_NTS))) {
            engine_ = Engine::HyperSql;
            traits_.name = "HyperSQL";
        }
    }
    traits_.emptyTextIsNull = engine_ == Engine::Oracle;
    // Of these drivers it is known that bytes are UTF-8 when they are told so, as OdbcConnectionString does.
    textIsUtf8_ = Contains(driver, "MAODBC") || Contains(driver, "MYODBC") || Contains(driver, "TDSODBC");
    // HyperSQL takes the SET statement_timeout of its driver for an unknown name, and the driver of MariaDB does
    // nothing. That server has a limit of the session: NewStatement.
    hasQueryTimeout_ = engine_ != Engine::HyperSql && engine_ != Engine::MariaDb;
    SQLUSMALLINT active = 0;
    if (SQL_SUCCEEDED(SQLGetInfoW(handle_.Get(), SQL_MAX_CONCURRENT_ACTIVITIES, &active, sizeof(active), nullptr)))
        traits_.rowsWhileReading = active != 1;
    const std::string quote = InfoText(handle_.Get(), SQL_IDENTIFIER_QUOTE_CHAR);
    if (!quote.empty() && quote != " ") quote_ = quote;
}

bool Connection::IsAlive() const
{
    if (lost_) return false;
    SQLULEN dead = SQL_CD_FALSE;
    if (SQL_SUCCEEDED(SQLGetConnectAttrW(handle_.Get(), SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr)) &&
        dead == SQL_CD_TRUE)
        lost_ = true;
    return !lost_;
}

void Connection::RequireAlive() const
{
    if (lost_) throw MakeError(ado::kErrUnspecified, "The connection to the database server is broken.");
}

void Connection::Raise(const StatementHandle& statement)
{
    const Diagnosis diagnosis = Diagnose(SQL_HANDLE_STMT, statement.Get());
    if (IsLost(engine_, diagnosis)) lost_ = true;
    throw MakeError(engine_, diagnosis);
}

void Connection::Check(const StatementHandle& statement, SQLRETURN result)
{
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) Raise(statement);
}

StatementHandle Connection::NewStatement(std::int32_t timeoutSeconds)
{
    StatementHandle statement(handle_.Get());
    if (!statement) {
        const Diagnosis diagnosis = Diagnose(SQL_HANDLE_DBC, handle_.Get());
        if (IsLost(engine_, diagnosis)) lost_ = true;
        throw MakeError(engine_, diagnosis);
    }
    if (engine_ == Engine::MariaDb && timeoutSeconds >= 0 && timeoutSeconds != sessionTimeout_) {
        sessionTimeout_ = timeoutSeconds;
        std::vector<SQLWCHAR> limit = ToWide("SET SESSION max_statement_time=" + std::to_string(timeoutSeconds));
        SQLExecDirectW(statement.Get(), limit.data(), SQL_NTS);
        SQLFreeStmt(statement.Get(), SQL_CLOSE);
    }
    if (timeoutSeconds > 0 && hasQueryTimeout_)  // a driver that knows no timeout says so, and waits
        SQLSetStmtAttrW(statement.Get(), SQL_ATTR_QUERY_TIMEOUT, NumberValue(static_cast<SQLULEN>(timeoutSeconds)),
                        SQL_IS_UINTEGER);
    return statement;
}

void Connection::SendText(StatementHandle& statement, std::string_view text)
{
    std::vector<SQLWCHAR> wide = ToWide(engine_ == Engine::HyperSql ? EscapedLiterals(text) : std::string(text));
    Check(statement, SQLExecDirectW(statement.Get(), wide.data(), static_cast<SQLINTEGER>(wide.size() - 1)));
}

std::unique_ptr<ado::DriverStatement> Connection::Execute(std::string_view text, const ado::ExecuteOptions& options)
{
    RequireAlive();
    const std::string command = CommandText(text, options);
    const std::string word = FirstWord(command);
    if (IsAny(word, {"BEGIN", "START", "COMMIT", "ROLLBACK"})) {
        if (Result done = RunTransaction(Upper(command))) return done;
    }
    ForgetChangedTables(word);
    std::optional<Select> select;
    if (word == "SELECT") select = ParseSelect(command);
    std::optional<ToldList> told;
    if (select) told = Follow(*this, *select);
    if (options.withRowKeys && select && select->rowsAreRows) {
        const KeyPlan keys = PlanKeys(command, *select);
        if (keys.text.empty()) return RunText(command, told, keys, options.timeoutSeconds);
        try {
            return RunText(keys.text, told, keys, options.timeoutSeconds);
        } catch (const basic::Error& error) {
            if (error.Number != ado::kErrStatement) throw;
            // The engine does not take the keys beside this list; the rows can be read all the same. A fault of the
            // text itself comes again, in the words that belong to it.
        }
    }
    return RunText(command, told, {}, options.timeoutSeconds);
}

Connection::Result Connection::RunText(std::string_view text, const std::optional<ToldList>& told, const KeyPlan& keys,
                                       std::int32_t timeoutSeconds)
{
    StatementHandle statement = NewStatement(timeoutSeconds);
    SendText(statement, text);
    SQLSMALLINT count = 0;
    Check(statement, SQLNumResultCols(statement.Get(), &count));
    if (count == 0) {
        SQLLEN affected = -1;
        SQLRowCount(statement.Get(), &affected);
        DrainResults(statement);
        return std::make_unique<DoneStatement>(affected);
    }
    const std::vector<DriverColumn> columns = DescribeByDriver(*this, statement, count);
    const std::size_t visible = columns.size() - std::min(keys.added, columns.size());
    std::vector<ado::ColumnInfo> infos = Describe(*this, columns, visible, told);
    std::vector<std::vector<std::size_t>> keyParts;
    for (const KeyPlan::Table& table : keys.tables) {
        // Columns that were not counted right (a view that grew) give no keys rather than wrong ones.
        if (keys.columns != columns.size()) break;
        ado::ColumnInfo info = InfoOf(columns[table.positions.front()]);
        info.name = table.keys.front();
        info.baseTable = table.name;
        info.rowKey = true;
        infos.push_back(std::move(info));
        keyParts.push_back(table.positions);
    }
    auto rows = std::make_unique<RowStatement>(*this, std::move(statement), columns, std::move(infos), visible,
                                               std::move(keyParts));
    if (told) return rows;
    // A procedure or a text of several statements: what comes behind these rows runs before the caller goes on.
    auto kept = std::make_unique<KeptStatement>(*rows);
    SQLFreeStmt(rows->Statement().Get(), SQL_UNBIND);
    DrainResults(rows->Statement());
    return kept;
}

// The statements behind the first run while their results are asked for. An error of one of them is the text's error.
void Connection::DrainResults(const StatementHandle& statement)
{
    while (true) {
        const SQLRETURN result = SQLMoreResults(statement.Get());
        if (result == SQL_NO_DATA) return;
        Check(statement, result);
    }
}

// BEGIN TRANSACTION and its kin are ODBC's own business: each engine words them differently, and the driver must know.
Connection::Result Connection::RunTransaction(std::string_view text)
{
    std::string words;
    for (const char character : text)
        if (character != ';') words += character == '\r' || character == '\n' ? ' ' : character;
    while (words.ends_with(' '))
        words.pop_back();
    const SQLHDBC connection = handle_.Get();
    if (IsAny(words, {"BEGIN TRANSACTION", "BEGIN TRAN", "START TRANSACTION", "BEGIN"})) {
        SQLSetConnectAttrW(connection, SQL_ATTR_AUTOCOMMIT, NumberValue(SQL_AUTOCOMMIT_OFF), SQL_IS_UINTEGER);
        inTransaction_ = true;
        return std::make_unique<DoneStatement>(-1);
    }
    const bool commit = IsAny(words, {"COMMIT", "COMMIT TRANSACTION", "COMMIT TRAN"});
    if (!commit && !IsAny(words, {"ROLLBACK", "ROLLBACK TRANSACTION", "ROLLBACK TRAN"})) return nullptr;
    const SQLRETURN result = SQLEndTran(SQL_HANDLE_DBC, connection, commit ? SQL_COMMIT : SQL_ROLLBACK);
    const Diagnosis diagnosis = SQL_SUCCEEDED(result) ? Diagnosis{} : Diagnose(SQL_HANDLE_DBC, connection);
    SQLSetConnectAttrW(connection, SQL_ATTR_AUTOCOMMIT, NumberValue(SQL_AUTOCOMMIT_ON), SQL_IS_UINTEGER);
    inTransaction_ = false;
    if (!SQL_SUCCEEDED(result)) throw MakeError(engine_, diagnosis);
    return std::make_unique<DoneStatement>(-1);
}

// A procedure is called in ODBC's words, a bare name means a table or a procedure; any other text goes as it came.
std::string Connection::CommandText(std::string_view text, const ado::ExecuteOptions& options)
{
    const auto call = [this](std::string_view name, std::string_view arguments) {
        // HyperSQL gives back no rows of a procedure in PostgreSQL's protocol; a function of that name stands for it.
        if (engine_ == Engine::HyperSql) return "SELECT " + std::string(name) + "(" + std::string(arguments) + ")";
        return "{call " + std::string(name) + "(" + std::string(arguments) + ")}";
    };
    if (options.procedure) {
        const std::size_t first = text.find_first_not_of(" \t\r\n");
        const std::string_view trimmed = first == std::string_view::npos ? std::string_view() : text.substr(first);
        const std::size_t end = std::min(trimmed.find_first_of(" ("), trimmed.size());
        std::string_view arguments = trimmed.substr(end);
        const std::size_t open = arguments.find_first_not_of(' ');
        arguments = open == std::string_view::npos ? std::string_view() : arguments.substr(open);
        if (arguments.starts_with('(') && arguments.rfind(')') != std::string_view::npos)
            arguments = arguments.substr(1, arguments.rfind(')') - 1);
        return call(trimmed.substr(0, end), arguments);
    }
    if (!options.tableAllowed) return std::string(text);
    const std::optional<std::string> name = BareName(text);
    if (!name || IsAny(Upper(*name), {"BEGIN", "COMMIT", "ROLLBACK"})) return std::string(text);
    if (FindTable(*name) != nullptr) return "SELECT * FROM " + QuotedName(*name);
    return engine_ == Engine::SqlServer ? std::string(text) : call(*name, {});
}

void Connection::ForgetChangedTables(std::string_view word)
{
    if (IsAny(word, {"CREATE", "ALTER", "DROP", "RENAME", "USE", "EXEC"})) tables_.clear();
}

Connection::KeyPlan Connection::PlanKeys(std::string_view text, const Select& select)
{
    KeyPlan plan;
    // Where the columns of the text stand in the result.
    struct Visible {
        const SelectTable* table;
        std::string column;
    };
    std::vector<Visible> visible;
    const auto tableOf = [&](std::string_view qualifier, std::string_view column) -> const SelectTable* {
        for (const SelectTable& table : select.tables) {
            if (!qualifier.empty()) {
                if (basic::SameName(table.alias, qualifier)) return &table;
                continue;
            }
            const TableDef* def = table.name.empty() ? nullptr : FindTable(table.name);
            if (def != nullptr && def->Find(column) != nullptr) return &table;
        }
        return nullptr;
    };
    for (const SelectItem& item : select.items) {
        if (item.kind == SelectItem::Kind::Column) {
            visible.push_back({tableOf(item.qualifier, item.name), item.name});
        } else if (item.kind == SelectItem::Kind::Star) {
            for (const SelectTable& table : select.tables) {
                if (!item.qualifier.empty() && !basic::SameName(table.alias, item.qualifier)) continue;
                const TableDef* def = table.name.empty() ? nullptr : FindTable(table.name);
                if (def == nullptr) return {};
                for (const TableColumn& column : def->columns)
                    visible.push_back({&table, column.name});
            }
        } else {
            visible.push_back({nullptr, {}});
        }
    }
    std::string added;
    std::size_t next = visible.size();
    for (const SelectTable& table : select.tables) {
        const bool known = std::ranges::any_of(
            plan.tables, [&](const KeyPlan::Table& other) { return basic::SameName(other.name, table.name); });
        const TableDef* def = table.name.empty() || known ? nullptr : FindTable(table.name);
        if (def == nullptr || def->keys.empty()) continue;
        KeyPlan::Table keyed{table.name, def->keys, {}};
        for (const std::string& key : def->keys) {
            const auto found = std::ranges::find_if(visible, [&](const Visible& column) {
                return column.table == &table && basic::SameName(column.column, key);
            });
            if (found != visible.end()) {
                keyed.positions.push_back(static_cast<std::size_t>(found - visible.begin()));
                continue;
            }
            added += ", " + (table.alias.empty() ? std::string() : QuotedName(table.alias) + ".") + QuotedName(key) +
                     " AS KVX_KEY" + std::to_string(next);
            keyed.positions.push_back(next++);
        }
        plan.tables.push_back(std::move(keyed));
    }
    plan.columns = next;
    plan.added = next - visible.size();
    if (!added.empty()) {
        std::string_view head = text.substr(0, select.listEnd);
        const std::size_t last = head.find_last_not_of(" \t\r\n");
        plan.text = std::string(head.substr(0, last + 1)) + added + " " + std::string(text.substr(select.listEnd));
    }
    return plan;
}

}  // namespace kvx::adapters::odbc
