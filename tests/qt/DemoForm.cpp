#include "qt/DemoForm.h"

#include "ui/Desktop.h"

namespace kvx::test {

void DemoForm::Design()
{
    SetCaption("Probe");
    SetSize(8000, 6000);
    struct Row {
        ui::Label* label;
        ui::Control* box;
        std::string_view caption;
    };
    const Row rows[] = {{&lblName, &txtName, "&Name"},
                        {&lblArea, &txtArea, "&Fläche in Hektar"},
                        {&lblSpecies, &cmbSpecies, "&Hauptholzart"}};
    std::int32_t top = 120;
    for (const Row& row : rows) {
        row.label->Move(120, top + 45, 1500, 225);
        row.label->SetCaption(row.caption);
        row.box->Move(1700, top, 2000, 315);
        top += 400;
    }
    for (const char* species : {"Buche", "Eiche", "Fichte"})
        cmbSpecies.AddItem(species);
    chkDisable.Move(1700, top, 2000, 315);
    chkDisable.SetCaption("&Gesperrt");
    frame.Move(120, 1800, 3600, 900);
    frame.SetCaption("Innen");
    txtInside.SetContainer(&frame);
    txtInside.Move(150, 350, 2000, 315);
    List1.Move(120, 2800, 3600, 2000);
    for (int i = 1; i <= 30; ++i)
        List1.AddItem("Zeile " + std::to_string(i));
    TreeView1.Move(3900, 120, 3900, 4600);
    TreeView1.SetPathKeys("ROOT", "K", "\r\n");
    const ui::Node root = TreeView1.Add("ROOT", "Basis");
    for (const char* name : {"Nord", "Ost", "Süd"}) {
        const ui::Node node = TreeView1.AddChild(root, name, name);
        for (const char* number : {"01", "02"})
            TreeView1.AddChild(node, number, number);
    }
    root.SetExpanded(true);
    btnOK.Move(4800, 5000, 1200, 375);
    btnOK.SetCaption("Ok");
    btnCancel.Move(6300, 5000, 1200, 375);
    btnCancel.SetCaption("Abbrechen");
    btnCancel.SetCancel(true);
}

void DemoForm::Watch(ui::Control& control)
{
    const std::string name = control.FullName();
    const auto note = [this, name](std::string_view what) { log.push_back(name + "." + std::string(what)); };
    control.GotFocus.Connect([note] { note("GotFocus"); });
    control.LostFocus.Connect([note] { note("LostFocus"); });
    control.Click.Connect([note] { note("Click"); });
    control.DblClick.Connect([note] { note("DblClick"); });
    control.Validate.Connect([note](bool&) { note("Validate"); });
    control.KeyDown.Connect([note](std::int16_t& key, std::int16_t shift) {
        note("KeyDown " + std::to_string(key) + " " + std::to_string(shift));
    });
    control.KeyUp.Connect([note](std::int16_t& key, std::int16_t) { note("KeyUp " + std::to_string(key)); });
    control.KeyPress.Connect([note](std::int32_t& key) { note("KeyPress " + std::to_string(key)); });
}

void DemoForm::Wire()
{
    for (ui::Control* control : Controls())
        Watch(*control);
    for (ui::TextBox* box : {&txtName, &txtArea, &txtInside})
        box->Change.Connect([this, box] { log.push_back(box->FullName() + ".Change \"" + box->Text() + "\""); });
    cmbSpecies.Change.Connect([this] { log.push_back("cmbSpecies.Change \"" + cmbSpecies.Text() + "\""); });
    cmbSpecies.UserPicked.Connect([this] { log.push_back("cmbSpecies.UserPicked \"" + cmbSpecies.Text() + "\""); });
    cmbSpecies.DropDown.Connect([this] { log.push_back("cmbSpecies.DropDown"); });
    TreeView1.NodeClick.Connect([this](ui::Node& node) { log.push_back("NodeClick " + node.Text()); });
    TreeView1.AfterLabelEdit.Connect(
        [this](bool&, std::string& text) { log.push_back("AfterLabelEdit \"" + text + "\""); });
    txtArea.Validate.Connect([this](bool& cancel) { cancel = refuse; });
    txtArea.KeyPress.Connect([this](std::int32_t& key) {
        if (digitsOnly && (key < '0' || key > '9') && key != ui::vbKeyBack) key = 0;
    });
    txtName.KeyPress.Connect([this](std::int32_t& key) {
        if (upperCase && key >= 'a' && key <= 'z') key -= 'a' - 'A';
    });
    txtArea.LostFocus.Connect([this] {
        if (askOnLeaving) ui::CurrentDesktop().MessageBox("Gespeichert", ui::vbInformation, "Probe");
    });
    btnCancel.Click.Connect([this] { Hide(); });
}

}  // namespace kvx::test
