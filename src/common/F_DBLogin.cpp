#include "common/F_DBLogin.h"

#include "basic/Text.h"
#include "common/M_Common.h"
#include "common/ModuleState.h"

namespace kvx {

namespace {
constexpr std::int32_t kRowTwips = 350;
constexpr std::int32_t kServerRowsTwips = 3 * kRowTwips;  // server, database and the check box
}  // namespace

F_DBLogin::F_DBLogin() : Form("F_DBLogin")
{
    Wire();
}

void F_DBLogin::Design()
{
    SetCaption("Datenbankauthentifizierung");
    SetSize(5400, 3120);

    Frame1.Move(120, 60, 5070, 2100);
    struct Row {
        ui::Label* label;
        ui::Control* box;
        std::string_view caption;
        std::int32_t row;
    };
    const Row rows[] = {
        {&lblServer, &txtServer, "&Server", 0},
        {&lblDatabase, &cmbDatabase, "&Datenbank", 1},
        {&lblName, &txtName, "&Benutzername", 3},
        {&lblPassword, &txtPassword, "&Kennwort", 4},
    };
    for (const Row& row : rows) {
        row.label->SetContainer(&Frame1);
        row.label->Move(150, 225 + row.row * kRowTwips + 45, 1500, 225);
        row.label->SetCaption(row.caption);
        row.box->SetContainer(&Frame1);
        row.box->Move(1700, 225 + row.row * kRowTwips, 3200, 315);
    }
    Check1.SetContainer(&Frame1);
    Check1.Move(1700, 225 + 2 * kRowTwips, 3200, 315);
    Check1.SetCaption("&Windows-Authentifizierung");
    txtPassword.SetPasswordChar("*");

    btnOK.Move(2640, 2280, 1200, 345);
    btnOK.SetCaption("OK");
    btnAbbrechen.Move(3990, 2280, 1200, 345);
    btnAbbrechen.SetCaption("Abbrechen");
    btnAbbrechen.SetCancel(true);

    std::int16_t tabIndex = 0;
    for (ui::Control* control : std::initializer_list<ui::Control*>{&lblServer, &txtServer, &lblDatabase, &cmbDatabase,
                                                                    &Check1, &lblName, &txtName, &lblPassword,
                                                                    &txtPassword, &btnOK, &btnAbbrechen})
        control->SetTabIndex(tabIndex++);
}

void F_DBLogin::Wire()
{
    On(FormActivate, &F_DBLogin::Form_Activate);
    On(QueryUnload, &F_DBLogin::Form_QueryUnload);
    On(Check1.Click, &F_DBLogin::Check1_Click);
    On(txtServer.KeyPress, &F_DBLogin::txtServer_KeyPress);
    On(cmbDatabase.KeyPress, &F_DBLogin::cmbDatabase_KeyPress);
    On(txtName.KeyPress, &F_DBLogin::txtName_KeyPress);
    On(txtPassword.KeyPress, &F_DBLogin::txtPassword_KeyPress);
    On(btnOK.Click, &F_DBLogin::btnOK_Click);
    On(btnAbbrechen.Click, &F_DBLogin::btnAbbrechen_Click);
    for (ui::TextBox* box : {&txtServer, &txtName, &txtPassword}) box->GotFocus.Connect(SelectAllOnFocus);
    cmbDatabase.GotFocus.Connect(SelectAllOnFocus);
}

void F_DBLogin::Run(std::string_view strDBServer_dll, const std::vector<std::string>& strDBName_dll,
                    std::string_view strDBUserID_dll, std::string_view strDBUserPassword_dll, bool bolWinNTAut_dll,
                    std::string_view strLanguage_dll, std::string_view g_Client_dll)
{
    Load();
    strServer = strDBServer_dll;
    strDatabase = basic::Piece(strDBName_dll, 0);
    strUser = strDBUserID_dll;
    strPassword = strDBUserPassword_dll;
    bolWindows = bolWinNTAut_dll;
    strLanguage = strLanguage_dll;
    g_Client = g_Client_dll;

    txtName.SetText(strUser);
    txtPassword.SetText(strPassword);
    txtServer.SetText(strServer);
    cmbDatabase.SetText(strDatabase);
    Check1.SetValue(bolWindows ? 1 : 0);

    cmbDatabase.Clear();
    for (const std::string& name : strDBName_dll) cmbDatabase.AddItem(name);
    cmbDatabase.SetListIndex(0);

    if (g_Client == "BB" && Check1.Value() == 0) HideServerSide();
    Show();
}

void F_DBLogin::HideServerSide()
{
    for (ui::Control* control :
         std::initializer_list<ui::Control*>{&Check1, &lblServer, &txtServer, &lblDatabase, &cmbDatabase})
        control->SetVisible(false);
    for (ui::Control* control :
         std::initializer_list<ui::Control*>{&lblName, &txtName, &lblPassword, &txtPassword, &btnOK, &btnAbbrechen})
        control->SetTop(control->Top() - kServerRowsTwips);
    Frame1.SetHeight(Frame1.Height() - kServerRowsTwips);
    SetHeight(Height() - kServerRowsTwips);
}

void F_DBLogin::Form_Activate()
{
    if (bolWindows) {
        ui::TextBox& box = txtServer.Enabled() ? txtServer : txtPassword;
        box.SetFocus();
    } else {
        ui::TextBox& box = txtName.Enabled() && txtName.Text().empty() ? txtName : txtPassword;
        box.SetFocus();
    }
}

// The close box cancels: an OK of an earlier login must not count for this one.
void F_DBLogin::Form_QueryUnload(std::int16_t&, std::int16_t UnloadMode)
{
    if (UnloadMode == ui::vbFormControlMenu) Module().blnFormOK = false;
}

void F_DBLogin::Check1_Click()
{
    const bool windows = Check1.Value() != 0;
    if (windows) {
        strSavedUser = txtName.Text();
        txtName.SetText("");
        txtPassword.SetText("");
    }
    txtName.SetEnabled(!windows);
    txtPassword.SetEnabled(!windows);
    if (!windows) txtName.SetText(strSavedUser);
    lblName.SetVisible(!windows);
    lblPassword.SetVisible(!windows);
    bolWindows = windows;
    if (!windows && cmbDatabase.Enabled() && cmbDatabase.Visible()) cmbDatabase.SetFocus();
    for (ui::TextBox* box : {&txtName, &txtPassword})
        box->SetBackColor(windows ? ui::kColorMenu : ui::kColorWindow);
}

void F_DBLogin::txtServer_KeyPress(std::int32_t& KeyAscii)
{
    if (KeyAscii != ui::vbKeyReturn) return;
    KeyAscii = 0;
    cmbDatabase.SetFocus();
}

void F_DBLogin::cmbDatabase_KeyPress(std::int32_t& KeyAscii)
{
    if (KeyAscii != ui::vbKeyReturn) return;
    KeyAscii = 0;
    if (txtName.Enabled()) {
        txtName.SetFocus();
    } else {
        btnOK_Click();
    }
}

void F_DBLogin::txtName_KeyPress(std::int32_t& KeyAscii)
{
    if (KeyAscii != ui::vbKeyReturn) return;
    KeyAscii = 0;
    txtPassword.SetFocus();
}

void F_DBLogin::txtPassword_KeyPress(std::int32_t& KeyAscii)
{
    if (KeyAscii != ui::vbKeyReturn) return;
    KeyAscii = 0;
    btnOK_Click();
}

void F_DBLogin::btnOK_Click()
{
    strServer = txtServer.Text();
    strDatabase = cmbDatabase.Text();
    strUser = txtName.Text();
    strPassword = txtPassword.Text();
    Module().blnFormOK = true;
    Unload();
}

void F_DBLogin::btnAbbrechen_Click()
{
    Module().blnFormOK = false;
    Unload();
}

}  // namespace kvx
