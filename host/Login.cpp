#include "host/Login.h"

#include "ado/Driver.h"
#include "basic/Text.h"
#include "entry/c_DBLogin.h"
#include "host/SampleDatabase.h"

#include <algorithm>
#include <iterator>

namespace kvx::host {

namespace {
constexpr std::string_view kDatabaseEnding = ".db";
}

Login LoginTo(const std::filesystem::path& file)
{
    Login login;
    login.server = kLocalServer;
    login.databases = {file.stem().string()};
    std::error_code none;
    std::vector<std::string> others;
    for (const auto& entry : std::filesystem::directory_iterator(file.parent_path(), none))
        if (entry.path().extension() == kDatabaseEnding && entry.path().stem() != login.databases[0])
            others.push_back(entry.path().stem().string());
    std::ranges::sort(others);
    std::ranges::copy(others, std::back_inserter(login.databases));
    return login;
}

Login AskLogin(Login login, const Options& options)
{
    std::int16_t windows = login.windows ? -1 : 0, ok = 0;
    c_DBLogin().DBLogin(login.server, login.databases, login.user, login.password, windows, ok, options.language,
                        options.client);
    login.windows = windows != 0;
    login.ok = ok != 0;
    return login;
}

std::string ConnectionStringOf(const Login& login, const std::filesystem::path& dataFolder)
{
    const std::string user = login.windows ? "" : login.user;
    const std::string& database = login.databases.at(0);
    if (login.server.empty() || basic::SameTextIgnoringCase(login.server, kLocalServer)) {
        std::filesystem::path file = database;
        if (!file.has_parent_path()) file = dataFolder / file;
        if (!file.has_extension()) file += kDatabaseEnding;
        return FileConnectionString(file, user, login.password);
    }
    ado::ConnectionProperties properties;
    properties.Set("Server", login.server);
    properties.Set("Database", database);
    if (user.empty()) {
        properties.Set("Trusted_Connection", "yes");
    } else {
        properties.Set("UID", user);
        properties.Set("PWD", login.password);
    }
    return properties.ToString();
}

}  // namespace kvx::host
