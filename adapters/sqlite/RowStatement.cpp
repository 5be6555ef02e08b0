#include "adapters/sqlite/RowStatement.h"

#include "adapters/sqlite/Errors.h"

#include <sqlite3.h>

namespace kvx::adapters::sqlite {

using Kind = ado::Cell::Kind;

RowStatement::RowStatement(Connection& connection, std::unique_ptr<Prepared> prepared, std::int32_t timeoutSeconds)
    : connection_(&connection), prepared_(std::move(prepared)), columns_(prepared_->columns),
      timeoutSeconds_(timeoutSeconds), next_(connection.statements_)
{
    if (next_ != nullptr) next_->previous_ = this;
    connection.statements_ = this;
}

RowStatement::~RowStatement()
{
    if (connection_ == nullptr) return;
    Release();
    (previous_ != nullptr ? previous_->next_ : connection_->statements_) = next_;
    if (next_ != nullptr) next_->previous_ = previous_;
}

void RowStatement::Detach()
{
    prepared_.reset();
    connection_ = nullptr;
    if (state_ != State::Kept) state_ = State::Done;
}

void RowStatement::Release()
{
    if (prepared_) connection_->GiveBack(std::move(prepared_));
}

bool RowStatement::Step()
{
    switch (state_) {
    case State::Running: return Advance();
    case State::Fresh: {
        state_ = State::Running;
        connection_->watch_ = {.limit = std::chrono::seconds(timeoutSeconds_), .started = {}};
        const bool row = Advance();
        connection_->watch_.limit = {};
        return row;
    }
    case State::Kept:
        onKept_ = true;
        if (nextRow_ < kept_.size()) {
            nextRow_ += columns_->size();
            return true;
        }
        state_ = State::Done;
        return false;
    case State::Done: return false;
    }
    return false;
}

// A statement that has given its last row goes back at once: it would hold the state of the file for others.
bool RowStatement::Advance()
{
    const int result = sqlite3_step(prepared_->statement.get());
    if (result == SQLITE_ROW) return true;
    state_ = State::Done;
    if (result == SQLITE_DONE) {
        Release();
        return false;
    }
    basic::Error error = MakeError(connection_->Database(), result);
    Release();
    throw error;
}

ado::Cell RowStatement::Current(std::size_t column) const
{
    ado::Cell cell;
    sqlite3_value* value = sqlite3_column_value(prepared_->statement.get(), static_cast<int>(column));
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL: break;
    case SQLITE_INTEGER:
        cell.kind = Kind::Integer;
        cell.integer = sqlite3_value_int64(value);
        break;
    case SQLITE_FLOAT:
        cell.kind = Kind::Real;
        cell.real = sqlite3_value_double(value);
        break;
    default: {
        cell.kind = Kind::Text;
        const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
        cell.text = {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
        break;
    }
    }
    return cell;
}

ado::Cell RowStatement::At(std::size_t column) const
{
    if (!onKept_) return state_ == State::Done ? ado::Cell() : Current(column);
    const KeptCell& kept = kept_[nextRow_ - columns_->size() + column];
    ado::Cell cell{.kind = kept.kind, .integer = kept.integer, .real = kept.real, .text = {}};
    if (kept.kind == Kind::Text)
        cell.text = std::string_view(keptTexts_).substr(static_cast<std::size_t>(kept.integer), kept.size);
    return cell;
}

void RowStatement::Read(std::span<ado::Cell> cells) const
{
    for (std::size_t column = 0; column < cells.size(); ++column)
        cells[column] = At(column);
}

void RowStatement::Keep()
{
    for (std::size_t column = 0; column < columns_->size(); ++column) {
        const ado::Cell cell = Current(column);
        KeptCell kept{.kind = cell.kind, .integer = cell.integer, .real = cell.real, .size = cell.text.size()};
        if (cell.kind == Kind::Text) {
            kept.integer = static_cast<std::int64_t>(keptTexts_.size());
            keptTexts_ += cell.text;
        }
        kept_.push_back(kept);
    }
}

// The current row stays current: its cells are kept too, in front of the rest.
void RowStatement::KeepRest()
{
    if (state_ != State::Running && state_ != State::Fresh) return;
    if (state_ == State::Running) {
        Keep();
        nextRow_ = columns_->size();
        onKept_ = true;
    }
    state_ = State::Running;
    while (Advance())
        Keep();
    state_ = State::Kept;
}

}  // namespace kvx::adapters::sqlite
