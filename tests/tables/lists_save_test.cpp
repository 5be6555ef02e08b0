#include "tables/ListsTest.h"

#include <string>
#include <vector>

// Saving: what is checked, and what each list sends.
namespace kvx {

using namespace test;

namespace {

// What Speichern sends, without the look-ups that fill the edit line and the reading of the grid behind it.
Lines SaveStatements(Scenario& s, std::int32_t id, bool isNew, const std::function<void(Dialog&)>& edit,
                     std::int16_t tab = 0, std::int32_t row = 0)
{
    Lines statements;
    Open(s, id, [&](Dialog& f) {
        if (tab != 0) f.SelectTab("SSTab1", tab);
        if (List(f).DataGrid1.RowCount() > 0) Go(f, row);
        if (List(f).DataGrid1.RowCount() == 0) f.Focus("DataGrid1");
        if (isNew) f.Click("btnNeu");
        edit(f);
        Sent sent(s);
        f.Click("btnSpeichern");
        statements = sent.Take();
        EXPECT_FALSE(statements.empty());
        EXPECT_EQ(statements.back(), List(f).Data1.RecordSource());
        statements.pop_back();
        f.CloseBox();
    });
    return statements;
}

void Type(Dialog& f, std::string_view first, std::string_view second = {})
{
    Retype(f, "txtField1", first);
    if (!second.empty()) Retype(f, "txtField2", second);
}

// The lists of STAMM_TABELLEN that have a flag: group, and id of a row.
struct MasterCase {
    std::int32_t id;
    const char* group;
    std::int32_t rowKey;
    std::int16_t tab;
};
constexpr MasterCase kMasterCases[] = {
    {kMeasuring, "MEFVERF", 10, 0},     {kUnits, "MENGEN", 20, 0},         {kReceipts, "ZUGANG", 40, 0},
    {kIssues, "ABGANG", 50, 0},         {kSkidding, "RUCKE", 60, 0},       {kPartyGroups, "KUN_GR1", 71, 1},
    {kWageReasons, "LOHNGRUND", 90, 0}, {kPartyGroups, "KUN_WAL", 72, 13},
};

Lines MasterWrites(const std::string& key, const std::string& group, const std::string& code, const std::string& name,
                   const std::string& flag)
{
    const std::string end = " WHERE ID_STRING = " + key;
    return {"UPDATE STAMM_TABELLEN SET SHORTNAME = " + code + end, "UPDATE STAMM_TABELLEN SET LONGNAME = " + name + end,
            "UPDATE STAMM_TABELLEN SET LABEL_GROUP = '" + group + "'" + end,
            "UPDATE STAMM_TABELLEN SET DISABLE = " + flag + end};
}

Lines Join(Lines first, const Lines& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

}  // namespace

// --- statements of each list ---

TEST(ListSave, ANewMasterRowIsInsertedByKeyAndGroupAndThenWrittenColumnByColumn)
{
    for (const MasterCase& one : kMasterCases) {
        Scenario s("lists.sql");
        const std::string group = one.group;
        EXPECT_EQ(SaveStatements(
                      s, one.id, true, [](Dialog& f) { Type(f, "77", "Neu"); }, one.tab),
                  Join({"SELECT SHORTNAME FROM STAMM_TABELLEN WHERE SHORTNAME = '77' AND LABEL_GROUP = '" + group + "'",
                        "SELECT MAX(ID_STRING) FROM STAMM_TABELLEN",
                        "INSERT INTO STAMM_TABELLEN (ID_STRING, LABEL_GROUP) VALUES ( 91, '" + group + "')"},
                       MasterWrites("91", group, "'77'", "'Neu'", "NULL")))
            << group;
        EXPECT_EQ(s.Value("SELECT LONGNAME FROM STAMM_TABELLEN WHERE ID_STRING = 91"), "Neu");
    }
}

TEST(ListSave, AMasterRowThatChangesIsWrittenColumnByColumn)
{
    for (const MasterCase& one : kMasterCases) {
        Scenario s("lists.sql");
        const std::string group = one.group;
        const std::string code =
            s.Value("SELECT SHORTNAME FROM STAMM_TABELLEN WHERE ID_STRING = " + std::to_string(one.rowKey));
        EXPECT_EQ(SaveStatements(
                      s, one.id, false,
                      [](Dialog& f) {
                          Retype(f, "txtField2", "Anders");
                          f.Click("chkDisable");
                      },
                      one.tab),
                  Join({"SELECT SHORTNAME FROM STAMM_TABELLEN WHERE SHORTNAME = '" + code + "' AND LABEL_GROUP = '" +
                        group + "'"},
                       MasterWrites(std::to_string(one.rowKey), group, "'" + code + "'", "'Anders'", "1")))
            << group;
    }
}

TEST(ListSave, ATariffMayHaveNoCode)
{
    Scenario s("lists.sql");
    s.Execute("DELETE FROM STAMM_TABELLEN WHERE ID_STRING = 30");
    EXPECT_EQ(SaveStatements(s, kTariffs, true, [](Dialog& f) { Retype(f, "txtField2", "Grundtarif"); }),
              Join({"SELECT SHORTNAME FROM STAMM_TABELLEN WHERE (SHORTNAME = '' OR SHORTNAME IS NULL) AND LABEL_GROUP "
                    "= 'EST'",
                    "SELECT MAX(ID_STRING) FROM STAMM_TABELLEN",
                    "INSERT INTO STAMM_TABELLEN (ID_STRING, SHORTNAME) VALUES ( 91, '' )"},
                   MasterWrites("91", "EST", "NULL", "'Grundtarif'", "NULL")));
    EXPECT_EQ(s.Value("SELECT LONGNAME FROM STAMM_TABELLEN WHERE LABEL_GROUP = 'EST' AND SHORTNAME IS NULL"),
              "Grundtarif");
}

TEST(ListSave, ATariffWithACodeIsInsertedWithIt)
{
    Scenario s("lists.sql");
    EXPECT_EQ(SaveStatements(s, kTariffs, true, [](Dialog& f) { Type(f, "B", "Tarif B"); }),
              Join({"SELECT SHORTNAME FROM STAMM_TABELLEN WHERE SHORTNAME = 'B' AND LABEL_GROUP = 'EST'",
                    "SELECT MAX(ID_STRING) FROM STAMM_TABELLEN",
                    "INSERT INTO STAMM_TABELLEN (ID_STRING, SHORTNAME) VALUES ( 91, 'B' )"},
                   MasterWrites("91", "EST", "'B'", "'Tarif B'", "NULL")));
}

TEST(ListSave, ABarkTypeHasNoFlagToWrite)
{
    Scenario s("lists.sql");
    Lines writes = MasterWrites("91", "ENTRIND", "'X'", "'Extra'", "");
    writes.pop_back();
    EXPECT_EQ(SaveStatements(s, kBark, true, [](Dialog& f) { Type(f, "X", "Extra"); }),
              Join({"SELECT SHORTNAME FROM STAMM_TABELLEN WHERE SHORTNAME = 'X' AND LABEL_GROUP = 'ENTRIND'",
                    "SELECT MAX(ID_STRING) FROM STAMM_TABELLEN",
                    "INSERT INTO STAMM_TABELLEN (ID_STRING, LABEL_GROUP) VALUES ( 91, 'ENTRIND')"},
                   writes));
}

TEST(ListSave, ALabelIsWrittenInTheSessionsLanguage)
{
    Scenario s("lists.sql");
    EXPECT_EQ(SaveStatements(
                  s, kLabels, false, [](Dialog& f) { Retype(f, "txtField2", "Abtransport"); }, 0, 0),
              (Lines{"SELECT DEUTSCH FROM STRINGS WHERE DEUTSCH = 'Abfuhr' AND LABEL_GROUP = '1LV'",
                     "UPDATE STRINGS SET DEUTSCH = 'Abfuhr' WHERE ID_STRING = 90002",
                     "UPDATE STRINGS SET CUSTOM_DEUTSCH = 'Abtransport' WHERE ID_STRING = 90002",
                     "UPDATE STRINGS SET LABEL_GROUP = '1LV' WHERE ID_STRING = 90002"}));
}

TEST(ListSave, ANewRelationStartsInTheFirstGroupAndMovesToItsOwn)
{
    Scenario s("lists.sql");
    s.kvxvar().ID_ACCESS_LEVELS = 2;
    EXPECT_EQ(
        SaveStatements(
            s, kRelations, true,
            [](Dialog& f) {
                Type(f, "RV2", "Revier 2");
                Retype(f, "txtField3", "12");
            },
            1),
        (Lines{
            "SELECT NUMBER FROM BBF_GRUPPE WHERE  NUMBER = 12 AND LABEL_GROUP = 'RELTABLE'",
            "SELECT KURZNAME FROM RELTABLE WHERE KURZNAME = 'RV2' AND RELTABLE_ID = 2 AND (ID_ACCESS_LEVELS IS "
            "NULL OR ID_ACCESS_LEVELS = 2)",
            "SELECT MAX(ID) FROM RELTABLE", "INSERT INTO RELTABLE (ID, RELTABLE_ID,ID_ACCESS_LEVELS) VALUES ( 6, 1,2 )",
            "SELECT ID FROM BBF_GRUPPE WHERE  NUMBER = 12 AND LABEL_GROUP = 'RELTABLE'",
            "UPDATE RELTABLE SET KURZNAME = 'RV2' WHERE ID = 6",
            "UPDATE RELTABLE SET LANGNAME = 'Revier 2' WHERE ID = 6", "UPDATE RELTABLE SET GRUPPE = 6 WHERE ID = 6",
            "UPDATE RELTABLE SET RELTABLE_ID = '2' WHERE ID = 6", "UPDATE RELTABLE SET DISABLE = NULL WHERE ID = 6"}));
    EXPECT_EQ(s.Value("SELECT RELTABLE_ID FROM RELTABLE WHERE KURZNAME = 'RV2'"), "2");
}

TEST(ListSave, ARelationOfNobodyIsInsertedWithLevelZero)
{
    Scenario s("lists.sql");
    const Lines statements = SaveStatements(s, kRelations, true, [](Dialog& f) { Type(f, "NEU"); });
    EXPECT_EQ(statements.at(2), "INSERT INTO RELTABLE (ID, RELTABLE_ID,ID_ACCESS_LEVELS) VALUES ( 6, 1,0 )");
}

TEST(ListSave, AnEmptyGroupBoxClearsTheGroup)
{
    Scenario s("lists.sql");
    const Lines statements = SaveStatements(s, kRelations, false, [](Dialog& f) { Retype(f, "txtField3", ""); });
    EXPECT_EQ(statements.at(3), "UPDATE RELTABLE SET GRUPPE = NULL WHERE ID = 1");
    EXPECT_EQ(s.Value("SELECT GRUPPE FROM RELTABLE WHERE ID = 1"), "");
}

TEST(ListSave, AnUnknownGroupIsRefusedByAWarningThatSaysId)
{
    Scenario s("lists.sql");
    Open(s, kRelations, [&](Dialog& f) {
        Go(f, 0);
        Retype(f, "txtField3", "13");  // a group of another table
        Sent sent(s);
        f.Answer("ID 13 " + s.Text(1214), ui::vbOK);
        f.Click("btnSpeichern");
        EXPECT_EQ(sent.Take(), Lines{"SELECT NUMBER FROM BBF_GRUPPE WHERE  NUMBER = 13 AND LABEL_GROUP = 'RELTABLE'"});
        EXPECT_EQ(List(f).txtField3.Text(), "13");
        f.CloseBox();
    });
    EXPECT_EQ(s.Boxes().at(0).flags, ui::vbExclamation);
    EXPECT_EQ(s.Value("SELECT GRUPPE FROM RELTABLE WHERE ID = 1"), "5");
}

TEST(ListSave, FreeFieldsGoToTheTableOfTheirTab)
{
    for (const std::int16_t tab : {std::int16_t{0}, std::int16_t{1}}) {
        Scenario s("lists.sql");
        const std::string table = tab == 0 ? "F1" : "F2";
        EXPECT_EQ(
            SaveStatements(
                s, kFreeFields, true,
                [](Dialog& f) {
                    Type(f, "neu", "Neues Feld");
                    f.Click("chkDisable");
                },
                tab),
            (Lines{"SELECT SHORT FROM " + table + " WHERE SHORT = 'neu'", "SELECT MAX(ID) FROM " + table,
                   "INSERT INTO " + table + " (ID) VALUES ( 3)", "UPDATE " + table + " SET SHORT = 'neu' WHERE ID = 3",
                   "UPDATE " + table + " SET LONG = 'Neues Feld' WHERE ID = 3",
                   "UPDATE " + table + " SET DISABLE = 1 WHERE ID = 3"}));
    }
}

TEST(ListSave, ASpecialMarkFillsItsIdByItselfAndTheWritesReachIt)
{
    Scenario s("lists.sql");
    EXPECT_EQ(SaveStatements(s, kSpecialMarks, true, [](Dialog& f) { Type(f, "S3", "Sonder 3"); }),
              (Lines{"SELECT NUMMER FROM SONDERMERKMAL WHERE NUMMER = 'S3'", "SELECT MAX(ID) FROM SONDERMERKMAL",
                     "INSERT INTO SONDERMERKMAL (NUMMER) VALUES ('S3')",
                     "UPDATE SONDERMERKMAL SET NUMMER = 'S3' WHERE ID = 3",
                     "UPDATE SONDERMERKMAL SET NAME = 'Sonder 3' WHERE ID = 3",
                     "UPDATE SONDERMERKMAL SET DISABLE = NULL WHERE ID = 3"}));
    EXPECT_EQ(s.Value("SELECT NAME FROM SONDERMERKMAL WHERE NUMMER = 'S3'"), "Sonder 3");
}

TEST(ListSave, ASpecialMarkIsReachedToAfterTheHighestOneWasDeleted)
{
    Scenario s("lists.sql");
    s.Execute("DELETE FROM SONDERMERKMAL WHERE ID = 2");
    EXPECT_EQ(SaveStatements(s, kSpecialMarks, true, [](Dialog& f) { Type(f, "S3", "Sonder 3"); }).at(3),
              "UPDATE SONDERMERKMAL SET NUMMER = 'S3' WHERE ID = 2");
    EXPECT_EQ(s.Value("SELECT NAME FROM SONDERMERKMAL WHERE NUMMER = 'S3'"), "Sonder 3");
}

TEST(ListSave, AnOccasionIsInsertedWithItsNextIdAndAnEmptyType)
{
    Scenario s("lists.sql");
    EXPECT_EQ(SaveStatements(s, kOccasions, true, [](Dialog& f) { Type(f, "Käfer"); }),
              (Lines{"SELECT NAME FROM ANLASSART WHERE NAME = 'Käfer'", "SELECT MAX(ID) FROM ANLASSART",
                     "INSERT INTO ANLASSART (ID,NAME,TYPE_OF_RECH) SELECT ISNULL((SELECT MAX(ID) FROM "
                     "ANLASSART),0)+1,'Käfer',''",
                     "UPDATE ANLASSART SET NAME = 'Käfer' WHERE ID = 3"}));
    EXPECT_EQ(s.Value("SELECT NAME FROM ANLASSART WHERE ID = 3"), "Käfer");
}

TEST(ListSave, AColourIsInsertedByOneStatement)
{
    Scenario s("lists.sql");
    EXPECT_EQ(SaveStatements(s, kColours, true, [](Dialog& f) { Type(f, "BLAU", "Blau"); }),
              (Lines{"SELECT FARBE FROM FARBE WHERE FARBE = 'BLAU'",
                     "INSERT INTO FARBE (FARBE,FARBE_LANG,DISABLE) VALUES ('BLAU','Blau',0)"}));
}

TEST(ListSave, AColourThatKeepsItsCodeIsWrittenWithoutALookAtItsUse)
{
    Scenario s("lists.sql");
    EXPECT_EQ(SaveStatements(s, kColours, false,
                             [](Dialog& f) {
                                 Retype(f, "txtField2", "Rötlich");
                                 f.Click("chkDisable");
                             }),
              (Lines{"SELECT FARBE FROM FARBE WHERE FARBE = 'ROT'",
                     "UPDATE FARBE SET FARBE = 'ROT', FARBE_LANG = 'Rötlich',DISABLE = 1 WHERE FARBE = 'ROT'"}));
}

TEST(ListSave, AColourInUseKeepsItsCode)
{
    Scenario s("lists.sql");
    Open(s, kColours, [&](Dialog& f) {
        Go(f, 0);
        Retype(f, "txtField1", "R");
        Lines lines;
        std::string prompt;
        s.In("F_MessageBox", [&](Dialog& box) {
            lines = box.Lines("List1");
            prompt = box.Text("LabelPrompt", "Caption");
            box.Click("btnOK");
        });
        Sent sent(s);
        f.Click("btnSpeichern");
        EXPECT_EQ(lines, (Lines{s.Text(726) + ": 2024-101", s.Text(726) + ": 2024-102"}));
        EXPECT_EQ(prompt, s.Text(202) + "  'ROT'  " + s.Text(203));
        EXPECT_EQ(sent.Take(), (Lines{"SELECT FARBE FROM FARBE WHERE FARBE = 'R'",
                                      "SELECT LISTE FROM LOGS WHERE FARBE = 'ROT' GROUP BY LISTE",
                                      "SELECT FARBE,FARBE_LANG,DISABLE,FARBE AS FF FROM FARBE"}));
        f.CloseBox();
    });
    EXPECT_EQ(s.Value("SELECT FARBE FROM FARBE WHERE FARBE_LANG = 'Rot'"), "ROT");
}

TEST(ListSave, AColourThatNobodyUsesTakesANewCode)
{
    Scenario s("lists.sql");
    EXPECT_EQ(SaveStatements(
                  s, kColours, false, [](Dialog& f) { Type(f, "W", "Weiss"); }, 0, 1),
              (Lines{"SELECT FARBE FROM FARBE WHERE FARBE = 'W'",
                     "SELECT LISTE FROM LOGS WHERE FARBE = 'WEISS' GROUP BY LISTE",
                     "UPDATE FARBE SET FARBE = 'W', FARBE_LANG = 'Weiss',DISABLE = 1 WHERE FARBE = 'WEISS'"}));
}

TEST(ListSave, AFederalStateIsInsertedByOneStatementThatCutsItsTexts)
{
    Scenario s("lists.sql");
    EXPECT_EQ(SaveStatements(s, kFederalStates, true, [](Dialog& f) { Type(f, "TH", "Thüringen"); }),
              (Lines{"SELECT SHORT FROM T_BUNDESLAND WHERE SHORT = 'TH'",
                     "INSERT INTO T_BUNDESLAND (SHORT,LONG,DISABLE) VALUES (LEFT('TH',2),LEFT('Thüringen',50),0)"}));
    EXPECT_EQ(s.Value("SELECT LONG FROM T_BUNDESLAND WHERE SHORT = 'TH'"), "Thüringen");
}

TEST(ListSave, AFederalStateIsChangedByItsId)
{
    Scenario s("lists.sql");
    EXPECT_EQ(SaveStatements(
                  s, kFederalStates, false, [](Dialog& f) { Type(f, "ST", "Sachsen-Anhalt"); }, 0, 1),
              (Lines{"SELECT SHORT FROM T_BUNDESLAND WHERE SHORT = 'ST'",
                     "UPDATE T_BUNDESLAND SET SHORT = LEFT('ST',2), LONG = LEFT('Sachsen-Anhalt',50),DISABLE = 0 WHERE "
                     "ID = '2'"}));
}

// --- NULL ---

TEST(ListSave, EmptyAndASingleBlankAreNullTwoBlanksAreText)
{
    for (const auto& [typed, written] : {std::pair{"", "NULL"}, {" ", "NULL"}, {"  ", "'  '"}, {"0", "'0'"}}) {
        Scenario s("lists.sql");
        const Lines statements =
            SaveStatements(s, kReceipts, false, [typed = typed](Dialog& f) { Retype(f, "txtField2", typed); });
        EXPECT_EQ(statements.at(2),
                  "UPDATE STAMM_TABELLEN SET LONGNAME = " + std::string(written) + " WHERE ID_STRING = 40");
    }
}

TEST(ListSave, ATextThatLooksLikeADateOrNumberIsWrittenAsItStands)
{
    for (const char* text : {"1.2", "01.02.2024", "1,50", "1.000"}) {
        Scenario s("lists.sql");
        const Lines statements = SaveStatements(s, kReceipts, false, [&](Dialog& f) { Retype(f, "txtField2", text); });
        EXPECT_EQ(statements.at(2),
                  "UPDATE STAMM_TABELLEN SET LONGNAME = '" + std::string(text) + "' WHERE ID_STRING = 40");
    }
}

TEST(ListSave, AFlagThatIsOffIsNull)
{
    Scenario s("lists.sql");
    SaveStatements(
        s, kReceipts, false, [](Dialog& f) { f.Click("chkDisable"); }, 0, 2);
    EXPECT_EQ(s.Value("SELECT DISABLE FROM STAMM_TABELLEN WHERE ID_STRING = 42"), "");
}

// --- keys ---

TEST(ListSave, TheFirstRowOfAnEmptyTableGetsKeyOne)
{
    Scenario s("lists.sql");
    s.Execute("DELETE FROM F1");
    const Lines statements = SaveStatements(s, kFreeFields, true, [](Dialog& f) { Type(f, "a"); });
    EXPECT_EQ(statements.at(2), "INSERT INTO F1 (ID) VALUES ( 1)");
}

TEST(ListSave, KeysWithGapsGoOnFromTheHighest)
{
    Scenario s("lists.sql");
    s.Execute("UPDATE F1 SET ID = 70 WHERE ID = 1");
    const Lines statements = SaveStatements(s, kFreeFields, true, [](Dialog& f) { Type(f, "c"); });
    EXPECT_EQ(statements.at(2), "INSERT INTO F1 (ID) VALUES ( 71)");
}

TEST(ListSave, WithoutARowAndWithoutNewTheWritesReachNothing)
{
    Scenario s("lists.sql");
    s.Execute("DELETE FROM ANLASSART");
    EXPECT_EQ(SaveStatements(s, kOccasions, false, [](Dialog& f) { Type(f, "x"); }),
              (Lines{"SELECT NAME FROM ANLASSART WHERE NAME = 'x'", "UPDATE ANLASSART SET NAME = 'x' WHERE ID = 0"}));
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM ANLASSART"), "0");
}

TEST(ListSave, WithoutARowAndWithoutNewAColourOrStateIsNotWritten)
{
    Scenario s("lists.sql");
    s.Execute("DELETE FROM FARBE");
    s.Execute("DELETE FROM T_BUNDESLAND");
    EXPECT_EQ(SaveStatements(s, kColours, false, [](Dialog& f) { Type(f, "x"); }),
              Lines{"SELECT FARBE FROM FARBE WHERE FARBE = 'x'"});
    EXPECT_EQ(SaveStatements(s, kFederalStates, false, [](Dialog& f) { Type(f, "x"); }),
              Lines{"SELECT SHORT FROM T_BUNDESLAND WHERE SHORT = 'x'"});
}

// --- checks ---

TEST(ListSave, AnEmptyCodeIsRefusedInEveryListButTheTariffs)
{
    for (const std::int32_t id : {kRelations, kColours, kBark, kMeasuring, kUnits, kReceipts, kIssues, kSkidding,
                                  kPartyGroups, kFreeFields, kWageReasons, kOccasions, kSpecialMarks, kFederalStates}) {
        Scenario s("lists.sql");
        Open(s, id, [&](Dialog& f) {
            Go(f, 0);
            Retype(f, "txtField1", "");
            if (id != kWageReasons) Retype(f, "txtField1", " ");
            if (List(f).txtField2.Visible()) f.Focus("txtField2");
            Sent sent(s);
            f.Answer(223, ui::vbOK);
            f.Click("btnSpeichern");
            EXPECT_EQ(sent.Take(), Lines{}) << id;
            EXPECT_EQ(f.FocusedControl(), "txtField1") << id;
            f.CloseBox();
        });
        ASSERT_EQ(s.Boxes().size(), 1U) << id;
        EXPECT_EQ(s.Boxes()[0].flags, ui::vbExclamation) << id;
    }
}

TEST(ListSave, ALabelWithoutStandardTextIsRefusedAndTheFormStays)
{
    Scenario s("lists.sql");
    s.Execute("UPDATE STRINGS SET DEUTSCH = NULL WHERE ID_STRING = 90003");
    Open(s, kLabels, [&](Dialog& f) {
        f.SelectTab("SSTab1", 1);
        Retype(f, "txtField2", "x");
        f.Answer(223, ui::vbOK);
        f.Click("btnSpeichern");
        EXPECT_TRUE(f.Form().Visible());
        f.CloseBox();
    });
}

TEST(ListSave, ANewCodeThatExistsInTheListIsRefused)
{
    struct Case {
        std::int32_t id;
        std::int16_t tab;
        const char* code;
    };
    for (const Case& one : std::initializer_list<Case>{{kReceipts, 0, "ZK"},
                                                       {kIssues, 0, "VK"},
                                                       {kTariffs, 0, "A"},
                                                       {kTariffs, 0, ""},
                                                       {kUnits, 0, "RM"},
                                                       {kSkidding, 0, "PF"},
                                                       {kMeasuring, 0, "STM"},
                                                       {kBark, 0, "O"},
                                                       {kPartyGroups, 1, "K1"},
                                                       {kWageReasons, 0, "17"},
                                                       {kRelations, 1, "AAA"},
                                                       {kFreeFields, 1, "x"},
                                                       {kColours, 0, "WEISS"},
                                                       {kSpecialMarks, 0, "S2"},
                                                       {kOccasions, 0, "Sturm"},
                                                       {kFederalStates, 0, "SN"}}) {
        Scenario s("lists.sql");
        Open(s, one.id, [&](Dialog& f) {
            if (one.tab != 0) f.SelectTab("SSTab1", one.tab);
            Go(f, 0);
            f.Click("btnNeu");
            Retype(f, "txtField1", one.code);
            Sent sent(s);
            f.Answer(1167, ui::vbOK);
            f.Click("btnSpeichern");
            EXPECT_EQ(sent.Take().size(), 1U) << one.id;  // the look at the list alone
            EXPECT_EQ(f.Text("txtField1", "Text"), one.code) << one.id;
            f.CloseBox();
        });
        ASSERT_EQ(s.Boxes().size(), 1U) << one.id;
        EXPECT_EQ(s.Boxes()[0].flags, ui::vbExclamation) << one.id;
    }
}

TEST(ListSave, ACodeOfAnotherGroupIsFree)
{
    Scenario s("lists.sql");
    SaveStatements(s, kReceipts, true, [](Dialog& f) { Type(f, "VK", "Vorkauf"); });
    EXPECT_EQ(s.Value("SELECT COUNT(*) FROM STAMM_TABELLEN WHERE SHORTNAME = 'VK'"), "2");
}

TEST(ListSave, ARowCannotTakeTheCodeOfAnother)
{
    Scenario s("lists.sql");
    Open(s, kReceipts, [&](Dialog& f) {
        Go(f, 0);
        Retype(f, "txtField1", "ZK");
        f.Answer(1167, ui::vbOK);
        f.Click("btnSpeichern");
        EXPECT_EQ(s.CountStatements("UPDATE"), 0);
        EXPECT_EQ(EditLine(f), "ZK|Hieb||");
        f.CloseBox();
    });
}

TEST(ListSave, ARowThatKeepsItsCodeIsWrittenAgainWithoutComplaint)
{
    Scenario s("lists.sql");
    EXPECT_EQ(SaveStatements(s, kReceipts, false, [](Dialog& f) { f.Focus("txtField2"); }).size(), 5U);
    EXPECT_TRUE(s.Boxes().empty());
}

TEST(ListSave, ATariffWithoutACodeIsWrittenAgainWithoutComplaint)
{
    Scenario s("lists.sql");
    EXPECT_EQ(SaveStatements(s, kTariffs, false, [](Dialog& f) { f.Focus("txtField2"); }),
              Join({"SELECT SHORTNAME FROM STAMM_TABELLEN WHERE (SHORTNAME = '' OR SHORTNAME IS NULL) AND LABEL_GROUP "
                    "= 'EST'"},
                   MasterWrites("30", "EST", "NULL", "'ohne'", "NULL")));
    EXPECT_TRUE(s.Boxes().empty());
}

TEST(ListSave, ACodeMayChangeItsCase)
{
    Scenario s("lists.sql");
    SaveStatements(s, kReceipts, false, [](Dialog& f) { Type(f, "hi"); });
    EXPECT_EQ(s.Value("SELECT SHORTNAME FROM STAMM_TABELLEN WHERE ID_STRING = 40"), "hi");
}

}  // namespace kvx
