#include "adapters/headless/HeadlessDesktop.h"

#include "adapters/headless/Keys.h"
#include "basic/Convert.h"
#include "ui/ComboBox.h"
#include "ui/Form.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"

#include <algorithm>

namespace kvx::adapters::headless {
namespace {

using namespace ui;

constexpr double kMillisecondsPerDay = 86'400'000.0;
constexpr std::int32_t kButtonsOf = 15;  // the bits of the flags that say which buttons there are

bool HasButton(std::int32_t flags, std::int32_t button)
{
    switch (flags & kButtonsOf) {
    case vbOKOnly: return button == vbOK;
    case vbOKCancel: return button == vbOK || button == vbCancel;
    case vbAbortRetryIgnore: return button >= vbAbort && button <= vbIgnore;
    case vbYesNoCancel: return button == vbYes || button == vbNo || button == vbCancel;
    case vbYesNo: return button == vbYes || button == vbNo;
    case vbRetryCancel: return button == vbRetry || button == vbCancel;
    default: return false;
    }
}

// What does the least when nobody has said what to answer.
std::int32_t HarmlessButton(std::int32_t flags)
{
    for (const std::int32_t button : {vbCancel, vbNo, vbAbort, vbOK})
        if (HasButton(flags, button)) return button;
    return vbOK;
}

// The editing keys of every text box: they act on the text and never pass a KeyPress filter.
bool ClipboardKey(Control& control, std::int16_t keyCode)
{
    const auto act = [keyCode](auto& box) {
        switch (keyCode) {
        case 'C': box.UserCopy(); return true;
        case 'X': box.UserCut(); return true;
        case 'V': box.UserPaste(); return true;
        case 'Z': box.UserUndo(); return true;
        case 'A': box.UserSelect(0, INT32_MAX); return true;
        default: return false;
        }
    };
    if (auto* text = dynamic_cast<TextBox*>(&control); text != nullptr) return act(*text);
    if (auto* combo = dynamic_cast<ComboBox*>(&control); combo != nullptr) return act(*combo);
    return false;
}

bool IsClipboardKey(const Control* control, std::int16_t keyCode, std::int16_t shift)
{
    const bool box =
        dynamic_cast<const TextBox*>(control) != nullptr || dynamic_cast<const ComboBox*>(control) != nullptr;
    return box && shift == vbCtrlMask &&
           (keyCode == 'C' || keyCode == 'X' || keyCode == 'V' || keyCode == 'Z' || keyCode == 'A');
}

}  // namespace

HeadlessDesktop::HeadlessDesktop()
    : before_(FindCurrentDesktop()),
      now_(basic::DateOf({.year = 2024, .month = 5, .day = 15, .hour = 10, .minute = 0, .second = 0}))
{
    SetCurrentDesktop(this);
}

HeadlessDesktop::~HeadlessDesktop()
{
    SetCurrentDesktop(before_);
}

void HeadlessDesktop::In(std::string_view formName, Script script)
{
    scripts_.emplace_back(std::string{formName}, std::move(script));
}

void HeadlessDesktop::Answer(std::string_view prompt, std::int32_t button)
{
    expected_.push_back({.input = false, .prompt = std::string{prompt}, .button = button, .text = {}});
}

void HeadlessDesktop::AnswerInput(std::string_view prompt, std::string_view text)
{
    expected_.push_back({.input = true, .prompt = std::string{prompt}, .button = vbOK, .text = std::string{text}});
}

void HeadlessDesktop::CancelInput(std::string_view prompt)
{
    expected_.push_back({.input = true, .prompt = std::string{prompt}, .button = vbCancel, .text = {}});
}

void HeadlessDesktop::Finish()
{
    for (const auto& [name, script] : scripts_)
        Fail("The dialog " + name + " was never shown");
    for (const Expected& expected : expected_)
        Fail("Nobody asked: " + expected.prompt);
    scripts_.clear();
    expected_.clear();
}

void HeadlessDesktop::FormShown(Form& form)
{
    dialogs_.push_back(form.Name());
}

void HeadlessDesktop::RunModal(Form& form)
{
    const auto next =
        std::find_if(scripts_.begin(), scripts_.end(), [&](const auto& entry) { return entry.first == form.Name(); });
    Settle();
    if (next == scripts_.end()) {
        Fail("The dialog " + form.Name() + " was shown without a script");
    } else {
        const Script script = std::move(next->second);
        scripts_.erase(next);
        script(form);
        Settle();
        if (form.Visible()) Fail("The script left the dialog " + form.Name() + " open");
    }
    form.UserClose();
    form.Hide();  // also when a handler kept it
}

void HeadlessDesktop::FormUnloaded(Form&) {}

bool HeadlessDesktop::Take(bool input, std::string_view prompt, Expected& expected)
{
    const std::string kind = input ? "input box" : "message";
    if (expected_.empty()) {
        Fail("Unexpected " + kind + ": " + std::string{prompt});
        return false;
    }
    const Expected& next = expected_.front();
    if (next.input != input || (next.prompt != "*" && next.prompt != prompt)) {
        Fail("Unexpected " + kind + ": " + std::string{prompt} + " (expected: " + next.prompt + ")");
        return false;
    }
    expected = next;
    expected_.pop_front();
    return true;
}

std::int32_t HeadlessDesktop::MessageBox(std::string_view prompt, std::int32_t flags, std::string_view title)
{
    Expected expected;
    std::int32_t button = HarmlessButton(flags);
    if (Take(false, prompt, expected)) {
        if (HasButton(flags, expected.button))
            button = expected.button;
        else
            Fail("The message has no such button (" + std::to_string(expected.button) + "): " + std::string{prompt});
    }
    boxes_.push_back({.input = false,
                      .prompt = std::string{prompt},
                      .title = std::string{title},
                      .flags = flags,
                      .button = button,
                      .text = {}});
    return button;
}

std::string HeadlessDesktop::InputBox(std::string_view prompt, std::string_view title, std::string_view)
{
    Expected expected{.input = true, .prompt = {}, .button = vbCancel, .text = {}};
    Take(true, prompt, expected);
    boxes_.push_back({.input = true,
                      .prompt = std::string{prompt},
                      .title = std::string{title},
                      .flags = 0,
                      .button = expected.button,
                      .text = expected.text});
    return expected.text;
}

void HeadlessDesktop::Settle()
{
    // Work that is posted meanwhile runs in the same pass: a loop without end would be one on a screen as well.
    while (!posted_.empty()) {
        const std::function<void()> work = std::move(posted_.front());
        posted_.pop_front();
        work();
    }
    FireDue();
}

void HeadlessDesktop::Stroke(std::int16_t keyCode, std::int16_t shift, std::int32_t character)
{
    Form* form = ActiveForm();
    if (form == nullptr || form->ActiveControl() == nullptr) return;
    Control* control = form->ActiveControl();
    if ((shift & vbAltMask) != 0) {
        if (character != 0) form->UserMnemonic(static_cast<char32_t>(character));
        return;
    }
    if (!control->CapturesKeys() && IsClipboardKey(control, keyCode, shift)) {
        if (form->UserKeyDown(keyCode, shift) && form->ActiveControl() == control)
            form->Protect([&] { ClipboardKey(*control, keyCode); });
        form->UserKeyUp(keyCode, shift);
        return;
    }
    form->UserKey(keyCode, shift, character);
}

void HeadlessDesktop::SendKeys(std::string_view keys)
{
    for (const KeyStroke& stroke : ParseKeys(keys))
        Post([this, stroke] { Stroke(stroke.keyCode, stroke.shift, stroke.character); });
}

void HeadlessDesktop::TimerChanged(Timer& timer)
{
    std::erase_if(timers_, [&](const RunningTimer& running) { return running.timer == &timer; });
    if (timer.IsRunning()) timers_.push_back({&timer, tick_ + timer.Interval()});
}

void HeadlessDesktop::FireDue()
{
    while (true) {
        const auto next = std::min_element(timers_.begin(), timers_.end(),
                                           [](const RunningTimer& a, const RunningTimer& b) { return a.due < b.due; });
        if (next == timers_.end() || next->due > tick_) return;
        Timer* const timer = next->timer;
        next->due += timer->Interval();
        timer->Fire();
        while (!posted_.empty()) {
            const std::function<void()> work = std::move(posted_.front());
            posted_.pop_front();
            work();
        }
    }
}

void HeadlessDesktop::Advance(std::int64_t milliseconds)
{
    const std::int64_t end = tick_ + milliseconds;
    while (tick_ < end) {
        std::int64_t next = end;
        for (const RunningTimer& running : timers_)
            next = std::min(next, std::max(running.due, tick_ + 1));
        now_.days += static_cast<double>(next - tick_) / kMillisecondsPerDay;
        tick_ = next;
        Settle();
    }
}

}  // namespace kvx::adapters::headless
