#include "adapters/qt/Boxes.h"
#include "adapters/qt/FormWindow.h"
#include "adapters/qt/Keys.h"
#include "adapters/qt/QtDesktop.h"
#include "adapters/qt/Strings.h"
#include "qt/DemoForm.h"
#include "ui/Timer.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

namespace kvx::test {
namespace {

using namespace adapters::qt;

// Shows the form in a desktop of its own and runs the work in its event loop.
void InWindow(ui::Form& form, const std::function<void(QtDesktop&)>& work, int pointSize = 10)
{
    QtDesktop desktop;
    ui::SetCurrentDesktop(&desktop);
    QFont font = QApplication::font();
    font.setPointSize(pointSize);
    desktop.SetFont(font);
    QTimer::singleShot(0, [&] {
        work(desktop);
        form.Hide();
    });
    form.Show();
    ui::SetCurrentDesktop(nullptr);
}

// A message box on the screen, looked at and answered with a key or a button while it is open.
std::int32_t AnswerOf(std::int32_t flags, const std::function<void(QMessageBox&)>& work)
{
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        work(*box);
    });
    return ShowMessageBox(nullptr, ButtonLanguage::German, QStringLiteral("Löschen?"), flags, QStringLiteral("Korvex"));
}

void PressEsc(QMessageBox& box)
{
    QKeyEvent esc(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&box, &esc);
}

TEST(MessageBoxWindow, ButtonsIconAndDefaultFollowTheFlags)
{
    const std::int32_t answer = AnswerOf(308, [](QMessageBox& box) {  // warning, Yes and No, No is the default
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.buttons().size(), 2);
        EXPECT_TRUE(MessageBoxButton(box, ui::vbNo)->isDefault());
        EXPECT_EQ(MessageBoxButton(box, ui::vbYes)->text(), QStringLiteral("&Ja"));
        MessageBoxButton(box, ui::vbYes)->click();
    });
    EXPECT_EQ(answer, ui::vbYes);
}

TEST(MessageBoxWindow, EscDoesNothingWhereThereIsNoCancel)
{
    bool stillOpen = false;
    const std::int32_t answer = AnswerOf(ui::vbYesNo | ui::vbQuestion, [&](QMessageBox& box) {
        PressEsc(box);
        box.close();
        stillOpen = box.isVisible();
        MessageBoxButton(box, ui::vbNo)->click();
    });
    EXPECT_TRUE(stillOpen);
    EXPECT_EQ(answer, ui::vbNo);
}

TEST(MessageBoxWindow, EscIsCancelAndTheOnlyOK)
{
    EXPECT_EQ(AnswerOf(ui::vbYesNoCancel, PressEsc), ui::vbCancel);
    EXPECT_EQ(AnswerOf(ui::vbOKOnly, PressEsc), ui::vbOK);
    EXPECT_EQ(AnswerOf(ui::vbRetryCancel, [](QMessageBox& box) { box.close(); }), ui::vbCancel);
}

TEST(MessageBoxWindow, ThePromptIsPlainText)
{
    AnswerOf(ui::vbOKOnly, [](QMessageBox& box) {
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        PressEsc(box);
    });
}

TEST(InputBoxWindow, GivesTheTextBackOnOKOnly)
{
    for (const bool ok : {true, false}) {
        QTimer::singleShot(0, [ok] {
            QWidget* box = QApplication::activeModalWidget();
            ASSERT_NE(box, nullptr);
            auto* edit = box->findChild<QLineEdit*>();
            EXPECT_EQ(edit->selectedText(), QStringLiteral("1"));
            edit->setText(QStringLiteral("17"));
            QKeyEvent key(QEvent::KeyPress, ok ? Qt::Key_Return : Qt::Key_Escape, Qt::NoModifier);
            QApplication::sendEvent(box, &key);
        });
        const QString text =
            ShowInputBox(nullptr, ButtonLanguage::English, QStringLiteral("Zahl?"), {}, QStringLiteral("1"));
        EXPECT_EQ(text, ok ? QStringLiteral("17") : QString());
    }
}

// Every label and caption has the room that its words need, in small and in large print.
class WindowScaling : public testing::TestWithParam<int> {};

TEST_P(WindowScaling, NoLabelIsClipped)
{
    DemoForm form;
    InWindow(
        form,
        [&](QtDesktop& desktop) {
            for (const ui::Label* label : {&form.lblName, &form.lblArea, &form.lblSpecies}) {
                const auto* shown = qobject_cast<QLabel*>(desktop.WidgetOf(*label));
                ASSERT_NE(shown, nullptr);
                EXPECT_GE(shown->width(), shown->sizeHint().width()) << label->Caption();
                EXPECT_GE(shown->height(), shown->fontMetrics().height()) << label->Caption();
                const QWidget* box = shown->buddy();
                ASSERT_NE(box, nullptr) << label->Caption();
                EXPECT_LE(shown->geometry().right(), box->geometry().left()) << label->Caption();
            }
        },
        GetParam());
}

TEST_P(WindowScaling, ABoxIsHighEnoughForItsText)
{
    DemoForm form;
    InWindow(
        form,
        [&](QtDesktop& desktop) {
            for (const ui::Control* box :
                 {static_cast<ui::Control*>(&form.txtName), static_cast<ui::Control*>(&form.cmbSpecies)}) {
                const QWidget* shown = desktop.WidgetOf(*box);
                EXPECT_GE(shown->height(), shown->fontMetrics().height() + 6) << box->FullName();
            }
        },
        GetParam());
}

INSTANTIATE_TEST_SUITE_P(Fonts, WindowScaling, testing::Values(8, 10, 14));

TEST(WindowLook, ALabelStandsLevelWithItsBox)
{
    DemoForm form;
    InWindow(form, [&](QtDesktop& desktop) {
        EXPECT_EQ(desktop.WidgetOf(form.lblArea)->geometry().center().y(),
                  desktop.WidgetOf(form.txtArea)->geometry().center().y());
    });
}

TEST(WindowLook, ScreenReadersHearTheLabelOfABox)
{
    DemoForm form;
    InWindow(form, [&](QtDesktop& desktop) {
        EXPECT_EQ(desktop.WidgetOf(form.txtArea)->accessibleName(), QString::fromUtf8("Fläche in Hektar"));
    });
}

TEST(WindowLook, OpenWindowsFollowAnotherFont)
{
    DemoForm form;
    InWindow(form, [&](QtDesktop& desktop) {
        const int before = desktop.WidgetOf(form.txtName)->height();
        QFont font = desktop.Font();
        font.setPointSize(20);
        desktop.SetFont(font);
        EXPECT_GT(desktop.WidgetOf(form.txtName)->height(), before);
    });
}

TEST(WindowLook, ThePictureOfAFormHasItsSize)
{
    DemoForm form;
    InWindow(form, [&](QtDesktop& desktop) {
        const QImage picture = desktop.Grab(form);
        EXPECT_EQ(picture.size(), desktop.WindowOf(form)->size() * picture.devicePixelRatio());
    });
    QtDesktop desktop;
    EXPECT_TRUE(desktop.Grab(form).isNull()) << "not shown any more";
}

TEST(WindowForm, ResizingTheWindowResizesTheForm)
{
    DemoForm form;
    form.Load();
    form.SetSizable(true);
    form.TreeView1.SetAnchors(ui::kAnchorAll);
    InWindow(form, [&](QtDesktop& desktop) {
        const std::int32_t before = form.TreeView1.Width() - form.ScaleWidth();
        FormWindow* window = desktop.WindowOf(form);
        window->resize(window->width() + 150, window->height());
        desktop.DoEvents();
        EXPECT_EQ(form.ScaleWidth(), window->GetScale().TwipsX(window->width()));
        EXPECT_EQ(form.TreeView1.Width() - form.ScaleWidth(), before) << "it keeps its distance from both edges";
        EXPECT_EQ(desktop.WidgetOf(form.TreeView1)->geometry(),
                  window->GetScale().Rect(form.TreeView1.Left(), form.TreeView1.Top(), form.TreeView1.Width(),
                                          form.TreeView1.Height()));
    });
}

TEST(WindowForm, AnErrorOfAHandlerEndsTheDialogAndReachesTheCaller)
{
    DemoForm form;
    form.btnOK.Click.Connect([] { throw basic::Error(-2147217900, "Syntaxfehler"); });
    QtDesktop desktop;
    ui::SetCurrentDesktop(&desktop);
    QTimer::singleShot(0, [&] { qobject_cast<QPushButton*>(desktop.WidgetOf(form.btnOK))->click(); });
    try {
        form.Show();
        ADD_FAILURE() << "the error was lost";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, -2147217900);
    }
    ui::SetCurrentDesktop(nullptr);
}

TEST(WindowDesktop, KeysThatAreSentActAfterTheHandler)
{
    DemoForm form;
    InWindow(form, [&](QtDesktop& desktop) {
        desktop.SendKeys("ab{TAB}7");
        EXPECT_EQ(form.txtName.Text(), "");
        desktop.DoEvents();
        EXPECT_EQ(form.txtName.Text(), "ab");
        EXPECT_EQ(form.txtArea.Text(), "7");
    });
}

TEST(WindowDesktop, PostedWorkRunsFromTheLoop)
{
    DemoForm form;
    InWindow(form, [&](QtDesktop& desktop) {
        bool done = false;
        desktop.Post([&] { done = true; });
        EXPECT_FALSE(done);
        desktop.DoEvents();
        EXPECT_TRUE(done);
    });
}

class TickingForm final : public ui::Form {
public:
    TickingForm() : Form("TickingForm")
    {
        Timer1.Tick.Connect([this] {
            if (++ticks == 3) Unload();
        });
    }
    ui::Timer Timer1{*this, "Timer1"};
    int ticks = 0;

protected:
    void Design() override
    {
        SetSize(2000, 2000);
        Timer1.SetInterval(1);
    }
};

TEST(WindowDesktop, ATimerFiresUntilItsFormIsUnloaded)
{
    TickingForm form;
    QtDesktop desktop;
    ui::SetCurrentDesktop(&desktop);
    form.Show();
    desktop.DoEvents();
    EXPECT_EQ(form.ticks, 3);
    ui::SetCurrentDesktop(nullptr);
}

TEST(WindowKeysText, NamesCountsAndGroupsAreRead)
{
    const std::vector<KeyStroke> strokes = ParseKeys("a{LEFT 2}+(bc){+}^{END}~");
    ASSERT_EQ(strokes.size(), 8u);
    EXPECT_EQ(strokes[1].key, Qt::Key_Left);
    EXPECT_EQ(strokes[2].key, Qt::Key_Left);
    EXPECT_EQ(strokes[3].modifiers, Qt::ShiftModifier);
    EXPECT_EQ(strokes[4].modifiers, Qt::ShiftModifier);
    EXPECT_EQ(strokes[5].character, U'+');
    EXPECT_EQ(strokes[6].modifiers, Qt::ControlModifier);
    EXPECT_EQ(strokes[7].key, Qt::Key_Return);
    EXPECT_THROW(ParseKeys("{NOKEY}"), basic::Error);
}

}  // namespace
}  // namespace kvx::test
