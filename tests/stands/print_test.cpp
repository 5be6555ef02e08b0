#include "basic/Error.h"
#include "common/FormInstance.h"
#include "os/WordProcessor.h"
#include "stands/F_Waldort.h"
#include "stands/StandsTest.h"

#include <algorithm>
#include <functional>
#include <memory>

namespace kvx::test {
namespace {

constexpr int kRefused = -2147217900;

/// Notes what is done with the document.
class PaperDocument final : public os::WordDocument {
public:
    explicit PaperDocument(Lines& steps) : steps_(steps) {}
    void SetMirrored(bool mirrored) override { Note("mirrored", mirrored); }
    void SetSectionStart(std::int32_t start) override { Note("section", start); }
    void SetWindowFlag(bool flag) override { Note("flag", flag); }
    void AddTable(std::int32_t rows, std::int32_t columns) override
    {
        steps_.push_back("table " + std::to_string(rows) + "x" + std::to_string(columns));
    }
    void SelectTable() override { steps_.emplace_back("select table"); }
    void SelectRow(std::int32_t row) override { Note("select row", row); }
    void PasteText(std::string_view text) override { steps_.push_back("paste " + std::string(text)); }
    void SetBold(bool bold) override { Note("bold", bold); }
    void SetShading(std::uint32_t rgb) override { Note("shading", static_cast<std::int32_t>(rgb)); }
    void SetFont(std::string_view name, std::int32_t points) override { Note("font " + std::string(name), points); }
    void SetRowSetting(std::int32_t setting) override { Note("rows", setting); }
    void MoveToStart() override { steps_.emplace_back("start"); }
    void SetHeadingRow(std::int32_t row, bool) override { Note("heading", row); }
    void AddFooterPageNumber(std::int32_t alignment, bool) override { Note("page number", alignment); }

private:
    void Note(const std::string& what, std::int32_t value) { steps_.push_back(what + " " + std::to_string(value)); }
    Lines& steps_;
};

class PaperProcessor final : public os::WordApplication {
public:
    PaperProcessor(Lines& steps, const std::function<void()>& onDocument) : steps_(steps), onDocument_(onDocument) {}
    void SetWindowState(std::int32_t) override {}
    std::shared_ptr<os::WordDocument> AddDocument() override
    {
        if (onDocument_) onDocument_();
        return std::make_shared<PaperDocument>(steps_);
    }
    void SetVisible(bool) override {}

private:
    Lines& steps_;
    const std::function<void()>& onDocument_;
};

/// A word processor that is there as long as this object.
struct Paper {
    Lines steps;
    std::function<void()> onDocument;  // when the word processor is asked for a document
    Paper()
    {
        os::RegisterWordProcessor([this] { return std::make_shared<PaperProcessor>(steps, onDocument); });
    }
    ~Paper() { os::RegisterWordProcessor({}); }
    std::string Pasted() const
    {
        for (const std::string& step : steps)
            if (step.starts_with("paste ")) return step.substr(6);
        return "(nothing)";
    }
};

constexpr std::string_view kFew = "INSERT INTO WALDORT (WO1, WO2, DISABLE, ID_ACCESS_LEVELS) VALUES"
                                  " ('Süd', NULL, NULL, NULL), ('Nord', '2', 1, 4), ('Nord', NULL, NULL, NULL)";

void PrintWithoutShowing(Scenario& s)
{
    c_Waldort().WaldortSimple(s.kvxvar(), /*bolPrint=*/1, s.ID_AL, 0, s.ID_WALDORT_Root);
}

TEST(StandPrint, WritesAllStandsOfAllLevelsAsATable)
{
    Paper paper;
    Scenario s{kFew};
    PrintWithoutShowing(s);
    EXPECT_EQ(paper.Pasted(), "WO1\tWO2\tWO3\tWO4\tWO5\tWO6\r\n"
                              "Nord\t\t\t\t\t\r\n"
                              "Nord\t2\t\t\t\t\r\n"
                              "Süd\t\t\t\t\t\r\n");
    EXPECT_EQ(paper.steps.at(2), "flag 0");
    EXPECT_EQ(paper.steps.at(3), "table 4x6");
}

TEST(StandPrint, HasNoHeadingRowsAndNoPageNumber)
{
    Paper paper;
    Scenario s{kFew};
    PrintWithoutShowing(s);
    for (const std::string& step : paper.steps) {
        EXPECT_FALSE(step.starts_with("heading")) << step;
        EXPECT_FALSE(step.starts_with("page number")) << step;
    }
}

TEST(StandPrint, AsksForTheCountAndTheStands)
{
    Paper paper;
    Scenario s{kFew};
    s.Execute("INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE) VALUES ('WALDORTLEVEL', 6)");
    PrintWithoutShowing(s);
    EXPECT_EQ(s.Statements(), Lines({"SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'WALDORTLEVEL'",
                                     "SELECT COUNT(*) FROM WALDORT",
                                     "SELECT WO1,WO2,WO3,WO4,WO5,WO6 FROM WALDORT  ORDER BY WO1,WO2,WO3,WO4,WO5,WO6"}));
}

TEST(StandPrint, TheClipboardHoldsTheTextAfterwards)
{
    Paper paper;
    Scenario s{kFew};
    PrintWithoutShowing(s);
    EXPECT_EQ(s.Desktop().ClipboardText(), paper.Pasted());
}

TEST(StandPrint, WithoutShowingTheFormIsReleased)
{
    Paper paper;
    Scenario s{kFew};
    PrintWithoutShowing(s);
    EXPECT_EQ(s.Desktop().Dialogs(), Lines());
    EXPECT_FALSE(FormInstance<F_Waldort>::Exists());
}

TEST(StandPrint, TheButtonPrintsAndLeavesThePointerAndTheBarAsTheyWere)
{
    Paper paper;
    Scenario s{kFew};
    Maintain(s, [](Dialog& f) {
        f.Click("cmdPrint");
        EXPECT_EQ(f.Form().MousePointer(), ui::vbDefault);
        EXPECT_FALSE(f.Shown("ProgressBar1"));
        f.Click("btnCancel");
    });
    EXPECT_NE(paper.Pasted(), "(nothing)");
}

TEST(StandPrint, TheBarGoesOnWithEveryRowUnderTheHourglass)
{
    Paper paper;
    Scenario s{kFew};
    BarWatch bar;
    std::int32_t pointerAtTheDocument = -1;
    paper.onDocument = [&] {
        const auto form = FormInstance<F_Waldort>::Get();
        pointerAtTheDocument = form->MousePointer();
        EXPECT_FALSE(form->ProgressBar1.Visible());
    };
    Maintain(s, [&](Dialog& f) {
        bar.Attach();
        f.Click("cmdPrint");
        bar.Detach();
        EXPECT_EQ(f.Form().MousePointer(), ui::vbDefault);
        EXPECT_FALSE(f.Shown("ProgressBar1"));
        f.Click("btnCancel");
    });
    EXPECT_EQ(bar.states, Lines({"0", "33", "66", "100", "hidden"}));
    EXPECT_TRUE(std::ranges::all_of(bar.pointers, [](std::int32_t pointer) { return pointer == ui::vbHourglass; }));
    EXPECT_EQ(pointerAtTheDocument, ui::vbHourglass);
}

TEST(StandPrint, WithoutAWordProcessorNothingHappens)
{
    Scenario s{kFew};
    s.Desktop().SetClipboardText("alt");
    PrintWithoutShowing(s);
    EXPECT_EQ(s.Desktop().ClipboardText(), "alt");
}

TEST(StandPrint, AnEmptyTablePrintsTheHeadingOnly)
{
    Paper paper;
    Scenario s{"DELETE FROM WALDORT"};
    PrintWithoutShowing(s);
    EXPECT_EQ(paper.Pasted(), "WO1\tWO2\tWO3\tWO4\tWO5\tWO6\r\n");
}

TEST(StandPrint, RowsThatComeMeanwhileDoNotBreakTheBar)
{
    Paper paper;
    Scenario s{kFew};
    Maintain(s, [&](Dialog& f) {
        // The count is refused a look at what another user adds behind it.
        class Adder final : public ado::StatementObserver {
        public:
            explicit Adder(Scenario& s) : s_(s) {}
            void AfterExecute(const ado::StatementRecord& record) override
            {
                if (record.text == "SELECT COUNT(*) FROM WALDORT")
                    s_.Execute("INSERT INTO WALDORT (WO1) VALUES ('X'), ('Y'), ('Z')");
            }

        private:
            Scenario& s_;
        };
        const auto adder = std::make_shared<Adder>(s);
        s.kvxvar().dbAdo.AddStatementObserver(adder);
        f.Click("cmdPrint");
        s.kvxvar().dbAdo.RemoveStatementObserver(adder.get());
        f.Click("btnCancel");
    });
    EXPECT_TRUE(paper.Pasted().ends_with("Z\t\t\t\t\t\r\n"));
}

class StandPrintFailure : public testing::TestWithParam<std::size_t> {};

TEST_P(StandPrintFailure, ByTheButtonIsShownAndLeavesNoHourglass)
{
    Paper paper;
    Scenario s{kFew};
    Maintain(s, [&](Dialog& f) {
        s.FailStatement(GetParam(), kRefused, "refused");
        f.Answer("refused", ui::vbOK);
        f.Click("cmdPrint");
        EXPECT_EQ(f.Form().MousePointer(), ui::vbDefault);
        EXPECT_FALSE(f.Shown("ProgressBar1"));
        f.Click("btnCancel");
    });
    EXPECT_EQ(paper.Pasted(), "(nothing)");
}

INSTANTIATE_TEST_SUITE_P(EachStatement, StandPrintFailure, testing::Values(1U, 2U));

TEST(StandPrint, WithoutShowingAFailureIsTheHostsAndTheNextCallShowsTheDialog)
{
    Paper paper;
    Scenario s{kFew};
    s.Execute("INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE) VALUES ('WALDORTLEVEL', 6)");
    s.FailStatement(2, kRefused, "refused");
    EXPECT_THROW(PrintWithoutShowing(s), basic::Error);
    EXPECT_TRUE(FormInstance<F_Waldort>::Exists());
    std::string strWO;
    s.In("F_Waldort", [](Dialog& f) { f.Click("btnCancel"); });
    c_Waldort().WaldortId(s.kvxvar(), strWO, s.ID_AL, s.ID_WALDORT_Root, nullptr);
    EXPECT_EQ(paper.Pasted(), "(nothing)");
}

}  // namespace
}  // namespace kvx::test
