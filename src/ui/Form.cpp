#include "ui/Form.h"

#include "basic/Object.h"
#include "basic/Text.h"
#include "ui/Button.h"
#include "ui/Control.h"
#include "ui/Desktop.h"
#include "ui/Timer.h"

#include <algorithm>

namespace kvx::ui {
namespace {

// What a window's frame takes of the form's size, twips.
constexpr std::int32_t kFixedFrameWidth = 90, kFixedFrameHeight = 375;
constexpr std::int32_t kSizableFrameWidth = 120, kSizableFrameHeight = 405;

}  // namespace

Form::Form(std::string_view name) : name_(name) {}

Form::~Form()
{
    if (object_ != nullptr) ForgetObject();
    Desktop* desktop = FindCurrentDesktop();
    if (loaded_ && desktop != nullptr) desktop->FormUnloaded(*this);
    if (view_ != nullptr) view_->Gone();
}

void Form::SetCaption(std::string_view caption)
{
    caption_ = caption;
    if (view_ != nullptr) view_->Changed(Change::Text);
}

void Form::SetSize(std::int32_t widthTwips, std::int32_t heightTwips)
{
    if (widthTwips < 0 || heightTwips < 0) basic::Raise(basic::kErrInvalidProperty);
    if (widthTwips == width_ && heightTwips == height_) return;
    const std::int32_t growthX = widthTwips - width_, growthY = heightTwips - height_;
    width_ = widthTwips;
    height_ = heightTwips;
    if (view_ != nullptr) view_->Changed(Change::Geometry);
    // What is anchored was placed for the size that the form was drawn with.
    if (designed_) LayoutInside(nullptr, growthX, growthY);
    if (opened_) FormResize.Raise();
}

std::int32_t Form::ScaleWidth() const
{
    return std::max(0, width_ - (sizable_ ? kSizableFrameWidth : kFixedFrameWidth));
}

std::int32_t Form::ScaleHeight() const
{
    return std::max(0, height_ - (sizable_ ? kSizableFrameHeight : kFixedFrameHeight));
}

void Form::SetEnabled(bool enabled)
{
    enabled_ = enabled;
    if (view_ != nullptr) view_->Changed(Change::Enabled);
}

void Form::SetMousePointer(std::int16_t pointer)
{
    mousePointer_ = pointer;
    if (view_ != nullptr) view_->Changed(Change::Look);
}

std::int32_t Form::TextWidth(std::string_view text) const
{
    return CurrentDesktop().TextWidth(text);
}

std::int32_t Form::TextHeight(std::string_view text) const
{
    return CurrentDesktop().TextHeight(text);
}

void Form::LayoutInside(const Control* container, std::int32_t growthX, std::int32_t growthY)
{
    for (Control* control : controls_) {
        if (control->container_ != container || control->anchors_ == kAnchorTopLeft) continue;
        std::int32_t left = control->left_, top = control->top_, width = control->width_, height = control->height_;
        const auto follow = [&](bool near, bool far, std::int32_t growth, std::int32_t& place, std::int32_t& size) {
            if (near && far)
                size = std::max(0, size + growth);
            else if (far)
                place += growth;
        };
        follow((control->anchors_ & kAnchorLeft) != 0, (control->anchors_ & kAnchorRight) != 0, growthX, left, width);
        follow((control->anchors_ & kAnchorTop) != 0, (control->anchors_ & kAnchorBottom) != 0, growthY, top, height);
        control->Move(left, top, width, height);
    }
}

void Form::NotifyInside(Control* container, Change what)
{
    container->Notify(what);
    for (Control* control : controls_)
        for (const Control* around = control->container_; around != nullptr; around = around->container_)
            if (around == container) {
                control->Notify(what);
                break;
            }
}

void Form::ResetState()
{
    caption_.clear();
    tag_.clear();
    width_ = height_ = 0;
    enabled_ = true;
    keyPreview_ = sizable_ = opened_ = designed_ = false;
    mousePointer_ = vbDefault;
    active_ = announced_ = nullptr;
    for (Control* control : controls_)
        control->Reset();
}

void Form::Load()
{
    if (loaded_) return;
    loaded_ = true;
    try {
        ResetState();
        Design();
        designed_ = true;
        FormLoad.Raise();
    } catch (...) {
        Close();
        throw;
    }
}

void Form::Close()
{
    visible_ = loaded_ = false;
    ResetState();
    if (Desktop* desktop = FindCurrentDesktop(); desktop != nullptr) desktop->FormUnloaded(*this);
}

bool Form::Unload(std::int16_t mode)
{
    if (!loaded_) return true;
    std::int16_t cancel = 0;
    QueryUnload.Raise(cancel, mode);
    if (cancel == 0) FormUnload.Raise(cancel);
    if (cancel != 0) return false;
    if (loaded_) Close();
    return true;
}

void Form::Hide()
{
    if (!visible_) return;
    visible_ = false;
    announced_ = nullptr;
    if (view_ != nullptr) view_->Changed(Change::Visible);
}

void Form::Show()
{
    if (visible_) basic::Raise(basic::kErrFormAlreadyShown);
    Desktop& desktop = CurrentDesktop();
    Load();
    Form* behind = desktop.ActiveForm();
    failure_ = nullptr;
    if (behind != nullptr) behind->UserDeactivate();

    visible_ = true;
    desktop.ModalForms().push_back(this);
    try {
        Open();
        if (visible_) desktop.RunModal(*this);
    } catch (...) {
        failure_ = std::current_exception();
        Hide();
    }
    std::erase(desktop.ModalForms(), this);

    Form* front = desktop.ActiveForm();
    if (front != nullptr && front == behind) front->UserActivate();
    if (failure_ != nullptr) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void Form::Open()
{
    CurrentDesktop().FormShown(*this);
    if (view_ != nullptr) view_->Changed(Change::Visible);
    if (active_ == nullptr || !active_->IsReachable()) {
        const std::vector<Control*> order = TabOrder();
        active_ = order.empty() ? nullptr : order.front();
    }
    if (!opened_) {
        opened_ = true;
        Protect([this] { FormResize.Raise(); });
    }
    if (visible_) Protect([this] { FormActivate.Raise(); });
    // A handler that has set the focus has had its GotFocus already.
    if (visible_ && announced_ == nullptr && active_ != nullptr) Protect([this] { Announce(*active_); });
}

void Form::Announce(Control& control)
{
    announced_ = &control;
    control.Notify(Change::Focus);
    control.FocusGained();
    control.GotFocus.Raise();
}

Control* Form::FindControl(std::string_view name) const
{
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [&](const Control* control) { return basic::SameName(control->FullName(), name); });
    return found == controls_.end() ? nullptr : *found;
}

namespace {

template <class Wanted>
Button* FindButton(const std::vector<Control*>& controls, Wanted wanted)
{
    for (Control* control : controls) {
        auto* button = dynamic_cast<Button*>(control);
        if (button != nullptr && wanted(*button) && button->IsReachable()) return button;
    }
    return nullptr;
}

}  // namespace

Button* Form::DefaultButton() const
{
    return FindButton(controls_, [](const Button& button) { return button.Default(); });
}

Button* Form::CancelButton() const
{
    return FindButton(controls_, [](const Button& button) { return button.Cancel(); });
}

std::vector<Control*> Form::TabOrder() const
{
    std::vector<Control*> order;
    for (Control* control : controls_)
        if (control->TakesFocus() && control->StopsTab() && control->IsReachable() && control->IsShown())
            order.push_back(control);
    std::stable_sort(order.begin(), order.end(),
                     [](const Control* a, const Control* b) { return a->TabIndex() < b->TabIndex(); });
    return order;
}

Control* Form::NextInTabOrder(const Control* from, bool backwards) const
{
    std::vector<Control*> order = TabOrder();
    std::erase(order, from);
    if (order.empty()) return nullptr;
    if (from == nullptr) return backwards ? order.back() : order.front();
    // Equal numbers count in the order in which the controls were made.
    const auto behind = [&](const Control* control) {
        return control->TabIndex() != from->TabIndex() ? control->TabIndex() > from->TabIndex()
                                                       : control->ordinal_ > from->ordinal_;
    };
    const auto next = std::find_if(order.begin(), order.end(), behind);
    if (backwards) return next == order.begin() ? order.back() : *(next - 1);
    return next == order.end() ? order.front() : *next;
}

bool Form::FocusNext(bool backwards)
{
    Control* next = NextInTabOrder(active_, backwards);
    if (next == nullptr) return false;
    ChangeFocus(next);
    return true;
}

void Form::ChangeFocus(Control* control)
{
    if (control == active_ && announced_ == active_) return;
    Control* const old = announced_;
    active_ = control;
    announced_ = nullptr;
    if (old != nullptr && old != control) {
        old->Notify(Change::Focus);
        old->FocusLosing();
        old->LostFocus.Raise();
    }
    // A handler of the old control may have sent the focus elsewhere, or closed the form.
    if (control != nullptr && active_ == control && announced_ == nullptr && visible_) Announce(*control);
}

void Form::LeaveUnreachable()
{
    if (!visible_ || active_ == nullptr || active_->IsReachable()) return;
    // Ahead of the first GotFocus nobody has the focus yet: the choice is just made anew.
    Control* next = NextInTabOrder(active_, false);
    if (announced_ == nullptr)
        active_ = next;
    else
        ChangeFocus(next);
}

void Form::Register(Control& control)
{
    control.ordinal_ = control.tabIndex_ = static_cast<std::int16_t>(controls_.size());
    controls_.push_back(&control);
}

void Form::Unregister(Control& control)
{
    std::erase(controls_, &control);
    if (active_ == &control) active_ = nullptr;
    if (announced_ == &control) announced_ = nullptr;
    for (Control* other : controls_)
        if (other->container_ == &control) other->container_ = nullptr;
}

void Form::EventFailed(const basic::Error& error)
{
    EndFront(std::make_exception_ptr(error));
}

void Form::EndFront(std::exception_ptr failure)
{
    // Nobody waits for a form that is not shown: the dialog that is in front ends instead.
    Form* front = visible_ || FindCurrentDesktop() == nullptr ? this : CurrentDesktop().ActiveForm();
    if (front == nullptr) front = this;
    front->failure_ = std::move(failure);
    front->Hide();
}

}  // namespace kvx::ui
