#include "host/Options.h"
#include "host/SampleDatabase.h"

#include "../host/ScratchFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

// The program itself: messages in, answers and exit status out.
namespace {

namespace fs = std::filesystem;
using namespace kvx::host;

struct Ended {
    int status = -1;  // 128 + signal when a signal ended it
    std::string out, err;
};

struct Exchange {
    std::string message, answer;
};

std::string Content(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> LinesOf(const std::string& text)
{
    std::vector<std::string> lines;
    for (std::size_t from = 0; from < text.size();) {
        const std::size_t end = std::min(text.find('\n', from), text.size());
        lines.push_back(text.substr(from, end - from));
        from = end + 1;
    }
    return lines;
}

// What the documentation shows.
std::vector<Exchange> Transcript()
{
    const std::string text = Content(std::string(KVX_SOURCE_DIR) + "/docs/drive.md");
    const std::size_t begin = text.find("```transcript\n"), end = text.find("```", begin + 3);
    std::vector<Exchange> exchanges;
    if (begin == std::string::npos || end == std::string::npos) return exchanges;
    for (const std::string& line : LinesOf(text.substr(begin, end - begin))) {
        if (line.starts_with("> ")) exchanges.push_back({line.substr(2), ""});
        if (line.starts_with("< ") && !exchanges.empty()) exchanges.back().answer = line.substr(2);
    }
    return exchanges;
}

std::string MessagesOf(const std::vector<Exchange>& exchanges)
{
    std::string text;
    for (const Exchange& exchange : exchanges)
        text += exchange.message + "\n";
    return text;
}

class DriveProgram : public testing::Test {
protected:
    // The program gets the text as its input, and a data folder of its own.
    Ended Run(const std::vector<std::string>& command, const std::string& input)
    {
        const fs::path in = scratch.path / "in", out = scratch.path / "out", err = scratch.path / "err";
        std::ofstream(in, std::ios::binary) << input;
        const pid_t program = fork();
        if (program == 0) {
            setenv("XDG_DATA_HOME", (scratch.path / "data").c_str(), 1);
            setenv("XDG_RUNTIME_DIR", scratch.path.c_str(), 1);
            setenv("HOME", scratch.path.c_str(), 1);  // printed documents go there
            setenv("LC_ALL", "C.UTF-8", 1);
            if (std::freopen(in.c_str(), "r", stdin) == nullptr || std::freopen(out.c_str(), "w", stdout) == nullptr ||
                std::freopen(err.c_str(), "w", stderr) == nullptr)
                _exit(126);
            std::vector<std::string> texts = command;
            std::vector<char*> pointers;
            for (std::string& text : texts)
                pointers.push_back(text.data());
            pointers.push_back(nullptr);
            execv(pointers[0], pointers.data());
            _exit(127);
        }
        int status = -1;
        waitpid(program, &status, 0);
        return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), Content(out), Content(err)};
    }

    void ExpectAnswers(const std::vector<Exchange>& exchanges, const Ended& ended)
    {
        EXPECT_EQ(ended.status, 0) << ended.err;
        const std::vector<std::string> answers = LinesOf(ended.out);
        ASSERT_EQ(answers.size(), exchanges.size()) << ended.out << ended.err;
        for (std::size_t i = 0; i < answers.size(); ++i)
            EXPECT_EQ(answers[i], exchanges[i].answer) << exchanges[i].message;
    }

    ScratchFolder scratch;
};

}  // namespace

TEST_F(DriveProgram, TheTranscriptOfTheDocumentationIsWhatHappens)
{
    const std::vector<Exchange> exchanges = Transcript();
    ASSERT_GT(exchanges.size(), 20U);
    ExpectAnswers(exchanges, Run({KVX_HOST, "--drive", "--language", "ENGLISH"}, MessagesOf(exchanges)));
}

TEST_F(DriveProgram, WithWindowsTheAnswersAreTheSame)
{
    std::vector<Exchange> exchanges = Transcript();
    // Time passes by itself beside windows: when the timer reads the grid again is not the driver's to say.
    std::erase_if(exchanges, [](const Exchange& exchange) {
        return exchange.message.find("\"wait\"") != std::string::npos ||
               exchange.message.find("\"do\": \"statements\"") != std::string::npos;
    });
    ASSERT_EQ(exchanges.size() + 2, Transcript().size());
    ExpectAnswers(exchanges, Run({KVX_HOST, "--drive", "--show", "--language", "ENGLISH"}, MessagesOf(exchanges)));
}

TEST_F(DriveProgram, TheEndOfTheInputCancelsWhatIsOpenWithStatusZero)
{
    const std::string open = R"({"do":"call","class":"c_Tabellen2","method":"Tabellen2","arguments":)"
                             R"({"intIdString_dll":496}})"
                             "\n";
    const std::string ask = open + R"({"do":"cell","control":"DataGrid1","row":0,"col":0})"
                                   "\n"
                                   R"({"do":"click","control":"btnLoschen"})";
    for (const char* option : {"--drive", "--show"}) {
        const std::vector<std::string> host = option == std::string_view("--show")
                                                  ? std::vector<std::string>{KVX_HOST, "--drive", "--show"}
                                                  : std::vector<std::string>{KVX_HOST, "--drive"};
        const Ended idle = Run(host, "");
        EXPECT_EQ(idle.status, 0) << idle.err;
        EXPECT_EQ(idle.out, "");
        const Ended dialog = Run(host, open);
        EXPECT_EQ(dialog.status, 0) << dialog.err;
        EXPECT_EQ(LinesOf(dialog.out).size(), 1U);
        const Ended question = Run(host, ask);
        EXPECT_EQ(question.status, 0) << question.err;
        ASSERT_EQ(LinesOf(question.out).size(), 3U);
        EXPECT_NE(question.out.find("\"state\":\"question\""), std::string::npos);
    }
}

TEST_F(DriveProgram, ADatabaseThatCannotBeOpenedIsOneLineAndStatusOne)
{
    const Ended ended = Run({KVX_HOST, "--drive", "--database", FileConnectionString(scratch.path / "missing.db")},
                            R"({"do":"session"})");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out, "");
    EXPECT_EQ(LinesOf(ended.err).size(), 1U) << ended.err;
    EXPECT_NE(ended.err.find("missing.db"), std::string::npos);
}

TEST_F(DriveProgram, OptionsThatDoNotGoTogetherAreWrongUsage)
{
    for (const std::vector<std::string_view>& arguments :
         {std::vector<std::string_view>{"--show"}, std::vector<std::string_view>{"--drive", "--tour", "pictures"}}) {
        try {
            ParseOptions(arguments);
            ADD_FAILURE() << arguments[0];
        } catch (const StartError& error) {
            EXPECT_EQ(error.Status(), StartError::kWrongUsage);
        }
    }
    const std::vector<std::string_view> both{"--show", "--drive"};
    EXPECT_TRUE(ParseOptions(both).drive);
    EXPECT_TRUE(ParseOptions(both).show);
}

TEST_F(DriveProgram, APrintTellsTheDocumentThatItMadeAndShowsItToNobody)
{
    const Ended ended =
        Run({KVX_HOST, "--drive"}, R"({"do":"call","class":"c_Waldort","method":"WaldortSimple","arguments":)"
                                   R"({"bolPrint":-1,"ID_AL":1}})");
    EXPECT_EQ(ended.status, 0) << ended.err;
    ASSERT_EQ(LinesOf(ended.out).size(), 1U) << ended.out;
    std::vector<fs::path> documents;
    for (const auto& entry : fs::directory_iterator(scratch.path))
        if (entry.path().extension() == ".docx") documents.push_back(entry.path());
    ASSERT_EQ(documents.size(), 1U);
    EXPECT_NE(ended.out.find("\"opened\":[\"" + documents[0].string() + "\"]"), std::string::npos) << ended.out;
}

TEST_F(DriveProgram, ThePythonClientPicksAStandAndAddsACode)
{
    const Ended ended = Run({KVX_PYTHON, std::string(KVX_SOURCE_DIR) + "/examples/drive/drive.py", KVX_HOST}, "");
    EXPECT_EQ(ended.status, 0) << ended.err;
    EXPECT_NE(ended.out.find("Stand Harz/04 area 627,2550"), std::string::npos) << ended.out;
    EXPECT_NE(ended.out.find("INSERT INTO FARBE (FARBE,FARBE_LANG,DISABLE) VALUES ('PY','Pythongrün',0)"),
              std::string::npos)
        << ended.out;
    EXPECT_NE(ended.out.find("Pythongrün\n"), std::string::npos) << ended.out;
}
