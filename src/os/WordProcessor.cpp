#include "os/WordProcessor.h"

#include "basic/Error.h"

namespace kvx::os {

namespace {
std::function<std::shared_ptr<WordApplication>()>& Factory()
{
    static std::function<std::shared_ptr<WordApplication>()> factory;
    return factory;
}
}  // namespace

void RegisterWordProcessor(std::function<std::shared_ptr<WordApplication>()> factory)
{
    Factory() = std::move(factory);
}

std::shared_ptr<WordApplication> CreateWordApplication()
{
    std::shared_ptr<WordApplication> application = Factory() ? Factory()() : nullptr;
    if (application == nullptr) basic::Raise(basic::kErrCannotCreateObject);
    return application;
}

}  // namespace kvx::os
