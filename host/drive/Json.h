#pragma once

#include "basic/Variant.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

// What the messages of a driver are made of.
namespace kvx::host::drive {

/// Members keep their order, so that an answer reads as it is documented.
using Json = nlohmann::ordered_json;

/// Why a message was not carried out. The session goes on.
class Fault : public std::runtime_error {
public:
    /// @param kind  for programs: "unknown-control". @param text  for people
    Fault(std::string_view kind, const std::string& text) : std::runtime_error(text), kind_(kind) {}
    const std::string& Kind() const { return kind_; }

private:
    std::string kind_;
};

/// A value as it travels: texts, numbers, true, false and null; a date is {"date": "2024-05-15"}, an object
/// {"object": its kind}. Money and decimals become numbers.
Json ToJson(const basic::Variant& value);

/// The same the other way. Whole numbers that fit are Longs, null is Null.
/// @throws Fault bad-value: an object or array that stands for no value
basic::Variant ToVariant(const Json& json);

/// {"number": 3021, "source": "ADODB.Recordset", "text": "..."}
Json ErrorJson(std::int32_t number, std::string_view source, std::string_view text);

// --- members of a message. @throws Fault bad-message: it is missing without a fallback, or of another kind

std::string TextField(const Json& message, const char* name);
std::string TextField(const Json& message, const char* name, std::string_view fallback);
std::int64_t NumberField(const Json& message, const char* name);
std::int64_t NumberField(const Json& message, const char* name, std::int64_t fallback);
bool BoolField(const Json& message, const char* name, bool fallback);

/// "2024-05-15", "2024-05-15T10:30:00". @throws Fault bad-value
basic::Date ReadDate(std::string_view text);
std::string DateText(basic::Date date);

}  // namespace kvx::host::drive
