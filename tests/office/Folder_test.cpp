#include "adapters/office/TargetFolder.h"
#include "office/OfficeTest.h"

#include <fstream>
#include <optional>
#include <regex>

namespace kvx::adapters::office {

namespace {

/// A variable of the environment has another value while this lives.
class UseVariable {
public:
    UseVariable(const char* name, const std::string& value) : name_(name)
    {
        if (const char* old = std::getenv(name)) old_ = old;
        ::setenv(name, value.c_str(), 1);
    }
    ~UseVariable()
    {
        if (old_) {
            ::setenv(name_, old_->c_str(), 1);
        } else {
            ::unsetenv(name_);
        }
    }
    UseVariable(const UseVariable&) = delete;
    UseVariable& operator=(const UseVariable&) = delete;

private:
    const char* name_;
    std::optional<std::string> old_;
};

class OfficeFolder : public testing::Test {
protected:
    TestFolder home;
    UseVariable homeVariable{"HOME", home.Path()};
    UseVariable settingsVariable{"XDG_CONFIG_HOME", home.Path() + "/settings"};

    void WriteSettings(std::string_view line) const
    {
        std::filesystem::create_directory(home.Path() + "/settings");
        std::ofstream(home.Path() + "/settings/user-dirs.dirs") << "# folders\nXDG_MUSIC_DIR=\"/x\"\n" << line << "\n";
    }
};

}  // namespace

TEST_F(OfficeFolder, IsTheDocumentsFolderThatTheDesktopNames)
{
    std::filesystem::create_directory(home.Path() + "/Dokumente");
    WriteSettings("XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"");
    EXPECT_EQ(DefaultFolder(), home.Path() + "/Dokumente");
}

TEST_F(OfficeFolder, IsTheUsualDocumentsFolderWhenTheDesktopNamesNone)
{
    std::filesystem::create_directory(home.Path() + "/Documents");
    EXPECT_EQ(DefaultFolder(), home.Path() + "/Documents");
}

TEST_F(OfficeFolder, IsTheHomeFolderWhenThereAreNoDocuments)
{
    WriteSettings("XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"");
    EXPECT_EQ(DefaultFolder(), home.Path());
}

TEST_F(OfficeFolder, IsTheTemporaryOneWhenThereIsNoHome)
{
    const UseVariable noHome("HOME", home.Path() + "/nobody");
    EXPECT_EQ(DefaultFolder(), std::filesystem::temp_directory_path().string());
}

TEST_F(OfficeFolder, AnUnnamedTargetIsTheDocumentsFolder)
{
    std::filesystem::create_directory(home.Path() + "/Documents");
    const RecordingShell shell;
    RegisterOfficeWordProcessor();
    const auto application = os::CreateWordProcessor();
    application->AddDocument()->AddTable(1, 1);
    application->SetVisible(true);
    os::RegisterWordProcessor({});
    ASSERT_EQ(shell.opened.size(), 1U);
    EXPECT_EQ(std::filesystem::path(shell.opened[0]).parent_path(), home.Path() + "/Documents");
}

TEST_F(OfficeFolder, AMissingTargetIsMade)
{
    const std::string path = ClaimDocumentName(home.Path() + "/a/b");
    EXPECT_EQ(std::filesystem::path(path).parent_path(), home.Path() + "/a/b");
    EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(OfficeFolder, ADocumentIsNamedByDateAndTime)
{
    const std::string name = std::filesystem::path(ClaimDocumentName(home.Path())).filename().string();
    EXPECT_TRUE(std::regex_match(name, std::regex(R"(Korvex \d{4}-\d\d-\d\d \d\d\.\d\d\.\d\d\.docx)"))) << name;
}

TEST_F(OfficeFolder, NoTwoDocumentsShareAName)
{
    for (int i = 0; i < 5; ++i)
        ClaimDocumentName(home.Path());
    EXPECT_EQ(home.Files().size(), 5U);
}

}  // namespace kvx::adapters::office
