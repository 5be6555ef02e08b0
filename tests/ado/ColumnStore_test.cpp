#include "FakeDriver.h"

#include "ado/ColumnStore.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kvx::ado::testing {
namespace {

Cell CellOf(std::int64_t value)
{
    return {Cell::Kind::Integer, value, 0, {}};
}

Cell CellOf(double value)
{
    return {Cell::Kind::Real, 0, value, {}};
}

Cell CellOf(std::string_view value)
{
    return {Cell::Kind::Text, 0, 0, value};
}

std::shared_ptr<const std::vector<ColumnInfo>> Infos(std::size_t count)
{
    return std::make_shared<const std::vector<ColumnInfo>>(count, Column("X", adInteger));
}

// A store of one column.
ColumnStore StoreOf(std::initializer_list<Cell> cells)
{
    ColumnStore store(Infos(1));
    for (const Cell& cell : cells)
        store.Append({&cell, 1});
    return store;
}

TEST(ColumnStore, WholeNumbersOfEveryWidthReadBack)
{
    constexpr std::int64_t kValues[] = {1,
                                        -128,
                                        127,
                                        128,
                                        -32768,
                                        32768,
                                        2147483647,
                                        2147483648,
                                        -1,
                                        std::numeric_limits<std::int64_t>::min(),
                                        std::numeric_limits<std::int64_t>::max()};
    ColumnStore store(Infos(1));
    for (const std::int64_t value : kValues) {
        const Cell cell = CellOf(value);
        store.Append({&cell, 1});
    }
    for (std::size_t row = 0; row < std::size(kValues); ++row) {
        EXPECT_EQ(store.Int(0, row), kValues[row]);
        EXPECT_EQ(store.CellAt(0, row).integer, kValues[row]);
        EXPECT_EQ(store.Text(0, row), std::to_string(kValues[row]));
        EXPECT_FALSE(store.IsNull(0, row));
    }
}

TEST(ColumnStore, WideningKeepsNullsAndValuesOverManyChunks)
{
    constexpr std::size_t kRows = 3 * ChunkedArray::kChunk + 17;
    ColumnStore store(Infos(1));
    for (std::size_t row = 0; row < kRows; ++row) {
        const Cell cell = row % 5 == 0 ? Cell{} : CellOf(static_cast<std::int64_t>(row % 100));
        store.Append({&cell, 1});
    }
    const Cell wide = CellOf(std::int64_t{1} << 40);
    store.Append({&wide, 1});
    for (std::size_t row = 0; row < kRows; ++row) {
        ASSERT_EQ(store.IsNull(0, row), row % 5 == 0) << row;
        ASSERT_EQ(store.Int(0, row), row % 5 == 0 ? 0 : static_cast<std::int64_t>(row % 100)) << row;
    }
    EXPECT_EQ(store.Int(0, kRows), std::int64_t{1} << 40);
}

TEST(ColumnStore, LeadingNullsAreKeptWhateverFollows)
{
    for (const Cell& value : {CellOf(std::int64_t{7}), CellOf(std::int64_t{70000}), CellOf(1.5), CellOf("x")}) {
        const ColumnStore store = StoreOf({Cell{}, Cell{}, value, Cell{}});
        for (const std::size_t row : {0u, 1u, 3u}) {
            EXPECT_TRUE(store.IsNull(0, row));
            EXPECT_EQ(store.CellAt(0, row).kind, Cell::Kind::Null);
        }
        EXPECT_EQ(store.CellAt(0, 2).kind, value.kind);
    }
}

TEST(ColumnStore, AColumnOfNullsTakesNoMemory)
{
    ColumnStore store(Infos(1));
    const std::size_t before = store.Bytes();
    for (int row = 0; row < 100000; ++row) {
        const Cell null;
        store.Append({&null, 1});
    }
    EXPECT_EQ(store.Bytes(), before);
    EXPECT_TRUE(store.IsNull(0, 99999));
}

TEST(ColumnStore, WholeAndBrokenNumbersBecomeReals)
{
    const ColumnStore store = StoreOf({CellOf(std::int64_t{85}), Cell{}, CellOf(12.5), CellOf(std::int64_t{3})});
    EXPECT_EQ(store.Double(0, 0), 85);
    EXPECT_TRUE(store.IsNull(0, 1));
    EXPECT_EQ(store.Double(0, 2), 12.5);
    EXPECT_EQ(store.Int(0, 2), 12);
    EXPECT_EQ(store.Text(0, 3), "3");
}

TEST(ColumnStore, ANumberTooLongForARealKeepsItsDigits)
{
    constexpr std::int64_t kLong = 9007199254740993; // one beyond what a double can count
    const ColumnStore first = StoreOf({CellOf(kLong), CellOf(0.5)});
    EXPECT_EQ(first.Int(0, 0), kLong);
    EXPECT_EQ(first.Double(0, 1), 0.5);
    const ColumnStore second = StoreOf({CellOf(0.5), CellOf(kLong)});
    EXPECT_EQ(second.Int(0, 1), kLong);
    EXPECT_EQ(second.Double(0, 0), 0.5);
}

TEST(ColumnStore, NumbersBecomeTextsBesideATextAndReadAsNumbersStill)
{
    const ColumnStore store = StoreOf({CellOf(std::int64_t{85}), CellOf(0.1), Cell{}, CellOf("abc"), CellOf(1.25)});
    EXPECT_EQ(store.Text(0, 0), "85");
    EXPECT_EQ(store.Int(0, 0), 85);
    EXPECT_EQ(store.Double(0, 1), 0.1);
    EXPECT_TRUE(store.IsNull(0, 2));
    EXPECT_EQ(store.Text(0, 3), "abc");
    EXPECT_EQ(store.Int(0, 3), 0);
    EXPECT_EQ(store.Double(0, 4), 1.25);
}

TEST(ColumnStore, TextsOfEveryLengthReadBack)
{
    ColumnStore store(Infos(1));
    const std::size_t lengths[] = {0, 1, 127, 128, 4095, 4096, 16383, 16384, 70000, 3, 3000000, 5, 0};
    std::vector<std::string> texts;
    for (const std::size_t length : lengths)
        texts.emplace_back(length, static_cast<char>('a' + texts.size()));
    for (const std::string& text : texts) {
        const Cell cell = CellOf(text);
        store.Append({&cell, 1});
    }
    for (std::size_t row = 0; row < texts.size(); ++row) {
        EXPECT_TRUE(store.Text(0, row) == texts[row]) << lengths[row];
        EXPECT_FALSE(store.IsNull(0, row));
    }
}

TEST(ColumnStore, ManyTextsReadBackFromEveryChunk)
{
    constexpr std::size_t kRows = 50000;
    ColumnStore store(Infos(2));
    for (std::size_t row = 0; row < kRows; ++row) {
        const std::string parent = std::to_string(row / 100);
        const std::string name = "node " + std::to_string(row);
        const Cell cells[] = {CellOf(parent), CellOf(name)};
        store.Append(cells);
    }
    for (std::size_t row = 0; row < kRows; ++row) {
        ASSERT_EQ(store.Text(0, row), std::to_string(row / 100));
        ASSERT_EQ(store.Text(1, row), "node " + std::to_string(row));
        ASSERT_TRUE(row == 0 || store.SameAsPrevious(0, row) == (row % 100 != 0));
        ASSERT_TRUE(row == 0 || !store.SameAsPrevious(1, row));
    }
}

TEST(ColumnStore, SameAsPreviousTellsNullEmptyAndValueApart)
{
    const ColumnStore texts =
        StoreOf({Cell{}, Cell{}, CellOf(""), CellOf(""), CellOf("a"), Cell{}, CellOf("a"), CellOf("A"), CellOf("A")});
    const bool expectedTexts[] = {true, false, true, false, false, false, false, true};
    for (std::size_t row = 1; row < texts.Rows(); ++row)
        EXPECT_EQ(texts.SameAsPrevious(0, row), expectedTexts[row - 1]) << row;
    const ColumnStore numbers = StoreOf({Cell{}, CellOf(std::int64_t{0}), CellOf(std::int64_t{0}), Cell{}, Cell{}});
    const bool expectedNumbers[] = {false, true, false, true};
    for (std::size_t row = 1; row < numbers.Rows(); ++row)
        EXPECT_EQ(numbers.SameAsPrevious(0, row), expectedNumbers[row - 1]) << row;
}

TEST(ColumnStore, ATextEqualToTheOneBeforeIsKeptOnce)
{
    const ColumnStore store = StoreOf({CellOf("Nord"), CellOf("Nord"), Cell{}, CellOf("Nord")});
    EXPECT_EQ(store.Text(0, 0).data(), store.Text(0, 1).data());
    EXPECT_EQ(store.Text(0, 0).data(), store.Text(0, 3).data());
}

// A forest of six key levels and two flags, sorted as the tree reads it.
TEST(ColumnStore, SortedTreeRowsTakeAtMost36Bytes)
{
    constexpr std::size_t kRows = 200000;
    ColumnStore store(Infos(8));
    for (std::size_t row = 0; row < kRows; ++row) {
        std::string levels[6];
        std::size_t rest = row;
        for (std::size_t level = 6; level-- > 0; rest /= 9)
            if (rest % 9 != 0 || level == 0) levels[level] = std::to_string(rest % 9 + 100);
        Cell cells[8];
        for (std::size_t level = 0; level < 6; ++level)
            if (!levels[level].empty()) cells[level] = CellOf(levels[level]);
        cells[6] = CellOf(std::int64_t{row % 2 == 0});
        cells[7] = row % 3 == 0 ? Cell{} : CellOf(std::int64_t{1});
        store.Append(cells);
    }
    EXPECT_LE(static_cast<double>(store.Bytes()) / kRows, 36.0);
}

TEST(ColumnStore, AFewRowsTakeFewBytes)
{
    const ColumnStore store = StoreOf({CellOf("Nord")});
    EXPECT_LE(store.Bytes(), 5000u);
}

} // namespace
} // namespace kvx::ado::testing
