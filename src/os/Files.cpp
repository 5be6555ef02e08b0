#include "os/Files.h"

#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Text.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <memory>
#include <sys/stat.h>

namespace kvx::os {
namespace {

namespace fs = std::filesystem;

fs::path PathOf(std::string_view path)
{
    return fs::path{NativePath(path)};
}

[[noreturn]] void RaiseFor(int systemError, const fs::path& path)
{
    switch (systemError) {
    case ENOENT: {
        std::error_code ignored;
        const fs::path folder = path.parent_path();
        basic::Raise(folder.empty() || fs::is_directory(folder, ignored) ? basic::kErrFileNotFound
                                                                         : basic::kErrPathNotFound);
    }
    case ENOTDIR: basic::Raise(basic::kErrPathNotFound);
    case EACCES:
    case EPERM:
    case EROFS: basic::Raise(basic::kErrPermissionDenied);
    default: basic::Raise(basic::kErrFileAccess);
    }
}

struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closer>;

File OpenFile(const fs::path& path, const char* mode)
{
    // A folder can be opened for reading, but its first read would fail with a less telling error.
    std::error_code ignored;
    if (fs::is_directory(path, ignored)) basic::Raise(basic::kErrFileAccess);
    File file{std::fopen(path.c_str(), mode)};
    if (file == nullptr) RaiseFor(errno, path);
    return file;
}

void Write(std::string_view path, const char* mode, std::string_view text)
{
    const fs::path native = PathOf(path);
    File file = OpenFile(native, mode);
    const bool written = std::fwrite(text.data(), 1, text.size(), file.get()) == text.size();
    // What the disk refuses may show only when the buffer is written out.
    if (std::fclose(file.release()) != 0 || !written) RaiseFor(errno, native);
}

bool Matches(std::string_view name, std::string_view mask)
{
    if (mask.empty()) return name.empty();
    if (mask.front() == '*') {
        while (true) {
            if (Matches(name, mask.substr(1))) return true;
            if (name.empty()) return false;
            basic::NextCharacter(name);
        }
    }
    if (name.empty()) return false;
    const char32_t wanted = basic::LowerCharacter(basic::NextCharacter(mask));
    const char32_t found = basic::LowerCharacter(basic::NextCharacter(name));
    return (wanted == U'?' || wanted == found) && Matches(name, mask);
}

} // namespace

std::string NativePath(std::string_view path)
{
    std::string native{path};
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

bool FileExists(std::string_view path)
{
    std::error_code error;
    const fs::file_status status = fs::status(PathOf(path), error);
    return !error && fs::exists(status) && !fs::is_directory(status);
}

bool FolderExists(std::string_view path)
{
    std::error_code error;
    return fs::is_directory(PathOf(path), error);
}

std::string ReadText(std::string_view path)
{
    const fs::path native = PathOf(path);
    const File file = OpenFile(native, "rb");
    std::string bytes;
    char buffer[16384];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, file.get()))
        bytes.append(buffer, count);
    if (std::ferror(file.get()) != 0) basic::Raise(basic::kErrFileAccess);
    return basic::Utf8FromFileBytes(bytes);
}

std::vector<std::string> ReadLines(std::string_view path)
{
    const std::string text = ReadText(path);
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find_first_of("\r\n", start), text.size());
        lines.emplace_back(text, start, end - start);
        start = end + (text.compare(end, 2, "\r\n") == 0 ? 2 : 1);
    }
    return lines;
}

void AppendLine(std::string_view path, std::string_view line)
{
    Write(path, "ab", std::string{line} + "\n");
}

void WriteText(std::string_view path, std::string_view text)
{
    Write(path, "wb", text);
}

basic::Date LastModified(std::string_view path)
{
    const fs::path native = PathOf(path);
    struct stat status = {};
    if (::stat(native.c_str(), &status) != 0) RaiseFor(errno, native);
    std::tm local = {};
    ::localtime_r(&status.st_mtime, &local);
    return basic::DateOf({.year = local.tm_year + 1900,
                          .month = local.tm_mon + 1,
                          .day = local.tm_mday,
                          .hour = local.tm_hour,
                          .minute = local.tm_min,
                          .second = local.tm_sec});
}

std::vector<std::string> ListFiles(std::string_view folder, std::string_view pattern)
{
    const fs::path native = folder.empty() ? fs::path{"."} : PathOf(folder);
    std::error_code error;
    if (!fs::is_directory(native, error)) basic::Raise(basic::kErrPathNotFound);
    std::vector<std::string> names;
    fs::directory_iterator entry{native, error};
    if (error) RaiseFor(error.value(), native);
    for (; entry != fs::directory_iterator{}; entry.increment(error)) {
        if (error) RaiseFor(error.value(), native);
        if (entry->is_directory(error)) continue;
        std::string name = entry->path().filename().string();
        if (MatchesPattern(name, pattern)) names.push_back(std::move(name));
    }
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        const int order = basic::StrCompare(basic::LCase(a), basic::LCase(b));
        return order != 0 ? order < 0 : a < b;
    });
    return names;
}

bool MatchesPattern(std::string_view name, std::string_view pattern)
{
    if (pattern.empty()) return true;
    for (const std::string& mask : basic::Split(pattern, ";"))
        if (mask == "*.*" || Matches(name, basic::Trim(mask))) return true;
    return false;
}

} // namespace kvx::os
