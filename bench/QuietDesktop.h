#pragma once

#include "ui/Desktop.h"
#include "ui/Form.h"

#include <functional>
#include <utility>
#include <vector>

namespace kvx::bench {

/// A desktop without windows: a form is worked on by a function and then hidden, messages are answered at once.
class QuietDesktop final : public ui::Desktop {
public:
    QuietDesktop() { ui::SetCurrentDesktop(this); }
    ~QuietDesktop() override { ui::SetCurrentDesktop(nullptr); }

    std::function<void()> shown;          ///< a form comes up; FormActivate is next
    std::function<void(ui::Form&)> work;  ///< what the user would do with the form
    std::int32_t answer = ui::vbYes;      ///< to every message

    void FormShown(ui::Form&) override { shown(); }
    void RunModal(ui::Form& form) override
    {
        work(form);
        form.Hide();
    }
    void FormUnloaded(ui::Form&) override {}
    std::int32_t MessageBox(std::string_view, std::int32_t, std::string_view) override { return answer; }
    std::string InputBox(std::string_view, std::string_view, std::string_view) override { return {}; }
    void DoEvents() override
    {
        for (auto& task : std::exchange(posted_, {}))
            task();
    }
    void Post(std::function<void()> task) override { posted_.push_back(std::move(task)); }
    void SendKeys(std::string_view) override {}
    void TimerChanged(ui::Timer&) override {}
    std::string ClipboardText() override { return {}; }
    void SetClipboardText(std::string_view) override {}
    basic::Date Now() override { return {}; }
    std::int64_t TickMilliseconds() override { return 0; }

private:
    std::vector<std::function<void()>> posted_;
};

}  // namespace kvx::bench
