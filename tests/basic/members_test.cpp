#include "basic/Members.h"

#include "basic/Convert.h"
#include "basic/Expect.h"

#include <gtest/gtest.h>

namespace kvx::basic {
namespace {

struct Lamp {
    std::int32_t brightness = 0;
    std::int32_t items[3] = {1, 2, 3};
};

constexpr Member<Lamp> kLampMembers[] = {
    {.name = "",
     .get = [](Lamp& lamp, std::span<const Variant>) { return Variant(lamp.brightness); },
     .put = [](Lamp& lamp, const Variant& value, std::span<const Variant>) { lamp.brightness = CLng(value); }},
    {.name = "Item",
     .get = [](Lamp& lamp, std::span<const Variant> args) { return Variant(lamp.items[CLng(args.front())]); }},
    {.name = "Toggle",
     .call =
         [](Lamp& lamp, std::span<Variant> args) {
             lamp.brightness = 100 - lamp.brightness;
             if (!args.empty()) args.front() = "toggled";
             return Variant(lamp.brightness);
         }},
};
constexpr MemberTable<Lamp> kTable{"Lamp", kLampMembers};

TEST(MemberTable, FindsNamesInAnyCase)
{
    Lamp lamp;
    const Variant index[] = {2};
    EXPECT_EQ(CLng(kTable.Get(lamp, "ITEM", index)), 3);
    EXPECT_TRUE(kTable.Has("toggle"));
    EXPECT_FALSE(kTable.Has("toggl"));
}

TEST(MemberTable, TheEmptyNameIsTheDefaultProperty)
{
    Lamp lamp;
    kTable.Put(lamp, "", "7");
    EXPECT_EQ(CLng(kTable.Get(lamp, "")), 7);
}

TEST(MemberTable, AMethodMayChangeItsArguments)
{
    Lamp lamp;
    Variant args[] = {"before"};
    EXPECT_EQ(CLng(kTable.Call(lamp, "Toggle", args)), 100);
    EXPECT_EQ(CStr(args[0]), "toggled");
}

TEST(MemberTable, PropertiesCanBeCalledAndMethodsRead)
{
    Lamp lamp;
    Variant index[] = {1};
    EXPECT_EQ(CLng(kTable.Call(lamp, "Item", index)), 2);
    EXPECT_EQ(CLng(kTable.Get(lamp, "Toggle")), 100);
}

TEST(MemberTable, AMissingMemberIsNamedInTheError)
{
    Lamp lamp;
    try {
        kTable.Get(lamp, "Colour");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number, kErrMemberNotFound);
        EXPECT_EQ(error.Description, "Object doesn't support this property or method: Lamp.Colour");
    }
    EXPECT_EQ(ErrorOf([&] { return kTable.Call(lamp, "Colour"); }), kErrMemberNotFound);
    EXPECT_EQ(ErrorOf([&] { return kTable.Put(lamp, "Colour", 1), 0; }), kErrMemberNotFound);
    EXPECT_EQ(ErrorOf([&] { return kTable.Put(lamp, "Toggle", 1), 0; }), kErrMemberNotFound);
}

TEST(MemberTable, AReadOnlyPropertyRefusesToBeAssigned)
{
    Lamp lamp;
    EXPECT_EQ(ErrorOf([&] { return kTable.Put(lamp, "Item", 1), 0; }), kErrReadOnlyProperty);
}

TEST(Arguments, OneThatWasLeftOutHasADefault)
{
    const Variant args[] = {1};
    const Variant otherwise = 9;
    EXPECT_EQ(CLng(ArgumentOr(args, 0, otherwise)), 1);
    EXPECT_EQ(CLng(ArgumentOr(args, 1, otherwise)), 9);
}

TEST(SameName, IgnoresAsciiCaseOnly)
{
    EXPECT_TRUE(SameName("ListIndex", "LISTINDEX"));
    EXPECT_FALSE(SameName("ä", "Ä"));
    EXPECT_FALSE(SameName("a", "ab"));
    EXPECT_FALSE(SameName("@", "`"));
}

TEST(Deref, NothingIsAnError)
{
    EXPECT_EQ(ErrorOf([] { return Deref(nullptr).TypeName(); }), kErrObjectNotSet);
}

} // namespace
} // namespace kvx::basic
