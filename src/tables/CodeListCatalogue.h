#pragma once

#include "session/KvxVar.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// The code lists that F_Tabellen2 edits: one row a kind. The form reads these tables and knows no kind by itself.
namespace kvx {

/// Column of the browse grid.
struct CodeListColumn {
    std::int32_t captionText = 0;  ///< text id; 0: the literal
    std::string_view caption;
    bool isFlag = false;  ///< shown as Yes/No
};

/// A list inside the table, one a tab.
struct CodeListTab {
    std::int32_t captionText;
    std::string_view group;  ///< value of LABEL_GROUP or RELTABLE_ID
    std::string_view table;  ///< empty: the kind's table
};

/// Widths of the edit line in twips; 0 = the box is hidden.
struct CodeListLayout {
    std::int32_t field1Width, field2Width, field3Width;
    bool showDisable;
    std::int32_t formWidth;  ///< on activation; kFormWidthFromBoxes, kFormWidthDesign
};
constexpr std::int32_t kFormWidthFromBoxes = -1;  ///< both boxes and 2920 for frame and buttons
constexpr std::int32_t kFormWidthDesign = -2;
constexpr std::int32_t kDesignFieldWidth = -1;

struct CodeListKind {
    std::int32_t intIdString;  ///< the host's text id
    std::int16_t intKind;
    std::uint8_t bytFieldCount;  ///< values of the edit line
    std::int16_t tabsPerRow;     ///< 0: as designed
    std::string_view table, keyField;
    std::span<const CodeListTab> tabs;
    /// {L} language column, {G} group, {A} the session's access level, {T} table, {C} caption of the tab.
    std::string_view firstQuery;
    std::string_view tabQuery;  ///< after a change of tab; empty: the statement stays
    std::span<const CodeListColumn> columns;
    CodeListLayout layout;
    std::int32_t field1MaxLength;
};

/// @return nullptr for an id that is no code list: the form then opens empty
const CodeListKind* FindCodeListKind(std::int32_t intIdString);
std::span<const CodeListKind> CodeListKinds();

/// The statement with its places filled in.
std::string FillCodeListQuery(std::string_view query, const KvxVar& kvxvar, std::string_view group,
                              std::string_view table, std::string_view tabCaption);

/// Statement of the wage groups after a change of tab. No id of the catalogue selects this kind (14) today; a host that
/// gets one for it supplies tabs and captions with it.
constexpr std::int16_t kWageGroupKind = 14;
constexpr std::string_view kWageGroupQuery =
    "SELECT NAME,BEZEICHNUNG,BETRAG,EURO,ID FROM LOHNGRUPPE WHERE NAMETAB = '{C}'";

/// What decides whether a code exists already.
struct CodeListDuplicate {
    std::string field;      ///< column to compare
    std::string condition;  ///< where text
};
/// @param typed text of the first box; @param rowId id of the current row, 0 = none (wage groups only)
CodeListDuplicate DuplicateTest(std::int16_t intKind, const KvxVar& kvxvar, std::string_view group,
                                std::string_view typed, std::string_view tabCaption, std::int32_t rowId);

/// Where a code is used: statement and label of the lines.
struct CodeListUsage {
    std::string statement;  ///< empty: nothing to look at
    std::int32_t labelText = 0;
};
/// @param typed text of the first box; @param stored value of the row's first column
CodeListUsage UsageOfCode(std::int16_t intKind, std::string_view typed, std::string_view stored);

/// What a save writes into a column, one statement each.
enum class CodeListValue : std::uint8_t { Field1, Field2, Group, GroupId, Disable };
struct CodeListWrite {
    std::string_view column;  ///< {L} as above
    CodeListValue value;
    bool isNumber = false;
};
/// Columns that a save writes, in order.
std::span<const CodeListWrite> WritesOfKind(std::int16_t intKind);

/// INSERT of a new row with its key and group only.
std::string InsertStatement(std::int16_t intKind, const KvxVar& kvxvar, std::string_view table,
                            std::string_view keyField, std::int32_t newKey, std::string_view group,
                            std::string_view typed);

}  // namespace kvx
