#include "tables/ListsTest.h"

// Tabs, rows, the states of the buttons, leaving the form.
namespace kvx {

using namespace test;

namespace {

// A session that sees level 2 in the statements of the relations.
std::string RelationsOf(int tab)
{
    return "SELECT KURZNAME, LANGNAME, (SELECT NUMBER FROM BBF_GRUPPE WHERE ID = GRUPPE) ,DISABLE, ID, GRUPPE FROM "
           "RELTABLE WHERE RELTABLE_ID = " +
           std::to_string(tab + 1) + " AND (ID_ACCESS_LEVELS IS NULL OR ID_ACCESS_LEVELS = 2) ORDER BY KURZNAME";
}

// Goes through the tabs from the last to the first and compares what each sends.
void ExpectTabStatements(std::int32_t id, const Lines& statements)
{
    Scenario s("lists.sql");
    s.kvxvar().ID_ACCESS_LEVELS = 2;
    Open(s, id, [&](Dialog& f) {
        for (std::size_t tab = statements.size(); tab-- > 0;) {
            Sent sent(s);
            f.SelectTab("SSTab1", static_cast<std::int16_t>(tab));
            if (tab + 1 == statements.size() && statements.size() == 1) continue;  // the tab it opened on
            const Lines taken = sent.Take();
            ASSERT_FALSE(taken.empty()) << tab;
            EXPECT_EQ(taken.front(), statements[tab]);
            EXPECT_EQ(List(f).Data1.RecordSource(), statements[tab]);
        }
        f.CloseBox();
    });
}

}  // namespace

TEST(ListTabs, LabelsAreReadByTheirGroupInOrder)
{
    Lines statements;
    for (const char* group : {"1LV", "1VN", "1PV", "2PV", "WAL", "HDR", "BBF", "1NL"})
        statements.push_back("SELECT DEUTSCH, CUSTOM_DEUTSCH, ID_STRING FROM STRINGS WHERE LABEL_GROUP = '" +
                             std::string(group) + "' ORDER BY DEUTSCH");
    ExpectTabStatements(kLabels, statements);
}

TEST(ListTabs, RelationsAreReadByTheTabsNumberInOrder)
{
    Lines statements;
    for (int tab = 0; tab < 10; ++tab)
        statements.push_back(RelationsOf(tab));
    ExpectTabStatements(kRelations, statements);
}

TEST(ListTabs, PartyGroupsAreReadByTheirGroup)
{
    Lines statements;
    for (const char* group : {"KUN_GR0", "KUN_GR1", "KUN_GR2", "KUN_GR3", "KUN_GR4", "KUN_GR5", "KUN_GR6", "KUN_GR7",
                              "KUN_GR8", "KUN_WEI", "KUN_ARB", "KUN_LIEF", "KUN_MAN", "KUN_WAL"})
        statements.push_back("SELECT SHORTNAME, LONGNAME,DISABLE,ID_STRING FROM STAMM_TABELLEN WHERE LABEL_GROUP = '" +
                             std::string(group) + "'");
    ExpectTabStatements(kPartyGroups, statements);
}

TEST(ListTabs, FreeFieldsAreTwoTablesInOrder)
{
    ExpectTabStatements(kFreeFields, {"SELECT SHORT, LONG,DISABLE, ID FROM F1 ORDER BY SHORT",
                                      "SELECT SHORT, LONG,DISABLE, ID FROM F2 ORDER BY SHORT"});
}

TEST(ListTabs, TheFirstTabIsSortedOnlyAfterAChangeOfTab)
{
    Scenario s("lists.sql");
    Open(s, kFreeFields, [&](Dialog& f) {
        EXPECT_EQ(Rows(f), (Lines{"b|Beta|", "a|Alpha|Ja"}));
        f.SelectTab("SSTab1", 1);
        EXPECT_EQ(Rows(f), (Lines{"x|Xylo|", "y|Ypsilon|"}));
        f.SelectTab("SSTab1", 0);
        EXPECT_EQ(Rows(f), (Lines{"a|Alpha|Ja", "b|Beta|"}));
        f.CloseBox();
    });
}

TEST(ListTabs, AChangeOfTabBrowsesItsRowsWithTheirCaptions)
{
    Scenario s("lists.sql");
    Open(s, kRelations, [&](Dialog& f) {
        f.SelectTab("SSTab1", 1);
        EXPECT_EQ(f.FocusedControl(), "DataGrid1");
        EXPECT_EQ(Buttons(f), "NL--");
        EXPECT_EQ(EditLine(f), "AAA|Revier A||");
        auto columns = List(f).DataGrid1.Columns();
        EXPECT_EQ(columns[2].Caption(), s.Text(1227));
        EXPECT_FALSE(columns[4].Visible());
        EXPECT_EQ(columns[0].Width(), 1000);
        f.SelectTab("SSTab1", 5);
        EXPECT_EQ(EditLine(f), "|||");
        f.CloseBox();
    });
}

TEST(ListRows, ARowFillsTheEditLine)
{
    Scenario s("lists.sql");
    Open(s, kReceipts, [&](Dialog& f) {
        EXPECT_EQ(Rows(f), (Lines{"HI|Hieb|", "ZK|Zukauf|", "ZZ|Altbestand|Ja"}));
        Go(f, 2);
        EXPECT_EQ(EditLine(f), "ZZ|Altbestand||x");
        f.Keys("{UP}");
        EXPECT_EQ(EditLine(f), "ZK|Zukauf||");
        f.CloseBox();
    });
}

TEST(ListRows, MissingValuesAreEmptyAndAFlagOfZeroIsOff)
{
    Scenario s("lists.sql");
    Open(s, kUnits, [&](Dialog& f) {
        Go(f, 1);
        EXPECT_EQ(EditLine(f), "RM|||");
        f.CloseBox();
    });
}

TEST(ListRows, ARelationShowsTheNumberOfItsGroup)
{
    Scenario s("lists.sql");
    Open(s, kRelations, [&](Dialog& f) {
        EXPECT_EQ(Rows(f), (Lines{"FA1|Forstamt 1|11|", "FA2|Forstamt 2||Ja"}));
        EXPECT_EQ(EditLine(f), "FA1|Forstamt 1|11|");
        EXPECT_TRUE(s.WasSent("SELECT NUMBER FROM BBF_GRUPPE WHERE ID = 5"));
        Go(f, 1);
        EXPECT_EQ(EditLine(f), "FA2|Forstamt 2||x");
        f.CloseBox();
    });
}

TEST(ListRows, AFailingLookUpOfAGroupIsTheHostsError)
{
    Scenario s("lists.sql");
    s.In("F_Tabellen2", [&](Dialog& f) {
        Go(f, 0);
        s.FailStatement(1, ado::kErrTimeout, "zu langsam");
        Go(f, 1);
        EXPECT_TRUE(s.HasFailed());
        EXPECT_FALSE(f.Form().Visible());
    });
    ExpectHostError(s, kRelations, ado::kErrTimeout, "zu langsam");
    EXPECT_TRUE(s.Boxes().empty());
}

TEST(ListStates, TheGridBrowsesAndABoxEdits)
{
    Scenario s("lists.sql");
    Open(s, kRelations, [&](Dialog& f) {
        Go(f, 0);
        EXPECT_EQ(Buttons(f), "NL--");
        for (const char* box : {"txtField1", "txtField2", "txtField3"}) {
            f.Focus(box);
            EXPECT_EQ(Buttons(f), "N-SA") << box;
            Go(f, 0);
            EXPECT_EQ(Buttons(f), "NL--") << box;
        }
        f.Click("chkDisable");
        EXPECT_EQ(Buttons(f), "N-SA");
        f.CloseBox();
    });
}

TEST(ListStates, ARowWhoseFlagIsSetDoesNotEdit)
{
    Scenario s("lists.sql");
    Open(s, kReceipts, [&](Dialog& f) {
        Go(f, 0);
        Go(f, 2);  // the box is checked by the row, not by the user
        EXPECT_EQ(EditLine(f), "ZZ|Altbestand||x");
        EXPECT_EQ(Buttons(f), "NL--");
        f.CloseBox();
    });
}

TEST(ListStates, LabelsCannotBeAddedOrDeletedAndTheirStandardStays)
{
    Scenario s("lists.sql");
    Open(s, kLabels, [&](Dialog& f) {
        Go(f, 0);
        EXPECT_EQ(Buttons(f), "----");
        EXPECT_FALSE(f.CanReach("txtField1"));
        f.Focus("txtField2");
        EXPECT_EQ(Buttons(f), "--SA");
        f.CloseBox();
    });
}

TEST(ListStates, NewEmptiesTheBoxesAndKeepsTheFlag)
{
    Scenario s("lists.sql");
    Open(s, kReceipts, [&](Dialog& f) {
        Go(f, 2);
        f.Click("btnNeu");
        EXPECT_EQ(f.FocusedControl(), "txtField1");
        EXPECT_EQ(EditLine(f), "|||x");
        EXPECT_EQ(Buttons(f), "--SA");
        f.CloseBox();
    });
}

TEST(ListStates, NewKeepsTheBoxesOfOccasionsAndSpecialMarks)
{
    for (const std::int32_t id : {kOccasions, kSpecialMarks}) {
        Scenario s("lists.sql");
        Open(s, id, [&](Dialog& f) {
            Go(f, 1);
            const std::string before = EditLine(f);
            f.Click("btnNeu");
            EXPECT_EQ(EditLine(f), before);
            EXPECT_EQ(Buttons(f), "-L--");
            f.Focus("txtField1");
            EXPECT_EQ(Buttons(f), "--SA");
            f.CloseBox();
        });
    }
}

TEST(ListStates, NewEmptiesTheBoxesOfAllOtherLists)
{
    for (const std::int32_t id : {kRelations, kColours, kBark, kMeasuring, kUnits, kTariffs, kIssues, kSkidding,
                                  kPartyGroups, kFreeFields, kWageReasons, kFederalStates}) {
        Scenario s("lists.sql");
        Open(s, id, [&](Dialog& f) {
            Go(f, 0);
            f.Click("btnNeu");
            EXPECT_EQ(EditLine(f).substr(0, 3), "|||") << id;
            EXPECT_EQ(f.FocusedControl(), "txtField1") << id;
            f.CloseBox();
        });
    }
}

TEST(ListStates, AbandonBringsTheRowBackAndBrowses)
{
    Scenario s("lists.sql");
    Open(s, kReceipts, [&](Dialog& f) {
        Go(f, 1);
        f.Click("btnNeu");
        f.Type("txtField1", "NEU");
        f.Click("btnAbrechen");
        EXPECT_EQ(EditLine(f), "ZK|Zukauf||");
        EXPECT_EQ(Buttons(f), "NL--");
        EXPECT_EQ(f.FocusedControl(), "DataGrid1");
        // It is no new row any more: a save changes the present one.
        Retype(f, "txtField2", "Zugekauft");
        f.Click("btnSpeichern");
        EXPECT_EQ(s.CountStatements("INSERT"), 0);
        f.CloseBox();
    });
    EXPECT_EQ(s.Value("SELECT LONGNAME FROM STAMM_TABELLEN WHERE ID_STRING = 41"), "Zugekauft");
}

TEST(ListStates, ABoxSelectsItsWholeTextOnFocus)
{
    Scenario s("lists.sql");
    Open(s, kRelations, [&](Dialog& f) {
        for (const char* box : {"txtField1", "txtField2", "txtField3"}) {
            f.Focus(box);
            EXPECT_EQ(f.Text(box, "SelStart"), "0") << box;
            EXPECT_EQ(f.Text(box, "SelLength"), std::to_string(f.Text(box, "Text").size())) << box;
        }
        f.CloseBox();
    });
}

// --- leaving ---

TEST(ListOk, AChangedBoxAsksAndNoLeavesWithoutSaving)
{
    for (const char* box : {"txtField1", "txtField2", "txtField3"}) {
        Scenario s("lists.sql");
        Open(s, kRelations, [&](Dialog& f) {
            Go(f, 0);
            Retype(f, box, "9");
            f.Answer(4103, ui::vbNo);
            f.Click("btnOK");
            EXPECT_FALSE(f.Form().IsLoaded()) << box;
        });
        ASSERT_EQ(s.Boxes().size(), 1U) << box;
        EXPECT_EQ(s.Boxes()[0].flags, ui::vbYesNo);
        EXPECT_EQ(s.CountStatements("UPDATE"), 0) << box;
    }
}

TEST(ListOk, YesSavesAndTheFormStays)
{
    Scenario s("lists.sql");
    Open(s, kReceipts, [&](Dialog& f) {
        Go(f, 0);
        Retype(f, "txtField2", "Einschlag");
        f.Answer(4103, ui::vbYes);
        f.Click("btnOK");
        EXPECT_TRUE(f.Form().Visible());
        EXPECT_EQ(s.Value("SELECT LONGNAME FROM STAMM_TABELLEN WHERE ID_STRING = 40"), "Einschlag");
        f.Wait(500);
        f.Click("btnOK");
        EXPECT_FALSE(f.Form().IsLoaded());
    });
}

TEST(ListOk, ARowWhoseFlagIsSetCountsAsChanged)
{
    Scenario s("lists.sql");
    Open(s, kReceipts, [&](Dialog& f) {
        Go(f, 2);
        f.Answer(4103, ui::vbNo);
        f.Click("btnOK");
    });
    EXPECT_EQ(s.Boxes().size(), 1U);
}

TEST(ListOk, AFlagThatIsStoredAsOffIsNoChange)
{
    Scenario s("lists.sql");
    Open(s, kColours, [&](Dialog& f) {
        Go(f, 0);
        f.Click("btnOK");
        EXPECT_FALSE(f.Form().IsLoaded());
    });
    EXPECT_TRUE(s.Boxes().empty());
}

TEST(ListOk, AFlagThatIsANumberCountsAsSetOnlyWhereItIsNotZero)
{
    Scenario s("lists.sql");
    s.Execute("DROP TABLE F1");
    s.Execute(
        "CREATE TABLE F1 (ID int NOT NULL, SHORT nvarchar(5) NULL, LONG nvarchar(50) NULL, DISABLE smallint NULL, "
        "CONSTRAINT PK_F1 PRIMARY KEY (ID))");
    s.Execute("INSERT INTO F1 (ID, SHORT, LONG, DISABLE) VALUES (1, 'a', 'Alpha', 0), (2, 'b', 'Beta', 1)");
    Open(s, kFreeFields, [&](Dialog& f) {
        Go(f, 0);
        EXPECT_EQ(EditLine(f), "a|Alpha||");
        f.Click("btnOK");
        EXPECT_FALSE(f.Form().IsLoaded());
    });
    EXPECT_TRUE(s.Boxes().empty());
    Open(s, kFreeFields, [&](Dialog& f) {
        Go(f, 1);
        EXPECT_EQ(EditLine(f), "b|Beta||x");
        f.Answer(4103, ui::vbNo);
        f.Click("btnOK");
    });
    EXPECT_EQ(s.Boxes().size(), 1U);
}

TEST(ListOk, TheFlagsOwnBoxIsNotCompared)
{
    Scenario s("lists.sql");
    Open(s, kReceipts, [&](Dialog& f) {
        Go(f, 0);
        f.Click("chkDisable");
        f.Click("btnOK");
        EXPECT_FALSE(f.Form().IsLoaded());
    });
    EXPECT_TRUE(s.Boxes().empty());
}

TEST(ListOk, ARelationIsComparedByTheNumberOfItsGroup)
{
    Scenario s("lists.sql");
    Open(s, kRelations, [&](Dialog& f) {
        Go(f, 1);  // its flag is set, but stands in the fourth column
        f.Click("btnOK");
        EXPECT_FALSE(f.Form().IsLoaded());
    });
    EXPECT_TRUE(s.Boxes().empty());
}

TEST(ListOk, AnEmptyListClosesWithoutAQuestion)
{
    Scenario s("lists.sql");
    s.Execute("DELETE FROM ANLASSART");
    Open(s, kOccasions, [&](Dialog& f) {
        f.Focus("DataGrid1");
        f.Type("txtField1", "x");
        f.Click("btnOK");
        EXPECT_FALSE(f.Form().IsLoaded());
    });
    EXPECT_TRUE(s.Boxes().empty());
}

TEST(ListOk, TheCloseBoxAsksNothing)
{
    Scenario s("lists.sql");
    Open(s, kReceipts, [&](Dialog& f) {
        Go(f, 0);
        Retype(f, "txtField2", "verworfen");
        f.CloseBox();
        EXPECT_FALSE(f.Form().IsLoaded());
    });
    EXPECT_EQ(s.Value("SELECT LONGNAME FROM STAMM_TABELLEN WHERE ID_STRING = 40"), "Hieb");
}

TEST(ListResult, OnlyASaveInTheListOfOneValueIsTold)
{
    Scenario s("lists.sql");
    EXPECT_EQ(Open(s, kOccasions, [](Dialog& f) { f.CloseBox(); }), "Falsch");
    EXPECT_EQ(Open(s, kOccasions,
                   [](Dialog& f) {
                       Go(f, 0);
                       Retype(f, "txtField1", "Kalamität");
                       f.Click("btnSpeichern");
                       f.CloseBox();
                   }),
              "Wahr");
    EXPECT_EQ(Open(s, kReceipts,
                   [](Dialog& f) {
                       Go(f, 0);
                       Retype(f, "txtField2", "Hiebe");
                       f.Click("btnSpeichern");
                       f.CloseBox();
                   }),
              "Falsch");
    // The next call starts anew.
    EXPECT_EQ(Open(s, kOccasions, [](Dialog& f) { f.Click("btnOK"); }), "Falsch");
}

TEST(ListResult, ChangesThatTheHostMakesMeanwhileAreNotSeen)
{
    Scenario s("lists.sql");
    s.kvxvar().ID_ACCESS_LEVELS = 0;
    Open(s, kRelations, [&](Dialog& f) {
        s.kvxvar().ID_ACCESS_LEVELS = 2;
        f.SelectTab("SSTab1", 1);
        EXPECT_NE(List(f).Data1.RecordSource().find("ID_ACCESS_LEVELS = 0)"), std::string::npos);
        f.CloseBox();
    });
}

}  // namespace kvx
