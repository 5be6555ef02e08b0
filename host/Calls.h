#pragma once

#include "basic/Convert.h"
#include "host/Operations.h"

// One function an entry of the menu: collects the arguments, calls the library, tells what came back.
namespace kvx::host::calls {

void DLL_Version(Call& call);
void DBLogin(Call& call);

void Waldort(Call& call);
void WaldortMaintain(Call& call);
void WaldortView(Call& call);
void WaldortPrint(Call& call);
void WaldortIdOne(Call& call);
void WaldortIdList(Call& call);
void WaldortArbeits(Call& call);
void Waldort_ID(Call& call);

void MessageBoxCmb(Call& call);
void MessageBox_Clear(Call& call);
void MessageBox_AddItem(Call& call);
void MessageBox_ItemCount(Call& call);
void MessageBox_Show(Call& call);
void MessageBoxNL(Call& call);

void CheckForstamt(Call& call);
void CheckPersonal(Call& call);
void CheckPerson(Call& call);
void CheckArtikelWaren(Call& call);
void GetArtikelNameWaren(Call& call);
void CheckBBFTables(Call& call);
void CheckTableToDel(Call& call);

void Tabellen2(Call& call);
void Tabellen2Print(Call& call);

// --- boxes by late binding

inline std::string TextOf(const basic::ObjectRef& box)
{
    return box == nullptr ? std::string() : basic::ToText(box->Get("Text"));
}

inline void SetText(const basic::ObjectRef& box, std::string_view text)
{
    if (box != nullptr) box->Put("Text", text);
}

}  // namespace kvx::host::calls
