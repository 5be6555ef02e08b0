#include "ui/OptionButton.h"

#include "ui/Form.h"
#include "ui/MemberRows.h"

#include <algorithm>

namespace kvx::ui {

OptionButton::OptionButton(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

const basic::MemberTable<OptionButton>& OptionButton::Members()
{
    using namespace rows;
    using T = OptionButton;
    static constexpr basic::Member<T> kRows[] = {
        ReadWrite<T, &T::Value, &T::SetValue>("Value"),
        ReadWrite<T, &T::Value, &T::SetValue>(""),
        ReadWrite<T, &T::Caption, &T::SetCaption>("Caption"),
    };
    static constexpr basic::MemberTable<T> kTable{"OptionButton", kRows};
    return kTable;
}

void OptionButton::Reset()
{
    Control::Reset();
    caption_.clear();
    value_ = false;
}

void OptionButton::SetCaption(std::string_view caption)
{
    caption_ = caption;
    Notify(Change::Text);
}

// Those in the same container, in tab order, this one among them.
std::vector<OptionButton*> OptionButton::Group() const
{
    std::vector<OptionButton*> group;
    for (Control* control : Owner().Controls())
        if (auto* option = dynamic_cast<OptionButton*>(control);
            option != nullptr && option->Container() == Container() && option->ContainerTab() == ContainerTab())
            group.push_back(option);
    std::stable_sort(group.begin(), group.end(),
                     [](const Control* a, const Control* b) { return a->TabIndex() < b->TabIndex(); });
    return group;
}

void OptionButton::SetValue(bool value)
{
    if (value == value_) return;
    value_ = value;
    if (value)
        for (OptionButton* other : Group())
            if (other != this && other->value_) {
                other->value_ = false;
                other->Notify(Change::Value);
            }
    Notify(Change::Value);
    if (value) Click.Raise();
}

bool OptionButton::StopsTab() const
{
    if (!TabStop()) return false;
    const std::vector<OptionButton*> group = Group();
    const auto chosen = std::find_if(group.begin(), group.end(), [](const OptionButton* o) { return o->value_; });
    return (chosen != group.end() ? *chosen : group.front()) == this;
}

void OptionButton::UserClick()
{
    SetValue(true);
}

bool OptionButton::DefaultKeyDown(std::int16_t keyCode, std::int16_t)
{
    const bool back = keyCode == vbKeyUp || keyCode == vbKeyLeft;
    if (!back && keyCode != vbKeyDown && keyCode != vbKeyRight) return false;
    const std::vector<OptionButton*> group = Group();
    const auto count = static_cast<std::ptrdiff_t>(group.size());
    std::ptrdiff_t at = std::find(group.begin(), group.end(), this) - group.begin();
    for (std::ptrdiff_t step = 1; step < count; ++step) {
        at = (at + (back ? count - 1 : 1)) % count;
        OptionButton* next = group[static_cast<std::size_t>(at)];
        if (!next->IsReachable()) continue;
        if (Owner().UserFocus(*next)) next->SetValue(true);
        break;
    }
    return true;
}

bool OptionButton::DefaultKeyPress(std::int32_t key)
{
    if (key != vbKeySpace) return false;
    UserClick();
    return true;
}

}  // namespace kvx::ui
