#include "ado/Connection.h"

#include "ado/ConnectionCore.h"
#include "ado/Cursor.h"
#include "ado/Errors.h"

#include <utility>

namespace kvx::ado {

Connection::Connection() : core_(std::make_shared<ConnectionCore>()) {}

std::string Connection::ConnectionString() const
{
    return core_->ConnectionString();
}

void Connection::SetConnectionString(std::string_view text)
{
    core_->SetConnectionString(text);
}

std::int32_t Connection::CommandTimeout() const
{
    return core_->commandTimeout;
}

void Connection::SetCommandTimeout(std::int32_t seconds)
{
    if (seconds < 0) RaiseAdo(kErrWrongArgument, "ADODB.Connection");
    core_->commandTimeout = seconds;
}

CursorLocationEnum Connection::CursorLocation() const
{
    return core_->cursorLocation;
}

void Connection::SetCursorLocation(CursorLocationEnum location)
{
    if (location != adUseServer && location != adUseClient) RaiseAdo(kErrWrongArgument, "ADODB.Connection");
    core_->cursorLocation = location;
}

void Connection::Open(std::string_view connectionString)
{
    if (!connectionString.empty()) core_->SetConnectionString(connectionString);
    core_->Open();
}

void Connection::Close()
{
    core_->Close();
}

std::int32_t Connection::State() const
{
    return core_->IsOpen() ? adStateOpen : adStateClosed;
}

Recordset Connection::Execute(std::string_view text, std::int64_t* recordsAffected, std::int32_t options) const
{
    return Execute(text, recordsAffected, options, core_->commandTimeout);
}

Recordset Connection::Execute(std::string_view text, std::int64_t* recordsAffected, std::int32_t options,
                              std::int32_t timeoutSeconds) const
{
    if (!core_->IsOpen()) RaiseAdo(kErrObjectClosed, "ADODB.Connection");
    auto cursor = std::make_shared<Cursor>();
    cursor->Open(text, core_, adOpenForwardOnly, adLockReadOnly, options, timeoutSeconds, recordsAffected);
    return Recordset(std::move(cursor));
}

void Connection::AddStatementObserver(std::shared_ptr<StatementObserver> observer)
{
    core_->observers.push_back(std::move(observer));
}

void Connection::RemoveStatementObserver(const StatementObserver* observer)
{
    std::erase_if(core_->observers, [&](const auto& known) { return known.get() == observer; });
}

std::uint64_t Connection::Id() const
{
    return core_->id;
}

} // namespace kvx::ado
