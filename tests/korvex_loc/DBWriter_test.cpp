#include "korvex_loc/DBWriter.h"

#include "adapters/headless/HeadlessDesktop.h"
#include "korvex_loc/LocTest.h"
#include "ui/Form.h"
#include "ui/ListView.h"

namespace kvx::loc {

namespace {

class DBWriterTest : public LocTest {
protected:
    DBWriter writer;
};

}  // namespace

// --- Options ---------------------------------------------------------------------------------------------------------

TEST_F(DBWriterTest, AMissingOptionIsMade)
{
    CreateTables({"OPTIONEN"});
    writer.PutOptionNumber(kvxvar, "WALDORTLEVEL", std::int32_t{6});
    EXPECT_EQ(Value("SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'WALDORTLEVEL'"), "6");
    EXPECT_EQ(Statements(), (Texts{"UPDATE OPTIONEN SET NUMBER_VALUE = 6 WHERE PROPERTY_ID = 'WALDORTLEVEL'",
                                   "INSERT INTO OPTIONEN (PROPERTY_ID,NUMBER_VALUE) VALUES ('WALDORTLEVEL',6)"}));
}

TEST_F(DBWriterTest, AnOptionThatIsThereIsChanged)
{
    CreateTables({"OPTIONEN"});
    Execute("INSERT INTO OPTIONEN (PROPERTY_ID,NUMBER_VALUE) VALUES ('WALDORTLEVEL',9)");
    writer.PutOptionNumber(kvxvar, "WALDORTLEVEL", std::int32_t{6});
    EXPECT_EQ(Value("SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'WALDORTLEVEL'"), "6");
    EXPECT_EQ(Statements(), Texts{"UPDATE OPTIONEN SET NUMBER_VALUE = 6 WHERE PROPERTY_ID = 'WALDORTLEVEL'"});
}

TEST_F(DBWriterTest, NumbersAreWrittenWithAPointAndTruthAsOne)
{
    CreateTables({"OPTIONEN"});
    writer.PutOptionNumber(kvxvar, "A", "2,5");
    writer.PutOptionNumber(kvxvar, "A", true);
    writer.PutOptionNumber(kvxvar, "A", basic::Null());
    EXPECT_EQ(Statements()[0], "UPDATE OPTIONEN SET NUMBER_VALUE = 2.5 WHERE PROPERTY_ID = 'A'");
}

TEST_F(DBWriterTest, TextOptionsAreMadeAndChanged)
{
    CreateTables({"OPTIONEN"});
    writer.PutOptionText(kvxvar, "DSW_SEPARATOR", "|", "");
    writer.PutOptionText(kvxvar, "DSW_SEPARATOR", "/", "");
    EXPECT_EQ(Value("SELECT TEXT_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'DSW_SEPARATOR'"), "/");
    EXPECT_EQ(Statements(), (Texts{"UPDATE OPTIONEN SET TEXT_VALUE = '|' WHERE PROPERTY_ID = 'DSW_SEPARATOR'",
                                   "INSERT INTO OPTIONEN (PROPERTY_ID,TEXT_VALUE) VALUES ('DSW_SEPARATOR','|')",
                                   "UPDATE OPTIONEN SET TEXT_VALUE = '/' WHERE PROPERTY_ID = 'DSW_SEPARATOR'"}));
}

TEST_F(DBWriterTest, AnEmptyTextTakesTheDefault)
{
    CreateTables({"OPTIONEN"});
    writer.PutOptionText(kvxvar, "A", "", "c:\\Programme\\DSW2\\dsw2.ini");
    EXPECT_EQ(Value("SELECT TEXT_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'A'"), "c:\\Programme\\DSW2\\dsw2.ini");
}

TEST_F(DBWriterTest, AnApostropheInAnOptionIsStored)
{
    CreateTables({"OPTIONEN"});
    writer.PutOptionText(kvxvar, "A", "L'Haÿ", "");
    EXPECT_EQ(Value("SELECT TEXT_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'A'"), "L'Haÿ");
}

// --- Named set-ups ---------------------------------------------------------------------------------------------------

TEST_F(DBWriterTest, OrderNumbersArePickedAndCheckedUnderTheCondition)
{
    EXPECT_EQ(writer.GridSetup(kvxvar, "AUFTRAGSNUMMER_GRID", "BB_T_AUFTRAGS_PLANUNG.ID_ACCESS_LEVELS IS NULL"),
              "SELECT BB_T_AUFTRAGS_PLANUNG.AUFTRAGSNUMMER,BB_T_AUFTRAGS_PLANUNG.LONG,BB_T_AUFTRAGS_PLANUNG.ID"
              " FROM BB_T_AUFTRAGS_PLANUNG WHERE ISNULL(BB_T_AUFTRAGS_PLANUNG.DISABLE,0) = 0"
              " AND BB_T_AUFTRAGS_PLANUNG.ID_ACCESS_LEVELS IS NULL ORDER BY BB_T_AUFTRAGS_PLANUNG.AUFTRAGSNUMMER");
    EXPECT_EQ(writer.GridSetup(kvxvar, "AUFTRAGSNUMMER_VALID", "A-'17\tBB_T_AUFTRAGS_PLANUNG.ID_ACCESS_LEVELS IS NULL"),
              "SELECT BB_T_AUFTRAGS_PLANUNG.AUFTRAGSNUMMER,BB_T_AUFTRAGS_PLANUNG.LONG,BB_T_AUFTRAGS_PLANUNG.ID"
              " FROM BB_T_AUFTRAGS_PLANUNG WHERE ISNULL(BB_T_AUFTRAGS_PLANUNG.DISABLE,0) = 0"
              " AND BB_T_AUFTRAGS_PLANUNG.ID_ACCESS_LEVELS IS NULL"
              " AND BB_T_AUFTRAGS_PLANUNG.AUFTRAGSNUMMER = 'A-''17'");
}

TEST_F(DBWriterTest, HuntingDistrictsBelongToAYearAndAUser)
{
    EXPECT_EQ(writer.GridSetup(kvxvar, "BB_JAGDBEZIRKE_GRID", "2024\t5"),
              "SELECT DISTINCT BB_T_JAGDBEZIRKE.NUMMER,BB_T_JAGDBEZIRKE.LONG FROM BB_T_JAGDBEZIRKE"
              " WHERE LEFT(BB_T_JAGDBEZIRKE.JAGDJAHR,4) = '2024' AND (BB_T_JAGDBEZIRKE.ID_ACCESS_LEVELS IS NULL"
              " OR BB_T_JAGDBEZIRKE.ID_ACCESS_LEVELS IN (SELECT ID_ACCESS_LEVELS FROM USERS WHERE ID_USER = 5))"
              " ORDER BY BB_T_JAGDBEZIRKE.NUMMER");
    EXPECT_EQ(writer.GridSetup(kvxvar, "BB_JAGDBEZIRKE_VALID", "\t5\t17"),
              "SELECT BB_T_JAGDBEZIRKE.NUMMER,BB_T_JAGDBEZIRKE.LONG,BB_T_JAGDBEZIRKE.ID FROM BB_T_JAGDBEZIRKE"
              " WHERE (BB_T_JAGDBEZIRKE.ID_ACCESS_LEVELS IS NULL"
              " OR BB_T_JAGDBEZIRKE.ID_ACCESS_LEVELS IN (SELECT ID_ACCESS_LEVELS FROM USERS WHERE ID_USER = 5))"
              " AND BB_T_JAGDBEZIRKE.NUMMER = 17");
}

TEST_F(DBWriterTest, ObjectsStandUnderTheConditionThatNamesTheirGroup)
{
    EXPECT_EQ(writer.GridSetup(kvxvar, "OBJEKTE_GRID", "4\tBB_T_OBJEKTE.ID_BB_T_OBJEKTGRUPPE = 4"),
              "SELECT BB_T_OBJEKTE.NUMMER,BB_T_OBJEKTE.LONG FROM BB_T_OBJEKTE"
              " WHERE BB_T_OBJEKTE.ID_BB_T_OBJEKTGRUPPE = 4 ORDER BY BB_T_OBJEKTE.NUMMER");
    EXPECT_EQ(writer.GridSetup(kvxvar, "OBJEKTE_VALID", "4\tBB_T_OBJEKTE.ID_BB_T_OBJEKTGRUPPE = 4\t12"),
              "SELECT BB_T_OBJEKTE.NUMMER,BB_T_OBJEKTE.LONG,BB_T_OBJEKTE.ID FROM BB_T_OBJEKTE"
              " WHERE BB_T_OBJEKTE.ID_BB_T_OBJEKTGRUPPE = 4 AND BB_T_OBJEKTE.NUMMER = 12");
}

TEST_F(DBWriterTest, ANumberKeyThatIsNoneAsksForNoRow)
{
    for (const char* key : {"", "x", "1'2", "-1"})
        EXPECT_EQ(writer.GridSetup(kvxvar, "OBJEKTGRUPPE_TAB_VALID", std::string("\t") + key),
                  "SELECT BB_T_OBJEKTGRUPPE.NUMMER,BB_T_OBJEKTGRUPPE.LONG,BB_T_OBJEKTGRUPPE.ID FROM BB_T_OBJEKTGRUPPE"
                  " WHERE 1=2");
}

TEST_F(DBWriterTest, TheTableOfGroupsHasNoCondition)
{
    EXPECT_EQ(writer.GridSetup(kvxvar, "OBJEKTGRUPPE_TAB_GRID", ""),
              "SELECT BB_T_OBJEKTGRUPPE.NUMMER,BB_T_OBJEKTGRUPPE.LONG FROM BB_T_OBJEKTGRUPPE"
              " ORDER BY BB_T_OBJEKTGRUPPE.NUMMER");
}

TEST_F(DBWriterTest, GroupsAreThoseOfVisibleObjectsAndEmptyOnes)
{
    CreateTables({"BB_T_OBJEKTGRUPPE", "BB_T_OBJEKTE"});
    for (const char* group : {"1,10,'Fahrzeuge',1", "2,20,'Gebäude',0", "3,30,'Maschinen',1", "4,40,'Neu',1"})
        Execute(std::string("INSERT INTO BB_T_OBJEKTGRUPPE (ID,NUMMER,LONG,MBF) VALUES (") + group + ")");
    for (const char* object : {"1,1,NULL", "2,1,3", "3,2,NULL", "4,3,9"})
        Execute(std::string("INSERT INTO BB_T_OBJEKTE (ID,ID_BB_T_OBJEKTGRUPPE,ID_ACCESS_LEVELS) VALUES (") + object +
                ")");
    const std::string condition = "ISNULL(BB_T_OBJEKTGRUPPE.MBF,0)=1 AND (BB_T_OBJEKTE.ID_ACCESS_LEVELS IS NULL OR"
                                  " BB_T_OBJEKTE.ID_ACCESS_LEVELS IN (3))";
    ado::Recordset rows = kvxvar.dbAdo.Execute(writer.GridSetup(kvxvar, "OBJEKTGRUPPE_GRID", condition));
    std::string groups;
    for (; !rows.Eof(); rows.MoveNext())
        groups += basic::ToText(rows[0].Value()) + " ";
    EXPECT_EQ(groups, "10 40 ");
    EXPECT_EQ(Value(writer.GridSetup(kvxvar, "OBJEKTGRUPPE_VALID", condition + "\t10")), "10");
    EXPECT_EQ(Value(writer.GridSetup(kvxvar, "OBJEKTGRUPPE_VALID", condition + "\t20")), "(none)");
}

TEST_F(DBWriterTest, EverySetUpRunsOnTheSampleSchema)
{
    CreateTables({"BB_STRUKTUREN", "ACCESS_LEVELS", "USERS", "BB_T_AUFTRAGS_PLANUNG", "BB_T_OBJEKTGRUPPE",
                  "BB_T_OBJEKTE", "BB_T_JAGDBEZIRKE"});
    const std::pair<const char*, const char*> setups[] = {
        {"AUFTRAGSNUMMER_GRID", "1=1"},         {"AUFTRAGSNUMMER_VALID", "7\t1=1"}, {"BB_JAGDBEZIRKE_GRID", "2024\t5"},
        {"BB_JAGDBEZIRKE_VALID", "2024\t5\t7"}, {"OBJEKTE_GRID", "1\t1=1"},         {"OBJEKTE_VALID", "1\t1=1\t7"},
        {"OBJEKTGRUPPE_GRID", "1=1"},           {"OBJEKTGRUPPE_VALID", "1=1\t7"},   {"OBJEKTGRUPPE_TAB_GRID", ""},
        {"OBJEKTGRUPPE_TAB_VALID", "\t7"},
    };
    for (const auto& [name, argument] : setups)
        EXPECT_EQ(Value(writer.GridSetup(kvxvar, name, argument)), "(none)") << name;
}

TEST_F(DBWriterTest, AnUnknownSetUpIsAnError)
{
    EXPECT_EQ(ErrorOf([&] { writer.GridSetup(kvxvar, "OBJEKTE", ""); }), basic::kErrInvalidCall);
    EXPECT_EQ(ErrorOf([&] { writer.GridSetup(kvxvar, "KUNDEN_GRID", ""); }), basic::kErrInvalidCall);
}

// --- Lists -----------------------------------------------------------------------------------------------------------

namespace {

class ListForm final : public ui::Form {
public:
    ListForm() : Form("F_List") { Load(); }
    ui::ListView ListView1{*this, "ListView1"};

private:
    void Design() override {}
};

}  // namespace

TEST_F(DBWriterTest, AListColumnIsAsWideAsItsLongestTextAndHiddenOnesStay)
{
    const adapters::headless::HeadlessDesktop desktop;
    ListForm form;
    ui::ColumnHeaders& columns = form.ListView1.ColumnHeaders();
    columns.Add("", "Nr", 1440);
    columns.Add("", "Eine Überschrift", 1440);
    columns.Add("", "Id", 0);
    form.ListView1.ListItems().Add("", "eine längere Bezeichnung des Waldorts");
    writer.ListViewAutoSize(kvxvar, form.ListView1);
    EXPECT_GT(columns[1].Width(), form.TextWidth("eine längere Bezeichnung des Waldorts"));
    EXPECT_GT(columns[2].Width(), form.TextWidth("Eine Überschrift"));
    EXPECT_GT(columns[1].Width(), columns[2].Width());
    EXPECT_EQ(columns[3].Width(), 0);
}

}  // namespace kvx::loc
