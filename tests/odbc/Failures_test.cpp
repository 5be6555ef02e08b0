#include "adapters/odbc/OdbcDriver.h"
#include "ado/Command.h"
#include "ado/Connection.h"
#include "basic/Convert.h"
#include "basic/Error.h"
#include "odbc/Engines.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <thread>

// A server in trouble: every call ends with a number and a text, and the host goes on.
namespace kvx::test {
namespace {

using ado::Connection;
using ado::Recordset;

MariaDbServer& Server()
{
    static MariaDbServer server(MariaDbServer::kPlainMode);
    return server;
}

basic::Error Raised(const std::function<void()>& call)
{
    try {
        call();
    } catch (const basic::Error& error) {
        EXPECT_FALSE(error.Description.empty());
        return error;
    }
    return {0, ""};
}

class OdbcFailure : public ::testing::Test {
protected:
    void SetUp() override
    {
        text_ = Server().NewDatabase();
        connection.Open(text_);
        connection.Execute("CREATE TABLE T (ID int NOT NULL PRIMARY KEY, NAME varchar(20)) ENGINE=InnoDB");
        connection.Execute("INSERT INTO T (ID,NAME) VALUES (1,'eins'),(2,'zwei')");
    }
    std::int64_t Count() const
    {
        const Recordset rows = connection.Execute("SELECT COUNT(*) FROM T");
        return rows[0].Int64();
    }

    std::string text_;
    Connection connection;
};

}  // namespace

TEST_F(OdbcFailure, AServerThatGoesAwayIsAnErrorAndTheHostConnectsAnew)
{
    Recordset rows;
    rows.Open("SELECT ID, NAME FROM T ORDER BY ID", connection, ado::adOpenKeyset, ado::adLockOptimistic);
    Server().Kill();
    EXPECT_EQ(Raised([&] { connection.Execute("SELECT COUNT(*) FROM T"); }).Number, ado::kErrUnspecified);
    rows["NAME"].SetValue("drei");
    EXPECT_EQ(Raised([&] { rows.Update(); }).Number, ado::kErrUnspecified);
    EXPECT_EQ(rows.EditMode(), ado::adEditInProgress) << "nothing was written, nothing is lost";
    rows.CancelUpdate();
    EXPECT_EQ(rows["NAME"].TextView(), "eins");
    EXPECT_EQ(Raised([&] { connection.Execute("DELETE FROM T"); }).Number, ado::kErrUnspecified) << "and stays so";
    connection.Close();
    EXPECT_EQ(Raised([&] { connection.Open(); }).Number, ado::kErrUnspecified) << "nobody there";
    EXPECT_EQ(connection.State(), ado::adStateClosed);
    Server().Start();
    connection.Open();
    EXPECT_EQ(Count(), 2);
}

TEST_F(OdbcFailure, ALoginRefusedIsE4D)
{
    connection.Execute("CREATE USER IF NOT EXISTS forester@'127.0.0.1' IDENTIFIED BY 'wald'");
    std::string refused = text_;
    refused.replace(refused.find("User ID=root"), std::string_view("User ID=root").size(),
                    "User ID=forester;Password=falsch");
    Connection other;
    const basic::Error error = Raised([&] { other.Open(refused); });
    EXPECT_EQ(error.Number, ado::kErrLogin);
    EXPECT_NE(error.Description.find("Access denied"), std::string::npos) << error.Description;
    EXPECT_FALSE(error.Description.starts_with("[")) << "the server's words, without the drivers' names";
    EXPECT_EQ(other.State(), ado::adStateClosed);
}

TEST_F(OdbcFailure, AStatementThatTakesTooLongIsE31)
{
    connection.SetCommandTimeout(1);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(Raised([&] { connection.Execute("SELECT COUNT(*) FROM T A WHERE SLEEP(20) = 0"); }).Number,
              ado::kErrTimeout);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
    EXPECT_EQ(Count(), 2) << "the connection goes on";
}

TEST_F(OdbcFailure, TheVictimOfADeadlockGetsItsNumberAndTheOtherIsWritten)
{
    Connection other;
    other.Open(text_);
    connection.Execute("BEGIN TRANSACTION");
    other.Execute("BEGIN TRANSACTION");
    connection.Execute("UPDATE T SET NAME = 'a' WHERE ID = 1");
    other.Execute("UPDATE T SET NAME = 'b' WHERE ID = 2");
    basic::Error first(0, ""), second(0, "");
    std::thread waiting([&] { first = Raised([&] { connection.Execute("UPDATE T SET NAME = 'a' WHERE ID = 2"); }); });
    second = Raised([&] { other.Execute("UPDATE T SET NAME = 'b' WHERE ID = 1"); });
    if (second.Number != 0) other.Execute("ROLLBACK");
    waiting.join();
    // The engine chooses the victim; exactly one it is.
    EXPECT_NE(first.Number == 0, second.Number == 0);
    const basic::Error& victim = first.Number != 0 ? first : second;
    EXPECT_EQ(victim.Number, ado::kErrUnspecified);
    EXPECT_NE(victim.Description.find("Deadlock"), std::string::npos) << victim.Description;
    connection.Execute(first.Number != 0 ? "ROLLBACK" : "COMMIT");
    if (second.Number == 0) other.Execute("COMMIT");
    const Recordset rows = connection.Execute("SELECT NAME FROM T ORDER BY ID");
    EXPECT_EQ(rows[0].TextView(), first.Number != 0 ? "b" : "a");
}

TEST_F(OdbcFailure, ALockThatIsHeldTooLongIsATimeout)
{
    Connection other;
    other.Open(text_);
    connection.Execute("BEGIN TRANSACTION");
    connection.Execute("UPDATE T SET NAME = 'a' WHERE ID = 1");
    other.Execute("SET SESSION innodb_lock_wait_timeout = 1");
    EXPECT_EQ(Raised([&] { other.Execute("UPDATE T SET NAME = 'b' WHERE ID = 1"); }).Number, ado::kErrTimeout);
    connection.Execute("ROLLBACK");
    EXPECT_EQ(Raised([&] { other.Execute("UPDATE T SET NAME = 'b' WHERE ID = 1"); }).Number, 0);
}

TEST_F(OdbcFailure, WhatIsRolledBackWasNeverWritten)
{
    connection.Execute("BEGIN TRANSACTION");
    connection.Execute("DELETE FROM T");
    connection.Execute("ROLLBACK TRANSACTION");
    EXPECT_EQ(Count(), 2);
    connection.Execute("DELETE FROM T WHERE ID = 1");
    Connection other;
    other.Open(text_);
    EXPECT_EQ(other.Execute("SELECT COUNT(*) FROM T")[0].Int64(), 1) << "statements commit by themselves again";
}

TEST_F(OdbcFailure, NobodyListeningIsAnError)
{
    Connection other;
    const std::string text = "Provider=MSDASQL;Driver={MariaDB Unicode};Server=127.0.0.1;Port=1;Connect Timeout=2";
    EXPECT_EQ(Raised([&] { other.Open(text); }).Number, ado::kErrUnspecified);
    EXPECT_EQ(Raised([&] { other.Open("Provider=MSDASQL;Driver={No Such Driver};Server=127.0.0.1"); }).Number,
              ado::kErrUnspecified);
}

// What the engines of the contract do not show.

TEST_F(OdbcFailure, AProcedureTakesParametersAndGivesItsRows)
{
    connection.Execute("CREATE PROCEDURE P(A int, B varchar(20)) BEGIN INSERT INTO T VALUES (A, B); SELECT MAX(ID) AS "
                       "LAST, 'ü' AS TEXT FROM T; END");
    ado::Command command;
    command.ActiveConnection = connection;
    command.CommandType = ado::adCmdStoredProc;
    command.CommandText = "P(7, 'sieben')";
    const Recordset rows = command.Execute();
    EXPECT_EQ(rows["LAST"].Int64(), 7);
    EXPECT_EQ(rows["TEXT"].TextView(), "ü");
    command.CommandText = "P 8, 'acht'";
    EXPECT_EQ(command.Execute()[0].Int64(), 8);
    EXPECT_EQ(Count(), 4);
}

TEST_F(OdbcFailure, ALongTextComesAndGoesWhole)
{
    connection.Execute("CREATE TABLE L (ID int NOT NULL PRIMARY KEY, NOTE longtext, NAME varchar(20))");
    std::string note;
    while (note.size() < 300'000)
        note += "Wälder 🌲 ";
    Recordset rows;
    rows.Open("SELECT ID, NOTE, NAME FROM L", connection, ado::adOpenKeyset, ado::adLockOptimistic);
    rows.AddNew();
    rows["ID"].SetValue(std::int32_t{1});
    rows["NOTE"].SetValue(note);
    rows["NAME"].SetValue("hinter dem langen");
    rows.Update();
    const Recordset read = connection.Execute("SELECT NOTE, NAME, ID FROM L");
    EXPECT_EQ(read[0].TextView(), note);
    EXPECT_EQ(read[1].TextView(), "hinter dem langen");
    EXPECT_EQ(read[2].Int64(), 1);
}

TEST_F(OdbcFailure, AKeyOfTwoColumnsLeadsBackToItsRow)
{
    connection.Execute("CREATE TABLE R (ID_USER int NOT NULL, CODE varchar(10) NOT NULL, NOTE varchar(20), PRIMARY KEY "
                       "(ID_USER, CODE))");
    connection.Execute("INSERT INTO R VALUES (1,'B018','x'),(1,'B049','y')");
    Recordset rows;
    rows.Open("SELECT NOTE, CODE FROM R ORDER BY CODE DESC", connection, ado::adOpenStatic, ado::adLockOptimistic);
    EXPECT_EQ(rows.Fields().Count(), 2);
    rows["NOTE"].SetValue("neu");
    rows["CODE"].SetValue("B057");
    rows.Update();
    rows["NOTE"].SetValue("neuer");
    rows.Update();
    const Recordset read = connection.Execute("SELECT NOTE FROM R ORDER BY CODE");
    EXPECT_EQ(read[0].TextView(), "x");
    EXPECT_EQ(connection.Execute("SELECT NOTE FROM R WHERE CODE = 'B057'")[0].TextView(), "neuer");
}

TEST_F(OdbcFailure, ManyBlocksOfRowsAreOneResult)
{
    connection.Execute("INSERT INTO T (ID,NAME) SELECT seq + 2, CONCAT('Stand ', seq + 2) FROM seq_1_to_5000");
    std::int64_t expected = 0;
    for (Recordset rows = connection.Execute("SELECT ID, NAME FROM T ORDER BY ID"); !rows.Eof(); rows.MoveNext()) {
        ASSERT_EQ(rows[0].Int64(), ++expected);
        if (expected > 2) {
            ASSERT_EQ(rows[1].TextView(), "Stand " + std::to_string(expected));
        }
    }
    EXPECT_EQ(expected, 5002);
}

}  // namespace kvx::test
