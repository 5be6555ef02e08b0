#include "korvex_loc/Report.h"
#include "korvex_loc/TableFile.h"

#include "basic/UseLocale.h"

#include <gtest/gtest.h>

namespace kvx::loc {

using Line = std::vector<std::string>;

TEST(TableFile, AGermanMachinePartsCellsBySemicolons)
{
    const basic::UseLocale german(basic::GermanLocale());
    EXPECT_EQ(TableFileText({{"Liste", "1,5"}, {"B"}}), "\xEF\xBB\xBFListe;1,5\r\nB\r\n");
}

TEST(TableFile, AnEnglishMachinePartsCellsByCommas)
{
    const basic::UseLocale english(basic::EnglishLocale());
    EXPECT_EQ(TableFileText({{"List", "1.5"}}), "\xEF\xBB\xBFList,1.5\r\n");
}

TEST(TableFile, CellsThatHoldTheSeparatorOrQuotesAreQuoted)
{
    const basic::UseLocale german(basic::GermanLocale());
    EXPECT_EQ(TableFileText({{"a;b", "12\" Rohr", "x\ny"}}), "\xEF\xBB\xBF\"a;b\";\"12\"\" Rohr\";\"x\ny\"\r\n");
}

TEST(GridText, RowsBeginBehindTheMarkAndTheirSeparators)
{
    EXPECT_EQ(GridTextLines("BW1\tOst\t\r\n;W2\tWest\t\r\n"), (TableLines{{"W1", "Ost"}, {"W2", "West"}}));
}

TEST(GridText, EmptyCellsKeepTheirPlaces)
{
    EXPECT_EQ(GridTextLines("B\tOst\t\t\r\n"), (TableLines{{"", "Ost", ""}}));
}

TEST(GridText, InstructionsAreNoRows)
{
    const basic::UseLocale german(basic::GermanLocale());
    EXPECT_EQ(GridTextLines("BTABLE\t\r\n;FORMAT\t0;;0.00\t\r\n;ROW\t7,4\t7,4\t7,4\t\r\n"),
              (TableLines{{"7", "7,4", "7,40"}}));
}

TEST(GridText, TextInANumberColumnStays)
{
    EXPECT_EQ(GridTextLines("BFORMAT\t0;\t\r\n;ROW\tWaggonNr\tOrt\t\r\n"), (TableLines{{"WaggonNr", "Ort"}}));
}

}  // namespace kvx::loc
