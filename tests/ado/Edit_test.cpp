#include "FakeDriver.h"

#include "basic/Convert.h"

#include <gtest/gtest.h>

namespace kvx::ado::testing {
namespace {

class Edit : public ::testing::Test {
protected:
    Edit()
    {
        AddTrees(database);
        set = OpenTrees(connection, adOpenStatic, adLockOptimistic);
    }

    FakeDatabase database;
    Connection connection = database.Connect();
    Recordset set;
};

TEST_F(Edit, AReadOnlyRecordsetIsError3251)
{
    Recordset reader = OpenTrees(connection);
    EXPECT_EQ(ErrorOf([&] { reader["NAME"].SetValue("x"); }), 3251);
    EXPECT_EQ(ErrorOf([&] { reader.AddNew(); }), 3251);
    EXPECT_EQ(ErrorOf([&] { reader.Update(); }), 3251);
    EXPECT_EQ(ErrorOf([&] { reader.CancelUpdate(); }), 3251);
    EXPECT_EQ(reader.EditMode(), adEditNone);
}

TEST_F(Edit, AnAssignmentIsWrittenByUpdateOnly)
{
    set["NAME"].SetValue("Buche");
    EXPECT_EQ(set.EditMode(), adEditInProgress);
    EXPECT_EQ(TextOf(set["NAME"].Value()), "Buche");
    EXPECT_EQ(set["NAME"].TextView(), "Buche");
    EXPECT_TRUE(database.writes.empty());
    set.Update();
    EXPECT_EQ(set.EditMode(), adEditNone);
    EXPECT_EQ(TextOf(set["NAME"].Value()), "Buche");
    ASSERT_EQ(database.writes.size(), 1u);
}

TEST_F(Edit, OnlyAssignedColumnsAreWrittenWithTheirOldValuesAndTheRowKey)
{
    set.MoveNext();
    set["HEIGHT"].SetValue(31.5);
    set.Update();
    const RowChange& change = database.writes.at(0);
    EXPECT_EQ(change.table, "TREE");
    EXPECT_EQ(change.columns, std::vector<std::string>{"HEIGHT"});
    EXPECT_EQ(basic::CDbl(change.values.at(0)), 31.5);
    EXPECT_EQ(basic::CDbl(change.oldValues.at(0)), 30);
    EXPECT_EQ(basic::CLng(change.rowKey.value()), 12);
}

TEST_F(Edit, TheBaseColumnIsWrittenNotTheAlias)
{
    FakeResult& keyed = database.answersWithKeys[kTrees];
    keyed.columns[1].name = "LABEL";
    Recordset renamed = OpenTrees(connection, adOpenKeyset, adLockPessimistic);
    renamed["LABEL"].SetValue("x");
    renamed.Update();
    EXPECT_EQ(database.writes.at(0).columns.at(0), "NAME");
}

TEST_F(Edit, AJoinIsWrittenTableByTable)
{
    FakeResult& keyed = database.answersWithKeys[kTrees];
    keyed.columns[2].baseTable = "SITE";
    keyed.columns.push_back(RowKey());
    keyed.columns.back().baseTable = "SITE";
    for (FakeRow& row : keyed.rows)
        row.emplace_back(std::int64_t{77});
    Recordset join = OpenTrees(connection, adOpenStatic, adLockOptimistic);
    join["NAME"].SetValue("x");
    join["HEIGHT"].SetValue(1);
    join.Update();
    ASSERT_EQ(database.writes.size(), 2u);
    EXPECT_EQ(database.writes[0].table, "TREE");
    EXPECT_EQ(database.writes[1].table, "SITE");
    EXPECT_EQ(basic::CLng(database.writes[1].rowKey.value()), 77);
}

TEST_F(Edit, WithoutARowKeyUpdateIsRefused)
{
    database.answersWithKeys.clear();
    Recordset keyless = OpenTrees(connection, adOpenStatic, adLockOptimistic);
    keyless["NAME"].SetValue("x");
    EXPECT_EQ(ErrorOf([&] { keyless.Update(); }), 3251);
    EXPECT_EQ(keyless.EditMode(), adEditInProgress);
}

TEST_F(Edit, AComputedColumnCannotBeAssigned)
{
    FakeResult& keyed = database.answersWithKeys[kTrees];
    keyed.columns[1].baseTable.reset();
    keyed.columns[1].baseColumn.reset();
    Recordset computed = OpenTrees(connection, adOpenStatic, adLockOptimistic);
    EXPECT_EQ(ErrorOf([&] { computed["NAME"].SetValue("x"); }), kErrMultiStep);
    EXPECT_EQ(computed.EditMode(), adEditNone);
}

TEST_F(Edit, ANewRowIsCurrentAtOnceAndEmpty)
{
    set.AddNew();
    EXPECT_EQ(set.EditMode(), adEditAdd);
    EXPECT_FALSE(set.Bof());
    EXPECT_FALSE(set.Eof());
    EXPECT_TRUE(set["NAME"].Value().IsEmpty());
    EXPECT_EQ(set["NAME"].TextView(), "");
    set["NAME"].SetValue("Buche");
    EXPECT_EQ(TextOf(set["NAME"].Value()), "Buche");
    EXPECT_EQ(set.AbsolutePosition(), -1);
}

TEST_F(Edit, ANewRowOfAnEmptyRecordsetIsCurrentToo)
{
    Recordset empty = OpenTrees(connection, adOpenStatic, adLockOptimistic, kNoTrees);
    empty.AddNew();
    EXPECT_FALSE(empty.Eof());
    empty["NAME"].SetValue("Buche");
    empty.Update();
    EXPECT_EQ(empty.RecordCount(), 1);
    EXPECT_EQ(TextOf(empty["NAME"].Value()), "Buche");
}

TEST_F(Edit, UpdateInsertsTheAssignedFieldsOnlyAndStaysOnTheRow)
{
    set.AddNew();
    set["NAME"].SetValue("Buche");
    set.Update();
    const RowChange& change = database.writes.at(0);
    EXPECT_FALSE(change.rowKey.has_value());
    EXPECT_EQ(change.columns, std::vector<std::string>{"NAME"});
    EXPECT_EQ(set.EditMode(), adEditNone);
    EXPECT_EQ(set.RecordCount(), 4);
    EXPECT_EQ(set.AbsolutePosition(), 4);
    EXPECT_EQ(TextOf(set["NAME"].Value()), "Buche");
    EXPECT_TRUE(set["HEIGHT"].Value().IsEmpty());
}

TEST_F(Edit, AColumnTheEngineCountsUpReadsAsTheNewKey)
{
    database.answersWithKeys[kTrees].columns[0].autoIncrement = true;
    Recordset counted = OpenTrees(connection, adOpenStatic, adLockOptimistic);
    counted.AddNew();
    counted["NAME"].SetValue("Buche");
    counted.Update();
    EXPECT_EQ(basic::CLng(counted["ID"].Value()), 100);
}

TEST_F(Edit, AnAddedRowCanBeEditedAgain)
{
    set.AddNew();
    set["NAME"].SetValue("Buche");
    set.Update();
    set["NAME"].SetValue("Tanne");
    set["HEIGHT"].SetValue(3);
    set.Update();
    const RowChange& change = database.writes.at(1);
    EXPECT_EQ(basic::CLng(change.rowKey.value()), 100);
    EXPECT_EQ(TextOf(change.oldValues.at(0)), "Buche");
    EXPECT_TRUE(change.oldValues.at(1).IsEmpty()) << "what the database filled in is not known";
}

TEST_F(Edit, AnAddWithoutAnyAssignmentInsertsARowOfDefaults)
{
    set.AddNew();
    set.Update();
    EXPECT_EQ(database.writes.at(0).table, "TREE");
    EXPECT_TRUE(database.writes.at(0).columns.empty());
}

TEST_F(Edit, CancelUpdateAfterAddNewReturnsToTheRowBefore)
{
    set.MoveNext();
    set.AddNew();
    set["NAME"].SetValue("Buche");
    set.CancelUpdate();
    EXPECT_EQ(set["ID"].Int64(), 2);
    EXPECT_EQ(set.RecordCount(), 3);
    EXPECT_EQ(set.EditMode(), adEditNone);
    EXPECT_TRUE(database.writes.empty());
}

TEST_F(Edit, CancelUpdateAfterAddNewReturnsToTheEndToo)
{
    set.MoveLast();
    set.MoveNext();
    set.AddNew();
    set.CancelUpdate();
    EXPECT_TRUE(set.Eof());
}

TEST_F(Edit, CancelUpdateDropsAssignments)
{
    set["NAME"].SetValue("Buche");
    set.CancelUpdate();
    EXPECT_EQ(TextOf(set["NAME"].Value()), "Eiche");
    set.CancelUpdate();
    EXPECT_EQ(set.EditMode(), adEditNone);
}

TEST_F(Edit, MovingAwayUpdatesSilently)
{
    set["NAME"].SetValue("Buche");
    set.MoveNext();
    EXPECT_EQ(database.writes.size(), 1u);
    EXPECT_EQ(set["ID"].Int64(), 2);
    set.MovePrevious();
    EXPECT_EQ(TextOf(set["NAME"].Value()), "Buche");
}

TEST_F(Edit, AFurtherAddNewUpdatesSilently)
{
    set.AddNew();
    set["NAME"].SetValue("Buche");
    set.AddNew();
    EXPECT_EQ(database.writes.size(), 1u);
    EXPECT_EQ(set.EditMode(), adEditAdd);
    EXPECT_TRUE(set["NAME"].Value().IsEmpty());
}

TEST_F(Edit, CloseAndRequeryWhileEditingAreError3219)
{
    set["NAME"].SetValue("Buche");
    EXPECT_EQ(ErrorOf([&] { set.Close(); }), 3219);
    EXPECT_EQ(ErrorOf([&] { set.Requery(); }), 3219);
    EXPECT_EQ(set.EditMode(), adEditInProgress);
    set.CancelUpdate();
    set.Close();
}

TEST_F(Edit, AFailedUpdateStaysInEditModeAndTheNextMoveTriesAgain)
{
    database.writeError = basic::Error(kErrConstraint, "Cannot insert duplicate key");
    set["NAME"].SetValue("Buche");
    EXPECT_EQ(ErrorOf([&] { set.Update(); }), kErrConstraint);
    EXPECT_EQ(set.EditMode(), adEditInProgress);
    EXPECT_EQ(ErrorOf([&] { set.MoveNext(); }), kErrConstraint);
    EXPECT_EQ(set["ID"].Int64(), 1) << "the move did not happen";
    database.writeError.reset();
    set.MoveNext();
    EXPECT_EQ(set["ID"].Int64(), 2);
    EXPECT_EQ(database.writes.size(), 1u);
}

TEST_F(Edit, AFailedAddStaysInEditMode)
{
    database.writeError = basic::Error(kErrConstraint, "Cannot insert duplicate key");
    set.AddNew();
    set["NAME"].SetValue("Buche");
    EXPECT_EQ(ErrorOf([&] { set.Update(); }), kErrConstraint);
    EXPECT_EQ(set.EditMode(), adEditAdd);
    set.CancelUpdate();
    EXPECT_EQ(set["ID"].Int64(), 1);
}

TEST_F(Edit, ARowChangedByOthersCarriesItsNumber)
{
    database.writeError = basic::Error(kErrRowChanged, "Row cannot be located for updating.");
    set["NAME"].SetValue("Buche");
    EXPECT_EQ(ErrorOf([&] { set.Update(); }), -2147217864);
}

TEST_F(Edit, UpdateWithoutAnEditDoesNothing)
{
    set.Update();
    EXPECT_TRUE(database.writes.empty());
}

TEST_F(Edit, ACloneSeesWhatWasWritten)
{
    const Recordset clone = set.Clone();
    set["NAME"].SetValue("Buche");
    EXPECT_EQ(TextOf(clone["NAME"].Value()), "Eiche");
    set.Update();
    EXPECT_EQ(TextOf(clone["NAME"].Value()), "Buche");
}

TEST_F(Edit, GetRowsHoldsEditedAndAddedRows)
{
    set["NAME"].SetValue("Buche");
    set.Update();
    set.AddNew();
    set["NAME"].SetValue("Tanne");
    set.Update();
    set.MoveFirst();
    const RowBlock rows = set.GetRows();
    ASSERT_EQ(rows.Rows(), 4u);
    EXPECT_EQ(rows.Text(1, 0), "Buche");
    EXPECT_EQ(rows.Text(1, 1), "Fichte");
    EXPECT_EQ(rows.Text(1, 3), "Tanne");
    EXPECT_TRUE(rows.IsNull(0, 3));
}

TEST_F(Edit, ARowBlockTakenBeforeAnEditKeepsItsValues)
{
    const RowBlock rows = set.GetRows();
    set.MoveFirst();
    set["NAME"].SetValue("Buche");
    set.Update();
    EXPECT_EQ(rows.Text(1, 0), "Eiche");
}

TEST_F(Edit, FindSeesEditedRows)
{
    set["NAME"].SetValue("Buche");
    set.Update();
    set.MoveLast();
    set.Find("NAME = 'buche'", 0, adSearchBackward);
    EXPECT_EQ(set["ID"].Int64(), 1);
}

TEST_F(Edit, ClosingTheConnectionDropsAnEdit)
{
    set["NAME"].SetValue("Buche");
    connection.Close();
    EXPECT_EQ(set.State(), adStateClosed);
    EXPECT_TRUE(database.writes.empty());
}

TEST_F(Edit, AForwardOnlyUpdatableRecordsetAddsAndEditsOnTheWay)
{
    Recordset forward = OpenTrees(connection, adOpenForwardOnly, adLockOptimistic);
    forward.MoveNext();
    forward["NAME"].SetValue("Buche");
    forward.Update();
    EXPECT_EQ(basic::CLng(database.writes.at(0).rowKey.value()), 12);
    EXPECT_EQ(forward.RecordCount(), -1);
    EXPECT_EQ(ErrorOf([&] { forward.MovePrevious(); }), 3219);
}

} // namespace
} // namespace kvx::ado::testing
