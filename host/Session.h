#pragma once

#include "host/Options.h"
#include "session/KvxVar.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace kvx::host {

/// Who works on what: the record that every call hands over, and the names that the window shows for its numbers.
struct Session {
    KvxVar kvxvar;
    std::string userName;      ///< USERS.LONGNAME; empty when the database knows no such user
    std::string levelName;     ///< ACCESS_LEVELS.NAME; empty without a level
    std::string databaseName;  ///< file or catalogue, for the status bar
};

/// Opens the database and fills the record. The user is the one of the options, else the one whose name logged in; the
/// level is that of the options, else the user's own.
/// @param appFolder  install folder of the host
/// @throws StartError the database cannot be opened, or holds no stands
Session OpenSession(const Options& options, std::string_view connectionString, const std::filesystem::path& appFolder);

/// What the user is told of a provider's refusal.
std::string RefusalText(std::string_view databaseName, std::string_view description);

}  // namespace kvx::host
