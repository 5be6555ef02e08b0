#pragma once

#include "basic/Variant.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kvx {

/// Asks for the values of the database connection, which the host then opens itself.
class c_DBLogin {
public:
    /// @param strDBServer_dll       server; by reference: the dialog's server, also after Cancel
    /// @param strDBName_dll         databases to offer, the current one first; by reference: element 0 is the one chosen
    /// @param strDBUserID_dll       user; by reference: changes only when a database login was accepted with OK
    /// @param strDBUserPassword_dll password; by reference: the dialog's password, also after Cancel
    /// @param bolWinNTAut_dll       nonzero = Windows authentication; by reference: as the user left it
    /// @param blnOK_dll             by reference: nonzero when OK was pressed
    /// @param strLanguage_dll       kept by the dialog; its words are fixed, as there is no session yet
    /// @param g_Client              "BB": name and password alone are asked for, unless Windows authentication is on
    /// @return Empty
    /// @throws basic::Error 9: strDBName_dll is empty
    basic::Variant DBLogin(std::string& strDBServer_dll, std::vector<std::string>& strDBName_dll,
                           std::string& strDBUserID_dll, std::string& strDBUserPassword_dll,
                           std::int16_t& bolWinNTAut_dll, std::int16_t& blnOK_dll, const std::string& strLanguage_dll,
                           const std::string& g_Client);
};

}  // namespace kvx
