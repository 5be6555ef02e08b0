#pragma once

#include "ado/Driver.h"

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

// How many rows are held in little memory: an array a column, texts in one arena. Growth never moves what is there
// (beyond the first small piece), so the peak while filling is not above what remains.
namespace kvx::ado {

/// Values of one width (1, 2, 4 or 8 bytes) in chunks.
class ChunkedArray {
public:
    explicit ChunkedArray(std::size_t width = 1) : width_(width) {}

    template <class T>
    void Push(T value)
    {
        assert(sizeof(T) == width_);
        if (next_ == end_) Grow();
        std::memcpy(next_, &value, sizeof(T));
        next_ += sizeof(T);
    }

    template <class T>
    T At(std::size_t index) const
    {
        assert(sizeof(T) == width_);
        T value;
        std::memcpy(&value, chunks_[index >> kShift].get() + (index & kMask) * sizeof(T), sizeof(T));
        return value;
    }

    std::size_t Width() const { return width_; }
    std::size_t Bytes() const { return bytes_ + chunks_.capacity() * sizeof(chunks_[0]); }

    /// Turns every value into a wider kind; each old chunk goes as soon as it is read.
    template <class From, class To>
    void Widen(std::size_t size)
    {
        ChunkedArray wider(sizeof(To));
        for (std::size_t index = 0; index < size; ++index) {
            wider.Push(static_cast<To>(At<From>(index)));
            if ((index & kMask) == kMask) chunks_[index >> kShift].reset();
        }
        *this = std::move(wider);
    }

    void Release(std::size_t chunk) { chunks_[chunk].reset(); }

    static constexpr std::size_t kShift = 13;
    static constexpr std::size_t kChunk = std::size_t{1} << kShift;
    static constexpr std::size_t kMask = kChunk - 1;

private:
    void Grow();

    std::size_t width_;
    std::byte* next_ = nullptr; // where the next value goes, and the end of its chunk
    std::byte* end_ = nullptr;
    std::vector<std::unique_ptr<std::byte[]>> chunks_;
    std::size_t bytes_ = 0;
};

/// Texts one behind the other, each with its length in front; addressed by a 32-bit offset, never moved.
class TextArena {
public:
    static constexpr std::uint32_t kNull = 0;  ///< the offset that stands for NULL
    static constexpr std::uint32_t kEmpty = 1; ///< the offset of the empty text

    /// @throws basic::Error 7: four gigabytes are full
    std::uint32_t Add(std::string_view text);

    std::string_view At(std::uint32_t offset) const
    {
        if (offset <= kEmpty) return {};
        const char* data = blocks_[offset >> kShift] + (offset & kMask);
        std::size_t length = static_cast<unsigned char>(*data++);
        if (length >= 0x80) { // seven bits a byte, the lowest first
            length &= 0x7F;
            for (int shift = 7;; shift += 7) {
                const std::size_t part = static_cast<unsigned char>(*data++);
                length |= (part & 0x7F) << shift;
                if (part < 0x80) break;
            }
        }
        return {data, length};
    }

    std::size_t Bytes() const { return bytes_ + blocks_.capacity() * sizeof(blocks_[0]); }

private:
    void NewSlab(std::size_t need);

    static constexpr unsigned kShift = 12;
    static constexpr std::uint32_t kMask = (1u << kShift) - 1;

    std::vector<std::unique_ptr<char[]>> slabs_;
    std::vector<char*> blocks_; // every 4 KiB of the slabs; a text may cross from one block to the next of its slab
    char* next_ = nullptr;
    char* end_ = nullptr;
    std::uint32_t nextOffset_ = 0;
    std::size_t bytes_ = 0;
};

/// Rows by column. Whole numbers take the narrowest width that fits all of a column; a text that equals the one in the
/// row before shares its place; NULL costs nothing but a bit, and that only from the first NULL on.
class ColumnStore {
public:
    using Infos = std::shared_ptr<const std::vector<ColumnInfo>>;

    /// @param infos  rowKey columns stand last; they are stored too
    explicit ColumnStore(Infos infos);

    void Append(std::span<const Cell> cells); ///< one row; as many cells as there are columns

    std::size_t Rows() const { return rows_; }
    const std::vector<ColumnInfo>& Columns() const { return *infos_; }
    std::size_t VisibleColumns() const { return visible_; } ///< without row keys
    const Infos& SharedColumns() const { return infos_; }

    bool IsNull(std::size_t column, std::size_t row) const
    {
        const Column& c = At(column, row);
        return c.kind == Kind::Text ? c.values.At<std::uint32_t>(row) == TextArena::kNull : c.NullBit(row);
    }
    std::string_view Text(std::size_t column, std::size_t row) const
    {
        const Column& c = At(column, row);
        return c.kind == Kind::Text ? arena_.At(c.values.At<std::uint32_t>(row)) : NumberText(c, row);
    }
    std::int64_t Int(std::size_t column, std::size_t row) const
    {
        const Column& c = At(column, row);
        switch (c.kind) {
        case Kind::Int8: return c.values.At<std::int8_t>(row);
        case Kind::Int16: return c.values.At<std::int16_t>(row);
        case Kind::Int32: return c.values.At<std::int32_t>(row);
        case Kind::Int64: return c.values.At<std::int64_t>(row);
        default: return IntOfOther(c, row);
        }
    }
    double Double(std::size_t column, std::size_t row) const;

    /// True when the value is the same as in the row before. @param row  1 or more
    bool SameAsPrevious(std::size_t column, std::size_t row) const
    {
        const Column& c = At(column, row);
        if (c.kind == Kind::Text) return c.values.At<std::uint32_t>(row) == c.values.At<std::uint32_t>(row - 1);
        return SameNumber(c, row);
    }

    Cell CellAt(std::size_t column, std::size_t row) const;

    std::size_t Bytes() const;

private:
    enum class Kind : std::uint8_t { Nulls, Int8, Int16, Int32, Int64, Real, Text }; // Nulls: no value seen so far
    struct Column {
        Kind kind = Kind::Nulls;
        ChunkedArray values;
        std::vector<std::uint64_t> nulls; // a bit a row, made with the first NULL; may be shorter than the rows
        std::string_view lastText;        // the last text that was no NULL, and where it lies
        std::uint32_t lastOffset = TextArena::kEmpty;

        bool NullBit(std::size_t row) const
        {
            if (kind == Kind::Nulls) return true;
            const std::size_t word = row / 64;
            return word < nulls.size() && ((nulls[word] >> (row % 64)) & 1) != 0;
        }
        void SetNullBit(std::size_t row)
        {
            if (nulls.size() <= row / 64) nulls.resize(row / 64 + 1);
            nulls[row / 64] |= std::uint64_t{1} << (row % 64);
        }
    };

    const Column& At(std::size_t column, [[maybe_unused]] std::size_t row) const
    {
        assert(column < columns_.size() && row < rows_);
        return columns_[column];
    }
    void AppendText(Column& column, std::string_view text);
    void AppendInteger(Column& column, std::int64_t value);
    void AppendReal(Column& column, double value);
    void AppendNull(Column& column);
    void Start(Column& column, Kind kind);
    void WidenTo(Column& column, Kind kind);
    void TurnIntoReals(Column& column);
    void TurnIntoTexts(Column& column);
    static std::string_view NumberText(const Column& column, std::size_t row);
    std::int64_t IntOfOther(const Column& column, std::size_t row) const;
    static bool SameNumber(const Column& column, std::size_t row);
    static std::int64_t Integer(const Column& column, std::size_t row);

    Infos infos_;
    std::size_t visible_ = 0;
    std::size_t rows_ = 0;
    std::vector<Column> columns_;
    TextArena arena_;
};

} // namespace kvx::ado
