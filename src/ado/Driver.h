#pragma once

#include "ado/Constants.h"
#include "basic/Variant.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// What an engine must offer. The layer above knows no engine; what engines do differently is data (DriverTraits).
namespace kvx::ado {

/// A column of a result, as SQL Server's provider would describe it.
struct ColumnInfo {
    std::string name;                      ///< alias or column name; empty for an expression without one
    DataTypeEnum type = adVarWChar;        ///< ADO type code
    std::int32_t definedSize = 0;          ///< characters for text, bytes for the rest
    std::uint8_t precision = 255;          ///< 255 = does not apply
    std::uint8_t scale = 255;              ///< 255 = does not apply
    std::optional<std::string> baseTable;  ///< nothing for anything computed
    std::optional<std::string> baseColumn; ///< nothing for anything computed
    bool nullable = true;
    bool rowKey = false; ///< identifies the row for Update; hidden from Fields; stands behind all visible columns
    bool autoIncrement = false; ///< the engine counts it up; after an insert it reads as the key that WriteRow gave
};

/// One value of the current row; a view, good until the next Step. Text of char(n) comes padded with blanks to n.
struct Cell {
    enum class Kind : std::uint8_t { Null, Integer, Real, Text };
    Kind kind = Kind::Null;
    std::int64_t integer = 0;
    double real = 0;
    std::string_view text;
};

/// A statement running in an engine; the ado layer owns it. Destroying it ends it. A statement without rows has already
/// run when the connection hands it out; a SELECT may wait for the first Step.
class DriverStatement {
public:
    virtual ~DriverStatement() = default;
    virtual std::span<const ColumnInfo> Columns() const = 0; ///< known before the first row; empty: no result set

    /// The same, to be kept beyond the statement. An engine that caches statements gives its own list out, so that a
    /// look-up of one row copies no names.
    virtual std::shared_ptr<const std::vector<ColumnInfo>> SharedColumns() const
    {
        const std::span<const ColumnInfo> columns = Columns();
        return std::make_shared<const std::vector<ColumnInfo>>(columns.begin(), columns.end());
    }

    virtual bool Step() = 0; ///< false: past the last row
    virtual Cell At(std::size_t column) const = 0;

    /// All values of the current row at once: cells.size() columns from the first on. An engine that can do better
    /// than one virtual call a value overrides it.
    virtual void Read(std::span<Cell> cells) const
    {
        for (std::size_t column = 0; column < cells.size(); ++column)
            cells[column] = At(column);
    }

    virtual std::int64_t RowsAffected() const = 0; ///< rows touched by INSERT, UPDATE, DELETE; -1 for a SELECT
};

struct ExecuteOptions {
    bool procedure = false;   ///< the text is the name of a stored procedure
    bool tableAllowed = true; ///< a text that is one bare name may mean a table or a procedure
    /// Add a rowKey column (with its baseTable) for each table whose rows can be updated in place. A statement that
    /// leaves no way back to the rows (DISTINCT, GROUP BY, UNION ...) runs all the same, without keys.
    bool withRowKeys = false;
    std::int32_t timeoutSeconds = 30;
};

/// New values of one row of one base table. Values have the kind of their column (Boolean for bit, Decimal for numeric
/// and bigint, Date for any date, text as String ...) or are Null. A key whose cell was an integer is a Decimal of
/// scale 0, any other a String.
struct RowChange {
    std::string table;
    std::vector<std::string> columns;
    std::vector<basic::Variant> values;
    std::vector<basic::Variant> oldValues; ///< of the same columns, for the check that nobody changed them
                                           ///< meanwhile; Empty: not known, no check
    std::optional<basic::Variant> rowKey;  ///< nothing: insert
};

/// What engines do differently.
struct DriverTraits {
    std::string name;             ///< for messages and tests
    bool emptyTextIsNull = false; ///< '' is stored as NULL
    bool rowsWhileReading = true; ///< a further statement may run while a result is still unread

    /// A result that is still being stepped would show rows written meanwhile on the same connection. The layer above
    /// then reads such results to their end before it sends anything that is no plain SELECT.
    bool readsSeeLaterWrites = false;
};

/// One open connection to an engine. Errors are basic::Error with the provider's number and text.
class DriverConnection {
public:
    virtual ~DriverConnection() = default;
    virtual const DriverTraits& Traits() const = 0;

    /// Runs the text (one statement or several) and gives its first result.
    virtual std::unique_ptr<DriverStatement> Execute(std::string_view text, const ExecuteOptions& options) = 0;

    /// Writes one row in place. @return the row's key
    /// @throws basic::Error -2147217864 when somebody else changed the row meanwhile
    virtual basic::Variant WriteRow(const RowChange& change) = 0;

    /// False once the engine is gone; statements then fail.
    virtual bool IsAlive() const = 0;
};

/// The parts of a connection string, "name=value;..."; names ignore case. A value with a ";" or with blanks at its ends
/// stands in quotes (either kind, doubled inside); of two parts of one name the last counts.
class ConnectionProperties {
public:
    ConnectionProperties() = default;
    explicit ConnectionProperties(std::string_view connectionString);

    /// The first of the names that is there; empty when none is. e.g. Get({"data source", "server"})
    std::string Get(std::initializer_list<std::string_view> names) const;
    bool Has(std::string_view name) const;
    void Set(std::string_view name, std::string_view value);
    /// The string again, without the named parts.
    std::string ToString(std::initializer_list<std::string_view> without = {}) const;

private:
    std::vector<std::pair<std::string, std::string>> parts_; ///< names as written, in order
};

using DriverFactory = std::function<std::unique_ptr<DriverConnection>(const ConnectionProperties&)>;

/// Makes a driver known under the name that Provider= of a connection string gives (case is ignored). A driver of that
/// name known before is replaced.
void RegisterDriver(std::string_view provider, DriverFactory factory);

/// Opens a connection by Provider= (MSDASQL, the bridge to ODBC, when it is missing). @throws basic::Error 3706 when no
/// driver has that name
std::unique_ptr<DriverConnection> OpenDriver(const ConnectionProperties& properties);

} // namespace kvx::ado
