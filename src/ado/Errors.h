#pragma once

#include <cstdint>
#include <string_view>

namespace kvx::ado {

/// Raises one of ADO's own errors with its usual description.
/// @param source  "ADODB.Recordset", "ADODB.Connection" ...
/// @throws basic::Error always
[[noreturn]] void RaiseAdo(std::int32_t number, std::string_view source = "ADODB.Recordset");

/// The same with a description that says more. @throws basic::Error always
[[noreturn]] void RaiseAdo(std::int32_t number, std::string_view source, std::string_view description);

} // namespace kvx::ado
