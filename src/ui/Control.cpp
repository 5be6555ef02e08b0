#include "ui/Control.h"

#include "basic/Error.h"
#include "basic/Text.h"
#include "ui/Desktop.h"
#include "ui/Form.h"
#include "ui/MemberRows.h"
#include "ui/SSTab.h"

#include <charconv>

namespace kvx::ui {

/// What late binding holds of a control. The control may go first.
class ControlObject final : public basic::Object {
public:
    explicit ControlObject(Control& control) : control_(&control), typeName_(control.TypeName()) {}
    void ControlGone() { control_ = nullptr; }

    std::string TypeName() const override { return typeName_; }
    basic::Variant Get(std::string_view member, std::span<const basic::Variant> args) override
    {
        return Touch().GetMember(member, args);
    }
    void Put(std::string_view member, const basic::Variant& value, std::span<const basic::Variant> args) override
    {
        Touch().PutMember(member, value, args);
    }
    basic::Variant Call(std::string_view member, std::span<basic::Variant> args) override
    {
        return Touch().CallMember(member, args);
    }

private:
    // The first touch of a control loads its form.
    Control& Touch()
    {
        if (control_ == nullptr) basic::Raise(basic::kErrObjectNotSet);
        control_->Owner().Load();
        return *control_;
    }
    Control* control_;
    std::string typeName_;
};

namespace {

constexpr std::string_view kNoIndex = "(";

const basic::MemberTable<Control>& CommonMembers()
{
    using namespace rows;
    static constexpr basic::Member<Control> kRows[] = {
        {.name = "Name", .get = [](Control& c, Args) { return Variant(c.Name()); }},
        ReadOnly<Control, &Control::Index>("Index"),
        ReadWrite<Control, &Control::Left, &Control::SetLeft>("Left"),
        ReadWrite<Control, &Control::Top, &Control::SetTop>("Top"),
        ReadWrite<Control, &Control::Width, &Control::SetWidth>("Width"),
        ReadWrite<Control, &Control::Height, &Control::SetHeight>("Height"),
        ReadWrite<Control, &Control::Visible, &Control::SetVisible>("Visible"),
        ReadWrite<Control, &Control::Enabled, &Control::SetEnabled>("Enabled"),
        ReadWrite<Control, &Control::TabIndex, &Control::SetTabIndex>("TabIndex"),
        ReadWrite<Control, &Control::TabStop, &Control::SetTabStop>("TabStop"),
        ReadWrite<Control, &Control::CausesValidation, &Control::SetCausesValidation>("CausesValidation"),
        ReadWrite<Control, &Control::Tag, &Control::SetTag>("Tag"),
        ReadWrite<Control, &Control::ToolTipText, &Control::SetToolTipText>("ToolTipText"),
        ReadWrite<Control, &Control::BackColor, &Control::SetBackColor>("BackColor"),
        ReadWrite<Control, &Control::ForeColor, &Control::SetForeColor>("ForeColor"),
        ReadWrite<Control, &Control::FontBold, &Control::SetFontBold>("FontBold"),
        {.name = "Parent", .get = [](Control& c, Args) { return Variant(c.Owner().Object()); }},
        {.name = "Container",
         .get = [](Control& c,
                   Args) { return Variant(c.Container() != nullptr ? c.Container()->Object() : c.Owner().Object()); }},
        Method<Control, &Control::SetFocus>("SetFocus"),
        {.name = "Move",
         .call =
             [](Control& c, std::span<Variant> args) {
                 const auto number = [&](std::size_t index, std::int32_t otherwise) {
                     return index < args.size() && !args[index].IsEmpty() ? basic::CLng(args[index]) : otherwise;
                 };
                 c.Move(number(0, c.Left()), number(1, c.Top()), number(2, c.Width()), number(3, c.Height()));
                 return Variant{};
             }},
    };
    static constexpr basic::MemberTable<Control> kTable{"Control", kRows};
    return kTable;
}

}  // namespace

Control::Control(Form& form, std::string_view name) : form_(form), fullName_(name)
{
    if (const std::size_t bracket = fullName_.find(kNoIndex); bracket != std::string::npos)
        std::from_chars(fullName_.data() + bracket + 1, fullName_.data() + fullName_.size(), index_);
    form_.Register(*this);
}

Control::~Control()
{
    if (object_ != nullptr) static_cast<ControlObject&>(*object_).ControlGone();
    if (view_ != nullptr) view_->Gone();
    form_.Unregister(*this);
}

std::string_view Control::Name() const
{
    return std::string_view{fullName_}.substr(0, fullName_.find(kNoIndex));
}

void Control::SetLeft(std::int32_t twips)
{
    Move(twips, top_, width_, height_);
}
void Control::SetTop(std::int32_t twips)
{
    Move(left_, twips, width_, height_);
}
void Control::SetWidth(std::int32_t twips)
{
    Move(left_, top_, twips, height_);
}
void Control::SetHeight(std::int32_t twips)
{
    Move(left_, top_, width_, twips);
}

void Control::Move(std::int32_t leftTwips, std::int32_t topTwips, std::int32_t widthTwips, std::int32_t heightTwips)
{
    if (widthTwips < 0 || heightTwips < 0) basic::Raise(basic::kErrInvalidProperty);
    if (leftTwips == left_ && topTwips == top_ && widthTwips == width_ && heightTwips == height_) return;
    const std::int32_t oldWidth = width_, oldHeight = height_;
    left_ = leftTwips;
    top_ = topTwips;
    width_ = widthTwips;
    height_ = heightTwips;
    Notify(Change::Geometry);
    if (oldWidth != width_ || oldHeight != height_) Resized(oldWidth, oldHeight);
}

void Control::Resized(std::int32_t oldWidthTwips, std::int32_t oldHeightTwips)
{
    form_.LayoutInside(this, width_ - oldWidthTwips, height_ - oldHeightTwips);
}

void Control::SetContainer(Control* container)
{
    container_ = container;
    Notify(Change::Geometry);
    Notify(Change::Visible);
}

void Control::SetContainerTab(std::int16_t tab)
{
    containerTab_ = tab;
    Notify(Change::Visible);
}

void Control::SetVisible(bool visible)
{
    if (visible == visible_) return;
    visible_ = visible;
    form_.NotifyInside(this, Change::Visible);
    if (!visible) form_.LeaveUnreachable();
}

void Control::SetEnabled(bool enabled)
{
    if (enabled == enabled_) return;
    enabled_ = enabled;
    form_.NotifyInside(this, Change::Enabled);
    EnabledChanged();
    if (!enabled) form_.LeaveUnreachable();
}

bool Control::IsReachable() const
{
    for (const Control* control = this; control != nullptr; control = control->container_)
        if (!control->visible_ || !control->enabled_) return false;
    return true;
}

bool Control::IsShown() const
{
    for (const Control* control = this; control != nullptr; control = control->container_) {
        if (!control->visible_) return false;
        const auto* tab = dynamic_cast<const SSTab*>(control->container_);
        if (tab != nullptr && tab->Tab() != control->containerTab_) return false;
    }
    return true;
}

void Control::SetToolTipText(std::string_view text)
{
    toolTipText_ = text;
    Notify(Change::Look);
}

void Control::SetBackColor(Color color)
{
    backColor_ = color;
    Notify(Change::Colour);
}

void Control::SetForeColor(Color color)
{
    foreColor_ = color;
    Notify(Change::Colour);
}

void Control::SetFontBold(bool bold)
{
    fontBold_ = bold;
    Notify(Change::Look);
}

bool Control::HasFocus() const
{
    return form_.Visible() && form_.ActiveControl() == this;
}

void Control::SetFocus()
{
    if (!form_.Visible() || !TakesFocus() || !IsReachable()) basic::Raise(basic::kErrInvalidCall);
    form_.ChangeFocus(this);
}

basic::ObjectRef Control::Object()
{
    if (object_ == nullptr) object_ = std::make_shared<ControlObject>(*this);
    return object_;
}

basic::Variant Control::GetMember(std::string_view member, std::span<const basic::Variant> args)
{
    if (!CommonMembers().Has(member)) basic::RaiseNoMember(TypeName(), member);
    return CommonMembers().Get(*this, member, args);
}

void Control::PutMember(std::string_view member, const basic::Variant& value, std::span<const basic::Variant> args)
{
    if (!CommonMembers().Has(member)) basic::RaiseNoMember(TypeName(), member);
    CommonMembers().Put(*this, member, value, args);
}

basic::Variant Control::CallMember(std::string_view member, std::span<basic::Variant> args)
{
    if (!CommonMembers().Has(member)) basic::RaiseNoMember(TypeName(), member);
    return CommonMembers().Call(*this, member, args);
}

void Control::Reset()
{
    left_ = top_ = width_ = height_ = 0;
    container_ = nullptr;
    containerTab_ = 0;
    anchors_ = kAnchorTopLeft;
    visible_ = enabled_ = tabStop_ = causesValidation_ = true;
    fontBold_ = false;
    tabIndex_ = ordinal_;
    tag_.clear();
    toolTipText_.clear();
    backColor_ = DrawnBackColor();
    foreColor_ = DrawnForeColor();
}

bool Control::DefaultKeyDown(std::int16_t, std::int16_t)
{
    return false;
}

bool Control::DefaultKeyPress(std::int32_t)
{
    return false;
}

void Control::UserClick()
{
    Click.Raise();
}

void Control::UserDblClick()
{
    DblClick.Raise();
}

void Control::UserDrop(Control& source, std::int32_t xTwips, std::int32_t yTwips)
{
    DragDrop.Raise(source, xTwips, yTwips);
}

void Control::NotifyContents(Change what)
{
    form_.NotifyInside(this, what);
}

void Control::PostProtected(std::function<void()> work)
{
    if (life_ == nullptr) life_ = std::make_shared<char>();
    CurrentDesktop().Post([this, life = std::weak_ptr<char>{life_}, work = std::move(work)] {
        if (!life.expired()) form_.Protect(work);
    });
}

}  // namespace kvx::ui
