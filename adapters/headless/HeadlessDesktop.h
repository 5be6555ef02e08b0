#pragma once

#include "adapters/headless/Hands.h"
#include "ui/Desktop.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvx::adapters::headless {

/// A message or input box that was shown.
struct BoxRecord {
    bool input = false;
    std::string prompt, title;
    std::int32_t flags = 0;
    std::int32_t button = 0;  ///< what was answered; input boxes: vbOK or vbCancel
    std::string text;         ///< input boxes: the text given back
};

/// A desktop without windows: dialogs are worked on by scripts, boxes are answered from a list, and time moves when it
/// is told to. Whatever happens that no script expects is kept as a failure and goes on in the least harmful way. While
/// it lives it is the current desktop of its thread. A desktop of real windows can take the same scripts: it replaces
/// the hands, the strokes and the loop.
class HeadlessDesktop : public ui::Desktop {
public:
    using Script = std::function<void(ui::Form&)>;

    HeadlessDesktop();
    ~HeadlessDesktop() override;
    HeadlessDesktop(const HeadlessDesktop&) = delete;
    HeadlessDesktop& operator=(const HeadlessDesktop&) = delete;

    // --- the script ---

    /// The next time that a form of this name is shown, the script works on it. It must leave the form closed.
    void In(std::string_view formName, Script script);
    /// The next message box must have this prompt ("*" = any) and gets this answer, one of its buttons.
    void Answer(std::string_view prompt, std::int32_t button);
    /// The next input box must have this prompt ("*" = any); the text is typed and OK pressed.
    void AnswerInput(std::string_view prompt, std::string_view text);
    void CancelInput(std::string_view prompt);

    // --- what has happened ---

    const std::vector<BoxRecord>& Boxes() const { return boxes_; }
    const std::vector<std::string>& Dialogs() const { return dialogs_; }  ///< names of the forms shown, in order
    /// What no script expected, in order.
    const std::vector<std::string>& Failures() const { return failures_; }
    void Fail(std::string failure) { failures_.push_back(std::move(failure)); }
    /// The same, and they are forgotten here.
    std::vector<std::string> TakeFailures() { return std::exchange(failures_, {}); }
    /// Adds a failure for every script and answer that was not asked for.
    void Finish();

    // --- time and the message loop ---

    void SetNow(basic::Date now) { now_ = now; }
    /// The clock goes on; timers that come due fire in order, and what they set off is carried out.
    void Advance(std::int64_t milliseconds);
    /// Carries out posted work and queued keys until there are none.
    virtual void Settle();
    /// One key stroke on the form in front. @param keyCode 0 = a character without a key of its own
    virtual void Stroke(std::int16_t keyCode, std::int16_t shift, std::int32_t character);
    virtual Hands& GetHands() { return hands_; }

    void FormShown(ui::Form& form) override;
    void RunModal(ui::Form& form) override;
    void FormUnloaded(ui::Form& form) override;
    std::int32_t MessageBox(std::string_view prompt, std::int32_t flags, std::string_view title) override;
    std::string InputBox(std::string_view prompt, std::string_view title, std::string_view defaultText) override;
    void DoEvents() override { Settle(); }
    void Post(std::function<void()> work) override { posted_.push_back(std::move(work)); }
    void SendKeys(std::string_view keys) override;
    void TimerChanged(ui::Timer& timer) override;
    std::string ClipboardText() override { return clipboard_; }
    void SetClipboardText(std::string_view text) override { clipboard_ = text; }
    basic::Date Now() override { return now_; }
    std::int64_t TickMilliseconds() override { return tick_; }

private:
    struct Expected {
        bool input = false;
        std::string prompt;
        std::int32_t button = 0;
        std::string text;
    };
    struct RunningTimer {
        ui::Timer* timer = nullptr;
        std::int64_t due = 0;
    };
    bool Take(bool input, std::string_view prompt, Expected& expected);
    void FireDue();
    ui::Desktop* before_ = nullptr;
    Hands hands_;
    std::deque<std::pair<std::string, Script>> scripts_;
    std::deque<Expected> expected_;
    std::deque<std::function<void()>> posted_;
    std::vector<RunningTimer> timers_;
    std::vector<BoxRecord> boxes_;
    std::vector<std::string> dialogs_, failures_;
    std::string clipboard_;
    basic::Date now_;
    std::int64_t tick_ = 0;
};

}  // namespace kvx::adapters::headless
