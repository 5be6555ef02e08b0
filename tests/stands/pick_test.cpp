#include "basic/Error.h"
#include "common/FormInstance.h"
#include "stands/F_Waldort.h"
#include "stands/StandsTest.h"

#include <algorithm>

namespace kvx::test {
namespace {

constexpr int kRefused = -2147217900;

/// The host's window with something in every box.
struct Host {
    HostForm form;
    std::string strHolzart = "alt";
    Host()
    {
        for (ui::Control* control : form.Controls())
            if (auto* box = dynamic_cast<ui::TextBox*>(control)) box->SetText("alt");
    }
    void Pick(Scenario& s)
    {
        c_Waldort().Waldort(s.kvxvar(), form.txtWO1.Object(), form.txtWO2.Object(), form.txtWO3.Object(),
                            form.txtWO4.Object(), form.txtWO5.Object(), form.txtWO6.Object(), s.ID_AL,
                            form.txtLangname.Object(), form.txtGemarkung.Object(), form.txtFlurStuck.Object(),
                            form.txtParzelle.Object(), form.txtFlaeche.Object(), form.txtAlter.Object(), strHolzart,
                            "unused", 7, s.ID_WALDORT_Root);
    }
    std::string Boxes() const
    {
        std::string all;
        for (const ui::Control* control : form.Controls())
            if (const auto* box = dynamic_cast<const ui::TextBox*>(control)) all += box->Text() + "|";
        return all;
    }
};

Script PickNord1(std::string_view button = "btnOK")
{
    return [button](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        f.Click(button);
    };
}

// --- Waldort ---

TEST(PickStand, FillsTheHostsBoxes)
{
    Scenario s;
    Host host;
    s.In("F_Waldort", PickNord1());
    host.Pick(s);
    EXPECT_EQ(host.Boxes(), "Nord|1|||||Nord 1|Birkenhain|12/3|A|40,2500|85,00|alt|");
    EXPECT_EQ(host.strHolzart, "FI");
}

TEST(PickStand, AsksWhetherTheKeyIsThereBeforeItFillsThem)
{
    Scenario s;
    Host host;
    s.In("F_Waldort", PickNord1());
    host.Pick(s);
    EXPECT_EQ(s.Statements().back(), "SELECT TOP 1 ID_WALDORT FROM WALDORT  WHERE ISNULL(DISABLE,0) = 0"
                                     " AND WALDORT.ID_ACCESS_LEVELS IS NULL AND WO1 = 'Nord' AND WO2 = '1'");
}

TEST(PickStand, OracleGetsItsOwnForm)
{
    Scenario s;
    BeOracle(s);
    Host host;
    s.In("F_Waldort", PickNord1());
    host.Pick(s);
    EXPECT_EQ(s.Statements().back(), "SELECT /*+ FIRST_ROWS */ ID_WALDORT FROM WALDORT  WHERE ROWNUM = 1"
                                     " AND NVL(DISABLE,0) = 0 AND NVL(WALDORT.ID_ACCESS_LEVELS,0) = 0"
                                     " AND WO1 = 'Nord' AND WO2 = '1'");
    EXPECT_EQ(host.form.txtWO1.Text(), "Nord");
}

TEST(PickStand, OkWithoutAStandTestsAnEmptyFirstLevelAndFillsNothing)
{
    for (const bool oracle : {false, true}) {
        Scenario s;
        if (oracle) BeOracle(s);
        Host host;
        const std::string before = host.Boxes();
        s.In("F_Waldort", [](Dialog& f) { f.Click("btnOK"); });
        host.Pick(s);
        EXPECT_TRUE(s.Statements().back().ends_with(" AND WO1 = ''"));
        EXPECT_EQ(host.Boxes(), before);
    }
}

class PickNothing : public testing::TestWithParam<std::string_view> {};

TEST_P(PickNothing, LeavesTheHostsBoxes)
{
    Scenario s;
    Host host;
    const std::string before = host.Boxes();
    s.In("F_Waldort", [](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        if (GetParam() == "close box")
            f.CloseBox();
        else
            f.Click("btnCancel");
    });
    host.Pick(s);
    EXPECT_EQ(host.Boxes(), before);
    EXPECT_EQ(host.strHolzart, "alt");
    EXPECT_EQ(s.CountStatements("SELECT TOP 1"), 0);
}

INSTANTIATE_TEST_SUITE_P(Ways, PickNothing, testing::Values("btnCancel", "close box"));

TEST(PickStand, BoxesThatAreNothingAreSkipped)
{
    Scenario s;
    HostForm form;
    std::string strHolzart;
    s.In("F_Waldort", PickNord1());
    c_Waldort().Waldort(s.kvxvar(), form.txtWO1.Object(), nullptr, nullptr, nullptr, nullptr, nullptr, s.ID_AL, nullptr,
                        nullptr, nullptr, nullptr, form.txtFlaeche.Object(), nullptr, strHolzart, "", 0,
                        s.ID_WALDORT_Root);
    EXPECT_EQ(form.txtWO1.Text(), "Nord");
    EXPECT_EQ(form.txtFlaeche.Text(), "40,2500");
}

TEST(PickStand, OkOnAStandThatIsGoneMeanwhileLeavesBoxesAndSpecies)
{
    Scenario s;
    Host host;
    const std::string before = host.Boxes();
    s.In("F_Waldort", [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        EXPECT_EQ(f.Text("cmbHolzart"), "FI");
        s.Execute("DELETE FROM WALDORT WHERE WO1 = 'Nord'");
        f.Click("btnOK");
    });
    host.Pick(s);
    EXPECT_EQ(host.Boxes(), before);
    EXPECT_EQ(host.strHolzart, "alt");
}

TEST(PickStand, AGreyStandCanBePicked)
{
    Scenario s;
    Host host;
    s.In("F_Waldort", [](Dialog& f) {
        f.Select("TreeView1", {"Nord", "2"});
        f.Click("btnOK");
    });
    host.Pick(s);
    EXPECT_EQ(host.form.txtWO2.Text(), "2");
}

TEST(PickStand, TheRootStandIsHandedOn)
{
    Scenario s;
    s.ID_WALDORT_Root = 17;
    Host host;
    s.In("F_Waldort", [](Dialog& f) {
        EXPECT_EQ(Nodes(f), Lines({"Nord*", "Nord/3*", "Nord/3/a*"}));
        f.Select("TreeView1", {"Nord", "3"});
        f.Click("btnOK");
    });
    host.Pick(s);
    EXPECT_EQ(host.form.txtWO2.Text(), "3");
}

TEST(PickStand, AnUnsavedFieldIsSavedBeforeOk)
{
    Scenario s;
    Host host;
    s.In("F_Waldort", [](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        f.Type("txtName", "Am Bach");
        f.Click("btnOK");
    });
    host.Pick(s);
    EXPECT_EQ(host.form.txtLangname.Text(), "Am Bach");
    EXPECT_EQ(s.Value("SELECT LANGNAME FROM WALDORT WHERE ID_WALDORT = 2"), "Am Bach");
}

TEST(PickStand, TheFormIsGoneAfterwards)
{
    Scenario s;
    Host host;
    s.In("F_Waldort", PickNord1());
    host.Pick(s);
    EXPECT_FALSE(FormInstance<F_Waldort>::Exists());
}

TEST(PickStand, AnErrorBehindTheDialogIsTheHostsAndLeavesTheFormBehind)
{
    Scenario s;
    Host host;
    s.In("F_Waldort", [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        s.FailStatement(1, kRefused, "refused");
        f.Click("btnOK");
    });
    EXPECT_THROW(host.Pick(s), basic::Error);
    EXPECT_TRUE(FormInstance<F_Waldort>::Exists());
    EXPECT_EQ(host.form.txtWO1.Text(), "alt");
}

TEST(PickStand, ACancelAfterAFailedCallIsACancel)
{
    Scenario s;
    Host host;
    s.In("F_Waldort", [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        s.FailStatement(1, kRefused, "refused");
        f.Click("btnOK");
    });
    EXPECT_THROW(host.Pick(s), basic::Error);
    s.In("F_Waldort", PickNord1("btnCancel"));
    host.Pick(s);
    EXPECT_EQ(host.form.txtWO1.Text(), "alt");
}

// --- WaldortId ---

struct IdResult {
    std::int32_t id = -5;
    std::string strWO = "alt";
};

IdResult PickId(Scenario& s, const Script& script, const basic::ObjectRef& list = nullptr)
{
    IdResult result;
    s.In("F_Waldort", script);
    result.id = c_Waldort().WaldortId(s.kvxvar(), result.strWO, s.ID_AL, s.ID_WALDORT_Root, list);
    return result;
}

TEST(PickStandId, GivesTheIdAndTheText)
{
    Scenario s;
    const IdResult result = PickId(s, PickNord1());
    EXPECT_EQ(result.id, 2);
    EXPECT_EQ(result.strWO, "Nord/ 1: Nord 1");
    EXPECT_EQ(s.Statements().back(), "SELECT ID_WALDORT FROM WALDORT WHERE ISNULL(DISABLE,0) = 0"
                                     " AND WALDORT.ID_ACCESS_LEVELS IS NULL AND WO1 = 'Nord' AND WO2 = '1'"
                                     " AND WO3 IS NULL AND WO4 IS NULL AND WO5 IS NULL AND WO6 IS NULL");
}

TEST(PickStandId, OracleGetsItsOwnForm)
{
    Scenario s;
    BeOracle(s);
    s.ID_AL = 1;
    EXPECT_EQ(PickId(s, PickNord1()).id, 2);
    EXPECT_EQ(s.Statements().back(), "SELECT /*+ FIRST_ROWS */ ID_WALDORT FROM WALDORT WHERE NVL(DISABLE,0) = 0"
                                     " AND NVL(WALDORT.ID_ACCESS_LEVELS,0) IN (0,1) AND WO1 = 'Nord' AND WO2 = '1'"
                                     " AND WO3 IS NULL AND WO4 IS NULL AND WO5 IS NULL AND WO6 IS NULL");
}

TEST(PickStandId, CancelGivesNothing)
{
    Scenario s;
    const IdResult result = PickId(s, PickNord1("btnCancel"));
    EXPECT_EQ(result.id, 0);
    EXPECT_EQ(result.strWO, "");
}

TEST(PickStandId, APrefixWithoutARowOfItsOwnGivesNothing)
{
    Scenario s;
    const IdResult result = PickId(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        s.Execute("DELETE FROM WALDORT WHERE ID_WALDORT = 2");
        f.Click("btnOK");
    });
    EXPECT_EQ(result.id, 0);
    EXPECT_EQ(result.strWO, "");
    EXPECT_EQ(s.CountStatements("SELECT TOP 1 ID_WALDORT"), 1);
}

TEST(PickStandId, TheDialogIsNoViewer)
{
    Scenario s;
    PickId(s, [](Dialog& f) {
        const Lines nodes = Nodes(f);
        EXPECT_EQ(std::ranges::count_if(nodes, [](const std::string& node) { return node.ends_with('*'); }), 1)
            << testing::PrintToString(nodes);  // the central stand
        EXPECT_TRUE(f.Enabled("btnOK"));
        EXPECT_TRUE(f.Enabled("btnNeuerWO"));
        f.Click("btnCancel");
    });
}

TEST(PickStandId, TheRootStandIsHandedOn)
{
    Scenario s;
    s.ID_WALDORT_Root = 17;
    const IdResult result = PickId(s, [](Dialog& f) {
        EXPECT_EQ(Nodes(f), Lines({"Nord*", "Nord/3*", "Nord/3/a*"}));
        f.Select("TreeView1", {"Nord", "3"});
        f.Click("btnOK");
    });
    EXPECT_EQ(result.id, 17);
}

TEST(PickStandId, WithAListBoxOkAddsAndStaysOpen)
{
    Scenario s;
    HostForm host;
    const IdResult result = PickId(
        s,
        [&](Dialog& f) {
            f.Select("TreeView1", {"Nord", "1"});
            f.Click("btnOK");
            EXPECT_TRUE(f.Form().Visible());
            f.Select("TreeView1", {"Nord", "3", "a"});
            f.Click("btnOK");
            f.Click("btnCancel");
        },
        host.List1.Object());
    ASSERT_EQ(host.List1.ListCount(), 2);
    EXPECT_EQ(host.List1.List(0), "Nord/ 1");
    EXPECT_EQ(host.List1.ItemData(0), 2);
    EXPECT_EQ(host.List1.List(1), "Nord/ 3/ a");
    EXPECT_EQ(host.List1.ItemData(1), 18);
    EXPECT_EQ(host.List1.ListIndex(), 1);
    EXPECT_EQ(result.id, 0);
    EXPECT_EQ(result.strWO, "");
}

TEST(PickStandId, AStandThatIsInTheListIsOnlySelectedThere)
{
    Scenario s;
    HostForm host;
    host.List1.AddItem("Nord/ 1");
    host.List1.SetItemData(0, 2);
    host.List1.AddItem("anderer");
    host.List1.SetListIndex(1);
    PickId(
        s,
        [&](Dialog& f) {
            f.Select("TreeView1", {"Nord", "1"});
            f.Click("btnOK");
            f.Click("btnCancel");
        },
        host.List1.Object());
    EXPECT_EQ(host.List1.ListCount(), 2);
    EXPECT_EQ(host.List1.ListIndex(), 0);
}

TEST(PickStandId, ASortedListKeepsTextAndIdTogether)
{
    Scenario s;
    HostForm host;
    host.List1.SetSorted(true);
    host.List1.AddItem("Zuletzt");
    host.List1.SetItemData(0, 99);
    PickId(
        s,
        [&](Dialog& f) {
            f.Select("TreeView1", {"Nord", "1"});
            f.Click("btnOK");
            f.Click("btnCancel");
        },
        host.List1.Object());
    EXPECT_EQ(host.List1.List(0), "Nord/ 1");
    EXPECT_EQ(host.List1.ItemData(0), 2);
    EXPECT_EQ(host.List1.ItemData(1), 99);
    EXPECT_EQ(host.List1.ListIndex(), 0);
}

TEST(PickStandId, AListOfSeveralChoicesKeepsTheOthers)
{
    Scenario s;
    HostForm host;
    host.List1.SetMultiSelect(ui::vbMultiSelectSimple);
    PickId(
        s,
        [&](Dialog& f) {
            for (const char* stand : {"1", "3"}) {
                f.Select("TreeView1", {"Nord", stand});
                f.Click("btnOK");
            }
            f.Click("btnCancel");
        },
        host.List1.Object());
    EXPECT_EQ(host.List1.SelCount(), 2);
}

TEST(PickStandId, WhatIsNoStandIsNotAdded)
{
    Scenario s;
    HostForm host;
    PickId(
        s,
        [&](Dialog& f) {
            f.Click("btnOK");
            f.Click("btnCancel");
        },
        host.List1.Object());
    EXPECT_EQ(host.List1.ListCount(), 0);
}

TEST(PickStandId, OnlyTheNameBehindTheLastColonGoes)
{
    Scenario s;
    HostForm host;
    s.Execute("UPDATE WALDORT SET LANGNAME = 'Abt: Bach' WHERE ID_WALDORT = 2");
    PickId(
        s,
        [&](Dialog& f) {
            f.Select("TreeView1", {"Nord", "1"});
            f.Click("btnOK");
            f.Click("btnCancel");
        },
        host.List1.Object());
    EXPECT_EQ(host.List1.List(0), "Nord/ 1: Abt");
}

TEST(PickStandId, AHostObjectThatIsNoListIsAnErrorBoxAndTheDialogStays)
{
    Scenario s;
    HostForm host;
    PickId(
        s,
        [&](Dialog& f) {
            f.Select("TreeView1", {"Nord", "1"});
            f.Answer("*", ui::vbOK);
            f.Click("btnOK");
            f.Click("btnCancel");
        },
        host.txtWaldort.Object());
    EXPECT_EQ(s.Boxes().at(0).flags, 16);
}

// --- WaldortArbeits without the outside application ---

struct WorkResult {
    HostForm form;
    std::int32_t id = -5;
    std::string area = "alt";
    WorkResult() { form.txtWaldort.SetText("alt"); }
    void Pick(Scenario& s, const Script& script)
    {
        s.In("F_Waldort", script);
        c_Waldort().WaldortArbeits(s.kvxvar(), form.txtWaldort.Object(), id, area, s.ID_AL, s.ID_WALDORT_Root);
    }
};

TEST(PickWorkStand, GivesTextIdAndArea)
{
    Scenario s;
    WorkResult result;
    result.Pick(s, PickNord1());
    EXPECT_EQ(result.form.txtWaldort.Text(), "Nord/ 1: Nord 1");
    EXPECT_EQ(result.id, 2);
    EXPECT_EQ(result.area, "40,2500");
    EXPECT_EQ(s.CountStatements("SELECT TEXT_VALUE"), 0);
}

TEST(PickWorkStand, CancelLeavesEverything)
{
    Scenario s;
    WorkResult result;
    result.Pick(s, PickNord1("btnCancel"));
    EXPECT_EQ(result.form.txtWaldort.Text(), "alt");
    EXPECT_EQ(result.id, -5);
    EXPECT_EQ(result.area, "alt");
}

TEST(PickWorkStand, AKeyWithoutARowOfItsOwnGivesTheTextAndNoId)
{
    Scenario s;
    WorkResult result;
    result.Pick(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        s.Execute("DELETE FROM WALDORT WHERE ID_WALDORT = 2");
        f.Click("btnOK");
    });
    EXPECT_EQ(result.form.txtWaldort.Text(), "Nord/ 1: Nord 1");
    EXPECT_EQ(result.id, 0);
    EXPECT_EQ(result.area, "40,2500");
}

TEST(PickWorkStand, TheRootStandIsHandedOn)
{
    Scenario s;
    s.ID_WALDORT_Root = 17;
    WorkResult result;
    result.Pick(s, [](Dialog& f) {
        EXPECT_EQ(Nodes(f), Lines({"Nord*", "Nord/3*", "Nord/3/a*"}));
        f.Select("TreeView1", {"Nord", "3", "a"});
        f.Click("btnOK");
    });
    EXPECT_EQ(result.form.txtWaldort.Text(), "Nord/ 3/ a: Nord 3 a");
}

TEST(PickWorkStand, TheLevelSearchedForIsHandedOn)
{
    Scenario s;
    s.ID_AL = 1;
    WorkResult result;
    result.Pick(s, [](Dialog& f) {
        f.Select("TreeView1", {"Süd", "1"});  // a stand of that level
        f.Click("btnOK");
    });
    EXPECT_EQ(result.form.txtWaldort.Text(), "Süd/ 1: Süd 1 des Staatswalds");
    EXPECT_EQ(result.id, 11);
}

TEST(PickWorkStand, ClientBBAsksForItsOptionsInThisOrder)
{
    Scenario s;
    s.kvxvar().g_Client = "BB";
    WorkResult result;
    result.Pick(s, PickNord1("btnCancel"));
    const Lines all = s.Statements();
    const auto dialog = std::ranges::find(all, "SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'WALDORTLEVEL'");
    EXPECT_EQ(
        Lines(all.begin(), dialog),
        Lines({"SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'DSW_WALDORT'",
               "SELECT TEXT_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'DSW_INIFILE'",
               R"(UPDATE OPTIONEN SET TEXT_VALUE = 'c:\Programme\DSW2\dsw2.ini' WHERE PROPERTY_ID = 'DSW_INIFILE')",
               R"(INSERT INTO OPTIONEN (PROPERTY_ID,TEXT_VALUE) VALUES ('DSW_INIFILE','c:\Programme\DSW2\dsw2.ini'))",
               "SELECT TEXT_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'DSW_SEPARATOR'",
               "UPDATE OPTIONEN SET TEXT_VALUE = '|' WHERE PROPERTY_ID = 'DSW_SEPARATOR'",
               "INSERT INTO OPTIONEN (PROPERTY_ID,TEXT_VALUE) VALUES ('DSW_SEPARATOR','|')",
               "SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'DSW_ZEIGEAUFRUF'",
               "SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'DSW_WALDORTINPUT'"}));
}

TEST(PickWorkStand, ClientBBReadsTheOptionsAndWritesTheUsualValues)
{
    Scenario s;
    s.kvxvar().g_Client = "BB";
    WorkResult result;
    result.Pick(s, PickNord1());
    EXPECT_EQ(result.id, 2);
    EXPECT_EQ(s.Value("SELECT TEXT_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'DSW_INIFILE'"),
              "c:\\Programme\\DSW2\\dsw2.ini");
    EXPECT_EQ(s.Value("SELECT TEXT_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'DSW_SEPARATOR'"), "|");
    for (const char* key : {"DSW_WALDORT", "DSW_ZEIGEAUFRUF", "DSW_WALDORTINPUT"})
        EXPECT_TRUE(s.WasSent("SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = '" + std::string(key) + "'"));
}

TEST(PickWorkStand, OptionsThatAreThereStayAsTheyAre)
{
    Scenario s;
    s.kvxvar().g_Client = "BB";
    s.Execute("INSERT INTO OPTIONEN (PROPERTY_ID, TEXT_VALUE) VALUES ('DSW_INIFILE', 'x.ini'), ('DSW_SEPARATOR', ';')");
    WorkResult result;
    result.Pick(s, PickNord1("btnCancel"));
    EXPECT_EQ(s.Value("SELECT TEXT_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'DSW_INIFILE'"), "x.ini");
    EXPECT_EQ(s.Value("SELECT TEXT_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'DSW_SEPARATOR'"), ";");
}

// --- WaldortSimple ---

TEST(MaintainStands, HasNoResultAndReleasesTheForm)
{
    Scenario s;
    Maintain(s, PickNord1());
    EXPECT_FALSE(FormInstance<F_Waldort>::Exists());
    EXPECT_EQ(s.CountStatements("SELECT TOP 1 ID_WALDORT"), 0);
}

TEST(MaintainStands, TheFormWorksOnItsOwnCopyOfTheSession)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        s.kvxvar().bOracle = 1;
        f.Select("TreeView1", {"Nord"});
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.CountStatements("SELECT /*+"), 0);
}

}  // namespace
}  // namespace kvx::test
