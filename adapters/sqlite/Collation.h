#pragma once

#include <string_view>

struct sqlite3;

// How texts and dates compare: as a German SQL Server database that ignores case does.
namespace kvx::adapters::sqlite {

/// Collation KVX: trailing blanks do not count, case does not, accents do; umlauts sort behind their vowel.
/// @return negative, 0, positive
int CompareText(std::string_view a, std::string_view b);

/// The same without the short cut for plain ASCII texts; tests hold both against each other.
int CompareTextByCollator(std::string_view a, std::string_view b);

/// Collation KVX_DATE: days in any of the spellings that ParseDate knows, by time; what is no date comes behind all
/// dates.
int CompareDates(std::string_view a, std::string_view b);

/// Registers KVX and KVX_DATE. Plain readers of the file (benchmarks, tests) need them too.
void RegisterCollations(sqlite3* database);

}  // namespace kvx::adapters::sqlite
