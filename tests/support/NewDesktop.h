#pragma once

#include "adapters/headless/HeadlessDesktop.h"

#include <functional>
#include <memory>

namespace kvx::test {

/// What makes the desktops of the tests; nothing = headless ones. A program that links the same tests may set it to
/// desktops with real windows, which take the same scripts.
inline std::function<std::unique_ptr<adapters::headless::HeadlessDesktop>()> desktopMaker;

inline std::unique_ptr<adapters::headless::HeadlessDesktop> NewDesktop()
{
    return desktopMaker ? desktopMaker() : std::make_unique<adapters::headless::HeadlessDesktop>();
}

}  // namespace kvx::test
