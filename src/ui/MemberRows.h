#pragma once

#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Members.h"

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

// Rows of member tables made from member functions; for source files only.
namespace kvx::ui::rows {

using basic::Variant;
using Args = std::span<const Variant>;

/// A colour is a signed Long for late binding; nothing else changes.
template <class V>
Variant Out(V&& value)
{
    using Plain = std::remove_cvref_t<V>;
    if constexpr (std::is_same_v<Plain, std::uint32_t>)
        return Variant(std::bit_cast<std::int32_t>(value));
    else
        return Variant(std::forward<V>(value));
}

/// A late-bound value in the kind that a member function takes.
/// @throws basic::Error 13, 6, 94 as the conversions do
template <class V>
auto In(const Variant& value)
{
    using Plain = std::remove_cvref_t<V>;
    if constexpr (std::is_same_v<Plain, std::string_view> || std::is_same_v<Plain, std::string>)
        return basic::CStr(value);
    else if constexpr (std::is_same_v<Plain, bool>)
        return basic::CBool(value);
    else if constexpr (std::is_same_v<Plain, std::int16_t>)
        return basic::CInt(value);
    else if constexpr (std::is_same_v<Plain, std::int32_t>)
        return basic::CLng(value);
    else if constexpr (std::is_same_v<Plain, std::uint32_t>)
        return std::bit_cast<std::uint32_t>(basic::CLng(value));
    else if constexpr (std::is_same_v<Plain, float>)
        return basic::CSng(value);
    else if constexpr (std::is_same_v<Plain, basic::Date>)
        return basic::CDate(value);
    else
        return Plain(value);
}

template <class F>
struct Signature;
template <class C, class R, class... A>
struct Signature<R (C::*)(A...)> {
    template <std::size_t I>
    using Arg = std::tuple_element_t<I, std::tuple<A...>>;
};
template <class C, class R, class... A>
struct Signature<R (C::*)(A...) const> : Signature<R (C::*)(A...)> {
};

inline const Variant& Required(Args args, std::size_t index)
{
    if (index >= args.size()) basic::Raise(449);
    return args[index];
}

template <class T, auto Function>
Variant Get(T& object, Args)
{
    return Out((object.*Function)());
}
template <class T, auto Function>
void Put(T& object, const Variant& value, Args)
{
    (object.*Function)(In<typename Signature<decltype(Function)>::template Arg<0>>(value));
}
template <class T, auto Function>
Variant GetAt(T& object, Args args)
{
    return Out((object.*Function)(In<typename Signature<decltype(Function)>::template Arg<0>>(Required(args, 0))));
}
template <class T, auto Function>
void PutAt(T& object, const Variant& value, Args args)
{
    using S = Signature<decltype(Function)>;
    (object.*Function)(In<typename S::template Arg<0>>(Required(args, 0)), In<typename S::template Arg<1>>(value));
}
template <class T, auto Function>
Variant GetAt2(T& object, Args args)
{
    using S = Signature<decltype(Function)>;
    return Out((object.*Function)(In<typename S::template Arg<0>>(Required(args, 0)),
                                  In<typename S::template Arg<1>>(Required(args, 1))));
}
template <class T, auto Function>
void PutAt2(T& object, const Variant& value, Args args)
{
    using S = Signature<decltype(Function)>;
    (object.*Function)(In<typename S::template Arg<0>>(Required(args, 0)),
                       In<typename S::template Arg<1>>(Required(args, 1)), In<typename S::template Arg<2>>(value));
}
/// A method without arguments and result.
template <class T, auto Function>
Variant Call(T& object, std::span<Variant>)
{
    (object.*Function)();
    return {};
}
/// A method with one argument and no result.
template <class T, auto Function>
Variant Call1(T& object, std::span<Variant> args)
{
    (object.*Function)(In<typename Signature<decltype(Function)>::template Arg<0>>(Required(args, 0)));
    return {};
}

/// A property that can be read, and one that can be read and assigned.
template <class T, auto Getter>
constexpr basic::Member<T> ReadOnly(std::string_view name)
{
    return {.name = name, .get = Get<T, Getter>};
}
template <class T, auto Getter, auto Setter>
constexpr basic::Member<T> ReadWrite(std::string_view name)
{
    return {.name = name, .get = Get<T, Getter>, .put = Put<T, Setter>};
}
template <class T, auto Getter, auto Setter>
constexpr basic::Member<T> Indexed(std::string_view name)
{
    return {.name = name, .get = GetAt<T, Getter>, .put = PutAt<T, Setter>};
}
template <class T, auto Function>
constexpr basic::Member<T> Method(std::string_view name)
{
    return {.name = name, .call = Call<T, Function>};
}

}  // namespace kvx::ui::rows
