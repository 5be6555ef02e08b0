#include "common/CommonTest.h"
#include "common/M_Common.h"

namespace kvx::test {

class ShowMessageTest : public CommonTest {};

TEST_F(ShowMessageTest, WithoutATitleIsTitledKorvex)
{
    desktop.Answer("Gespeichert", ui::vbOK);
    ShowMessage("Gespeichert");
    ASSERT_EQ(desktop.Boxes().size(), 1U);
    EXPECT_EQ(desktop.Boxes()[0].title, "Korvex");
    EXPECT_EQ(desktop.Boxes()[0].flags, 0);
}

TEST_F(ShowMessageTest, KeepsATitleOfTheCaller)
{
    desktop.Answer("Gespeichert", ui::vbOK);
    ShowMessage("Gespeichert", ui::vbInformation, "Waldort", "help.chm", 12);
    EXPECT_EQ(desktop.Boxes().at(0).title, "Waldort");
    EXPECT_EQ(desktop.Boxes().at(0).flags, 64);
}

TEST_F(ShowMessageTest, ReturnsTheButton)
{
    desktop.Answer("Ja?", ui::vbNo);
    desktop.Answer("Ja?", ui::vbYes);
    EXPECT_EQ(ShowMessage("Ja?", ui::vbYesNo + ui::vbQuestion), ui::vbNo);
    EXPECT_EQ(ShowMessage("Ja?", ui::vbYesNo + ui::vbQuestion), ui::vbYes);
}

class SetTextIfObjectTest : public CommonTest {};

TEST_F(SetTextIfObjectTest, AssignsTheText)
{
    SmallForm form;
    form.Load();
    SetTextIfObject(form.Text1.Object(), "Nord/ 3");
    EXPECT_EQ(form.Text1.Text(), "Nord/ 3");
}

TEST_F(SetTextIfObjectTest, SkipsNothing)
{
    EXPECT_EQ(ErrorOf([] { SetTextIfObject({}, "Nord"); }), 0);
}

TEST_F(SetTextIfObjectTest, AnObjectWithoutATextIsAnError)
{
    SmallForm form;
    form.Load();
    EXPECT_EQ(ErrorOf([&] { SetTextIfObject(form.Command1.Object(), "Nord"); }), basic::kErrMemberNotFound);
}

class FocusTest : public CommonTest {};

TEST_F(FocusTest, AnEnabledControlGetsIt)
{
    OnForm([](SmallForm& form) {
        FocusIfEnabled(form.Text2);
        EXPECT_TRUE(form.Text2.HasFocus());
    });
}

TEST_F(FocusTest, ADisabledControlIsPassedOver)
{
    OnForm([](SmallForm& form) {
        form.Text2.SetEnabled(false);
        FocusIfEnabled(form.Text2);
        EXPECT_TRUE(form.Text1.HasFocus());
    });
}

TEST_F(FocusTest, AnEnabledControlThatIsHiddenIsAnError)
{
    OnForm([](SmallForm& form) {
        form.Text2.SetVisible(false);
        EXPECT_EQ(ErrorOf([&] { FocusIfEnabled(form.Text2); }), basic::kErrInvalidCall);
    });
}

TEST_F(FocusTest, AVisibleControlGetsIt)
{
    OnForm([](SmallForm& form) {
        FocusIfVisible(form.Text2);
        EXPECT_TRUE(form.Text2.HasFocus());
    });
}

TEST_F(FocusTest, AHiddenControlIsPassedOver)
{
    OnForm([](SmallForm& form) {
        form.Text2.SetVisible(false);
        FocusIfVisible(form.Text2);
        EXPECT_TRUE(form.Text1.HasFocus());
    });
}

TEST_F(FocusTest, AVisibleControlThatIsDisabledIsAnError)
{
    OnForm([](SmallForm& form) {
        form.Text2.SetEnabled(false);
        EXPECT_EQ(ErrorOf([&] { FocusIfVisible(form.Text2); }), basic::kErrInvalidCall);
    });
}

TEST(FilterDigitsKeyTest, DigitsBackspaceAndEnterPass)
{
    for (const std::int32_t key : std::vector<std::int32_t>{'0', '1', '5', '9', 8, 13}) {
        EXPECT_EQ(FilterDigitsKey(key, true, ",", "1,2"), key);
        EXPECT_EQ(FilterDigitsKey(key, false, ",", "1,2"), key);
    }
}

TEST(FilterDigitsKeyTest, OtherKeysAreDropped)
{
    for (const std::int32_t key : std::vector<std::int32_t>{'/', ':', 'a', '-', '+', ' ', '.', 9, 22, 0xE4}) {
        EXPECT_EQ(FilterDigitsKey(key, true, ",", ""), 0) << key;
        EXPECT_EQ(FilterDigitsKey(key, false, ",", ""), 0) << key;
    }
}

TEST(FilterDigitsKeyTest, TheSeparatorPassesOnce)
{
    EXPECT_EQ(FilterDigitsKey(',', true, ",", "12"), ',');
    EXPECT_EQ(FilterDigitsKey(',', true, ",", "12,5"), 0);
}

TEST(FilterDigitsKeyTest, TheSeparatorIsDroppedWhereNoneIsAllowed)
{
    EXPECT_EQ(FilterDigitsKey(',', false, ",", "12"), 0);
}

TEST(FilterDigitsKeyTest, OfALongSeparatorTheFirstCharacterIsTheKey)
{
    EXPECT_EQ(FilterDigitsKey('/', true, "/-", "1"), '/');
    EXPECT_EQ(FilterDigitsKey('-', true, "/-", "1"), 0);
    EXPECT_EQ(FilterDigitsKey('/', true, "/-", "1/2"), '/');
    EXPECT_EQ(FilterDigitsKey('/', true, "/-", "1/-2"), 0);
}

TEST(FilterDigitsKeyTest, AnEmptySeparatorAllowsNone)
{
    EXPECT_EQ(FilterDigitsKey(',', true, "", "12"), 0);
}

class SelectAllOnFocusTest : public CommonTest {};

TEST_F(SelectAllOnFocusTest, MarksTheWholeTextOfATextBox)
{
    OnForm([](SmallForm& form) {
        form.Text1.SetText("Süd äöü");
        form.Text1.SetSelStart(3);
        SelectAllOnFocus();
        EXPECT_EQ(form.Text1.SelStart(), 0);
        EXPECT_EQ(form.Text1.SelLength(), 7);
    });
}

TEST_F(SelectAllOnFocusTest, MarksTheWholeTextOfAComboBox)
{
    OnForm([](SmallForm& form) {
        form.Combo1.SetText("Fichte");
        form.Combo1.SetFocus();
        SelectAllOnFocus();
        EXPECT_EQ(form.Combo1.SelStart(), 0);
        EXPECT_EQ(form.Combo1.SelLength(), 6);
    });
}

TEST_F(SelectAllOnFocusTest, LeavesOtherControlsAlone)
{
    OnForm([](SmallForm& form) {
        form.Command1.SetFocus();
        EXPECT_EQ(ErrorOf([] { SelectAllOnFocus(); }), 0);
        form.List1.SetFocus();
        EXPECT_EQ(ErrorOf([] { SelectAllOnFocus(); }), 0);
    });
}

TEST_F(SelectAllOnFocusTest, TouchesOnlyTheControlThatHasTheFocus)
{
    OnForm([](SmallForm& form) {
        form.Text1.SetText("eins");
        form.Text2.SetText("zwei");
        form.Text2.SetFocus();
        SelectAllOnFocus();
        EXPECT_EQ(form.Text1.SelLength(), 0);
        EXPECT_EQ(form.Text2.SelLength(), 4);
    });
}

TEST(ZeroIfEmptyTest, ABlankTextIsZero)
{
    EXPECT_EQ(ZeroIfEmpty(""), "0");
    EXPECT_EQ(ZeroIfEmpty("   "), "0");
}

TEST(ZeroIfEmptyTest, AnyOtherTextStaysAsItIs)
{
    EXPECT_EQ(ZeroIfEmpty(" 12 "), " 12 ");
    EXPECT_EQ(ZeroIfEmpty("\t"), "\t");
}

class BoxFilters : public CommonTest {
protected:
    BoxFilters() { form.Load(); }
    std::int32_t Number(std::int32_t key, std::string_view format)
    {
        NumberKey(key, form.Text1, format);
        return key;
    }
    std::int32_t Date(std::int32_t key)
    {
        DateKey(key, form.Text1);
        return key;
    }
    SmallForm form;
};

TEST_F(BoxFilters, ANumberBoxTakesWhatItsFormatAllows)
{
    EXPECT_EQ(Number('7', "#####0.00"), '7');
    EXPECT_EQ(Number(',', "#####0.00"), ',');
    EXPECT_EQ(Number('x', "#####0.00"), 0);
    EXPECT_EQ(Number(',', "#####0"), 0);
}

TEST_F(BoxFilters, ANumberBoxIsRewrittenInItsFormat)
{
    form.Text1.SetText("1234,5");
    FormatBox("#####0.00", form.Text1);
    EXPECT_EQ(form.Text1.Text(), "1234,50");
}

TEST_F(BoxFilters, ADateBoxTakesDigitsAndPoints)
{
    EXPECT_EQ(Date('3'), '3');
    EXPECT_EQ(Date('.'), '.');
    EXPECT_EQ(Date('x'), 0);
}

namespace {

struct Export {
    basic::ObjectRef list;
    std::string name;
    basic::Variant argument1, argument2;
};

class RecordingWagon final : public c_Wagon {
public:
    explicit RecordingWagon(std::vector<Export>& exports) : exports_(exports) {}
    bool CheckOrderNumber(const KvxVar&, std::int16_t, std::string_view, const basic::ObjectRef&,
                          const basic::ObjectRef&, std::string_view, const basic::ObjectRef&, std::string_view) override
    {
        return false;
    }
    void ExportListView(const basic::ObjectRef& list, std::string_view name, const basic::Variant& argument1,
                        const basic::Variant& argument2) override
    {
        exports_.push_back({list, std::string(name), argument1, argument2});
    }

private:
    std::vector<Export>& exports_;
};

/// The sibling library with a wagon class that only notes what it is asked for.
class WagonSiblings final : public SiblingLibrary {
public:
    std::unique_ptr<c_Loc> NewLoc() override { return KorvexLoc().NewLoc(); }
    std::unique_ptr<c_DBHelper> NewDBHelper() override { return KorvexLoc().NewDBHelper(); }
    std::unique_ptr<c_DBWriter> NewDBWriter() override { return KorvexLoc().NewDBWriter(); }
    std::unique_ptr<c_Access> NewAccess() override { return KorvexLoc().NewAccess(); }
    std::unique_ptr<c_Dates> NewDates() override { return KorvexLoc().NewDates(); }
    std::unique_ptr<c_FileTools> NewFileTools() override { return KorvexLoc().NewFileTools(); }
    std::unique_ptr<c_ListLayout> NewListLayout() override { return KorvexLoc().NewListLayout(); }
    std::unique_ptr<c_Picker> NewPicker() override { return KorvexLoc().NewPicker(); }
    std::unique_ptr<c_Report> NewReport() override { return KorvexLoc().NewReport(); }
    std::unique_ptr<c_Wagon> NewWagon() override
    {
        ++wagons;
        return std::make_unique<RecordingWagon>(exports);
    }
    std::vector<Export> exports;
    int wagons = 0;
};

}  // namespace

class ExportListViewTest : public CommonTest {
protected:
    ExportListViewTest()
    {
        SetSiblings(&siblings);
        form.Load();
    }
    ~ExportListViewTest() override { Module() = {}; }
    WagonSiblings siblings;
    SmallForm form;
};

TEST_F(ExportListViewTest, HandsTheListOver)
{
    const basic::ObjectRef list = form.List1.Object();
    ExportListView(list, "EXPORTLV", "Titel", std::int32_t{7});
    ASSERT_EQ(siblings.exports.size(), 1U);
    const Export& exported = siblings.exports.front();
    EXPECT_EQ(exported.list, list);
    EXPECT_EQ(exported.name, "EXPORTLV");
    EXPECT_EQ(*exported.argument1.As<std::string>(), "Titel");
    EXPECT_EQ(*exported.argument2.As<std::int32_t>(), 7);
}

TEST_F(ExportListViewTest, OneWagonServesAllExports)
{
    ExportListView(form.List1.Object(), "A", {}, {});
    ExportListView(form.List1.Object(), "B", {}, {});
    EXPECT_EQ(siblings.exports.size(), 2U);
    EXPECT_EQ(siblings.wagons, 1);
}

}  // namespace kvx::test
