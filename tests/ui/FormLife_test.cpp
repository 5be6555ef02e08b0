#include "ui/FormTest.h"

#include "basic/Convert.h"
#include "ui/Button.h"
#include "ui/ControlArray.h"
#include "ui/Frame.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"

namespace kvx::ui::testing {
namespace {

class Life : public TestForm {
public:
    Life() : TestForm("Life")
    {
        Watch(FormLoad, "Load");
        Watch(FormResize, "Resize");
        Watch(FormActivate, "Activate");
        Watch(FormDeactivate, "Deactivate");
        Watch(QueryUnload, "QueryUnload");
        Watch(FormUnload, "Unload");
        Watch(box.GotFocus, "GotFocus");
        design = [this] {
            SetCaption("Leben");
            SetSize(6000, 4000);
            box.SetText("design");
        };
    }
    TextBox box{*this, "box"};
    Button btnOK{*this, "btnOK"};
    ControlArray<TextBox, 2> txtInfo{*this, "txtInfo"};
    Timer Timer1{*this, "Timer1"};
    int ownField = 0;
    bool showsErrors = false;

protected:
    void EventFailed(const basic::Error& error) override
    {
        if (showsErrors)
            CurrentDesktop().MessageBox(error.Description, vbCritical, "Korvex");
        else
            Form::EventFailed(error);
    }
};

class FormLife : public FormTest {
protected:
    Life form;
};

TEST_F(FormLife, AnOwnFieldLoadsNothing)
{
    form.ownField = 7;
    EXPECT_FALSE(form.IsLoaded());
    EXPECT_EQ(form.log, Log{});
}

TEST_F(FormLife, LoadGivesTheDesignOnce)
{
    form.Load();
    form.Load();
    EXPECT_EQ(form.log, Log{"Load"});
    EXPECT_EQ(form.box.Text(), "design");
    EXPECT_FALSE(form.Visible());
}

TEST_F(FormLife, TheFirstLateBoundTouchLoadsTheForm)
{
    const basic::ObjectRef box = form.box.Object();
    EXPECT_FALSE(form.IsLoaded());
    EXPECT_EQ(basic::CStr(box->Get("Text")), "design");
    EXPECT_TRUE(form.IsLoaded());
}

TEST_F(FormLife, ShowLoadsResizesActivatesAndFocusesInThisOrder)
{
    Run(form, [](User&) {});
    EXPECT_EQ(form.log, (Log{"Load", "Resize", "Activate", "GotFocus"}));
}

TEST_F(FormLife, HideEndsShowAndKeepsEverything)
{
    Run(form, [&](User&) {
        form.box.SetText("getippt");
        form.Hide();
    });
    EXPECT_TRUE(form.IsLoaded());
    EXPECT_EQ(form.box.Text(), "getippt");
    form.log.clear();
    Run(form, [](User&) {});
    EXPECT_EQ(form.log, (Log{"Activate", "GotFocus"}));
}

TEST_F(FormLife, UnloadEndsShowToo)
{
    Run(form, [&](User&) {
        form.log.clear();
        form.Unload();
    });
    EXPECT_EQ(form.log, (Log{"QueryUnload", "Unload"}));
    EXPECT_FALSE(form.IsLoaded());
}

TEST_F(FormLife, TheFormActivatesAgainAfterAModalChildButNotAfterAMessage)
{
    Life child;
    child.design = [] {};
    desktop.Answer("Hallo", vbOK);
    Run(form, [&](User&) {
        form.log.clear();
        desktop.MessageBox("Hallo", vbOKOnly, "Korvex");
        EXPECT_EQ(form.log, Log{});
        Run(child, [](User&) {});
    });
    EXPECT_EQ(form.log, (Log{"Deactivate", "Activate"}));
}

TEST_F(FormLife, QueryUnloadHearsHowItBeganAndBothMayKeepTheForm)
{
    std::int16_t heard = -1;
    bool keep = true;
    form.QueryUnload.Connect([&](std::int16_t& cancel, std::int16_t mode) {
        heard = mode;
        cancel = keep ? 1 : 0;
    });
    bool keepInUnload = true;
    form.FormUnload.Connect([&](std::int16_t& cancel) { cancel = keepInUnload ? 1 : 0; });
    Run(form, [&](User& user) {
        EXPECT_FALSE(form.Unload());
        EXPECT_EQ(heard, vbFormCode);
        keep = false;
        user.CloseBox();
        EXPECT_EQ(heard, vbFormControlMenu);
        EXPECT_TRUE(form.Visible());
        keepInUnload = false;
        user.CloseBox();
        EXPECT_FALSE(form.IsLoaded());
    });
}

TEST_F(FormLife, AnUnloadedFormKeepsItsFieldsAndLosesItsControls)
{
    Run(form, [&](User&) {
        form.ownField = 3;
        form.box.SetText("getippt");
        form.Unload();
    });
    EXPECT_EQ(form.ownField, 3);
    EXPECT_EQ(form.box.Text(), "");
    form.log.clear();
    EXPECT_EQ(basic::CStr(form.box.Object()->Get("Text")), "design");
    EXPECT_EQ(form.log, Log{"Load"});
    EXPECT_FALSE(form.Visible());
}

TEST_F(FormLife, StatementsBehindUnloadStillRun)
{
    form.btnOK.Click.Connect([&] {
        form.Unload();
        form.ownField = 9;
    });
    Run(form, [](User& user) { user.Click("btnOK"); });
    EXPECT_EQ(form.ownField, 9);
}

TEST_F(FormLife, ShowingItTwiceIsError400)
{
    Run(form, [&](User&) { EXPECT_EQ(ErrorOf([&] { form.Show(); }), 400); });
}

TEST_F(FormLife, AnErrorThatLeavesAHandlerEndsTheDialogAndReachesTheCaller)
{
    form.btnOK.Click.Connect([] { throw basic::Error(-2147217900, "Falsche Syntax"); });
    bool afterwards = false;
    try {
        Run(form, [&](User& user) {
            user.Click("btnOK");
            EXPECT_FALSE(form.Visible());
            afterwards = true;
        });
        FAIL() << "the error was swallowed";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, -2147217900);
        EXPECT_EQ(error.Description, "Falsche Syntax");
    }
    EXPECT_TRUE(afterwards);
    EXPECT_TRUE(form.IsLoaded()) << "the instance is left behind as it is";
    EXPECT_EQ(desktop.ActiveForm(), nullptr);
}

TEST_F(FormLife, AnErrorInLoadOrActivateReachesTheCallerToo)
{
    Life other;
    form.FormActivate.Connect([] { basic::Raise(13); });
    EXPECT_EQ(ErrorOf([&] { form.Show(); }), 13);
    EXPECT_FALSE(form.Visible());
    other.FormLoad.Connect([] { basic::Raise(94); });
    EXPECT_EQ(ErrorOf([&] { other.Show(); }), 94);
    EXPECT_FALSE(other.IsLoaded());
}

TEST_F(FormLife, AnErrorOfANestedDialogClimbsThroughTheHandlerThatOpenedIt)
{
    Life child;
    child.btnOK.Click.Connect([] { basic::Raise(6); });
    form.btnOK.Click.Connect([&] {
        desktop.In("Life", [&](Form& shown) { User{desktop, shown}.Click("btnOK"); });
        child.Show();
        form.ownField = 1;
    });
    EXPECT_EQ(ErrorOf([&] { Run(form, [](User& user) { user.Click("btnOK"); }); }), 6);
    EXPECT_EQ(form.ownField, 0);
    EXPECT_FALSE(form.Visible());
}

TEST_F(FormLife, AFormThatShowsItsErrorsStaysUsable)
{
    form.showsErrors = true;
    form.btnOK.Click.Connect([] { basic::Raise(94); });
    desktop.Answer("Invalid use of Null", vbOK);
    Run(form, [&](User& user) {
        user.Click("btnOK");
        EXPECT_TRUE(form.Visible());
    });
    EXPECT_EQ(desktop.Boxes().front().flags, vbCritical);
}

TEST_F(FormLife, AnErrorOfATimerOfAHiddenFormEndsTheDialogInFront)
{
    Life hidden;
    hidden.Timer1.Tick.Connect([] { basic::Raise(5); });
    hidden.design = [&] { hidden.Timer1.SetInterval(100); };
    hidden.Load();
    EXPECT_EQ(ErrorOf([&] { Run(form, [&](User&) { desktop.Advance(100); }); }), 5);
}

TEST_F(FormLife, TheInsideIsSmallerThanTheForm)
{
    form.Load();
    EXPECT_LT(form.ScaleWidth(), form.Width());
    EXPECT_LT(form.ScaleHeight(), form.Height());
    form.SetSize(10, 10);
    EXPECT_EQ(form.ScaleWidth(), 0);
    EXPECT_EQ(ErrorOf([&] { form.box.SetWidth(form.ScaleWidth() - 240); }), 380);
}

TEST_F(FormLife, AnchoredControlsFollowTheForm)
{
    class Anchored : public TestForm {
    public:
        Frame frame{*this, "frame"};
        TextBox inside{*this, "inside"}, corner{*this, "corner"};
    } anchored;
    anchored.design = [&] {
        anchored.SetSize(5000, 4000);
        anchored.frame.Move(100, 100, 4000, 3000);
        anchored.frame.SetAnchors(kAnchorAll);
        anchored.inside.SetContainer(&anchored.frame);
        anchored.inside.Move(0, 0, 1000, 300);
        anchored.inside.SetAnchors(kAnchorLeft | kAnchorTop | kAnchorRight);
        anchored.corner.Move(4200, 3200, 500, 300);
        anchored.corner.SetAnchors(kAnchorRight | kAnchorBottom);
    };
    Run(anchored, [&](User& user) { user.Resize(6000, 4500); });
    EXPECT_NEAR(anchored.frame.Width(), 5000, test::kPixel);
    EXPECT_NEAR(anchored.frame.Height(), 3500, test::kPixel);
    EXPECT_NEAR(anchored.inside.Width(), 2000, test::kPixel);
    EXPECT_EQ(anchored.inside.Height(), 300);
    EXPECT_NEAR(anchored.corner.Left(), 5200, test::kPixel);
    EXPECT_NEAR(anchored.corner.Top(), 3700, test::kPixel);
    EXPECT_EQ(anchored.corner.Width(), 500);
}

TEST_F(FormLife, DoEventsHandlesWaitingInputInTheMiddleOfAHandler)
{
    form.btnOK.Click.Connect([&] {
        desktop.SendKeys("x");
        desktop.DoEvents();
        form.log.push_back(form.txtInfo[0].Text());
    });
    Run(form, [&](User& user) {
        form.txtInfo[0].SetFocus();
        form.btnOK.SetCaption("&Ok");
        form.btnOK.Click.Raise();
        EXPECT_EQ(form.log.back(), "x");
        user.Focus("box");
    });
}

TEST_F(FormLife, AColourKeepsItsSystemValue)
{
    form.Load();
    form.box.SetForeColor(kColorGrayText);
    EXPECT_EQ(form.box.ForeColor(), 0x80000011u);
    EXPECT_EQ(basic::CLng(form.box.Object()->Get("ForeColor")), -2147483631);
}

TEST_F(FormLife, ControlsAreFoundByNameWhateverTheCase)
{
    EXPECT_EQ(form.FindControl("TXTINFO(1)"), &form.txtInfo[1]);
    EXPECT_EQ(form.FindControl("txtInfo"), nullptr);
    EXPECT_EQ(form.FindControl("nobody"), nullptr);
}

TEST_F(FormLife, LateBindingFindsControlsOnTheForm)
{
    const basic::ObjectRef object = form.Object();
    EXPECT_EQ(basic::CStr(object->Get("box").ToObject()->Get("")), "design");
    const basic::ObjectRef infos = object->Get("txtInfo").ToObject();
    EXPECT_EQ(basic::CLng(infos->Get("UBound")), 1);
    const basic::Variant one{std::int32_t{1}};
    object->Get("txtInfo", {&one, 1}).ToObject()->Put("Text", "zwei");
    EXPECT_EQ(form.txtInfo[1].Text(), "zwei");
    EXPECT_EQ(basic::CStr(object->Get("Caption")), "Leben");
    EXPECT_EQ(ErrorOf([&] { object->Get("lblNone"); }), 438);
    EXPECT_EQ(ErrorOf([&] { form.box.Object()->Get("Colour"); }), 438);
    EXPECT_EQ(ErrorOf([&] { form.box.Object()->Put("Index", std::int16_t{1}); }), 383);
}

TEST_F(FormLife, ALateBoundControlThatIsGoneIsNothing)
{
    basic::ObjectRef box, whole;
    {
        Life gone;
        box = gone.box.Object();
        whole = gone.Object();
    }
    EXPECT_EQ(ErrorOf([&] { box->Get("Text"); }), 91);
    EXPECT_EQ(ErrorOf([&] { whole->Get("Caption"); }), 91);
}

TEST_F(FormLife, NullIntoTextIsError94)
{
    EXPECT_EQ(ErrorOf([&] { form.box.Object()->Put("Text", basic::Null{}); }), 94);
}

}  // namespace
}  // namespace kvx::ui::testing
