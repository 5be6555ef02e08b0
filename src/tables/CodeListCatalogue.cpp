#include "tables/CodeListCatalogue.h"

#include "basic/Text.h"

#include <algorithm>
#include <array>

namespace kvx {

namespace {

// clang-format off
constexpr CodeListTab kFieldLabels[] = {
    {1118, "1LV", ""}, {862, "1VN", ""}, {1120, "1PV", ""}, {1121, "2PV", ""},
    {1122, "WAL", ""}, {1123, "HDR", ""}, {53, "BBF", ""}, {4715, "1NL", ""},
};
constexpr CodeListTab kRelations[] = {
    {716, "1", ""}, {717, "2", ""}, {718, "3", ""}, {719, "4", ""}, {720, "5", ""},
    {722, "6", ""}, {725, "7", ""}, {723, "8", ""}, {721, "9", ""}, {724, "10", ""},
};
constexpr CodeListTab kPartyGroups[] = {
    {41, "KUN_GR0", ""}, {3074, "KUN_GR1", ""}, {3075, "KUN_GR2", ""}, {3076, "KUN_GR3", ""}, {3077, "KUN_GR4", ""},
    {3078, "KUN_GR5", ""}, {3079, "KUN_GR6", ""}, {3080, "KUN_GR7", ""}, {3081, "KUN_GR8", ""}, {3115, "KUN_WEI", ""},
    {3012, "KUN_ARB", ""}, {340, "KUN_LIEF", ""}, {100, "KUN_MAN", ""}, {1021, "KUN_WAL", ""},
};
constexpr CodeListTab kFreeFields[]    = {{1301, "", "F1"}, {1302, "", "F2"}};
constexpr CodeListTab kColours[]       = {{496, "", ""}};
constexpr CodeListTab kBarkTypes[]     = {{687, "ENTRIND", ""}};
constexpr CodeListTab kMeasuring[]     = {{1127, "MEFVERF", ""}};
constexpr CodeListTab kUnits[]         = {{1128, "MENGEN", ""}};
constexpr CodeListTab kTariffs[]       = {{1129, "EST", ""}};
constexpr CodeListTab kReceipts[]      = {{1130, "ZUGANG", ""}};
constexpr CodeListTab kIssues[]        = {{1131, "ABGANG", ""}};
constexpr CodeListTab kSkidding[]      = {{1132, "RUCKE", ""}};
constexpr CodeListTab kWageReasons[]   = {{4245, "LOHNGRUND", ""}};
constexpr CodeListTab kOccasions[]     = {{4735, "", ""}};
constexpr CodeListTab kSpecialMarks[]  = {{4767, "", ""}};
constexpr CodeListTab kFederalStates[] = {{6224, "", ""}};

constexpr CodeListColumn kFlag{0, "Disable", true};
constexpr CodeListColumn kLabelColumns[]    = {{1124, ""}, {1125, ""}};
constexpr CodeListColumn kCodeColumns[]     = {{1176, ""}, {1177, ""}, kFlag};
constexpr CodeListColumn kCodeNoFlag[]      = {{1176, ""}, {1177, ""}};
constexpr CodeListColumn kRelationColumns[] = {{1176, ""}, {1177, ""}, {1227, ""}, kFlag};
constexpr CodeListColumn kReasonColumns[]   = {{859, ""}, {4022, ""}, kFlag};
constexpr CodeListColumn kNameColumn[]      = {{1177, ""}};
constexpr CodeListColumn kStateColumns[]    = {{0, "Kurz"}, {0, "Langbezeichnung"}, kFlag};

constexpr CodeListLayout kLabelLayout   {3000, 3000, 0, false, kFormWidthFromBoxes};
constexpr CodeListLayout kTwoBoxLayout  {1000, 5000, 0, false, kFormWidthFromBoxes};
constexpr CodeListLayout kFlagLayout    {1000, 7000, 0, true, 8000};
constexpr CodeListLayout kGroupLayout   {1000, 3000, 3000, true, 8000};
constexpr CodeListLayout kOneBoxLayout  {kDesignFieldWidth, 0, 0, false, kFormWidthDesign};

// The blanks of these statements differ between kinds, and between the first load and a change of tab: databases and
// logs know them so.
constexpr std::string_view kSpaced  = "SELECT SHORTNAME, LONGNAME,DISABLE,ID_STRING FROM STAMM_TABELLEN WHERE LABEL_GROUP = '{G}'";
constexpr std::string_view kCompact = "SELECT SHORTNAME,LONGNAME,DISABLE,ID_STRING FROM STAMM_TABELLEN WHERE LABEL_GROUP = '{G}'";

constexpr CodeListKind kKinds[] = {
    //  id  kind fields row table             key          tabs
    {  80,    1,   2,   0, "STRINGS",        "ID_STRING", kFieldLabels,
       "SELECT {L}, CUSTOM_{L}, ID_STRING FROM STRINGS WHERE LABEL_GROUP = '{G}'  ORDER BY {L}",
       "SELECT {L}, CUSTOM_{L}, ID_STRING FROM STRINGS WHERE LABEL_GROUP = '{G}' ORDER BY {L}",
       kLabelColumns, kLabelLayout, 5},
    { 480,   10,   3,   5, "RELTABLE",       "ID",        kRelations,
       "SELECT KURZNAME,LANGNAME,(SELECT NUMBER FROM BBF_GRUPPE WHERE ID = GRUPPE),DISABLE,ID,GRUPPE FROM RELTABLE WHERE RELTABLE_ID = {G} AND (ID_ACCESS_LEVELS IS NULL OR ID_ACCESS_LEVELS = {A})",
       "SELECT KURZNAME, LANGNAME, (SELECT NUMBER FROM BBF_GRUPPE WHERE ID = GRUPPE) ,DISABLE, ID, GRUPPE FROM RELTABLE WHERE RELTABLE_ID = {G} AND (ID_ACCESS_LEVELS IS NULL OR ID_ACCESS_LEVELS = {A}) ORDER BY KURZNAME",
       kRelationColumns, kGroupLayout, 8},
    { 496,   12,   3,   0, "FARBE",          "FARBE",     kColours,
       "SELECT FARBE,FARBE_LANG,DISABLE,FARBE AS FF FROM FARBE", "", kCodeColumns, kFlagLayout, 5},
    { 687,    9,   2,   0, "STAMM_TABELLEN", "ID_STRING", kBarkTypes,
       "SELECT SHORTNAME, LONGNAME, ID_STRING FROM STAMM_TABELLEN WHERE LABEL_GROUP = '{G}'", "",
       kCodeNoFlag, kTwoBoxLayout, 5},
    {1127,    8,   3,   0, "STAMM_TABELLEN", "ID_STRING", kMeasuring,     kCompact, "", kCodeColumns, kFlagLayout, 5},
    {1128,    6,   3,   0, "STAMM_TABELLEN", "ID_STRING", kUnits,         kCompact, "", kCodeColumns, kFlagLayout, 5},
    {1129,    5,   3,   0, "STAMM_TABELLEN", "ID_STRING", kTariffs,       kCompact, "", kCodeColumns, kFlagLayout, 5},
    {1130,    2,   3,   0, "STAMM_TABELLEN", "ID_STRING", kReceipts,      kSpaced,  "", kCodeColumns, kFlagLayout, 5},
    {1131,    3,   3,   0, "STAMM_TABELLEN", "ID_STRING", kIssues,        kSpaced,  "", kCodeColumns, kFlagLayout, 5},
    {1132,    7,   3,   0, "STAMM_TABELLEN", "ID_STRING", kSkidding,      kSpaced,  "", kCodeColumns, kFlagLayout, 5},
    {1170,    4,   3,   5, "STAMM_TABELLEN", "ID_STRING", kPartyGroups,   kSpaced,  kSpaced, kCodeColumns, kFlagLayout, 5},
    {1303,   11,   3,   5, "F1",             "ID",        kFreeFields,
       "SELECT SHORT,LONG,DISABLE, ID FROM F1", "SELECT SHORT, LONG,DISABLE, ID FROM {T} ORDER BY SHORT",
       kCodeColumns, kFlagLayout, 5},
    {4245,   13,   3,   0, "STAMM_TABELLEN", "ID_STRING", kWageReasons,   kCompact, "", kReasonColumns, kFlagLayout, 8},
    {4735,   16,   1,   0, "ANLASSART",      "ID",        kOccasions,
       "SELECT NAME,ID FROM ANLASSART", "", kNameColumn, kOneBoxLayout, 30},
    {4767,   15,   3,   0, "SONDERMERKMAL",  "ID",        kSpecialMarks,
       "SELECT NUMMER,NAME,DISABLE,ID FROM SONDERMERKMAL", "", kCodeColumns, kFlagLayout, 4},
    {6224,   17,   3,   0, "T_BUNDESLAND",   "ID",        kFederalStates,
       "select SHORT, LONG, DISABLE, ID from T_BUNDESLAND", "", kStateColumns, kFlagLayout, 2},
};
static_assert(std::ranges::is_sorted(kKinds, {}, &CodeListKind::intIdString));

constexpr CodeListWrite kLabelWrites[] = {
    {"{L}", CodeListValue::Field1}, {"CUSTOM_{L}", CodeListValue::Field2}, {"LABEL_GROUP", CodeListValue::Group}};
constexpr CodeListWrite kMasterWrites[] = {
    {"SHORTNAME", CodeListValue::Field1}, {"LONGNAME", CodeListValue::Field2}, {"LABEL_GROUP", CodeListValue::Group},
    {"DISABLE", CodeListValue::Disable, true}};
constexpr CodeListWrite kRelationWrites[] = {
    {"KURZNAME", CodeListValue::Field1}, {"LANGNAME", CodeListValue::Field2}, {"GRUPPE", CodeListValue::GroupId, true},
    {"RELTABLE_ID", CodeListValue::Group}, {"DISABLE", CodeListValue::Disable, true}};
constexpr CodeListWrite kFreeFieldWrites[] = {
    {"SHORT", CodeListValue::Field1}, {"LONG", CodeListValue::Field2}, {"DISABLE", CodeListValue::Disable, true}};
constexpr CodeListWrite kMarkWrites[] = {
    {"NUMMER", CodeListValue::Field1}, {"NAME", CodeListValue::Field2}, {"DISABLE", CodeListValue::Disable, true}};
constexpr CodeListWrite kOccasionWrites[] = {{"NAME", CodeListValue::Field1}};

struct KindWrites {
    std::int16_t intKind;
    std::span<const CodeListWrite> writes;
};
constexpr KindWrites kWrites[] = {
    { 1, kLabelWrites},  { 2, kMasterWrites}, { 3, kMasterWrites}, { 4, kMasterWrites}, { 5, kMasterWrites},
    { 6, kMasterWrites}, { 7, kMasterWrites}, { 8, kMasterWrites},
    { 9, std::span<const CodeListWrite>(kMasterWrites).first(3)},  // no flag in this list
    {10, kRelationWrites}, {11, kFreeFieldWrites}, {13, kMasterWrites}, {15, kMarkWrites}, {16, kOccasionWrites},
};

struct KindUsage {
    std::int16_t intKind;
    std::string_view before, behind;
    std::int32_t labelText;
    bool byStored;  // the row's stored code, not the typed one
};
constexpr KindUsage kUsages[] = {
    { 2, "SELECT LISTE FROM LOGS WHERE ZUGANG = '",  "' GROUP BY LISTE", 726, false},
    { 3, "SELECT LISTE FROM LOGS WHERE ABGANG = '",  "' GROUP BY LISTE", 726, false},
    { 5, "SELECT LISTE FROM LOGS WHERE EST = '",     "' GROUP BY LISTE", 726, false},
    { 6, "SELECT LISTE FROM LOGS WHERE MENGEN = '",  "' GROUP BY LISTE", 726, false},
    { 7, "SELECT LISTE FROM LOGS WHERE RUCKE = '",   "' GROUP BY LISTE", 726, false},
    { 8, "SELECT LISTE FROM LOGS WHERE MEFVERF = '", "' GROUP BY LISTE", 726, false},
    {12, "SELECT LISTE FROM LOGS WHERE FARBE = '",   "' GROUP BY LISTE", 726, true},
    {15, "SELECT NAME FROM ARBEITSAUFTRAG_KOPF WHERE ID_SONDERMERKMAL IN (SELECT ID FROM SONDERMERKMAL WHERE NUMMER = '",
         "') ORDER BY NAME", 1707, true},
};
// clang-format on

}  // namespace

const CodeListKind* FindCodeListKind(std::int32_t intIdString)
{
    const auto* found = std::ranges::lower_bound(kKinds, intIdString, {}, &CodeListKind::intIdString);
    return found != std::end(kKinds) && found->intIdString == intIdString ? found : nullptr;
}

std::span<const CodeListKind> CodeListKinds()
{
    return kKinds;
}

std::string FillCodeListQuery(std::string_view query, const KvxVar& kvxvar, std::string_view group,
                              std::string_view table, std::string_view tabCaption)
{
    std::string filled = basic::Replace(query, "{L}", kvxvar.strLanguage);
    filled = basic::Replace(filled, "{G}", group);
    filled = basic::Replace(filled, "{A}", std::to_string(kvxvar.ID_ACCESS_LEVELS));
    filled = basic::Replace(filled, "{T}", table);
    return basic::Replace(filled, "{C}", tabCaption);
}

CodeListDuplicate DuplicateTest(std::int16_t intKind, const KvxVar& kvxvar, std::string_view group,
                                std::string_view typed, std::string_view tabCaption, std::int32_t rowId)
{
    const std::string equalsTyped = " = '" + std::string(typed) + "'";
    const std::string inGroup = " AND LABEL_GROUP = '" + std::string(group) + "'";
    switch (intKind) {
    case 1: return {kvxvar.strLanguage, kvxvar.strLanguage + equalsTyped + inGroup};
    case 5:
        if (typed.empty()) return {"SHORTNAME", "(SHORTNAME" + equalsTyped + " OR SHORTNAME IS NULL)" + inGroup};
        return {"SHORTNAME", "SHORTNAME" + equalsTyped + inGroup};
    case 10:
        return {"KURZNAME", "KURZNAME" + equalsTyped + " AND RELTABLE_ID = " + std::string(group) +
                                " AND (ID_ACCESS_LEVELS IS NULL OR ID_ACCESS_LEVELS = " +
                                std::to_string(kvxvar.ID_ACCESS_LEVELS) + ")"};
    case 11:
    case 17: return {"SHORT", "SHORT" + equalsTyped};
    case 12: return {"FARBE", "FARBE" + equalsTyped};
    case kWageGroupKind:
        return {"ID", "NAMETAB = '" + std::string(tabCaption) + "' AND NAME" + equalsTyped + " AND ID <> " +
                          std::to_string(rowId)};
    case 15: return {"NUMMER", "NUMMER" + equalsTyped};
    case 16: return {"NAME", "NAME" + equalsTyped};
    default: return {"SHORTNAME", "SHORTNAME" + equalsTyped + inGroup};
    }
}

CodeListUsage UsageOfCode(std::int16_t intKind, std::string_view typed, std::string_view stored)
{
    for (const KindUsage& usage : kUsages) {
        if (usage.intKind != intKind) continue;
        std::string statement(usage.before);
        statement.append(usage.byStored ? stored : typed).append(usage.behind);
        return {statement, usage.labelText};
    }
    return {};
}

std::span<const CodeListWrite> WritesOfKind(std::int16_t intKind)
{
    for (const KindWrites& row : kWrites)
        if (row.intKind == intKind) return row.writes;
    return {};
}

std::string InsertStatement(std::int16_t intKind, const KvxVar& kvxvar, std::string_view table,
                            std::string_view keyField, std::int32_t newKey, std::string_view group,
                            std::string_view typed)
{
    const std::string code(typed);
    const std::string key = std::to_string(newKey);
    const std::string into = "INSERT INTO " + std::string(table) + " (" + std::string(keyField);
    switch (intKind) {
    case 5: return into + ", SHORTNAME) VALUES ( " + key + ", '" + code + "' )";
    case 10:
        return into + ", RELTABLE_ID,ID_ACCESS_LEVELS) VALUES ( " + key + ", 1," +
               std::to_string(kvxvar.ID_ACCESS_LEVELS) + " )";
    case 11: return into + ") VALUES ( " + key + ")";
    case 15: return "INSERT INTO SONDERMERKMAL (NUMMER) VALUES ('" + code + "')";
    case 16:
        return "INSERT INTO ANLASSART (ID,NAME,TYPE_OF_RECH) SELECT ISNULL((SELECT MAX(ID) FROM ANLASSART),0)+1,'" +
               code + "',''";
    default: return into + ", LABEL_GROUP) VALUES ( " + key + ", '" + std::string(group) + "')";
    }
}

}  // namespace kvx
