#include "stands/F_Waldort.h"
#include "ado/Recordset.h"
#include "basic/Convert.h"
#include "basic/Format.h"
#include "basic/Text.h"
#include "common/M_Common.h"

namespace kvx {

void F_Waldort::TreeView1_NodeClick(ui::Node& Node)
{
    if (Node.Key() == "ROOT") {
        ClearFields();
        btnNeuerWO.SetEnabled(btnNeuerWO.Tag().empty());
        btnLoschen.SetEnabled(false);
        btnOK.SetEnabled(false);
        return;
    }
    try {
        ShowStand(Node);
    } catch (const basic::Error&) {
        // The key boxes already name this stand: what the fields still hold of another one must not be saved under it.
        ResetFields();
        ShowRights(Node);
        throw;
    }
    ShowRights(Node);
}

void F_Waldort::TreeView1_Click()
{
    if (const ui::Node node = TreeView1.SelectedItem()) btnInfo.SetEnabled(node.Text() != "Basis");
}

// Reads the stand of a node. A node that has no row gets one now: it was added in this session and its row was deleted
// or hidden meanwhile, or its key is longer than what a user may type.
void F_Waldort::ShowStand(const ui::Node& node)
{
    ShowKey(node);
    const std::string statement = StandStatement();
    FillList("HOLZART", cmbHolzart.Object(), {}, kvxvar);
    if (ID_WALDORT_Root != 0 && intRootLevels != 0) btnOK.SetEnabled(LevelOf(node) >= intRootLevels);

    ado::Recordset stand;
    stand.Open(statement, kvxvar.dbAdo, ado::adOpenForwardOnly, ado::adLockReadOnly);
    if (stand.Eof()) {
        stand.Close();
        CreateMissingRow();
        stand.Open(statement, kvxvar.dbAdo, ado::adOpenForwardOnly, ado::adLockReadOnly);
    }
    ResetFields();
    ShowDisabled(false);
    if (!stand.Eof()) ShowRow(stand);
    blnDirty = false;  // what was read is no edit
}

// The exact row of the key in the boxes.
std::string F_Waldort::StandStatement() const
{
    const std::string disable = ZeroIfNull(kvxvar, "DISABLE");
    return std::string(SelectStart(kvxvar)) +
           "FLAECHE AS AREA,LANGNAME AS LONGNAME,HAUPT_HA AS HAUPT_HA1,AL_TER AS ALTER1,GEMARKUNG AS GEMARKUNG1,"
           "FLURSTUECK AS FLURSTUECK1,PARZELLE AS PARZELLE1," +
           disable + " AS DISABLE FROM WALDORT WHERE " + disable + " = 0 AND " + AccessCondition(kvxvar, ID_AL) +
           AndLevels(Key(), 1);
}

void F_Waldort::CreateMissingRow()
{
    std::string assignments, name;
    for (std::size_t level = 1; level <= kStandLevels && !keyBoxes[level - 1]->Text().empty(); ++level) {
        const std::string& value = keyBoxes[level - 1]->Text();
        if (level > 1) {
            assignments += ",";
            name += " ";
        }
        assignments += LevelEquals(level, value);
        name += value;
    }
    txtName.SetText(name);
    MakeRow(assignments, name);
}

void F_Waldort::ShowRow(const ado::Recordset& stand)
{
    if (!stand["AREA"].IsNull()) txtFlaeche.SetText(basic::Format(stand["AREA"].Value(), "0.0000"));
    txtName.SetText(basic::ToText(stand["LONGNAME"].Value()));
    cmbHolzart.SetListIndex(ComboIndexOfField("HAUPT_HA1", stand, cmbHolzart));
    if (!stand["ALTER1"].IsNull()) txtAlter.SetText(basic::Format(stand["ALTER1"].Value(), "0.00"));
    txtGemarkung.SetText(basic::ToText(stand["GEMARKUNG1"].Value()));
    txtFlurStuck.SetText(basic::ToText(stand["FLURSTUECK1"].Value()));
    txtParzelle.SetText(basic::ToText(stand["PARZELLE1"].Value()));
    ShowDisabled(stand["DISABLE"].Int64() != 0);
}

std::int16_t F_Waldort::LevelOf(const ui::Node& node) const
{
    return static_cast<std::int16_t>(LevelsOfNodeKey(node.Key()).size());
}

// The key boxes mirror the selected node, whoever selected it: every statement is built from them.
void F_Waldort::ShowKey(const ui::Node& node)
{
    const std::vector<std::string> levels = LevelsOfNodeKey(node.Key());
    for (std::size_t i = 0; i < kStandLevels; ++i)
        keyBoxes[i]->SetText(i < levels.size() ? basic::Left(levels[i], KeyLength()) : std::string());
}

// What the selected node allows. A grey stand can be picked but not changed.
void F_Waldort::ShowRights(const ui::Node& node)
{
    btnNeuerWO.SetEnabled(LevelOf(node) < intLevels && btnNeuerWO.Tag().empty());
    const bool own = node.ForeColor() != ui::kColorGrayText;
    btnLoschen.SetEnabled(own);
    frame.SetEnabled(own);
    if (own && ID_WALDORT_Root == 0) btnOK.SetEnabled(true);
}

// Code has moved the selection, or the tree has when a node went: nothing is read, but nothing of the node that is gone
// may stay either.
void F_Waldort::ShowSelection()
{
    ClearFields();
    ShowDisabled(false);
    const ui::Node node = TreeView1.SelectedItem();
    if (!node || node.Key() == "ROOT") {
        btnNeuerWO.SetEnabled(btnNeuerWO.Tag().empty());
        btnLoschen.SetEnabled(false);
        btnOK.SetEnabled(false);
        return;
    }
    ShowKey(node);
    ShowRights(node);
}

void F_Waldort::ResetFields()
{
    txtFlaeche.SetText(basic::Format(std::int32_t{0}, "0.0000"));
    txtName.SetText("");
    txtAlter.SetText(basic::Format(std::int32_t{0}, "0.00"));
    for (ui::TextBox* box : {&txtGemarkung, &txtFlurStuck, &txtParzelle})
        box->SetText("");
    blnDirty = false;  // showing is no edit
}

void F_Waldort::ClearFields()
{
    for (ui::TextBox* box : {&txtFlaeche, &txtName, &txtAlter, &txtGemarkung, &txtFlurStuck, &txtParzelle})
        box->SetText("");
    for (ui::TextBox* box : keyBoxes)
        box->SetText("");
    cmbHolzart.SetListIndex(-1);
    blnDirty = false;
}

void F_Waldort::ShowDisabled(bool disabled)
{
    blnLoading = true;
    chkDisable.SetValue(disabled ? ui::vbChecked : ui::vbUnchecked);
    blnLoading = false;
}

}  // namespace kvx
