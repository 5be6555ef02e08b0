#pragma once

#include "ui/Control.h"

#include <QColor>
#include <QKeySequence>
#include <QPointer>
#include <QWidget>

#include <memory>

class QKeyEvent;
class QMouseEvent;
class QPalette;

namespace kvx::adapters::qt {

class FormWindow;

/// A classic colour on the screen; system colours follow the palette, so that dark desktops stay readable.
QColor ToQtColor(ui::Color color, const QPalette& palette);

/// The window side of one control: owns no state of its own. Changes of the control are collected, and shown together
/// when the handlers that made them have returned: a list filled by ten thousand calls is shown once.
class ControlView : public ui::View {
public:
    ControlView(FormWindow& window, ui::Control& control);
    ~ControlView() override;

    void Changed(ui::Change what) override;
    /// The control is being destroyed: nothing of its kind is left to be asked.
    void Gone() override;
    /// The window goes while the control lives: the control forgets the window.
    virtual void Leave();

    /// The control; nullptr once it is gone.
    ui::Control* Model() const { return control_; }
    FormWindow& Window() const { return window_; }

    /// The widget of the control; nullptr for kinds that show nothing.
    QWidget* Widget() const { return widget_; }
    /// Takes the focus and the keys for the control.
    virtual QWidget* FocusWidget() const { return widget_; }
    /// Keys and characters that nobody swallowed go into the widget itself: text fields, the date box.
    virtual bool EditsText() const { return false; }
    /// Of a text field: this key moves the list beside it and is left to the control.
    virtual bool LeavesToControl(const QKeyEvent&) const { return false; }
    /// A key that is the window's business alone, as opening a list.
    virtual bool HandlesKey(const QKeyEvent&) { return false; }
    /// Copy, cut, paste, select all, undo or redo. @return false: the widget does it itself
    virtual bool HandlesClipboard(QKeySequence::StandardKey) { return false; }
    /// What the control has no reaction to because it does not know its size on the screen: paging.
    virtual void ReactToKey(std::int16_t keyCode, std::int16_t shift)
    {
        static_cast<void>(keyCode);
        static_cast<void>(shift);
    }
    /// Pressing and releasing the mouse here is a click, and the widget itself does not tell it.
    virtual bool ClicksByMouse() const { return false; }
    virtual bool DoubleClicks() const { return true; }
    /// @param event  the second press, in the widget that it came to
    virtual void DoubleClicked(const QMouseEvent& event);
    /// What the press of the mouse would have done; used when a message box came between press and release.
    virtual void ClickAfterMessage() {}

    /// Brings the widget in line with what changed since the last time.
    void ShowChanges();
    bool HasChanges() const { return dirty_ != 0; }
    void Place();  ///< position and size

    /// What stands left of it or ahead of it as its label; for screen readers.
    void SetAccessibleName(const QString& name);

    /// The user cannot use it although it is not grey itself: a container is disabled.
    bool IsBlocked() const;

protected:
    static constexpr unsigned Bit(ui::Change what) { return 1u << static_cast<unsigned>(what); }
    static bool Has(unsigned changes, ui::Change what) { return (changes & Bit(what)) != 0; }

    /// Called by the constructors of the kinds.
    void SetWidget(QWidget* widget);
    /// What is particular to the kind. @param changes  bits of ui::Change
    virtual void Show(unsigned changes) { static_cast<void>(changes); }
    virtual void ApplyColours();
    /// A disabled container blocks what stands in it and greys nothing: Qt must not disable its widget.
    virtual bool GreysOut() const { return true; }
    /// Size where the kind deviates from the scaled design.
    virtual QRect Geometry() const;
    /// Runs what a user did, then shows what came of it.
    void Act(const std::function<void()>& action);

    bool showing_ = false;  ///< what the widget signals now is our own doing

private:
    FormWindow& window_;
    ui::Control* control_;
    QPointer<QWidget> widget_;
    unsigned dirty_ = ~0u;
};

/// The view that fits the kind of the control; nullptr for kinds without a window (timer, data control).
std::unique_ptr<ControlView> MakeView(FormWindow& window, ui::Control& control, QWidget* parent);

// One maker a family of kinds; nullptr = another family.
std::unique_ptr<ControlView> MakeTextView(FormWindow& window, ui::Control& control, QWidget* parent);
std::unique_ptr<ControlView> MakeChoiceView(FormWindow& window, ui::Control& control, QWidget* parent);
std::unique_ptr<ControlView> MakeButtonView(FormWindow& window, ui::Control& control, QWidget* parent);
std::unique_ptr<ControlView> MakeStaticView(FormWindow& window, ui::Control& control, QWidget* parent);
std::unique_ptr<ControlView> MakeListView(FormWindow& window, ui::Control& control, QWidget* parent);
std::unique_ptr<ControlView> MakeGridView(FormWindow& window, ui::Control& control, QWidget* parent);
std::unique_ptr<ControlView> MakeTreeView(FormWindow& window, ui::Control& control, QWidget* parent);

}  // namespace kvx::adapters::qt
