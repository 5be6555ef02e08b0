#include "korvex_loc/DBWriter.h"

#include "basic/Convert.h"
#include "basic/Text.h"
#include "korvex_loc/Access.h"
#include "korvex_loc/Sql.h"

#include <algorithm>
#include <vector>

namespace kvx::loc {

// --- Named set-ups ---------------------------------------------------------------------------------------------------

namespace {

// One kind of key that the grid workspaces and the find dialog let the user pick or type.
struct KeySetup {
    std::string_view name;  // in front of _GRID and _VALID
    std::string_view from;  // tables
    std::string_view key;   // what the box shows
    bool keyIsNumber;
    std::string_view longName;  // column LONG
    std::string_view id;
    std::string_view gridColumns;  // behind SELECT
    std::int32_t gridArguments;    // parts of the argument of _GRID
    bool typedKeyFirst;            // _VALID has the typed key in front of them, else behind
};

// clang-format off
constexpr KeySetup kKeySetups[] = {
    {"AUFTRAGSNUMMER", "BB_T_AUFTRAGS_PLANUNG", "BB_T_AUFTRAGS_PLANUNG.AUFTRAGSNUMMER", false,
     "BB_T_AUFTRAGS_PLANUNG.LONG", "BB_T_AUFTRAGS_PLANUNG.ID",
     "BB_T_AUFTRAGS_PLANUNG.AUFTRAGSNUMMER,BB_T_AUFTRAGS_PLANUNG.LONG,BB_T_AUFTRAGS_PLANUNG.ID", 1, true},
    {"BB_JAGDBEZIRKE", "BB_T_JAGDBEZIRKE", "BB_T_JAGDBEZIRKE.NUMMER", true,
     "BB_T_JAGDBEZIRKE.LONG", "BB_T_JAGDBEZIRKE.ID",
     "DISTINCT BB_T_JAGDBEZIRKE.NUMMER,BB_T_JAGDBEZIRKE.LONG", 2, false},
    {"OBJEKTE", "BB_T_OBJEKTE", "BB_T_OBJEKTE.NUMMER", true,
     "BB_T_OBJEKTE.LONG", "BB_T_OBJEKTE.ID",
     "BB_T_OBJEKTE.NUMMER,BB_T_OBJEKTE.LONG", 2, false},
    // The groups that hold objects which the user sees, and empty ones: hence the join.
    {"OBJEKTGRUPPE", "BB_T_OBJEKTGRUPPE LEFT JOIN BB_T_OBJEKTE"
     " ON BB_T_OBJEKTE.ID_BB_T_OBJEKTGRUPPE = BB_T_OBJEKTGRUPPE.ID", "BB_T_OBJEKTGRUPPE.NUMMER", true,
     "BB_T_OBJEKTGRUPPE.LONG", "BB_T_OBJEKTGRUPPE.ID",
     "DISTINCT BB_T_OBJEKTGRUPPE.NUMMER,BB_T_OBJEKTGRUPPE.LONG", 1, false},
    {"OBJEKTGRUPPE_TAB", "BB_T_OBJEKTGRUPPE", "BB_T_OBJEKTGRUPPE.NUMMER", true,
     "BB_T_OBJEKTGRUPPE.LONG", "BB_T_OBJEKTGRUPPE.ID",
     "BB_T_OBJEKTGRUPPE.NUMMER,BB_T_OBJEKTGRUPPE.LONG", 1, false},
};
// clang-format on

void And(std::string& where, std::string_view condition)
{
    if (condition.empty()) return;
    where.append(where.empty() ? " WHERE " : " AND ").append(condition);
}

bool IsWholeNumber(std::string_view text)
{
    return !text.empty() && text.size() <= 9 && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

// What the argument of a _GRID says about the rows.
void AddSetupConditions(std::string& where, const KeySetup& setup, const std::vector<std::string>& arguments)
{
    if (setup.name == "BB_JAGDBEZIRKE") {
        if (!arguments[0].empty()) And(where, "LEFT(BB_T_JAGDBEZIRKE.JAGDJAHR,4) = " + Quoted(arguments[0]));
        const std::string user = IsWholeNumber(arguments[1]) ? arguments[1] : "0";
        And(where, "(BB_T_JAGDBEZIRKE.ID_ACCESS_LEVELS IS NULL OR BB_T_JAGDBEZIRKE.ID_ACCESS_LEVELS IN"
                   " (SELECT ID_ACCESS_LEVELS FROM USERS WHERE ID_USER = " +
                       user + "))");
        return;
    }
    if (setup.name == "AUFTRAGSNUMMER") And(where, "ISNULL(BB_T_AUFTRAGS_PLANUNG.DISABLE,0) = 0");
    And(where, arguments.back());
}

// A server would refuse to compare a number column with letters: such a key simply does not exist.
std::string KeyCondition(const KeySetup& setup, std::string_view typedKey)
{
    const std::string key = basic::Trim(typedKey);
    if (!setup.keyIsNumber) return std::string(setup.key) + " = " + Quoted(key);
    return IsWholeNumber(key) ? std::string(setup.key) + " = " + key : "1=2";
}

}  // namespace

std::string DBWriter::GridSetup(const KvxVar&, std::string_view name, std::string_view argument)
{
    const bool valid = name.ends_with("_VALID");
    const std::string_view kind = name.substr(0, name.rfind('_'));
    const auto setup = std::ranges::find(kKeySetups, kind, &KeySetup::name);
    if (setup == std::end(kKeySetups) || (!valid && !name.ends_with("_GRID")))
        basic::Raise(basic::kErrInvalidCall, "Korvex_Loc has no grid set-up " + std::string(name));

    std::vector<std::string> arguments = basic::Split(argument, "\t");
    arguments.resize(static_cast<std::size_t>(setup->gridArguments + (valid ? 1 : 0)));
    std::string typedKey;
    if (valid) {
        const auto at = setup->typedKeyFirst ? arguments.begin() : std::prev(arguments.end());
        typedKey = *at;
        arguments.erase(at);
    }
    std::string where;
    AddSetupConditions(where, *setup, arguments);
    if (valid) {
        And(where, KeyCondition(*setup, typedKey));
        return "SELECT " + std::string(setup->key) + "," + std::string(setup->longName) + "," + std::string(setup->id) +
               " FROM " + std::string(setup->from) + where;
    }
    return "SELECT " + std::string(setup->gridColumns) + " FROM " + std::string(setup->from) + where + " ORDER BY " +
           std::string(setup->key);
}

// --- Options, levels, lists ------------------------------------------------------------------------------------------

void DBWriter::PutOptionNumber(const KvxVar& kvxvar, std::string_view key, const basic::Variant& value)
{
    const std::string number = NumberOrNull(value);
    UpdateOrInsert(kvxvar, "UPDATE OPTIONEN SET NUMBER_VALUE = " + number + " WHERE PROPERTY_ID = " + Quoted(key),
                   "INSERT INTO OPTIONEN (PROPERTY_ID,NUMBER_VALUE) VALUES (" + Quoted(key) + "," + number + ")");
}

void DBWriter::PutOptionText(const KvxVar& kvxvar, std::string_view key, const basic::Variant& value,
                             std::string_view defaultText)
{
    std::string text = basic::ToText(value);
    if (text.empty()) text = defaultText;
    const std::string stored = text.empty() ? "NULL" : Quoted(text);
    UpdateOrInsert(kvxvar, "UPDATE OPTIONEN SET TEXT_VALUE = " + stored + " WHERE PROPERTY_ID = " + Quoted(key),
                   "INSERT INTO OPTIONEN (PROPERTY_ID,TEXT_VALUE) VALUES (" + Quoted(key) + "," + stored + ")");
}

std::string DBWriter::AccessLevelList(const KvxVar& kvxvar, std::string_view level, std::int32_t, std::string_view)
{
    const double id = basic::Val(level);
    if (id == 0) return "IS NULL";
    return "IN (" + IdList(LevelsUnder(kvxvar, basic::CLng(id))) + ")";
}

void DBWriter::ListViewAutoSize(const KvxVar&, ui::ListView& listView)
{
    constexpr std::int32_t kMargins = 14 * ui::kTwipsPerPixel, kNarrowest = 600, kWidest = 6000;
    ui::ColumnHeaders& columns = listView.ColumnHeaders();
    for (std::int32_t column = 1; column <= columns.Count(); ++column) {
        if (columns[column].Width() == 0) continue;
        std::int32_t widest = listView.Owner().TextWidth(columns[column].Text());
        for (std::int32_t row = 1; row <= listView.ListItems().Count(); ++row) {
            const ui::ListItem& item = listView.ListItems()[row];
            const std::string& text = column == 1 ? item.Text() : item.SubItems(column - 1);
            widest = std::max(widest, listView.Owner().TextWidth(text));
        }
        columns[column].SetWidth(std::clamp(widest + kMargins, kNarrowest, kWidest));
    }
}

}  // namespace kvx::loc
