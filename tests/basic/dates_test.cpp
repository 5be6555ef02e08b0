#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Expect.h"
#include "basic/UseLocale.h"

#include <gtest/gtest.h>

#include <ctime>

namespace kvx::basic {
namespace {

/// "yyyy-mm-dd hh:nn:ss" of a date.
std::string Plain(Date date)
{
    const DateParts parts = PartsOf(date);
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d %02d:%02d:%02d", parts.year, parts.month, parts.day,
                  parts.hour, parts.minute, parts.second);
    return buffer;
}

std::string PlainDay(Date date)
{
    return Plain(date).substr(0, 10);
}

std::int32_t YearNow()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local.tm_year + 1900;
}

TEST(Dates, CountDaysFromTheEndOf1899)
{
    EXPECT_EQ(DateOf({.year = 1899, .month = 12, .day = 30}).days, 0);
    EXPECT_EQ(DateOf({.year = 2024, .month = 2, .day = 1}).days, 45323);
    EXPECT_EQ(DateOf({.year = 2024, .month = 2, .day = 1, .hour = 12}).days, 45323.5);
    EXPECT_EQ(Plain(Date{-1.5}), "1899-12-29 12:00:00");
    EXPECT_EQ(DateOf({.year = 1899, .month = 12, .day = 29, .hour = 12}).days, -1.5);
}

TEST(Dates, EverySecondOfADaySurvivesTheFraction)
{
    for (std::int32_t second = 0; second < 86400; second += 7) {
        const DateParts parts = PartsOf(DateOf({.year = 2024, .month = 2, .day = 29, .second = second}));
        ASSERT_EQ((parts.hour * 60 + parts.minute) * 60 + parts.second, second);
        ASSERT_EQ(parts.day, 29);
    }
}

TEST(Dates, AFractionThatRoundsToMidnightIsTheNextDay)
{
    EXPECT_EQ(Plain(Date{45322.9999999}), "2024-02-01 00:00:00");
}

TEST(Dates, LieBetweenTheYears100And9999)
{
    EXPECT_EQ(PlainDay(Date{-657434}), "0100-01-01");
    EXPECT_EQ(Plain(Date{2958465.5}), "9999-12-31 12:00:00");
    EXPECT_EQ(ErrorOf([] { return PartsOf(Date{2958466}).year; }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { return PartsOf(Date{-657435}).year; }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { return CDate(3e6).days; }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { return DateOf({.year = 10000, .month = 1, .day = 1}).days; }), kErrOverflow);
}

TEST(Dates, AsTextShowTheTimeOnlyIfThereIsOne)
{
    {
        const UseLocale use(GermanLocale());
        EXPECT_EQ(CStr(Date{45323}), "01.02.2024");
        EXPECT_EQ(CStr(Date{45323.5}), "01.02.2024 12:00:00");
        EXPECT_EQ(CStr(Date{0.5}), "12:00:00");
    }
    const UseLocale use(EnglishLocale());
    EXPECT_EQ(CStr(Date{45323}), "2/1/2024");
    EXPECT_EQ(CStr(Date{45323.75}), "2/1/2024 6:00:00 PM");
}

struct DateRow {
    const char* text;
    const char* day;
};

TEST(CDate, ReadsGermanTexts)
{
    const UseLocale use(GermanLocale());
    constexpr DateRow kRows[] = {
        {"1.2.2005", "2005-02-01 00:00:00"},
        {" 1.2.2005 ", "2005-02-01 00:00:00"},
        {"01.02.29", "2029-02-01 00:00:00"},
        {"01.02.30", "1930-02-01 00:00:00"},
        {"2.13.2005", "2005-02-13 00:00:00"},
        {"2005-02-13", "2005-02-13 00:00:00"},
        {"1-2-2005", "2005-02-01 00:00:00"},
        {"1/2/2005", "2005-02-01 00:00:00"},
        {"1 2 2005", "2005-02-01 00:00:00"},
        {"12.2005", "2005-12-01 00:00:00"},
        {"1. Februar 2005", "2005-02-01 00:00:00"},
        {"1. Feb. 2005", "2005-02-01 00:00:00"},
        {"1 märz 05", "2005-03-01 00:00:00"},
        {"1. MÄRZ 2005", "2005-03-01 00:00:00"},
        {"February 1, 2005", "2005-02-01 00:00:00"},
        {"Dienstag, 1. Februar 2005", "2005-02-01 00:00:00"},
        {"Februar 2005", "2005-02-01 00:00:00"},
        {"1.2.2005 12:30", "2005-02-01 12:30:00"},
        {"12:30 1.2.2005", "2005-02-01 12:30:00"},
        {"1.2.2005 12:30:15 PM", "2005-02-01 12:30:15"},
        {"12:30 am", "1899-12-30 00:30:00"},
        {"5 PM", "1899-12-30 17:00:00"},
        {"2005", "1905-06-27 00:00:00"},
        {"45323,5", "2024-02-01 12:00:00"},
    };
    for (const DateRow& row : kRows)
        EXPECT_EQ(Plain(CDate(row.text)), row.day) << row.text;
}

TEST(CDate, RefusesWhatIsNoDate)
{
    const UseLocale use(GermanLocale());
    for (const char* text : {"",
                             " ",
                             "abc",
                             "31.4.2024",
                             "31.4.24",
                             "29.2.2023",
                             "29.2.23",
                             "13.13.2005",
                             "1.2.2005-",
                             "1/",
                             "1.2.3.4",
                             "25:00",
                             "12:60",
                             "12:30:60",
                             "13:00 PM",
                             "1.2.2005 12:30 12:30",
                             "1.2.20055",
                             "Februar",
                             "Februar Mai 2005",
                             "32. Februar 2005",
                             "1.2.2005x",
                             "Montag",
                             "1,2 x",
                             "45.323"})
        EXPECT_EQ(ErrorOf([&] { return CDate(text).days; }), kErrTypeMismatch) << text;
}

TEST(CDate, DayAndMonthAloneAreOfThisYear)
{
    const UseLocale use(GermanLocale());
    const DateParts parts = PartsOf(CDate("1.2"));
    EXPECT_EQ(parts.year, YearNow());
    EXPECT_EQ(parts.month, 2);
    EXPECT_EQ(parts.day, 1);
    EXPECT_EQ(PartsOf(CDate("24.12.")).month, 12);
}

TEST(CDate, NullAndNothingAreErrors)
{
    EXPECT_EQ(ErrorOf([] { return CDate(Null{}).days; }), kErrInvalidNull);
    EXPECT_EQ(ErrorOf([] { return CDate(ObjectRef{}).days; }), kErrObjectNotSet);
    EXPECT_EQ(CDate(Empty{}).days, 0);
}

TEST(IsDate, IsTrueForDatesAndTextsWrittenAsOne)
{
    const UseLocale use(GermanLocale());
    EXPECT_TRUE(IsDate(Date{1}));
    EXPECT_TRUE(IsDate("1.2.2024"));
    EXPECT_FALSE(IsDate(""));
    EXPECT_FALSE(IsDate(Null{}));
    EXPECT_FALSE(IsDate(45323));
    EXPECT_FALSE(IsDate("45323"));
    EXPECT_FALSE(IsDate("12,5"));
    EXPECT_FALSE(IsDate("1.234,56"));
}

TEST(DateSerial, RollsOver)
{
    EXPECT_EQ(PlainDay(DateSerial(2024, 13, 1)), "2025-01-01");
    EXPECT_EQ(PlainDay(DateSerial(2024, 1, 32)), "2024-02-01");
    EXPECT_EQ(PlainDay(DateSerial(2024, 3, 0)), "2024-02-29");
    EXPECT_EQ(PlainDay(DateSerial(2024, 0, 1)), "2023-12-01");
    EXPECT_EQ(PlainDay(DateSerial(2024, -12, 1)), "2022-12-01");
    EXPECT_EQ(PlainDay(DateSerial(2024, 1, -364)), "2023-01-01");
}

TEST(DateSerial, TakesShortYears)
{
    EXPECT_EQ(PlainDay(DateSerial(0, 1, 1)), "2000-01-01");
    EXPECT_EQ(PlainDay(DateSerial(29, 1, 1)), "2029-01-01");
    EXPECT_EQ(PlainDay(DateSerial(30, 1, 1)), "1930-01-01");
    EXPECT_EQ(PlainDay(DateSerial(100, 1, 1)), "0100-01-01");
}

TEST(DateSerial, ConvertsItsArgumentsFirst)
{
    EXPECT_EQ(PlainDay(DateSerial("2024", "2", "1")), "2024-02-01");
    EXPECT_EQ(ErrorOf([] { return DateSerial("", 1, 1).days; }), kErrTypeMismatch);
    EXPECT_EQ(ErrorOf([] { return DateSerial(Null{}, 1, 1).days; }), kErrInvalidNull);
    EXPECT_EQ(ErrorOf([] { return DateSerial(40000, 1, 1).days; }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { return DateSerial(2024, 1, 40000).days; }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { return DateSerial(10000, 1, 1).days; }), kErrInvalidCall);
    EXPECT_EQ(ErrorOf([] { return DateSerial(9999, 12, 32).days; }), kErrInvalidCall);
}

TEST(TimeSerial, RollsOverIntoDays)
{
    EXPECT_EQ(TimeSerial(12, 0, 0).days, 0.5);
    EXPECT_EQ(TimeSerial(36, 0, 0).days, 1.5);
    EXPECT_EQ(Plain(TimeSerial(1, -1, 0)), "1899-12-30 00:59:00");
}

TEST(DateParts, AreReadOneByOne)
{
    const UseLocale use(GermanLocale());
    const Variant date = "5.2.2024 13:14:15";
    EXPECT_EQ(Year(date), 2024);
    EXPECT_EQ(Month(date), 2);
    EXPECT_EQ(Day(date), 5);
    EXPECT_EQ(Hour(date), 13);
    EXPECT_EQ(Minute(date), 14);
    EXPECT_EQ(Second(date), 15);
    EXPECT_EQ(Weekday(date), 2);     // a Monday
    EXPECT_EQ(Weekday(Date{0}), 7);  // a Saturday
    EXPECT_EQ(Weekday(Date{-6}), 1); // a Sunday
}

} // namespace
} // namespace kvx::basic
