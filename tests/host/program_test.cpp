// Runs korvex_host as a user does: options in, lines and exit status out.
#include "ScratchFolder.h"
#include "host/SampleDatabase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace kvx::host;
namespace fs = std::filesystem;

namespace {

struct Ended {
    int status = -1;  // 128 + signal when a signal ended it
    std::string out, err;
    // Lines on stderr, without what Qt's offscreen windows say of themselves.
    std::vector<std::string> Lines() const
    {
        std::vector<std::string> lines;
        std::size_t from = 0;
        while (from < err.size()) {
            const std::size_t end = std::min(err.find('\n', from), err.size());
            std::string line = err.substr(from, end - from);
            if (!line.starts_with("This plugin does not support") && !line.starts_with("QStandardPaths"))
                lines.push_back(std::move(line));
            from = end + 1;
        }
        return lines;
    }
};

std::string Content(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class HostProgram : public testing::Test {
protected:
    // @param variables  "NAME=value", or "NAME" to take it away
    Ended Run(const std::vector<std::string>& arguments, const std::vector<std::string>& variables = {})
    {
        const fs::path out = scratch.path / "out", err = scratch.path / "err";
        const pid_t host = fork();
        if (host == 0) {
            setenv("XDG_DATA_HOME", (scratch.path / "data").c_str(), 1);
            setenv("XDG_RUNTIME_DIR", scratch.path.c_str(), 1);
            for (const std::string& variable : variables) {
                const std::size_t equals = variable.find('=');
                if (equals == std::string::npos)
                    unsetenv(variable.c_str());
                else
                    setenv(variable.substr(0, equals).c_str(), variable.substr(equals + 1).c_str(), 1);
            }
            if (std::freopen(out.c_str(), "w", stdout) == nullptr || std::freopen(err.c_str(), "w", stderr) == nullptr)
                _exit(126);
            std::vector<std::string> texts = arguments;
            texts.insert(texts.begin(), KVX_HOST);
            std::vector<char*> pointers;
            for (std::string& text : texts)
                pointers.push_back(text.data());
            pointers.push_back(nullptr);
            execv(KVX_HOST, pointers.data());
            _exit(127);
        }
        int status = -1;
        waitpid(host, &status, 0);
        return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), Content(out), Content(err)};
    }

    // One line on stderr, nothing on stdout, and the status of a host that did not start.
    void ExpectRefusal(const std::vector<std::string>& arguments, int status, std::string_view words)
    {
        const Ended ended = Run(arguments);
        EXPECT_EQ(ended.status, status);
        EXPECT_EQ(ended.out, "");
        const std::vector<std::string> lines = ended.Lines();
        ASSERT_EQ(lines.size(), 1U) << ended.err;
        EXPECT_EQ(lines[0].find("korvex_host: "), 0U) << lines[0];
        EXPECT_NE(lines[0].find(words), std::string::npos) << lines[0];
    }

    ScratchFolder scratch;
};

}  // namespace

TEST_F(HostProgram, HelpAndVersionAnswerAndEnd)
{
    const Ended help = Run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("--database STRING"), std::string::npos);
    EXPECT_EQ(help.err, "");
    const Ended version = Run({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, "Korvex Forms 2.0\n");
}

TEST_F(HostProgram, WrongOptionsAreOneLineAndStatusTwo)
{
    ExpectRefusal({"--colour"}, 2, "unknown option \"--colour\"");
    ExpectRefusal({"--user", "anna"}, 2, "--user needs a whole number");
    ExpectRefusal({"--language", "LATIN"}, 2, "DEUTSCH or ENGLISH");
    ExpectRefusal({"--database"}, 2, "--database needs a value");
}

TEST_F(HostProgram, AMissingDatabaseIsOneLineAndStatusOne)
{
    ExpectRefusal({"--database", FileConnectionString(scratch.path / "missing.db")}, 1, "missing.db");
    EXPECT_FALSE(fs::exists(scratch.path / "missing.db"));
}

TEST_F(HostProgram, AnUnreadableDatabaseIsOneLineAndStatusOne)
{
    std::ofstream(scratch.path / "letter.db") << std::string(5000, 'x');
    ExpectRefusal({"--database", FileConnectionString(scratch.path / "letter.db")}, 1, "letter.db");
    ExpectRefusal({"--database", FileConnectionString(scratch.path)}, 1, scratch.path.filename().string());
    ExpectRefusal({"--database", "Provider=SQLite;Data Source=:memory:"}, 1, "WALDORT");
    ExpectRefusal({"--database", "Provider=Nothing"}, 1, "Provider cannot be found");
}

TEST_F(HostProgram, AWrongPasswordIsOneLineAndStatusOne)
{
    const fs::path file = EnsureSampleDatabase(scratch.path);
    ExpectRefusal({"--database", FileConnectionString(file, "admin", "Wald")}, 1, "the database cannot be opened");
    ExpectRefusal({"--database", FileConnectionString(file)}, 1, "the database cannot be opened");
}

TEST_F(HostProgram, ATraceFileThatCannotBeWrittenIsOneLine)
{
    ExpectRefusal({"--trace-sql", "/no-such-folder/trace.txt"}, 1, "the trace file \"/no-such-folder/trace.txt\"");
}

TEST_F(HostProgram, AFolderThatCannotHoldATourIsOneLine)
{
    std::ofstream(scratch.path / "file") << "no folder";
    ExpectRefusal({"--tour", (scratch.path / "file" / "tour").string()}, 1, "the tour folder");
}

TEST_F(HostProgram, WithoutADisplayItSaysSo)
{
    const fs::path file = EnsureSampleDatabase(scratch.path);
    const Ended ended = Run({"--database", FileConnectionString(file, "admin", kSamplePassword)},
                            {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, "korvex_host: there is no display; --tour DIR needs none\n");
}

TEST_F(HostProgram, AHostWithNoPlaceForTheSampleDatabaseSaysSo)
{
    std::ofstream(scratch.path / "data") << "a file where the folder should be";
    const Ended ended = Run({});
    EXPECT_EQ(ended.status, 1);
    ASSERT_EQ(ended.Lines().size(), 1U) << ended.err;
    EXPECT_NE(ended.Lines()[0].find("the sample database"), std::string::npos);
}

TEST_F(HostProgram, ATourOpensAndClosesEveryDialogWithoutADisplay)
{
    const fs::path tour = scratch.path / "tour", trace = scratch.path / "trace.txt";
    const Ended ended = Run({"--tour", tour.string(), "--trace-sql", trace.string()},
                            {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"});
    EXPECT_EQ(ended.status, 0) << ended.err;
    for (const char* picture :
         {"Korvex-start",        "Korvex-picked",           "F_DBLogin-standard", "F_DBLogin-windows",
          "F_DBLogin-BB",        "F_Waldort-maintenance",   "F_Waldort-viewer",   "F_Waldort-subtree",
          "F_Waldort-multipick", "F_Waldort-pick",          "F_Waldort-naming",   "F_Waldort_Info-view",
          "F_Waldort_Info-edit", "F_Picker-list",           "F_MessageBox-combo", "F_MessageBox-file",
          "F_MessageBox-lines",  "F_MessageBox-where-used", "F_Tabellen2-browse", "F_Tabellen2-tabs",
          "F_Tabellen2-new"}) {
        const std::string png = Content(tour / (std::string(picture) + ".png"));
        EXPECT_GT(png.size(), 1000U) << picture;
        EXPECT_EQ(png.substr(0, 4), "\x89PNG") << picture;
    }
    const std::string transcript = Content(tour / "transcript.txt");
    for (const std::string_view words :
         {"opened F_Waldort \"Waldort Verwaltung\"", "came back: txtWO1 = Harz", "sql: SELECT TOP 1 ID_WALDORT"})
        EXPECT_NE(transcript.find(words), std::string::npos) << words;
    EXPECT_EQ(transcript.find("FAILED"), std::string::npos);
    const std::string statements = Content(trace);
    EXPECT_NE(statements.find("\nUPDATE WALDORT  SET LANGNAME = 'Alte Buchen am Bach' WHERE"), std::string::npos);
    EXPECT_EQ(statements.find("FROM USERS"), std::string::npos) << "the host's own statements are no part of a trace";
}

TEST_F(HostProgram, ATourSpeaksEnglishWhenAsked)
{
    const fs::path tour = scratch.path / "tour";
    const Ended ended = Run({"--tour", tour.string(), "--language", "ENGLISH"}, {"LC_ALL=de_DE.UTF-8"});
    EXPECT_EQ(ended.status, 0) << ended.err;
    const std::string transcript = Content(tour / "transcript.txt");
    EXPECT_NE(transcript.find("opened F_Waldort \"Stand administration\""), std::string::npos);
    EXPECT_NE(transcript.find("came back: txtFlaeche = 6.7413"), std::string::npos);
}
