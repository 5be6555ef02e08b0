#pragma once

#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/Form.h"
#include "ui/Frame.h"
#include "ui/Label.h"
#include "ui/ListBox.h"
#include "ui/SSTab.h"
#include "ui/TextBox.h"
#include "ui/TreeView.h"

#include <string>
#include <vector>

namespace kvx::test {

/// A small dialog with one control of each kind that users type and click in; writes down every event.
class DemoForm final : public ui::Form {
public:
    DemoForm() : Form("DemoForm") { Wire(); }

    ui::Label lblName{*this, "lblName"};
    ui::TextBox txtName{*this, "txtName"};
    ui::Label lblArea{*this, "lblArea"};
    ui::TextBox txtArea{*this, "txtArea"};
    ui::Label lblSpecies{*this, "lblSpecies"};
    ui::ComboBox cmbSpecies{*this, "cmbSpecies"};
    ui::CheckBox chkDisable{*this, "chkDisable"};
    ui::Frame frame{*this, "frame"};
    ui::TextBox txtInside{*this, "txtInside"};
    ui::ListBox List1{*this, "List1"};
    ui::TreeView TreeView1{*this, "TreeView1"};
    ui::Button btnOK{*this, "btnOK"}, btnCancel{*this, "btnCancel"};

    std::vector<std::string> log;
    bool refuse = false;        ///< Validate of txtArea keeps the focus
    bool digitsOnly = false;    ///< KeyPress of txtArea
    bool upperCase = false;     ///< KeyPress of txtName
    bool askOnLeaving = false;  ///< LostFocus of txtArea shows a message

protected:
    void Design() override;

private:
    void Wire();
    void Watch(ui::Control& control);
};

}  // namespace kvx::test
