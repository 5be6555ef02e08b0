#pragma once

#include "basic/Variant.h"
#include "ui/Constants.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::ui {

class Control;
class Form;
class Timer;

/// What the dialogs need of the place they run on. Two kinds exist: windows on a screen, and a scripted user.
class Desktop {
public:
    virtual ~Desktop() = default;

    /// The form became visible: its window comes up, ahead of FormActivate. Called by Form::Show only.
    virtual void FormShown(Form& form) = 0;
    /// Lets the user work until form.Visible() is false. Called by Form::Show only, after FormActivate and the first
    /// focus, and not at all when one of these has hidden the form.
    virtual void RunModal(Form& form) = 0;
    virtual void FormUnloaded(Form& form) = 0;  ///< its window goes

    /// @param flags buttons + icon + default button, as vbYesNo + vbQuestion
    /// @return vbOK .. vbNo
    virtual std::int32_t MessageBox(std::string_view prompt, std::int32_t flags, std::string_view title) = 0;
    /// @return the text typed; empty on Cancel
    virtual std::string InputBox(std::string_view prompt, std::string_view title, std::string_view defaultText) = 0;

    virtual void DoEvents() = 0;  ///< handles all waiting input, posted work and timers
    /// Runs the work from the message loop, after the handler that is running now has returned.
    virtual void Post(std::function<void()> work) = 0;
    /// Queues key strokes for the control that is focused then: "{TAB}", "{HOME}", "+{END}", plain characters.
    virtual void SendKeys(std::string_view keys) = 0;

    virtual void TimerChanged(Timer& timer) = 0;  ///< enabled, disabled, another interval, or about to go

    virtual std::string ClipboardText() = 0;
    virtual void SetClipboardText(std::string_view text) = 0;

    /// Size of a text in the dialogs' font, in twips.
    virtual std::int32_t TextWidth(std::string_view text);
    virtual std::int32_t TextHeight(std::string_view text);

    virtual basic::Date Now() = 0;  ///< local date and time
    virtual std::int64_t TickMilliseconds() = 0;

    std::int16_t MousePointer() const { return mousePointer_; }  ///< Screen.MousePointer; overrides the forms'
    virtual void SetMousePointer(std::int16_t pointer) { mousePointer_ = pointer; }

    /// The form on top that is shown; nullptr = none.
    Form* ActiveForm() const;
    /// Its focused control (Screen.ActiveControl). @throws basic::Error 91: there is none
    Control& ActiveControl() const;

    /// Forms shown modally, the one on top last; kept by Form::Show.
    std::vector<Form*>& ModalForms() { return modalForms_; }
    const std::vector<Form*>& ModalForms() const { return modalForms_; }

private:
    std::int16_t mousePointer_ = vbDefault;
    std::vector<Form*> modalForms_;
};

/// The desktop of this thread. @throws basic::Error 91: none was set
Desktop& CurrentDesktop();
/// The same; nullptr when none was set.
Desktop* FindCurrentDesktop();
/// @param desktop not owned; nullptr = none
void SetCurrentDesktop(Desktop* desktop);

}  // namespace kvx::ui
