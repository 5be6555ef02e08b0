#pragma once

#include "ado/Connection.h"
#include "session/KvxVar.h"

#include <cstdint>
#include <string>
#include <string_view>

// Where-used checks: does anything in the database still refer to a record? Every check scans to its end, so that the
// user sees all hits at once in F_MessageBox; the caller only learns whether the record is free. The statements are the
// same on every server.
namespace kvx {

// Each returns true = free. In use: the list has been shown, closed and released.
// @throws basic::Error the provider's; F_MessageBox then stays loaded until its next use

/// A forest office or its kin. @param intReltable_dll relation level: scans LOGS.RELTABLE<level>; 0 and below: LOGS is
/// not looked at
bool CheckForstamtUsage(std::int32_t intReltableId_dll, std::int32_t intReltable_dll, const KvxVar& kvxvar);
/// A person or firm. @param intStMandanten the client owner, who may never go
bool CheckPersonalUsage(const KvxVar& kvxvar, std::int32_t intId, std::int32_t intStMandanten);
/// A person's role. @param column party column of LOGS_RECH; @param intKey 1: invoice party (intId), 2: supplier
/// (KundeID), any other: always free
bool CheckPersonUsage(const KvxVar& kvxvar, std::int32_t intId, std::string_view column, std::uint8_t intKey,
                      std::int32_t KundeID);
/// A goods article.
bool CheckArtikelUsage(std::int32_t intId, const KvxVar& kvxvar);
/// A code of a cost table, whoever it belongs to. @param strLabel prompt above the lines; @param table code table;
/// @param table_name list inside it, empty: always free
bool CheckBBFTablesUsage(std::string_view strLabel, std::string_view table, std::string_view table_name,
                         const KvxVar& kvxvar);
/// The scans of a code; adds their lines to the loaded list and shows nothing.
/// @param idPersonal above 0: only what belongs to this owner counts
bool CheckBBFUsage(std::string_view table, std::string_view table_name, const KvxVar& kvxvar, std::int32_t idPersonal);
/// Statement of the caller's own, whose first column names the rows that use the record.
/// @param intName text id over those names; @param intPrompt text id of what is to be deleted
/// @return text of true when no row came, in the machine's language
std::string CheckTableUsage(std::string_view strSQL, std::int32_t intName, std::int32_t intPrompt,
                            const KvxVar& kvxvar);

/// WARENKATALOG.BEZEICH1 of an article, empty when there is none.
std::string GetArtikelName(std::int32_t ID, const ado::Connection& dbAdo_dll);
/// Column of a scanned table that holds codes of a cost table; empty when the pair is not known.
std::string GetBBFKeyColumn(std::string_view scanned, std::string_view code);

/// Text 202 + " '" + name + "' " + text 203 and the like: the prompt over the where-used lines.
std::string UsagePrompt(std::int32_t firstText, std::string_view separatorAndName, const KvxVar& kvxvar);

}  // namespace kvx
