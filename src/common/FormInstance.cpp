#include "common/FormInstance.h"

namespace kvx {

namespace {
thread_local std::vector<std::function<void()>> releases;
}

void AddFormRelease(std::function<void()> release)
{
    releases.push_back(std::move(release));
}

void ReleaseForms()
{
    for (const auto& release : releases) release();
}

}  // namespace kvx
