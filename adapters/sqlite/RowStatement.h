#pragma once

#include "adapters/sqlite/Connection.h"
#include "adapters/sqlite/Prepared.h"
#include "ado/Driver.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kvx::adapters::sqlite {

/// A SELECT at work. Its rows come from the engine one by one, until the connection is about to write: SQLite would
/// show what is written meanwhile, so the rest is read first and kept here.
class RowStatement final : public ado::DriverStatement {
public:
    RowStatement(Connection& connection, std::unique_ptr<Prepared> prepared, std::int32_t timeoutSeconds);
    ~RowStatement() override;
    RowStatement(const RowStatement&) = delete;
    RowStatement& operator=(const RowStatement&) = delete;

    std::span<const ado::ColumnInfo> Columns() const override { return *columns_; }
    std::shared_ptr<const std::vector<ado::ColumnInfo>> SharedColumns() const override { return columns_; }
    bool Step() override;
    ado::Cell At(std::size_t column) const override;
    void Read(std::span<ado::Cell> cells) const override;
    std::int64_t RowsAffected() const override { return -1; }

    /// Reads all rows left and lets go of the engine.
    void KeepRest();
    /// The connection goes; no rows come any more.
    void Detach();

    bool IsRunning() const { return state_ == State::Running; }

private:
    friend class Connection;
    enum class State : std::uint8_t { Fresh, Running, Kept, Done };

    struct KeptCell {
        ado::Cell::Kind kind = ado::Cell::Kind::Null;
        std::int64_t integer = 0;  // of a text: where it begins
        double real = 0;
        std::size_t size = 0;
    };

    bool Advance();
    void Release();
    void Keep();
    ado::Cell Current(std::size_t column) const;

    Connection* connection_;
    std::unique_ptr<Prepared> prepared_;
    std::shared_ptr<const std::vector<ado::ColumnInfo>> columns_;
    std::int32_t timeoutSeconds_;
    State state_ = State::Fresh;
    bool onKept_ = false;  // the current row is a kept one
    std::size_t nextRow_ = 0;
    std::vector<KeptCell> kept_;
    std::string keptTexts_;
    RowStatement* previous_ = nullptr;
    RowStatement* next_ = nullptr;
};

/// What INSERT, UPDATE, DELETE and the like leave behind.
class DoneStatement final : public ado::DriverStatement {
public:
    explicit DoneStatement(std::int64_t rowsAffected) : rowsAffected_(rowsAffected) {}

    std::span<const ado::ColumnInfo> Columns() const override { return {}; }
    bool Step() override { return false; }
    ado::Cell At(std::size_t) const override { return {}; }
    std::int64_t RowsAffected() const override { return rowsAffected_; }

private:
    std::int64_t rowsAffected_;
};

}  // namespace kvx::adapters::sqlite
