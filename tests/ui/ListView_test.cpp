#include "ui/FormTest.h"

#include "basic/Convert.h"
#include "ui/ListView.h"

namespace kvx::ui::testing {
namespace {

class Rows : public TestForm {
public:
    Rows()
    {
        list.ItemClick.Connect([this](ListItem& item) { log.push_back("ItemClick " + item.Text()); });
        list.ItemCheck.Connect([this](ListItem& item) { log.push_back("ItemCheck " + item.Text()); });
        list.ColumnClick.Connect([this](ColumnHeader& column) { log.push_back("ColumnClick " + column.Text()); });
        Watch(list.Click, "Click");
        design = [this] {
            list.SetViewStyle(lvwReport);
            list.SetCheckboxes(true);
            list.SetHeight(3000);
            list.ColumnHeaders().Add("C001", "Name", 2000);
            list.ColumnHeaders().Add("C002", "Ort", 1000);
            for (const char* name : {"Berta", "Anton", "Cäsar"})
                list.ListItems().Add("ID" + std::string{name}, name).SetSubItems(1, "Wald");
        };
    }
    ListView list{*this, "list"};
};

class ListViews : public FormTest {
protected:
    void SetUp() override { form.Load(); }
    Rows form;
    ListView& list = form.list;
};

TEST_F(ListViews, RowsAndColumnsCountFromOneAndComeAtTheEnd)
{
    EXPECT_EQ(list.ListItems()[1].Text(), "Berta");
    EXPECT_EQ(list.ListItems()["IDAnton"].Index(), 2);
    list.ListItems().Add(1, "IDDora", "Dora");
    EXPECT_EQ(list.ListItems()["IDAnton"].Index(), 3);
    EXPECT_EQ(list.ColumnHeaders()[2].Text(), "Ort");
    EXPECT_EQ(list.ColumnHeaders()[2].Left(), 2000);
    EXPECT_EQ(list.ColumnHeaders().Add("C003", "Fläche").Width(), 1440);
}

TEST_F(ListViews, KeysHaveTheTreesErrors)
{
    EXPECT_EQ(ErrorOf([&] { list.ListItems().Add("IDAnton", "x"); }), 35602);
    EXPECT_EQ(ErrorOf([&] { list.ListItems().Add("12", "x"); }), 35603);
    EXPECT_EQ(ErrorOf([&] { list.ListItems().Add(9, "x", "x"); }), 35600);
    EXPECT_EQ(ErrorOf([&] { list.ListItems()[std::string_view{"nobody"}]; }), 35601);
    EXPECT_EQ(ErrorOf([&] { list.ListItems()[4]; }), 35600);
    EXPECT_EQ(ErrorOf([&] { list.ColumnHeaders().Add("C001", "x"); }), 35602);
    EXPECT_EQ(ErrorOf([&] { list.ColumnHeaders()[3]; }), 35600);
    EXPECT_EQ(list.ListItems().Count(), 3);
}

TEST_F(ListViews, SubItemsStandInTheFurtherColumns)
{
    ListItem& item = list.ListItems()[1];
    EXPECT_EQ(item.SubItems(1), "Wald");
    EXPECT_EQ(ErrorOf([&] { item.SetSubItems(2, "x"); }), 380);
    list.ColumnHeaders().Add("C003", "Fläche");
    item.SetSubItems(2, "12,5");
    EXPECT_EQ(item.SubItems(2), "12,5");
    EXPECT_EQ(list.ListItems()[2].SubItems(2), "");
}

TEST_F(ListViews, ChecksByCodeAreSilentAndAClickOnTheBoxTellsWithoutItemClick)
{
    Run(form, [&](User& user) {
        list.ListItems()[1].SetChecked(true);
        EXPECT_EQ(form.log, Log{});
        user.ToggleCheck("list", "IDAnton");
        user.ToggleCheck("list", 1);
    });
    EXPECT_EQ(form.log, (Log{"ItemCheck Anton", "ItemCheck Berta"}));
    EXPECT_TRUE(list.ListItems()[2].Checked());
    EXPECT_FALSE(list.ListItems()[1].Checked());
}

TEST_F(ListViews, SelectionByCodeIsSilentAndTheUsersIsTold)
{
    Run(form, [&](User& user) {
        list.SetSelectedItem(&list.ListItems()[1]);
        EXPECT_TRUE(list.ListItems()[1].Selected());
        EXPECT_EQ(form.log, Log{});
        user.PickRow("list", "IDAnton");
        EXPECT_FALSE(list.ListItems()[1].Selected());
        user.Keys("{DOWN}");
        EXPECT_EQ(list.SelectedItem()->Text(), "Cäsar");
    });
    EXPECT_EQ(form.log, (Log{"ItemClick Anton", "Click", "ItemClick Cäsar", "Click"}));
}

TEST_F(ListViews, SelectedDoesNotMoveSelectedItemWithMultipleChoice)
{
    list.SetMultiSelect(true);
    list.SetSelectedItem(&list.ListItems()[1]);
    list.ListItems()[3].SetSelected(true);
    EXPECT_EQ(list.SelectedItem()->Text(), "Berta");
    EXPECT_TRUE(list.ListItems()[1].Selected());
    EXPECT_TRUE(list.ListItems()[3].Selected());
}

TEST_F(ListViews, ShiftAndCtrlExtendTheChoice)
{
    list.SetMultiSelect(true);
    Run(form, [&](User& user) {
        user.PickRow("list", 1);
        user.PickRow("list", 3, vbShiftMask);
        EXPECT_TRUE(list.ListItems()[2].Selected());
        user.PickRow("list", 2, vbCtrlMask);
        EXPECT_FALSE(list.ListItems()[2].Selected());
        EXPECT_TRUE(list.ListItems()[3].Selected());
    });
}

TEST_F(ListViews, PlacesOfRowsAndColumnsSayWhatWasClicked)
{
    const ListItem& second = list.ListItems()[2];
    EXPECT_EQ(second.Top(), list.HeaderHeight() + list.RowHeight());
    EXPECT_EQ(second.Height(), list.RowHeight());
    list.UserScroll(2);
    EXPECT_EQ(second.Top(), list.HeaderHeight());
}

TEST_F(ListViews, RemovingForgetsKeysAndSelection)
{
    list.SetSelectedItem(&list.ListItems()["IDBerta"]);
    list.ListItems().Remove("IDBerta");
    EXPECT_EQ(list.SelectedItem(), nullptr);
    EXPECT_EQ(list.ListItems()["IDAnton"].Index(), 1);
    list.ListItems().Add("IDBerta", "wieder");
    list.ListItems().Clear();
    EXPECT_EQ(list.ListItems().Find("IDBerta"), nullptr);
    list.ColumnHeaders().Clear();
    EXPECT_EQ(list.ColumnHeaders().Count(), 0);
}

TEST_F(ListViews, AHandlerMayRemoveTheRowItIsToldOf)
{
    list.ItemClick.Connect([&](ListItem& item) {
        list.ListItems().Clear();
        EXPECT_EQ(item.Text(), "Anton");
        EXPECT_EQ(item.Index(), 0);
    });
    Run(form, [&](User& user) { user.PickRow("list", 2); });
    EXPECT_EQ(list.ListItems().Count(), 0);
}

TEST_F(ListViews, SortsByColumnAndKeepsItsOrder)
{
    list.SetSorted(true);
    EXPECT_EQ(list.ListItems()[1].Text(), "Anton");
    list.ListItems().Add("IDB", "bruno");
    EXPECT_EQ(list.ListItems()[3].Text(), "bruno");
    list.ListItems()["IDB"].SetSubItems(1, "Acker");
    list.SetSortKey(1);
    EXPECT_EQ(list.ListItems()[1].Text(), "bruno");
    list.SetSortOrder(1);
    EXPECT_EQ(list.ListItems()[4].Text(), "bruno");
}

TEST_F(ListViews, LateBindingReachesRowsAndColumns)
{
    const basic::ObjectRef object = list.Object();
    const basic::ObjectRef columns = object->Get("ColumnHeaders").ToObject();
    std::vector<basic::Variant> args{basic::Variant{}, "C00399", "Fläche", std::int32_t{280}};
    const basic::ObjectRef column = columns->Call("Add", args).ToObject();
    EXPECT_EQ(basic::CLng(column->Get("Width")), 280);
    EXPECT_EQ(basic::CLng(columns->Get("Count")), 3);
    const basic::ObjectRef items = object->Get("ListItems").ToObject();
    const basic::Variant second{std::int32_t{2}};
    const basic::ObjectRef item = items->Get("Item", {&second, 1}).ToObject();
    const basic::Variant one{std::int32_t{1}};
    item->Put("SubItems", "Feld", {&one, 1});
    EXPECT_EQ(list.ListItems()[2].SubItems(1), "Feld");
    item->Put("Checked", true);
    EXPECT_TRUE(list.ListItems()[2].Checked());
    std::vector<basic::Variant> last{std::int32_t{3}};
    columns->Call("Remove", last);
    EXPECT_EQ(list.ColumnHeaders().Count(), 2);
    EXPECT_EQ(ErrorOf([&] { items->Get("Colour"); }), 438);
    std::vector<basic::Variant> none;
    items->Call("Clear", none);
    EXPECT_EQ(basic::CStr(item->Get("Text")), "Anton") << "a row that is held outlives its list";
}

TEST_F(ListViews, AColumnClickTellsItsColumn)
{
    Run(form, [](User& user) { user.ClickColumn("list", 2); });
    EXPECT_EQ(form.log, Log{"ColumnClick Ort"});
}

}  // namespace
}  // namespace kvx::ui::testing
