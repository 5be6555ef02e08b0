#include "adapters/headless/HeadlessDesktop.h"
#include "adapters/headless/Keys.h"
#include "adapters/headless/User.h"
#include "basic/Convert.h"
#include "basic/Error.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"

#include <gtest/gtest.h>

namespace kvx::adapters::headless {
namespace {

using namespace ui;
using Log = std::vector<std::string>;

class Dialog final : public Form {
public:
    explicit Dialog(std::string_view name = "F_Dialog") : Form(name) {}
    TextBox box{*this, "box"};
    CheckBox check{*this, "check"};
    Button btnOK{*this, "btnOK"};
    Timer Timer1{*this, "Timer1"};

protected:
    void Design() override {}
};

class Headless : public testing::Test {
protected:
    HeadlessDesktop desktop;
    Dialog form;
    bool HasFailure(std::string_view part) const
    {
        for (const std::string& failure : desktop.Failures())
            if (failure.find(part) != std::string::npos) return true;
        return false;
    }
};

TEST_F(Headless, AFormIsWorkedOnByTheNextScriptOfItsName)
{
    Dialog other{"F_Other"};
    Log order;
    desktop.In("F_Dialog", [&](Form& shown) {
        order.push_back("first");
        other.Show();
        shown.Hide();
    });
    desktop.In("F_Dialog", [&](Form& shown) {
        order.push_back("second");
        shown.Hide();
    });
    desktop.In("F_Other", [&](Form& shown) {
        order.push_back("other");
        shown.Hide();
    });
    form.Show();
    form.Show();
    desktop.Finish();
    EXPECT_EQ(order, (Log{"first", "other", "second"}));
    EXPECT_EQ(desktop.Dialogs(), (Log{"F_Dialog", "F_Other", "F_Dialog"}));
    EXPECT_EQ(desktop.Failures(), Log{});
}

TEST_F(Headless, AnUnexpectedDialogIsClosedAtOnceAndAFailure)
{
    form.Show();
    EXPECT_FALSE(form.Visible());
    EXPECT_TRUE(HasFailure("F_Dialog was shown without a script"));
}

TEST_F(Headless, ADialogLeftOpenIsClosedAndAFailure)
{
    form.QueryUnload.Connect([](std::int16_t& cancel, std::int16_t) { cancel = 1; });
    desktop.In("F_Dialog", [](Form&) {});
    form.Show();
    EXPECT_FALSE(form.Visible());
    EXPECT_TRUE(HasFailure("left the dialog F_Dialog open"));
}

TEST_F(Headless, MessagesAreAnsweredInOrderByTheirPrompt)
{
    desktop.Answer("Eins?", vbYes);
    desktop.Answer("*", vbNo);
    EXPECT_EQ(desktop.MessageBox("Eins?", vbYesNo + vbQuestion, "Korvex"), vbYes);
    EXPECT_EQ(desktop.MessageBox("Zwei?", vbYesNo, "Korvex"), vbNo);
    desktop.Finish();
    EXPECT_EQ(desktop.Failures(), Log{});
    ASSERT_EQ(desktop.Boxes().size(), 2u);
    EXPECT_EQ(desktop.Boxes()[0].flags, 36);
    EXPECT_EQ(desktop.Boxes()[1].prompt, "Zwei?");
    EXPECT_EQ(desktop.Boxes()[1].title, "Korvex");
}

TEST_F(Headless, AnUnexpectedMessageIsAFailureAndAnsweredHarmlessly)
{
    EXPECT_EQ(desktop.MessageBox("Löschen?", vbYesNo, ""), vbNo);
    EXPECT_EQ(desktop.MessageBox("Löschen?", vbYesNoCancel, ""), vbCancel);
    EXPECT_EQ(desktop.MessageBox("Hinweis", vbOKOnly, ""), vbOK);
    EXPECT_EQ(desktop.Failures().size(), 3u);
}

TEST_F(Headless, AnAnswerThatTheBoxDoesNotHaveIsAFailure)
{
    desktop.Answer("Hinweis", vbYes);
    EXPECT_EQ(desktop.MessageBox("Hinweis", vbOKOnly, ""), vbOK);
    EXPECT_TRUE(HasFailure("no such button"));
}

TEST_F(Headless, AnotherPromptThanExpectedLeavesTheAnswerWaiting)
{
    desktop.Answer("Eins?", vbYes);
    desktop.MessageBox("Zwei?", vbYesNo, "");
    desktop.Finish();
    EXPECT_TRUE(HasFailure("Unexpected message: Zwei? (expected: Eins?)"));
    EXPECT_TRUE(HasFailure("Nobody asked: Eins?"));
}

TEST_F(Headless, InputBoxesAreTypedIntoOrCancelled)
{
    desktop.AnswerInput("Name?", "Revier Nord");
    desktop.CancelInput("Name?");
    EXPECT_EQ(desktop.InputBox("Name?", "Korvex", "alt"), "Revier Nord");
    EXPECT_EQ(desktop.InputBox("Name?", "Korvex", "alt"), "");
    EXPECT_EQ(desktop.InputBox("Name?", "Korvex", "alt"), "");
    EXPECT_EQ(desktop.Failures().size(), 1u);
}

TEST_F(Headless, ScriptsThatNobodyNeededAreFailures)
{
    desktop.In("F_Never", [](Form&) {});
    desktop.Finish();
    EXPECT_TRUE(HasFailure("F_Never was never shown"));
}

TEST_F(Headless, TheClockMovesWithTheTimersInOrder)
{
    Log ticks;
    Dialog slow{"F_Slow"};
    form.Load();
    slow.Load();
    form.Timer1.Tick.Connect([&] { ticks.push_back("fast " + std::to_string(desktop.TickMilliseconds())); });
    slow.Timer1.Tick.Connect([&] {
        ticks.push_back("slow " + std::to_string(desktop.TickMilliseconds()));
        slow.Timer1.SetEnabled(false);
    });
    form.Timer1.SetInterval(200);
    slow.Timer1.SetInterval(300);
    const basic::Date before = desktop.Now();
    desktop.Advance(650);
    EXPECT_EQ(ticks, (Log{"fast 200", "slow 300", "fast 400", "fast 600"}));
    EXPECT_NEAR((desktop.Now().days - before.days) * 86400, 0.65, 1e-3);
}

TEST_F(Headless, ATimerMayUnloadItsFormWhileItFires)
{
    form.Load();
    int ticks = 0;
    form.Timer1.Tick.Connect([&] {
        ++ticks;
        form.Unload();
    });
    form.Timer1.SetInterval(10);
    desktop.Advance(100);
    EXPECT_EQ(ticks, 1);
}

TEST_F(Headless, PostedWorkRunsAfterTheHandlerAndInOrder)
{
    Log order;
    form.btnOK.Click.Connect([&] {
        desktop.Post([&] {
            order.push_back("first");
            desktop.Post([&] { order.push_back("posted by the first"); });
        });
        desktop.Post([&] { order.push_back("second"); });
        order.push_back("handler");
    });
    desktop.In("F_Dialog", [&](Form& shown) {
        User{desktop, shown}.Click("btnOK");
        shown.Hide();
    });
    form.Show();
    EXPECT_EQ(order, (Log{"handler", "first", "second", "posted by the first"}));
}

TEST_F(Headless, WhatTheUserCannotDoIsAFailure)
{
    desktop.In("F_Dialog", [&](Form& shown) {
        User user{desktop, shown};
        user.Click("nobody");
        user.Pick("box", 0);
        form.btnOK.SetEnabled(false);
        user.Click("btnOK");
        user.ToggleCheck("check", 1);
        shown.Hide();
    });
    EXPECT_THROW(form.Show(), basic::Error) << "a text box has no list: error 438";
    EXPECT_TRUE(HasFailure("F_Dialog.nobody: no such control"));
}

TEST_F(Headless, ADisabledControlCannotBeClicked)
{
    desktop.In("F_Dialog", [&](Form& shown) {
        User user{desktop, shown};
        form.btnOK.SetEnabled(false);
        user.Click("btnOK");
        user.ToggleCheck("check", 1);
        shown.Hide();
    });
    form.Show();
    EXPECT_EQ(desktop.Failures(),
              (Log{"F_Dialog.btnOK: cannot be reached", "F_Dialog.check: is another kind of control"}));
}

TEST_F(Headless, TheUserTypesAndReadsByName)
{
    desktop.In("F_Dialog", [&](Form& shown) {
        User user{desktop, shown};
        user.Type("box", "a+b{c}");
        EXPECT_EQ(user.Text("box"), "a+b{c}");
        user.Click("check");
        EXPECT_EQ(basic::CLng(user.Read("check", "Value")), 1);
        EXPECT_EQ(user.FocusedControl(), "check");
        shown.Hide();
    });
    form.Show();
    EXPECT_EQ(desktop.Failures(), Log{});
}

std::string Shown(const std::vector<KeyStroke>& strokes)
{
    std::string text;
    for (const KeyStroke& stroke : strokes)
        text += std::to_string(stroke.keyCode) + "/" + std::to_string(stroke.shift) + "/" +
                std::to_string(stroke.character) + " ";
    return text;
}

TEST(SendKeys, ReadsCharactersNamesRepeatsAndModifiers)
{
    EXPECT_EQ(Shown(ParseKeys("a1")), "65/0/97 49/0/49 ");
    EXPECT_EQ(Shown(ParseKeys("A")), "65/1/65 ");
    EXPECT_EQ(Shown(ParseKeys("{TAB}{home}~")), "9/0/0 36/0/0 13/0/13 ");
    EXPECT_EQ(Shown(ParseKeys("+{END}")), "35/1/0 ");
    EXPECT_EQ(Shown(ParseKeys("^c%o")), "67/2/3 79/4/111 ");
    EXPECT_EQ(Shown(ParseKeys("{DEL 3}")), "46/0/0 46/0/0 46/0/0 ");
    EXPECT_EQ(Shown(ParseKeys("+(ab)")), "65/1/65 66/1/66 ");
    EXPECT_EQ(Shown(ParseKeys("{+}{{}{}}")), "231/0/43 231/0/123 231/0/125 ");
    EXPECT_EQ(Shown(ParseKeys("ä,")), "231/0/228 188/0/44 ");
}

TEST(SendKeys, RefusesWhatNoKeyIs)
{
    EXPECT_THROW(ParseKeys("{NOKEY}"), basic::Error);
    EXPECT_THROW(ParseKeys("{TAB"), basic::Error);
    EXPECT_THROW(ParseKeys("+(ab"), basic::Error);
}

}  // namespace
}  // namespace kvx::adapters::headless
