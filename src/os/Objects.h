#pragma once

#include "basic/Object.h"

#include <functional>
#include <string_view>

namespace kvx::os {

using ObjectFactory = std::function<basic::ObjectRef()>;

/// Makes an outside application known under its program id ("DSW2.n_choose_os"; case is ignored). A second call
/// replaces the first; an empty factory takes it away.
void RegisterObject(std::string_view programId, ObjectFactory factory);

/// A new object of the application; empty when none is registered, or it gives none.
basic::ObjectRef CreateObject(std::string_view programId);

} // namespace kvx::os
