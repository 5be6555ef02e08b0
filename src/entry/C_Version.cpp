#include "entry/C_Version.h"

namespace kvx {

std::string C_Version::DLL_Version() const
{
    return std::to_string(KVX_VERSION_MAJOR) + "." + std::to_string(KVX_VERSION_MINOR);
}

}  // namespace kvx
