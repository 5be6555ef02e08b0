#include "ui/ProgressBar.h"

#include "ui/MemberRows.h"

#include <algorithm>

namespace kvx::ui {

ProgressBar::ProgressBar(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

const basic::MemberTable<ProgressBar>& ProgressBar::Members()
{
    using namespace rows;
    using T = ProgressBar;
    static constexpr basic::Member<T> kRows[] = {
        ReadWrite<T, &T::Value, &T::SetValue>("Value"),
        ReadWrite<T, &T::Value, &T::SetValue>(""),
        ReadWrite<T, &T::Min, &T::SetMin>("Min"),
        ReadWrite<T, &T::Max, &T::SetMax>("Max"),
    };
    static constexpr basic::MemberTable<T> kTable{"ProgressBar", kRows};
    return kTable;
}

void ProgressBar::Reset()
{
    Control::Reset();
    min_ = value_ = 0;
    max_ = 100;
}

void ProgressBar::SetMin(float min)
{
    if (min >= max_) basic::Raise(basic::kErrInvalidProperty);
    min_ = min;
    value_ = std::max(value_, min_);
    Notify(Change::Value);
}

void ProgressBar::SetMax(float max)
{
    if (max <= min_) basic::Raise(basic::kErrInvalidProperty);
    max_ = max;
    value_ = std::min(value_, max_);
    Notify(Change::Value);
}

void ProgressBar::SetValue(float value)
{
    if (value < min_ || value > max_) basic::Raise(basic::kErrInvalidProperty);
    value_ = value;
    Notify(Change::Value);
}

}  // namespace kvx::ui
