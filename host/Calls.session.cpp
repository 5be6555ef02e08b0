#include "host/Calls.h"

#include "basic/Convert.h"
#include "basic/Text.h"
#include "entry/C_Version.h"
#include "host/Login.h"

namespace kvx::host::calls {

void DLL_Version(Call& call)
{
    call.outcome.Result(C_Version().DLL_Version());
}

void DBLogin(Call& call)
{
    const ado::ConnectionProperties now(call.session.kvxvar.strConnection);
    const std::string database = now.Get({"initial catalog", "database"});
    const std::filesystem::path file = now.Get({"data source"});
    Login login = LoginTo(file);
    if (!database.empty()) {
        login.server = now.Get({"server"});
        login.databases = {database};
    }
    login.user = call.session.kvxvar.strDBUser;
    const Login before = login;
    Options options;
    options.language = call.session.kvxvar.strLanguage;
    options.client = call.session.kvxvar.g_Client;
    login = AskLogin(login, options);

    Outcome& outcome = call.outcome;
    outcome.ByReference("strDBServer_dll", before.server, login.server);
    outcome.ByReference("strDBName_dll(0)", before.databases[0], login.databases[0]);
    outcome.ByReference("strDBUserID_dll", before.user, login.user);
    outcome.ByReference("strDBUserPassword_dll", basic::String(basic::Len(before.password), "*"),
                        basic::String(basic::Len(login.password), "*"));
    outcome.ByReference("bolWinNTAut_dll", basic::BooleanText(before.windows), basic::BooleanText(login.windows));
    outcome.ByReference("blnOK_dll", basic::BooleanText(false), basic::BooleanText(login.ok));
    if (login.ok && call.reconnect) call.reconnect(ConnectionStringOf(login, file.parent_path()));
}

}  // namespace kvx::host::calls
