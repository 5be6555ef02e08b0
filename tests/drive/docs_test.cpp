#include "drive/Drive.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

// The documentation names everything that a driver can send or get.
namespace kvx {

using namespace test;

namespace {

std::string Content(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::set<std::string> FaultKinds()
{
    std::set<std::string> kinds;
    const std::regex fault("Fault\\(\\s*\"([a-z-]+)\"|\\{\"kind\", \"(library|internal)\"");
    for (const auto& entry : std::filesystem::directory_iterator(std::string(KVX_SOURCE_DIR) + "/host/drive")) {
        if (entry.path().extension() != ".cpp") continue;
        const std::string text = Content(entry.path());
        for (std::sregex_iterator at(text.begin(), text.end(), fault), end; at != end; ++at)
            kinds.insert((*at)[1].matched ? (*at)[1].str() : (*at)[2].str());
    }
    return kinds;
}

}  // namespace

TEST(DriveDocs, EveryMessageFaultAndKindOfArgumentIsNamed)
{
    const std::string text = Content(std::string(KVX_SOURCE_DIR) + "/docs/drive.md");
    const auto names = [&](std::string_view word) {
        return text.find("`" + std::string(word) + "`") != std::string::npos;
    };
    for (const std::string_view message : host::drive::Driver::MessageNames())
        EXPECT_TRUE(names(message) || text.find("{\"do\": \"" + std::string(message)) != std::string::npos ||
                    text.find("\"do\": \"" + std::string(message) + "\"") != std::string::npos)
            << message;
    const std::set<std::string> faults = FaultKinds();
    EXPECT_GT(faults.size(), 15U);
    for (const std::string& kind : faults)
        EXPECT_TRUE(names(kind)) << kind;
    for (const host::drive::Method& method : host::drive::Methods())
        for (const host::drive::Parameter& parameter : method.Parameters())
            if (parameter.kind != host::drive::ArgumentKind::Session) {
                EXPECT_TRUE(names(KindName(parameter.kind))) << KindName(parameter.kind);
            }
}

}  // namespace kvx
