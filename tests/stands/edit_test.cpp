#include "basic/Error.h"
#include "stands/StandsTest.h"

#include <algorithm>

namespace kvx::test {
namespace {

constexpr int kRefused = -2147217900;

// The one row of stand Nord/1.
constexpr std::string_view kWhere =
    " WHERE WALDORT.ID_WALDORT IN (SELECT ID_WALDORT FROM WALDORT WHERE ISNULL(DISABLE,0) = 0"
    " AND WALDORT.ID_ACCESS_LEVELS IS NULL AND WO1 = 'Nord' AND WO2 = '1' AND WO3 IS NULL AND WO4 IS NULL"
    " AND WO5 IS NULL AND WO6 IS NULL)";

/// Statements sent while the user works on stand Nord/1.
Lines EditNord1(Scenario& s, const Script& work)
{
    Lines sent;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        Sent since(s);
        work(f);
        sent = since.Take();
        f.Click("btnCancel");
    });
    return sent;
}

struct FieldCase {
    const char* name;
    const char* box;
    const char* typed;
    const char* statement;  // up to the WHERE text
    const char* column;
    const char* stored;
};

class StandField : public testing::TestWithParam<FieldCase> {};

TEST_P(StandField, SavesItselfWhenItIsLeft)
{
    const FieldCase& field = GetParam();
    Scenario s;
    const Lines sent = EditNord1(s, [&](Dialog& f) {
        f.Focus(field.box);
        f.Keys("{HOME}+{END}{DEL}");
        f.Type(field.box, field.typed);
        f.Focus("TreeView1");
    });
    EXPECT_EQ(sent, Lines({field.statement + std::string(kWhere)}));
    EXPECT_EQ(s.Value("SELECT " + std::string(field.column) + " FROM WALDORT WHERE ID_WALDORT = 2"), field.stored);
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE LANGNAME = 'Nord 1 a' AND GEMARKUNG = 'Birkenhain'"), "1");
}

INSTANTIATE_TEST_SUITE_P(
    Fields, StandField,
    testing::Values(
        FieldCase{"Name", "txtName", "Am Bach", "UPDATE WALDORT  SET LANGNAME = 'Am Bach'", "LANGNAME", "Am Bach"},
        FieldCase{"EmptyName", "txtName", "", "UPDATE WALDORT  SET LANGNAME = NULL", "LANGNAME", ""},
        FieldCase{"Species", "cmbHolzart", "DGL", "UPDATE WALDORT  SET HAUPT_HA = 'DGL'", "HAUPT_HA", "DGL"},
        FieldCase{"Area", "txtFlaeche", "7,5", "UPDATE WALDORT SET FLAECHE = 7.5000", "FLAECHE", "7,5"},
        FieldCase{"EmptyArea", "txtFlaeche", "", "UPDATE WALDORT SET FLAECHE = 0.0000", "FLAECHE", "0"},
        FieldCase{"Age", "txtAlter", "99", "UPDATE WALDORT SET AL_TER = 99.00", "AL_TER", "99"},
        FieldCase{"District", "txtGemarkung", "Grünau", "UPDATE WALDORT  SET GEMARKUNG = 'Grünau'", "GEMARKUNG",
                  "Grünau"},
        FieldCase{"EmptyDistrict", "txtGemarkung", "", "UPDATE WALDORT  SET GEMARKUNG = ''", "GEMARKUNG", ""},
        FieldCase{"Parcel", "txtFlurStuck", "7/1", "UPDATE WALDORT  SET FLURSTUECK = '7/1'", "FLURSTUECK", "7/1"},
        FieldCase{"Plot", "txtParzelle", "Z", "UPDATE WALDORT SET PARZELLE = 'Z'", "PARZELLE", "Z"}),
    [](const auto& test) { return test.param.name; });

TEST(StandFields, ASpeciesFromTheListIsSaved)
{
    Scenario s;
    const Lines sent = EditNord1(s, [](Dialog& f) {
        f.Pick("cmbHolzart", "EI");
        f.Focus("TreeView1");
    });
    EXPECT_EQ(sent, Lines({"UPDATE WALDORT  SET HAUPT_HA = 'EI'" + std::string(kWhere)}));
}

TEST(StandFields, TheEmptyItemStoresAnEmptySpecies)
{
    Scenario s;
    const Lines sent = EditNord1(s, [](Dialog& f) {
        f.Pick("cmbHolzart", 0);
        f.Focus("TreeView1");
    });
    EXPECT_EQ(sent, Lines({"UPDATE WALDORT  SET HAUPT_HA = ''" + std::string(kWhere)}));
}

TEST(StandFields, WhatIsNoNumberIsSavedAsZero)
{
    struct Case {
        const char* box;
        const char* shown;
        const char* statement;
    };
    for (const Case& one : {Case{"txtFlaeche", "0,0000", "UPDATE WALDORT SET FLAECHE = 0.0000"},
                            Case{"txtAlter", "0,00", "UPDATE WALDORT SET AL_TER = 0.00"}}) {
        Scenario s;
        const Lines sent = EditNord1(s, [&](Dialog& f) {
            s.Desktop().SetClipboardText("abc");
            f.Focus(one.box);
            dynamic_cast<ui::TextBox&>(*f.Form().FindControl(one.box)).UserPaste();
            EXPECT_EQ(f.Text(one.box), "abc");
            f.Focus("TreeView1");
            EXPECT_EQ(f.Text(one.box), one.shown);
        });
        EXPECT_EQ(sent, Lines({one.statement + std::string(kWhere)}));
    }
}

TEST(StandFields, NumberBoxesRefuseLettersAndASecondComma)
{
    Scenario s;
    EditNord1(s, [](Dialog& f) {
        f.Focus("txtFlaeche");
        f.Keys("{HOME}+{END}{DEL}");
        f.Type("txtFlaeche", "1x,2,5");
        EXPECT_EQ(f.Text("txtFlaeche"), "1,25");
        f.Focus("txtAlter");
        f.Keys("{HOME}+{END}{DEL}");
        f.Type("txtAlter", "8a,5,1");
        EXPECT_EQ(f.Text("txtAlter"), "8,51");
    });
}

TEST(StandFields, ANumberBoxIsReformattedEvenWhenNothingWasTyped)
{
    Scenario s;
    Lines sent;
    Maintain(s, [&](Dialog& f) {
        Sent since(s);
        f.Focus("txtFlaeche");  // the root is selected: the boxes are empty
        f.Focus("txtAlter");
        f.Focus("TreeView1");
        EXPECT_EQ(f.Text("txtFlaeche"), "0,0000");
        EXPECT_EQ(f.Text("txtAlter"), "0,00");
        sent = since.Take();
        f.Click("btnCancel");
    });
    EXPECT_EQ(sent, Lines());
}

TEST(StandFields, AFieldThatWasSavedIsNotSavedAgain)
{
    Scenario s;
    const Lines sent = EditNord1(s, [](Dialog& f) {
        f.Type("txtName", "x");
        f.Focus("txtGemarkung");
        f.Focus("txtName");
        f.Focus("TreeView1");
    });
    EXPECT_EQ(sent.size(), 1U);
}

TEST(StandFields, EnterSavesAndLeadsThroughTheFieldsToOk)
{
    Scenario s;
    const Lines sent = EditNord1(s, [](Dialog& f) {
        f.Type("txtName", "x");
        Lines order;
        for (int i = 0; i < 7; ++i) {
            f.Keys("{ENTER}");
            order.push_back(f.FocusedControl());
        }
        EXPECT_EQ(order, Lines({"cmbHolzart", "txtFlaeche", "txtAlter", "txtGemarkung", "txtFlurStuck", "txtParzelle",
                                "btnOK"}));
    });
    EXPECT_EQ(sent, Lines({"UPDATE WALDORT  SET LANGNAME = 'x'" + std::string(kWhere)}));
}

TEST(StandFields, ABoxIsMarkedWholeWhenItGetsTheFocus)
{
    Scenario s;
    EditNord1(s, [](Dialog& f) {
        for (const char* box : {"txtName", "txtFlaeche", "txtGemarkung", "txtWO1"}) {
            f.Focus(box);
            EXPECT_EQ(f.Text(box, "SelText"), f.Text(box)) << box;
        }
    });
}

TEST(StandFields, TheKeyBoxesCannotBeTypedInto)
{
    Scenario s;
    EditNord1(s, [](Dialog& f) {
        f.Type("txtWO1", "x");
        EXPECT_EQ(f.Text("txtWO1"), "Nord");
    });
}

TEST(StandFields, AnApostropheIsShownAsTheProvidersErrorAndNothingTypedIsLost)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        s.Answer("*", ui::vbOK);
        f.Type("txtName", "d'Or");
        f.Focus("txtGemarkung");
        EXPECT_EQ(f.Text("txtName"), "d'Or");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Boxes().at(0).flags, 16);
    EXPECT_EQ(s.Value("SELECT LANGNAME FROM WALDORT WHERE ID_WALDORT = 2"), "Nord 1");
}

TEST(StandFields, AFailedSaveIsTriedAgainWhenTheFieldIsLeftAgain)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        s.FailStatement(1, kRefused, "refused");
        s.Answer("refused", ui::vbOK);
        f.Type("txtName", "x");
        f.Focus("txtGemarkung");
        f.Focus("txtName");
        f.Focus("txtGemarkung");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT LANGNAME FROM WALDORT WHERE ID_WALDORT = 2"), "x");
}

TEST(StandFields, WithTheRootSelectedNoRowIsHit)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        Sent since(s);
        f.Type("txtName", "x");
        f.Focus("TreeView1");
        EXPECT_EQ(since.Take(),
                  Lines({"UPDATE WALDORT  SET LANGNAME = 'x' WHERE WALDORT.ID_WALDORT IN (SELECT ID_WALDORT FROM"
                         " WALDORT WHERE ISNULL(DISABLE,0) = 0 AND WALDORT.ID_ACCESS_LEVELS IS NULL AND WO1 = ''"
                         " AND WO2 IS NULL AND WO3 IS NULL AND WO4 IS NULL AND WO5 IS NULL AND WO6 IS NULL)"}));
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE LANGNAME = 'x'"), "0");
}

// --- which rows a change touches, by dialect and client ---

struct WhereCase {
    const char* name;
    bool oracle;
    const char* client;
    std::int32_t level;
    bool wholeList;  // the count before a rename; else the disabling of a subtree
    const char* where;
};

class StandWhere : public testing::TestWithParam<WhereCase> {};

TEST_P(StandWhere, IsWrittenToTheByte)
{
    const WhereCase& test = GetParam();
    Scenario s;
    s.kvxvar().g_Client = test.client;
    s.kvxvar().ID_ACCESS_LEVELS = test.level;
    s.ID_AL = test.level;
    if (test.oracle) BeOracle(s);
    Lines sent;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        Sent since(s);
        if (test.wholeList)
            Rename(f, "neu");
        else
            f.Click("chkDisable");
        sent = since.Take();
        f.Click("btnCancel");
    });
    const std::string head = test.wholeList ? "SELECT COUNT(*) FROM WALDORT" : "UPDATE WALDORT SET DISABLE = 1";
    const std::string two = test.wholeList ? "neu" : "1";
    const std::string select = test.oracle ? "SELECT /*+ FIRST_ROWS */ ID_WALDORT" : "SELECT ID_WALDORT";
    const std::string expected = head + " WHERE WALDORT.ID_WALDORT IN (" + select + " FROM WALDORT" + test.where +
                                 " AND WO1 = 'Nord' AND WO2 = '" + two + "')";
    EXPECT_NE(std::ranges::find(sent, expected), sent.end()) << expected << "\n" << testing::PrintToString(sent);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, StandWhere,
    testing::Values(
        WhereCase{"Oracle", true, "", 1, false,
                  " WHERE NVL(DISABLE,0) = 0 AND NVL(WALDORT.ID_ACCESS_LEVELS,0) IN (0,1)"},
        WhereCase{"OracleListIsNoMatterOfOthers", true, "SACHSEN", 1, true,
                  " WHERE NVL(DISABLE,0) = 0 AND NVL(WALDORT.ID_ACCESS_LEVELS,0) IN (0,1)"},
        WhereCase{"OracleBBList", true, "BB", 1, true,
                  " WHERE NVL(DISABLE,0) = 0 AND NVL(ID_ACCESS_LEVELS,0) IN (1,2,3)"},
        WhereCase{"OracleBBListWithoutLevel", true, "BB", 0, true,
                  " WHERE NVL(DISABLE,0) = 0 AND NVL(ID_ACCESS_LEVELS,0) = 0"},
        WhereCase{"OracleBB", true, "BB", 1, false, " WHERE NVL(DISABLE,0) = 0 AND NVL(ID_ACCESS_LEVELS,0) = 1"},
        WhereCase{"OracleBBWithoutLevel", true, "BB", 0, false,
                  " WHERE NVL(DISABLE,0) = 0 AND NVL(ID_ACCESS_LEVELS,0) = 0"},
        WhereCase{"SqlServer", false, "", 0, false,
                  " WHERE ISNULL(DISABLE,0) = 0 AND WALDORT.ID_ACCESS_LEVELS IS NULL"},
        WhereCase{"SqlServerLevel", false, "", 1, true,
                  " WHERE ISNULL(DISABLE,0) = 0 AND (WALDORT.ID_ACCESS_LEVELS IS NULL"
                  " OR WALDORT.ID_ACCESS_LEVELS = 1)"},
        WhereCase{"SqlServerBBList", false, "BB", 1, true,
                  " WHERE ISNULL(DISABLE,0) = 0 AND ID_ACCESS_LEVELS IN (1,2,3)"},
        WhereCase{"SqlServerBBListWithoutLevel", false, "BB", 0, true,
                  " WHERE ISNULL(DISABLE,0) = 0 AND ID_ACCESS_LEVELS IS NULL"},
        WhereCase{"SqlServerBB", false, "BB", 1, false, " WHERE ISNULL(DISABLE,0) = 0 AND ID_ACCESS_LEVELS = 1"},
        WhereCase{"SqlServerBBWithoutLevel", false, "BB", 0, false,
                  " WHERE ISNULL(DISABLE,0) = 0 AND ID_ACCESS_LEVELS IS NULL"}),
    [](const auto& test) { return test.param.name; });

// --- disabling ---

TEST(StandDisable, DisablesTheWholeSubtreeAndTheNodesStay)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord"});
        Sent since(s);
        f.Click("chkDisable");
        EXPECT_EQ(since.Take(),
                  Lines({"UPDATE WALDORT SET DISABLE = 1 WHERE WALDORT.ID_WALDORT IN (SELECT ID_WALDORT FROM WALDORT"
                         " WHERE ISNULL(DISABLE,0) = 0 AND WALDORT.ID_ACCESS_LEVELS IS NULL AND WO1 = 'Nord')"}));
        EXPECT_EQ(NodeKey(f, {"Nord", "1", "a"}), "K|Nord|1|a");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE WO1 = 'Nord' AND ISNULL(DISABLE,0) = 0"), "0");
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE WO1 = 'Süd' AND ISNULL(DISABLE,0) = 0"), "4");
}

TEST(StandDisable, CannotBeTakenBack)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Click("chkDisable");
        f.Click("chkDisable");
        EXPECT_EQ(f.Text("chkDisable", "Value"), "0");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.CountStatements("UPDATE WALDORT SET DISABLE = 0 WHERE"), 1);
    EXPECT_EQ(s.Value("SELECT DISABLE FROM WALDORT WHERE ID_WALDORT = 17"), "1");
}

TEST(StandDisable, ShowingAStandWritesNothing)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        f.Click("chkDisable");
        f.Select("TreeView1", {"Nord", "1"});
        EXPECT_EQ(f.Text("chkDisable", "Value"), "0");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.CountStatements("UPDATE WALDORT SET DISABLE"), 1);
}

TEST(StandDisable, DoesNothingOnTheRoot)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Click("chkDisable");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.CountStatements("UPDATE WALDORT SET DISABLE"), 0);
}

TEST(StandDisable, ADisabledNodeThatIsClickedGetsANewRow)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3", "a"});
        f.Click("chkDisable");
        f.Select("TreeView1", {"Nord"});
        f.Select("TreeView1", {"Nord", "3", "a"});
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE WO1 = 'Nord' AND WO2 = '3' AND WO3 = 'a'"
                      " AND ISNULL(DISABLE,0) = 0"),
              "1");
}

TEST(StandDisable, AFailureIsShownAndDisablesNothing)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "3"});
        s.FailStatement(1, kRefused, "refused");
        s.Answer("refused", ui::vbOK);
        f.Click("chkDisable");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE DISABLE = 1"), "1");
}

}  // namespace
}  // namespace kvx::test
