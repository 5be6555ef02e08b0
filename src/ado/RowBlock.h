#pragma once

#include "ado/ColumnStore.h"
#include "basic/Variant.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace kvx::ado {

/// The rows that Recordset.GetRows copied: indexes from 0, column first as in the classic two-dimensional array.
/// Columnar and shared: a copy of a RowBlock is cheap, and nothing changes the values any more.
/// A column or row past the end is a broken promise of the caller (an assert), in Value it is error 9.
class RowBlock {
public:
    RowBlock() = default;
    RowBlock(std::shared_ptr<const ColumnStore> store, std::size_t firstRow, std::size_t rows)
        : store_(std::move(store)), first_(firstRow), rows_(rows)
    {
    }

    std::size_t Rows() const { return rows_; }
    std::size_t Columns() const { return store_ ? store_->VisibleColumns() : 0; }
    const ColumnInfo& Column(std::size_t column) const { return store_->Columns()[column]; }

    /// The value in the kind that Field.Value gives; Null stays Null. @throws basic::Error 9: no such column or row
    basic::Variant Value(std::size_t column, std::size_t row) const;

    bool IsNull(std::size_t column, std::size_t row) const { return store_->IsNull(column, first_ + row); }

    /// The text, without a copy, good as long as the block; NULL is empty. Of a number column: its digits with a
    /// decimal point, in a buffer that the thread's next such call overwrites.
    std::string_view Text(std::size_t column, std::size_t row) const { return store_->Text(column, first_ + row); }

    /// NULL is 0; a text gives the whole number it starts with.
    std::int64_t Int(std::size_t column, std::size_t row) const { return store_->Int(column, first_ + row); }

    /// NULL is 0; a text gives the number it starts with (decimal point).
    double Double(std::size_t column, std::size_t row) const { return store_->Double(column, first_ + row); }

    /// True when the value is the same as in the row before, byte for byte; NULL is the same as NULL. False in row 0.
    /// Takes the same time for any length of text.
    bool SameAsPrevious(std::size_t column, std::size_t row) const
    {
        return row > 0 && store_->SameAsPrevious(column, first_ + row);
    }

    /// Memory of the values in bytes (a block that shares the rows of a recordset counts all of them).
    std::size_t Bytes() const { return store_ ? store_->Bytes() : 0; }

private:
    std::shared_ptr<const ColumnStore> store_;
    std::size_t first_ = 0;
    std::size_t rows_ = 0;
};

} // namespace kvx::ado
