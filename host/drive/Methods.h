#pragma once

#include "basic/Error.h"
#include "host/Session.h"
#include "host/drive/HostObjects.h"
#include "host/drive/Json.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The public operations of the library as a driver calls them: once a row, arguments by name.
namespace kvx::host::drive {

enum class ArgumentKind : std::uint8_t {
    Session,  ///< kvxvar, or its connection: the driver's own session, never in the message
    Text,
    TextArray,
    Byte,
    Integer,  ///< 16 bits
    Long,     ///< 32 bits
    Boolean,  ///< 16 bits, nonzero = true
    Object,   ///< described as HostObjects takes it; null = Nothing
    Variant,  ///< any value
};
std::string_view KindName(ArgumentKind kind);

struct Parameter {
    std::string_view name;
    ArgumentKind kind = ArgumentKind::Text;
    bool byReference = false;  ///< comes back by name
};

/// One call on its way: what the driver gave, and what came back.
class Frame {
public:
    /// @param arguments  by name; what is left out is empty, 0, false or Nothing
    Frame(Session& session, Json arguments) : session_(session), arguments_(std::move(arguments)) {}

    Session& GetSession() const { return session_; }
    const Json* Argument(std::string_view name) const;  ///< nullptr = left out
    std::vector<std::string> ArgumentNames() const;
    HostObjects& Objects() { return objects_; }

    Json result;                        ///< null when the method has none
    Json byReference = Json::object();  ///< by-reference values and objects, by name
    std::optional<basic::Error> error;  ///< the library's; what was given back before it counts all the same

private:
    Session& session_;
    Json arguments_;
    HostObjects objects_;
};

struct Method {
    std::string_view className, method;
    std::string_view names;       ///< "kvxvar, bolPrint?, ID_AL": in the order of the declaration; ? = a boolean
    std::string_view resultName;  ///< "" = by its type, "?" = a boolean
    std::span<const ArgumentKind> kinds;
    std::span<const bool> byReference;
    void (*run)(const Method& method, Frame& frame);

    std::string Name() const { return std::string(className) + "." + std::string(method); }
    std::vector<Parameter> Parameters() const;
};

/// In the published order of the classes.
std::span<const Method> Methods();
/// @throws Fault unknown-class, unknown-method
const Method& FindMethod(std::string_view className, std::string_view method);

/// Makes the objects that are described, calls, and reads everything back.
/// @throws Fault unknown-argument, bad-argument, bad-object: nothing was called
void Perform(const Method& method, Frame& frame);

}  // namespace kvx::host::drive
