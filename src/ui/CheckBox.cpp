#include "ui/CheckBox.h"

#include "ui/MemberRows.h"

namespace kvx::ui {

CheckBox::CheckBox(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

const basic::MemberTable<CheckBox>& CheckBox::Members()
{
    using namespace rows;
    using T = CheckBox;
    static constexpr basic::Member<T> kRows[] = {
        ReadWrite<T, &T::Value, &T::SetValue>("Value"),
        ReadWrite<T, &T::Value, &T::SetValue>(""),
        ReadWrite<T, &T::Caption, &T::SetCaption>("Caption"),
    };
    static constexpr basic::MemberTable<T> kTable{"CheckBox", kRows};
    return kTable;
}

void CheckBox::Reset()
{
    Control::Reset();
    caption_.clear();
    value_ = vbUnchecked;
}

void CheckBox::SetCaption(std::string_view caption)
{
    caption_ = caption;
    Notify(Change::Text);
}

void CheckBox::SetValue(std::int16_t value)
{
    if (value < vbUnchecked || value > vbGrayed) basic::Raise(basic::kErrInvalidProperty);
    if (value == value_) return;
    value_ = value;
    Notify(Change::Value);
    Click.Raise();
}

void CheckBox::UserClick()
{
    SetValue(value_ == vbUnchecked ? vbChecked : vbUnchecked);
}

bool CheckBox::DefaultKeyPress(std::int32_t key)
{
    if (key != vbKeySpace) return false;
    UserClick();
    return true;
}

}  // namespace kvx::ui
