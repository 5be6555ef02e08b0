#pragma once

#include <QString>

#include <algorithm>
#include <cstdint>

// Controls count characters (code points), Qt counts UTF-16 units.
namespace kvx::adapters::qt {

/// Units that the first characters of a text take.
inline int UnitsOf(const QString& text, std::int32_t characters)
{
    int units = 0;
    const int size = static_cast<int>(text.size());
    for (std::int32_t i = 0; i < characters && units < size; ++i)
        units += text.at(units).isHighSurrogate() && units + 1 < size ? 2 : 1;
    return units;
}

/// Characters within the first units of a text.
inline std::int32_t CharactersOf(const QString& text, int units)
{
    std::int32_t characters = 0;
    const int end = std::min(units, static_cast<int>(text.size()));
    for (int i = 0; i < end; ++characters)
        i += text.at(i).isHighSurrogate() && i + 1 < end ? 2 : 1;
    return characters;
}

}  // namespace kvx::adapters::qt
