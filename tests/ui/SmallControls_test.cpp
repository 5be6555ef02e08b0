#include "ui/FormTest.h"

#include "basic/Convert.h"
#include "basic/Locale.h"
#include "ui/Button.h"
#include "ui/ControlArray.h"
#include "ui/DTPicker.h"
#include "ui/FileListBox.h"
#include "ui/Image.h"
#include "ui/Label.h"
#include "ui/ProgressBar.h"
#include "ui/SSTab.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"

#include <filesystem>
#include <fstream>

namespace kvx::ui::testing {
namespace {

class Small : public TestForm {
public:
    Small()
    {
        Watch(timer.Tick, "Tick");
        Watch(picker.Change, "picker.Change");
        tab.Click.Connect([this](std::int16_t before) {
            log.push_back("tab.Click " + std::to_string(before) + " -> " + std::to_string(tab.Tab()));
        });
    }
    SSTab tab{*this, "tab"};
    TextBox onPage0{*this, "onPage0"}, onPage1{*this, "onPage1"};
    Timer timer{*this, "timer"};
    ProgressBar progress{*this, "progress"};
    DTPicker picker{*this, "picker"};
    FileListBox files{*this, "files"};
    Label label{*this, "label"};
    ControlArray<TextBox, 3> txtInfo{*this, "txtInfo"};
};

class SmallControls : public FormTest {
protected:
    Small form;
};

basic::Date Day(std::int32_t year, std::int32_t month, std::int32_t day)
{
    return basic::DateOf({.year = year, .month = month, .day = day});
}

TEST_F(SmallControls, ATimerFiresEveryIntervalWhileEnabled)
{
    form.design = [&] { form.timer.SetInterval(500); };
    Run(form, [&](User&) {
        desktop.Advance(499);
        EXPECT_EQ(form.log.size(), 0u);
        desktop.Advance(1001);
        EXPECT_EQ(form.log.size(), 3u);
        form.timer.SetEnabled(false);
        desktop.Advance(5000);
        EXPECT_EQ(form.log.size(), 3u);
    });
}

TEST_F(SmallControls, SwitchingATimerOnStartsTheIntervalAnewAndOnAgainChangesNothing)
{
    form.design = [&] {
        form.timer.SetEnabled(false);
        form.timer.SetInterval(500);
    };
    Run(form, [&](User&) {
        desktop.Advance(400);
        form.timer.SetEnabled(true);
        desktop.Advance(400);
        EXPECT_EQ(form.log.size(), 0u);
        form.timer.SetEnabled(true);
        desktop.Advance(100);
        EXPECT_EQ(form.log.size(), 1u);
    });
}

TEST_F(SmallControls, AnIntervalOfZeroNeverFiresAndTooLongOnesAreRefused)
{
    EXPECT_EQ(ErrorOf([&] { form.timer.SetInterval(65536); }), 380);
    EXPECT_EQ(ErrorOf([&] { form.timer.SetInterval(-1); }), 380);
    Run(form, [&](User&) { desktop.Advance(100000); });
    EXPECT_EQ(form.log, Log{});
}

TEST_F(SmallControls, ATimerNeverFiresInTheMiddleOfCodeButInDoEventsAndUnderAModalChild)
{
    form.design = [&] { form.timer.SetInterval(100); };
    TestForm child{"Child"};
    Run(form, [&](User&) {
        Run(child, [&](User&) { desktop.Advance(100); });
        EXPECT_EQ(form.log, Log{"Tick"});
    });
}

TEST_F(SmallControls, UnloadingTheFormEndsItsTimers)
{
    form.design = [&] { form.timer.SetInterval(100); };
    Run(form, [&](User&) {
        form.Unload();
        desktop.Advance(1000);
    });
    EXPECT_EQ(form.log, Log{});
}

TEST_F(SmallControls, AControlArrayHasBoundsAndError340)
{
    EXPECT_EQ(form.txtInfo.Count(), 3);
    EXPECT_EQ(form.txtInfo.LBound(), 0);
    EXPECT_EQ(form.txtInfo.UBound(), 2);
    EXPECT_EQ(form.txtInfo[1].FullName(), "txtInfo(1)");
    EXPECT_EQ(form.txtInfo[1].Name(), "txtInfo");
    EXPECT_EQ(form.txtInfo[1].Index(), 1);
    EXPECT_EQ(ErrorOf([&] { form.txtInfo[3].SetText(""); }), 340);
    const basic::ObjectRef array = form.txtInfo.Object();
    EXPECT_EQ(basic::CLng(array->Get("Count")), 3);
    EXPECT_EQ(basic::CLng(array->Get("UBound")), 2);
    const basic::Variant missing{std::int32_t{7}};
    EXPECT_EQ(ErrorOf([&] { array->Get("Item", {&missing, 1}); }), 340);
}

TEST_F(SmallControls, ATabClicksOnAChangeWithTheTabBefore)
{
    Run(form, [&](User& user) {
        form.tab.SetTab(1);
        form.tab.SetTab(1);
        user.SelectTab("tab", 2);
    });
    EXPECT_EQ(form.log, (Log{"tab.Click 0 -> 1", "tab.Click 1 -> 2"}));
}

TEST_F(SmallControls, TabsAndCaptionsAreSetAtRunTime)
{
    form.Load();
    form.tab.SetTabs(5);
    form.tab.SetTabsPerRow(2);
    form.tab.SetTabCaption(4, "Preise");
    EXPECT_EQ(form.tab.Rows(), 3);
    EXPECT_EQ(form.tab.TabCaption(4), "Preise");
    EXPECT_EQ(ErrorOf([&] { form.tab.SetTab(5); }), 380);
    EXPECT_EQ(ErrorOf([&] { form.tab.SetTabCaption(5, ""); }), 380);
}

TEST_F(SmallControls, ControlsOnPagesBehindStayVisibleAndTakeSetFocus)
{
    form.design = [&] {
        form.onPage0.SetContainer(&form.tab);
        form.onPage1.SetContainer(&form.tab);
        form.onPage1.SetContainerTab(1);
    };
    Run(form, [&](User& user) {
        EXPECT_TRUE(form.onPage1.Visible());
        EXPECT_FALSE(user.CanReach("onPage1"));
        EXPECT_EQ(ErrorOf([&] { form.onPage1.SetFocus(); }), 0);
        form.tab.SetTab(1);
        EXPECT_TRUE(user.CanReach("onPage1"));
        EXPECT_FALSE(user.CanReach("onPage0"));
    });
}

TEST_F(SmallControls, ProgressStaysInItsRange)
{
    form.Load();
    form.progress.SetMax(10);
    EXPECT_EQ(ErrorOf([&] { form.progress.SetValue(11); }), 380);
    form.progress.SetValue(10);
    form.progress.SetMax(5);
    EXPECT_EQ(form.progress.Value(), 5);
    EXPECT_EQ(ErrorOf([&] { form.progress.SetMax(0); }), 380);
}

TEST_F(SmallControls, ThePickerRefusesDatesOutsideItsRange)
{
    form.Load();
    form.picker.SetMinDate(Day(2024, 1, 1));
    form.picker.SetMaxDate(Day(2024, 12, 31));
    EXPECT_EQ(ErrorOf([&] { form.picker.SetValue(Day(2025, 1, 1)); }), 35773);
    EXPECT_EQ(ErrorOf([&] { form.picker.SetMinDate(Day(2025, 6, 1)); }), 35775);
    EXPECT_EQ(ErrorOf([&] { form.picker.SetMaxDate(Day(2023, 6, 1)); }), 35774);
    EXPECT_EQ(ErrorOf([&] { form.picker.SetMonth(13); }), 380);
}

TEST_F(SmallControls, ALaterMinDatePullsTheValueUp)
{
    form.Load();
    form.picker.SetValue(Day(2024, 3, 1));
    form.picker.SetMinDate(Day(2024, 4, 15));
    EXPECT_EQ(form.picker.Month(), 4);
    EXPECT_EQ(form.picker.Day(), 15);
}

TEST_F(SmallControls, AMonthThatLacksTheDayIsError380)
{
    form.Load();
    form.picker.SetValue(Day(2024, 1, 31));
    EXPECT_EQ(ErrorOf([&] { form.picker.SetMonth(2); }), 380);
    form.picker.SetDay(1);
    form.picker.SetMonth(2);
    EXPECT_EQ(form.picker.Month(), 2);
}

TEST_F(SmallControls, ThePickerChangesOnARealChangeAndNotForItsHandlersCorrection)
{
    form.Load();
    form.picker.Change.Connect([&] { form.picker.SetDay(1); });
    form.picker.SetValue(Day(2024, 7, 20));
    EXPECT_EQ(form.picker.Day(), 1);
    form.picker.SetValue(Day(2024, 7, 1));
    EXPECT_EQ(form.log, Log{"picker.Change"});
}

TEST_F(SmallControls, ThePickersValueCarriesATimeOfDay)
{
    form.Load();
    EXPECT_EQ(basic::PartsOf(form.picker.Value()).hour, 10) << "the desktop's clock when the form was loaded";
    form.picker.SetDay(1);
    EXPECT_EQ(basic::PartsOf(form.picker.Value()).hour, 10);
}

TEST_F(SmallControls, ThePickerShowsItsCustomFormat)
{
    form.Load();
    form.picker.SetValue(Day(2024, 7, 20));
    form.picker.SetFormat(dtpCustom);
    form.picker.SetCustomFormat("MM/yyyy");
    EXPECT_EQ(form.picker.Text(), "07" + basic::CurrentLocale().dateSeparator + "2024");
}

TEST_F(SmallControls, AFileListShowsWhatMatches)
{
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "kvx_ui_files";
    std::filesystem::create_directories(folder / "sub");
    for (const char* name : {"b.TXT", "a.txt", "c.doc"})
        std::ofstream{folder / name} << "x";
    form.design = [&] {
        form.files.SetPath(folder.string());
        form.files.SetPattern("*.txt");
    };
    form.Watch(form.files.Click, "files.Click");
    Run(form, [&](User& user) {
        EXPECT_EQ(user.Lines("files"), (Log{"a.txt", "b.TXT"}));
        user.Pick("files", "b.TXT");
        EXPECT_EQ(form.files.FileName(), "b.TXT");
    });
    EXPECT_EQ(form.log, Log{"files.Click"});
    EXPECT_EQ(ErrorOf([&] { form.files.SetPath((folder / "missing").string()); }), 76);
    std::filesystem::remove_all(folder);
}

TEST_F(SmallControls, APictureKnowsItsSizeInHundredthsOfMillimetres)
{
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "kvx_picture.gif";
    std::ofstream{file, std::ios::binary} << std::string_view{"GIF89a\x60\x00\x30\x00\x00\x00\x00", 13};
    const Picture picture{file.string()};
    EXPECT_EQ(picture.PixelWidth(), 96);
    EXPECT_EQ(picture.Width(), 2540);
    EXPECT_EQ(picture.Height(), 1270);
    std::ofstream{file, std::ios::binary} << "no picture";
    EXPECT_EQ(ErrorOf([&] { Picture{file.string()}; }), 481);
    std::filesystem::remove(file);
    EXPECT_EQ(ErrorOf([&] { Picture{file.string()}; }), 53);
}

TEST_F(SmallControls, ALabelSizesItselfToItsCaption)
{
    form.design = [&] { form.label.SetAutoSize(true); };
    form.Load();
    form.label.SetCaption("&Alter");
    EXPECT_EQ(form.label.Width(), form.TextWidth("Alter"));
}

}  // namespace
}  // namespace kvx::ui::testing
