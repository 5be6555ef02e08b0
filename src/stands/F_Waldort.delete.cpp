#include "stands/F_Waldort.h"
#include "ado/Recordset.h"
#include "checks/F_MessageBox.h"
#include "common/M_Common.h"

namespace kvx {

namespace {

/// Where a stand may still be used. The statement is: head, the id text, tail.
struct StandUse {
    std::int32_t textId;
    std::string_view head, tail;
};
// clang-format off
constexpr StandUse kStandUses[] = {
    {726, "SELECT LISTE FROM LOGS WHERE ID_WALDORT IN ",
          " GROUP BY LISTE"},
    {460, "SELECT KURZBEZEICHNUNG FROM PERSONAL"
          " WHERE ID_PERSONAL IN (SELECT ID_PERSONAL FROM WB_WALDORT_ZUORD WHERE ID_WALDORT IN ",
          ") GROUP BY KURZBEZEICHNUNG"},
    {164, "SELECT NN_NAME FROM NN_POSITIONEN WHERE WALDORT_ID IN ",
          " GROUP BY NN_NAME"},
    {1178, "SELECT ARBEITSAUFTRAG_KOPF.NAME FROM ARBEITSAUFTRAG_KOPF,ARBEITSAUFTRAG "
           " WHERE ARBEITSAUFTRAG_KOPF.ID = ARBEITSAUFTRAG.ARBEITSAUFTRAG_KOPF_ID AND WO_ID IN ",
           " GROUP BY ARBEITSAUFTRAG_KOPF.NAME"},
    {54, "SELECT ARBEITSAUFTRAG_KOPF_PLANN.NAME FROM ARBEITSAUFTRAG_KOPF_PLANN,ARBEITSAUFTRAG_PLANN "
         " WHERE ARBEITSAUFTRAG_KOPF_PLANN.ID = ARBEITSAUFTRAG_PLANN.AA_PLANN_ID AND WO_ID IN ",
         " GROUP BY ARBEITSAUFTRAG_KOPF_PLANN.NAME"},
};
// clang-format on

}  // namespace

// Lists every use before it refuses, so that the user sees at once all that must be cleared.
// True: nothing refers to the stands.
bool F_Waldort::CheckStandUse(const std::string& where)
{
    const std::string ids = "(SELECT ID_WALDORT FROM WALDORT " + where + ")";
    const auto list = LoadMessageBox();
    struct Unloads {  // also after a failing scan: no half list is left for the next one
        F_MessageBox& list;
        ~Unloads()
        {
            if (list.IsLoaded()) list.Unload();
        }
    } const unloads{*list};
    list->List1.Clear();
    const auto helper = Siblings().NewDBHelper();
    for (const StandUse& use : kStandUses) {
        ado::Recordset rows;
        rows.Open(std::string(use.head) + ids + std::string(use.tail), kvxvar.dbAdo, ado::adOpenForwardOnly,
                  ado::adLockReadOnly);
        for (; !rows.Eof(); rows.MoveNext())
            list->List1.AddItem(GetText(use.textId) + ": " + helper->FieldToString(rows[0].Value(), false, false));
    }
    const bool isFree = list->List1.ListCount() == 0;
    if (!isFree) list->Run(F_MessageBox::kWhereUsed, GetText(202) + "  '" + GetText(388) + "'  " + GetText(203));
    return isFree;
}

void F_Waldort::btnLoschen_Click()
{
    const ui::Node node = TreeView1.SelectedItem();
    if (!node) return;
    if (node.Key() == "ROOT") {
        ShowMessage(GetText(187));
        return;
    }
    if (ShowMessage(GetText(186), ui::vbYesNo) == ui::vbNo) return;
    const std::string where = BuildNodeWhere(/*bySelection=*/true, /*wholeLevelList=*/false);
    if (where.empty()) return;  // nothing selected any more: a DELETE without a condition would empty the table
    if (!CheckStandUse(where)) return;
    try {
        kvxvar.dbAdo.Execute("DELETE FROM WALDORT " + where);
    } catch (const basic::Error&) {
        return;  // a table that the check does not know still refers to the stand: the node stays
    }
    TreeView1.Remove(node);
    const ui::Node neighbour = TreeView1.SelectedItem();
    if (neighbour && neighbour.Key() != "ROOT") TreeView1.SetSelectedItem(neighbour.Parent());
    ShowSelection();
}

}  // namespace kvx
