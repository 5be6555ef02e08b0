#pragma once

#include "adapters/qt/QtDesktop.h"
#include "host/drive/Driver.h"

#include <QElapsedTimer>
#include <QObject>

#include <memory>

class QSocketNotifier;

namespace kvx::host::drive {

/// Waits for lines in Qt's event loop, so that windows live meanwhile.
class LinesBesideWindows final : public DescriptorLines {
public:
    /// @param descriptor  a pipe, a terminal or a file
    explicit LinesBesideWindows(int descriptor);
    ~LinesBesideWindows() override;
    std::optional<std::string> Next(const std::function<bool()>& over) override;

    std::function<void()> idle;  ///< called whenever events were handled

private:
    std::unique_ptr<QSocketNotifier> notifier_;
    bool readable_ = false;
};

/// A driver whose dialogs open in windows as well. Messages act on the controls as without windows; what a person does
/// at the windows counts too. The clock goes on by itself.
class ShownDriver final : public Driver {
public:
    ShownDriver(Session session, std::function<Session(const std::string& connection)> reopen,
                LinesBesideWindows& input, AnswerSink sink);
    ~ShownDriver() override;

    adapters::qt::QtDesktop& Windows() { return windows_; }

    void Settle() override;
    void FormShown(ui::Form& form) override;
    void RunModal(ui::Form& form) override;
    void FormUnloaded(ui::Form& form) override;
    std::int32_t MessageBox(std::string_view prompt, std::int32_t flags, std::string_view title) override;
    std::string InputBox(std::string_view prompt, std::string_view title, std::string_view defaultText) override;
    std::string ClipboardText() override { return windows_.ClipboardText(); }
    void SetClipboardText(std::string_view text) override { windows_.SetClipboardText(text); }
    std::int32_t TextWidth(std::string_view text) override { return windows_.TextWidth(text); }
    std::int32_t TextHeight(std::string_view text) override { return windows_.TextHeight(text); }
    void SetMousePointer(std::int16_t pointer) override;

private:
    /// Runs the work inside the event loop that is entered next.
    void Inside(std::function<void()> work);

    adapters::qt::QtDesktop windows_;
    QObject context_;
    QElapsedTimer clock_;
    LinesBesideWindows& lines_;
};

}  // namespace kvx::host::drive
