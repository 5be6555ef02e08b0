#pragma once

#include <ctime>
#include <functional>
#include <string_view>

struct sqlite3;

// SQL functions that T-SQL texts call and SQLite does not have, or has otherwise.
namespace kvx::adapters::sqlite {

/// Where GETDATE() takes the time from; nothing = the system's clock. For tests that move the clock.
void SetClock(std::function<std::time_t()> clock);

/// LIKE: % and _, sets in square brackets, case ignored in every script, accents not. Blanks at the end count.
/// @param escape  a character of the pattern after which the next stands for itself; empty = none
bool LikeMatches(std::string_view text, std::string_view pattern, std::string_view escape = {});

/// Registers like, getdate, kvx_left, kvx_right, kvx_date, kvx_isdate, len, upper, lower, charindex, year, month, day
/// and object_id.
void RegisterFunctions(sqlite3* database);

}  // namespace kvx::adapters::sqlite
