#pragma once

#include "host/Options.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::host {

/// What the login dialog is given, and what it gives back.
struct Login {
    std::string server;                  ///< "lokal" = embedded databases of the data folder
    std::vector<std::string> databases;  ///< the current one first
    std::string user, password;
    bool windows = false;
    bool ok = false;
};

/// Server name of the embedded databases.
constexpr std::string_view kLocalServer = "lokal";

/// Offers an embedded database and the others of its folder.
Login LoginTo(const std::filesystem::path& file);

/// Shows the login dialog.
Login AskLogin(Login login, const Options& options);

/// @param dataFolder  where a database without a folder of its own lies
std::string ConnectionStringOf(const Login& login, const std::filesystem::path& dataFolder);

}  // namespace kvx::host
