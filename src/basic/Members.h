#pragma once

#include "basic/Error.h"
#include "basic/Object.h"

#include <span>
#include <string_view>
#include <vector>

namespace kvx::basic {

/// What late binding finds on a T, by name. Stands in one source file, over a constant array:
/// `constexpr Member<TextBox> kRows[] = {{.name = "Text", .get = ..., .put = ...}};
///  const MemberTable<TextBox> TextBox::kMembers{"TextBox", kRows};`
template <class T>
class MemberTable {
public:
    /// @param typeName  for the error text
    /// @param members   must outlive the table; of two rows with one name the first counts
    constexpr MemberTable(std::string_view typeName, std::span<const Member<T>> members)
        : typeName_(typeName), members_(members)
    {
    }

    /// The row of a name, case ignored; nullptr = none. A class that adds to the members of its base asks here first.
    const Member<T>* Find(std::string_view member) const
    {
        for (const Member<T>& row : members_)
            if (SameName(row.name, member)) return &row;
        return nullptr;
    }
    bool Has(std::string_view member) const { return Find(member) != nullptr; }
    std::span<const Member<T>> Members() const { return members_; }

    /// Reads a property; a method without a property of its name is called. @throws Error 438
    Variant Get(T& object, std::string_view member, std::span<const Variant> args = {}) const
    {
        const Member<T>* row = Find(member);
        if (row != nullptr && row->get != nullptr) return row->get(object, args);
        if (row == nullptr || row->call == nullptr) RaiseNoMember(typeName_, member);
        std::vector<Variant> copies(args.begin(), args.end());
        return row->call(object, copies);
    }

    /// Assigns a property. @throws Error 438: no such property; 383: it can only be read
    void Put(T& object, std::string_view member, const Variant& value, std::span<const Variant> args = {}) const
    {
        const Member<T>* row = Find(member);
        if (row == nullptr || (row->get == nullptr && row->put == nullptr)) RaiseNoMember(typeName_, member);
        if (row->put == nullptr) Raise(kErrReadOnlyProperty);
        row->put(object, value, args);
    }

    /// Calls a method; a property is read. @throws Error 438
    Variant Call(T& object, std::string_view member, std::span<Variant> args = {}) const
    {
        const Member<T>* row = Find(member);
        if (row != nullptr && row->call != nullptr) return row->call(object, args);
        if (row == nullptr || row->get == nullptr) RaiseNoMember(typeName_, member);
        return row->get(object, args);
    }

private:
    std::string_view typeName_;
    std::span<const Member<T>> members_;
};

/// The argument at an index; Empty when it was left out.
inline const Variant& ArgumentOr(std::span<const Variant> args, std::size_t index, const Variant& otherwise)
{
    return index < args.size() ? args[index] : otherwise;
}

} // namespace kvx::basic
