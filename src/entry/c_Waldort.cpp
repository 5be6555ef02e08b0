#include "entry/c_Waldort.h"

#include "stands/PickStand.h"
#include "stands/StandKey.h"

namespace kvx {

void c_Waldort::Waldort(const KvxVar& kvxvar, const basic::ObjectRef& txtWO1, const basic::ObjectRef& txtWO2,
                        const basic::ObjectRef& txtWO3, const basic::ObjectRef& txtWO4, const basic::ObjectRef& txtWO5,
                        const basic::ObjectRef& txtWO6, std::int32_t& ID_AL, const basic::ObjectRef& txtWOLangname,
                        const basic::ObjectRef& txtGemarkung, const basic::ObjectRef& txtFlurStuck,
                        const basic::ObjectRef& txtParzelle, const basic::ObjectRef& txtFlaeche,
                        const basic::ObjectRef& txtAlter, std::string& strHolzart, std::string_view, std::int32_t,
                        std::int32_t& ID_WALDORT_Root)
{
    const StandBoxes boxes{{txtWO1, txtWO2, txtWO3, txtWO4, txtWO5, txtWO6},
                           txtWOLangname,
                           txtGemarkung,
                           txtFlurStuck,
                           txtParzelle,
                           txtFlaeche,
                           txtAlter};
    PickStand(kvxvar, boxes, ID_AL, strHolzart, ID_WALDORT_Root);
}

void c_Waldort::WaldortSimple(const KvxVar& kvxvar, std::int16_t bolPrint, std::int32_t ID_AL, std::int16_t OnlyRead,
                              std::int32_t ID_WALDORT_Root)
{
    MaintainStands(kvxvar, bolPrint != 0, ID_AL, OnlyRead != 0, ID_WALDORT_Root);
}

std::int32_t c_Waldort::WaldortId(const KvxVar& kvxvar, std::string& strWO, std::int32_t ID_AL,
                                  std::int32_t ID_WALDORT_Root, const basic::ObjectRef& ListBox1)
{
    return PickStandId(kvxvar, strWO, ID_AL, ID_WALDORT_Root, ListBox1);
}

void c_Waldort::WaldortArbeits(const KvxVar& kvxvar, const basic::ObjectRef& txtWaldort, std::int32_t& intWaldortId,
                               std::string& txtFlaeche, std::int32_t ID_AL, std::int32_t ID_WALDORT_Root)
{
    PickWorkStand(kvxvar, txtWaldort, intWaldortId, txtFlaeche, ID_AL, ID_WALDORT_Root);
}

std::int32_t c_Waldort::Waldort_ID(const KvxVar& kvxvar, std::int32_t& ID_AL, std::string_view WO1,
                                   std::string_view WO2, std::string_view WO3, std::string_view WO4,
                                   std::string_view WO5, std::string_view WO6)
{
    const StandKey key{std::string(WO1), std::string(WO2), std::string(WO3),
                       std::string(WO4), std::string(WO5), std::string(WO6)};
    return kvx::Waldort_ID(kvxvar, ID_AL, key);
}

}  // namespace kvx
