#pragma once

#include "adapters/qt/Boxes.h"
#include "ui/Desktop.h"

#include <QFont>
#include <QHash>
#include <QImage>
#include <QObject>

#include <deque>
#include <memory>
#include <string_view>
#include <vector>

class QApplication;
class QTimer;

namespace kvx::adapters::qt {

class FormWindow;
struct KeyStroke;

/// Forms as windows of Qt. Needs a QApplication that lives longer; one desktop a thread, the GUI's.
///
///     QApplication app(argc, argv);
///     QtDesktop::UseDefaultLook(app);
///     QtDesktop desktop;
///     ui::SetCurrentDesktop(&desktop);
///
/// Dialogs open in front of the application's active window.
class QtDesktop final : public ui::Desktop {
public:
    QtDesktop();
    ~QtDesktop() override;
    QtDesktop(const QtDesktop&) = delete;
    QtDesktop& operator=(const QtDesktop&) = delete;

    /// The style that the forms are made for, unless the user asks for another one by Qt's own options.
    static void UseDefaultLook(QApplication& app);

    /// Buttons of message boxes. @param language "DEUTSCH" or anything else for English
    void SetLanguage(std::string_view language);
    /// Font of the dialogs; the application's until it is set. Windows that are open follow.
    void SetFont(const QFont& font);
    QFont Font() const;

    /// The picture of a form that is shown, without the frame of the window manager. Empty: it is not shown
    QImage Grab(const ui::Form& form);
    /// @param path  the ending says the kind, ".png". @return false: not shown, or it cannot be written
    bool SavePicture(const ui::Form& form, const QString& path);

    FormWindow* WindowOf(const ui::Form& form) const;  ///< nullptr = none
    QWidget* WidgetOf(const ui::Control& control) const;

    /// The forms of another desktop, which passes its calls on to this one, are shown here.
    void ShareForms(const ui::Desktop& desktop) { forms_ = &desktop; }

    /// The form of this window was destroyed, or the window itself.
    void WindowGone(const FormWindow& window);
    /// A window that has lost its form is destroyed as soon as nothing of it runs any more.
    void Bury(FormWindow& window);

    /// Message and input boxes shown so far; a press of the mouse that raised one does not go on as a press.
    int BoxesShown() const { return boxesShown_; }

    // ui::Desktop
    void FormShown(ui::Form& form) override;
    void RunModal(ui::Form& form) override;
    void FormUnloaded(ui::Form& form) override;
    std::int32_t MessageBox(std::string_view prompt, std::int32_t flags, std::string_view title) override;
    std::string InputBox(std::string_view prompt, std::string_view title, std::string_view defaultText) override;
    void DoEvents() override;
    void Post(std::function<void()> work) override;
    void SendKeys(std::string_view keys) override;
    void TimerChanged(ui::Timer& timer) override;
    std::string ClipboardText() override;
    void SetClipboardText(std::string_view text) override;
    std::int32_t TextWidth(std::string_view text) override;
    std::int32_t TextHeight(std::string_view text) override;
    basic::Date Now() override;
    std::int64_t TickMilliseconds() override;
    void SetMousePointer(std::int16_t pointer) override;

private:
    QWidget* FrontWindow() const;
    void PressNextKey();
    void Sweep();

    const ui::Desktop* forms_ = this;  // who keeps the forms that are shown modally
    QObject context_;                  // timers and posted work end with the desktop
    QHash<const ui::Form*, FormWindow*> windows_;
    std::vector<FormWindow*> buried_;  // without form, to be destroyed
    QHash<ui::Timer*, QTimer*> timers_;
    std::deque<KeyStroke> keys_;
    std::unique_ptr<QFont> font_;
    ButtonLanguage language_ = ButtonLanguage::German;
    int boxesShown_ = 0;
};

}  // namespace kvx::adapters::qt
