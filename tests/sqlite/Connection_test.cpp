#include "adapters/sqlite/Sha256.h"
#include "ado/Constants.h"
#include "sqlite/TestDatabase.h"

#include <memory>

namespace kvx::test {

namespace {

constexpr std::string_view kSchema = R"(
CREATE TABLE T (ID int IDENTITY(1,1) NOT NULL PRIMARY KEY, NAME nvarchar(10), FLAG bit, PRICE numeric(8,2), R real)
GO
CREATE PROCEDURE NEW_T AS
SET NOCOUNT ON
INSERT INTO T DEFAULT VALUES
SELECT CAST(SCOPE_IDENTITY() AS int) AS ID
)";

std::string Hex(const adapters::sqlite::Hash256& hash)
{
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    for (const unsigned char byte : hash) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

std::unique_ptr<ado::DriverConnection> Open(const std::string& connectionString)
{
    return adapters::sqlite::OpenSqlite(ado::ConnectionProperties(connectionString));
}

basic::Error OpenError(const std::string& connectionString)
{
    try {
        Open(connectionString);
    } catch (const basic::Error& error) {
        return error;
    }
    return {0, "opened"};
}

}  // namespace

TEST(SqliteOpen, WhatIsNoDatabaseIsNamedInOneLine)
{
    TestDatabase db(kSchema);
    const std::string other = db.File() + ".txt";
    std::ofstream(other) << std::string(4096, 'x');
    for (const std::string& source : {other, db.File() + ".missing", std::filesystem::temp_directory_path().string()}) {
        const basic::Error error = OpenError("Data Source=" + source);
        EXPECT_EQ(error.Number, ado::kErrUnspecified) << source;
        EXPECT_NE(error.Description.find(source), std::string::npos) << error.Description;
        EXPECT_EQ(error.Description.find('\n'), std::string::npos);
    }
    EXPECT_EQ(OpenError("Mode=ReadOnly").Number, ado::kErrUnspecified);
    EXPECT_EQ(OpenError("Data Source=" + db.File() + ";Synchronous=SOMETIMES").Number, ado::kErrUnspecified);
    EXPECT_EQ(OpenError("Data Source=" + db.File() + ";Busy Timeout=soon").Number, ado::kErrUnspecified);
}

TEST(SqliteOpen, AMissingFileIsMadeOnlyOnDemand)
{
    TestDatabase db;
    const std::string other = db.File() + ".new";
    EXPECT_EQ(OpenError("Data Source=" + other).Number, ado::kErrUnspecified);
    EXPECT_FALSE(std::filesystem::exists(other));
    Open("Data Source=" + other + ";Create=1")->Execute("CREATE TABLE X (ID int)", {});
    EXPECT_TRUE(std::filesystem::exists(other));
}

TEST(SqliteOpen, AReadOnlyConnectionReadsAndRefusesToWrite)
{
    TestDatabase db(kSchema);
    const auto driver = Open("Data Source=" + db.File() + ";Mode=ReadOnly");
    EXPECT_FALSE(driver->Execute("SELECT * FROM T", {})->Step());
    try {
        driver->Execute("INSERT INTO T (NAME) VALUES ('x')", {});
        ADD_FAILURE() << "written";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, ado::kErrNoPermission);
    }
}

TEST(SqliteOpen, DurabilityIsFullUnlessAskedOtherwise)
{
    TestDatabase db(kSchema);
    const auto setting = [](ado::DriverConnection& driver, const char* pragma) {
        const auto statement = driver.Execute(pragma, {});
        EXPECT_TRUE(statement->Step());
        const ado::Cell cell = statement->At(0);
        return cell.kind == ado::Cell::Kind::Text ? std::string(cell.text) : std::to_string(cell.integer);
    };
    const auto driver = Open("Data Source=" + db.File());
    EXPECT_EQ(setting(*driver, "PRAGMA journal_mode"), "wal");
    EXPECT_EQ(setting(*driver, "PRAGMA synchronous"), "2");
    EXPECT_EQ(setting(*driver, "PRAGMA foreign_keys"), "1");
    EXPECT_EQ(setting(*Open("Data Source=" + db.File() + ";Synchronous=normal"), "PRAGMA synchronous"), "1");
}

TEST(SqliteOpen, ALoginIsAskedForFromTheFirstUserOn)
{
    TestDatabase db(kSchema);
    const std::string source = "Data Source=" + db.File();
    EXPECT_EQ(OpenError(source).Number, 0);
    adapters::sqlite::SetLogin(source, "Anna", "wald");
    const basic::Error nobody = OpenError(source);
    EXPECT_EQ(nobody.Number, ado::kErrLogin);
    EXPECT_EQ(nobody.Description, "Login failed for user ''.");
    EXPECT_EQ(OpenError(source + ";User ID=ANNA;Password=wald").Number, 0);
    EXPECT_EQ(OpenError(source + ";UID=anna;PWD=Wald").Number, ado::kErrLogin);
    EXPECT_EQ(OpenError(source + ";User ID=' OR 1=1 --;Password=x").Number, ado::kErrLogin);
    adapters::sqlite::SetLogin(source + ";User ID=anna;Password=wald", "anna", "forst");
    EXPECT_EQ(OpenError(source + ";User ID=anna;Password=wald").Number, ado::kErrLogin);
    EXPECT_EQ(OpenError(source + ";User ID=anna;Password=forst").Number, 0);
}

TEST(SqliteOpen, AFileThatIsGoneIsNoticed)
{
    TestDatabase db(kSchema);
    const auto driver = Open("Data Source=" + db.File());
    EXPECT_TRUE(driver->IsAlive());
    std::filesystem::remove(db.File());
    EXPECT_FALSE(driver->IsAlive());
}

TEST(Sha256, KnownTextsHaveTheirHashes)
{
    EXPECT_EQ(Hex(adapters::sqlite::Sha256("")), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(Hex(adapters::sqlite::Sha256("abc")), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(Hex(adapters::sqlite::Sha256("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq")),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
}

TEST(Sha256, PasswordsAreStretchedAsTheStandardSays)
{
    EXPECT_EQ(Hex(adapters::sqlite::StretchPassword("password", "salt", 1)),
              "120fb6cffcf8b32c43e7225256c4f837a86548c92ccc35480805987cb70be17b");
    EXPECT_EQ(Hex(adapters::sqlite::StretchPassword("password", "salt", 4096)),
              "c5e478d59288c841aa530db6845c4c8d962893a001ce4e11a4963873aa98134a");
}

TEST(SqliteProcedure, RunsByNameHoweverItIsCalled)
{
    TestDatabase db(kSchema);
    const auto driver = Open(db.ConnectionString());
    ado::ExecuteOptions asProcedure;
    asProcedure.procedure = true;
    std::int64_t next = 1;
    const auto expectNext = [&](std::string_view text, const ado::ExecuteOptions& options) {
        const auto statement = driver->Execute(text, options);
        ASSERT_EQ(statement->Columns().size(), 1U) << text;
        EXPECT_EQ(statement->Columns()[0].name, "ID");
        EXPECT_EQ(statement->Columns()[0].type, ado::adInteger);
        ASSERT_TRUE(statement->Step()) << text;
        EXPECT_EQ(statement->At(0).integer, next++) << text;
        EXPECT_FALSE(statement->Step());
    };
    for (int time = 0; time < 3; ++time) {
        expectNext("NEW_T", {});
        expectNext("new_t", asProcedure);
        expectNext("EXEC NEW_T", {});
        expectNext("[dbo].[NEW_T]", {});
    }
    EXPECT_EQ(db.Value("SELECT COUNT(*) FROM T"), "12");
}

TEST(SqliteProcedure, CanBeChangedAndDropped)
{
    TestDatabase db(kSchema);
    db.connection.Execute("ALTER PROCEDURE NEW_T AS SELECT ISNULL(MAX(ID),0) AS N, 'it''s' AS S FROM T");
    EXPECT_EQ(db.Value("NEW_T"), "0");
    EXPECT_EQ(db.ErrorOf("CREATE PROCEDURE NEW_T AS SELECT 1"), ado::kErrConstraint);
    db.connection.Execute("DROP PROCEDURE NEW_T");
    EXPECT_EQ(db.ErrorOf("EXEC NEW_T"), ado::kErrStatement);
}

TEST(SqliteProcedure, AProcedureThatCallsItselfEnds)
{
    TestDatabase db(kSchema);
    db.connection.Execute("CREATE PROCEDURE LOOP_T AS EXEC LOOP_T");
    EXPECT_EQ(db.ErrorOf("LOOP_T"), ado::kErrStatement);
}

TEST(SqliteReading, LoopsOfOneStatementNest)
{
    TestDatabase db(kSchema);
    for (int i = 0; i < 4; ++i)
        db.connection.Execute("INSERT INTO T (NAME) VALUES ('x')");
    int pairs = 0;
    for (int time = 0; time < 3; ++time) {  // also from the cache
        ado::Recordset outer = db.connection.Execute("SELECT ID FROM T WHERE NAME = 'x'");
        for (; !outer.Eof(); outer.MoveNext()) {
            ado::Recordset inner = db.connection.Execute("SELECT ID FROM T WHERE NAME = 'X'");
            for (; !inner.Eof(); inner.MoveNext())
                ++pairs;
        }
    }
    EXPECT_EQ(pairs, 3 * 16);
}

TEST(SqliteReading, AWriteLeavesTheCurrentRowAndTheRestAsTheyWere)
{
    TestDatabase db(kSchema);
    for (const char* name : {"eins", "zwei", "drei"})
        db.connection.Execute("INSERT INTO T (NAME, PRICE) VALUES ('" + std::string(name) + "', 1.25)");
    const auto driver = Open(db.ConnectionString());
    const auto rows = driver->Execute("SELECT NAME, PRICE, FLAG FROM T ORDER BY ID", {});
    ASSERT_TRUE(rows->Step());
    driver->Execute("UPDATE T SET NAME = 'neu', PRICE = 7", {});
    driver->Execute("DELETE FROM T WHERE ID = 2", {});
    EXPECT_EQ(rows->At(0).text, "eins");
    EXPECT_EQ(rows->At(1).real, 1.25);
    EXPECT_EQ(rows->At(2).kind, ado::Cell::Kind::Null);
    ASSERT_TRUE(rows->Step());
    EXPECT_EQ(rows->At(0).text, "zwei");
    ASSERT_TRUE(rows->Step());
    EXPECT_EQ(rows->At(0).text, "drei");
    EXPECT_FALSE(rows->Step());
    EXPECT_FALSE(rows->Step());
}

TEST(SqliteReading, AReadThatIsStillOpenLetsOthersWriteFirst)
{
    TestDatabase db(kSchema);
    db.connection.Execute("INSERT INTO T (NAME) VALUES ('a'), ('b')");
    const auto driver = Open(db.ConnectionString());
    const auto rows = driver->Execute("SELECT NAME FROM T", {});
    ASSERT_TRUE(rows->Step());
    db.connection.Execute("UPDATE T SET NAME = 'c'");  // the open read now sees an old state of the file
    EXPECT_EQ(driver->Execute("UPDATE T SET FLAG = 1", {})->RowsAffected(), 2);
    ASSERT_TRUE(rows->Step());
    EXPECT_EQ(rows->At(0).text, "b");
}

TEST(SqliteReading, ATableThatAnotherConnectionChangedIsReadAsItIsNow)
{
    TestDatabase db("CREATE TABLE N (ID int, A nvarchar(5))\nGO\nINSERT INTO N (ID, A) VALUES (1, 'x')");
    const auto driver = Open(db.ConnectionString());
    for (int time = 0; time < 3; ++time)
        EXPECT_TRUE(driver->Execute("SELECT * FROM N WHERE ID = 1", {})->Step());
    db.connection.Execute("ALTER TABLE N ADD B nvarchar(7)");
    driver->Execute("SELECT * FROM N WHERE ID = 1", {})->Step();  // notices the change
    const auto rows = driver->Execute("SELECT * FROM N WHERE ID = 1", {});
    ASSERT_EQ(rows->Columns().size(), 3U);
    EXPECT_EQ(rows->Columns()[2].definedSize, 7);
}

TEST(SqliteReading, AStatementOutlivesItsConnectionHarmlessly)
{
    TestDatabase db(kSchema);
    db.connection.Execute("INSERT INTO T (NAME) VALUES ('a')");
    auto driver = Open(db.ConnectionString());
    const auto rows = driver->Execute("SELECT NAME FROM T", {});
    ASSERT_TRUE(rows->Step());
    driver.reset();
    EXPECT_FALSE(rows->Step());
}

TEST(SqliteValues, ABoundValueFindsWhatTheWrittenOneFinds)
{
    TestDatabase db("CREATE TABLE N (I int, S nvarchar(10), P numeric(8,2), F float)\nGO\n"
                    "INSERT INTO N (I, S, P, F) VALUES (5, '5', 5.5, 0.1), (6, '05', 6, 1e10)");
    const char* conditions[] = {
        "I = '5'",           "I = 5",   "I = 5.0",  "I = ' 5'", "S = 5",           "S = '5'",
        "P = '5.5'",         "P = 5.5", "P = 5.50", "F = 0.1",  "F = 10000000000", "I IN ('5','6')",
        "ISNULL(I,0) = '5'", "I > '4'", "I = -5",   "S < 6"};
    for (const char* condition : conditions) {
        const std::string text = std::string("SELECT COUNT(*) FROM N WHERE ") + condition;
        const std::string written = db.Value(text);  // values stay in a text that is new
        db.Value(text);
        EXPECT_EQ(db.Value(text), written) << condition;  // and are bound once it came again
    }
    EXPECT_EQ(db.Value("SELECT COUNT(*) FROM N WHERE I = '5'"), "1");
}

TEST(SqliteValues, WhatIsStoredIsWhatSqlServerStores)
{
    TestDatabase db(kSchema);
    for (int time = 0; time < 3; ++time) {  // in the text first, bound later
        db.connection.Execute("INSERT INTO T (NAME, FLAG, PRICE) VALUES ('1234567890   ', -1, 2.555)");
        EXPECT_EQ(db.Value("SELECT COUNT(*) FROM T WHERE FLAG = 1 AND PRICE = 2.56 AND LEN(NAME) = 10"),
                  std::to_string(time + 1));
        EXPECT_EQ(db.ErrorOf("INSERT INTO T (NAME) VALUES ('12345678901')"), ado::kErrOutOfRange);
        EXPECT_EQ(db.ErrorOf("INSERT INTO T (PRICE) VALUES (1000000)"), ado::kErrOutOfRange);
        EXPECT_EQ(db.ErrorOf("INSERT INTO T (PRICE) VALUES ('x')"), ado::kErrConversion);
    }
}

TEST(SqliteValues, ATransactionThatFailsLeavesNothing)
{
    TestDatabase db(kSchema);
    const auto driver = Open(db.ConnectionString());
    EXPECT_THROW(adapters::sqlite::RunScript(
                     *driver, "INSERT INTO T (NAME) VALUES ('a')\nGO\nINSERT INTO T (NAMEE) VALUES ('b')"),
                 basic::Error);
    EXPECT_EQ(db.Value("SELECT COUNT(*) FROM T"), "0");
    adapters::sqlite::RunScript(*driver,
                                "INSERT INTO T (NAME) VALUES ('a')\nGO\nINSERT INTO T (NAME) VALUES ('b')\nGO");
    EXPECT_EQ(db.Value("SELECT COUNT(*) FROM T"), "2");
}

TEST(SqliteValues, ALongStatementIsStoppedAtItsTimeout)
{
    TestDatabase db;
    const auto driver = Open(db.ConnectionString());
    ado::ExecuteOptions options;
    options.timeoutSeconds = 1;
    const auto endless = driver->Execute(
        "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N) SELECT COUNT(*) FROM N", options);
    try {
        endless->Step();
        ADD_FAILURE() << "it ended";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, ado::kErrTimeout);
    }
}

}  // namespace kvx::test
