#pragma once

#include "ado/Command.h"
#include "ado/Recordset.h"
#include "basic/Variant.h"
#include "session/KvxVar.h"
#include "ui/Form.h"
#include "ui/ListView.h"
#include "ui/TextBox.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// The helper classes of the sibling library. A dialog makes one where it first needs it and drops it with the routine or
// the form; none carries state between calls. Each operation reports failure by raising basic::Error.
namespace kvx {

/// Text catalogue and procedure runner.
class c_Loc {
public:
    virtual ~c_Loc() = default;
    /// Sets the captions of the form and its controls to the session's language.
    virtual void LocalizeForm(const KvxVar& kvxvar, ui::Form& form) = 0;
    /// @param id text id of the catalogue
    /// @return the text in the session's language; the customer's own wording where STRINGS has one
    virtual std::string GetText(std::int32_t id, const KvxVar& kvxvar) = 0;
    /// Runs a stored procedure on dbAdo. @return its result set
    virtual ado::Recordset RunProcedure(const KvxVar& kvxvar, std::string_view procedure, ado::Command& command) = 0;
};

/// Value conversion, lookups, options, key filters.
class c_DBHelper {
public:
    virtual ~c_DBHelper() = default;
    /// @param flag1,flag2 carried for callers' sake; every pair gives the same text
    /// @return the value as text by the machine's locale, empty for NULL
    virtual std::string FieldToString(const basic::Variant& value, bool flag1, bool flag2) = 0;
    virtual double FieldToNumber(const basic::Variant& value) = 0;       ///< 0 for NULL
    virtual std::string FieldToText(const basic::Variant& value) = 0;    ///< for list controls; empty for NULL
    /// First row's value of column in table under the where text. @return empty when there is no row
    virtual std::string LookupText(const KvxVar& kvxvar, std::string_view column, std::string_view table,
                                   std::string_view where) = 0;
    /// The same as a number, 0 when there is no row.
    virtual double LookupNumber(const KvxVar& kvxvar, std::string_view column, std::string_view table,
                                std::string_view where) = 0;
    /// Defined length in characters of a text column.
    virtual std::int16_t ColumnLength(std::string_view table, std::string_view column, const KvxVar& kvxvar) = 0;
    /// Heading text of a data-grid column.
    virtual std::string ColumnCaption(std::string_view column, const KvxVar& kvxvar) = 0;
    virtual std::int32_t GetOptionNumber(const KvxVar& kvxvar, std::string_view key) = 0;  ///< OPTIONEN; 0 = missing
    virtual std::string GetOptionText(const KvxVar& kvxvar, std::string_view key) = 0;  ///< OPTIONEN; empty = missing
    /// Rewrites the box's text in the number format. @param format e.g. "#####0.00"
    virtual void FormatTextBox(std::string_view format, ui::TextBox& textBox) = 0;
    /// KeyPress filter of a number box: the key becomes 0 when it would break the format.
    virtual void FilterNumberKey(std::int32_t& KeyAscii, ui::TextBox& textBox, std::string_view format) = 0;
    /// KeyPress filter of a date box. @return the key passed
    virtual bool FilterDateKey(std::int32_t& KeyAscii, ui::TextBox& textBox) = 0;
    /// Id of the standard model of a relation that applies to the user, 0 = none (MODELS).
    virtual std::int32_t ModelItems(const KvxVar& kvxvar, std::string_view relation, std::int32_t reserved) = 0;
    virtual std::string ListItemCaption(const KvxVar& kvxvar, std::string_view name) = 0;
};

/// Option writes and named set-ups.
class c_DBWriter {
public:
    virtual ~c_DBWriter() = default;
    virtual void PutOptionNumber(const KvxVar& kvxvar, std::string_view key, const basic::Variant& value) = 0;
    virtual void PutOptionText(const KvxVar& kvxvar, std::string_view key, const basic::Variant& value,
                               std::string_view defaultText) = 0;
    /// Text of a named set-up: "OBJEKTE_GRID", "AUFTRAGSNUMMER_VALID", ...
    virtual std::string GridSetup(const KvxVar& kvxvar, std::string_view name, std::string_view argument) = 0;
    /// List condition of the access level and those under it: "IN (3,7,12)"; "IS NULL" for "0".
    virtual std::string AccessLevelList(const KvxVar& kvxvar, std::string_view level, std::int32_t flag,
                                        std::string_view flagText) = 0;
    virtual void ListViewAutoSize(const KvxVar& kvxvar, ui::ListView& listView) = 0;
};

/// Access filters and rights.
class c_Access {
public:
    virtual ~c_Access() = default;
    /// @return the where text with the condition by which the user sees rows of the table
    virtual std::string AccessWhere(std::string_view table, std::string_view where, const KvxVar& kvxvar,
                                    std::int32_t ID_ACCESS_LEVELS) = 0;
    /// @param code "B018", "B049", "B057"
    virtual bool HasRight(const KvxVar& kvxvar, std::string_view code) = 0;
};

/// Date and number text for SQL.
class c_Dates {
public:
    virtual ~c_Dates() = default;
    virtual std::string DateToSQL(const basic::Variant& date, std::string_view format) = 0;
    /// The number with a point as decimal separator.
    virtual std::string NumberToSQL(std::string_view number, std::string_view separator) = 0;
    /// Text of an UPDATE's value as it stands: codes such as "1.2" must not turn into dates.
    virtual std::string DateForUpdate(std::string_view text) = 0;
    /// Number text without thousands separators.
    virtual std::string ClearDecimal(std::string_view text) = 0;
    virtual std::string DateForQuery(const basic::Variant& date, const ado::Connection& connection) = 0;
};

/// Protocol file, INI file, picture formats.
class c_FileTools {
public:
    virtual ~c_FileTools() = default;
    /// Appends one line to the protocol file. @throws basic::Error 70, 75, 76: it cannot be written
    virtual void WriteProtocol(std::string_view action, std::string_view object, std::string_view word,
                               std::string_view userName, std::string_view path) = 0;
    virtual std::string ReadIni(std::string_view key, std::string_view defaultText, std::string_view iniPath) = 0;
    virtual std::vector<std::string> ImageFormats(std::string_view appPath, std::string_view iniFile) = 0;
};

/// Saved column layouts of lists and grids.
class c_ListLayout {
public:
    virtual ~c_ListLayout() = default;
    virtual void LoadLayout(const KvxVar& kvxvar, std::string_view layout, ui::Control& control) = 0;
    virtual void SaveLayout(const KvxVar& kvxvar, std::string_view layout, ui::Control& control) = 0;
};

/// Modal picker over the rows of a SELECT.
class c_Picker {
public:
    virtual ~c_Picker() = default;
    /// @param title   window title; empty: the heading of the column
    /// @param current value that is preselected
    /// @param mask    one digit a column: 1 = hidden, 0 = shown; missing digits count as 0
    /// @return the chosen row's first column; on Cancel the current value
    virtual std::string PickValue(const KvxVar& kvxvar, std::string_view select, std::string_view title,
                                  std::string_view current, std::string_view mask) = 0;
};

/// Order numbers and list exports of the grid workspaces.
class c_Wagon {
public:
    virtual ~c_Wagon() = default;
    /// Runs the statement for the typed key and writes what it finds into the boxes.
    /// @param box1 gets the key; @param box2 the value of the named column. @return the key exists
    virtual bool CheckOrderNumber(const KvxVar& kvxvar, std::int16_t flag, std::string_view statement,
                                  const basic::ObjectRef& box1, const basic::ObjectRef& box2, std::string_view column,
                                  const basic::ObjectRef& keyBox, std::string_view text) = 0;
    virtual void ExportListView(const basic::ObjectRef& list, std::string_view name, const basic::Variant& argument1,
                                const basic::Variant& argument2) = 0;
};

/// Exports of grid texts.
class c_Report {
public:
    virtual ~c_Report() = default;
    virtual void ExportTable(const ado::Connection& connection, std::string_view title, std::string_view text) = 0;
};

/// Makes the sibling classes; set once by the host's start-up (korvex_loc registers its own).
class SiblingLibrary {
public:
    virtual ~SiblingLibrary() = default;
    virtual std::unique_ptr<c_Loc> NewLoc() = 0;
    virtual std::unique_ptr<c_DBHelper> NewDBHelper() = 0;
    virtual std::unique_ptr<c_DBWriter> NewDBWriter() = 0;
    virtual std::unique_ptr<c_Access> NewAccess() = 0;
    virtual std::unique_ptr<c_Dates> NewDates() = 0;
    virtual std::unique_ptr<c_FileTools> NewFileTools() = 0;
    virtual std::unique_ptr<c_ListLayout> NewListLayout() = 0;
    virtual std::unique_ptr<c_Picker> NewPicker() = 0;
    virtual std::unique_ptr<c_Wagon> NewWagon() = 0;
    virtual std::unique_ptr<c_Report> NewReport() = 0;
};

/// @throws basic::Error 429 when none was registered
SiblingLibrary& Siblings();
/// @param library not owned; nullptr = none
void SetSiblings(SiblingLibrary* library);

}  // namespace kvx
