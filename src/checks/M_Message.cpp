#include "checks/M_Message.h"

#include "ado/Recordset.h"
#include "basic/Convert.h"
#include "basic/Text.h"
#include "checks/F_MessageBox.h"
#include "session/SiblingClasses.h"

#include <array>
#include <initializer_list>
#include <memory>
#include <optional>

namespace kvx {

namespace {

// What one check works with: the session, its texts (the customer's own wording is read once for all lines) and the
// loaded list.
class Check {
public:
    explicit Check(const KvxVar& session)
        : kvxvar(session), form(LoadMessageBox()), loc_(Siblings().NewLoc()), helper_(Siblings().NewDBHelper())
    {
    }

    std::string Text(std::int32_t id) const { return loc_->GetText(id, kvxvar); }
    std::string AsText(const ado::Field& field) const { return helper_->FieldToString(field.Value(), false, false); }
    double AsNumber(const ado::Field& field) const { return helper_->FieldToNumber(field.Value()); }
    void AddLine(std::string_view line) const { form->List1.AddItem(line); }
    /// Text 202 or the like, what stands between, text 203.
    std::string Prompt(std::int32_t firstText, std::string_view between) const
    {
        return Text(firstText) + std::string(between) + Text(203);
    }

    const KvxVar& kvxvar;
    const std::shared_ptr<F_MessageBox> form;

private:
    std::unique_ptr<c_Loc> loc_;
    std::unique_ptr<c_DBHelper> helper_;
};

// Reads one column, merging runs of equal values into one line each. NULL counts as an empty text.
bool ScanColumn(const Check& check, const std::string& statement, std::int32_t labelText)
{
    ado::Recordset recordset;
    recordset.Open(statement, check.kvxvar.dbAdo);
    if (recordset.Eof()) return true;

    const std::string label = check.Text(labelText) + ": ";
    const ado::Field first = recordset[0];
    std::string strLast;
    for (; !recordset.Eof(); recordset.MoveNext()) {
        const std::string value = check.AsText(first);
        if (strLast.empty()) strLast = value;
        if (value == strLast) continue;
        check.AddLine(label + strLast);
        strLast = value;
    }
    check.AddLine(label + strLast);
    return false;
}

bool CheckLogsReltable(const Check& check, std::int32_t level, std::int32_t id)
{
    return ScanColumn(check,
                      "SELECT LISTE FROM LOGS WHERE RELTABLE" + std::to_string(level) + " = " + std::to_string(id) +
                          " GROUP BY LISTE ",
                      726);
}

bool CheckAuftragForstamt(const Check& check, std::int32_t id)
{
    return ScanColumn(
        check, "SELECT NAME FROM ARBEITSAUFTRAG_KOPF WHERE FORSTAMT = " + std::to_string(id) + " GROUP BY NAME ", 1178);
}

bool CheckLogsRechColumn(const Check& check, std::string_view column, std::int32_t id)
{
    const std::string col(column);
    return ScanColumn(check,
                      "SELECT LOGS.LISTE, " + col +
                          " FROM LOGS INNER JOIN LOGS_RECH ON LOGS.ID_LOG = LOGS_RECH.ID_LOG  WHERE  " + col + " = " +
                          std::to_string(id) + " AND " + col + " <> 0 GROUP BY LOGS.LISTE, " + col,
                      726);
}

bool CheckVertraege(const Check& check, std::int32_t id)
{
    return ScanColumn(check, "SELECT VERTRAG_NAME FROM VERTRAEGE WHERE ID_PERSONAL = " + std::to_string(id), 1528);
}

// Roles of a list in LOGS. A list is found by the id in any role, and then every filled party column marks its role,
// also those of other parties: the lines tell which roles the list has, not which the person has.
class ListRoles {
public:
    explicit ListRoles(const Check& check) : check_(check) {}

    void Clear() { strRoles_ = {}; }

    void Set(const ado::Field& party, std::size_t index)
    {
        if (strRoles_[index].empty() && check_.AsNumber(party) > 0) strRoles_[index] = check_.Text(kRoleTexts[index]);
    }

    std::string Join() const
    {
        std::string joined;
        for (const std::string& role : strRoles_)
            joined += role;
        return joined;
    }

    void AddLines(std::string_view list) const
    {
        if (Join().empty()) return;
        check_.AddLine(check_.Text(726) + ": " + std::string(list));
        for (const std::string& role : strRoles_)
            if (!role.empty()) check_.AddLine("  " + check_.Text(1124) + ": " + role);
    }

    // MANDANTEN_ID, R_KUNDE, A1_KUNDE to A8_KUNDE.
    static constexpr std::array<std::int32_t, 10> kRoleTexts{100, 460, 3074, 3075, 3076, 3077, 3078, 3079, 3080, 3081};

private:
    const Check& check_;
    std::array<std::string, 10> strRoles_;
};

std::string RolesStatement(std::int32_t intId)
{
    const std::string id = std::to_string(intId);
    std::string statement = "SELECT LOGS.LISTE, LOGS.MANDANTEN_ID, LOGS_RECH.R_KUNDE";
    for (int i = 1; i <= 8; ++i)
        statement += ", LOGS_RECH.A" + std::to_string(i) + "_KUNDE";
    statement += " FROM LOGS, LOGS_RECH WHERE LOGS.ID_LOG = LOGS_RECH.ID_LOG AND ( LOGS.MANDANTEN_ID = " + id +
                 " OR LOGS_RECH.R_KUNDE = " + id;
    for (int i = 1; i <= 8; ++i)
        statement += " OR LOGS_RECH.A" + std::to_string(i) + "_KUNDE = " + id;
    return statement + ") ORDER BY LOGS.LISTE";
}

bool CheckLogsRoles(const Check& check, std::int32_t id)
{
    ListRoles roles(check);
    ado::Recordset recordset;
    recordset.Open(RolesStatement(id), check.kvxvar.dbAdo);
    const bool bolFound = !recordset.Eof();
    std::string strLast;
    for (; !recordset.Eof(); recordset.MoveNext()) {
        const std::string list = check.AsText(recordset[0]);
        if (strLast.empty()) strLast = list;
        if (list != strLast) {
            roles.AddLines(strLast);
            roles.Clear();
            strLast = list;
        }
        for (std::size_t i = 0; i < ListRoles::kRoleTexts.size(); ++i)
            roles.Set(recordset[i + 1], i);
    }
    recordset.Close();
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

std::string GetVerTypeLabel(const Check& check, std::string_view strVerType)
{
    const std::string type = basic::UCase(strVerType);
    for (const VerTypeName& row : kVerTypes)
        if (row.type == type) return basic::Trim(check.Text(row.text));
    return check.Text(164);
}

// Later-invoice positions and advance payments: two lines a row, the kind of sale with its name and what it is there.
bool ScanSales(const Check& check, const std::string& statement, std::int32_t secondLineText)
{
    ado::Recordset recordset;
    recordset.Open(statement, check.kvxvar.dbAdo, ado::adOpenForwardOnly, ado::adLockReadOnly);
    const bool bolFree = recordset.Eof();
    for (; !recordset.Eof(); recordset.MoveNext()) {
        check.AddLine(GetVerTypeLabel(check, basic::ToText(recordset[1].Value())) + ": " +
                      basic::ToText(recordset[0].Value()));
        check.AddLine("  " + check.Text(secondLineText));
    }
    return bolFree;
}

bool CheckNNKunde(const Check& check, std::int32_t id)
{
    return ScanSales(check,
                     "SELECT NN_NAME, VER_TYPE FROM NN_POSITIONEN WHERE KUNDE_ID = " + std::to_string(id) +
                         " GROUP BY NN_NAME, VER_TYPE",
                     460);
}

bool CheckAbschlagArtikel(const Check& check, std::int32_t id)
{
    return ScanSales(check, "SELECT DISTINCT RECH_NAME,VER_TYPE FROM ABSCHLAG WHERE ART_ID = " + std::to_string(id),
                     1530);
}

bool CheckNNArtikel(const Check& check, std::int32_t id)
{
    return ScanSales(check, "SELECT NN_NAME,VER_TYPE FROM NN_POSITIONEN WHERE ARTICLE_ID = " + std::to_string(id),
                     1531);
}

bool CheckWarenkatalogLieferant(const Check& check, std::int32_t id)
{
    ado::Recordset recordset;
    recordset.Open("SELECT BEZEICH1 FROM WARENKATALOG WHERE LIEFERANT_ID = " + std::to_string(id) +
                       " AND LIEFERANT_ID <> 0",
                   check.kvxvar.dbAdo);
    const bool bolFree = recordset.Eof();
    for (; !recordset.Eof(); recordset.MoveNext()) {
        check.AddLine(check.Text(565) + " :" + check.AsText(recordset[0]));
        check.AddLine("  " + check.Text(1124) + ": " + check.Text(340));
    }
    return bolFree;
}

// How a scanned table is asked for a cost code, and how its hits are named.
struct CodeScan {
    std::string_view scanned;
    std::string_view select;       // in front of the condition
    std::string_view ofPerson;     // restriction to one owner, in front of the id
    std::string_view ofPersonEnd;  // and behind it
    std::string_view group;        // behind it all
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

bool CheckBBFTable(const Check& check, std::string_view scanned, std::string_view col, std::int32_t idPersonal,
                   std::string_view table_name, std::string_view table)
{
    if (col.empty()) return true;
    const std::string wanted = basic::UCase(scanned);
    for (const CodeScan& scan : kCodeScans) {
        if (scan.scanned != wanted) continue;
        std::string statement(scan.select);
        statement.append(" WHERE ").append(col).append(" IN (SELECT ID FROM ").append(table);
        statement.append(" WHERE TABLE_NAME = '").append(table_name).append("' )");
        if (idPersonal > 0) statement.append(scan.ofPerson).append(std::to_string(idPersonal)).append(scan.ofPersonEnd);
        statement.append(scan.group);

        ado::Recordset recordset;
        recordset.Open(statement, check.kvxvar.dbAdo);
        const bool bolFree = recordset.Eof();
        for (; !recordset.Eof(); recordset.MoveNext())
            check.AddLine(check.Text(scan.labelText) + ": " + basic::ToText(recordset[0].Value()));
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

// @return nothing: the office has no row of its own any more
std::optional<std::string> OfficeName(const Check& check, std::int32_t id)
{
    ado::Recordset recordset;
    recordset.Open("SELECT KURZNAME FROM RELTABLE WHERE ID = " + std::to_string(id), check.kvxvar.dbAdo);
    if (recordset.Eof()) return {};
    return check.AsText(recordset[0]);
}

bool ScanCode(const Check& check, std::string_view table, std::string_view table_name, std::int32_t idPersonal)
{
    if (table_name.empty()) return true;
    bool bolFree = true;
    for (std::string_view scanned : {"ARBEITSAUFTRAG", "ARBEITSAUFTRAG_KOPF", "BELEGE", "LAGER"}) {
        const std::string col = GetBBFKeyColumn(scanned, table);
        if (!CheckBBFTable(check, scanned, col, idPersonal, table_name, table)) bolFree = false;
    }
    return bolFree;
}

}  // namespace

bool CheckForstamtUsage(std::int32_t intReltableId_dll, std::int32_t intReltable_dll, const KvxVar& kvxvar)
{
    const Check check(kvxvar);
    check.form->List1.Clear();
    bool bolFree = true;
    if (intReltable_dll > 0) bolFree = CheckLogsReltable(check, intReltable_dll, intReltableId_dll);
    bolFree = CheckAuftragForstamt(check, intReltableId_dll) && bolFree;
    if (!bolFree) {
        const std::optional<std::string> name = OfficeName(check, intReltableId_dll);
        if (name) check.form->Run(F_MessageBox::kWhereUsed, check.Prompt(1616, " '" + *name + "' "));
    }
    ReleaseMessageBox();
    return bolFree;
}

bool CheckPersonalUsage(const KvxVar& kvxvar, std::int32_t intId, std::int32_t intStMandanten)
{
    const Check check(kvxvar);
    bool bolFree = false;
    if (intId == intStMandanten) {
        check.AddLine(check.Text(3626));
    } else {
        bolFree = CheckLogsRoles(check, intId);
        bolFree = CheckWarenkatalogLieferant(check, intId) && bolFree;
        bolFree = CheckNNKunde(check, intId) && bolFree;
    }
    if (!bolFree) check.form->Run(F_MessageBox::kWhereUsed, check.Prompt(202, " '" + PersonName(intId, kvxvar) + "' "));
    ReleaseMessageBox();
    return bolFree;
}

bool CheckPersonUsage(const KvxVar& kvxvar, std::int32_t intId, std::string_view column, std::uint8_t intKey,
                      std::int32_t KundeID)
{
    const Check check(kvxvar);
    check.form->List1.Clear();
    bool bolFree = true;
    if (intKey == 1) {
        bolFree = CheckLogsRechColumn(check, column, intId);
        bolFree = CheckVertraege(check, intId) && bolFree;
    } else if (intKey == 2) {
        bolFree = CheckWarenkatalogLieferant(check, KundeID);
    }
    if (!bolFree) check.form->ShowWhereUsed(check.Prompt(202, " '" + PersonName(intId, kvxvar) + "' "));
    ReleaseMessageBox();
    return bolFree;
}

bool CheckArtikelUsage(std::int32_t intId, const KvxVar& kvxvar)
{
    const Check check(kvxvar);
    bool bolFree = CheckAbschlagArtikel(check, intId);
    bolFree = CheckNNArtikel(check, intId) && bolFree;
    if (!bolFree) {
        const std::string name = GetArtikelName(intId, kvxvar.dbAdo);
        check.form->Run(F_MessageBox::kWhereUsed, check.Prompt(202, " '" + name + "' "));
    }
    ReleaseMessageBox();
    return bolFree;
}

bool CheckBBFUsage(std::string_view table, std::string_view table_name, const KvxVar& kvxvar, std::int32_t idPersonal)
{
    return table_name.empty() || ScanCode(Check(kvxvar), table, table_name, idPersonal);
}

bool CheckBBFTablesUsage(std::string_view strLabel, std::string_view table, std::string_view table_name,
                         const KvxVar& kvxvar)
{
    const Check check(kvxvar);
    const bool bolFree = ScanCode(check, table, table_name, /*idPersonal=*/0);
    if (!bolFree) check.form->Run(F_MessageBox::kWhereUsed, strLabel);
    ReleaseMessageBox();
    return bolFree;
}

std::string CheckTableUsage(std::string_view strSQL, std::int32_t intName, std::int32_t intPrompt, const KvxVar& kvxvar)
{
    const Check check(kvxvar);
    check.AddLine(check.Text(intName) + ":");
    bool bolFree = true;
    {
        ado::Recordset recordset;
        recordset.Open(strSQL, kvxvar.dbAdo);
        for (; !recordset.Eof(); recordset.MoveNext()) {
            bolFree = false;
            check.AddLine(" " + check.AsText(recordset[0]));
        }
    }
    if (!bolFree) check.form->Run(F_MessageBox::kWhereUsed, check.Prompt(202, " " + check.Text(intPrompt) + " "));
    ReleaseMessageBox();
    return basic::BooleanText(bolFree);
}

std::string UsagePrompt(std::int32_t firstText, std::string_view separatorAndName, const KvxVar& kvxvar)
{
    const auto loc = Siblings().NewLoc();
    return loc->GetText(firstText, kvxvar) + std::string(separatorAndName) + loc->GetText(203, kvxvar);
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
