#pragma once

#include "session/SiblingClasses.h"
#include "stands/StandKey.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/Form.h"
#include "ui/Frame.h"
#include "ui/Label.h"
#include "ui/ProgressBar.h"
#include "ui/TextBox.h"
#include "ui/TreeView.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvx {

/// "Waldort Verwaltung": the stand tree on the left, the selected stand on the right. Lives for one launcher call.
/// There is no save button: a field saves itself when it loses the focus. Reads and writes WALDORT.
/// An error of the database inside an event is shown to the user, and the dialog stays usable; in Run it is the host's.
class F_Waldort final : public ui::Form {
public:
    F_Waldort();

    /// Shows the dialog and returns when it was hidden (OK, Cancel) or closed.
    /// @param kvxvar_dll       session record; the form works on a copy
    /// @param ID_AL            access level whose stands are offered, 0 = common stands only
    /// @param OnlyRead         a viewer: every stand is grey
    /// @param ID_WALDORT_Root  show only the subtree of this stand, 0 = the whole tree
    /// @param ListBox          the caller's list box, which OK fills while the dialog stays open; or Nothing
    /// @throws basic::Error the provider's, before the dialog is shown or while it prints
    void Run(const KvxVar& kvxvar_dll, std::int32_t ID_AL, bool OnlyRead, std::int32_t ID_WALDORT_Root,
             const basic::ObjectRef& ListBox);

    bool bolPrint = false;  ///< set before Run: print, do not show; counts for one Run
    bool blnOK = false;     ///< read after Run: ended with OK

    /// Id of the stand whose key the six boxes hold. @return 0 = no such row
    std::int32_t GetID(std::int32_t ID_AL) const;
    /// True when a stand has the levels of the boxes up to the first empty one, and maybe more below.
    bool Is_In_Table(const KvxVar& kvxvar_dll, std::int32_t ID_AL) const;
    StandKey Key() const;  ///< the six key boxes

    // Left.
    ui::TreeView TreeView1{*this, "TreeView1"};
    ui::ProgressBar ProgressBar1{*this, "ProgressBar1"};  // seen only while the tree loads or prints

    // Right, above: the key levels, mirrors of the selected node.
    ui::Label lblWO1{*this, "lblWO1"}, lblWO2{*this, "lblWO2"}, lblWO3{*this, "lblWO3"};
    ui::Label lblWO4{*this, "lblWO4"}, lblWO5{*this, "lblWO5"}, lblWO6{*this, "lblWO6"};
    ui::TextBox txtWO1{*this, "txtWO1"}, txtWO2{*this, "txtWO2"}, txtWO3{*this, "txtWO3"};
    ui::TextBox txtWO4{*this, "txtWO4"}, txtWO5{*this, "txtWO5"}, txtWO6{*this, "txtWO6"};

    // Right, below: what can be edited. A grey node disables the frame.
    ui::Frame frame{*this, "frame"};
    ui::Label lblName{*this, "lblName"}, lblHolzart{*this, "lblHolzart"}, lblFlaeche{*this, "lblFlaeche"};
    ui::Label lblAlter{*this, "lblAlter"}, lblGemarkung{*this, "lblGemarkung"}, lblFlurStuck{*this, "lblFlurStuck"};
    ui::Label lblParzelle{*this, "lblParzelle"};
    ui::TextBox txtName{*this, "txtName"};
    ui::ComboBox cmbHolzart{*this, "cmbHolzart"};
    ui::TextBox txtFlaeche{*this, "txtFlaeche"}, txtAlter{*this, "txtAlter"};
    ui::TextBox txtGemarkung{*this, "txtGemarkung"}, txtFlurStuck{*this, "txtFlurStuck"};
    ui::TextBox txtParzelle{*this, "txtParzelle"};
    ui::CheckBox chkDisable{*this, "chkDisable"};

    // Bottom.
    ui::Button btnNeuerWO{*this, "btnNeuerWO"}, btnLoschen{*this, "btnLoschen"}, btnInfo{*this, "btnInfo"};
    ui::Button cmdPrint{*this, "cmdPrint"}, btnOK{*this, "btnOK"}, btnCancel{*this, "btnCancel"};

protected:
    void Design() override;
    void EventFailed(const basic::Error& error) override;

private:
    std::array<ui::TextBox*, kStandLevels> keyBoxes{&txtWO1, &txtWO2, &txtWO3, &txtWO4, &txtWO5, &txtWO6};
    std::array<ui::Label*, kStandLevels> keyLabels{&lblWO1, &lblWO2, &lblWO3, &lblWO4, &lblWO5, &lblWO6};
    struct NumberField {
        ui::TextBox* box;
        std::string_view column, format;
    };
    std::array<NumberField, 2> numberFields{
        {{&txtFlaeche, "FLAECHE", "#####0.0000"}, {&txtAlter, "AL_TER", "#####0.00"}}};
    struct TextField {
        ui::TextBox* box;
        std::string_view assignment;  // up to the "="; the statements differ by a blank
    };
    std::array<TextField, 3> textFields{
        {{&txtGemarkung, " SET GEMARKUNG"}, {&txtFlurStuck, " SET FLURSTUECK"}, {&txtParzelle, "SET PARZELLE"}}};

    KvxVar kvxvar;                     // our copy: what the host changes meanwhile is not seen
    std::unique_ptr<c_Loc> loc;        // from the first text to the unload
    bool blnDirty = false;             // a field was changed since the last save
    bool blnNewNode = false;           // a node added by btnNeuerWO is being named
    ui::Node nodeNaming;               // the label edit that starts next goes on with naming this node
    bool blnLoading = false;           // chkDisable is being set from data, not by the user
    bool blnActivated = false;         // the tree has been loaded; a form that is shown again loads again
    std::int16_t intLevels = 6;        // key levels in use
    std::int32_t ID_AL = 0;            // as passed
    bool blnOnlyRead = false;          // as passed
    std::int32_t ID_WALDORT_Root = 0;  // as passed
    std::int16_t intRootLevels = 0;    // how many levels the root stand fixes
    basic::ObjectRef objListBox;       // the caller's list box, or Nothing
    std::string strEditWhere;          // the subtree's rows under the name they had before a label edit

    // F_Waldort.cpp
    void Wire();
    void Form_Load();
    void Form_Unload(std::int16_t& Cancel);
    void btnOK_Click();
    void btnCancel_Click();
    void btnInfo_Click();
    void ApplyInputLimits();
    void ReadLevelOption();
    void ApplyClientRules();
    void AddToListBox();
    std::string GetText(std::int32_t id);
    std::int32_t KeyLength() const;

    // F_Waldort.tree.cpp
    void Form_Activate();
    void LoadTree();
    std::string RootCondition();
    std::string TreeStatement(const std::string& condition) const;
    void FillTree(const ado::RowBlock& rows);
    void EnsureParents(std::string_view key);
    void MakeRow(const std::string& assignments, const std::string& name);
    void ShowProgress(std::size_t done, std::size_t count);

    // F_Waldort.show.cpp
    void TreeView1_NodeClick(ui::Node& Node);
    void TreeView1_Click();
    void ShowStand(const ui::Node& node);
    std::string StandStatement() const;
    void CreateMissingRow();
    void ShowRow(const ado::Recordset& stand);
    std::int16_t LevelOf(const ui::Node& node) const;
    void ShowKey(const ui::Node& node);
    void ShowRights(const ui::Node& node);
    void ShowSelection();
    void ResetFields();
    void ClearFields();
    void ShowDisabled(bool disabled);

    // F_Waldort.edit.cpp
    void WireFields();
    void Field_Change();
    void SaveField(const std::string& assignment);
    void txtName_LostFocus();
    void cmbHolzart_LostFocus();
    void NumberField_LostFocus(std::size_t index);
    void TextField_LostFocus(std::size_t index);
    void chkDisable_Click();

    // F_Waldort.label.cpp
    void btnNeuerWO_Click();
    void TreeView1_BeforeLabelEdit(bool& Cancel);
    void TreeView1_AfterLabelEdit(bool& Cancel, std::string& NewString);
    bool AcceptLevelText(const ui::Node& node, std::string& text);
    bool NameIsTaken(const ui::Node& node, const std::string& text);
    void StoreName(const ui::Node& node, const std::string& text);
    void ContinueNaming(const ui::Node& node, const std::string& offered);
    void RenameLevel(const std::string& text);
    void CreateStand(const ui::Node& node, const std::string& text);

    // F_Waldort.delete.cpp
    void btnLoschen_Click();
    bool CheckStandUse(const std::string& where);

    // F_Waldort.print.cpp
    void cmdPrint_Click();

    // F_Waldort.lookup.cpp
    std::string BuildNodeWhere(bool bySelection, bool wholeLevelList);
    std::string VisibleRows(bool wholeLevelList) const;
};

}  // namespace kvx
