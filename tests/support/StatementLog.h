#pragma once

#include "ado/StatementObserver.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::test {

/// The ordered log of statements, and the one that fails on purpose.
class StatementLog final : public ado::StatementObserver {
public:
    /// Statements that the test itself sends are not logged while this is set.
    bool paused = false;

    const std::vector<std::string>& Texts() const { return texts_; }
    void Clear() { texts_.clear(); }

    /// Lets statement k (from 1, counted from now on) fail before it is sent.
    void FailStatement(std::size_t k, std::int32_t number, std::string description);
    /// True once the statement that was to fail has come.
    bool HasFailed() const { return failed_; }

    void BeforeExecute(std::string_view text) override;

private:
    std::vector<std::string> texts_;
    std::optional<std::size_t> failAt_;  // statements still to go
    std::int32_t failNumber_ = 0;
    std::string failDescription_;
    bool failed_ = false;
};

}  // namespace kvx::test
