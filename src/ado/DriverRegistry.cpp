#include "ado/Driver.h"
#include "ado/Errors.h"
#include "basic/Object.h"

#include <utility>
#include <vector>

namespace kvx::ado {
namespace {

// A connection string without Provider= means the bridge to ODBC.
constexpr std::string_view kDefaultProvider = "MSDASQL";

std::vector<std::pair<std::string, DriverFactory>>& Registered()
{
    static std::vector<std::pair<std::string, DriverFactory>> registered;
    return registered;
}

} // namespace

void RegisterDriver(std::string_view provider, DriverFactory factory)
{
    for (auto& [name, known] : Registered()) {
        if (!basic::SameName(name, provider)) continue;
        known = std::move(factory);
        return;
    }
    Registered().emplace_back(provider, std::move(factory));
}

std::unique_ptr<DriverConnection> OpenDriver(const ConnectionProperties& properties)
{
    std::string provider = properties.Get({"provider"});
    if (provider.empty()) provider = kDefaultProvider;
    for (const auto& [name, factory] : Registered())
        if (basic::SameName(name, provider)) return factory(properties);
    RaiseAdo(kErrProviderNotFound, "ADODB.Connection");
}

} // namespace kvx::ado
