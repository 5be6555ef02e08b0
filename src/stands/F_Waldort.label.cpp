#include "stands/F_Waldort.h"
#include "ado/Recordset.h"
#include "basic/Text.h"
#include "common/M_Common.h"

#include <utility>

namespace kvx {

// Adds a node under the selected one and lets the user name it; its row is made when a name was accepted.
void F_Waldort::btnNeuerWO_Click()
{
    const ui::Node parent = TreeView1.SelectedItem();
    if (!parent || LevelOf(parent) >= intLevels) return;
    const std::string offered = GetText(1321);
    blnNewNode = true;
    ui::Node node;
    try {
        node = TreeView1.AddChild(parent, offered, offered);
    } catch (const basic::Error&) {
        blnNewNode = false;
        return;  // a node of this name is there already: the user names that one first
    }
    TreeView1.SetSelectedItem(node);
    ShowKey(node);
    nodeNaming = node;
    TreeView1.StartLabelEdit();
    txtName.SetText(basic::Trim(basic::Replace(basic::Mid(node.Key(), 4), kLevelSeparator, " ")));
    blnDirty = false;  // offered, not typed: it would otherwise be saved as the parent's name
}

void F_Waldort::TreeView1_BeforeLabelEdit(bool& Cancel)
{
    const ui::Node node = TreeView1.SelectedItem();
    const ui::Node expected = std::exchange(nodeNaming, nullptr);
    // Esc leaves a naming without any event: what begins now is a rename, unless we went on with the naming ourselves,
    // and then only at the same node: a click elsewhere, on Ok too, gives it up.
    if (expected != node) blnNewNode = false;
    if (!node) return;
    if (expected && (expected != node || !Visible())) {
        Cancel = true;
        return;
    }
    if (node.ForeColor() == ui::kColorGrayText) {
        Cancel = true;
        return;
    }
    if (expected) TreeView1.SetFocus();  // the user types the name, wherever the focus has been
    strEditWhere = BuildNodeWhere(/*bySelection=*/true, /*wholeLevelList=*/false);
}

void F_Waldort::TreeView1_AfterLabelEdit(bool& Cancel, std::string& NewString)
{
    const ui::Node node = TreeView1.SelectedItem();
    const bool isRoot = node.Key() == "ROOT";
    const std::string typed = isRoot ? NewString : basic::RTrim(basic::Left(NewString, KeyLength()));
    if (basic::Trim(typed).empty()) {  // also blanks with letters behind the key's length: a level is never empty
        Cancel = true;
        blnNewNode = false;
        if (isRoot) return;  // the tree would be gone
        TreeView1.Remove(node);
        ShowSelection();
        return;
    }
    const std::string oldText = node.Text();
    try {
        std::string text = typed;
        if (!AcceptLevelText(node, text)) {
            Cancel = true;
            ContinueNaming(node, typed);
            return;
        }
        if (NameIsTaken(node, text)) {
            ShowMessage(GetText(188));
            Cancel = true;
            ShowKey(node);
            ContinueNaming(node, oldText);
            return;
        }
        if (isRoot) {
            Cancel = true;  // the root is no stand
            return;
        }
        StoreName(node, text);
        NewString = text;
    } catch (const basic::Error&) {
        // Nothing was stored: node and boxes go back to the name that the rows have.
        node.SetText(oldText);
        ShowKey(node);
        blnNewNode = false;
        Cancel = true;
        throw;
    }
}

// A level may be restricted to the values of T_WALDORT; the user then picks one of them.
// @param text by reference: the picked value instead of the typed one
// @return false: neither typed nor picked
bool F_Waldort::AcceptLevelText(const ui::Node& node, std::string& text)
{
    const std::string level = std::to_string(LevelOf(node));
    const std::string restricted = kvxvar.bOracle != 0 ? "SELECT ID FROM T_WALDORT WHERE rownum=1 AND WONR = "
                                                       : "SELECT TOP 1 ID FROM T_WALDORT WHERE WONR = ";
    if (!HasRow(kvxvar, restricted + level)) return true;
    if (HasRow(kvxvar, "SELECT ID FROM T_WALDORT WHERE WONR = " + level + " AND SHORT = '" + text + "'")) return true;

    const std::string oldText = node.Text();
    node.SetText(text);
    ShowMessage(GetText(223));
    // Padded columns end in blanks that belong to no level.
    const std::string picked = basic::RTrim(Siblings().NewPicker()->PickValue(
        kvxvar, "SELECT SHORT,LONG FROM T_WALDORT WHERE WONR = " + level, "", "", "00"));
    node.SetText(oldText);
    if (!picked.empty()) text = picked;
    return !picked.empty();
}

// Whether rows with the new key are there already, in the subtree and, for client BB, in the list of levels.
bool F_Waldort::NameIsTaken(const ui::Node& node, const std::string& text)
{
    if (const std::int16_t level = LevelOf(node); level > 0)
        keyBoxes[static_cast<std::size_t>(level - 1)]->SetText(text);
    const std::string where = BuildNodeWhere(/*bySelection=*/true, /*wholeLevelList=*/true);
    return SelectId(kvxvar, "SELECT COUNT(*) FROM WALDORT" + where) > 0;
}

// The key comes first: a name that a hidden or unsaved node has is refused before anything is written. The keys of the
// subtree follow, as they are derived from it.
void F_Waldort::StoreName(const ui::Node& node, const std::string& text)
{
    const std::string oldPart(node.KeyPart());
    node.SetKeyPart(text);
    try {
        if (blnNewNode) {
            CreateStand(node, text);
            if (!txtWO6.Text().empty()) btnNeuerWO.SetEnabled(false);
        } else {
            RenameLevel(text);
        }
    } catch (const basic::Error&) {
        node.SetKeyPart(oldPart);
        throw;
    }
}

// The edit goes on, as soon as the one that is ending now has ended.
void F_Waldort::ContinueNaming(const ui::Node& node, const std::string& offered)
{
    nodeNaming = node;
    TreeView1.StartLabelEdit(offered);
}

// Renames the level in every row of the subtree with one statement. The rows are those of the old name.
void F_Waldort::RenameLevel(const std::string& text)
{
    std::size_t deepest = 0;
    for (std::size_t level = 1; level <= kStandLevels; ++level)
        if (!keyBoxes[level - 1]->Text().empty()) deepest = level;
    if (deepest == 0 || strEditWhere.empty()) return;
    keyBoxes[deepest - 1]->SetText(text);
    kvxvar.dbAdo.Execute("UPDATE WALDORT  SET " + LevelEquals(deepest, keyBoxes[deepest - 1]->Text()) + strEditWhere);
}

void F_Waldort::CreateStand(const ui::Node& node, const std::string& text)
{
    const auto helper = Siblings().NewDBHelper();
    StandKey key = Key();
    for (std::size_t i = 0; i < kStandLevels; ++i)
        key[i] = basic::Mid(key[i], 1, helper->ColumnLength("WALDORT", LevelColumn(i + 1), kvxvar));

    std::string assignments, name;
    if (node.Parent().Key() == "ROOT") {
        name = text;
        assignments = LevelEquals(1, text);
    } else {
        std::size_t deepest = kStandLevels;
        while (deepest > 1 && key[deepest - 1].empty())
            --deepest;
        for (std::size_t level = 1; level <= deepest; ++level) {
            if (level > 1) {
                assignments += ",";
                name += " ";
            }
            assignments += LevelEquals(level, key[level - 1]);
            name += key[level - 1];
        }
    }
    const std::int32_t id = InsertStand(kvxvar);
    kvxvar.dbAdo.Execute("UPDATE WALDORT SET ID_ACCESS_LEVELS = " + IdOrNull(ID_AL) +
                         ",FLAECHE = 0,AL_TER = 0,LANGNAME = '" + name + "'," + assignments +
                         " WHERE ID_WALDORT = " + std::to_string(id));
    cmbHolzart.SetListIndex(-1);
    const std::string longName = txtName.Text();
    ResetFields();
    txtName.SetText(longName);  // still the name offered
    blnNewNode = blnDirty = false;
}

}  // namespace kvx
