#include "FakeDriver.h"

#include "basic/Convert.h"

#include <gtest/gtest.h>

// A long result whose rows behind the first ones come when they are asked for.
namespace kvx::ado::testing {
namespace {

constexpr std::int64_t kRows = 1000;
constexpr const char* kLong = "SELECT ID FROM LONG_LIST";

class Fetch : public ::testing::Test {
protected:
    Fetch()
    {
        FakeResult& result = database.answers[kLong];
        result.columns = {Column("ID", adInteger, 4)};
        for (std::int64_t i = 1; i <= kRows; ++i)
            result.rows.push_back({Int(i)});
        database.answers["SELECT 1"] = {.columns = {Column("A", adInteger, 4)}, .rows = {{Int(1)}}};
    }
    Recordset Open()
    {
        Recordset set;
        set.SetCursorLocation(adUseClient);
        set.Open(kLong, connection, adOpenStatic, adLockReadOnly, adCmdText | adAsyncFetch);
        return set;
    }

    FakeDatabase database;
    Connection connection = database.Connect();
};

TEST_F(Fetch, OpensWithAFirstPageAndTheRestIsReadInPieces)
{
    Recordset set = Open();
    EXPECT_EQ(set.RowsHere(), 200);
    EXPECT_EQ(database.steps, 201);
    EXPECT_TRUE(set.FetchMore(300));
    EXPECT_EQ(set.RowsHere(), 500);
    EXPECT_FALSE(set.FetchMore(500));
    EXPECT_EQ(set.RowsHere(), kRows);
    EXPECT_EQ(database.liveStatements, 0);
    EXPECT_FALSE(set.FetchMore(1));
}

TEST_F(Fetch, WithoutTheOptionEverythingIsReadAtOnce)
{
    Recordset set;
    set.SetCursorLocation(adUseClient);
    set.Open(kLong, connection, adOpenStatic, adLockReadOnly, adCmdText);
    EXPECT_EQ(set.RowsHere(), kRows);
    EXPECT_EQ(database.liveStatements, 0);
}

TEST_F(Fetch, AShortResultIsOverAtOnce)
{
    database.answers[kLong].rows.resize(200);
    const Recordset set = Open();
    EXPECT_EQ(set.RowsHere(), 200);
    EXPECT_EQ(database.liveStatements, 0);
}

TEST_F(Fetch, AMoveReadsUpToItsRow)
{
    Recordset set = Open();
    set.SetAbsolutePosition(200);
    EXPECT_EQ(set.RowsHere(), 200);
    set.MoveNext();
    EXPECT_EQ(basic::CLng(set[0].Value()), 201);
    EXPECT_EQ(set.RowsHere(), 201);
    set.SetAbsolutePosition(700);
    EXPECT_EQ(basic::CLng(set[0].Value()), 700);
    EXPECT_EQ(set.RowsHere(), 700);
}

TEST_F(Fetch, WhoeverNeedsAllRowsGetsThem)
{
    Recordset counted = Open();
    EXPECT_EQ(counted.RecordCount(), kRows);
    Recordset found = Open();
    found.Find("ID = 999");
    EXPECT_EQ(found.AbsolutePosition(), 999);
    Recordset last = Open();
    last.MoveLast();
    EXPECT_EQ(last.AbsolutePosition(), kRows);
    Recordset moved = Open();
    moved.Move(900);
    EXPECT_EQ(moved.AbsolutePosition(), 901);
    Recordset taken = Open();
    EXPECT_EQ(taken.GetRows().Rows(), static_cast<std::size_t>(kRows));
}

TEST_F(Fetch, ACloneReadsOnForBoth)
{
    Recordset set = Open();
    Recordset clone = set.Clone();
    clone.SetAbsolutePosition(600);
    EXPECT_EQ(set.RowsHere(), 600);
    set.Close();
    EXPECT_EQ(clone.RecordCount(), kRows);
    clone.Close();
    EXPECT_EQ(database.liveStatements, 0);
}

TEST_F(Fetch, AnotherStatementReadsTheRestFirstWhereTheEngineHasRoomForOneOnly)
{
    database.traits.rowsWhileReading = false;
    const Recordset set = Open();
    connection.Execute("SELECT 1");
    EXPECT_EQ(set.RowsHere(), kRows);
}

TEST_F(Fetch, ClosingDropsTheRest)
{
    Recordset set = Open();
    set.Close();
    EXPECT_EQ(database.liveStatements, 0);
    EXPECT_EQ(database.steps, 201);
}

TEST_F(Fetch, AnErrorInTheRestReachesWhoAsksForItAndLeavesWhatIsThere)
{
    database.answers[kLong].failsAtRow = 500;
    Recordset set = Open();
    try {
        set.MoveLast();
        FAIL() << "the error was swallowed";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Statement, kLong);
    }
    EXPECT_EQ(set.RowsHere(), 500);
    EXPECT_EQ(database.liveStatements, 0);
    set.MoveFirst();
    EXPECT_EQ(basic::CLng(set[0].Value()), 1);
}

TEST_F(Fetch, AnErrorMetForAnotherStatementIsKeptForTheReader)
{
    database.traits.rowsWhileReading = false;
    database.answers[kLong].failsAtRow = 500;
    Recordset set = Open();
    EXPECT_NO_THROW(connection.Execute("SELECT 1"));
    EXPECT_EQ(set.RowsHere(), 500);
    EXPECT_THROW(set.MoveLast(), basic::Error);
}

}  // namespace
}  // namespace kvx::ado::testing
