#include "os/Objects.h"

#include "basic/Text.h"
#include "os/WordProcessor.h"

#include <map>
#include <string>
#include <utility>

namespace kvx::os {
namespace {

std::map<std::string, ObjectFactory>& Factories()
{
    static std::map<std::string, ObjectFactory> factories;
    return factories;
}

WordProcessorFactory& WordFactory()
{
    static WordProcessorFactory factory;
    return factory;
}

} // namespace

void RegisterObject(std::string_view programId, ObjectFactory factory)
{
    if (factory)
        Factories()[basic::LCase(programId)] = std::move(factory);
    else
        Factories().erase(basic::LCase(programId));
}

basic::ObjectRef CreateObject(std::string_view programId)
{
    const auto found = Factories().find(basic::LCase(programId));
    return found == Factories().end() ? basic::ObjectRef{} : found->second();
}

void RegisterWordProcessor(WordProcessorFactory factory)
{
    WordFactory() = std::move(factory);
}

std::shared_ptr<WordApplication> CreateWordProcessor()
{
    return WordFactory() ? WordFactory()() : std::shared_ptr<WordApplication>{};
}

} // namespace kvx::os
