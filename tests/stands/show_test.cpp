#include "basic/Error.h"
#include "stands/StandsTest.h"

namespace kvx::test {
namespace {

constexpr int kRefused = -2147217900;

constexpr std::string_view kStandColumns =
    "FLAECHE AS AREA,LANGNAME AS LONGNAME,HAUPT_HA AS HAUPT_HA1,AL_TER AS ALTER1,GEMARKUNG AS GEMARKUNG1,"
    "FLURSTUECK AS FLURSTUECK1,PARZELLE AS PARZELLE1,";

std::string Shown(Dialog& f)
{
    std::string all = f.Text("txtName");
    for (const char* box : {"cmbHolzart", "txtFlaeche", "txtAlter", "txtGemarkung", "txtFlurStuck", "txtParzelle"})
        all += "|" + f.Text(box);
    return all;
}

TEST(StandClick, ReadsTheSpeciesAndTheStand)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        Sent sent(s);
        f.Select("TreeView1", {"Nord", "1"});
        EXPECT_EQ(sent.Take(),
                  Lines({"SELECT HA FROM HOLZART",
                         "SELECT " + std::string(kStandColumns) +
                             "ISNULL(DISABLE,0) AS DISABLE FROM WALDORT WHERE ISNULL(DISABLE,0) = 0"
                             " AND WALDORT.ID_ACCESS_LEVELS IS NULL AND WO1 = 'Nord' AND WO2 = '1' AND WO3 IS NULL"
                             " AND WO4 IS NULL AND WO5 IS NULL AND WO6 IS NULL"}));
        f.Click("btnCancel");
    });
}

TEST(StandClick, OracleGetsItsOwnForm)
{
    Scenario s;
    BeOracle(s);
    s.ID_AL = 1;
    Maintain(s, [&](Dialog& f) {
        Sent sent(s);
        f.Select("TreeView1", {"Nord"});
        EXPECT_EQ(sent.Take(),
                  Lines({"SELECT HA FROM HOLZART",
                         "SELECT /*+ FIRST_ROWS */ " + std::string(kStandColumns) +
                             "NVL(DISABLE,0) AS DISABLE FROM WALDORT WHERE NVL(DISABLE,0) = 0"
                             " AND NVL(WALDORT.ID_ACCESS_LEVELS,0) IN (0,1) AND WO1 = 'Nord' AND WO2 IS NULL"
                             " AND WO3 IS NULL AND WO4 IS NULL AND WO5 IS NULL AND WO6 IS NULL"}));
        f.Click("btnCancel");
    });
}

TEST(StandClick, ShowsTheKeyAndAllFields)
{
    Scenario s;
    Maintain(s, [](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        EXPECT_EQ(KeyBoxes(f), "Nord|1||||");
        EXPECT_EQ(Shown(f), "Nord 1|FI|40,2500|85,00|Birkenhain|12/3|A");
        EXPECT_EQ(f.Text("chkDisable", "Value"), "0");
        f.Click("btnCancel");
    });
}

TEST(StandClick, ShowsNullAsNothingAndNumbersAsZero)
{
    Scenario s;
    Maintain(s, [](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1", "b"});
        EXPECT_EQ(Shown(f), "||0,0000|0,00|||");
        EXPECT_EQ(f.Text("cmbHolzart", "ListIndex"), "0");
        f.Click("btnCancel");
    });
}

TEST(StandClick, LeavesNothingOfTheStandBefore)
{
    Scenario s;
    Maintain(s, [](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1", "a", "1", "x", "9"});
        f.Select("TreeView1", {"Nord", "1", "b"});
        EXPECT_EQ(KeyBoxes(f), "Nord|1|b|||");
        EXPECT_EQ(Shown(f), "||0,0000|0,00|||");
        f.Click("btnCancel");
    });
}

TEST(StandClick, FillsTheSpeciesAnewEachTime)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        s.Execute("INSERT INTO HOLZART (ID, HA) VALUES (9, 'DGL')");
        f.Select("TreeView1", {"Nord", "1"});
        EXPECT_EQ(f.Lines("cmbHolzart"), Lines({"", "BU", "EI", "FI", "KI", "DGL"}));
        f.Click("btnCancel");
    });
}

TEST(StandClick, OnTheRootClearsAndDisables)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        Sent sent(s);
        f.Select("TreeView1", {});
        EXPECT_EQ(KeyBoxes(f), "|||||");
        EXPECT_EQ(Shown(f), "||||||");
        EXPECT_EQ(f.Text("cmbHolzart", "ListIndex"), "-1");
        EXPECT_FALSE(f.Enabled("btnOK"));
        EXPECT_FALSE(f.Enabled("btnLoschen"));
        EXPECT_TRUE(f.Enabled("btnNeuerWO"));
        EXPECT_EQ(sent.Take(), Lines());
        f.Click("btnCancel");
    });
}

TEST(StandClick, OnAnOwnNodeEnablesEverything)
{
    Scenario s;
    Maintain(s, [](Dialog& f) {
        f.Select("TreeView1", {});
        f.Select("TreeView1", {"Nord"});
        for (const char* control : {"btnOK", "btnLoschen", "btnNeuerWO", "frame"})
            EXPECT_TRUE(f.Enabled(control)) << control;
        EXPECT_TRUE(f.CanReach("txtName"));
        f.Click("btnCancel");
    });
}

TEST(StandClick, OnAGreyNodeLocksTheFieldsAndLeavesOk)
{
    Scenario s;
    Maintain(s, [](Dialog& f) {
        f.Select("TreeView1", {"Nord", "2"});
        EXPECT_FALSE(f.Enabled("btnLoschen"));
        EXPECT_FALSE(f.Enabled("frame"));
        EXPECT_FALSE(f.CanReach("txtName"));
        EXPECT_TRUE(f.Enabled("btnOK"));
        f.Select("TreeView1", {});
        f.Select("TreeView1", {"Nord", "2"});
        EXPECT_FALSE(f.Enabled("btnOK"));
        f.Click("btnCancel");
    });
}

TEST(StandClick, OnTheDeepestLevelAllowsNoNewStand)
{
    Scenario s;
    s.Execute("UPDATE OPTIONEN SET NUMBER_VALUE = 3 WHERE PROPERTY_ID = 'WALDORTLEVEL'");
    Maintain(s, [](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        EXPECT_TRUE(f.Enabled("btnNeuerWO"));
        f.Select("TreeView1", {"Nord", "1", "a"});
        EXPECT_FALSE(f.Enabled("btnNeuerWO"));
        f.Select("TreeView1", {"Nord", "1", "a", "1"});
        EXPECT_FALSE(f.Enabled("btnNeuerWO"));
        f.Click("btnCancel");
    });
}

TEST(StandClick, UnderARootStandOkWaitsForItsLevel)
{
    Scenario s;
    s.ID_WALDORT_Root = 17;  // Nord/3
    Maintain(s, [](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        EXPECT_FALSE(f.Enabled("btnOK"));
        f.Select("TreeView1", {"Nord", "3"});
        EXPECT_TRUE(f.Enabled("btnOK"));
        f.Select("TreeView1", {"Nord", "3", "a"});
        EXPECT_TRUE(f.Enabled("btnOK"));
        f.Select("TreeView1", {"Nord"});
        EXPECT_FALSE(f.Enabled("btnOK"));
        EXPECT_FALSE(f.Enabled("btnNeuerWO"));
        f.Click("btnCancel");
    });
}

TEST(StandClick, InfoIsOffOnTheRootOnly)
{
    Scenario s;
    Maintain(s, [](Dialog& f) {
        EXPECT_TRUE(f.Enabled("btnInfo"));
        f.Select("TreeView1", {});
        EXPECT_FALSE(f.Enabled("btnInfo"));
        f.Select("TreeView1", {"Nord"});
        EXPECT_TRUE(f.Enabled("btnInfo"));
        f.Click("btnCancel");
    });
}

TEST(StandClick, InfoStaysOnWhereTheRootHasAnotherWordThanTheGermanOne)
{
    Scenario s;
    s.kvxvar().strLanguage = "ENGLISH";
    Maintain(s, [](Dialog& f) {
        EXPECT_EQ(Tree(f).FirstTop().Text(), "Base");
        f.Select("TreeView1", {});
        EXPECT_TRUE(f.Enabled("btnInfo"));
        f.Click("btnCancel");
    });
}

TEST(StandClick, AnApostropheIsShownAsTheProvidersErrorAndTheDialogStays)
{
    Scenario s{"INSERT INTO WALDORT (WO1, LANGNAME) VALUES ('d''Or', 'Goldberg'), ('Süd', 'Am Bach')"};
    Maintain(s, [&](Dialog& f) {
        f.Answer("*", ui::vbOK);
        f.Select("TreeView1", {"d'Or"});
        EXPECT_EQ(KeyBoxes(f), "d'Or|||||");
        EXPECT_EQ(f.Text("txtName"), "");
        f.Select("TreeView1", {"Süd"});
        EXPECT_EQ(f.Text("txtName"), "Am Bach");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Boxes().at(0).flags, 16);
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT"), "2");
}

TEST(StandClick, TheKeyboardSelectsToo)
{
    Scenario s;
    Maintain(s, [](Dialog& f) {
        f.Focus("TreeView1");
        f.Keys("{DOWN}");
        EXPECT_EQ(KeyBoxes(f), "Nord|||||");
        EXPECT_EQ(f.Text("txtName"), "Nord");
        f.Click("btnCancel");
    });
}

TEST(StandClick, ShowingIsNoEdit)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1", "b"});
        Sent sent(s);
        for (const char* box :
             {"txtName", "cmbHolzart", "txtFlaeche", "txtAlter", "txtGemarkung", "txtFlurStuck", "txtParzelle"})
            f.Focus(box);
        f.Focus("TreeView1");
        EXPECT_EQ(sent.Take(), Lines());
        f.Click("btnCancel");
    });
}

// --- nodes without a row ---

TEST(StandClick, OnANodeWithoutARowMakesIt)
{
    Scenario s;
    s.ID_AL = 1;
    Maintain(s, [&](Dialog& f) {
        s.Execute("DELETE FROM WALDORT WHERE ID_WALDORT = 18");
        s.Execute("DELETE FROM WALDORT WHERE ID_WALDORT = 19");
        Sent sent(s);
        f.Select("TreeView1", {"Nord", "3", "a"});
        const Lines all = sent.Take();
        ASSERT_EQ(all.size(), 5U);
        EXPECT_EQ(all[2], "kvx_WALDORT_INS");
        EXPECT_EQ(all[3], "UPDATE WALDORT SET WO1 = 'Nord',WO2 = '3',WO3 = 'a',LANGNAME = 'Nord 3 a',"
                          "ID_ACCESS_LEVELS = 1 WHERE ID_WALDORT = " +
                              s.Value("SELECT MAX(ID_WALDORT) FROM WALDORT"));
        EXPECT_EQ(all[4], all[1]);
        EXPECT_EQ(f.Text("txtName"), "Nord 3 a");
        EXPECT_EQ(f.Text("txtFlaeche"), "0,0000");
        f.Click("btnCancel");
    });
}

TEST(StandClick, WithoutALevelTheNewRowIsCommon)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        s.Execute("DELETE FROM WALDORT WHERE ID_WALDORT = 10");
        f.Select("TreeView1", {"Süd"});
        EXPECT_TRUE(s.WasSent("UPDATE WALDORT SET WO1 = 'Süd',LANGNAME = 'Süd',ID_ACCESS_LEVELS = NULL"
                              " WHERE ID_WALDORT = " +
                              s.Value("SELECT MAX(ID_WALDORT) FROM WALDORT")));
        f.Click("btnCancel");
    });
}

TEST(StandClick, OnATooLongLevelCutsItAndMakesARowOfTheCutKey)
{
    Scenario s{"INSERT INTO WALDORT (WO1) VALUES ('Abcdefghijklmnopqrstuvwxyz')"};
    Maintain(s, [](Dialog& f) {
        f.Select("TreeView1", {"Abcdefghijklmnopqrstuvwxyz"});
        EXPECT_EQ(f.Text("txtWO1"), "Abcdefghijklmnopqrstuvwxy");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Column("SELECT WO1 FROM WALDORT ORDER BY ID_WALDORT"),
              Lines({"Abcdefghijklmnopqrstuvwxyz", "Abcdefghijklmnopqrstuvwxy"}));
}

TEST(StandClick, ClientsWithShortKeysCutAtSixCharacters)
{
    for (const char* client : {"SACHSEN", "BB"}) {
        Scenario s{"INSERT INTO WALDORT (WO1) VALUES ('Müritzer')"};
        s.kvxvar().g_Client = client;
        Maintain(s, [&](Dialog& f) {
            f.Select("TreeView1", {"Müritzer"});
            EXPECT_EQ(f.Text("txtWO1"), "Müritz") << client;
            f.Click("btnCancel");
        });
        EXPECT_EQ(s.Value("SELECT LANGNAME FROM WALDORT WHERE WO1 = 'Müritz'"), "Müritz") << client;
    }
}

// --- failures: each statement of a click in turn ---

class StandClickFailure : public testing::TestWithParam<std::size_t> {};

TEST_P(StandClickFailure, ShowsTheErrorAndKeepsNothingOfAnotherStand)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        s.Execute("DELETE FROM WALDORT WHERE ID_WALDORT = 10");
        const std::string rows = s.Value("SELECT COUNT(*) FROM WALDORT");
        s.FailStatement(GetParam(), kRefused, "refused");
        s.Answer("refused", ui::vbOK);
        f.Select("TreeView1", {"Süd"});
        EXPECT_TRUE(s.HasFailed());
        EXPECT_EQ(KeyBoxes(f), "Süd|||||");
        EXPECT_EQ(f.Text("txtName"), "");
        EXPECT_EQ(f.Text("txtGemarkung"), "");
        const bool rowWasMade = GetParam() > 3;
        EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT"), rowWasMade ? std::to_string(std::stoi(rows) + 1) : rows);
        Sent sent(s);
        f.Focus("txtName");
        f.Focus("TreeView1");
        EXPECT_EQ(sent.Take(), Lines());  // nothing is dirty
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Boxes().at(0).flags, 16);
}

// The species, the stand, the new row, its key, the stand again.
INSTANTIATE_TEST_SUITE_P(EachStatement, StandClickFailure, testing::Values(1U, 2U, 3U, 4U, 5U));

}  // namespace
}  // namespace kvx::test
