#pragma once

#include "basic/Variant.h"

#include <span>
#include <string>
#include <string_view>

namespace kvx::basic {

/// A thing whose members are found by name while running: a host's text box, a control of ours, an outside
/// application. Member names ignore case; the empty name is the default property.
class Object {
public:
    virtual ~Object() = default;

    /// "TextBox", "ComboBox", "ListBox", ... as the classic platform names the kind.
    virtual std::string TypeName() const = 0;

    /// Reads a property. @param args its indexes, e.g. of ItemData
    /// @throws Error 438: no such member
    virtual Variant Get(std::string_view member, std::span<const Variant> args = {}) = 0;

    /// Assigns a property. @throws Error 438: no such member; 383: it can only be read
    virtual void Put(std::string_view member, const Variant& value, std::span<const Variant> args = {}) = 0;

    /// Calls a method. @param args by reference: a method may change them
    /// @throws Error 438: no such member
    virtual Variant Call(std::string_view member, std::span<Variant> args = {}) = 0;
};

/// @throws Error 91 when the reference is Nothing
Object& Deref(const ObjectRef& object);

/// One row of a member table: what late binding finds under a name. A null function pointer = not offered that way.
template <class T>
struct Member {
    std::string_view name;
    Variant (*get)(T&, std::span<const Variant>) = nullptr;
    void (*put)(T&, const Variant&, std::span<const Variant>) = nullptr;
    Variant (*call)(T&, std::span<Variant>) = nullptr;
};

/// True when two member names are the same: ASCII case is ignored.
bool SameName(std::string_view a, std::string_view b);

/// @throws Error 438, naming the member
[[noreturn]] void RaiseNoMember(std::string_view typeName, std::string_view member);

} // namespace kvx::basic
