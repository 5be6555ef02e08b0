#pragma once

#include "adapters/headless/HeadlessDesktop.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace kvx::test {

/// What makes the desktops of the tests; nothing = headless ones. A program that links the same tests may set it to
/// desktops with real windows, which take the same scripts.
inline std::function<std::unique_ptr<adapters::headless::HeadlessDesktop>()> desktopMaker;

/// Twips by which a size that a user drags may miss the one that a script names: real windows come in whole pixels.
constexpr std::int32_t kPixel = 15;

inline std::unique_ptr<adapters::headless::HeadlessDesktop> NewDesktop()
{
    return desktopMaker ? desktopMaker() : std::make_unique<adapters::headless::HeadlessDesktop>();
}

}  // namespace kvx::test
