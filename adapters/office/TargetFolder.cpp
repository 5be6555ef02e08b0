#include "adapters/office/TargetFolder.h"

#include "basic/Error.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

namespace kvx::adapters::office {

namespace fs = std::filesystem;

namespace {

constexpr int kMostNames = 1000;

std::string Variable(const char* name)
{
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

// The desktop keeps the user's folders in a file of lines such as  XDG_DOCUMENTS_DIR="$HOME/Dokumente".
std::string DocumentsFolder(const std::string& home)
{
    std::string settings = Variable("XDG_CONFIG_HOME");
    if (settings.empty()) settings = home + "/.config";
    std::ifstream file(settings + "/user-dirs.dirs");
    constexpr std::string_view kKey = "XDG_DOCUMENTS_DIR=\"";
    constexpr std::string_view kHome = "$HOME";
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with(kKey)) continue;
        std::string folder = line.substr(kKey.size());
        folder.resize(std::min(folder.find('"'), folder.size()));
        if (folder.starts_with(kHome)) folder.replace(0, kHome.size(), home);
        return folder;
    }
    return home + "/Documents";
}

bool IsFolder(const std::string& path)
{
    std::error_code ignored;
    return !path.empty() && fs::is_directory(path, ignored);
}

std::string TimeStamp()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char text[32];
    // Points part the time: a colon is not allowed in names on file servers.
    std::strftime(text, sizeof text, "%Y-%m-%d %H.%M.%S", &local);
    return text;
}

[[noreturn]] void RaiseFor(int systemError, const std::string& path)
{
    const std::string description =
        "The printed table cannot be written to " + path + ": " + std::strerror(systemError);
    switch (systemError) {
    case EACCES:
    case EPERM:
    case EROFS: basic::Raise(basic::kErrPermissionDenied, description);
    case ENOENT:
    case ENOTDIR: basic::Raise(basic::kErrPathNotFound, description);
    default: basic::Raise(basic::kErrFileAccess, description);
    }
}

}  // namespace

std::string DefaultFolder()
{
    const std::string home = Variable("HOME");
    if (IsFolder(home)) {
        const std::string documents = DocumentsFolder(home);
        return IsFolder(documents) ? documents : home;
    }
    std::error_code ignored;
    return fs::temp_directory_path(ignored).string();
}

std::string ClaimDocumentName(const std::string& folder)
{
    std::error_code failed;
    fs::create_directories(folder, failed);
    if (failed) RaiseFor(failed.value(), folder);

    const std::string start = (fs::path(folder) / "Korvex ").string() + TimeStamp();
    for (int number = 1; number <= kMostNames; ++number) {
        const std::string path = start + (number == 1 ? "" : " (" + std::to_string(number) + ")") + ".docx";
        // "x": two programs that print in the same second do not get the same name.
        if (std::FILE* file = std::fopen(path.c_str(), "wbxe"); file != nullptr) {
            std::fclose(file);
            return path;
        }
        if (errno != EEXIST) RaiseFor(errno, path);
    }
    RaiseFor(EEXIST, start + ".docx");
}

}  // namespace kvx::adapters::office
