#include "basic/Error.h"
#include "stands/StandsTest.h"

#include <algorithm>

namespace kvx::test {
namespace {

constexpr int kRefused = -2147217900;

constexpr std::string_view kRows = " WHERE WALDORT.ID_WALDORT IN (SELECT ID_WALDORT FROM WALDORT WHERE"
                                   " ISNULL(DISABLE,0) = 0 AND WALDORT.ID_ACCESS_LEVELS IS NULL";

std::string Subtree(std::string_view levels)
{
    return std::string(kRows) + std::string(levels) + ")";
}

std::string NewId(Scenario& s)
{
    return s.Value("SELECT MAX(ID_WALDORT) FROM WALDORT");
}

void AllowOnly(Scenario& s, std::string_view level, std::string_view text)
{
    s.Execute("INSERT INTO T_WALDORT (ID, WONR, SHORT, LONG) SELECT ISNULL((SELECT MAX(ID) FROM T_WALDORT),0)+1, " +
              std::string(level) + ", '" + std::string(text) + "', 'lang'");
}

bool Has(Dialog& f, std::string_view node)
{
    const Lines nodes = Nodes(f);
    return std::ranges::find(nodes, node) != nodes.end();
}

// --- renaming ---

TEST(StandRename, RenamesTheLevelInTheWholeSubtreeWithOneStatement)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        Sent since(s);
        Rename(f, "33");
        EXPECT_EQ(since.Take(), Lines({"SELECT TOP 1 ID FROM T_WALDORT WHERE WONR = 2",
                                       "SELECT COUNT(*) FROM WALDORT" + Subtree(" AND WO1 = 'Nord' AND WO2 = '33'"),
                                       "UPDATE WALDORT  SET WO2 = '33'" + Subtree(" AND WO1 = 'Nord' AND WO2 = '3'")}));
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE WO1 = 'Nord' AND WO2 = '33'"), "3");
    EXPECT_EQ(s.Value("SELECT LANGNAME FROM WALDORT WHERE ID_WALDORT = 17"), "Nord 3");
}

TEST(StandRename, KeepsTheSubtreeUnderItsNewName)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        Rename(f, "33");
        EXPECT_EQ(KeyBoxes(f), "Nord|33||||");
        EXPECT_EQ(NodeKey(f, {"Nord", "33", "a"}), "K|Nord|33|a");
        const std::string rows = s.Value("SELECT COUNT(*) FROM WALDORT");
        f.Select("TreeView1", {"Nord", "33", "a"});
        EXPECT_EQ(f.Text("txtName"), "Nord 3 a");
        EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT"), rows);
        f.Click("btnCancel");
    });
}

TEST(StandRename, OracleGetsItsOwnForms)
{
    Scenario s;
    BeOracle(s);
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        Sent since(s);
        Rename(f, "N");
        const std::string rows = " WHERE WALDORT.ID_WALDORT IN (SELECT /*+ FIRST_ROWS */ ID_WALDORT FROM WALDORT"
                                 " WHERE NVL(DISABLE,0) = 0 AND NVL(WALDORT.ID_ACCESS_LEVELS,0) = 0";
        EXPECT_EQ(since.Take(), Lines({"SELECT ID FROM T_WALDORT WHERE rownum=1 AND WONR = 1",
                                       "SELECT COUNT(*) FROM WALDORT" + rows + " AND WO1 = 'N')",
                                       "UPDATE WALDORT  SET WO1 = 'N'" + rows + " AND WO1 = 'Nord')"}));
        f.Click("btnCancel");
    });
}

// A rename in client BB at level 1, up to what both statements ask of a row's level.
void ExpectRenameInBB(Scenario& s, const std::string& rows)
{
    s.kvxvar().g_Client = "BB";
    s.kvxvar().ID_ACCESS_LEVELS = 1;
    s.ID_AL = 1;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Süd", "1"});
        Sent since(s);
        Rename(f, "11");
        Lines sent = since.Take();
        ASSERT_GE(sent.size(), 2U);
        sent.erase(sent.begin(), sent.end() - 2);  // whether the level is restricted, and the levels below
        EXPECT_EQ(sent, Lines({"SELECT COUNT(*) FROM WALDORT" + rows + " IN (1,2,3) AND WO1 = 'Süd' AND WO2 = '11')",
                               "UPDATE WALDORT  SET WO2 = '11'" + rows + " = 1 AND WO1 = 'Süd' AND WO2 = '1')"}));
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT WO2 FROM WALDORT WHERE ID_WALDORT = 11"), "11");
}

TEST(StandRename, ClientBBCountsInTheLevelsBelowAndRenamesInItsOwn)
{
    Scenario s;
    ExpectRenameInBB(s, " WHERE WALDORT.ID_WALDORT IN (SELECT ID_WALDORT FROM WALDORT WHERE ISNULL(DISABLE,0) = 0"
                        " AND ID_ACCESS_LEVELS");
}

TEST(StandRename, ClientBBDoesSoInOraclesFormToo)
{
    Scenario s;
    BeOracle(s);
    ExpectRenameInBB(s, " WHERE WALDORT.ID_WALDORT IN (SELECT /*+ FIRST_ROWS */ ID_WALDORT FROM WALDORT WHERE"
                        " NVL(DISABLE,0) = 0 AND NVL(ID_ACCESS_LEVELS,0)");
}

TEST(StandRename, TheTextIsCutAsTheClientsKeysAre)
{
    Scenario s;
    s.kvxvar().g_Client = "SACHSEN";
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        Rename(f, "Müritzer Land");
        EXPECT_EQ(NodeKey(f, {"Müritz"}), "K|Müritz");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT WO1 FROM WALDORT WHERE ID_WALDORT = 1"), "Müritz");
}

TEST(StandRename, BlanksBehindTheTextAreNoPartOfTheName)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        Rename(f, " N  ");
        EXPECT_EQ(NodeKey(f, {" N"}), "K| N");
        f.Click("btnCancel");
    });
    EXPECT_TRUE(s.WasSent("UPDATE WALDORT  SET WO1 = ' N'" + Subtree(" AND WO1 = 'Nord'")));
}

TEST(StandRename, ASiblingsNameIsRefusedAndTheEditGoesOn)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Answer(188, ui::vbOK);
        Rename(f, "1");
        EXPECT_TRUE(Tree(f).IsEditing());
        EXPECT_EQ(Tree(f).EditText(), "3");
        EXPECT_EQ(Tree(f).EditSelLength(), 1);
        EXPECT_EQ(KeyBoxes(f), "Nord|3||||");
        f.Keys("{ESC}");
        EXPECT_EQ(NodeKey(f, {"Nord", "3"}), "K|Nord|3");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.CountStatements("UPDATE WALDORT"), 2);  // the first load's parents of Ost/5/c
    EXPECT_EQ(s.Boxes().at(0).flags, 0);
}

TEST(StandRename, AfterARefusalTheNextNameRenamesTheRightRows)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Answer(188, ui::vbOK);
        Rename(f, "1");
        Rename(f, "4");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT WO2 FROM WALDORT WHERE ID_WALDORT = 17"), "4");
    EXPECT_EQ(s.Value("SELECT WO2 FROM WALDORT WHERE ID_WALDORT = 2"), "1");
}

TEST(StandRename, TheUnchangedTextCountsItsOwnRow)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Answer(188, ui::vbOK);
        Rename(f, "3");
        EXPECT_TRUE(Tree(f).IsEditing());
        f.Keys("{ESC}");
        f.Click("btnCancel");
    });
}

TEST(StandRename, ARefusedNameIsGivenUpByAClickElsewhere)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Focus("TreeView1");
        f.Keys("{F2}1");
        f.Answer(188, ui::vbOK);
        f.Select("TreeView1", {"Süd"});
        EXPECT_FALSE(Tree(f).IsEditing());
        EXPECT_EQ(KeyBoxes(f), "Süd|||||");
        EXPECT_TRUE(Has(f, "Nord/3"));
        f.Click("btnCancel");
    });
}

TEST(StandRename, ARefusedNameIsGivenUpByOk)
{
    Scenario s;
    std::string strWO;
    s.In("F_Waldort", [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Keys("{F2}1");
        f.Answer(188, ui::vbOK);
        f.Click("btnOK");
    });
    EXPECT_EQ(c_Waldort().WaldortId(s.kvxvar(), strWO, 0, 0, nullptr), 17);
    EXPECT_EQ(strWO, "Nord/ 3: Nord 3");
}

TEST(StandRename, ANameStillBeingTypedIsTakenByOk)
{
    Scenario s;
    std::string strWO;
    s.In("F_Waldort", [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Keys("{F2}33");
        f.Click("btnOK");
    });
    EXPECT_EQ(c_Waldort().WaldortId(s.kvxvar(), strWO, 0, 0, nullptr), 17);
    EXPECT_EQ(strWO, "Nord/ 33: Nord 3");
}

TEST(StandRename, DeletingAStandWhoseNewNameIsRefusedDeletesTheOldOne)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Keys("{F2}1");
        f.Answer(188, ui::vbOK);
        f.Answer(186, ui::vbYes);
        f.Click("btnLoschen");
        EXPECT_FALSE(Has(f, "Nord/3"));
        EXPECT_FALSE(Tree(f).IsEditing());
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE WO1 = 'Nord' AND WO2 = '1'"), "6");
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE WO1 = 'Nord' AND WO2 = '3'"), "0");
}

TEST(StandRename, AnEmptyTextRemovesTheNodeAndTouchesNoRow)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        Sent since(s);
        Rename(f, "  ");
        EXPECT_EQ(since.Take(), Lines());
        EXPECT_FALSE(Has(f, "Nord/3"));
        EXPECT_EQ(KeyBoxes(f), Selected(f) == "Nord" ? "Nord|||||" : "Nord|2||||");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE WO2 = '3'"), "3");
}

TEST(StandRename, AGreyNodeCannotBeRenamed)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "2"});
        Tree(f).UserStartEdit();
        EXPECT_FALSE(Tree(f).IsEditing());
        f.Click("btnCancel");
    });
}

TEST(StandRename, TheRootIsCountedAgainstTheWholeTableAndNeverWritten)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {});
        f.Answer(188, ui::vbOK);
        Sent since(s);
        Rename(f, "Wald");
        EXPECT_EQ(since.Take(),
                  Lines({"SELECT TOP 1 ID FROM T_WALDORT WHERE WONR = 0", "SELECT COUNT(*) FROM WALDORT"}));
        f.Keys("{ESC}");
        EXPECT_EQ(Tree(f).FirstTop().Text(), s.Text(190));
        f.Click("btnCancel");
    });
}

TEST(StandRename, TheRootKeepsItsNameOverAnEmptyTableToo)
{
    Scenario s{"DELETE FROM WALDORT"};
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {});
        Rename(f, "Wald");
        EXPECT_FALSE(Tree(f).IsEditing());
        EXPECT_EQ(Tree(f).FirstTop().Text(), s.Text(190));
        EXPECT_EQ(Tree(f).FirstTop().Key(), "ROOT");
        Rename(f, " ");
        EXPECT_EQ(Tree(f).Count(), 1);
        f.Click("btnCancel");
    });
}

TEST(StandRename, ANameThatOnlyTheTreeKnowsIsAnErrorBeforeAnythingIsWritten)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        f.Click("chkDisable");  // the rows are hidden, the node stays
        f.Select("TreeView1", {"Nord", "3"});
        f.Answer("*", ui::vbOK);
        Sent since(s);
        Rename(f, "1");
        EXPECT_EQ(since.Take().size(), 2U);
        EXPECT_EQ(NodeKey(f, {"Nord", "3"}), "K|Nord|3");
        EXPECT_EQ(KeyBoxes(f), "Nord|3||||");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Boxes().at(0).flags, 16);
}

class StandRenameFailure : public testing::TestWithParam<std::size_t> {};

TEST_P(StandRenameFailure, LeavesNodeKeyAndRowsUnderTheOldName)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Answer("refused", ui::vbOK);
        s.FailStatement(GetParam(), kRefused, "refused");
        Rename(f, "33");
        EXPECT_TRUE(s.HasFailed());
        EXPECT_FALSE(Tree(f).IsEditing());
        EXPECT_EQ(NodeKey(f, {"Nord", "3", "a"}), "K|Nord|3|a");
        EXPECT_EQ(KeyBoxes(f), "Nord|3||||");
        Rename(f, "34");  // the dialog stays usable
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Boxes().at(0).flags, 16);
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE WO2 = '34'"), "3");
}

INSTANTIATE_TEST_SUITE_P(EachStatement, StandRenameFailure, testing::Values(1U, 2U, 3U));

// --- allowed values ---

TEST(StandAllowedValues, AnAllowedTextIsAccepted)
{
    Scenario s;
    AllowOnly(s, "2", "33");
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        Sent since(s);
        Rename(f, "33");
        const Lines sent = since.Take();
        EXPECT_EQ(sent.at(1), "SELECT ID FROM T_WALDORT WHERE WONR = 2 AND SHORT = '33'");
        EXPECT_TRUE(Has(f, "Nord/33"));
        f.Click("btnCancel");
    });
}

TEST(StandAllowedValues, AnotherTextGoesToThePickerWhoseValueReplacesIt)
{
    Scenario s;
    AllowOnly(s, "2", "33");
    AllowOnly(s, "2", "34");
    s.In("F_Picker", [](Dialog& f) {
        f.PickRow("ListView1", 2);
        f.Click("btnOK");
    });
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Answer(223, ui::vbOK);
        Rename(f, "99");
        EXPECT_TRUE(Has(f, "Nord/34"));
        EXPECT_FALSE(Has(f, "Nord/3"));
        EXPECT_EQ(KeyBoxes(f), "Nord|34||||");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT WO2 FROM WALDORT WHERE ID_WALDORT = 17"), "34");
    EXPECT_EQ(s.CountStatements("SELECT SHORT,LONG FROM T_WALDORT WHERE WONR = 2"), 1);
    EXPECT_EQ(s.Boxes().at(0).flags, 0);
}

TEST(StandAllowedValues, BlanksBehindAPickedValueAreNoPartOfTheName)
{
    Scenario s;
    AllowOnly(s, "2", "33  ");
    s.In("F_Picker", [](Dialog& f) { f.Click("btnOK"); });
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Answer(223, ui::vbOK);
        Rename(f, "99");
        EXPECT_EQ(NodeKey(f, {"Nord", "33"}), "K|Nord|33");
        EXPECT_EQ(KeyBoxes(f), "Nord|33||||");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT WO2 FROM WALDORT WHERE ID_WALDORT = 17"), "33");
}

TEST(StandAllowedValues, APickedNameThatASiblingHasIsRefusedAndTheEditGoesOnWithTheOldLabel)
{
    Scenario s;
    AllowOnly(s, "2", "1");
    s.In("F_Picker", [](Dialog& f) { f.Click("btnOK"); });
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        f.Click("btnNeuerWO");
        f.Answer(223, ui::vbOK);
        f.Answer(188, ui::vbOK);
        f.Keys("x{ENTER}");
        EXPECT_TRUE(Tree(f).IsEditing());
        EXPECT_EQ(Tree(f).EditText(), s.Text(1321));
        EXPECT_EQ(KeyBoxes(f), "Nord|Neu||||");
        f.Keys("{ESC}");
        EXPECT_TRUE(Has(f, "Nord/Neu"));
        f.Click("btnCancel");
    });
}

TEST(StandAllowedValues, NothingPickedGoesOnEditingTheTypedText)
{
    Scenario s;
    AllowOnly(s, "2", "33");
    s.In("F_Picker", [](Dialog& f) { f.Click("btnCancel"); });
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Answer(223, ui::vbOK);
        Rename(f, "99");
        EXPECT_TRUE(Tree(f).IsEditing());
        EXPECT_EQ(Tree(f).EditText(), "99");
        EXPECT_EQ(Tree(f).EditSelLength(), 2);
        f.Keys("{ESC}");
        EXPECT_EQ(NodeKey(f, {"Nord", "3"}), "K|Nord|3");
        EXPECT_EQ(KeyBoxes(f), "Nord|3||||");
        f.Click("btnCancel");
    });
}

TEST(StandAllowedValues, TheNodeShowsTheTypedTextWhileTheUserPicks)
{
    Scenario s;
    AllowOnly(s, "2", "33");
    ui::Node node;
    s.In("F_Picker", [&](Dialog& f) {
        EXPECT_EQ(node.Text(), "99");
        f.Click("btnCancel");
    });
    Maintain(s, [&](Dialog& f) {
        node = f.FindNode("TreeView1", {"Nord", "3"});
        f.Select("TreeView1", {"Nord", "3"});
        f.Answer(223, ui::vbOK);
        Rename(f, "99");
        f.Keys("{ESC}");
        f.Click("btnCancel");
    });
}

TEST(StandAllowedValues, ALevelWithoutValuesIsFree)
{
    Scenario s;
    AllowOnly(s, "1", "Nord");
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        Rename(f, "99");
        EXPECT_TRUE(Has(f, "Nord/99"));
        f.Click("btnCancel");
    });
}

class StandPickFailure : public testing::TestWithParam<std::size_t> {};

TEST_P(StandPickFailure, LeavesTheOldName)
{
    Scenario s;
    AllowOnly(s, "2", "33");
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        if (GetParam() > 2) f.Answer(223, ui::vbOK);
        f.Answer("refused", ui::vbOK);
        s.FailStatement(GetParam(), kRefused, "refused");
        Rename(f, "99");
        EXPECT_TRUE(s.HasFailed());
        EXPECT_EQ(NodeKey(f, {"Nord", "3"}), "K|Nord|3");
        f.Click("btnCancel");
    });
}

// Whether the level is restricted, whether it has the text, the picker's rows.
INSTANTIATE_TEST_SUITE_P(EachStatement, StandPickFailure, testing::Values(1U, 2U, 3U));

// --- new stands ---

TEST(NewStand, OpensTheEditWithTheOfferedNameFullyMarked)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        Sent since(s);
        f.Click("btnNeuerWO");
        EXPECT_TRUE(Tree(f).IsEditing());
        EXPECT_EQ(Tree(f).EditText(), s.Text(1321));
        EXPECT_EQ(Tree(f).EditSelLength(), 3);
        EXPECT_EQ(f.Text("txtName"), "Nord Neu");
        EXPECT_EQ(NodeKey(f, {"Nord", "Neu"}), "K|Nord|Neu");
        EXPECT_EQ(since.Take(), Lines());
        f.Keys("{ESC}");
        f.Click("btnCancel");
    });
}

TEST(NewStand, TheNameCanBeTypedAtOnce)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        f.Click("btnNeuerWO");
        EXPECT_EQ(f.FocusedControl(), "TreeView1");
        f.Keys("z{ENTER}");
        EXPECT_TRUE(Has(f, "Nord/z"));
        f.Click("btnCancel");
    });
}

TEST(NewStand, ANameRefusedOnLeavingTheTreeBringsTheFocusBack)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        f.Click("btnNeuerWO");
        f.Keys("1");
        f.Answer(188, ui::vbOK);
        f.Focus("txtParzelle");
        EXPECT_EQ(f.FocusedControl(), "TreeView1");
        f.Keys("z{ENTER}");
        EXPECT_TRUE(Has(f, "Nord/z"));
        f.Click("btnCancel");
    });
}

TEST(NewStand, UnderTheRootTheKeyBeginsWithK)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Click("btnNeuerWO");
        EXPECT_EQ(NodeKey(f, {"Neu"}), "K|Neu");
        EXPECT_EQ(f.Text("txtName"), "Neu");
        f.Keys("{ESC}");
        f.Click("btnCancel");
    });
}

TEST(NewStand, ANameMakesTheRow)
{
    Scenario s;
    s.ID_AL = 1;
    s.kvxvar().ID_ACCESS_LEVELS = 1;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        f.Click("btnNeuerWO");
        Sent since(s);
        Rename(f, "z");
        const Lines sent = since.Take();
        ASSERT_EQ(sent.size(), 10U);
        EXPECT_EQ(sent[0], "SELECT TOP 1 ID FROM T_WALDORT WHERE WONR = 3");
        EXPECT_EQ(sent[1], "SELECT COUNT(*) FROM WALDORT WHERE WALDORT.ID_WALDORT IN (SELECT ID_WALDORT FROM WALDORT"
                           " WHERE ISNULL(DISABLE,0) = 0 AND (WALDORT.ID_ACCESS_LEVELS IS NULL"
                           " OR WALDORT.ID_ACCESS_LEVELS = 1) AND WO1 = 'Nord' AND WO2 = '1' AND WO3 = 'z')");
        EXPECT_EQ(sent[8], "kvx_WALDORT_INS");
        EXPECT_EQ(sent[9], "UPDATE WALDORT SET ID_ACCESS_LEVELS = 1,FLAECHE = 0,AL_TER = 0,LANGNAME = 'Nord 1 z',"
                           "WO1 = 'Nord',WO2 = '1',WO3 = 'z' WHERE ID_WALDORT = " +
                               NewId(s));
        EXPECT_TRUE(Has(f, "Nord/1/z"));
        EXPECT_EQ(f.Text("txtFlaeche"), "0,0000");
        EXPECT_EQ(f.Text("txtAlter"), "0,00");
        EXPECT_EQ(f.Text("txtGemarkung"), "");
        EXPECT_EQ(f.Text("cmbHolzart", "ListIndex"), "-1");
        f.Click("btnCancel");
    });
}

TEST(NewStand, UnderTheRootItsNameIsItsLongName)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Click("btnNeuerWO");
        Rename(f, "Mitte");
        f.Click("btnCancel");
    });
    EXPECT_TRUE(s.WasSent("UPDATE WALDORT SET ID_ACCESS_LEVELS = NULL,FLAECHE = 0,AL_TER = 0,LANGNAME = 'Mitte',"
                          "WO1 = 'Mitte' WHERE ID_WALDORT = " +
                          NewId(s)));
}

TEST(NewStand, TheOfferedNameItselfMayBeAccepted)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        f.Click("btnNeuerWO");
        f.Keys("{ENTER}");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE WO1 = 'Nord' AND WO2 = 'Neu'"), "1");
}

TEST(NewStand, TabbingThroughAfterItsCreationWritesNothing)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        f.Click("btnNeuerWO");
        Rename(f, "z");
        Sent since(s);
        for (const char* box : {"txtName", "txtFlaeche", "txtAlter", "txtParzelle"})
            f.Focus(box);
        f.Focus("TreeView1");
        EXPECT_EQ(since.Take(), Lines());
        f.Click("btnCancel");
    });
}

TEST(NewStand, OnTheDeepestLevelTheButtonGoesOff)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1", "a", "1", "x"});
        f.Click("btnNeuerWO");
        Rename(f, "10");
        EXPECT_FALSE(f.Enabled("btnNeuerWO"));
        f.Click("btnCancel");
    });
}

TEST(NewStand, BelowTheDeepestLevelInUseNothingHappens)
{
    Scenario s;
    s.Execute("UPDATE OPTIONEN SET NUMBER_VALUE = 2 WHERE PROPERTY_ID = 'WALDORTLEVEL'");
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        f.Click("btnNeuerWO");
        Rename(f, "z");
        f.Click("btnNeuerWO");  // still on, but the node is at the last level
        EXPECT_FALSE(Tree(f).IsEditing());
        EXPECT_EQ(Selected(f), "Nord/z");
        f.Click("btnCancel");
    });
}

TEST(NewStand, AnEmptyNameRemovesTheNodeAndNoRowExists)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        const std::string rows = s.Value("SELECT COUNT(*) FROM WALDORT");
        f.Click("btnNeuerWO");
        Rename(f, "");
        EXPECT_FALSE(Has(f, "Nord/3/Neu"));
        EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT"), rows);
        f.Click("btnCancel");
    });
}

TEST(NewStand, BlanksWithLettersBehindTheKeysLengthAreAnEmptyNameToo)
{
    Scenario s;
    s.kvxvar().g_Client = "SACHSEN";
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        const std::string rows = s.Value("SELECT COUNT(*) FROM WALDORT");
        const Lines nodes = Nodes(f);
        f.Click("btnNeuerWO");
        Rename(f, "      x");
        EXPECT_EQ(Nodes(f), nodes);
        EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT"), rows);
        f.Click("btnCancel");
    });
}

TEST(NewStand, EscLeavesTheNodeUnnamedWithoutARow)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        const std::string rows = s.Value("SELECT COUNT(*) FROM WALDORT");
        f.Click("btnNeuerWO");
        f.Keys("{ESC}");
        EXPECT_EQ(NodeKey(f, {"Nord", "3", "Neu"}), "K|Nord|3|Neu");
        EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT"), rows);
        f.Click("btnCancel");
    });
}

TEST(NewStand, DeletingTheUnnamedNodeTouchesNoOtherStand)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        const std::string rows = s.Value("SELECT COUNT(*) FROM WALDORT");
        f.Click("btnNeuerWO");
        f.Keys("{ESC}");
        f.Answer(186, ui::vbYes);
        f.Click("btnLoschen");
        EXPECT_FALSE(Has(f, "Nord/3/Neu"));
        EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT"), rows);
        f.Click("btnCancel");
    });
}

TEST(NewStand, ARenameAfterEscMakesNoStand)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Click("btnNeuerWO");
        f.Keys("{ESC}");
        f.Select("TreeView1", {"Nord", "1"});
        Sent since(s);
        Rename(f, "11");
        const Lines sent = since.Take();
        EXPECT_EQ(std::ranges::find(sent, "kvx_WALDORT_INS"), sent.end());
        EXPECT_EQ(s.Value("SELECT WO2 FROM WALDORT WHERE ID_WALDORT = 2"), "11");
        f.Click("btnCancel");
    });
}

TEST(NewStand, ASiblingsNameIsRefusedAndTheNextOneMakesTheStand)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        f.Click("btnNeuerWO");
        f.Answer(188, ui::vbOK);
        Rename(f, "1");
        EXPECT_EQ(Tree(f).EditText(), s.Text(1321));
        Rename(f, "7");
        EXPECT_TRUE(Has(f, "Nord/7"));
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT LANGNAME FROM WALDORT WHERE WO1 = 'Nord' AND WO2 = '7'"), "Nord 7");
}

TEST(NewStand, ASecondUnnamedNodeIsNotAddedAndSpoilsNoRename)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        f.Click("btnNeuerWO");
        f.Keys("{ESC}");
        f.Select("TreeView1", {"Nord"});
        f.Click("btnNeuerWO");
        EXPECT_FALSE(Tree(f).IsEditing());
        Rename(f, "N");
        EXPECT_TRUE(Has(f, "N/Neu"));
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT WO1 FROM WALDORT WHERE ID_WALDORT = 1"), "N");
    EXPECT_TRUE(s.Boxes().empty());
}

TEST(NewStand, ValuesAreCutToTheColumns)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Click("btnNeuerWO");
        Sent since(s);
        Rename(f, "M");
        Lines sent = since.Take();
        for (int level = 1; level <= 6; ++level) {
            const std::string column = "WO" + std::to_string(level);
            EXPECT_EQ(std::ranges::count_if(sent,
                                            [&](const std::string& text) {
                                                return text.starts_with("SELECT " + column + " FROM WALDORT");
                                            }),
                      1)
                << column;
        }
        f.Click("btnCancel");
    });
}

class NewStandFailure : public testing::TestWithParam<std::size_t> {};

TEST_P(NewStandFailure, ShowsTheErrorAndLeavesTheNodeUnnamed)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        f.Click("btnNeuerWO");
        const int rows = std::stoi(s.Value("SELECT COUNT(*) FROM WALDORT"));
        f.Answer("refused", ui::vbOK);
        s.FailStatement(GetParam(), kRefused, "refused");
        Rename(f, "7");
        EXPECT_TRUE(s.HasFailed());
        EXPECT_EQ(NodeKey(f, {"Nord", "Neu"}), "K|Nord|Neu");
        EXPECT_EQ(KeyBoxes(f), "Nord|Neu||||");
        // The last statement names the row: what the procedure made stays behind, empty.
        EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT"), std::to_string(rows + (GetParam() == 10 ? 1 : 0)));
        f.Select("TreeView1", {"Nord", "1"});
        Rename(f, "11");  // a rename, not another creation
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT WO2 FROM WALDORT WHERE ID_WALDORT = 2"), "11");
}

// Allowed values, the count, six column lengths, the procedure, its key.
INSTANTIATE_TEST_SUITE_P(EachStatement, NewStandFailure, testing::Values(1U, 2U, 3U, 8U, 9U, 10U));

}  // namespace
}  // namespace kvx::test
