#include "korvex_loc/NumberMask.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

namespace kvx::loc {

namespace {

// Types the keys one by one at the end of the text, as into an empty box. @return the text
std::string Typed(std::string_view mask, std::string_view keys, std::string_view decimalSign = ",")
{
    std::string text;
    for (const char key : keys)
        if (const std::int32_t admitted = NumberMask(mask).Admit(key, text, "", decimalSign); admitted != 0)
            text += static_cast<char>(admitted);
    return text;
}

std::int32_t German(std::string_view mask, char key, std::string_view before, std::string_view behind = "")
{
    return NumberMask(mask).Admit(key, before, behind, ",");
}

}  // namespace

// A row a case: mask, decimal sign, keys typed, text that stands in the box.
TEST(NumberMask, EveryMaskOfTheDialogsAdmitsWhatItCanShow)
{
    std::ifstream file(KVX_SOURCE_DIR "/tests/data/number-masks.tsv");
    std::string line;
    std::getline(file, line);
    int cases = 0;
    while (std::getline(file, line)) {
        std::istringstream cells(line);
        std::string mask, sign, keys, text;
        std::getline(cells, mask, '\t');
        std::getline(cells, sign, '\t');
        std::getline(cells, keys, '\t');
        std::getline(cells, text, '\t');
        EXPECT_EQ(Typed(mask, keys, sign), text) << line;
        ++cases;
    }
    EXPECT_GE(cases, 60);
}

TEST(NumberMask, ADigitInTheMiddleCountsWithTheDigitsOfItsSide)
{
    EXPECT_EQ(German("###0.00", '5', "12", "4,00"), '5');
    EXPECT_EQ(German("###0.00", '5', "123", "4,00"), 0);
    EXPECT_EQ(German("###0.00", '5', "1234,", "7"), '5');
    EXPECT_EQ(German("###0.00", '5', "1234,", "75"), 0);
}

TEST(NumberMask, TheDecimalSignCannotCutOffMoreDecimalsThanTheMaskHas)
{
    EXPECT_EQ(German("######0.00", ',', "12", "34"), ',');
    EXPECT_EQ(German("######0.00", ',', "1", "234"), 0);
}

TEST(NumberMask, ALoadedValueWithTooManyDecimalsCanStillBeEditedInFront)
{
    EXPECT_EQ(German("#####0.00", '9', "1", "2,34567"), '9');
}

TEST(NumberMask, TheMinusStandsInFrontOnlyAndOnce)
{
    EXPECT_EQ(German("-###0", '-', "", "12"), '-');
    EXPECT_EQ(German("-###0", '-', "1", "2"), 0);
    EXPECT_EQ(German("-###0", '-', "", "-12"), 0);
    EXPECT_EQ(German("###0", '-', "", ""), 0);
}

TEST(NumberMask, NothingGoesInFrontOfTheMinus)
{
    EXPECT_EQ(German("-###0.00", '1', "", "-2"), 0);
    EXPECT_EQ(German("-###0.00", ',', "", "-2"), 0);
}

TEST(NumberMask, KeysThatTypeNothingPass)
{
    for (const std::int32_t key : {1, 3, 8, 9, 13, 22, 24, 26, 27, 127})
        EXPECT_EQ(NumberMask("#0").Admit(key, "12", "", ","), key) << key;
}

TEST(NumberMask, LettersBlanksAndUmlautsAreDropped)
{
    constexpr std::int32_t kKeys[] = {' ', 'a', 'e', 'E', '+', '/', '\'', 0xE4, 0x20AC};
    for (const std::int32_t key : kKeys)
        EXPECT_EQ(NumberMask("#####0.00").Admit(key, "1", "", ","), 0) << key;
}

TEST(NumberMask, AMaskWithoutDigitsLimitsNothing)
{
    EXPECT_EQ(NumberMask("").Admit('x', "1", "", ","), 'x');
    EXPECT_EQ(NumberMask("@").Admit('x', "1", "", ","), 'x');
}

}  // namespace kvx::loc
