#include "host/Calls.h"

#include "entry/c_Message.h"
#include "ui/Desktop.h"

namespace kvx::host::calls {

void MessageBoxCmb(Call& call)
{
    const std::string before = TextOf(call.boxes.txtWert);
    const std::string chosen = c_Message().MessageBoxCmb(
        Words{"Baumart wählen:", "Choose a tree species:"}.In(call.english), before, call.boxes.cmbWert);
    SetText(call.boxes.txtWert, chosen);
    call.outcome.Result(chosen);
}

void MessageBox_Clear(Call&)
{
    c_Message().MessageBox_Clear();
}

void MessageBox_AddItem(Call& call)
{
    const Words prompt{"Zeile, die an die Meldung angefügt wird:", "Line to be added to the message:"};
    const std::string line = ui::CurrentDesktop().InputBox(prompt.In(call.english), "Korvex", "");
    if (!line.empty()) c_Message().MessageBox_AddItem(line);
}

void MessageBox_ItemCount(Call& call)
{
    call.outcome.Result(std::to_string(c_Message().MessageBox_ItemCount()));
}

void MessageBox_Show(Call& call)
{
    c_Message().MessageBox_Show(Words{"Hinweise", "Notes"}.In(call.english));
}

void MessageBoxNL(Call& call)
{
    const std::string file = call.askFile ? call.askFile() : std::string();
    if (!file.empty())
        c_Message().MessageBoxNL(Words{"Inhalt der Datei:", "Content of the file:"}.In(call.english), file);
}

}  // namespace kvx::host::calls
