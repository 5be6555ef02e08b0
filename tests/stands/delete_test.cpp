#include "entry/c_Message.h"
#include "stands/StandsTest.h"

#include <algorithm>

namespace kvx::test {
namespace {

constexpr int kRefused = -2147217900;
constexpr int kReferenced = -2147217873;

// Stand Nord/3 with what is below.
constexpr std::string_view kWhere =
    " WHERE WALDORT.ID_WALDORT IN (SELECT ID_WALDORT FROM WALDORT WHERE ISNULL(DISABLE,0) = 0"
    " AND WALDORT.ID_ACCESS_LEVELS IS NULL AND WO1 = 'Nord' AND WO2 = '3')";

void DeleteNord3(Dialog& f)
{
    f.Select("TreeView1", {"Nord", "3"});
    f.Answer(186, ui::vbYes);
    f.Click("btnLoschen");
}

/// Every kind of use refers to stand Nord/3/a.
void UseEverywhere(Scenario& s)
{
    s.Execute("UPDATE LOGS SET ID_WALDORT = 18, LISTE = '2024-117' WHERE ID_LOG = 1");
    s.Execute("INSERT INTO WB_WALDORT_ZUORD (ID_PERSONAL, ID_WALDORT) VALUES (1, 18)");
    s.Execute("INSERT INTO NN_POSITIONEN (ID, NN_NAME, WALDORT_ID) VALUES (1, 'R-77', 18)");
    s.Execute("INSERT INTO ARBEITSAUFTRAG_KOPF (ID, NAME) VALUES (1, 'Durchforstung')");
    s.Execute("INSERT INTO ARBEITSAUFTRAG (ID, ARBEITSAUFTRAG_KOPF_ID, WO_ID) VALUES (1, 1, 18)");
    s.Execute("INSERT INTO ARBEITSAUFTRAG_KOPF_PLANN (ID, NAME) VALUES (1, 'Pflanzung')");
    s.Execute("INSERT INTO ARBEITSAUFTRAG_PLANN (ID, AA_PLANN_ID, WO_ID) VALUES (1, 1, 18)");
}

TEST(StandDelete, ChecksFiveKindsOfUseAndDeletesTheSubtree)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Answer(186, ui::vbYes);
        Sent since(s);
        f.Click("btnLoschen");
        const std::string ids = "(SELECT ID_WALDORT FROM WALDORT " + std::string(kWhere) + ")";
        EXPECT_EQ(since.Take(),
                  Lines({"SELECT LISTE FROM LOGS WHERE ID_WALDORT IN " + ids + " GROUP BY LISTE",
                         "SELECT KURZBEZEICHNUNG FROM PERSONAL WHERE ID_PERSONAL IN (SELECT ID_PERSONAL FROM"
                         " WB_WALDORT_ZUORD WHERE ID_WALDORT IN " +
                             ids + ") GROUP BY KURZBEZEICHNUNG",
                         "SELECT NN_NAME FROM NN_POSITIONEN WHERE WALDORT_ID IN " + ids + " GROUP BY NN_NAME",
                         "SELECT ARBEITSAUFTRAG_KOPF.NAME FROM ARBEITSAUFTRAG_KOPF,ARBEITSAUFTRAG  WHERE"
                         " ARBEITSAUFTRAG_KOPF.ID = ARBEITSAUFTRAG.ARBEITSAUFTRAG_KOPF_ID AND WO_ID IN " +
                             ids + " GROUP BY ARBEITSAUFTRAG_KOPF.NAME",
                         "SELECT ARBEITSAUFTRAG_KOPF_PLANN.NAME FROM ARBEITSAUFTRAG_KOPF_PLANN,ARBEITSAUFTRAG_PLANN "
                         " WHERE ARBEITSAUFTRAG_KOPF_PLANN.ID = ARBEITSAUFTRAG_PLANN.AA_PLANN_ID AND WO_ID IN " +
                             ids + " GROUP BY ARBEITSAUFTRAG_KOPF_PLANN.NAME",
                         "DELETE FROM WALDORT " + std::string(kWhere)}));
        Lines nodes = Nodes(f);
        EXPECT_EQ(std::ranges::find(nodes, "Nord/3"), nodes.end());
        EXPECT_EQ(std::ranges::find(nodes, "Nord/3/a"), nodes.end());
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE WO1 = 'Nord' AND WO2 = '3'"), "0");
    EXPECT_EQ(s.Boxes().at(0).flags, 4);
    EXPECT_EQ(s.Boxes().at(0).title, "Korvex");
}

TEST(StandDelete, AUsedStandBlocksItsWholeSubtree)
{
    Scenario s;
    s.Execute("UPDATE LOGS SET ID_WALDORT = 18, LISTE = '2024-117' WHERE ID_LOG = 1");
    s.In("F_MessageBox", [&](Dialog& f) {
        EXPECT_EQ(f.Lines("List1"), Lines({s.Text(726) + ": 2024-117"}));
        EXPECT_EQ(f.Text("LabelPrompt", "Caption"), s.Text(202) + "  '" + s.Text(388) + "'  " + s.Text(203));
        f.Click("btnOK");
    });
    Maintain(s, [&](Dialog& f) {
        DeleteNord3(f);
        EXPECT_EQ(Selected(f), "Nord/3");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.CountStatements("DELETE FROM WALDORT"), 0);
}

TEST(StandDelete, AllKindsOfUseAreListedBeforeItRefuses)
{
    Scenario s;
    UseEverywhere(s);
    s.In("F_MessageBox", [&](Dialog& f) {
        EXPECT_EQ(f.Lines("List1"), Lines({s.Text(726) + ": 2024-117", s.Text(460) + ": Müller", s.Text(164) + ": R-77",
                                           s.Text(1178) + ": Durchforstung", s.Text(54) + ": Pflanzung"}));
        f.Click("btnOK");
    });
    Maintain(s, [&](Dialog& f) {
        DeleteNord3(f);
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE WO1 = 'Nord' AND WO2 = '3'"), "3");
}

TEST(StandDelete, ALaterRefusalListsOnlyItsOwnUses)
{
    Scenario s;
    s.Execute("UPDATE LOGS SET ID_WALDORT = 18 WHERE ID_LOG = 1");
    s.Execute("UPDATE LOGS SET ID_WALDORT = 3 WHERE ID_LOG = 2");
    s.In("F_MessageBox", [&](Dialog& f) { f.Click("btnOK"); });
    s.In("F_MessageBox", [&](Dialog& f) {
        EXPECT_EQ(f.Lines("List1"), Lines({s.Text(726) + ": 2024-102"}));
        f.Click("btnOK");
    });
    Maintain(s, [&](Dialog& f) {
        DeleteNord3(f);
        f.Select("TreeView1", {"Nord", "1", "a"});
        f.Answer(186, ui::vbYes);
        f.Click("btnLoschen");
        f.Click("btnCancel");
    });
}

TEST(StandDelete, NoKeepsTheStand)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Answer(186, ui::vbNo);
        Sent since(s);
        f.Click("btnLoschen");
        EXPECT_EQ(since.Take(), Lines());
        EXPECT_EQ(Selected(f), "Nord/3");
        f.Click("btnCancel");
    });
}

TEST(StandDelete, TheRootCannotBeDeleted)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        Tree(f).SetSelectedItem(Tree(f).FirstTop());  // by code: the button is still on
        f.Answer(187, ui::vbOK);
        f.Click("btnLoschen");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Boxes().at(0).flags, 0);
    EXPECT_EQ(s.CountStatements("DELETE"), 0);
}

TEST(StandDelete, WithNothingSelectedNothingHappens)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        Tree(f).SetSelectedItem({});
        Sent since(s);
        f.Click("btnLoschen");
        EXPECT_EQ(since.Take(), Lines());
        f.Click("btnCancel");
    });
}

TEST(StandDelete, AReferenceThatTheCheckDoesNotKnowKeepsTheNodeSilently)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Answer(186, ui::vbYes);
        s.FailStatement(6, kReferenced, "still referenced");
        f.Click("btnLoschen");
        EXPECT_TRUE(s.HasFailed());
        EXPECT_EQ(Selected(f), "Nord/3");
        EXPECT_EQ(KeyBoxes(f), "Nord|3||||");
        EXPECT_EQ(f.Text("txtName"), "Nord 3");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Boxes().size(), 1U);
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE WO1 = 'Nord' AND WO2 = '3'"), "3");
}

class StandDeleteFailure : public testing::TestWithParam<std::size_t> {};

TEST_P(StandDeleteFailure, InTheCheckIsShownAndDeletesNothing)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Answer(186, ui::vbYes);
        f.Answer("refused", ui::vbOK);
        s.FailStatement(GetParam(), kRefused, "refused");
        f.Click("btnLoschen");
        EXPECT_EQ(Selected(f), "Nord/3");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Boxes().at(1).flags, 16);
    EXPECT_EQ(s.CountStatements("DELETE FROM WALDORT"), 0);
}

INSTANTIATE_TEST_SUITE_P(EachStatement, StandDeleteFailure, testing::Values(1U, 2U, 3U, 4U, 5U));

TEST(StandDelete, ACheckThatFailsLeavesNoUsesForTheNextList)
{
    Scenario s;
    s.Execute("UPDATE LOGS SET ID_WALDORT = 18 WHERE ID_LOG = 1");
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Answer(186, ui::vbYes);
        f.Answer("refused", ui::vbOK);
        s.FailStatement(2, kRefused, "refused");
        f.Click("btnLoschen");
        f.Click("btnCancel");
    });
    EXPECT_EQ(c_Message().MessageBox_ItemCount(), 0);
}

TEST(StandDelete, TheParentOfWhatIsThenSelectedIsSelectedAndMirrored)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1", "a", "1", "x", "9"});
        f.Answer(186, ui::vbYes);
        f.Click("btnLoschen");  // the only child: the tree selects its parent, and the dialog the one above
        EXPECT_EQ(Selected(f), "Nord/1/a/1");
        EXPECT_EQ(KeyBoxes(f), "Nord|1|a|1||");
        EXPECT_TRUE(f.Enabled("btnLoschen"));
        EXPECT_TRUE(f.Enabled("btnOK"));
        f.Click("btnCancel");
    });
}

TEST(StandDelete, NothingOfTheDeletedStandStaysInTheFields)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1", "a", "1", "x", "9"});
        f.Answer(186, ui::vbYes);
        Sent since(s);
        f.Click("btnLoschen");
        const std::size_t sent = since.Take().size();
        EXPECT_EQ(sent, 6U);
        EXPECT_EQ(f.Text("txtName"), "");
        EXPECT_EQ(f.Text("txtFlaeche"), "");
        f.Focus("txtName");
        f.Focus("TreeView1");
        EXPECT_EQ(since.Take(), Lines());
        f.Click("btnCancel");
    });
}

TEST(StandDelete, AGreyParentLeavesNothingToDeleteOrEdit)
{
    Scenario s{"INSERT INTO WALDORT (WO1, WO2, WO3, ZENTRALE) VALUES ('A', NULL, NULL, NULL), ('A', '1', NULL, 1),"
               " ('A', '1', 'x', NULL)"};
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"A", "1", "x"});
        f.Answer(186, ui::vbYes);
        f.Click("btnLoschen");
        EXPECT_EQ(Selected(f), "A");
        f.Select("TreeView1", {"A", "1"});
        EXPECT_FALSE(f.Enabled("btnLoschen"));
        f.Click("btnCancel");
    });
}

TEST(StandDelete, TheLastStandLeavesTheRootSelectedAndNothingToDelete)
{
    Scenario s{"INSERT INTO WALDORT (WO1) VALUES ('A')"};
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"A"});
        f.Answer(186, ui::vbYes);
        f.Click("btnLoschen");
        EXPECT_EQ(Selected(f), "(root)");
        EXPECT_EQ(KeyBoxes(f), "|||||");
        EXPECT_FALSE(f.Enabled("btnLoschen"));
        EXPECT_FALSE(f.Enabled("btnOK"));
        f.Click("btnCancel");
    });
}

TEST(StandDelete, OracleGetsItsOwnForm)
{
    Scenario s;
    BeOracle(s);
    Maintain(s, [&](Dialog& f) {
        DeleteNord3(f);
        f.Click("btnCancel");
    });
    EXPECT_TRUE(s.WasSent("DELETE FROM WALDORT  WHERE WALDORT.ID_WALDORT IN (SELECT /*+ FIRST_ROWS */ ID_WALDORT"
                          " FROM WALDORT WHERE NVL(DISABLE,0) = 0 AND NVL(WALDORT.ID_ACCESS_LEVELS,0) = 0"
                          " AND WO1 = 'Nord' AND WO2 = '3')"));
}

}  // namespace
}  // namespace kvx::test
