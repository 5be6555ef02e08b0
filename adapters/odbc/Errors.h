#pragma once

#include "basic/Error.h"

#include <cstdint>
#include <sql.h>
#include <string>
#include <string_view>

namespace kvx::adapters::odbc {

/// What errors of this provider call themselves.
inline constexpr std::string_view kSource = "Korvex.ODBC";

/// Engines whose own error numbers and catalogue are known; any other is asked in ODBC's general terms.
enum class Engine : std::uint8_t { Other, SqlServer, Oracle, MariaDb, HyperSql };

/// What ODBC tells about a failure.
struct Diagnosis {
    std::string state;        ///< SQLSTATE, five characters
    std::int32_t native = 0;  ///< the engine's own number
    std::string message;      ///< without the names of drivers in brackets in front
};

/// The first record of a handle that is no mere warning. @param type  SQL_HANDLE_DBC ...
Diagnosis Diagnose(SQLSMALLINT type, SQLHANDLE handle);

/// The provider's number for a failure: by the engine's own number where that says more than the state.
std::int32_t NumberOf(Engine engine, const Diagnosis& diagnosis);

basic::Error MakeError(std::int32_t number, std::string description);
basic::Error MakeError(Engine engine, const Diagnosis& diagnosis);

/// True when the connection did not survive the failure.
bool IsLost(Engine engine, const Diagnosis& diagnosis);

}  // namespace kvx::adapters::odbc
