#include "tables/F_Tabellen2.h"

#include "basic/Convert.h"
#include "common/M_Common.h"

namespace kvx {

namespace {

void FocusIfReady(ui::Control& control)
{
    if (control.Enabled() && control.Visible()) control.SetFocus();
}

}  // namespace

std::int32_t F_Tabellen2::LengthOfField(std::int32_t index)
{
    const ado::Recordset& rows = Data1.Recordset();
    if (rows.State() != ado::adStateOpen || rows.Fields().Count() <= index) return 0;
    return Siblings().NewDBHelper()->ColumnLength(strTable, rows[index].Name(), kvxvar);
}

void F_Tabellen2::txtField1_GotFocus()
{
    EnterEdit();
    if (kind != nullptr) txtField1.SetMaxLength(kind->field1MaxLength);
    if (intKind == 17) txtField2.SetMaxLength(50);
    SelectAllOnFocus();
}

void F_Tabellen2::txtField2_GotFocus()
{
    EnterEdit();
    if (intKind == 13) {
        txtField2.SetMaxLength(30);
    } else if (intKind != 17) {
        txtField2.SetMaxLength(LengthOfField(1));
    }
    SelectAllOnFocus();
}

void F_Tabellen2::txtField3_GotFocus()
{
    EnterEdit();
    txtField3.SetMaxLength(intKind == 10 ? 0 : LengthOfField(2));
    SelectAllOnFocus();
}

std::int32_t F_Tabellen2::FilterKey(std::int32_t index, std::string_view text, std::int32_t KeyAscii)
{
    const ado::Field field = Data1.Recordset()[index];
    switch (field.Type()) {
    case ado::adSmallInt:
    case ado::adInteger:
    case ado::adUnsignedTinyInt: {
        const std::int32_t key = FilterDigitsKey(KeyAscii, false, "", text);
        if (key == 0) return 0;
        // The third box of the relations shows a number of another table.
        return intKind == 10 ? CheckTypedKey(key, "BBF_GRUPPE", "NUMBER", kvxvar)
                             : CheckTypedKey(key, strTable, field.Name(), kvxvar);
    }
    case ado::adSingle:
    case ado::adDouble:
    case ado::adNumeric: {
        const std::int32_t key = FilterDigitsKey(KeyAscii, true, strDecimal, text);
        return key == 0 ? 0 : CheckTypedKey(key, strTable, field.Name(), kvxvar);
    }
    case ado::adBoolean:
    case ado::adVarWChar:
    case ado::adLongVarWChar: return KeyAscii;
    default: return 0;
    }
}

void F_Tabellen2::txtField1_KeyPress(std::int32_t& KeyAscii)
{
    if (KeyAscii == ui::vbKeyReturn) {
        KeyAscii = 0;
        if (bytFieldCount == 1) {
            FocusIfReady(btnSpeichern);
        } else {
            FocusIfReady(txtField2);
        }
    } else if (intKind == 13) {
        // The keys of wage reasons are numbers, though the column holds text.
        KeyAscii = FilterDigitsKey(KeyAscii, false, "", txtField1.Text());
    } else {
        KeyAscii = FilterKey(0, txtField1.Text(), KeyAscii);
    }
}

void F_Tabellen2::txtField2_KeyDown(std::int16_t& KeyCode, std::int16_t)
{
    if (KeyCode == ui::vbKeyReturn) FocusIfReady(btnSpeichern);
}

void F_Tabellen2::txtField2_KeyPress(std::int32_t& KeyAscii)
{
    if (KeyAscii != ui::vbKeyReturn) {
        KeyAscii = FilterKey(1, txtField2.Text(), KeyAscii);
        return;
    }
    KeyAscii = 0;
    FocusIfReady(bytFieldCount == 3 ? static_cast<ui::Control&>(txtField3) : btnSpeichern);
}

void F_Tabellen2::txtField3_KeyDown(std::int16_t& KeyCode, std::int16_t)
{
    if (KeyCode == ui::vbKeyControl && intKind == 10) txtField3.SetText(PickGroup());
}

void F_Tabellen2::txtField3_KeyPress(std::int32_t& KeyAscii)
{
    if (KeyAscii != ui::vbKeyReturn) {
        KeyAscii = FilterKey(2, txtField3.Text(), KeyAscii);
        return;
    }
    KeyAscii = 0;
    FocusIfReady(btnSpeichern);
}

// @return number of the group picked, empty for none; lngGroupId follows
std::string F_Tabellen2::PickGroup()
{
    const std::string picked = Siblings().NewPicker()->PickValue(
        kvxvar, "SELECT ID, NUMBER, NAME  FROM BBF_GRUPPE WHERE LABEL_GROUP = '" + strTable + "'", strTable,
        std::to_string(lngGroupId), "100");
    lngGroupId = picked.empty() ? 0 : basic::CLng(picked);
    const std::string number =
        Siblings().NewDBHelper()->LookupText(kvxvar, "NUMBER", "BBF_GRUPPE", "ID = " + std::to_string(lngGroupId));
    DataGrid1.Refresh();
    return number;
}

}  // namespace kvx
