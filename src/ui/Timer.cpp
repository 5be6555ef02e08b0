#include "ui/Timer.h"

#include "ui/Desktop.h"
#include "ui/Form.h"
#include "ui/MemberRows.h"

namespace kvx::ui {
namespace {

constexpr std::int32_t kLongestInterval = 65535;

void TellDesktop(Timer& timer)
{
    if (Desktop* desktop = FindCurrentDesktop(); desktop != nullptr) desktop->TimerChanged(timer);
}

}  // namespace

Timer::Timer(Form& form, std::string_view name) : ControlOf(form, name) {}

Timer::~Timer()
{
    interval_ = 0;
    TellDesktop(*this);
}

const basic::MemberTable<Timer>& Timer::Members()
{
    using namespace rows;
    static constexpr basic::Member<Timer> kRows[] = {
        ReadWrite<Timer, &Timer::Interval, &Timer::SetInterval>("Interval"),
    };
    static constexpr basic::MemberTable<Timer> kTable{"Timer", kRows};
    return kTable;
}

void Timer::Reset()
{
    Control::Reset();
    if (interval_ == 0) return;
    interval_ = 0;
    TellDesktop(*this);
}

void Timer::SetInterval(std::int32_t milliseconds)
{
    if (milliseconds < 0 || milliseconds > kLongestInterval) basic::Raise(basic::kErrInvalidProperty);
    if (milliseconds == interval_) return;
    interval_ = milliseconds;
    TellDesktop(*this);
}

bool Timer::IsRunning() const
{
    return Enabled() && interval_ > 0 && Owner().IsLoaded();
}

void Timer::EnabledChanged()
{
    TellDesktop(*this);
}

void Timer::Fire()
{
    if (IsRunning()) Owner().Protect([this] { Tick.Raise(); });
}

}  // namespace kvx::ui
