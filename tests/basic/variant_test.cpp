#include "basic/Variant.h"

#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Expect.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace kvx::basic {
namespace {

TEST(Variant, TellsEmptyFromNull)
{
    EXPECT_TRUE(Variant().IsEmpty());
    EXPECT_FALSE(Variant().IsNull());
    EXPECT_TRUE(Variant(Null{}).IsNull());
    EXPECT_FALSE(Variant(Null{}).IsEmpty());
}

TEST(Variant, KnowsTheKindOfWhatItHolds)
{
    EXPECT_EQ(Variant().Type(), VarType::Empty);
    EXPECT_EQ(Variant(Null{}).Type(), VarType::Null);
    EXPECT_EQ(Variant(true).Type(), VarType::Boolean);
    EXPECT_EQ(Variant(std::uint8_t{1}).Type(), VarType::Byte);
    EXPECT_EQ(Variant(std::int16_t{1}).Type(), VarType::Integer);
    EXPECT_EQ(Variant(1).Type(), VarType::Long);
    EXPECT_EQ(Variant(std::int64_t{1}).Type(), VarType::Decimal);
    EXPECT_EQ(Variant(1.0F).Type(), VarType::Single);
    EXPECT_EQ(Variant(1.0).Type(), VarType::Double);
    EXPECT_EQ(Variant(Currency{}).Type(), VarType::Currency);
    EXPECT_EQ(Variant(Decimal{}).Type(), VarType::Decimal);
    EXPECT_EQ(Variant(Date{}).Type(), VarType::Date);
    EXPECT_EQ(Variant("a").Type(), VarType::String);
    EXPECT_EQ(Variant(std::string_view("a")).Type(), VarType::String);
    EXPECT_EQ(Variant(ObjectRef{}).Type(), VarType::Object);
    EXPECT_EQ(Variant(VariantArray{}).Type(), VarType::Array);
}

TEST(Variant, APointerIsNoTruthValue)
{
    EXPECT_FALSE((std::is_constructible_v<Variant, int*>));
    EXPECT_FALSE((std::is_constructible_v<Variant, std::nullptr_t>));
    EXPECT_TRUE((std::is_constructible_v<Variant, const char*>));
}

TEST(Variant, CopiesShareAnArray)
{
    Variant first(VariantArray{1, 2});
    const Variant second = first;
    (*first.AsArray())[0] = "changed";
    EXPECT_EQ(CStr((*second.AsArray())[0]), "changed");
    EXPECT_EQ(Variant(1).AsArray(), nullptr);
}

TEST(Variant, OnlyAnObjectCanBeUsedAsOne)
{
    EXPECT_EQ(ErrorOf([] { return Variant(1).ToObject(); }), kErrObjectRequired);
    EXPECT_EQ(ErrorOf([] { return Variant(ObjectRef{}).ToObject(); }), kErrObjectNotSet);
}

} // namespace
} // namespace kvx::basic
