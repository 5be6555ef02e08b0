#include "support/NewDesktop.h"
#include "tables/ListsTest.h"

#include "common/FormInstance.h"

#include <string>
#include <vector>

// What a list looks like when it opens: tabs, statements, columns, edit line, sizes, limits of the boxes.
namespace kvx {

using namespace test;

namespace {

using Ids = std::vector<std::int32_t>;

// A caption is a text id, or a word of its own.
struct Caption {
    Caption(std::int32_t textId) : id(textId) {}     // NOLINT(google-explicit-constructor)
    Caption(const char* literal) : word(literal) {}  // NOLINT(google-explicit-constructor)
    std::string In(Scenario& s) const { return id != 0 ? s.Text(id) : word; }
    std::int32_t id = 0;
    std::string word;
};

struct ListCase {
    std::int32_t id;
    std::uint8_t fields;
    std::int16_t tabsPerRow;
    Ids tabs;
    std::string query;
    std::vector<Caption> columns;
    bool flag;                    // the last of the columns is "Disable"
    std::int32_t hidden;          // columns behind them
    std::int32_t width1, width2;  // of the boxes before the form stretches the second; 0: hidden
    std::int32_t width3;
    std::int32_t formWidth;
    std::int32_t limit1, limit2;  // -1: cannot be reached
};

const std::string kMasterSpaced =
    "SELECT SHORTNAME, LONGNAME,DISABLE,ID_STRING FROM STAMM_TABELLEN WHERE LABEL_GROUP = ";
const std::string kMasterTight = "SELECT SHORTNAME,LONGNAME,DISABLE,ID_STRING FROM STAMM_TABELLEN WHERE LABEL_GROUP = ";

// clang-format off
const std::vector<ListCase>& Cases()
{
    static const std::vector<Caption> kCode{1176, 1177, "Disable"};
    static const std::vector<ListCase> kCases{
        {80, 2, 3, {1118, 862, 1120, 1121, 1122, 1123, 53, 4715},
         "SELECT DEUTSCH, CUSTOM_DEUTSCH, ID_STRING FROM STRINGS WHERE LABEL_GROUP = '1LV'  ORDER BY DEUTSCH",
         {1124, 1125}, false, 1, 3000, 3000, 0, 8920, -1, 255},
        {480, 3, 5, {716, 717, 718, 719, 720, 722, 725, 723, 721, 724},
         "SELECT KURZNAME,LANGNAME,(SELECT NUMBER FROM BBF_GRUPPE WHERE ID = GRUPPE),DISABLE,ID,GRUPPE FROM RELTABLE "
         "WHERE RELTABLE_ID = 1 AND (ID_ACCESS_LEVELS IS NULL OR ID_ACCESS_LEVELS = 2)",
         {1176, 1177, 1227, "Disable"}, true, 2, 1000, 3000, 3000, 8000, 8, 50},
        {496, 3, 3, {496}, "SELECT FARBE,FARBE_LANG,DISABLE,FARBE AS FF FROM FARBE",
         kCode, true, 1, 1000, 7000, 0, 8000, 5, 30},
        {687, 2, 3, {687}, "SELECT SHORTNAME, LONGNAME, ID_STRING FROM STAMM_TABELLEN WHERE LABEL_GROUP = 'ENTRIND'",
         {1176, 1177}, false, 1, 1000, 5000, 0, 8920, 5, 50},
        {1127, 3, 3, {1127}, kMasterTight + "'MEFVERF'", kCode, true, 1, 1000, 7000, 0, 8000, 5, 50},
        {1128, 3, 3, {1128}, kMasterTight + "'MENGEN'",  kCode, true, 1, 1000, 7000, 0, 8000, 5, 50},
        {1129, 3, 3, {1129}, kMasterTight + "'EST'",     kCode, true, 1, 1000, 7000, 0, 8000, 5, 50},
        {1130, 3, 3, {1130}, kMasterSpaced + "'ZUGANG'", kCode, true, 1, 1000, 7000, 0, 8000, 5, 50},
        {1131, 3, 3, {1131}, kMasterSpaced + "'ABGANG'", kCode, true, 1, 1000, 7000, 0, 8000, 5, 50},
        {1132, 3, 3, {1132}, kMasterSpaced + "'RUCKE'",  kCode, true, 1, 1000, 7000, 0, 8000, 5, 50},
        {1170, 3, 5, {41, 3074, 3075, 3076, 3077, 3078, 3079, 3080, 3081, 3115, 3012, 340, 100, 1021},
         kMasterSpaced + "'KUN_GR0'", kCode, true, 1, 1000, 7000, 0, 8000, 5, 50},
        {1303, 3, 5, {1301, 1302}, "SELECT SHORT,LONG,DISABLE, ID FROM F1", kCode, true, 1, 1000, 7000, 0, 8000, 5, 50},
        {4245, 3, 3, {4245}, kMasterTight + "'LOHNGRUND'", {859, 4022, "Disable"}, true, 1, 1000, 7000, 0, 8000, 8, 30},
        {4735, 1, 3, {4735}, "SELECT NAME,ID FROM ANLASSART", {1177}, false, 1, 3000, 0, 0, 8100, 30, -1},
        {4767, 3, 3, {4767}, "SELECT NUMMER,NAME,DISABLE,ID FROM SONDERMERKMAL",
         kCode, true, 1, 1000, 7000, 0, 8000, 4, 50},
        {6224, 3, 3, {6224}, "select SHORT, LONG, DISABLE, ID from T_BUNDESLAND",
         {"Kurz", "Langbezeichnung", "Disable"}, true, 1, 1000, 7000, 0, 8000, 2, 50},
    };
    return kCases;
}
// clang-format on

class EveryList : public testing::TestWithParam<ListCase> {
protected:
    EveryList() { s.kvxvar().ID_ACCESS_LEVELS = 2; }
    Scenario s{"lists.sql"};
};

std::string NameOfCase(const testing::TestParamInfo<ListCase>& info)
{
    return "Id" + std::to_string(info.param.id);
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Lists, EveryList, testing::ValuesIn(Cases()), NameOfCase);

TEST_P(EveryList, HasItsTabsAndOpensOnTheFirst)
{
    const ListCase& list = GetParam();
    Lines expected, captions;
    for (const std::int32_t id : list.tabs)
        expected.push_back(s.Text(id));
    Open(s, list.id, [&](Dialog& f) {
        const ui::SSTab& strip = List(f).SSTab1;
        for (std::int16_t tab = 0; tab < strip.Tabs(); ++tab)
            captions.push_back(strip.TabCaption(tab));
        EXPECT_EQ(strip.Tab(), 0);
        EXPECT_EQ(strip.TabsPerRow(), list.tabsPerRow);
        EXPECT_EQ(List(f).bytFieldCount, list.fields);
        f.CloseBox();
    });
    EXPECT_EQ(captions, expected);
}

TEST_P(EveryList, ReadsItsFirstStatementOnceToOpen)
{
    const ListCase& list = GetParam();
    Open(s, list.id, [&](Dialog& f) {
        EXPECT_EQ(List(f).Data1.RecordSource(), list.query);
        f.CloseBox();
    });
    EXPECT_EQ(s.Statements().at(0), list.query);
    EXPECT_EQ(s.CountStatements(list.query), 1);
}

TEST_P(EveryList, ReadsOnAConnectionOfItsOwn)
{
    Open(s, GetParam().id, [&](Dialog& f) {
        const F_Tabellen2& form = List(f);
        EXPECT_EQ(form.Data1.ConnectionString(), s.kvxvar().strConnection);
        EXPECT_NE(form.Data1.Recordset().ActiveConnection().Id(), s.kvxvar().dbAdo.Id());
        f.CloseBox();
    });
}

TEST_P(EveryList, ShowsItsColumnsAndHidesTheRest)
{
    const ListCase& list = GetParam();
    const auto shown = static_cast<std::int32_t>(list.columns.size());
    Open(s, list.id, [&](Dialog& f) {
        auto columns = List(f).DataGrid1.Columns();
        ASSERT_EQ(columns.Count(), shown + list.hidden);
        for (std::int32_t i = 0; i < columns.Count(); ++i) {
            EXPECT_EQ(columns[i].Visible(), i < shown) << i;
            if (i >= shown) continue;
            EXPECT_EQ(columns[i].Caption(), list.columns[static_cast<std::size_t>(i)].In(s)) << i;
            EXPECT_EQ(columns[i].NumberFormat(), list.flag && i == shown - 1 ? "Yes/No" : "") << i;
        }
        f.CloseBox();
    });
}

TEST_P(EveryList, ShowsTheBoxesOfItsValuesSideBySide)
{
    const ListCase& list = GetParam();
    Open(s, list.id, [&](Dialog& f) {
        const F_Tabellen2& form = List(f);
        EXPECT_EQ(form.txtField1.Visible(), list.width1 != 0);
        EXPECT_EQ(form.txtField2.Visible(), list.width2 != 0);
        EXPECT_EQ(form.txtField3.Visible(), list.width3 != 0);
        EXPECT_EQ(form.chkDisable.Visible(), list.flag);
        EXPECT_EQ(form.txtField1.Enabled(), list.id != 80);
        EXPECT_EQ(form.txtField1.Width(), list.width1);
        const ui::Control* last = &form.txtField1;
        for (const ui::Control* next :
             {static_cast<const ui::Control*>(&form.txtField2), static_cast<const ui::Control*>(&form.txtField3),
              static_cast<const ui::Control*>(&form.chkDisable)}) {
            if (!next->Visible()) continue;
            EXPECT_EQ(next->Left(), last->Left() + last->Width() + 10);
            EXPECT_EQ(next->Top(), last->Top());
            last = next;
        }
        f.CloseBox();
    });
}

TEST_P(EveryList, AWideFormGivesEveryBoxItsWidthAndTheRestToTheSecond)
{
    const ListCase& list = GetParam();
    Open(s, list.id, [&](Dialog& f) {
        f.Resize(16000, 8000);
        const F_Tabellen2& form = List(f);
        EXPECT_EQ(form.txtField1.Width(), list.width1);
        if (list.width2 != 0) {
            EXPECT_GT(form.txtField2.Width(), list.width2);
        }
        if (list.width3 != 0) {
            EXPECT_EQ(form.txtField3.Width(), list.width3);
        }
        f.CloseBox();
    });
}

TEST(ListOpen, WhereTheSecondBoxWouldBeTheNarrowerOneTwoWideBoxesShare)
{
    Scenario s("lists.sql");
    Open(s, kRelations, [](Dialog& f) {
        EXPECT_NEAR(List(f).txtField2.Width(), List(f).txtField3.Width(), 1);
        EXPECT_GT(List(f).txtField2.Width(), 1500);
        f.CloseBox();
    });
}

TEST_P(EveryList, ItsEditLineFillsTheFrame)
{
    Open(s, GetParam().id, [&](Dialog& f) {
        const F_Tabellen2& form = List(f);
        if (form.txtField2.Visible()) {
            const ui::Control* last = &form.txtField2;
            if (form.txtField3.Visible()) last = &form.txtField3;
            if (form.chkDisable.Visible()) last = &form.chkDisable;
            EXPECT_NEAR(last->Left() + last->Width(), form.Frame1.Width() - form.txtField1.Left(), 15);
        }
        EXPECT_GE(form.txtField1.Top(), form.DataGrid1.Top() + form.DataGrid1.Height());
        EXPECT_LE(form.txtField1.Top() + form.txtField1.Height(), form.Frame1.Height());
        f.CloseBox();
    });
}

TEST_P(EveryList, AColumnIsAsWideAsTheBoxThatEditsIt)
{
    Open(s, GetParam().id, [&](Dialog& f) {
        F_Tabellen2& form = List(f);
        const auto check = [&] {
            auto columns = form.DataGrid1.Columns();
            std::int32_t at = 0;
            for (const ui::Control* box :
                 {static_cast<const ui::Control*>(&form.txtField1), static_cast<const ui::Control*>(&form.txtField2),
                  static_cast<const ui::Control*>(&form.txtField3), static_cast<const ui::Control*>(&form.chkDisable)})
                if (box->Visible()) {
                    EXPECT_EQ(columns[at++].Width(), box->Width()) << at;
                }
        };
        check();
        f.Resize(11000, 8000);
        check();
        f.CloseBox();
    });
}

TEST_P(EveryList, TheFormHasItsWidth)
{
    const ListCase& list = GetParam();
    Open(s, list.id, [&](Dialog& f) {
        EXPECT_EQ(f.Form().Width(), list.formWidth);
        if (list.id == 80) {
            EXPECT_EQ(f.Form().Height(), 7140);
        }
        f.CloseBox();
    });
}

TEST_P(EveryList, TheBoxesTakeSoManyCharactersOnceTheyHadTheFocus)
{
    const ListCase& list = GetParam();
    Open(s, list.id, [&](Dialog& f) {
        const F_Tabellen2& form = List(f);
        EXPECT_EQ(form.txtField1.MaxLength(), 0);
        if (list.limit1 >= 0) {
            f.Focus("txtField1");
            EXPECT_EQ(form.txtField1.MaxLength(), list.limit1);
        }
        if (list.limit2 >= 0) {
            f.Focus("txtField2");
            EXPECT_EQ(form.txtField2.MaxLength(), list.limit2);
        }
        if (form.txtField3.Visible()) {
            f.Focus("txtField3");
            EXPECT_EQ(form.txtField3.MaxLength(), 0);
        }
        f.CloseBox();
    });
}

TEST_P(EveryList, NothingCanBeDoneBeforeTheGridHadTheFocus)
{
    Open(s, GetParam().id, [&](Dialog& f) {
        EXPECT_EQ(f.FocusedControl(), "SSTab1");
        EXPECT_EQ(Buttons(f), "----");
        f.CloseBox();
    });
}

TEST_P(EveryList, TheFirstRowStandsInTheEditLineAndOkClosesWithoutAQuestion)
{
    const ListCase& list = GetParam();
    Open(s, list.id, [&](Dialog& f) {
        F_Tabellen2& form = List(f);
        EXPECT_EQ(form.txtField1.Text(), form.DataGrid1.CellText(0, 0));
        f.Click("btnOK");
        EXPECT_FALSE(f.Form().IsLoaded());
    });
    EXPECT_FALSE(FormInstance<F_Tabellen2>::Exists());
}

TEST_P(EveryList, SmallerThanItsLimitsItGrowsBackAtOnce)
{
    Open(s, GetParam().id, [&](Dialog& f) {
        f.Resize(3000, 2000);
        EXPECT_EQ(f.Form().Width(), 6000);
        EXPECT_EQ(f.Form().Height(), 4000);
        f.Resize(7000, 3999);
        EXPECT_NEAR(f.Form().Width(), 7000, test::kPixel);
        EXPECT_EQ(f.Form().Height(), 4000);
        f.CloseBox();
    });
}

TEST_P(EveryList, FramesStripAndGridFollowTheForm)
{
    Open(s, GetParam().id, [&](Dialog& f) {
        F_Tabellen2& form = List(f);
        for (const auto& [width, height] : {std::pair{9000, 7000}, std::pair{12000, 9000}, std::pair{6000, 4000}}) {
            f.Resize(width, height);
            EXPECT_EQ(form.SSTab1.Width(), form.ScaleWidth() - 1600);
            EXPECT_EQ(form.SSTab1.Height(), form.Frame2.Height() - 375);
            EXPECT_EQ(form.Frame1.Width(),
                      form.SSTab1.Width() - 240 - 160 * (form.SSTab1.Tabs() / form.SSTab1.TabsPerRow()));
            EXPECT_EQ(form.Frame1.Height(), form.SSTab1.Height() - 1200);
            EXPECT_EQ(form.DataGrid1.Width(), form.Frame1.Width() - 240);
            EXPECT_EQ(form.DataGrid1.Height(), form.Frame1.Height() - 840);
            EXPECT_LT(form.btnOK.Left() + form.btnOK.Width(), form.ScaleWidth());
            EXPECT_LT(form.btnOK.Top() + form.btnOK.Height(), form.ScaleHeight());
            EXPECT_GT(form.btnOK.Left(), form.SSTab1.Left() + form.SSTab1.Width());
        }
        f.CloseBox();
    });
}

// --- singular lists ---

TEST(ListOpen, FederalStatesGetTheLimitOfTheirNameFromTheFirstBoxOnly)
{
    Scenario s("lists.sql");
    Open(s, kFederalStates, [&](Dialog& f) {
        f.Focus("txtField2");
        EXPECT_EQ(List(f).txtField2.MaxLength(), 0);
        f.Focus("txtField1");
        EXPECT_EQ(List(f).txtField2.MaxLength(), 50);
        f.CloseBox();
    });
}

TEST(ListOpen, TheLabelsAreThoseOfTheSessionsLanguage)
{
    Scenario s("lists.sql");
    s.kvxvar().strLanguage = "ENGLISH";
    Open(s, kLabels, [&](Dialog& f) {
        EXPECT_EQ(List(f).Data1.RecordSource(),
                  "SELECT ENGLISH, CUSTOM_ENGLISH, ID_STRING FROM STRINGS WHERE LABEL_GROUP = '1LV'  ORDER BY ENGLISH");
        EXPECT_EQ(Rows(f), (Lines{"Haulage|", "Lot number|"}));
        f.CloseBox();
    });
}

TEST(ListOpen, FormAndButtonsSpeakTheSessionsLanguage)
{
    Scenario s("lists.sql");
    s.kvxvar().strLanguage = "ENGLISH";
    Open(s, kReceipts, [&](Dialog& f) {
        EXPECT_EQ(f.Form().Caption(), "Tables");
        EXPECT_EQ(List(f).btnNeu.Caption(), "&New");
        EXPECT_EQ(List(f).btnSpeichern.Caption(), "&Save");
        EXPECT_EQ(List(f).SSTab1.TabCaption(0), s.Text(1130));
        f.CloseBox();
    });
}

TEST(ListOpen, OnlyRowsOfTheUsersOwnLevelAndCommonOnesAreListed)
{
    Scenario s("lists.sql");
    s.kvxvar().ID_ACCESS_LEVELS = 2;
    Open(s, kRelations, [&](Dialog& f) {
        EXPECT_EQ(Rows(f).size(), 3U);
        f.CloseBox();
    });
    s.kvxvar().ID_ACCESS_LEVELS = 0;
    Open(s, kRelations, [&](Dialog& f) {
        EXPECT_EQ(Rows(f).size(), 2U);
        f.CloseBox();
    });
}

TEST(ListOpen, AnUnknownIdOpensAnEmptyFormThatCloses)
{
    for (const std::int32_t id : {0, 14, 4711}) {
        Scenario s("lists.sql");
        const std::string changed = Open(s, id, [&](Dialog& f) {
            EXPECT_EQ(List(f).Data1.RecordSource(), "");
            EXPECT_EQ(List(f).bytFieldCount, 0);
            f.Focus("DataGrid1");
            f.Click("btnLoschen");
            f.Click("btnNeu");
            f.Click("cmdPrint");
            f.Resize(9000, 9000);
            f.Click("btnOK");
            EXPECT_FALSE(f.Form().IsLoaded());
        });
        EXPECT_EQ(changed, "Falsch");
        EXPECT_EQ(s.Statements(), Lines{}) << id;
    }
}

TEST(ListOpen, AStatementThatFailsReachesTheHostAndTheNextListStartsFromTheDesign)
{
    Scenario s("lists.sql");
    s.Execute("DROP TABLE F2");
    s.In("F_Tabellen2", [](Dialog& f) { f.SelectTab("SSTab1", 1); });
    std::string path;
    try {
        c_Tabellen2().Tabellen2(s.kvxvar(), "Liste", path, kFreeFields, 0, "Anna");
        ADD_FAILURE() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, ado::kErrNoSuchTable);
    }
    ASSERT_TRUE(FormInstance<F_Tabellen2>::Exists());
    EXPECT_TRUE(FormInstance<F_Tabellen2>::Get()->IsLoaded());

    Open(s, kOccasions, [&](Dialog& f) {
        EXPECT_EQ(List(f).SSTab1.TabsPerRow(), 3);
        EXPECT_EQ(List(f).SSTab1.Tab(), 0);
        EXPECT_EQ(List(f).txtField1.Width(), 3000);
        EXPECT_EQ(Buttons(f), "----");
        f.Click("btnOK");
    });
    EXPECT_FALSE(FormInstance<F_Tabellen2>::Exists());
}

TEST(ListOpen, AFirstStatementThatFailsShowsNothing)
{
    Scenario s("lists.sql");
    s.FailStatement(2, ado::kErrTimeout, "zu langsam");  // the first is the customer's wording of the tabs
    std::string path;
    try {
        c_Tabellen2().Tabellen2(s.kvxvar(), "Liste", path, kReceipts, 0, "Anna");
        ADD_FAILURE() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, ado::kErrTimeout);
        EXPECT_EQ(error.Description, "zu langsam");
    }
    EXPECT_TRUE(s.Desktop().Dialogs().empty());
}

}  // namespace kvx
