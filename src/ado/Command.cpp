#include "ado/Command.h"

#include "ado/Errors.h"

namespace kvx::ado {

Recordset Command::Execute(std::int64_t* recordsAffected) const
{
    if (ActiveConnection.State() != adStateOpen) RaiseAdo(kErrConnectionInvalid, "ADODB.Command");
    return ActiveConnection.Execute(CommandText, recordsAffected, CommandType, CommandTimeout);
}

} // namespace kvx::ado
