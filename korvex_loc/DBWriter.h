#pragma once

#include "session/SiblingClasses.h"

namespace kvx::loc {

/// Writes options, composes the statements of the named set-ups and sizes list views.
class DBWriter final : public c_DBWriter {
public:
    /// @param value  blank or Null is stored as NULL. @throws basic::Error 13: a text that is no number
    void PutOptionNumber(const KvxVar& kvxvar, std::string_view key, const basic::Variant& value) override;
    /// @param value        empty or Null: the default text is stored
    /// @param defaultText  empty as well: NULL is stored
    void PutOptionText(const KvxVar& kvxvar, std::string_view key, const basic::Variant& value,
                       std::string_view defaultText) override;

    /// The statement behind a picker ("..._GRID": key, long name, and the id of order numbers) or behind the check of a
    /// typed key ("..._VALID": key, LONG, ID). The argument's parts stand between tabs:
    /// - BB_JAGDBEZIRKE_GRID: first year of the hunting year or nothing, id of the user
    /// - OBJEKTGRUPPE_GRID: condition; OBJEKTGRUPPE_TAB_GRID: nothing
    /// - OBJEKTE_GRID: id of the group, condition (it names the group already)
    /// - AUFTRAGSNUMMER_GRID: condition; AUFTRAGSNUMMER_VALID: typed key, condition
    /// - the other ..._VALID: as their ..._GRID, then the typed key
    /// @throws basic::Error 5: no such set-up
    std::string GridSetup(const KvxVar& kvxvar, std::string_view name, std::string_view argument) override;

    /// @param level  id of an access level as text; empty, "0" or no number: "IS NULL"
    /// @param flag,flagText  carried for callers' sake, change nothing
    std::string AccessLevelList(const KvxVar& kvxvar, std::string_view level, std::int32_t flag,
                                std::string_view flagText) override;

    /// Each column as wide as its longest text or its heading, within 600 and 6000 twips; hidden ones (width 0) stay.
    void ListViewAutoSize(const KvxVar& kvxvar, ui::ListView& listView) override;
};

} // namespace kvx::loc
