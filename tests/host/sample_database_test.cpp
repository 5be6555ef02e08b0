#include "host/SampleDatabase.h"

#include "ScratchFolder.h"
#include "adapters/sqlite/SqliteDriver.h"
#include "ado/Connection.h"
#include "basic/Convert.h"
#include "basic/Error.h"
#include "host/Options.h"
#include "host/SampleScripts.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using namespace kvx;
using namespace kvx::host;
namespace fs = std::filesystem;

namespace {

// Sets an environment variable for one test; nullptr takes it away.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name)
    {
        if (const char* old = std::getenv(name)) old_ = old;
        if (value != nullptr)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }
    ~Variable() { old_.empty() ? unsetenv(name_) : setenv(name_, old_.c_str(), 1); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    std::string old_;
};

ado::Connection Open(const fs::path& file, std::string_view user, std::string_view password)
{
    adapters::sqlite::RegisterSqliteDriver();
    ado::Connection connection;
    connection.Open(FileConnectionString(file, user, password));
    return connection;
}

std::int32_t Count(const ado::Connection& connection, const std::string& statement)
{
    return basic::CLng(connection.Execute(statement)[0].Value());
}

std::vector<std::string> FilesIn(const fs::path& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename());
    return names;
}

std::string Refusal(const fs::path& folder)
{
    try {
        EnsureSampleDatabase(folder);
    } catch (const StartError& error) {
        EXPECT_EQ(error.Status(), StartError::kFailed);
        return error.what();
    }
    return "";
}

}  // namespace

TEST(SampleDatabase, TheDataFolderIsTheUsers)
{
    const Variable home("HOME", "/home/anna");
    {
        const Variable data("XDG_DATA_HOME", "/data/anna");
        EXPECT_EQ(DataFolder(), "/data/anna/korvex");
    }
    for (const char* none : {static_cast<const char*>(nullptr), "", "relative/path"}) {
        const Variable data("XDG_DATA_HOME", none);
        EXPECT_EQ(DataFolder(), "/home/anna/.local/share/korvex");
    }
}

TEST(SampleDatabase, WithoutAHomeThereIsNoPlaceForIt)
{
    const Variable home("HOME", nullptr), data("XDG_DATA_HOME", nullptr);
    EXPECT_THROW(DataFolder(), StartError);
}

TEST(SampleDatabase, AllScriptsAreOnBoardInTheirOrder)
{
    std::ifstream order(fs::path(KVX_SOURCE_DIR) / "host/sample/order.txt");
    std::size_t script = 0;
    for (std::string name; std::getline(order, name); ++script) {
        std::ifstream stream(fs::path(KVX_SOURCE_DIR) / "host/sample" / name, std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(stream), {}};
        ASSERT_LT(script, SampleScripts().size());
        EXPECT_TRUE(SampleScripts()[script] == text) << name;
    }
    EXPECT_EQ(script, SampleScripts().size());
}

TEST(SampleDatabase, FirstUseMakesAWholeForestWithItsUsersAndNothingElse)
{
    const ScratchFolder scratch;
    const fs::path file = EnsureSampleDatabase(scratch.path / "share" / "korvex");
    EXPECT_EQ(file, scratch.path / "share" / "korvex" / "sample.db");
    EXPECT_EQ(FilesIn(file.parent_path()), std::vector<std::string>{"sample.db"});
    for (const SampleUser& user : kSampleUsers) {
        const ado::Connection connection = Open(file, user.name, kSamplePassword);
        EXPECT_GT(Count(connection, "SELECT COUNT(*) FROM WALDORT"), 4000) << user.name;
        EXPECT_EQ(Count(connection, "SELECT COUNT(*) FROM USERS WHERE NAME = '" + std::string(user.name) + "'"), 1);
    }
}

TEST(SampleDatabase, AWrongPasswordAndAnUnknownUserAreRefused)
{
    const ScratchFolder scratch;
    const fs::path file = EnsureSampleDatabase(scratch.path);
    EXPECT_THROW(Open(file, "admin", "Wald"), basic::Error);
    EXPECT_THROW(Open(file, "nobody", kSamplePassword), basic::Error);
    EXPECT_THROW(Open(file, "", ""), basic::Error);
}

TEST(SampleDatabase, ASecondUseKeepsWhatTheUserChanged)
{
    const ScratchFolder scratch;
    Open(EnsureSampleDatabase(scratch.path), "admin", kSamplePassword).Execute("DELETE FROM MODELS");
    const ado::Connection again = Open(EnsureSampleDatabase(scratch.path), "admin", kSamplePassword);
    EXPECT_EQ(Count(again, "SELECT COUNT(*) FROM MODELS"), 0);
}

TEST(SampleDatabase, WhatAnInterruptedFirstUseLeftIsReplaced)
{
    const ScratchFolder scratch;
    for (const char* name : {"sample.db.new", "sample.db.new-wal", "sample.db.new-shm"})
        std::ofstream(scratch.path / name) << "half a database";
    const ado::Connection connection = Open(EnsureSampleDatabase(scratch.path), "admin", kSamplePassword);
    EXPECT_GT(Count(connection, "SELECT COUNT(*) FROM WALDORT"), 4000);
}

TEST(SampleDatabase, HostsThatStartTogetherShareOneDatabase)
{
    const ScratchFolder scratch;
    std::vector<pid_t> hosts;
    for (int i = 0; i < 4; ++i) {
        const pid_t host = fork();
        ASSERT_NE(host, -1);
        if (host == 0) {
            int status = 1;
            try {
                const fs::path file = EnsureSampleDatabase(scratch.path);
                const ado::Connection connection = Open(file, "admin", kSamplePassword);
                connection.Execute("INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE) VALUES ('HOST" +
                                   std::to_string(i) + "', 1)");
                status = 0;
            } catch (const std::exception&) {
                status = 1;
            }
            _exit(status);
        }
        hosts.push_back(host);
    }
    for (const pid_t host : hosts) {
        int status = -1;
        waitpid(host, &status, 0);
        EXPECT_EQ(status, 0);
    }
    const ado::Connection connection = Open(scratch.path / "sample.db", "admin", kSamplePassword);
    EXPECT_EQ(Count(connection, "SELECT COUNT(*) FROM OPTIONEN WHERE PROPERTY_ID LIKE 'HOST%'"), 4);
    EXPECT_FALSE(fs::exists(scratch.path / "sample.db.new"));
}

// No permissions: a test may run as the administrator, whom they do not stop.
TEST(SampleDatabase, AFolderThatCannotBeMadeIsNamed)
{
    const ScratchFolder scratch;
    std::ofstream(scratch.path / "share") << "a file";
    const std::string refusal = Refusal(scratch.path / "share" / "korvex");
    EXPECT_EQ(refusal, "the sample database \"" + (scratch.path / "share/korvex/sample.db").string() +
                           "\" cannot be made: Not a directory");
}

TEST(SampleDatabase, AFolderThatCannotBeWrittenToIsNamed)
{
    const std::string refusal = Refusal("/proc/self");
    EXPECT_EQ(refusal.find("the sample database \"/proc/self/sample.db\" cannot be made: "), 0U) << refusal;
}
