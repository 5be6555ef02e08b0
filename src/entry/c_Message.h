#pragma once

#include "ado/Connection.h"
#include "basic/Object.h"
#include "session/KvxVar.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace kvx {

/// The host's door to the list message box and to the where-used checks.
class c_Message {
public:
    /// Picks a value of a combo box in a list that is taller than the combo. Empty entries are not offered.
    /// @param strLabel  prompt above the list
    /// @param Parameter the current value: selected in the list, and the result on Cancel
    /// @param cmbBox    the host's combo box
    /// @return the line picked, empty when none was; Parameter on Cancel, Esc and the close box
    std::string MessageBoxCmb(std::string_view strLabel, std::string_view Parameter, const basic::ObjectRef& cmbBox);

    // A message that the host builds line by line: Clear, AddItem as often as needed, Show.
    void MessageBox_Clear();
    void MessageBox_AddItem(std::string_view s);
    std::int16_t MessageBox_ItemCount();
    /// Shows the lines; the list is empty afterwards.
    void MessageBox_Show(std::string_view strCaption);

    /// Shows a text file line by line. Line ends may be CR LF, CR or LF; the text UTF-8 or Windows-1252.
    /// @throws basic::Error 53: no such file; 76: no such folder; 75: it cannot be read
    void MessageBoxNL(std::string_view strLabel, std::string_view strFileName);

    // Where-used checks. Each scans to its end and shows every hit in the list message box before it returns; the host
    // learns only whether the record is free. The statements are the same on every server.
    // @return nonzero = free; 0 = in use, and the user has seen where
    // @throws basic::Error the provider's; the list message box then stays loaded until its next use

    /// A code of a cost table in work orders, their heads, vouchers and the store (ARBEITSAUFTRAG, ARBEITSAUFTRAG_KOPF,
    /// BELEGE, LAGER).
    /// @param strLabel    prompt above the lines
    /// @param table       code table: PRODUKT, LEISTUNGSART, KOSTENART ...
    /// @param table_name  list inside the code table; empty: free, and nothing is asked
    /// @param idPersonal  accepted and not used: all owners' rows count
    std::int16_t CheckBBFTables(std::string_view strLabel, std::string_view table, std::string_view table_name,
                                const KvxVar& kvxvar, std::int32_t idPersonal = 0);
    /// A forest office or its kin in LOGS and ARBEITSAUFTRAG_KOPF.
    /// @param intReltableId_dll  RELTABLE.ID; without such a row a hit is answered, but not shown
    /// @param intReltable_dll    relation level, the number behind LOGS.RELTABLE; 0 and below: LOGS does not count
    std::int16_t CheckForstamt(std::int32_t intReltableId_dll, std::int32_t intReltable_dll, const KvxVar& kvxvar);
    /// A person or firm: the roles of the lists (LOGS, LOGS_RECH), supplier (WARENKATALOG), later-invoice positions
    /// (NN_POSITIONEN).
    /// @param intId           PERSONAL.ID_PERSONAL
    /// @param intStMandanten  the client owner: never free, and nothing is scanned
    std::int16_t CheckPersonal(const KvxVar& kvxvar, std::int32_t intId, std::int32_t intStMandanten);
    /// A person's role.
    /// @param intId    PERSONAL.ID_PERSONAL
    /// @param column   party column of LOGS_RECH
    /// @param intKey   1: invoice party and contracts of intId; 2: supplier KundeID; any other: free, nothing is asked
    /// @param KundeID  supplier; the prompt names intId all the same
    std::int16_t CheckPerson(const KvxVar& kvxvar, std::int32_t intId, std::string_view column, std::uint8_t intKey,
                             std::int32_t KundeID);
    /// A goods article in advance payments (ABSCHLAG) and later-invoice positions (NN_POSITIONEN).
    /// @param intId  WARENKATALOG.ART_ID
    std::int16_t CheckArtikelWaren(std::int32_t intId, const KvxVar& kvxvar);
    /// Name of a goods article; shows nothing.
    /// @return WARENKATALOG.BEZEICH1, empty when there is no such article
    std::string GetArtikelNameWaren(std::int32_t ID, const ado::Connection& dbAdo_dll);
    /// Any record, by a statement of the host's in the dialect of its server.
    /// @param strSQL     its first column names the rows that use the record
    /// @param intName    text id over those names
    /// @param intPrompt  text id of what is to be deleted
    /// @return the machine's word for true ("Wahr", "True") when no row came, else its word for false
    std::string CheckTableToDel(std::string_view strSQL, std::int32_t intName, std::int32_t intPrompt,
                                const KvxVar& kvxvar);
};

}  // namespace kvx
