#pragma once

#include "adapters/headless/HeadlessDesktop.h"
#include "adapters/qt/QtDesktop.h"
#include "qt/WindowHands.h"

namespace kvx::test {

/// A desktop of real windows that a script works on: what the headless desktop takes (scripts, answers, time), it takes
/// too, and does it with the mouse and the keys of the widgets, inside Qt's event loops. Time stands still until
/// Advance moves it. Needs a QApplication; good on the offscreen platform.
class ScriptedDesktop final : public adapters::headless::HeadlessDesktop {
public:
    ScriptedDesktop();
    ~ScriptedDesktop() override;

    adapters::qt::QtDesktop& Windows() { return windows_; }

    void Settle() override;
    void Stroke(std::int16_t keyCode, std::int16_t shift, std::int32_t character) override;
    adapters::headless::Hands& GetHands() override { return hands_; }

    void FormShown(ui::Form& form) override;
    void RunModal(ui::Form& form) override;
    void FormUnloaded(ui::Form& form) override;
    std::int32_t MessageBox(std::string_view prompt, std::int32_t flags, std::string_view title) override;
    std::string InputBox(std::string_view prompt, std::string_view title, std::string_view defaultText) override;
    void DoEvents() override { Settle(); }
    void Post(std::function<void()> work) override;
    void SendKeys(std::string_view keys) override;
    std::string ClipboardText() override { return windows_.ClipboardText(); }
    void SetClipboardText(std::string_view text) override { windows_.SetClipboardText(text); }
    void SetMousePointer(std::int16_t pointer) override;

private:
    adapters::qt::QtDesktop windows_;
    WindowHands hands_{windows_};
    QObject context_;
};

}  // namespace kvx::test
