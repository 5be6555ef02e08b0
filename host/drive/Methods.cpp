#include "host/drive/Methods.h"

#include "basic/Convert.h"
#include "entry/C_Version.h"
#include "entry/c_DBLogin.h"
#include "entry/c_Message.h"
#include "entry/c_Tabellen2.h"
#include "entry/c_Waldort.h"

#include <algorithm>
#include <array>
#include <limits>
#include <tuple>
#include <type_traits>
#include <utility>

namespace kvx::host::drive {

namespace {

using basic::ObjectRef;

// --- a declared parameter as a row of the table sees it

template <class T>
constexpr ArgumentKind KindOf()
{
    using Plain = std::remove_cvref_t<T>;
    if constexpr (std::is_same_v<Plain, KvxVar> || std::is_same_v<Plain, ado::Connection>)
        return ArgumentKind::Session;
    else if constexpr (std::is_same_v<Plain, std::string> || std::is_same_v<Plain, std::string_view>)
        return ArgumentKind::Text;
    else if constexpr (std::is_same_v<Plain, std::vector<std::string>>)
        return ArgumentKind::TextArray;
    else if constexpr (std::is_same_v<Plain, std::uint8_t>)
        return ArgumentKind::Byte;
    else if constexpr (std::is_same_v<Plain, std::int16_t>)
        return ArgumentKind::Integer;
    else if constexpr (std::is_same_v<Plain, std::int32_t>)
        return ArgumentKind::Long;
    else if constexpr (std::is_same_v<Plain, bool>)
        return ArgumentKind::Boolean;
    else if constexpr (std::is_same_v<Plain, ObjectRef>)
        return ArgumentKind::Object;
    else if constexpr (std::is_same_v<Plain, basic::Variant>)
        return ArgumentKind::Variant;
}

// The library may write into it, so it comes back. An object comes back by its own state.
template <class T>
constexpr bool kWritten = std::is_lvalue_reference_v<T> && !std::is_const_v<std::remove_reference_t<T>>;

[[noreturn]] void BadArgument(std::string_view name, const std::string& what)
{
    throw Fault("bad-argument", std::string(name) + " must be " + what);
}

template <class N>
N NumberOf(const Json* given, const Parameter& parameter)
{
    if (given == nullptr) return 0;
    if (given->is_boolean() && parameter.kind == ArgumentKind::Boolean) return given->get<bool>() ? N(-1) : N(0);
    if (given->is_number_integer()) {
        const auto number = given->get<std::int64_t>();
        if (number >= std::numeric_limits<N>::min() && number <= std::numeric_limits<N>::max())
            return static_cast<N>(number);
    }
    BadArgument(parameter.name, "a whole number of " + std::to_string(sizeof(N) * 8) + " bits" +
                                    (parameter.kind == ArgumentKind::Boolean ? ", true or false" : ""));
}

std::string TextOf(const Json* given, std::string_view name)
{
    if (given == nullptr) return {};
    if (!given->is_string()) BadArgument(name, "a text");
    return given->get<std::string>();
}

// --- the value of one parameter while the call runs

template <class T>
struct Slot {
    using Held = std::conditional_t<std::is_same_v<std::remove_cvref_t<T>, std::string_view>, std::string,
                                    std::remove_cvref_t<T>>;
    Held value{};

    void Take(Frame& frame, const Parameter& parameter)
    {
        const Json* given = frame.Argument(parameter.name);
        if constexpr (std::is_same_v<Held, std::string>) {
            value = TextOf(given, parameter.name);
        } else if constexpr (std::is_same_v<Held, std::vector<std::string>>) {
            if (given == nullptr) return;
            if (!given->is_array()) BadArgument(parameter.name, "a list of texts");
            for (const Json& item : *given)
                value.push_back(TextOf(&item, parameter.name));
        } else if constexpr (std::is_same_v<Held, bool>) {
            value = NumberOf<std::int16_t>(given, parameter) != 0;
        } else if constexpr (std::is_same_v<Held, basic::Variant>) {
            if (given != nullptr) value = ToVariant(*given);
        } else if constexpr (!std::is_same_v<Held, ObjectRef>) {
            value = NumberOf<Held>(given, parameter);
        }
    }
    Json Now(const Parameter& parameter) const
    {
        if constexpr (std::is_same_v<Held, basic::Variant>)
            return ToJson(value);
        else if constexpr (std::is_same_v<Held, std::int16_t>)
            return parameter.kind == ArgumentKind::Boolean ? Json(value != 0) : Json(value);
        else if constexpr (std::is_same_v<Held, ObjectRef>)
            return nullptr;
        else
            return value;
    }
    Held& Get(Frame&) { return value; }
};
template <>
struct Slot<const KvxVar&> {
    void Take(Frame&, const Parameter&) {}
    Json Now(const Parameter&) const { return nullptr; }
    const KvxVar& Get(Frame& frame) { return frame.GetSession().kvxvar; }
};
template <>
struct Slot<const ado::Connection&> {
    void Take(Frame&, const Parameter&) {}
    Json Now(const Parameter&) const { return nullptr; }
    const ado::Connection& Get(Frame& frame) { return frame.GetSession().kvxvar.dbAdo; }
};

template <class R>
Json ResultJson(const R& result, bool isBoolean)
{
    if constexpr (std::is_same_v<R, basic::Variant>)
        return ToJson(result);
    else if constexpr (std::is_same_v<R, ObjectRef>)
        return ToJson(basic::Variant(result));
    else if constexpr (std::is_integral_v<R>)
        return isBoolean ? Json(result != 0) : Json(result);
    else
        return result;
}

// @return Nothing for what was left out
ObjectRef MakeObject(Frame& frame, const Parameter& parameter)
{
    const Json* given = frame.Argument(parameter.name);
    if (given == nullptr || given->is_null()) return nullptr;
    if (given->is_object() && given->contains("same")) return frame.Objects().Find(TextField(*given, "same"));
    return frame.Objects().Make(std::string(parameter.name), *given);
}

template <class Tuple, std::size_t... I>
void TakeAll(Tuple& slots, Frame& frame, const std::vector<Parameter>& parameters, std::index_sequence<I...>)
{
    (std::get<I>(slots).Take(frame, parameters[I]), ...);
    // An object may be a member of another one, wherever that stands in the row.
    const auto makeObjects = [&](bool references) {
        [[maybe_unused]] const auto make = [&](auto& slot, const Parameter& parameter) {
            if constexpr (std::is_same_v<std::remove_cvref_t<decltype(slot)>, Slot<const ObjectRef&>>) {
                const Json* given = frame.Argument(parameter.name);
                const bool isReference = given != nullptr && given->is_object() && given->contains("same");
                if (isReference == references) slot.value = MakeObject(frame, parameter);
            }
        };
        (make(std::get<I>(slots), parameters[I]), ...);
    };
    makeObjects(false);
    makeObjects(true);
}

template <auto F, class Signature = decltype(F)>
struct Binding;
template <auto F, class C, class R, class... A>
struct Binding<F, R (C::*)(A...)> {
    static constexpr std::array<ArgumentKind, sizeof...(A)> kKinds{KindOf<A>()...};
    static constexpr std::array<bool, sizeof...(A)> kByReference{kWritten<A>...};

    static void Run(const Method& method, Frame& frame)
    {
        const std::vector<Parameter> parameters = method.Parameters();
        std::tuple<Slot<A>...> slots;
        constexpr auto kIndexes = std::index_sequence_for<A...>{};
        TakeAll(slots, frame, parameters, kIndexes);
        try {
            Call(method, frame, slots, kIndexes);
        } catch (const basic::Error& error) {
            frame.error = error;
        }
        Back(slots, frame, parameters, kIndexes);
    }

private:
    template <std::size_t... I>
    static void Call([[maybe_unused]] const Method& method, Frame& frame, std::tuple<Slot<A>...>& slots,
                     std::index_sequence<I...>)
    {
        if constexpr (std::is_void_v<R>)
            (C{}.*F)(std::get<I>(slots).Get(frame)...);
        else
            frame.result = ResultJson<R>((C{}.*F)(std::get<I>(slots).Get(frame)...), method.resultName == "?");
    }
    template <std::size_t... I>
    static void Back(const std::tuple<Slot<A>...>& slots, Frame& frame, const std::vector<Parameter>& parameters,
                     std::index_sequence<I...>)
    {
        ((kByReference[I] ? static_cast<void>(frame.byReference[std::string(parameters[I].name)] =
                                                  std::get<I>(slots).Now(parameters[I]))
                          : static_cast<void>(0)),
         ...);
    }
};
template <auto F, class C, class R, class... A>
struct Binding<F, R (C::*)(A...) const> : Binding<F, R (C::*)(A...)> {
};

consteval std::size_t CountNames(std::string_view names)
{
    return names.empty() ? 0 : static_cast<std::size_t>(std::ranges::count(names, ',')) + 1;
}

// A row: the member function itself, and the names of its parameters.
template <auto F>
consteval Method Row(std::string_view className, std::string_view method, std::string_view names,
                     std::string_view result = "")
{
    if (CountNames(names) != Binding<F>::kKinds.size()) throw "every parameter needs a name";
    return {className, method, names, result, Binding<F>::kKinds, Binding<F>::kByReference, Binding<F>::Run};
}

constexpr std::string_view kStandBoxes =
    "kvxvar, txtWO1, txtWO2, txtWO3, txtWO4, txtWO5, txtWO6, ID_AL, txtWOLangname, "
    "txtGemarkung, txtFlurStuck, txtParzelle, txtFlaeche, txtAlter, strHolzart, "
    "txtWaldort, intWaldortId, ID_WALDORT_Root";

// clang-format off
constexpr Method kMethods[] = {
    Row<&c_Message::MessageBoxCmb>("c_Message", "MessageBoxCmb", "strLabel, Parameter, cmbBox"),
    Row<&c_Message::MessageBox_Clear>("c_Message", "MessageBox_Clear", ""),
    Row<&c_Message::MessageBox_AddItem>("c_Message", "MessageBox_AddItem", "s"),
    Row<&c_Message::MessageBox_ItemCount>("c_Message", "MessageBox_ItemCount", ""),
    Row<&c_Message::MessageBox_Show>("c_Message", "MessageBox_Show", "strCaption"),
    Row<&c_Message::MessageBoxNL>("c_Message", "MessageBoxNL", "strLabel, strFileName"),
    Row<&c_Message::CheckBBFTables>("c_Message", "CheckBBFTables", "strLabel, table, table_name, kvxvar, idPersonal", "?"),
    Row<&c_Message::CheckForstamt>("c_Message", "CheckForstamt", "intReltableId_dll, intReltable_dll, kvxvar", "?"),
    Row<&c_Message::CheckPersonal>("c_Message", "CheckPersonal", "kvxvar, intId, intStMandanten", "?"),
    Row<&c_Message::CheckPerson>("c_Message", "CheckPerson", "kvxvar, intId, column, intKey, KundeID", "?"),
    Row<&c_Message::CheckArtikelWaren>("c_Message", "CheckArtikelWaren", "intId, kvxvar", "?"),
    Row<&c_Message::GetArtikelNameWaren>("c_Message", "GetArtikelNameWaren", "ID, dbAdo_dll"),
    Row<&c_Message::CheckTableToDel>("c_Message", "CheckTableToDel", "strSQL, intName, intPrompt, kvxvar"),
    Row<&c_Tabellen2::Tabellen2>("c_Tabellen2", "Tabellen2",
        "kvxvar, strTableName_dll, strProtokolPath_dll, intIdString_dll, bolPrint?, strUserName"),
    Row<&C_Version::DLL_Version>("C_Version", "DLL_Version", ""),
    Row<&c_DBLogin::DBLogin>("c_DBLogin", "DBLogin",
        "strDBServer_dll, strDBName_dll, strDBUserID_dll, strDBUserPassword_dll, bolWinNTAut_dll?, blnOK_dll?, "
        "strLanguage_dll, g_Client"),
    Row<&c_Waldort::Waldort>("c_Waldort", "Waldort", kStandBoxes),
    Row<&c_Waldort::WaldortSimple>("c_Waldort", "WaldortSimple", "kvxvar, bolPrint?, ID_AL, OnlyRead?, ID_WALDORT_Root"),
    Row<&c_Waldort::WaldortId>("c_Waldort", "WaldortId", "kvxvar, strWO, ID_AL, ID_WALDORT_Root, ListBox1"),
    Row<&c_Waldort::WaldortArbeits>("c_Waldort", "WaldortArbeits",
        "kvxvar, txtWaldort, intWaldortId, txtFlaeche, ID_AL, ID_WALDORT_Root"),
    Row<&c_Waldort::Waldort_ID>("c_Waldort", "Waldort_ID", "kvxvar, ID_AL, WO1, WO2, WO3, WO4, WO5, WO6"),
};
// clang-format on

}  // namespace

std::string_view KindName(ArgumentKind kind)
{
    constexpr std::string_view kNames[] = {"session", "text",    "texts",  "byte", "integer",
                                           "long",    "boolean", "object", "value"};
    return kNames[static_cast<std::size_t>(kind)];
}

const Json* Frame::Argument(std::string_view name) const
{
    for (const auto& [given, value] : arguments_.items())
        if (basic::SameName(given, name)) return &value;
    return nullptr;
}

std::vector<std::string> Frame::ArgumentNames() const
{
    std::vector<std::string> names;
    for (const auto& [given, value] : arguments_.items())
        names.push_back(given);
    return names;
}

std::vector<Parameter> Method::Parameters() const
{
    std::vector<Parameter> parameters;
    std::string_view rest = names;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const std::size_t end = std::min(rest.find(','), rest.size());
        Parameter parameter{rest.substr(0, end), kinds[i], byReference[i]};
        if (parameter.name.ends_with('?')) {
            parameter.name.remove_suffix(1);
            parameter.kind = ArgumentKind::Boolean;
        }
        parameters.push_back(parameter);
        rest.remove_prefix(std::min(end + 2, rest.size()));
    }
    return parameters;
}

std::span<const Method> Methods()
{
    return kMethods;
}

const Method& FindMethod(std::string_view className, std::string_view method)
{
    bool knownClass = false;
    for (const Method& row : kMethods) {
        if (row.className != className) continue;
        knownClass = true;
        if (row.method == method) return row;
    }
    if (!knownClass) throw Fault("unknown-class", "there is no public class \"" + std::string(className) + "\"");
    throw Fault("unknown-method", std::string(className) + " has no method \"" + std::string(method) + "\"");
}

void Perform(const Method& method, Frame& frame)
{
    const std::vector<Parameter> parameters = method.Parameters();
    for (const std::string& given : frame.ArgumentNames()) {
        const auto known = std::ranges::find_if(
            parameters, [&](const Parameter& parameter) { return basic::SameName(parameter.name, given); });
        if (known == parameters.end())
            throw Fault("unknown-argument", method.Name() + " has no argument \"" + given + "\"");
        if (known->kind == ArgumentKind::Session)
            throw Fault("bad-argument", given + " is the session; it is set by the message \"session\"");
    }
    method.run(method, frame);
    for (const Parameter& parameter : parameters) {
        if (parameter.kind != ArgumentKind::Object) continue;
        const Json* given = frame.Argument(parameter.name);
        if (given != nullptr && given->is_object() && given->contains("object"))
            frame.byReference[std::string(parameter.name)] = frame.Objects().Describe(std::string(parameter.name));
    }
}

}  // namespace kvx::host::drive
