#pragma once

#include "adapters/sqlite/Schema.h"
#include "adapters/sqlite/Shape.h"
#include "adapters/sqlite/Translate.h"
#include "ado/Driver.h"

#include <vector>

struct sqlite3_stmt;

namespace kvx::adapters::sqlite {

/// The columns as SQL Server's provider would describe them: types of expressions told from the text, base table and
/// column for plain columns only, no name for an expression without alias, row keys last.
std::vector<ado::ColumnInfo> Describe(sqlite3_stmt* prepared, const Shaper& shaper, const Statement& statement,
                                      const Translation& translation, Schema& schema);

/// The same from what SQLite knows alone; for statements whose text says nothing.
std::vector<ado::ColumnInfo> DescribeByEngine(sqlite3_stmt* prepared, Schema& schema);

}  // namespace kvx::adapters::sqlite
