#include "Bench.h"
#include "Stands.h"

#include "adapters/sqlite/SqliteDriver.h"
#include "ado/Connection.h"
#include "ado/Recordset.h"

#include <array>
#include <cstdio>
#include <sqlite3.h>

// The stand tree's statement over many stands: stepped raw, read forward-only, and taken by GetRows. All touch the six
// texts of every row.
namespace kvx::bench {
namespace {

constexpr int kLevels = 6;

std::uint64_t Touch(std::string_view text)
{
    return text.empty() ? 0 : text.size() + static_cast<unsigned char>(text.front());
}

void ReadRaw(sqlite3* database, std::string_view sql)
{
    const RawStatement statement = PrepareRaw(database, sql);
    std::uint64_t sum = 0;
    while (sqlite3_step(statement.get()) == SQLITE_ROW) {
        for (int column = 0; column < kLevels; ++column) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column));
            sum += Touch({text, static_cast<std::size_t>(sqlite3_column_bytes(statement.get(), column))});
        }
    }
    Consume(sum);
}

void ReadForward(const ado::Connection& connection)
{
    ado::Recordset rows;
    rows.Open(TreeStatement(), connection);
    const ado::Fields fields = rows.Fields();
    const std::array<ado::Field, kLevels> levels{fields[0], fields[1], fields[2], fields[3], fields[4], fields[5]};
    std::uint64_t sum = 0;
    for (; !rows.Eof(); rows.MoveNext())
        for (const ado::Field& level : levels)
            sum += Touch(level.TextView());
    Consume(sum);
}

ado::RowBlock ReadBlock(const ado::Connection& connection)
{
    ado::Recordset rows;
    rows.Open(TreeStatement(), connection);
    return rows.GetRows();
}

}  // namespace

int RunRead(const Arguments& arguments)
{
    const std::int64_t count = arguments.Number("--rows", 1'000'000);
    const int rounds = static_cast<int>(arguments.Number("--rounds", 7));
    const TemporaryDatabase database;
    MakeStands(database, count);
    adapters::sqlite::RegisterSqliteDriver();
    ado::Connection connection;
    connection.Open(database.ConnectionString());
    const RawDatabase raw = OpenRaw(database);
    const auto driver = adapters::sqlite::OpenSqlite(ado::ConnectionProperties(database.ConnectionString()));
    const std::string sql = adapters::sqlite::TranslateText(*driver, TreeStatement()).front();
    // Values are bound there and written here; the work is the same.
    std::string written = sql;
    for (std::size_t at; (at = written.find('?')) != std::string::npos;)
        written.replace(at, 2, "0");

    double bytes = 0;
    std::size_t rows = 0;
    const auto readBlock = [&] {
        const ado::RowBlock block = ReadBlock(connection);
        rows = block.Rows();
        bytes = static_cast<double>(block.Bytes());
    };
    const auto timings = CompareByTurns(
        rounds, {[&] { ReadRaw(raw.get(), written); }, [&] { ReadForward(connection); }, readBlock}, Clock::Processor);
    std::printf("rows=%zu raw_ms=%.1f forward_ms=%.1f forward_ratio=%.3f getrows_ms=%.1f getrows_ratio=%.3f "
                "bytes_per_row=%.1f\n",
                rows, timings[0].ms, timings[1].ms, timings[1].ratio, timings[2].ms, timings[2].ratio,
                bytes / static_cast<double>(rows));
    return 0;
}

}  // namespace kvx::bench
