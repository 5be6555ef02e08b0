#include "ado/Cursor.h"

#include "ado/Errors.h"
#include "ado/Values.h"
#include "basic/Error.h"
#include "basic/Object.h"

#include <algorithm>
#include <utility>

namespace kvx::ado {

Cursor::~Cursor()
{
    if (open_) connection_->Unregister(this);
    statement_.reset(); // before the connection may go
}

void Cursor::RaiseClosed()
{
    RaiseAdo(kErrObjectClosed);
}

void Cursor::RequireClosed() const
{
    if (open_) RaiseAdo(kErrObjectOpen);
}

void Cursor::RequireBookmarks() const
{
    RequireOpen();
    if (!HasBookmarks())
        RaiseAdo(kErrNotSupported, "ADODB.Recordset",
                 "Current Recordset does not support bookmarks. This may be a limitation of the provider or of the "
                 "selected cursortype.");
}

void Cursor::RequireUpdatable() const
{
    RequireOpen();
    if (!IsUpdatable())
        RaiseAdo(kErrNotSupported, "ADODB.Recordset",
                 "Current Recordset does not support updating. This may be a limitation of the provider, or of the "
                 "selected locktype.");
}

void Cursor::RequireNotEditing() const
{
    if (edit_) RaiseAdo(kErrNotAllowedHere);
}

bool Cursor::HasBookmarks() const
{
    return type_ == adOpenStatic || type_ == adOpenKeyset;
}

void Cursor::SetType(CursorTypeEnum type)
{
    RequireClosed();
    type_ = type == adOpenUnspecified ? adOpenForwardOnly : type;
}

void Cursor::SetLock(LockTypeEnum lock)
{
    RequireClosed();
    lock_ = lock == adLockUnspecified ? adLockReadOnly : lock;
}

CursorLocationEnum Cursor::Location() const
{
    if (location_) return *location_;
    return connection_ ? connection_->cursorLocation : adUseServer;
}

void Cursor::SetLocation(CursorLocationEnum location)
{
    RequireClosed();
    if (location != adUseServer && location != adUseClient) RaiseAdo(kErrWrongArgument);
    location_ = location;
}

void Cursor::Open(std::string_view source, std::shared_ptr<ConnectionCore> connection, CursorTypeEnum type,
                  LockTypeEnum lock, std::int32_t options, std::int32_t timeoutSeconds, std::int64_t* recordsAffected)
{
    RequireClosed();
    if (type != adOpenUnspecified) type_ = type;
    if (lock != adLockUnspecified) lock_ = lock;
    connection_ = std::move(connection);
    if (Location() == adUseClient) type_ = adOpenStatic;
    source_ = source;

    // -1 has every bit set and means the same as adCmdUnknown.
    noRecords_ = options != adCmdUnspecified && (options & adExecuteNoRecords) != 0;
    laterRows_ = options != adCmdUnspecified && (options & adAsyncFetch) != 0;
    const std::int32_t kind =
        options == adCmdUnspecified ? adCmdUnknown : options & ~(adExecuteNoRecords | adAsyncFetch);
    text_ = kind == adCmdTable ? "select * from " + source_ : source_;
    options_.procedure = kind == adCmdStoredProc;
    options_.tableAllowed = kind != adCmdText && kind != adCmdStoredProc;
    options_.withRowKeys = IsUpdatable();
    options_.timeoutSeconds = timeoutSeconds;

    const std::int64_t affected = Run();
    if (recordsAffected != nullptr) *recordsAffected = affected;
    FireMoveComplete();
}

std::int64_t Cursor::Run()
{
    Release();
    std::int64_t affected = 0;
    connection_->Send(text_, /*rowWrite=*/false, [this, &affected] {
        statement_ = connection_->Driver().Execute(text_, options_);
        try {
            affected = statement_->RowsAffected();
            infos_ = statement_->SharedColumns();
            if (infos_->empty() || noRecords_) {
                statement_.reset();
                return affected;
            }
            visible_ = static_cast<std::size_t>(
                std::ranges::count_if(*infos_, [](const ColumnInfo& info) { return !info.rowKey; }));
            if (type_ == adOpenForwardOnly && !IsUpdatable())
                place_ = Step() ? Place::On : Place::None;
            else
                ReadRows();
        } catch (...) {
            statement_.reset();
            throw;
        }
        open_ = true;
        return affected;
    });
    if (open_) connection_->Register(this);
    onFirst_ = true;
    return affected;
}

// The engine is done with the statement when this returns, and nobody waits for a reader who thinks; unless the rest is
// to come later.
void Cursor::ReadRows()
{
    constexpr std::size_t kFirstRows = 200;
    auto store = std::make_shared<ColumnStore>(infos_);
    std::vector<Cell> cells(infos_->size());
    bool more = false;
    while ((more = statement_->Step()) && !(laterRows_ && store->Rows() == kFirstRows)) {
        statement_->Read(cells);
        store->Append(cells);
    }
    if (!more) statement_.reset();
    rows_ = std::make_shared<RowSet>(std::move(store), std::exchange(statement_, nullptr), text_);
    GoTo(0);
}

bool Cursor::FetchMore(std::size_t rows)
{
    if (!open_ || !IsFetching()) return false;
    rows_->Reach(rows_->Rows() + rows);
    return IsFetching();
}

// One row on; a statement at its end is given back at once, with the locks it holds.
bool Cursor::Step()
{
    try {
        if (statement_->Step()) return true;
    } catch (basic::Error& error) {
        if (error.Statement.empty()) error.Statement = text_;
        statement_.reset();
        place_ = Place::After;
        throw;
    }
    statement_.reset();
    return false;
}

void Cursor::FinishStream()
{
    if (IsFetching()) rows_->FinishRest();
    if (!statement_) return;
    auto store = std::make_shared<ColumnStore>(infos_);
    std::vector<Cell> cells(infos_->size());
    try {
        do {
            statement_->Read(cells);
            store->Append(cells);
        } while (Step());
    } catch (const basic::Error&) {
        endError_ = std::current_exception(); // belongs to the reader, not to the statement that is sent now
    }
    rows_ = std::make_shared<RowSet>(std::move(store));
    place_ = Place::On;
    row_ = 0;
}

void Cursor::Release()
{
    if (open_) connection_->Unregister(this);
    open_ = false;
    statement_.reset();
    rows_.reset();
    endError_ = nullptr;
    edit_.reset();
    place_ = Place::None;
    row_ = 0;
}

void Cursor::Close()
{
    RequireOpen();
    RequireNotEditing();
    Release();
}

void Cursor::ConnectionClosed()
{
    open_ = false; // the connection has forgotten the cursor already
    Release();
}

void Cursor::Requery()
{
    RequireOpen();
    RequireNotEditing();
    Run();
    FireMoveComplete();
}

RowBlock Cursor::GetRows(std::int64_t most)
{
    RequireOpen();
    FinishEdit();
    if (place_ != Place::On) RaiseAdo(kErrNoCurrentRecord);
    if (most == 0 || most < -1) RaiseAdo(kErrWrongArgument);
    onFirst_ = false;
    RowBlock block;
    if (statement_) {
        auto store = std::make_shared<ColumnStore>(infos_);
        std::vector<Cell> cells(infos_->size());
        std::int64_t left = most;
        do {
            statement_->Read(cells);
            store->Append(cells);
        } while (Step() && --left != 0);
        if (!statement_) place_ = Place::After;
        const std::size_t count = store->Rows();
        block = RowBlock(std::move(store), 0, count);
    } else {
        rows_->ReadRest();
        std::size_t count = rows_->Rows() - row_;
        if (most > 0) count = std::min(count, static_cast<std::size_t>(most));
        block = RowBlock(rows_->Frozen(), row_, count);
        GoTo(static_cast<std::int64_t>(row_ + count));
    }
    FireMoveComplete();
    return block;
}

std::shared_ptr<Cursor> Cursor::Clone() const
{
    RequireBookmarks();
    auto clone = std::make_shared<Cursor>();
    clone->type_ = type_;
    clone->lock_ = lock_;
    clone->location_ = location_;
    clone->source_ = source_;
    clone->text_ = text_;
    clone->options_ = options_;
    clone->connection_ = connection_;
    clone->infos_ = infos_;
    clone->visible_ = visible_;
    clone->rows_ = rows_;
    clone->open_ = true;
    clone->onFirst_ = true;
    clone->GoTo(0);
    connection_->Register(clone.get());
    return clone;
}

std::uint64_t Cursor::AddMoveComplete(std::function<void()> handler)
{
    handlers_.emplace_back(++lastHandler_, std::move(handler));
    return lastHandler_;
}

void Cursor::RemoveMoveComplete(std::uint64_t id)
{
    std::erase_if(handlers_, [&](const auto& handler) { return handler.first == id; });
}

void Cursor::FireMoveComplete()
{
    if (handlers_.empty() || !open_) return;
    const auto handlers = handlers_; // a handler may add or remove handlers
    for (const auto& handler : handlers)
        handler.second();
}

const ColumnInfo& Cursor::Column(std::size_t column) const
{
    RequireOpen();
    if (column >= visible_) RaiseAdo(kErrItemNotFound); // a field of an earlier result
    return (*infos_)[column];
}

std::optional<std::size_t> Cursor::FindColumn(std::string_view name) const
{
    for (std::size_t column = 0; column < Columns(); ++column) {
        const std::string& known = (*infos_)[column].name;
        if (known.size() == name.size() && basic::SameName(known, name)) return column;
    }
    return {};
}

std::size_t Cursor::ColumnIndex(std::string_view name) const
{
    RequireOpen();
    if (const std::optional<std::size_t> column = FindColumn(name)) return *column;
    RaiseAdo(kErrItemNotFound);
}

std::size_t Cursor::ColumnIndex(std::int64_t index) const
{
    RequireOpen();
    if (index < 0 || static_cast<std::size_t>(index) >= visible_) RaiseAdo(kErrItemNotFound);
    return static_cast<std::size_t>(index);
}

Cell Cursor::Current(std::size_t column) const
{
    RequireOpen();
    if (column >= visible_) RaiseAdo(kErrItemNotFound);
    if (edit_ && (edit_->adding || edit_->values[column])) {
        if (!edit_->values[column]) return {};
        scratch_ = ToOwnedCell(*edit_->values[column]);
        return scratch_.View();
    }
    if (place_ != Place::On) RaiseAdo(kErrNoCurrentRecord);
    return statement_ ? statement_->At(column) : rows_->At(column, row_);
}

basic::Variant Cursor::Value(std::size_t column) const
{
    if (edit_ && column < visible_) {
        if (edit_->values[column]) return *edit_->values[column];
        if (edit_->adding) return {};
    }
    const Cell cell = Current(column);
    if (cell.kind == Cell::Kind::Null && rows_ && rows_->IsUnassigned(column, row_)) return {};
    return ToVariant((*infos_)[column], cell);
}

} // namespace kvx::ado
