#include "checks/F_MessageBox.h"

#include "common/FormInstance.h"
#include "entry/c_Message.h"
#include "support/Scenario.h"
#include "ui/ComboBox.h"

#include <gtest/gtest.h>

namespace kvx {

using test::Dialog;
using test::Lines;
using test::Scenario;

namespace {

// A host's window with a combo box, as hosts hand it in.
class HostForm final : public ui::Form {
public:
    HostForm() : Form("HostForm") {}
    ui::ComboBox Combo{*this, "Combo"};

protected:
    void Design() override {}
};

struct ComboHost {
    explicit ComboHost(std::initializer_list<const char*> items)
    {
        form.Load();
        for (const char* item : items)
            form.Combo.AddItem(item);
    }
    HostForm form;
};

}  // namespace

TEST(MessageBoxCmb, AllEntriesButTheEmptyOnesAreOfferedInTheirOrder)
{
    Scenario s;
    ComboHost host{"Fichte", "", "Buche", "fichte", ""};
    s.In("F_MessageBox", [](Dialog& f) {
        EXPECT_EQ(f.Lines("List1"), (Lines{"Fichte", "Buche", "fichte"}));
        EXPECT_EQ(f.Text("LabelPrompt", "Caption"), "Holzart wählen");
        EXPECT_TRUE(f.Shown("btnCancel"));
        f.Click("btnCancel");
    });
    c_Message().MessageBoxCmb("Holzart wählen", "Buche", host.form.Combo.Object());
}

TEST(MessageBoxCmb, OkGivesTheTextOfTheSelectedLine)
{
    Scenario s;
    ComboHost host{"Fichte", "", "Buche"};
    s.In("F_MessageBox", [](Dialog& f) {
        f.Pick("List1", "Buche");
        f.Click("btnOK");
    });
    EXPECT_EQ(c_Message().MessageBoxCmb("", "Fichte", host.form.Combo.Object()), "Buche");
}

TEST(MessageBoxCmb, TheCurrentValueIsSelectedByExactCase)
{
    Scenario s;
    ComboHost host{"Fichte", "fichte", "Buche"};
    s.In("F_MessageBox", [](Dialog& f) {
        EXPECT_EQ(f.Text("List1", "ListIndex"), "1");
        f.Click("btnOK");
    });
    EXPECT_EQ(c_Message().MessageBoxCmb("", "fichte", host.form.Combo.Object()), "fichte");
}

TEST(MessageBoxCmb, OfTwoEqualEntriesTheFirstIsSelected)
{
    Scenario s;
    ComboHost host{"Eiche", "Buche", "Buche"};
    s.In("F_MessageBox", [](Dialog& f) {
        EXPECT_EQ(f.Text("List1", "ListIndex"), "1");
        f.Click("btnOK");
    });
    c_Message().MessageBoxCmb("", "Buche", host.form.Combo.Object());
}

TEST(MessageBoxCmb, AValueThatIsNotInTheComboSelectsNothingAndOkGivesAnEmptyText)
{
    Scenario s;
    ComboHost host{"Fichte", "Buche"};
    s.In("F_MessageBox", [](Dialog& f) {
        EXPECT_EQ(f.Text("List1", "ListIndex"), "-1");
        f.Click("btnOK");
    });
    EXPECT_EQ(c_Message().MessageBoxCmb("", "Tanne", host.form.Combo.Object()), "");
}

TEST(MessageBoxCmb, CancelEscAndTheCloseBoxGiveBackTheValueHandedIn)
{
    for (const std::string way : {"cancel", "esc", "close"}) {
        Scenario s;
        ComboHost host{"Fichte", "Buche"};
        s.In("F_MessageBox", [&](Dialog& f) {
            f.Pick("List1", "Buche");
            if (way == "cancel") f.Click("btnCancel");
            if (way == "esc") f.Keys("{ESC}");
            if (way == "close") f.CloseBox();
        });
        EXPECT_EQ(c_Message().MessageBoxCmb("", "Tanne", host.form.Combo.Object()), "Tanne") << way;
    }
}

TEST(MessageBoxCmb, ADoubleClickAndEnterTakeTheLine)
{
    for (const std::string way : {"double click", "enter"}) {
        Scenario s;
        ComboHost host{"Fichte", "Buche"};
        s.In("F_MessageBox", [&](Dialog& f) {
            EXPECT_EQ(f.FocusedControl(), "List1");
            f.Pick("List1", "Buche");
            if (way == "enter") {
                f.Keys("{ENTER}");
            } else {
                f.DblClick("List1");
            }
        });
        EXPECT_EQ(c_Message().MessageBoxCmb("", "Fichte", host.form.Combo.Object()), "Buche") << way;
    }
}

TEST(MessageBoxCmb, EnterOnCancelCancels)
{
    Scenario s;
    ComboHost host{"Fichte", "Buche"};
    s.In("F_MessageBox", [](Dialog& f) {
        f.Pick("List1", "Buche");
        f.Tab();
        f.Tab();
        EXPECT_EQ(f.FocusedControl(), "btnCancel");
        f.Keys("{ENTER}");
    });
    EXPECT_EQ(c_Message().MessageBoxCmb("", "Fichte", host.form.Combo.Object()), "Fichte");
}

TEST(MessageBoxCmb, TheTallListFillsAFormOf7000Twips)
{
    Scenario s;
    ComboHost host{"Fichte"};
    s.In("F_MessageBox", [](Dialog& f) {
        ui::Form& form = f.Form();
        const auto& box = static_cast<F_MessageBox&>(form);
        EXPECT_EQ(form.Height(), 7000);
        EXPECT_EQ(box.List1.Top(), box.Frame1.Top() + 200);
        EXPECT_EQ(box.Frame1.Height(), form.ScaleHeight() - 498);
        EXPECT_EQ(box.List1.Height(), box.Frame1.Height() - 240);
        EXPECT_EQ(box.btnOK.Top(), form.ScaleHeight() - 390);
        EXPECT_EQ(box.btnCancel.Top(), form.ScaleHeight() - 390);
        EXPECT_EQ(form.Caption(), "Korvex32");
        f.Click("btnOK");
    });
    c_Message().MessageBoxCmb("", "", host.form.Combo.Object());
}

TEST(MessageBoxCmb, TheFormIsGoneAfterwards)
{
    for (const char* button : {"btnOK", "btnCancel"}) {
        Scenario s;
        ComboHost host{"Fichte"};
        s.In("F_MessageBox", [&](Dialog& f) { f.Click(button); });
        c_Message().MessageBoxCmb("", "", host.form.Combo.Object());
        EXPECT_FALSE(FormInstance<F_MessageBox>::Exists()) << button;
    }
}

TEST(MessageBoxCmb, AnObjectThatIsNoComboBoxIsAnErrorAndTheFormStays)
{
    Scenario s;
    HostForm host;
    host.Load();
    try {
        c_Message().MessageBoxCmb("", "", host.Object());
        ADD_FAILURE() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, basic::kErrMemberNotFound);
    }
    EXPECT_TRUE(FormInstance<F_MessageBox>::Exists());
    EXPECT_THROW(c_Message().MessageBoxCmb("", "", nullptr), basic::Error);
}

TEST(MessageBoxLines, LinesAreShownInOrderAndCounted)
{
    Scenario s;
    c_Message message;
    message.MessageBox_Clear();
    EXPECT_EQ(message.MessageBox_ItemCount(), 0);
    message.MessageBox_AddItem("eins");
    message.MessageBox_AddItem("");
    message.MessageBox_AddItem("drei");
    EXPECT_EQ(message.MessageBox_ItemCount(), 3);
    s.In("F_MessageBox", [](Dialog& f) {
        EXPECT_EQ(f.Form().Caption(), "Hinweise");
        EXPECT_EQ(f.Lines("List1"), (Lines{"eins", "", "drei"}));
        EXPECT_EQ(f.Text("LabelPrompt", "Caption"), "");
        EXPECT_FALSE(f.Shown("btnCancel"));
        f.Click("btnOK");
    });
    message.MessageBox_Show("Hinweise");
}

TEST(MessageBoxLines, TheFormKeepsItsHeightAndTheListMovesUp)
{
    Scenario s;
    c_Message message;
    message.MessageBox_AddItem("eins");
    const auto form = LoadMessageBox();
    const std::int32_t designHeight = form->Height();
    s.In("F_MessageBox", [&](Dialog& f) {
        const auto& box = static_cast<F_MessageBox&>(f.Form());
        EXPECT_EQ(box.Height(), designHeight);
        EXPECT_EQ(box.List1.Top(), box.Frame1.Top() + 200);
        EXPECT_EQ(box.List1.Height(), box.Frame1.Height() - 240);
        f.Click("btnOK");
    });
    message.MessageBox_Show("x");
}

TEST(MessageBoxLines, ADoubleClickAndEscDoNothingEnterCloses)
{
    Scenario s;
    c_Message message;
    message.MessageBox_AddItem("eins");
    s.In("F_MessageBox", [](Dialog& f) {
        f.Pick("List1", "eins");
        f.DblClick("List1");
        EXPECT_TRUE(f.Form().Visible());
        f.Keys("{ESC}");
        EXPECT_TRUE(f.Form().Visible());
        f.Keys("{ENTER}");
        EXPECT_FALSE(f.Form().Visible());
    });
    message.MessageBox_Show("x");
}

TEST(MessageBoxLines, AnEmptyListIsShownAllTheSame)
{
    Scenario s;
    c_Message message;
    message.MessageBox_Clear();
    s.In("F_MessageBox", [](Dialog& f) {
        EXPECT_EQ(f.Lines("List1"), Lines{});
        f.CloseBox();
    });
    message.MessageBox_Show("leer");
}

TEST(MessageBoxLines, AfterShowTheSameFormStartsEmptyAgain)
{
    Scenario s;
    c_Message message;
    message.MessageBox_AddItem("alt");
    const auto before = FormInstance<F_MessageBox>::Get();
    s.In("F_MessageBox", [](Dialog& f) { f.Click("btnOK"); });
    message.MessageBox_Show("x");
    EXPECT_FALSE(before->IsLoaded());
    message.MessageBox_AddItem("neu");
    EXPECT_EQ(FormInstance<F_MessageBox>::Get(), before);
    EXPECT_EQ(message.MessageBox_ItemCount(), 1);
}

TEST(MessageBoxLines, TheNextMessageHasTheUsualCaptionAgain)
{
    Scenario s;
    c_Message message;
    message.MessageBox_AddItem("alt");
    s.In("F_MessageBox", [](Dialog& f) {
        EXPECT_EQ(f.Form().Caption(), "Hinweise");
        f.Click("btnOK");
    });
    message.MessageBox_Show("Hinweise");
    message.MessageBox_AddItem("neu");
    EXPECT_EQ(FormInstance<F_MessageBox>::Get()->Caption(), "Korvex32");
}

TEST(MessageBoxNL, LinesComeAsTheyStandWhateverEndsThem)
{
    Scenario s;
    s.WriteFile("hinweis.txt", "eins\r\n\r\nzwei\ndrei\rvier");
    s.In("F_MessageBox", [](Dialog& f) {
        EXPECT_EQ(f.Lines("List1"), (Lines{"eins", "", "zwei", "drei", "vier"}));
        EXPECT_EQ(f.Text("LabelPrompt", "Caption"), "Bitte lesen");
        EXPECT_FALSE(f.Shown("btnCancel"));
        f.DblClick("List1");
    });
    c_Message().MessageBoxNL("Bitte lesen", s.File("hinweis.txt"));
    EXPECT_FALSE(FormInstance<F_MessageBox>::Exists());
}

TEST(MessageBoxNL, TheCloseBoxClosesATextFile)
{
    Scenario s;
    s.WriteFile("a.txt", "a");
    s.In("F_MessageBox", [](Dialog& f) {
        f.CloseBox();
        EXPECT_FALSE(f.Form().Visible());
    });
    c_Message().MessageBoxNL("", s.File("a.txt"));
    EXPECT_FALSE(FormInstance<F_MessageBox>::Exists());
}

TEST(MessageBoxNL, ATextIsUtf8WhereItIsValidElseWindows1252)
{
    Scenario s;
    s.WriteFile("utf8.txt", "Süd\n");
    s.WriteFile("1252.txt", "S\xFC"
                            "d\n");
    for (const char* name : {"utf8.txt", "1252.txt"}) {
        s.In("F_MessageBox", [](Dialog& f) {
            EXPECT_EQ(f.Lines("List1"), Lines{"Süd"});
            f.Keys("{ENTER}");
        });
        c_Message().MessageBoxNL("", s.File(name));
    }
}

TEST(MessageBoxNL, AMissingFileIsError53AndNothingIsShown)
{
    Scenario s;
    try {
        c_Message().MessageBoxNL("", s.File("fehlt.txt"));
        ADD_FAILURE() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, basic::kErrFileNotFound);
    }
}

TEST(MessageBoxNL, EscDoesNotCloseATextFile)
{
    Scenario s;
    s.WriteFile("a.txt", "a");
    s.In("F_MessageBox", [](Dialog& f) {
        f.Keys("{ESC}");
        EXPECT_TRUE(f.Form().Visible());
        f.Keys("{ENTER}");
    });
    c_Message().MessageBoxNL("", s.File("a.txt"));
}

TEST(MessageBoxForm, TheCaptionsAreFixedWordsInEveryLanguage)
{
    Scenario s;
    s.kvxvar().strLanguage = "ENGLISH";
    c_Message message;
    message.MessageBox_AddItem("x");
    EXPECT_EQ(LoadMessageBox()->Caption(), "Korvex32");
    EXPECT_EQ(LoadMessageBox()->btnOK.Caption(), "Ok");
    EXPECT_EQ(LoadMessageBox()->btnCancel.Caption(), "Abbrechen");
}

}  // namespace kvx
