#include "adapters/sqlite/Connection.h"

#include "adapters/sqlite/Describe.h"
#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/RowStatement.h"
#include "ado/Constants.h"

#include <sqlite3.h>

namespace kvx::adapters::sqlite {
namespace {

constexpr std::size_t kShapes = 256;
constexpr std::size_t kLongestShape = 8192;  // longer texts hold lists of ids and hardly come twice
constexpr int kDeepestCall = 32;
constexpr int kStepsBetweenLooks = 100'000;

bool IsQuery(StatementKind kind)
{
    return kind == StatementKind::Select || kind == StatementKind::Insert || kind == StatementKind::Update ||
           kind == StatementKind::Delete;
}

StatementKind KindOf(Keyword word)
{
    switch (word) {
    case Keyword::Select: return StatementKind::Select;
    case Keyword::Insert: return StatementKind::Insert;
    case Keyword::Update: return StatementKind::Update;
    case Keyword::Delete: return StatementKind::Delete;
    case Keyword::Exec:
    case Keyword::Execute: return StatementKind::Exec;
    case Keyword::Create:
    case Keyword::Alter:
    case Keyword::Drop:
    case Keyword::Truncate: return StatementKind::Create;
    case Keyword::Set:
    case Keyword::Print:
    case Keyword::Use: return StatementKind::Setting;
    case Keyword::Commit:
    case Keyword::Rollback: return StatementKind::Transaction;
    default: return StatementKind::Other;
    }
}

// The statement behind the condition of an IF.
Statement BodyOf(const Shaper& shaper, const Statement& statement)
{
    return {.kind = KindOf(shaper.Tokens().tokens[statement.body].word),
            .first = statement.body,
            .last = statement.last,
            .body = 0,
            .firstLifted = 0,
            .lastLifted = 0};
}

std::string_view Trim(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n;";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

void CloseDatabase::operator()(sqlite3* database) const
{
    sqlite3_close_v2(database);
}

OwnTransaction::OwnTransaction(Connection& connection) : connection_(connection)
{
    if (sqlite3_get_autocommit(connection.Database()) == 0) return;
    connection.Run("BEGIN IMMEDIATE");
    open_ = true;
}

OwnTransaction::~OwnTransaction()
{
    if (open_) sqlite3_exec(connection_.Database(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void OwnTransaction::Commit()
{
    if (!open_) return;
    connection_.Run("COMMIT");
    open_ = false;
}

Connection::Connection(DatabasePtr database) : database_(std::move(database)), cache_(kShapes)
{
    sqlite3_progress_handler(database_.get(), kStepsBetweenLooks, OnProgress, this);
}

Connection::~Connection()
{
    for (RowStatement* statement = statements_; statement != nullptr; statement = statement->next_)
        statement->Detach();
}

int Connection::OnProgress(void* connection)
{
    Watch& watch = static_cast<Connection*>(connection)->watch_;
    if (watch.limit.count() == 0) return 0;
    const auto now = std::chrono::steady_clock::now();
    if (watch.started == std::chrono::steady_clock::time_point()) watch.started = now;
    return now - watch.started > watch.limit ? 1 : 0;
}

const ado::DriverTraits& Connection::Traits() const
{
    static const ado::DriverTraits traits{.name = std::string(kSource)};
    return traits;
}

// A file that was moved or deleted can still be written, but nobody would ever read it again.
bool Connection::IsAlive() const
{
    int moved = 0;
    const int result = sqlite3_file_control(database_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return result != SQLITE_OK || moved == 0;
}

void Connection::Run(const char* sql)
{
    Check(database_.get(), sqlite3_exec(database_.get(), sql, nullptr, nullptr, nullptr));
}

std::vector<std::string> Connection::Translations(std::string_view text, const ado::ExecuteOptions& options)
{
    Shaper shaper;
    shaper.Run(text);
    std::vector<std::string> result;
    for (const Statement& statement : shaper.Statements()) {
        Translation translation = Translate(shaper, statement, *this,
                                            {.withRowKeys = options.withRowKeys, .tableAllowed = options.tableAllowed});
        if (statement.kind == StatementKind::If) {
            result.push_back(std::move(translation.condition));
            const Statement body = BodyOf(shaper, statement);
            result.push_back(Translate(shaper, body, *this, {}).sql);
        } else if (translation.kind == StatementKind::Exec) {
            result.push_back("EXEC " + translation.sql);
        } else if (!translation.sql.empty()) {
            result.push_back(std::move(translation.sql));
        }
        for (std::string& sql : translation.more)
            result.push_back(std::move(sql));
    }
    return result;
}

Connection::Result Connection::Execute(std::string_view text, const ado::ExecuteOptions& options)
{
    if (!options.procedure) return RunText(shaper_, text, options);
    text = Trim(text);
    if (StartsWithText(text, "exec ")) text = Trim(text.substr(5));
    if (StartsWithText(text, "dbo.")) text.remove_prefix(4);
    return RunProcedure(Unquote(text), options);
}

Connection::Result Connection::RunText(Shaper& shaper, std::string_view text, const ado::ExecuteOptions& options)
{
    shaper.Run(text);
    if (shaper.Statements().size() != 1) return RunBatch(shaper, options);
    const Statement& statement = shaper.Statements().front();
    return IsQuery(statement.kind) ? RunQuery(shaper, statement, options) : RunStatement(shaper, statement, options);
}

// One result comes back: the first statement's, or with SET NOCOUNT ON the first rows.
Connection::Result Connection::RunBatch(Shaper& shaper, const ado::ExecuteOptions& options)
{
    CheckBatch(shaper);
    // A statement that leads to a procedure or a table takes texts of its own apart.
    const TokenList& tokens = shaper.Tokens();
    const std::vector<Statement>& statements = shaper.Statements();
    Result result;
    bool counts = true;
    for (const Statement& statement : statements) {
        if (statement.kind == StatementKind::Setting) {
            if (SameText(tokens.Text(statement.first + 1), "nocount"))
                counts = SameText(tokens.Text(statement.last - 1), "off");
            continue;
        }
        Result one = RunStatement(shaper, statement, options);
        const bool hasRows = !one->Columns().empty();
        const bool isFirst = !result || (!counts && hasRows && result->Columns().empty());
        if (!isFirst) continue;
        if (hasRows && &statement != &statements.back()) static_cast<RowStatement&>(*one).KeepRest();
        result = std::move(one);
    }
    return result ? std::move(result) : std::make_unique<DoneStatement>(-1);
}

// A fault anywhere in a text stops it before its first statement. Missing tables and bad values count when they are
// reached: a statement before may make them.
void Connection::CheckBatch(const Shaper& shaper)
{
    for (const Statement& statement : shaper.Statements())
        if (!IsQuery(statement.kind) && statement.kind != StatementKind::Setting) return;
    for (const Statement& statement : shaper.Statements()) {
        if (statement.kind == StatementKind::Setting) continue;
        try {
            Shape* shape = FindShape(shaper, statement, false);
            if (shape != nullptr && !shape->idle.empty()) continue;
            GiveBack(Compile(shaper, statement, false, shape));
        } catch (const basic::Error& error) {
            if (error.Number == ado::kErrStatement) throw;
        }
    }
}

Connection::Result Connection::RunStatement(const Shaper& shaper, const Statement& statement,
                                            const ado::ExecuteOptions& options)
{
    switch (statement.kind) {
    case StatementKind::Select:
    case StatementKind::Insert:
    case StatementKind::Update:
    case StatementKind::Delete: return RunQuery(shaper, statement, options);
    case StatementKind::If: return RunIf(shaper, statement, options);
    case StatementKind::Setting: return std::make_unique<DoneStatement>(-1);
    default: break;
    }
    const Translation translation =
        Translate(shaper, statement, *this, {.withRowKeys = options.withRowKeys, .tableAllowed = options.tableAllowed});
    switch (translation.kind) {
    case StatementKind::Exec: return RunProcedure(translation.sql, options);
    case StatementKind::Select: {  // a table's bare name
        Shaper rows;
        return RunText(rows, translation.sql, options);
    }
    case StatementKind::Create:
    case StatementKind::Transaction: {
        FinishReads();
        if (translation.more.empty()) {
            Run(translation.sql.c_str());
        } else {
            OwnTransaction transaction(*this);
            Run(translation.sql.c_str());
            for (const std::string& sql : translation.more)
                Run(sql.c_str());
            transaction.Commit();
        }
        ForgetSchema();
        return std::make_unique<DoneStatement>(-1);
    }
    default: break;
    }
    auto prepared = std::make_unique<Prepared>();
    prepared->statement = Prepare(database_.get(), translation.sql, false);
    if (prepared->statement == nullptr) return std::make_unique<DoneStatement>(-1);  // only blanks
    prepared->columns =
        std::make_shared<const std::vector<ado::ColumnInfo>>(DescribeByEngine(prepared->statement.get(), *this));
    prepared->readOnly = sqlite3_stmt_readonly(prepared->statement.get()) != 0;
    if (!prepared->columns->empty()) {
        if (!prepared->readOnly) FinishReads();
        return std::make_unique<RowStatement>(*this, std::move(prepared), options.timeoutSeconds);
    }
    return RunWrite(std::move(prepared), options.timeoutSeconds);
}

Connection::Result Connection::RunQuery(const Shaper& shaper, const Statement& statement,
                                        const ado::ExecuteOptions& options)
{
    Shape* shape = FindShape(shaper, statement, options.withRowKeys);
    std::unique_ptr<Prepared> prepared;
    if (shape != nullptr) prepared = cache_.Take(*shape);
    if (!prepared) prepared = Compile(shaper, statement, options.withRowKeys, shape);
    if (!prepared->parameters.empty()) {
        try {
            Bind(*prepared, shaper, statement);
        } catch (...) {
            GiveBack(std::move(prepared));
            throw;
        }
    }
    if (!prepared->readOnly || prepared->columns->empty()) return RunWrite(std::move(prepared), options.timeoutSeconds);
    return std::make_unique<RowStatement>(*this, std::move(prepared), options.timeoutSeconds);
}

Connection::Result Connection::RunWrite(std::unique_ptr<Prepared> prepared, std::int32_t timeoutSeconds)
{
    FinishReads();
    sqlite3_stmt* statement = prepared->statement.get();
    const bool writes = !prepared->readOnly;
    watch_ = {.limit = std::chrono::seconds(timeoutSeconds), .started = {}};
    int result = SQLITE_ROW;
    while (result == SQLITE_ROW)
        result = sqlite3_step(statement);
    watch_.limit = {};
    const std::int64_t rows = writes ? sqlite3_changes64(database_.get()) : -1;
    if (result != SQLITE_DONE) {
        basic::Error error = MakeError(database_.get(), result);
        GiveBack(std::move(prepared));
        throw error;
    }
    GiveBack(std::move(prepared));
    return std::make_unique<DoneStatement>(rows);
}

Connection::Result Connection::RunIf(const Shaper& shaper, const Statement& statement,
                                     const ado::ExecuteOptions& options)
{
    const Translation translation = Translate(shaper, statement, *this, {});
    Statement body{
        .kind = KindOf(shaper.Tokens().tokens[statement.body].word), .first = statement.body, .last = statement.last};
    FinishReads();
    // The answer must still hold when the statement runs.
    OwnTransaction transaction(*this);
    const StatementPtr condition = Prepare(database_.get(), translation.condition, false);
    const int answer = sqlite3_step(condition.get());
    Check(database_.get(), answer);
    sqlite3_reset(condition.get());
    if (answer != SQLITE_ROW) {
        transaction.Commit();
        return std::make_unique<DoneStatement>(0);
    }
    Result result = RunStatement(shaper, body, options);
    if (!result->Columns().empty()) static_cast<RowStatement&>(*result).KeepRest();
    transaction.Commit();
    return result;
}

Connection::Result Connection::RunProcedure(const std::string& name, const ado::ExecuteOptions& options)
{
    if (!HasProcedure(name)) throw MakeError(ado::kErrStatement, "Could not find stored procedure '" + name + "'.");
    if (depth_ >= kDeepestCall) throw MakeError(ado::kErrStatement, "Procedures call each other too deeply.");
    const std::string body = procedures_.at(LowerAscii(name));
    Shaper shaper;
    ado::ExecuteOptions inner = options;
    inner.procedure = false;
    inner.withRowKeys = false;
    ++depth_;
    try {
        Result result = RunText(shaper, body, inner);
        --depth_;
        return result;
    } catch (...) {
        --depth_;
        throw;
    }
}

Shape* Connection::FindShape(const Shaper& shaper, const Statement& statement, bool withRowKeys)
{
    const TokenList& tokens = shaper.Tokens();
    if (tokens.tokens[statement.last - 1].end - tokens.tokens[statement.first].begin > kLongestShape) return nullptr;
    key_.assign(1, withRowKeys ? 'k' : '-');
    shaper.AppendShape(statement, key_);
    return cache_.Find(key_);
}

std::unique_ptr<Prepared> Connection::Compile(const Shaper& shaper, const Statement& statement, bool withRowKeys,
                                              Shape* shape)
{
    TranslateOptions options{.withRowKeys = withRowKeys, .keepsValues = shape == nullptr};
    Translation translation = Translate(shaper, statement, *this, options);
    auto prepared = std::make_unique<Prepared>();
    try {
        prepared->statement = Prepare(database_.get(), translation.sql, shape != nullptr);
    } catch (const basic::Error&) {
        if (translation.rowKeyTables.empty()) throw;
        // Something in the text leaves no way to the rows; it runs without keys, or fails in its own words.
        options.withRowKeys = false;
        translation = Translate(shaper, statement, *this, options);
        prepared->statement = Prepare(database_.get(), translation.sql, shape != nullptr);
    }
    prepared->parameters = std::move(translation.parameters);
    prepared->readOnly = sqlite3_stmt_readonly(prepared->statement.get()) != 0;
    prepared->columns = std::make_shared<const std::vector<ado::ColumnInfo>>(
        Describe(prepared->statement.get(), shaper, statement, translation, *this));
    if (shape != nullptr) cache_.Adopt(*prepared, *shape);
    return prepared;
}

void Connection::Bind(Prepared& prepared, const Shaper& shaper, const Statement& statement)
{
    const TokenList& tokens = shaper.Tokens();
    constexpr std::size_t kLongestConverted = 40;  // a converted date or number
    std::size_t size = 0;
    for (std::size_t k = statement.firstLifted; k < statement.lastLifted; ++k) {
        const Token& token = tokens.tokens[shaper.Lifted()[k]];
        size += token.end - token.begin + kLongestConverted;
    }
    std::string& values = prepared.values;
    values.clear();
    values.reserve(size);  // bound texts point into it
    sqlite3_stmt* sql = prepared.statement.get();
    for (std::size_t k = statement.firstLifted; k < statement.lastLifted; ++k) {
        const Token& token = tokens.tokens[shaper.Lifted()[k]];
        std::string_view written = tokens.Text(token);
        const int index = static_cast<int>(k - statement.firstLifted) + 1;
        const std::optional<Assignment>& assignment = prepared.parameters[k - statement.firstLifted];
        const std::size_t begin = values.size();
        if (token.kind == TokenKind::Text && !assignment) {
            written.remove_prefix(written.front() == '\'' ? 1 : 2);
            written.remove_suffix(1);
            for (std::size_t quote; (quote = written.find('\'')) != std::string_view::npos;) {
                values.append(written.substr(0, quote + 1));
                written.remove_prefix(quote + 2);
            }
            values.append(written);
            Check(database_.get(), sqlite3_bind_text(sql, index, values.data() + begin,
                                                     static_cast<int>(values.size() - begin), SQLITE_STATIC));
            continue;
        }
        Value value;
        std::string signedText;
        if (token.kind == TokenKind::Text) {
            value.kind = ado::Cell::Kind::Text;
            value.text = LiteralText(written);
            written = {};
        } else {
            ReadNumberLiteral(written, value);
            if (token.negative) {
                value.integer = -value.integer;
                value.real = -value.real;
                signedText = "-" + std::string(written);
                written = signedText;
            }
        }
        if (assignment) ConvertForColumn(value, written, assignment->type, assignment->column);
        int result = SQLITE_OK;
        switch (value.kind) {
        case ado::Cell::Kind::Null: result = sqlite3_bind_null(sql, index); break;
        case ado::Cell::Kind::Integer: result = sqlite3_bind_int64(sql, index, value.integer); break;
        case ado::Cell::Kind::Real: result = sqlite3_bind_double(sql, index, value.real); break;
        case ado::Cell::Kind::Text:
            values.append(value.text);
            result = sqlite3_bind_text(sql, index, values.data() + begin, static_cast<int>(value.text.size()),
                                       SQLITE_STATIC);
            break;
        }
        Check(database_.get(), result);
    }
}

void Connection::FinishReads()
{
    for (RowStatement* statement = statements_; statement != nullptr; statement = statement->next_)
        if (statement->IsRunning()) statement->KeepRest();
}

void Connection::GiveBack(std::unique_ptr<Prepared> prepared)
{
    sqlite3_stmt* statement = prepared->statement.get();
    if (prepared->shape == nullptr) return;  // goes for good
    sqlite3_reset(statement);
    // Somebody else changed the schema: what is known of columns no longer holds.
    if (sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_REPREPARE, 0) > 0) ForgetSchema();
    cache_.GiveBack(std::move(prepared));
}

void Connection::ForgetSchema()
{
    cache_.Clear();
    tables_.clear();
    lastTable_ = nullptr;
    procedures_.clear();
}

}  // namespace kvx::adapters::sqlite
