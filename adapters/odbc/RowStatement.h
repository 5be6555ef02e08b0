#pragma once

#include "adapters/odbc/Connection.h"
#include "ado/ColumnStore.h"
#include "ado/Driver.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kvx::adapters::odbc {

/// A result that is being read. Rows come in blocks into bound arrays, one array a column. From the first column on
/// that may be too long to bind, values are fetched row by row.
class RowStatement final : public ado::DriverStatement {
public:
    /// @param columns   all of the result
    /// @param infos     the visible ones, then a rowKey column for each of keyParts
    /// @param keyParts  which columns of the result make up each row key
    RowStatement(Connection& connection, StatementHandle statement, const std::vector<DriverColumn>& columns,
                 std::vector<ado::ColumnInfo> infos, std::size_t visible,
                 std::vector<std::vector<std::size_t>> keyParts);
    RowStatement(const RowStatement&) = delete;
    RowStatement& operator=(const RowStatement&) = delete;

    std::span<const ado::ColumnInfo> Columns() const override { return *infos_; }
    std::shared_ptr<const std::vector<ado::ColumnInfo>> SharedColumns() const override { return infos_; }
    bool Step() override;
    ado::Cell At(std::size_t column) const override;
    void Read(std::span<ado::Cell> cells) const override;
    std::int64_t RowsAffected() const override { return -1; }
    const StatementHandle& Statement() const { return statement_; }

private:
    enum class Form : std::uint8_t { Integer, Real, Utf8, Utf16, Decimal, Stamp, Flag, LongUtf16, LongUtf8 };

    struct Buffer {
        Form form = Form::Utf16;
        SQLSMALLINT cType = SQL_C_WCHAR;
        std::size_t width = 0;  // bytes a value
        std::size_t padTo = 0;  // characters; char(n) without its blanks
        std::unique_ptr<std::byte[]> values;
        std::vector<SQLLEN> lengths;
        mutable std::string text;  // of the current row, where it is not in the values
    };

    void Prepare(const std::vector<DriverColumn>& columns);
    bool FetchBlock();
    void GetRest();
    void GetLong(SQLUSMALLINT number, Buffer& buffer);
    ado::Cell CellOf(const Buffer& buffer) const;
    ado::Cell KeyCell(std::size_t key) const;
    void CheckLengths();

    Connection& connection_;
    std::shared_ptr<const std::vector<ado::ColumnInfo>> infos_;
    std::size_t visible_;
    std::vector<std::vector<std::size_t>> keyParts_;
    std::vector<Buffer> buffers_;
    std::size_t firstUnbound_ = 0;  // columns from here on are fetched row by row
    SQLULEN blockRows_ = 1;
    SQLULEN fetched_ = 0;
    SQLULEN row_ = 0;  // in the block
    bool done_ = false;
    mutable std::vector<std::string> keyTexts_;
    StatementHandle statement_;  // freed before the buffers that are bound to it
};

/// The rows of a result that others follow: read at once, because the statements behind it run only then.
class KeptStatement final : public ado::DriverStatement {
public:
    /// Reads all rows. @throws basic::Error what ended the reading
    explicit KeptStatement(RowStatement& rows);

    std::span<const ado::ColumnInfo> Columns() const override { return store_.Columns(); }
    std::shared_ptr<const std::vector<ado::ColumnInfo>> SharedColumns() const override
    {
        return store_.SharedColumns();
    }
    bool Step() override { return next_++ < store_.Rows(); }
    ado::Cell At(std::size_t column) const override { return store_.CellAt(column, next_ - 1); }
    std::int64_t RowsAffected() const override { return -1; }

private:
    ado::ColumnStore store_;
    std::size_t next_ = 0;
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

/// Parts of a key of several columns, or of one that is no number, as one text.
inline constexpr char kKeySeparator = '\x1F';

}  // namespace kvx::adapters::odbc
