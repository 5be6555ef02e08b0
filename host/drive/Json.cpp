#include "host/drive/Json.h"

#include "basic/Convert.h"
#include "basic/Object.h"

#include <cmath>
#include <cstdio>
#include <limits>

namespace kvx::host::drive {

namespace {

const Json* Find(const Json& message, const char* name)
{
    if (!message.is_object()) throw Fault("bad-message", "an object with \"" + std::string(name) + "\" is needed");
    const auto found = message.find(name);
    return found == message.end() ? nullptr : &*found;
}

[[noreturn]] void WrongKind(const char* name, const char* kind)
{
    throw Fault("bad-message", "\"" + std::string(name) + "\" must be " + kind);
}

[[noreturn]] void Missing(const char* name)
{
    throw Fault("bad-message", "\"" + std::string(name) + "\" is missing");
}

Json NumberJson(double value)
{
    // 12.0 is 12 for whoever compares.
    constexpr double kExact = 9007199254740992.0;
    if (std::isfinite(value) && std::floor(value) == value && std::fabs(value) < kExact)
        return static_cast<std::int64_t>(value);
    return value;
}

}  // namespace

Json ToJson(const basic::Variant& value)
{
    switch (value.Type()) {
    case basic::VarType::Empty:
    case basic::VarType::Null: return nullptr;
    case basic::VarType::Boolean: return value.Held<bool>();
    case basic::VarType::String: return value.Held<std::string>();
    case basic::VarType::Date: return Json{{"date", DateText(value.Held<basic::Date>())}};
    case basic::VarType::Object: {
        const basic::ObjectRef& object = value.Held<basic::ObjectRef>();
        if (object == nullptr) return nullptr;
        return Json{{"object", object->TypeName()}};
    }
    case basic::VarType::Array: {
        Json items = Json::array();
        for (const basic::Variant& item : *value.AsArray())
            items.push_back(ToJson(item));
        return items;
    }
    default: return NumberJson(basic::CDbl(value));
    }
}

basic::Variant ToVariant(const Json& json)
{
    if (json.is_null()) return basic::Null{};
    if (json.is_boolean()) return json.get<bool>();
    if (json.is_string()) return json.get<std::string>();
    if (json.is_number_integer()) {
        const auto number = json.get<std::int64_t>();
        const bool isLong =
            number >= std::numeric_limits<std::int32_t>::min() && number <= std::numeric_limits<std::int32_t>::max();
        if (isLong) return static_cast<std::int32_t>(number);
        return static_cast<double>(number);
    }
    if (json.is_number()) return json.get<double>();
    if (json.is_object() && json.size() == 1 && json.contains("date") && json["date"].is_string())
        return ReadDate(json["date"].get<std::string>());
    if (json.is_array()) {
        basic::VariantArray items;
        for (const Json& item : json)
            items.push_back(ToVariant(item));
        return items;
    }
    throw Fault("bad-value", "no value: " + json.dump(-1, ' ', false, Json::error_handler_t::replace));
}

Json ErrorJson(std::int32_t number, std::string_view source, std::string_view text)
{
    return Json{{"number", number}, {"source", source}, {"text", text}};
}

std::string TextField(const Json& message, const char* name)
{
    const Json* field = Find(message, name);
    if (field == nullptr) Missing(name);
    if (!field->is_string()) WrongKind(name, "a text");
    return field->get<std::string>();
}

std::string TextField(const Json& message, const char* name, std::string_view fallback)
{
    return Find(message, name) == nullptr ? std::string(fallback) : TextField(message, name);
}

std::int64_t NumberField(const Json& message, const char* name)
{
    const Json* field = Find(message, name);
    if (field == nullptr) Missing(name);
    if (!field->is_number_integer()) WrongKind(name, "a whole number");
    const auto number = field->get<std::int64_t>();
    // Everything that counts or places something here is a Long.
    if (number < std::numeric_limits<std::int32_t>::min() || number > std::numeric_limits<std::int32_t>::max())
        WrongKind(name, "a number of 32 bits");
    return number;
}

std::int64_t NumberField(const Json& message, const char* name, std::int64_t fallback)
{
    return Find(message, name) == nullptr ? fallback : NumberField(message, name);
}

bool BoolField(const Json& message, const char* name, bool fallback)
{
    const Json* field = Find(message, name);
    if (field == nullptr) return fallback;
    if (!field->is_boolean()) WrongKind(name, "true or false");
    return field->get<bool>();
}

basic::Date ReadDate(std::string_view text)
{
    const std::string copy(text);
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0, end = 0;
    const int length = static_cast<int>(copy.size());
    bool read = std::sscanf(copy.c_str(), "%4d-%2d-%2d%n", &year, &month, &day, &end) == 3 && end == length;
    if (!read)
        read = std::sscanf(copy.c_str(), "%4d-%2d-%2dT%2d:%2d:%2d%n", &year, &month, &day, &hour, &minute, &second,
                           &end) == 6 &&
               end == length;
    if (read) {
        const basic::DateParts parts{year, month, day, hour, minute, second};
        const basic::Date date = basic::DateOf(parts);
        const basic::DateParts real = basic::PartsOf(date);
        // The 31st of April would roll over into May.
        if (real.year == year && real.month == month && real.day == day && real.hour == hour && real.minute == minute)
            return date;
    }
    throw Fault("bad-value", "no date: \"" + copy + "\"; it is written 2024-05-15 or 2024-05-15T10:30:00");
}

std::string DateText(basic::Date date)
{
    const basic::DateParts parts = basic::PartsOf(date);
    char text[48];
    if (parts.hour == 0 && parts.minute == 0 && parts.second == 0)
        std::snprintf(text, sizeof text, "%04d-%02d-%02d", static_cast<int>(parts.year), static_cast<int>(parts.month),
                      static_cast<int>(parts.day));
    else
        std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d", static_cast<int>(parts.year),
                      static_cast<int>(parts.month), static_cast<int>(parts.day), static_cast<int>(parts.hour),
                      static_cast<int>(parts.minute), static_cast<int>(parts.second));
    return text;
}

}  // namespace kvx::host::drive
