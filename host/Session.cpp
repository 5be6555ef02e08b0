#include "host/Session.h"

#include "ado/Driver.h"
#include "ado/Recordset.h"
#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Text.h"
#include "host/Trace.h"

#include <functional>

namespace kvx::host {

namespace {

// A quote in a name must not end the statement: unlike the dialogs, the host is free to double it.
std::string Quoted(std::string_view text)
{
    return "'" + basic::Replace(text, "'", "''") + "'";
}

// First row of the statement. Another installation's database may lack the host's own tables: then nothing is known.
bool ReadRow(const ado::Connection& connection, const std::string& statement,
             const std::function<void(const ado::Recordset&)>& read)
{
    try {
        ado::Recordset rows;
        rows.Open(statement, connection, ado::adOpenForwardOnly, ado::adLockReadOnly);
        if (rows.Eof()) return false;
        read(rows);
        return true;
    } catch (const basic::Error&) {
        return false;
    }
}

std::string DatabaseName(const ado::ConnectionProperties& properties)
{
    if (std::string catalogue = properties.Get({"initial catalog", "database"}); !catalogue.empty()) return catalogue;
    const std::filesystem::path file = properties.Get({"data source", "server", "dsn"});
    return file.filename().string();
}

std::int32_t IdOf(const basic::Variant& value)
{
    return value.IsNull() ? 0 : basic::CLng(value);
}

}  // namespace

std::string RefusalText(std::string_view databaseName, std::string_view description)
{
    std::string text = "the database cannot be opened: ";
    if (!databaseName.empty() && description.find(databaseName) == std::string_view::npos)
        text.append("\"").append(databaseName).append("\": ");
    return text.append(description);
}

Session OpenSession(const Options& options, std::string_view connectionString, const std::filesystem::path& appFolder)
{
    const HostStatements own;
    Session session;
    const ado::ConnectionProperties properties(connectionString);
    session.databaseName = DatabaseName(properties);
    KvxVar& kvxvar = session.kvxvar;
    try {
        kvxvar.dbAdo.SetConnectionString(connectionString);
        kvxvar.dbAdo.Open();
        // A file that is no database is found out by the first read only.
        ado::Recordset probe;
        probe.Open("SELECT ID_WALDORT FROM WALDORT WHERE 1=2", kvxvar.dbAdo, ado::adOpenForwardOnly,
                   ado::adLockReadOnly);
    } catch (const basic::Error& error) {
        throw StartError(RefusalText(session.databaseName, error.Description));
    }

    kvxvar.strConnection = connectionString;
    kvxvar.strLanguage = options.language;
    kvxvar.strDateFormat = "DD.MM.YYYY";
    kvxvar.strAppPath = appFolder.string();
    kvxvar.strIniFile = "korvex.ini";
    kvxvar.g_Client = options.client;
    kvxvar.bOracle = options.oracle ? -1 : 0;
    kvxvar.strDBUser = properties.Get({"user id", "uid"});
    kvxvar.strDBPassword = properties.Get({"password", "pwd"});

    const std::string who =
        options.user ? "ID_USER = " + std::to_string(*options.user) : "NAME = " + Quoted(kvxvar.strDBUser);
    kvxvar.ID_USER = options.user.value_or(0);
    ReadRow(kvxvar.dbAdo, "SELECT ID_USER, LONGNAME, ID_ACCESS_LEVELS FROM USERS WHERE " + who,
            [&](const ado::Recordset& row) {
                kvxvar.ID_USER = IdOf(row["ID_USER"].Value());
                session.userName = basic::ToText(row["LONGNAME"].Value());
                kvxvar.ID_ACCESS_LEVELS = IdOf(row["ID_ACCESS_LEVELS"].Value());
            });
    if (options.accessLevel) kvxvar.ID_ACCESS_LEVELS = *options.accessLevel;
    ReadRow(kvxvar.dbAdo, "SELECT NAME FROM ACCESS_LEVELS WHERE ID = " + std::to_string(kvxvar.ID_ACCESS_LEVELS),
            [&](const ado::Recordset& row) { session.levelName = basic::ToText(row["NAME"].Value()); });
    return session;
}

}  // namespace kvx::host
