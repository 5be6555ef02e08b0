#pragma once

#include "session/SiblingClasses.h"

namespace kvx::loc {

/// Opens F_Picker over a SELECT.
class Picker final : public c_Picker {
public:
    std::string PickValue(const KvxVar& kvxvar, std::string_view select, std::string_view title,
                          std::string_view current, std::string_view mask) override;
};

} // namespace kvx::loc
