#include "basic/Object.h"

#include "basic/Error.h"

namespace kvx::basic {

Object& Deref(const ObjectRef& object)
{
    if (object == nullptr) Raise(kErrObjectNotSet);
    return *object;
}

bool SameName(std::string_view a, std::string_view b)
{
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; };
        if (a[i] != b[i] && lower(a[i]) != lower(b[i])) return false;
    }
    return true;
}

void RaiseNoMember(std::string_view typeName, std::string_view member)
{
    std::string description = "Object doesn't support this property or method";
    description.append(": ").append(typeName).append(".").append(member.empty() ? "(default)" : member);
    throw Error(kErrMemberNotFound, std::move(description));
}

} // namespace kvx::basic
