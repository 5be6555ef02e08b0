#include "Bench.h"
#include "Stands.h"

#include "adapters/sqlite/SqliteDriver.h"
#include "ado/Connection.h"

#include <cstdio>

// What the editor of a wide master table sends when a row is saved: one UPDATE a column, each committed by itself.
namespace kvx::bench {
namespace {

constexpr int kColumns = 90;

std::string Column(int index)
{
    return "SPALTE" + std::to_string(index);
}

std::string Value(int index, std::int64_t turn)
{
    const std::string number = std::to_string(turn % 1000 + index);
    switch (index % 3) {
    case 0: return "'Text " + number + "'";
    case 1: return number;
    default: return number + ".5";
    }
}

}  // namespace

int RunUpdate(const Arguments& arguments)
{
    const int rounds = static_cast<int>(arguments.Number("--rounds", 31));
    const std::string synchronous = arguments.Text("--synchronous", "FULL");
    const TemporaryDatabase database;
    adapters::sqlite::RegisterSqliteDriver();
    ado::Connection connection;
    connection.Open(database.ConnectionString() + ";Synchronous=" + synchronous);
    std::string table = "CREATE TABLE SORTE (ID int NOT NULL PRIMARY KEY";
    for (int i = 0; i < kColumns; ++i)
        table += ", " + Column(i) + (i % 3 == 0 ? " nvarchar(25)" : i % 3 == 1 ? " int" : " numeric(8,2)");
    connection.Execute(table + ")");
    connection.Execute("INSERT INTO SORTE (ID) VALUES (1)");
    const RawDatabase raw = OpenRaw(database, synchronous);

    std::int64_t turn = 0;
    const auto timings =
        CompareByTurns(rounds, {
                                   [&] {
                                       ++turn;
                                       for (int i = 0; i < kColumns; ++i) {
                                           const std::string sql = "UPDATE SORTE SET " + Column(i) + " = " +
                                                                   Value(i, turn) + " WHERE ID = 1";
                                           RunRaw(raw.get(), sql.c_str());
                                       }
                                   },
                                   [&] {
                                       ++turn;
                                       for (int i = 0; i < kColumns; ++i)
                                           connection.Execute("UPDATE SORTE SET SORTE." + Column(i) + " = " +
                                                              Value(i, turn) + " WHERE ID = 1");
                                   },
                               });
    std::printf("updates=%d synchronous=%s raw_ms=%.2f ours_ms=%.2f ratio=%.3f\n", kColumns, synchronous.c_str(),
                timings[0].ms, timings[1].ms, timings[1].ratio);
    return 0;
}

}  // namespace kvx::bench
