#pragma once

#include "basic/Object.h"
#include "session/KvxVar.h"

#include <cstdint>
#include <string>
#include <string_view>

// Routines that the dialogs share. None keeps state but for the word processor's application and last document, which
// outlive a call so that one running application serves several prints.
namespace kvx::ado {
class Recordset;
}
namespace kvx::os {
class WordDocument;
}
namespace kvx::ui {
class ComboBox;
class Control;
class DataGrid;
class TextBox;
}  // namespace kvx::ui

namespace kvx {

/// Every message of the library goes through here.
/// @param buttons flags of the message box, e.g. vbYesNo + vbQuestion
/// @param title   empty: "Korvex", and then help file and context are not used
/// @return the button's code, vbOK .. vbNo
std::int32_t ShowMessage(std::string_view prompt, std::int32_t buttons = 0, std::string_view title = {},
                         std::string_view helpFile = {}, std::int32_t context = 0);

/// Assigns Text of a host's box by late binding; a reference that is Nothing is skipped.
void SetTextIfObject(const basic::ObjectRef& object, std::string_view text);

void FocusIfEnabled(ui::Control& control);  ///< SetFocus if Enabled. @throws basic::Error 5: it cannot take the focus
void FocusIfVisible(ui::Control& control);  ///< SetFocus if Visible. @throws basic::Error 5: it cannot take the focus

/// KeyPress of number boxes: digits, Backspace and Enter pass, the separator once, and only where it is allowed.
/// @return the key to assign, 0 = dropped
std::int32_t FilterDigitsKey(std::int32_t KeyAscii, bool allowSeparator, std::string_view separator,
                             std::string_view text);

/// KeyPress of boxes that edit a column: does the text that would result fit the column's type? Asks the database for
/// the type at every key, so that it stays the only source.
/// @param table,column where the typed text will be stored
/// @return the key, 0 = the text would not convert
/// @throws basic::Error the provider's, when the column cannot be read
std::int32_t CheckTypedKey(std::int32_t KeyAscii, std::string_view table, std::string_view column,
                           const KvxVar& kvxvar);

/// What FillList shows beside the first column; empty = not used. The four reserved places are part of the call that
/// hosts know and change nothing.
struct ListItemArguments {
    std::string_view displayField = {};  ///< shown instead of column 0; the control's Text follows it
    std::string_view dataField = {};     ///< its value goes to ItemData
    std::string_view reserved1 = {}, reserved2 = {}, reserved3 = {}, reserved4 = {};
};

/// Fills a list or combo box: an empty first item, then the rows of PROJEKTE ("PROJEKT"), PLAN ("PLANNUMMER") or
/// HOLZART ("HOLZART"). The kind ignores case; any other leaves the empty item alone.
void FillList(std::string_view kind, const basic::ObjectRef& list, const ListItemArguments& arguments,
              const KvxVar& kvxvar);

/// Index of the combo item that equals the field's value; 0, the empty first item, when the field is NULL or blank or
/// no item matches.
std::int32_t ComboIndexOfField(std::string_view field, const ado::Recordset& recordset, const ui::ComboBox& combo);

/// GotFocus of boxes: selects the whole text of the active control, if it is a text or combo box.
void SelectAllOnFocus();

/// "0" for a blank text, else the text.
std::string ZeroIfEmpty(std::string_view text);

/// Prints what a data grid shows as a table: title line, captions, one line a row; visible columns only.
/// @param recordset rows of the grid, usually a clone: its position moves to the end
/// @param flag      handed to PrintTextToWord
void PrintDataGrid(std::string_view title, ui::DataGrid& grid, ado::Recordset recordset, bool flag);

/// Writes tab-separated lines into a new document of the word processor as a table and leaves it open for the user.
/// The clipboard holds the text afterwards. Nothing happens when there is no word processor.
/// @param text lines ending in CR LF; the cells of the first line set the number of columns
/// @param flag handed to the document's window: true for tables too wide for an upright page
void PrintTextToWord(std::string_view text, bool flag);

/// Rows 1 and 2 of the document's first table repeat on every page; a page number stands in the footer.
void FinishWordTable(os::WordDocument& document);

/// KeyPress filter of a number box: the key becomes 0 when it would break the format.
void NumberKey(std::int32_t& KeyAscii, ui::TextBox& textBox, std::string_view format);
/// Rewrites the box's text in the number format.
void FormatBox(std::string_view format, ui::TextBox& textBox);
/// KeyPress filter of a date box.
void DateKey(std::int32_t& KeyAscii, ui::TextBox& textBox);

/// Hands a list over to the export of the sibling library.
void ExportListView(const basic::ObjectRef& list, std::string_view name, const basic::Variant& argument1,
                    const basic::Variant& argument2);

}  // namespace kvx
