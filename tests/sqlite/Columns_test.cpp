#include "ado/Constants.h"
#include "sqlite/TestDatabase.h"

#include <memory>

namespace kvx::test {

namespace {

constexpr std::string_view kSchema = R"(
CREATE TABLE T (
    ID int IDENTITY(1,1) NOT NULL PRIMARY KEY, NAME nvarchar(25) NOT NULL, CODE varchar(5), FLAG bit, SMALL smallint,
    TINY tinyint, BIG bigint, PRICE numeric(8,2), RATE decimal(10,4), R real, F float, M money, D smalldatetime, DT datetime,
    NOTE ntext, LONGTEXT nvarchar(max), PLAIN text
)
GO
CREATE TABLE U (ID int NOT NULL PRIMARY KEY, NUMBER nvarchar(10), T_ID int)
GO
CREATE VIEW V AS SELECT ID, NAME AS LABEL FROM T
)";

class Columns : public ::testing::Test {
protected:
    Columns()
        : database_(kSchema),
          driver_(adapters::sqlite::OpenSqlite(ado::ConnectionProperties(database_.ConnectionString())))
    {
    }

    /// "NAME 202 25 T.NAME", with precision and scale where they apply; "-" for no name, "computed" for no base.
    std::string Describe(std::string_view select, std::size_t column = 0)
    {
        const auto statement = driver_->Execute(select, {});
        const ado::ColumnInfo& info = statement->Columns()[column];
        std::string text = (info.name.empty() ? "-" : info.name) + " " + std::to_string(info.type) + " " +
                           std::to_string(info.definedSize);
        if (info.precision != 255) text += " p" + std::to_string(info.precision);
        if (info.scale != 255) text += " s" + std::to_string(info.scale);
        return text + " " + (info.baseTable ? *info.baseTable + "." + *info.baseColumn : "computed");
    }

    std::string Item(const std::string& item) { return Describe("SELECT " + item + " FROM T"); }

    TestDatabase database_;
    std::unique_ptr<ado::DriverConnection> driver_;
};

}  // namespace

TEST_F(Columns, DeclaredTypes)
{
    const std::pair<const char*, const char*> expected[] = {
        {"ID", "ID 3 4 p10 T.ID"},
        {"NAME", "NAME 202 25 T.NAME"},
        {"CODE", "CODE 200 5 T.CODE"},
        {"FLAG", "FLAG 11 2 T.FLAG"},
        {"SMALL", "SMALL 2 2 p5 T.SMALL"},
        {"TINY", "TINY 17 1 p3 T.TINY"},
        {"BIG", "BIG 20 8 p19 T.BIG"},
        {"PRICE", "PRICE 131 19 p8 s2 T.PRICE"},
        {"RATE", "RATE 131 19 p10 s4 T.RATE"},
        {"R", "R 4 4 p7 T.R"},
        {"F", "F 5 8 p15 T.F"},
        {"M", "M 6 8 p19 T.M"},
        {"D", "D 135 16 p16 s0 T.D"},
        {"DT", "DT 135 16 p23 s3 T.DT"},
        {"NOTE", "NOTE 203 1073741823 T.NOTE"},
        {"LONGTEXT", "LONGTEXT 203 1073741823 T.LONGTEXT"},
        {"PLAIN", "PLAIN 201 2147483647 T.PLAIN"},
    };
    for (const auto& [item, text] : expected)
        EXPECT_EQ(Item(item), text);
}

TEST_F(Columns, AnAliasKeepsTheRealNames)
{
    EXPECT_EQ(Item("NAME AS X"), "X 202 25 T.NAME");
    EXPECT_EQ(Item("[NAME] Y"), "Y 202 25 T.NAME");
    EXPECT_EQ(Item("name"), "name 202 25 T.NAME");
    EXPECT_EQ(Describe("SELECT A.NAME AS X FROM T A LEFT JOIN U ON U.T_ID = A.ID"), "X 202 25 T.NAME");
}

TEST_F(Columns, ComputedOnesHaveNoBaseAndWithoutAliasNoName)
{
    const std::pair<const char*, const char*> expected[] = {
        {"COUNT(*)", "- 3 4 p10 computed"},
        {"COUNT(*) AS N", "N 3 4 p10 computed"},
        {"MAX(NAME)", "- 202 25 computed"},
        {"MAX(PRICE) X", "X 131 19 p8 s2 computed"},
        {"ISNULL(FLAG,0) AS FLAG", "FLAG 11 2 computed"},
        {"ISNULL(NAME,'x')", "- 202 25 computed"},
        {"ISNULL(D,GETDATE())", "- 135 16 p16 s0 computed"},
        {"1", "- 3 4 p10 computed"},
        {"-5 AS X", "X 3 4 p10 computed"},
        {"3000000000", "- 131 19 p10 s0 computed"},
        {"1.50", "- 131 19 p3 s2 computed"},
        {"NULL AS X", "X 3 4 p10 computed"},
        {"'abc' AS X", "X 200 3 computed"},
        {"N'abc'", "- 202 3 computed"},
        {"'' AS X", "X 200 1 computed"},
        {"GETDATE()", "- 135 16 p23 s3 computed"},
        {"''''+NAME+''''", "- 202 27 computed"},
        {"CODE+'x'", "- 200 6 computed"},
        {"NAME || 'x'", "- 202 26 computed"},
        {"ID+1", "- 3 4 p10 computed"},
        {"SMALL+SMALL", "- 2 2 p5 computed"},
        {"PRICE+1", "- 131 19 p13 s2 computed"},
        {"PRICE*RATE", "- 131 19 p19 s6 computed"},
        {"F*PRICE", "- 5 8 p15 computed"},
        {"CASE WHEN ID = 1 THEN 1 ELSE 0 END AS AL", "AL 3 4 p10 computed"},
        {"(CASE SMALL WHEN 0 THEN 'cm' WHEN 1 THEN '%' ELSE '' END) AS X", "X 200 2 computed"},
        {"CASE WHEN ID = 1 THEN NULL ELSE NAME END", "- 202 25 computed"},
        {"CASE WHEN EXISTS(SELECT ID FROM U) THEN 1 ELSE 0 END", "- 3 4 p10 computed"},
        {"(SELECT NUMBER FROM U WHERE U.ID = T.ID) AS X", "X 202 10 computed"},
        {"(SELECT TOP 1 T.PRICE FROM U)", "- 131 19 p8 s2 computed"},
        {"ISNULL((SELECT MAX(ID) FROM U),0)+1", "- 3 4 p10 computed"},
        {"LEFT(NAME,3)", "- 202 3 computed"},
        {"RIGHT(CODE,2) AS X", "X 200 2 computed"},
        {"UPPER(NAME)", "- 202 25 computed"},
        {"CAST(NAME AS int) AS X", "X 3 4 p10 computed"},
        {"CONVERT(varchar(10), D, 104)", "- 200 10 computed"},
        {"SUM(ID)", "- 3 4 p10 computed"},
        {"SUM(PRICE)", "- 131 19 p38 s2 computed"},
        {"MAX(ID*100+SMALL)", "- 3 4 p10 computed"},
        {"LEN(NAME)", "- 3 4 p10 computed"},
    };
    for (const auto& [item, text] : expected)
        EXPECT_EQ(Item(item), text) << item;
}

TEST_F(Columns, DerivedTablesHandTheirColumnsOn)
{
    const char* select =
        "SELECT * FROM (SELECT NAME, 1 AS AL, (SELECT NUMBER FROM U WHERE U.ID = T.ID) AS N FROM T) A ORDER BY NAME";
    EXPECT_EQ(Describe(select, 0), "NAME 202 25 T.NAME");
    EXPECT_EQ(Describe(select, 1), "AL 3 4 p10 computed");
    EXPECT_EQ(Describe(select, 2), "N 202 10 computed");
    EXPECT_EQ(Describe("SELECT A.*, U.NUMBER FROM (SELECT ID AS K FROM T) A INNER JOIN U ON U.ID = A.K", 0),
              "K 3 4 p10 T.ID");
    EXPECT_EQ(Describe("SELECT A.*, U.NUMBER FROM (SELECT ID AS K FROM T) A INNER JOIN U ON U.ID = A.K", 1),
              "NUMBER 202 10 U.NUMBER");
}

TEST_F(Columns, StarsSpreadInOrder)
{
    const auto statement = driver_->Execute("SELECT U.*, T.NAME, T.* FROM T, U", {});
    ASSERT_EQ(statement->Columns().size(), 3U + 1U + 17U);
    EXPECT_EQ(statement->Columns()[1].name, "NUMBER");
    EXPECT_EQ(statement->Columns()[3].baseColumn, "NAME");
    EXPECT_EQ(statement->Columns()[20].name, "PLAIN");
}

TEST_F(Columns, ATablesNameAloneAndAnEmptyResultAreDescribedToo)
{
    EXPECT_EQ(Describe("U", 1), "NUMBER 202 10 U.NUMBER");
    EXPECT_EQ(Describe("SELECT TOP 0 PRICE FROM T"), "PRICE 131 19 p8 s2 T.PRICE");
    EXPECT_EQ(Describe("SELECT PRICE FROM T WHERE 1=2"), "PRICE 131 19 p8 s2 T.PRICE");
    EXPECT_EQ(Describe("SELECT LABEL FROM V"), "LABEL 202 25 V.LABEL");
}

TEST_F(Columns, NullableAndCountedOnesAreTold)
{
    const auto statement = driver_->Execute("SELECT ID, NAME, CODE FROM T", {});
    EXPECT_TRUE(statement->Columns()[0].autoIncrement);
    EXPECT_FALSE(statement->Columns()[0].nullable);
    EXPECT_FALSE(statement->Columns()[1].nullable);
    EXPECT_FALSE(statement->Columns()[1].autoIncrement);
    EXPECT_TRUE(statement->Columns()[2].nullable);
}

TEST_F(Columns, RowKeysStandBehindForEveryTableOfAJoin)
{
    ado::ExecuteOptions options;
    options.withRowKeys = true;
    const auto joined = driver_->Execute("SELECT T.NAME, U.NUMBER FROM T LEFT JOIN U ON U.T_ID = T.ID", options);
    ASSERT_EQ(joined->Columns().size(), 4U);
    EXPECT_TRUE(joined->Columns()[2].rowKey);
    EXPECT_EQ(joined->Columns()[2].baseTable, "T");
    EXPECT_EQ(joined->Columns()[3].baseTable, "U");
    EXPECT_EQ(driver_->Execute("SELECT DISTINCT NAME FROM T", options)->Columns().size(), 1U);
    EXPECT_EQ(driver_->Execute("SELECT LABEL FROM V", options)->Columns().size(), 1U);
    EXPECT_EQ(driver_->Execute("SELECT NAME FROM T UNION SELECT NUMBER FROM U", options)->Columns().size(), 1U);
    EXPECT_EQ(driver_->Execute("U", options)->Columns().size(), 4U);
}

}  // namespace kvx::test
