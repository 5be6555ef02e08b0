#include "adapters/headless/User.h"
#include "qt/DemoForm.h"
#include "qt/ScriptedDesktop.h"

#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>

// The same person at a dialog without and with windows: controls hear the same, in the same order.
namespace kvx::test {
namespace {

using adapters::headless::HeadlessDesktop;
using adapters::headless::User;
using Log = std::vector<std::string>;
using Script = std::function<void(User&, DemoForm&, HeadlessDesktop&)>;

Log LogOf(HeadlessDesktop& desktop, const Script& script)
{
    DemoForm form;
    desktop.In("DemoForm", [&](ui::Form& shown) {
        User user(desktop, shown);
        form.log.clear();
        script(user, form, desktop);
        form.Hide();
    });
    form.Show();
    desktop.Finish();
    EXPECT_EQ(desktop.Failures(), std::vector<std::string>{});
    return form.log;
}

Log Headless(const Script& script)
{
    HeadlessDesktop desktop;
    return LogOf(desktop, script);
}

Log Windows(const Script& script)
{
    ScriptedDesktop desktop;
    return LogOf(desktop, script);
}

// Runs the script on both and gives back what the windows' controls heard.
Log Both(const Script& script)
{
    Log windows = Windows(script);
    EXPECT_EQ(windows, Headless(script));
    return windows;
}

bool Heard(const Log& log, std::string_view line)
{
    return std::ranges::find(log, line) != log.end();
}

TEST(WindowKeys, ACharacterComesAsKeyDownKeyPressChangeKeyUp)
{
    const Log log = Both([](User& user, DemoForm&, HeadlessDesktop&) { user.Keys("7"); });
    EXPECT_EQ(log, (Log{"txtName.KeyDown 55 0", "txtName.KeyPress 55", "txtName.Change \"7\"", "txtName.KeyUp 55"}));
}

TEST(WindowKeys, AFilterSwallowsWhatItDoesNotWant)
{
    Both([](User& user, DemoForm& form, HeadlessDesktop&) {
        form.digitsOnly = true;
        user.Type("txtArea", "1a2,b3");
        EXPECT_EQ(form.txtArea.Text(), "123");
    });
}

TEST(WindowKeys, AFilterMayChangeTheCharacter)
{
    Both([](User& user, DemoForm& form, HeadlessDesktop&) {
        form.upperCase = true;
        user.Type("txtName", "nordhang 7");
        EXPECT_EQ(form.txtName.Text(), "NORDHANG 7");
    });
}

TEST(WindowKeys, CaretKeysAndDeleteWorkInTheBox)
{
    Both([](User& user, DemoForm& form, HeadlessDesktop&) {
        user.Type("txtName", "Eiche");
        user.Keys("{HOME}{DEL}{END}{BS}{LEFT}x");
        EXPECT_EQ(form.txtName.Text(), "icxh");
        EXPECT_EQ(form.txtName.SelStart(), 3);
    });
}

TEST(WindowKeys, PastingPassesNoFilter)
{
    const Log log = Both([](User& user, DemoForm& form, HeadlessDesktop& desktop) {
        form.digitsOnly = true;
        desktop.SetClipboardText("12,5");
        user.Focus("txtArea");
        user.Keys("^v");
        EXPECT_EQ(form.txtArea.Text(), "12,5");
    });
    EXPECT_TRUE(Heard(log, "txtArea.Change \"12,5\""));
    EXPECT_FALSE(Heard(log, "txtArea.KeyPress 22"));
}

TEST(WindowKeys, CopyCutAndMarkAllWork)
{
    Both([](User& user, DemoForm& form, HeadlessDesktop& desktop) {
        user.Type("txtName", "Buche");
        user.Keys("^a^c");
        EXPECT_EQ(desktop.ClipboardText(), "Buche");
        EXPECT_EQ(form.txtName.SelLength(), 5);
        user.Keys("{END}+{LEFT}+{LEFT}^x");
        EXPECT_EQ(form.txtName.Text(), "Buc");
        EXPECT_EQ(desktop.ClipboardText(), "he");
    });
}

TEST(WindowKeys, CtrlAloneIsKey17WhenItComesUp)
{
    const Log log = Both([](User& user, DemoForm&, HeadlessDesktop&) { user.CtrlAlone(); });
    EXPECT_EQ(log, (Log{"txtName.KeyDown 17 2", "txtName.KeyUp 17"}));
}

TEST(WindowKeys, CtrlWithALetterIsNoCtrlAlone)
{
    const Log log = Windows([](User& user, DemoForm&, HeadlessDesktop&) { user.Keys("^v"); });
    EXPECT_FALSE(Heard(log, "txtName.KeyDown 17 2"));
}

TEST(WindowKeys, EscPressesTheCancelButtonWhereverTheFocusIs)
{
    const Log log = Both([](User& user, DemoForm& form, HeadlessDesktop&) {
        user.Focus("txtArea");
        form.log.clear();
        user.Keys("{ESC}");
    });
    EXPECT_EQ(log, (Log{"btnCancel.Click"}));
}

TEST(WindowKeys, EnterPressesTheDefaultButtonWithoutLeavingTheBox)
{
    const Log log = Both([](User& user, DemoForm& form, HeadlessDesktop&) {
        form.btnOK.SetDefault(true);
        user.Keys("{ENTER}");
        EXPECT_EQ(user.FocusedControl(), "txtName");
    });
    EXPECT_TRUE(Heard(log, "btnOK.Click"));
    EXPECT_FALSE(Heard(log, "txtName.LostFocus"));
}

TEST(WindowKeys, AltAndALetterLeadsFromTheLabelToItsBox)
{
    const Log log = Both([](User& user, DemoForm&, HeadlessDesktop&) { user.Keys("%f"); });
    EXPECT_EQ(log, (Log{"txtName.Validate", "txtName.LostFocus", "txtArea.GotFocus"}));
}

TEST(WindowKeys, SpaceTicksTheFocusedCheckBox)
{
    Both([](User& user, DemoForm& form, HeadlessDesktop&) {
        user.Focus("chkDisable");
        user.Keys(" ");
        EXPECT_EQ(form.chkDisable.Value(), ui::vbChecked);
    });
}

TEST(WindowKeys, ArrowsMoveTheChoiceOfAList)
{
    const Log log = Both([](User& user, DemoForm& form, HeadlessDesktop&) {
        user.Focus("List1");
        user.Keys("{DOWN}{DOWN}{UP}");
        EXPECT_EQ(form.List1.ListIndex(), 0);
    });
    EXPECT_EQ(std::ranges::count(log, "List1.Click"), 3);
}

TEST(WindowKeys, ArrowsInTheComboChooseAnItem)
{
    Both([](User& user, DemoForm& form, HeadlessDesktop&) {
        user.Focus("cmbSpecies");
        user.Keys("{DOWN}{DOWN}");
        EXPECT_EQ(form.cmbSpecies.Text(), "Eiche");
    });
}

TEST(WindowFocus, TabAsksValidateFirst)
{
    const Log log = Both([](User& user, DemoForm&, HeadlessDesktop&) { user.Tab(); });
    EXPECT_EQ(log, (Log{"txtName.Validate", "txtName.LostFocus", "txtArea.GotFocus", "txtArea.KeyUp 9"}));
}

TEST(WindowFocus, ARefusedClickLeavesFocusAndButtonAlone)
{
    const Log log = Both([](User& user, DemoForm& form, HeadlessDesktop&) {
        user.Focus("txtArea");
        form.refuse = true;
        form.log.clear();
        user.Click("btnOK");
        EXPECT_EQ(user.FocusedControl(), "txtArea");
        form.refuse = false;
    });
    EXPECT_EQ(log.front(), "txtArea.Validate");
    EXPECT_FALSE(Heard(log, "btnOK.Click"));
    EXPECT_FALSE(Heard(log, "txtArea.LostFocus"));
}

TEST(WindowFocus, AClickGoesOnAfterAMessageOfTheBoxThatWasLeft)
{
    const Log log = Both([](User& user, DemoForm& form, HeadlessDesktop& desktop) {
        user.Focus("txtArea");
        form.askOnLeaving = true;
        desktop.Answer("Gespeichert", ui::vbOK);
        form.log.clear();
        user.Click("btnOK");
        form.askOnLeaving = false;
    });
    EXPECT_EQ(log.back(), "btnOK.Click");
}

TEST(WindowFocus, TheFocusOfTheWindowFollowsSetFocus)
{
    Windows([](User&, DemoForm& form, HeadlessDesktop& desktop) {
        form.cmbSpecies.SetFocus();
        desktop.Settle();
        auto& windows = static_cast<ScriptedDesktop&>(desktop).Windows();
        EXPECT_TRUE(windows.WidgetOf(form.cmbSpecies)->hasFocus());
    });
}

TEST(WindowFocus, ADisabledFrameBlocksWhatStandsInIt)
{
    const Log log = Windows([](User&, DemoForm& form, HeadlessDesktop& desktop) {
        form.frame.SetEnabled(false);
        desktop.Settle();
        auto& scripted = static_cast<ScriptedDesktop&>(desktop);
        scripted.GetHands().Click(form.txtInside);
        EXPECT_TRUE(scripted.Windows().WidgetOf(form.txtInside)->isEnabled()) << "blocked, but not grey";
    });
    EXPECT_FALSE(Heard(log, "txtInside.GotFocus"));
    EXPECT_FALSE(Heard(log, "txtInside.Click"));
}

TEST(WindowMouse, AClickTicksTheBoxOnce)
{
    const Log log = Both([](User& user, DemoForm& form, HeadlessDesktop&) {
        user.Click("chkDisable");
        EXPECT_EQ(form.chkDisable.Value(), ui::vbChecked);
    });
    EXPECT_EQ(std::ranges::count(log, "chkDisable.Click"), 1);
}

TEST(WindowMouse, APickFromTheListIsOneClick)
{
    const Log log = Both([](User& user, DemoForm&, HeadlessDesktop&) { user.Pick("cmbSpecies", "Fichte"); });
    EXPECT_EQ(std::ranges::count(log, "cmbSpecies.Click"), 1);
    EXPECT_EQ(std::ranges::count(log, "cmbSpecies.UserPicked \"Fichte\""), 1);
    EXPECT_EQ(std::ranges::count_if(log, [](const std::string& line) { return line.find(".Change") != line.npos; }), 0);
}

TEST(WindowMouse, ALineOutOfSightCanBePicked)
{
    Both([](User& user, DemoForm& form, HeadlessDesktop&) {
        user.Pick("List1", "Zeile 29");
        EXPECT_EQ(form.List1.ListIndex(), 28);
    });
}

TEST(WindowMouse, ADoubleClickIsAClickAndADoubleClick)
{
    const Log log = Windows([](User& user, DemoForm& form, HeadlessDesktop&) {
        user.Pick("List1", 2);
        form.log.clear();
        user.DblClick("List1");
    });
    EXPECT_EQ(log, (Log{"List1.Click", "List1.DblClick"}));
}

TEST(WindowTree, ANodeIsReachedByOpeningWhatIsAbove)
{
    const Log log = Both([](User& user, DemoForm& form, HeadlessDesktop&) {
        user.Select("TreeView1", {"Ost", "02"});
        EXPECT_EQ(form.TreeView1.SelectedItem().Key(), "K\r\nOst\r\n02");
    });
    EXPECT_TRUE(Heard(log, "NodeClick 02"));
}

TEST(WindowTree, ALabelEditOpensWithItsTextMarkedAndEndsWithEnter)
{
    const Log log = Both([](User& user, DemoForm& form, HeadlessDesktop&) {
        user.Select("TreeView1", {"Ost"});
        form.TreeView1.StartLabelEdit("Neu");
        user.Keys("West{ENTER}");
        EXPECT_EQ(user.FindNode("TreeView1", {"West"}).Text(), "West");
    });
    EXPECT_TRUE(Heard(log, "AfterLabelEdit \"West\""));
}

TEST(WindowTree, EscLeavesTheLabelAsItWas)
{
    const Log log = Both([](User& user, DemoForm& form, HeadlessDesktop&) {
        user.Select("TreeView1", {"Ost"});
        user.Keys("{F2}xyz{ESC}");
        EXPECT_EQ(form.TreeView1.SelectedItem().Text(), "Ost");
        EXPECT_TRUE(form.Visible()) << "Esc ends the edit, not the dialog";
    });
    EXPECT_FALSE(Heard(log, "AfterLabelEdit \"xyz\""));
}

TEST(WindowTree, LeavingTheTreeEndsTheEdit)
{
    const Log log = Both([](User& user, DemoForm&, HeadlessDesktop&) {
        user.Select("TreeView1", {"Süd"});
        user.Keys("{F2}Tal");
        user.Click("txtName");
    });
    EXPECT_TRUE(Heard(log, "AfterLabelEdit \"Tal\""));
}

TEST(WindowForm, TheCloseBoxAsksTheForm)
{
    Both([](User& user, DemoForm& form, HeadlessDesktop&) {
        bool refused = false;
        form.QueryUnload.Connect([&refused](std::int16_t& cancel, std::int16_t mode) {
            if (mode == ui::vbFormControlMenu && !refused) cancel = 1;
            refused = true;
        });
        user.CloseBox();
        EXPECT_TRUE(form.Visible());
        user.CloseBox();
        EXPECT_FALSE(form.Visible());
    });
}

TEST(WindowForm, ADialogOverADialogComesBackToIt)
{
    DemoForm over;
    const Log log = Both([&over](User& user, DemoForm& form, HeadlessDesktop& desktop) {
        desktop.In("DemoForm", [](ui::Form& shown) { shown.Hide(); });
        form.btnOK.Click.Connect([&over] { over.Show(); });
        user.Click("btnOK");
        user.Keys("x");
        EXPECT_EQ(form.ActiveControl(), &form.btnOK);
    });
    EXPECT_TRUE(Heard(log, "btnOK.KeyPress 120"));
}

}  // namespace
}  // namespace kvx::test
