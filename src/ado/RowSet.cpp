#include "ado/RowSet.h"

#include "basic/Error.h"

#include <limits>
#include <utility>

namespace kvx::ado {
namespace {

// A bookmark is generation * 2^32 + row + 3: whole in a double, and never one of the numbers 0, 1, 2 that mean current,
// first and last.
constexpr double kGenerationStep = 4294967296.0;
constexpr std::uint32_t kGenerations = 1u << 20;
constexpr double kFirstRow = 3;

std::uint32_t NextGeneration()
{
    static std::uint32_t last = 0;
    last = last % (kGenerations - 1) + 1;
    return last;
}

} // namespace

RowSet::RowSet(std::shared_ptr<ColumnStore> store, std::unique_ptr<DriverStatement> rest, std::string text)
    : store_(std::move(store)), rest_(std::move(rest)), text_(std::move(text)), generation_(NextGeneration())
{
}

void RowSet::Reach(std::size_t rows)
{
    if (restError_ && rows > Rows()) std::rethrow_exception(std::exchange(restError_, nullptr));
    if (!rest_ || Rows() >= rows) return;
    std::vector<Cell> cells(store_->Columns().size());
    while (rest_ && Rows() < rows) {
        rest_->Read(cells);
        store_->Append(cells);
        try {
            if (!rest_->Step()) rest_.reset();
        } catch (basic::Error& error) {
            if (error.Statement.empty()) error.Statement = text_;
            rest_.reset();
            throw;
        }
    }
}

void RowSet::ReadRest()
{
    Reach(std::numeric_limits<std::size_t>::max());
}

void RowSet::FinishRest()
{
    if (!rest_) return;
    try {
        ReadRest();
    } catch (const basic::Error&) {
        restError_ = std::current_exception();
    }
}

Cell RowSet::EditedAt(std::size_t column, std::size_t row) const
{
    if (row >= store_->Rows()) return added_[row - store_->Rows()][column].View();
    const auto found = changed_.find(row);
    return found == changed_.end() ? store_->CellAt(column, row) : found->second[column].View();
}

bool RowSet::IsUnassigned(std::size_t column, std::size_t row) const
{
    return row >= store_->Rows() && !added_[row - store_->Rows()][column].assigned;
}

void RowSet::Change(std::size_t row, std::size_t column, OwnedCell cell)
{
    if (row >= store_->Rows()) {
        added_[row - store_->Rows()][column] = std::move(cell);
        return;
    }
    const auto [place, inserted] = changed_.try_emplace(row);
    if (inserted)
        for (std::size_t index = 0; index < store_->Columns().size(); ++index)
            place->second.push_back(ToOwnedCell(store_->CellAt(index, row)));
    place->second[column] = std::move(cell);
}

std::size_t RowSet::Add(std::vector<OwnedCell> cells)
{
    added_.push_back(std::move(cells));
    return Rows() - 1;
}

std::shared_ptr<const ColumnStore> RowSet::Frozen() const
{
    if (changed_.empty() && added_.empty()) return store_;
    auto copy = std::make_shared<ColumnStore>(store_->SharedColumns());
    std::vector<Cell> cells(store_->Columns().size());
    for (std::size_t row = 0; row < Rows(); ++row) {
        for (std::size_t column = 0; column < cells.size(); ++column)
            cells[column] = At(column, row);
        copy->Append(cells);
    }
    return copy;
}

double RowSet::BookmarkOf(std::size_t row) const
{
    return generation_ * kGenerationStep + kFirstRow + static_cast<double>(row);
}

std::optional<std::size_t> RowSet::RowOf(double bookmark) const
{
    const double row = bookmark - BookmarkOf(0);
    if (!(row >= 0) || row >= static_cast<double>(Rows())) return {};
    return static_cast<std::size_t>(row);
}

} // namespace kvx::ado
