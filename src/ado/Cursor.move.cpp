#include "ado/Cursor.h"
#include "ado/Errors.h"
#include "basic/Convert.h"
#include "basic/Error.h"

#include <algorithm>
#include <utility>

namespace kvx::ado {
namespace {

constexpr std::int64_t kPositionUnknown = -1;
constexpr std::int64_t kPositionBof = -2;
constexpr std::int64_t kPositionEof = -3;

} // namespace

void Cursor::GoTo(std::int64_t row)
{
    onFirst_ = false;
    if (row >= 0) rows_->Reach(static_cast<std::size_t>(row) + 1);
    const auto rows = static_cast<std::int64_t>(rows_->Rows());
    if (rows == 0) {
        place_ = Place::None;
    } else if (row < 0) {
        place_ = Place::Before;
    } else if (row >= rows) {
        place_ = Place::After;
        if (endError_) std::rethrow_exception(std::exchange(endError_, nullptr));
    } else {
        place_ = Place::On;
        row_ = static_cast<std::size_t>(row);
    }
}

void Cursor::FinishEdit()
{
    if (edit_) Update();
}

void Cursor::MoveNext()
{
    RequireOpen();
    FinishEdit();
    if (place_ == Place::None || place_ == Place::After) RaiseAdo(kErrNoCurrentRecord);
    if (statement_) {
        onFirst_ = false;
        if (!Step()) place_ = Place::After;
    } else if (!rows_) {
        place_ = Place::After;
    } else {
        GoTo(place_ == Place::Before ? 0 : static_cast<std::int64_t>(row_) + 1);
    }
    FireMoveComplete();
}

void Cursor::MovePrevious()
{
    RequireOpen();
    if (type_ == adOpenForwardOnly) RaiseAdo(kErrNotAllowedHere);
    FinishEdit();
    if (place_ == Place::None || place_ == Place::Before) RaiseAdo(kErrNoCurrentRecord);
    GoTo((place_ == Place::After ? static_cast<std::int64_t>(rows_->Rows()) : static_cast<std::int64_t>(row_)) - 1);
    FireMoveComplete();
}

void Cursor::MoveFirst()
{
    RequireOpen();
    FinishEdit();
    if (type_ == adOpenForwardOnly) {
        if (place_ == Place::None) RaiseAdo(kErrNoCurrentRecord);
        if (!onFirst_) Run();
    } else {
        if (rows_->Rows() == 0) RaiseAdo(kErrNoCurrentRecord);
        GoTo(0);
    }
    FireMoveComplete();
}

void Cursor::MoveLast()
{
    RequireOpen();
    if (type_ == adOpenForwardOnly) RaiseAdo(kErrNotAllowedHere);
    FinishEdit();
    rows_->ReadRest();
    if (rows_->Rows() == 0) RaiseAdo(kErrNoCurrentRecord);
    GoTo(static_cast<std::int64_t>(rows_->Rows()) - 1);
    FireMoveComplete();
}

// The row a start argument names.
std::size_t Cursor::StartRow(const basic::Variant& start) const
{
    if (const double* bookmark = start.As<double>(); bookmark != nullptr && *bookmark > std::int32_t{adBookmarkLast}) {
        RequireBookmarks();
        const std::optional<std::size_t> row = rows_->RowOf(*bookmark);
        if (!row) RaiseAdo(kErrWrongArgument);
        return *row;
    }
    const std::int32_t which = basic::CLng(start);
    if (which == adBookmarkFirst || which == adBookmarkLast) {
        if (!rows_) RaiseAdo(kErrNotSupported);
        rows_->ReadRest();
        if (rows_->Rows() == 0) RaiseAdo(kErrNoCurrentRecord);
        return which == adBookmarkFirst ? 0 : rows_->Rows() - 1;
    }
    if (which != adBookmarkCurrent) RaiseAdo(kErrWrongArgument);
    if (place_ != Place::On) RaiseAdo(kErrNoCurrentRecord);
    return row_;
}

void Cursor::Move(std::int64_t rows, const basic::Variant& start)
{
    RequireOpen();
    FinishEdit();
    const bool fromHere = start.As<std::int32_t>() != nullptr && *start.As<std::int32_t>() == adBookmarkCurrent;
    if (type_ == adOpenForwardOnly) {
        if (rows < 0) RaiseAdo(kErrNotAllowedHere);
        if (!fromHere) RaiseAdo(kErrNotSupported);
        if (place_ != Place::On) RaiseAdo(kErrNoCurrentRecord);
        for (; rows > 0 && place_ == Place::On; --rows) {
            if (statement_) {
                onFirst_ = false;
                if (!Step()) place_ = Place::After;
            } else if (rows_) {
                GoTo(static_cast<std::int64_t>(row_) + 1);
            }
        }
    } else {
        std::int64_t from = 0;
        if (!fromHere || place_ == Place::On) {
            from = static_cast<std::int64_t>(StartRow(start));
        } else {
            const bool away = place_ == Place::None || (place_ == Place::Before ? rows <= 0 : rows >= 0);
            if (away) RaiseAdo(kErrNoCurrentRecord);
            from = place_ == Place::Before ? -1 : static_cast<std::int64_t>(rows_->Rows());
        }
        rows_->ReadRest();
        // Far beyond the ends is as good as one row beyond them.
        const auto count = static_cast<std::int64_t>(rows_->Rows());
        GoTo(from + std::clamp(rows, -count - 1, count + 1));
    }
    FireMoveComplete();
}

std::int64_t Cursor::AbsolutePosition() const
{
    RequireBookmarks();
    if (edit_ && edit_->adding) return kPositionUnknown;
    switch (place_) {
    case Place::On: return static_cast<std::int64_t>(row_) + 1;
    case Place::After: return kPositionEof;
    default: return kPositionBof;
    }
}

void Cursor::SetAbsolutePosition(std::int64_t position)
{
    RequireBookmarks();
    FinishEdit();
    if (position > 0) rows_->Reach(static_cast<std::size_t>(position));
    if (position < 1 || position > static_cast<std::int64_t>(rows_->Rows())) RaiseAdo(kErrWrongArgument);
    GoTo(position - 1);
    FireMoveComplete();
}

basic::Variant Cursor::Bookmark() const
{
    RequireBookmarks();
    if (place_ != Place::On || (edit_ && edit_->adding)) RaiseAdo(kErrNoCurrentRecord);
    return rows_->BookmarkOf(row_);
}

void Cursor::SetBookmark(const basic::Variant& bookmark)
{
    RequireBookmarks();
    FinishEdit();
    const double* number = bookmark.As<double>();
    const std::optional<std::size_t> row = number == nullptr ? std::nullopt : rows_->RowOf(*number);
    if (!row) RaiseAdo(kErrWrongArgument);
    GoTo(static_cast<std::int64_t>(*row));
    FireMoveComplete();
}

std::int64_t Cursor::RecordCount()
{
    RequireOpen();
    if (!HasBookmarks()) return -1;
    rows_->ReadRest();
    return static_cast<std::int64_t>(rows_->Rows());
}

std::int64_t Cursor::RowsHere() const
{
    return rows_ ? static_cast<std::int64_t>(rows_->Rows()) : 0;
}

} // namespace kvx::ado
