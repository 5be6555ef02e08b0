#include "common/CommonTest.h"
#include "common/F_DBLogin.h"
#include "entry/c_DBLogin.h"
#include "ui/CheckBox.h"
#include "ui/Frame.h"

namespace kvx::test {

namespace {
constexpr ui::Color kColorOfMenus = ui::Color(0x80000004);
constexpr ui::Color kColorOfWindows = ui::Color(0x80000005);
}  // namespace

/// The arguments of one login, as a host holds them.
class DBLoginTest : public CommonTest {
protected:
    void Login(const std::function<void(User&)>& script)
    {
        desktop.In("F_DBLogin", [&](ui::Form& form) {
            User user(desktop, form);
            script(user);
        });
        result = c_DBLogin().DBLogin(server, databases, userName, password, windows, ok, language, client);
    }
    void Expect(const std::string& wantedServer, const Texts& wantedDatabases, const std::string& wantedUser,
                const std::string& wantedPassword)
    {
        EXPECT_EQ(server, wantedServer);
        EXPECT_EQ(databases, wantedDatabases);
        EXPECT_EQ(userName, wantedUser);
        EXPECT_EQ(password, wantedPassword);
    }
    static F_DBLogin& FormOf(const User& user) { return dynamic_cast<F_DBLogin&>(user.Form()); }

    std::string server = "SRV1", userName = "förster", password = "geheim", language = "DEUTSCH", client;
    Texts databases{"WALD", "PROBE"};
    std::int16_t windows = 0, ok = 0;
    basic::Variant result = "not set";
};

TEST_F(DBLoginTest, ShowsWhatTheHostGave)
{
    Login([](User& user) {
        EXPECT_EQ(user.Text("txtServer", "Text"), "SRV1");
        EXPECT_EQ(user.Text("cmbDatabase", "Text"), "WALD");
        EXPECT_EQ(user.Text("txtName", "Text"), "förster");
        EXPECT_EQ(user.Text("txtPassword", "Text"), "geheim");
        EXPECT_EQ(user.Text("Check1", "Value"), "0");
        user.Click("btnAbbrechen");
    });
}

TEST_F(DBLoginTest, OffersEveryDatabaseAndSelectsTheFirst)
{
    databases = {"WALD", "PROBE", "ARCHIV"};
    Login([](User& user) {
        EXPECT_EQ(user.Lines("cmbDatabase"), (Texts{"WALD", "PROBE", "ARCHIV"}));
        EXPECT_EQ(user.Text("cmbDatabase", "ListIndex"), "0");
        user.Click("btnAbbrechen");
    });
}

TEST_F(DBLoginTest, IsTitledInGermanWhateverTheLanguage)
{
    language = "ENGLISH";
    Login([](User& user) {
        EXPECT_EQ(user.Form().Caption(), "Datenbankauthentifizierung");
        EXPECT_EQ(user.Text("btnAbbrechen", "Caption"), "Abbrechen");
        user.Click("btnAbbrechen");
    });
}

TEST_F(DBLoginTest, HidesThePasswordOnTheScreen)
{
    Login([](User& user) {
        EXPECT_EQ(FormOf(user).txtPassword.PasswordChar(), "*");
        user.Click("btnAbbrechen");
    });
}

TEST_F(DBLoginTest, OkGivesBackWhatWasTyped)
{
    Login([](User& user) {
        user.Type("txtServer", "SRV2");
        user.Pick("cmbDatabase", "PROBE");
        user.Type("txtName", "amt");
        user.Type("txtPassword", "neu");
        user.Click("btnOK");
    });
    Expect("SRV2", {"PROBE", "PROBE"}, "amt", "neu");
    EXPECT_EQ(windows, 0);
    EXPECT_NE(ok, 0);
}

TEST_F(DBLoginTest, ADatabaseThatIsNotOfferedCanBeTyped)
{
    Login([](User& user) {
        user.Type("cmbDatabase", "ANDERE");
        user.Click("btnOK");
    });
    Expect("SRV1", {"ANDERE", "PROBE"}, "förster", "geheim");
}

TEST_F(DBLoginTest, TheReturnedValueIsAlwaysEmpty)
{
    Login([](User& user) { user.Click("btnOK"); });
    EXPECT_TRUE(result.IsEmpty());
    result = "not set";
    Login([](User& user) { user.Click("btnAbbrechen"); });
    EXPECT_TRUE(result.IsEmpty());
}

TEST_F(DBLoginTest, CancelGivesBackWhatTheHostGave)
{
    ok = -1;
    Login([](User& user) {
        user.Type("txtServer", "SRV2");
        user.Pick("cmbDatabase", "PROBE");
        user.Type("txtName", "amt");
        user.Type("txtPassword", "neu");
        user.Click("btnAbbrechen");
    });
    Expect("SRV1", {"WALD", "PROBE"}, "förster", "geheim");
    EXPECT_EQ(ok, 0);
}

TEST_F(DBLoginTest, EscCancels)
{
    ok = -1;
    Login([](User& user) { user.Keys("{ESC}"); });
    EXPECT_EQ(ok, 0);
    Expect("SRV1", {"WALD", "PROBE"}, "förster", "geheim");
}

TEST_F(DBLoginTest, TheCloseBoxCancels)
{
    Login([](User& user) {
        user.Type("txtServer", "SRV2");
        user.CloseBox();
    });
    Expect("SRV1", {"WALD", "PROBE"}, "förster", "geheim");
    EXPECT_EQ(ok, 0);
}

TEST_F(DBLoginTest, TheCloseBoxCancelsEvenAfterAnEarlierOk)
{
    Login([](User& user) { user.Click("btnOK"); });
    ASSERT_NE(ok, 0);
    Login([](User& user) { user.CloseBox(); });
    EXPECT_EQ(ok, 0);
}

TEST_F(DBLoginTest, WindowsAuthenticationAsksForNoUser)
{
    windows = -1;
    Login([](User& user) {
        EXPECT_EQ(user.Text("Check1", "Value"), "1");
        for (const char* box : {"txtName", "txtPassword"}) {
            EXPECT_EQ(user.Text(box, "Text"), "") << box;
            EXPECT_FALSE(user.CanReach(box)) << box;
        }
        EXPECT_FALSE(FormOf(user).lblName.Visible());
        EXPECT_FALSE(FormOf(user).lblPassword.Visible());
        EXPECT_EQ(FormOf(user).txtName.BackColor(), kColorOfMenus);
        EXPECT_EQ(FormOf(user).txtPassword.BackColor(), kColorOfMenus);
        user.Click("btnAbbrechen");
    });
}

TEST_F(DBLoginTest, WindowsAuthenticationWithOkKeepsTheHostsUserAndEmptiesThePassword)
{
    windows = 1;
    Login([](User& user) { user.Click("btnOK"); });
    Expect("SRV1", {"WALD", "PROBE"}, "förster", "");
    EXPECT_NE(windows, 0);
    EXPECT_NE(ok, 0);
}

TEST_F(DBLoginTest, TickingTheBoxSwitchesToWindowsAuthentication)
{
    Login([](User& user) {
        user.Click("Check1");
        EXPECT_EQ(user.Text("txtName", "Text") + user.Text("txtPassword", "Text"), "");
        EXPECT_FALSE(user.CanReach("txtName"));
        EXPECT_FALSE(user.CanReach("txtPassword"));
        user.Click("btnOK");
    });
    EXPECT_NE(windows, 0);
    Expect("SRV1", {"WALD", "PROBE"}, "förster", "");
}

TEST_F(DBLoginTest, UntickingTheBoxBringsTheUserBackButNoPassword)
{
    Login([](User& user) {
        user.Click("Check1");
        user.Click("Check1");
        EXPECT_EQ(user.Text("txtName", "Text"), "förster");
        EXPECT_EQ(user.Text("txtPassword", "Text"), "");
        EXPECT_TRUE(user.CanReach("txtName"));
        EXPECT_TRUE(user.CanReach("txtPassword"));
        EXPECT_TRUE(FormOf(user).lblName.Visible());
        EXPECT_TRUE(FormOf(user).lblPassword.Visible());
        EXPECT_EQ(FormOf(user).txtName.BackColor(), kColorOfWindows);
        EXPECT_EQ(FormOf(user).txtPassword.BackColor(), kColorOfWindows);
        user.Click("btnAbbrechen");
    });
}

TEST_F(DBLoginTest, UntickingTheBoxGoesToTheDatabase)
{
    Login([](User& user) {
        user.Click("Check1");
        user.Click("Check1");
        EXPECT_EQ(user.FocusedControl(), "cmbDatabase");
        user.Click("btnAbbrechen");
    });
}

TEST_F(DBLoginTest, UntickingTheBoxStaysWhenTheDatabaseCannotBeChosen)
{
    Login([](User& user) {
        FormOf(user).cmbDatabase.SetEnabled(false);
        user.Click("Check1");
        user.Click("Check1");
        EXPECT_EQ(user.FocusedControl(), "Check1");
        user.Click("btnAbbrechen");
    });
}

TEST_F(DBLoginTest, TheUserThatAHostGaveWithWindowsAuthenticationComesBackToo)
{
    windows = -1;
    Login([](User& user) {
        user.Click("Check1");
        EXPECT_EQ(user.Text("txtName", "Text"), "förster");
        user.Type("txtPassword", "neu");
        user.Click("btnOK");
    });
    EXPECT_EQ(windows, 0);
    Expect("SRV1", {"WALD", "PROBE"}, "förster", "neu");
}

TEST_F(DBLoginTest, CancelGivesBackTheWindowsFlagAsToggled)
{
    Login([](User& user) {
        user.Click("Check1");
        user.Click("btnAbbrechen");
    });
    EXPECT_NE(windows, 0);
    EXPECT_EQ(ok, 0);
    Expect("SRV1", {"WALD", "PROBE"}, "förster", "geheim");
}

TEST_F(DBLoginTest, StartsInThePasswordWhenTheUserIsKnown)
{
    Login([](User& user) {
        EXPECT_EQ(user.FocusedControl(), "txtPassword");
        user.Click("btnAbbrechen");
    });
}

TEST_F(DBLoginTest, StartsInTheUserWhenItIsEmpty)
{
    userName.clear();
    Login([](User& user) {
        EXPECT_EQ(user.FocusedControl(), "txtName");
        user.Click("btnAbbrechen");
    });
}

TEST_F(DBLoginTest, StartsInTheServerWithWindowsAuthentication)
{
    windows = -1;
    Login([](User& user) {
        EXPECT_EQ(user.FocusedControl(), "txtServer");
        user.Click("btnAbbrechen");
    });
}

TEST_F(DBLoginTest, ABoxThatIsEnteredIsMarkedWhole)
{
    Login([](User& user) {
        EXPECT_EQ(user.Text("txtPassword", "SelLength"), "6");
        user.Focus("txtServer");
        EXPECT_EQ(user.Text("txtServer", "SelLength"), "4");
        user.Focus("cmbDatabase");
        EXPECT_EQ(user.Text("cmbDatabase", "SelLength"), "4");
        user.Click("btnAbbrechen");
    });
}

TEST_F(DBLoginTest, EnterGoesThroughTheBoxesAndEndsWithOk)
{
    Login([](User& user) {
        user.Focus("txtServer");
        user.Keys("{ENTER}");
        EXPECT_EQ(user.FocusedControl(), "cmbDatabase");
        user.Keys("{ENTER}");
        EXPECT_EQ(user.FocusedControl(), "txtName");
        user.Keys("{ENTER}");
        EXPECT_EQ(user.FocusedControl(), "txtPassword");
        user.Keys("{ENTER}");
        EXPECT_FALSE(user.Form().IsLoaded());
    });
    EXPECT_NE(ok, 0);
}

TEST_F(DBLoginTest, EnterInTheDatabaseIsOkWithWindowsAuthentication)
{
    windows = -1;
    Login([](User& user) {
        user.Keys("{ENTER}");
        EXPECT_EQ(user.FocusedControl(), "cmbDatabase");
        user.Keys("{ENTER}");
    });
    EXPECT_NE(ok, 0);
}

TEST_F(DBLoginTest, EnterLeavesNoCharacterInTheBoxes)
{
    Login([](User& user) {
        user.Focus("txtServer");
        user.Keys("{ENTER}{ENTER}{ENTER}{ENTER}");
    });
    Expect("SRV1", {"WALD", "PROBE"}, "förster", "geheim");
}

namespace {

struct Place {
    std::int32_t lblName, txtName, lblPassword, txtPassword, btnOK, btnAbbrechen, frameHeight, formHeight;
    bool operator==(const Place&) const = default;
    static Place Of(F_DBLogin& form)
    {
        return {form.lblName.Top(), form.txtName.Top(),      form.lblPassword.Top(), form.txtPassword.Top(),
                form.btnOK.Top(),   form.btnAbbrechen.Top(), form.Frame1.Height(),   form.Height()};
    }
    Place Higher(std::int32_t twips) const
    {
        return {lblName - twips, txtName - twips,      lblPassword - twips, txtPassword - twips,
                btnOK - twips,   btnAbbrechen - twips, frameHeight - twips, formHeight - twips};
    }
};

constexpr const char* kServerSide[] = {"Check1", "lblServer", "txtServer", "lblDatabase", "cmbDatabase"};

}  // namespace

TEST_F(DBLoginTest, ClientBBAsksForNameAndPasswordAlone)
{
    client = "BB";
    Login([](User& user) {
        for (const char* control : kServerSide)
            EXPECT_FALSE(user.Form().FindControl(control)->Visible()) << control;
        for (const char* control : {"txtName", "txtPassword", "btnOK", "btnAbbrechen"})
            EXPECT_TRUE(user.CanReach(control)) << control;
        user.Click("btnAbbrechen");
    });
}

TEST_F(DBLoginTest, ClientBBPullsTheRestUp)
{
    Place usual{}, pulled{};
    Login([&](User& user) {
        usual = Place::Of(FormOf(user));
        user.Click("btnAbbrechen");
    });
    client = "BB";
    Login([&](User& user) {
        pulled = Place::Of(FormOf(user));
        user.Click("btnAbbrechen");
    });
    EXPECT_EQ(pulled, usual.Higher(1050));
}

TEST_F(DBLoginTest, ClientBBPullsTheRestUpOnceAtEveryLogin)
{
    client = "BB";
    Place first{}, second{};
    Login([&](User& user) {
        first = Place::Of(FormOf(user));
        user.Click("btnAbbrechen");
    });
    Login([&](User& user) {
        second = Place::Of(FormOf(user));
        user.Click("btnAbbrechen");
    });
    EXPECT_EQ(second, first);
}

TEST_F(DBLoginTest, ClientBBLogsInByNameAndPassword)
{
    client = "BB";
    userName.clear();
    Login([](User& user) {
        EXPECT_EQ(user.FocusedControl(), "txtName");
        user.Keys("amt{ENTER}neu{ENTER}");
    });
    Expect("SRV1", {"WALD", "PROBE"}, "amt", "neu");
    EXPECT_NE(ok, 0);
}

TEST_F(DBLoginTest, ClientBBWithWindowsAuthenticationKeepsEveryControl)
{
    client = "BB";
    windows = -1;
    Place withClient{}, usual{};
    Login([&](User& user) {
        for (const char* control : kServerSide)
            EXPECT_TRUE(user.Form().FindControl(control)->Visible()) << control;
        withClient = Place::Of(FormOf(user));
        user.Click("btnAbbrechen");
    });
    client = "";
    Login([&](User& user) {
        usual = Place::Of(FormOf(user));
        user.Click("btnAbbrechen");
    });
    EXPECT_EQ(withClient, usual);
}

TEST_F(DBLoginTest, OtherClientsSeeEveryControl)
{
    client = "SACHSEN";
    Login([](User& user) {
        for (const char* control : kServerSide)
            EXPECT_TRUE(user.CanReach(control) || control[0] == 'l') << control;
        user.Click("btnAbbrechen");
    });
}

TEST_F(DBLoginTest, NoDatabaseAtAllIsAnError)
{
    databases.clear();
    EXPECT_EQ(
        ErrorOf([this] { c_DBLogin().DBLogin(server, databases, userName, password, windows, ok, language, client); }),
        basic::kErrSubscript);
    Expect("SRV1", {}, "förster", "geheim");
}

TEST_F(DBLoginTest, ALoginAfterThatErrorWorks)
{
    databases.clear();
    ErrorOf([this] { c_DBLogin().DBLogin(server, databases, userName, password, windows, ok, language, client); });
    databases = {"WALD"};
    Login([](User& user) {
        EXPECT_EQ(user.Lines("cmbDatabase"), (Texts{"WALD"}));
        user.Click("btnOK");
    });
    EXPECT_NE(ok, 0);
}

TEST_F(DBLoginTest, TheFormStaysAndStillAnswersAfterItHasClosed)
{
    Login([](User& user) {
        user.Type("txtServer", "SRV2");
        user.Click("btnOK");
    });
    ASSERT_TRUE(FormInstance<F_DBLogin>::Exists());
    const auto form = FormInstance<F_DBLogin>::Get();
    EXPECT_FALSE(form->IsLoaded());
    EXPECT_EQ(form->strServer, "SRV2");
    EXPECT_EQ(form->strDatabase, "WALD");
    EXPECT_EQ(form->strUser, "förster");
    EXPECT_EQ(form->strPassword, "geheim");
    EXPECT_FALSE(form->bolWindows);
}

TEST_F(DBLoginTest, TheNextLoginMeetsTheSameForm)
{
    Login([](User& user) { user.Click("btnOK"); });
    const auto first = FormInstance<F_DBLogin>::Get();
    Login([&](User& user) {
        EXPECT_EQ(&user.Form(), first.get());
        user.Click("btnOK");
    });
}

TEST_F(DBLoginTest, TheNextLoginStartsWithItsOwnValues)
{
    windows = -1;
    Login([](User& user) { user.Click("btnOK"); });
    windows = 0;
    server = "SRV3";
    userName = "amt";
    password = "p";
    databases = {"A", "B"};
    Login([](User& user) {
        EXPECT_EQ(user.Text("txtServer", "Text"), "SRV3");
        EXPECT_EQ(user.Lines("cmbDatabase"), (Texts{"A", "B"}));
        EXPECT_EQ(user.Text("txtName", "Text"), "amt");
        EXPECT_EQ(user.Text("txtPassword", "Text"), "p");
        EXPECT_TRUE(user.CanReach("txtName"));
        EXPECT_EQ(FormOf(user).txtName.BackColor(), kColorOfWindows);
        user.Click("btnOK");
    });
    EXPECT_EQ(windows, 0);
}

TEST_F(DBLoginTest, OpensNothing)
{
    Login([](User& user) { user.Click("btnOK"); });
    EXPECT_EQ(database.texts, Texts{});
    EXPECT_EQ(database.liveConnections, 1);  // the test's own
}

}  // namespace kvx::test
