#include "basic/Locale.h"
#include "tables/ListsTest.h"

#include <string>

// What the boxes let through, and where Enter and Ctrl lead.
namespace kvx {

using namespace test;

namespace {

// The free field list with codes of another type.
void SetCodeType(Scenario& s, std::string_view type)
{
    s.Execute("DROP TABLE F1");
    s.Execute("CREATE TABLE F1 (ID int NOT NULL, SHORT " + std::string(type) +
              " NULL, LONG nvarchar(50) NULL, DISABLE bit NULL, CONSTRAINT PK_F1 PRIMARY KEY (ID))");
    s.Execute("INSERT INTO F1 (ID) VALUES (1)");
}

std::string Typed(Scenario& s, std::int32_t id, std::string_view box, std::string_view keys)
{
    std::string text;
    Open(s, id, [&](Dialog& f) {
        Retype(f, box, keys);
        text = f.Text(box, "Text");
        f.CloseBox();
    });
    return text;
}

struct KeyCase {
    const char* name;
    const char* type;
    const char* keys;
    const char* expected;
    bool asksForType;
};

const KeyCase kKeyCases[] = {
    {"SmallInt", "smallint", "1a2,-3.", "123", true},
    {"SmallIntOverflow", "smallint", "32768", "3276", true},
    {"Integer", "int", "x9y8,7", "987", true},
    {"Byte", "tinyint", "2567", "25", true},
    {"Single", "real", "1,5,x2", "1,52", true},
    {"Double", "float", "1.5,25", "15,25", true},
    {"Numeric", "numeric(8,2)", "7,,5a", "7,5", true},
    {"Boolean", "bit", "1x,", "1x,", false},
    {"WideText", "nvarchar(5)", "a1,.'", "a1,.'", false},
    {"LongWideText", "nvarchar(max)", "a1,.-", "a1,.-", false},
    {"NarrowText", "varchar(5)", "a1", "", false},
    {"BigInt", "bigint", "12", "", false},
    {"Money", "money", "12", "", false},
    {"DateTime", "datetime", "12", "", false},
};

class EveryType : public testing::TestWithParam<KeyCase> {
protected:
    Scenario s{"lists.sql"};
};

std::string NameOfCase(const testing::TestParamInfo<KeyCase>& info)
{
    return info.param.name;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Lists, EveryType, testing::ValuesIn(kKeyCases), NameOfCase);

TEST_P(EveryType, TheFirstBoxTakesWhatItsColumnCanHold)
{
    SetCodeType(s, GetParam().type);
    EXPECT_EQ(Typed(s, kFreeFields, "txtField1", GetParam().keys), GetParam().expected);
    EXPECT_EQ(s.WasSent("SELECT TOP 0 SHORT FROM F1"), GetParam().asksForType);
}

TEST(ListKeys, TheSecondBoxIsHeldToTheSecondColumn)
{
    Scenario s("lists.sql");
    s.Execute("DROP TABLE F1");
    s.Execute("CREATE TABLE F1 (ID int NOT NULL, SHORT nvarchar(5) NULL, LONG smallint NULL, DISABLE bit NULL, "
              "CONSTRAINT PK_F1 PRIMARY KEY (ID))");
    EXPECT_EQ(Typed(s, kFreeFields, "txtField2", "a1b2"), "12");
    EXPECT_TRUE(s.WasSent("SELECT TOP 0 LONG FROM F1"));
}

TEST(ListKeys, AnEnglishMachineTakesItsOwnDecimalSign)
{
    Scenario s("lists.sql");
    SetCodeType(s, "numeric(8,2)");
    basic::SetLocale(basic::EnglishLocale());
    EXPECT_EQ(Typed(s, kFreeFields, "txtField1", "1,5.2"), "15.2");
}

TEST(ListKeys, WageReasonsAreNumbersThoughTheirColumnHoldsText)
{
    Scenario s("lists.sql");
    EXPECT_EQ(Typed(s, kWageReasons, "txtField1", "1a2,3"), "123");
    EXPECT_EQ(s.CountStatements("SELECT TOP 0"), 0);
}

TEST(ListKeys, AGroupsNumberIsHeldToTheGroupsTable)
{
    Scenario s("lists.sql");
    EXPECT_EQ(Typed(s, kRelations, "txtField3", "1x2"), "12");
    EXPECT_TRUE(s.WasSent("SELECT TOP 0 NUMBER FROM BBF_GRUPPE"));
}

TEST(ListKeys, BackspaceWorksInABoxOfNumbers)
{
    Scenario s("lists.sql");
    Open(s, kWageReasons, [](Dialog& f) {
        Retype(f, "txtField1", "123");
        f.Keys("{BACKSPACE}");
        EXPECT_EQ(f.Text("txtField1", "Text"), "12");
        f.CloseBox();
    });
}

TEST(ListKeys, MoreThanTheLimitIsNotTaken)
{
    Scenario s("lists.sql");
    EXPECT_EQ(Typed(s, kReceipts, "txtField1", "ABCDEFG"), "ABCDE");
    EXPECT_EQ(Typed(s, kSpecialMarks, "txtField1", "ABCDEFG"), "ABCD");
    EXPECT_EQ(Typed(s, kFederalStates, "txtField1", "ABCDEFG"), "AB");
}

// --- Enter ---

TEST(ListEnter, LeadsFromTheFirstBoxToTheSecond)
{
    Scenario s("lists.sql");
    Open(s, kReceipts, [](Dialog& f) {
        f.Focus("txtField1");
        f.Keys("{ENTER}");
        EXPECT_EQ(f.FocusedControl(), "txtField2");
        f.CloseBox();
    });
}

TEST(ListEnter, LeadsFromTheOnlyBoxToSaveWithoutPressingIt)
{
    Scenario s("lists.sql");
    Open(s, kOccasions, [&](Dialog& f) {
        Retype(f, "txtField1", "Käfer");
        f.Keys("{ENTER}");
        EXPECT_EQ(f.FocusedControl(), "btnSpeichern");
        EXPECT_EQ(s.CountStatements("UPDATE"), 0);
        f.Keys("{ENTER}");
        EXPECT_EQ(s.CountStatements("UPDATE"), 1);
        f.CloseBox();
    });
}

TEST(ListEnter, LeadsFromTheSecondBoxToSaveWithoutPressingIt)
{
    for (const std::int32_t id : {kBark, kReceipts, kRelations}) {
        Scenario s("lists.sql");
        Open(s, id, [&](Dialog& f) {
            f.Focus("txtField2");
            Sent sent(s);
            f.Keys("{ENTER}");
            EXPECT_EQ(f.FocusedControl(), "btnSpeichern") << id;
            EXPECT_EQ(sent.Take(), Lines{}) << id;
            f.CloseBox();
        });
    }
}

TEST(ListEnter, LeadsToTheThirdBoxWhereSaveIsOff)
{
    Scenario s("lists.sql");
    Open(s, kRelations, [](Dialog& f) {
        f.Focus("txtField2");
        List(f).btnSpeichern.SetEnabled(false);
        f.Keys("{ENTER}");
        EXPECT_EQ(f.FocusedControl(), "txtField3");
        f.Keys("{ENTER}");
        EXPECT_EQ(f.FocusedControl(), "btnSpeichern");
        f.CloseBox();
    });
}

TEST(ListEnter, StaysWhereNothingCanTakeTheFocus)
{
    Scenario s("lists.sql");
    Open(s, kReceipts, [](Dialog& f) {
        f.Focus("txtField2");
        List(f).btnSpeichern.SetEnabled(false);
        f.Keys("{ENTER}");
        EXPECT_EQ(f.FocusedControl(), "txtField2");
        EXPECT_EQ(f.Text("txtField2", "Text"), "Hieb");
        f.CloseBox();
    });
}

// --- Ctrl ---

TEST(ListCtrl, PicksTheGroupOfARelation)
{
    Scenario s("lists.sql");
    Open(s, kRelations, [&](Dialog& f) {
        Go(f, 0);
        f.Focus("txtField3");
        s.In("F_Picker", [&](Dialog& picker) {
            EXPECT_EQ(picker.Form().Caption(), "RELTABLE");
            EXPECT_EQ(picker.Text("ListView1", "SelectedItem"), "11");  // the row's own group
            picker.PickRow("ListView1", 2);
            picker.Click("btnOK");
        });
        f.CtrlAlone();
        EXPECT_EQ(List(f).txtField3.Text(), "12");
        EXPECT_TRUE(s.WasSent("SELECT ID, NUMBER, NAME  FROM BBF_GRUPPE WHERE LABEL_GROUP = 'RELTABLE'"));
        EXPECT_TRUE(s.WasSent("SELECT NUMBER FROM BBF_GRUPPE WHERE ID = 6"));
        EXPECT_EQ(f.FocusedControl(), "txtField3");
        f.Click("btnSpeichern");
        f.CloseBox();
    });
    EXPECT_EQ(s.Value("SELECT GRUPPE FROM RELTABLE WHERE ID = 1"), "6");
}

TEST(ListCtrl, ACancelledPickChangesNothing)
{
    Scenario s("lists.sql");
    Open(s, kRelations, [&](Dialog& f) {
        Go(f, 0);
        f.Focus("txtField3");
        s.In("F_Picker", [](Dialog& picker) { picker.Click("btnCancel"); });
        f.CtrlAlone();
        EXPECT_EQ(EditLine(f), "FA1|Forstamt 1|11|");
        f.CloseBox();
    });
}

TEST(ListCtrl, ARowWithoutAGroupPicksFromTheTop)
{
    Scenario s("lists.sql");
    Open(s, kRelations, [&](Dialog& f) {
        Go(f, 1);
        f.Focus("txtField3");
        s.In("F_Picker", [](Dialog& picker) { picker.Click("btnOK"); });
        f.CtrlAlone();
        EXPECT_EQ(List(f).txtField3.Text(), "11");
        f.CloseBox();
    });
}

TEST(ListCtrl, GroupsThatCannotBeReadAreTheHostsErrorAndNoPickerAppears)
{
    Scenario s("lists.sql");
    s.In("F_Tabellen2", [&](Dialog& f) {
        Go(f, 0);
        f.Focus("txtField3");
        s.FailStatement(1, ado::kErrTimeout, "zu langsam");
        f.CtrlAlone();
        EXPECT_EQ(s.Log().back(), "SELECT ID, NUMBER, NAME  FROM BBF_GRUPPE WHERE LABEL_GROUP = 'RELTABLE'");
        EXPECT_FALSE(f.Form().Visible());
    });
    ExpectHostError(s, kRelations, ado::kErrTimeout, "zu langsam");
    EXPECT_EQ(s.Desktop().Dialogs(), Lines{"F_Tabellen2"});
}

TEST(ListCtrl, DoesNothingInOtherBoxesAndLists)
{
    Scenario s("lists.sql");
    Open(s, kRelations, [&](Dialog& f) {
        f.Focus("txtField2");
        f.CtrlAlone();
        f.CloseBox();
    });
    Open(s, kReceipts, [&](Dialog& f) {
        f.Focus("txtField2");
        f.CtrlAlone();
        f.CloseBox();
    });
    EXPECT_EQ(s.Desktop().Dialogs(), (std::vector<std::string>{"F_Tabellen2", "F_Tabellen2"}));
}

}  // namespace kvx
