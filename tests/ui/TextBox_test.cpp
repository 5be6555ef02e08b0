#include "ui/FormTest.h"

#include "ui/TextBox.h"

namespace kvx::ui::testing {
namespace {

class OneBox : public TestForm {
public:
    OneBox() { Watch(box.Change, "Change"); }
    TextBox box{*this, "box"};
};

using TextBoxes = FormTest;

TEST_F(TextBoxes, AssignmentRaisesChangeOnceAndOnlyForAnotherText)
{
    OneBox form;
    form.Load();
    form.box.SetText("Eiche");
    form.box.SetText("Eiche");
    EXPECT_EQ(form.log, Log{"Change"});
}

TEST_F(TextBoxes, TypingAndAssignmentAreCutToMaxLengthInCharacters)
{
    OneBox form;
    form.design = [&] { form.box.SetMaxLength(3); };
    Run(form, [&](User& user) {
        form.box.SetText("ÄÖÜß");
        EXPECT_EQ(form.box.Text(), "ÄÖÜ");
        user.Keys("{END}x");
        EXPECT_EQ(form.box.Text(), "ÄÖÜ");
    });
}

TEST_F(TextBoxes, ALowerLimitLeavesTheTextThatIsThere)
{
    OneBox form;
    form.Load();
    form.box.SetText("Kiefer");
    form.box.SetMaxLength(2);
    EXPECT_EQ(form.box.Text(), "Kiefer");
    form.box.UserEdit("Kiefe", 5);
    EXPECT_EQ(form.box.Text(), "Kiefe") << "a user who deletes one character loses one";
}

TEST_F(TextBoxes, AssignmentPutsTheCaretToTheStart)
{
    OneBox form;
    form.Load();
    form.box.SetText("Fichte");
    form.box.SetSelStart(2);
    form.box.SetSelLength(2);
    form.box.SetText("Tanne");
    EXPECT_EQ(form.box.SelStart(), 0);
    EXPECT_EQ(form.box.SelLength(), 0);
}

TEST_F(TextBoxes, SelStartAndSelLengthStayWithinTheText)
{
    OneBox form;
    form.Load();
    form.box.SetText("Bäume");
    form.box.SetSelStart(1000);
    EXPECT_EQ(form.box.SelStart(), 5);
    form.box.SetSelStart(1);
    form.box.SetSelLength(99);
    EXPECT_EQ(form.box.SelLength(), 4);
    EXPECT_EQ(form.box.SelText(), "äume");
    form.box.SetSelStart(0);
    EXPECT_EQ(form.box.SelLength(), 0);
    EXPECT_EQ(ErrorOf([&] { form.box.SetSelStart(-1); }), 380);
    EXPECT_EQ(ErrorOf([&] { form.box.SetSelLength(-1); }), 380);
}

TEST_F(TextBoxes, ALockedBoxTakesKeysAndCopiesButChangesByCodeOnly)
{
    OneBox form;
    form.Watch(form.box.KeyDown, "KeyDown");
    form.Watch(form.box.KeyPress, "KeyPress");
    form.design = [&] { form.box.SetLocked(true); };
    Run(form, [&](User& user) {
        form.box.SetText("Lärche");
        form.log.clear();
        user.Keys("x{DEL}{BS}");
        EXPECT_EQ(form.log, (Log{"KeyDown", "KeyPress", "KeyDown", "KeyDown", "KeyPress"}));
        user.Keys("^a^c^x");
        desktop.SetClipboardText("Esche");
        user.Keys("^v");
        EXPECT_EQ(form.box.Text(), "Lärche");
        form.box.UserEdit("Ahorn", 0);
        EXPECT_EQ(form.box.Text(), "Lärche");
    });
}

TEST_F(TextBoxes, KeysEditTheText)
{
    OneBox form;
    Run(form, [&](User& user) {
        user.Keys("Wald");
        user.Keys("{HOME}{DEL}w{END}{BS}{LEFT}X");
        EXPECT_EQ(form.box.Text(), "waXl");
        user.Keys("{HOME}+{RIGHT 2}");
        EXPECT_EQ(form.box.SelText(), "wa");
        user.Keys("+{LEFT}");
        EXPECT_EQ(form.box.SelText(), "w");
        user.Keys("Z");
        EXPECT_EQ(form.box.Text(), "ZaXl");
    });
}

TEST_F(TextBoxes, EnterStaysInABoxOfSeveralLinesOnly)
{
    for (const bool several : {false, true}) {
        OneBox form;
        form.design = [&] { form.box.SetMultiLine(several); };
        Run(form, [&](User& user) {
            user.Keys("a{ENTER}b");
            EXPECT_EQ(form.box.Text(), several ? "a\r\nb" : "ab");
        });
    }
}

TEST_F(TextBoxes, APasswordIsNotCopied)
{
    OneBox form;
    form.design = [&] { form.box.SetPasswordChar("*"); };
    desktop.SetClipboardText("vorher");
    Run(form, [&](User& user) {
        user.Keys("geheim^a^c^x");
        EXPECT_EQ(form.box.Text(), "geheim");
    });
    EXPECT_EQ(desktop.ClipboardText(), "vorher");
}

TEST_F(TextBoxes, WhatAnEditorPastesIntoOneLineEndsAtTheLineEndToo)
{
    OneBox form;
    form.Load();
    form.box.SetText("ab");
    form.box.UserEdit("aeins\r\nzweib", 11, 0);
    EXPECT_EQ(form.box.Text(), "aeinsb");
    EXPECT_EQ(form.box.SelStart(), 5);
}

TEST_F(TextBoxes, APasteIntoOneLineEndsAtTheLineEnd)
{
    OneBox form;
    desktop.SetClipboardText("eins\r\nzwei");
    Run(form, [&](User& user) {
        user.Keys("^v");
        EXPECT_EQ(form.box.Text(), "eins");
    });
}

}  // namespace
}  // namespace kvx::ui::testing
