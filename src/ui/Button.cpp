#include "ui/Button.h"

#include "ui/Form.h"
#include "ui/MemberRows.h"

namespace kvx::ui {

Button::Button(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

const basic::MemberTable<Button>& Button::Members()
{
    using namespace rows;
    using T = Button;
    static constexpr basic::Member<T> kRows[] = {
        ReadWrite<T, &T::Caption, &T::SetCaption>("Caption"),
        ReadWrite<T, &T::Default, &T::SetDefault>("Default"),
        ReadWrite<T, &T::Cancel, &T::SetCancel>("Cancel"),
        ReadWrite<T, &T::Value, &T::SetValue>("Value"),
        ReadWrite<T, &T::Value, &T::SetValue>(""),
    };
    static constexpr basic::MemberTable<T> kTable{"CommandButton", kRows};
    return kTable;
}

void Button::Reset()
{
    Control::Reset();
    caption_.clear();
    default_ = cancel_ = false;
}

void Button::SetCaption(std::string_view caption)
{
    caption_ = caption;
    Notify(Change::Text);
}

void Button::SetDefault(bool isDefault)
{
    if (isDefault)
        for (Control* control : Owner().Controls())
            if (auto* other = dynamic_cast<Button*>(control); other != nullptr && other != this && other->default_)
                other->SetDefault(false);
    default_ = isDefault;
    Notify(Change::Look);
}

void Button::SetCancel(bool isCancel)
{
    if (isCancel)
        for (Control* control : Owner().Controls())
            if (auto* other = dynamic_cast<Button*>(control); other != nullptr && other != this && other->cancel_)
                other->SetCancel(false);
    cancel_ = isCancel;
    Notify(Change::Look);
}

void Button::SetValue(bool value)
{
    if (value) Click.Raise();
}

bool Button::DefaultKeyPress(std::int32_t key)
{
    if (key != vbKeySpace) return false;
    UserClick();
    return true;
}

}  // namespace kvx::ui
