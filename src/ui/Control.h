#pragma once

#include "basic/Object.h"
#include "ui/Constants.h"
#include "ui/Event.h"
#include "ui/View.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace kvx::ui {

class Form;

/// What every control has: a name, a place, a state, the focus, and members that late binding finds.
/// Controls are plain members of their form and decide what keys, focus and assignment do; a window or a test only
/// reports what the user did and shows what it reads here. Positions and sizes are twips within the container.
class Control {
public:
    /// @param name as forms address it: "txtWO1"; elements of control arrays "txtInfo(0)"
    Control(Form& form, std::string_view name);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// The kind as late binding names it: "TextBox", "CommandButton", ...
    virtual std::string_view TypeName() const = 0;

    Form& Owner() const { return form_; }
    const std::string& FullName() const { return fullName_; }  ///< "txtInfo(0)"
    std::string_view Name() const;                             ///< "txtInfo"
    std::int16_t Index() const { return index_; }              ///< place in a control array, -1 = none

    std::int32_t Left() const { return left_; }
    std::int32_t Top() const { return top_; }
    std::int32_t Width() const { return width_; }
    std::int32_t Height() const { return height_; }
    void SetLeft(std::int32_t twips);
    void SetTop(std::int32_t twips);
    void SetWidth(std::int32_t twips);   ///< @throws basic::Error 380: negative
    void SetHeight(std::int32_t twips);  ///< @throws basic::Error 380: negative
    void Move(std::int32_t leftTwips, std::int32_t topTwips, std::int32_t widthTwips, std::int32_t heightTwips);

    /// The frame, tab page or picture box that the control stands in; nullptr = the form itself.
    Control* Container() const { return container_; }
    void SetContainer(Control* container);
    /// Page of a tab strip that the control stands on; only with an SSTab as container.
    std::int16_t ContainerTab() const { return containerTab_; }
    void SetContainerTab(std::int16_t tab);
    std::uint8_t Anchors() const { return anchors_; }
    void SetAnchors(std::uint8_t anchors) { anchors_ = anchors; }

    bool Visible() const { return visible_; }
    void SetVisible(bool visible);  ///< hiding the focused control moves the focus on
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);  ///< disabling the focused control moves the focus on
    /// Visible and enabled, itself and every container. A page that is not in front does not count as hidden.
    bool IsReachable() const;
    bool IsShown() const;  ///< visible, itself and every container, on pages in front

    std::int16_t TabIndex() const { return tabIndex_; }
    void SetTabIndex(std::int16_t index) { tabIndex_ = index; }
    bool TabStop() const { return tabStop_; }
    void SetTabStop(bool stop) { tabStop_ = stop; }
    bool CausesValidation() const { return causesValidation_; }
    void SetCausesValidation(bool causes) { causesValidation_ = causes; }

    const std::string& Tag() const { return tag_; }
    void SetTag(std::string_view tag) { tag_ = tag; }
    const std::string& ToolTipText() const { return toolTipText_; }
    void SetToolTipText(std::string_view text);
    Color BackColor() const { return backColor_; }
    void SetBackColor(Color color);
    Color ForeColor() const { return foreColor_; }
    void SetForeColor(Color color);
    bool FontBold() const { return fontBold_; }
    void SetFontBold(bool bold);

    /// Whether this kind of control can ever hold the focus (a label cannot).
    virtual bool TakesFocus() const { return true; }
    /// Whether the Tab key stops here now, if the control can be reached at all.
    virtual bool StopsTab() const { return tabStop_; }
    /// The text that carries the letter for Alt: "&Neu"; empty for kinds without one.
    virtual std::string_view MnemonicText() const { return {}; }
    /// Enter belongs to the control and does not press the default button.
    virtual bool KeepsReturn() const { return false; }
    /// An edit inside the control takes every key: neither key events nor buttons see them.
    virtual bool CapturesKeys() const { return false; }
    bool HasFocus() const;
    /// Moves the focus here: LostFocus of the old control and GotFocus run inside, Validate does not.
    /// @throws basic::Error 5: not visible, not enabled, in such a container, or the form is not shown
    void SetFocus();

    /// The control as a late-bound object. It stays valid when the control is gone: every use is then error 91.
    basic::ObjectRef Object();
    /// Members that every control has: "Name", "Visible", "Left", "SetFocus" ...; a kind adds its own (ControlOf).
    virtual basic::Variant GetMember(std::string_view member, std::span<const basic::Variant> args);
    virtual void PutMember(std::string_view member, const basic::Variant& value, std::span<const basic::Variant> args);
    virtual basic::Variant CallMember(std::string_view member, std::span<basic::Variant> args);

    /// The window side; one at most, nullptr = none. The control does not own it.
    View* GetView() const { return view_; }
    void SetView(View* view) { view_ = view; }
    void Notify(Change what) const
    {
        if (view_ != nullptr) view_->Changed(what);
    }

    /// Back to the state of a control that was just drawn; runs before Form::Design when the form loads.
    virtual void Reset();

    // --- what the user did; called by desktops only, always through the form's User... functions or inside
    //     Form::Protect, so that an error that leaves a handler ends up where it belongs ---

    /// The control's own reaction to a key that no handler swallowed (caret, list cursor, toggling by Space).
    /// Windows that bring their own reaction do not call it.
    /// @return false: the control has no use for the key
    virtual bool DefaultKeyDown(std::int16_t keyCode, std::int16_t shift);
    /// The same for a character, after KeyPress. @param key Unicode code point
    virtual bool DefaultKeyPress(std::int32_t key);
    /// A mouse click (button press and release) on the control, after the focus has moved.
    virtual void UserClick();
    virtual void UserDblClick();
    /// Another control (or this one) was dropped here. @param x,y place within this control, twips
    void UserDrop(Control& source, std::int32_t xTwips, std::int32_t yTwips);

    Event<> GotFocus, LostFocus, Click, DblClick;
    Event<bool&> Validate;                       ///< set true to keep the focus
    Event<std::int16_t&, std::int16_t> KeyDown;  ///< key code (0 swallows the control's own reaction), shift mask
    Event<std::int16_t&, std::int16_t> KeyUp;
    Event<std::int32_t&> KeyPress;  ///< character; a handler may change it, 0 swallows it
    Event<std::int16_t, std::int16_t, std::int32_t, std::int32_t> MouseDown, MouseMove,
        MouseUp;                                           ///< button, shift, x, y
    Event<Control&, std::int32_t, std::int32_t> DragDrop;  ///< dragged control, x, y in twips

protected:
    virtual Color DrawnBackColor() const { return kColorButtonFace; }
    virtual Color DrawnForeColor() const { return kColorButtonText; }
    virtual void EnabledChanged() {}  ///< after SetEnabled changed it
    virtual void FocusGained() {}     ///< ahead of GotFocus
    virtual void FocusLosing() {}     ///< ahead of LostFocus; the focus has already moved
    virtual void Resized(std::int32_t oldWidthTwips, std::int32_t oldHeightTwips);  ///< lays out what stands inside
    void NotifyContents(Change what);  ///< this control and everything in it
    /// Runs the work from the message loop inside Form::Protect, unless the control is gone by then.
    void PostProtected(std::function<void()> work);

private:
    friend class Form;
    Form& form_;
    std::string fullName_;
    std::int16_t index_ = -1;
    std::int32_t left_ = 0, top_ = 0, width_ = 0, height_ = 0;
    Control* container_ = nullptr;
    std::int16_t containerTab_ = 0;
    std::uint8_t anchors_ = kAnchorTopLeft;
    bool visible_ = true, enabled_ = true, tabStop_ = true, causesValidation_ = true, fontBold_ = false;
    std::int16_t tabIndex_ = 0, ordinal_ = 0;
    std::string tag_, toolTipText_;
    Color backColor_ = kColorButtonFace, foreColor_ = kColorButtonText;
    std::shared_ptr<basic::Object> object_;
    std::shared_ptr<char> life_;  // made by PostProtected; work that waits sees when it is gone
    View* view_ = nullptr;
};

}  // namespace kvx::ui
