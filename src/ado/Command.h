#pragma once

#include "ado/Connection.h"

#include <cstdint>
#include <string>

namespace kvx::ado {

/// A statement or the name of a stored procedure, to be run on a connection.
class Command {
public:
    Connection ActiveConnection;
    std::string CommandText;
    CommandTypeEnum CommandType = adCmdUnknown; ///< adCmdStoredProc: CommandText names a procedure
    std::int32_t CommandTimeout = 30;           ///< seconds; does not take over the connection's

    /// Runs it. @return the first result; closed when the first statement returns no rows
    /// @throws basic::Error 3709: no open connection; otherwise as Connection.Execute
    Recordset Execute(std::int64_t* recordsAffected = nullptr) const;
};

} // namespace kvx::ado
