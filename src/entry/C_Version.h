#pragma once

#include <string>

namespace kvx {

/// The component's own version.
class C_Version {
public:
    /// @return major and minor version, "2.0"
    std::string DLL_Version() const;
};

}  // namespace kvx
