#include "korvex_loc/FileTools.h"

#include "adapters/headless/HeadlessDesktop.h"
#include "basic/Error.h"
#include "korvex_loc/LocTest.h"
#include "korvex_loc/TestFolder.h"

namespace kvx::loc {

namespace {

class FileToolsTest : public testing::Test {
protected:
    FileToolsTest()
    {
        desktop.SetNow(basic::DateOf({.year = 2024, .month = 5, .day = 31, .hour = 14, .minute = 3, .second = 7}));
    }
    TestFolder folder;
    adapters::headless::HeadlessDesktop desktop;
    FileTools tools;
};

}  // namespace

TEST_F(FileToolsTest, AProtocolLineHasTimeActionObjectWordAndUser)
{
    tools.WriteProtocol("Tabelle", "HOLZART", "geändert durch Benutzer", "meier", folder.File("protokoll.txt"));
    EXPECT_EQ(folder.Read("protokoll.txt"), "2024-05-31 14:03:07\tTabelle\tHOLZART\tgeändert durch Benutzer\tmeier\n");
}

TEST_F(FileToolsTest, ProtocolLinesAreAppended)
{
    folder.Write("protokoll.txt", "alt\n");
    tools.WriteProtocol("a", "b", "c", "d", folder.File("protokoll.txt"));
    EXPECT_EQ(folder.Read("protokoll.txt"), "alt\n2024-05-31 14:03:07\ta\tb\tc\td\n");
}

TEST_F(FileToolsTest, AProtocolEntryIsOneLineWhateverItHolds)
{
    tools.WriteProtocol("a\tb", "c\r\nd", "", "", folder.File("protokoll.txt"));
    EXPECT_EQ(folder.Read("protokoll.txt"), "2024-05-31 14:03:07\ta b\tc  d\t\t\n");
}

TEST_F(FileToolsTest, WithoutAPathNoProtocolIsKept)
{
    tools.WriteProtocol("a", "b", "c", "d", "");
    EXPECT_TRUE(folder.Names().empty());
}

TEST_F(FileToolsTest, AProtocolThatCannotBeWrittenIsAnError)
{
    EXPECT_EQ(ErrorOf([&] { tools.WriteProtocol("a", "b", "c", "d", folder.File("fehlt/protokoll.txt")); }),
              basic::kErrPathNotFound);
    EXPECT_NE(ErrorOf([&] { tools.WriteProtocol("a", "b", "c", "d", folder.File("")); }), 0);
}

TEST_F(FileToolsTest, AnIniKeyIsFoundInAnySectionWhateverItsCase)
{
    folder.Write("korvex.ini", "[A]\r\nX=1\r\n[PHOTOS]\r\n PathPhotoes = /fotos/ \r\n");
    EXPECT_EQ(tools.ReadIni("PATHPHOTOES", "leer", folder.File("korvex.ini")), "/fotos/");
}

TEST_F(FileToolsTest, OfTwoIniKeysTheFirstCounts)
{
    folder.Write("korvex.ini", "A=1\nA=2\n");
    EXPECT_EQ(tools.ReadIni("A", "", folder.File("korvex.ini")), "1");
}

TEST_F(FileToolsTest, AMissingIniKeyOrFileGivesTheDefault)
{
    folder.Write("korvex.ini", "; PATHPHOTOES=/alt\nPATHPHOTOESX=/x\n");
    EXPECT_EQ(tools.ReadIni("PATHPHOTOES", "leer", folder.File("korvex.ini")), "leer");
    EXPECT_EQ(tools.ReadIni("PATHPHOTOES", "leer", folder.File("fehlt.ini")), "leer");
}

TEST_F(FileToolsTest, AnEmptyIniValueIsNotMissing)
{
    folder.Write("korvex.ini", "PATHPHOTOES=\n");
    EXPECT_EQ(tools.ReadIni("PATHPHOTOES", "leer", folder.File("korvex.ini")), "");
}

TEST_F(FileToolsTest, QuotesAroundAnIniValueGo)
{
    folder.Write("korvex.ini", "A=\"zwei Wörter \"\n");
    EXPECT_EQ(tools.ReadIni("A", "", folder.File("korvex.ini")), "zwei Wörter ");
}

TEST_F(FileToolsTest, AnIniFileMayBeOfTheOldCodePage)
{
    folder.Write("korvex.ini", "A=B\xE4ume\n");
    EXPECT_EQ(tools.ReadIni("A", "", folder.File("korvex.ini")), "Bäume");
}

TEST_F(FileToolsTest, APathOfTheHostMayHaveABackslash)
{
    folder.Write("korvex.ini", "A=1\n");
    EXPECT_EQ(tools.ReadIni("A", "", folder.Path() + "\\korvex.ini"), "1");
}

TEST_F(FileToolsTest, TheFirstPictureFormatIsTheUsualOne)
{
    const std::vector<std::string> formats = tools.ImageFormats(folder.Path(), "korvex.ini");
    EXPECT_EQ(formats.at(0), "*.jpg;*.jpeg;*.png;*.bmp;*.gif;*.tif");
    EXPECT_EQ(formats.at(1), "jpg");
}

TEST_F(FileToolsTest, TheIniFileMayNameOtherPictureFormats)
{
    folder.Write("korvex.ini", "IMAGEFORMATS=png; *.webp\n");
    EXPECT_EQ(tools.ImageFormats(folder.Path(), "korvex.ini"),
              (std::vector<std::string>{"*.png;*.webp", "png", "webp"}));
}

}  // namespace kvx::loc
