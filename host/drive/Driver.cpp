#include "host/drive/Driver.h"

#include "basic/Convert.h"
#include "host/StandChooser.h"
#include "os/Files.h"
#include "os/Objects.h"
#include "ui/Button.h"
#include "ui/Control.h"
#include "ui/Form.h"

#include <array>
#include <cerrno>
#include <ctime>
#include <unistd.h>
#include <utility>

namespace kvx::host::drive {

namespace {

constexpr std::pair<std::string_view, std::int32_t> kButtons[] = {
    {"ok", ui::vbOK},         {"cancel", ui::vbCancel}, {"abort", ui::vbAbort}, {"retry", ui::vbRetry},
    {"ignore", ui::vbIgnore}, {"yes", ui::vbYes},       {"no", ui::vbNo},
};

std::string_view IconOf(std::int32_t flags)
{
    switch (flags & 0x70) {
    case ui::vbCritical: return "stop";
    case ui::vbQuestion: return "question";
    case ui::vbExclamation: return "warning";
    case ui::vbInformation: return "information";
    default: return "";
    }
}

// What does the least, for a question that nobody answers any more.
std::int32_t CancelOf(std::int32_t flags)
{
    const auto buttons = ButtonsOf(flags);
    for (const std::int32_t wanted : {ui::vbCancel, ui::vbNo, ui::vbAbort})
        for (const auto& [name, button] : buttons)
            if (button == wanted) return button;
    return ui::vbOK;
}

// The outside application of the stands: what it is asked becomes a question.
class OutsideApplication final : public basic::Object {
public:
    OutsideApplication(std::string_view name, std::function<void(Question&)> ask) : name_(name), ask_(std::move(ask)) {}
    std::string TypeName() const override { return name_; }
    basic::Variant Get(std::string_view member, std::span<const basic::Variant>) override
    {
        basic::RaiseNoMember(name_, member);
    }
    void Put(std::string_view member, const basic::Variant&, std::span<const basic::Variant>) override
    {
        basic::RaiseNoMember(name_, member);
    }
    basic::Variant Call(std::string_view member, std::span<basic::Variant> args) override
    {
        Question question;
        question.kind = Question::Kind::Outside;
        question.title = name_;
        question.prompt = member;
        question.arguments = Json::array();
        for (const basic::Variant& arg : args)
            question.arguments.push_back(ToJson(arg));
        ask_(question);
        if (question.error) throw *question.error;
        return ToVariant(question.value);
    }

private:
    std::string name_;
    std::function<void(Question&)> ask_;
};

std::string Dump(const Json& json)
{
    // A database may hold bytes that are no text.
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace

std::vector<std::pair<std::string_view, std::int32_t>> ButtonsOf(std::int32_t flags)
{
    constexpr std::array<std::array<std::int32_t, 3>, 6> kSets{{{ui::vbOK},
                                                                {ui::vbOK, ui::vbCancel},
                                                                {ui::vbAbort, ui::vbRetry, ui::vbIgnore},
                                                                {ui::vbYes, ui::vbNo, ui::vbCancel},
                                                                {ui::vbYes, ui::vbNo},
                                                                {ui::vbRetry, ui::vbCancel}}};
    const auto set = static_cast<std::size_t>(flags & 15);
    std::vector<std::pair<std::string_view, std::int32_t>> buttons;
    for (const std::int32_t button : kSets[set < kSets.size() ? set : 0])
        for (const auto& named : kButtons)
            if (named.second == button) buttons.push_back(named);
    return buttons;
}

// --- lines

std::optional<std::string> DescriptorLines::TakeLine()
{
    const std::size_t end = buffer_.find('\n', searched_);
    if (end == std::string::npos && !(ended_ && !buffer_.empty())) {
        searched_ = buffer_.size();
        return std::nullopt;
    }
    std::string line = buffer_.substr(0, end);
    buffer_.erase(0, end == std::string::npos ? end : end + 1);
    searched_ = 0;
    if (line.ends_with('\r')) line.pop_back();
    return line;
}

bool DescriptorLines::Read()
{
    if (ended_) return false;
    char bytes[65536];
    ssize_t count = 0;
    do {
        count = ::read(descriptor_, bytes, sizeof bytes);
    } while (count < 0 && errno == EINTR);
    if (count <= 0)
        ended_ = true;
    else
        buffer_.append(bytes, static_cast<std::size_t>(count));
    return !ended_;
}

std::optional<std::string> DescriptorLines::Next(const std::function<bool()>&)
{
    for (;;) {
        if (std::optional<std::string> line = TakeLine()) return line;
        if (!Read()) return TakeLine();
    }
}

// --- documents that the library opens are told, and shown to nobody

class Driver::NotingShell final : public os::Shell {
public:
    explicit NotingShell(Json& news) : news_(news) { os::SetCurrentShell(this); }
    ~NotingShell() override { os::SetCurrentShell(nullptr); }
    NotingShell(const NotingShell&) = delete;
    NotingShell& operator=(const NotingShell&) = delete;
    std::unique_ptr<os::Process> Start(std::string_view program, const std::vector<std::string>& arguments) override
    {
        return os::SystemShell().Start(program, arguments);
    }
    void Open(std::string_view document) override
    {
        if (!os::FileExists(document)) basic::Raise(basic::kErrFileNotFound);
        news_["opened"].push_back(document);
    }

private:
    Json& news_;
};

// --- the desktop

Driver::Driver(Session session, std::function<Session(const std::string&)> reopen, LineSource& input, AnswerSink sink)
    : session_(std::move(session)), reopen_(std::move(reopen)), input_(input), sink_(std::move(sink)),
      trace_([this](const ado::StatementRecord& record) { statements_.push_back(record.text); }),
      shell_(std::make_unique<NotingShell>(news_))
{
    os::RegisterObject(kStandChooserId, [this] {
        return std::make_shared<OutsideApplication>(kStandChooserId,
                                                    [this](Question& question) { Converse(question); });
    });
}

Driver::~Driver()
{
    os::RegisterObject(kStandChooserId, {});
}

void Driver::Run()
{
    while (!ended_) {
        Settle();
        Converse(Waiting{.form = nullptr, .question = nullptr, .over = [] { return false; }});
    }
}

void Driver::RunModal(ui::Form& form)
{
    Settle();
    Converse(form);
}

Question Question::OfMessage(std::string_view prompt, std::int32_t flags, std::string_view title)
{
    Question question;
    question.prompt = prompt;
    question.title = title;
    question.flags = flags;
    question.button = CancelOf(flags);
    return question;
}

Question Question::OfInput(std::string_view prompt, std::string_view title, std::string_view text)
{
    Question question;
    question.kind = Kind::Input;
    question.prompt = prompt;
    question.title = title;
    question.text = text;
    question.button = ui::vbCancel;
    return question;
}

std::int32_t Driver::MessageBox(std::string_view prompt, std::int32_t flags, std::string_view title)
{
    Question question = Question::OfMessage(prompt, flags, title);
    Converse(question);
    return question.button;
}

std::string Driver::InputBox(std::string_view prompt, std::string_view title, std::string_view defaultText)
{
    Question question = Question::OfInput(prompt, title, defaultText);
    Converse(question);
    return question.button == ui::vbOK ? question.value.get<std::string>() : std::string();
}

void Driver::Post(std::function<void()> work)
{
    HeadlessDesktop::Post([this, work = std::move(work)] {
        ui::Form* form = ActiveForm();
        if (form != nullptr)
            form->Protect(work);
        else
            work();
    });
}

basic::Date Driver::Now()
{
    if (clockSet_) return HeadlessDesktop::Now();
    constexpr double kMillisecondsPerDay = 86'400'000.0;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    basic::Date date = basic::DateOf({.year = local.tm_year + 1900,
                                      .month = local.tm_mon + 1,
                                      .day = local.tm_mday,
                                      .hour = local.tm_hour,
                                      .minute = local.tm_min,
                                      .second = local.tm_sec});
    date.days += static_cast<double>(TickMilliseconds()) / kMillisecondsPerDay;
    return date;
}

// --- the conversation

void Driver::Converse(ui::Form& form)
{
    Converse(Waiting{.form = &form, .question = nullptr, .over = [&form] { return !form.Visible(); }});
}

void Driver::Converse(Question& question, const std::function<bool()>& gone)
{
    Converse(Waiting{.form = nullptr, .question = &question, .over = [&question, gone] {
                         return question.answered || (gone && gone());
                     }});
}

void Driver::Converse(const Waiting& waiting)
{
    waiting_.push_back(&waiting);
    while (!waiting.over()) {
        if (!ended_) Answer();
        std::optional<std::string> line;
        if (!ended_) line = input_.Next(waiting.over);
        if (line) {
            Handle(*line);
        } else if (!waiting.over()) {
            ended_ = true;
            Cancel(waiting);
            break;
        }
    }
    waiting_.pop_back();
}

void Driver::Cancel(const Waiting& waiting)
{
    if (waiting.question != nullptr) {
        waiting.question->answered = true;  // what it held from the start does the least
        return;
    }
    if (waiting.form == nullptr) return;
    ui::Form& form = *waiting.form;
    if (form.CancelButton() != nullptr) form.UserKey(ui::vbKeyEscape, 0, ui::vbKeyEscape);
    Settle();
    if (form.Visible()) form.UserClose();
    Settle();
    form.Hide();  // also when a handler kept it
}

void Driver::Handle(const std::string& line)
{
    if (line.find_first_not_of(" \t") == std::string::npos) return;
    const std::uint64_t exchange = ++exchange_;
    withStatements_ = asksStatements_ = false;
    answer_ = Json::object();
    Json id;
    try {
        Json message;
        try {
            message = Json::parse(line);
        } catch (const Json::parse_error& error) {
            throw Fault("bad-json", "this is no JSON: byte " + std::to_string(error.byte));
        }
        if (!message.is_object()) throw Fault("bad-message", "a message is an object with \"do\"");
        if (message.contains("id")) id = (*answer_)["id"] = message["id"];
        (*answer_)["ok"] = true;
        // What came about without a message: somebody has closed a window by hand.
        if (!news_.empty()) (*answer_)["before"] = std::exchange(news_, Json::object());
        HandleMessage(message);
        CheckRefused();
        if (waiting_.back()->question == nullptr) Settle();
    } catch (const Fault& fault) {
        TellFault(exchange, id, {{"kind", fault.Kind()}, {"text", fault.what()}});
    } catch (const basic::Error& error) {
        TellFault(
            exchange, id,
            {{"kind", "library"}, {"number", error.Number}, {"source", error.Source}, {"text", error.Description}});
    } catch (const std::exception& error) {
        TellFault(exchange, id, {{"kind", "internal"}, {"text", error.what()}});
    }
    TakeFailures();
}

void Driver::TellFault(std::uint64_t exchange, const Json& id, Json error)
{
    if (exchange == exchange_ && answer_) {
        (*answer_)["ok"] = false;
        (*answer_)["error"] = std::move(error);
    } else {
        // Its own answer went out when a dialog opened inside it.
        news_["late"].push_back({{"id", id}, {"error", std::move(error)}});
    }
}

void Driver::Value(std::uint64_t exchange, std::string_view name, Json value)
{
    if (exchange == exchange_ && answer_) (*answer_)[std::string(name)] = std::move(value);
}

void Driver::CheckRefused()
{
    const std::vector<std::string> failures = TakeFailures();
    if (!failures.empty()) throw Fault("refused", failures.front());
}

void Driver::Answer()
{
    if (!answer_) return;
    Json answer = std::move(*answer_);
    answer_.reset();
    answer.update(std::exchange(news_, Json::object()));
    TellState(answer);
    std::vector<std::string> sent = std::exchange(statements_, {});
    if (asksStatements_) sent.insert(sent.begin(), lastStatements_.begin(), lastStatements_.end());
    if (withStatements_ || asksStatements_) answer["statements"] = sent;
    lastStatements_ = std::move(sent);
    if (!sink_(Dump(answer))) ended_ = true;
}

void Driver::TellState(Json& answer) const
{
    const Waiting& waiting = *waiting_.back();
    if (waiting.question != nullptr) {
        const Question& question = *waiting.question;
        answer["state"] = "question";
        Json told;
        switch (question.kind) {
        case Question::Kind::Message: {
            Json buttons = Json::array();
            for (const auto& [name, button] : ButtonsOf(question.flags))
                buttons.push_back(name);
            told = {{"kind", "message"},       {"prompt", question.prompt},
                    {"title", question.title}, {"icon", IconOf(question.flags)},
                    {"flags", question.flags}, {"buttons", std::move(buttons)}};
            break;
        }
        case Question::Kind::Input:
            told = {{"kind", "input"}, {"prompt", question.prompt}, {"title", question.title}, {"text", question.text}};
            break;
        case Question::Kind::Outside:
            told = {{"kind", "outside"},
                    {"object", question.title},
                    {"method", question.prompt},
                    {"arguments", question.arguments}};
            break;
        }
        answer["question"] = std::move(told);
        return;
    }
    if (waiting.form == nullptr) {
        answer["state"] = "idle";
        return;
    }
    const ui::Control* focused = waiting.form->ActiveControl();
    answer["state"] = "dialog";
    answer["form"] = waiting.form->Name();
    answer["focus"] = focused == nullptr ? Json(nullptr) : Json(focused->FullName());
}

}  // namespace kvx::host::drive
