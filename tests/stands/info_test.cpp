#include "basic/Error.h"
#include "common/FormInstance.h"
#include "stands/F_Waldort_Info.h"
#include "stands/StandsTest.h"

namespace kvx::test {
namespace {

constexpr int kRefused = -2147217900;

constexpr std::string_view kWhere =
    " WHERE WALDORT.ID_WALDORT IN (SELECT ID_WALDORT FROM WALDORT WHERE ISNULL(DISABLE,0) = 0"
    " AND WALDORT.ID_ACCESS_LEVELS IS NULL AND WO1 = 'Nord' AND WO2 = '1' AND WO3 IS NULL AND WO4 IS NULL"
    " AND WO5 IS NULL AND WO6 IS NULL)";

/// The info of stand Nord/1, opened from the stand dialog; the script must close it.
void Info(Scenario& s, const Script& script)
{
    s.In("F_Waldort_Info", script);
    Maintain(s, [](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        f.Click("btnInfo");
        f.Click("btnCancel");
    });
}

void FillNord1(Scenario& s)
{
    s.Execute("UPDATE WALDORT SET INFO1 = 'eins', INFO5 = 'fünf', ZAHL1 = 1.5, ZAHL5 = 1234.5 WHERE ID_WALDORT = 2");
}

std::string Fields(Dialog& f)
{
    std::string all;
    for (const char* name : {"txtInfo", "txtZahl"})
        for (int i = 0; i < 5; ++i)
            all += f.Text(std::string(name) + "(" + std::to_string(i) + ")") + "|";
    return all;
}

Lines Buttons(Dialog& f)
{
    Lines enabled;
    for (const char* button : {"btnBearbeiten", "btnSpeichern", "btnAbbrechen", "btnClose"})
        if (f.Enabled(button)) enabled.emplace_back(button);
    return enabled;
}

bool AllLocked(Dialog& f, bool locked)
{
    for (const char* name : {"txtInfo", "txtZahl"})
        for (int i = 0; i < 5; ++i) {
            const std::string box = std::string(name) + "(" + std::to_string(i) + ")";
            if (f.Text(box, "Locked") != (locked ? "Wahr" : "Falsch")) return false;
            if (f.Text(box, "TabStop") != (locked ? "Falsch" : "Wahr")) return false;
        }
    return true;
}

void Overtype(Dialog& f, std::string_view box, std::string_view text)
{
    f.Focus(box);
    f.Keys("{HOME}+{END}{DEL}");
    f.Type(box, text);
}

TEST(StandInfo, ShowsTheTenFields)
{
    Scenario s;
    FillNord1(s);
    Info(s, [&](Dialog& f) {
        EXPECT_EQ(Fields(f), "eins||||fünf|1,50||||1234,50|");
        EXPECT_EQ(s.Statements().back(),
                  "SELECT INFO1, INFO2, INFO3, INFO4, INFO5, ZAHL1, ZAHL2, ZAHL3, ZAHL4, ZAHL5 FROM WALDORT " +
                      std::string(kWhere));
        f.Click("btnClose");
    });
}

TEST(StandInfo, IsLockedUntilTheUserAsksToEdit)
{
    Scenario s;
    Info(s, [](Dialog& f) {
        EXPECT_TRUE(AllLocked(f, true));
        EXPECT_EQ(Buttons(f), Lines({"btnBearbeiten", "btnClose"}));
        f.Type("txtInfo(0)", "x");
        EXPECT_EQ(f.Text("txtInfo(0)"), "");
        f.Click("btnBearbeiten");
        EXPECT_TRUE(AllLocked(f, false));
        EXPECT_EQ(Buttons(f), Lines({"btnSpeichern", "btnAbbrechen"}));
        f.Click("btnAbbrechen");
        f.Click("btnClose");
    });
}

TEST(StandInfo, SavesTenStatementsAndLocksAgain)
{
    Scenario s;
    FillNord1(s);
    Info(s, [&](Dialog& f) {
        f.Click("btnBearbeiten");
        Overtype(f, "txtInfo(1)", "zwei");
        Overtype(f, "txtInfo(0)", "");
        Overtype(f, "txtZahl(1)", "2,5");
        Overtype(f, "txtZahl(0)", "");
        Sent since(s);
        f.Click("btnSpeichern");
        Lines expected;
        const Lines texts{"NULL", "'zwei'", "NULL", "NULL", "'fünf'"};
        const Lines numbers{"NULL", "2.50", "NULL", "NULL", "1234.50"};
        for (std::size_t i = 0; i < 5; ++i) {
            const std::string n = std::to_string(i + 1);
            expected.push_back("UPDATE WALDORT SET INFO" + n + " = " + texts[i] + std::string(kWhere));
            expected.push_back("UPDATE WALDORT SET ZAHL" + n + " = " + numbers[i] + std::string(kWhere));
        }
        EXPECT_EQ(since.Take(), expected);
        EXPECT_TRUE(AllLocked(f, true));
        EXPECT_EQ(Buttons(f), Lines({"btnBearbeiten", "btnClose"}));
        f.Click("btnClose");
    });
    EXPECT_EQ(s.Value("SELECT INFO2 FROM WALDORT WHERE ID_WALDORT = 2"), "zwei");
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE ID_WALDORT = 2 AND INFO1 IS NULL AND ZAHL1 IS NULL"), "1");
}

TEST(StandInfo, AbandoningReadsAgain)
{
    Scenario s;
    FillNord1(s);
    Info(s, [&](Dialog& f) {
        f.Click("btnBearbeiten");
        Overtype(f, "txtInfo(0)", "anders");
        f.Click("btnAbbrechen");
        EXPECT_EQ(Fields(f), "eins||||fünf|1,50||||1234,50|");
        EXPECT_TRUE(AllLocked(f, true));
        EXPECT_EQ(Buttons(f), Lines({"btnBearbeiten", "btnClose"}));
        f.Click("btnClose");
    });
    EXPECT_EQ(s.Value("SELECT INFO1 FROM WALDORT WHERE ID_WALDORT = 2"), "eins");
}

TEST(StandInfo, AWhereWithoutARowShowsNothingAndChangesNothing)
{
    Scenario s;
    s.In("F_Waldort_Info", [&](Dialog& f) {
        EXPECT_EQ(Fields(f), "||||||||||");
        f.Click("btnBearbeiten");
        Overtype(f, "txtInfo(0)", "x");
        f.Click("btnSpeichern");
        f.Click("btnClose");
    });
    ShowStandInfo(s.kvxvar(), " WHERE ID_WALDORT = 999");
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM WALDORT WHERE INFO1 = 'x'"), "0");
}

TEST(StandInfo, EnterGoesThroughTheTextsToTheNumbersAndToSave)
{
    Scenario s;
    Info(s, [](Dialog& f) {
        f.Click("btnBearbeiten");
        f.Focus("txtInfo(0)");
        Lines order;
        for (int i = 0; i < 10; ++i) {
            f.Keys("{ENTER}");
            order.push_back(f.FocusedControl());
        }
        EXPECT_EQ(order, Lines({"txtInfo(1)", "txtInfo(2)", "txtInfo(3)", "txtInfo(4)", "txtZahl(0)", "txtZahl(1)",
                                "txtZahl(2)", "txtZahl(3)", "txtZahl(4)", "btnSpeichern"}));
        f.Click("btnAbbrechen");
        f.Click("btnClose");
    });
}

TEST(StandInfo, EnterInTheLastNumberStartsAgainWhileNothingCanBeSaved)
{
    Scenario s;
    Info(s, [](Dialog& f) {
        f.Focus("txtZahl(4)");
        f.Keys("{ENTER}");
        EXPECT_EQ(f.FocusedControl(), "txtInfo(0)");
        f.Click("btnClose");
    });
}

TEST(StandInfo, NumbersAreFilteredAndFormatted)
{
    Scenario s;
    Info(s, [](Dialog& f) {
        f.Click("btnBearbeiten");
        Overtype(f, "txtZahl(2)", "1a2,5x");
        EXPECT_EQ(f.Text("txtZahl(2)"), "12,5");
        f.Focus("txtZahl(3)");
        EXPECT_EQ(f.Text("txtZahl(2)"), "12,50");
        f.Click("btnAbbrechen");
        f.Click("btnClose");
    });
}

TEST(StandInfo, ABoxIsMarkedWholeWhenItGetsTheFocus)
{
    Scenario s;
    FillNord1(s);
    Info(s, [](Dialog& f) {
        f.Focus("txtInfo(4)");
        EXPECT_EQ(f.Text("txtInfo(4)", "SelText"), "fünf");
        f.Focus("txtZahl(0)");
        EXPECT_EQ(f.Text("txtZahl(0)", "SelText"), "1,50");
        f.Click("btnClose");
    });
}

TEST(StandInfo, AGreyStandsInfoMayBeEdited)
{
    Scenario s;
    s.In("F_Waldort_Info", [&](Dialog& f) {
        f.Click("btnBearbeiten");
        Overtype(f, "txtInfo(0)", "zentral");
        f.Click("btnSpeichern");
        f.Click("btnClose");
    });
    Maintain(s, [](Dialog& f) {
        f.Select("TreeView1", {"Nord", "2"});
        f.Click("btnInfo");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT INFO1 FROM WALDORT WHERE ID_WALDORT = 8"), "zentral");
}

TEST(StandInfo, IsReleasedWithItsWindow)
{
    Scenario s;
    Info(s, [](Dialog& f) { f.CloseBox(); });
    EXPECT_FALSE(FormInstance<F_Waldort_Info>::Exists());
}

TEST(StandInfo, ARefusedReadIsShownByTheStandDialog)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        s.FailStatement(1, kRefused, "refused");
        f.Answer("refused", ui::vbOK);
        f.Click("btnInfo");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Boxes().at(0).flags, 16);
}

class StandInfoFailure : public testing::TestWithParam<std::size_t> {};

TEST_P(StandInfoFailure, InASaveKeepsWhatWasSavedAndTheNextInfoIsFresh)
{
    Scenario s;
    s.In("F_Waldort_Info", [&](Dialog& f) {
        f.Click("btnBearbeiten");
        for (int i = 0; i < 5; ++i)
            Overtype(f, "txtInfo(" + std::to_string(i) + ")", "x");
        s.FailStatement(GetParam(), kRefused, "refused");
        f.Click("btnSpeichern");
    });
    s.In("F_Waldort_Info", [&](Dialog& f) {
        EXPECT_TRUE(AllLocked(f, true));
        EXPECT_EQ(Buttons(f), Lines({"btnBearbeiten", "btnClose"}));
        f.Click("btnClose");
    });
    Maintain(s, [](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        f.Answer("refused", ui::vbOK);
        f.Click("btnInfo");
        f.Click("btnInfo");
        f.Click("btnCancel");
    });
    const std::size_t saved = GetParam() / 2;  // texts and numbers by turns
    for (std::size_t i = 1; i <= 5; ++i)
        EXPECT_EQ(s.Value("SELECT INFO" + std::to_string(i) + " FROM WALDORT WHERE ID_WALDORT = 2"),
                  i <= saved ? "x" : "");
}

INSTANTIATE_TEST_SUITE_P(EachStatement, StandInfoFailure, testing::Range(std::size_t{1}, std::size_t{11}));

}  // namespace
}  // namespace kvx::test
