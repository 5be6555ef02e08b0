#include "basic/Error.h"
#include "common/FormInstance.h"
#include "entry/c_Waldort.h"
#include "stands/F_Waldort.h"
#include "stands/StandsTest.h"

#include <algorithm>

namespace kvx::test {
namespace {

constexpr int kRefused = -2147217900;

void Cancel(Dialog& f)
{
    f.Click("btnCancel");
}

// --- what is asked ---

TEST(StandTree, OneStatementLoadsAllThatTheUserMaySee)
{
    Scenario s{"INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE) VALUES ('WALDORTLEVEL', 6)"};
    Maintain(s, Cancel);
    EXPECT_EQ(s.Statements(), Lines({"SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'WALDORTLEVEL'",
                                     "SELECT * FROM (SELECT WO1,WO2,WO3,WO4,WO5,WO6,1 AS AL,"
                                     " (CASE WHEN ZENTRALE = 1 THEN 1 ELSE 0 END) AS ZENTRALE FROM WALDORT"
                                     " WHERE ISNULL(DISABLE,0) = 0 AND WALDORT.ID_ACCESS_LEVELS IS NULL) A"
                                     " ORDER BY WO1,WO2,WO3,WO4,WO5,WO6"}));
}

TEST(StandTree, ALevelSeesItsOwnStandsAndMarksTheUsers)
{
    Scenario s;
    s.ID_AL = 1;
    s.kvxvar().ID_ACCESS_LEVELS = 2;
    Maintain(s, Cancel);
    EXPECT_TRUE(s.WasSent("SELECT * FROM (SELECT WO1,WO2,WO3,WO4,WO5,WO6,(CASE WHEN (WALDORT.ID_ACCESS_LEVELS IS NULL"
                          " OR WALDORT.ID_ACCESS_LEVELS = 2) THEN 1 ELSE 0 END) AS AL,"
                          " (CASE WHEN ZENTRALE = 1 THEN 1 ELSE 0 END) AS ZENTRALE FROM WALDORT"
                          " WHERE ISNULL(DISABLE,0) = 0 AND (WALDORT.ID_ACCESS_LEVELS IS NULL"
                          " OR WALDORT.ID_ACCESS_LEVELS = 1)) A ORDER BY WO1,WO2,WO3,WO4,WO5,WO6"));
}

TEST(StandTree, OracleGetsItsOwnForm)
{
    Scenario s;
    BeOracle(s);
    Maintain(s, Cancel);
    EXPECT_TRUE(s.WasSent("SELECT WO1,WO2,WO3,WO4,WO5,WO6,AL,ZENTRALE FROM (SELECT /*+ FIRST_ROWS */"
                          " WO1 || ' ' AS WO1,WO2 || ' ' AS WO2,WO3 || ' ' AS WO3,WO4 || ' ' AS WO4,"
                          "WO5 || ' ' AS WO5,WO6 || ' ' AS WO6,1 AS AL,"
                          " (CASE WHEN ZENTRALE = 1 THEN 1 ELSE 0 END) AS ZENTRALE FROM WALDORT"
                          " WHERE NVL(DISABLE,0) = 0 AND NVL(WALDORT.ID_ACCESS_LEVELS,0) = 0) A"
                          " ORDER BY WO1,WO2,WO3,WO4,WO5,WO6"));
}

TEST(StandTree, OracleMarksTheUsersStandsByItsOwnCondition)
{
    Scenario s;
    BeOracle(s);
    s.ID_AL = 1;
    s.kvxvar().ID_ACCESS_LEVELS = 2;
    Maintain(s, Cancel);
    EXPECT_EQ(s.CountStatements("SELECT WO1,WO2,WO3,WO4,WO5,WO6,AL,ZENTRALE FROM (SELECT /*+ FIRST_ROWS */"
                                " WO1 || ' ' AS WO1,WO2 || ' ' AS WO2,WO3 || ' ' AS WO3,WO4 || ' ' AS WO4,"
                                "WO5 || ' ' AS WO5,WO6 || ' ' AS WO6,(CASE WHEN NVL(WALDORT.ID_ACCESS_LEVELS,0)"
                                " IN (0,2) THEN 1 ELSE 0 END) AS AL,"
                                " (CASE WHEN ZENTRALE = 1 THEN 1 ELSE 0 END) AS ZENTRALE FROM WALDORT"
                                " WHERE NVL(DISABLE,0) = 0 AND NVL(WALDORT.ID_ACCESS_LEVELS,0) IN (0,1)) A"),
              1);
}

TEST(StandTree, ARootStandRestrictsToItsSubtreeAndTheWayThere)
{
    Scenario s;
    s.ID_WALDORT_Root = 18;
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(Nodes(f), Lines({"Nord*", "Nord/3*", "Nord/3/a*"}));
        f.Click("btnCancel");
    });
    EXPECT_TRUE(s.WasSent("SELECT WO1,WO2,WO3,WO4,WO5,WO6 FROM WALDORT WHERE ID_WALDORT = 18"));
    EXPECT_TRUE(s.WasSent("SELECT * FROM (SELECT WO1,WO2,WO3,WO4,WO5,WO6,1 AS AL,"
                          " (CASE WHEN ZENTRALE = 1 THEN 1 ELSE 0 END) AS ZENTRALE FROM WALDORT"
                          " WHERE ISNULL(DISABLE,0) = 0 AND WALDORT.ID_ACCESS_LEVELS IS NULL AND WO1 = 'Nord'"
                          " AND ISNULL(WO2,'3') = '3' AND ISNULL(WO3,'a') = 'a') A"
                          " ORDER BY WO1,WO2,WO3,WO4,WO5,WO6"));
}

TEST(StandTree, TheRootConditionStopsAtTheFirstUnusedLevel)
{
    Scenario s;
    s.ID_WALDORT_Root = 13;  // Süd, nothing, 7
    Maintain(s, Cancel);
    EXPECT_EQ(s.CountStatements("SELECT * FROM (SELECT WO1,WO2,WO3,WO4,WO5,WO6,1 AS AL,"
                                " (CASE WHEN ZENTRALE = 1 THEN 1 ELSE 0 END) AS ZENTRALE FROM WALDORT"
                                " WHERE ISNULL(DISABLE,0) = 0 AND WALDORT.ID_ACCESS_LEVELS IS NULL"
                                " AND WO1 = 'Süd') A"),
              1);
}

TEST(StandTree, TheRootConditionIsSqlServersOnOracleToo)
{
    Scenario s;
    BeOracle(s);
    s.ID_WALDORT_Root = 17;
    Maintain(s, Cancel);
    EXPECT_EQ(std::ranges::count_if(s.Log(),
                                    [](const std::string& text) {
                                        return text.find("NVL(WALDORT.ID_ACCESS_LEVELS,0) = 0 AND WO1 = 'Nord'"
                                                         " AND ISNULL(WO2,'3') = '3') A") != std::string::npos;
                                    }),
              1);
}

TEST(StandTree, ARootStandThatIsGoneRestrictsNothing)
{
    Scenario s;
    s.ID_WALDORT_Root = 999;
    Maintain(s, [](Dialog& f) {
        EXPECT_TRUE(IsGrey(f, {"Nord"}));
        EXPECT_TRUE(IsGrey(f, {"Süd"}));
        f.Click("btnCancel");
    });
}

// --- what is shown ---

TEST(StandTree, RowsBecomeNodesUnderTheirParentsInTheirOrder)
{
    Scenario s;
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(Nodes(f),
                  Lines({"Nord", "Nord/1", "Nord/1/a", "Nord/1/a/1", "Nord/1/a/1/x", "Nord/1/a/1/x/9", "Nord/1/b",
                         "Nord/2*", "Nord/3", "Nord/3/a", "Ost", "Ost/5", "Ost/5/c", "Süd", "West"}));
        f.Click("btnCancel");
    });
}

TEST(StandTree, TheOracleFormShowsTheSameNodes)
{
    Scenario s;
    BeOracle(s);
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(Nodes(f),
                  Lines({"Nord", "Nord/1", "Nord/1/a", "Nord/1/a/1", "Nord/1/a/1/x", "Nord/1/a/1/x/9", "Nord/1/b",
                         "Nord/2*", "Nord/3", "Nord/3/a", "Ost", "Ost/5", "Ost/5/c", "Süd", "West"}));
        f.Click("btnCancel");
    });
}

TEST(StandTree, TheRootIsNamedByTheCatalogueSelectedAndOpen)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        const ui::Node root = Tree(f).FirstTop();
        EXPECT_EQ(root.Text(), s.Text(190));
        EXPECT_EQ(root.Key(), "ROOT");
        EXPECT_EQ(Selected(f), "(root)");
        EXPECT_TRUE(root.Expanded());
        EXPECT_EQ(Tree(f).TopCount(), 1);
        f.Click("btnCancel");
    });
}

TEST(StandTree, KeysAreThePathBehindK)
{
    Scenario s;
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(NodeKey(f, {"Nord"}), "K|Nord");
        EXPECT_EQ(NodeKey(f, {"Nord", "3", "a"}), "K|Nord|3|a");
        f.Click("btnCancel");
    });
}

TEST(StandTree, TrailingBlanksOfALevelAreNoPartOfItsKey)
{
    Scenario s;
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(NodeKey(f, {"West"}), "K|West");
        f.Click("btnCancel");
    });
}

TEST(StandTree, LeadingBlanksStay)
{
    Scenario s{"INSERT INTO WALDORT (WO1) VALUES (' 01')"};
    Maintain(s, [](Dialog& f) {
        f.Select("TreeView1", {" 01"});
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT"), "1");
}

TEST(StandTree, ARowWithAGapIsNoNode)
{
    Scenario s{"INSERT INTO WALDORT (WO1, WO3) VALUES ('A', '3')"};
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(Nodes(f), Lines());
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT"), "1");
}

TEST(StandTree, ARowWithoutAnyLevelIsNoNode)
{
    Scenario s{"INSERT INTO WALDORT (LANGNAME) VALUES ('leer')\nGO\nINSERT INTO WALDORT (WO1, WO2) VALUES ('', '  ')"};
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(Nodes(f), Lines());
        f.Click("btnCancel");
    });
}

TEST(StandTree, RowsWithTheSameLevelsAreOneNodeInTheColourOfTheFirst)
{
    // The order between the two is the key index's: the row that is not central comes first.
    Scenario s{"INSERT INTO WALDORT (WO1, ZENTRALE) VALUES ('A', NULL)\nGO\n"
               "INSERT INTO WALDORT (WO1, ZENTRALE) VALUES ('A', 1)"};
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(Nodes(f), Lines({"A"}));
        f.Click("btnCancel");
    });
}

TEST(StandTree, RowsBelowADuplicateStandUnderTheOneNode)
{
    Scenario s{"INSERT INTO WALDORT (WO1, WO2) VALUES ('A', NULL), ('A', ''), ('A', '1'), ('A', '1'), ('A', '2')"};
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(Nodes(f), Lines({"A", "A/1", "A/2"}));
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT"), "5");
}

TEST(StandTree, TextsThatDifferInCaseAreTwoNodesWithTheirOwnChildren)
{
    Scenario s{"INSERT INTO WALDORT (WO1, WO2) VALUES ('A', NULL), ('a', NULL), ('A', '1'), ('a', '2'), ('A', '3'), "
               "('a', '3'), ('A', '3')"};
    Maintain(s, [](Dialog& f) {
        Lines nodes = Nodes(f);
        std::ranges::sort(nodes);
        EXPECT_EQ(nodes, Lines({"A", "A/1", "A/3", "a", "a/2", "a/3"}));
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT"), "7");
}

TEST(StandTree, MixedBranchesOfTheSameTextKeepTheirOwnParents)
{
    Scenario s{"INSERT INTO WALDORT (WO1, WO2, WO3) VALUES ('A', NULL, NULL), ('a', NULL, NULL), ('a', '1', NULL), "
               "('A', '1', NULL), ('a', '1', NULL), ('A', '1', 'x'), ('A', '2', NULL)"};
    Maintain(s, [](Dialog& f) {
        Lines nodes = Nodes(f);
        std::ranges::sort(nodes);
        EXPECT_EQ(nodes, Lines({"A", "A/1", "A/1/x", "A/2", "a", "a/1"}));
        f.Click("btnCancel");
    });
}

TEST(StandTree, ADialogClosedWhileItOpensReadsAndMakesNothing)
{
    Scenario s{"INSERT INTO WALDORT (WO1, WO2) VALUES ('Ost', '1')"};
    s.Desktop().Post([] { FormInstance<F_Waldort>::Get()->btnCancel.UserClick(); });
    c_Waldort().WaldortSimple(s.kvxvar(), /*bolPrint=*/0, s.ID_AL, /*OnlyRead=*/0, s.ID_WALDORT_Root);
    EXPECT_EQ(s.CountStatements("SELECT * FROM (SELECT WO1"), 0);
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT"), "1");
}

TEST(StandTree, LevelsBeyondTheOptionStillShowAsNodes)
{
    Scenario s;
    s.Execute("UPDATE OPTIONEN SET NUMBER_VALUE = 3 WHERE PROPERTY_ID = 'WALDORTLEVEL'");
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(NodeKey(f, {"Nord", "1", "a", "1"}), "K|Nord|1|a|1");
        f.Click("btnCancel");
    });
}

TEST(StandTree, WithoutRowsTheRootStandsAlone)
{
    Scenario s{"DELETE FROM WALDORT"};
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(Tree(f).Count(), 1);
        EXPECT_EQ(Selected(f), "(root)");
        EXPECT_TRUE(f.Shown("chkDisable"));
        f.Click("btnCancel");
    });
}

TEST(StandTree, AForeignLevelsStandIsGrey)
{
    Scenario s;
    s.ID_AL = 1;
    s.kvxvar().ID_ACCESS_LEVELS = 2;
    Maintain(s, [](Dialog& f) {
        EXPECT_TRUE(IsGrey(f, {"Süd", "1"}));
        EXPECT_FALSE(IsGrey(f, {"Süd"}));
        f.Click("btnCancel");
    });
}

TEST(StandTree, TheUsersOwnLevelsStandIsNot)
{
    Scenario s;
    s.ID_AL = 1;
    s.kvxvar().ID_ACCESS_LEVELS = 1;
    Maintain(s, [](Dialog& f) {
        EXPECT_FALSE(IsGrey(f, {"Süd", "1"}));
        f.Click("btnCancel");
    });
}

TEST(StandTree, ACentralStandIsGrey)
{
    Scenario s;
    Maintain(s, [](Dialog& f) {
        EXPECT_TRUE(IsGrey(f, {"Nord", "2"}));
        f.Click("btnCancel");
    });
}

TEST(StandTree, AViewerIsGreyThroughout)
{
    Scenario s;
    Maintain(
        s,
        [](Dialog& f) {
            for (const std::string& node : Nodes(f))
                EXPECT_EQ(node.back(), '*') << node;
            f.Click("btnCancel");
        },
        /*onlyRead=*/true);
}

// --- missing parents ---

TEST(StandTree, MissingParentsGetTheirRows)
{
    Scenario s{"INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE) VALUES ('WALDORTLEVEL', 6)\nGO\n"
               "INSERT INTO WALDORT (WO1, WO2, WO3) VALUES ('Ost', '5', 'c')"};
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(Nodes(f), Lines({"Ost", "Ost/5", "Ost/5/c"}));
        f.Click("btnCancel");
    });
    const Lines sent = s.Statements();
    ASSERT_EQ(sent.size(), 6U);
    EXPECT_EQ(Lines(sent.begin() + 2, sent.end()),
              Lines({"kvx_WALDORT_INS",
                     "UPDATE WALDORT SET WO1 = 'Ost',LANGNAME = 'Ost',ID_ACCESS_LEVELS = NULL WHERE ID_WALDORT = 2",
                     "kvx_WALDORT_INS",
                     "UPDATE WALDORT SET WO1 = 'Ost',WO2 = '5',LANGNAME = 'Ost 5',ID_ACCESS_LEVELS = NULL"
                     " WHERE ID_WALDORT = 3"}));
    EXPECT_EQ(s.Column("SELECT LANGNAME FROM WALDORT ORDER BY ID_WALDORT"), Lines({"", "Ost", "Ost 5"}));
}

TEST(StandTree, MissingParentsBelongToTheLevelSearchedFor)
{
    Scenario s{"INSERT INTO WALDORT (WO1, WO2) VALUES ('Ost', '5')"};
    s.ID_AL = 3;
    Maintain(s, Cancel);
    EXPECT_TRUE(s.WasSent("UPDATE WALDORT SET WO1 = 'Ost',LANGNAME = 'Ost',ID_ACCESS_LEVELS = 3"
                          " WHERE ID_WALDORT = 2"));
}

TEST(StandTree, ALaterLoadFindsTheParents)
{
    Scenario s;
    Maintain(s, Cancel);
    s.ClearLog();
    Maintain(s, Cancel);
    EXPECT_EQ(s.CountStatements("kvx_WALDORT_INS"), 0);
    EXPECT_EQ(s.CountStatements("UPDATE"), 0);
}

TEST(StandTree, OnlyTheLevelsThatAreMissingAreMade)
{
    Scenario s{"INSERT INTO WALDORT (WO1, WO2, WO3, WO4) VALUES ('A', NULL, NULL, NULL), ('A', '1', 'x', '7')"};
    Maintain(s, Cancel);
    EXPECT_EQ(s.Column("SELECT LANGNAME FROM WALDORT WHERE ID_WALDORT > 2 ORDER BY ID_WALDORT"),
              Lines({"A 1", "A 1 x"}));
}

TEST(StandTree, AHiddenParentIsMadeAgain)
{
    Scenario s{"INSERT INTO WALDORT (WO1, WO2, DISABLE) VALUES ('A', NULL, 1), ('A', '1', 0)"};
    Maintain(s, Cancel);
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE WO1 = 'A' AND WO2 IS NULL"), "2");
}

TEST(StandTree, ParentsMadeInAViewerAreGreyToo)
{
    Scenario s{"INSERT INTO WALDORT (WO1, WO2) VALUES ('Ost', '5')"};
    Maintain(
        s,
        [](Dialog& f) {
            EXPECT_EQ(Nodes(f), Lines({"Ost*", "Ost/5*"}));
            f.Click("btnCancel");
        },
        /*onlyRead=*/true);
}

TEST(StandTree, ParentsMadeForTheUserAreNotGrey)
{
    Scenario s{"INSERT INTO WALDORT (WO1, WO2, ZENTRALE) VALUES ('Ost', '5', 1)"};
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(Nodes(f), Lines({"Ost", "Ost/5*"}));
        f.Click("btnCancel");
    });
}

// --- the form around it ---

TEST(StandTree, TheBarIsGoneAndTheButtonsAreSetWhenTheTreeIsThere)
{
    Scenario s;
    Maintain(s, [](Dialog& f) {
        EXPECT_FALSE(f.Shown("ProgressBar1"));
        EXPECT_EQ(f.Text("ProgressBar1", "Value"), "0");
        EXPECT_FALSE(f.Enabled("btnLoschen"));
        EXPECT_TRUE(f.Enabled("btnOK"));
        EXPECT_TRUE(f.Enabled("btnNeuerWO"));
        EXPECT_TRUE(f.Shown("chkDisable"));
        EXPECT_EQ(f.Form().MousePointer(), ui::vbDefault);
        f.Click("btnCancel");
    });
}

TEST(StandTree, TheBarGoesOnEveryHundredthRowAndIsGoneAfterwards)
{
    // Rows 1, 101 and 201, counted from 1, in whole hundredths.
    const std::pair<int, Lines> cases[] = {{250, {"hidden", "0", "40", "80", "0", "hidden"}},
                                           {101, {"hidden", "0", "100", "0", "hidden"}}};
    for (const auto& [count, states] : cases) {
        std::string rows = "INSERT INTO WALDORT (WO1) VALUES ('1')";
        for (int stand = 2; stand <= count; ++stand)
            rows += ", ('" + std::to_string(stand) + "')";
        Scenario s{rows};
        BarWatch bar;
        s.Desktop().Post([&bar] { bar.Attach(); });
        Maintain(s, [&bar](Dialog& f) {
            bar.Detach();
            EXPECT_FALSE(f.Shown("ProgressBar1"));
            EXPECT_EQ(f.Text("ProgressBar1", "Value"), "0");
            f.Click("btnCancel");
        });
        EXPECT_EQ(bar.states, states) << count;
        EXPECT_TRUE(bar.isHundredths);
    }
}

TEST(StandTree, TheFieldsAreOpenBeforeAStandIsChosen)
{
    Scenario s;
    Maintain(s, [](Dialog& f) {
        EXPECT_TRUE(f.Enabled("frame"));
        EXPECT_TRUE(f.CanReach("txtName"));
        f.Click("btnCancel");
    });
}

TEST(StandTree, AWindowThatComesBackToTheFrontDoesNotLoadAgain)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Form().UserActivate();
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.CountStatements("SELECT * FROM (SELECT WO1"), 1);
}

TEST(StandTree, UnusedLevelsHaveNoBoxes)
{
    Scenario s;
    s.Execute("UPDATE OPTIONEN SET NUMBER_VALUE = 3 WHERE PROPERTY_ID = 'WALDORTLEVEL'");
    Maintain(s, [](Dialog& f) {
        for (const char* shown : {"txtWO1", "txtWO2", "txtWO3", "lblWO3"})
            EXPECT_TRUE(f.Shown(shown)) << shown;
        for (const char* hidden : {"txtWO4", "txtWO5", "txtWO6", "lblWO4", "lblWO6"})
            EXPECT_FALSE(f.Shown(hidden)) << hidden;
        f.Click("btnCancel");
    });
}

struct LevelOption {
    std::string_view script;
    std::string_view written;
    bool boxSix;
};
class StandLevelOption : public testing::TestWithParam<LevelOption> {};

TEST_P(StandLevelOption, OutsideOneToSixItIsWrittenBackAsSix)
{
    Scenario s{GetParam().script};
    Maintain(s, [&](Dialog& f) {
        EXPECT_EQ(f.Shown("txtWO6"), GetParam().boxSix);
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'WALDORTLEVEL'"), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(
    Values, StandLevelOption,
    testing::Values(
        LevelOption{"DELETE FROM OPTIONEN", "6", true},
        LevelOption{"INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE) VALUES ('WALDORTLEVEL', 0)", "6", true},
        LevelOption{"INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE) VALUES ('WALDORTLEVEL', 7)", "6", true},
        LevelOption{"INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE) VALUES ('WALDORTLEVEL', 1)", "1", false},
        LevelOption{"INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE) VALUES ('WALDORTLEVEL', 6)", "6", true}));

struct LimitCase {
    std::string_view client;
    bool oracle;
    std::int32_t key, name, cadastral;
};
class StandInputLimits : public testing::TestWithParam<LimitCase> {};

TEST_P(StandInputLimits, FollowClientAndDialect)
{
    const LimitCase& limits = GetParam();
    Scenario s;
    s.kvxvar().g_Client = limits.client;
    if (limits.oracle) BeOracle(s);
    Maintain(s, [&](Dialog& f) {
        const auto limit = [&](const char* box) { return f.Text(box, "MaxLength"); };
        for (const char* box : {"txtWO1", "txtWO2", "txtWO3", "txtWO4", "txtWO5", "txtWO6"})
            EXPECT_EQ(limit(box), std::to_string(limits.key)) << box;
        EXPECT_EQ(limit("txtName"), std::to_string(limits.name));
        for (const char* box : {"txtGemarkung", "txtFlurStuck", "txtParzelle"})
            EXPECT_EQ(limit(box), std::to_string(limits.cadastral)) << box;
        f.Click("btnCancel");
    });
}

INSTANTIATE_TEST_SUITE_P(Clients, StandInputLimits,
                         testing::Values(LimitCase{"", false, 25, 200, 30}, LimitCase{"BB", false, 6, 200, 30},
                                         LimitCase{"SACHSEN", false, 6, 200, 30}, LimitCase{"bb", false, 25, 200, 30},
                                         LimitCase{"", true, 25, 400, 60}, LimitCase{"BB", true, 6, 400, 60}));

TEST(StandClientBB, DoesNotPrintAndAsksWhereStandsMayBeMade)
{
    Scenario s;
    s.kvxvar().g_Client = "BB";
    s.ID_AL = 1;
    Maintain(s, [](Dialog& f) {
        EXPECT_FALSE(f.Shown("cmdPrint"));
        EXPECT_TRUE(f.Enabled("btnNeuerWO"));
        EXPECT_EQ(f.Text("btnNeuerWO", "Tag"), "");
        f.Click("btnCancel");
    });
    EXPECT_TRUE(s.WasSent("SELECT ID FROM ACCESS_LEVELS WHERE RIGHT(ACCESS_LEVELS,2)='00' AND ID = 1"));
}

TEST(StandClientBB, MakesNoStandsUnderALowerLevel)
{
    Scenario s;
    s.kvxvar().g_Client = "BB";
    s.ID_AL = 2;
    Maintain(s, [](Dialog& f) {
        EXPECT_FALSE(f.Enabled("btnNeuerWO"));
        EXPECT_EQ(f.Text("btnNeuerWO", "Tag"), "NO");
        f.Select("TreeView1", {"Nord"});
        EXPECT_FALSE(f.Enabled("btnNeuerWO"));
        f.Select("TreeView1", {});
        EXPECT_FALSE(f.Enabled("btnNeuerWO"));
        f.Click("btnCancel");
    });
}

TEST(StandModes, OtherClientsPrintAndAskNoLevel)
{
    Scenario s;
    Maintain(s, [](Dialog& f) {
        EXPECT_TRUE(f.Shown("cmdPrint"));
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.CountStatements("SELECT ID FROM ACCESS_LEVELS"), 0);
}

TEST(StandModes, AViewerCanNeitherMakeNorPick)
{
    Scenario s;
    Maintain(
        s,
        [](Dialog& f) {
            f.Select("TreeView1", {"Nord"});
            EXPECT_FALSE(f.Enabled("btnNeuerWO"));
            EXPECT_EQ(f.Text("btnNeuerWO", "Tag"), "NO");
            EXPECT_FALSE(f.Enabled("btnOK"));
            EXPECT_FALSE(f.Enabled("btnLoschen"));
            EXPECT_FALSE(f.CanReach("txtName"));
            f.Click("btnCancel");
        },
        /*onlyRead=*/true);
}

TEST(StandModes, UnderARootStandNothingIsMadeOrPickedBeforeAClick)
{
    Scenario s;
    s.ID_WALDORT_Root = 17;
    Maintain(s, [](Dialog& f) {
        EXPECT_FALSE(f.Enabled("btnOK"));
        EXPECT_FALSE(f.Enabled("btnNeuerWO"));
        EXPECT_EQ(f.Text("btnNeuerWO", "Tag"), "NO");
        f.Click("btnCancel");
    });
}

TEST(StandModes, TheWindowSpeaksTheSessionsLanguage)
{
    Scenario s;
    s.kvxvar().strLanguage = "ENGLISH";
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(f.Form().Caption(), "Stand administration");
        EXPECT_EQ(f.Text("lblName", "Caption"), "Long name");
        f.Click("btnCancel");
    });
}

TEST(StandModes, AnInstanceThatAFailedCallLeftBehindStartsAfresh)
{
    Scenario s;
    s.kvxvar().g_Client = "BB";
    s.ID_AL = 2;
    s.FailStatement(2, kRefused);  // the access level
    EXPECT_THROW(c_Waldort().WaldortSimple(s.kvxvar(), 0, s.ID_AL, 0, 0), basic::Error);
    s.kvxvar().g_Client = "";
    Maintain(s, [](Dialog& f) {
        EXPECT_TRUE(f.Enabled("btnNeuerWO"));
        EXPECT_TRUE(f.Shown("cmdPrint"));
        f.Click("btnCancel");
    });
}

// --- failures ---

TEST(StandTreeFailure, ARefusedOptionIsTheHostsError)
{
    Scenario s;
    s.FailStatement(1, kRefused, "no such option");
    try {
        c_Waldort().WaldortSimple(s.kvxvar(), 0, s.ID_AL, 0, 0);
        FAIL() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, kRefused);
        EXPECT_EQ(error.Description, "no such option");
    }
}

// Which statement of a first load it is.
std::size_t PlaceInLoad(std::string_view script, std::string_view start)
{
    Scenario probe{script};
    Maintain(probe, Cancel);
    return PlaceOf(probe, start);
}

TEST(StandTreeFailure, ARefusedLoadIsShownAndTheDialogStaysWithoutLoadingAgain)
{
    const std::size_t load = PlaceInLoad("forest.sql", "SELECT * FROM (");
    Scenario s;
    s.Answer("refused", ui::vbOK);
    s.FailStatement(load, kRefused, "refused");
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(Tree(f).Count(), 1);
        EXPECT_FALSE(f.Shown("ProgressBar1"));
        EXPECT_EQ(f.Form().MousePointer(), ui::vbDefault);
        f.Form().UserActivate();
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Boxes().at(0).flags, 16);
    EXPECT_EQ(s.Boxes().at(0).title, "Korvex");
    EXPECT_EQ(s.CountStatements("SELECT * FROM (SELECT WO1"), 1);
}

TEST(StandTreeFailure, ARefusedLoadLeavesTheFlagHidden)
{
    const std::size_t load = PlaceInLoad("forest.sql", "SELECT * FROM (");
    Scenario s;
    s.Answer("refused", ui::vbOK);
    s.FailStatement(load, kRefused, "refused");
    Maintain(s, [](Dialog& f) {
        EXPECT_FALSE(f.Shown("chkDisable"));
        EXPECT_TRUE(f.Enabled("frame"));
        f.Click("btnCancel");
    });
}

TEST(StandTreeFailure, AnApostropheInAMissingParentEndsTheLoadWithTheProvidersError)
{
    Scenario s{"INSERT INTO WALDORT (WO1, WO2) VALUES ('d''Or', '1'), ('Ost', NULL)"};
    s.Answer("*", ui::vbOK);
    Maintain(s, [&](Dialog& f) {
        EXPECT_EQ(Nodes(f), Lines({"d'Or"}));
        EXPECT_FALSE(f.Shown("ProgressBar1"));
        EXPECT_EQ(f.Form().MousePointer(), ui::vbDefault);
        f.Select("TreeView1", {});
        EXPECT_FALSE(f.Enabled("btnOK"));
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Boxes().at(0).flags, 16);
    EXPECT_EQ(s.CountStatements("UPDATE WALDORT SET WO1 = 'd'Or'"), 1);
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE WO1 = 'd''Or'"), "1");
}

class StandParentFailure : public testing::TestWithParam<std::string_view> {};

TEST_P(StandParentFailure, EndsTheLoadWithAMessageBehindTheNodeThatIsThere)
{
    constexpr std::string_view kRows = "INSERT INTO WALDORT (WO1, WO2) VALUES ('A', '1'), ('B', NULL)";
    const std::size_t statement = PlaceInLoad(kRows, GetParam());
    Scenario s{kRows};
    s.Answer("no new rows", ui::vbOK);
    s.FailStatement(statement, kRefused, "no new rows");
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(Nodes(f), Lines({"A"}));
        EXPECT_FALSE(f.Shown("ProgressBar1"));
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE WO1 = 'A'"), "1");
}

INSTANTIATE_TEST_SUITE_P(EachStatement, StandParentFailure,
                         testing::Values("kvx_WALDORT_INS", "UPDATE WALDORT SET WO1 = 'A'"));

}  // namespace
}  // namespace kvx::test
