#include "ado/ColumnStore.h"

#include "ado/Numbers.h"
#include "basic/Error.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kvx::ado {
namespace {

constexpr std::size_t kFirstChunk = 32; // values; a result of a few rows stays small
constexpr std::size_t kSlabBlocks = 16; // blocks that are taken at once, after the first one
constexpr std::int32_t kErrOutOfMemory = 7;
constexpr std::int64_t kLargestExact = std::int64_t{1} << 53; // whole numbers up to here survive as double

bool SameBytes(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size()) == 0);
}

} // namespace

void ChunkedArray::Grow()
{
    const std::size_t used = chunks_.empty() ? 0 : static_cast<std::size_t>(end_ - chunks_.back().get());
    const std::size_t full = kChunk * width_;
    if (chunks_.size() == 1 && used < full) { // only the first chunk is small and grows
        const std::size_t size = std::min(full, used * 2);
        auto larger = std::make_unique_for_overwrite<std::byte[]>(size);
        std::memcpy(larger.get(), chunks_[0].get(), used);
        chunks_[0] = std::move(larger);
        next_ = chunks_[0].get() + used;
        end_ = chunks_[0].get() + size;
        bytes_ = size;
        return;
    }
    const std::size_t size = chunks_.empty() ? kFirstChunk * width_ : full;
    chunks_.push_back(std::make_unique_for_overwrite<std::byte[]>(size));
    next_ = chunks_.back().get();
    end_ = next_ + size;
    bytes_ += size;
}

void TextArena::NewSlab(std::size_t need)
{
    // The first slab is one block: most results are a few rows.
    std::size_t blocks = slabs_.empty() ? 1 : kSlabBlocks;
    blocks = std::max(blocks, (need + kMask) >> kShift);
    const std::uint64_t first = blocks_.size();
    if (((first + blocks) << kShift) > std::numeric_limits<std::uint32_t>::max()) basic::Raise(kErrOutOfMemory);
    const std::size_t size = blocks << kShift;
    slabs_.push_back(std::make_unique_for_overwrite<char[]>(size));
    next_ = slabs_.back().get();
    end_ = next_ + size;
    bytes_ += size;
    nextOffset_ = static_cast<std::uint32_t>(first << kShift);
    for (std::size_t block = 0; block < blocks; ++block)
        blocks_.push_back(next_ + (block << kShift));
    if (first == 0) { // offsets 0 and 1 have a meaning of their own
        next_ += 2;
        nextOffset_ += 2;
    }
}

std::uint32_t TextArena::Add(std::string_view text)
{
    if (text.empty()) return kEmpty;
    constexpr std::size_t kLongestPrefix = 10;
    const std::size_t need = text.size() + kLongestPrefix + 2;
    if (static_cast<std::size_t>(end_ - next_) < need) NewSlab(need);
    const std::uint32_t offset = nextOffset_;
    char* const start = next_;
    std::size_t length = text.size();
    while (length >= 0x80) {
        *next_++ = static_cast<char>((length & 0x7F) | 0x80);
        length >>= 7;
    }
    *next_++ = static_cast<char>(length);
    std::memcpy(next_, text.data(), text.size());
    next_ += text.size();
    nextOffset_ += static_cast<std::uint32_t>(next_ - start);
    return offset;
}

ColumnStore::ColumnStore(Infos infos) : infos_(std::move(infos)), columns_(infos_->size())
{
    for (const ColumnInfo& info : *infos_)
        if (!info.rowKey) ++visible_;
}

void ColumnStore::Append(std::span<const Cell> cells)
{
    assert(cells.size() == columns_.size());
    for (std::size_t index = 0; index < cells.size(); ++index) {
        const Cell& cell = cells[index];
        Column& column = columns_[index];
        switch (cell.kind) {
        case Cell::Kind::Text: AppendText(column, cell.text); break;
        case Cell::Kind::Integer: AppendInteger(column, cell.integer); break;
        case Cell::Kind::Real: AppendReal(column, cell.real); break;
        case Cell::Kind::Null: AppendNull(column); break;
        }
    }
    ++rows_;
}

// Gives a column without any value so far its kind; the rows before are NULL.
void ColumnStore::Start(Column& column, Kind kind)
{
    column.kind = kind;
    constexpr std::size_t kWidths[] = {1, 1, 2, 4, 8, 8, 4};
    column.values = ChunkedArray(kWidths[static_cast<std::size_t>(kind)]);
    for (std::size_t row = 0; row < rows_; ++row) {
        switch (kind) {
        case Kind::Text: column.values.Push(TextArena::kNull); break;
        case Kind::Int8: column.values.Push(std::int8_t{0}); break;
        case Kind::Int16: column.values.Push(std::int16_t{0}); break;
        case Kind::Int32: column.values.Push(std::int32_t{0}); break;
        case Kind::Int64: column.values.Push(std::int64_t{0}); break;
        default: column.values.Push(0.0); break;
        }
        if (kind != Kind::Text) column.SetNullBit(row);
    }
}

void ColumnStore::AppendText(Column& column, std::string_view text)
{
    if (column.kind != Kind::Text) {
        if (column.kind == Kind::Nulls)
            Start(column, Kind::Text);
        else
            TurnIntoTexts(column);
    }
    if (column.lastOffset == TextArena::kEmpty ? !text.empty() : !SameBytes(text, column.lastText)) {
        column.lastOffset = arena_.Add(text);
        column.lastText = arena_.At(column.lastOffset);
    }
    column.values.Push(column.lastOffset);
}

void ColumnStore::AppendInteger(Column& column, std::int64_t value)
{
    switch (column.kind) {
    case Kind::Int8:
        if (value == static_cast<std::int8_t>(value)) return column.values.Push(static_cast<std::int8_t>(value));
        break;
    case Kind::Int16:
        if (value == static_cast<std::int16_t>(value)) return column.values.Push(static_cast<std::int16_t>(value));
        break;
    case Kind::Int32:
        if (value == static_cast<std::int32_t>(value)) return column.values.Push(static_cast<std::int32_t>(value));
        break;
    case Kind::Int64: return column.values.Push(value);
    case Kind::Real:
        if (value >= -kLargestExact && value <= kLargestExact) return column.values.Push(static_cast<double>(value));
        TurnIntoTexts(column);
        return AppendText(column, Digits(value));
    case Kind::Text: return AppendText(column, Digits(value));
    case Kind::Nulls: break;
    }
    Kind kind = Kind::Int64;
    if (value == static_cast<std::int8_t>(value))
        kind = Kind::Int8;
    else if (value == static_cast<std::int16_t>(value))
        kind = Kind::Int16;
    else if (value == static_cast<std::int32_t>(value))
        kind = Kind::Int32;
    if (column.kind == Kind::Nulls)
        Start(column, kind);
    else
        WidenTo(column, kind);
    AppendInteger(column, value);
}

void ColumnStore::AppendReal(Column& column, double value)
{
    if (column.kind == Kind::Nulls)
        Start(column, Kind::Real);
    else if (column.kind < Kind::Real)
        TurnIntoReals(column); // may end as texts
    if (column.kind == Kind::Real) return column.values.Push(value);
    if (column.kind != Kind::Text) TurnIntoTexts(column);
    AppendText(column, Digits(value));
}

void ColumnStore::AppendNull(Column& column)
{
    switch (column.kind) {
    case Kind::Nulls: return;
    case Kind::Text: return column.values.Push(TextArena::kNull);
    case Kind::Int8: column.values.Push(std::int8_t{0}); break;
    case Kind::Int16: column.values.Push(std::int16_t{0}); break;
    case Kind::Int32: column.values.Push(std::int32_t{0}); break;
    case Kind::Int64: column.values.Push(std::int64_t{0}); break;
    case Kind::Real: column.values.Push(0.0); break;
    }
    column.SetNullBit(rows_);
}

void ColumnStore::WidenTo(Column& column, Kind kind)
{
    const auto widen = [&]<class To>(To) {
        switch (column.kind) {
        case Kind::Int8: return column.values.Widen<std::int8_t, To>(rows_);
        case Kind::Int16: return column.values.Widen<std::int16_t, To>(rows_);
        default: return column.values.Widen<std::int32_t, To>(rows_);
        }
    };
    if (kind == Kind::Int16)
        column.values.Widen<std::int8_t, std::int16_t>(rows_);
    else if (kind == Kind::Int32)
        widen(std::int32_t{});
    else
        widen(std::int64_t{});
    column.kind = kind;
}

std::int64_t ColumnStore::Integer(const Column& column, std::size_t row)
{
    switch (column.kind) {
    case Kind::Int8: return column.values.At<std::int8_t>(row);
    case Kind::Int16: return column.values.At<std::int16_t>(row);
    case Kind::Int32: return column.values.At<std::int32_t>(row);
    default: return column.values.At<std::int64_t>(row);
    }
}

// A numeric column gives 85 and 12.5 in turn: all become reals, unless a whole number would lose digits by that.
void ColumnStore::TurnIntoReals(Column& column)
{
    if (column.kind == Kind::Int64)
        for (std::size_t row = 0; row < rows_; ++row)
            if (const std::int64_t value = Integer(column, row); value < -kLargestExact || value > kLargestExact)
                return TurnIntoTexts(column);
    ChunkedArray reals(sizeof(double));
    for (std::size_t row = 0; row < rows_; ++row)
        reals.Push(static_cast<double>(Integer(column, row)));
    column.values = std::move(reals);
    column.kind = Kind::Real;
}

// The last resort for a column whose values are of different kinds.
void ColumnStore::TurnIntoTexts(Column& column)
{
    Column texts;
    texts.kind = Kind::Text;
    texts.values = ChunkedArray(sizeof(std::uint32_t));
    for (std::size_t row = 0; row < rows_; ++row) {
        if (column.NullBit(row))
            texts.values.Push(TextArena::kNull);
        else
            AppendText(texts, NumberText(column, row));
    }
    column = std::move(texts);
}

std::string_view ColumnStore::NumberText(const Column& column, std::size_t row)
{
    if (column.NullBit(row)) return {};
    if (column.kind == Kind::Real) return Digits(column.values.At<double>(row));
    return Digits(Integer(column, row));
}

std::int64_t ColumnStore::IntOfOther(const Column& column, std::size_t row) const
{
    switch (column.kind) {
    case Kind::Text: return LeadingInteger(arena_.At(column.values.At<std::uint32_t>(row)));
    case Kind::Real: return IntegerOf(column.values.At<double>(row));
    default: return 0;
    }
}

double ColumnStore::Double(std::size_t columnIndex, std::size_t row) const
{
    const Column& column = At(columnIndex, row);
    switch (column.kind) {
    case Kind::Real: return column.values.At<double>(row);
    case Kind::Text: return LeadingDouble(arena_.At(column.values.At<std::uint32_t>(row)));
    case Kind::Nulls: return 0;
    default: return static_cast<double>(Integer(column, row));
    }
}

bool ColumnStore::SameNumber(const Column& column, std::size_t row)
{
    if (column.NullBit(row) != column.NullBit(row - 1)) return false;
    if (column.NullBit(row)) return true;
    if (column.kind == Kind::Real) return column.values.At<double>(row) == column.values.At<double>(row - 1);
    return Integer(column, row) == Integer(column, row - 1);
}

Cell ColumnStore::CellAt(std::size_t columnIndex, std::size_t row) const
{
    const Column& column = At(columnIndex, row);
    Cell cell;
    if (column.kind == Kind::Text) {
        const std::uint32_t offset = column.values.At<std::uint32_t>(row);
        if (offset == TextArena::kNull) return cell;
        cell.kind = Cell::Kind::Text;
        cell.text = arena_.At(offset);
    } else if (column.NullBit(row)) {
        return cell;
    } else if (column.kind == Kind::Real) {
        cell.kind = Cell::Kind::Real;
        cell.real = column.values.At<double>(row);
    } else {
        cell.kind = Cell::Kind::Integer;
        cell.integer = Integer(column, row);
    }
    return cell;
}

std::size_t ColumnStore::Bytes() const
{
    std::size_t bytes = arena_.Bytes();
    for (const Column& column : columns_)
        bytes += column.values.Bytes() + column.nulls.capacity() * sizeof(std::uint64_t);
    return bytes;
}

} // namespace kvx::ado
