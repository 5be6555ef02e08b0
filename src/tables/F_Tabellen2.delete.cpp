#include "tables/F_Tabellen2.h"

#include "basic/Convert.h"
#include "checks/F_MessageBox.h"
#include "checks/M_Message.h"
#include "common/M_Common.h"

namespace kvx {

void F_Tabellen2::btnLoschen_Click()
{
    try {
        DeleteRecord();
    } catch (const basic::Error& error) {
        // The form stays, and the grid as it was: the user sees why the row could not go.
        if (error.Number == ado::kErrStatement || error.Number == ado::kErrConstraint) {
            ShowMessage(GetText(202) + " " + GetText(1223));
        } else {
            ShowMessage(error.Description, ui::vbCritical);
        }
    }
}

void F_Tabellen2::DeleteRecord()
{
    if (!HasRow()) return;
    if (ShowMessage(GetText(1429), ui::vbExclamation + ui::vbYesNo) == ui::vbNo) return;
    if (!CheckUsage()) return;
    WriteProtocolLine();
    const std::string key = basic::ToText(Data1.Recordset()[strKeyField].Value());
    kvxvar.dbAdo.Execute("DELETE FROM " + strTable + " WHERE " + strKeyField + " = " +
                         (intKind == 12 ? "'" + key + "'" : key));
    RefreshAfterSave();
    DataGrid1.SetFocus();
}

// True: the code may change or go.
bool F_Tabellen2::CheckUsage()
{
    if (txtField1.Text().empty()) return true;
    const std::string stored = FieldText(0);
    const CodeListUsage usage = UsageOfCode(intKind, txtField1.Text(), stored);
    return usage.statement.empty() || ListUsage(usage, stored);
}

bool F_Tabellen2::ListUsage(const CodeListUsage& usage, std::string_view stored)
{
    const auto box = LoadMessageBox();
    struct Releases {  // also after a failing scan: no half list is left for the next one
        ~Releases() { ReleaseMessageBox(); }
    } const releases;
    bool bolFree = true;
    {
        ado::Recordset rows;
        rows.Open(usage.statement, kvxvar.dbAdo, ado::adOpenForwardOnly, ado::adLockReadOnly);
        for (; !rows.Eof(); rows.MoveNext()) {
            bolFree = false;
            box->List1.AddItem(GetText(usage.labelText) + ": " + basic::ToText(rows[0].Value()));
        }
    }
    if (!bolFree) box->ShowWhereUsed(UsagePrompt(202, "  '" + std::string(stored) + "'  ", kvxvar));
    return bolFree;
}

}  // namespace kvx
