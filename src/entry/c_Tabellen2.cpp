#include "entry/c_Tabellen2.h"

#include "common/FormInstance.h"
#include "tables/F_Tabellen2.h"

namespace kvx {

basic::Variant c_Tabellen2::Tabellen2(const KvxVar& kvxvar, std::string_view strTableName_dll,
                                      std::string& strProtokolPath_dll, std::int32_t intIdString_dll,
                                      std::int16_t bolPrint, std::string_view strUserName)
{
    const auto form = FormInstance<F_Tabellen2>::Get();
    form->bolPrint = bolPrint != 0;
    form->Run(kvxvar, strTableName_dll, strProtokolPath_dll, intIdString_dll, strUserName);
    const bool changed = form->bolSaved && form->bytFieldCount == 1;
    FormInstance<F_Tabellen2>::Release();
    return changed;
}

}  // namespace kvx
