#include "entry/c_DBLogin.h"

#include "common/F_DBLogin.h"
#include "common/FormInstance.h"
#include "common/ModuleState.h"

namespace kvx {

basic::Variant c_DBLogin::DBLogin(std::string& strDBServer_dll, std::vector<std::string>& strDBName_dll,
                                  std::string& strDBUserID_dll, std::string& strDBUserPassword_dll,
                                  std::int16_t& bolWinNTAut_dll, std::int16_t& blnOK_dll,
                                  const std::string& strLanguage_dll, const std::string& g_Client)
{
    // The form is kept: its values can be read after it has closed, and the next login meets the same instance.
    const auto form = FormInstance<F_DBLogin>::Get();
    form->Run(strDBServer_dll, strDBName_dll, strDBUserID_dll, strDBUserPassword_dll, bolWinNTAut_dll != 0,
              strLanguage_dll, g_Client);
    strDBServer_dll = form->strServer;
    strDBName_dll[0] = form->strDatabase;
    strDBUserPassword_dll = form->strPassword;
    bolWinNTAut_dll = form->bolWindows ? -1 : 0;
    if (!form->bolWindows && Module().blnFormOK) strDBUserID_dll = form->strUser;
    blnOK_dll = Module().blnFormOK ? -1 : 0;
    return {};
}

}  // namespace kvx
