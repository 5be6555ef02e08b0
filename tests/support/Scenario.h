#pragma once

#include "adapters/headless/User.h"
#include "session/KvxVar.h"
#include "support/StatementLog.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::test {

class Scenario;

/// Lines to compare a list with.
using Lines = std::vector<std::string>;

/// Somebody at a dialog that is open; see adapters/headless/User.h for what they can do.
class Dialog : public adapters::headless::User {
public:
    Dialog(Scenario& scenario, adapters::headless::HeadlessDesktop& desktop, ui::Form& form)
        : User(desktop, form), scenario_(scenario)
    {
    }
    /// The next message box must ask this text of the catalogue.
    void Answer(std::int32_t textId, std::int32_t button);
    /// The next message box must ask exactly this.
    void Answer(std::string_view prompt, std::int32_t button);
    /// Time passes.
    void Wait(std::int64_t milliseconds);
    /// Whether the control itself is visible (its container may not be).
    bool Shown(std::string_view control);
    bool Enabled(std::string_view control);

private:
    Scenario& scenario_;
};

/// One test's world: a fresh database from scripts, a German machine, a headless desktop, the sibling library, an empty
/// log. When it ends, everything unexpected fails the test: a message nobody answered, an answer nobody asked for, a
/// dialog left open.
class Scenario {
public:
    /// The database has the tables of the sample database.
    /// @param script what fills them: a file in tests/data ("forest.sql") or statements, batches parted by GO
    explicit Scenario(std::string_view script = "forest.sql");
    ~Scenario();
    Scenario(const Scenario&) = delete;
    Scenario& operator=(const Scenario&) = delete;

    KvxVar& kvxvar() { return kvxvar_; }
    std::int32_t ID_AL = 0;
    std::int32_t ID_WALDORT_Root = 0;

    /// What the user does the next time that the form is shown.
    void In(std::string_view form, std::function<void(Dialog&)> script);
    void Answer(std::int32_t textId, std::int32_t button) { Answer(Text(textId), button); }
    void Answer(std::string_view prompt, std::int32_t button);
    void AnswerInput(std::string_view prompt, std::string_view text);
    void CancelInput(std::string_view prompt);
    void Advance(std::int64_t milliseconds);

    /// A text of the catalogue in the session's language.
    std::string Text(std::int32_t id);

    /// Runs a statement of the test itself; it is not logged.
    void Execute(std::string_view sql);
    /// First column of the first row as text, "" for NULL, "(none)" without a row; not logged.
    std::string Value(std::string_view sql);
    /// First column of every row; not logged.
    Lines Column(std::string_view sql);

    /// Statements of library and sibling, in order.
    const std::vector<std::string>& Log() const { return log_->Texts(); }
    /// The same without the sibling's reading of the customer's own wording.
    std::vector<std::string> Statements() const;
    void ClearLog() { log_->Clear(); }
    std::ptrdiff_t CountStatements(std::string_view start) const;
    bool WasSent(std::string_view statement) const;
    /// Statement k from now on fails with the provider's error before it is sent.
    void FailStatement(std::size_t k, std::int32_t number, std::string description = "provider error");
    bool HasFailed() const { return log_->HasFailed(); }

    const std::vector<adapters::headless::BoxRecord>& Boxes() const { return desktop_->Boxes(); }
    adapters::headless::HeadlessDesktop& Desktop() { return *desktop_; }

    /// Path of a file in the test's own folder, which goes with it.
    std::string File(std::string_view name) const { return folder_ + "/" + std::string(name); }
    void WriteFile(std::string_view name, std::string_view bytes) const;
    std::string ReadFile(std::string_view name) const;

    /// Failures that the test wants to look at instead of failing.
    std::vector<std::string> TakeFailures();

private:
    std::string NewFile(std::string_view rows) const;
    ado::Connection& Own();
    static std::string Words(std::string_view sql);

    std::string folder_;
    std::shared_ptr<StatementLog> log_;
    std::unique_ptr<adapters::headless::HeadlessDesktop> desktop_;
    ado::Connection own_;  // the test's own statements
    KvxVar kvxvar_;
    std::size_t failuresSeen_ = 0;
};

/// Content of a file in tests/data.
std::string TestData(std::string_view name);

}  // namespace kvx::test
