#pragma once

#include "adapters/qt/Strings.h"
#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Members.h"

#include <QPointer>
#include <QWidget>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// What the wrappers of HostObjects.h share; not for hosts.
namespace kvx::adapters::qt {

using Args = std::span<const basic::Variant>;

/// Index argument of List(i), ItemData(i) ... @throws Error 5: left out
inline int IndexOf(Args args)
{
    if (args.empty()) basic::Raise(basic::kErrInvalidCall);
    return basic::CLng(args[0]);
}

inline QString TextOf(const basic::Variant& value)
{
    return ToQt(basic::ToText(value));
}

// Stored at the widget, not at the wrapper: the host may wrap the same box anew for every call.
constexpr const char* kTagProperty = "kvxTag";
constexpr const char* kNewIndexProperty = "kvxNewIndex";

/// Members of every kind.
// clang-format off
template <class W>
inline constexpr basic::Member<W> kCommonMembers[] = {
    {.name = "Name", .get = [](W& w, Args) -> basic::Variant { return FromQt(w.objectName()); }},
    {.name = "Tag",
     .get = [](W& w, Args) -> basic::Variant { return FromQt(w.property(kTagProperty).toString()); },
     .put = [](W& w, const basic::Variant& value, Args) { w.setProperty(kTagProperty, TextOf(value)); }},
    {.name = "Enabled",
     .get = [](W& w, Args) -> basic::Variant { return w.isEnabled(); },
     .put = [](W& w, const basic::Variant& value, Args) { w.setEnabled(basic::CBool(value)); }},
    {.name = "Visible",
     .get = [](W& w, Args) -> basic::Variant { return !w.isHidden(); },
     .put = [](W& w, const basic::Variant& value, Args) { w.setVisible(basic::CBool(value)); }},
    {.name = "ToolTipText",
     .get = [](W& w, Args) -> basic::Variant { return FromQt(w.toolTip()); },
     .put = [](W& w, const basic::Variant& value, Args) { w.setToolTip(TextOf(value)); }},
    {.name = "SetFocus", .call = [](W& w, std::span<basic::Variant>) -> basic::Variant {
        if (!w.isEnabled() || w.isHidden()) basic::Raise(basic::kErrInvalidCall);
        w.setFocus();
        return {};
    }},
};
// clang-format on

/// A widget as a late-bound object.
template <class W>
class HostObject final : public basic::Object {
public:
    /// @param own  members of this kind; looked up before those of every kind
    HostObject(W* widget, std::string_view typeName, std::span<const basic::Member<W>> own)
        : widget_(widget), typeName_(typeName), own_(typeName, own), common_(typeName, kCommonMembers<W>)
    {
    }

    std::string TypeName() const override { return std::string(typeName_); }

    basic::Variant Get(std::string_view member, Args args) override
    {
        W& widget = Widget();
        return Table(member).Get(widget, member, args);
    }
    void Put(std::string_view member, const basic::Variant& value, Args args) override
    {
        W& widget = Widget();
        Table(member).Put(widget, member, value, args);
    }
    basic::Variant Call(std::string_view member, std::span<basic::Variant> args) override
    {
        W& widget = Widget();
        return Table(member).Call(widget, member, args);
    }

private:
    const basic::MemberTable<W>& Table(std::string_view member) const { return own_.Has(member) ? own_ : common_; }
    W& Widget() const
    {
        if (widget_.isNull()) basic::Raise(basic::kErrObjectNotSet);
        return *widget_;
    }

    QPointer<W> widget_;
    std::string_view typeName_;
    basic::MemberTable<W> own_, common_;
};

}  // namespace kvx::adapters::qt
