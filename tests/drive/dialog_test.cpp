#include "drive/DemoForms.h"
#include "drive/Drive.h"

#include <algorithm>
#include <set>

// What a driver can see of a dialog and do to it.
namespace kvx {

using namespace test;

namespace {

class DriveDialog : public testing::Test {
protected:
    void SetUp() override
    {
        d.Host().Post([this] { form.Show(); });
    }
    // Messages, then a last one that closes the dialog.
    void Run()
    {
        d.Send("click", {{"control", "btnOK"}});
        d.Run();
    }
    bool Noted(std::string_view note) const { return std::ranges::count(form.notes, note) == 1; }
    // The message was carried out, and the state is still the dialog.
    void ExpectDone(std::size_t n) const { EXPECT_EQ(d.FaultAt(n), "") << d.At(n); }

    Drive d;
    DemoForm form;
};

}  // namespace

// --- looking

TEST_F(DriveDialog, FormsListEveryControlWithItsState)
{
    d.Send("forms");
    const std::size_t controls = form.Controls().size();
    Run();
    const Json& shown = d.At(0)["forms"][0];
    EXPECT_EQ(shown["form"], "F_Demo");
    EXPECT_EQ(shown["caption"], "Probe");
    ASSERT_EQ(shown["controls"].size(), controls);
    std::set<std::string> kinds;
    for (const Json& control : shown["controls"]) {
        kinds.insert(control["kind"].get<std::string>());
        for (const char* field : {"name", "enabled", "visible", "reachable"})
            EXPECT_TRUE(control.contains(field)) << control;
    }
    EXPECT_EQ(kinds,
              (std::set<std::string>{"TextBox", "ComboBox", "ListBox", "ListView", "TreeView", "SSTab", "MSFlexGrid",
                                     "CheckBox", "OptionButton", "DTPicker", "Label", "CommandButton", "Timer"}));
    EXPECT_EQ(shown["controls"][0]["focus"], true);
}

TEST_F(DriveDialog, OneControlIsLookedAt)
{
    for (const char* name : {"txtLocked", "txtPage", "tabs", "dtpDay", "tree", "grid", "cmbUnit", "lvwRows"})
        d.Send("control", {{"control", name}});
    Run();
    EXPECT_EQ(d.At(0)["control"]["enabled"], false);
    EXPECT_EQ(d.At(0)["control"]["reachable"], false);
    EXPECT_EQ(d.At(1)["control"]["reachable"], false) << "its page lies behind";
    EXPECT_EQ(d.At(1)["control"]["container"], "tabs");
    EXPECT_EQ(d.At(2)["control"]["tabs"].dump(), R"(["Vorn","Hinten"])");
    EXPECT_EQ(d.At(3)["control"]["date"], "2024-05-15");
    EXPECT_EQ(d.At(4)["control"]["count"], 4);
    EXPECT_EQ(d.At(5)["control"]["rows"], 3);
    EXPECT_EQ(d.At(6)["control"]["index"], -1);
    EXPECT_EQ(d.At(7)["control"]["count"], 2);
}

TEST_F(DriveDialog, RowsOfListsAndGridsAreRead)
{
    for (const char* name : {"cmbUnit", "lstTarget", "lvwRows", "grid"})
        d.Send("rows", {{"control", name}});
    d.Send("rows", {{"control", "grid"}, {"from", 1}, {"count", 1}});
    Run();
    EXPECT_EQ(d.At(0)["rows"][1].dump(), R"({"row":1,"cells":["rm"],"data":0})");
    EXPECT_EQ(d.At(1)["count"], 2);
    EXPECT_EQ(d.At(2)["columns"].dump(), R"(["Name","Wert"])");
    EXPECT_EQ(d.At(2)["rows"][1]["key"], "K2");
    EXPECT_EQ(d.At(2)["rows"][1]["cells"].dump(), R"(["Eiche","20"])");
    EXPECT_EQ(d.At(3)["rows"].size(), 3U);
    ASSERT_EQ(d.At(4)["rows"].size(), 1U);
    EXPECT_EQ(d.At(4)["rows"][0]["cells"].dump(), R"(["","a",""])");
}

TEST_F(DriveDialog, NodesOfATreeAreReadByPathKeyAndDepth)
{
    d.Send("nodes", {{"control", "tree"}});
    d.Send("nodes", {{"control", "tree"}, {"path", Json::array()}, {"levels", 2}});
    d.Send("nodes", {{"control", "tree"}, {"key", "N1"}});
    Run();
    EXPECT_EQ(d.At(0)["nodes"].dump(), R"([{"text":"Wald","key":"N0","children":2}])");
    EXPECT_EQ(d.At(1)["nodes"][0]["nodes"][0]["text"], "Abteilung 3");
    EXPECT_EQ(d.At(1)["nodes"][1]["text"], "Süd");
    EXPECT_EQ(d.At(2)["nodes"].size(), 1U);
}

TEST_F(DriveDialog, DataGridsOfTheLibraryAreRead)
{
    form.onAsk = [this] { d.Host().Post([] {}); };
    Run();
    Drive lists("lists.sql");
    lists.Call("c_Tabellen2", "Tabellen2", {{"intIdString_dll", 1130}});
    lists.Send("rows", {{"control", "DataGrid1"}});
    lists.Send("cell", {{"control", "DataGrid1"}, {"row", 1}, {"col", 0}});
    lists.Send("get", {{"control", "txtField2"}});
    lists.Send("control", {{"control", "DataGrid1"}});
    lists.Send("get", {{"control", "DataGrid1"}, {"member", "Columns(1).Caption"}});
    lists.Run();
    EXPECT_EQ(lists.At(1)["count"], 3);
    EXPECT_EQ(lists.At(1)["rows"][1]["cells"][1], "Zukauf");
    EXPECT_EQ(lists.At(3)["value"], "Zukauf");
    EXPECT_EQ(lists.At(4)["control"]["row"], 1);
    EXPECT_EQ(lists.At(5)["type"], "String");
}

// --- late binding

TEST_F(DriveDialog, PropertiesAreReadBySimpleAndLongPaths)
{
    d.Send("get", {{"control", "cmbUnit"}, {"member", "List(2)"}});
    d.Send("get", {{"control", "lvwRows"}, {"member", "ListItems('K2').SubItems(1)"}});
    d.Send("get", {{"control", "lvwRows"}, {"member", "ListItems(1).Text"}});
    d.Send("get", {{"control", "txtName"}});
    d.Send("get", {{"member", "Caption"}});
    d.Send("get", {{"member", "txtName.Visible"}});
    d.Send("get", {{"control", "dtpDay"}, {"member", "Value"}});
    d.Send("get", {{"control", "tree"}, {"member", "SelectedItem"}});
    d.Send("get", {{"control", "lvwRows"}, {"member", "ListItems"}});
    d.Send("get", {{"control", "grid"}, {"member", "TextMatrix(2, 2)"}});
    Run();
    EXPECT_EQ(d.At(0)["value"], "srm");
    EXPECT_EQ(d.At(0)["type"], "String");
    EXPECT_EQ(d.At(1)["value"], "20");
    EXPECT_EQ(d.At(2)["value"], "Buche");
    EXPECT_EQ(d.At(3)["value"], "");
    EXPECT_EQ(d.At(4)["value"], "Probe");
    EXPECT_EQ(d.At(5)["value"], true);
    EXPECT_EQ(d.At(5)["type"], "Boolean");
    EXPECT_EQ(d.At(6)["value"].dump(), R"({"date":"2024-05-15"})");
    EXPECT_EQ(d.At(7)["value"], nullptr);
    EXPECT_EQ(d.At(8)["value"].dump(), R"({"object":"ListItems"})");
    EXPECT_EQ(d.At(9)["value"], "b");
}

TEST_F(DriveDialog, PropertiesAreSet)
{
    d.Send("set", {{"control", "txtName"}, {"member", "Text"}, {"value", "Harz"}});
    d.Send("set", {{"control", "lvwRows"}, {"member", "ListItems(1).Checked"}, {"value", true}});
    d.Send("set", {{"control", "grid"}, {"member", "TextMatrix(1,2)"}, {"value", "neu"}});
    d.Send("set", {{"control", "dtpDay"}, {"member", "Value"}, {"value", {{"date", "2024-06-01"}}}});
    d.Send("set", {{"control", "chkOn"}, {"member", "Enabled"}, {"value", 0}});
    d.Send("set", {{"member", "Caption"}, {"value", "Neu"}});
    d.Then([this] {
        EXPECT_EQ(form.txtName.Text(), "Harz");
        EXPECT_TRUE(form.lvwRows.ListItems()[1].Checked());
        EXPECT_EQ(form.grid.TextMatrix(1, 2), "neu");
        EXPECT_EQ(form.dtpDay.Month(), 6);
        EXPECT_FALSE(form.chkOn.Enabled());
        EXPECT_EQ(form.Caption(), "Neu");
    });
    Run();
    EXPECT_EQ(d.Answers().size(), 7U);
}

TEST_F(DriveDialog, MethodsAreInvoked)
{
    d.Send("invoke", {{"control", "cmbUnit"}, {"member", "AddItem"}, {"arguments", {"Stück"}}});
    d.Send("invoke", {{"member", "TextWidth"}, {"arguments", {"abc"}}});
    d.Then([this] { EXPECT_EQ(form.cmbUnit.ListCount(), 4); });
    Run();
    EXPECT_EQ(d.At(0)["type"], "Empty");
    EXPECT_EQ(d.At(1)["type"], "Long");
    EXPECT_GT(d.At(1)["value"].get<int>(), 0);
}

TEST_F(DriveDialog, ARefusalOfLateBindingComesByNumberSourceAndText)
{
    d.Send("get", {{"control", "txtName"}, {"member", "Farbe"}});
    d.Send("set", {{"control", "cmbUnit"}, {"member", "ListCount"}, {"value", 3}});
    d.Send("set", {{"control", "cmbUnit"}, {"member", "ListIndex"}, {"value", 99}});
    d.Send("get", {{"control", "tree"}, {"member", "SelectedItem.Text"}});
    Run();
    EXPECT_EQ(d.FaultAt(0), "library");
    EXPECT_EQ(d.At(0)["error"]["number"], 438);
    EXPECT_EQ(d.At(0)["error"]["source"], "Korvex_Forms");
    EXPECT_NE(d.At(0)["error"]["text"].get<std::string>().find("Farbe"), std::string::npos);
    EXPECT_EQ(d.At(1)["error"]["number"], 383);
    EXPECT_EQ(d.At(2)["error"]["number"], 380);
    EXPECT_EQ(d.At(3)["error"]["number"], 91);
}

// --- mouse and keys

TEST_F(DriveDialog, TextIsTypedCharacterByCharacter)
{
    d.Send("type", {{"control", "txtName"}, {"text", "Müritz+{3}"}});
    d.Send("type", {{"text", "!"}});
    d.Send("get", {{"control", "txtName"}});
    Run();
    EXPECT_EQ(d.At(2)["value"], "Müritz+{3}!");
}

TEST_F(DriveDialog, KeysCarryShiftAndCtrl)
{
    d.Send("keys", {{"control", "txtName"}, {"keys", "abc+{HOME}^c{END}^v"}});
    d.Send("key", {{"code", 113}, {"shift", true}, {"ctrl", true}});
    d.Send("key", {{"code", 17}});
    d.Send("key", {{"code", 88}, {"character", "x"}});
    d.Send("key", {{"character", "y"}});
    d.Send("get", {{"control", "txtName"}});
    d.Send("keys", {{"keys", "{TAB}"}});
    Run();
    EXPECT_EQ(d.At(5)["value"], "abcabcxy");
    EXPECT_TRUE(Noted("key 36/1"));
    EXPECT_TRUE(Noted("key 113/3"));
    EXPECT_TRUE(Noted("key 17/2"));
    EXPECT_TRUE(Noted("key 88/0"));
    EXPECT_EQ(d.At(6)["focus"], "cmbUnit") << "a disabled box is passed over";
}

TEST_F(DriveDialog, TheFocusMovesAndIsTold)
{
    d.Send("focus", {{"control", "dtpDay"}});
    d.Send("focus", {{"control", "lblText"}});
    Run();
    EXPECT_EQ(d.At(0)["focus"], "dtpDay");
    EXPECT_EQ(d.FaultAt(1), "wrong-kind");
    EXPECT_EQ(d.At(1)["focus"], "dtpDay");
}

TEST_F(DriveDialog, ADoubleClickIsTwoClicks)
{
    int clicks = 0;
    form.lblText.Click.Connect([&] { ++clicks; });
    d.Send("dblclick", {{"control", "lblText"}});
    Run();
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(Noted("dblclick"));
}

TEST_F(DriveDialog, AnErrorOfAHandlerEndsTheDialog)
{
    std::int32_t number = 0;
    Drive other;
    DemoForm failing;
    other.Host().Post([&] {
        try {
            failing.Show();
        } catch (const basic::Error& error) {
            number = error.Number;
        }
    });
    other.Send("click", {{"control", "btnFail"}});
    other.Run();
    EXPECT_EQ(number, basic::kErrDivisionByZero);
    EXPECT_EQ(other.Last()["state"], "idle");
    d.Send("close");
    d.Run();
    EXPECT_EQ(d.At(0)["state"], "idle");
}

TEST_F(DriveDialog, TheCloseBoxClosesUnlessAHandlerKeepsTheForm)
{
    form.keepsOpen = true;
    d.Send("close");
    d.Then([this] { form.keepsOpen = false; });
    d.Send("close");
    d.Run();
    EXPECT_EQ(d.At(0)["state"], "dialog");
    EXPECT_EQ(d.At(1)["state"], "idle");
}

TEST_F(DriveDialog, TheWindowIsResized)
{
    d.Send("resize", {{"width", 12000}, {"height", 8000}});
    d.Send("get", {{"member", "Width"}});
    Run();
    EXPECT_EQ(d.At(1)["value"], 12000);
}

// --- lists, ticks, tabs, dates

TEST_F(DriveDialog, EntriesArePickedByTextAndIndex)
{
    d.Send("pick", {{"control", "cmbUnit"}, {"text", "rm"}});
    d.Send("pick", {{"control", "lstSource"}, {"index", 2}});
    d.Send("pick", {{"control", "lstTarget"}, {"index", 0}});
    d.Send("pick", {{"control", "lstTarget"}, {"index", 1}, {"ctrl", true}});
    d.Send("pick", {{"control", "lvwRows"}, {"key", "K2"}});
    d.Send("control", {{"control", "lvwRows"}});
    d.Send("pick", {{"control", "lvwRows"}, {"row", 1}});
    d.Send("pick", {{"control", "lvwRows"}, {"text", "Eiche"}});
    d.Then([this] {
        EXPECT_EQ(form.cmbUnit.Text(), "rm");
        EXPECT_EQ(form.lstSource.ListIndex(), 2);
        EXPECT_EQ(form.lstTarget.SelCount(), 2);
        EXPECT_EQ(form.lvwRows.SelectedItem()->Key(), "K2");
    });
    Run();
    for (std::size_t i = 0; i < 8; ++i)
        ExpectDone(i);
    EXPECT_EQ(d.At(5)["control"]["row"], 2);
}

TEST_F(DriveDialog, TicksAreSetAndTakenAway)
{
    d.Send("tick", {{"control", "chkOn"}});
    d.Send("tick", {{"control", "chkOn"}});
    d.Send("tick", {{"control", "optB"}});
    d.Send("tick", {{"control", "lvwRows"}, {"key", "K2"}});
    d.Send("tick", {{"control", "tree"}, {"path", {"Nord", "Abteilung 3"}}});
    d.Send("tick", {{"control", "tree"}, {"key", "N3"}});
    d.Then([this] {
        EXPECT_EQ(form.chkOn.Value(), 1);
        EXPECT_TRUE(form.optB.Value());
        EXPECT_TRUE(form.lvwRows.ListItems()[2].Checked());
        EXPECT_TRUE(form.tree.Find("N2").Checked());
        EXPECT_TRUE(form.tree.Find("N3").Checked());
    });
    d.Send("tick", {{"control", "chkOn"}, {"checked", false}});
    d.Send("tick", {{"control", "lvwRows"}, {"row", 2}, {"checked", false}});
    d.Send("tick", {{"control", "tree"}, {"key", "N3"}, {"checked", false}});
    d.Then([this] {
        EXPECT_EQ(form.chkOn.Value(), 0);
        EXPECT_FALSE(form.lvwRows.ListItems()[2].Checked());
        EXPECT_FALSE(form.tree.Find("N3").Checked());
    });
    Run();
    for (std::size_t i = 0; i < 9; ++i)
        ExpectDone(i);
}

TEST_F(DriveDialog, AColumnHeadIsClicked)
{
    d.Send("column", {{"control", "lvwRows"}, {"index", 2}});
    Run();
    EXPECT_TRUE(Noted("column C2"));
}

TEST_F(DriveDialog, TabsComeToTheFrontByNumberOrCaption)
{
    d.Send("tab", {{"control", "tabs"}, {"tab", 1}});
    d.Send("type", {{"control", "txtPage"}, {"text", "x"}});
    d.Send("tab", {{"control", "tabs"}, {"caption", "Vorn"}});
    d.Send("type", {{"control", "txtPage"}, {"text", "x"}});
    Run();
    ExpectDone(1);
    ExpectDone(2);
    EXPECT_EQ(d.FaultAt(3), "not-reachable");
}

TEST_F(DriveDialog, ADateIsChosen)
{
    d.Send("date", {{"control", "dtpDay"}, {"date", "2025-01-31"}});
    d.Send("control", {{"control", "dtpDay"}});
    Run();
    EXPECT_EQ(d.At(1)["control"]["date"], "2025-01-31");
}

// --- trees

TEST_F(DriveDialog, NodesAreSelectedExpandedAndRenamed)
{
    d.Send("select", {{"control", "tree"}, {"path", {"Nord", "Abteilung 3"}}});
    d.Send("control", {{"control", "tree"}});
    d.Send("expand", {{"control", "tree"}, {"key", "N1"}, {"expanded", false}});
    d.Send("label", {{"control", "tree"}, {"key", "N3"}, {"text", "Ost"}});
    d.Send("label", {{"control", "tree"}, {"text", "West"}, {"accept", false}});
    d.Send("select", {{"control", "tree"}, {"path", Json::array()}});
    d.Then([this] {
        EXPECT_FALSE(form.tree.Find("N1").Expanded());
        EXPECT_EQ(form.tree.Find("N3").Text(), "Ost");
        EXPECT_EQ(form.tree.SelectedItem().Key(), "N0");
    });
    Run();
    EXPECT_EQ(d.At(1)["control"]["selected"].dump(), R"(["Wald","Nord","Abteilung 3"])");
    EXPECT_TRUE(Noted("label Ost"));
    EXPECT_FALSE(Noted("label West"));
    for (std::size_t i = 0; i < 6; ++i)
        ExpectDone(i);
}

TEST_F(DriveDialog, ALabelThatMayNotBeEditedIsRefused)
{
    form.tree.BeforeLabelEdit.Connect([](bool& cancel) { cancel = true; });
    d.Send("label", {{"control", "tree"}, {"key", "N3"}, {"text", "Ost"}});
    Run();
    EXPECT_EQ(d.FaultAt(0), "refused");
}

// --- grids and dragging

TEST_F(DriveDialog, CellsAreClickedOnceAndTwice)
{
    d.Send("cell", {{"control", "grid"}, {"row", 2}, {"col", 1}});
    d.Send("control", {{"control", "grid"}});
    d.Send("cell", {{"control", "grid"}, {"row", 1}, {"col", 2}, {"double", true}});
    Run();
    EXPECT_EQ(d.At(1)["control"]["row"], 2);
    EXPECT_EQ(d.At(1)["control"]["col"], 1);
    EXPECT_TRUE(Noted("cell 1,2"));
}

TEST_F(DriveDialog, AnEntryIsDraggedToAPlaceOrOntoAnEntry)
{
    d.Send("drag", {{"control", "lstSource"}, {"entry", 1}, {"target", "lstTarget"}, {"x", 30}, {"y", 45}});
    d.Send("drag", {{"control", "lstSource"}, {"entry", 0}, {"target", "lstTarget"}, {"onto", 1}});
    Run();
    EXPECT_TRUE(Noted("drop lstSource rm 30,45"));
    const std::int32_t line = form.lstTarget.ItemHeight();
    EXPECT_TRUE(Noted("drop lstSource fm 1500," + std::to_string(line + line / 2))) << form.notes.back();
}

TEST_F(DriveDialog, TimePasses)
{
    d.Send("wait", {{"milliseconds", 1600}});
    Run();
    EXPECT_EQ(std::ranges::count(form.notes, "tick"), 3);
}

}  // namespace kvx
