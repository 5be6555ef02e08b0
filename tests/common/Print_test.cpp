#include "adapters/office/OfficeWordProcessor.h"
#include "common/CommonTest.h"
#include "common/M_Common.h"
#include "common/RecordingWord.h"
#include "os/Process.h"
#include "ui/DataControl.h"
#include "ui/DataGrid.h"

#include <algorithm>
#include <filesystem>

namespace kvx::test {

using ado::testing::Int;
using ado::testing::Null;

class PrintTextToWordTest : public CommonTest {
protected:
    ~PrintTextToWordTest() override { Module() = {}; }
    std::string Pasted() const
    {
        constexpr std::string_view kPaste = "PasteText ";
        for (const std::string& call : word.calls)
            if (call.starts_with(kPaste)) return call.substr(kPaste.size());
        return "(nothing)";
    }
    RecordingWord word;
};

TEST_F(PrintTextToWordTest, DrivesTheWordProcessorStepByStep)
{
    PrintTextToWord("WO1\tWO2\tWO3\r\nNord\t1\ta\r\n", false);
    EXPECT_EQ(word.calls, (Texts{
                              "SetWindowState 2", "AddDocument",       "SetVisible false",
                              "SetMirrored true", "SetSectionStart 2", "SetWindowFlag false",
                              "AddTable 2 x 3",   "SelectTable",       "PasteText WO1\tWO2\tWO3\r\nNord\t1\ta\r\n",
                              "SelectRow 1",      "SetBold true",      "SetShading 192 192 192",
                              "SelectRow 2",      "SetBold true",      "SelectTable",
                              "SetFont Arial 10", "SetRowSetting 1",   "MoveToStart",
                              "SetVisible true",
                          }));
}

TEST_F(PrintTextToWordTest, HandsTheFlagToTheWindow)
{
    PrintTextToWord("A\r\n", true);
    EXPECT_EQ(std::ranges::count(word.calls, "SetWindowFlag true"), 1);
}

TEST_F(PrintTextToWordTest, TheFirstLineSetsTheColumns)
{
    PrintTextToWord("A\tB\r\n1\t2\t3\r\n4\r\n", false);
    EXPECT_EQ(std::ranges::count(word.calls, "AddTable 3 x 2"), 1);
}

TEST_F(PrintTextToWordTest, ALastLineWithoutEndIsNoRow)
{
    PrintTextToWord("A\tB\r\n1\t2", false);
    EXPECT_EQ(std::ranges::count(word.calls, "AddTable 1 x 2"), 1);
}

TEST_F(PrintTextToWordTest, TheClipboardHoldsTheTextAfterwards)
{
    desktop.SetClipboardText("was vorher da war");
    PrintTextToWord("A\tB\r\n1\tä\r\n", false);
    EXPECT_EQ(desktop.ClipboardText(), "A\tB\r\n1\tä\r\n");
}

TEST_F(PrintTextToWordTest, TheDocumentIsKeptForTheCaller)
{
    PrintTextToWord("A\r\n", false);
    EXPECT_NE(Module().objWordDocument, nullptr);
    EXPECT_NE(Module().objWord, nullptr);
}

TEST_F(PrintTextToWordTest, TheSecondPrintUsesTheRunningApplication)
{
    PrintTextToWord("A\r\n", false);
    const auto first = Module().objWordDocument;
    PrintTextToWord("B\r\n", false);
    EXPECT_EQ(word.started, 1);
    EXPECT_EQ(std::ranges::count(word.calls, "AddDocument"), 2);
    EXPECT_NE(Module().objWordDocument, first);
}

TEST_F(PrintTextToWordTest, AnApplicationThatWasClosedIsReplaced)
{
    PrintTextToWord("A\r\n", false);
    word.isGone = true;
    PrintTextToWord("B\r\n", false);
    EXPECT_EQ(word.started, 2);
}

TEST_F(PrintTextToWordTest, AWordProcessorThatCannotBeStartedIsNoError)
{
    word.fails = true;
    desktop.SetClipboardText("alt");
    EXPECT_EQ(ErrorOf([] { PrintTextToWord("A\r\n", false); }), 0);
    EXPECT_EQ(word.started, 1);
    EXPECT_EQ(word.calls, Texts{});
    EXPECT_EQ(desktop.ClipboardText(), "alt");
    EXPECT_EQ(desktop.Boxes().size(), 0U);
}

TEST_F(PrintTextToWordTest, NoWordProcessorAtAllIsNoError)
{
    word.isMissing = true;
    EXPECT_EQ(ErrorOf([] { PrintTextToWord("A\r\n", false); }), 0);
    EXPECT_EQ(word.calls, Texts{});
}

TEST_F(PrintTextToWordTest, ItIsTriedAgainAtTheNextPrint)
{
    word.fails = true;
    PrintTextToWord("A\r\n", false);
    word.fails = false;
    PrintTextToWord("A\r\n", false);
    EXPECT_EQ(Pasted(), "A\r\n");
}

TEST_F(PrintTextToWordTest, NoTextAtAllIsAnError)
{
    EXPECT_EQ(ErrorOf([] { PrintTextToWord("", false); }), basic::kErrSubscript);
}

TEST_F(PrintTextToWordTest, AFinishedTableRepeatsTwoRowsAndNumbersItsPages)
{
    PrintTextToWord("A\r\n", false);
    word.TakeCalls();
    FinishWordTable(*Module().objWordDocument);
    EXPECT_EQ(word.calls, (Texts{"SetHeadingRow 1 true", "SetHeadingRow 2 true", "AddFooterPageNumber 2 true"}));
}

/// A form with a grid over the three trees.
class GridForm final : public ui::Form {
public:
    GridForm() : Form("GridForm") {}
    ui::DataControl Data1{*this, "Data1"};
    ui::DataGrid Grid1{*this, "Grid1"};

protected:
    void Design() override { Grid1.SetDataSource(&Data1); }
};

class PrintDataGridTest : public PrintTextToWordTest {
protected:
    PrintDataGridTest()
    {
        ado::testing::AddTrees(database);
        form.Load();
        form.Data1.SetConnectionString("Provider=Fake");
    }
    /// Shows the rows of a statement under German captions.
    void ShowTrees(const char* select = ado::testing::kTrees)
    {
        form.Data1.SetRecordSource(select);
        form.Data1.Refresh();
        form.Grid1.Columns()["ID"].SetCaption("Nr");
        form.Grid1.Columns()["NAME"].SetCaption("Baumart");
        form.Grid1.Columns()["HEIGHT"].SetCaption("Höhe");
    }
    void Print(bool flag = false) { PrintDataGrid("Bäume", form.Grid1, form.Data1.Recordset().Clone(), flag); }
    GridForm form;
};

TEST_F(PrintDataGridTest, PrintsTitleCaptionsAndRows)
{
    ShowTrees();
    Print();
    EXPECT_EQ(Pasted(), "Bäume\t\t\r\nNr\tBaumart\tHöhe\r\n1\tEiche\t21,5\r\n2\tFichte\t30\r\n3\tKiefer\t\r\n");
    EXPECT_EQ(std::ranges::count(word.calls, "AddTable 5 x 3"), 1);
}

TEST_F(PrintDataGridTest, ANullCellIsEmpty)
{
    database.answers[ado::testing::kTrees].rows = {{Null(), Null(), Null()}};
    database.answersWithKeys[ado::testing::kTrees].rows = {{Null(), Null(), Null(), Int(11)}};
    ShowTrees();
    Print();
    EXPECT_TRUE(Pasted().ends_with("Höhe\r\n\t\t\r\n")) << Pasted();
}

TEST_F(PrintDataGridTest, HiddenColumnsAreLeftOut)
{
    ShowTrees();
    form.Grid1.Columns()["ID"].SetVisible(false);
    Print();
    EXPECT_EQ(Pasted(), "Bäume\t\r\nBaumart\tHöhe\r\nEiche\t21,5\r\nFichte\t30\r\nKiefer\t\r\n");
}

TEST_F(PrintDataGridTest, AHiddenColumnInTheMiddleLeavesNoTabBehind)
{
    ShowTrees();
    form.Grid1.Columns()["NAME"].SetVisible(false);
    Print();
    EXPECT_EQ(Pasted(), "Bäume\t\r\nNr\tHöhe\r\n1\t21,5\r\n2\t30\r\n3\t\r\n");
}

TEST_F(PrintDataGridTest, WithoutRowsPrintsTitleAndCaptions)
{
    ShowTrees(ado::testing::kNoTrees);
    Print();
    EXPECT_EQ(Pasted(), "Bäume\t\t\r\nNr\tBaumart\tHöhe\r\n");
}

TEST_F(PrintDataGridTest, StartsAtTheFirstRowWhereverTheRecordsetStands)
{
    ShowTrees();
    ado::Recordset rows = form.Data1.Recordset().Clone();
    rows.MoveLast();
    PrintDataGrid("Bäume", form.Grid1, rows, false);
    EXPECT_NE(Pasted().find("1\tEiche"), std::string::npos);
    ASSERT_TRUE(rows.Eof());
    word.TakeCalls();
    PrintDataGrid("Bäume", form.Grid1, rows, false);
    EXPECT_NE(Pasted().find("1\tEiche"), std::string::npos);
}

TEST_F(PrintDataGridTest, AClonePrintsWithoutMovingTheGrid)
{
    ShowTrees();
    form.Data1.Recordset().MoveNext();
    Print();
    EXPECT_EQ(form.Grid1.CurrentRow(), 1);
}

TEST_F(PrintDataGridTest, FinishesTheTableAfterItIsShown)
{
    ShowTrees();
    Print(true);
    const Texts end(word.calls.end() - 4, word.calls.end());
    EXPECT_EQ(end,
              (Texts{"SetVisible true", "SetHeadingRow 1 true", "SetHeadingRow 2 true", "AddFooterPageNumber 2 true"}));
    EXPECT_EQ(std::ranges::count(word.calls, "SetWindowFlag true"), 1);
}

TEST_F(PrintDataGridTest, WithoutAWordProcessorEndsQuietly)
{
    word.fails = true;
    ShowTrees();
    EXPECT_EQ(ErrorOf([this] { Print(); }), 0);
    EXPECT_EQ(word.calls, Texts{});
}

TEST_F(PrintDataGridTest, WithoutAWordProcessorTheDocumentOfAnEarlierPrintIsFinishedOnceMore)
{
    ShowTrees();
    Print();
    word.isGone = word.fails = true;  // the user closed it, and it does not start again
    word.TakeCalls();
    EXPECT_EQ(ErrorOf([this] { Print(); }), 0);
    EXPECT_EQ(word.calls, (Texts{"SetHeadingRow 1 true", "SetHeadingRow 2 true", "AddFooterPageNumber 2 true"}));
    EXPECT_EQ(desktop.Boxes().size(), 0U);
}

TEST_F(PrintDataGridTest, AColumnOfAnUnknownFieldIsAnError)
{
    ShowTrees();
    form.Grid1.Columns()["NAME"].SetDataField("GONE");
    EXPECT_EQ(ErrorOf([this] { Print(); }), ado::kErrItemNotFound);
}

namespace {

class OpenedFiles final : public os::Shell {
public:
    OpenedFiles() { os::SetCurrentShell(this); }
    ~OpenedFiles() override { os::SetCurrentShell(nullptr); }
    std::unique_ptr<os::Process> Start(std::string_view, const std::vector<std::string>&) override
    {
        basic::Raise(basic::kErrFileNotFound);
    }
    void Open(std::string_view document) override { opened.emplace_back(document); }
    Texts opened;
};

}  // namespace

TEST_F(PrintDataGridTest, TheUserGetsADocumentOnceThePrintIsOver)
{
    const std::string folder = testing::TempDir() + "kvx_print_" + std::to_string(::getpid());
    const OpenedFiles shell;
    adapters::office::RegisterOfficeWordProcessor(
        folder, [this](std::function<void()> work) { desktop.Post(std::move(work)); });
    ShowTrees();
    Print();
    EXPECT_EQ(shell.opened, Texts{});
    desktop.Settle();
    ASSERT_EQ(shell.opened.size(), 1U);
    EXPECT_GT(std::filesystem::file_size(shell.opened.front()), 1000U);
    std::filesystem::remove_all(folder);
}

}  // namespace kvx::test
