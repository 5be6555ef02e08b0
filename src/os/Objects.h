#pragma once

#include "basic/Object.h"

#include <functional>
#include <string_view>

namespace kvx::os {

/// Makes an outside application or component known under its program id ("DSW2.n_choose_os"); hosts do so at start.
/// @param factory called at every CreateObject; may give Nothing or raise. An empty one takes the id away again
void RegisterObject(std::string_view progId, std::function<basic::ObjectRef()> factory);

/// @return a late-bound object; Nothing when no host registered the id (case is ignored)
basic::ObjectRef CreateObject(std::string_view progId);

}  // namespace kvx::os
