#include "FakeDriver.h"

#include "ado/Values.h"
#include "basic/Convert.h"

#include <gtest/gtest.h>

namespace kvx::ado::testing {
namespace {

TEST(ParseDate, ADayThatDoesNotExistIsNone)
{
    for (const char* text : {"31.02.2024", "29.02.2023", "2024-13-01", "20240230", "00.01.2024", "2024-02-01x", "",
                             "1.2", "2024-02", "12345678901", "2024-02-01 25:00", "01.02.24"})
        EXPECT_FALSE(ParseDate(text).has_value()) << text;
    EXPECT_TRUE(ParseDate("29.02.2024").has_value());
    EXPECT_FALSE(ParseDate("29.02.1900").has_value());
    EXPECT_TRUE(ParseDate("29.02.2000").has_value());
}

TEST(ParseDecimal, ReadsDigitsPointAndSign)
{
    EXPECT_EQ(ParseDecimal("-12.50")->units, -1250);
    EXPECT_EQ(ParseDecimal("-12.50")->scale, 2);
    EXPECT_EQ(ParseDecimal("+.5")->units, 5);
    EXPECT_EQ(ParseDecimal("123456789012345678")->units, 123456789012345678);
    for (const char* text : {"", ".", "-", "1,5", "1e3", "1.2.3", "12 ", "1234567890123456789012"})
        EXPECT_FALSE(ParseDecimal(text).has_value()) << text;
}

TEST(ParseDouble, ReadsAWholeTextOnly)
{
    EXPECT_EQ(ParseDouble(" -1.5e2 "), -150.0);
    EXPECT_EQ(ParseDouble("+3"), 3.0);
    for (const char* text : {"", "x", "1x", "inf", "nan", "1,5", "-", "1e999"})
        EXPECT_FALSE(ParseDouble(text).has_value()) << text;
}

TEST(SqlLiteral, IsWhatWouldStandInAStatement)
{
    EXPECT_EQ(SqlLiteral(basic::Null{}), "NULL");
    EXPECT_EQ(SqlLiteral("a'b"), "'a''b'");
    EXPECT_EQ(SqlLiteral(std::int32_t{-5}), "-5");
    EXPECT_EQ(SqlLiteral(true), "1");
    EXPECT_EQ(SqlLiteral(basic::Decimal{-5, 2}), "-0.05");
    EXPECT_EQ(SqlLiteral(basic::Decimal{1250, 2}), "12.50");
    EXPECT_EQ(SqlLiteral(0.1), "0.1");
    EXPECT_EQ(SqlLiteral(basic::Date{45323}), "'20240201'");
    EXPECT_EQ(SqlLiteral(basic::Date{45323.75}), "'20240201 18:00:00'");
}

TEST(OwnedCell, KeepsWhatADatabaseWouldGiveBack)
{
    const ColumnInfo numeric = [] {
        ColumnInfo info = Column("X", adNumeric);
        info.scale = 2;
        return info;
    }();
    const OwnedCell decimal = ToOwnedCell(basic::Variant(basic::Decimal{1250, 2}));
    EXPECT_EQ(ToVariant(numeric, decimal.View()).As<basic::Decimal>()->units, 1250);
    const OwnedCell date = ToOwnedCell(basic::Variant(basic::Date{45323.75}));
    EXPECT_NEAR(ToVariant(Column("X", adDBTimeStamp), date.View()).As<basic::Date>()->days, 45323.75, 1e-9);
    const OwnedCell money = ToOwnedCell(basic::Variant(basic::Currency{-12345}));
    EXPECT_EQ(ToVariant(Column("X", adCurrency), money.View()).As<basic::Currency>()->tenThousandths, -12345);
    EXPECT_FALSE(ToOwnedCell(basic::Variant()).assigned);
    EXPECT_TRUE(ToOwnedCell(basic::Variant(basic::Null{})).assigned);
}

} // namespace
} // namespace kvx::ado::testing
