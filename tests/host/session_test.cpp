#include "host/Session.h"

#include "ScratchFolder.h"
#include "adapters/sqlite/SqliteDriver.h"
#include "host/Login.h"
#include "host/SampleDatabase.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

using namespace kvx;
using namespace kvx::host;
namespace fs = std::filesystem;

namespace {

// One sample database for all tests here: none of them writes.
class HostSession : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        adapters::sqlite::RegisterSqliteDriver();
        scratch = new ScratchFolder;
        file = EnsureSampleDatabase(scratch->path);
    }
    static void TearDownTestSuite()
    {
        delete scratch;
        scratch = nullptr;
    }
    static Session Open(const Options& options, std::string_view user = "foerster")
    {
        return OpenSession(options, FileConnectionString(file, user, kSamplePassword), "/opt/korvex");
    }
    static std::string Refusal(const std::string& connectionString)
    {
        try {
            OpenSession({}, connectionString, "/opt/korvex");
        } catch (const StartError& error) {
            EXPECT_EQ(error.Status(), StartError::kFailed);
            EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos);
            return error.what();
        }
        return "";
    }
    static inline ScratchFolder* scratch = nullptr;
    static inline fs::path file;
};

}  // namespace

TEST_F(HostSession, TheOneWhoLogsInIsTheUserAndHasHisLevel)
{
    const Session session = Open({});
    EXPECT_EQ(session.kvxvar.ID_USER, 3);
    EXPECT_EQ(session.kvxvar.ID_ACCESS_LEVELS, 2);
    EXPECT_EQ(session.userName, "Jörg Förster, Revier Birkenhain");
    EXPECT_EQ(session.levelName, "Revier Birkenhain");
    EXPECT_EQ(session.databaseName, "sample.db");
}

TEST_F(HostSession, AUserWithoutALevelHasLevelZero)
{
    EXPECT_EQ(Open({}, "admin").kvxvar.ID_ACCESS_LEVELS, 0);
}

TEST_F(HostSession, OptionsOverrideUserAndLevel)
{
    Options options;
    options.user = 5;
    EXPECT_EQ(Open(options).kvxvar.ID_USER, 5);
    EXPECT_EQ(Open(options).kvxvar.ID_ACCESS_LEVELS, 6);
    options.accessLevel = 0;
    EXPECT_EQ(Open(options).kvxvar.ID_ACCESS_LEVELS, 0);
    EXPECT_EQ(Open(options).levelName, "");
    options.user = 4711;  // no such user: the number stands all the same
    EXPECT_EQ(Open(options).kvxvar.ID_USER, 4711);
    EXPECT_EQ(Open(options).userName, "");
}

TEST_F(HostSession, TheRecordIsFilledFromTheOptions)
{
    Options options;
    options.language = "ENGLISH";
    options.client = "BB";
    options.oracle = true;
    const KvxVar kvxvar = Open(options).kvxvar;
    EXPECT_EQ(kvxvar.strLanguage, "ENGLISH");
    EXPECT_EQ(kvxvar.g_Client, "BB");
    EXPECT_NE(kvxvar.bOracle, 0);
    EXPECT_EQ(kvxvar.strAppPath, "/opt/korvex");
    EXPECT_EQ(kvxvar.strDateFormat, "DD.MM.YYYY");
    EXPECT_EQ(kvxvar.strDBUser, "foerster");
    EXPECT_EQ(kvxvar.strDBPassword, kSamplePassword);
    EXPECT_EQ(kvxvar.strConnection, FileConnectionString(file, "foerster", kSamplePassword));
}

TEST_F(HostSession, AMissingDatabaseIsNamedAndNotMade)
{
    const fs::path missing = scratch->path / "missing.db";
    const std::string refusal = Refusal(FileConnectionString(missing));
    EXPECT_EQ(refusal.find("the database cannot be opened: "), 0U) << refusal;
    EXPECT_NE(refusal.find("missing.db"), std::string::npos) << refusal;
    EXPECT_FALSE(fs::exists(missing));
}

TEST_F(HostSession, AFileThatIsNoDatabaseIsRefused)
{
    const fs::path letter = scratch->path / "letter.db";
    std::ofstream(letter) << std::string(5000, 'x');
    EXPECT_NE(Refusal(FileConnectionString(letter)).find("letter.db"), std::string::npos);
}

TEST_F(HostSession, ADatabaseWithoutStandsIsRefused)
{
    const std::string refusal = Refusal("Provider=SQLite;Data Source=:memory:");
    EXPECT_NE(refusal.find("WALDORT"), std::string::npos) << refusal;
}

TEST_F(HostSession, AWrongPasswordIsRefused)
{
    EXPECT_NE(Refusal(FileConnectionString(file, "admin", "Wald")), "");
    EXPECT_NE(Refusal(FileConnectionString(file)), "");
}

TEST_F(HostSession, AQuoteInAUserNameEndsNoStatement)
{
    EXPECT_NE(Refusal(FileConnectionString(file, "o'neill", "x")), "");
}

TEST_F(HostSession, AnUnknownProviderIsRefused)
{
    EXPECT_EQ(Refusal("Provider=Nothing;Data Source=forest"),
              "the database cannot be opened: \"forest\": Provider cannot be found. It may not be properly installed.");
}

TEST(HostLogin, ABareNameIsAFileOfTheDataFolder)
{
    const Login login{"lokal", {"sample", "other"}, "anna", "a;b", false, true};
    EXPECT_EQ(ConnectionStringOf(login, "/data/korvex"), FileConnectionString("/data/korvex/sample.db", "anna", "a;b"));
}

TEST(HostLogin, APathIsTakenAsItStands)
{
    EXPECT_EQ(ConnectionStringOf({"", {"/srv/forest.sqlite"}, "anna", "x", false, true}, "/data"),
              FileConnectionString("/srv/forest.sqlite", "anna", "x"));
}

TEST(HostLogin, WindowsAuthenticationNamesNoUser)
{
    EXPECT_EQ(ConnectionStringOf({"LOKAL", {"sample"}, "anna", "x", true, true}, "/data"),
              FileConnectionString("/data/sample.db"));
    EXPECT_EQ(ConnectionStringOf({"SRV1", {"Forst"}, "anna", "x", true, true}, "/data"),
              "Server=SRV1;Database=Forst;Trusted_Connection=yes");
}

TEST(HostLogin, AnotherServerIsReachedThroughItsName)
{
    EXPECT_EQ(ConnectionStringOf({"SRV1", {"Forst"}, "anna", "x", false, true}, "/data"),
              "Server=SRV1;Database=Forst;UID=anna;PWD=x");
}
