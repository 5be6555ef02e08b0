#pragma once

#include "session/SiblingClasses.h"
#include "ui/Button.h"
#include "ui/ControlArray.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/TextBox.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace kvx {

/// "Info": ten free fields of one stand, five texts and five numbers. They are locked until the user asks to edit, and
/// saved by a button. Reads and writes INFO1 to INFO5 and ZAHL1 to ZAHL5 of WALDORT.
class F_Waldort_Info final : public ui::Form {
public:
    F_Waldort_Info();

    /// @param kvxvar_dll session record; the form works on a copy
    /// @param where      WHERE text of the stand, as the stand tree builds it; one without a row shows empty fields,
    /// and
    ///                   saving changes nothing
    /// @throws basic::Error the provider's, before the dialog is shown or from one of its events
    void Run(const KvxVar& kvxvar_dll, std::string_view where);

    /// Fills the fields; they stay as they are when there is no row.
    void GetData(const KvxVar& kvxvar_dll, std::string_view where);

    ui::ControlArray<ui::Label, 5> lblInfo{*this, "lblInfo"};
    ui::ControlArray<ui::TextBox, 5> txtInfo{*this, "txtInfo"};
    ui::ControlArray<ui::Label, 5> lblZahl{*this, "lblZahl"};
    ui::ControlArray<ui::TextBox, 5> txtZahl{*this, "txtZahl"};
    ui::Button btnBearbeiten{*this, "btnBearbeiten"}, btnSpeichern{*this, "btnSpeichern"};
    ui::Button btnAbbrechen{*this, "btnAbbrechen"}, btnClose{*this, "btnClose"};

protected:
    void Design() override;

private:
    KvxVar kvxvar;               // our copy
    std::unique_ptr<c_Loc> loc;  // from the load to the unload
    std::string strWhere;        // addresses the stand

    void Wire();
    void LockBox(bool locked, ui::TextBox& box);
    void LockAll(bool locked);
    void ToggleButtons();

    void Form_Load();
    void Form_Unload(std::int16_t& Cancel);
    void btnBearbeiten_Click();
    void btnSpeichern_Click();
    void btnAbbrechen_Click();
    void btnClose_Click();
    void txtInfo_KeyPress(std::int32_t Index, std::int32_t& KeyAscii);
    void txtZahl_KeyPress(std::int32_t Index, std::int32_t& KeyAscii);
    void txtZahl_LostFocus(std::int32_t Index);
    void Box_GotFocus();
};

/// Shows the free fields of one stand.
/// @param where as F_Waldort_Info::Run takes it
/// @throws basic::Error as F_Waldort_Info::Run
void ShowStandInfo(const KvxVar& kvxvar, std::string_view where);

}  // namespace kvx
