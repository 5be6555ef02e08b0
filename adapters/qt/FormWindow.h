#pragma once

#include "adapters/qt/ControlView.h"
#include "adapters/qt/Scale.h"
#include "ui/Form.h"

#include <QDialog>
#include <QHash>
#include <QSet>

#include <functional>
#include <memory>
#include <vector>

class QEventLoop;
class QInputMethodEvent;

namespace kvx::adapters::qt {

class QtDesktop;

/// The window of one form. The form decides; the window shows it and reports what the user did. Keys, mouse and focus
/// of all its widgets come here first (event filter), so that the form can refuse or change them before Qt acts.
class FormWindow final : public QDialog, public ui::View {
public:
    FormWindow(QtDesktop& desktop, ui::Form& form, QWidget* owner);
    ~FormWindow() override;

    /// The form; nullptr once it is unloaded or gone.
    ui::Form* Form() const { return form_; }
    const Scale& GetScale() const { return scale_; }
    QtDesktop& Desktop() const { return desktop_; }
    ControlView* ViewOf(const ui::Control& control) const;

    /// Comes up, in front of its owner.
    void ShowForm();
    /// Lets the user work until the form is no longer visible.
    void RunModal();
    /// The form is unloaded: the window goes, now for the user, later for good.
    void Detach();
    /// Nothing of it, or of a dialog in front of it, is running: it may be destroyed.
    bool IsIdle() const;

    /// Lays everything out for another font.
    void FontChangedTo(const QFont& font);

    /// Runs what the user did inside Form::Protect, then shows what came of it.
    void Act(const std::function<void()>& action);
    /// A view has changes to show. They are shown at the end of the present action, at latest from the message loop.
    void ChangesWaiting();
    void ShowChanges();
    /// Places or words changed: labels may name other boxes now.
    void LabelsMoved() { labelsMoved_ = true; }

    /// Events of a widget that belongs to a control come through the window's filter.
    void Watch(QWidget* widget, ControlView* view);

    /// A key went down in an editor that keeps keys to itself, and ends with it: its release belongs to the control.
    void KeyTaken(int key) { keysDown_.insert(key); }

    /// A progress bar moved while a handler runs: painted at once, without handling input.
    void PaintNow(QWidget* widget);

    void Changed(ui::Change what) override;
    void Gone() override;
    void reject() override;  // Esc that nobody wanted: the form's cancel button has had its chance

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // FormWindow.cpp
    void Build();
    QWidget* ParentFor(const ui::Control& control) const;
    void Stack();
    void LabelControls();
    void ApplySize();
    void ApplyPointer();
    void SyncFocus();

    // FormWindow.keys.cpp
    bool KeyPressed(QKeyEvent& event, ControlView* at);
    bool KeyReleased(QKeyEvent& event);
    bool CharacterTyped(std::int32_t character, ControlView* at, bool soleCharacter);
    void SendCharacter(const ControlView& to, std::int32_t character);
    bool TextComposed(QInputMethodEvent& event, ControlView* at);

    // FormWindow.mouse.cpp
    bool MousePressed(QMouseEvent& event, ControlView& view, bool doubleClick);
    bool MouseReleased(QMouseEvent& event, ControlView& view);
    void MouseMoved(QMouseEvent& event, ControlView& view);
    void FocusCame(ControlView& view, Qt::FocusReason reason);
    QPoint TwipsWithin(const QMouseEvent& event, const ControlView& view) const;
    void DropAt(const QPoint& global);

    QtDesktop& desktop_;
    ui::Form* form_;
    Scale scale_;
    std::vector<std::unique_ptr<ControlView>> views_;
    QHash<const ui::Control*, ControlView*> viewOf_;
    QHash<const QObject*, ControlView*> watched_;
    QEventLoop* loop_ = nullptr;
    int acting_ = 0;  // actions of the user that run now, nested
    bool changesPosted_ = false, anyChanges_ = true, formDirty_ = true, labelsMoved_ = true;
    bool syncing_ = false;    // focus and size change by our own hand
    bool ctrlAlone_ = false;  // Ctrl is down and nothing else has been since
    QSet<int> keysDown_;      // pressed here: a release from elsewhere is not ours
    bool native_ = false;     // a key event of our own making: straight to the widget
    bool swallowRelease_ = false;
    QPoint pressedAt_;
    ControlView* pressed_ = nullptr;
    bool dragging_ = false;
    QSize shownSize_;  // as the form wants it
};

}  // namespace kvx::adapters::qt
