#pragma once

#include "session/KvxVar.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The six-level key of a stand and the SQL that is written around it.
namespace kvx {

constexpr std::size_t kStandLevels = 6;
/// The levels WO1 to WO6; an empty text = level not in use, and that is NULL in the database.
using StandKey = std::array<std::string, kStandLevels>;

/// What stands between the levels in the key of a tree node: "K", CR LF, WO1, CR LF, WO2 ...
constexpr std::string_view kLevelSeparator = "\r\n";

/// "WO1" to "WO6". @param level from 1
std::string LevelColumn(std::size_t level);

/// The levels in the key of a tree node, without its first part; none for the root.
std::vector<std::string> LevelsOfNodeKey(std::string_view nodeKey);

/// Stands that a level may see: its own and the common ones, for a WHERE clause. Level 0 sees the common ones only.
std::string AccessCondition(const KvxVar& kvxvar, std::int32_t ID_AL);

/// ISNULL(column,0) or NVL(column,0), as the database's dialect wants it.
std::string ZeroIfNull(const KvxVar& kvxvar, std::string_view column);
/// "SELECT ", on Oracle with the hint that the first rows are wanted fast.
std::string_view SelectStart(const KvxVar& kvxvar);

/// "WO1 = 'Nord'". Quotes in the value stay as they are: the provider refuses the statement.
std::string LevelEquals(std::size_t level, std::string_view value);
/// " AND WO2 = '3'", or " AND WO2 IS NULL" for a level that is not in use.
std::string AndLevel(std::size_t level, std::string_view value);
/// The same for the levels from one to another. @param last  included
std::string AndLevels(const StandKey& key, std::size_t first, std::size_t last = kStandLevels);
/// The id as SQL; 0 stands for none and is NULL.
std::string IdOrNull(std::int32_t id);

/// Makes an empty row in WALDORT; only the database's own procedure gives keys.
/// @return its ID_WALDORT
/// @throws basic::Error the provider's
std::int32_t InsertStand(const KvxVar& kvxvar);

/// First column of the first row as a number; 0 = no row, or NULL.
/// @throws basic::Error the provider's
std::int32_t SelectId(const KvxVar& kvxvar, std::string_view statement);

/// Whether the statement gives a row at all.
/// @throws basic::Error the provider's
bool HasRow(const KvxVar& kvxvar, std::string_view statement);

/// The key as users see it: "Nord/ 3/ a: Am Bach".
/// @param name long name; empty = left out with its colon
std::string PutWaldortStr(const StandKey& key, std::string_view name);

/// Looks up one stand by its full key; shows nothing.
/// @param kvxvar    session record; the text is SQL Server's on Oracle too, and Oracle rejects it
/// @param ID_AL     access level searched for, 0 = common stands only; by reference, left unchanged
/// @param key       levels, compared untrimmed; a blank level means "not in use" (IS NULL)
/// @return WALDORT.ID_WALDORT; 0 = no such stand; -1 = all six texts empty, and then nothing was asked
/// @throws basic::Error the provider's, e.g. 80040E14 for an apostrophe in a level
std::int32_t Waldort_ID(const KvxVar& kvxvar, const std::int32_t& ID_AL, const StandKey& key);

}  // namespace kvx
