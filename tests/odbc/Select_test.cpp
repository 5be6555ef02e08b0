#include "adapters/odbc/Select.h"

#include <gtest/gtest.h>

#include <string>

// What the driver reads off the text of a SELECT.
namespace kvx::adapters::odbc {

TEST(OdbcSelect, ColumnsKeepQualifierNameAndAlias)
{
    const auto select = ParseSelect("SELECT A.NUMBER AS X, B.NAME Files, [LONG] FROM CT_TREE A LEFT JOIN CT_KIND B ON "
                                    "A.ID_KIND = B.ID WHERE A.ID IN (1,2) ORDER BY 2");
    ASSERT_TRUE(select);
    ASSERT_EQ(select->items.size(), 3u);
    EXPECT_EQ(select->items[0].qualifier + "." + select->items[0].name + " " + select->items[0].alias, "A.NUMBER X");
    EXPECT_EQ(select->items[1].alias, "Files");
    EXPECT_EQ(select->items[2].name, "LONG");
    ASSERT_EQ(select->tables.size(), 2u);
    EXPECT_EQ(select->tables[1].name + " " + select->tables[1].alias, "CT_KIND B");
    EXPECT_TRUE(select->rowsAreRows);
}

TEST(OdbcSelect, WhatIsComputedIsNoColumn)
{
    const auto select = ParseSelect("SELECT ISNULL(A.DISABLE,0) AS DISABLE, (SELECT NAME FROM K WHERE ID = 1), CASE X "
                                    "WHEN 0 THEN 'cm' ELSE '%' END, 'O''Neill, FROM' AS T, 7, A + B FROM T");
    ASSERT_TRUE(select);
    ASSERT_EQ(select->items.size(), 6u);
    using Kind = SelectItem::Kind;
    const Kind kinds[] = {Kind::Function,    Kind::SubSelect,     Kind::Case,
                          Kind::TextLiteral, Kind::NumberLiteral, Kind::Other};
    for (std::size_t index = 0; index < 6; ++index)
        EXPECT_EQ(select->items[index].kind, kinds[index]) << index;
    EXPECT_EQ(select->items[0].inner->name, "DISABLE");
    EXPECT_EQ(select->items[3].size, 13u) << "characters, a doubled quote once";
}

TEST(OdbcSelect, BracketedJoinsAndDerivedTablesAreFollowed)
{
    const auto select = ParseSelect(
        "SELECT * FROM ((A INNER JOIN B ON A.I = B.I) LEFT JOIN C ON C.I = LEFT(A.X,2)), (SELECT N FROM D) E");
    ASSERT_TRUE(select);
    ASSERT_EQ(select->tables.size(), 4u);
    EXPECT_EQ(select->tables[2].name, "C");
    EXPECT_EQ(select->tables[3].alias, "E");
    ASSERT_TRUE(select->tables[3].derived);
    EXPECT_EQ(select->tables[3].derived->tables[0].name, "D");
}

TEST(OdbcSelect, RowsThatAreNoRowsOfATableAreTold)
{
    for (const char* text : {"SELECT DISTINCT NAME FROM T", "SELECT NAME FROM T GROUP BY NAME", "SELECT MAX(ID) FROM T",
                             "SELECT A FROM T UNION ALL SELECT B FROM U"})
        EXPECT_FALSE(ParseSelect(text)->rowsAreRows) << text;
    EXPECT_TRUE(ParseSelect("SELECT TOP 1 NAME FROM T")->rowsAreRows);
}

TEST(OdbcSelect, TheListEndsBeforeFrom)
{
    const std::string text = "SELECT /* FROM */ NAME, 'FROM' FROM T";
    EXPECT_EQ(text.substr(ParseSelect(text)->listEnd), "FROM T");
}

TEST(OdbcSelect, OtherTextsAreLeftAlone)
{
    for (const char* text : {"UPDATE T SET A = 1", "SELECT 1; SELECT 2", "", "{call p()}", "SELECT , FROM T"})
        EXPECT_FALSE(ParseSelect(text)) << text;
    EXPECT_EQ(BareName(" HOLZART "), "HOLZART");
    EXPECT_EQ(BareName("[PLAN]"), "PLAN");
    EXPECT_FALSE(BareName("SELECT 1"));
}

}  // namespace kvx::adapters::odbc
