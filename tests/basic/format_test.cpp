#include "basic/Format.h"

#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Expect.h"
#include "basic/UseLocale.h"

#include <gtest/gtest.h>

namespace kvx::basic {
namespace {

struct NumberRow {
    const char* mask;
    double value;
    const char* text;
};

template <std::size_t N>
void ExpectRows(const NumberRow (&rows)[N])
{
    for (const NumberRow& row : rows)
        EXPECT_EQ(Format(row.value, row.mask), row.text) << row.mask << " of " << row.value;
}

const Date kMonday{45327.0 + (13 * 3600 + 4 * 60 + 5) / 86400.0}; // 5 February 2024, 13:04:05

TEST(FormatNumber, FillsThePlacesOfTheMask)
{
    const UseLocale use(GermanLocale());
    constexpr NumberRow kRows[] = {
        {"0.00", 1234.5, "1234,50"},
        {"0.00", 0, "0,00"},
        {"0.00", -0.5, "-0,50"},
        {"0.00", 0.005, "0,01"},
        {"0.00", 1.005, "1,01"},
        {"0.0000", 12.3, "12,3000"},
        {"#####0.0000", 12.3, "12,3000"},
        {"#####0.0000", 1234567.8, "1234567,8000"},
        {"#####0.00", .5, "0,50"},
        {"#0.00", .5, "0,50"},
        {"#0", 0, "0"},
        {"##0", 2.5, "3"},
        {"###0", 3.5, "4"},
        {"#0", -2.5, "-3"},
        {"#", 0, ""},
        {"#,##0.00", 1234567.891, "1.234.567,89"},
        {"#,##0.00", 0, "0,00"},
        {"000", 7, "007"},
        {"00", 7, "07"},
        {"0000", 7, "0007"},
        {"000", 12345, "12345"},
        {"#.##", 0, ","},
        {"#.##", 1.5, "1,5"},
        {".00", 12.5, "12,50"},
        {".00", .5, ",50"},
        {"0.", 5, "5,"},
        {"0.0#", 1.2, "1,2"},
        {"0.0#", 1.256, "1,26"},
        {"0,000", 7, "0.007"},
        {"#,##0", 999, "999"},
        {"#,##0", 1e14, "100.000.000.000.000"},
        {"0", 1.2345678901234568e17, "123456789012346000"},
        {"0.00", 999.995, "1000,00"},
        {"0.00", 9.995, "10,00"},
    };
    ExpectRows(kRows);
}

TEST(FormatNumber, EnglishSignsComeFromTheLocale)
{
    const UseLocale use(EnglishLocale());
    EXPECT_EQ(Format(1234567.891, "#,##0.00"), "1,234,567.89");
    EXPECT_EQ(Format(.5, "0.0"), "0.5");
}

TEST(FormatNumber, TellsTheDecimalSignOfTheMachine)
{
    const UseLocale use(GermanLocale());
    EXPECT_EQ(Format(0, "0.0").substr(1, 1), ",");
}

TEST(FormatNumber, PrintsSignsBlanksAndBracketsOfTheMask)
{
    const UseLocale use(GermanLocale());
    constexpr NumberRow kRows[] = {
        {"-#######0.00", 3, "-3,00"},
        {"-#######0.00", -3, "--3,00"},
        {"$0.00", 5, "$5,00"},
        {"(0)", 5, "(5)"},
        {"+0", 5, "+5"},
        {"0 \\m", 5, "5 m"},
        {"0 \"Fm o.R.\"", 5, "5 Fm o.R."},
        {"0 \"00\"", 5, "5 00"},
        {"000-00", 12345, "123-45"},
        {"000-00", 1234567, "12345-67"},
        {"0 €", -5, "-5 €"},
    };
    ExpectRows(kRows);
}

TEST(FormatNumber, ANegativeThatRoundsToZeroKeepsItsSign)
{
    const UseLocale use(GermanLocale());
    EXPECT_EQ(Format(-0.001, "0.00"), "-0,00");
    EXPECT_EQ(Format(-0.0, "0.00"), "0,00");
}

TEST(FormatNumber, PercentAndTrailingCommasScale)
{
    const UseLocale use(GermanLocale());
    constexpr NumberRow kRows[] = {
        {"0%", 0.125, "13%"},       {"0.0%", 0.1255, "12,6%"}, {"0,", 12345, "12"}, {"#,##0,,", 1234567890, "1.235"},
        {"0.0,", 12345, "12345,0"}, {"\\A, 0", 5, "A, 5"},
    };
    ExpectRows(kRows);
}

TEST(FormatNumber, WritesExponents)
{
    const UseLocale use(GermanLocale());
    constexpr NumberRow kRows[] = {
        {"0.00E+00", 12345, "1,23E+04"},   {"0.00E-00", 12345, "1,23E04"}, {"0.00e+00", 0.00012, "1,20e-04"},
        {"00.0E+0", 12345, "12,3E+3"},     {"0.0E+0", 9.96, "1,0E+1"},     {"0.00E+00", 0, "0,00E+00"},
        {"0.00E+00", -12345, "-1,23E+04"}, {"0E+000", 1e100, "1E+100"},
    };
    ExpectRows(kRows);
}

TEST(FormatNumber, ChoosesTheSectionBySign)
{
    const UseLocale use(GermanLocale());
    EXPECT_EQ(Format(5, "0.0;(0.0)"), "5,0");
    EXPECT_EQ(Format(-5, "0.0;(0.0)"), "(5,0)");
    EXPECT_EQ(Format(0, "0.0;(0.0)"), "0,0");
    EXPECT_EQ(Format(0, "0;-0;\"null\""), "null");
    EXPECT_EQ(Format(-5, "0;;\"null\""), "-5");
    EXPECT_EQ(Format(Null{}, "0;-0;\"null\";\"leer\""), "leer");
    EXPECT_EQ(Format(Empty{}, "0;-0;\"null\";\"leer\""), "leer");
    EXPECT_EQ(Format(5, "0\";\"0"), "0;5");
}

TEST(FormatNumber, ExactDecimalsKeepAllDigits)
{
    const UseLocale use(GermanLocale());
    EXPECT_EQ(Format(Decimal{123456789012345678, 2}, "#,##0.00"), "1.234.567.890.123.456,78");
    EXPECT_EQ(Format(Currency{125000}, "0.00"), "12,50");
    EXPECT_EQ(Format(Currency{-1}, "0.00"), "-0,00");
    EXPECT_EQ(Format(1.1F, "0.0000000000"), "1,1000000000");
}

TEST(FormatText, TextsThatAreNumbersCountAsSuch)
{
    const UseLocale use(GermanLocale());
    EXPECT_EQ(Format("12,5", "0.00"), "12,50");
    EXPECT_EQ(Format("12.5", "0.00"), "125,00");
    EXPECT_EQ(Format("abc", "0.00"), "abc");
    EXPECT_EQ(Format("", "0.00"), "");
    EXPECT_EQ(Format(Null{}, "0.00"), "");
    EXPECT_EQ(Format("1E400", "0.00"), "1E400");
}

TEST(FormatText, WithoutAMaskTheValueIsItsText)
{
    const UseLocale use(GermanLocale());
    EXPECT_EQ(Format(12.5), "12,5");
    EXPECT_EQ(Format(Date{45323}), "01.02.2024");
    EXPECT_EQ(Format("abc"), "abc");
    EXPECT_EQ(Format(Null{}), "");
    EXPECT_EQ(Format(true), "Wahr");
    EXPECT_EQ(ErrorOf([] { return Format(VariantArray{}); }), kErrTypeMismatch);
    EXPECT_EQ(ErrorOf([] { return Format(ObjectRef{}); }), kErrObjectNotSet);
}

TEST(FormatText, PlacesCharactersFromTheRight)
{
    EXPECT_EQ(Format("abc", "@@@@@"), "  abc");
    EXPECT_EQ(Format("abc", "&&&&&"), "abc");
    EXPECT_EQ(Format("abc", "!@@@@@"), "abc  ");
    EXPECT_EQ(Format("abcdef", "@@@"), "abcdef");
    EXPECT_EQ(Format("12345678", "@@@-@@@@"), "1234-5678");
    EXPECT_EQ(Format("12345678", "!@@@-@@@@"), "123-45678");
    EXPECT_EQ(Format("wäh", ">@@@@"), " WÄH");
    EXPECT_EQ(Format("WÄH", "<"), "wäh");
    EXPECT_EQ(Format("", "@;\"leer\""), "leer");
}

TEST(FormatDate, WritesThePartsOfTheMask)
{
    const UseLocale use(GermanLocale());
    struct Row {
        const char* mask;
        const char* text;
    };
    constexpr Row kRows[] = {
        {"dd.mm.yyyy", "05.02.2024"},
        {"DD.MM.YYYY", "05.02.2024"},
        {"dd.mm.yy", "05.02.24"},
        {"d.m.yy", "5.2.24"},
        {"d/m/yyyy", "5.2.2024"},
        {"yyyy-mm-dd", "2024-02-05"},
        {"yyyymmdd", "20240205"},
        {"ddd, d. mmm yyyy", "Mo, 5. Feb 2024"},
        {"dddd, d. mmmm yyyy", "Montag, 5. Februar 2024"},
        {"ddddd", "05.02.2024"},
        {"dddddd", "Montag, 5. Februar 2024"},
        {"hh:mm", "13:04"},
        {"hh:nn:ss", "13:04:05"},
        {"h:n:s", "13:4:5"},
        {"hh mm yy mm", "13 04 24 02"},
        {"nn:mm", "04:02"},
        {"hh:nn AM/PM", "01:04 PM"},
        {"h a/p", "1 p"},
        {"hhAMPM", "01PM"},
        {"ttttt", "13:04:05"},
        {"c", "05.02.2024 13:04:05"},
        {"w ww q y", "2 6 1 36"},
        {"\"am\" d\\d", "am 5d"},
        {"yyyy\"/\"mm", "2024/02"},
    };
    for (const Row& row : kRows)
        EXPECT_EQ(Format(kMonday, row.mask), row.text) << row.mask;
}

TEST(FormatDate, SeparatorsComeFromTheLocale)
{
    const UseLocale use(EnglishLocale());
    EXPECT_EQ(Format(kMonday, "dd/mm/yyyy"), "05/02/2024");
    EXPECT_EQ(Format(kMonday, "dd.mm.yyyy"), "05.02.2024");
    EXPECT_EQ(Format(kMonday, "dddd"), "Monday");
    EXPECT_EQ(Format(kMonday, "c"), "2/5/2024 1:04:05 PM");
}

TEST(FormatDate, TextsAndNumbersBecomeDates)
{
    const UseLocale use(GermanLocale());
    EXPECT_EQ(Format("5.2.24", "dd.mm.yyyy"), "05.02.2024");
    EXPECT_EQ(Format(45327, "dd.mm.yyyy"), "05.02.2024");
    EXPECT_EQ(Format("45327", "dd.mm.yyyy"), "05.02.2024");
    EXPECT_EQ(Format("abc", "dd.mm.yyyy"), "abc");
    EXPECT_EQ(Format("31.4.24", "dd.mm.yyyy"), "31.4.24");
    EXPECT_EQ(Format("99999999999", "dd.mm.yyyy"), "99999999999");
    EXPECT_EQ(Format("", "dd.mm.yyyy"), "");
    EXPECT_EQ(Format(Null{}, "dd.mm.yyyy"), "");
    EXPECT_EQ(Format(Date{45323}, "0.00"), "45323,00");
    EXPECT_EQ(ErrorOf([] { return Format(3e6, "dd.mm.yyyy"); }), kErrOverflow);
}

TEST(FormatName, NamesStandForMasks)
{
    const UseLocale use(GermanLocale());
    EXPECT_EQ(Format(1234.5, "General Number"), "1234,5");
    EXPECT_EQ(Format(1234.5, "Fixed"), "1234,50");
    EXPECT_EQ(Format(1234.5, "standard"), "1.234,50");
    EXPECT_EQ(Format(0.5, "Percent"), "50,00%");
    EXPECT_EQ(Format(1234.5, "Scientific"), "1,23E+03");
    EXPECT_EQ(Format(-1234.5, "Currency"), "-1.234,50 €");
    EXPECT_EQ(Format(true, "Yes/No"), "Ja");
    EXPECT_EQ(Format(0, "On/Off"), "Aus");
    EXPECT_EQ(Format(1, "True/False"), "Wahr");
    EXPECT_EQ(Format("abc", "Yes/No"), "abc");
    EXPECT_EQ(Format(kMonday, "Short Date"), "05.02.2024");
    EXPECT_EQ(Format(kMonday, "Long Date"), "Montag, 5. Februar 2024");
    EXPECT_EQ(Format(kMonday, "Medium Date"), "05-Feb-24");
    EXPECT_EQ(Format(kMonday, "Short Time"), "13:04");
    EXPECT_EQ(Format(kMonday, "Long Time"), "13:04:05");
    EXPECT_EQ(Format(kMonday, "Medium Time"), "01:04 PM");
    EXPECT_EQ(Format(kMonday, "General Date"), "05.02.2024 13:04:05");
}

} // namespace
} // namespace kvx::basic
