#include "support/Sent.h"

namespace kvx::test {

Lines Sent::Take()
{
    const Lines all = s_.Statements();
    Lines fresh(all.begin() + static_cast<std::ptrdiff_t>(from_), all.end());
    from_ = all.size();
    return fresh;
}

}  // namespace kvx::test
