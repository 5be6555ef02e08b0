#pragma once

#include "basic/Object.h"
#include "session/KvxVar.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace kvx {

/// Stands: maintenance, picking, look-up by key. Has no state; objects are a host's boxes by late binding.
/// Every method: errors of the provider reach the host, and the form is then left behind.
class c_Waldort {
public:
    /// Lets the user pick a stand. On Cancel boxes and strHolzart keep what they held.
    /// @param txtWO1..txtAlter  text boxes, filled through Text; each may be Nothing
    /// @param ID_AL             access level whose stands are offered, 0 = common stands only
    /// @param strHolzart        by reference: main species
    /// @param txtWaldort        accepted and not used, as intWaldortId
    /// @param ID_WALDORT_Root   by reference, left unchanged: show only the subtree of this stand, 0 = the whole tree
    void Waldort(const KvxVar& kvxvar, const basic::ObjectRef& txtWO1, const basic::ObjectRef& txtWO2,
                 const basic::ObjectRef& txtWO3, const basic::ObjectRef& txtWO4, const basic::ObjectRef& txtWO5,
                 const basic::ObjectRef& txtWO6, std::int32_t& ID_AL, const basic::ObjectRef& txtWOLangname,
                 const basic::ObjectRef& txtGemarkung, const basic::ObjectRef& txtFlurStuck,
                 const basic::ObjectRef& txtParzelle, const basic::ObjectRef& txtFlaeche,
                 const basic::ObjectRef& txtAlter, std::string& strHolzart, std::string_view txtWaldort,
                 std::int32_t intWaldortId, std::int32_t& ID_WALDORT_Root);

    /// Stand maintenance.
    /// @param bolPrint  nonzero: print all stands; nothing is shown
    /// @param OnlyRead  nonzero: a viewer, nothing can be changed
    void WaldortSimple(const KvxVar& kvxvar, std::int16_t bolPrint, std::int32_t ID_AL, std::int16_t OnlyRead,
                       std::int32_t ID_WALDORT_Root);

    /// Lets the user pick one stand, or with a list box any number of them into it.
    /// @param strWO     by reference: "Nord/ 3: Am Bach"; empty on Cancel and with a list box
    /// @param ListBox1  the host's list box, or Nothing
    /// @return ID_WALDORT, 0 = none
    std::int32_t WaldortId(const KvxVar& kvxvar, std::string& strWO, std::int32_t ID_AL, std::int32_t ID_WALDORT_Root,
                           const basic::ObjectRef& ListBox1);

    /// Lets the user pick the stand of a work order; at client BB in the outside application, when that is switched on.
    /// @param txtWaldort    text box; its default property becomes "Nord/ 3: Am Bach". The outside application's stand
    ///                      goes to its Text, the id to its Tag
    /// @param intWaldortId  by reference: ID_WALDORT; unchanged on Cancel and by the outside application
    /// @param txtFlaeche    by reference: the area as shown; unchanged likewise
    void WaldortArbeits(const KvxVar& kvxvar, const basic::ObjectRef& txtWaldort, std::int32_t& intWaldortId,
                        std::string& txtFlaeche, std::int32_t ID_AL, std::int32_t ID_WALDORT_Root);

    /// Looks up one stand by its full key; shows nothing. The statement is SQL Server's on Oracle too.
    /// @param ID_AL     by reference, left unchanged: access level searched for, 0 = common stands only
    /// @param WO1..WO6  key levels, compared untrimmed; a blank level means "not in use"
    /// @return ID_WALDORT; 0 = no such stand; -1 = all six texts empty, and then nothing was asked
    std::int32_t Waldort_ID(const KvxVar& kvxvar, std::int32_t& ID_AL, std::string_view WO1, std::string_view WO2,
                            std::string_view WO3, std::string_view WO4, std::string_view WO5, std::string_view WO6);
};

}  // namespace kvx
