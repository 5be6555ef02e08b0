#include "FakeDriver.h"

#include "basic/Convert.h"

#include <gtest/gtest.h>

namespace kvx::ado::testing {
namespace {

constexpr const char* kAll = "SELECT ID, NAME, AREA, PLANTED, CENTRAL, LONG NAME FROM TREE";

class Find : public ::testing::Test {
protected:
    Find()
    {
        database.answers[kAll] = {
            .columns = {Column("ID", adInteger, 4), Column("NAME", adVarWChar, 20), Column("AREA", adNumeric, 19),
                        Column("PLANTED", adDBTimeStamp, 16), Column("CENTRAL", adBoolean, 2),
                        Column("LONG NAME", adVarWChar, 20)},
            .rows =
                {
                    {Int(1), "Eiche", 1.5, "2024-02-01 00:00:00", Int(0), "12"},
                    {Int(2), "eiche rot", Int(2), "2024-03-01", Int(1), "a'b"},
                    {Int(3), "BÄUME", 2.5, "2024-03-02 10:30:00", Int(0), "c#d"},
                    {Int(4), Null(), Null(), Null(), Null(), Null()},
                    {Int(5), "Eiche", 1.5, "01.05.2024", Int(1), "x"},
                },
        };
        AddTrees(database);
        set.Open(kAll, connection, adOpenStatic);
    }

    // The id found from the first row on; -1 = EOF, -2 = BOF.
    std::int64_t Found(std::string_view criteria)
    {
        set.MoveFirst();
        set.Find(criteria);
        return Here();
    }
    std::int64_t Here() const { return set.Eof() ? -1 : set.Bof() ? -2 : set["ID"].Int64(); }

    FakeDatabase database;
    Connection connection = database.Connect();
    Recordset set;
};

TEST_F(Find, EveryOperator)
{
    EXPECT_EQ(Found("ID = 3"), 3);
    EXPECT_EQ(Found("ID <> 1"), 2);
    EXPECT_EQ(Found("ID > 3"), 4);
    EXPECT_EQ(Found("ID >= 3"), 3);
    EXPECT_EQ(Found("ID < 1"), -1);
    EXPECT_EQ(Found("ID <= 1"), 1);
    EXPECT_EQ(Found("NAME like 'eiche r*'"), 2);
}

TEST_F(Find, BlanksAroundTheOperatorAreFree)
{
    EXPECT_EQ(Found("ID=3"), 3);
    EXPECT_EQ(Found("  ID   =   3  "), 3);
    EXPECT_EQ(Found("NAME LIKE'B*'"), 3);
}

TEST_F(Find, AndOrOrMissingPartsAreError3001)
{
    for (const char* criteria : {"ID = 1 AND NAME = 'x'", "ID = 1 OR ID = 2", "ID", "ID =", "= 1", "", "ID 1",
                                 "NAME = 'x", "NAME = 'x' 'y'", "[NAME = 'x'", "NAME ~ 'x'"})
        EXPECT_EQ(ErrorOf([&] { Found(criteria); }), 3001) << criteria;
}

TEST_F(Find, ABareValueThatIsNoNumberIsError3001)
{
    EXPECT_EQ(ErrorOf([&] { Found("ID = 12A"); }), 3001);
    EXPECT_EQ(ErrorOf([&] { Found("ID = "); }), 3001);
    EXPECT_EQ(ErrorOf([&] { Found("NAME = Eiche"); }), 3001);
    EXPECT_EQ(ErrorOf([&] { Found("ID = 1,5"); }), 3001);
    EXPECT_EQ(ErrorOf([&] { Found("ID = 'x'"); }), 3001);
}

TEST_F(Find, AnUnknownColumnIsError3265)
{
    EXPECT_EQ(ErrorOf([&] { Found("NOPE = 1"); }), 3265);
}

TEST_F(Find, ColumnNamesIgnoreCaseAndMayStandInBrackets)
{
    EXPECT_EQ(Found("id = 2"), 2);
    EXPECT_EQ(Found("[LONG NAME] = 'x'"), 5);
}

TEST_F(Find, QuotesInAValueAreDoubledOrTheOtherKindIsUsed)
{
    EXPECT_EQ(Found("[LONG NAME] = 'a''b'"), 2);
    EXPECT_EQ(Found("[LONG NAME] = #a'b#"), 2);
    EXPECT_EQ(Found("[LONG NAME] = 'c#d'"), 3);
}

TEST_F(Find, NumbersAreWrittenWithAPoint)
{
    EXPECT_EQ(Found("AREA = 2.5"), 3);
    EXPECT_EQ(Found("AREA > 1.5"), 2);
    EXPECT_EQ(Found("AREA = 2.0"), 2);
}

TEST_F(Find, AQuotedNumberIsConvertedForANumberColumn)
{
    EXPECT_EQ(Found("ID = '3'"), 3);
}

TEST_F(Find, BareDigitsMatchATextColumn)
{
    EXPECT_EQ(Found("[LONG NAME] = 12"), 1);
    EXPECT_EQ(ErrorOf([&] { Found("[LONG NAME] = 12.5"); }), 3001);
}

TEST_F(Find, DatesAreUsOrderInHashes)
{
    EXPECT_EQ(Found("PLANTED = #3/1/2024#"), 2);
    EXPECT_EQ(Found("PLANTED > #03/01/2024#"), 3);
    EXPECT_EQ(Found("PLANTED = #5/1/2024#"), 5) << "also where the engine keeps dd.mm.yyyy";
    EXPECT_EQ(Found("PLANTED = #3/2/2024 10:30:00#"), 3);
    EXPECT_EQ(ErrorOf([&] { Found("PLANTED = 3"); }), 3001);
    EXPECT_EQ(ErrorOf([&] { Found("PLANTED = #13/1/2024#"); }), 3001);
}

TEST_F(Find, TruthIsANumberAndMinusOneIsTrue)
{
    EXPECT_EQ(Found("CENTRAL = 1"), 2);
    EXPECT_EQ(Found("CENTRAL = -1"), 2);
    EXPECT_EQ(Found("CENTRAL = 0"), 1);
}

TEST_F(Find, TextIgnoresCaseUmlautsToo)
{
    EXPECT_EQ(Found("NAME = 'EICHE'"), 1);
    EXPECT_EQ(Found("NAME = 'bäume'"), 3);
    EXPECT_EQ(Found("NAME like '%ÄUM%'"), 3);
}

TEST_F(Find, LikeTakesStarsAtTheEndOrAtBothEndsOnly)
{
    EXPECT_EQ(Found("NAME like 'Eiche'"), 1);
    EXPECT_EQ(Found("NAME like 'eiche *'"), 2);
    EXPECT_EQ(Found("NAME like '*rot*'"), 2);
    EXPECT_EQ(Found("NAME like '*'"), 1);
    EXPECT_EQ(ErrorOf([&] { Found("NAME like '*rot'"); }), 3001);
    EXPECT_EQ(ErrorOf([&] { Found("NAME like 'e*rot'"); }), 3001);
    EXPECT_EQ(ErrorOf([&] { Found("ID like '1*'"); }), 3001);
}

TEST_F(Find, NullNeverMatches)
{
    EXPECT_EQ(Found("AREA <> 1.5"), 2);
    set.SetAbsolutePosition(4);
    set.Find("NAME <> 'x'");
    EXPECT_EQ(Here(), 5);
}

TEST_F(Find, TheSearchStartsAtTheCurrentRow)
{
    set.Find("NAME = 'Eiche'");
    EXPECT_EQ(Here(), 1);
    set.Find("NAME = 'Eiche'");
    EXPECT_EQ(Here(), 1) << "the row itself is looked at";
}

TEST_F(Find, SkipGoesOnFromThere)
{
    set.Find("NAME = 'Eiche'", 1);
    EXPECT_EQ(Here(), 5);
    set.Find("ID > 0", 100);
    EXPECT_EQ(Here(), -1);
}

TEST_F(Find, BackwardsGoesToTheFirstRow)
{
    set.MoveLast();
    set.Find("NAME = 'Eiche'", 1, adSearchBackward);
    EXPECT_EQ(Here(), 1);
    set.MoveLast();
    set.Find("ID = 99", 0, adSearchBackward);
    EXPECT_EQ(Here(), -2);
    EXPECT_EQ(ErrorOf([&] { set["ID"].Value(); }), 3021);
}

TEST_F(Find, NoMatchLeavesEofAndRaisesNothing)
{
    EXPECT_EQ(Found("ID = 99"), -1);
    EXPECT_EQ(ErrorOf([&] { set["ID"].Value(); }), 3021);
}

TEST_F(Find, WithoutACurrentRowAndAStartItIsError3021)
{
    set.MoveLast();
    set.MoveNext();
    EXPECT_EQ(ErrorOf([&] { set.Find("ID = 1"); }), 3021);
    Recordset empty = OpenTrees(connection, adOpenStatic, adLockReadOnly, kNoTrees);
    EXPECT_EQ(ErrorOf([&] { empty.Find("ID = 1"); }), 3021);
}

TEST_F(Find, AStartReplacesTheCurrentRow)
{
    set.MoveLast();
    set.MoveNext();
    set.Find("NAME = 'Eiche'", 0, adSearchForward, std::int32_t{adBookmarkFirst});
    EXPECT_EQ(Here(), 1);
    set.Find("ID > 0", 0, adSearchBackward, std::int32_t{adBookmarkLast});
    EXPECT_EQ(Here(), 5);
    set.SetAbsolutePosition(2);
    const basic::Variant second = set.Bookmark();
    set.MoveLast();
    set.Find("ID > 0", 0, adSearchForward, second);
    EXPECT_EQ(Here(), 2);
}

TEST_F(Find, ForwardOnlySearchesForward)
{
    Recordset stream;
    stream.Open(kAll, connection);
    stream.Find("AREA = 2.5");
    EXPECT_EQ(stream["ID"].Int64(), 3);
    stream.Find("ID > 0", 1);
    EXPECT_EQ(stream["ID"].Int64(), 4);
    EXPECT_EQ(ErrorOf([&] { stream.Find("ID = 1", 0, adSearchBackward); }), 3219);
    stream.Find("ID = 1");
    EXPECT_TRUE(stream.Eof());
}

} // namespace
} // namespace kvx::ado::testing
