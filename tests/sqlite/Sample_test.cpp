#include "adapters/sqlite/SqliteDriver.h"
#include "sqlite/TestDatabase.h"

#include <sstream>

namespace kvx::test {

namespace {

void LoadSample(const TestDatabase& database)
{
    std::istringstream order(SourceFile("host/sample/order.txt"));
    for (std::string name; std::getline(order, name);)
        if (!name.empty()) database.Run(SourceFile("host/sample/" + name));
}

}  // namespace

TEST(SampleDatabase, SchemaAndDataLoadAsTheyAreWrittenForSqlServer)
{
    TestDatabase database;
    LoadSample(database);
    EXPECT_EQ(database.Value("SELECT COUNT(*) FROM WALDORT"), "4967");
    EXPECT_EQ(database.Value("SELECT COUNT(*) FROM WALDORT WHERE WO6 IS NOT NULL AND WO5 IS NULL"), "0");
    EXPECT_NE(database.Value("SELECT COUNT(*) FROM STAMM_TABELLEN"), "0");
}

TEST(SampleDatabase, EveryTextColumnComparesTheGermanWay)
{
    TestDatabase database;
    LoadSample(database);
    const auto raw = adapters::sqlite::OpenSqlite(ado::ConnectionProperties(database.ConnectionString()));
    EXPECT_EQ(adapters::sqlite::ColumnsWithoutCollation(*raw), std::vector<std::string>{});
}

TEST(SampleDatabase, TheProcedureGivesTheKeyOfTheNewStand)
{
    TestDatabase database(SourceFile("host/sample/schema.sql"));
    for (const char* expected : {"1", "2"}) {
        ado::Recordset inserted = database.connection.Execute("kvx_WALDORT_INS", nullptr, ado::adCmdStoredProc);
        EXPECT_EQ(basic::ToText(inserted[0].Value()), expected);
    }
    EXPECT_EQ(database.Value("SELECT COUNT(*) FROM WALDORT WHERE WO1 IS NULL"), "2");
}

TEST(SampleDatabase, ADeleteThatBreaksAReferenceIsAConstraintError)
{
    TestDatabase database(SourceFile("host/sample/schema.sql"));
    database.connection.Execute("INSERT INTO WALDORT (WO1) VALUES ('Nord')");
    database.connection.Execute("INSERT INTO [PLAN] (ID, KURZTEXT, ID_WALDORT) VALUES (1, 'x', 1)");
    EXPECT_EQ(database.ErrorOf("DELETE FROM WALDORT WHERE ID_WALDORT = 1"), ado::kErrConstraint);
    EXPECT_EQ(database.Value("SELECT COUNT(*) FROM WALDORT"), "1");
}

}  // namespace kvx::test
