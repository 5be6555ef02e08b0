#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kvx::host {

/// Who may log in to the sample database.
struct SampleUser {
    std::string_view name;  ///< USERS.NAME
    std::string_view help;  ///< who that is and what is worth trying
};

// clang-format off
constexpr SampleUser kSampleUsers[] = {
    {"admin",     "administration: the common stands, all rights"},
    {"mueller",   "enterprise 0100: own stands below Müritz"},
    {"foerster",  "district 0101: with client BB no new stands"},
    {"schulze",   "enterprise 0200: the level above district 0201"},
    {"weiss",     "enterprise 0300: grey stands of others below Wörth"},
    {"direktion", "head office, level 9900, all rights"},
    {"gast",      "guest without rights"},
};
// clang-format on
constexpr std::string_view kSamplePassword = "wald";

/// "korvex" in $XDG_DATA_HOME, else in ~/.local/share.
/// @throws StartError neither is set
std::filesystem::path DataFolder();

/// The sample database of a folder; made with the folder when there is none. Two hosts may ask at once: one makes it,
/// the other waits. A half-made one is never seen under its name.
/// @return path of the database file
/// @throws StartError it cannot be made
std::filesystem::path EnsureSampleDatabase(const std::filesystem::path& folder);

/// Makes the sample database; the file must not be there.
/// @throws basic::Error the provider's
void CreateSampleDatabase(const std::filesystem::path& file);

/// Connection string for a database file of ours.
/// @param user empty = none is named
std::string FileConnectionString(const std::filesystem::path& file, std::string_view user = {},
                                 std::string_view password = {});

}  // namespace kvx::host
