#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::loc {

/// An empty folder of the test's own, gone with it.
class TestFolder {
public:
    TestFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "kvx_loc_XXXXXX").string();
        path_ = mkdtemp(pattern.data());
    }
    ~TestFolder()
    {
        std::error_code left;
        std::filesystem::remove_all(path_, left);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    std::string Path() const { return path_.string(); }
    std::string File(std::string_view name) const { return (path_ / name).string(); }
    void Write(std::string_view name, std::string_view bytes) const
    {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
    }
    std::string Read(std::string_view name) const
    {
        std::ifstream file(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            names.push_back(entry.path().filename());
        return names;
    }

private:
    std::filesystem::path path_;
};

}  // namespace kvx::loc
