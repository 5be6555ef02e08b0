#include "tables/ListsTest.h"

#include "checks/F_MessageBox.h"
#include "common/FormInstance.h"
#include "entry/c_Message.h"

#include <string>

// Deleting: the question, the look at the use, the statement, what an error shows.
namespace kvx {

using namespace test;

namespace {

void Delete(Dialog& f, std::int32_t row, std::int32_t answer = ui::vbYes)
{
    Go(f, row);
    f.Answer(1429, answer);
    f.Click("btnLoschen");
}

struct UseCase {
    std::int32_t id;
    const char* statement;
    std::int32_t label;
    Lines names;
    const char* code;
    std::int32_t row;
};

const UseCase kUseCases[] = {
    {kReceipts, "SELECT LISTE FROM LOGS WHERE ZUGANG = 'HI' GROUP BY LISTE", 726, {"2024-101", "2024-102"}, "HI", 0},
    {kIssues, "SELECT LISTE FROM LOGS WHERE ABGANG = 'VK' GROUP BY LISTE", 726, {"2024-101", "2024-102"}, "VK", 0},
    {kTariffs, "SELECT LISTE FROM LOGS WHERE EST = 'A' GROUP BY LISTE", 726, {"2024-101", "2024-102"}, "A", 1},
    {kUnits, "SELECT LISTE FROM LOGS WHERE MENGEN = 'FM' GROUP BY LISTE", 726, {"2024-101", "2024-102"}, "FM", 0},
    {kSkidding, "SELECT LISTE FROM LOGS WHERE RUCKE = 'PF' GROUP BY LISTE", 726, {"2024-101", "2024-102"}, "PF", 0},
    {kMeasuring,
     "SELECT LISTE FROM LOGS WHERE MEFVERF = 'SEK' GROUP BY LISTE",
     726,
     {"2024-101", "2024-102"},
     "SEK",
     0},
    {kColours, "SELECT LISTE FROM LOGS WHERE FARBE = 'ROT' GROUP BY LISTE", 726, {"2024-101", "2024-102"}, "ROT", 0},
    {kSpecialMarks,
     "SELECT NAME FROM ARBEITSAUFTRAG_KOPF WHERE ID_SONDERMERKMAL IN (SELECT ID FROM SONDERMERKMAL WHERE NUMMER = "
     "'S1') ORDER BY NAME",
     1707,
     {"Pflanzung"},
     "S1",
     0},
};

}  // namespace

TEST(ListDelete, ACodeInUseIsShownWithItsUsesAndStays)
{
    for (const UseCase& one : kUseCases) {
        Scenario s("lists.sql");
        Lines lines, expected;
        std::string prompt;
        for (const std::string& name : one.names)
            expected.push_back(s.Text(one.label) + ": " + name);
        s.In("F_MessageBox", [&](Dialog& box) {
            lines = box.Lines("List1");
            prompt = box.Text("LabelPrompt", "Caption");
            box.Click("btnOK");
        });
        Open(
            s, one.id,
            [&](Dialog& f) {
                Go(f, one.row);
                Sent sent(s);
                Delete(f, one.row);
                EXPECT_EQ(sent.Take(), Lines{one.statement});
                f.CloseBox();
            },
            s.File("protokoll.txt"));
        EXPECT_EQ(lines, expected) << one.id;
        EXPECT_EQ(prompt, s.Text(202) + "  '" + one.code + "'  " + s.Text(203)) << one.id;
        EXPECT_EQ(s.ReadFile("protokoll.txt"), "") << one.id;
        EXPECT_FALSE(FormInstance<F_MessageBox>::Exists());
    }
}

TEST(ListDelete, AFreeRowGoesByItsKey)
{
    struct Case {
        std::int32_t id;
        std::int16_t tab;
        std::int32_t row;
        const char* statement;
        const char* table;
        const char* left;
    };
    for (const Case& one : std::initializer_list<Case>{
             {kReceipts, 0, 1, "DELETE FROM STAMM_TABELLEN WHERE ID_STRING = 41", "STAMM_TABELLEN", "17"},
             {kBark, 0, 0, "DELETE FROM STAMM_TABELLEN WHERE ID_STRING = 1", "STAMM_TABELLEN", "17"},
             {kPartyGroups, 1, 0, "DELETE FROM STAMM_TABELLEN WHERE ID_STRING = 71", "STAMM_TABELLEN", "17"},
             {kWageReasons, 0, 0, "DELETE FROM STAMM_TABELLEN WHERE ID_STRING = 90", "STAMM_TABELLEN", "17"},
             {kRelations, 1, 0, "DELETE FROM RELTABLE WHERE ID = 5", "RELTABLE", "4"},
             {kFreeFields, 1, 0, "DELETE FROM F2 WHERE ID = 2", "F2", "1"},
             {kColours, 0, 1, "DELETE FROM FARBE WHERE FARBE = 'WEISS'", "FARBE", "1"},
             {kSpecialMarks, 0, 1, "DELETE FROM SONDERMERKMAL WHERE ID = 2", "SONDERMERKMAL", "1"},
             {kOccasions, 0, 0, "DELETE FROM ANLASSART WHERE ID = 1", "ANLASSART", "1"},
             {kFederalStates, 0, 1, "DELETE FROM T_BUNDESLAND WHERE ID = 2", "T_BUNDESLAND", "1"}}) {
        Scenario s("lists.sql");
        Open(s, one.id, [&](Dialog& f) {
            if (one.tab != 0) f.SelectTab("SSTab1", one.tab);
            Delete(f, one.row);
            EXPECT_EQ(f.FocusedControl(), "DataGrid1") << one.id;
            EXPECT_EQ(Buttons(f), "NL--") << one.id;
            f.CloseBox();
        });
        EXPECT_TRUE(s.WasSent(one.statement)) << one.id;
        EXPECT_EQ(s.Value("SELECT COUNT(*) FROM " + std::string(one.table)), one.left) << one.id;
        ASSERT_EQ(s.Boxes().size(), 1U);
        EXPECT_EQ(s.Boxes()[0].flags, ui::vbExclamation + ui::vbYesNo);
    }
}

TEST(ListDelete, NoKeepsTheRowAndAsksTheDatabaseNothing)
{
    Scenario s("lists.sql");
    Open(s, kReceipts, [&](Dialog& f) {
        Go(f, 1);
        Sent sent(s);
        Delete(f, 1, ui::vbNo);
        EXPECT_EQ(sent.Take(), Lines{});
        f.CloseBox();
    });
}

TEST(ListDelete, AnEmptyListAsksNothing)
{
    Scenario s("lists.sql");
    s.Execute("DELETE FROM ANLASSART");
    Open(s, kOccasions, [](Dialog& f) {
        f.Focus("DataGrid1");
        f.Click("btnLoschen");
        f.CloseBox();
    });
    EXPECT_TRUE(s.Boxes().empty());
}

TEST(ListDelete, ARowWithoutACodeIsNotLookedFor)
{
    Scenario s("lists.sql");
    Open(s, kTariffs, [&](Dialog& f) {
        Delete(f, 0);
        f.CloseBox();
    });
    EXPECT_EQ(s.CountStatements("SELECT LISTE"), 0);
    EXPECT_TRUE(s.WasSent("DELETE FROM STAMM_TABELLEN WHERE ID_STRING = 30"));
}

TEST(ListDelete, TheProtocolLineIsWrittenBeforeTheRowGoes)
{
    Scenario s("lists.sql");
    Open(
        s, kReceipts,
        [&](Dialog& f) {
            Go(f, 1);
            s.FailStatement(2, ado::kErrConstraint);  // the look at the use, then the delete
            f.Answer(1429, ui::vbYes);
            f.Answer(s.Text(202) + " " + s.Text(1223), ui::vbOK);
            f.Click("btnLoschen");
            EXPECT_TRUE(f.Form().Visible());
            f.CloseBox();
        },
        s.File("protokoll.txt"));
    const std::string line = s.ReadFile("protokoll.txt");
    EXPECT_NE(line.find("\t" + s.Text(861) + "\tListe\t" + s.Text(1608) + "\tAnna"), std::string::npos) << line;
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM STAMM_TABELLEN WHERE ID_STRING = 41"), "1");
}

TEST(ListDelete, ARefusedRowIsTheUsersToKnowAndTheFormStays)
{
    for (const std::int32_t number : {ado::kErrStatement, ado::kErrConstraint}) {
        Scenario s("lists.sql");
        Open(s, kReceipts, [&](Dialog& f) {
            Go(f, 1);
            s.FailStatement(2, number, "nicht gezeigt");
            f.Answer(1429, ui::vbYes);
            f.Answer(s.Text(202) + " " + s.Text(1223), ui::vbOK);
            Sent sent(s);
            f.Click("btnLoschen");
            EXPECT_EQ(sent.Take().size(), 2U);  // no refresh
            EXPECT_EQ(List(f).DataGrid1.CurrentRow(), 1);
            f.CloseBox();
        });
        EXPECT_EQ(s.Boxes().at(1).flags, 0);
    }
}

TEST(ListDelete, ARowThatOthersReferToIsRefusedByTheDatabase)
{
    Scenario s("lists.sql");
    s.Execute("INSERT INTO PERSONAL (ID_PERSONAL, NUMMER, ID_T_BUNDESLAND) VALUES (1, '1', 1)");
    Open(s, kFederalStates, [&](Dialog& f) {
        Go(f, 0);
        f.Answer(1429, ui::vbYes);
        f.Answer(s.Text(202) + " " + s.Text(1223), ui::vbOK);
        f.Click("btnLoschen");
        EXPECT_EQ(Rows(f).size(), 2U);
        f.CloseBox();
    });
}

TEST(ListDelete, AnyOtherErrorShowsItsOwnWords)
{
    for (const std::size_t k : {1U, 2U, 3U}) {  // look, delete, refresh
        Scenario s("lists.sql");
        Open(s, kReceipts, [&](Dialog& f) {
            Go(f, 1);
            s.FailStatement(k, ado::kErrTimeout, "Zeit abgelaufen");
            f.Answer(1429, ui::vbYes);
            f.Answer("Zeit abgelaufen", ui::vbOK);
            f.Click("btnLoschen");
            EXPECT_TRUE(f.Form().Visible());
            f.CloseBox();
        });
        EXPECT_EQ(s.Boxes().at(1).flags, ui::vbCritical) << k;
    }
}

TEST(ListDelete, AFailingLookAtTheUseLeavesNoLinesForTheNextList)
{
    Scenario s("lists.sql");
    c_Message().MessageBox_AddItem("vom Wirt");  // a list that was begun before
    Open(s, kReceipts, [&](Dialog& f) {
        Go(f, 0);
        s.FailStatement(1, ado::kErrTimeout, "Zeit abgelaufen");
        f.Answer(1429, ui::vbYes);
        f.Answer("Zeit abgelaufen", ui::vbOK);
        f.Click("btnLoschen");
        f.CloseBox();
    });
    EXPECT_FALSE(FormInstance<F_MessageBox>::Exists());
    EXPECT_EQ(c_Message().MessageBox_ItemCount(), 0);
}

TEST(ListDelete, AProtocolThatCannotBeWrittenKeepsTheRow)
{
    Scenario s("lists.sql");
    Open(
        s, kReceipts,
        [&](Dialog& f) {
            Go(f, 1);
            f.Answer(1429, ui::vbYes);
            f.Answer("*", ui::vbOK);
            f.Click("btnLoschen");
            f.CloseBox();
        },
        s.File("gibt-es-nicht/protokoll.txt"));
    EXPECT_EQ(s.Boxes().at(1).flags, ui::vbCritical);
    EXPECT_EQ(s.CountStatements("DELETE"), 0);
}

TEST(ListDelete, AnErrorInTheRefreshLeavesAFormThatWorksOn)
{
    Scenario s("lists.sql");
    Open(s, kFreeFields, [&](Dialog& f) {
        Go(f, 0);
        s.FailStatement(2, ado::kErrTimeout, "Zeit abgelaufen");  // the delete, then the refresh
        f.Answer(1429, ui::vbYes);
        f.Answer("Zeit abgelaufen", ui::vbOK);
        f.Click("btnLoschen");
        f.SelectTab("SSTab1", 1);
        EXPECT_EQ(EditLine(f), "x|Xylo||");
        f.CloseBox();
    });
}

TEST(ListDelete, AfterwardsTheCursorStandsWhereTheSearchForTheRowSavedLastEnds)
{
    Scenario s("lists.sql");
    Open(s, kReceipts, [&](Dialog& f) {
        Delete(f, 1);
        f.Wait(500);
        EXPECT_EQ(List(f).DataGrid1.CurrentRow(), -1);
        EXPECT_EQ(EditLine(f), "|||");
        Go(f, 0);
        EXPECT_EQ(EditLine(f), "HI|Hieb||");
        f.CloseBox();
    });
}

}  // namespace kvx
