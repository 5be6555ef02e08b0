#include "stands/F_Waldort.h"
#include "ado/Recordset.h"
#include "common/M_Common.h"

namespace kvx {

// Prints all stands of all levels, disabled ones too, as a table of the word processor.
void F_Waldort::cmdPrint_Click()
{
    struct Done {
        F_Waldort& form;
        ~Done()
        {
            form.ProgressBar1.SetVisible(false);
            form.SetMousePointer(ui::vbDefault);
        }
    } const done{*this};
    SetMousePointer(ui::vbHourglass);

    const auto count = static_cast<std::size_t>(SelectId(kvxvar, "SELECT COUNT(*) FROM WALDORT"));
    ado::Recordset stands;
    stands.Open("SELECT WO1,WO2,WO3,WO4,WO5,WO6 FROM WALDORT  ORDER BY WO1,WO2,WO3,WO4,WO5,WO6", kvxvar.dbAdo,
                ado::adOpenForwardOnly, ado::adLockReadOnly);
    std::string text = "WO1\tWO2\tWO3\tWO4\tWO5\tWO6\r\n";
    ProgressBar1.SetVisible(true);
    const ado::Fields fields = stands.Fields();
    for (std::size_t row = 1; !stands.Eof(); stands.MoveNext(), ++row) {
        ShowProgress(row, count);
        for (std::size_t i = 0; i < kStandLevels; ++i) {
            if (i > 0) text += '\t';
            text += fields[i].TextView();
        }
        text += "\r\n";
    }
    ProgressBar1.SetVisible(false);
    stands.Close();
    PrintTextToWord(text, /*flag=*/false);
}

}  // namespace kvx
