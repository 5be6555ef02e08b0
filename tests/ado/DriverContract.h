#pragma once

#include "ado/Command.h"
#include "ado/Connection.h"
#include "basic/Convert.h"
#include "basic/Error.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

// What every driver promises, run against a real engine. A test program includes this once and instantiates it:
//   INSTANTIATE_TEST_SUITE_P(Sqlite, DriverContract, testing::Values(DriverCase{.name = "sqlite", ...}));
namespace kvx::ado::testing {

/// A column that an engine has otherwise than SQL Server, as it shows then.
struct ColumnDifference {
    std::string column;
    DataTypeEnum type;
    std::int32_t size;
    int precision, scale;
    basic::VarType value;
    std::string reason;
};

/// One driver, and where it differs. Each difference is asserted: an engine that learns better fails here.
struct DriverCase {
    std::string name;
    /// Connection string of an empty database; a second call within a test gives another database.
    std::function<std::string()> freshDatabase;
    /// SQL Server's text in the words of the engine (types, dates, separators); left out: as it is.
    std::function<std::string(std::string_view)> words = {};
    /// Undoes what a test left behind, after its connections are closed.
    std::function<void()> cleanUp = {};

    std::vector<ColumnDifference> columns = {};

    /// Statements of one text must be parted by ";", and each is read when those before it have run. The reason.
    std::string stepwiseBatches = {};

    // Numbers that differ, with the reason where the case is stated.
    std::int32_t noSuchTable = kErrNoSuchTable;
    std::int32_t laterFault = kErrStatement; ///< a fault in a text's second statement
    std::int32_t badDate = kErrConversion;
    std::int32_t tooLong = kErrOutOfRange;
    std::int32_t tooLarge = kErrOutOfRange;
};

inline void PrintTo(const DriverCase& driver, std::ostream* out)
{
    *out << driver.name;
}

class DriverContract : public ::testing::TestWithParam<DriverCase> {
protected:
    void SetUp() override
    {
        text_ = GetParam().freshDatabase();
        connection.Open(text_);
        Create("CREATE TABLE CT_KIND (ID int NOT NULL PRIMARY KEY, NAME nvarchar(20) NULL)");
        Create("CREATE TABLE CT_TREE (ID int IDENTITY(1,1) NOT NULL PRIMARY KEY, ID_KIND int NULL REFERENCES "
               "CT_KIND(ID), NUMBER smallint NULL, NAME nvarchar(10) NOT NULL, CODE varchar(5) NULL UNIQUE, "
               "AREA numeric(8,2) NULL, HEIGHT float NULL, SHARE real NULL, CENTRAL bit NULL, LEVEL tinyint NULL, "
               "PLANTED smalldatetime NULL, NOTE ntext NULL, BIG bigint NULL, PRICE money NULL)");
        connection.Execute("INSERT INTO CT_KIND (ID,NAME) VALUES (1,'Laub')");
        connection.Execute("INSERT INTO CT_KIND (ID,NAME) VALUES (2,'Nadel')");
        Create("INSERT INTO CT_TREE (ID_KIND,NUMBER,NAME,CODE,AREA,HEIGHT,SHARE,CENTRAL,LEVEL,PLANTED,NOTE,BIG,PRICE) "
               "VALUES (1,-7,'Eiche','EI',12.50,21.75,0.5,1,200,'20240201','alt',5000000000,12.3456)");
        connection.Execute(
            "INSERT INTO CT_TREE (ID_KIND,NUMBER,NAME,CODE,AREA,CENTRAL) VALUES (2,8,'Fichte','FI',3,0)");
        connection.Execute("INSERT INTO CT_TREE (ID_KIND,NAME,CODE) VALUES (2,'Bäume','BA')");
    }
    void TearDown() override
    {
        connection = Connection();
        if (GetParam().cleanUp) GetParam().cleanUp();
    }

    void Create(std::string_view table)
    {
        connection.Execute(Sql(table));
    }
    static const ColumnDifference* DifferenceOf(std::string_view column)
    {
        for (const ColumnDifference& difference : GetParam().columns)
            if (difference.column == column) return &difference;
        return nullptr;
    }
    static std::string Sql(std::string_view text)
    {
        return GetParam().words ? GetParam().words(text) : std::string(text);
    }

    Recordset Static(std::string_view text, LockTypeEnum lock = adLockReadOnly) const
    {
        Recordset set;
        set.SetCursorLocation(adUseClient);
        set.Open(Sql(text), connection, adOpenStatic, lock);
        return set;
    }

    /// The first field of the first row as a whole number; -1 = no row or NULL.
    std::int64_t Number(std::string_view text) const
    {
        const Recordset set = connection.Execute(Sql(text));
        return set.Eof() || set[0].IsNull() ? -1 : set[0].Int64();
    }
    std::string Text(std::string_view text) const
    {
        const Recordset set = connection.Execute(Sql(text));
        return set.Eof() ? "(no row)" : set[0].IsNull() ? "(NULL)" : std::string(set[0].TextView());
    }
    std::int32_t Error(std::string_view text) const
    {
        return Raised([&] { connection.Execute(Sql(text)); });
    }
    template <class Call>
    static std::int32_t Raised(Call call)
    {
        try {
            call();
        } catch (const basic::Error& error) {
            EXPECT_FALSE(error.Description.empty());
            return error.Number;
        }
        return 0;
    }

    std::string text_;
    Connection connection;
};

// What a column is.

TEST_P(DriverContract, ColumnsDescribeThemselvesWithoutRows)
{
    struct Expected {
        const char* name;
        DataTypeEnum type;
        std::int32_t size; // -1 = not relied on
        int precision, scale;
    };
    const Expected expected[] = {
        {"ID", adInteger, 4, 10, 255},
        {"NUMBER", adSmallInt, 2, 5, 255},
        {"NAME", adVarWChar, 10, 255, 255},
        {"CODE", adVarChar, 5, 255, 255},
        {"AREA", adNumeric, 19, 8, 2},
        {"HEIGHT", adDouble, 8, 15, 255},
        {"SHARE", adSingle, 4, 7, 255},
        {"CENTRAL", adBoolean, 2, 255, 255},
        {"LEVEL", adUnsignedTinyInt, 1, 3, 255},
        {"PLANTED", adDBTimeStamp, 16, 16, 0},
        {"NOTE", adLongVarWChar, 1073741823, 255, 255},
        {"BIG", adBigInt, 8, 19, 255},
        {"PRICE", adCurrency, 8, 19, 255},
    };
    const Recordset set = Static("SELECT * FROM CT_TREE WHERE 1 = 0");
    EXPECT_TRUE(set.Eof());
    EXPECT_EQ(set.Fields().Count(), 14);
    for (const Expected& column : expected) {
        const Field field = set[column.name];
        const ColumnDifference* other = DifferenceOf(column.name);
        EXPECT_EQ(field.Name(), column.name);
        EXPECT_EQ(field.Type(), other ? other->type : column.type) << column.name;
        EXPECT_EQ(field.DefinedSize(), other ? other->size : column.size) << column.name;
        EXPECT_EQ(field.Precision(), other ? other->precision : column.precision) << column.name;
        EXPECT_EQ(field.NumericScale(), other ? other->scale : column.scale) << column.name;
    }
}

TEST_P(DriverContract, AnAliasKeepsTheRealNames)
{
    const Recordset set = Static("SELECT A.NUMBER AS X, B.NAME FROM CT_TREE A LEFT JOIN CT_KIND B ON A.ID_KIND = B.ID");
    EXPECT_EQ(set[0].Name(), "X");
    EXPECT_EQ(basic::ToText(set[0].Properties("BASETABLENAME")), "CT_TREE");
    EXPECT_EQ(basic::ToText(set[0].Properties("BASECOLUMNNAME")), "NUMBER");
    EXPECT_EQ(basic::ToText(set[1].Properties("BASETABLENAME")), "CT_KIND");
}

TEST_P(DriverContract, ComputedColumnsHaveNoBaseButAType)
{
    const Recordset set = Static("SELECT ISNULL(CENTRAL,0) AS C, (SELECT NAME FROM CT_KIND WHERE ID = ID_KIND) AS K, "
                                 "1 AS N, 'abc' AS T FROM CT_TREE");
    const DataTypeEnum types[] = {adBoolean, adVarWChar, adInteger, adVarChar};
    for (int column = 0; column < 4; ++column) {
        EXPECT_TRUE(set[column].Properties("BASETABLENAME").IsNull()) << column;
        EXPECT_TRUE(set[column].Properties("BASECOLUMNNAME").IsNull()) << column;
        EXPECT_EQ(set[column].Type(), types[column]) << column;
    }
}

TEST_P(DriverContract, AnExpressionWithoutAliasHasNoName)
{
    const Recordset set = connection.Execute("SELECT COUNT(*), MAX(NUMBER) FROM CT_TREE");
    EXPECT_EQ(set[0].Name(), "");
    EXPECT_EQ(set[0].Type(), adInteger);
    EXPECT_EQ(set[1].Type(), adSmallInt);
}

// What a value is.

TEST_P(DriverContract, ValuesComeInTheKindOfTheirColumn)
{
    const Recordset set = Static("SELECT * FROM CT_TREE WHERE CODE = 'EI'");
    using basic::VarType;
    const std::map<std::string, VarType> kinds = {
        {"ID", VarType::Long},        {"NUMBER", VarType::Integer},  {"NAME", VarType::String},
        {"CODE", VarType::String},    {"AREA", VarType::Decimal},    {"HEIGHT", VarType::Double},
        {"SHARE", VarType::Single},   {"CENTRAL", VarType::Boolean}, {"LEVEL", VarType::Byte},
        {"PLANTED", VarType::Date},   {"NOTE", VarType::String},     {"BIG", VarType::Decimal},
        {"PRICE", VarType::Currency},
    };
    for (const auto& [name, kind] : kinds)
        EXPECT_EQ(set[name].Value().Type(), DifferenceOf(name) ? DifferenceOf(name)->value : kind) << name;
    EXPECT_EQ(basic::CLng(set["NUMBER"].Value()), -7);
    EXPECT_EQ(set["NAME"].TextView(), "Eiche");
    EXPECT_EQ(basic::CDbl(set["AREA"].Value()), 12.5);
    EXPECT_EQ(basic::CDbl(set["HEIGHT"].Value()), 21.75);
    EXPECT_EQ(basic::CDbl(set["SHARE"].Value()), 0.5);
    EXPECT_TRUE(basic::CBool(set["CENTRAL"].Value()));
    EXPECT_EQ(basic::CLng(set["LEVEL"].Value()), 200);
    EXPECT_EQ(basic::CDbl(set["BIG"].Value()), 5e9);
    EXPECT_EQ(basic::CDbl(set["PRICE"].Value()), 12.3456);
    const basic::DateParts day = basic::PartsOf(basic::CDate(set["PLANTED"].Value()));
    EXPECT_EQ(std::to_string(day.year) + "-" + std::to_string(day.month) + "-" + std::to_string(day.day), "2024-2-1");
}

TEST_P(DriverContract, NullIsNullInEveryColumn)
{
    const Recordset set = Static("SELECT NUMBER,AREA,HEIGHT,SHARE,CENTRAL,LEVEL,PLANTED,NOTE,BIG,PRICE FROM CT_TREE "
                                 "WHERE CODE = 'BA'");
    for (int column = 0; column < set.Fields().Count(); ++column)
        EXPECT_TRUE(set[column].Value().IsNull()) << set[column].Name();
}

TEST_P(DriverContract, AnEmptyTextIsNoNull)
{
    connection.Execute("UPDATE CT_TREE SET NOTE = '' WHERE CODE = 'EI'");
    EXPECT_EQ(Number("SELECT COUNT(*) FROM CT_TREE WHERE NOTE IS NULL"), 2);
    EXPECT_EQ(Text("SELECT NOTE FROM CT_TREE WHERE CODE = 'EI'"), "");
}

TEST_P(DriverContract, TextComparesWithoutCaseAndTrailingBlanks)
{
    EXPECT_EQ(Number("SELECT COUNT(*) FROM CT_TREE WHERE NAME = 'EICHE  '"), 1);
    EXPECT_EQ(Number("SELECT COUNT(*) FROM CT_TREE WHERE NAME = 'BÄUME'"), 1);
    EXPECT_EQ(Number("SELECT COUNT(*) FROM CT_TREE WHERE NAME LIKE 'eich%'"), 1);
}

TEST_P(DriverContract, UmlautsSortBesideTheirLetter)
{
    const RowBlock rows = connection.Execute("SELECT NAME FROM CT_TREE ORDER BY NAME").GetRows();
    ASSERT_EQ(rows.Rows(), 3u);
    EXPECT_EQ(rows.Text(0, 0), "Bäume");
    EXPECT_EQ(rows.Text(0, 2), "Fichte");
}

TEST_P(DriverContract, NullEqualsNothing)
{
    EXPECT_EQ(Number("SELECT COUNT(*) FROM CT_TREE WHERE NUMBER = NULL"), 0);
}

TEST_P(DriverContract, AnAggregateOverNoRowsIsARowOfNull)
{
    const Recordset set = connection.Execute("SELECT MAX(NUMBER) FROM CT_TREE WHERE 1 = 0");
    EXPECT_FALSE(set.Eof());
    EXPECT_TRUE(set[0].Value().IsNull());
}

TEST_P(DriverContract, AnApostropheIsDoubledAndReadsBackSingle)
{
    connection.Execute("UPDATE CT_TREE SET NAME = 'O''Neill' WHERE CODE = 'EI'");
    EXPECT_EQ(Text("SELECT NAME FROM CT_TREE WHERE NAME = 'O''Neill'"), "O'Neill");
}

// What a statement does.

TEST_P(DriverContract, RowsAffectedAreTheRowsMatched)
{
    std::int64_t affected = -5;
    const auto run = [&](const char* text) {
        EXPECT_EQ(connection.Execute(text, &affected).State(), adStateClosed);
        return affected;
    };
    EXPECT_EQ(run("INSERT INTO CT_KIND (ID,NAME) VALUES (3,'x')"), 1);
    EXPECT_EQ(run("UPDATE CT_KIND SET NAME = NAME"), 3);
    EXPECT_EQ(run("UPDATE CT_KIND SET NAME = 'y' WHERE ID = 99"), 0);
    EXPECT_EQ(run("DELETE FROM CT_KIND WHERE ID = 3"), 1);
    EXPECT_EQ(run("DELETE FROM CT_KIND WHERE ID = 3"), 0);
}

TEST_P(DriverContract, SeveralStatementsOfOneTextAllRun)
{
    std::int64_t affected = 0;
    const std::string text = "INSERT INTO CT_KIND (ID,NAME) VALUES (3,'x')\r\nINSERT INTO CT_KIND (ID,NAME) VALUES "
                             "(4,'y')\r\nDELETE FROM CT_KIND WHERE ID = 3";
    if (!GetParam().stepwiseBatches.empty()) {
        EXPECT_EQ(Raised([&] { connection.Execute(text); }), kErrStatement) << "without separators";
    }
    connection.Execute(Sql(text), &affected);
    EXPECT_EQ(affected, 1) << "the count of the first";
    EXPECT_EQ(Number("SELECT COUNT(*) FROM CT_KIND"), 3);
    EXPECT_EQ(Text("SELECT NAME FROM CT_KIND WHERE ID = 4"), "y");
}

TEST_P(DriverContract, ASyntaxErrorAnywhereRunsNothing)
{
    EXPECT_EQ(Error("INSERT INTO CT_KIND (ID,NAME) VALUES (3,'x')\r\nINSERT INTO CT_KIND (ID,NAME VALUES (4,'y')"),
              GetParam().laterFault);
    const bool firstRan = !GetParam().stepwiseBatches.empty();
    EXPECT_EQ(Number("SELECT COUNT(*) FROM CT_KIND"), firstRan ? 3 : 2);
}

TEST_P(DriverContract, ABareTableNameIsARowSource)
{
    EXPECT_EQ(Static("CT_KIND").RecordCount(), 2);
    EXPECT_EQ(connection.Execute("CT_KIND", nullptr, adCmdTable).Fields().Count(), 2);
}

TEST_P(DriverContract, EveryStatementCommitsByItself)
{
    Connection other;
    other.Open(text_);
    connection.Execute("INSERT INTO CT_KIND (ID,NAME) VALUES (3,'x')");
    EXPECT_EQ(other.Execute("SELECT COUNT(*) FROM CT_KIND")[0].Int64(), 3);
}

TEST_P(DriverContract, LoopsOverOneConnectionMayBeNested)
{
    std::string seen;
    for (Recordset kinds = connection.Execute("SELECT ID, NAME FROM CT_KIND ORDER BY ID"); !kinds.Eof();
         kinds.MoveNext()) {
        seen += std::string(kinds["NAME"].TextView()) + ":";
        Recordset trees = connection.Execute(
            "SELECT CODE FROM CT_TREE WHERE ID_KIND = " + std::string(kinds["ID"].TextView()) + " ORDER BY CODE");
        for (; !trees.Eof(); trees.MoveNext())
            seen += std::string(trees[0].TextView()) + " ";
    }
    EXPECT_EQ(seen, "Laub:EI Nadel:BA FI ");
}

TEST_P(DriverContract, RowsWrittenWhileReadingDoNotShowUpInTheRead)
{
    int rows = 0;
    for (Recordset set = connection.Execute("SELECT ID, CODE FROM CT_TREE"); !set.Eof() && rows < 100; set.MoveNext()) {
        connection.Execute("INSERT INTO CT_TREE (NAME,CODE) VALUES ('neu','N" + std::to_string(rows++) + "')");
        EXPECT_FALSE(set["CODE"].TextView().starts_with("N"));
    }
    EXPECT_EQ(rows, 3);
    EXPECT_EQ(Number("SELECT COUNT(*) FROM CT_TREE"), 6);
}

// What goes wrong.

TEST_P(DriverContract, AFaultOfTheTextIsE14)
{
    EXPECT_EQ(Error("SELEC * FROM CT_TREE"), kErrStatement);
    EXPECT_EQ(Error("SELECT * FROM CT_TREE WHERE ID = "), kErrStatement);
    EXPECT_EQ(Error("SELECT * FROM CT_TREE WHERE NAME = 'O'Neill'"), kErrStatement);
    EXPECT_EQ(Error("SELECT NOPE FROM CT_TREE"), kErrStatement);
    EXPECT_EQ(Error("INSERT INTO CT_KIND (NOPE) VALUES (1)"), kErrStatement);
}

TEST_P(DriverContract, AnUnknownTableIsE37)
{
    EXPECT_EQ(Error("SELECT * FROM CT_NOPE"), GetParam().noSuchTable);
    EXPECT_EQ(Error("DELETE FROM CT_NOPE"), GetParam().noSuchTable);
}

TEST_P(DriverContract, ARefusedRowIsE2F)
{
    EXPECT_EQ(Error("INSERT INTO CT_KIND (ID) VALUES (1)"), kErrConstraint) << "primary key";
    EXPECT_EQ(Error("INSERT INTO CT_TREE (NAME,CODE) VALUES ('x','EI')"), kErrConstraint) << "unique";
    EXPECT_EQ(Error("INSERT INTO CT_TREE (NAME,ID_KIND,CODE) VALUES ('x',99,'X')"), kErrConstraint) << "foreign key";
    EXPECT_EQ(Error("DELETE FROM CT_KIND WHERE ID = 1"), kErrConstraint) << "referred to";
    EXPECT_EQ(Error("UPDATE CT_TREE SET NAME = NULL"), kErrConstraint) << "not null";
    EXPECT_EQ(Error("INSERT INTO CT_KIND (NAME) VALUES ('x')"), kErrConstraint) << "key left out";
}

TEST_P(DriverContract, ABadLiteralIsNeither)
{
    EXPECT_EQ(Error("UPDATE CT_TREE SET NUMBER = 'abc' WHERE CODE = 'EI'"), kErrConversion);
    EXPECT_EQ(Error("UPDATE CT_TREE SET PLANTED = '31.02.2024' WHERE CODE = 'EI'"), GetParam().badDate);
    EXPECT_EQ(Error("UPDATE CT_TREE SET NAME = '12345678901' WHERE CODE = 'EI'"), GetParam().tooLong);
    EXPECT_EQ(Error("UPDATE CT_TREE SET NUMBER = 99999 WHERE CODE = 'EI'"), GetParam().tooLarge);
    EXPECT_EQ(Number("SELECT NUMBER FROM CT_TREE WHERE CODE = 'EI'"), -7) << "nothing was stored";
}

TEST_P(DriverContract, AnErrorCarriesTheStatementAndLeavesTheConnectionUsable)
{
    try {
        connection.Execute("SELECT NOPE FROM CT_TREE");
        FAIL() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Statement, "SELECT NOPE FROM CT_TREE");
        EXPECT_FALSE(error.Description.empty());
    }
    EXPECT_EQ(Number("SELECT COUNT(*) FROM CT_TREE"), 3);
}

TEST_P(DriverContract, AFailedStatementOfManyRowsChangesNone)
{
    EXPECT_EQ(Error("UPDATE CT_TREE SET CODE = 'X'"), kErrConstraint);
    EXPECT_EQ(Number("SELECT COUNT(*) FROM CT_TREE WHERE CODE = 'X'"), 0);
}

// What is edited in place.

TEST_P(DriverContract, AFieldIsEditedByItsAlias)
{
    Recordset set =
        Static("SELECT NAME AS LABEL, AREA, CENTRAL, PLANTED FROM CT_TREE WHERE CODE = 'EI'", adLockOptimistic);
    EXPECT_EQ(set.Fields().Count(), 4);
    set["LABEL"].SetValue("Buche");
    set["AREA"].SetValue("2.555");
    set["CENTRAL"].SetValue(false);
    set["PLANTED"].SetValue("01.03.2024");
    set.Update();
    EXPECT_EQ(Text("SELECT NAME FROM CT_TREE WHERE CODE = 'EI'"), "Buche");
    EXPECT_EQ(Number("SELECT COUNT(*) FROM CT_TREE WHERE AREA = 2.56 AND CENTRAL = 0 AND PLANTED = '20240301'"), 1);
    EXPECT_EQ(basic::CDbl(set["AREA"].Value()), 2.56);
    set["AREA"].SetValue(basic::Null{});
    set.Update();
    EXPECT_EQ(Number("SELECT COUNT(*) FROM CT_TREE WHERE CODE = 'EI' AND AREA IS NULL"), 1);
}

TEST_P(DriverContract, ServerSideKeysetsEditToo)
{
    Recordset set;
    set.Open("SELECT NUMBER FROM CT_TREE WHERE CODE = 'FI'", connection, adOpenKeyset, adLockPessimistic);
    set[0].SetValue(std::int32_t{9});
    set.MoveNext();
    EXPECT_TRUE(set.Eof());
    EXPECT_EQ(Number("SELECT NUMBER FROM CT_TREE WHERE CODE = 'FI'"), 9);
}

TEST_P(DriverContract, ANewRowGetsItsKeyFromTheDatabase)
{
    Recordset set = Static("SELECT ID, NAME, CODE FROM CT_TREE", adLockOptimistic);
    set.AddNew();
    set["NAME"].SetValue("Tanne");
    set["CODE"].SetValue("TA");
    set.Update();
    EXPECT_EQ(set["ID"].Int64(), Number("SELECT ID FROM CT_TREE WHERE CODE = 'TA'"));
    set["NAME"].SetValue("Douglasie");
    set.Update();
    EXPECT_EQ(Text("SELECT NAME FROM CT_TREE WHERE CODE = 'TA'"), "Douglasie");
}

TEST_P(DriverContract, ARefusedRowStaysInEditMode)
{
    Recordset set = Static("SELECT ID, NAME FROM CT_KIND ORDER BY ID", adLockOptimistic);
    set.AddNew();
    set["ID"].SetValue(std::int32_t{1});
    EXPECT_EQ(Raised([&] { set.Update(); }), kErrConstraint);
    EXPECT_EQ(set.EditMode(), adEditAdd);
    set["ID"].SetValue(std::int32_t{3});
    set.Update();
    EXPECT_EQ(Number("SELECT COUNT(*) FROM CT_KIND"), 3);
}

TEST_P(DriverContract, ARowChangedByOthersIsNotOverwritten)
{
    Recordset set = Static("SELECT NAME, AREA FROM CT_TREE WHERE CODE = 'EI'", adLockOptimistic);
    connection.Execute("UPDATE CT_TREE SET AREA = 99 WHERE CODE = 'EI'");
    set["NAME"].SetValue("Buche");
    set.Update();
    set["AREA"].SetValue(std::int32_t{1});
    EXPECT_EQ(Raised([&] { set.Update(); }), kErrRowChanged);
    EXPECT_EQ(Number("SELECT AREA FROM CT_TREE WHERE CODE = 'EI'"), 99);
    set.CancelUpdate();
    EXPECT_EQ(basic::CDbl(set["AREA"].Value()), 12.5);
}

TEST_P(DriverContract, ARowDeletedByOthersIsReported)
{
    Recordset set = Static("SELECT NAME FROM CT_TREE WHERE CODE = 'EI'", adLockOptimistic);
    connection.Execute("DELETE FROM CT_TREE WHERE CODE = 'EI'");
    set["NAME"].SetValue("Buche");
    EXPECT_EQ(Raised([&] { set.Update(); }), kErrRowChanged);
    set.CancelUpdate();
}

TEST_P(DriverContract, AnUnchangedOldValueOfEveryKindIsRecognised)
{
    Recordset set = Static("SELECT NUMBER,NAME,CODE,AREA,HEIGHT,SHARE,CENTRAL,LEVEL,PLANTED,NOTE,BIG,PRICE FROM "
                           "CT_TREE ORDER BY ID",
                           adLockOptimistic);
    for (; !set.Eof(); set.MoveNext())
        for (int column = 0; column < set.Fields().Count(); ++column) {
            set[column].SetValue(set[column].Value());
            EXPECT_EQ(Raised([&] { set.Update(); }), 0) << set[column].Name() << " of row " << set.AbsolutePosition();
            if (set.EditMode() != adEditNone) set.CancelUpdate();
        }
}

TEST_P(DriverContract, BothSidesOfAJoinAreEdited)
{
    Recordset set = Static("SELECT A.NAME AS TREE, B.NAME AS KIND FROM CT_TREE A INNER JOIN CT_KIND B ON A.ID_KIND = "
                           "B.ID WHERE A.CODE = 'EI'",
                           adLockOptimistic);
    set["TREE"].SetValue("Buche");
    set["KIND"].SetValue("Laubholz");
    set.Update();
    EXPECT_EQ(Text("SELECT NAME FROM CT_TREE WHERE CODE = 'EI'"), "Buche");
    EXPECT_EQ(Text("SELECT NAME FROM CT_KIND WHERE ID = 1"), "Laubholz");
}

TEST_P(DriverContract, ARecordsetWithoutRowKeysOpensAndRefusesTheUpdate)
{
    Recordset set = Static("SELECT DISTINCT NAME FROM CT_TREE", adLockOptimistic);
    EXPECT_EQ(set.RecordCount(), 3);
    set["NAME"].SetValue("x");
    EXPECT_EQ(Raised([&] { set.Update(); }), kErrNotSupported);
    set.CancelUpdate();
}

TEST_P(DriverContract, AComputedColumnBesideEditableOnesOpens)
{
    Recordset set = Static("SELECT NAME, (SELECT NAME FROM CT_KIND WHERE ID = ID_KIND) AS KIND, ISNULL(CENTRAL,0) AS "
                           "CENTRAL FROM CT_TREE ORDER BY NAME",
                           adLockOptimistic);
    EXPECT_EQ(set["KIND"].TextView(), "Nadel");
    EXPECT_EQ(Raised([&] { set["KIND"].SetValue("x"); }), kErrMultiStep);
    set["NAME"].SetValue("Busch");
    set.Update();
    EXPECT_EQ(Number("SELECT COUNT(*) FROM CT_TREE WHERE NAME = 'Busch'"), 1);
}

// What moves and searches.

TEST_P(DriverContract, BookmarksFindAndClonesWork)
{
    Recordset set = Static("SELECT ID, NAME, PLANTED FROM CT_TREE ORDER BY ID");
    EXPECT_EQ(set.RecordCount(), 3);
    set.MoveLast();
    const basic::Variant last = set.Bookmark();
    set.MoveFirst();
    set.Find("NAME = 'fichte'");
    EXPECT_EQ(set.AbsolutePosition(), 2);
    Recordset clone = set.Clone();
    clone.SetBookmark(last);
    EXPECT_EQ(clone["NAME"].TextView(), "Bäume");
    clone.Find("PLANTED = #2/1/2024#", 0, adSearchForward, std::int32_t{adBookmarkFirst});
    EXPECT_EQ(clone["NAME"].TextView(), "Eiche");
    clone.Find("ID = 99");
    EXPECT_TRUE(clone.Eof());
    EXPECT_EQ(set.AbsolutePosition(), 2);
}

TEST_P(DriverContract, RequerySeesWhatWasWrittenMeanwhile)
{
    Recordset set = Static("SELECT ID FROM CT_KIND");
    connection.Execute("INSERT INTO CT_KIND (ID,NAME) VALUES (3,'x')");
    EXPECT_EQ(set.RecordCount(), 2);
    set.Requery();
    EXPECT_EQ(set.RecordCount(), 3);
}

TEST_P(DriverContract, GetRowsGivesWhatALoopGives)
{
    const char* const text = "SELECT NAME,NUMBER,AREA,CENTRAL,PLANTED FROM CT_TREE ORDER BY ID";
    const RowBlock rows = connection.Execute(text).GetRows();
    std::size_t row = 0;
    for (Recordset set = connection.Execute(text); !set.Eof(); set.MoveNext(), ++row) {
        ASSERT_LT(row, rows.Rows());
        for (std::size_t column = 0; column < rows.Columns(); ++column) {
            EXPECT_TRUE(basic::SameValue(rows.Value(column, row), set[column].Value())) << column << "," << row;
            EXPECT_EQ(rows.IsNull(column, row), set[column].IsNull());
        }
    }
    EXPECT_EQ(row, 3u);
}

TEST_P(DriverContract, AStatementRunAgainAndAgainGivesFreshRows)
{
    for (std::int64_t round = 3; round < 20; ++round) {
        connection.Execute("INSERT INTO CT_KIND (ID,NAME) VALUES (" + std::to_string(round) + ",'x')");
        EXPECT_EQ(Number("SELECT COUNT(*) FROM CT_KIND"), round);
        EXPECT_EQ(Number("SELECT ID FROM CT_KIND WHERE ID = " + std::to_string(round)), round);
    }
}

TEST_P(DriverContract, AClosedConnectionLetsGoOfTheDatabase)
{
    const Recordset unread = connection.Execute("SELECT * FROM CT_TREE");
    connection.Close();
    EXPECT_EQ(unread.State(), adStateClosed);
    connection.Open();
    EXPECT_EQ(Number("SELECT COUNT(*) FROM CT_TREE"), 3);
}

} // namespace kvx::ado::testing
