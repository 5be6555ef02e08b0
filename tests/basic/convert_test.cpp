#include "basic/Convert.h"

#include "basic/Error.h"
#include "basic/Expect.h"
#include "basic/Object.h"
#include "basic/UseLocale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kvx::basic {
namespace {

/// An object whose default property is a value.
class Box final : public Object {
public:
    explicit Box(Variant value) : value_(std::move(value)) {}
    std::string TypeName() const override { return "TextBox"; }
    Variant Get(std::string_view member, std::span<const Variant> /*args*/) override
    {
        if (!member.empty()) RaiseNoMember(TypeName(), member);
        return value_;
    }
    void Put(std::string_view, const Variant& value, std::span<const Variant> /*args*/) override { value_ = value; }
    Variant Call(std::string_view member, std::span<Variant> /*args*/) override { RaiseNoMember(TypeName(), member); }

private:
    Variant value_;
};

Variant BoxOf(Variant value)
{
    return ObjectRef(std::make_shared<Box>(std::move(value)));
}

struct NumberRow {
    const char* text;
    double value;
};

TEST(ReadNumber, GermanTextsThatAreNumbers)
{
    const UseLocale use(GermanLocale());
    constexpr NumberRow kRows[] = {
        {"12.5", 125}, {"1.2.2005", 122005}, {"12,5", 12.5}, {",5", 0.5},        {"5,", 5},     {" \t12 \n", 12},
        {"-5", -5},    {"5-", -5},           {"+5", 5},      {"5+", 5},          {"(5)", -5},   {"( 5 )", -5},
        {"€5", 5},     {"5 €", 5},           {"-€ 5", -5},   {"1.2.3,4", 123.4}, {"1e3", 1000}, {"1E-2", 0.01},
        {"1d3", 1000}, {"1,5e+2", 150},      {"&HFF", 255},  {"&hff", 255},      {"&O17", 15},  {"1..5", 15},
        {"0.004", 4},  {"1e-400", 0},        {"0,0", 0},
    };
    for (const NumberRow& row : kRows) {
        const std::optional<double> number = ReadNumber(row.text);
        ASSERT_TRUE(number.has_value()) << row.text;
        EXPECT_DOUBLE_EQ(*number, row.value) << row.text;
    }
}

TEST(ReadNumber, GermanTextsThatAreNone)
{
    const UseLocale use(GermanLocale());
    for (const char* text : {".5", "1,2,3", "",   " ",     "-",   "12 3",  "5%",   "abc",  "--5",  "-5-",   "(5",
                             "5)", "(-5)",  "1e", "1e+",   "e3",  "&",     "&H",   "&HG",  "&H-1", "&HFF&", "-&HFF",
                             "€",  "€€5",   "$5", "1,2.3", "5 5", "1E400", "True", "Wahr", "\xC4", "1\xC4"})
        EXPECT_FALSE(ReadNumber(text).has_value()) << text;
}

TEST(ReadNumber, EnglishSignsChangePlaces)
{
    const UseLocale use(EnglishLocale());
    EXPECT_DOUBLE_EQ(ReadNumber("1,234.5").value_or(0), 1234.5);
    EXPECT_DOUBLE_EQ(ReadNumber("12,5").value_or(0), 125);
    EXPECT_DOUBLE_EQ(ReadNumber("$5").value_or(0), 5);
    EXPECT_FALSE(ReadNumber(",5").has_value());
    EXPECT_FALSE(ReadNumber("1.2.3").has_value());
}

TEST(CDbl, RaisesWhatTheKindOfFaultIs)
{
    const UseLocale use(GermanLocale());
    EXPECT_EQ(ErrorOf([] { return CDbl("abc"); }), kErrTypeMismatch);
    EXPECT_EQ(ErrorOf([] { return CDbl(""); }), kErrTypeMismatch);
    EXPECT_EQ(ErrorOf([] { return CDbl("1E400"); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { return CDbl(Null{}); }), kErrInvalidNull);
    EXPECT_EQ(ErrorOf([] { return CDbl(VariantArray{1}); }), kErrTypeMismatch);
    EXPECT_EQ(ErrorOf([] { return CDbl(ObjectRef{}); }), kErrObjectNotSet);
}

TEST(Conversions, AnObjectStandsForItsDefaultProperty)
{
    const UseLocale use(GermanLocale());
    EXPECT_DOUBLE_EQ(CDbl(BoxOf("12,5")), 12.5);
    EXPECT_EQ(CStr(BoxOf(BoxOf(1.5))), "1,5");
    EXPECT_TRUE(IsNumeric(BoxOf("3")));
    EXPECT_FALSE(IsNumeric(ObjectRef{}));
    EXPECT_TRUE(IsDate(BoxOf("1.2.2024")));
    EXPECT_FALSE(IsDate(ObjectRef{}));
    EXPECT_EQ(CStr(CDbl(Fix(BoxOf(2.7)))), "2");
    EXPECT_EQ(ToText(BoxOf(Null{})), "");
}

TEST(WholeNumbers, RoundHalfToEven)
{
    EXPECT_EQ(CLng(0.5), 0);
    EXPECT_EQ(CLng(1.5), 2);
    EXPECT_EQ(CLng(2.5), 2);
    EXPECT_EQ(CLng(-2.5), -2);
    EXPECT_EQ(CInt(3.5), 4);
    EXPECT_EQ(CByte(2.5), 2);
    EXPECT_EQ(CLng(Currency{25000}), 2);
    EXPECT_EQ(CLng(Currency{25001}), 3);
    EXPECT_EQ(CLng(Decimal{500000000000000001, 18}), 1);
    EXPECT_EQ(CLng(Decimal{-35, 1}), -4);
}

TEST(WholeNumbers, OverflowBeyondTheirBits)
{
    EXPECT_EQ(CInt(-32768), -32768);
    EXPECT_EQ(ErrorOf([] { return CInt(32768); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { return CInt(-32769); }), kErrOverflow);
    EXPECT_EQ(CByte(255), 255);
    EXPECT_EQ(ErrorOf([] { return CByte(256); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { return CByte(-1); }), kErrOverflow);
    EXPECT_EQ(CLng(-2147483648.0), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(ErrorOf([] { return CLng(2147483648.0); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { return CLng(std::numeric_limits<double>::quiet_NaN()); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { return CLng(std::numeric_limits<double>::infinity()); }), kErrOverflow);
}

TEST(WholeNumbers, RefuseTextsThatAreNoneAndNull)
{
    EXPECT_EQ(ErrorOf([] { return CInt("abc"); }), kErrTypeMismatch);
    EXPECT_EQ(ErrorOf([] { return CLng(""); }), kErrTypeMismatch);
    EXPECT_EQ(ErrorOf([] { return CByte("x"); }), kErrTypeMismatch);
    EXPECT_EQ(ErrorOf([] { return CLng(Null{}); }), kErrInvalidNull);
    EXPECT_EQ(CLng(Empty{}), 0);
}

TEST(WholeNumbers, AHexTextThatFillsTheBitsIsNegative)
{
    EXPECT_EQ(CInt("&HFFFF"), -1);
    EXPECT_EQ(CLng("&HFFFF"), 65535);
    EXPECT_EQ(CLng("&HFFFFFFFF"), -1);
    EXPECT_EQ(CByte("&HFF"), 255);
    EXPECT_EQ(ErrorOf([] { return CLng("&H1FFFFFFFF"); }), kErrOverflow);
}

TEST(CutDown, FixCutsTowardsZeroAndIntGoesDown)
{
    EXPECT_EQ(Fix(-1.5), -1);
    EXPECT_EQ(Int(-1.5), -2);
    EXPECT_EQ(Fix(1.5), 1);
    EXPECT_EQ(Int(1.5), 1);
}

TEST(CutDown, KeepsTheKindOfNumber)
{
    EXPECT_EQ(Fix(Variant(Currency{-15000})).Held<Currency>().tenThousandths, -10000);
    EXPECT_EQ(Int(Variant(Currency{-15000})).Held<Currency>().tenThousandths, -20000);
    EXPECT_EQ(Int(Variant(Currency{-20000})).Held<Currency>().tenThousandths, -20000);
    EXPECT_EQ(Fix(Variant(Decimal{-155, 2})).Held<Decimal>().units, -1);
    EXPECT_EQ(Int(Variant(Decimal{-155, 2})).Held<Decimal>().units, -2);
    EXPECT_EQ(Int(Variant(Decimal{155, 2})).Held<Decimal>().units, 1);
    EXPECT_EQ(Int(Variant(2.5F)).Type(), VarType::Single);
    EXPECT_EQ(Int(Variant(7)).Type(), VarType::Long);
    EXPECT_EQ(Fix(Variant(Null{})).Type(), VarType::Null);
    EXPECT_EQ(Fix(Variant(Empty{})).Type(), VarType::Integer);
}

TEST(IsNumeric, AnswersByKindAndNeverRaises)
{
    EXPECT_FALSE(IsNumeric(Null{}));
    EXPECT_TRUE(IsNumeric(Empty{}));
    EXPECT_FALSE(IsNumeric(Date{45323}));
    EXPECT_TRUE(IsNumeric(true));
    EXPECT_TRUE(IsNumeric(Currency{1}));
    EXPECT_TRUE(IsNumeric(Decimal{1, 2}));
    EXPECT_FALSE(IsNumeric(VariantArray{}));
    EXPECT_FALSE(IsNumeric(""));
}

TEST(Val, ReadsFromTheLeftWithAPoint)
{
    const UseLocale use(GermanLocale());
    constexpr NumberRow kRows[] = {
        {"1,5", 1},         {"12 34", 1234},    {"1e2", 100}, {"", 0},    {"&HFF", 255},      {"1.5.5", 1.5},
        {"-", 0},           {"abc", 0},         {"- 5", -5},  {"+5", 5},  {"+-5", 0},         {"1e", 1},
        {"1d+1", 10},       {".5", 0.5},        {".", 0},     {"5.", 5},  {"&O10", 8},        {"&HFFFF", -1},
        {"&H10000", 65536}, {"&HFFFF&", 65535}, {"&HG", 0},   {"&X1", 0}, {"\t1\n2\r3", 123}, {"12Fm", 12},
        {"1e-400", 0},      {"&H123456789", 0},
    };
    for (const NumberRow& row : kRows)
        EXPECT_DOUBLE_EQ(ReadVal(row.text), row.value) << row.text;
}

TEST(Val, OfAValueReadsItsText)
{
    const UseLocale use(GermanLocale());
    EXPECT_EQ(Val(1.5), 1); // "1,5"
    EXPECT_EQ(Val(Empty{}), 0);
    EXPECT_EQ(ErrorOf([] { return Val(Null{}); }), kErrInvalidNull);
}

TEST(Str, HasAPointAndABlankForTheSign)
{
    const UseLocale use(GermanLocale());
    EXPECT_EQ(Str(459), " 459");
    EXPECT_EQ(Str(0.5), " .5");
    EXPECT_EQ(Str(-0.5), "-.5");
    EXPECT_EQ(Str(0), " 0");
    EXPECT_EQ(Str(Currency{125000}), " 12.5");
    EXPECT_EQ(Str(Decimal{-1250, 2}), "-12.5");
    EXPECT_EQ(Str(1.1F), " 1.1");
    EXPECT_EQ(ErrorOf([] { return Str(Null{}); }), kErrInvalidNull);
}

TEST(CStr, WritesNumbersWithTheLocalSign)
{
    const UseLocale use(GermanLocale());
    EXPECT_EQ(CStr(0.5), "0,5");
    EXPECT_EQ(CStr(-0.0), "0");
    EXPECT_EQ(CStr(1e15), "1E+15");
    EXPECT_EQ(CStr(123456789012345.0), "123456789012345");
    EXPECT_EQ(CStr(-2147483648.0), "-2147483648");
    EXPECT_EQ(CStr(1.0 / 3), "0,333333333333333");
    EXPECT_EQ(CStr(0.1 + 0.2), "0,3");
    EXPECT_EQ(CStr(1e-300), "1E-300");
    EXPECT_EQ(CStr(0.1F), "0,1");
    EXPECT_EQ(CStr(16777216.0F), "1,677722E+07");
    EXPECT_EQ(CStr(std::uint8_t{200}), "200");
    EXPECT_EQ(CStr(std::int16_t{-7}), "-7");
    EXPECT_EQ(CStr(Empty{}), "");
}

TEST(CStr, ExactDecimalsDropTrailingZeros)
{
    const UseLocale use(GermanLocale());
    EXPECT_EQ(CStr(Decimal{1250, 2}), "12,5");
    EXPECT_EQ(CStr(Decimal{1200, 2}), "12");
    EXPECT_EQ(CStr(Decimal{-5, 3}), "-0,005");
    EXPECT_EQ(CStr(Decimal{0, 2}), "0");
    EXPECT_EQ(CStr(Currency{125000}), "12,5");
    EXPECT_EQ(CStr(Currency{-1}), "-0,0001");
    EXPECT_EQ(CStr(std::int64_t{9007199254740993}), "9007199254740993");
    EXPECT_EQ(CStr(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(CStr, NullIsAnErrorAndAnEmptyTextWhenJoined)
{
    EXPECT_EQ(ErrorOf([] { return CStr(Null{}); }), kErrInvalidNull);
    EXPECT_EQ(ToText(Null{}), "");
    EXPECT_EQ(ErrorOf([] { return ToText(VariantArray{}); }), kErrTypeMismatch);
}

TEST(Booleans, AreWordsOfTheMachine)
{
    {
        const UseLocale use(GermanLocale());
        EXPECT_EQ(CStr(true), "Wahr");
        EXPECT_EQ(CStr(false), "Falsch");
        EXPECT_TRUE(CBool("wahr"));
        EXPECT_FALSE(CBool("FALSCH"));
        EXPECT_TRUE(CBool("True"));
        EXPECT_FALSE(CBool("false"));
    }
    const UseLocale use(EnglishLocale());
    EXPECT_EQ(CStr(true), "True");
    EXPECT_EQ(CStr(false), "False");
    EXPECT_TRUE(CBool("TRUE"));
    EXPECT_EQ(ErrorOf([] { return CBool("Wahr"); }), kErrTypeMismatch);
}

TEST(Booleans, AnyNumberButZeroIsTrue)
{
    const UseLocale use(GermanLocale());
    EXPECT_FALSE(CBool("0"));
    EXPECT_TRUE(CBool("-1"));
    EXPECT_TRUE(CBool("0,1"));
    EXPECT_TRUE(CBool(Decimal{1, 2}));
    EXPECT_FALSE(CBool(Empty{}));
    EXPECT_EQ(CInt(true), -1);
    EXPECT_EQ(CByte(true), 255);
    EXPECT_EQ(ErrorOf([] { return CBool(""); }), kErrTypeMismatch);
    EXPECT_EQ(ErrorOf([] { return CBool("ja"); }), kErrTypeMismatch);
    EXPECT_EQ(ErrorOf([] { return CBool(Null{}); }), kErrInvalidNull);
}

TEST(ReadBoolean, TakesBothLanguagesOnAnyMachine)
{
    for (const Locale* locale : {&GermanLocale(), &EnglishLocale()}) {
        const UseLocale use(*locale);
        for (const char* text : {"Wahr", "wahr", "TRUE", "True", " true ", "1", "-1"})
            EXPECT_EQ(ReadBoolean(text), std::optional(true)) << text;
        for (const char* text : {"Falsch", "FALSCH", "False", "false", "0"})
            EXPECT_EQ(ReadBoolean(text), std::optional(false)) << text;
        for (const char* text : {"", "ja", "x"})
            EXPECT_EQ(ReadBoolean(text), std::nullopt) << text;
    }
}

TEST(CCur, RoundsToTenThousandthsHalfToEven)
{
    const UseLocale use(GermanLocale());
    EXPECT_EQ(CCur("12,34565").tenThousandths, 123456);
    EXPECT_EQ(CCur(0.00015).tenThousandths, 2);
    EXPECT_EQ(CCur(-1.5).tenThousandths, -15000);
    EXPECT_EQ(CCur(Decimal{123456, 5}).tenThousandths, 12346);
    EXPECT_EQ(ErrorOf([] { return CCur(1e15); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { return CCur("x"); }), kErrTypeMismatch);
}

TEST(CDec, KeepsEveryDigitItHolds)
{
    const UseLocale use(GermanLocale());
    const Decimal decimal = CDec("12,50");
    EXPECT_EQ(decimal.units, 125);
    EXPECT_EQ(decimal.scale, 1);
    EXPECT_EQ(CStr(CDec(1e17)), "100000000000000000");
    EXPECT_EQ(CStr(CDec(Decimal{-123456789012345678, 9})), "-123456789,012345678");
    EXPECT_EQ(ErrorOf([] { return CDec(1e30); }), kErrOverflow);
    EXPECT_EQ(CStr(CDec(1e-30)), "0");
}

TEST(CSng, OverflowsBeyondItsRange)
{
    EXPECT_FLOAT_EQ(CSng(1.5), 1.5F);
    EXPECT_EQ(ErrorOf([] { return CSng(1e39); }), kErrOverflow);
}

TEST(Rounding, KnowsBothWays)
{
    EXPECT_DOUBLE_EQ(Round(0.125, 2), 0.12);
    EXPECT_DOUBLE_EQ(Round(2.675, 2), 2.68);
    EXPECT_DOUBLE_EQ(Round(2.5), 2);
    EXPECT_DOUBLE_EQ(RoundHalfUp(0.125, 2), 0.13);
    EXPECT_DOUBLE_EQ(RoundHalfUp(1.005, 2), 1.01);
    EXPECT_DOUBLE_EQ(RoundHalfUp(-2.5, 0), -3);
    EXPECT_DOUBLE_EQ(RoundHalfUp(99.996, 2), 100);
    EXPECT_DOUBLE_EQ(RoundHalfUp(1250, -2), 1300);
    EXPECT_DOUBLE_EQ(RoundHalfUp(4, -2), 0);
}

TEST(TypeName, NamesEveryKind)
{
    EXPECT_EQ(TypeName(Empty{}), "Empty");
    EXPECT_EQ(TypeName(Null{}), "Null");
    EXPECT_EQ(TypeName(true), "Boolean");
    EXPECT_EQ(TypeName(std::uint8_t{1}), "Byte");
    EXPECT_EQ(TypeName(std::int16_t{1}), "Integer");
    EXPECT_EQ(TypeName(1), "Long");
    EXPECT_EQ(TypeName(1.0F), "Single");
    EXPECT_EQ(TypeName(1.0), "Double");
    EXPECT_EQ(TypeName(Currency{}), "Currency");
    EXPECT_EQ(TypeName(Decimal{}), "Decimal");
    EXPECT_EQ(TypeName(Date{}), "Date");
    EXPECT_EQ(TypeName("a"), "String");
    EXPECT_EQ(TypeName(ObjectRef{}), "Nothing");
    EXPECT_EQ(TypeName(BoxOf(1)), "TextBox");
    EXPECT_EQ(TypeName(VariantArray{}), "Variant()");
}

TEST(VarTypeOf, IsTheNumberOfTheKind)
{
    EXPECT_EQ(VarTypeOf("a"), 8);
    EXPECT_EQ(VarTypeOf(Null{}), 1);
    EXPECT_EQ(VarTypeOf(VariantArray{}), 8204);
}

TEST(SameValue, ComparesByValueAndTellsNullFromEmpty)
{
    EXPECT_TRUE(SameValue(1, 1.0));
    EXPECT_TRUE(SameValue(std::int16_t{-1}, true));
    EXPECT_TRUE(SameValue(Decimal{1250, 2}, Decimal{125, 1}));
    EXPECT_TRUE(SameValue(Decimal{125, 1}, 12.5));
    EXPECT_FALSE(SameValue(Decimal{125, 1}, 12.6));
    EXPECT_TRUE(SameValue(Null{}, Null{}));
    EXPECT_FALSE(SameValue(Null{}, Empty{}));
    EXPECT_FALSE(SameValue(Null{}, ""));
    EXPECT_FALSE(SameValue("a", "A"));
    EXPECT_FALSE(SameValue("1", 1));
    EXPECT_TRUE(SameValue(VariantArray{1, "a"}, VariantArray{1.0, "a"}));
    EXPECT_FALSE(SameValue(VariantArray{1}, VariantArray{1, 2}));
    const Variant box = BoxOf(1);
    EXPECT_TRUE(SameValue(box, box));
    EXPECT_FALSE(SameValue(box, BoxOf(1)));
}

TEST(Equals, IsFalseForNullAndTakesEmptyAsNothing)
{
    const UseLocale use(GermanLocale());
    EXPECT_FALSE(Equals(Null{}, Null{}));
    EXPECT_FALSE(Equals("a", Null{}));
    EXPECT_TRUE(Equals(Empty{}, 0));
    EXPECT_TRUE(Equals(Empty{}, ""));
    EXPECT_TRUE(Equals(Empty{}, Empty{}));
    EXPECT_FALSE(Equals(Empty{}, "0"));
    EXPECT_TRUE(Equals("12,5", 12.5));
    EXPECT_FALSE(Equals("x", 0));
    EXPECT_FALSE(Equals("a", "A"));
    EXPECT_TRUE(Equals(BoxOf("a"), "a"));
    EXPECT_EQ(ErrorOf([] { return Equals(VariantArray{}, 1); }), kErrTypeMismatch);
}

} // namespace
} // namespace kvx::basic
