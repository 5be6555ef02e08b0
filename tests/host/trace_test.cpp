#include "host/Trace.h"

#include "adapters/sqlite/SqliteDriver.h"
#include "ado/Connection.h"
#include "basic/Error.h"
#include "host/Options.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

using namespace kvx;
using namespace kvx::host;

namespace {

class HostTrace : public testing::Test {
protected:
    HostTrace()
    {
        adapters::sqlite::RegisterSqliteDriver();
        connection.Open("Provider=SQLite;Data Source=:memory:");
    }
    static StatementSink Into(std::vector<std::string>& lines)
    {
        return [&lines](const ado::StatementRecord& record) { lines.push_back(TraceLine(record.text)); };
    }
    ado::Connection connection;
};

}  // namespace

TEST(HostTraceLine, LineEndsAreShownAndAllElseStandsAsSent)
{
    EXPECT_EQ(TraceLine("IF NOT EXISTS (SELECT 1)\r\nINSERT INTO T VALUES ('c:\\new', 'ä\t')\n\r"),
              "IF NOT EXISTS (SELECT 1)\\r\\nINSERT INTO T VALUES ('c:\\new', 'ä\t')\\n\\r");
    EXPECT_EQ(TraceLine(" SELECT 1 "), " SELECT 1 ");
    EXPECT_EQ(TraceLine(""), "");
}

TEST_F(HostTrace, StatementsAreToldInTheOrderInWhichTheyRan)
{
    std::vector<std::string> lines;
    const Trace trace(Into(lines));
    connection.Execute("CREATE TABLE T (ID int)");
    connection.Execute("INSERT INTO T (ID) VALUES (1)\r\nINSERT INTO T (ID) VALUES (2)");
    EXPECT_EQ(lines, (std::vector<std::string>{"CREATE TABLE T (ID int)",
                                               "INSERT INTO T (ID) VALUES (1)\\r\\nINSERT INTO T (ID) VALUES (2)"}));
}

TEST_F(HostTrace, AStatementThatFailedWasSentAndIsTold)
{
    std::vector<std::string> lines;
    const Trace trace(Into(lines));
    EXPECT_THROW(connection.Execute("SELECT X FROM NOWHERE"), basic::Error);
    EXPECT_EQ(lines, std::vector<std::string>{"SELECT X FROM NOWHERE"});
}

TEST_F(HostTrace, TheHostsOwnStatementsAreLeftOut)
{
    std::vector<std::string> lines;
    const Trace trace(Into(lines));
    {
        const HostStatements own;
        connection.Execute("SELECT 1");
    }
    connection.Execute("SELECT 2");
    EXPECT_EQ(lines, std::vector<std::string>{"SELECT 2"});
}

TEST_F(HostTrace, ItEndsWithTheTrace)
{
    std::vector<std::string> lines;
    {
        const Trace trace(Into(lines));
    }
    connection.Execute("SELECT 1");
    EXPECT_TRUE(lines.empty());
}

TEST_F(HostTrace, TheFileHasEveryLineAsSoonAsTheStatementHasRun)
{
    const std::filesystem::path file = std::filesystem::path(testing::TempDir()) / "korvex-trace.txt";
    std::ofstream(file) << "of an earlier run\n";
    const Trace trace(WriteTraceTo(file));
    connection.Execute("SELECT 1 AS A,\r\n2 AS B");
    std::ifstream stream(file);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ(text, "SELECT 1 AS A,\\r\\n2 AS B\n");
    std::filesystem::remove(file);
}

TEST_F(HostTrace, AFileThatCannotBeWrittenIsNamed)
{
    try {
        WriteTraceTo("/no-such-folder/trace.txt");
        FAIL() << "no error";
    } catch (const StartError& error) {
        EXPECT_STREQ(error.what(),
                     "the trace file \"/no-such-folder/trace.txt\" cannot be written: No such file or directory");
        EXPECT_EQ(error.Status(), StartError::kFailed);
    }
}
