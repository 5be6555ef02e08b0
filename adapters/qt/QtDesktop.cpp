#include "adapters/qt/QtDesktop.h"

#include "adapters/qt/Accessible.h"
#include "adapters/qt/FormWindow.h"
#include "adapters/qt/Keys.h"
#include "adapters/qt/Scale.h"
#include "adapters/qt/Strings.h"
#include "basic/Convert.h"
#include "ui/Timer.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFontMetrics>
#include <QPixmap>
#include <QStyleFactory>
#include <QTimer>

#include <algorithm>

namespace kvx::adapters::qt {

QtDesktop::QtDesktop()
{
    InstallAccessibility();
}

QtDesktop::~QtDesktop()
{
    for (FormWindow* window : windows_.values())
        window->Detach();
    while (!buried_.empty())
        delete buried_.back();
    if (MousePointer() != ui::vbDefault) QApplication::restoreOverrideCursor();
    if (ui::FindCurrentDesktop() == this) ui::SetCurrentDesktop(nullptr);
}

void QtDesktop::UseDefaultLook(QApplication& app)
{
    const bool chosen =
        qEnvironmentVariableIsSet("QT_STYLE_OVERRIDE") || app.arguments().contains(QStringLiteral("-style"));
    if (!chosen) QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setAttribute(Qt::AA_DontShowIconsInMenus, false);
}

void QtDesktop::SetLanguage(std::string_view language)
{
    language_ = language == "DEUTSCH" ? ButtonLanguage::German : ButtonLanguage::English;
}

void QtDesktop::SetFont(const QFont& font)
{
    font_ = std::make_unique<QFont>(font);
    for (FormWindow* window : std::as_const(windows_))
        window->FontChangedTo(font);
}

QFont QtDesktop::Font() const
{
    return font_ == nullptr ? QApplication::font() : *font_;
}

QImage QtDesktop::Grab(const ui::Form& form)
{
    FormWindow* window = WindowOf(form);
    if (window == nullptr || !window->isVisible()) return {};
    window->ShowChanges();
    return window->grab().toImage();
}

bool QtDesktop::SavePicture(const ui::Form& form, const QString& path)
{
    const QImage picture = Grab(form);
    return !picture.isNull() && picture.save(path);
}

FormWindow* QtDesktop::WindowOf(const ui::Form& form) const
{
    return windows_.value(&form);
}

QWidget* QtDesktop::WidgetOf(const ui::Control& control) const
{
    const FormWindow* window = WindowOf(control.Owner());
    const ControlView* view = window == nullptr ? nullptr : window->ViewOf(control);
    return view == nullptr ? nullptr : view->Widget();
}

// The window that a new one must stand in front of: the dialog that is on top, else the host's.
QWidget* QtDesktop::FrontWindow() const
{
    const std::vector<ui::Form*>& forms = forms_->ModalForms();
    for (auto form = forms.rbegin(); form != forms.rend(); ++form)
        if (FormWindow* window = WindowOf(**form); window != nullptr && window->isVisible()) return window;
    QWidget* active = QApplication::activeModalWidget();
    return active != nullptr ? active : QApplication::activeWindow();
}

// --- forms

void QtDesktop::FormShown(ui::Form& form)
{
    FormWindow* window = WindowOf(form);
    if (window == nullptr) {
        window = new FormWindow(*this, form, FrontWindow());
        windows_.insert(&form, window);
    }
    window->ShowForm();
}

void QtDesktop::RunModal(ui::Form& form)
{
    if (FormWindow* window = WindowOf(form); window != nullptr) window->RunModal();
    Sweep();
}

void QtDesktop::FormUnloaded(ui::Form& form)
{
    if (FormWindow* window = windows_.take(&form); window != nullptr) window->Detach();
}

void QtDesktop::WindowGone(const FormWindow& window)
{
    windows_.removeIf([&window](const auto& entry) { return entry.value() == &window; });
    std::erase(buried_, &window);
}

void QtDesktop::Bury(FormWindow& window)
{
    buried_.push_back(&window);
    QMetaObject::invokeMethod(
        &context_, [this] { Sweep(); }, Qt::QueuedConnection);
}

void QtDesktop::Sweep()
{
    // One at a time: a window takes those in front of it along, and tells WindowGone.
    for (;;) {
        const auto idle = std::ranges::find_if(buried_, &FormWindow::IsIdle);
        if (idle == buried_.end()) return;
        delete *idle;
    }
}

// --- boxes

std::int32_t QtDesktop::MessageBox(std::string_view prompt, std::int32_t flags, std::string_view title)
{
    ++boxesShown_;
    return ShowMessageBox(FrontWindow(), language_, ToQt(prompt), flags, ToQt(title));
}

std::string QtDesktop::InputBox(std::string_view prompt, std::string_view title, std::string_view defaultText)
{
    ++boxesShown_;
    return FromQt(ShowInputBox(FrontWindow(), language_, ToQt(prompt), ToQt(title), ToQt(defaultText)));
}

// --- message loop

void QtDesktop::DoEvents()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

void QtDesktop::Post(std::function<void()> work)
{
    QMetaObject::invokeMethod(
        &context_,
        [this, work = std::move(work)] {
            ui::Form* form = forms_->ActiveForm();
            if (form != nullptr)
                form->Protect(work);
            else
                work();
        },
        Qt::QueuedConnection);
}

void QtDesktop::SendKeys(std::string_view keys)
{
    for (const KeyStroke& stroke : ParseKeys(keys)) {
        keys_.push_back(stroke);
        QMetaObject::invokeMethod(
            &context_, [this] { PressNextKey(); }, Qt::QueuedConnection);
    }
}

void QtDesktop::PressNextKey()
{
    if (keys_.empty()) return;
    const KeyStroke stroke = keys_.front();
    keys_.pop_front();
    PressKey(stroke);
}

void QtDesktop::TimerChanged(ui::Timer& timer)
{
    QTimer* running = timers_.value(&timer);
    if (!timer.IsRunning()) {
        if (running != nullptr) {
            timers_.remove(&timer);
            running->stop();
            running->deleteLater();  // it may be the one that fires now
        }
        return;
    }
    if (running == nullptr) {
        running = new QTimer(&context_);
        running->setTimerType(Qt::PreciseTimer);
        timers_.insert(&timer, running);
        QObject::connect(running, &QTimer::timeout, &context_, [this, &timer, running] {
            if (timers_.value(&timer) == running) timer.Fire();
        });
    }
    running->start(timer.Interval());
}

// --- the rest of the desktop

std::string QtDesktop::ClipboardText()
{
    return FromQt(QApplication::clipboard()->text());
}

void QtDesktop::SetClipboardText(std::string_view text)
{
    QApplication::clipboard()->setText(ToQt(text));
}

std::int32_t QtDesktop::TextWidth(std::string_view text)
{
    const QFont font = Font();
    return Scale(font).TwipsX(QFontMetrics(font).horizontalAdvance(ToQt(text)));
}

std::int32_t QtDesktop::TextHeight(std::string_view)
{
    const QFont font = Font();
    return Scale(font).TwipsY(QFontMetrics(font).height());
}

basic::Date QtDesktop::Now()
{
    const QDateTime now = QDateTime::currentDateTime();
    return basic::DateOf({now.date().year(), now.date().month(), now.date().day(), now.time().hour(),
                          now.time().minute(), now.time().second()});
}

std::int64_t QtDesktop::TickMilliseconds()
{
    static const QElapsedTimer clock = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return clock.elapsed();
}

void QtDesktop::SetMousePointer(std::int16_t pointer)
{
    const bool had = MousePointer() != ui::vbDefault;
    ui::Desktop::SetMousePointer(pointer);
    if (had) QApplication::restoreOverrideCursor();
    if (pointer == ui::vbHourglass)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else if (pointer != ui::vbDefault)
        QApplication::setOverrideCursor(Qt::ArrowCursor);
}

}  // namespace kvx::adapters::qt
