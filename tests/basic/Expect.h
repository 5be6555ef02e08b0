#pragma once

#include "basic/Error.h"

#include <gtest/gtest.h>

namespace kvx::basic {

/// Number of the error that a call raises; 0 = none.
template <class Call>
std::int32_t ErrorOf(Call call)
{
    try {
        static_cast<void>(call());
    } catch (const Error& error) {
        return error.Number;
    }
    return 0;
}

} // namespace kvx::basic
