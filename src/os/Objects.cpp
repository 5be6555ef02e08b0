#include "os/Objects.h"

#include "basic/Text.h"

#include <map>
#include <string>

namespace kvx::os {

namespace {
std::map<std::string, std::function<basic::ObjectRef()>>& Factories()
{
    static std::map<std::string, std::function<basic::ObjectRef()>> factories;
    return factories;
}
}  // namespace

void RegisterObject(std::string_view progId, std::function<basic::ObjectRef()> factory)
{
    if (factory) {
        Factories()[basic::LCase(progId)] = std::move(factory);
    } else {
        Factories().erase(basic::LCase(progId));
    }
}

basic::ObjectRef CreateObject(std::string_view progId)
{
    const auto found = Factories().find(basic::LCase(progId));
    return found == Factories().end() ? nullptr : found->second();
}

}  // namespace kvx::os
