#pragma once

#include <span>
#include <string_view>

namespace kvx::host {

/// The scripts of host/sample in the order in which they must run; the source is written while building.
std::span<const std::string_view> SampleScripts();

}  // namespace kvx::host
