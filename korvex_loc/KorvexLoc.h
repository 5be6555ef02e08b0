#pragma once

#include "session/SiblingClasses.h"

namespace kvx {

/// The sibling library as it comes with the forms; a host hands it to SetSiblings when it starts.
SiblingLibrary& KorvexLoc();

} // namespace kvx
