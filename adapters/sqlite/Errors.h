#pragma once

#include "basic/Error.h"

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;

namespace kvx::adapters::sqlite {

/// What errors of this provider call themselves.
inline constexpr std::string_view kSource = "Korvex.SQLite";

basic::Error MakeError(std::int32_t number, std::string description);

/// The engine's last failure as the provider's number and text. Checks that the schema translation names KVX_TYPE,
/// KVX_RANGE and KVX_LENGTH tell a refused value from a refused row.
/// @param result  what the failed call returned
basic::Error MakeError(sqlite3* database, int result);

/// @throws basic::Error when result is a failure
void Check(sqlite3* database, int result);

}  // namespace kvx::adapters::sqlite
