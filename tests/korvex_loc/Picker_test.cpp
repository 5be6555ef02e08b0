#include "korvex_loc/Picker.h"

#include "adapters/headless/HeadlessDesktop.h"
#include "adapters/headless/User.h"
#include "korvex_loc/LocTest.h"
#include "ui/ListView.h"

#include <functional>

namespace kvx::loc {

namespace {

using adapters::headless::User;

constexpr const char* kSelect = "SELECT ID,NUMBER,NAME FROM BBF_GRUPPE ORDER BY NUMBER";

ui::ListView& List(const User& user)
{
    return dynamic_cast<ui::ListView&>(*user.Form().FindControl("ListView1"));
}

// First column of the rows in sight.
std::string Rows(const User& user)
{
    std::string rows;
    for (std::int32_t i = 1; i <= List(user).ListItems().Count(); ++i)
        rows += List(user).ListItems()[i].Text() + " ";
    return rows;
}

class PickerTest : public LocTest {
protected:
    PickerTest()
    {
        CreateTables({"BBF_GRUPPE"});
        for (const char* row : {"7,100,'Holzernte'", "8,200,'Kulturpflege'", "9,300,'Wegebau'", "10,210,'Ästung'"})
            Execute(std::string("INSERT INTO BBF_GRUPPE (ID,NUMBER,NAME) VALUES (") + row + ")");
    }
    ~PickerTest() override
    {
        desktop.Finish();
        EXPECT_EQ(desktop.Failures(), Texts{});
    }
    // Opens the picker; the user must close it. @return the value picked
    std::string Pick(std::string_view title, std::string_view current, std::string_view mask,
                     const std::function<void(User&)>& script)
    {
        desktop.In("F_Picker", [&](ui::Form& form) {
            User user(desktop, form);
            script(user);
        });
        return Picker().PickValue(kvxvar, kSelect, title, current, mask);
    }
    // The same for a user who looks and cancels.
    void Look(std::string_view title, std::string_view current, std::string_view mask,
              const std::function<void(User&)>& script)
    {
        Pick(title, current, mask, [&](User& user) {
            script(user);
            user.Click("btnCancel");
        });
    }
    adapters::headless::HeadlessDesktop desktop;
};

}  // namespace

// --- What comes back -------------------------------------------------------------------------------------------------

TEST_F(PickerTest, ThePickedRowsFirstColumnIsTheResult)
{
    const std::string picked = Pick("", "", "100", [](User& user) {
        user.PickRow("ListView1", 2);
        user.Click("btnOK");
    });
    EXPECT_EQ(picked, "8");
}

TEST_F(PickerTest, CancelGivesBackTheCurrentValue)
{
    const std::string picked = Pick("", "9", "100", [](User& user) {
        user.PickRow("ListView1", 1);
        user.Click("btnCancel");
    });
    EXPECT_EQ(picked, "9");
}

TEST_F(PickerTest, EscAndTheCloseBoxGiveBackTheCurrentValue)
{
    for (const char* keys : {"{DOWN}{ESC}", "{DOWN}"}) {
        const std::string picked = Pick("", "x", "100", [&](User& user) {
            user.Keys(keys);
            if (user.Form().Visible()) user.CloseBox();
        });
        EXPECT_EQ(picked, "x");
    }
}

TEST_F(PickerTest, EnterPicksTheRowThatIsSelected)
{
    EXPECT_EQ(Pick("", "", "100", [](User& user) { user.Keys("{ENTER}"); }), "7");
}

TEST_F(PickerTest, ADoubleClickPicks)
{
    const std::string picked = Pick("", "", "100", [](User& user) {
        user.PickRow("ListView1", 3);
        user.DblClick("ListView1");
    });
    EXPECT_EQ(picked, "10");
}

TEST_F(PickerTest, WithoutRowsOnlyCancelIsLeft)
{
    Execute("DELETE FROM BBF_GRUPPE");
    Look("", "9", "100", [](User& user) {
        EXPECT_FALSE(user.CanReach("btnOK"));
        user.Keys("{ENTER}");
        EXPECT_TRUE(user.Form().Visible());
    });
}

// --- What is shown ---------------------------------------------------------------------------------------------------

TEST_F(PickerTest, TheMaskHidesColumnsAndHeadingsNameTheOthers)
{
    Look("", "", "1", [](User& user) {
        ASSERT_EQ(List(user).ColumnHeaders().Count(), 2);
        EXPECT_EQ(List(user).ColumnHeaders()[1].Text(), "Nummer");
        EXPECT_EQ(List(user).ColumnHeaders()[2].Text(), "Name");
        EXPECT_EQ(List(user).ListItems()[1].Text(), "100");
        EXPECT_EQ(List(user).ListItems()[1].SubItems(1), "Holzernte");
    });
}

TEST_F(PickerTest, DigitsThatAreMissingOrTooManyHideNothing)
{
    for (const char* mask : {"", "000", "0001"})
        Look("", "", mask, [](User& user) { EXPECT_EQ(List(user).ColumnHeaders().Count(), 3); });
}

TEST_F(PickerTest, TheCurrentValueIsSelectedAtTheStart)
{
    Look("", "9", "100", [](User& user) {
        ASSERT_NE(List(user).SelectedItem(), nullptr);
        EXPECT_EQ(List(user).SelectedItem()->Text(), "300");
    });
}

TEST_F(PickerTest, TheTitleIsTheCallersOrTheFirstHeading)
{
    Look("BBF_GRUPPE", "", "100", [](User& user) { EXPECT_EQ(user.Form().Caption(), "BBF_GRUPPE"); });
    Look("", "", "100", [](User& user) { EXPECT_EQ(user.Form().Caption(), "Nummer"); });
}

TEST_F(PickerTest, TheButtonsSpeakTheLanguageOfTheSession)
{
    kvxvar.strLanguage = "ENGLISH";
    Look("", "", "", [](User& user) {
        EXPECT_EQ(user.Text("btnCancel", "Caption"), "&Cancel");
        EXPECT_EQ(List(user).ColumnHeaders()[2].Text(), "Number");
    });
}

// --- Typing ----------------------------------------------------------------------------------------------------------

TEST_F(PickerTest, TheFocusStandsInTheSearchBox)
{
    Look("", "", "100", [](User& user) { EXPECT_EQ(user.FocusedControl(), "txtFilter"); });
}

TEST_F(PickerTest, TypingLeavesTheRowsThatHoldTheTextInAnyShownColumn)
{
    Look("", "", "100", [](User& user) {
        user.Keys("ä");
        EXPECT_EQ(Rows(user), "210 ");
        user.Keys("{BACKSPACE}2");
        EXPECT_EQ(Rows(user), "200 210 ");
        user.Keys("0");
        EXPECT_EQ(Rows(user), "200 ");
        user.Keys("{BACKSPACE}{BACKSPACE}");
        EXPECT_EQ(Rows(user), "100 200 210 300 ");
    });
}

TEST_F(PickerTest, AHiddenColumnIsNotSearched)
{
    Look("", "", "100", [](User& user) {
        user.Keys("7");
        EXPECT_EQ(Rows(user), "");
    });
}

TEST_F(PickerTest, EnterPicksTheFirstRowThatIsLeft)
{
    EXPECT_EQ(Pick("", "", "100", [](User& user) { user.Keys("wege{ENTER}"); }), "9");
}

TEST_F(PickerTest, ARowThatIsStillThereStaysSelected)
{
    EXPECT_EQ(Pick("", "10", "100", [](User& user) { user.Keys("2{ENTER}"); }), "10");
}

TEST_F(PickerTest, TheArrowsMoveTheSelectionWhileTyping)
{
    EXPECT_EQ(Pick("", "", "100", [](User& user) { user.Keys("{DOWN}{DOWN}{UP}{ENTER}"); }), "8");
}

// --- The statement ---------------------------------------------------------------------------------------------------

TEST_F(PickerTest, TheSelectRunsOnceAsItStands)
{
    Look("", "", "", [](User&) {});
    EXPECT_EQ(Statements(), Texts{kSelect});
}

TEST_F(PickerTest, AStatementThatTheServerRefusesIsTheCallersError)
{
    EXPECT_EQ(ErrorOf([&] { Picker().PickValue(kvxvar, "SELECT X FROM FEHLT", "", "", ""); }), ado::kErrNoSuchTable);
}

}  // namespace kvx::loc
