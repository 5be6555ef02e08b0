#include "ui/FormTest.h"

#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/Frame.h"
#include "ui/ListBox.h"
#include "ui/OptionButton.h"

// Check boxes, option buttons, list boxes and combo boxes.
namespace kvx::ui::testing {
namespace {

class Choices : public TestForm {
public:
    Choices()
    {
        Watch(check.Click, "check.Click");
        Watch(one.Click, "one.Click");
        Watch(two.Click, "two.Click");
        Watch(list.Click, "list.Click");
        Watch(list.DblClick, "list.DblClick");
        Watch(combo.Click, "combo.Click");
        Watch(combo.Change, "combo.Change");
        Watch(combo.UserPicked, "combo.UserPicked");
        design = [this] {
            for (const char* text : {"Eiche", "Buche", "Fichte"}) {
                list.AddItem(text);
                combo.AddItem(text);
            }
        };
    }
    CheckBox check{*this, "check"};
    OptionButton one{*this, "one"}, two{*this, "two"}, elsewhere{*this, "elsewhere"};
    Frame frame{*this, "frame"};
    ListBox list{*this, "list"};
    ComboBox combo{*this, "combo"};
};

class Choice : public FormTest {
protected:
    void SetUp() override
    {
        form.Load();
        form.log.clear();
    }
    Choices form;
};

TEST_F(Choice, ACheckBoxTakesOffOnAndGreyOnly)
{
    form.check.SetValue(vbGrayed);
    EXPECT_EQ(form.check.Value(), 2);
    EXPECT_EQ(ErrorOf([&] { form.check.SetValue(3); }), 380);
    EXPECT_EQ(ErrorOf([&] { form.check.Object()->Put("Value", true); }), 380);
    EXPECT_EQ(form.check.Value(), 2);
}

TEST_F(Choice, AssigningACheckBoxClicksItOnAChange)
{
    form.check.SetValue(vbChecked);
    form.check.SetValue(vbChecked);
    EXPECT_EQ(form.log, Log{"check.Click"});
}

TEST_F(Choice, AnOptionClicksWhenItBecomesTrueAndSwitchesTheOthersOffSilently)
{
    form.one.SetValue(true);
    form.two.SetValue(true);
    form.two.SetValue(false);
    EXPECT_EQ(form.log, (Log{"one.Click", "two.Click"}));
    EXPECT_FALSE(form.one.Value());
}

TEST_F(Choice, OptionsOfAnotherContainerAreAnotherGroup)
{
    form.elsewhere.SetContainer(&form.frame);
    form.one.SetValue(true);
    form.elsewhere.SetValue(true);
    EXPECT_TRUE(form.one.Value());
}

TEST_F(Choice, InsideClickThePropertyHasTheNewValue)
{
    Log seen;
    form.check.Click.Connect([&] { seen.push_back(std::to_string(form.check.Value())); });
    form.list.Click.Connect([&] { seen.push_back(form.list.Text()); });
    form.combo.Click.Connect([&] { seen.push_back(form.combo.Text()); });
    form.check.SetValue(1);
    form.list.SetListIndex(1);
    form.combo.SetListIndex(2);
    EXPECT_EQ(seen, (Log{"1", "Buche", "Fichte"}));
}

TEST_F(Choice, TheUserTogglesChecksAndArrowsThroughOptions)
{
    Run(form, [&](User& user) {
        user.Click("check");
        user.Keys(" ");
        user.Click("one");
        user.Keys("{DOWN}");
        EXPECT_EQ(user.FocusedControl(), "two");
    });
    EXPECT_EQ(form.log, (Log{"check.Click", "check.Click", "one.Click", "two.Click"}));
    EXPECT_TRUE(form.two.Value());
}

TEST_F(Choice, NewIndexTellsWhereAnItemWent)
{
    form.list.AddItem("Ahorn", 0);
    EXPECT_EQ(form.list.NewIndex(), 0);
    EXPECT_EQ(form.list.ItemData(0), 0);
    form.list.AddItem("Zeder");
    EXPECT_EQ(form.list.NewIndex(), 4);
    form.list.RemoveItem(1);
    EXPECT_EQ(form.list.NewIndex(), -1);
    EXPECT_EQ(ErrorOf([&] { form.list.AddItem("x", 99); }), 5);
}

TEST_F(Choice, ASortedListKeepsItsOrderWhateverTheCase)
{
    form.list.Clear();
    form.list.SetSorted(true);
    for (const char* text : {"fichte", "Buche", "ahorn", "Eiche"})
        form.list.AddItem(text);
    EXPECT_EQ(form.list.List(0) + form.list.List(1) + form.list.List(2) + form.list.List(3), "ahornBucheEichefichte");
}

TEST_F(Choice, ListIndexClicksOnAChangeAndIsChecked)
{
    form.list.SetListIndex(1);
    form.list.SetListIndex(1);
    form.list.SetListIndex(-1);
    EXPECT_EQ(form.log, (Log{"list.Click", "list.Click"}));
    EXPECT_EQ(ErrorOf([&] { form.list.SetListIndex(3); }), 380);
    EXPECT_EQ(ErrorOf([&] { form.list.SetListIndex(-2); }), 380);
}

TEST_F(Choice, SelectedChoosesInASingleChoiceList)
{
    form.list.SetSelected(2, true);
    EXPECT_EQ(form.list.ListIndex(), 2);
    form.list.SetSelected(2, true);
    form.list.SetSelected(2, false);
    EXPECT_EQ(form.list.ListIndex(), -1);
    EXPECT_EQ(form.log, (Log{"list.Click", "list.Click"}));
    EXPECT_EQ(ErrorOf([&] { form.list.SetSelected(3, true); }), 381);
}

TEST_F(Choice, WithMultipleChoiceListIndexIsNotTheSelection)
{
    form.list.SetMultiSelect(vbMultiSelectExtended);
    form.list.SetSelected(0, true);
    form.list.SetSelected(2, true);
    form.list.SetSelected(2, true);
    EXPECT_EQ(form.log, (Log{"list.Click", "list.Click"}));
    EXPECT_EQ(form.list.SelCount(), 2);
    EXPECT_EQ(form.list.ListIndex(), -1);
    Run(form, [&](User& user) { user.Pick("list", 1, vbCtrlMask); });
    EXPECT_EQ(form.list.SelCount(), 3);
    EXPECT_EQ(form.list.ListIndex(), 1);
}

TEST_F(Choice, RemovingItemsMovesTheChoiceWithoutClick)
{
    form.list.SetListIndex(2);
    form.log.clear();
    form.list.RemoveItem(0);
    EXPECT_EQ(form.list.ListIndex(), 1);
    form.list.RemoveItem(1);
    EXPECT_EQ(form.list.ListIndex(), -1);
    EXPECT_EQ(form.log, Log{});
    EXPECT_EQ(ErrorOf([&] { form.list.RemoveItem(5); }), 5);
}

TEST_F(Choice, OutOfRangeListIsEmptyAndItemDataIsError381)
{
    EXPECT_EQ(form.list.List(-1), "");
    EXPECT_EQ(form.list.List(3), "");
    EXPECT_EQ(ErrorOf([&] { form.list.ItemData(-1); }), 381);
    EXPECT_EQ(ErrorOf([&] { form.list.SetItemData(3, 1); }), 381);
}

TEST_F(Choice, ClearEmptiesTheListWithoutClick)
{
    form.list.SetListIndex(1);
    form.list.SetTopIndex(2);
    form.log.clear();
    form.list.Clear();
    EXPECT_EQ(form.list.ListIndex(), -1);
    EXPECT_EQ(form.list.ListCount(), 0);
    EXPECT_EQ(form.list.TopIndex(), 0);
    EXPECT_EQ(form.log, Log{});
}

TEST_F(Choice, ADoubleClickComesAfterAClickAndArrowsClick)
{
    Run(form, [&](User& user) {
        user.Pick("list", "Eiche");
        form.log.clear();
        user.DblClick("list");
        EXPECT_EQ(form.log, (Log{"list.Click", "list.DblClick"}));
        form.log.clear();
        user.Keys("{DOWN}");
        EXPECT_EQ(form.log, Log{"list.Click"});
        EXPECT_EQ(form.list.Text(), "Buche");
    });
}

TEST_F(Choice, AComboSetsTextByListIndexAndClicksWithoutChange)
{
    form.combo.SetListIndex(1);
    EXPECT_EQ(form.combo.Text(), "Buche");
    form.combo.SetListIndex(1);
    form.combo.SetListIndex(-1);
    EXPECT_EQ(form.combo.Text(), "");
    EXPECT_EQ(form.log, (Log{"combo.Click", "combo.Click"}));
}

TEST_F(Choice, TextOfAComboWithEditFieldChangesButChoosesNothing)
{
    form.combo.SetText("Buche");
    form.combo.SetText("Buche");
    EXPECT_EQ(form.combo.ListIndex(), -1);
    EXPECT_EQ(form.log, Log{"combo.Change"});
}

TEST_F(Choice, TextOfAListOnlyComboChoosesTheItem)
{
    form.combo.SetStyle(vbComboDropDownList);
    form.combo.SetText("FICHTE");
    EXPECT_EQ(form.combo.ListIndex(), 2);
    EXPECT_EQ(form.combo.Text(), "Fichte");
    EXPECT_EQ(form.log, Log{"combo.Click"});
    EXPECT_EQ(ErrorOf([&] { form.combo.SetText("Palme"); }), 383);
}

TEST_F(Choice, ALockedComboIsTheCodesOnly)
{
    form.combo.SetLocked(true);
    Run(form, [&](User& user) {
        user.Pick("combo", "Eiche");
        user.Type("combo", "x");
        user.Keys("{DOWN}");
        EXPECT_EQ(form.combo.Text(), "");
    });
    form.combo.SetListIndex(0);
    EXPECT_EQ(form.combo.Text(), "Eiche");
}

TEST_F(Choice, ItemsOfAComboComeAndGoSilentlyAndClearEmptiesTheText)
{
    form.combo.SetListIndex(0);
    form.log.clear();
    form.combo.AddItem("Tanne");
    form.combo.RemoveItem(2);
    EXPECT_EQ(form.combo.Text(), "Eiche");
    form.combo.Clear();
    EXPECT_EQ(form.combo.Text(), "");
    EXPECT_EQ(form.log, Log{});
}

TEST_F(Choice, TheUsersPickIsTellableFromTheCodesChoice)
{
    Run(form, [&](User& user) {
        form.combo.SetListIndex(0);
        EXPECT_EQ(form.log, Log{"combo.Click"});
        user.Pick("combo", "Buche");
    });
    EXPECT_EQ(form.log, (Log{"combo.Click", "combo.Click", "combo.UserPicked"}));
}

TEST_F(Choice, ALetterChoosesInAListOnlyCombo)
{
    form.combo.SetStyle(vbComboDropDownList);
    Run(form, [&](User& user) {
        user.Focus("combo");
        user.Keys("f");
        EXPECT_EQ(form.combo.Text(), "Fichte");
        user.Keys("{HOME}{DOWN}");
        EXPECT_EQ(form.combo.Text(), "Buche");
    });
}

TEST_F(Choice, ADropTellsWhereAndFromWhich)
{
    std::string told;
    form.list.DragDrop.Connect([&](Control& source, std::int32_t x, std::int32_t y) {
        told = std::string{source.Name()} + " " + std::to_string(x) + " " + std::to_string(y / form.list.ItemHeight());
    });
    Run(form, [&](User& user) { user.Drag("list", "list", 30, form.list.ItemHeight() * 2 + 5); });
    EXPECT_EQ(told, "list 30 2");
}

}  // namespace
}  // namespace kvx::ui::testing
