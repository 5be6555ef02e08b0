#include "common/M_Common.h"

#include "ado/Recordset.h"
#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Text.h"
#include "common/ModuleState.h"
#include "session/SiblingClasses.h"
#include "ui/ComboBox.h"
#include "ui/Control.h"
#include "ui/Desktop.h"

#include <array>

namespace kvx {

std::int32_t ShowMessage(std::string_view prompt, std::int32_t buttons, std::string_view title, std::string_view,
                         std::int32_t)
{
    return ui::CurrentDesktop().MessageBox(prompt, buttons, title.empty() ? "Korvex" : title);
}

void SetTextIfObject(const basic::ObjectRef& object, std::string_view text)
{
    if (object != nullptr) object->Put("Text", text);
}

void FocusIfEnabled(ui::Control& control)
{
    if (control.Enabled()) control.SetFocus();
}

void FocusIfVisible(ui::Control& control)
{
    if (control.Visible()) control.SetFocus();
}

std::int32_t FilterDigitsKey(std::int32_t KeyAscii, bool allowSeparator, std::string_view separator,
                             std::string_view text)
{
    const bool isDigit = KeyAscii >= '0' && KeyAscii <= '9';
    if (isDigit || KeyAscii == ui::vbKeyBack || KeyAscii == ui::vbKeyReturn) return KeyAscii;
    if (!allowSeparator || separator.empty() || KeyAscii != basic::AscW(separator)) return 0;
    return basic::InStr(text, separator) == 0 ? KeyAscii : 0;
}

namespace {

std::string EmptyResultStatement(const KvxVar& kvxvar, std::string_view table, std::string_view column)
{
    const std::string selected = std::string(column) + " FROM " + std::string(table);
    return kvxvar.bOracle != 0 ? "SELECT " + selected + " WHERE 1=2" : "SELECT TOP 0 " + selected;
}

// A type that is not listed takes any text.
void ConvertForType(ado::DataTypeEnum type, const std::string& candidate)
{
    switch (type) {
    case ado::adSmallInt: static_cast<void>(basic::CInt(candidate)); break;
    case ado::adInteger: static_cast<void>(basic::CLng(candidate)); break;
    case ado::adSingle:
    case ado::adDouble:
    case ado::adNumeric: static_cast<void>(basic::CDbl(candidate)); break;
    case ado::adBoolean: static_cast<void>(basic::CBool(candidate)); break;
    case ado::adUnsignedTinyInt: static_cast<void>(basic::CByte(candidate)); break;
    default: return;
    }
    // The number reader takes a sign behind the digits; nobody types a key level or a price that way.
    if (basic::EndsWith(candidate, "-") || basic::EndsWith(candidate, "+")) basic::Raise(basic::kErrTypeMismatch);
}

}  // namespace

std::int32_t CheckTypedKey(std::int32_t KeyAscii, std::string_view table, std::string_view column, const KvxVar& kvxvar)
{
    const std::string typed = basic::ToText(ui::CurrentDesktop().ActiveControl().GetMember("Text", {}));
    std::string candidate = Siblings().NewDates()->ClearDecimal(typed);
    if (KeyAscii != 0) candidate += basic::ChrW(KeyAscii);
    if (candidate == "-" || KeyAscii == ui::vbKeyBack) return KeyAscii;
    if (candidate.empty()) candidate = "0";

    ado::Recordset recordset;
    recordset.Open(EmptyResultStatement(kvxvar, table, column), kvxvar.dbAdo, ado::adOpenForwardOnly,
                   ado::adLockReadOnly);
    try {
        ConvertForType(recordset[0].Type(), candidate);
    } catch (const basic::Error&) {
        return 0;  // the keystroke is swallowed: the text would overflow the column or be no value of its type
    }
    return KeyAscii;
}

namespace {

struct ListSource {
    std::string_view kind;
    std::string_view statement;
};
constexpr ListSource kListSources[] = {
    {"PROJEKT", "SELECT KURZTEXT FROM PROJEKTE"},
    {"PLANNUMMER", "SELECT KURZTEXT FROM PLAN"},
    {"HOLZART", "SELECT HA FROM HOLZART"},
};

void AddListItem(basic::Object& list, std::string_view text)
{
    std::array<basic::Variant, 1> arguments{basic::Variant(text)};
    list.Call("AddItem", arguments);
}

}  // namespace

void FillList(std::string_view kind, const basic::ObjectRef& list, const ListItemArguments& arguments,
              const KvxVar& kvxvar)
{
    basic::Object& control = basic::Deref(list);
    control.Call("Clear");
    AddListItem(control, "");

    const std::string wanted = basic::UCase(kind);
    for (const ListSource& source : kListSources) {
        if (source.kind != wanted) continue;
        const auto helper = Siblings().NewDBHelper();
        ado::Recordset recordset;
        recordset.Open(source.statement, kvxvar.dbAdo);
        for (; !recordset.Eof(); recordset.MoveNext()) {
            if (arguments.displayField.empty()) {
                AddListItem(control, helper->FieldToText(recordset[0].Value()));
            } else {
                const std::string text = helper->FieldToText(recordset[arguments.displayField].Value());
                AddListItem(control, text);
                control.Put("Text", text);
            }
            if (!arguments.dataField.empty()) {
                const std::array<basic::Variant, 1> index{control.Get("NewIndex")};
                control.Put("ItemData", basic::CLng(recordset[arguments.dataField].Value()), index);
            }
        }
        return;
    }
}

std::int32_t ComboIndexOfField(std::string_view field, const ado::Recordset& recordset, const ui::ComboBox& combo)
{
    const std::string value = basic::ToText(recordset[field].Value());
    if (basic::Trim(value).empty()) return 0;
    for (std::int32_t i = 0; i < combo.ListCount(); ++i)
        if (combo.List(i) == value) return i;
    return 0;
}

void SelectAllOnFocus()
{
    ui::Control& control = ui::CurrentDesktop().ActiveControl();
    if (control.TypeName() != "ComboBox" && control.TypeName() != "TextBox") return;
    control.PutMember("SelStart", std::int32_t{0}, {});
    control.PutMember("SelLength", basic::Len(basic::ToText(control.GetMember("Text", {}))), {});
}

std::string ZeroIfEmpty(std::string_view text)
{
    return basic::Trim(text).empty() ? "0" : std::string(text);
}

void NumberKey(std::int32_t& KeyAscii, ui::TextBox& textBox, std::string_view format)
{
    Siblings().NewDBHelper()->FilterNumberKey(KeyAscii, textBox, format);
}

void FormatBox(std::string_view format, ui::TextBox& textBox)
{
    Siblings().NewDBHelper()->FormatTextBox(format, textBox);
}

void DateKey(std::int32_t& KeyAscii, ui::TextBox& textBox)
{
    Siblings().NewDBHelper()->FilterDateKey(KeyAscii, textBox);
}

void ExportListView(const basic::ObjectRef& list, std::string_view name, const basic::Variant& argument1,
                    const basic::Variant& argument2)
{
    std::shared_ptr<c_Wagon>& wagon = Module().wagon;
    if (wagon == nullptr) wagon = Siblings().NewWagon();
    wagon->ExportListView(list, name, argument1, argument2);
}

}  // namespace kvx
