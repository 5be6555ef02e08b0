#include "checks/M_Message.h"

#include "ado/Recordset.h"
#include "basic/Convert.h"
#include "basic/Text.h"
#include "checks/F_MessageBox.h"
#include "session/SiblingClasses.h"

#include <array>
#include <initializer_list>

namespace kvx {

namespace {

std::string GetText(std::int32_t id, const KvxVar& kvxvar)
{
    return Siblings().NewLoc()->GetText(id, kvxvar);
}

std::string AsText(const ado::Field& field)
{
    return Siblings().NewDBHelper()->FieldToString(field.Value(), false, false);
}

void AddLine(std::string_view line)
{
    LoadMessageBox()->List1.AddItem(line);
}

// Reads one column, merging runs of equal values into one line each.
bool ScanColumn(const std::string& statement, std::int32_t labelText, const KvxVar& kvxvar)
{
    ado::Recordset recordset;
    recordset.Open(statement, kvxvar.dbAdo);
    const bool bolFound = !recordset.Eof();
    if (!bolFound) return true;

    const std::string label = GetText(labelText, kvxvar) + ": ";
    std::string strLast;
    for (; !recordset.Eof(); recordset.MoveNext()) {
        const std::string value = AsText(recordset[0]);
        if (strLast.empty()) strLast = value;
        if (value == strLast) continue;
        AddLine(label + strLast);
        strLast = value;
    }
    AddLine(label + strLast);
    return false;
}

bool CheckLogsReltable(std::int32_t level, std::int32_t id, const KvxVar& kvxvar)
{
    return ScanColumn("SELECT LISTE FROM LOGS WHERE RELTABLE" + std::to_string(level) + " = " + std::to_string(id) +
                          " GROUP BY LISTE ",
                      726, kvxvar);
}

bool CheckAuftragForstamt(std::int32_t id, const KvxVar& kvxvar)
{
    return ScanColumn(
        "SELECT NAME FROM ARBEITSAUFTRAG_KOPF WHERE FORSTAMT = " + std::to_string(id) + " GROUP BY NAME ", 1178,
        kvxvar);
}

bool CheckLogsRechColumn(std::string_view column, std::int32_t id, const KvxVar& kvxvar)
{
    const std::string col(column);
    return ScanColumn("SELECT LOGS.LISTE, " + col +
                          " FROM LOGS INNER JOIN LOGS_RECH ON LOGS.ID_LOG = LOGS_RECH.ID_LOG  WHERE  " + col + " = " +
                          std::to_string(id) + " AND " + col + " <> 0 GROUP BY LOGS.LISTE, " + col,
                      726, kvxvar);
}

bool CheckVertraege(std::int32_t id, const KvxVar& kvxvar)
{
    return ScanColumn("SELECT VERTRAG_NAME FROM VERTRAEGE WHERE ID_PERSONAL = " + std::to_string(id), 1528, kvxvar);
}

// Roles of a list in LOGS. A list is found by the id in any role, and then every filled party column marks its role,
// also those of other parties: the lines tell which roles the list has, not which the person has.
class ListRoles {
public:
    explicit ListRoles(const KvxVar& kvxvar) : kvxvar_(kvxvar) {}

    void Clear() { strRoles_ = {}; }

    void Set(const basic::Variant& value, std::size_t index)
    {
        if (!strRoles_[index].empty()) return;
        if (Siblings().NewDBHelper()->FieldToNumber(value) > 0) strRoles_[index] = GetText(kRoleTexts[index], kvxvar_);
    }

    std::string Join() const
    {
        std::string joined;
        for (const std::string& role : strRoles_) joined += role;
        return joined;
    }

    void AddLines(std::string_view list) const
    {
        if (Join().empty()) return;
        AddLine(GetText(726, kvxvar_) + ": " + std::string(list));
        for (const std::string& role : strRoles_)
            if (!role.empty()) AddLine("  " + GetText(1124, kvxvar_) + ": " + role);
    }

    // MANDANTEN_ID, R_KUNDE, A1_KUNDE to A8_KUNDE.
    static constexpr std::array<std::int32_t, 10> kRoleTexts{100, 460, 3074, 3075, 3076, 3077, 3078, 3079, 3080, 3081};

private:
    const KvxVar& kvxvar_;
    std::array<std::string, 10> strRoles_;
};

std::string RolesStatement(std::int32_t intId)
{
    const std::string id = std::to_string(intId);
    std::string statement = "SELECT LOGS.LISTE, LOGS.MANDANTEN_ID, LOGS_RECH.R_KUNDE";
    for (int i = 1; i <= 8; ++i) statement += ", LOGS_RECH.A" + std::to_string(i) + "_KUNDE";
    statement += " FROM LOGS, LOGS_RECH WHERE LOGS.ID_LOG = LOGS_RECH.ID_LOG AND ( LOGS.MANDANTEN_ID = " + id +
                 " OR LOGS_RECH.R_KUNDE = " + id;
    for (int i = 1; i <= 8; ++i) statement += " OR LOGS_RECH.A" + std::to_string(i) + "_KUNDE = " + id;
    return statement + ") ORDER BY LOGS.LISTE";
}

bool CheckLogsRoles(std::int32_t id, const KvxVar& kvxvar)
{
    ListRoles roles(kvxvar);
    ado::Recordset recordset;
    recordset.Open(RolesStatement(id), kvxvar.dbAdo);
    const bool bolFound = !recordset.Eof();
    std::string strLast;
    for (; !recordset.Eof(); recordset.MoveNext()) {
        const std::string list = AsText(recordset[0]);
        if (strLast.empty()) strLast = list;
        if (list != strLast) {
            roles.AddLines(strLast);
            roles.Clear();
            strLast = list;
        }
        for (std::size_t i = 0; i < ListRoles::kRoleTexts.size(); ++i) roles.Set(recordset[i + 1].Value(), i);
    }
    if (bolFound) roles.AddLines(strLast);
    return !bolFound;
}

struct VerTypeName {
    std::string_view type;
    std::int32_t text;
};
constexpr VerTypeName kVerTypes[] = {
    {"A1", 646}, {"A2", 649}, {"A3", 652}, {"A4", 655}, {"A5", 629}, {"A6", 632}, {"A7", 635}, {"A8", 638},
};

std::string GetVerTypeLabel(std::string_view strVerType, const KvxVar& kvxvar)
{
    const std::string type = basic::UCase(strVerType);
    for (const VerTypeName& row : kVerTypes)
        if (row.type == type) return basic::Trim(GetText(row.text, kvxvar));
    return GetText(164, kvxvar);
}

// Later-invoice positions and advance payments: two lines a row, the kind of sale with its name and what it is there.
bool ScanSales(const std::string& statement, std::int32_t secondLineText, const KvxVar& kvxvar)
{
    ado::Recordset recordset;
    recordset.Open(statement, kvxvar.dbAdo, ado::adOpenForwardOnly, ado::adLockReadOnly);
    const bool bolFree = recordset.Eof();
    for (; !recordset.Eof(); recordset.MoveNext()) {
        AddLine(GetVerTypeLabel(basic::ToText(recordset[1].Value()), kvxvar) + ": " +
                basic::ToText(recordset[0].Value()));
        AddLine("  " + GetText(secondLineText, kvxvar));
    }
    return bolFree;
}

bool CheckNNKunde(std::int32_t id, const KvxVar& kvxvar)
{
    return ScanSales("SELECT NN_NAME, VER_TYPE FROM NN_POSITIONEN WHERE KUNDE_ID = " + std::to_string(id) +
                         " GROUP BY NN_NAME, VER_TYPE",
                     460, kvxvar);
}

bool CheckAbschlagArtikel(std::int32_t id, const KvxVar& kvxvar)
{
    return ScanSales("SELECT DISTINCT RECH_NAME,VER_TYPE FROM ABSCHLAG WHERE ART_ID = " + std::to_string(id), 1530,
                     kvxvar);
}

bool CheckNNArtikel(std::int32_t id, const KvxVar& kvxvar)
{
    return ScanSales("SELECT NN_NAME,VER_TYPE FROM NN_POSITIONEN WHERE ARTICLE_ID = " + std::to_string(id), 1531,
                     kvxvar);
}

bool CheckWarenkatalogLieferant(std::int32_t id, const KvxVar& kvxvar)
{
    ado::Recordset recordset;
    recordset.Open("SELECT BEZEICH1 FROM WARENKATALOG WHERE LIEFERANT_ID = " + std::to_string(id) +
                       " AND LIEFERANT_ID <> 0",
                   kvxvar.dbAdo);
    const bool bolFree = recordset.Eof();
    for (; !recordset.Eof(); recordset.MoveNext()) {
        AddLine(GetText(565, kvxvar) + " :" + AsText(recordset[0]));
        AddLine("  " + GetText(1124, kvxvar) + ": " + GetText(340, kvxvar));
    }
    return bolFree;
}

// How a scanned table is asked for a cost code, and how its hits are named.
struct CodeScan {
    std::string_view scanned;
    std::string_view select;         // in front of the condition
    std::string_view ofPerson;       // restriction to one owner, in front of the id
    std::string_view ofPersonEnd;    // and behind it
    std::string_view group;          // behind it all
    std::int32_t labelText;
};
// clang-format off
constexpr CodeScan kCodeScans[] = {
    {"ARBEITSAUFTRAG",
     "SELECT NAME FROM ARBEITSAUFTRAG_KOPF LEFT JOIN ARBEITSAUFTRAG ON ARBEITSAUFTRAG_KOPF.ID = ARBEITSAUFTRAG.ARBEITSAUFTRAG_KOPF_ID",
     " AND ARBEITSAUFTRAG_KOPF.PERSONAL_ID = ", "", " GROUP BY NAME", 1178},
    {"ARBEITSAUFTRAG_KOPF", "SELECT AA_NUMMER FROM ARBEITSAUFTRAG_KOPF",
     " AND PERSONAL_ID = ", "", " GROUP BY AA_NUMMER", 1707},
    {"BELEGE", "SELECT NUMMER FROM BELEGE",
     " AND AA_NUMMER IN (SELECT ID FROM ARBEITSAUFTRAG WHERE PERSONAL_ID = ", " )", " GROUP BY NUMMER", 55},
    {"LAGER", "SELECT NUMMER FROM LAGER",
     " AND PERSONAL_ID = ", "", " GROUP BY NUMMER", 1181},
};
// clang-format on

bool CheckBBFTable(std::string_view scanned, std::string_view col, std::int32_t idPersonal, std::string_view table_name,
                   std::string_view table, const KvxVar& kvxvar)
{
    if (col.empty()) return true;
    const std::string wanted = basic::UCase(scanned);
    for (const CodeScan& scan : kCodeScans) {
        if (scan.scanned != wanted) continue;
        std::string statement(scan.select);
        statement.append(" WHERE ").append(col).append(" IN (SELECT ID FROM ").append(table);
        statement.append(" WHERE TABLE_NAME = '").append(table_name).append("' )");
        if (idPersonal > 0)
            statement.append(scan.ofPerson).append(std::to_string(idPersonal)).append(scan.ofPersonEnd);
        statement.append(scan.group);

        ado::Recordset recordset;
        recordset.Open(statement, kvxvar.dbAdo);
        const bool bolFree = recordset.Eof();
        for (; !recordset.Eof(); recordset.MoveNext())
            AddLine(GetText(scan.labelText, kvxvar) + ": " + basic::ToText(recordset[0].Value()));
        return bolFree;
    }
    return true;
}

struct KeyColumn {
    std::string_view scanned, code, column;
    bool ignoreCase = false;
};
// A payment kind lies in HULNR, a payment reason in ZAHLUNGSART and a household number in ZAHLUNGSGRUND: the columns of
// the stored vouchers are shifted by one against their names.
// clang-format off
constexpr KeyColumn kKeyColumns[] = {
    {"ARBEITSAUFTRAG_KOPF", "PRODUKT",       "PRODUKT_ID", true},
    {"ARBEITSAUFTRAG",      "LEISTUNGSART",  "LEISTUNGSART_ID"},
    {"ARBEITSAUFTRAG",      "KOSTENART",     "KOSTENART_ID"},
    {"ARBEITSAUFTRAG",      "KOSTENSTELLE",  "KOSTENSTELLE_ID"},
    {"ARBEITSAUFTRAG",      "OBJEKT",        "OBJEKT_ID"},
    {"ARBEITSAUFTRAG",      "HH_TITEL",      "HAUSHALT_TITEL_ID"},
    {"ARBEITSAUFTRAG",      "HH_KAPITEL",    "HAUSHALT_KAPITEL_ID"},
    {"LAGER",               "HH_TITEL",      "TITEL_ID"},
    {"LAGER",               "HH_KAPITEL",    "KAPITEL_ID"},
    {"LAGER",               "ZUHLUNGSART",   "HULNR"},
    {"LAGER",               "ZUHLUNGSGRUND", "ZAHLUNGSART"},
    {"LAGER",               "HH_HUL",        "ZAHLUNGSGRUND"},
    {"BELEGE",              "HH_TITEL",      "TITEL_ID"},
    {"BELEGE",              "HH_KAPITEL",    "KAPITEL_ID"},
    {"BELEGE",              "ZUHLUNGSART",   "HULNR"},
    {"BELEGE",              "ZUHLUNGSGRUND", "ZAHLUNGSART"},
    {"BELEGE",              "HH_HUL",        "ZAHLUNGSGRUND"},
};
// clang-format on

std::string PersonName(std::int32_t intId, const KvxVar& kvxvar)
{
    return Siblings().NewDBHelper()->LookupText(kvxvar, "KURZBEZEICHNUNG", "PERSONAL",
                                                "PERSONAL.ID_PERSONAL = " + std::to_string(intId));
}

}  // namespace

std::string UsagePrompt(std::int32_t firstText, std::string_view separatorAndName, const KvxVar& kvxvar)
{
    return GetText(firstText, kvxvar) + std::string(separatorAndName) + GetText(203, kvxvar);
}

bool CheckForstamtUsage(std::int32_t intReltableId_dll, std::int32_t intReltable_dll, const KvxVar& kvxvar)
{
    const auto form = LoadMessageBox();
    form->List1.Clear();
    bool bolFree = true;
    if (intReltable_dll > 0) bolFree = CheckLogsReltable(intReltable_dll, intReltableId_dll, kvxvar);
    bolFree = CheckAuftragForstamt(intReltableId_dll, kvxvar) && bolFree;
    if (!bolFree) {
        ado::Recordset recordset;
        recordset.Open("SELECT KURZNAME FROM RELTABLE WHERE ID = " + std::to_string(intReltableId_dll), kvxvar.dbAdo);
        if (!recordset.Eof()) {
            form->Run(F_MessageBox::kWhereUsed, UsagePrompt(1616, " '" + AsText(recordset[0]) + "' ", kvxvar));
        }
    }
    ReleaseMessageBox();
    return bolFree;
}

bool CheckPersonalUsage(const KvxVar& kvxvar, std::int32_t intId, std::int32_t intStMandanten)
{
    const auto form = LoadMessageBox();
    bool bolFree = true;
    if (intId == intStMandanten) {
        AddLine(GetText(3626, kvxvar));
        bolFree = false;
    } else {
        bolFree = CheckLogsRoles(intId, kvxvar);
        bolFree = CheckWarenkatalogLieferant(intId, kvxvar) && bolFree;
        bolFree = CheckNNKunde(intId, kvxvar) && bolFree;
    }
    if (!bolFree) {
        form->Run(F_MessageBox::kWhereUsed, UsagePrompt(202, " '" + PersonName(intId, kvxvar) + "' ", kvxvar));
    }
    ReleaseMessageBox();
    return bolFree;
}

bool CheckPersonUsage(const KvxVar& kvxvar, std::int32_t intId, std::string_view column, std::uint8_t intKey,
                      std::int32_t KundeID)
{
    const auto form = LoadMessageBox();
    form->List1.Clear();
    bool bolFree = true;
    if (intKey == 1) {
        bolFree = CheckLogsRechColumn(column, intId, kvxvar);
        bolFree = CheckVertraege(intId, kvxvar) && bolFree;
    } else if (intKey == 2) {
        bolFree = CheckWarenkatalogLieferant(KundeID, kvxvar);
    }
    if (!bolFree) form->ShowWhereUsed(UsagePrompt(202, " '" + PersonName(intId, kvxvar) + "' ", kvxvar));
    ReleaseMessageBox();
    return bolFree;
}

bool CheckArtikelUsage(std::int32_t intId, const KvxVar& kvxvar)
{
    const auto form = LoadMessageBox();
    bool bolFree = CheckAbschlagArtikel(intId, kvxvar);
    bolFree = CheckNNArtikel(intId, kvxvar) && bolFree;
    if (!bolFree) {
        form->Run(F_MessageBox::kWhereUsed,
                  UsagePrompt(202, " '" + GetArtikelName(intId, kvxvar.dbAdo) + "' ", kvxvar));
    }
    ReleaseMessageBox();
    return bolFree;
}

bool CheckBBFUsage(std::string_view table, std::string_view table_name, const KvxVar& kvxvar, std::int32_t idPersonal)
{
    if (table_name.empty()) return true;
    bool bolFree = true;
    for (std::string_view scanned : {"ARBEITSAUFTRAG", "ARBEITSAUFTRAG_KOPF", "BELEGE", "LAGER"}) {
        const std::string col = GetBBFKeyColumn(scanned, table);
        if (!CheckBBFTable(scanned, col, idPersonal, table_name, table, kvxvar)) bolFree = false;
    }
    return bolFree;
}

std::string CheckTableUsage(std::string_view strSQL, std::int32_t intName, std::int32_t intPrompt, const KvxVar& kvxvar)
{
    const auto form = LoadMessageBox();
    AddLine(GetText(intName, kvxvar) + ":");
    bool bolFree = true;
    {
        ado::Recordset recordset;
        recordset.Open(strSQL, kvxvar.dbAdo);
        for (; !recordset.Eof(); recordset.MoveNext()) {
            bolFree = false;
            AddLine(" " + AsText(recordset[0]));
        }
    }
    if (!bolFree) {
        form->Run(F_MessageBox::kWhereUsed, UsagePrompt(202, " " + GetText(intPrompt, kvxvar) + " ", kvxvar));
    }
    ReleaseMessageBox();
    return basic::BooleanText(bolFree);
}

std::string GetArtikelName(std::int32_t ID, const ado::Connection& dbAdo_dll)
{
    ado::Recordset recordset;
    recordset.Open("SELECT BEZEICH1 FROM WARENKATALOG WHERE ART_ID = " + std::to_string(ID), dbAdo_dll);
    return recordset.Eof() ? std::string() : basic::ToText(recordset[0].Value());
}

std::string GetBBFKeyColumn(std::string_view scanned, std::string_view code)
{
    const std::string table = basic::UCase(scanned);
    for (const KeyColumn& row : kKeyColumns)
        if (row.scanned == table && (row.ignoreCase ? basic::UCase(code) == row.code : code == row.code))
            return std::string(row.column);
    return {};
}

}  // namespace kvx
