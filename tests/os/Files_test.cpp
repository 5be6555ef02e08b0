#include "os/Files.h"

#include "basic/Convert.h"
#include "basic/Error.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <unistd.h>

namespace kvx::os {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

std::int32_t ErrorOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const basic::Error& error) {
        return error.Number;
    }
    return 0;
}

class Files : public testing::Test {
protected:
    void SetUp() override
    {
        folder = fs::temp_directory_path() / ("kvx_files_" + std::to_string(::getpid()));
        fs::create_directories(folder);
    }
    void TearDown() override
    {
        fs::permissions(folder, fs::perms::owner_all);
        fs::remove_all(folder);
    }
    std::string Path(const std::string& name) const { return (folder / name).string(); }
    void Put(const std::string& name, std::string_view bytes) const
    {
        std::ofstream{folder / name, std::ios::binary} << bytes;
    }
    fs::path folder;
};

TEST_F(Files, LinesEndAtCrLfCrAndLf)
{
    Put("a.txt", "eins\r\nzwei\rdrei\n\nvier");
    EXPECT_EQ(ReadLines(Path("a.txt")), (Lines{"eins", "zwei", "drei", "", "vier"}));
    Put("b.txt", "eins\r\n");
    EXPECT_EQ(ReadLines(Path("b.txt")), Lines{"eins"});
    Put("c.txt", "");
    EXPECT_EQ(ReadLines(Path("c.txt")), Lines{});
}

TEST_F(Files, TextIsUtf8OrElseWindows1252)
{
    Put("utf8.txt", "\xEF\xBB\xBF"
                    "B\xC3\xA4ume");
    Put("ansi.txt", "B\xE4"
                    "ume \x80");
    EXPECT_EQ(ReadText(Path("utf8.txt")), "Bäume");
    EXPECT_EQ(ReadText(Path("ansi.txt")), "Bäume €");
}

TEST_F(Files, AppendMakesTheFileAndAddsLines)
{
    AppendLine(Path("log.txt"), "eins");
    AppendLine(Path("log.txt"), "zwei");
    EXPECT_EQ(ReadText(Path("log.txt")), "eins\nzwei\n");
    WriteText(Path("log.txt"), "neu");
    EXPECT_EQ(ReadText(Path("log.txt")), "neu");
}

TEST_F(Files, MissingFilesAndFoldersHaveTheirOwnErrors)
{
    EXPECT_EQ(ErrorOf([&] { ReadText(Path("missing")); }), 53);
    EXPECT_EQ(ErrorOf([&] { ReadText(Path("nowhere/missing")); }), 76);
    EXPECT_EQ(ErrorOf([&] { AppendLine(Path("nowhere/log"), "x"); }), 76);
    EXPECT_EQ(ErrorOf([&] { ReadText(folder.string()); }), 75);
    EXPECT_EQ(ErrorOf([&] { LastModified(Path("missing")); }), 53);
    EXPECT_EQ(ErrorOf([&] { ListFiles(Path("nowhere"), "*"); }), 76);
}

TEST_F(Files, BackslashesPartFoldersToo)
{
    fs::create_directories(folder / "sub");
    Put("sub/a.ini", "x");
    EXPECT_TRUE(FileExists(folder.string() + "\\sub\\a.ini"));
    EXPECT_EQ(ReadText(folder.string() + "\\sub\\a.ini"), "x");
    EXPECT_TRUE(FolderExists(folder.string() + "\\sub"));
    EXPECT_FALSE(FileExists(folder.string() + "\\sub"));
}

TEST_F(Files, TheTimeOfTheLastChangeIsLocalAndWhole)
{
    Put("a.txt", "x");
    const basic::Date date = LastModified(Path("a.txt"));
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    ::localtime_r(&now, &local);
    EXPECT_EQ(basic::PartsOf(date).year, local.tm_year + 1900);
    const double seconds = date.days * 86400;
    EXPECT_NEAR(seconds, std::round(seconds), 1e-3);
}

TEST_F(Files, AFolderListsWhatMatchesInOrder)
{
    for (const char* name : {"b.TXT", "A.txt", "c.doc", "ohne"})
        Put(name, "");
    fs::create_directories(folder / "d.txt");
    EXPECT_EQ(ListFiles(folder.string(), "*.txt"), (Lines{"A.txt", "b.TXT"}));
    EXPECT_EQ(ListFiles(folder.string(), "*.doc;a*"), (Lines{"A.txt", "c.doc"}));
    EXPECT_EQ(ListFiles(folder.string(), "*.*"), (Lines{"A.txt", "b.TXT", "c.doc", "ohne"}));
    EXPECT_EQ(ListFiles(folder.string(), "?.txt"), (Lines{"A.txt", "b.TXT"}));
}

}  // namespace
}  // namespace kvx::os
