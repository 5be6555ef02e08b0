#include "Bench.h"
#include "Stands.h"

#include "adapters/sqlite/SqliteDriver.h"
#include "ado/Connection.h"
#include "ado/Recordset.h"
#include "basic/Variant.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sqlite3.h>

// One stand by its full key, every time with other values: composed, translated, run, one row read. Raw composes the
// translated text and prepares, steps and finalizes it.
namespace kvx::bench {
namespace {

std::int64_t LeafOf(std::int64_t index, std::int64_t leaves)
{
    return index * 7919 % leaves;  // all over the forest
}

// A number in the list of columns is part of the shape: with it no text is like the one before.
std::string Compose(std::int64_t index, std::int64_t leaves, bool raw, bool everNew)
{
    const StandKey key = KeyOfLeaf(LeafOf(index, leaves));
    std::string sql = raw ? "SELECT ID_WALDORT" : "SELECT TOP 1 ID_WALDORT";
    if (everNew) sql += "," + std::to_string(index);
    sql += raw ? " FROM WALDORT WHERE IFNULL(DISABLE,0) = 0 AND WALDORT.ID_ACCESS_LEVELS IS NULL"
               : " FROM WALDORT WHERE ISNULL(DISABLE,0) = 0 AND WALDORT.ID_ACCESS_LEVELS IS NULL";
    for (int level = 0; level < 6; ++level)
        sql += " AND WO" + std::to_string(level + 1) + " = '" + key.levels[level] + "'";
    if (raw) sql += " LIMIT 1";
    return sql;
}

}  // namespace

int RunLookup(const Arguments& arguments)
{
    const std::int64_t count = arguments.Number("--n", 20'000);
    const std::int64_t rows = arguments.Number("--rows", 100'000);
    constexpr std::int64_t kATurn = 100;  // short turns: what else runs on the machine hits both sides alike
    const TemporaryDatabase database;
    MakeStands(database, rows);
    adapters::sqlite::RegisterSqliteDriver();
    ado::Connection connection;
    connection.Open(database.ConnectionString());
    const RawDatabase raw = OpenRaw(database);
    const std::int64_t leaves = rows * 4 / 5;

    std::int64_t next = 0;  // of the texts that never come twice
    const auto runRaw = [&](bool everNew) {
        std::uint64_t sum = 0;
        for (std::int64_t i = 0; i < kATurn; ++i) {
            const RawStatement statement = PrepareRaw(raw.get(), Compose(++next, leaves, true, everNew));
            if (sqlite3_step(statement.get()) != SQLITE_ROW) std::abort();
            sum += static_cast<std::uint64_t>(sqlite3_column_int64(statement.get(), 0));
        }
        Consume(sum);
    };
    const auto runOurs = [&](bool everNew) {
        std::uint64_t sum = 0;
        for (std::int64_t i = 0; i < kATurn; ++i) {
            ado::Recordset row;
            row.Open(Compose(++next, leaves, false, everNew), connection);
            sum += static_cast<std::uint64_t>(row[0].Int64());
        }
        Consume(sum);
    };
    const int rounds = static_cast<int>(std::max<std::int64_t>(count / kATurn, 1));
    const auto seen = CompareByTurns(rounds, {[&] { runRaw(false); }, [&] { runOurs(false); }}, Clock::Processor);
    const auto fresh = CompareByTurns(rounds, {[&] { runRaw(true); }, [&] { runOurs(true); }}, Clock::Processor);
    const auto perSecond = [](const Timing& timing) { return static_cast<double>(kATurn) / timing.ms * 1000; };
    std::printf(
        "n=%lld raw_per_s=%.0f ours_per_s=%.0f ratio=%.3f new_raw_per_s=%.0f new_ours_per_s=%.0f new_ratio=%.3f\n",
        static_cast<long long>(count), perSecond(seen[0]), perSecond(seen[1]), seen[1].ratio, perSecond(fresh[0]),
        perSecond(fresh[1]), fresh[1].ratio);
    return 0;
}

}  // namespace kvx::bench
