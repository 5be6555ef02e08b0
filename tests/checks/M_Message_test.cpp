#include "checks/M_Message.h"

#include "adapters/sqlite/SqliteDriver.h"
#include "basic/Locale.h"
#include "checks/F_MessageBox.h"
#include "common/FormInstance.h"
#include "entry/c_Message.h"
#include "support/Scenario.h"
#include "ui/Constants.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kvx {

using test::Dialog;
using test::Lines;
using test::Scenario;

namespace {

// What the user saw of a check.
struct Shown {
    Lines lines;
    std::string prompt;
    bool cancel = true;
};

void Watch(Scenario& s, Shown& shown)
{
    s.In("F_MessageBox", [&shown](Dialog& f) {
        shown.lines = f.Lines("List1");
        shown.prompt = f.Text("LabelPrompt", "Caption");
        shown.cancel = f.Shown("btnCancel");
        f.Click("btnOK");
    });
}

// Where the check is not shown, In would fail the test at its end.
void Expect(Scenario& s)
{
    s.In("F_MessageBox", [](Dialog& f) { f.Click("btnOK"); });
}

std::string Prompt(Scenario& s, std::int32_t first, std::string_view between)
{
    return s.Text(first) + std::string(between) + s.Text(203);
}

}  // namespace

// --- forest offices ---

TEST(CheckForstamt, AnOfficeThatNobodyUsesIsFreeAndNothingIsShown)
{
    Scenario s("usage.sql");
    EXPECT_NE(c_Message().CheckForstamt(8, 3, s.kvxvar()), 0);
    EXPECT_EQ(s.Statements(), (Lines{"SELECT LISTE FROM LOGS WHERE RELTABLE3 = 8 GROUP BY LISTE ",
                                     "SELECT NAME FROM ARBEITSAUFTRAG_KOPF WHERE FORSTAMT = 8 GROUP BY NAME "}));
    EXPECT_TRUE(s.Desktop().Dialogs().empty());
    EXPECT_FALSE(FormInstance<F_MessageBox>::Exists());
}

TEST(CheckForstamt, AllHitsOfBothScansAreListedUnderTheOfficesName)
{
    Scenario s("usage.sql");
    Shown shown;
    Watch(s, shown);
    EXPECT_EQ(c_Message().CheckForstamt(7, 1, s.kvxvar()), 0);
    const std::string list = s.Text(726) + ": ", order = s.Text(1178) + ": ";
    EXPECT_EQ(shown.lines, (Lines{list + "2024-101", list + "2024-102", order + "Durchforstung", order + "Pflanzung"}));
    EXPECT_EQ(shown.prompt, Prompt(s, 1616, " 'FA Nord' "));
    EXPECT_FALSE(shown.cancel);
    EXPECT_EQ(s.Statements(), (Lines{"SELECT LISTE FROM LOGS WHERE RELTABLE1 = 7 GROUP BY LISTE ",
                                     "SELECT NAME FROM ARBEITSAUFTRAG_KOPF WHERE FORSTAMT = 7 GROUP BY NAME ",
                                     "SELECT KURZNAME FROM RELTABLE WHERE ID = 7"}));
    EXPECT_FALSE(FormInstance<F_MessageBox>::Exists());
}

TEST(CheckForstamt, WithoutALevelOnlyWorkOrdersCount)
{
    Scenario s("usage.sql");
    Shown shown;
    for (const std::int32_t level : {0, -1}) {
        s.ClearLog();
        Watch(s, shown);
        EXPECT_EQ(c_Message().CheckForstamt(7, level, s.kvxvar()), 0);
        EXPECT_EQ(shown.lines.size(), 2U);
        EXPECT_EQ(s.CountStatements("SELECT LISTE FROM LOGS"), 0) << level;
    }
}

TEST(CheckForstamt, AHitOfAnOfficeWithoutARowIsAnsweredButNotShown)
{
    Scenario s("usage.sql");
    s.Execute("DELETE FROM RELTABLE");
    EXPECT_EQ(c_Message().CheckForstamt(7, 1, s.kvxvar()), 0);
    EXPECT_TRUE(s.Desktop().Dialogs().empty());
    EXPECT_FALSE(FormInstance<F_MessageBox>::Exists());
}

TEST(CheckForstamt, AnOfficeWithoutANameIsShownWithAnEmptyOne)
{
    Scenario s("usage.sql");
    s.Execute("UPDATE RELTABLE SET KURZNAME = NULL");
    Shown shown;
    Watch(s, shown);
    c_Message().CheckForstamt(7, 1, s.kvxvar());
    EXPECT_EQ(shown.prompt, Prompt(s, 1616, " '' "));
}

// --- persons ---

TEST(CheckPersonal, TheScansAreTheseAndInThisOrder)
{
    Scenario s("usage.sql");
    EXPECT_NE(c_Message().CheckPersonal(s.kvxvar(), 99, 3), 0);
    EXPECT_EQ(s.Statements(),
              (Lines{"SELECT LOGS.LISTE, LOGS.MANDANTEN_ID, LOGS_RECH.R_KUNDE, LOGS_RECH.A1_KUNDE, LOGS_RECH.A2_KUNDE, "
                     "LOGS_RECH.A3_KUNDE, LOGS_RECH.A4_KUNDE, LOGS_RECH.A5_KUNDE, LOGS_RECH.A6_KUNDE, "
                     "LOGS_RECH.A7_KUNDE, LOGS_RECH.A8_KUNDE FROM LOGS, LOGS_RECH WHERE LOGS.ID_LOG = LOGS_RECH.ID_LOG "
                     "AND ( LOGS.MANDANTEN_ID = 99 OR LOGS_RECH.R_KUNDE = 99 OR LOGS_RECH.A1_KUNDE = 99 OR "
                     "LOGS_RECH.A2_KUNDE = 99 OR LOGS_RECH.A3_KUNDE = 99 OR LOGS_RECH.A4_KUNDE = 99 OR "
                     "LOGS_RECH.A5_KUNDE = 99 OR LOGS_RECH.A6_KUNDE = 99 OR LOGS_RECH.A7_KUNDE = 99 OR "
                     "LOGS_RECH.A8_KUNDE = 99) ORDER BY LOGS.LISTE",
                     "SELECT BEZEICH1 FROM WARENKATALOG WHERE LIEFERANT_ID = 99 AND LIEFERANT_ID <> 0",
                     "SELECT NN_NAME, VER_TYPE FROM NN_POSITIONEN WHERE KUNDE_ID = 99 GROUP BY NN_NAME, VER_TYPE"}));
}

TEST(CheckPersonal, AListShowsEveryRoleThatItsRowsHaveAlsoThoseOfOtherParties)
{
    Scenario s("usage.sql");
    Shown shown;
    Watch(s, shown);
    EXPECT_EQ(c_Message().CheckPersonal(s.kvxvar(), 1, 3), 0);
    const std::string list = s.Text(726) + ": ", role = "  " + s.Text(1124) + ": ";
    // Rows 1 and 3 are one list: owner, invoice party (another one's), A2 and A3.
    EXPECT_EQ(shown.lines, (Lines{list + "2024-101", role + s.Text(100), role + s.Text(460), role + s.Text(3075),
                                  role + s.Text(3076), list + "2024-102", role + s.Text(100), role + s.Text(460)}));
    EXPECT_EQ(shown.prompt, Prompt(s, 202, " 'Müller' "));
}

TEST(CheckPersonal, TheTenPartyColumnsHaveTheseRolesInThisOrder)
{
    Scenario s("usage.sql");
    s.Execute("DELETE FROM LOGS_RECH");
    s.Execute("INSERT INTO LOGS_RECH (ID_LOG, R_KUNDE, A1_KUNDE, A2_KUNDE, A3_KUNDE, A4_KUNDE, A5_KUNDE, A6_KUNDE, "
              "A7_KUNDE, A8_KUNDE) VALUES (1, 5, 5, 5, 5, 5, 5, 5, 5, 5)");
    Shown shown;
    Watch(s, shown);
    c_Message().CheckPersonal(s.kvxvar(), 5, 0);
    Lines expected{s.Text(726) + ": 2024-101"};
    for (const std::int32_t id : {100, 460, 3074, 3075, 3076, 3077, 3078, 3079, 3080, 3081})
        expected.push_back("  " + s.Text(1124) + ": " + s.Text(id));
    EXPECT_EQ(shown.lines, expected);
}

TEST(CheckPersonal, AListWithoutAnyFilledPartyBlocksWithoutALine)
{
    Scenario s("usage.sql");
    Shown shown;
    Watch(s, shown);
    // Only list 2024-103 counts: its parties hold zeros, NULL and nothing else.
    s.Execute("UPDATE LOGS_RECH SET A1_KUNDE = NULL WHERE ID_LOG = 2");
    s.Execute("UPDATE LOGS_RECH SET R_KUNDE = NULL WHERE ID_LOG = 3");
    EXPECT_EQ(c_Message().CheckPersonal(s.kvxvar(), 0, 3), 0);
    EXPECT_EQ(shown.lines, Lines{});
}

TEST(CheckPersonal, GoodsOfASupplierTakeTwoLinesWithTheBlankBeforeTheColon)
{
    Scenario s("usage.sql");
    s.Execute("DELETE FROM LOGS_RECH");
    s.Execute("DELETE FROM NN_POSITIONEN");
    Shown shown;
    Watch(s, shown);
    EXPECT_EQ(c_Message().CheckPersonal(s.kvxvar(), 2, 3), 0);
    const std::string role = "  " + s.Text(1124) + ": " + s.Text(340);
    EXPECT_EQ(shown.lines, (Lines{s.Text(565) + " :Kettenöl", role, s.Text(565) + " :Zaundraht", role}));
}

TEST(CheckPersonal, LaterInvoicesOfACustomerTakeTwoLines)
{
    Scenario s("usage.sql");
    s.Execute("DELETE FROM LOGS_RECH");
    s.Execute("DELETE FROM WARENKATALOG");
    Shown shown;
    Watch(s, shown);
    EXPECT_EQ(c_Message().CheckPersonal(s.kvxvar(), 2, 3), 0);
    EXPECT_EQ(shown.lines, (Lines{s.Text(638) + ": N-1", "  " + s.Text(460)}));
}

TEST(CheckPersonal, TheClientOwnerIsRefusedWithoutAnyScan)
{
    Scenario s("usage.sql");
    Shown shown;
    Watch(s, shown);
    EXPECT_EQ(c_Message().CheckPersonal(s.kvxvar(), 3, 3), 0);
    EXPECT_EQ(shown.lines, Lines{s.Text(3626)});
    EXPECT_EQ(shown.prompt, Prompt(s, 202, " 'Sägewerk' "));
    EXPECT_EQ(s.Statements(), Lines{"SELECT KURZBEZEICHNUNG FROM PERSONAL WHERE PERSONAL.ID_PERSONAL = 3"});
}

TEST(CheckPersonal, AllScansRunToTheirEnd)
{
    Scenario s("usage.sql");
    Shown shown;
    Watch(s, shown);
    EXPECT_EQ(c_Message().CheckPersonal(s.kvxvar(), 2, 0), 0);
    EXPECT_EQ(shown.lines.size(), 4U + 4U + 2U);  // one list with three roles, two goods, one later invoice
}

// --- a person's role ---

TEST(CheckPerson, AnInvoicePartyIsLookedForInItsColumnAndInContracts)
{
    Scenario s("usage.sql");
    EXPECT_NE(c_Message().CheckPerson(s.kvxvar(), 99, "LOGS_RECH.A3_KUNDE", 1, 5), 0);
    EXPECT_EQ(
        s.Statements(),
        (Lines{"SELECT LOGS.LISTE, LOGS_RECH.A3_KUNDE FROM LOGS INNER JOIN LOGS_RECH ON LOGS.ID_LOG = "
               "LOGS_RECH.ID_LOG  WHERE  LOGS_RECH.A3_KUNDE = 99 AND LOGS_RECH.A3_KUNDE <> 0 GROUP BY LOGS.LISTE, "
               "LOGS_RECH.A3_KUNDE",
               "SELECT VERTRAG_NAME FROM VERTRAEGE WHERE ID_PERSONAL = 99"}));
}

TEST(CheckPerson, NeighbouringEqualNamesAreMergedThoseApartComeTwice)
{
    Scenario s("usage.sql");
    Shown shown;
    Watch(s, shown);
    EXPECT_EQ(c_Message().CheckPerson(s.kvxvar(), 1, "A3_KUNDE", 1, 0), 0);
    const std::string contract = s.Text(1528) + ": ";
    EXPECT_EQ(shown.lines,
              (Lines{s.Text(726) + ": 2024-101", contract + "Rahmen A", contract + "Rahmen B", contract + "Rahmen A"}));
    EXPECT_EQ(shown.prompt, Prompt(s, 202, " 'Müller' "));
}

TEST(CheckPerson, ANameThatIsMissingBehindAnotherGetsItsOwnEmptyLine)
{
    Scenario s("usage.sql");
    s.Execute("UPDATE VERTRAEGE SET VERTRAG_NAME = NULL WHERE ID_VERTRAG = 4");
    Shown shown;
    Watch(s, shown);
    c_Message().CheckPerson(s.kvxvar(), 1, "A8_KUNDE", 1, 0);
    const std::string contract = s.Text(1528) + ": ";
    EXPECT_EQ(shown.lines, (Lines{contract + "Rahmen A", contract + "Rahmen B", contract}));
}

TEST(CheckPerson, OnlyMissingNamesGiveOneEmptyLine)
{
    Scenario s("usage.sql");
    s.Execute("UPDATE VERTRAEGE SET VERTRAG_NAME = NULL");
    Shown shown;
    Watch(s, shown);
    EXPECT_EQ(c_Message().CheckPerson(s.kvxvar(), 1, "A8_KUNDE", 1, 0), 0);
    EXPECT_EQ(shown.lines, Lines{s.Text(1528) + ": "});
}

TEST(CheckPerson, ASupplierIsScannedByItsOwnIdButNamedByThePersons)
{
    Scenario s("usage.sql");
    Shown shown;
    Watch(s, shown);
    EXPECT_EQ(c_Message().CheckPerson(s.kvxvar(), 1, "R_KUNDE", 2, 2), 0);
    EXPECT_EQ(shown.lines.size(), 4U);
    EXPECT_EQ(shown.prompt, Prompt(s, 202, " 'Müller' "));
    EXPECT_EQ(s.Statements(), (Lines{"SELECT BEZEICH1 FROM WARENKATALOG WHERE LIEFERANT_ID = 2 AND LIEFERANT_ID <> 0",
                                     "SELECT KURZBEZEICHNUNG FROM PERSONAL WHERE PERSONAL.ID_PERSONAL = 1"}));
}

TEST(CheckPerson, AnyOtherRoleIsFreeAndNothingIsAsked)
{
    Scenario s("usage.sql");
    for (const std::uint8_t key : std::initializer_list<std::uint8_t>{0, 3, 255})
        EXPECT_NE(c_Message().CheckPerson(s.kvxvar(), 1, "R_KUNDE", key, 2), 0);
    EXPECT_TRUE(s.Log().empty());
    EXPECT_FALSE(FormInstance<F_MessageBox>::Exists());
}

TEST(CheckPerson, TheListClosesByDoubleClickAsOtherWhereUsedListsDo)
{
    Scenario s("usage.sql");
    s.In("F_MessageBox", [](Dialog& f) {
        f.Keys("{ESC}");
        EXPECT_TRUE(f.Form().Visible());
        f.Pick("List1", 0);
        f.DblClick("List1");
        EXPECT_FALSE(f.Form().Visible());
    });
    c_Message().CheckPerson(s.kvxvar(), 1, "R_KUNDE", 1, 0);
}

TEST(UsageChecks, TheListClosesByEnterAndByTheCloseBox)
{
    for (const std::string way : {"enter", "close"}) {
        Scenario s("usage.sql");
        s.In("F_MessageBox", [&](Dialog& f) {
            EXPECT_EQ(f.FocusedControl(), "List1");
            if (way == "enter") f.Keys("{ENTER}");
            if (way == "close") f.CloseBox();
            EXPECT_FALSE(f.Form().Visible()) << way;
        });
        EXPECT_EQ(c_Message().CheckPerson(s.kvxvar(), 1, "R_KUNDE", 1, 0), 0) << way;
    }
}

TEST(UsageChecks, TheListClosesByDoubleClickAlsoAfterAMessageThatDoesNot)
{
    Scenario s("usage.sql");
    c_Message message;
    message.MessageBox_AddItem("alt");
    s.In("F_MessageBox", [](Dialog& f) { f.Click("btnOK"); });
    message.MessageBox_Show("Hinweise");
    s.In("F_MessageBox", [](Dialog& f) {
        f.Pick("List1", 0);
        f.DblClick("List1");
        EXPECT_FALSE(f.Form().Visible());
    });
    EXPECT_EQ(message.CheckPerson(s.kvxvar(), 1, "R_KUNDE", 1, 0), 0);
}

// --- goods ---

TEST(CheckArtikelWaren, PaymentsAndLaterInvoicesAreListedAsTheyCome)
{
    Scenario s("usage.sql");
    Shown shown;
    Watch(s, shown);
    EXPECT_EQ(c_Message().CheckArtikelWaren(10, s.kvxvar()), 0);
    const std::string payment = "  " + s.Text(1530), later = "  " + s.Text(1531);
    EXPECT_EQ(shown.lines, (Lines{s.Text(646) + ": R-1", payment, s.Text(164) + ": R-2", payment, s.Text(638) + ": N-1",
                                  later, s.Text(638) + ": N-1", later}));
    EXPECT_EQ(shown.prompt, Prompt(s, 202, " 'Kettenöl' "));
    EXPECT_EQ(s.Statements(), (Lines{"SELECT DISTINCT RECH_NAME,VER_TYPE FROM ABSCHLAG WHERE ART_ID = 10",
                                     "SELECT NN_NAME,VER_TYPE FROM NN_POSITIONEN WHERE ARTICLE_ID = 10",
                                     "SELECT BEZEICH1 FROM WARENKATALOG WHERE ART_ID = 10"}));
}

TEST(CheckArtikelWaren, MissingNamesAndKindsOfSaleAreEmptyAndInvoice)
{
    Scenario s("usage.sql");
    Shown shown;
    Watch(s, shown);
    EXPECT_EQ(c_Message().CheckArtikelWaren(11, s.kvxvar()), 0);
    EXPECT_EQ(shown.lines, (Lines{s.Text(164) + ": ", "  " + s.Text(1531)}));
}

TEST(CheckArtikelWaren, EveryKindOfSaleHasItsName)
{
    const std::pair<const char*, std::int32_t> kinds[] = {{"A1", 646}, {"A2", 649}, {"A3", 652}, {"A4", 655},
                                                          {"A5", 629}, {"a6", 632}, {"A7", 635}, {"A8", 638},
                                                          {"A9", 164}, {"", 164},   {"A1 ", 164}};
    for (const auto& [type, text] : kinds) {
        Scenario s("usage.sql");
        s.Execute("DELETE FROM NN_POSITIONEN");
        s.Execute("DELETE FROM ABSCHLAG WHERE ID = 2");
        s.Execute("UPDATE ABSCHLAG SET VER_TYPE = '" + std::string(type) + "'");
        Shown shown;
        Watch(s, shown);
        c_Message().CheckArtikelWaren(10, s.kvxvar());
        EXPECT_EQ(shown.lines.at(0), s.Text(text) + ": R-1") << type;
    }
}

TEST(CheckArtikelWaren, TheNameOfAKnownKindIsStrippedThatOfAnyOtherStands)
{
    Scenario s("usage.sql");
    s.Execute("INSERT INTO STRINGS (ID_STRING, CUSTOM_DEUTSCH) VALUES (646, '  Vorkauf '), (164, ' Sonst ')");
    Shown shown;
    Watch(s, shown);
    c_Message().CheckArtikelWaren(10, s.kvxvar());
    EXPECT_EQ(shown.lines.at(0), "Vorkauf: R-1");
    EXPECT_EQ(shown.lines.at(2), " Sonst : R-2");
}

TEST(GetArtikelNameWaren, TheNameIsReadOnTheConnectionThatIsHandedIn)
{
    Scenario s("usage.sql");
    ado::Connection other;
    s.WriteFile("other.sql", "");
    other.Open("Provider=Korvex.SQLite;Data Source=" + s.File("other.db") + ";Create=1");
    other.Execute("CREATE TABLE WARENKATALOG (ART_ID int NOT NULL, BEZEICH1 nvarchar(50) NULL)");
    other.Execute("INSERT INTO WARENKATALOG (ART_ID, BEZEICH1) VALUES (10, 'Aus der anderen')");
    EXPECT_EQ(c_Message().GetArtikelNameWaren(10, other), "Aus der anderen");
    EXPECT_EQ(c_Message().GetArtikelNameWaren(10, s.kvxvar().dbAdo), "Kettenöl");
    EXPECT_TRUE(s.WasSent("SELECT BEZEICH1 FROM WARENKATALOG WHERE ART_ID = 10"));
}

TEST(GetArtikelNameWaren, NoArticleAndNoNameAreBothEmpty)
{
    Scenario s("usage.sql");
    EXPECT_EQ(c_Message().GetArtikelNameWaren(4711, s.kvxvar().dbAdo), "");
    EXPECT_EQ(c_Message().GetArtikelNameWaren(12, s.kvxvar().dbAdo), "");
}

// --- codes of the cost tables ---

namespace {

struct CodeCase {
    const char* table;
    Lines columns;  // of ARBEITSAUFTRAG, ARBEITSAUFTRAG_KOPF, BELEGE, LAGER; empty: not scanned
};

const CodeCase kCodeCases[] = {
    {"PRODUKT", {"", "PRODUKT_ID", "", ""}},
    {"LEISTUNGSART", {"LEISTUNGSART_ID", "", "", ""}},
    {"KOSTENART", {"KOSTENART_ID", "", "", ""}},
    {"KOSTENSTELLE", {"KOSTENSTELLE_ID", "", "", ""}},
    {"OBJEKT", {"OBJEKT_ID", "", "", ""}},
    {"HH_TITEL", {"HAUSHALT_TITEL_ID", "", "TITEL_ID", "TITEL_ID"}},
    {"HH_KAPITEL", {"HAUSHALT_KAPITEL_ID", "", "KAPITEL_ID", "KAPITEL_ID"}},
    {"ZUHLUNGSART", {"", "", "HULNR", "HULNR"}},
    {"ZUHLUNGSGRUND", {"", "", "ZAHLUNGSART", "ZAHLUNGSART"}},
    {"HH_HUL", {"", "", "ZAHLUNGSGRUND", "ZAHLUNGSGRUND"}},
};

Lines CodeStatements(const CodeCase& code, std::string_view list, std::int32_t person)
{
    const std::string id = std::to_string(person);
    const struct {
        std::string select, ofPerson, group;
    } scans[] = {
        {"SELECT NAME FROM ARBEITSAUFTRAG_KOPF LEFT JOIN ARBEITSAUFTRAG ON ARBEITSAUFTRAG_KOPF.ID = "
         "ARBEITSAUFTRAG.ARBEITSAUFTRAG_KOPF_ID",
         " AND ARBEITSAUFTRAG_KOPF.PERSONAL_ID = " + id, " GROUP BY NAME"},
        {"SELECT AA_NUMMER FROM ARBEITSAUFTRAG_KOPF", " AND PERSONAL_ID = " + id, " GROUP BY AA_NUMMER"},
        {"SELECT NUMMER FROM BELEGE",
         " AND AA_NUMMER IN (SELECT ID FROM ARBEITSAUFTRAG WHERE PERSONAL_ID = " + id + " )", " GROUP BY NUMMER"},
        {"SELECT NUMMER FROM LAGER", " AND PERSONAL_ID = " + id, " GROUP BY NUMMER"},
    };
    Lines statements;
    for (std::size_t i = 0; i < 4; ++i) {
        if (code.columns[i].empty()) continue;
        statements.push_back(scans[i].select + " WHERE " + code.columns[i] + " IN (SELECT ID FROM " + code.table +
                             " WHERE TABLE_NAME = '" + std::string(list) + "' )" +
                             (person > 0 ? scans[i].ofPerson : "") + scans[i].group);
    }
    return statements;
}

}  // namespace

TEST(CheckBBFTables, EveryCodeTableIsLookedForInItsColumnsOnly)
{
    Scenario s("usage.sql");
    for (const CodeCase& code : kCodeCases) {
        s.ClearLog();
        EXPECT_NE(c_Message().CheckBBFTables("Kopf", code.table, "LEER", s.kvxvar()), 0);
        EXPECT_EQ(s.Statements(), CodeStatements(code, "LEER", 0)) << code.table;
    }
}

TEST(CheckBBFTables, TheHostsPersonRestrictsNothing)
{
    Scenario s("usage.sql");
    c_Message().CheckBBFTables("Kopf", "HH_TITEL", "LEER", s.kvxvar(), 1);
    EXPECT_EQ(s.Statements(), CodeStatements(kCodeCases[5], "LEER", 0));
}

TEST(CheckBBFTables, EveryHitIsListedUnderThePromptAsGiven)
{
    Scenario s("usage.sql");
    Shown shown;
    Watch(s, shown);
    EXPECT_EQ(c_Message().CheckBBFTables("Titel wird benutzt", "HH_TITEL", "TITEL_A", s.kvxvar()), 0);
    const std::string order = s.Text(1178) + ": ", voucher = s.Text(55) + ": ", store = s.Text(1181) + ": ";
    EXPECT_EQ(shown.lines, (Lines{order + "Durchforstung", order + "Pflanzung", voucher + "B-1", voucher + "B-2",
                                  store + "L-1", store + "L-2"}));
    EXPECT_EQ(shown.prompt, "Titel wird benutzt");
    EXPECT_FALSE(FormInstance<F_MessageBox>::Exists());
}

TEST(CheckBBFTables, AWorkOrderHeadIsNamedByItsNumber)
{
    Scenario s("usage.sql");
    Shown shown;
    Watch(s, shown);
    EXPECT_EQ(c_Message().CheckBBFTables("x", "PRODUKT", "PRODUKT_A", s.kvxvar()), 0);
    EXPECT_EQ(shown.lines, (Lines{s.Text(1707) + ": AA-1", s.Text(1707) + ": AA-2"}));
}

TEST(CheckBBFTables, ACodeOfAnotherListOfTheTableIsFree)
{
    Scenario s("usage.sql");
    EXPECT_NE(c_Message().CheckBBFTables("x", "PRODUKT", "PRODUKT_B", s.kvxvar()), 0);
}

TEST(CheckBBFTables, WithoutAListItIsFreeAndNothingIsAsked)
{
    Scenario s("usage.sql");
    EXPECT_NE(c_Message().CheckBBFTables("x", "HH_TITEL", "", s.kvxvar()), 0);
    EXPECT_TRUE(s.Log().empty());
}

TEST(CheckBBFUsage, ForAnOwnerOnlyItsOwnRowsCount)
{
    for (const CodeCase& code : kCodeCases) {
        Scenario s("usage.sql");
        EXPECT_TRUE(CheckBBFUsage(code.table, "LEER", s.kvxvar(), 2));
        EXPECT_EQ(s.Statements(), CodeStatements(code, "LEER", 2)) << code.table;
    }
}

TEST(CheckBBFUsage, LinesGoToTheLoadedListAndNothingIsShown)
{
    Scenario s("usage.sql");
    LoadMessageBox()->List1.AddItem("Kopfzeile");
    EXPECT_FALSE(CheckBBFUsage("HH_TITEL", "TITEL_A", s.kvxvar(), 2));
    EXPECT_EQ(LoadMessageBox()->List1.List(0), "Kopfzeile");
    EXPECT_EQ(LoadMessageBox()->List1.List(1), s.Text(1178) + ": Pflanzung");
    EXPECT_EQ(LoadMessageBox()->List1.List(2), s.Text(55) + ": B-2");
    EXPECT_EQ(LoadMessageBox()->List1.List(3), s.Text(1181) + ": L-2");
    EXPECT_EQ(LoadMessageBox()->List1.ListCount(), 4);
}

TEST(CheckBBFUsage, WithoutAListTheFormIsNotTouched)
{
    Scenario s("usage.sql");
    EXPECT_TRUE(CheckBBFUsage("HH_TITEL", "", s.kvxvar(), 2));
    EXPECT_FALSE(FormInstance<F_MessageBox>::Exists());
}

TEST(GetBBFKeyColumn, TheCodeTableIgnoresCaseInOnePairOnly)
{
    EXPECT_EQ(GetBBFKeyColumn("arbeitsauftrag_kopf", "produkt"), "PRODUKT_ID");
    EXPECT_EQ(GetBBFKeyColumn("lager", "HH_TITEL"), "TITEL_ID");
    EXPECT_EQ(GetBBFKeyColumn("lager", "hh_titel"), "");
    EXPECT_EQ(GetBBFKeyColumn("ARBEITSAUFTRAG", "Objekt"), "");
    EXPECT_EQ(GetBBFKeyColumn("ARBEITSAUFTRAG", "PRODUKT"), "");
    EXPECT_EQ(GetBBFKeyColumn("LOGS", "OBJEKT"), "");
}

// --- any record ---

TEST(CheckTableToDel, AFreeRecordAnswersTheMachinesWordForTrue)
{
    Scenario s("usage.sql");
    const std::string sql = "SELECT NAME FROM PERSONAL WHERE ID_PERSONAL = 99";
    EXPECT_EQ(c_Message().CheckTableToDel(sql, 726, 340, s.kvxvar()), "Wahr");
    basic::SetLocale(basic::EnglishLocale());
    EXPECT_EQ(c_Message().CheckTableToDel(sql, 726, 340, s.kvxvar()), "True");
    EXPECT_EQ(s.CountStatements(sql), 2);
    EXPECT_TRUE(s.Desktop().Dialogs().empty());
    EXPECT_FALSE(FormInstance<F_MessageBox>::Exists());
}

TEST(CheckTableToDel, AUsedRecordAnswersFalseAndShowsTheNamesUnderTheirHeading)
{
    Scenario s("usage.sql");
    Shown shown;
    Watch(s, shown);
    EXPECT_EQ(c_Message().CheckTableToDel("SELECT LISTE FROM LOGS ORDER BY ID_LOG", 726, 340, s.kvxvar()), "Falsch");
    EXPECT_EQ(shown.lines, (Lines{s.Text(726) + ":", " 2024-101", " 2024-102", " 2024-101", " 2024-103"}));
    EXPECT_EQ(shown.prompt, Prompt(s, 202, " " + s.Text(340) + " "));

    basic::SetLocale(basic::EnglishLocale());
    Expect(s);
    EXPECT_EQ(c_Message().CheckTableToDel("SELECT LISTE FROM LOGS", 726, 340, s.kvxvar()), "False");
}

TEST(CheckTableToDel, AMissingNameIsABlankLine)
{
    Scenario s("usage.sql");
    Shown shown;
    Watch(s, shown);
    c_Message().CheckTableToDel("SELECT BEZEICH1 FROM WARENKATALOG WHERE ART_ID = 12", 565, 340, s.kvxvar());
    EXPECT_EQ(shown.lines, (Lines{s.Text(565) + ":", " "}));
}

TEST(CheckTableToDel, TheHeadingStandsInTheListBeforeTheStatementRuns)
{
    Scenario s("usage.sql");
    EXPECT_THROW(c_Message().CheckTableToDel("SELECT NIRGENDS FROM LOGS", 726, 340, s.kvxvar()), basic::Error);
    EXPECT_EQ(LoadMessageBox()->List1.ListCount(), 1);
    EXPECT_EQ(LoadMessageBox()->List1.List(0), s.Text(726) + ":");
}

// --- all checks ---

TEST(UsageChecks, LinesThatAHostHasBegunStayOnTopWhereTheCheckDoesNotEmptyTheList)
{
    Scenario s("usage.sql");
    c_Message message;
    const std::pair<const char*, std::function<void()>> checks[] = {
        {"person", [&] { message.CheckPersonal(s.kvxvar(), 3, 3); }},
        {"article", [&] { message.CheckArtikelWaren(11, s.kvxvar()); }},
        {"code", [&] { message.CheckBBFTables("x", "PRODUKT", "PRODUKT_A", s.kvxvar()); }},
        {"table", [&] { message.CheckTableToDel("SELECT LISTE FROM LOGS", 726, 340, s.kvxvar()); }},
    };
    for (const auto& [name, check] : checks) {
        message.MessageBox_AddItem("vom Programm");
        Shown shown;
        Watch(s, shown);
        check();
        EXPECT_GT(shown.lines.size(), 1U) << name;
        EXPECT_EQ(shown.lines.front(), "vom Programm") << name;
    }
}

TEST(UsageChecks, LinesThatAHostHasBegunAreGoneWhereTheCheckEmptiesTheList)
{
    Scenario s("usage.sql");
    c_Message message;
    const std::function<void()> checks[] = {
        [&] { message.CheckForstamt(7, 0, s.kvxvar()); },
        [&] { message.CheckPerson(s.kvxvar(), 1, "R_KUNDE", 1, 0); },
    };
    for (const auto& check : checks) {
        message.MessageBox_AddItem("vom Programm");
        Shown shown;
        Watch(s, shown);
        check();
        EXPECT_NE(shown.lines.front(), "vom Programm");
    }
}

TEST(UsageChecks, AFreeRecordUnloadsTheFormThatAHostHadBegun)
{
    Scenario s("usage.sql");
    c_Message message;
    message.MessageBox_AddItem("vom Programm");
    message.CheckArtikelWaren(4711, s.kvxvar());
    EXPECT_EQ(message.MessageBox_ItemCount(), 0);
}

TEST(UsageChecks, TheStatementsAreTheSameForOracle)
{
    Scenario s("usage.sql");
    const auto all = [&] {
        s.ClearLog();
        c_Message message;
        message.CheckForstamt(8, 1, s.kvxvar());
        message.CheckPersonal(s.kvxvar(), 99, 0);
        message.CheckPerson(s.kvxvar(), 99, "R_KUNDE", 1, 0);
        message.CheckArtikelWaren(99, s.kvxvar());
        message.CheckBBFTables("x", "HH_KAPITEL", "LEER", s.kvxvar());
        return s.Statements();
    };
    const Lines first = all();
    s.kvxvar().bOracle = true;
    EXPECT_EQ(all(), first);
    EXPECT_EQ(first.size(), 12U);
}

TEST(UsageChecks, AnErrorOfAnyStatementReachesTheHostAndTheFormStaysUntilItsNextUse)
{
    struct Case {
        const char* name;
        std::size_t statements;
        std::function<void(Scenario&)> check;
    };
    const Case cases[] = {
        {"office", 3, [](Scenario& s) { c_Message().CheckForstamt(7, 1, s.kvxvar()); }},
        {"person", 4, [](Scenario& s) { c_Message().CheckPersonal(s.kvxvar(), 2, 0); }},
        {"role", 3, [](Scenario& s) { c_Message().CheckPerson(s.kvxvar(), 1, "R_KUNDE", 1, 0); }},
        {"supplier", 2, [](Scenario& s) { c_Message().CheckPerson(s.kvxvar(), 1, "R_KUNDE", 2, 2); }},
        {"article", 3, [](Scenario& s) { c_Message().CheckArtikelWaren(10, s.kvxvar()); }},
        {"code", 3, [](Scenario& s) { c_Message().CheckBBFTables("x", "HH_TITEL", "TITEL_A", s.kvxvar()); }},
        {"table", 1, [](Scenario& s) { c_Message().CheckTableToDel("SELECT LISTE FROM LOGS", 726, 340, s.kvxvar()); }},
    };
    for (const Case& one : cases) {
        // The customer's own wording is one statement more.
        for (std::size_t k = 1; k <= one.statements + 1; ++k) {
            Scenario s("usage.sql");
            s.FailStatement(k, ado::kErrTimeout, "abgebrochen");
            try {
                one.check(s);
                ADD_FAILURE() << one.name << " " << k << ": no error";
            } catch (const basic::Error& error) {
                EXPECT_EQ(error.Number, ado::kErrTimeout) << one.name << " " << k;
                EXPECT_EQ(error.Description, "abgebrochen") << one.name << " " << k;
            }
            ASSERT_TRUE(FormInstance<F_MessageBox>::Exists()) << one.name << " " << k;
            EXPECT_TRUE(FormInstance<F_MessageBox>::Get()->IsLoaded()) << one.name << " " << k;
            EXPECT_TRUE(s.Desktop().Dialogs().empty()) << one.name << " " << k;
            Expect(s);
            one.check(s);
            EXPECT_FALSE(FormInstance<F_MessageBox>::Exists()) << one.name << " " << k;
        }
    }
}

TEST(UsageChecks, AColumnThatDoesNotExistIsTheProvidersError)
{
    Scenario s("usage.sql");
    try {
        c_Message().CheckPerson(s.kvxvar(), 1, "GIBT_ES_NICHT", 1, 0);
        ADD_FAILURE() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, ado::kErrStatement);
    }
}

TEST(UsageChecks, TheCustomersOwnWordingIsReadOnceForAllLinesOfACheck)
{
    Scenario s("usage.sql");
    Expect(s);
    c_Message().CheckPersonal(s.kvxvar(), 1, 3);
    EXPECT_EQ(s.CountStatements("SELECT ID_STRING,CUSTOM_"), 1);
}

TEST(UsageChecks, AListBeingShownHoldsNoStatementOpen)
{
    Scenario s("usage.sql");
    s.In("F_MessageBox", [&](Dialog& f) {
        s.Execute("UPDATE RELTABLE SET LANGNAME = 'frei'");  // another connection can write
        f.Click("btnOK");
    });
    c_Message().CheckForstamt(7, 1, s.kvxvar());
    EXPECT_EQ(s.Value("SELECT LANGNAME FROM RELTABLE"), "frei");
}

}  // namespace kvx
