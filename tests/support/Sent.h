#pragma once

#include "support/Scenario.h"

#include <cstddef>

namespace kvx::test {

/// Statements sent since the mark, without the sibling's reading of the customer's own wording.
class Sent {
public:
    explicit Sent(Scenario& s) : s_(s), from_(s.Statements().size()) {}
    /// What was sent since the last call.
    Lines Take();

private:
    Scenario& s_;
    std::size_t from_;
};

}  // namespace kvx::test
