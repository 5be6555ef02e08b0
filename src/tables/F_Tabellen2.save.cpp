#include "tables/F_Tabellen2.h"

#include "basic/Convert.h"
#include "basic/Text.h"
#include "common/M_Common.h"

namespace kvx {

void F_Tabellen2::btnSpeichern_Click()
{
    bolSaved = true;
    SaveRecord();
}

void F_Tabellen2::SaveRecord()
{
    // Only the extended tariffs know a row without a code.
    if (intKind != 5 && basic::Trim(txtField1.Text()).empty()) {
        ShowMessage(GetText(223), ui::vbExclamation);
        FocusIfEnabled(txtField1);
        return;
    }
    lngCurrentId = 0;
    if (intKind == 10 && !GroupIsKnown()) return;

    const std::int32_t rowId = intKind == kWageGroupKind && HasRow() ? basic::CLng(Data1.Recordset()["ID"].Value()) : 0;
    if (IsDuplicate(DuplicateTest(intKind, kvxvar, strGroup, txtField1.Text(), SSTab1.Caption(), rowId))) {
        ShowMessage(GetText(1167), ui::vbExclamation);
        return;
    }
    switch (intKind) {
    case 12: SaveColour(); break;
    case 17: SaveFederalState(); break;
    default: SaveRow(); break;
    }
    RefreshAfterSave();
}

// The message names the fifth column of the list, "ID", as the users know it.
bool F_Tabellen2::GroupIsKnown()
{
    const std::string number = txtField3.Text();
    if (basic::Trim(number).empty()) return true;
    const double found = Siblings().NewDBHelper()->LookupNumber(
        kvxvar, "NUMBER", "BBF_GRUPPE", " NUMBER = " + number + " AND LABEL_GROUP = '" + strTable + "'");
    if (found != 0) return true;
    ShowMessage(Data1.Recordset()[4].Name() + " " + number + " " + GetText(1214), ui::vbExclamation);
    return false;
}

// A row that keeps its own code is no duplicate; only the first row with the code is looked at.
bool F_Tabellen2::IsDuplicate(const CodeListDuplicate& test)
{
    ado::Recordset found;
    found.Open("SELECT " + test.field + " FROM " + strTable + " WHERE " + test.condition, kvxvar.dbAdo,
               ado::adOpenForwardOnly, ado::adLockReadOnly);
    if (found.Eof()) return false;
    if (bolNew || !HasRow()) return true;
    const auto helper = Siblings().NewDBHelper();
    return helper->FieldToString(found[test.field].Value(), false, false) !=
           helper->FieldToString(Data1.Recordset()[test.field].Value(), false, false);
}

// The code is the key of this table, so a code that is in use may not change.
void F_Tabellen2::SaveColour()
{
    const std::string flag = ValueToWrite(CodeListValue::Disable);
    std::string statement;
    if (bolNew) {
        statement = "INSERT INTO FARBE (FARBE,FARBE_LANG,DISABLE) VALUES ('" + txtField1.Text() + "','" +
                    txtField2.Text() + "'," + flag + ")";
    } else if (HasRow()) {
        const std::string stored = FieldText(0);
        if (stored == txtField1.Text() || CheckUsage()) {
            statement = "UPDATE FARBE SET FARBE = '" + txtField1.Text() + "', FARBE_LANG = '" + txtField2.Text() +
                        "',DISABLE = " + flag + " WHERE FARBE = '" + stored + "'";
        }
    }
    if (!statement.empty()) kvxvar.dbAdo.Execute(statement);
}

void F_Tabellen2::SaveFederalState()
{
    const std::string flag = ValueToWrite(CodeListValue::Disable);
    std::string statement;
    if (bolNew) {
        statement = "INSERT INTO T_BUNDESLAND (SHORT,LONG,DISABLE) VALUES (LEFT('" + txtField1.Text() + "',2),LEFT('" +
                    txtField2.Text() + "',50)," + flag + ")";
    } else if (HasRow()) {
        const std::string id = FieldText(3);
        if (id == txtField1.Text() || CheckUsage()) {
            statement = "UPDATE T_BUNDESLAND SET SHORT = LEFT('" + txtField1.Text() + "',2), LONG = LEFT('" +
                        txtField2.Text() + "',50),DISABLE = " + flag + " WHERE ID = '" + id + "'";
        }
    }
    if (!statement.empty()) kvxvar.dbAdo.Execute(statement);
}

void F_Tabellen2::SaveRow()
{
    if (bolNew) {
        lngCurrentId = InsertRecord();
    } else if (HasRow()) {
        lngCurrentId = basic::CLng(Data1.Recordset()[strKeyField].Value());
    }
    UpdateFields(lngCurrentId);
}

// The row is made with its key and group only; one statement a column writes the rest.
std::int32_t F_Tabellen2::InsertRecord()
{
    std::int32_t newKey = 1;
    {
        ado::Recordset highest;
        highest.Open("SELECT MAX(" + strKeyField + ") FROM " + strTable, kvxvar.dbAdo);
        if (!highest.Eof()) newKey = basic::CLng(Siblings().NewDBHelper()->FieldToNumber(highest[0].Value())) + 1;
    }
    kvxvar.dbAdo.Execute(InsertStatement(intKind, kvxvar, strTable, strKeyField, newKey, strGroup, txtField1.Text()));
    return newKey;
}

void F_Tabellen2::UpdateFields(std::int32_t key)
{
    if (intKind == 10) {
        lngGroupId = 0;
        if (!basic::Trim(txtField3.Text()).empty()) {
            lngGroupId = basic::CLng(Siblings().NewDBHelper()->LookupNumber(
                kvxvar, "ID", "BBF_GRUPPE", " NUMBER = " + txtField3.Text() + " AND LABEL_GROUP = '" + strTable + "'"));
        }
    }
    for (const CodeListWrite& write : WritesOfKind(intKind)) {
        const std::string column = basic::Replace(write.column, "{L}", kvxvar.strLanguage);
        const std::string value = ValueToWrite(write.value);
        if (write.isNumber) {
            UpdateNumberField(value, column, key);
        } else {
            UpdateTextField(value, column, key);
        }
    }
    WriteProtocolLine();
}

std::string F_Tabellen2::ValueToWrite(CodeListValue value)
{
    switch (value) {
    case CodeListValue::Field1: return txtField1.Text();
    case CodeListValue::Field2: return txtField2.Text();
    case CodeListValue::Group: return strGroup;
    case CodeListValue::GroupId: return std::to_string(lngGroupId);
    case CodeListValue::Disable: break;
    }
    return std::to_string(chkDisable.Value());
}

void F_Tabellen2::UpdateTextField(std::string_view value, std::string_view column, std::int32_t key)
{
    const std::string written =
        value.empty() || value == " " ? "NULL" : "'" + Siblings().NewDates()->DateForUpdate(value) + "'";
    kvxvar.dbAdo.Execute("UPDATE " + strTable + " SET " + std::string(column) + " = " + written + " WHERE " +
                         strKeyField + " = " + std::to_string(key));
}

void F_Tabellen2::UpdateNumberField(std::string_view value, std::string_view column, std::int32_t key)
{
    const bool isNone = basic::Trim(value).empty() || basic::Val(value) == 0;
    const std::string written = isNone ? "NULL" : Siblings().NewDates()->DateForUpdate(value);
    kvxvar.dbAdo.Execute("UPDATE " + strTable + " SET " + std::string(column) + " = " + written + " WHERE " +
                         strKeyField + " = " + std::to_string(key));
}

// Saving and deleting leave the same words.
void F_Tabellen2::WriteProtocolLine()
{
    if (strProtokolPath.empty()) return;
    Siblings().NewFileTools()->WriteProtocol(GetText(861), strTableName, GetText(1608), strUserName, strProtokolPath);
}

void F_Tabellen2::RefreshAfterSave()
{
    RefreshData();
    SetColumnCaptions();
    SetColumnWidths();
    Timer1.SetEnabled(true);
}

void F_Tabellen2::Timer1_Timer()
{
    Timer1.SetEnabled(false);
    if (!Visible()) return;  // an error has ended the dialog meanwhile
    ReloadGrid();
    LocateRecord();
}

void F_Tabellen2::ReloadGrid()
{
    Data1.Refresh();
    SetColumnCaptions();
    SetColumnWidths();
    DataGrid1.SetFocus();
}

void F_Tabellen2::LocateRecord()
{
    ado::Recordset& rows = Data1.Recordset();
    if (strKeyField.empty() || (rows.Bof() && rows.Eof())) return;
    rows.MoveFirst();
    rows.Find(strKeyField + " = " + std::to_string(lngCurrentId));
}

}  // namespace kvx
