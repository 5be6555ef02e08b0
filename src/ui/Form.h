#pragma once

#include "basic/Error.h"
#include "basic/Object.h"
#include "ui/Constants.h"
#include "ui/Event.h"
#include "ui/View.h"

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::ui {

class Button;
class Control;

/// A dialog: its controls are members of the derived class. Constructing it makes no window and fires nothing; Load
/// gives every control its design state and fires FormLoad; Show shows it modally and returns when it was hidden or
/// unloaded. The object and its own fields outlive Unload; the controls' contents do not, and the next Load starts from
/// the design again.
class Form {
public:
    /// @param name class name, by which desktops and tests address it: "F_Waldort"
    explicit Form(std::string_view name);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& Name() const { return name_; }
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string_view caption);
    std::int32_t Width() const { return width_; }  ///< twips, with frame and title
    std::int32_t Height() const { return height_; }
    void SetSize(std::int32_t widthTwips, std::int32_t heightTwips);
    void SetWidth(std::int32_t twips) { SetSize(twips, height_); }
    void SetHeight(std::int32_t twips) { SetSize(width_, twips); }
    std::int32_t ScaleWidth() const;   ///< twips, the inside
    std::int32_t ScaleHeight() const;  ///< twips, the inside
    bool Sizable() const { return sizable_; }
    void SetSizable(bool sizable) { sizable_ = sizable; }
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);  ///< disabled, it takes no input at all
    std::int16_t MousePointer() const { return mousePointer_; }
    void SetMousePointer(std::int16_t pointer);
    const std::string& Tag() const { return tag_; }
    void SetTag(std::string_view tag) { tag_ = tag; }
    bool KeyPreview() const { return keyPreview_; }
    void SetKeyPreview(bool preview) { keyPreview_ = preview; }

    /// Gives the controls their design state and fires FormLoad; nothing when it is loaded already.
    void Load();
    /// QueryUnload, FormUnload, then the window goes. @return false: a handler kept the form
    bool Unload(std::int16_t mode = vbFormCode);
    void Hide();
    /// Shows the form modally: Load if needed, FormResize, FormActivate, GotFocus of the first control. Returns when
    /// the form was hidden or unloaded.
    /// @throws basic::Error the error that left an event handler and ended the dialog; 400: it is shown already
    void Show();
    bool IsLoaded() const { return loaded_; }
    bool Visible() const { return visible_; }

    /// The controls in the order in which they were made.
    const std::vector<Control*>& Controls() const { return controls_; }
    /// @param name full name, "txtInfo(0)"; case is ignored. @return nullptr: no such control
    Control* FindControl(std::string_view name) const;
    Control* ActiveControl() const { return active_; }
    Button* DefaultButton() const;  ///< pressed by Enter; nullptr = none
    Button* CancelButton() const;   ///< pressed by Esc; nullptr = none
    /// Focus goes to the next control that can take it, in tab order. @return false: there is none
    bool FocusNext(bool backwards);
    /// Controls that can take the focus, in tab order.
    std::vector<Control*> TabOrder() const;

    std::int32_t TextWidth(std::string_view text) const;   ///< twips in the dialogs' font
    std::int32_t TextHeight(std::string_view text) const;  ///< twips, one line

    /// The form as a late-bound object: its controls are its members. Touching one loads the form.
    basic::ObjectRef Object();

    View* GetView() const { return view_; }
    void SetView(View* view) { view_ = view; }

    // --- what the user did; called by desktops only. Errors that leave a handler go to EventFailed ---

    /// Runs what a user's action sets off. An error that leaves it goes to EventFailed.
    void Protect(const std::function<void()>& action);
    /// Mouse or Tab: Validate of the old control (if the new one causes it), LostFocus, GotFocus.
    /// @return false: the focus stayed
    bool UserFocus(Control& control);
    bool UserTab(bool backwards);
    /// @return false: a handler swallowed the key, or the form has dealt with it; no reaction of the control's own
    bool UserKeyDown(std::int16_t keyCode, std::int16_t shift);
    /// Default and Cancel buttons, Enter on a focused button; any other character raises KeyPress.
    /// @param key character typed: a Unicode code point; 8, 13, 27, 1 to 26 with Ctrl
    /// @return the character that goes into the control; 0: nothing goes in
    std::int32_t UserKeyPress(std::int32_t key);
    void UserKeyUp(std::int16_t keyCode, std::int16_t shift);
    /// A whole key stroke for desktops that have no reaction of their own: KeyDown and the control's reaction, KeyPress
    /// and the character, KeyUp.
    /// @param keyCode    0 = only the character. @param character  0 = only the key
    void UserKey(std::int16_t keyCode, std::int16_t shift, std::int32_t character);
    /// Alt + letter. @return false: no control has that letter
    bool UserMnemonic(char32_t letter);
    /// Moves the focus to the control, then clicks it. @return false: it cannot be reached, or the focus stayed
    bool UserClickOn(Control& control);
    void UserClose();  ///< the close box
    void UserResize(std::int32_t widthTwips, std::int32_t heightTwips);
    void UserActivate();    ///< in front again after another form of the program; Show of that form calls it
    void UserDeactivate();  ///< another form of the program came to the front; its Show calls it

    Event<> FormLoad, FormActivate, FormDeactivate, FormResize;
    Event<std::int16_t&, std::int16_t> QueryUnload;  ///< cancel, mode
    Event<std::int16_t&> FormUnload;                 ///< cancel

protected:
    /// Captions, places, sizes, containers and other properties that the controls are drawn with.
    virtual void Design() = 0;

    /// An error has left an event handler. The default ends the modal call, and Show raises the error there.
    /// A form that stays usable shows it to the user instead.
    virtual void EventFailed(const basic::Error& error);

    /// Connects a handler that is a member function of the form.
    template <class F, class... Args>
    void On(Event<Args...>& event, void (F::*handler)(Args...))
    {
        event.Connect([self = static_cast<F*>(this), handler](Args... args) { (self->*handler)(args...); });
    }
    /// The same for controls of an array or several controls that share a handler: bound values come first.
    template <class F, class... Args, class Bound>
    void On(Event<Args...>& event, void (F::*handler)(Bound, Args...), std::type_identity_t<Bound> bound)
    {
        event.Connect(
            [self = static_cast<F*>(this), handler, bound](Args... args) { (self->*handler)(bound, args...); });
    }

private:
    friend class Control;
    void Register(Control& control);
    void Unregister(Control& control);
    void ChangeFocus(Control* control);  ///< LostFocus and GotFocus, no Validate
    void LeaveUnreachable();             ///< the focus moves on when its control was hidden or disabled
    bool TakesInput() const;             ///< shown, enabled, and no other form in front
    void Open();
    void Close();
    void Announce(Control& control);
    bool MoveFocusTo(Control& control);
    Control* NextInTabOrder(const Control* from, bool backwards) const;
    Button* PressedBy(std::int32_t key) const;  ///< by Enter or Esc from where the focus is; nullptr = none
    void ForgetObject();
    void EndFront(std::exception_ptr failure);
    void ResetState();
    /// Anchored controls directly inside the container (nullptr = the form) follow its growth.
    void LayoutInside(const Control* container, std::int32_t growthX, std::int32_t growthY);
    void NotifyInside(Control* container, Change what);  ///< the container and everything in it

    std::string name_, caption_, tag_;
    std::int32_t width_ = 0, height_ = 0;
    bool sizable_ = false, enabled_ = true, keyPreview_ = false, loaded_ = false, visible_ = false;
    std::int16_t mousePointer_ = vbDefault;
    std::vector<Control*> controls_;
    Control* active_ = nullptr;
    Control* announced_ = nullptr;  // the control that GotFocus was raised for
    bool designed_ = false;         // the size from Design is known
    bool keyDownMovedFocus_ = false;  // by the key whose character comes next
    bool opened_ = false;           // FormResize has told the first size
    std::exception_ptr failure_;
    std::shared_ptr<basic::Object> object_;
    View* view_ = nullptr;
};

/// The letter behind "&" in a caption; 0 = none. "&&" stands for the sign itself.
char32_t MnemonicOf(std::string_view caption);
/// The caption as it is read, without the sign.
std::string PlainCaption(std::string_view caption);

}  // namespace kvx::ui
