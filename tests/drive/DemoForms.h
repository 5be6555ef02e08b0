#pragma once

#include "basic/Convert.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/DTPicker.h"
#include "ui/Desktop.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/ListBox.h"
#include "ui/ListView.h"
#include "ui/OptionButton.h"
#include "ui/SSTab.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"
#include "ui/TreeView.h"

#include <functional>
#include <string>
#include <vector>

namespace kvx::test {

/// A dialog with a control of every kind that a driver acts on; notes what reaches its handlers.
class DemoForm : public ui::Form {
public:
    explicit DemoForm(std::string_view name = "F_Demo") : Form(name) { Wire(); }

    ui::TextBox txtName{*this, "txtName"}, txtLocked{*this, "txtLocked"};
    ui::ComboBox cmbUnit{*this, "cmbUnit"};
    ui::ListBox lstSource{*this, "lstSource"}, lstTarget{*this, "lstTarget"};
    ui::ListView lvwRows{*this, "lvwRows"};
    ui::TreeView tree{*this, "tree"};
    ui::SSTab tabs{*this, "tabs"};
    ui::TextBox txtPage{*this, "txtPage"};
    ui::FlexGrid grid{*this, "grid"};
    ui::CheckBox chkOn{*this, "chkOn"};
    ui::OptionButton optA{*this, "optA"}, optB{*this, "optB"};
    ui::DTPicker dtpDay{*this, "dtpDay"};
    ui::Label lblText{*this, "lblText"};
    ui::Button btnOK{*this, "btnOK"}, btnAsk{*this, "btnAsk"}, btnInput{*this, "btnInput"}, btnFail{*this, "btnFail"},
        btnCancel{*this, "btnCancel"};
    ui::Timer tmr{*this, "tmr"};

    std::vector<std::string> notes;
    std::function<void()> onAsk;  // what btnAsk does; a question when empty
    bool keepsOpen = false;       // refuses to unload

protected:
    void Design() override
    {
        SetCaption("Probe");
        SetSize(9000, 9000);
        std::int32_t top = 0;
        for (ui::Control* control : Controls()) {
            control->Move(0, top, 3000, 600);
            top += 700;
        }
        txtLocked.SetEnabled(false);
        cmbUnit.SetStyle(ui::vbComboDropDownList);
        for (const char* unit : {"fm", "rm", "srm"}) {
            cmbUnit.AddItem(unit);
            lstSource.AddItem(unit);
        }
        lstTarget.SetMultiSelect(ui::vbMultiSelectExtended);
        lstTarget.AddItem("eins");
        lstTarget.AddItem("zwei");
        lvwRows.SetViewStyle(ui::lvwReport);
        lvwRows.SetCheckboxes(true);
        lvwRows.ColumnHeaders().Add("C1", "Name");
        lvwRows.ColumnHeaders().Add("C2", "Wert");
        lvwRows.ListItems().Add("K1", "Buche").SetSubItems(1, "10");
        lvwRows.ListItems().Add("K2", "Eiche").SetSubItems(1, "20");
        tree.SetCheckBoxes(true);
        const ui::Node top1 = tree.Add("N0", "Wald");
        const ui::Node north = tree.Add(top1, ui::tvwChild, "N1", "Nord");
        tree.Add(north, ui::tvwChild, "N2", "Abteilung 3");
        tree.Add(top1, ui::tvwChild, "N3", "Süd");
        tabs.SetTabs(2);
        tabs.SetTabCaption(0, "Vorn");
        tabs.SetTabCaption(1, "Hinten");
        txtPage.SetContainer(&tabs);
        txtPage.SetContainerTab(1);
        grid.SetRows(3);
        grid.SetCols(3);
        grid.SetTextMatrix(1, 1, "a");
        grid.SetTextMatrix(2, 2, "b");
        btnCancel.SetCancel(true);
        tmr.SetInterval(500);
        dtpDay.SetValue(basic::DateOf({2024, 5, 15, 0, 0, 0}));
    }

private:
    void Note(std::string text) { notes.push_back(std::move(text)); }
    void Wire()
    {
        btnOK.Click.Connect([this] { Unload(); });
        btnCancel.Click.Connect([this] {
            Note("cancel");
            Unload();
        });
        btnAsk.Click.Connect([this] {
            if (onAsk) return onAsk();
            const std::int32_t button =
                ui::CurrentDesktop().MessageBox("Wirklich?", ui::vbYesNo + ui::vbQuestion, "Titel");
            Note("answer " + std::to_string(button));
        });
        btnInput.Click.Connect([this] { Note("input " + ui::CurrentDesktop().InputBox("Name:", "Titel", "alt")); });
        btnFail.Click.Connect([] { basic::Raise(basic::kErrDivisionByZero); });
        QueryUnload.Connect([this](std::int16_t& cancel, std::int16_t) { cancel = keepsOpen ? 1 : 0; });
        txtName.KeyDown.Connect([this](std::int16_t& code, std::int16_t shift) {
            Note("key " + std::to_string(code) + "/" + std::to_string(shift));
        });
        lstTarget.DragDrop.Connect([this](ui::Control& from, std::int32_t x, std::int32_t y) {
            Note("drop " + from.FullName() + " " + dynamic_cast<ui::ListBox&>(from).Text() + " " + std::to_string(x) +
                 "," + std::to_string(y));
        });
        lblText.DblClick.Connect([this] { Note("dblclick"); });
        lvwRows.ColumnClick.Connect([this](ui::ColumnHeader& column) { Note("column " + column.Key()); });
        grid.DblClick.Connect(
            [this] { Note("cell " + std::to_string(grid.Row()) + "," + std::to_string(grid.Col())); });
        tmr.Tick.Connect([this] { Note("tick"); });
        tree.AfterLabelEdit.Connect([this](bool&, std::string& text) { Note("label " + text); });
    }
};

}  // namespace kvx::test
