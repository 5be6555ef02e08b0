#include "ui/FormTest.h"

#include "ui/Button.h"
#include "ui/Desktop.h"
#include "ui/Frame.h"
#include "ui/Label.h"
#include "ui/TextBox.h"

namespace kvx::ui::testing {
namespace {

class Boxes : public TestForm {
public:
    Boxes()
    {
        for (Control* control : std::initializer_list<Control*>{&a, &b, &c, &ok, &cancel})
            WatchFocus(*control);
    }
    TextBox a{*this, "a"}, b{*this, "b"}, c{*this, "c"};
    Button ok{*this, "ok"}, cancel{*this, "cancel"};
    Frame frame{*this, "frame"};
};

using Focus = FormTest;

TEST_F(Focus, AClickValidatesAndLeavesTheOldControlBeforeTheNewOneIsClicked)
{
    Boxes form;
    Run(form, [&](User& user) {
        form.log.clear();
        user.Click("ok");
    });
    EXPECT_EQ(form.log, (Log{"a.Validate", "a.LostFocus", "ok.GotFocus", "ok.Click"}));
}

TEST_F(Focus, ARefusedValidateKeepsTheFocusAndSwallowsTheClick)
{
    Boxes form;
    form.a.Validate.Connect([](bool& cancel) { cancel = true; });
    Run(form, [&](User& user) {
        form.log.clear();
        user.Click("ok");
        EXPECT_EQ(user.FocusedControl(), "a");
    });
    EXPECT_EQ(form.log, Log{"a.Validate"});
}

TEST_F(Focus, AControlThatCausesNoValidationIsReachedWithoutOne)
{
    Boxes form;
    form.design = [&] { form.cancel.SetCausesValidation(false); };
    Run(form, [&](User& user) {
        form.log.clear();
        user.Click("cancel");
    });
    EXPECT_EQ(form.log, (Log{"a.LostFocus", "cancel.GotFocus", "cancel.Click"}));
}

TEST_F(Focus, SetFocusInCodeRunsBothEventsInsideAndNoValidate)
{
    Boxes form;
    Run(form, [&](User&) {
        form.log.clear();
        form.b.SetFocus();
        form.log.push_back("next statement");
    });
    EXPECT_EQ(form.log, (Log{"a.LostFocus", "b.GotFocus", "next statement"}));
}

TEST_F(Focus, EnterAndEscPressTheirButtonsWithoutMovingTheFocus)
{
    Boxes form;
    form.design = [&] {
        form.ok.SetDefault(true);
        form.cancel.SetCancel(true);
    };
    Run(form, [&](User& user) {
        form.log.clear();
        user.Keys("{ENTER}{ESC}");
        EXPECT_EQ(user.FocusedControl(), "a");
    });
    EXPECT_EQ(form.log, (Log{"ok.Click", "cancel.Click"}));
}

TEST_F(Focus, AltAndTheLetterMoveTheFocusAndPress)
{
    Boxes form;
    form.design = [&] { form.ok.SetCaption("&Ok"); };
    Run(form, [&](User& user) {
        form.log.clear();
        user.Keys("%o");
    });
    EXPECT_EQ(form.log, (Log{"a.Validate", "a.LostFocus", "ok.GotFocus", "ok.Click"}));
}

TEST_F(Focus, ALabelsLetterLeadsToTheControlBehindIt)
{
    class Labelled : public TestForm {
    public:
        TextBox first{*this, "first"};
        Label label{*this, "label"};
        TextBox second{*this, "second"};
    } form;
    form.design = [&] { form.label.SetCaption("Alte&r"); };
    Run(form, [&](User& user) {
        user.Keys("%r");
        EXPECT_EQ(user.FocusedControl(), "second");
    });
}

TEST_F(Focus, ClosingTheFormNeitherValidatesNorLeavesTheControl)
{
    Boxes byCode, byBox;
    Run(byCode, [&](User&) {
        byCode.log.clear();
        byCode.Unload();
    });
    Run(byBox, [&](User& user) {
        byBox.log.clear();
        user.CloseBox();
    });
    EXPECT_EQ(byCode.log, Log{});
    EXPECT_EQ(byBox.log, Log{});
}

TEST_F(Focus, SetFocusOnWhatCannotBeReachedIsError5)
{
    Boxes form;
    form.design = [&] { form.c.SetContainer(&form.frame); };
    form.Load();
    EXPECT_EQ(ErrorOf([&] { form.b.SetFocus(); }), 5) << "not shown yet";
    Run(form, [&](User&) {
        form.b.SetEnabled(false);
        EXPECT_EQ(ErrorOf([&] { form.b.SetFocus(); }), 5) << "disabled";
        form.b.SetEnabled(true);
        form.b.SetVisible(false);
        EXPECT_EQ(ErrorOf([&] { form.b.SetFocus(); }), 5) << "invisible";
        form.frame.SetEnabled(false);
        EXPECT_EQ(ErrorOf([&] { form.c.SetFocus(); }), 5) << "in a disabled frame";
        form.frame.SetEnabled(true);
        form.frame.SetVisible(false);
        EXPECT_EQ(ErrorOf([&] { form.c.SetFocus(); }), 5) << "in a hidden frame";
    });
}

TEST_F(Focus, SetFocusWorksInActivate)
{
    Boxes form;
    form.FormActivate.Connect([&] { form.b.SetFocus(); });
    Run(form, [&](User& user) { EXPECT_EQ(user.FocusedControl(), "b"); });
    EXPECT_EQ(form.log, Log{"b.GotFocus"});
}

TEST_F(Focus, DisablingOrHidingTheFocusedControlMovesOn)
{
    Boxes form;
    Run(form, [&](User& user) {
        form.log.clear();
        form.a.SetEnabled(false);
        EXPECT_EQ(user.FocusedControl(), "b");
        form.b.SetVisible(false);
        EXPECT_EQ(user.FocusedControl(), "c");
    });
    EXPECT_EQ(form.log, (Log{"a.LostFocus", "b.GotFocus", "b.LostFocus", "c.GotFocus"}));
}

TEST_F(Focus, ADisabledFrameBlocksItsControlsWithoutDisablingThem)
{
    Boxes form;
    form.design = [&] {
        form.b.SetContainer(&form.frame);
        form.frame.SetEnabled(false);
    };
    Run(form, [&](User& user) {
        EXPECT_TRUE(form.b.Enabled());
        EXPECT_FALSE(user.CanReach("b"));
        EXPECT_FALSE(form.UserFocus(form.b));
        user.Tab();
        EXPECT_EQ(user.FocusedControl(), "c");
    });
}

TEST_F(Focus, TheActiveControlIsTheFocusedOneOfTheFormInFront)
{
    Boxes form;
    EXPECT_EQ(ErrorOf([&] { desktop.ActiveControl(); }), 91);
    Run(form, [&](User&) {
        EXPECT_EQ(&desktop.ActiveControl(), &form.a);
        EXPECT_EQ(desktop.ActiveControl().TypeName(), "TextBox");
        form.SetEnabled(false);
        EXPECT_EQ(ErrorOf([&] { desktop.ActiveControl(); }), 91);
    });
}

TEST_F(Focus, AMessageBoxTakesNoFocus)
{
    Boxes form;
    desktop.Answer("Wirklich?", vbYes);
    Run(form, [&](User&) {
        form.log.clear();
        desktop.MessageBox("Wirklich?", vbYesNo, "Korvex");
    });
    EXPECT_EQ(form.log, Log{});
}

TEST_F(Focus, AModalChildDeactivatesTheFormAndTakesNoFocusFromIt)
{
    Boxes form;
    TestForm child{"Child"};
    form.Watch(form.FormDeactivate, "Deactivate");
    form.Watch(form.FormActivate, "Activate");
    Run(form, [&](User&) {
        form.log.clear();
        Run(child, [](User&) {});
    });
    EXPECT_EQ(form.log, (Log{"Deactivate", "Activate"}));
}

TEST_F(Focus, TheFirstFocusGoesToTheLowestTabStopThatCanTakeIt)
{
    Boxes form;
    form.design = [&] {
        form.a.SetTabIndex(9);
        form.b.SetTabIndex(0);
        form.b.SetTabStop(false);
        form.c.SetTabIndex(1);
        form.ok.SetTabIndex(2);
        form.cancel.SetTabIndex(3);
        form.c.SetEnabled(false);
    };
    Run(form, [&](User& user) { EXPECT_EQ(user.FocusedControl(), "ok"); });
}

TEST_F(Focus, TabWalksInTabOrderAndAround)
{
    Boxes form;
    form.design = [&] { form.b.SetTabStop(false); };
    Run(form, [&](User& user) {
        user.Tab();
        EXPECT_EQ(user.FocusedControl(), "c");
        user.Tab(/*backwards=*/true);
        user.Tab(/*backwards=*/true);
        EXPECT_EQ(user.FocusedControl(), "cancel");
    });
}

TEST_F(Focus, ALostFocusHandlerMaySendTheFocusElsewhere)
{
    Boxes form;
    form.a.LostFocus.Connect([&] { form.c.SetFocus(); });
    Run(form, [&](User& user) {
        form.log.clear();
        form.b.SetFocus();
        EXPECT_EQ(user.FocusedControl(), "c");
    });
    EXPECT_EQ(form.log, (Log{"a.LostFocus", "c.GotFocus"}));
}

}  // namespace
}  // namespace kvx::ui::testing
