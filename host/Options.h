#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kvx::host {

/// Why the host does not start: one line for the user. Ends the program with its status.
class StartError : public std::runtime_error {
public:
    static constexpr int kFailed = 1;
    static constexpr int kWrongUsage = 2;

    /// @param line  line breaks in it become blanks
    explicit StartError(std::string_view line, int status = kFailed);
    int Status() const { return status_; }

private:
    int status_;
};

/// What the command line asks for.
struct Options {
    std::optional<std::string> database;      ///< connection string; nothing = log in to the sample database
    std::string language = "DEUTSCH";         ///< "DEUTSCH" or "ENGLISH"
    std::string client;                       ///< "", "BB", "SACHSEN"
    std::optional<std::int32_t> user;         ///< ID_USER; nothing = the one who logged in
    std::optional<std::int32_t> accessLevel;  ///< ID_ACCESS_LEVELS; nothing = the user's own
    bool oracle = false;
    std::string traceFile;   ///< gets every statement; empty = none
    std::string tourFolder;  ///< gets the pictures of every dialog; empty = no tour
    bool drive = false;      ///< another program drives the host by messages
    bool show = false;       ///< driven, with windows
    bool help = false;
    bool version = false;

    bool English() const { return language == "ENGLISH"; }
};

/// Reads the arguments behind the program's name. A value stands in the next argument or behind "="; of an option given
/// twice the last counts.
/// @throws StartError with kWrongUsage
Options ParseOptions(std::span<const std::string_view> arguments);

/// What --help prints.
std::string HelpText();

}  // namespace kvx::host
