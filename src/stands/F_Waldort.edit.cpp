#include "stands/F_Waldort.h"
#include "basic/Convert.h"
#include "basic/Text.h"
#include "common/M_Common.h"

namespace kvx {

namespace {

// A save leaves a number with the decimal point, whatever the machine's language.
std::string NumberForSql(std::string_view text)
{
    return basic::Replace(text, ",", ".");
}

}  // namespace

void F_Waldort::WireFields()
{
    for (ui::TextBox* box : keyBoxes)
        box->GotFocus.Connect(SelectAllOnFocus);

    struct Field {
        ui::Control& control;
        ui::Control& next;  // where Enter leads
    };
    for (const Field& field : {Field{txtName, cmbHolzart}, Field{cmbHolzart, txtFlaeche}, Field{txtFlaeche, txtAlter},
                               Field{txtAlter, txtGemarkung}, Field{txtGemarkung, txtFlurStuck},
                               Field{txtFlurStuck, txtParzelle}, Field{txtParzelle, btnOK}}) {
        field.control.GotFocus.Connect(SelectAllOnFocus);
        field.control.KeyPress.Connect([&next = field.next](std::int32_t& KeyAscii) {
            if (KeyAscii != ui::vbKeyReturn) return;
            KeyAscii = 0;
            FocusIfEnabled(next);
        });
    }
    for (ui::TextBox* box : {&txtName, &txtFlaeche, &txtAlter, &txtGemarkung, &txtFlurStuck, &txtParzelle})
        On(box->Change, &F_Waldort::Field_Change);
    On(cmbHolzart.Change, &F_Waldort::Field_Change);
    // A species taken from the list changes the stand as one that was typed.
    On(cmbHolzart.UserPicked, &F_Waldort::Field_Change);

    On(txtName.LostFocus, &F_Waldort::txtName_LostFocus);
    On(cmbHolzart.LostFocus, &F_Waldort::cmbHolzart_LostFocus);
    for (std::size_t i = 0; i < numberFields.size(); ++i) {
        const NumberField& field = numberFields[i];
        field.box->KeyPress.Connect([&field](std::int32_t& KeyAscii) {
            if (KeyAscii != 0) NumberKey(KeyAscii, *field.box, field.format);
        });
        On(field.box->LostFocus, &F_Waldort::NumberField_LostFocus, i);
    }
    for (std::size_t i = 0; i < textFields.size(); ++i)
        On(textFields[i].box->LostFocus, &F_Waldort::TextField_LostFocus, i);
    On(chkDisable.Click, &F_Waldort::chkDisable_Click);
}

void F_Waldort::Field_Change()
{
    blnDirty = true;
}

// One UPDATE over the one row of the key in the boxes. When it fails the flag stays: the next leaving tries again, and
// nothing typed is lost.
void F_Waldort::SaveField(const std::string& assignment)
{
    if (!blnDirty) return;
    const std::string where = BuildNodeWhere(/*bySelection=*/false, /*wholeLevelList=*/false);
    if (!where.empty()) kvxvar.dbAdo.Execute("UPDATE WALDORT " + assignment + where);
    blnDirty = false;
}

void F_Waldort::txtName_LostFocus()
{
    SaveField(" SET LANGNAME = " + (txtName.Text().empty() ? "NULL" : "'" + txtName.Text() + "'"));
}

void F_Waldort::cmbHolzart_LostFocus()
{
    SaveField(" SET HAUPT_HA = '" + cmbHolzart.Text() + "'");
}

void F_Waldort::NumberField_LostFocus(std::size_t index)
{
    const NumberField& field = numberFields[index];
    // Rewriting the number is no edit: a user who only tabs through must not store 0 for an unknown area.
    const bool edited = blnDirty;
    if (!basic::IsNumeric(field.box->Text())) field.box->SetText("0");
    FormatBox(field.format, *field.box);
    blnDirty = edited;
    SaveField("SET " + std::string(field.column) + " = " + NumberForSql(field.box->Text()));
}

void F_Waldort::TextField_LostFocus(std::size_t index)
{
    const TextField& field = textFields[index];
    SaveField(std::string(field.assignment) + " = '" + field.box->Text() + "'");
}

// Disables the whole subtree; its nodes stay until the tree is loaded again.
void F_Waldort::chkDisable_Click()
{
    if (blnLoading) return;
    const std::string where = BuildNodeWhere(/*bySelection=*/true, /*wholeLevelList=*/false);
    if (where.empty()) return;
    kvxvar.dbAdo.Execute("UPDATE WALDORT SET DISABLE = " + std::to_string(chkDisable.Value()) + where);
}

}  // namespace kvx
