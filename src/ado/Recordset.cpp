#include "ado/Recordset.h"

#include "ado/Connection.h"
#include "ado/ConnectionCore.h"
#include "ado/Cursor.h"
#include "ado/Errors.h"

#include <utility>

namespace kvx::ado {

Recordset::Recordset() : cursor_(std::make_shared<Cursor>()) {}

CursorTypeEnum Recordset::CursorType() const
{
    return cursor_->Type();
}

void Recordset::SetCursorType(CursorTypeEnum type)
{
    cursor_->SetType(type);
}

LockTypeEnum Recordset::LockType() const
{
    return cursor_->Lock();
}

void Recordset::SetLockType(LockTypeEnum type)
{
    cursor_->SetLock(type);
}

CursorLocationEnum Recordset::CursorLocation() const
{
    return cursor_->Location();
}

void Recordset::SetCursorLocation(CursorLocationEnum location)
{
    cursor_->SetLocation(location);
}

void Recordset::Open(std::string_view source, const Connection& active, CursorTypeEnum cursor, LockTypeEnum lock,
                     std::int32_t options)
{
    if (cursor_->IsOpen()) RaiseAdo(kErrObjectOpen);
    if (active.State() != adStateOpen) RaiseAdo(kErrConnectionInvalid);
    cursor_->Open(source, active.core_, cursor, lock, options, active.CommandTimeout(), nullptr);
}

void Recordset::Close()
{
    cursor_->Close();
}

std::int32_t Recordset::State() const
{
    return cursor_->IsOpen() ? adStateOpen : adStateClosed;
}

const std::string& Recordset::Source() const
{
    return cursor_->Source();
}

Connection Recordset::ActiveConnection() const
{
    return cursor_->ActiveConnection() ? Connection(cursor_->ActiveConnection()) : Connection();
}

void Recordset::Requery()
{
    cursor_->Requery();
}

bool Recordset::Bof() const
{
    return cursor_->Bof();
}

bool Recordset::Eof() const
{
    return cursor_->Eof();
}

void Recordset::MoveNext()
{
    cursor_->MoveNext();
}

void Recordset::MovePrevious()
{
    cursor_->MovePrevious();
}

void Recordset::MoveFirst()
{
    cursor_->MoveFirst();
}

void Recordset::MoveLast()
{
    cursor_->MoveLast();
}

void Recordset::Move(std::int64_t rows, const basic::Variant& start)
{
    cursor_->Move(rows, start);
}

std::int64_t Recordset::AbsolutePosition() const
{
    return cursor_->AbsolutePosition();
}

void Recordset::SetAbsolutePosition(std::int64_t position)
{
    cursor_->SetAbsolutePosition(position);
}

basic::Variant Recordset::Bookmark() const
{
    return cursor_->Bookmark();
}

void Recordset::SetBookmark(const basic::Variant& bookmark)
{
    cursor_->SetBookmark(bookmark);
}

std::int64_t Recordset::RecordCount() const
{
    return cursor_->RecordCount();
}

std::int64_t Recordset::RowsHere() const
{
    return cursor_->RowsHere();
}

bool Recordset::FetchMore(std::size_t rows)
{
    return cursor_->FetchMore(rows);
}

void Recordset::Find(std::string_view criteria, std::int64_t skip, SearchDirectionEnum direction,
                     const basic::Variant& start)
{
    cursor_->Find(criteria, skip, direction, start);
}

Recordset Recordset::Clone() const
{
    return Recordset(cursor_->Clone());
}

EditModeEnum Recordset::EditMode() const
{
    return cursor_->EditMode();
}

void Recordset::AddNew()
{
    cursor_->AddNew();
}

void Recordset::Update()
{
    cursor_->Update();
}

void Recordset::CancelUpdate()
{
    cursor_->CancelUpdate();
}

RowBlock Recordset::GetRows(std::int64_t rows)
{
    return cursor_->GetRows(rows);
}

ado::Fields Recordset::Fields() const
{
    return ado::Fields(cursor_);
}

std::uint64_t Recordset::AddMoveComplete(std::function<void()> handler)
{
    return cursor_->AddMoveComplete(std::move(handler));
}

void Recordset::RemoveMoveComplete(std::uint64_t id)
{
    cursor_->RemoveMoveComplete(id);
}

} // namespace kvx::ado
