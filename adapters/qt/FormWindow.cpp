#include "adapters/qt/FormWindow.h"

#include "adapters/qt/QtDesktop.h"
#include "adapters/qt/Strings.h"
#include "ui/Label.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QResizeEvent>

#include <algorithm>
#include <array>

namespace kvx::adapters::qt {
namespace {

QEvent::Type ShowChangesEvent()
{
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

// Who covers whom when controls overlap: frames lie lowest, the in-cell editor of a grid on top of the grid.
int StackingOf(const ui::Control& control)
{
    const std::string_view kind = control.TypeName();
    if (kind == "Frame" || kind == "SSTab" || kind == "PictureBox") return 0;
    if (kind == "Image") return 1;
    if (kind == "Label") return 2;
    if (kind == "ListBox" || kind == "ListView" || kind == "TreeView" || kind == "DataGrid" || kind == "MSFlexGrid")
        return 3;
    return 4;
}

bool SamePage(const ui::Control& a, const ui::Control& b)
{
    return a.Container() == b.Container() && a.ContainerTab() == b.ContainerTab();
}

}  // namespace

FormWindow::FormWindow(QtDesktop& desktop, ui::Form& form, QWidget* owner)
    : QDialog(owner), desktop_(desktop), form_(&form), scale_(desktop.Font())
{
    setFont(desktop.Font());
    setObjectName(ToQt(form.Name()));
    Qt::WindowFlags flags = Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    if (form.Sizable()) flags |= Qt::WindowMaximizeButtonHint;
    setWindowFlags(flags);
    setWindowModality(Qt::ApplicationModal);
    form.SetView(this);
    Build();
}

FormWindow::~FormWindow()
{
    if (form_ != nullptr && form_->GetView() == this) form_->SetView(nullptr);
    form_ = nullptr;
    views_.clear();
    desktop_.WindowGone(*this);  // Qt destroys a dialog with the window that it stands in front of
}

void FormWindow::Build()
{
    // A container comes before what stands in it, whatever the order of declaration.
    std::vector<ui::Control*> waiting = form_->Controls();
    while (!waiting.empty()) {
        std::vector<ui::Control*> later;
        for (ui::Control* control : waiting) {
            const ui::Control* container = control->Container();
            if (container != nullptr && !viewOf_.contains(container)) {
                later.push_back(control);
                continue;
            }
            std::unique_ptr<ControlView> view = MakeView(*this, *control, ParentFor(*control));
            viewOf_.insert(control, view.get());
            if (view != nullptr) views_.push_back(std::move(view));
        }
        if (later.size() == waiting.size()) break;
        waiting = std::move(later);
    }
    Stack();
}

QWidget* FormWindow::ParentFor(const ui::Control& control) const
{
    const ControlView* container = control.Container() == nullptr ? nullptr : viewOf_.value(control.Container());
    return container == nullptr || container->Widget() == nullptr ? const_cast<FormWindow*>(this) : container->Widget();
}

void FormWindow::Stack()
{
    std::vector<ControlView*> order;
    for (const auto& view : views_)
        if (view->Widget() != nullptr) order.push_back(view.get());
    std::ranges::stable_sort(order, {}, [](const ControlView* view) { return StackingOf(*view->Model()); });
    for (ControlView* view : order)
        view->Widget()->raise();
}

ControlView* FormWindow::ViewOf(const ui::Control& control) const
{
    return viewOf_.value(&control);
}

void FormWindow::Watch(QWidget* widget, ControlView* view)
{
    watched_.insert(widget, view);
    widget->installEventFilter(this);
}

// --- life

void FormWindow::ShowForm()
{
    ShowChanges();
    show();
    raise();
    activateWindow();
    SyncFocus();
}

void FormWindow::RunModal()
{
    QEventLoop loop;
    struct Running {  // also when an exception leaves the loop
        QEventLoop*& current;
        QEventLoop* outer;
        ~Running() { current = outer; }
    } running{loop_, std::exchange(loop_, &loop)};
    while (form_ != nullptr && form_->Visible())
        loop.exec();
}

void FormWindow::Detach()
{
    if (form_ != nullptr && form_->GetView() == this) form_->SetView(nullptr);
    form_ = nullptr;
    for (const auto& view : views_)
        view->Leave();
    viewOf_.clear();
    hide();
    if (loop_ != nullptr) loop_->quit();
    desktop_.Bury(*this);  // a handler of one of its widgets may be running
}

bool FormWindow::IsIdle() const
{
    const auto busy = [](const QObject* child) {
        const auto* window = dynamic_cast<const FormWindow*>(child);
        return window != nullptr && !window->IsIdle();
    };
    return acting_ == 0 && loop_ == nullptr && std::ranges::none_of(children(), busy);
}

void FormWindow::Gone()
{
    form_ = nullptr;
    desktop_.WindowGone(*this);
    Detach();
}

void FormWindow::reject()
{
    Act([this] { form_->UserClose(); });
}

void FormWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    reject();
}

// --- from the form to the window

void FormWindow::Changed(ui::Change what)
{
    formDirty_ = true;
    if (what == ui::Change::Visible && form_ != nullptr && !form_->Visible()) {
        hide();
        if (loop_ != nullptr) loop_->quit();
    }
    ChangesWaiting();
}

void FormWindow::ChangesWaiting()
{
    anyChanges_ = true;
    if (changesPosted_) return;
    changesPosted_ = true;
    QCoreApplication::postEvent(this, new QEvent(ShowChangesEvent()));
}

void FormWindow::ShowChanges()
{
    if (form_ == nullptr || !anyChanges_ || syncing_) return;
    syncing_ = true;
    // Turning a tab's page changes what its controls show: a second pass, not more.
    for (int pass = 0; pass < 2 && anyChanges_; ++pass) {
        anyChanges_ = false;
        if (std::exchange(formDirty_, false)) {
            setWindowTitle(ToQt(form_->Caption()));
            ApplySize();
            ApplyPointer();
        }
        for (const auto& view : views_)
            view->ShowChanges();
    }
    if (std::exchange(labelsMoved_, false)) LabelControls();
    syncing_ = false;
}

void FormWindow::ApplySize()
{
    const QSize size(scale_.X(form_->ScaleWidth()), scale_.Y(form_->ScaleHeight()));
    if (size == shownSize_ || size.isEmpty()) return;
    shownSize_ = size;
    if (form_->Sizable()) {
        setMinimumSize(scale_.X(2400), scale_.Y(1200));
        resize(size);
    } else {
        setFixedSize(size);
    }
}

void FormWindow::ApplyPointer()
{
    if (form_->MousePointer() == ui::vbHourglass)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

void FormWindow::FontChangedTo(const QFont& font)
{
    setFont(font);
    scale_ = Scale(font);
    shownSize_ = {};
    formDirty_ = true;
    for (const auto& view : views_)
        for (int change = 0; change <= static_cast<int>(ui::Change::Look); ++change)
            view->Changed(static_cast<ui::Change>(change));
    ShowChanges();
}

// A label names what stands to its right in the same row, else what stands below it, else the next control in tab
// order. Screen readers read it out with the box.
void FormWindow::LabelControls()
{
    for (const auto& view : views_) {
        auto* label = dynamic_cast<ui::Label*>(view->Model());
        auto* shown = qobject_cast<QLabel*>(view->Widget());
        if (label == nullptr || shown == nullptr || label->Caption().empty()) continue;
        view->Place();  // its neighbours may have moved
        const ControlView* best = nullptr;
        std::int64_t bestDistance = 0;
        for (const auto& other : views_) {
            const ui::Control* control = other->Model();
            if (control == nullptr || !control->TakesFocus() || !SamePage(*control, *label)) continue;
            if (control->TypeName() == "CommandButton" || control->Visible() != label->Visible()) continue;
            const std::int32_t middle = label->Top() + label->Height() / 2;
            const bool right = control->Left() >= label->Left() + 60 && middle >= control->Top() &&
                               middle <= control->Top() + std::min(control->Height(), 500);
            const bool below =
                control->Top() >= label->Top() + 60 && control->Top() <= label->Top() + label->Height() + 200 &&
                control->Left() < label->Left() + label->Width() && control->Left() + control->Width() > label->Left();
            if (!right && !below) continue;
            const std::int64_t distance =
                right ? control->Left() - label->Left() : 100000 + std::abs(control->Left() - label->Left());
            if (best == nullptr || distance < bestDistance) {
                best = other.get();
                bestDistance = distance;
            }
        }
        QWidget* buddy = best == nullptr ? nullptr : best->FocusWidget();
        if (shown->buddy() != buddy) shown->setBuddy(buddy);
        if (best != nullptr) {
            QString name = shown->text();
            const_cast<ControlView*>(best)->SetAccessibleName(name.remove(QLatin1Char('&')));
        }
    }
}

// Qt's focus follows the form's.
void FormWindow::SyncFocus()
{
    if (form_ == nullptr || !isVisible() || QApplication::activePopupWidget() != nullptr) return;
    const ui::Control* active = form_->ActiveControl();
    ControlView* view = active == nullptr ? nullptr : viewOf_.value(active);
    QWidget* target = view == nullptr ? this : view->FocusWidget();
    if (target == nullptr || focusWidget() == target) return;
    syncing_ = true;
    target->setFocus(Qt::OtherFocusReason);
    syncing_ = false;
}

void FormWindow::PaintNow(QWidget* widget)
{
    if (!isVisible()) return;
    ShowChanges();
    widget->repaint();
}

// --- from the user to the form

void FormWindow::Act(const std::function<void()>& action)
{
    if (form_ == nullptr) return;
    ++acting_;  // the action may close the dialog and run message loops of its own: the window stays meanwhile
    form_->Protect(action);
    --acting_;
    if (form_ == nullptr) return;
    ShowChanges();
    SyncFocus();
}

bool FormWindow::event(QEvent* event)
{
    if (event->type() == ShowChangesEvent()) {
        changesPosted_ = false;
        ShowChanges();
        SyncFocus();
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::WindowDeactivate) {
        ctrlAlone_ = false;
        if (acting_ == 0) keysDown_.clear();  // else a dialog that a key has opened: its release may still come here
    }
    return QDialog::event(event);
}

void FormWindow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange && form_ != nullptr)
        for (const auto& view : views_)
            view->Changed(ui::Change::Colour);
    QDialog::changeEvent(event);
}

void FormWindow::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    if (syncing_ || form_ == nullptr || !isVisible() || event->size() == shownSize_ || isMinimized()) return;
    shownSize_ = event->size();
    const std::int32_t width = form_->Width() - form_->ScaleWidth() + scale_.TwipsX(event->size().width());
    const std::int32_t height = form_->Height() - form_->ScaleHeight() + scale_.TwipsY(event->size().height());
    Act([&] { form_->UserResize(width, height); });
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event)
{
    ControlView* view = watched_.value(watched);
    if (view == nullptr || form_ == nullptr) return QDialog::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        // No short cut of Qt's own: letters with Alt are the form's business.
        event->accept();
        return true;
    case QEvent::KeyPress: return KeyPressed(*static_cast<QKeyEvent*>(event), view);
    case QEvent::KeyRelease: return KeyReleased(*static_cast<QKeyEvent*>(event));
    case QEvent::InputMethod: return TextComposed(*static_cast<QInputMethodEvent*>(event), view);
    case QEvent::MouseButtonPress: return MousePressed(*static_cast<QMouseEvent*>(event), *view, false);
    case QEvent::MouseButtonDblClick: return MousePressed(*static_cast<QMouseEvent*>(event), *view, true);
    case QEvent::MouseButtonRelease: return MouseReleased(*static_cast<QMouseEvent*>(event), *view);
    case QEvent::MouseMove: MouseMoved(*static_cast<QMouseEvent*>(event), *view); return false;
    case QEvent::FocusIn: FocusCame(*view, static_cast<QFocusEvent*>(event)->reason()); return false;
    default: return false;
    }
}

}  // namespace kvx::adapters::qt
