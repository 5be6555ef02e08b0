#include "FakeDriver.h"

#include "ado/Command.h"

#include <gtest/gtest.h>

namespace kvx::ado::testing {
namespace {

class Execute : public ::testing::Test {
protected:
    Execute() { AddTrees(database); }

    FakeDatabase database;
    Connection connection = database.Connect();
};

TEST_F(Execute, ASelectGivesAForwardOnlyReadOnlyRecordsetOnItsFirstRow)
{
    const Recordset set = connection.Execute(kTrees);
    EXPECT_EQ(set.State(), adStateOpen);
    EXPECT_EQ(set.CursorType(), adOpenForwardOnly);
    EXPECT_EQ(set.LockType(), adLockReadOnly);
    EXPECT_FALSE(set.Eof());
    EXPECT_EQ(TextOf(set["NAME"].Value()), "Eiche");
}

TEST_F(Execute, TheTextIsSentAsItIs)
{
    database.answers["  select 1 \r\n"] = {.columns = {Column("", adInteger, 4)}, .rows = {{Int(1)}}};
    connection.Execute("  select 1 \r\n");
    EXPECT_EQ(database.texts.back(), "  select 1 \r\n");
}

TEST_F(Execute, AStatementWithoutRowsGivesAClosedRecordset)
{
    const Recordset set = connection.Execute("DELETE FROM TREE");
    EXPECT_EQ(set.State(), adStateClosed);
    EXPECT_EQ(ErrorOf([&] { set.Eof(); }), 3704);
    EXPECT_EQ(ErrorOf([&] { set["NAME"].Value(); }), 3704);
    EXPECT_EQ(ErrorOf([&] { Recordset(set).MoveNext(); }), 3704);
}

TEST_F(Execute, RecordsAffectedAreTheRowsTouched)
{
    std::int64_t affected = 99;
    connection.Execute("DELETE FROM TREE", &affected);
    EXPECT_EQ(affected, 3);
}

TEST_F(Execute, AnUpdateThatHitsNoRowIsNoError)
{
    database.answers["UPDATE TREE SET ID = 1 WHERE 1 = 0"] = {.affected = 0};
    std::int64_t affected = 99;
    connection.Execute("UPDATE TREE SET ID = 1 WHERE 1 = 0", &affected);
    EXPECT_EQ(affected, 0);
}

TEST_F(Execute, ASelectAffectsMinusOne)
{
    std::int64_t affected = 99;
    connection.Execute(kTrees, &affected);
    EXPECT_EQ(affected, -1);
}

TEST_F(Execute, AnErrorLeavesRecordsAffectedAndCarriesTheStatement)
{
    database.answers["DELETE FROM LOGS"] = {.error = basic::Error(kErrConstraint, "conflicted with the REFERENCE")};
    std::int64_t affected = 99;
    try {
        connection.Execute("DELETE FROM LOGS", &affected);
        FAIL() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, kErrConstraint);
        EXPECT_EQ(error.Description, "conflicted with the REFERENCE");
        EXPECT_EQ(error.Statement, "DELETE FROM LOGS");
    }
    EXPECT_EQ(affected, 99);
}

TEST_F(Execute, AnErrorOfTheFirstRowIsRaisedByExecute)
{
    database.answers["SELECT BAD"] = {.columns = {Column("BAD", adInteger)}, .rows = {{Int(1)}}, .failsAtRow = 0};
    EXPECT_EQ(ErrorOf([&] { connection.Execute("SELECT BAD"); }), kErrConversion);
    EXPECT_EQ(database.liveStatements, 0);
}

TEST_F(Execute, AnErrorOfALaterRowIsRaisedByTheMoveAndCarriesTheStatement)
{
    database.answers["SELECT BAD"] = {.columns = {Column("BAD", adInteger)}, .rows = {{Int(1)}}, .failsAtRow = 1};
    Recordset set = connection.Execute("SELECT BAD");
    try {
        set.MoveNext();
        FAIL() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, kErrConversion);
        EXPECT_EQ(error.Statement, "SELECT BAD");
    }
    EXPECT_TRUE(set.Eof());
}

TEST_F(Execute, AnUnknownKindOfTextMayBeATableName)
{
    connection.Execute(kTrees);
    EXPECT_TRUE(database.options.back().tableAllowed);
    EXPECT_FALSE(database.options.back().procedure);
    connection.Execute(kTrees, nullptr, adCmdUnknown);
    EXPECT_TRUE(database.options.back().tableAllowed);
}

TEST_F(Execute, ATextIsNeverATableName)
{
    connection.Execute(kTrees, nullptr, adCmdText);
    EXPECT_FALSE(database.options.back().tableAllowed);
}

TEST_F(Execute, ATableIsSelectedWhole)
{
    database.answers["select * from TREE"] = database.answers[kTrees];
    EXPECT_FALSE(connection.Execute("TREE", nullptr, adCmdTable).Eof());
    EXPECT_EQ(database.texts.back(), "select * from TREE");
}

TEST_F(Execute, NoRecordsGivesAClosedRecordsetEvenForASelect)
{
    const Recordset set = connection.Execute(kTrees, nullptr, adCmdText + adExecuteNoRecords);
    EXPECT_EQ(set.State(), adStateClosed);
    EXPECT_EQ(database.liveStatements, 0);
}

TEST_F(Execute, ClientLocationGivesAStaticRecordset)
{
    connection.SetCursorLocation(adUseClient);
    const Recordset set = connection.Execute(kTrees);
    EXPECT_EQ(set.CursorType(), adOpenStatic);
    EXPECT_EQ(set.RecordCount(), 3);
    EXPECT_EQ(set.LockType(), adLockReadOnly);
}

TEST_F(Execute, LoopsOverOneConnectionMayBeNested)
{
    std::string seen;
    for (Recordset outer = connection.Execute(kTrees); !outer.Eof(); outer.MoveNext())
        for (Recordset inner = connection.Execute(kTrees); !inner.Eof(); inner.MoveNext())
            seen += std::to_string(outer["ID"].Int64()) + std::to_string(inner["ID"].Int64()) + " ";
    EXPECT_EQ(seen, "11 12 13 21 22 23 31 32 33 ");
}

TEST_F(Execute, AForwardOnlyReadKeepsNoRow)
{
    Recordset set = connection.Execute(kTrees);
    EXPECT_EQ(database.steps, 1);
    set.MoveNext();
    EXPECT_EQ(database.steps, 2);
    EXPECT_EQ(database.liveStatements, 1);
}

TEST_F(Execute, AStatementReadToItsEndIsGivenBackAtOnce)
{
    Recordset set = connection.Execute(kTrees);
    while (!set.Eof())
        set.MoveNext();
    EXPECT_EQ(database.liveStatements, 0);
    EXPECT_EQ(set.Fields().Count(), 3);
}

TEST_F(Execute, AnEngineWithoutNestedReadsGetsTheUnreadRowsReadAhead)
{
    database.traits.rowsWhileReading = false;
    Recordset outer = connection.Execute(kTrees);
    const Recordset inner = connection.Execute(kTrees);
    EXPECT_EQ(database.liveStatements, 1);
    outer.MoveNext();
    EXPECT_EQ(TextOf(outer["NAME"].Value()), "Fichte");
    outer.MoveNext();
    EXPECT_TRUE(outer["HEIGHT"].Value().IsNull());
    outer.MoveNext();
    EXPECT_TRUE(outer.Eof());
    EXPECT_EQ(outer.RecordCount(), -1);
    EXPECT_EQ(ErrorOf([&] { outer.MovePrevious(); }), 3219);
    EXPECT_FALSE(inner.Eof());
}

TEST_F(Execute, RowsReadAheadEndInTheErrorThatEndedThem)
{
    database.traits.rowsWhileReading = false;
    database.answers["SELECT BAD"] = {
        .columns = {Column("BAD", adInteger)}, .rows = {{Int(1)}, {Int(2)}}, .failsAtRow = 2};
    Recordset set = connection.Execute("SELECT BAD");
    connection.Execute(kTrees);
    set.MoveNext();
    EXPECT_EQ(set["BAD"].Int64(), 2);
    EXPECT_EQ(ErrorOf([&] { set.MoveNext(); }), kErrConversion);
    EXPECT_TRUE(set.Eof());
}

TEST_F(Execute, AReadIsNotDisturbedByAWriteOnTheSameConnection)
{
    database.traits.readsSeeLaterWrites = true;
    const Recordset set = connection.Execute(kTrees);
    connection.Execute(kTrees);
    EXPECT_EQ(database.liveStatements, 1) << "a SELECT leaves the stream alone";
    connection.Execute("DELETE FROM TREE");
    EXPECT_EQ(database.liveStatements, 0) << "a write finds the stream read to its end";
    EXPECT_EQ(TextOf(set["NAME"].Value()), "Eiche");
}

TEST(CommandExecute, AProcedureIsCalledByItsName)
{
    FakeDatabase database;
    database.answers["kvx_NEW"] = {.columns = {Column("ID", adInteger, 4)}, .rows = {{Int(4711)}}};
    Command command;
    command.ActiveConnection = database.Connect();
    command.CommandText = "kvx_NEW";
    command.CommandType = adCmdStoredProc;
    command.CommandTimeout = 5;
    const Recordset set = command.Execute();
    EXPECT_EQ(set[0].Int64(), 4711);
    EXPECT_TRUE(database.options.back().procedure);
    EXPECT_FALSE(database.options.back().tableAllowed);
    EXPECT_EQ(database.options.back().timeoutSeconds, 5);
}

TEST(CommandExecute, AProcedureWhoseFirstResultHasNoRowsGivesAClosedRecordset)
{
    FakeDatabase database;
    database.answers["kvx_NEW"] = {.affected = 1};
    Command command;
    command.ActiveConnection = database.Connect();
    command.CommandText = "kvx_NEW";
    std::int64_t affected = 0;
    EXPECT_EQ(command.Execute(&affected).State(), adStateClosed);
    EXPECT_EQ(affected, 1);
}

TEST(CommandExecute, WithoutAnOpenConnectionItIsError3709)
{
    Command command;
    command.CommandText = "kvx_NEW";
    EXPECT_EQ(ErrorOf([&] { command.Execute(); }), 3709);
}

} // namespace
} // namespace kvx::ado::testing
