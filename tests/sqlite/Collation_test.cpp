#include "adapters/sqlite/Collation.h"
#include "adapters/sqlite/Dates.h"
#include "adapters/sqlite/Functions.h"
#include "sqlite/TestDatabase.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace kvx::test {

using adapters::sqlite::CompareDates;
using adapters::sqlite::CompareText;
using adapters::sqlite::CompareTextByCollator;
using adapters::sqlite::LikeMatches;
using adapters::sqlite::ParseDate;

namespace {

int Sign(int value)
{
    return value < 0 ? -1 : value > 0 ? 1 : 0;
}

class RandomTexts {
public:
    explicit RandomTexts(std::vector<std::string> alphabet) : alphabet_(std::move(alphabet)) {}

    std::string Next()
    {
        std::string text;
        for (std::size_t size = random_() % 7; size > 0; --size)
            text += alphabet_[random_() % alphabet_.size()];
        return text;
    }

    // Much alike, so that differences come late.
    std::string Variant(std::string text)
    {
        const std::string& piece = alphabet_[random_() % alphabet_.size()];
        if (text.empty() || random_() % 3 == 0) return text + piece;
        return text.substr(0, text.size() - 1) + piece;
    }

private:
    std::mt19937 random_{4711};
    std::vector<std::string> alphabet_;
};

std::vector<std::string> Ascii(char first)
{
    std::vector<std::string> alphabet;
    for (char c = first; c < '\x7f'; ++c)
        alphabet.emplace_back(1, c);
    return alphabet;
}

void ExpectShortCutAgrees(RandomTexts texts)
{
    for (int i = 0; i < 100'000; ++i) {
        const std::string a = texts.Next(), b = i % 2 == 0 ? texts.Next() : texts.Variant(a);
        ASSERT_EQ(Sign(CompareText(a, b)), Sign(CompareTextByCollator(a, b))) << "'" << a << "' '" << b << "'";
        ASSERT_EQ(Sign(CompareText(a, b)), -Sign(CompareText(b, a))) << "'" << a << "' '" << b << "'";
    }
}

}  // namespace

TEST(KvxCollation, TheShortCutForPlainTextsOrdersAsTheCollator)
{
    ExpectShortCutAgrees(RandomTexts(Ascii(' ')));
}

TEST(KvxCollation, TheShortCutStopsWhereTextsAreNoLongerPlain)
{
    std::vector<std::string> alphabet{
        "a",        "A",  "b",  "e", "l",  "s",   "ss", "ß",
        "ä",        "Ä",  "é",  "ö", "ü",  "Ü",   "·",  "\xcc\x88" /* combining diaeresis */,
        "\xcc\x81", "-",  "'",  " ", "1",  "æ",   "œ",  "\x01",
        "\x7f",     "\t", "\n", "€", "中", "\xff"};
    ExpectShortCutAgrees(RandomTexts(alphabet));
}

TEST(KvxCollation, OrderIsTheGermanOne)
{
    std::vector<std::string> names{"Zahn",   "ähre",    "Bach", "apfel", "Ach", "Öl", "ohr",
                                   "Straße", "Strasse", "10",   "9",     "",    "_"};
    std::ranges::sort(names, [](const std::string& a, const std::string& b) { return CompareText(a, b) < 0; });
    EXPECT_EQ(names, (std::vector<std::string>{"", "_", "10", "9", "Ach", "ähre", "apfel", "Bach", "ohr", "Öl",
                                               "Strasse", "Straße", "Zahn"}));
}

TEST(KvxCollation, CaseAndBlanksAtTheEndDoNotCount)
{
    EXPECT_EQ(CompareText("NORD  ", "nord"), 0);
    EXPECT_EQ(CompareText("MÜRITZ", "müritz "), 0);
    EXPECT_EQ(CompareText("", "   "), 0);
    EXPECT_NE(CompareText("a", "ä"), 0);
    EXPECT_NE(CompareText(" nord", "nord"), 0);
}

TEST(KvxDateCollation, ADayIsOneDayInEverySpelling)
{
    for (const char* day :
         {"01.02.2024", "1.2.2024", "20240201", "2024-02-01", "2024-02-01 00:00:00", "01.02.2024 00:00"})
        EXPECT_EQ(CompareDates(day, "2024-02-01"), 0) << day;
    EXPECT_LT(CompareDates("31.01.2024", "01.02.2024"), 0);
    EXPECT_LT(CompareDates("01.02.2024", "2024-02-01 00:01:00"), 0);
    EXPECT_GT(CompareDates("20240201", "31.12.2023 23:59:59"), 0);
}

TEST(KvxDateCollation, WhatIsNoDateComesBehindAllDates)
{
    EXPECT_GT(CompareDates("31.02.2024", "9999-12-31"), 0);
    EXPECT_LT(CompareDates("9999-12-31", "x"), 0);
    EXPECT_LT(CompareDates("abc", "XYZ"), 0);
    EXPECT_EQ(CompareDates("x", "X"), 0);
}

TEST(Dates, OnlyDaysThatExistAreRead)
{
    for (const char* text : {"29.02.2023", "31.04.2024", "00.01.2024", "2024-13-01", "20240230", "1.2.24", "01/02/2024",
                             "2024-02-01x", "2024-02-01 24:00", "heute", "2024"})
        EXPECT_FALSE(ParseDate(text).has_value()) << text;
    EXPECT_EQ(adapters::sqlite::IsoText(*ParseDate("29.02.2024")), "2024-02-29");
    EXPECT_EQ(adapters::sqlite::IsoText(*ParseDate("1.2.2024 7:05")), "2024-02-01 07:05:00");
    EXPECT_EQ(adapters::sqlite::IsoText(*ParseDate("")), "1900-01-01");
}

TEST(Dates, StylesOfConvertAreReadByTheirOrder)
{
    EXPECT_EQ(adapters::sqlite::IsoText(*ParseDate("02/01/2024", 101)), "2024-02-01");
    EXPECT_EQ(adapters::sqlite::IsoText(*ParseDate("01/02/2024", 103)), "2024-02-01");
    EXPECT_EQ(adapters::sqlite::IsoText(*ParseDate("01.02.2024", 104)), "2024-02-01");
    EXPECT_FALSE(ParseDate("2024-02-01", 104).has_value());
}

TEST(Dates, EveryDayComesBackAsItself)
{
    using adapters::sqlite::CalendarDayOf;
    using adapters::sqlite::DaysOf;
    for (std::int32_t days = DaysOf({1753, 1, 1}); days <= DaysOf({9999, 12, 31}); days += 13)
        ASSERT_EQ(DaysOf(CalendarDayOf(days)), days);
    EXPECT_EQ(DaysOf({1970, 1, 1}), 0);
    EXPECT_EQ(DaysOf({2000, 3, 1}) - DaysOf({2000, 2, 28}), 2);
}

TEST(Like, PercentUnderscoreAndSets)
{
    EXPECT_TRUE(LikeMatches("Müritz", "mü%"));
    EXPECT_TRUE(LikeMatches("MÜRITZ", "m_ritz"));
    EXPECT_TRUE(LikeMatches("abcabc", "%bc"));
    EXPECT_TRUE(LikeMatches("", "%"));
    EXPECT_TRUE(LikeMatches("ast7", "ast[0-9]"));
    EXPECT_TRUE(LikeMatches("Ö1", "[äöü]_"));
    EXPECT_TRUE(LikeMatches("50%", "50[%]"));
    EXPECT_TRUE(LikeMatches("x", "[^a-c]"));
    EXPECT_TRUE(LikeMatches("a%b", "a!%b", "!"));
    EXPECT_TRUE(LikeMatches("a[b", "a[b"));
    EXPECT_FALSE(LikeMatches("Muritz", "mü%"));
    EXPECT_FALSE(LikeMatches("b", "[^a-c]"));
    EXPECT_FALSE(LikeMatches("axb", "a!%b", "!"));
    EXPECT_FALSE(LikeMatches("nord ", "nord"));
    EXPECT_FALSE(LikeMatches("", "_"));
}

TEST(Like, ManyPercentSignsEndSoon)
{
    EXPECT_FALSE(LikeMatches(std::string(5000, 'a'), "%a%a%a%a%a%a%a%b"));
}

TEST(Clock, GetDateFollowsAClockThatTestsMove)
{
    TestDatabase db;
    adapters::sqlite::SetClock([] {
        std::tm day{};
        day.tm_year = 124;
        day.tm_mon = 1;
        day.tm_mday = 29;
        day.tm_hour = 13;
        day.tm_isdst = -1;
        return std::mktime(&day);
    });
    EXPECT_EQ(db.Value("SELECT convert(nvarchar(30), GETDATE())"), "2024-02-29 13:00:00");
    adapters::sqlite::SetClock({});
    EXPECT_NE(db.Value("SELECT convert(nvarchar(30), GETDATE())"), "2024-02-29 13:00:00");
}

}  // namespace kvx::test
