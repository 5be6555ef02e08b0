#include "korvex_loc/Dates.h"

#include "basic/Convert.h"
#include "basic/UseLocale.h"

#include <gtest/gtest.h>

namespace kvx::loc {

namespace {

class DatesTest : public testing::Test {
protected:
    basic::UseLocale locale{basic::GermanLocale()};
    Dates dates;
};

basic::Date LeapDay()
{
    return basic::DateOf({.year = 2024, .month = 2, .day = 29});
}

}  // namespace

TEST_F(DatesTest, ADateComesInTheFormatOfTheSession)
{
    EXPECT_EQ(dates.DateToSQL(LeapDay(), "DD.MM.YYYY"), "29.02.2024");
    EXPECT_EQ(dates.DateToSQL(LeapDay(), "YYYY-MM-DD"), "2024-02-29");
}

TEST_F(DatesTest, WithoutAFormatADateIsWrittenTheGermanWay)
{
    EXPECT_EQ(dates.DateToSQL(LeapDay(), ""), "29.02.2024");
}

TEST_F(DatesTest, ADateTextIsReadByTheMachine)
{
    EXPECT_EQ(dates.DateToSQL("1.2.24", "DD.MM.YYYY"), "01.02.2024");
    basic::SetLocale(basic::EnglishLocale());
    EXPECT_EQ(dates.DateToSQL("1/2/2024", "DD.MM.YYYY"), "02.01.2024");
}

TEST_F(DatesTest, WhatIsNoDateComesBackAsItIs)
{
    EXPECT_EQ(dates.DateToSQL("Tarif 7", "DD.MM.YYYY"), "Tarif 7");
    EXPECT_EQ(dates.DateForQuery("Tarif 7", ado::Connection()), "Tarif 7");
}

TEST_F(DatesTest, NoDateGivesEmptyText)
{
    EXPECT_EQ(dates.DateToSQL(basic::Null(), "DD.MM.YYYY"), "");
    EXPECT_EQ(dates.DateToSQL(basic::Variant(), "DD.MM.YYYY"), "");
    EXPECT_EQ(dates.DateToSQL("", "DD.MM.YYYY"), "");
}

TEST_F(DatesTest, AQueryDateIsReadAlikeInEveryLanguage)
{
    EXPECT_EQ(dates.DateForQuery(LeapDay(), ado::Connection()), "20240229");
    EXPECT_EQ(dates.DateForQuery("29.02.2024", ado::Connection()), "20240229");
}

TEST_F(DatesTest, ATextForAnUpdateStaysAsItIs)
{
    for (const char* text : {"1.2", "01.02.2024", "O'Brien", " x ", ""})
        EXPECT_EQ(dates.DateForUpdate(text), text);
}

TEST_F(DatesTest, ThousandsSignsOfTheLanguageAreTakenOut)
{
    EXPECT_EQ(dates.ClearDecimal("1.234.567,89"), "1234567,89");
    basic::SetLocale(basic::EnglishLocale());
    EXPECT_EQ(dates.ClearDecimal("1,234,567.89"), "1234567.89");
}

TEST_F(DatesTest, ADecimalCommaBecomesAPoint)
{
    EXPECT_EQ(dates.NumberToSQL("12,5", "."), "12.5");
    EXPECT_EQ(dates.NumberToSQL("-0,75", "."), "-0.75");
}

TEST_F(DatesTest, ThousandsSignsDoNotReachTheStatement)
{
    EXPECT_EQ(dates.NumberToSQL("1.234,5", "."), "1234.5");
    EXPECT_EQ(dates.NumberToSQL("1,234.5", ","), "1234.5");
    EXPECT_EQ(dates.NumberToSQL("1.234.567", "."), "1234567");
    EXPECT_EQ(dates.NumberToSQL("1.234.567,8", "."), "1234567.8");
}

TEST_F(DatesTest, WhatStrWritesStaysThatNumber)
{
    for (const auto& [number, text] : {std::pair{0.5, "0.5"}, {-0.5, "-0.5"}, {459.0, "459"}, {1.25, "1.25"}})
        EXPECT_EQ(dates.NumberToSQL(basic::Str(number), "."), text);
}

TEST_F(DatesTest, AnotherDecimalSignIsNamedByTheCaller)
{
    EXPECT_EQ(dates.NumberToSQL("12'5", "'"), "12.5");
}

}  // namespace kvx::loc
