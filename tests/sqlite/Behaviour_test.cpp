#include "ado/Constants.h"
#include "sqlite/TestDatabase.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace kvx::test {

namespace {

constexpr std::string_view kSchema = R"(
CREATE TABLE T (
    ID int IDENTITY(1,1) NOT NULL,
    NAME nvarchar(10) NULL,
    FLAG bit NULL,
    SMALL smallint NULL,
    PRICE numeric(8,2) NULL,
    DAY_ smalldatetime NULL,
    CONSTRAINT PK_T PRIMARY KEY (ID)
)
GO
CREATE TABLE U (
    ID int NOT NULL,
    T_ID int NOT NULL,
    CONSTRAINT PK_U PRIMARY KEY (ID),
    CONSTRAINT FK_U_T FOREIGN KEY (T_ID) REFERENCES T (ID)
)
GO
)";

}  // namespace

TEST(SqliteCollation, CaseAndTrailingBlanksDoNotCountAccentsDo)
{
    TestDatabase db(kSchema);
    for (const char* name : {"'Ähre'", "'ähre  '", "'Ahre'", "'é'", "'e'"})
        db.connection.Execute("INSERT INTO T (NAME) VALUES (" + std::string(name) + ")");
    EXPECT_EQ(db.Value("SELECT COUNT(*) FROM T WHERE NAME = 'ÄHRE'"), "2");
    EXPECT_EQ(db.Value("SELECT COUNT(*) FROM T WHERE NAME = 'ahre'"), "1");
    EXPECT_EQ(db.Value("SELECT COUNT(*) FROM T WHERE NAME = 'E'"), "1");
    EXPECT_EQ(db.Value("SELECT COUNT(*) FROM T WHERE ISNULL(NAME,'') = 'ÄHRE'"), "2");
    EXPECT_EQ(db.Value("SELECT COUNT(DISTINCT NAME) FROM T"), "4");
}

TEST(SqliteCollation, NamesSortTheGermanWay)
{
    TestDatabase db(kSchema);
    for (const char* name : {"Zahn", "Ähre", "Bach", "Apfel", "ach"})
        db.connection.Execute("INSERT INTO T (NAME) VALUES ('" + std::string(name) + "')");
    EXPECT_EQ(db.Column("SELECT NAME FROM T ORDER BY NAME"),
              (std::vector<std::string>{"ach", "Ähre", "Apfel", "Bach", "Zahn"}));
}

TEST(SqliteText, LikeIgnoresCaseOfUmlautsAndKnowsSets)
{
    TestDatabase db(kSchema);
    for (const char* name : {"Ähre", "Ast1", "Ast2", "Ast9"})
        db.connection.Execute("INSERT INTO T (NAME) VALUES ('" + std::string(name) + "')");
    EXPECT_EQ(db.Value("SELECT COUNT(*) FROM T WHERE NAME LIKE 'äh%'"), "1");
    EXPECT_EQ(db.Value("SELECT COUNT(*) FROM T WHERE NAME LIKE 'ast[12]'"), "2");
}

TEST(SqliteErrors, EachRefusalHasTheProvidersNumber)
{
    TestDatabase db(kSchema);
    EXPECT_EQ(db.ErrorOf("SELECT * FROM T WHERE ID = "), ado::kErrStatement);
    EXPECT_EQ(db.ErrorOf("SELECT * FROM T WHERE NAME = 'O'Neil'"), ado::kErrStatement);
    EXPECT_EQ(db.ErrorOf("SELECT NAMEE FROM T"), ado::kErrStatement);
    EXPECT_EQ(db.ErrorOf("SELECT * FROM MISSING WHERE ID = 1"), ado::kErrNoSuchTable);
    EXPECT_EQ(db.ErrorOf("INSERT INTO U (ID, T_ID) VALUES (1, 77)"), ado::kErrConstraint);
    EXPECT_EQ(db.ErrorOf("INSERT INTO U (ID) VALUES (1)"), ado::kErrConstraint);
    EXPECT_EQ(db.ErrorOf("INSERT INTO T (NAME) VALUES ('12345678901')"), ado::kErrOutOfRange);
    EXPECT_EQ(db.ErrorOf("INSERT INTO T (SMALL) VALUES (99999)"), ado::kErrOutOfRange);
    EXPECT_EQ(db.ErrorOf("INSERT INTO T (SMALL) VALUES ('abc')"), ado::kErrConversion);
    EXPECT_EQ(db.ErrorOf("UPDATE T SET DAY_ = convert(smalldatetime, '31.02.2024',104)"), 0);  // no row to convert for
    db.connection.Execute("INSERT INTO T (NAME) VALUES ('x')");
    EXPECT_EQ(db.ErrorOf("UPDATE T SET DAY_ = convert(smalldatetime, '31.02.2024',104)"), ado::kErrConversion);
}

TEST(SqliteTypes, ColumnsComeAsSqlServersProviderGivesThem)
{
    TestDatabase db(kSchema);
    ado::Recordset rows =
        db.connection.Execute("SELECT ID, NAME, FLAG, SMALL, PRICE, DAY_, ISNULL(FLAG,0) AS F, COUNT(*) AS N, 'x' AS S,"
                              " (SELECT NAME FROM T) AS SUB FROM T");
    const std::pair<const char*, ado::DataTypeEnum> expected[] = {
        {"ID", ado::adInteger},    {"NAME", ado::adVarWChar},    {"FLAG", ado::adBoolean}, {"SMALL", ado::adSmallInt},
        {"PRICE", ado::adNumeric}, {"DAY_", ado::adDBTimeStamp}, {"F", ado::adBoolean},    {"N", ado::adInteger},
        {"S", ado::adVarChar},     {"SUB", ado::adVarWChar},
    };
    for (const auto& [name, type] : expected)
        EXPECT_EQ(rows[name].Type(), type) << name;
    EXPECT_EQ(rows["NAME"].DefinedSize(), 10);
    EXPECT_EQ(rows["PRICE"].Precision(), 8);
    EXPECT_EQ(rows["PRICE"].NumericScale(), 2);
    EXPECT_EQ(basic::ToText(rows["NAME"].Properties("BASETABLENAME")), "T");
    EXPECT_TRUE(rows["F"].Properties("BASECOLUMNNAME").IsNull());
    EXPECT_TRUE(rows["SUB"].Properties("BASETABLENAME").IsNull());
}

TEST(SqliteReading, RowsInsertedMeanwhileAreNotSeenByAnOpenRead)
{
    TestDatabase db(kSchema);
    for (int i = 0; i < 3; ++i)
        db.connection.Execute("INSERT INTO T (NAME) VALUES ('alt')");
    ado::Recordset rows = db.connection.Execute("SELECT ID FROM T");
    int seen = 0;
    for (; !rows.Eof(); rows.MoveNext()) {
        ++seen;
        db.connection.Execute("INSERT INTO T (NAME) VALUES ('neu')");
        ASSERT_LT(seen, 10);
    }
    EXPECT_EQ(seen, 3);
    EXPECT_EQ(db.Value("SELECT COUNT(*) FROM T"), "6");
}

TEST(SqliteFile, AMissingFileIsOneClearError)
{
    TestDatabase db;
    ado::Connection other;
    try {
        other.Open("Provider=Korvex.SQLite;Data Source=" + db.File() + ".missing");
        ADD_FAILURE() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, ado::kErrUnspecified);
        EXPECT_EQ(error.Description.find('\n'), std::string::npos);
    }
}

TEST(SqliteFile, ADatabaseWithALoginWantsTheRightPassword)
{
    TestDatabase db(kSchema);
    adapters::sqlite::SetLogin(db.ConnectionString(), "anna", "wald");
    ado::Connection other;
    try {
        other.Open(db.ConnectionString() + ";User ID=anna;Password=Wald");
        ADD_FAILURE() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, ado::kErrLogin);
    }
    other.Open(db.ConnectionString() + ";User ID=anna;Password=wald");
    EXPECT_EQ(other.State(), ado::adStateOpen);
}

TEST(SqliteFile, WhatWasAcknowledgedSurvivesAKilledProcess)
{
    TestDatabase db(kSchema);
    int pipes[2];
    ASSERT_EQ(pipe(pipes), 0);
    const pid_t child = fork();
    if (child == 0) {
        ado::Connection connection;
        connection.Open(db.ConnectionString());
        for (int i = 0; i < 5; ++i)
            connection.Execute("INSERT INTO T (NAME) VALUES ('da')");
        const char done = 'x';
        if (write(pipes[1], &done, 1) != 1) _exit(1);
        for (;;)
            pause();
    }
    char done = 0;
    ASSERT_EQ(read(pipes[0], &done, 1), 1);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    close(pipes[0]);
    close(pipes[1]);
    EXPECT_EQ(db.Value("SELECT COUNT(*) FROM T"), "5");
}

TEST(SqliteFile, TwoProcessesWriteToOneFile)
{
    TestDatabase db(kSchema);
    const pid_t child = fork();
    const auto insert = [&db] {
        ado::Connection connection;
        connection.Open(db.ConnectionString());
        for (int i = 0; i < 20; ++i)
            connection.Execute("INSERT INTO T (NAME) VALUES ('x')");
    };
    if (child == 0) {
        try {
            insert();
        } catch (...) {
            _exit(1);
        }
        _exit(0);
    }
    insert();
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(db.Value("SELECT COUNT(*) FROM T"), "40");
}

}  // namespace kvx::test
