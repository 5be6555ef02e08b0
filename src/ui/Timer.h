#pragma once

#include "ui/ControlOf.h"

namespace kvx::ui {

/// Raises Tick every Interval while it is enabled, from the message loop only. Unloading the form ends it.
class Timer final : public ControlOf<Timer> {
public:
    Timer(Form& form, std::string_view name);
    ~Timer() override;
    std::string_view TypeName() const override { return "Timer"; }
    static const basic::MemberTable<Timer>& Members();

    std::int32_t Interval() const { return interval_; }  ///< ms; 0 = never
    /// Starts the interval anew on a change. @throws basic::Error 380: not 0 to 65535
    void SetInterval(std::int32_t milliseconds);
    /// Enabled, with an interval, on a loaded form.
    bool IsRunning() const;

    bool TakesFocus() const override { return false; }
    void Reset() override;

    /// The time is up; called by desktops only. Raises Tick inside Form::Protect, unless it does not run any more.
    void Fire();

    ui::Event<> Tick;

protected:
    void EnabledChanged() override;

private:
    std::int32_t interval_ = 0;
};

}  // namespace kvx::ui
