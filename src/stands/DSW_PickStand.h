#pragma once

#include "basic/Object.h"
#include "session/KvxVar.h"

#include <cstdint>

namespace kvx {

/// Lets the user pick a stand in the outside application DSW2 and sees to it that WALDORT has a row for it.
/// Without DSW2 the user is told so, and the box stays as it is.
/// @param kvxvar      strDBUser and strDBPassword are handed on unchanged
/// @param txtWaldort  a host's text box: Text holds the stand as the user last saw it; on return Text holds the one
///                    chosen, "Nord/ 3", and Tag its ID_WALDORT
/// @param ID_AL       access level that owns the stand, 0 = none: then a row is made at every call
/// @throws basic::Error the provider's; 91 when the box is Nothing
void DSW_PickStand(const KvxVar& kvxvar, const basic::ObjectRef& txtWaldort, std::int32_t ID_AL);

}  // namespace kvx
