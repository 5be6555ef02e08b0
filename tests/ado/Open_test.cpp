#include "FakeDriver.h"

#include <gtest/gtest.h>

namespace kvx::ado::testing {
namespace {

class RecordsetOpen : public ::testing::Test {
protected:
    RecordsetOpen() { AddTrees(database); }

    FakeDatabase database;
    Connection connection = database.Connect();
    Recordset set;
};

TEST_F(RecordsetOpen, WithoutSettingsItIsForwardOnlyAndReadOnly)
{
    set.Open(kTrees, connection, adOpenUnspecified, adLockUnspecified);
    EXPECT_EQ(set.CursorType(), adOpenForwardOnly);
    EXPECT_EQ(set.LockType(), adLockReadOnly);
    EXPECT_EQ(set.CursorLocation(), adUseServer);
    EXPECT_EQ(set.RecordCount(), -1);
}

TEST_F(RecordsetOpen, SettingsAssignedBeforeCountWhenOpenNamesNone)
{
    set.SetCursorType(adOpenStatic);
    set.SetLockType(adLockOptimistic);
    set.Open(kTrees, connection);
    EXPECT_EQ(set.CursorType(), adOpenStatic);
    EXPECT_EQ(set.LockType(), adLockOptimistic);
}

TEST_F(RecordsetOpen, WithClientLocationTheCursorIsAlwaysStatic)
{
    for (const CursorTypeEnum asked : {adOpenUnspecified, adOpenForwardOnly, adOpenKeyset, adOpenDynamic}) {
        Recordset client;
        client.SetCursorLocation(adUseClient);
        client.Open(kTrees, connection, asked);
        EXPECT_EQ(client.CursorType(), 3) << asked;
        EXPECT_EQ(client.RecordCount(), 3) << asked;
    }
}

TEST_F(RecordsetOpen, TheLocationIsTheConnectionsUnlessAssigned)
{
    connection.SetCursorLocation(adUseClient);
    set.Open(kTrees, connection);
    EXPECT_EQ(set.CursorLocation(), adUseClient);
    Recordset server;
    server.SetCursorLocation(adUseServer);
    server.Open(kTrees, connection);
    EXPECT_EQ(server.CursorLocation(), adUseServer);
    EXPECT_EQ(server.CursorType(), adOpenForwardOnly);
}

TEST_F(RecordsetOpen, OnAnOpenRecordsetItIsError3705)
{
    set.Open(kTrees, connection);
    EXPECT_EQ(ErrorOf([&] { set.Open(kTrees, connection); }), 3705);
    EXPECT_EQ(ErrorOf([&] { set.SetCursorType(adOpenStatic); }), 3705);
    EXPECT_EQ(ErrorOf([&] { set.SetLockType(adLockOptimistic); }), 3705);
    EXPECT_EQ(ErrorOf([&] { set.SetCursorLocation(adUseClient); }), 3705);
    EXPECT_FALSE(set.Eof());
}

TEST_F(RecordsetOpen, OnAClosedConnectionItIsError3709)
{
    EXPECT_EQ(ErrorOf([&] { set.Open(kTrees, Connection()); }), 3709);
    connection.Close();
    EXPECT_EQ(ErrorOf([&] { set.Open(kTrees, connection); }), 3709);
}

TEST_F(RecordsetOpen, CloseOnAClosedRecordsetIsError3704)
{
    EXPECT_EQ(ErrorOf([&] { set.Close(); }), 3704);
    set.Open(kTrees, connection);
    set.Close();
    EXPECT_EQ(set.State(), adStateClosed);
    EXPECT_EQ(ErrorOf([&] { set.Close(); }), 3704);
    EXPECT_EQ(database.liveStatements, 0);
}

TEST_F(RecordsetOpen, AStatementWithoutRowsLeavesItClosedAndRaisesNothing)
{
    set.Open("DELETE FROM TREE", connection);
    EXPECT_EQ(set.State(), adStateClosed);
    EXPECT_EQ(ErrorOf([&] { set.Eof(); }), 3704);
}

TEST_F(RecordsetOpen, AFailureLeavesItClosedAndItCanBeOpenedAgain)
{
    EXPECT_EQ(ErrorOf([&] { set.Open("SELECT WRONG", connection, adOpenStatic); }), kErrStatement);
    EXPECT_EQ(set.State(), adStateClosed);
    set.Open(kTrees, connection);
    EXPECT_EQ(set.State(), adStateOpen);
}

TEST_F(RecordsetOpen, TheLastHandleClosesIt)
{
    {
        Recordset local;
        local.Open(kTrees, connection);
        const Recordset copy = local;
        EXPECT_TRUE(copy == local);
        EXPECT_EQ(database.liveStatements, 1);
    }
    EXPECT_EQ(database.liveStatements, 0);
}

TEST_F(RecordsetOpen, AStaticRecordsetIsReadWholeAndFreesTheEngine)
{
    set.Open(kTrees, connection, adOpenStatic);
    EXPECT_EQ(database.steps, 4);
    EXPECT_EQ(database.liveStatements, 0);
}

TEST_F(RecordsetOpen, RecordCountIsExactForStaticAndKeysetAndUnknownForDynamic)
{
    EXPECT_EQ(OpenTrees(connection, adOpenStatic).RecordCount(), 3);
    EXPECT_EQ(OpenTrees(connection, adOpenKeyset).RecordCount(), 3);
    EXPECT_EQ(OpenTrees(connection, adOpenDynamic).RecordCount(), -1);
    EXPECT_EQ(OpenTrees(connection, adOpenStatic, adLockReadOnly, kNoTrees).RecordCount(), 0);
}

TEST_F(RecordsetOpen, ReadOnlyAsksForNoRowKeys)
{
    OpenTrees(connection, adOpenStatic, adLockReadOnly);
    EXPECT_FALSE(database.options.back().withRowKeys);
}

TEST_F(RecordsetOpen, AnUpdatableOneAsksForRowKeysAndHidesThem)
{
    set = OpenTrees(connection, adOpenStatic, adLockOptimistic);
    EXPECT_TRUE(database.options.back().withRowKeys);
    EXPECT_EQ(set.Fields().Count(), 3);
    EXPECT_EQ(ErrorOf([&] { set["rowid"]; }), 3265);
    EXPECT_EQ(ErrorOf([&] { set[3]; }), 3265);
    EXPECT_EQ(set.GetRows().Columns(), 3u);
}

TEST_F(RecordsetOpen, RequeryRunsTheStatementAgainAndStandsOnTheFirstRow)
{
    set = OpenTrees(connection);
    set.MoveLast();
    const basic::Variant bookmark = set.Bookmark();
    database.answers[kTrees].rows.erase(database.answers[kTrees].rows.begin());
    set.Requery();
    EXPECT_EQ(TextOf(set["NAME"].Value()), "Fichte");
    EXPECT_EQ(set.RecordCount(), 2);
    EXPECT_EQ(ErrorOf([&] { set.SetBookmark(bookmark); }), 3001) << "old bookmarks are cut off";
}

TEST_F(RecordsetOpen, AFailedRequeryClosesIt)
{
    set = OpenTrees(connection);
    database.answers.erase(kTrees);
    EXPECT_EQ(ErrorOf([&] { set.Requery(); }), kErrStatement);
    EXPECT_EQ(set.State(), adStateClosed);
}

TEST_F(RecordsetOpen, TheSourceStaysReadable)
{
    set.Open(kTrees, connection);
    EXPECT_EQ(set.Source(), kTrees);
    EXPECT_TRUE(set.ActiveConnection() == connection);
}

} // namespace
} // namespace kvx::ado::testing
