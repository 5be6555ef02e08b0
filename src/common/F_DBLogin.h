#pragma once

#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/Form.h"
#include "ui/Frame.h"
#include "ui/Label.h"
#include "ui/TextBox.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kvx {

/// "Datenbankauthentifizierung": server, database, user and password of the connection that the host will open.
/// Shown before any session exists, so its words are fixed. It opens nothing: the values are the result, and they can
/// still be read after the dialog has closed. The password is held as plain text.
class F_DBLogin final : public ui::Form {
public:
    F_DBLogin();

    /// @param strDBName_dll   databases to offer; the first is the current one
    /// @param bolWinNTAut_dll Windows authentication: no user name and password are asked for
    /// @param strLanguage_dll kept; there are no texts to translate without a session
    /// @param g_Client_dll    "BB": a user logs in by name and password alone, unless Windows authentication is on
    /// @throws basic::Error 9: no database was given
    void Run(std::string_view strDBServer_dll, const std::vector<std::string>& strDBName_dll,
             std::string_view strDBUserID_dll, std::string_view strDBUserPassword_dll, bool bolWinNTAut_dll,
             std::string_view strLanguage_dll, std::string_view g_Client_dll);

    // Read by the launcher after Run.
    std::string strServer, strDatabase, strUser, strPassword;
    bool bolWindows = false;

    ui::Frame Frame1{*this, "Frame1"};
    ui::Label lblServer{*this, "lblServer"};
    ui::TextBox txtServer{*this, "txtServer"};
    ui::Label lblDatabase{*this, "lblDatabase"};
    ui::ComboBox cmbDatabase{*this, "cmbDatabase"};
    ui::CheckBox Check1{*this, "Check1"};
    ui::Label lblName{*this, "lblName"};
    ui::TextBox txtName{*this, "txtName"};
    ui::Label lblPassword{*this, "lblPassword"};
    ui::TextBox txtPassword{*this, "txtPassword"};
    ui::Button btnOK{*this, "btnOK"}, btnAbbrechen{*this, "btnAbbrechen"};

protected:
    void Design() override;

private:
    void Wire();
    void HideServerSide();

    void Form_Activate();
    void Form_QueryUnload(std::int16_t& Cancel, std::int16_t UnloadMode);
    void Check1_Click();
    void txtServer_KeyPress(std::int32_t& KeyAscii);
    void cmbDatabase_KeyPress(std::int32_t& KeyAscii);
    void txtName_KeyPress(std::int32_t& KeyAscii);
    void txtPassword_KeyPress(std::int32_t& KeyAscii);
    void btnOK_Click();
    void btnAbbrechen_Click();

    std::string strLanguage, g_Client;
    std::string strSavedUser;  // comes back when Windows authentication is switched off again
};

}  // namespace kvx
