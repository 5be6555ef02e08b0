#include "entry/c_Message.h"

#include "checks/F_MessageBox.h"
#include "checks/M_Message.h"

namespace kvx {

namespace {

// True as hosts know it, in 16 bits.
std::int16_t HostBoolean(bool value)
{
    return value ? -1 : 0;
}

}  // namespace

std::string c_Message::MessageBoxCmb(std::string_view strLabel, std::string_view Parameter,
                                     const basic::ObjectRef& cmbBox)
{
    const auto form = LoadMessageBox();
    form->Run(F_MessageBox::kPickFromCombo, strLabel, Parameter, cmbBox);
    ReleaseMessageBox();
    return form->strResult;
}

void c_Message::MessageBox_Clear()
{
    LoadMessageBox()->List1.Clear();
}

void c_Message::MessageBox_AddItem(std::string_view s)
{
    LoadMessageBox()->List1.AddItem(s);
}

std::int16_t c_Message::MessageBox_ItemCount()
{
    return static_cast<std::int16_t>(LoadMessageBox()->List1.ListCount());
}

void c_Message::MessageBox_Show(std::string_view strCaption)
{
    const auto form = LoadMessageBox();
    form->SetCaption(strCaption);
    form->LayoutHostLines();
    form->Run(F_MessageBox::kHostLines, "");
    form->Unload();
}

void c_Message::MessageBoxNL(std::string_view strLabel, std::string_view strFileName)
{
    const auto form = LoadMessageBox();
    form->Run(F_MessageBox::kTextFile, strLabel, strFileName);
    ReleaseMessageBox();
}

std::int16_t c_Message::CheckBBFTables(std::string_view strLabel, std::string_view table, std::string_view table_name,
                                       const KvxVar& kvxvar, std::int32_t)
{
    return HostBoolean(CheckBBFTablesUsage(strLabel, table, table_name, kvxvar));
}

std::int16_t c_Message::CheckForstamt(std::int32_t intReltableId_dll, std::int32_t intReltable_dll,
                                      const KvxVar& kvxvar)
{
    return HostBoolean(CheckForstamtUsage(intReltableId_dll, intReltable_dll, kvxvar));
}

std::int16_t c_Message::CheckPersonal(const KvxVar& kvxvar, std::int32_t intId, std::int32_t intStMandanten)
{
    return HostBoolean(CheckPersonalUsage(kvxvar, intId, intStMandanten));
}

std::int16_t c_Message::CheckPerson(const KvxVar& kvxvar, std::int32_t intId, std::string_view column,
                                    std::uint8_t intKey, std::int32_t KundeID)
{
    return HostBoolean(CheckPersonUsage(kvxvar, intId, column, intKey, KundeID));
}

std::int16_t c_Message::CheckArtikelWaren(std::int32_t intId, const KvxVar& kvxvar)
{
    return HostBoolean(CheckArtikelUsage(intId, kvxvar));
}

std::string c_Message::GetArtikelNameWaren(std::int32_t ID, const ado::Connection& dbAdo_dll)
{
    return GetArtikelName(ID, dbAdo_dll);
}

std::string c_Message::CheckTableToDel(std::string_view strSQL, std::int32_t intName, std::int32_t intPrompt,
                                       const KvxVar& kvxvar)
{
    return CheckTableUsage(strSQL, intName, intPrompt, kvxvar);
}

}  // namespace kvx
