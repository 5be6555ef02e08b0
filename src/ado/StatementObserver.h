#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace kvx::ado {

/// What became of one statement. Never changed after it was handed out.
struct StatementRecord {
    std::string text; ///< as the caller gave it; a row written by a recordset is shown as INSERT or UPDATE
    std::uint64_t connectionId = 0;    ///< tells connections apart; never used twice in a process
    bool rowWrite = false;             ///< written by Recordset.Update, not by a statement of the caller
    bool sent = false;                 ///< false: an observer stopped it before it reached the engine
    bool succeeded = false;            ///< false: the two error fields tell why
    std::int32_t errorNumber = 0;      ///< the provider's or ADO's number
    std::string errorDescription = {}; ///< the provider's own text
    std::int64_t recordsAffected = 0;  ///< rows touched; -1 for a statement that returns rows
};

/// Sees every statement of a connection, or of all connections of the process. Serves the trace and the tests.
class StatementObserver {
public:
    virtual ~StatementObserver() = default;

    /// Called before the text is sent. @throws basic::Error to let the statement fail; it is then not sent
    virtual void BeforeExecute(std::string_view text) { static_cast<void>(text); }

    /// Called when the statement has run or failed. Rows of a streamed SELECT are read later.
    virtual void AfterExecute(const StatementRecord& record) { static_cast<void>(record); }
};

/// Adds an observer of every connection of the process, of those opened later too (a data control opens its own).
void AddProcessObserver(std::shared_ptr<StatementObserver> observer);

/// Takes it away again; one that is not there is ignored.
void RemoveProcessObserver(const StatementObserver* observer);

} // namespace kvx::ado
