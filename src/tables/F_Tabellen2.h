#pragma once

#include "session/SiblingClasses.h"
#include "tables/CodeListCatalogue.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/DataControl.h"
#include "ui/DataGrid.h"
#include "ui/Form.h"
#include "ui/Frame.h"
#include "ui/SSTab.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace kvx {

/// "Tabellen": the short code lists, browsed in a grid and edited in the line below it. What a list is,
/// CodeListCatalogue tells. The buttons follow the focus: the grid means browsing, a box of the edit line means
/// editing.
class F_Tabellen2 final : public ui::Form {
public:
    F_Tabellen2();

    /// @param strTableName_dll    name of the list, for the protocol
    /// @param strProtokolPath_dll protocol file; empty: no protocol
    /// @param intIdString_dll     text id that chooses the list; an unknown one opens an empty form
    /// @param strUserName_dll     name of the user, for the protocol
    void Run(const KvxVar& kvxvar_dll, std::string_view strTableName_dll, std::string_view strProtokolPath_dll,
             std::int32_t intIdString_dll, std::string_view strUserName_dll);

    bool bolPrint = false;           ///< set before Run: print every tab, do not show
    bool bolSaved = false;           ///< read after Run: Speichern was pressed
    std::uint8_t bytFieldCount = 0;  ///< read after Run: values of the edit line

    ui::Frame Frame2{*this, "Frame2"};
    ui::SSTab SSTab1{*this, "SSTab1"};
    ui::Frame Frame1{*this, "Frame1"};
    ui::DataControl Data1{*this, "Data1"};
    ui::DataGrid DataGrid1{*this, "DataGrid1"};
    ui::TextBox txtField1{*this, "txtField1"}, txtField2{*this, "txtField2"}, txtField3{*this, "txtField3"};
    ui::CheckBox chkDisable{*this, "chkDisable"};
    ui::Button btnNeu{*this, "btnNeu"}, btnAbrechen{*this, "btnAbrechen"}, btnSpeichern{*this, "btnSpeichern"},
        btnLoschen{*this, "btnLoschen"}, cmdPrint{*this, "cmdPrint"}, btnOK{*this, "btnOK"};
    ui::Timer Timer1{*this, "Timer1"};

protected:
    void Design() override;

private:
    // F_Tabellen2.cpp: set-up and layout.
    void Wire();
    void LoadKind();
    void SetFieldLayout();
    void SetColumnCaptions();
    void SetColumnWidths();
    void Form_Activate();
    void Form_Resize();
    void Form_Unload(std::int16_t& Cancel);
    void LayoutEditLine();
    c_Loc& Loc();
    std::string GetText(std::int32_t id);

    // F_Tabellen2.browse.cpp: tabs, rows, states, closing.
    void RefreshData();
    void SSTab1_Click(std::int16_t PreviousTab);
    void SelectTab();
    void Data1_MoveComplete();
    void FillFields();
    void FillDisable();
    void DataGrid1_GotFocus();
    void EnterEdit();
    void chkDisable_Click();
    void btnNeu_Click();
    void btnAbrechen_Click();
    void cmdPrint_Click();
    void btnOK_Click();
    bool RowDiffersFromFields();
    bool HasRow() const;
    std::string FieldText(std::int32_t index);

    // F_Tabellen2.keys.cpp: what the boxes let through.
    void txtField1_GotFocus();
    void txtField2_GotFocus();
    void txtField3_GotFocus();
    void txtField1_KeyPress(std::int32_t& KeyAscii);
    void txtField2_KeyDown(std::int16_t& KeyCode, std::int16_t Shift);
    void txtField2_KeyPress(std::int32_t& KeyAscii);
    void txtField3_KeyDown(std::int16_t& KeyCode, std::int16_t Shift);
    void txtField3_KeyPress(std::int32_t& KeyAscii);
    std::int32_t FilterKey(std::int32_t index, std::string_view text, std::int32_t KeyAscii);
    std::string PickGroup();
    std::int32_t LengthOfField(std::int32_t index);

    // F_Tabellen2.save.cpp: saving.
    void btnSpeichern_Click();
    void SaveRecord();
    bool GroupIsKnown();
    bool IsDuplicate(const CodeListDuplicate& test);
    void SaveColour();
    void SaveFederalState();
    void SaveRow();
    std::int32_t InsertRecord();
    void UpdateFields(std::int32_t key);
    void UpdateTextField(std::string_view value, std::string_view column, std::int32_t key);
    void UpdateNumberField(std::string_view value, std::string_view column, std::int32_t key);
    std::string ValueToWrite(CodeListValue value);
    void WriteProtocolLine();
    void RefreshAfterSave();
    void Timer1_Timer();
    void ReloadGrid();
    void LocateRecord();

    // F_Tabellen2.delete.cpp: deleting.
    void btnLoschen_Click();
    void DeleteRecord();
    bool CheckUsage();
    bool ListUsage(const CodeListUsage& usage, std::string_view stored);

    KvxVar kvxvar;
    const CodeListKind* kind = nullptr;  // nullptr: the host's id is no code list
    std::int16_t intKind = 0;
    std::int32_t intIdString = 0;
    std::string strTableName, strProtokolPath, strUserName;
    std::string strQuery, strGroup, strTable, strKeyField;
    bool bolLoading = false;        // the form sets itself up or reloads: tab and row handlers stay idle
    bool bolNew = false;            // between Neu and the next return to the grid
    bool bolEditable = true;        // false for the labels of the program's own fields: nothing can be added or deleted
    bool bolFilling = false;        // the flag is set from data: not a click of the user
    std::int32_t lngCurrentId = 0;  // key of the row saved last
    std::int32_t lngGroupId = 0;    // RELTABLE.GRUPPE of the current row
    std::string strDecimal;         // the machine's decimal separator
    std::unique_ptr<c_Loc> loc;
    std::array<ui::TextBox*, 3> fieldBoxes{&txtField1, &txtField2, &txtField3};
};

}  // namespace kvx
