#include "office/OfficeTest.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sys/resource.h>

namespace kvx::adapters::office {

namespace {
constexpr std::string_view kText = "Titel\t\r\nA\tB\r\n1\t2\r\n";

std::string ErrorTextOf(const std::function<void()>& call, std::int32_t number)
{
    try {
        call();
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, number);
        return error.Description;
    }
    return "(no error)";
}

/// While it lives, files can be made but hold nothing, as on a full disk.
class NoRoom {
public:
    NoRoom() : former_(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &limit_);
        const rlimit none{.rlim_cur = 0, .rlim_max = limit_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    ~NoRoom()
    {
        ::setrlimit(RLIMIT_FSIZE, &limit_);
        std::signal(SIGXFSZ, former_);
    }
    NoRoom(const NoRoom&) = delete;
    NoRoom& operator=(const NoRoom&) = delete;

private:
    void (*former_)(int);
    rlimit limit_{};
};
}  // namespace

using OfficeApplicationTest = OfficeTest;

TEST_F(OfficeApplicationTest, IsAnApplicationBeforeAndAfterAPrint)
{
    EXPECT_EQ(application->TypeName(), "Application");
    Print(kText);
    RunPosted();
    EXPECT_EQ(application->TypeName(), "Application");
}

TEST_F(OfficeApplicationTest, AHiddenDocumentLeavesNoFile)
{
    application->AddDocument()->AddTable(1, 1);
    application->SetVisible(false);
    EXPECT_EQ(folder.Files(), Texts{});
    EXPECT_EQ(posted.size(), 0U);
}

TEST_F(OfficeApplicationTest, ShowingWritesTheFileAndOpensItLater)
{
    Print(kText);
    EXPECT_EQ(folder.Files().size(), 1U);
    EXPECT_EQ(shell.opened, Texts{});
    RunPosted();
    EXPECT_EQ(shell.opened, folder.Files());
}

TEST_F(OfficeApplicationTest, WhatChangesBetweenShowingAndOpeningIsInTheOpenedFile)
{
    const auto document = Print(kText);
    Finish(*document);
    EXPECT_EQ(Written().Count("//w:tblHeader"), 0U);
    RunPosted();
    EXPECT_EQ(Written().Count("//w:tblHeader"), 2U);
}

TEST_F(OfficeApplicationTest, TheUserGetsTheDocumentEvenIfTheLibraryLetsItGo)
{
    Print(kText).reset();
    application.reset();
    RunPosted();
    EXPECT_EQ(shell.opened.size(), 1U);
}

TEST_F(OfficeApplicationTest, WithoutDeferralTheDocumentOpensWhenShown)
{
    RegisterOfficeWordProcessor(folder.Path());
    application = os::CreateWordProcessor();
    Print(kText);
    EXPECT_EQ(shell.opened, folder.Files());
}

TEST_F(OfficeApplicationTest, WhatChangesAfterTheOpeningIsWrittenAtOnce)
{
    RegisterOfficeWordProcessor(folder.Path());
    application = os::CreateWordProcessor();
    Finish(*Print(kText));
    EXPECT_EQ(Written().Count("//w:tblHeader"), 2U);
    EXPECT_EQ(shell.opened.size(), 1U);
}

TEST_F(OfficeApplicationTest, AnUnchangedDocumentIsNotWrittenAgain)
{
    const auto document = Print(kText);
    Finish(*document);
    RunPosted();
    std::filesystem::remove(folder.Files().at(0));
    Finish(*document);
    EXPECT_EQ(folder.Files(), Texts{});
}

TEST_F(OfficeApplicationTest, TheSecondPrintOpensOnlyItsOwnDocument)
{
    Print(kText);
    RunPosted();
    Print("X\r\n");
    RunPosted();
    const Texts files = folder.Files();
    ASSERT_EQ(files.size(), 2U);
    ASSERT_EQ(shell.opened.size(), 2U);
    EXPECT_NE(shell.opened[0], shell.opened[1]);
    EXPECT_EQ(Docx(shell.opened[0]).Rows().size(), 3U);
    EXPECT_EQ(Docx(shell.opened[1]).Rows(), (std::vector<Texts>{{"X"}}));
}

TEST_F(OfficeApplicationTest, AFolderThatCannotBeMadeIsTold)
{
    std::ofstream(folder.Path() + "/file") << "in the way";
    RegisterOfficeWordProcessor(folder.Path() + "/file/prints");
    application = os::CreateWordProcessor();
    EXPECT_EQ(ErrorTextOf([this] { Print(kText); }, basic::kErrPathNotFound),
              "The printed table cannot be written to " + folder.Path() + "/file/prints: Not a directory");
}

TEST_F(OfficeApplicationTest, AFileThatCannotBeReplacedIsTold)
{
    const auto document = Print(kText);
    const std::string path = folder.Files().at(0);
    Finish(*document);
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    const std::string told = ErrorTextOf([this] { RunPosted(); }, basic::kErrFileAccess);
    EXPECT_EQ(told.find("The printed table cannot be written to " + path + ": "), 0U) << told;
    EXPECT_EQ(shell.opened, Texts{});
}

TEST_F(OfficeApplicationTest, ADiskWithoutRoomIsToldAndNoFileIsLeftBehind)
{
    std::string told;
    {
        const NoRoom noRoom;
        told = ErrorTextOf([this] { Print(kText); }, basic::kErrFileAccess);
    }
    EXPECT_TRUE(told.ends_with(".docx: File too large")) << told;
    EXPECT_EQ(folder.Files(), Texts{});
    EXPECT_EQ(posted.size(), 0U);
}

TEST_F(OfficeApplicationTest, AFailedPrintDoesNotStopTheNext)
{
    const std::string prints = folder.Path() + "/prints";
    std::ofstream(prints) << "in the way";
    RegisterOfficeWordProcessor(prints);
    application = os::CreateWordProcessor();
    EXPECT_THROW(Print(kText), basic::Error);
    std::filesystem::remove(prints);
    Print("X\r\n");
    ASSERT_EQ(shell.opened.size(), 1U);
    EXPECT_EQ(Docx(shell.opened[0]).Rows(), (std::vector<Texts>{{"X"}}));
}

TEST_F(OfficeApplicationTest, ADocumentThatNoProgramOpensIsSavedAndTold)
{
    shell.failure = basic::Error(basic::kErrFileNotFound, "File not found");
    Print(kText);
    const std::string told = ErrorTextOf([this] { RunPosted(); }, basic::kErrFileNotFound);
    EXPECT_EQ(told, "The printed table is in " + folder.Files().at(0) + ", but cannot be opened: File not found");
    EXPECT_EQ(Written().Rows().size(), 3U);
}

}  // namespace kvx::adapters::office
