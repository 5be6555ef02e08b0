#include "korvex_loc/DBHelper.h"

#include "korvex_loc/LocTest.h"
#include "ui/Form.h"

namespace kvx::loc {

namespace {

class DBHelperTest : public LocTest {
protected:
    DBHelper helper;
};

class BoxForm final : public ui::Form {
public:
    BoxForm() : Form("F_Box") { Load(); }
    ui::TextBox txtBox{*this, "txtBox"};

private:
    void Design() override {}
};

std::string Formatted(std::string_view text, std::string_view format)
{
    BoxForm form;
    form.txtBox.SetText(text);
    DBHelper().FormatTextBox(format, form.txtBox);
    return form.txtBox.Text();
}

}  // namespace

// --- Values ----------------------------------------------------------------------------------------------------------

TEST_F(DBHelperTest, AValueIsTextByTheMachineWhateverTheFlags)
{
    for (const auto& [flag1, flag2] : {std::pair{false, false}, {true, false}, {true, true}}) {
        EXPECT_EQ(helper.FieldToString(12.5, flag1, flag2), "12,5");
        EXPECT_EQ(helper.FieldToString(true, flag1, flag2), "Wahr");
        EXPECT_EQ(helper.FieldToString(basic::DateOf({.year = 2024, .month = 2, .day = 5}), flag1, flag2),
                  "05.02.2024");
        EXPECT_EQ(helper.FieldToString(basic::Null(), flag1, flag2), "");
    }
}

TEST_F(DBHelperTest, AFieldItselfIsAValue)
{
    const ado::Recordset rows = kvxvar.dbAdo.Execute("SELECT 'Fichte' AS HA,7 AS N");
    EXPECT_EQ(helper.FieldToText(rows[0].AsObject()), "Fichte");
    EXPECT_EQ(helper.FieldToNumber(rows[1].AsObject()), 7);
}

TEST_F(DBHelperTest, NoValueIsTheNumberZero)
{
    EXPECT_EQ(helper.FieldToNumber(basic::Null()), 0);
    EXPECT_EQ(helper.FieldToNumber(basic::Variant()), 0);
    EXPECT_EQ(helper.FieldToNumber(" "), 0);
}

TEST_F(DBHelperTest, ATextIsReadAsANumberByTheMachine)
{
    EXPECT_EQ(helper.FieldToNumber("1.234,5"), 1234.5);
    EXPECT_EQ(ErrorOf([&] { helper.FieldToNumber("abc"); }), basic::kErrTypeMismatch);
}

// --- Lookups ---------------------------------------------------------------------------------------------------------

TEST_F(DBHelperTest, ALookupTextIsTheFirstRowsValue)
{
    CreateTables({"BBF_GRUPPE"});
    Execute("INSERT INTO BBF_GRUPPE (ID,NUMBER,NAME) VALUES (4,120,'Ernte')");
    EXPECT_EQ(helper.LookupText(kvxvar, "NUMBER", "BBF_GRUPPE", "ID = 4"), "120");
    EXPECT_EQ(helper.LookupNumber(kvxvar, "NUMBER", "BBF_GRUPPE", " NUMBER = 120 AND ID = 4"), 120);
    EXPECT_EQ(Statements(), (Texts{"SELECT NUMBER FROM BBF_GRUPPE WHERE ID = 4",
                                   "SELECT NUMBER FROM BBF_GRUPPE WHERE  NUMBER = 120 AND ID = 4"}));
}

TEST_F(DBHelperTest, ALookupWithoutARowIsEmptyOrZero)
{
    CreateTables({"BBF_GRUPPE"});
    EXPECT_EQ(helper.LookupText(kvxvar, "NAME", "BBF_GRUPPE", "ID = 4"), "");
    EXPECT_EQ(helper.LookupNumber(kvxvar, "NUMBER", "BBF_GRUPPE", "ID = 4"), 0);
}

TEST_F(DBHelperTest, ALookupOfNullIsEmptyOrZero)
{
    CreateTables({"BBF_GRUPPE"});
    Execute("INSERT INTO BBF_GRUPPE (ID) VALUES (4)");
    EXPECT_EQ(helper.LookupText(kvxvar, "NAME", "BBF_GRUPPE", "ID = 4"), "");
    EXPECT_EQ(helper.LookupNumber(kvxvar, "NUMBER", "BBF_GRUPPE", "ID = 4"), 0);
}

TEST_F(DBHelperTest, WithoutAConditionALookupTakesAnyRow)
{
    CreateTables({"KORVEX"});
    Execute("INSERT INTO KORVEX (ID,USER_NAME) VALUES (1,'Forstamt Nord')");
    EXPECT_EQ(helper.LookupText(kvxvar, "USER_NAME", "KORVEX", ""), "Forstamt Nord");
    EXPECT_EQ(Statements(), Texts{"SELECT USER_NAME FROM KORVEX"});
}

TEST_F(DBHelperTest, ALookupThatTheServerRefusesRaisesItsError)
{
    CreateTables({"BBF_GRUPPE"});
    EXPECT_EQ(ErrorOf([&] { helper.LookupText(kvxvar, "NAME", "BBF_GRUPPE", "NAME = 'O'Brien'"); }),
              ado::kErrStatement);
}

TEST_F(DBHelperTest, ATextColumnHasItsDefinedLength)
{
    CreateTables({"WALDORT", "WARENGRUPPE"});
    EXPECT_EQ(helper.ColumnLength("WALDORT", "LANGNAME", kvxvar), 200);
    EXPECT_EQ(Statements(), Texts{"SELECT LANGNAME FROM WALDORT WHERE 1=2"});
}

TEST_F(DBHelperTest, ATextColumnWithoutALimitHasTheLongestLength)
{
    CreateTables({"MODELS"});
    EXPECT_EQ(helper.ColumnLength("MODELS", "MODEL", kvxvar), 32767);
}

TEST_F(DBHelperTest, ANumberColumnLimitsNoBox)
{
    CreateTables({"WALDORT"});
    EXPECT_EQ(helper.ColumnLength("WALDORT", "ID_WALDORT", kvxvar), 0);
    EXPECT_EQ(helper.ColumnLength("WALDORT", "FLAECHE", kvxvar), 0);
}

TEST_F(DBHelperTest, AColumnHasAHeadingInTheLanguageOfTheSession)
{
    EXPECT_EQ(helper.ColumnCaption("HA_LANG", kvxvar), "Bezeichnung");
    EXPECT_EQ(helper.ColumnCaption("tfield50", kvxvar), "Textfeld 50");
    kvxvar.strLanguage = "ENGLISH";
    EXPECT_EQ(helper.ColumnCaption("HA_LANG", kvxvar), "Description");
    EXPECT_EQ(Statements(), Texts{});
}

TEST_F(DBHelperTest, AColumnOrListWithoutAHeadingShowsItsName)
{
    EXPECT_EQ(helper.ColumnCaption("HV_Sonder", kvxvar), "HV_Sonder");
    EXPECT_EQ(helper.ListItemCaption(kvxvar, "HV Holzverkauf"), "HV Holzverkauf");
    EXPECT_EQ(helper.ListItemCaption(kvxvar, ""), "");
}

// --- Options ---------------------------------------------------------------------------------------------------------

TEST_F(DBHelperTest, OptionsAreReadByTheirKey)
{
    CreateTables({"OPTIONEN"});
    Execute("INSERT INTO OPTIONEN (PROPERTY_ID,NUMBER_VALUE,TEXT_VALUE) VALUES ('WALDORTLEVEL',4,'vier')");
    EXPECT_EQ(helper.GetOptionNumber(kvxvar, "WALDORTLEVEL"), 4);
    EXPECT_EQ(helper.GetOptionText(kvxvar, "WALDORTLEVEL"), "vier");
    EXPECT_EQ(Statements(), (Texts{"SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'WALDORTLEVEL'",
                                   "SELECT TEXT_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'WALDORTLEVEL'"}));
}

TEST_F(DBHelperTest, AMissingOptionIsZeroOrEmpty)
{
    CreateTables({"OPTIONEN"});
    EXPECT_EQ(helper.GetOptionNumber(kvxvar, "WALDORTLEVEL"), 0);
    EXPECT_EQ(helper.GetOptionText(kvxvar, "WALDORTLEVEL"), "");
}

// --- Boxes -----------------------------------------------------------------------------------------------------------

TEST_F(DBHelperTest, ABoxShowsItsNumberInTheFormat)
{
    EXPECT_EQ(Formatted("12,3", "#####0.0000"), "12,3000");
    EXPECT_EQ(Formatted("12,345", "#####0.00"), "12,35");
    EXPECT_EQ(Formatted(",5", "#0.00"), "0,50");
    EXPECT_EQ(Formatted("7", "000"), "007");
    EXPECT_EQ(Formatted("0", "#########0.00"), "0,00");
}

TEST_F(DBHelperTest, TheSignOfTheFormatIsNotPrinted)
{
    EXPECT_EQ(Formatted("3", "-#######0.00"), "3,00");
    EXPECT_EQ(Formatted("-3", "-#######0.00"), "-3,00");
}

TEST_F(DBHelperTest, DigitsAboveTheFormatAreKept)
{
    EXPECT_EQ(Formatted("1234567,8", "#0.00"), "1234567,80");
}

TEST_F(DBHelperTest, AnEmptyBoxStaysEmpty)
{
    EXPECT_EQ(Formatted("", "#0"), "");
}

TEST_F(DBHelperTest, ATextThatIsNoNumberStays)
{
    EXPECT_EQ(Formatted("abc", "#####0.00"), "abc");
    EXPECT_EQ(Formatted("-", "-#######0.00"), "-");
}

TEST_F(DBHelperTest, MarkedTextGivesRoomToADigit)
{
    BoxForm form;
    form.txtBox.SetText("99");
    std::int32_t key = '5';
    helper.FilterNumberKey(key, form.txtBox, "#0");
    EXPECT_EQ(key, 0);
    form.txtBox.SetSelStart(0);
    form.txtBox.SetSelLength(2);
    key = '5';
    helper.FilterNumberKey(key, form.txtBox, "#0");
    EXPECT_EQ(key, '5');
}

TEST_F(DBHelperTest, TheCaretTellsOnWhichSideADigitLands)
{
    BoxForm form;
    form.txtBox.SetText("12,34");
    form.txtBox.SetSelStart(5);
    std::int32_t key = '5';
    helper.FilterNumberKey(key, form.txtBox, "###0.00");
    EXPECT_EQ(key, 0);
    form.txtBox.SetSelStart(1);
    key = '5';
    helper.FilterNumberKey(key, form.txtBox, "###0.00");
    EXPECT_EQ(key, '5');
}

TEST_F(DBHelperTest, ThePointOfTheKeypadBecomesTheDecimalSign)
{
    BoxForm form;
    form.txtBox.SetText("12");
    form.txtBox.SetSelStart(2);
    std::int32_t key = '.';
    helper.FilterNumberKey(key, form.txtBox, "###0.00");
    EXPECT_EQ(key, ',');
    key = '.';
    helper.FilterNumberKey(key, form.txtBox, "###0");
    EXPECT_EQ(key, 0);
}

TEST_F(DBHelperTest, ADateBoxTakesDigitsPointsAndKeysThatTypeNothing)
{
    BoxForm form;
    for (std::int32_t key : {std::int32_t{'0'}, std::int32_t{'9'}, std::int32_t{'.'}, 8, 13}) {
        EXPECT_TRUE(helper.FilterDateKey(key, form.txtBox));
        EXPECT_NE(key, 0);
    }
    for (std::int32_t key : {std::int32_t{'a'}, std::int32_t{','}, std::int32_t{'/'}, std::int32_t{' '}}) {
        EXPECT_FALSE(helper.FilterDateKey(key, form.txtBox));
        EXPECT_EQ(key, 0);
    }
}

TEST_F(DBHelperTest, ADateBoxTakesTheDateSignOfTheMachine)
{
    BoxForm form;
    basic::SetLocale(basic::EnglishLocale());
    std::int32_t key = '/';
    EXPECT_TRUE(helper.FilterDateKey(key, form.txtBox));
}

// --- Standards -------------------------------------------------------------------------------------------------------

class ModelItemsTest : public DBHelperTest {
protected:
    ModelItemsTest()
    {
        CreateTables({"BB_STRUKTUREN", "ACCESS_LEVELS", "MODELS"});
        Execute("INSERT INTO ACCESS_LEVELS (ID,NAME,ACCESS_LEVELS) VALUES (3,'Revier','0101')");
    }
    void Model(std::string_view values)
    {
        Execute("INSERT INTO MODELS (NAME,RELATION,ID_USER,NICHT_ANDERBAR,ID_ACCESS_LEVELS,STANDARD) VALUES (" +
                std::string(values) + ")");
    }
};

TEST_F(ModelItemsTest, WithoutAStandardThereIsNone)
{
    Model("'A','CONFIG_WAREN',5,NULL,NULL,0");
    EXPECT_EQ(helper.ModelItems(kvxvar, "CONFIG_WAREN", 0), 0);
}

TEST_F(ModelItemsTest, TheUsersOwnStandardGoesFirst)
{
    Model("'A','CONFIG_WAREN',9,1,NULL,1");
    Model("'B','CONFIG_WAREN',9,NULL,3,1");
    Model("'C','CONFIG_WAREN',5,NULL,NULL,1");
    EXPECT_EQ(helper.ModelItems(kvxvar, "CONFIG_WAREN", 0), 3);
}

TEST_F(ModelItemsTest, APublishedStandardGoesBeforeALockedOne)
{
    Model("'A','CONFIG_WAREN',9,1,NULL,1");
    Model("'B','CONFIG_WAREN',9,NULL,3,1");
    EXPECT_EQ(helper.ModelItems(kvxvar, "CONFIG_WAREN", 0), 2);
}

TEST_F(ModelItemsTest, StandardsOfOthersAndOfOtherScreensDoNotCount)
{
    Model("'A','CONFIG_WAREN',9,NULL,NULL,1");
    Model("'B','F_USERS',5,NULL,NULL,1");
    EXPECT_EQ(helper.ModelItems(kvxvar, "CONFIG_WAREN", 0), 0);
}

TEST_F(ModelItemsTest, OfSeveralRowsOfOneModelTheFirstStandsForAll)
{
    for (int line = 0; line < 3; ++line)
        Model("'A','ABSCHLAG',5,NULL,NULL,1");
    EXPECT_EQ(helper.ModelItems(kvxvar, "ABSCHLAG", 0), 1);
}

TEST_F(ModelItemsTest, TheStatementNamesWhatTheUserSees)
{
    helper.ModelItems(kvxvar, "F_USERS", 0);
    EXPECT_EQ(Statements(),
              (Texts{"SELECT ID,ACCESS_LEVELS FROM ACCESS_LEVELS ORDER BY ID",
                     "SELECT MODELS.ID,(CASE WHEN MODELS.NICHT_ANDERBAR = 1 THEN 3"
                     " WHEN MODELS.ID_ACCESS_LEVELS IS NOT NULL THEN 2 ELSE 1 END) AS TIER FROM MODELS"
                     " WHERE MODELS.RELATION = 'F_USERS' AND (MODELS.ID_USER = 5 OR MODELS.ID_ACCESS_LEVELS IN (3)"
                     " OR (MODELS.ID_ACCESS_LEVELS IS NULL AND (MODELS.ID_USER IS NULL OR MODELS.NICHT_ANDERBAR = 1)))"
                     " AND MODELS.STANDARD = 1 ORDER BY TIER,MODELS.NAME,MODELS.ID"}));
}

}  // namespace kvx::loc
