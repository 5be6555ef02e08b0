#pragma once

#include "basic/Members.h"
#include "ui/Control.h"

namespace kvx::ui {

/// A kind of control: what late binding asks for is looked up in `T::Members()` first, then among those of all
/// controls.
template <class T>
class ControlOf : public Control {
public:
    using Control::Control;

    basic::Variant GetMember(std::string_view member, std::span<const basic::Variant> args) override
    {
        const basic::MemberTable<T>& own = T::Members();
        return own.Has(member) ? own.Get(static_cast<T&>(*this), member, args) : Control::GetMember(member, args);
    }
    void PutMember(std::string_view member, const basic::Variant& value, std::span<const basic::Variant> args) override
    {
        const basic::MemberTable<T>& own = T::Members();
        if (own.Has(member))
            own.Put(static_cast<T&>(*this), member, value, args);
        else
            Control::PutMember(member, value, args);
    }
    basic::Variant CallMember(std::string_view member, std::span<basic::Variant> args) override
    {
        const basic::MemberTable<T>& own = T::Members();
        return own.Has(member) ? own.Call(static_cast<T&>(*this), member, args) : Control::CallMember(member, args);
    }
};

}  // namespace kvx::ui
