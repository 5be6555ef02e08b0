#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace fs = std::filesystem;

namespace {

using Names = std::set<std::string, std::less<>>;

// What a folder may include besides itself. An arrow that is not here points up.
const std::map<std::string, Names, std::less<>> kMayInclude = {
    {"basic", {}},
    {"ado", {"basic"}},
    {"os", {"basic"}},
    {"ui", {"ado", "basic", "os"}},
    {"session", {"ado", "ui", "os", "basic"}},
    {"common", {"session", "ado", "ui", "os", "basic"}},
    {"checks", {"common", "session", "ado", "ui", "os", "basic"}},
    {"stands", {"checks", "common", "session", "ado", "ui", "os", "basic"}},
    {"workspaces", {"common", "session", "ado", "ui", "os", "basic"}},
    {"tables", {"checks", "stands", "workspaces", "common", "session", "ado", "ui", "os", "basic"}},
    {"models", {"common", "session", "ado", "ui", "os", "basic"}},
    {"search", {"common", "session", "ado", "ui", "os", "basic"}},
    {"documents", {"models", "common", "session", "ado", "ui", "os", "basic"}},
    {"entry",
     {"stands", "checks", "tables", "models", "workspaces", "search", "documents", "common", "session", "ado", "ui",
      "os", "basic"}},
};

const std::map<std::string, Names, std::less<>> kAdapterMayInclude = {
    {"adapters/sqlite", {"ado", "basic"}},         {"adapters/odbc", {"ado", "basic"}},
    {"adapters/headless", {"ui", "os", "basic"}},  {"adapters/qt", {"ui", "ado", "os", "basic"}},
    {"adapters/office", {"os", "basic"}},          {"korvex_loc", {"session", "ado", "ui", "os", "basic"}},
};

constexpr std::string_view kToolkits[] = {"Q", "sqlite3.h", "sql.h", "sqlext.h", "unicode/"};

struct Include {
    std::string text;
    bool quoted = false;
};

std::vector<Include> IncludesOf(const fs::path& file)
{
    std::vector<Include> includes;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        const std::size_t at = line.find_first_not_of(" \t");
        if (at == std::string::npos || line[at] != '#' || line.find("include") == std::string::npos) continue;
        const std::size_t open = line.find_first_of("<\"");
        const std::size_t close = line.find_last_of(">\"");
        if (open == std::string::npos || close <= open) continue;
        includes.push_back({line.substr(open + 1, close - open - 1), line[open] == '"'});
    }
    return includes;
}

std::vector<fs::path> SourcesBelow(const fs::path& folder)
{
    std::vector<fs::path> files;
    if (!fs::exists(folder)) return files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.path().extension() == ".h" || entry.path().extension() == ".cpp") files.push_back(entry.path());
    return files;
}

const fs::path kRoot = KVX_SOURCE_DIR;

// The layer that a quoted include belongs to: "ui/TextBox.h" -> "ui", "adapters/qt/X.h" -> "adapters/qt".
std::string LayerOf(std::string_view include)
{
    const std::size_t slash = include.find('/');
    if (slash == std::string_view::npos) return "";
    if (include.substr(0, slash) == "adapters") {
        const std::size_t second = include.find('/', slash + 1);
        return std::string(include.substr(0, second));
    }
    return std::string(include.substr(0, slash));
}

std::vector<std::string> WrongIncludes(const fs::path& folder, const std::string& own, const Names& allowed)
{
    std::vector<std::string> wrong;
    for (const fs::path& file : SourcesBelow(folder)) {
        for (const Include& include : IncludesOf(file)) {
            const std::string layer = LayerOf(include.text);
            const bool ours = include.quoted || kMayInclude.contains(layer) || kAdapterMayInclude.contains(layer);
            if (!ours || layer == own || allowed.contains(layer)) continue;
            wrong.push_back(fs::relative(file, kRoot).string() + " includes " + include.text);
        }
    }
    return wrong;
}

}  // namespace

TEST(layering, EveryFolderOfTheLibraryIncludesOnlyWhatStandsBelowIt)
{
    std::vector<std::string> wrong;
    std::size_t folders = 0;
    for (const auto& entry : fs::directory_iterator(kRoot / "src")) {
        if (!entry.is_directory()) continue;
        const std::string name = entry.path().filename();
        ASSERT_TRUE(kMayInclude.contains(name)) << "src/" << name << " has no place in the layers";
        ++folders;
        std::ranges::copy(WrongIncludes(entry.path(), name, kMayInclude.at(name)), std::back_inserter(wrong));
    }
    EXPECT_GE(folders, 8U);
    EXPECT_EQ(wrong, std::vector<std::string>{});
}

TEST(layering, AdaptersIncludeOnlyTheLayersTheyImplement)
{
    std::vector<std::string> wrong;
    for (const auto& [folder, allowed] : kAdapterMayInclude)
        std::ranges::copy(WrongIncludes(kRoot / folder, folder, allowed), std::back_inserter(wrong));
    EXPECT_EQ(wrong, std::vector<std::string>{});
}

TEST(layering, TheLibraryKnowsNoToolkitAndNoDatabaseClient)
{
    std::vector<std::string> wrong;
    std::size_t files = 0;
    for (const fs::path& file : SourcesBelow(kRoot / "src")) {
        ++files;
        for (const Include& include : IncludesOf(file))
            for (std::string_view toolkit : kToolkits)
                if (include.text.starts_with(toolkit)) wrong.push_back(file.string() + " includes " + include.text);
    }
    EXPECT_GT(files, 50U);
    EXPECT_EQ(wrong, std::vector<std::string>{});
}

TEST(layering, NoFileRefersToARegistryOrToThisMachine)
{
    std::vector<std::string> wrong;
    for (std::string_view folder : {"src", "adapters", "korvex_loc", "host", "tests", "bench"}) {
        for (const fs::path& file : SourcesBelow(kRoot / folder)) {
            if (file.filename() == "layering_test.cpp") continue;
            std::ifstream stream(file);
            const std::string text{std::istreambuf_iterator<char>(stream), {}};
            if (text.find("/work/") != std::string::npos) wrong.push_back(file.string());
        }
    }
    EXPECT_EQ(wrong, std::vector<std::string>{});
}
