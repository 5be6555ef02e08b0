#include "adapters/sqlite/Shape.h"
#include "adapters/sqlite/Translate.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace kvx::test {

using adapters::sqlite::Shaper;
using adapters::sqlite::StatementKind;

namespace {

/// The shape with $ for a lifted text, # for a whole number and % for one with decimals.
std::string ShapeOf(std::string_view text)
{
    Shaper shaper;
    shaper.Run(text);
    std::string shape;
    for (const auto& statement : shaper.Statements()) {
        if (!shape.empty()) shape += " | ";
        shaper.AppendShape(statement, shape);
    }
    for (char& c : shape)
        c = c == '\x01' ? '$' : c == '\x02' ? '#' : c == '\x03' ? '%' : c;
    return shape;
}

std::vector<StatementKind> KindsOf(std::string_view text)
{
    Shaper shaper;
    shaper.Run(text);
    std::vector<StatementKind> kinds;
    for (const auto& statement : shaper.Statements())
        kinds.push_back(statement.kind);
    return kinds;
}

}  // namespace

TEST(Shape, ValuesOfComparisonsAreLifted)
{
    EXPECT_EQ(ShapeOf("SELECT A FROM T WHERE B = 'x' AND C <> 5 AND D >= 1.5 AND E = -7"),
              "SELECT A FROM T WHERE B = $ AND C <> # AND D >= % AND E = -#");
    EXPECT_EQ(ShapeOf("SELECT A FROM T WHERE B IN ('x',N'y',3) AND C NOT IN (-1)"),
              "SELECT A FROM T WHERE B IN ($,$,#) AND C NOT IN (-#)");
    EXPECT_EQ(ShapeOf("SELECT A FROM T LEFT JOIN U ON T.ID = U.ID AND U.K = 'x' WHERE ISNULL(B,'y') = 'y'"),
              "SELECT A FROM T LEFT JOIN U ON T.ID = U.ID AND U.K = $ WHERE ISNULL(B,$) = $");
}

TEST(Shape, AssignedAndInsertedValuesAreLifted)
{
    EXPECT_EQ(ShapeOf("UPDATE T SET A = 'x', T.B = -2.5 WHERE ID = 7"), "UPDATE T SET A = $, T.B = -% WHERE ID = #");
    EXPECT_EQ(ShapeOf("INSERT INTO T (A,B) VALUES ('x',1),('y',2)"), "INSERT INTO T (A,B) VALUES ($,#),($,#)");
    EXPECT_EQ(ShapeOf("DELETE FROM T WHERE A = 'x'"), "DELETE FROM T WHERE A = $");
}

TEST(Shape, WhatDecidesAboutColumnsAndRowsStays)
{
    for (const char* text : {
             "SELECT TOP 1 'x', 5, (SELECT B FROM U WHERE C = 5) FROM T",
             "SELECT A FROM T WHERE B LIKE 'x%' AND C LIKE N'[a]%' ESCAPE '!'",
             "SELECT A FROM T GROUP BY A, LEFT(A,3) ORDER BY 2",
             "SELECT A FROM T WHERE ROWNUM = 1",
             "SELECT A FROM T WHERE LEFT(A,3) IS NULL",
             "INSERT INTO T (A) SELECT 'x'",
             "CREATE TABLE T (A nvarchar(25) DEFAULT 'x')",
         })
        EXPECT_EQ(ShapeOf(text), text);
}

TEST(Shape, KindsOfValuesMakeDifferentShapes)
{
    EXPECT_NE(ShapeOf("SELECT A FROM T WHERE B = '5'"), ShapeOf("SELECT A FROM T WHERE B = 5"));
    EXPECT_NE(ShapeOf("SELECT A FROM T WHERE B = 5"), ShapeOf("SELECT A FROM T WHERE B = -5"));
    EXPECT_EQ(ShapeOf("SELECT A FROM T WHERE B = 'x''y'"), ShapeOf("SELECT A FROM T WHERE B = ''"));
}

TEST(Shape, LongListsOfIdsStayInTheText)
{
    std::string text = "SELECT A FROM T WHERE ID IN (1";
    for (int i = 2; i < 200; ++i)
        text += "," + std::to_string(i);
    text += ")";
    EXPECT_EQ(ShapeOf(text), text);
}

TEST(Shape, StatementsArePartedWhereTheNextBegins)
{
    using enum StatementKind;
    EXPECT_EQ(KindsOf("INSERT INTO T (A) VALUES (1)\r\nINSERT INTO T (A) VALUES (2)"), (std::vector{Insert, Insert}));
    EXPECT_EQ(KindsOf("INSERT INTO T (A) SELECT 1 UNION ALL SELECT 2"), (std::vector{Insert}));
    EXPECT_EQ(KindsOf("INSERT INTO T DEFAULT VALUES SELECT 1"), (std::vector{Insert, Select}));
    EXPECT_EQ(KindsOf("UPDATE T SET A = (SELECT 1) WHERE B = 2 DELETE T"), (std::vector{Update, Delete}));
    EXPECT_EQ(KindsOf("SELECT 1; ; SELECT 2;"), (std::vector{Select, Select}));
    EXPECT_EQ(KindsOf("IF NOT EXISTS(SELECT 1)\r\nINSERT INTO T (A) VALUES (1)\r\nDELETE FROM T"),
              (std::vector{If, Delete}));
    EXPECT_EQ(KindsOf("SET NOCOUNT ON INSERT INTO T DEFAULT VALUES SELECT 1"), (std::vector{Setting, Insert, Select}));
    EXPECT_EQ(KindsOf("CREATE PROCEDURE P AS DELETE FROM T SELECT 1"), (std::vector{Create}));
    EXPECT_EQ(KindsOf("ALTER TABLE T DROP COLUMN A"), (std::vector{Create}));
    EXPECT_EQ(KindsOf("CREATE TABLE T (A int REFERENCES U (B) ON DELETE SET NULL)"), (std::vector{Create}));
    EXPECT_EQ(KindsOf("SELECT 'INSERT INTO T' /* DELETE */ -- UPDATE\r\n"), (std::vector{Select}));
    EXPECT_TRUE(KindsOf(" ;; -- nothing").empty());
}

TEST(Shape, BatchesEndAtLinesThatHoldOnlyGo)
{
    using adapters::sqlite::SplitBatches;
    EXPECT_EQ(SplitBatches("A\nGO\nB\r\n  go  \r\nC"), (std::vector<std::string_view>{"A\n", "B\r\n", "C"}));
    EXPECT_EQ(SplitBatches("SELECT '\nGO\n'\nGO\n/*\nGO\n*/ -- it's\nGO"),
              (std::vector<std::string_view>{"SELECT '\nGO\n'\n", "/*\nGO\n*/ -- it's\n"}));
    EXPECT_EQ(SplitBatches("GOTO\nGO2"), (std::vector<std::string_view>{"GOTO\nGO2"}));
}

}  // namespace kvx::test
