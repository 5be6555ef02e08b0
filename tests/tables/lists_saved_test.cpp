#include "tables/ListsTest.h"

#include "common/FormInstance.h"

#include <algorithm>
#include <string>

// After a save: the second refresh and the cursor, the protocol, errors on the way.
namespace kvx {

using namespace test;

namespace {

void Type(Dialog& f, std::string_view first, std::string_view second)
{
    Retype(f, "txtField1", first);
    Retype(f, "txtField2", second);
}

}  // namespace

TEST(ListSaved, HalfASecondLaterTheCursorStandsOnTheSavedRow)
{
    Scenario s("lists.sql");
    Open(s, kReceipts, [&](Dialog& f) {
        Go(f, 0);
        f.Click("btnNeu");
        Type(f, "ZZZ", "Neuer Zugang");
        f.Click("btnSpeichern");
        EXPECT_EQ(EditLine(f), "ZZZ|Neuer Zugang||");
        Sent sent(s);
        f.Wait(499);
        EXPECT_EQ(sent.Take(), Lines{});
        EXPECT_NE(f.FocusedControl(), "DataGrid1");
        f.Wait(1);
        EXPECT_EQ(sent.Take(), Lines{List(f).Data1.RecordSource()});
        EXPECT_EQ(f.FocusedControl(), "DataGrid1");
        EXPECT_EQ(Buttons(f), "NL--");
        EXPECT_EQ(List(f).DataGrid1.CurrentRow(), 3);
        EXPECT_EQ(EditLine(f), "ZZZ|Neuer Zugang||");
        auto columns = List(f).DataGrid1.Columns();
        EXPECT_EQ(columns[0].Caption(), s.Text(1176));
        EXPECT_FALSE(columns[3].Visible());
        f.Wait(5000);
        EXPECT_EQ(sent.Take(), Lines{});  // once
        f.CloseBox();
    });
}

TEST(ListSaved, AChangedRowKeepsTheCursor)
{
    Scenario s("lists.sql");
    Open(s, kRelations, [&](Dialog& f) {
        f.SelectTab("SSTab1", 1);
        Go(f, 1);
        Retype(f, "txtField2", "Revier eins");
        f.Click("btnSpeichern");
        f.Wait(500);
        EXPECT_EQ(List(f).DataGrid1.CurrentRow(), 1);
        EXPECT_EQ(EditLine(f), "RV1|Revier eins|12|");
        f.CloseBox();
    });
}

TEST(ListSaved, WithoutAKeyOfItsOwnTheCursorStandsWhereTheSearchEnds)
{
    for (const std::int32_t id : {kColours, kFederalStates}) {
        Scenario s("lists.sql");
        Open(s, id, [&](Dialog& f) {
            Go(f, 0);
            Retype(f, "txtField2", "x");
            f.Click("btnSpeichern");
            f.Wait(500);
            EXPECT_EQ(List(f).DataGrid1.CurrentRow(), -1) << id;
            EXPECT_EQ(EditLine(f), "|||") << id;
            EXPECT_EQ(Buttons(f), "NL--") << id;
            f.CloseBox();
        });
    }
}

TEST(ListSaved, AFormThatClosesAtOnceIsNotRefreshed)
{
    Scenario s("lists.sql");
    Open(s, kReceipts, [&](Dialog& f) {
        Go(f, 0);
        Retype(f, "txtField2", "x");
        f.Click("btnSpeichern");
        f.CloseBox();
    });
    Sent sent(s);
    s.Advance(1000);
    EXPECT_EQ(sent.Take(), Lines{});
}

TEST(ListSaved, ALongListIsReadTwiceAndSearchedWithoutTheDatabase)
{
    Scenario s("lists.sql");
    std::string insert = "INSERT INTO F1 (ID, SHORT, LONG) VALUES (3, 'c3', 'Feld')";
    for (int id = 4; id <= 3000; ++id)
        insert += ", (" + std::to_string(id) + ", 'c" + std::to_string(id) + "', 'Feld')";
    s.Execute(insert);
    Open(s, kFreeFields, [&](Dialog& f) {
        EXPECT_EQ(List(f).DataGrid1.RowCount(), 3000);
        Go(f, 2500);
        Retype(f, "txtField2", "geändert");
        Sent sent(s);
        f.Click("btnSpeichern");
        f.Wait(500);
        EXPECT_EQ(List(f).DataGrid1.CurrentRow(), 2500);
        EXPECT_GE(List(f).DataGrid1.Row(), 0);  // in sight
        EXPECT_EQ(EditLine(f), "c2501|geändert||");
        const Lines statements = sent.Take();
        EXPECT_EQ(std::ranges::count(statements, "SELECT SHORT,LONG,DISABLE, ID FROM F1"), 2);
        EXPECT_EQ(statements.size(), 1U + 3U + 2U);
        f.CloseBox();
    });
}

TEST(ListSaved, ARefreshThatFailsIsTheHostsErrorThoughTheRowIsSaved)
{
    Scenario s("lists.sql");
    s.In("F_Tabellen2", [&](Dialog& f) {
        Go(f, 0);
        Retype(f, "txtField2", "Einschlag");
        f.Click("btnSpeichern");
        s.FailStatement(1, ado::kErrTimeout, "zu langsam");
        f.Wait(500);
        EXPECT_TRUE(s.HasFailed());
        EXPECT_FALSE(f.Form().Visible());
    });
    ExpectHostError(s, kReceipts, ado::kErrTimeout, "zu langsam");
    EXPECT_EQ(s.Value("SELECT LONGNAME FROM STAMM_TABELLEN WHERE ID_STRING = 40"), "Einschlag");
    Sent sent(s);
    s.Advance(1000);
    EXPECT_EQ(sent.Take(), Lines{});
}

TEST(ListSaved, TheRefreshComesAlsoWhileTheUserPicksAGroup)
{
    Scenario s("lists.sql");
    Open(s, kRelations, [&](Dialog& f) {
        Go(f, 0);
        Retype(f, "txtField2", "Amt eins");
        f.Click("btnSpeichern");
        f.Focus("txtField3");
        s.In("F_Picker", [&](Dialog& picker) {
            Sent sent(s);
            picker.Wait(500);
            EXPECT_EQ(sent.Take().front(), List(f).Data1.RecordSource());
            EXPECT_TRUE(picker.Form().Visible());
            picker.PickRow("ListView1", 2);
            picker.Click("btnOK");
        });
        f.CtrlAlone();
        EXPECT_TRUE(f.Form().Visible());
        EXPECT_EQ(EditLine(f), "FA1|Amt eins|12|");
        EXPECT_EQ(List(f).DataGrid1.CurrentRow(), 0);
        f.CloseBox();
    });
    EXPECT_EQ(s.Value("SELECT GRUPPE FROM RELTABLE WHERE ID = 1"), "5");
}

TEST(ListSaved, ARefreshThatFailsUnderThePickerEndsTheCallWhenThePickerCloses)
{
    Scenario s("lists.sql");
    s.In("F_Tabellen2", [&](Dialog& f) {
        Go(f, 0);
        Retype(f, "txtField2", "Amt eins");
        f.Click("btnSpeichern");
        f.Focus("txtField3");
        s.In("F_Picker", [&](Dialog& picker) {
            s.FailStatement(1, ado::kErrTimeout, "zu langsam");
            picker.Wait(500);
            EXPECT_TRUE(s.HasFailed());
            if (picker.Form().Visible()) picker.Click("btnCancel");
        });
        f.CtrlAlone();
        EXPECT_FALSE(f.Form().Visible());
    });
    ExpectHostError(s, kRelations, ado::kErrTimeout, "zu langsam");
}

TEST(ListSaved, TheRefreshComesAlsoWhileTheUsesOfACodeAreShown)
{
    Scenario s("lists.sql");
    Open(s, kReceipts, [&](Dialog& f) {
        Go(f, 0);
        Retype(f, "txtField2", "Einschlag");
        f.Click("btnSpeichern");
        Go(f, 0);
        s.In("F_MessageBox", [&](Dialog& box) {
            Sent sent(s);
            box.Wait(500);
            EXPECT_EQ(sent.Take(), Lines{List(f).Data1.RecordSource()});
            EXPECT_TRUE(box.Form().Visible());
            EXPECT_EQ(box.Lines("List1").size(), 2U);
            box.Keys("{ENTER}");
        });
        f.Answer(1429, ui::vbYes);
        f.Click("btnLoschen");
        EXPECT_TRUE(f.Form().Visible());
        EXPECT_EQ(EditLine(f), "HI|Einschlag||");
        f.CloseBox();
    });
    EXPECT_EQ(s.CountStatements("DELETE"), 0);
}

// --- protocol ---

TEST(ListProtocol, ASaveLeavesOneLineInTheCallersFile)
{
    Scenario s("lists.sql");
    Open(
        s, kReceipts,
        [&](Dialog& f) {
            Go(f, 0);
            Retype(f, "txtField2", "x");
            f.Click("btnSpeichern");
            f.CloseBox();
        },
        s.File("protokoll.txt"));
    const std::string line = s.ReadFile("protokoll.txt");
    EXPECT_NE(line.find("\t" + s.Text(861) + "\tListe\t" + s.Text(1608) + "\tAnna"), std::string::npos) << line;
    EXPECT_EQ(std::ranges::count(line, '\n'), 1);
}

TEST(ListProtocol, ColoursAndStatesLeaveNoLineWhenSaved)
{
    for (const std::int32_t id : {kColours, kFederalStates}) {
        Scenario s("lists.sql");
        Open(
            s, id,
            [&](Dialog& f) {
                Go(f, 0);
                Retype(f, "txtField2", "x");
                f.Click("btnSpeichern");
                f.CloseBox();
            },
            s.File("protokoll.txt"));
        EXPECT_EQ(s.ReadFile("protokoll.txt"), "") << id;
    }
}

TEST(ListProtocol, AFileThatCannotBeWrittenIsAnErrorOfTheCall)
{
    Scenario s("lists.sql");
    s.In("F_Tabellen2", [](Dialog& f) {
        Go(f, 0);
        Retype(f, "txtField2", "x");
        f.Click("btnSpeichern");
    });
    std::string path = s.File("gibt-es-nicht/protokoll.txt");
    try {
        c_Tabellen2().Tabellen2(s.kvxvar(), "Liste", path, kReceipts, 0, "Anna");
        ADD_FAILURE() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, basic::kErrPathNotFound);
    }
}

// --- errors ---

TEST(ListSave, AnErrorOfAnyStatementEndsTheCallWithTheProvidersError)
{
    // Group, look at the list, highest key, insert, group's id, five columns, the grid.
    for (std::size_t k = 1; k <= 11; ++k) {
        Scenario s("lists.sql");
        s.In("F_Tabellen2", [&](Dialog& f) {
            Go(f, 0);
            f.Click("btnNeu");
            Type(f, "NEU", "Neu");
            Retype(f, "txtField3", "11");
            s.FailStatement(k, ado::kErrOutOfRange, "zu lang");
            f.Click("btnSpeichern");
            EXPECT_FALSE(f.Form().Visible()) << k;
        });
        std::string path;
        try {
            c_Tabellen2().Tabellen2(s.kvxvar(), "Liste", path, kRelations, 0, "Anna");
            ADD_FAILURE() << k << ": no error";
        } catch (const basic::Error& error) {
            EXPECT_EQ(error.Number, ado::kErrOutOfRange) << k;
            EXPECT_EQ(error.Description, "zu lang") << k;
        }
        EXPECT_TRUE(FormInstance<F_Tabellen2>::Exists()) << k;
    }
}

TEST(ListSave, AnApostropheIsTheProvidersErrorInTheLookAtTheList)
{
    Scenario s("lists.sql");
    s.In("F_Tabellen2", [](Dialog& f) {
        Go(f, 0);
        Retype(f, "txtField1", "a'b");
        f.Click("btnSpeichern");
    });
    std::string path;
    try {
        c_Tabellen2().Tabellen2(s.kvxvar(), "Liste", path, kReceipts, 0, "Anna");
        ADD_FAILURE() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, ado::kErrStatement);
    }
    EXPECT_EQ(s.CountStatements("UPDATE"), 0);
}

TEST(ListSave, AnErrorBetweenTwoColumnsLeavesTheFirstWritten)
{
    Scenario s("lists.sql");
    s.In("F_Tabellen2", [&](Dialog& f) {
        Go(f, 0);
        Type(f, "HX", "neu");
        s.FailStatement(3, ado::kErrTimeout);  // look, code, name
        f.Click("btnSpeichern");
    });
    std::string path;
    EXPECT_THROW(c_Tabellen2().Tabellen2(s.kvxvar(), "Liste", path, kReceipts, 0, "Anna"), basic::Error);
    EXPECT_EQ(s.Value("SELECT SHORTNAME FROM STAMM_TABELLEN WHERE ID_STRING = 40"), "HX");
    EXPECT_EQ(s.Value("SELECT LONGNAME FROM STAMM_TABELLEN WHERE ID_STRING = 40"), "Hieb");
}

}  // namespace kvx
