#pragma once

#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Frame.h"
#include "ui/Label.h"
#include "ui/ListBox.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace kvx {

/// A prompt above a scrolling list of text lines. One instance serves four jobs: picking a value of a host's combo box,
/// showing a text file, showing lines that a host adds one by one, and showing what still refers to a record.
/// Loading empties the list, so lines of one message never show up in a later one.
class F_MessageBox final : public ui::Form {
public:
    enum Mode : std::uint8_t {
        kWhereUsed = 0,      ///< lines were added before
        kPickFromCombo = 1,  ///< the only mode with a Cancel button
        kTextFile = 2,
        kHostLines = 3,  ///< lines were added before; a double click does nothing
    };

    F_MessageBox();

    /// Shows the dialog and returns when it has closed.
    /// @param strLabel prompt
    /// @param strValue mode 1: the current value; mode 2: path of the text file; else unused
    /// @param cmbBox   mode 1: the host's combo box (ListCount, List); else Nothing
    /// @throws basic::Error 53, 76: no such file; 91, 438: not a combo box. The form may stay loaded then
    void Run(std::uint8_t mode, std::string_view strLabel, std::string_view strValue = {},
             const basic::ObjectRef& cmbBox = nullptr);
    /// Shows the lines that a usage check has collected, as mode 0 does. @param strLabel prompt
    void ShowWhereUsed(std::string_view strLabel);
    /// The list moves up under the frame's edge: there is no prompt.
    void LayoutHostLines();

    ui::Label LabelPrompt{*this, "LabelPrompt"};
    ui::Frame Frame1{*this, "Frame1"};
    ui::ListBox List1{*this, "List1"};
    ui::Button btnOK{*this, "btnOK"}, btnCancel{*this, "btnCancel"};

    std::string strResult;  ///< mode 1: the line picked; the value handed in on Cancel

protected:
    void Design() override;

private:
    void Wire();
    void FillListFromCombo(const basic::ObjectRef& cmbBox);
    void SelectOldValue();
    void LoadListFromFile(std::string_view path);
    void LayoutPick();

    void Form_Load();
    void Form_QueryUnload(std::int16_t& Cancel, std::int16_t UnloadMode);
    void List1_DblClick();
    void List1_KeyPress(std::int32_t& KeyAscii);
    void btnOK_Click();
    void btnCancel_Click();

    std::uint8_t bytMode = kWhereUsed;
    std::string strOldValue;  // what the caller handed in: Cancel gives it back
};

/// The shared instance, loaded; made by whoever touches it first.
std::shared_ptr<F_MessageBox> LoadMessageBox();
/// Unloads the shared instance, if there is one, and drops it.
void ReleaseMessageBox();

}  // namespace kvx
