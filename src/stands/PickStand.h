#pragma once

#include "basic/Object.h"
#include "session/KvxVar.h"

#include <array>
#include <cstdint>
#include <string>

// The ways into the stand dialog, for the entry classes and for dialogs that let the user pick a stand.
namespace kvx {

/// Text boxes of a host, by late binding (Text); each may be Nothing.
struct StandBoxes {
    std::array<basic::ObjectRef, 6> txtWO;
    basic::ObjectRef txtWOLangname, txtGemarkung, txtFlurStuck, txtParzelle, txtFlaeche, txtAlter;
};

/// Lets the user pick a stand. On Cancel boxes and strHolzart keep what they held.
/// @param ID_AL            access level whose stands are offered, 0 = common stands only
/// @param ID_WALDORT_Root  show only the subtree of this stand, 0 = the whole tree
/// @param strHolzart       by reference: main species
/// @throws basic::Error the provider's; the form is then left behind
void PickStand(const KvxVar& kvxvar, const StandBoxes& boxes, std::int32_t ID_AL, std::string& strHolzart,
               std::int32_t ID_WALDORT_Root);

/// Stand maintenance.
/// @param bolPrint  print all stands; nothing is shown
/// @param OnlyRead  a viewer: nothing can be changed or picked
void MaintainStands(const KvxVar& kvxvar, bool bolPrint, std::int32_t ID_AL, bool OnlyRead,
                    std::int32_t ID_WALDORT_Root);

/// Lets the user pick one stand, or with a list box any number of them into it; then the box is the result.
/// @param strWO     by reference: "Nord/ 3: Am Bach"; empty on Cancel and with a list box
/// @param ListBox1  ListCount, ItemData, AddItem, NewIndex, Selected by late binding; or Nothing
/// @return ID_WALDORT, 0 = none
std::int32_t PickStandId(const KvxVar& kvxvar, std::string& strWO, std::int32_t ID_AL, std::int32_t ID_WALDORT_Root,
                         const basic::ObjectRef& ListBox1);

/// Lets the user pick the stand of a work order; at client BB through the outside application, when that is switched
/// on. On Cancel everything keeps what it held.
/// @param txtWaldort     a host's text box; its default property becomes "Nord/ 3: Am Bach". The outside application's
///                       stand goes to its Text, the id to its Tag
/// @param intWaldortId   by reference: ID_WALDORT; unchanged by the outside application
/// @param txtFlaeche     by reference: the area as shown, "0,0000"; unchanged by the outside application
void PickWorkStand(const KvxVar& kvxvar, const basic::ObjectRef& txtWaldort, std::int32_t& intWaldortId,
                   std::string& txtFlaeche, std::int32_t ID_AL, std::int32_t ID_WALDORT_Root);

}  // namespace kvx
