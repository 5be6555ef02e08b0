#include "stands/PickStand.h"

#include "common/FormInstance.h"
#include "common/M_Common.h"
#include "session/SiblingClasses.h"
#include "stands/DSW_PickStand.h"
#include "stands/F_Waldort.h"

namespace kvx {

namespace {

using WaldortForm = FormInstance<F_Waldort>;

// The results are read before: what the controls held is gone with the unload.
void CloseForm()
{
    if (WaldortForm::Get()->IsLoaded()) WaldortForm::Get()->Unload();
    WaldortForm::Release();
}

// The options of the outside application get their usual values where an installation has none.
bool OutsideApplicationIsOn(const KvxVar& kvxvar)
{
    const auto helper = Siblings().NewDBHelper();
    const auto writer = Siblings().NewDBWriter();
    const bool on = helper->GetOptionNumber(kvxvar, "DSW_WALDORT") == 1;
    if (helper->GetOptionText(kvxvar, "DSW_INIFILE").empty())
        writer->PutOptionText(kvxvar, "DSW_INIFILE", R"(c:\Programme\DSW2\dsw2.ini)", "");
    if (helper->GetOptionText(kvxvar, "DSW_SEPARATOR").empty()) writer->PutOptionText(kvxvar, "DSW_SEPARATOR", "|", "");
    // Read only: what they switch is decided where the application is called.
    helper->GetOptionNumber(kvxvar, "DSW_ZEIGEAUFRUF");
    helper->GetOptionNumber(kvxvar, "DSW_WALDORTINPUT");
    return on;
}

}  // namespace

void PickStand(const KvxVar& kvxvar, const StandBoxes& boxes, std::int32_t ID_AL, std::string& strHolzart,
               std::int32_t ID_WALDORT_Root)
{
    const auto form = WaldortForm::Get();
    form->Run(kvxvar, ID_AL, /*OnlyRead=*/false, ID_WALDORT_Root, nullptr);
    if (form->blnOK && form->Is_In_Table(kvxvar, ID_AL)) {
        const StandKey key = form->Key();
        for (std::size_t i = 0; i < kStandLevels; ++i)
            SetTextIfObject(boxes.txtWO[i], key[i]);
        SetTextIfObject(boxes.txtWOLangname, form->txtName.Text());
        SetTextIfObject(boxes.txtGemarkung, form->txtGemarkung.Text());
        SetTextIfObject(boxes.txtFlurStuck, form->txtFlurStuck.Text());
        SetTextIfObject(boxes.txtParzelle, form->txtParzelle.Text());
        SetTextIfObject(boxes.txtFlaeche, form->txtFlaeche.Text());
        SetTextIfObject(boxes.txtAlter, form->txtAlter.Text());
        strHolzart = form->cmbHolzart.Text();
    }
    CloseForm();
}

void MaintainStands(const KvxVar& kvxvar, bool bolPrint, std::int32_t ID_AL, bool OnlyRead,
                    std::int32_t ID_WALDORT_Root)
{
    const auto form = WaldortForm::Get();
    form->bolPrint = bolPrint;
    form->Run(kvxvar, ID_AL, OnlyRead, ID_WALDORT_Root, nullptr);
    CloseForm();
}

std::int32_t PickStandId(const KvxVar& kvxvar, std::string& strWO, std::int32_t ID_AL, std::int32_t ID_WALDORT_Root,
                         const basic::ObjectRef& ListBox1)
{
    strWO.clear();
    const auto form = WaldortForm::Get();
    form->Run(kvxvar, ID_AL, /*OnlyRead=*/false, ID_WALDORT_Root, ListBox1);
    std::int32_t id = 0;
    if (form->blnOK && form->Is_In_Table(kvxvar, ID_AL)) id = form->GetID(ID_AL);
    if (id != 0) strWO = PutWaldortStr(form->Key(), form->txtName.Text());
    CloseForm();
    return id;
}

void PickWorkStand(const KvxVar& kvxvar, const basic::ObjectRef& txtWaldort, std::int32_t& intWaldortId,
                   std::string& txtFlaeche, std::int32_t ID_AL, std::int32_t ID_WALDORT_Root)
{
    if (kvxvar.g_Client == "BB" && OutsideApplicationIsOn(kvxvar)) {
        DSW_PickStand(kvxvar, txtWaldort, ID_AL);
        return;
    }
    const auto form = WaldortForm::Get();
    form->Run(kvxvar, ID_AL, /*OnlyRead=*/false, ID_WALDORT_Root, nullptr);
    if (form->blnOK && form->Is_In_Table(kvxvar, ID_AL)) {
        basic::Deref(txtWaldort).Put("", PutWaldortStr(form->Key(), form->txtName.Text()));
        intWaldortId = form->GetID(ID_AL);
        txtFlaeche = form->txtFlaeche.Text();
    }
    CloseForm();
}

}  // namespace kvx
