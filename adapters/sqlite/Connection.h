#pragma once

#include "adapters/sqlite/Prepared.h"
#include "adapters/sqlite/Schema.h"
#include "adapters/sqlite/Shape.h"
#include "ado/Driver.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct sqlite3;

namespace kvx::adapters::sqlite {

class RowStatement;

struct CloseDatabase {
    void operator()(sqlite3* database) const;
};
using DatabasePtr = std::unique_ptr<sqlite3, CloseDatabase>;

/// One open database file.
class Connection final : public ado::DriverConnection, private Schema {
public:
    /// @param database  open, with our functions and collations
    explicit Connection(DatabasePtr database);
    ~Connection() override;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    const ado::DriverTraits& Traits() const override;
    std::unique_ptr<ado::DriverStatement> Execute(std::string_view text, const ado::ExecuteOptions& options) override;
    basic::Variant WriteRow(const ado::RowChange& change) override;
    bool IsAlive() const override;

    sqlite3* Database() const { return database_.get(); }

    std::vector<std::string> Translations(std::string_view text, const ado::ExecuteOptions& options);

    /// Runs one statement of SQLite's own.
    void Run(const char* sql);

private:
    friend class RowStatement;
    using Result = std::unique_ptr<ado::DriverStatement>;

    // Connection.cpp
    Result RunText(Shaper& shaper, std::string_view text, const ado::ExecuteOptions& options);
    Result RunBatch(Shaper& shaper, const ado::ExecuteOptions& options);
    Result RunStatement(const Shaper& shaper, const Statement& statement, const ado::ExecuteOptions& options);
    Result RunQuery(const Shaper& shaper, const Statement& statement, const ado::ExecuteOptions& options);
    Result RunIf(const Shaper& shaper, const Statement& statement, const ado::ExecuteOptions& options);
    Result RunProcedure(const std::string& name, const ado::ExecuteOptions& options);
    Result RunWrite(std::unique_ptr<Prepared> prepared, std::int32_t timeoutSeconds);
    void CheckBatch(const Shaper& shaper);
    Shape* FindShape(const Shaper& shaper, const Statement& statement, bool withRowKeys);
    std::unique_ptr<Prepared> Compile(const Shaper& shaper, const Statement& statement, bool withRowKeys, Shape* shape);
    void Bind(Prepared& prepared, const Shaper& shaper, const Statement& statement);
    void FinishReads();
    void GiveBack(std::unique_ptr<Prepared> prepared);
    void ForgetSchema();
    static int OnProgress(void* connection);

    // Connection.schema.cpp
    const TableDef* FindTable(std::string_view name) override;
    bool HasProcedure(std::string_view name) override;
    void LoadProcedures();

    // The running time of the statement at work is watched from the first call back of the engine on, which short
    // statements never see.
    struct Watch {
        std::chrono::milliseconds limit{0};  // 0 = none
        std::chrono::steady_clock::time_point started;
    };

    DatabasePtr database_;
    ShapeCache cache_;
    Shaper shaper_;
    std::string key_;
    RowStatement* statements_ = nullptr;  // those handed out, as a list
    Watch watch_;
    int depth_ = 0;                                                      // of procedures that call procedures
    std::unordered_map<std::string, std::unique_ptr<TableDef>> tables_;  // by name in lower case
    const TableDef* lastTable_ = nullptr;                                // asked for last
    std::unordered_map<std::string, std::string> procedures_;            // bodies, by name in lower case
};

/// BEGIN now, ROLLBACK unless Commit was called. Inside a transaction of the caller it does nothing.
class OwnTransaction {
public:
    explicit OwnTransaction(Connection& connection);
    ~OwnTransaction();
    OwnTransaction(const OwnTransaction&) = delete;
    OwnTransaction& operator=(const OwnTransaction&) = delete;
    void Commit();

private:
    Connection& connection_;
    bool open_ = false;
};

}  // namespace kvx::adapters::sqlite
