#pragma once

#include "basic/Variant.h"
#include "session/KvxVar.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// Pieces of statements. The texts keep to what SQL Server, Oracle and the embedded engine read alike.
namespace kvx::loc {

/// The text between single quotes, those inside doubled.
std::string Quoted(std::string_view text);

/// A number with a decimal point, all digits written out; NULL for Null, Empty and blank text.
/// @throws basic::Error 13: a text that is no number
std::string NumberOrNull(const basic::Variant& value);

/// "3,7,12"
std::string IdList(std::span<const std::int32_t> ids);

/// Letters, digits and underscores, not empty: may stand in a statement as a name.
bool IsSqlName(std::string_view text);

/// First row's first column; Empty when there is no row.
basic::Variant FirstValue(const KvxVar& kvxvar, std::string_view select);

/// Runs the update, and the insert when the update met no row: so a setting is made or changed without asking first.
void UpdateOrInsert(const KvxVar& kvxvar, std::string_view update, std::string_view insert);

} // namespace kvx::loc
