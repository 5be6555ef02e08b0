#pragma once

#include "basic/Members.h"
#include "basic/Object.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace kvx::ui {

/// A row, column or other part of a control as a late-bound object; held here, it stays when the control drops it.
template <class T>
class PartObject final : public basic::Object {
public:
    PartObject(std::shared_ptr<T> part, const basic::MemberTable<T>& members, std::string_view typeName)
        : part_(std::move(part)), members_(members), typeName_(typeName)
    {
    }
    T& Part() const { return *part_; }

    std::string TypeName() const override { return std::string{typeName_}; }
    basic::Variant Get(std::string_view member, std::span<const basic::Variant> args) override
    {
        return members_.Get(*part_, member, args);
    }
    void Put(std::string_view member, const basic::Variant& value, std::span<const basic::Variant> args) override
    {
        members_.Put(*part_, member, value, args);
    }
    basic::Variant Call(std::string_view member, std::span<basic::Variant> args) override
    {
        return members_.Call(*part_, member, args);
    }

private:
    std::shared_ptr<T> part_;
    const basic::MemberTable<T>& members_;
    std::string_view typeName_;
};

}  // namespace kvx::ui
