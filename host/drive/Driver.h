#pragma once

#include "adapters/headless/HeadlessDesktop.h"
#include "host/Options.h"
#include "host/Session.h"
#include "host/Trace.h"
#include "host/drive/Methods.h"
#include "os/Process.h"
#include "ui/Node.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The host without a user of its own: another program says by messages what to call and what to do in the dialogs.
namespace kvx::host::drive {

/// Where messages come from, one a line.
class LineSource {
public:
    virtual ~LineSource() = default;
    /// Waits for a line. @param over  true: what the message was for is over, nobody waits any more
    /// @return nothing: the input has ended, or it is over
    virtual std::optional<std::string> Next(const std::function<bool()>& over) = 0;
};

/// Lines of a file descriptor; a last line without an end counts too.
class DescriptorLines : public LineSource {
public:
    explicit DescriptorLines(int descriptor) : descriptor_(descriptor) {}
    std::optional<std::string> Next(const std::function<bool()>& over) override;

protected:
    /// Reads once; blocks when nothing is there. @return false: the input has ended
    bool Read();
    std::optional<std::string> TakeLine();
    bool HasEnded() const { return ended_; }

private:
    int descriptor_;
    std::string buffer_;
    std::size_t searched_ = 0;  // no line end before
    bool ended_ = false;
};

/// Gets one answer, a line of JSON without its end. @return false: nobody reads answers any more
using AnswerSink = std::function<bool(std::string_view line)>;

/// What message or input box waits for an answer, or what call of the outside application.
struct Question {
    enum class Kind : std::uint8_t { Message, Input, Outside };
    Kind kind = Kind::Message;
    std::string prompt, title, text;  ///< text: what the input box offers
    std::int32_t flags = 0;
    Json arguments;  ///< of the outside application

    bool answered = false;
    std::int32_t button = 0;  ///< of a message; of an input box vbOK or vbCancel
    Json value;               ///< what was typed, or what the outside application returns
    std::optional<basic::Error> error;

    // Until somebody answers, both hold what does the least.
    static Question OfMessage(std::string_view prompt, std::int32_t flags, std::string_view title);
    static Question OfInput(std::string_view prompt, std::string_view title, std::string_view text);
};

/// Reads messages, carries them out and answers each one. A dialog runs inside the call that opened it: while it is
/// open, the messages that act on it are read from there, so nested dialogs are nested calls here too. Every message
/// is answered when the next one is waited for; the answer so tells what it led to, be it another dialog, a question or
/// the end of the call.
class Driver : public adapters::headless::HeadlessDesktop {
public:
    /// @param reopen  opens another database for the session. @throws StartError
    Driver(Session session, std::function<Session(const std::string& connection)> reopen, LineSource& input,
           AnswerSink sink);
    ~Driver() override;

    /// Until the input ends. Dialogs that are open by then are cancelled.
    void Run();

    Session& CurrentSession() { return session_; }
    /// Names of the messages, in the order of their documentation.
    static std::vector<std::string_view> MessageNames();

    void FormShown(ui::Form&) override {}
    void RunModal(ui::Form& form) override;
    std::int32_t MessageBox(std::string_view prompt, std::int32_t flags, std::string_view title) override;
    std::string InputBox(std::string_view prompt, std::string_view title, std::string_view defaultText) override;
    void Post(std::function<void()> work) override;
    /// The machine's clock, and what a driver let pass; stands still once a driver has set it.
    basic::Date Now() override;

protected:
    /// Reads messages until the form is closed. What is open when the input ends is cancelled.
    void Converse(ui::Form& form);
    /// The same until the question is answered, or `gone` says that somebody else did.
    void Converse(Question& question, const std::function<bool()>& gone = {});

private:
    struct Waiting {
        ui::Form* form = nullptr;
        Question* question = nullptr;
        std::function<bool()> over;
    };
    struct MessageKind;
    static const MessageKind kMessageKinds[];

    void Converse(const Waiting& waiting);
    void Handle(const std::string& line);
    void HandleMessage(const Json& message);
    void Answer();
    void TellState(Json& answer) const;
    void TellFault(std::uint64_t exchange, const Json& id, Json error);
    void Cancel(const Waiting& waiting);
    void Value(std::uint64_t exchange, std::string_view name, Json value);

    // The messages; `message` is the whole of it.
    void OnMethods(const Json& message);
    void OnSession(const Json& message);
    void OnConnect(const Json& message);
    void OnCall(const Json& message);
    void OnObjects(const Json& message);
    void OnStatements(const Json& message);
    void OnWait(const Json& message);
    void OnClock(const Json& message);
    void OnClipboard(const Json& message);
    void OnForms(const Json& message);
    void OnControl(const Json& message);
    void OnRows(const Json& message);
    void OnNodes(const Json& message);
    void OnGet(const Json& message);
    void OnSet(const Json& message);
    void OnInvoke(const Json& message);
    void OnAnswer(const Json& message);
    void OnClick(const Json& message);
    void OnDblClick(const Json& message);
    void OnFocus(const Json& message);
    void OnType(const Json& message);
    void OnKeys(const Json& message);
    void OnKey(const Json& message);
    void OnPick(const Json& message);
    void OnTick(const Json& message);
    void OnColumn(const Json& message);
    void OnTab(const Json& message);
    void OnDate(const Json& message);
    void OnSelect(const Json& message);
    void OnExpand(const Json& message);
    void OnLabel(const Json& message);
    void OnCell(const Json& message);
    void OnDrag(const Json& message);
    void OnResize(const Json& message);
    void OnClose(const Json& message);

    ui::Form& FormOf(const Json& message) const;        // any that is open. @throws Fault
    ui::Form& FrontOf(const Json& message) const;       // the one that takes input. @throws Fault
    ui::Control& ControlOf(const Json& message) const;  // @throws Fault
    ui::Control& ReachableOf(const Json& message, const char* field = "control") const;  // of the front form
    basic::ObjectRef ObjectOf(const Json& message) const;  // a control, or the form itself
    ui::Node NodeOf(ui::TreeView& tree, const Json& message, bool required) const;
    void Focus(ui::Control& control);
    void Strokes(std::string_view text, bool typed);
    void ShowNode(ui::TreeView& tree, const ui::Node& node);
    void CheckRefused();

    Session session_;
    std::function<Session(const std::string&)> reopen_;
    LineSource& input_;
    AnswerSink sink_;
    std::vector<const Waiting*> waiting_;  // the innermost last
    Frame* frame_ = nullptr;               // the call that is under way
    bool ended_ = false;

    std::optional<Json> answer_;               // of the message that is carried out
    std::uint64_t exchange_ = 0;               // counts messages
    bool withStatements_ = false;              // the answer tells them
    Json news_ = Json::object();               // goes into the next answer: what ended, documents opened
    std::vector<std::string> statements_;      // sent since the last answer
    std::vector<std::string> lastStatements_;  // what that answer could have told
    bool asksStatements_ = false;              // the message wants those of the message before
    Trace trace_;
    bool clockSet_ = false;

    class NotingShell;
    std::unique_ptr<os::Shell> shell_;
};

/// What a message box offers, by name: "yes". @return in the order in which they stand in the box
std::vector<std::pair<std::string_view, std::int32_t>> ButtonsOf(std::int32_t flags);

}  // namespace kvx::host::drive
