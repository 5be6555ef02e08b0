#include "ui/FormTest.h"

#include "ui/Button.h"
#include "ui/TextBox.h"

namespace kvx::ui::testing {
namespace {

class Typing : public TestForm {
public:
    Typing()
    {
        Listen(a);
        Listen(b);
        Watch(ok.Click, "ok.Click");
    }
    void Listen(TextBox& box)
    {
        const std::string name = box.FullName();
        box.KeyDown.Connect([this, name](std::int16_t& key, std::int16_t shift) {
            log.push_back(name + ".KeyDown " + std::to_string(key) + " " + std::to_string(shift));
        });
        box.KeyPress.Connect(
            [this, name](std::int32_t& key) { log.push_back(name + ".KeyPress " + std::to_string(key)); });
        box.KeyUp.Connect(
            [this, name](std::int16_t& key, std::int16_t) { log.push_back(name + ".KeyUp " + std::to_string(key)); });
        Watch(box.Change, name + ".Change");
    }
    TextBox a{*this, "a"}, b{*this, "b"};
    Button ok{*this, "ok"};
};

using Keyboard = FormTest;

TEST_F(Keyboard, ACharacterGivesKeyDownKeyPressChangeKeyUp)
{
    Typing form;
    Run(form, [](User& user) { user.Keys("x"); });
    EXPECT_EQ(form.log, (Log{"a.KeyDown 88 0", "a.KeyPress 120", "a.Change", "a.KeyUp 88"}));
}

TEST_F(Keyboard, KeyUpGoesToWhatHasTheFocusByThen)
{
    Typing form;
    form.a.KeyPress.Connect([&](std::int32_t&) { form.b.SetFocus(); });
    Run(form, [](User& user) { user.Keys("x"); });
    EXPECT_EQ(form.log.back(), "b.KeyUp 88");
}

TEST_F(Keyboard, AHandlerSwallowsOrReplacesTheCharacter)
{
    Typing form;
    form.a.KeyPress.Connect([](std::int32_t& key) { key = key == 'x' ? 0 : key == 'y' ? 'z' : key; });
    Run(form, [&](User& user) {
        user.Keys("xy");
        EXPECT_EQ(form.a.Text(), "z");
    });
}

TEST_F(Keyboard, KeyCodeZeroStopsTheReactionButNotTheCharacter)
{
    Typing form;
    form.a.KeyDown.Connect([](std::int16_t& key, std::int16_t) { key = 0; });
    Run(form, [&](User& user) {
        user.Keys("ab{HOME}{DEL}");
        EXPECT_EQ(form.a.Text(), "ab");
        EXPECT_EQ(form.a.SelStart(), 2);
    });
}

TEST_F(Keyboard, KeyPressComesForCharactersBackspaceEnterEscAndCtrlLetters)
{
    Typing form;
    Run(form, [](User& user) { user.Keys("ä{BS}{ENTER}{ESC}^k"); });
    Log pressed;
    for (const std::string& entry : form.log)
        if (entry.starts_with("a.KeyPress")) pressed.push_back(entry);
    EXPECT_EQ(pressed, (Log{"a.KeyPress 228", "a.KeyPress 8", "a.KeyPress 13", "a.KeyPress 27", "a.KeyPress 11"}));
}

TEST_F(Keyboard, KeyPressDoesNotComeForArrowsDeleteAndFunctionKeys)
{
    Typing form;
    Run(form, [](User& user) {
        user.Keys("{LEFT}{RIGHT}{UP}{DOWN}{DEL}{F2}");
        user.CtrlAlone();
    });
    for (const std::string& entry : form.log)
        EXPECT_FALSE(entry.starts_with("a.KeyPress")) << entry;
}

TEST_F(Keyboard, PastingGoesRoundADigitFilter)
{
    Typing form;
    form.a.KeyPress.Connect([](std::int32_t& key) {
        if ((key < '0' || key > '9') && key != 8 && key != 13) key = 0;
    });
    desktop.SetClipboardText("12a");
    Run(form, [&](User& user) {
        user.Keys("x^v");
        EXPECT_EQ(form.a.Text(), "12a");
    });
}

TEST_F(Keyboard, CopyCutSelectAllAndUndoWorkInATextBox)
{
    Typing form;
    Run(form, [&](User& user) {
        user.Keys("Buche^a^c");
        EXPECT_EQ(desktop.ClipboardText(), "Buche");
        user.Keys("^x");
        EXPECT_EQ(form.a.Text(), "");
        user.Keys("^z");
        EXPECT_EQ(form.a.Text(), "Buche");
        user.Keys("^v^v");
        EXPECT_EQ(form.a.Text(), "BucheBuche");
    });
}

TEST_F(Keyboard, CtrlAloneIsKeyCode17WithTheCtrlMask)
{
    Typing form;
    Run(form, [](User& user) { user.CtrlAlone(); });
    EXPECT_EQ(form.log, (Log{"a.KeyDown 17 2", "a.KeyUp 17"}));
}

TEST_F(Keyboard, NoKeyEventsForTabNorForEnterAndEscThatPressButtons)
{
    Typing form;
    form.design = [&] {
        form.ok.SetDefault(true);
        form.ok.SetCancel(true);
    };
    Run(form, [](User& user) { user.Keys("{ENTER}{ESC}{TAB}"); });
    EXPECT_EQ(form.log, (Log{"ok.Click", "a.KeyUp 13", "ok.Click", "a.KeyUp 27", "b.KeyUp 9"}));
}

TEST_F(Keyboard, EnterReachesTheBoxWhenTheDefaultButtonIsOff)
{
    Typing form;
    form.design = [&] {
        form.ok.SetDefault(true);
        form.ok.SetEnabled(false);
    };
    Run(form, [](User& user) { user.Keys("{ENTER}"); });
    EXPECT_EQ(form.log, (Log{"a.KeyDown 13 0", "a.KeyPress 13", "a.KeyUp 13"}));
}

TEST_F(Keyboard, TheKeyPressFollowsTheFocusThatKeyDownMoved)
{
    Typing form;
    form.a.KeyDown.Connect([&](std::int16_t&, std::int16_t) { form.b.SetFocus(); });
    Run(form, [&](User& user) {
        user.Keys("x");
        EXPECT_EQ(form.a.Text(), "");
        EXPECT_EQ(form.b.Text(), "x");
    });
}

TEST_F(Keyboard, EnterThatMovesToAButtonDoesNotPressItAsWell)
{
    Typing form;
    form.a.KeyDown.Connect([&](std::int16_t& key, std::int16_t) {
        if (key == vbKeyReturn) form.ok.SetFocus();
    });
    Run(form, [&](User& user) {
        user.Keys("{ENTER}");
        EXPECT_EQ(form.log, Log{"a.KeyDown 13 0"}) << "the user sees first where he is";
        user.Keys("{ENTER}");
    });
    EXPECT_EQ(form.log, (Log{"a.KeyDown 13 0", "ok.Click"}));
}

TEST_F(Keyboard, EnterAndSpacePressTheFocusedButton)
{
    Typing form;
    Run(form, [&](User& user) {
        form.ok.SetFocus();
        user.Keys("{ENTER} ");
    });
    EXPECT_EQ(form.log, (Log{"ok.Click", "ok.Click"}));
}

TEST_F(Keyboard, InjectedKeysActAfterTheHandlerOnTheControlFocusedThen)
{
    Typing form;
    form.a.KeyPress.Connect([&](std::int32_t& key) {
        if (key != 13) return;
        desktop.SendKeys("{TAB}");
        form.log.push_back("handler ends");
    });
    Run(form, [&](User& user) {
        form.WatchFocus(form.a);
        user.Keys("{ENTER}");
        EXPECT_EQ(user.FocusedControl(), "b");
    });
    EXPECT_EQ(form.log, (Log{"a.KeyDown 13 0", "a.KeyPress 13", "handler ends", "a.KeyUp 13", "a.Validate",
                             "a.LostFocus", "b.KeyUp 9"}));
}

TEST_F(Keyboard, ADialogOpenedFromKeyDownLeavesTheKeyPressForAfterwards)
{
    Typing form;
    TestForm child{"Child"};
    form.a.KeyDown.Connect([&](std::int16_t&, std::int16_t) {
        Run(child, [](User&) {});
        form.log.push_back("child closed");
    });
    Run(form, [](User& user) { user.Keys("x"); });
    EXPECT_EQ(form.log, (Log{"a.KeyDown 88 0", "child closed", "a.KeyPress 120", "a.Change", "a.KeyUp 88"}));
}

TEST_F(Keyboard, AFormBehindAnotherTakesNoInput)
{
    Typing form;
    TestForm child{"Child"};
    Run(form, [&](User& user) {
        Run(child, [&](User&) {
            user.Keys("x");
            form.UserClickOn(form.ok);
        });
    });
    EXPECT_EQ(form.log, Log{});
}

}  // namespace
}  // namespace kvx::ui::testing
