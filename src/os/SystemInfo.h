#pragma once

#include <string>

namespace kvx::os {

/// What the machine is, a line a fact: system, kernel, processor, memory, user, host. Empty when nothing can be read.
std::string SystemInfoText();

} // namespace kvx::os
