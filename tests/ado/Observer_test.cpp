#include "FakeDriver.h"

#include <gtest/gtest.h>

namespace kvx::ado::testing {
namespace {

// Keeps every record; lets a statement fail when told to.
class Recorder final : public StatementObserver {
public:
    void BeforeExecute(std::string_view text) override
    {
        ++asked;
        if (text == failing) throw basic::Error(kErrTimeout, "Query timeout expired");
    }
    void AfterExecute(const StatementRecord& record) override { records.push_back(record); }

    std::vector<StatementRecord> records;
    std::string failing;
    int asked = 0;
};

class Observer : public ::testing::Test {
protected:
    Observer()
    {
        AddTrees(database);
        connection.AddStatementObserver(recorder);
    }

    FakeDatabase database;
    Connection connection = database.Connect();
    std::shared_ptr<Recorder> recorder = std::make_shared<Recorder>();
};

TEST_F(Observer, SeesTextConnectionAndRowsAffected)
{
    connection.Execute("DELETE FROM TREE");
    const StatementRecord& record = recorder->records.at(0);
    EXPECT_EQ(record.text, "DELETE FROM TREE");
    EXPECT_EQ(record.connectionId, connection.Id());
    EXPECT_TRUE(record.sent);
    EXPECT_TRUE(record.succeeded);
    EXPECT_EQ(record.recordsAffected, 3);
    EXPECT_FALSE(record.rowWrite);
}

TEST_F(Observer, SeesRecordsetsAndRequeries)
{
    Recordset set = OpenTrees(connection);
    set.Requery();
    EXPECT_EQ(recorder->records.size(), 2u);
    EXPECT_EQ(recorder->records[1].text, kTrees);
    EXPECT_EQ(recorder->records[1].recordsAffected, -1);
}

TEST_F(Observer, SeesAFailureWithItsNumberAndText)
{
    database.answers["SELECT WRONG"] = {.error = basic::Error(kErrStatement, "Invalid column name 'WRONG'.")};
    EXPECT_NE(ErrorOf([&] { connection.Execute("SELECT WRONG"); }), 0);
    const StatementRecord& record = recorder->records.at(0);
    EXPECT_TRUE(record.sent);
    EXPECT_FALSE(record.succeeded);
    EXPECT_EQ(record.errorNumber, kErrStatement);
    EXPECT_EQ(record.errorDescription, "Invalid column name 'WRONG'.");
}

TEST_F(Observer, MayLetAStatementFailBeforeItIsSent)
{
    recorder->failing = "DELETE FROM TREE";
    try {
        connection.Execute("DELETE FROM TREE");
        FAIL() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, kErrTimeout);
        EXPECT_EQ(error.Statement, "DELETE FROM TREE");
    }
    EXPECT_TRUE(database.texts.empty());
    EXPECT_FALSE(recorder->records.at(0).sent);
    EXPECT_FALSE(recorder->records.at(0).succeeded);
}

TEST_F(Observer, SeesRowsThatARecordsetWrites)
{
    Recordset set = OpenTrees(connection, adOpenStatic, adLockOptimistic);
    set["NAME"].SetValue("O'Neill");
    set["HEIGHT"].SetValue(2.5);
    set.Update();
    set.AddNew();
    set["NAME"].SetValue("Buche");
    set.Update();
    set.AddNew();
    set.Update();
    ASSERT_EQ(recorder->records.size(), 4u);
    EXPECT_EQ(recorder->records[1].text, "UPDATE TREE SET NAME = 'O''Neill', HEIGHT = 2.5 WHERE rowid = 11");
    EXPECT_EQ(recorder->records[2].text, "INSERT INTO TREE (NAME) VALUES ('Buche')");
    EXPECT_EQ(recorder->records[3].text, "INSERT INTO TREE DEFAULT VALUES");
    EXPECT_TRUE(recorder->records[1].rowWrite);
    EXPECT_EQ(recorder->records[1].recordsAffected, 1);
}

TEST_F(Observer, MayLetARowWriteFailAndTheEditStays)
{
    Recordset set = OpenTrees(connection, adOpenStatic, adLockOptimistic);
    recorder->failing = "UPDATE TREE SET NAME = 'x' WHERE rowid = 11";
    set["NAME"].SetValue("x");
    EXPECT_EQ(ErrorOf([&] { set.Update(); }), kErrTimeout);
    EXPECT_TRUE(database.writes.empty());
    EXPECT_EQ(set.EditMode(), adEditInProgress);
}

TEST_F(Observer, OfTheConnectionSeesNoOtherConnection)
{
    Connection other = database.Connect();
    other.Execute("DELETE FROM TREE");
    EXPECT_TRUE(recorder->records.empty());
    EXPECT_NE(other.Id(), connection.Id());
}

TEST_F(Observer, OfTheProcessSeesEveryConnectionUntilRemoved)
{
    const auto everything = std::make_shared<Recorder>();
    AddProcessObserver(everything);
    Connection other = database.Connect();
    other.Execute("DELETE FROM TREE");
    connection.Execute("DELETE FROM TREE");
    RemoveProcessObserver(everything.get());
    other.Execute("DELETE FROM TREE");
    ASSERT_EQ(everything->records.size(), 2u);
    EXPECT_EQ(everything->records[0].connectionId, other.Id());
    EXPECT_EQ(recorder->records.size(), 1u);
}

TEST_F(Observer, IsGoneAfterItsRemoval)
{
    connection.RemoveStatementObserver(recorder.get());
    connection.Execute("DELETE FROM TREE");
    EXPECT_TRUE(recorder->records.empty());
}

TEST_F(Observer, AClosedConnectionSendsNothing)
{
    connection.Close();
    EXPECT_EQ(ErrorOf([&] { connection.Execute("DELETE FROM TREE"); }), 3704);
    EXPECT_EQ(recorder->asked, 0);
}

} // namespace
} // namespace kvx::ado::testing
