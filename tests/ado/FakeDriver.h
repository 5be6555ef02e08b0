#pragma once

#include "ado/Connection.h"
#include "ado/Driver.h"
#include "basic/Error.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

// An engine that answers from a script, so that the rules of recordsets are tested without any database.
namespace kvx::ado::testing {

using FakeValue = std::variant<std::monostate, std::int64_t, double, std::string>; // monostate: NULL
using FakeRow = std::vector<FakeValue>;

inline FakeValue Null()
{
    return {};
}
inline FakeValue Int(std::int64_t value)
{
    return value;
}

/// What a statement text is answered with.
struct FakeResult {
    std::vector<ColumnInfo> columns = {}; // none: a statement without rows
    std::vector<FakeRow> rows = {};
    std::int64_t affected = -1;
    std::optional<basic::Error> error = {};     // raised instead of running
    std::optional<std::size_t> failsAtRow = {}; // Step raises E07 when it comes to this row
};

inline ColumnInfo Column(std::string name, DataTypeEnum type, std::int32_t size = 0)
{
    ColumnInfo info;
    info.name = name;
    info.type = type;
    info.definedSize = size;
    info.baseTable = "TREE";
    info.baseColumn = std::move(name);
    return info;
}

inline ColumnInfo RowKey()
{
    ColumnInfo info = Column("rowid", adBigInt, 8);
    info.rowKey = true;
    return info;
}

class FakeDatabase;

/// Every text lives on the heap until the next Step only: a view kept longer is found by the address sanitizer.
class FakeStatement final : public DriverStatement {
public:
    FakeStatement(FakeDatabase& database, FakeResult result, bool withRowKeys);
    ~FakeStatement() override;
    std::span<const ColumnInfo> Columns() const override { return result_.columns; }
    bool Step() override;
    Cell At(std::size_t column) const override;
    std::int64_t RowsAffected() const override { return result_.affected; }

private:
    FakeDatabase& database_;
    FakeResult result_;
    std::size_t next_ = 0;
    std::vector<std::unique_ptr<char[]>> texts_;
};

/// The script and the log. Connect gives a connection to it; it must outlive its connections.
class FakeDatabase {
public:
    FakeDatabase()
    {
        RegisterDriver("Fake", [this](const ConnectionProperties& properties) { return Open(properties); });
    }
    ~FakeDatabase()
    {
        RegisterDriver("Fake", [](const ConnectionProperties&) { return nullptr; });
    }
    FakeDatabase(const FakeDatabase&) = delete;
    FakeDatabase& operator=(const FakeDatabase&) = delete;

    Connection Connect()
    {
        Connection connection;
        connection.Open("Provider=Fake");
        return connection;
    }

    std::map<std::string, FakeResult> answers;
    std::map<std::string, FakeResult> answersWithKeys; // what the text gives when row keys are asked for
    std::optional<basic::Error> openError, writeError;
    DriverTraits traits{.name = "Fake"};
    std::int64_t nextKey = 100;

    // The log.
    std::vector<std::string> texts;
    std::vector<ExecuteOptions> options;
    std::vector<RowChange> writes;
    ConnectionProperties openedWith;
    int liveStatements = 0;
    int liveConnections = 0;
    int steps = 0;

private:
    std::unique_ptr<DriverConnection> Open(const ConnectionProperties& properties);
};

class FakeConnection final : public DriverConnection {
public:
    explicit FakeConnection(FakeDatabase& database) : database_(database) { ++database_.liveConnections; }
    ~FakeConnection() override { --database_.liveConnections; }
    const DriverTraits& Traits() const override { return database_.traits; }
    std::unique_ptr<DriverStatement> Execute(std::string_view text, const ExecuteOptions& options) override
    {
        database_.texts.emplace_back(text);
        database_.options.push_back(options);
        const auto& withKeys = database_.answersWithKeys;
        const bool keyed = options.withRowKeys && withKeys.contains(std::string(text));
        const auto& answers = keyed ? withKeys : database_.answers;
        const auto found = answers.find(std::string(text));
        if (found == answers.end()) throw basic::Error(kErrStatement, "not in the script: " + std::string(text));
        if (found->second.error) throw basic::Error(*found->second.error);
        return std::make_unique<FakeStatement>(database_, found->second, keyed);
    }
    basic::Variant WriteRow(const RowChange& change) override
    {
        if (database_.writeError) throw basic::Error(*database_.writeError);
        database_.writes.push_back(change);
        return change.rowKey ? *change.rowKey : basic::Variant(std::int64_t{database_.nextKey++});
    }
    bool IsAlive() const override { return true; }

private:
    FakeDatabase& database_;
};

inline std::unique_ptr<DriverConnection> FakeDatabase::Open(const ConnectionProperties& properties)
{
    openedWith = properties;
    if (openError) throw basic::Error(*openError);
    return std::make_unique<FakeConnection>(*this);
}

inline FakeStatement::FakeStatement(FakeDatabase& database, FakeResult result, bool)
    : database_(database), result_(std::move(result))
{
    ++database_.liveStatements;
}

inline FakeStatement::~FakeStatement()
{
    --database_.liveStatements;
}

inline bool FakeStatement::Step()
{
    ++database_.steps;
    texts_.clear();
    if (result_.failsAtRow == next_) throw basic::Error(kErrConversion, "value cannot be converted");
    if (next_ >= result_.rows.size()) return false;
    for (const FakeValue& value : result_.rows[next_]) {
        const std::string* text = std::get_if<std::string>(&value);
        texts_.push_back(text == nullptr ? nullptr : std::make_unique<char[]>(text->size() + 1));
        if (text != nullptr) std::copy(text->begin(), text->end(), texts_.back().get());
    }
    ++next_;
    return true;
}

inline Cell FakeStatement::At(std::size_t column) const
{
    const FakeValue& value = result_.rows[next_ - 1].at(column);
    Cell cell;
    if (const std::int64_t* integer = std::get_if<std::int64_t>(&value)) {
        cell.kind = Cell::Kind::Integer;
        cell.integer = *integer;
    } else if (const double* real = std::get_if<double>(&value)) {
        cell.kind = Cell::Kind::Real;
        cell.real = *real;
    } else if (const std::string* text = std::get_if<std::string>(&value)) {
        cell.kind = Cell::Kind::Text;
        cell.text = {texts_[column].get(), text->size()};
    }
    return cell;
}

/// The number of the error that the call raises; 0 when it raises none.
template <class Call>
std::int32_t ErrorOf(Call call)
{
    try {
        call();
    } catch (const basic::Error& error) {
        return error.Number;
    }
    return 0;
}

/// Three trees, as most tests read them: ID, NAME, HEIGHT.
inline constexpr const char* kTrees = "SELECT ID, NAME, HEIGHT FROM TREE";
inline constexpr const char* kNoTrees = "SELECT ID, NAME, HEIGHT FROM TREE WHERE 1 = 0";

inline void AddTrees(FakeDatabase& database)
{
    const std::vector<ColumnInfo> columns = {Column("ID", adInteger, 4), Column("NAME", adVarWChar, 10),
                                             Column("HEIGHT", adDouble, 8)};
    database.answers[kTrees] = {
        .columns = columns,
        .rows = {{Int(1), "Eiche", 21.5}, {Int(2), "Fichte", Int(30)}, {Int(3), "Kiefer", Null()}},
    };
    database.answers[kNoTrees] = {.columns = columns};
    FakeResult& keyed = database.answersWithKeys[kTrees] = database.answers[kTrees];
    keyed.columns.push_back(RowKey());
    for (std::size_t row = 0; row < keyed.rows.size(); ++row)
        keyed.rows[row].emplace_back(static_cast<std::int64_t>(row) + 11);
    database.answersWithKeys[kNoTrees] = {.columns = keyed.columns};
    database.answers["DELETE FROM TREE"] = {.affected = 3};
}

/// How a test wants its recordset opened.
inline Recordset OpenTrees(const Connection& connection, CursorTypeEnum cursor = adOpenStatic,
                           LockTypeEnum lock = adLockReadOnly, const char* text = kTrees)
{
    Recordset set;
    set.Open(text, connection, cursor, lock);
    return set;
}

inline std::string TextOf(const basic::Variant& value)
{
    const std::string* text = value.As<std::string>();
    return text == nullptr ? "(no text)" : *text;
}

} // namespace kvx::ado::testing
