#include "FakeDriver.h"

#include "basic/Convert.h"

#include <gtest/gtest.h>

namespace kvx::ado::testing {
namespace {

class GetRows : public ::testing::Test {
protected:
    GetRows() { AddTrees(database); }

    FakeDatabase database;
    Connection connection = database.Connect();
};

TEST_F(GetRows, GivesColumnFirstThenRow)
{
    Recordset set = connection.Execute(kTrees);
    const RowBlock rows = set.GetRows();
    EXPECT_EQ(rows.Columns(), 3u);
    EXPECT_EQ(rows.Rows(), 3u);
    EXPECT_EQ(*rows.Value(0, 1).As<std::int32_t>(), 2);
    EXPECT_EQ(TextOf(rows.Value(1, 2)), "Kiefer");
    EXPECT_EQ(*rows.Value(2, 0).As<double>(), 21.5);
    EXPECT_EQ(*rows.Value(2, 1).As<double>(), 30.0);
    EXPECT_EQ(rows.Column(1).name, "NAME");
}

TEST_F(GetRows, NullStaysNull)
{
    const RowBlock rows = connection.Execute(kTrees).GetRows();
    EXPECT_TRUE(rows.Value(2, 2).IsNull());
    EXPECT_TRUE(rows.IsNull(2, 2));
    EXPECT_FALSE(rows.IsNull(2, 1));
    EXPECT_EQ(rows.Text(2, 2), "");
    EXPECT_EQ(rows.Int(2, 2), 0);
}

TEST_F(GetRows, CopiesFromTheCurrentRowAndLeavesEof)
{
    for (const CursorTypeEnum cursor : {adOpenForwardOnly, adOpenStatic}) {
        Recordset set = OpenTrees(connection, cursor);
        set.MoveNext();
        const RowBlock rows = set.GetRows();
        EXPECT_EQ(rows.Rows(), 2u);
        EXPECT_EQ(rows.Text(1, 0), "Fichte");
        EXPECT_FALSE(rows.SameAsPrevious(1, 0));
        EXPECT_TRUE(set.Eof());
        EXPECT_FALSE(set.Bof());
    }
}

TEST_F(GetRows, SoManyRowsAtMost)
{
    for (const CursorTypeEnum cursor : {adOpenForwardOnly, adOpenStatic}) {
        Recordset set = OpenTrees(connection, cursor);
        EXPECT_EQ(set.GetRows(2).Rows(), 2u);
        EXPECT_EQ(set["ID"].Int64(), 3);
        EXPECT_EQ(set.GetRows(2).Rows(), 1u);
        EXPECT_TRUE(set.Eof());
    }
}

TEST_F(GetRows, WithoutARowItIsError3021AndGivesNothing)
{
    for (const CursorTypeEnum cursor : {adOpenForwardOnly, adOpenStatic}) {
        Recordset empty = OpenTrees(connection, cursor, adLockReadOnly, kNoTrees);
        EXPECT_EQ(ErrorOf([&] { empty.GetRows(); }), 3021);
        Recordset set = OpenTrees(connection, cursor);
        set.GetRows();
        EXPECT_EQ(ErrorOf([&] { set.GetRows(); }), 3021);
    }
}

TEST_F(GetRows, AValueBeyondTheBlockIsError9)
{
    const RowBlock rows = connection.Execute(kTrees).GetRows();
    EXPECT_EQ(ErrorOf([&] { rows.Value(3, 0); }), 9);
    EXPECT_EQ(ErrorOf([&] { rows.Value(0, 3); }), 9);
    EXPECT_EQ(ErrorOf([&] { RowBlock().Value(0, 0); }), 9);
}

TEST_F(GetRows, OutlivesItsRecordsetAndConnection)
{
    RowBlock rows;
    {
        Recordset set = connection.Execute(kTrees);
        rows = set.GetRows();
        set.Close();
        connection.Close();
    }
    EXPECT_EQ(rows.Text(1, 0), "Eiche");
}

TEST_F(GetRows, AStaticRecordsetSharesItsRows)
{
    Recordset set = OpenTrees(connection);
    const RowBlock first = set.GetRows();
    set.MoveFirst();
    const RowBlock second = set.GetRows();
    EXPECT_EQ(first.Text(1, 0).data(), second.Text(1, 0).data());
}

TEST_F(GetRows, FiresOneMove)
{
    Recordset set = OpenTrees(connection);
    int fired = 0;
    set.AddMoveComplete([&] { ++fired; });
    set.GetRows();
    EXPECT_EQ(fired, 1);
}

TEST_F(GetRows, AnErrorOnTheWayIsRaised)
{
    database.answers["SELECT BAD"] = {
        .columns = {Column("BAD", adInteger)}, .rows = {{Int(1)}, {Int(2)}}, .failsAtRow = 1};
    Recordset set = connection.Execute("SELECT BAD");
    EXPECT_EQ(ErrorOf([&] { set.GetRows(); }), kErrConversion);
    EXPECT_TRUE(set.Eof());
}

} // namespace
} // namespace kvx::ado::testing
