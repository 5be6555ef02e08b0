#include "host/drive/Driver.h"
#include "ado/Constants.h"
#include "basic/Convert.h"
#include "basic/Text.h"
#include "host/drive/Look.h"
#include "ui/Control.h"
#include "ui/Desktop.h"
#include "ui/Form.h"
#include "ui/TreeView.h"

#include <algorithm>
#include <array>
#include <limits>

// What is known of the messages, and those that look at things, set things, and call.
namespace kvx::host::drive {

namespace {

constexpr unsigned kIdle = 1, kDialog = 2, kQuestion = 4, kAlways = kIdle | kDialog | kQuestion,
                   kOpen = kDialog | kQuestion;

}  // namespace

struct Driver::MessageKind {
    std::string_view name;
    unsigned when;
    std::string_view fields;  // besides "do", "id" and "statements"
    void (Driver::*run)(const Json& message);
};

// clang-format off
const Driver::MessageKind Driver::kMessageKinds[] = {
    {"methods",    kAlways,   "",                                        &Driver::OnMethods},
    {"session",    kAlways,   "set",                                     &Driver::OnSession},
    {"connect",    kIdle,     "connection",                              &Driver::OnConnect},
    {"call",       kIdle,     "class method arguments",                  &Driver::OnCall},
    {"objects",    kOpen,     "",                                        &Driver::OnObjects},
    {"statements", kAlways,   "",                                        &Driver::OnStatements},
    {"wait",       kAlways,   "milliseconds",                            &Driver::OnWait},
    {"clock",      kAlways,   "set",                                     &Driver::OnClock},
    {"clipboard",  kAlways,   "set",                                     &Driver::OnClipboard},
    {"forms",      kAlways,   "",                                        &Driver::OnForms},
    {"control",    kOpen,     "form control",                            &Driver::OnControl},
    {"rows",       kOpen,     "form control from count",                 &Driver::OnRows},
    {"nodes",      kOpen,     "form control path key levels",            &Driver::OnNodes},
    {"get",        kOpen,     "form control member",                     &Driver::OnGet},
    {"set",        kOpen,     "form control member value",               &Driver::OnSet},
    {"invoke",     kOpen,     "form control member arguments",           &Driver::OnInvoke},
    {"answer",     kQuestion, "button text value error",                 &Driver::OnAnswer},
    {"click",      kDialog,   "form control",                            &Driver::OnClick},
    {"dblclick",   kDialog,   "form control",                            &Driver::OnDblClick},
    {"focus",      kDialog,   "form control",                            &Driver::OnFocus},
    {"type",       kDialog,   "form control text",                       &Driver::OnType},
    {"keys",       kDialog,   "form control keys",                       &Driver::OnKeys},
    {"key",        kDialog,   "form control code shift ctrl alt character", &Driver::OnKey},
    {"pick",       kDialog,   "form control text index key row shift ctrl", &Driver::OnPick},
    {"tick",       kDialog,   "form control checked key row path",       &Driver::OnTick},
    {"column",     kDialog,   "form control index",                      &Driver::OnColumn},
    {"tab",        kDialog,   "form control tab caption",                &Driver::OnTab},
    {"date",       kDialog,   "form control date",                       &Driver::OnDate},
    {"select",     kDialog,   "form control path key",                   &Driver::OnSelect},
    {"expand",     kDialog,   "form control path key expanded",          &Driver::OnExpand},
    {"label",      kDialog,   "form control path key text accept",       &Driver::OnLabel},
    {"cell",       kDialog,   "form control row col double",             &Driver::OnCell},
    {"drag",       kDialog,   "form control entry target onto x y",      &Driver::OnDrag},
    {"resize",     kDialog,   "form width height",                       &Driver::OnResize},
    {"close",      kDialog,   "form",                                    &Driver::OnClose},
};
// clang-format on

std::vector<std::string_view> Driver::MessageNames()
{
    std::vector<std::string_view> names;
    for (const MessageKind& kind : kMessageKinds)
        names.push_back(kind.name);
    return names;
}

void Driver::HandleMessage(const Json& message)
{
    const std::string name = TextField(message, "do");
    const auto* kind = std::ranges::find(kMessageKinds, name, &MessageKind::name);
    if (kind == std::end(kMessageKinds)) throw Fault("unknown-message", "there is no message \"" + name + "\"");
    const std::vector<std::string> fields = basic::Split(kind->fields);
    for (const auto& [field, value] : message.items()) {
        if (field == "do" || field == "id" || field == "statements") continue;
        if (std::ranges::find(fields, field) == fields.end())
            throw Fault("unknown-field", "\"" + name + "\" takes no \"" + field + "\"");
    }
    withStatements_ = BoolField(message, "statements", false);

    const Waiting& waiting = *waiting_.back();
    const unsigned now = waiting.question != nullptr ? kQuestion : waiting.form != nullptr ? kDialog : kIdle;
    if ((kind->when & now) == 0) {
        std::string why = "no dialog is open";
        if (now == kQuestion)
            why = "a question waits for an answer";
        else if (kind->when == kQuestion)
            why = "no question waits";
        else if (now == kDialog)
            why = "the dialog " + waiting.form->Name() + " is open";
        throw Fault("wrong-time", "\"" + name + "\" comes at the wrong time: " + why);
    }
    (this->*kind->run)(message);
}

// --- who is meant

ui::Form& Driver::FormOf(const Json& message) const
{
    const std::string name = TextField(message, "form", "");
    const std::vector<ui::Form*>& forms = ModalForms();
    for (auto form = forms.rbegin(); form != forms.rend(); ++form)
        if (name.empty() || (*form)->Name() == name) return **form;
    if (name.empty()) throw Fault("wrong-time", "no dialog is open");
    throw Fault("unknown-form", "the form \"" + name + "\" is not open");
}

ui::Form& Driver::FrontOf(const Json& message) const
{
    ui::Form& form = FormOf(message);
    ui::Form& front = *waiting_.back()->form;
    if (&form != &front) throw Fault("wrong-time", form.Name() + " stands behind " + front.Name());
    if (!front.Enabled()) throw Fault("not-reachable", front.Name() + " is disabled");
    return front;
}

ui::Control& Driver::ControlOf(const Json& message) const
{
    const ui::Form& form = FormOf(message);
    const std::string name = TextField(message, "control");
    ui::Control* control = form.FindControl(name);
    if (control == nullptr) throw Fault("unknown-control", form.Name() + " has no control \"" + name + "\"");
    return *control;
}

basic::ObjectRef Driver::ObjectOf(const Json& message) const
{
    if (message.contains("control")) return ControlOf(message).Object();
    return FormOf(message).Object();
}

// --- the host's own business

void Driver::OnMethods(const Json&)
{
    Json list = Json::array();
    for (const Method& method : Methods()) {
        Json parameters = Json::array();
        for (const Parameter& parameter : method.Parameters()) {
            if (parameter.kind == ArgumentKind::Session) continue;
            Json told = {{"name", parameter.name}, {"kind", KindName(parameter.kind)}};
            if (parameter.byReference || parameter.kind == ArgumentKind::Object) told["comesBack"] = true;
            parameters.push_back(std::move(told));
        }
        list.push_back({{"class", method.className}, {"method", method.method}, {"arguments", std::move(parameters)}});
    }
    (*answer_)["methods"] = std::move(list);
}

namespace {

template <class T>
Json TellValue(const T& value)
{
    return value;
}

void TakeValue(std::string& field, const char* name, const Json& set)
{
    field = TextField(set, name);
}
void TakeValue(std::int32_t& field, const char* name, const Json& set)
{
    field = static_cast<std::int32_t>(NumberField(set, name));
}

// The record by name: what can be read, and what a driver may set. The connection is set by "connect".
struct SessionField {
    const char* name;
    Json (*tell)(const KvxVar&);
    void (*take)(KvxVar&, const char* name, const Json& set);
};

template <auto F>
constexpr SessionField Plain(const char* name)
{
    return {name, [](const KvxVar& kvxvar) { return TellValue(kvxvar.*F); },
            [](KvxVar& kvxvar, const char* field, const Json& set) { TakeValue(kvxvar.*F, field, set); }};
}

// clang-format off
constexpr SessionField kSessionFields[] = {
    {"dbAdo", [](const KvxVar& k) { return Json(k.dbAdo.State() == ado::adStateOpen ? "open" : "closed"); }, nullptr},
    Plain<&KvxVar::strConnection>("strConnection"),
    Plain<&KvxVar::strLanguage>("strLanguage"),
    Plain<&KvxVar::strReserved1>("strReserved1"),
    Plain<&KvxVar::strReserved2>("strReserved2"),
    Plain<&KvxVar::strReserved3>("strReserved3"),
    Plain<&KvxVar::strDateFormat>("strDateFormat"),
    Plain<&KvxVar::strReserved4>("strReserved4"),
    Plain<&KvxVar::strReserved5>("strReserved5"),
    Plain<&KvxVar::strAppPath>("strAppPath"),
    Plain<&KvxVar::strIniFile>("strIniFile"),
    Plain<&KvxVar::ID_USER>("ID_USER"),
    Plain<&KvxVar::ID_ACCESS_LEVELS>("ID_ACCESS_LEVELS"),
    {"numReserved", [](const KvxVar& k) { return Json(k.numReserved); },
     [](KvxVar& k, const char* name, const Json& set) {
         const Json& list = set[name];
         if (!list.is_array() || list.size() != k.numReserved.size())
             throw Fault("bad-message", "\"numReserved\" must be a list of eight numbers");
         std::array<std::int32_t, 8> numbers{};
         for (std::size_t i = 0; i < numbers.size(); ++i)
             numbers[i] = static_cast<std::int32_t>(NumberField(Json{{name, list[i]}}, name));
         k.numReserved = numbers;
     }},
    Plain<&KvxVar::strReserved6>("strReserved6"),
    Plain<&KvxVar::strReserved7>("strReserved7"),
    Plain<&KvxVar::g_Client>("g_Client"),
    Plain<&KvxVar::numReserved2>("numReserved2"),
    Plain<&KvxVar::strDBUser>("strDBUser"),
    Plain<&KvxVar::strDBPassword>("strDBPassword"),
    {"bOracle", [](const KvxVar& k) { return Json(k.bOracle != 0); },
     [](KvxVar& k, const char* name, const Json& set) { k.bOracle = BoolField(set, name, false) ? -1 : 0; }},
};
// clang-format on

}  // namespace

void Driver::OnSession(const Json& message)
{
    KvxVar& kvxvar = session_.kvxvar;
    if (message.contains("set")) {
        const Json& set = message["set"];
        if (!set.is_object()) throw Fault("bad-message", "\"set\" must name fields and their values");
        KvxVar changed = kvxvar;  // all or nothing
        for (const auto& item : set.items()) {
            const std::string& name = item.key();
            const auto* field =
                std::ranges::find_if(kSessionFields, [&](const SessionField& row) { return name == row.name; });
            if (field == std::end(kSessionFields))
                throw Fault("unknown-field", "the session has no field \"" + name + "\"");
            if (field->take == nullptr) throw Fault("bad-message", "dbAdo is set by the message \"connect\"");
            field->take(changed, field->name, set);
        }
        kvxvar = changed;
    }
    Json fields = Json::object();
    for (const SessionField& field : kSessionFields)
        fields[field.name] = field.tell(kvxvar);
    (*answer_)["session"] = std::move(fields);
}

void Driver::OnConnect(const Json& message)
{
    const std::string connection = TextField(message, "connection");
    try {
        session_ = reopen_(connection);
    } catch (const StartError& error) {
        throw Fault("not-connected", error.what());
    }
}

void Driver::OnCall(const Json& message)
{
    const Method& method = FindMethod(TextField(message, "class"), TextField(message, "method"));
    Json arguments = message.contains("arguments") ? message["arguments"] : Json::object();
    if (!arguments.is_object()) throw Fault("bad-message", "\"arguments\" must name arguments and their values");

    Frame frame(session_, std::move(arguments));
    frame_ = &frame;
    struct Leave {
        Frame*& frame;
        ~Leave() { frame = nullptr; }
    } leave{frame_};
    Perform(method, frame);

    Json ended = {{"call", method.Name()}};
    if (message.contains("id")) ended["id"] = message["id"];
    if (frame.error)
        ended["error"] = ErrorJson(frame.error->Number, frame.error->Source, frame.error->Description);
    else
        ended["result"] = std::move(frame.result);
    ended["arguments"] = std::move(frame.byReference);
    // The message that is under way by now is the one that closed the last dialog.
    news_["ended"] = std::move(ended);
}

void Driver::OnObjects(const Json&)
{
    (*answer_)["objects"] = frame_ == nullptr ? Json::object() : frame_->Objects().DescribeAll();
}

void Driver::OnStatements(const Json&)
{
    asksStatements_ = true;
}

void Driver::OnWait(const Json& message)
{
    constexpr std::int64_t kDay = 86'400'000;
    const std::int64_t milliseconds = NumberField(message, "milliseconds");
    if (milliseconds < 0 || milliseconds > kDay)
        throw Fault("bad-message", "\"milliseconds\" must be 0 to " + std::to_string(kDay));
    Advance(milliseconds);
}

void Driver::OnClock(const Json& message)
{
    if (message.contains("set")) {
        SetNow(ReadDate(TextField(message, "set")));
        clockSet_ = true;
    }
    (*answer_)["clock"] = DateText(Now());
}

void Driver::OnClipboard(const Json& message)
{
    if (message.contains("set")) SetClipboardText(TextField(message, "set"));
    (*answer_)["clipboard"] = ClipboardText();
}

// --- looking

void Driver::OnForms(const Json&)
{
    Json forms = Json::array();
    for (const ui::Form* form : ModalForms())
        forms.push_back(LookAtForm(*form));
    (*answer_)["forms"] = std::move(forms);
}

void Driver::OnControl(const Json& message)
{
    (*answer_)["control"] = LookAtControl(ControlOf(message));
}

void Driver::OnRows(const Json& message)
{
    constexpr std::int32_t kUsual = 100;
    const auto from = static_cast<std::int32_t>(NumberField(message, "from", 0));
    const auto count = static_cast<std::int32_t>(NumberField(message, "count", kUsual));
    answer_->update(LookAtRows(ControlOf(message), from, count));
}

void Driver::OnNodes(const Json& message)
{
    auto* tree = dynamic_cast<ui::TreeView*>(&ControlOf(message));
    if (tree == nullptr) throw Fault("wrong-kind", TextField(message, "control") + " is no tree");
    const auto levels = static_cast<std::int32_t>(NumberField(message, "levels", 1));
    (*answer_)["nodes"] = LookAtNodes(*tree, NodeOf(*tree, message, false), levels);
}

// --- late binding

void Driver::OnGet(const Json& message)
{
    const Member member = FollowPath(ObjectOf(message), TextField(message, "member", ""));
    const std::uint64_t exchange = exchange_;
    const basic::Variant value = basic::Deref(member.owner).Get(member.name, member.args);
    Value(exchange, "value", ToJson(value));
    Value(exchange, "type", basic::TypeName(value));
}

void Driver::OnSet(const Json& message)
{
    if (!message.contains("value")) throw Fault("bad-message", "\"value\" is missing");
    const Member member = FollowPath(ObjectOf(message), TextField(message, "member", ""));
    basic::Deref(member.owner).Put(member.name, ToVariant(message["value"]), member.args);
}

void Driver::OnInvoke(const Json& message)
{
    Member member = FollowPath(ObjectOf(message), TextField(message, "member"));
    if (message.contains("arguments")) {
        if (!message["arguments"].is_array()) throw Fault("bad-message", "\"arguments\" must be a list");
        for (const Json& argument : message["arguments"])
            member.args.push_back(ToVariant(argument));
    }
    const std::uint64_t exchange = exchange_;
    const basic::Variant value = basic::Deref(member.owner).Call(member.name, member.args);
    Value(exchange, "value", ToJson(value));
    Value(exchange, "type", basic::TypeName(value));
}

// --- questions

void Driver::OnAnswer(const Json& message)
{
    Question& question = *waiting_.back()->question;
    const auto refuse = [&](const char* field) {
        if (message.contains(field))
            throw Fault("bad-answer", "this question is not answered by \"" + std::string(field) + "\"");
    };
    switch (question.kind) {
    case Question::Kind::Message: {
        for (const char* field : {"text", "value", "error"})
            refuse(field);
        const std::string wanted = TextField(message, "button");
        bool offered = false;
        for (const auto& [name, button] : ButtonsOf(question.flags)) {
            if (name != wanted) continue;
            question.button = button;
            offered = true;
        }
        if (!offered) throw Fault("bad-answer", "the message has no button \"" + wanted + "\"");
        break;
    }
    case Question::Kind::Input: {
        for (const char* field : {"value", "error"})
            refuse(field);
        const std::string button = TextField(message, "button", "ok");
        if (button != "ok" && button != "cancel")
            throw Fault("bad-answer", "the input box has no button \"" + button + "\"");
        question.value = TextField(message, "text", question.text);
        question.button = button == "ok" ? ui::vbOK : ui::vbCancel;
        break;
    }
    case Question::Kind::Outside:
        for (const char* field : {"button", "text"})
            refuse(field);
        if (message.contains("error")) {
            const Json& error = message["error"];
            question.error = basic::Error(static_cast<std::int32_t>(NumberField(error, "number")),
                                          TextField(error, "text", ""), TextField(error, "source", question.title));
        } else if (message.contains("value")) {
            static_cast<void>(ToVariant(message["value"]));
            question.value = message["value"];
        } else {
            throw Fault("bad-answer", "the outside application answers with \"value\" or \"error\"");
        }
        break;
    }
    question.answered = true;
}

}  // namespace kvx::host::drive
