#include "ui/Form.h"
#include "basic/Text.h"
#include "ui/Button.h"
#include "ui/Control.h"
#include "ui/Desktop.h"

#include <algorithm>
#include <utility>

// What the user does to a form: focus, keys, closing.
namespace kvx::ui {

void Form::Protect(const std::function<void()>& action)
{
    try {
        action();
    } catch (const basic::Error& error) {
        EventFailed(error);
    } catch (...) {
        // Not an error of a database or a handler but a fault: no form goes on with it.
        EndFront(std::current_exception());
    }
}

bool Form::TakesInput() const
{
    return visible_ && enabled_ && CurrentDesktop().ActiveForm() == this;
}

bool Form::MoveFocusTo(Control& control)
{
    if (&control == active_ && announced_ == active_) return true;
    if (active_ != nullptr && control.CausesValidation()) {
        bool cancel = false;
        active_->Validate.Raise(cancel);
        if (cancel || !visible_) return false;
    }
    // Validate may have shown a message, disabled the target, or moved the focus on its own.
    if (!control.IsReachable()) return false;
    ChangeFocus(&control);
    return visible_ && active_ == &control;
}

bool Form::UserFocus(Control& control)
{
    if (!TakesInput() || !control.TakesFocus() || !control.IsReachable() || !control.IsShown()) return false;
    bool moved = false;
    Protect([&] { moved = MoveFocusTo(control); });
    return moved;
}

bool Form::UserTab(bool backwards)
{
    if (!TakesInput()) return false;
    Control* next = NextInTabOrder(active_, backwards);
    return next != nullptr && UserFocus(*next);
}

bool Form::UserKeyDown(std::int16_t keyCode, std::int16_t shift)
{
    keyDownMovedFocus_ = false;
    if (!TakesInput() || active_ == nullptr) return false;
    if (active_->CapturesKeys()) return true;
    if (keyCode == vbKeyTab && (shift & (vbCtrlMask | vbAltMask)) == 0 && NextInTabOrder(active_, false) != nullptr) {
        UserTab((shift & vbShiftMask) != 0);
        return false;
    }
    if (shift == 0 && (keyCode == vbKeyReturn || keyCode == vbKeyEscape) && PressedBy(keyCode) != nullptr)
        return false;  // a button takes the key; it is pressed with the character
    const Control* before = active_;
    Protect([&] { active_->KeyDown.Raise(keyCode, shift); });
    keyDownMovedFocus_ = active_ != before;
    return keyCode != 0 && visible_;
}

Button* Form::PressedBy(std::int32_t key) const
{
    if (key == vbKeyEscape) return CancelButton();
    if (key != vbKeyReturn || active_ == nullptr) return nullptr;
    if (auto* focused = dynamic_cast<Button*>(active_); focused != nullptr) return focused;
    return active_->KeepsReturn() ? nullptr : DefaultButton();
}

std::int32_t Form::UserKeyPress(std::int32_t key)
{
    if (!TakesInput() || active_ == nullptr) return 0;
    if (active_->CapturesKeys()) return key;
    // A key that has just moved the focus to a button does not press it as well: the user sees where he is first.
    const bool justMoved = std::exchange(keyDownMovedFocus_, false);
    if (Button* button = PressedBy(key); button != nullptr && !(justMoved && button == active_)) {
        // The key presses the button from where the user is: no focus moves, so no box is validated or saved.
        Protect([&] { button->UserClick(); });
        return 0;
    }
    Protect([&] { active_->KeyPress.Raise(key); });
    return visible_ ? key : 0;
}

void Form::UserKeyUp(std::int16_t keyCode, std::int16_t shift)
{
    if (!TakesInput() || active_ == nullptr || active_->CapturesKeys()) return;
    Protect([&] { active_->KeyUp.Raise(keyCode, shift); });
}

void Form::UserKey(std::int16_t keyCode, std::int16_t shift, std::int32_t character)
{
    Control* target = active_;
    if (keyCode != 0 && UserKeyDown(keyCode, shift) && target == active_)
        Protect([&] { target->DefaultKeyDown(keyCode, shift); });
    if (character != 0) {
        const std::int32_t left = UserKeyPress(character);
        if (left != 0 && active_ != nullptr) Protect([&] { active_->DefaultKeyPress(left); });
    }
    if (keyCode != 0) UserKeyUp(keyCode, shift);
}

bool Form::UserMnemonic(char32_t letter)
{
    if (!TakesInput()) return false;
    const char32_t wanted = basic::LowerCharacter(letter);
    for (Control* control : controls_) {
        const char32_t own = MnemonicOf(control->MnemonicText());
        if (own == 0 || basic::LowerCharacter(own) != wanted || !control->IsReachable() || !control->IsShown())
            continue;
        if (control->TakesFocus()) return UserClickOn(*control);
        Control* next = NextInTabOrder(control, false);
        return next != nullptr && UserFocus(*next);
    }
    return false;
}

bool Form::UserClickOn(Control& control)
{
    if (!TakesInput() || !control.IsReachable() || !control.IsShown()) return false;
    if (control.TakesFocus() && !UserFocus(control)) return false;
    Protect([&] { control.UserClick(); });
    return true;
}

void Form::UserClose()
{
    if (TakesInput()) Protect([this] { Unload(vbFormControlMenu); });
}

void Form::UserResize(std::int32_t widthTwips, std::int32_t heightTwips)
{
    if (visible_) Protect([&] { SetSize(std::max(0, widthTwips), std::max(0, heightTwips)); });
}

void Form::UserActivate()
{
    if (visible_) Protect([this] { FormActivate.Raise(); });
}

void Form::UserDeactivate()
{
    if (visible_) Protect([this] { FormDeactivate.Raise(); });
}

char32_t MnemonicOf(std::string_view caption)
{
    while (!caption.empty()) {
        if (basic::NextCharacter(caption) != U'&' || caption.empty()) continue;
        if (const char32_t letter = basic::NextCharacter(caption); letter != U'&') return letter;
    }
    return 0;
}

std::string PlainCaption(std::string_view caption)
{
    std::string plain;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && ++i == caption.size()) break;
        plain += caption[i];
    }
    return plain;
}

}  // namespace kvx::ui
