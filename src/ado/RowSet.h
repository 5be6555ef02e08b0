#pragma once

#include "ado/ColumnStore.h"
#include "ado/Values.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace kvx::ado {

/// The rows of a recordset that can move: what was read, and on top of it what was edited since. Clones share it.
class RowSet {
public:
    /// @param rest  the statement that has more rows; they are read when they are asked for
    /// @param text  as it was sent, for the error that may end it
    explicit RowSet(std::shared_ptr<ColumnStore> store, std::unique_ptr<DriverStatement> rest = nullptr,
                    std::string text = {});

    /// Rows that are here; with a rest there may be more.
    std::size_t Rows() const { return store_->Rows() + added_.size(); }
    bool HasRest() const { return rest_ != nullptr; }
    /// Reads on until there are that many rows or no more.
    /// @throws basic::Error the provider's, also one that FinishRest met; the rows read so far stay
    void Reach(std::size_t rows);
    void ReadRest();
    /// The same for somebody else's statement: an error is kept for the one who asks for the rows.
    void FinishRest();
    Cell At(std::size_t column, std::size_t row) const
    {
        if (row < store_->Rows() && changed_.empty()) return store_->CellAt(column, row);
        return EditedAt(column, row);
    }
    /// True for a field of a row added here that nobody assigned and the database filled.
    bool IsUnassigned(std::size_t column, std::size_t row) const;

    void Change(std::size_t row, std::size_t column, OwnedCell cell);
    std::size_t Add(std::vector<OwnedCell> cells); ///< @return the row

    /// Rows as a store that nobody changes: the one that was read when nothing was edited, else a copy.
    std::shared_ptr<const ColumnStore> Frozen() const;

    /// Names a row among all row sets of the process.
    double BookmarkOf(std::size_t row) const;
    std::optional<std::size_t> RowOf(double bookmark) const;

private:
    Cell EditedAt(std::size_t column, std::size_t row) const;

    std::shared_ptr<ColumnStore> store_;
    std::unique_ptr<DriverStatement> rest_; // stands on a row that is not in the store yet
    std::string text_;
    std::exception_ptr restError_;
    std::unordered_map<std::size_t, std::vector<OwnedCell>> changed_; // whole rows
    std::vector<std::vector<OwnedCell>> added_;
    std::uint32_t generation_; // tells bookmarks of an earlier result
};

} // namespace kvx::ado
