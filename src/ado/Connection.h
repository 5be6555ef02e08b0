#pragma once

#include "ado/Constants.h"
#include "ado/Recordset.h"
#include "ado/StatementObserver.h"
#include "basic/Variant.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace kvx::ado {

class ConnectionCore;

/// A connection to a database, closed at first. Copies share it; it closes itself when the last copy and the last
/// recordset on it are gone. Without a transaction of the caller every statement commits by itself. Further statements
/// may run while a recordset is still unread, so loops over one connection may be nested.
class Connection {
public:
    Connection();

    /// As set; from Open on without the password, unless the string says Persist Security Info=True.
    std::string ConnectionString() const;
    /// "name=value;..."; Provider= chooses the driver. @throws basic::Error 3705: is open
    void SetConnectionString(std::string_view text);

    std::int32_t CommandTimeout() const; ///< seconds, 30 at first
    void SetCommandTimeout(std::int32_t seconds);
    CursorLocationEnum CursorLocation() const; ///< adUseServer at first; recordsets take it over
    void SetCursorLocation(CursorLocationEnum location);

    /// @param connectionString  empty = the one set before
    /// @throws basic::Error 3705: is open; 3706: no such provider; the driver's
    void Open(std::string_view connectionString = {});
    /// Closes its recordsets too; edits that were not written are lost. @throws basic::Error 3704: is closed
    void Close();
    std::int32_t State() const; ///< adStateOpen or adStateClosed

    /// Runs a text of one or several statements.
    /// @param recordsAffected  by reference: rows touched by the first INSERT, UPDATE or DELETE, 0 when it hit none;
    ///                         -1 for a SELECT; unchanged on an error
    /// @param options          CommandTypeEnum, plus adExecuteNoRecords; -1 = text first, then procedure, then table
    /// @return the first result on its first row, forward-only and read-only (static with client location);
    ///         a closed recordset for a statement without rows
    /// @throws basic::Error the provider's, with the text in Statement; 3704: is closed
    Recordset Execute(std::string_view text, std::int64_t* recordsAffected = nullptr,
                      std::int32_t options = adCmdUnspecified) const;

    /// Watches the statements of this connection. Observers of the process: AddProcessObserver.
    void AddStatementObserver(std::shared_ptr<StatementObserver> observer);
    void RemoveStatementObserver(const StatementObserver* observer);

    std::uint64_t Id() const; ///< as StatementRecord::connectionId

    /// For late binding: "Execute", "ConnectionString", "State", "Open", "Close" ...
    basic::ObjectRef AsObject() const;
    /// The connection behind an object that AsObject made. @throws basic::Error 91: Nothing; 13: another kind of object
    static Connection FromObject(const basic::ObjectRef& object);

    /// True when both are handles of one connection.
    bool operator==(const Connection& other) const { return core_ == other.core_; }

private:
    friend class Recordset;
    friend class Command;
    explicit Connection(std::shared_ptr<ConnectionCore> session) : core_(std::move(session)) {}

    Recordset Execute(std::string_view text, std::int64_t* recordsAffected, std::int32_t options,
                      std::int32_t timeoutSeconds) const;

    std::shared_ptr<ConnectionCore> core_;
};

} // namespace kvx::ado
