#pragma once

#include "session/SiblingClasses.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace kvx::loc {

/// The level itself, then those under it: levels whose code begins as this one's does without its closing "00" pairs.
/// A level without a code, or that does not exist, has none under it. One statement over ACCESS_LEVELS.
std::vector<std::int32_t> LevelsUnder(const KvxVar& kvxvar, std::int32_t ID_ACCESS_LEVELS);

/// The level itself, then those it lies under.
std::vector<std::int32_t> LevelsAbove(const KvxVar& kvxvar, std::int32_t ID_ACCESS_LEVELS);

/// Access filters and rights; ACCESS_LEVELS and RIGHTS hold them.
class Access final : public c_Access {
public:
    /// A model is seen by the user who made it, and by those of the level that it is published to and of the levels
    /// under that; without a level by all, when it is locked or nobody's. Rows of any other table are seen when they
    /// carry no level, the user's or one under it.
    /// @param where  the condition comes behind it with AND; empty: it stands alone
    std::string AccessWhere(std::string_view table, std::string_view where, const KvxVar& kvxvar,
                            std::int32_t ID_ACCESS_LEVELS) override;
    bool HasRight(const KvxVar& kvxvar, std::string_view code) override;
};

} // namespace kvx::loc
