#include "adapters/qt/FormWindow.h"

#include "adapters/qt/QtDesktop.h"

#include <QApplication>
#include <QMouseEvent>

#include <algorithm>

namespace kvx::adapters::qt {
namespace {

std::int16_t ButtonOf(Qt::MouseButton button)
{
    if (button == Qt::RightButton) return 2;
    return button == Qt::MiddleButton ? 4 : 1;
}

std::int16_t ShiftOf(const QMouseEvent& event)
{
    int mask = 0;
    if (event.modifiers().testFlag(Qt::ShiftModifier)) mask |= ui::vbShiftMask;
    if (event.modifiers().testFlag(Qt::ControlModifier)) mask |= ui::vbCtrlMask;
    if (event.modifiers().testFlag(Qt::AltModifier)) mask |= ui::vbAltMask;
    return static_cast<std::int16_t>(mask);
}

bool MayBeDragged(const ui::Control& control)
{
    const std::string_view kind = control.TypeName();
    return kind == "ListBox" || kind == "ListView" || kind == "TreeView";
}

}  // namespace

QPoint FormWindow::TwipsWithin(const QMouseEvent& event, const ControlView& view) const
{
    const QPoint inside = view.Widget()->mapFromGlobal(event.globalPosition().toPoint());
    return {scale_.TwipsX(inside.x()), scale_.TwipsY(inside.y())};
}

// The form moves the focus before the widget sees the press: Validate may refuse, and then there is no click at all.
bool FormWindow::MousePressed(QMouseEvent& event, ControlView& view, bool doubleClick)
{
    ctrlAlone_ = false;
    swallowRelease_ = true;
    ui::Control* control = view.Model();
    if (control == nullptr || view.IsBlocked() || !control->Enabled()) return true;
    const int boxesBefore = desktop_.BoxesShown();
    if (control->TakesFocus() && form_->ActiveControl() != control) {
        bool moved = false;
        Act([&] { moved = form_->UserFocus(*control); });
        if (form_ == nullptr || !moved || form_->ActiveControl() != control) return true;
    }
    const QPoint at = TwipsWithin(event, view);
    Act([&] { control->MouseDown.Raise(ButtonOf(event.button()), ShiftOf(event), at.x(), at.y()); });
    if (form_ == nullptr) return true;
    if (desktop_.BoxesShown() != boxesBefore) {
        // A message box took the release of the button: the click goes on, but no widget may wait for the release.
        if (event.button() == Qt::LeftButton) view.ClickAfterMessage();
        return true;
    }
    if (doubleClick && view.DoubleClicks() && event.button() == Qt::LeftButton) {
        view.DoubleClicked(event);
        return true;
    }
    swallowRelease_ = false;
    pressed_ = &view;
    pressedAt_ = event.globalPosition().toPoint();
    dragging_ = false;
    return false;
}

void FormWindow::MouseMoved(QMouseEvent& event, ControlView& view)
{
    ui::Control* control = view.Model();
    if (control == nullptr) return;
    if (control->MouseMove.HasHandlers()) {
        const QPoint at = TwipsWithin(event, view);
        const auto button = static_cast<std::int16_t>(event.buttons() == Qt::NoButton ? 0 : 1);
        Act([&] { control->MouseMove.Raise(button, ShiftOf(event), at.x(), at.y()); });
    }
    if (form_ == nullptr || dragging_ || pressed_ != &view || !event.buttons().testFlag(Qt::LeftButton)) return;
    const int distance = (event.globalPosition().toPoint() - pressedAt_).manhattanLength();
    if (distance < QApplication::startDragDistance() || !MayBeDragged(*control)) return;
    const std::vector<ui::Control*>& all = form_->Controls();
    dragging_ = std::ranges::any_of(all, [](const ui::Control* each) { return each->DragDrop.HasHandlers(); });
    if (dragging_) setCursor(Qt::DragMoveCursor);
}

bool FormWindow::MouseReleased(QMouseEvent& event, ControlView& view)
{
    if (std::exchange(swallowRelease_, false)) return true;
    ui::Control* control = view.Model();
    if (control == nullptr) return true;
    if (std::exchange(dragging_, false)) {
        ApplyPointer();
        DropAt(event.globalPosition().toPoint());
        if (form_ == nullptr) return true;
    }
    const QPoint at = TwipsWithin(event, view);
    const bool inside = view.Widget()->rect().contains(view.Widget()->mapFromGlobal(event.globalPosition().toPoint()));
    const bool clicked = pressed_ == &view && inside && event.button() == Qt::LeftButton;
    pressed_ = nullptr;
    Act([&] {
        control->MouseUp.Raise(ButtonOf(event.button()), ShiftOf(event), at.x(), at.y());
        if (clicked && view.ClicksByMouse()) control->UserClick();
    });
    return form_ == nullptr;
}

void FormWindow::DropAt(const QPoint& global)
{
    ui::Control* source = pressed_ == nullptr ? nullptr : pressed_->Model();
    const ControlView* target = nullptr;
    for (QWidget* widget = childAt(mapFromGlobal(global)); widget != nullptr; widget = widget->parentWidget())
        if ((target = watched_.value(widget)) != nullptr) break;
    if (source == nullptr || target == nullptr || target->Model() == nullptr) return;
    const QPoint inside = target->Widget()->mapFromGlobal(global);
    Act([&] { target->Model()->UserDrop(*source, scale_.TwipsX(inside.x()), scale_.TwipsY(inside.y())); });
}

// The focus came by a way that did not ask the form: a screen reader's, or Qt's own when a widget went away.
void FormWindow::FocusCame(ControlView& view, Qt::FocusReason reason)
{
    if (syncing_ || acting_ > 0 || reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) return;
    ui::Control* control = view.Model();
    if (control == nullptr || form_->ActiveControl() == control) return;
    Act([&] {
        if (control->IsReachable()) form_->UserFocus(*control);
    });
}

}  // namespace kvx::adapters::qt
