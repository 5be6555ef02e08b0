#include "basic/Error.h"
#include "stands/StandKey.h"
#include "stands/StandsTest.h"

#include <array>

namespace kvx::test {
namespace {

std::int32_t Lookup(Scenario& s, const StandKey& key)
{
    return c_Waldort().Waldort_ID(s.kvxvar(), s.ID_AL, key[0], key[1], key[2], key[3], key[4], key[5]);
}

TEST(WaldortLookup, AKeyIsFoundByAllSixLevels)
{
    Scenario s;
    EXPECT_EQ(Lookup(s, {"Nord", "3"}), 17);
    EXPECT_EQ(s.Log(), Lines({"SELECT ID_WALDORT FROM WALDORT WHERE ISNULL(DISABLE,0) = 0"
                              " AND (WALDORT.ID_ACCESS_LEVELS IS NULL)"
                              " AND WO1 = 'Nord' AND WO2 = '3' AND WO3 IS NULL AND WO4 IS NULL AND WO5 IS NULL"
                              " AND WO6 IS NULL"}));
}

TEST(WaldortLookup, ALevelSeesItsOwnStandsToo)
{
    Scenario s;
    s.ID_AL = 1;
    EXPECT_EQ(Lookup(s, {"Süd", "1"}), 11);
    EXPECT_EQ(s.Log(), Lines({"SELECT ID_WALDORT FROM WALDORT WHERE ISNULL(DISABLE,0) = 0"
                              " AND (WALDORT.ID_ACCESS_LEVELS IS NULL OR WALDORT.ID_ACCESS_LEVELS = 1)"
                              " AND WO1 = 'Süd' AND WO2 = '1' AND WO3 IS NULL AND WO4 IS NULL AND WO5 IS NULL"
                              " AND WO6 IS NULL"}));
}

TEST(WaldortLookup, AStandOfALevelIsNotFoundWithoutOne)
{
    Scenario s;
    EXPECT_EQ(Lookup(s, {"Süd", "1"}), 0);
}

TEST(WaldortLookup, ADisabledStandIsNotFound)
{
    Scenario s;
    EXPECT_EQ(Lookup(s, {"Nord", "2", "a"}), 0);
}

TEST(WaldortLookup, SixEmptyTextsAskNothing)
{
    Scenario s;
    EXPECT_EQ(Lookup(s, {}), -1);
    EXPECT_EQ(s.Log(), Lines());
}

TEST(WaldortLookup, SixBlankTextsFindTheRowWithoutAKey)
{
    Scenario s;
    EXPECT_EQ(Lookup(s, {"   ", "   ", "   ", "   ", "   ", "   "}), 15);
    EXPECT_EQ(s.Log(), Lines({"SELECT ID_WALDORT FROM WALDORT WHERE ISNULL(DISABLE,0) = 0"
                              " AND (WALDORT.ID_ACCESS_LEVELS IS NULL) AND WO1 IS NULL AND WO2 IS NULL"
                              " AND WO3 IS NULL AND WO4 IS NULL AND WO5 IS NULL AND WO6 IS NULL"}));
}

TEST(WaldortLookup, AKeyIsComparedUntrimmed)
{
    Scenario s;
    Lookup(s, {" Nord", "3 "});
    EXPECT_EQ(s.CountStatements("SELECT ID_WALDORT FROM WALDORT WHERE ISNULL(DISABLE,0) = 0"
                                " AND (WALDORT.ID_ACCESS_LEVELS IS NULL) AND WO1 = ' Nord' AND WO2 = '3 ' AND"),
              1);
}

TEST(WaldortLookup, OracleGetsTheSameText)
{
    Scenario s;
    BeOracle(s);
    Lookup(s, {"Nord"});
    EXPECT_EQ(s.CountStatements("SELECT ID_WALDORT FROM WALDORT WHERE ISNULL(DISABLE,0) = 0"), 1);
}

TEST(WaldortLookup, AnApostropheIsTheProvidersError)
{
    Scenario s;
    try {
        Lookup(s, {"d'Or"});
        FAIL() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, -2147217900);
        EXPECT_NE(error.Statement.find("WO1 = 'd'Or'"), std::string::npos);
    }
}

TEST(WaldortLookup, TheArgumentsAreLeftAsTheyWere)
{
    Scenario s;
    s.ID_AL = 4;
    Lookup(s, {"Nord"});
    EXPECT_EQ(s.ID_AL, 4);
}

TEST(StandText, LevelsArePartedAndTheNameFollowsAColon)
{
    EXPECT_EQ(PutWaldortStr({"Nord", "3", "a"}, "Am Bach"), "Nord/ 3/ a: Am Bach");
}

TEST(StandText, AnEmptyNameHasNoColon)
{
    EXPECT_EQ(PutWaldortStr({"Nord", "3"}, ""), "Nord/ 3");
}

TEST(StandText, AnEmptyLevelLeavesNoSeparator)
{
    EXPECT_EQ(PutWaldortStr({"Nord", "", "a"}, ""), "Nord/ a");
    EXPECT_EQ(PutWaldortStr({"", "3"}, ""), "3");
}

struct AccessCase {
    bool oracle;
    std::int32_t level;
    std::string_view condition;
};

class StandAccess : public testing::TestWithParam<AccessCase> {};

TEST_P(StandAccess, ALevelSeesItsOwnAndTheCommonStands)
{
    KvxVar session;
    session.bOracle = GetParam().oracle ? 1 : 0;
    EXPECT_EQ(AccessCondition(session, GetParam().level), GetParam().condition);
}

INSTANTIATE_TEST_SUITE_P(
    Dialects, StandAccess,
    testing::Values(AccessCase{false, 0, "WALDORT.ID_ACCESS_LEVELS IS NULL"},
                    AccessCase{false, 7, "(WALDORT.ID_ACCESS_LEVELS IS NULL OR WALDORT.ID_ACCESS_LEVELS = 7)"},
                    AccessCase{true, 0, "NVL(WALDORT.ID_ACCESS_LEVELS,0) = 0"},
                    AccessCase{true, 7, "NVL(WALDORT.ID_ACCESS_LEVELS,0) IN (0,7)"}));

}  // namespace
}  // namespace kvx::test
