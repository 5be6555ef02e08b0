#include "FakeDriver.h"

#include <gtest/gtest.h>

namespace kvx::ado::testing {
namespace {

TEST(ConnectionProperties, NamesIgnoreCaseAndSynonymsAreTriedInOrder)
{
    const ConnectionProperties properties("provider=SQLite; SERVER = forest.db ;uid=kt");
    EXPECT_EQ(properties.Get({"Provider"}), "SQLite");
    EXPECT_EQ(properties.Get({"Data Source", "Server"}), "forest.db");
    EXPECT_EQ(properties.Get({"User ID", "UID"}), "kt");
    EXPECT_EQ(properties.Get({"Database"}), "");
    EXPECT_TRUE(properties.Has("UID"));
    EXPECT_FALSE(properties.Has("Password"));
}

TEST(ConnectionProperties, ValuesMayHoldEqualSignsAndQuotedSemicolons)
{
    const ConnectionProperties properties(R"(A=x=y;B="p;q""r";C=' it''s ';D=;;E=5)");
    EXPECT_EQ(properties.Get({"A"}), "x=y");
    EXPECT_EQ(properties.Get({"B"}), "p;q\"r");
    EXPECT_EQ(properties.Get({"C"}), " it's ");
    EXPECT_EQ(properties.Get({"D"}), "");
    EXPECT_EQ(properties.Get({"E"}), "5");
}

TEST(ConnectionProperties, TheStringReadsBackToTheSameParts)
{
    const ConnectionProperties properties(R"(A=x=y;B="p;q""r";C=' it''s ')");
    const ConnectionProperties again(properties.ToString());
    for (const char* name : {"A", "B", "C"})
        EXPECT_EQ(again.Get({name}), properties.Get({name})) << name;
}

TEST(ConnectionProperties, TheLastOfTwoPartsOfOneNameCounts)
{
    EXPECT_EQ(ConnectionProperties("Server=a;SERVER=b").Get({"server"}), "b");
}

TEST(Drivers, AnUnknownProviderIsError3706)
{
    Connection connection;
    EXPECT_EQ(ErrorOf([&] { connection.Open("Provider=NoSuchThing"); }), 3706);
    EXPECT_EQ(connection.State(), adStateClosed);
}

TEST(Drivers, AMissingProviderMeansTheOdbcBridge)
{
    bool asked = false;
    RegisterDriver("MSDASQL", [&](const ConnectionProperties&) -> std::unique_ptr<DriverConnection> {
        asked = true;
        throw basic::Error(kErrUnspecified, "no such data source");
    });
    Connection connection;
    EXPECT_EQ(ErrorOf([&] { connection.Open("Server=x"); }), kErrUnspecified);
    EXPECT_TRUE(asked);
}

TEST(Connection, TheStringReadsBackAsSetBeforeOpen)
{
    Connection connection;
    EXPECT_EQ(connection.ConnectionString(), "");
    connection.SetConnectionString(" provider = Fake;Password=x; ");
    EXPECT_EQ(connection.ConnectionString(), " provider = Fake;Password=x; ");
}

TEST(Connection, ThePasswordIsMissingFromTheStringAfterOpen)
{
    FakeDatabase database;
    Connection connection;
    connection.Open("Provider=Fake;User ID=kt;Password=geheim;Server=x");
    EXPECT_EQ(connection.ConnectionString(), "Provider=Fake;User ID=kt;Server=x");
    EXPECT_EQ(database.openedWith.Get({"password"}), "geheim");
    connection.Close();
    connection.SetConnectionString("Provider=Fake;PWD=geheim");
    EXPECT_EQ(connection.ConnectionString(), "Provider=Fake;PWD=geheim");
    connection.Open();
    EXPECT_EQ(connection.ConnectionString(), "Provider=Fake");
}

TEST(Connection, PersistSecurityInfoKeepsThePassword)
{
    FakeDatabase database;
    Connection connection;
    connection.Open("Provider=Fake;Password=geheim;Persist Security Info=True");
    EXPECT_EQ(connection.ConnectionString(), "Provider=Fake;Password=geheim;Persist Security Info=True");
}

TEST(Connection, ItOpensAgainAfterCloseWithItsPassword)
{
    FakeDatabase database;
    Connection connection;
    connection.Open("Provider=Fake;Password=geheim");
    connection.Close();
    connection.Open();
    EXPECT_EQ(database.openedWith.Get({"password"}), "geheim");
}

TEST(Connection, AssigningTheStringWhileOpenIsError3705)
{
    FakeDatabase database;
    Connection connection = database.Connect();
    EXPECT_EQ(ErrorOf([&] { connection.SetConnectionString("Provider=Other"); }), 3705);
    EXPECT_EQ(ErrorOf([&] { connection.Open("Provider=Other"); }), 3705);
    EXPECT_EQ(ErrorOf([&] { connection.Open(); }), 3705);
    EXPECT_EQ(connection.ConnectionString(), "Provider=Fake");
}

TEST(Connection, StateFollowsOpenAndClose)
{
    FakeDatabase database;
    Connection connection;
    EXPECT_EQ(connection.State(), 0);
    connection.Open("Provider=Fake");
    EXPECT_EQ(connection.State(), 1);
    connection.Close();
    EXPECT_EQ(connection.State(), 0);
    EXPECT_EQ(database.liveConnections, 0);
}

TEST(Connection, CloseAndExecuteOnAClosedConnectionAreError3704)
{
    Connection connection;
    EXPECT_EQ(ErrorOf([&] { connection.Close(); }), 3704);
    EXPECT_EQ(ErrorOf([&] { connection.Execute("SELECT 1"); }), 3704);
}

TEST(Connection, ARefusedLoginLeavesItClosed)
{
    FakeDatabase database;
    database.openError = basic::Error(kErrLogin, "Login failed for user 'kt'.");
    Connection connection;
    EXPECT_EQ(ErrorOf([&] { connection.Open("Provider=Fake"); }), kErrLogin);
    EXPECT_EQ(connection.State(), adStateClosed);
}

TEST(Connection, DefaultsAreThirtySecondsAndTheServer)
{
    const Connection connection;
    EXPECT_EQ(connection.CommandTimeout(), 30);
    EXPECT_EQ(connection.CursorLocation(), adUseServer);
}

TEST(Connection, CopiesShareTheState)
{
    FakeDatabase database;
    Connection connection;
    const Connection copy = connection;
    connection.Open("Provider=Fake");
    EXPECT_EQ(copy.State(), adStateOpen);
    EXPECT_TRUE(copy == connection);
    EXPECT_FALSE(copy == Connection());
}

TEST(Connection, TheLastHandleClosesIt)
{
    FakeDatabase database;
    {
        const Connection connection = database.Connect();
        EXPECT_EQ(database.liveConnections, 1);
    }
    EXPECT_EQ(database.liveConnections, 0);
}

TEST(Connection, ARecordsetKeepsItsConnectionAlive)
{
    FakeDatabase database;
    AddTrees(database);
    Recordset set;
    {
        Connection connection = database.Connect();
        set = connection.Execute(kTrees);
    }
    set.MoveNext();
    EXPECT_EQ(TextOf(set["NAME"].Value()), "Fichte");
    EXPECT_EQ(set.ActiveConnection().State(), adStateOpen);
}

TEST(Connection, CloseClosesItsRecordsets)
{
    FakeDatabase database;
    AddTrees(database);
    Connection connection = database.Connect();
    const Recordset streamed = connection.Execute(kTrees);
    const Recordset buffered = OpenTrees(connection);
    connection.Close();
    EXPECT_EQ(streamed.State(), adStateClosed);
    EXPECT_EQ(buffered.State(), adStateClosed);
    EXPECT_EQ(database.liveStatements, 0);
}

TEST(Connection, TheTimeoutReachesTheDriver)
{
    FakeDatabase database;
    AddTrees(database);
    Connection connection = database.Connect();
    connection.SetCommandTimeout(7);
    connection.Execute(kTrees);
    EXPECT_EQ(database.options.back().timeoutSeconds, 7);
}

} // namespace
} // namespace kvx::ado::testing
