#pragma once

#include "session/KvxVar.h"

#include <functional>
#include <string>
#include <string_view>

namespace kvx::test {

/// Where the scenarios of a program live, when it is not the embedded database. A program that links the tests of the
/// dialogs may set these to a server, and the same scripts run there.
struct ScenarioDatabase {
    /// Makes a database with the sample's tables and the rows of the script. @return its connection string
    std::function<std::string(const std::string& folder, const std::string& script)> make;
    /// The session of every scenario, e.g. Oracle's.
    std::function<void(KvxVar&)> session;
    /// A statement of the test itself, which is written as for SQL Server, in the engine's words.
    std::function<std::string(std::string_view)> words;
};
inline ScenarioDatabase scenarioDatabase;

}  // namespace kvx::test
