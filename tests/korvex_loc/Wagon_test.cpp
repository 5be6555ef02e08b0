#include "korvex_loc/Wagon.h"

#include "adapters/headless/HeadlessDesktop.h"
#include "korvex_loc/KorvexLoc.h"
#include "korvex_loc/LocTest.h"
#include "korvex_loc/Report.h"
#include "korvex_loc/TestFolder.h"
#include "os/Process.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/ListBox.h"
#include "ui/ListView.h"
#include "ui/TextBox.h"

namespace kvx::loc {

namespace {

class FindForm final : public ui::Form {
public:
    FindForm() : Form("F_Find") { Load(); }
    ui::TextBox txtKey{*this, "txtKey"}, txtName{*this, "txtName"}, txtEdit{*this, "txtEdit"};
    ui::ListBox List2{*this, "List2"};
    ui::ListView ListView1{*this, "ListView1"};
    ui::FlexGrid MSFG{*this, "MSFG"};

private:
    void Design() override {}
};

// --- Typed keys ---

class WagonTest : public LocTest {
protected:
    WagonTest()
    {
        CreateTables({"BB_T_AUFTRAGS_PLANUNG"});
        Execute("INSERT INTO BB_T_AUFTRAGS_PLANUNG (ID,AUFTRAGSNUMMER,LONG) VALUES (44,'A-17','Läuterung')");
        form.txtKey.SetText("a-17");
        form.txtKey.SetTag("9");
        form.txtName.SetText("alt");
    }
    bool Check(std::int16_t flag, std::string_view key)
    {
        return wagon.CheckOrderNumber(kvxvar, flag,
                                      "SELECT AUFTRAGSNUMMER,LONG,ID FROM BB_T_AUFTRAGS_PLANUNG"
                                      " WHERE AUFTRAGSNUMMER = '" +
                                          std::string(key) + "'",
                                      form.txtKey.Object(), form.txtName.Object(), "LONG", form.txtEdit.Object(), "");
    }
    FindForm form;
    Wagon wagon;
};

}  // namespace

TEST_F(WagonTest, AKnownKeyFillsTheBoxesAndTheTag)
{
    EXPECT_TRUE(Check(0, "a-17"));
    EXPECT_EQ(form.txtKey.Text(), "A-17");
    EXPECT_EQ(form.txtKey.Tag(), "44");
    EXPECT_EQ(form.txtName.Text(), "Läuterung");
    EXPECT_EQ(form.txtEdit.Text(), "A-17");
}

TEST_F(WagonTest, AnUnknownKeyLeavesTheBoxes)
{
    EXPECT_FALSE(Check(0, "X"));
    EXPECT_EQ(form.txtKey.Text(), "a-17");
    EXPECT_EQ(form.txtKey.Tag(), "9");
    EXPECT_EQ(form.txtName.Text(), "alt");
    EXPECT_EQ(form.txtEdit.Text(), "");
}

TEST_F(WagonTest, AnUnknownKeyOfANewRecordLeavesNoStaleId)
{
    EXPECT_FALSE(Check(-1, "X"));
    EXPECT_EQ(form.txtKey.Text(), "a-17");
    EXPECT_EQ(form.txtKey.Tag(), "");
    EXPECT_EQ(form.txtName.Text(), "");
}

TEST_F(WagonTest, BoxesThatAreNothingArePassedOver)
{
    EXPECT_TRUE(wagon.CheckOrderNumber(kvxvar, 0, "SELECT AUFTRAGSNUMMER FROM BB_T_AUFTRAGS_PLANUNG", nullptr, nullptr,
                                       "", form.txtEdit.Object(), ""));
    EXPECT_EQ(form.txtEdit.Text(), "A-17");
}

// --- Lists -----------------------------------------------------------------------------------------------------------

namespace {

class ExportTest : public WagonTest {
protected:
    ExportTest()
    {
        setenv("XDG_DOCUMENTS_DIR", folder.Path().c_str(), 1);
        os::SetCurrentShell(&shell);
        desktop.SetNow(basic::DateOf({.year = 2024, .month = 5, .day = 31, .hour = 14, .minute = 3, .second = 7}));
    }
    ~ExportTest() override
    {
        os::SetCurrentShell(nullptr);
        unsetenv("XDG_DOCUMENTS_DIR");
    }
    struct RecordingShell final : os::Shell {
        std::unique_ptr<os::Process> Start(std::string_view, const std::vector<std::string>&) override
        {
            basic::Raise(basic::kErrFileNotFound);
        }
        void Open(std::string_view document) override
        {
            if (!canOpen) basic::Raise(basic::kErrFileNotFound);
            opened.emplace_back(document);
        }
        bool canOpen = true;
        std::vector<std::string> opened;
    };
    TestFolder folder;
    adapters::headless::HeadlessDesktop desktop;
    RecordingShell shell;
};

}  // namespace

TEST_F(ExportTest, TheFieldsThatCanBeExportedFillAListBox)
{
    form.List2.AddItem("alt");
    wagon.ExportListView(form.List2.Object(), "EXPORTLV", "DEUTSCH", std::int32_t{0});
    EXPECT_EQ(form.List2.ListCount(), 21);
    EXPECT_EQ(form.List2.List(0), "Liste");
    EXPECT_EQ(form.List2.ItemData(0), 1);
    EXPECT_EQ(form.List2.List(20), "Menge");
    EXPECT_EQ(form.List2.ItemData(20), 21);
    EXPECT_TRUE(shell.opened.empty());
}

TEST_F(ExportTest, WithoutALanguageTheFieldsSpeakTheMachines)
{
    basic::SetLocale(basic::EnglishLocale());
    wagon.ExportListView(form.List2.Object(), "EXPORTLV", std::int32_t{0}, std::int32_t{0});
    EXPECT_EQ(form.List2.List(0), "List");
}

TEST_F(ExportTest, AListViewBecomesATableFileThatIsOpened)
{
    form.ListView1.ColumnHeaders().Add("", "Holzart");
    form.ListView1.ColumnHeaders().Add("", "Menge");
    form.ListView1.ListItems().Add("", "Fichte").SetSubItems(1, "12,5");
    wagon.ExportListView(form.ListView1.Object(), "Liste 3/24", basic::Variant(), basic::Variant());
    EXPECT_EQ(folder.Read("Liste 3_24 2024-05-31 140307.csv"), "\xEF\xBB\xBFHolzart;Menge\r\nFichte;12,5\r\n");
    EXPECT_EQ(shell.opened, Texts{folder.File("Liste 3_24 2024-05-31 140307.csv")});
}

TEST_F(ExportTest, AGridBecomesATableFile)
{
    form.MSFG.SetTextMatrix(0, 0, "a");
    form.MSFG.SetTextMatrix(1, 1, "b");
    wagon.ExportListView(form.MSFG.Object(), "Gitter", basic::Variant(), basic::Variant());
    EXPECT_EQ(folder.Read("Gitter 2024-05-31 140307.csv"), "\xEF\xBB\xBF"
                                                           "a;\r\n;b\r\n");
}

TEST_F(ExportTest, AnOlderFileIsNotReplaced)
{
    folder.Write("Gitter 2024-05-31 140307.csv", "alt");
    wagon.ExportListView(form.MSFG.Object(), "Gitter", basic::Variant(), basic::Variant());
    EXPECT_EQ(folder.Read("Gitter 2024-05-31 140307.csv"), "alt");
    EXPECT_NE(folder.Read("Gitter 2024-05-31 140307 (2).csv"), "");
}

TEST_F(ExportTest, WithoutAProgramToOpenItTheUserIsToldWhereTheFileLies)
{
    shell.canOpen = false;
    desktop.Answer(folder.File("Waggons 2024-05-31 140307.csv"), ui::vbOK);
    Report().ExportTable(kvxvar.dbAdo, "Waggons", "BW1\tOst\t\r\n");
    desktop.Finish();
    EXPECT_EQ(desktop.Failures(), Texts{});
    EXPECT_EQ(folder.Read("Waggons 2024-05-31 140307.csv"), "\xEF\xBB\xBFWaggons\r\nW1;Ost\r\n");
}

TEST_F(ExportTest, AnObjectThatIsNoListIsAnError)
{
    EXPECT_EQ(ErrorOf([&] { wagon.ExportListView(form.txtKey.Object(), "x", basic::Variant(), basic::Variant()); }),
              basic::kErrMemberNotFound);
    EXPECT_EQ(ErrorOf([&] { wagon.ExportListView(nullptr, "x", basic::Variant(), basic::Variant()); }),
              basic::kErrObjectNotSet);
}

// --- The library -----------------------------------------------------------------------------------------------------

TEST(KorvexLoc, TheRegisteredLibraryMakesEveryClass)
{
    SetSiblings(&KorvexLoc());
    SiblingLibrary& library = Siblings();
    EXPECT_NE(library.NewLoc(), nullptr);
    EXPECT_NE(library.NewDBHelper(), nullptr);
    EXPECT_NE(library.NewDBWriter(), nullptr);
    EXPECT_NE(library.NewAccess(), nullptr);
    EXPECT_NE(library.NewDates(), nullptr);
    EXPECT_NE(library.NewFileTools(), nullptr);
    EXPECT_NE(library.NewListLayout(), nullptr);
    EXPECT_NE(library.NewPicker(), nullptr);
    EXPECT_NE(library.NewWagon(), nullptr);
    EXPECT_NE(library.NewReport(), nullptr);
    SetSiblings(nullptr);
}

}  // namespace kvx::loc
