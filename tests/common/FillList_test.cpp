#include "common/CommonTest.h"
#include "common/M_Common.h"

namespace kvx::test {

using ado::testing::Column;
using ado::testing::Int;
using ado::testing::Null;

namespace {

Texts ItemsOf(const ui::ComboBox& combo)
{
    Texts items;
    for (std::int32_t i = 0; i < combo.ListCount(); ++i)
        items.push_back(combo.List(i));
    return items;
}

}  // namespace

class FillListTest : public CommonTest {
protected:
    FillListTest()
    {
        form.Load();
        database.answers["SELECT KURZTEXT FROM PROJEKTE"] = {
            .columns = {Column("KURZTEXT", ado::adVarWChar, 20), Column("LANGTEXT", ado::adVarWChar, 50),
                        Column("ID", ado::adInteger)},
            .rows = {{"P1", "Pflanzung Süd", Int(11)}, {Null(), "ohne", Int(12)}, {"P3", Null(), Int(13)}}};
        database.answers["SELECT KURZTEXT FROM PLAN"] = {.columns = {Column("KURZTEXT", ado::adVarWChar, 20)},
                                                         .rows = {{"Plan 1"}}};
        database.answers["SELECT HA FROM HOLZART"] = {.columns = {Column("HA", ado::adVarWChar, 20)},
                                                      .rows = {{"FI"}, {"BU"}}};
    }
    void Fill(std::string_view kind, const ListItemArguments& arguments = {})
    {
        FillList(kind, form.Combo1.Object(), arguments, kvxvar);
    }
    SmallForm form;
};

TEST_F(FillListTest, ProjectsAreTheRowsOfProjekte)
{
    Fill("PROJEKT");
    EXPECT_EQ(database.texts, (Texts{"SELECT KURZTEXT FROM PROJEKTE"}));
    EXPECT_EQ(ItemsOf(form.Combo1), (Texts{"", "P1", "", "P3"}));
}

TEST_F(FillListTest, PlanNumbersAreTheRowsOfPlan)
{
    Fill("PLANNUMMER");
    EXPECT_EQ(database.texts, (Texts{"SELECT KURZTEXT FROM PLAN"}));
    EXPECT_EQ(ItemsOf(form.Combo1), (Texts{"", "Plan 1"}));
}

TEST_F(FillListTest, SpeciesAreTheRowsOfHolzart)
{
    Fill("HOLZART");
    EXPECT_EQ(database.texts, (Texts{"SELECT HA FROM HOLZART"}));
    EXPECT_EQ(ItemsOf(form.Combo1), (Texts{"", "FI", "BU"}));
}

TEST_F(FillListTest, TheKindIgnoresCase)
{
    Fill("Holzart");
    EXPECT_EQ(ItemsOf(form.Combo1), (Texts{"", "FI", "BU"}));
}

TEST_F(FillListTest, FormerItemsGo)
{
    form.Combo1.AddItem("alt");
    Fill("HOLZART");
    EXPECT_EQ(ItemsOf(form.Combo1), (Texts{"", "FI", "BU"}));
}

TEST_F(FillListTest, AnUnknownKindLeavesTheEmptyItemAlone)
{
    form.Combo1.AddItem("alt");
    Fill("SORTE");
    EXPECT_EQ(database.texts, Texts{});
    EXPECT_EQ(ItemsOf(form.Combo1), (Texts{""}));
}

TEST_F(FillListTest, WithoutADisplayFieldTheTextStaysEmpty)
{
    Fill("HOLZART");
    EXPECT_EQ(form.Combo1.Text(), "");
}

TEST_F(FillListTest, TheDisplayFieldIsShownAndTheTextFollowsIt)
{
    Fill("PROJEKT", {.displayField = "LANGTEXT"});
    EXPECT_EQ(ItemsOf(form.Combo1), (Texts{"", "Pflanzung Süd", "ohne", ""}));
    EXPECT_EQ(form.Combo1.Text(), "");
    database.answers["SELECT KURZTEXT FROM PROJEKTE"].rows.pop_back();
    Fill("PROJEKT", {.displayField = "LANGTEXT"});
    EXPECT_EQ(form.Combo1.Text(), "ohne");
}

TEST_F(FillListTest, TheDataFieldGoesToItemData)
{
    Fill("PROJEKT", {.dataField = "ID"});
    EXPECT_EQ(form.Combo1.ItemData(1), 11);
    EXPECT_EQ(form.Combo1.ItemData(2), 12);
    EXPECT_EQ(form.Combo1.ItemData(3), 13);
}

TEST_F(FillListTest, AListBoxIsFilledTheSameWay)
{
    FillList("HOLZART", form.List1.Object(), {}, kvxvar);
    ASSERT_EQ(form.List1.ListCount(), 3);
    EXPECT_EQ(form.List1.List(0), "");
    EXPECT_EQ(form.List1.List(1), "FI");
    EXPECT_EQ(form.List1.List(2), "BU");
}

TEST_F(FillListTest, AListBoxFollowsTheDisplayFieldByItsChoice)
{
    database.answers["SELECT KURZTEXT FROM PROJEKTE"].rows.pop_back();
    FillList("PROJEKT", form.List1.Object(), {.displayField = "LANGTEXT"}, kvxvar);
    ASSERT_EQ(form.List1.ListCount(), 3);
    EXPECT_EQ(form.List1.List(1), "Pflanzung Süd");
    EXPECT_EQ(form.List1.Text(), "ohne");
    EXPECT_EQ(form.List1.ListIndex(), 2);
}

TEST_F(FillListTest, ReservedArgumentsChangeNothing)
{
    Fill("HOLZART", {.reserved1 = "a", .reserved2 = "b", .reserved3 = "c", .reserved4 = "d"});
    EXPECT_EQ(ItemsOf(form.Combo1), (Texts{"", "FI", "BU"}));
}

TEST_F(FillListTest, ATableThatCannotBeReadIsTheCallersError)
{
    database.answers["SELECT KURZTEXT FROM PLAN"] = {.error = basic::Error(ado::kErrStatement, "reserved word")};
    EXPECT_EQ(ErrorOf([this] { Fill("PLANNUMMER"); }), ado::kErrStatement);
    EXPECT_EQ(ItemsOf(form.Combo1), (Texts{""}));
}

TEST_F(FillListTest, NoListIsAnError)
{
    EXPECT_EQ(ErrorOf([this] { FillList("HOLZART", {}, {}, kvxvar); }), basic::kErrObjectNotSet);
}

TEST_F(FillListTest, LeavesNoRecordsetOpen)
{
    Fill("PROJEKT");
    EXPECT_EQ(database.liveStatements, 0);
}

class ComboIndexOfFieldTest : public CommonTest {
protected:
    ComboIndexOfFieldTest()
    {
        form.Load();
        for (const char* item : {"", "FI", "BU", "12,5"})
            form.Combo1.AddItem(item);
    }
    std::int32_t IndexOf(ado::testing::FakeValue value, ado::DataTypeEnum type = ado::adVarWChar)
    {
        database.answers["SELECT HA FROM WALDORT"] = {.columns = {Column("HA", type, 20)}, .rows = {{value}}};
        ado::Recordset recordset;
        recordset.Open("SELECT HA FROM WALDORT", kvxvar.dbAdo);
        return ComboIndexOfField("HA", recordset, form.Combo1);
    }
    SmallForm form;
};

TEST_F(ComboIndexOfFieldTest, IsTheItemThatEqualsTheValue)
{
    EXPECT_EQ(IndexOf("BU"), 2);
}

TEST_F(ComboIndexOfFieldTest, ANumberIsComparedAsItIsShown)
{
    EXPECT_EQ(IndexOf(12.5, ado::adDouble), 3);
}

TEST_F(ComboIndexOfFieldTest, AValueThatNoItemHasIsTheEmptyItem)
{
    EXPECT_EQ(IndexOf("EI"), 0);
    EXPECT_EQ(IndexOf("F"), 0);
}

TEST_F(ComboIndexOfFieldTest, NullIsTheEmptyItem)
{
    EXPECT_EQ(IndexOf(Null()), 0);
}

TEST_F(ComboIndexOfFieldTest, ABlankValueIsTheEmptyItemEvenIfALaterItemIsBlank)
{
    form.Combo1.AddItem("  ");
    EXPECT_EQ(IndexOf("  "), 0);
}

TEST_F(ComboIndexOfFieldTest, AnUnknownFieldIsAnError)
{
    IndexOf("BU");
    ado::Recordset recordset;
    recordset.Open("SELECT HA FROM WALDORT", kvxvar.dbAdo);
    EXPECT_EQ(ErrorOf([&] { ComboIndexOfField("HOLZART", recordset, form.Combo1); }), ado::kErrItemNotFound);
}

}  // namespace kvx::test
