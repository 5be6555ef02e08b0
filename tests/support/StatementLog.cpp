#include "support/StatementLog.h"

#include "basic/Error.h"

namespace kvx::test {

void StatementLog::FailStatement(std::size_t k, std::int32_t number, std::string description)
{
    failAt_ = k;
    failNumber_ = number;
    failDescription_ = std::move(description);
    failed_ = false;
}

void StatementLog::BeforeExecute(std::string_view text)
{
    if (paused) return;
    texts_.emplace_back(text);
    if (!failAt_ || --*failAt_ > 0) return;
    failAt_.reset();
    failed_ = true;
    throw basic::Error(failNumber_, failDescription_, "test");
}

}  // namespace kvx::test
