#include "os/Files.h"

#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Text.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kvx::os {

namespace {

// Closes the descriptor on every way out.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor()
    {
        if (fd_ >= 0) close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Get() const { return fd_; }

private:
    int fd_;
};

bool FolderOfExists(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos || slash == 0) return true;
    struct stat info {};
    return stat(path.substr(0, slash).c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

[[noreturn]] void RaiseFileError(const std::string& path, int error)
{
    std::int32_t number = basic::kErrFileAccess;
    std::string reason = std::strerror(error);
    if (error == ENOENT || error == ENOTDIR) {
        number = FolderOfExists(path) ? basic::kErrFileNotFound : basic::kErrPathNotFound;
        reason = number == basic::kErrFileNotFound ? "File not found" : "Path not found";
    } else if (error == EACCES || error == EPERM || error == EROFS) {
        number = basic::kErrPermissionDenied;
        reason = "Permission denied";
    }
    basic::Raise(number, reason + ": " + path);
}

Descriptor Open(const std::string& path, int flags)
{
    const int fd = open(path.c_str(), flags | O_CLOEXEC, 0666);
    if (fd < 0) RaiseFileError(path, errno);
    return Descriptor(fd);
}

void WriteAll(const Descriptor& file, const std::string& path, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = write(file.Get(), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) RaiseFileError(path, errno);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

}  // namespace

std::string NativePath(std::string_view path)
{
    std::string native(path);
    std::ranges::replace(native, '\\', '/');
    return native;
}

bool FileExists(std::string_view path)
{
    struct stat info {};
    return stat(NativePath(path).c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

std::optional<basic::Date> LastModified(std::string_view path)
{
    struct stat info {};
    if (stat(NativePath(path).c_str(), &info) != 0) return std::nullopt;
    std::tm local{};
    localtime_r(&info.st_mtime, &local);
    return basic::DateOf({.year = local.tm_year + 1900,
                          .month = local.tm_mon + 1,
                          .day = local.tm_mday,
                          .hour = local.tm_hour,
                          .minute = local.tm_min,
                          .second = local.tm_sec});
}

std::string ReadBytes(std::string_view path)
{
    const std::string native = NativePath(path);
    const Descriptor file = Open(native, O_RDONLY);
    std::string bytes;
    char buffer[65536];
    for (;;) {
        const ssize_t read = ::read(file.Get(), buffer, sizeof buffer);
        if (read < 0 && errno == EINTR) continue;
        if (read < 0) RaiseFileError(native, errno);
        if (read == 0) return bytes;
        bytes.append(buffer, static_cast<std::size_t>(read));
    }
}

std::vector<std::string> ReadLines(std::string_view path)
{
    const std::string text = basic::Utf8FromFileBytes(ReadBytes(path));
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find_first_of("\r\n", start), text.size());
        lines.push_back(text.substr(start, end - start));
        const bool pair = end + 1 < text.size() && text[end] == '\r' && text[end + 1] == '\n';
        start = end + (pair ? 2 : 1);
    }
    return lines;
}

void WriteBytes(std::string_view path, std::string_view bytes)
{
    const std::string native = NativePath(path);
    WriteAll(Open(native, O_WRONLY | O_CREAT | O_TRUNC), native, bytes);
}

void AppendLine(std::string_view path, std::string_view line)
{
    const std::string native = NativePath(path);
    // One write of the whole line: lines of two processes do not mix.
    WriteAll(Open(native, O_WRONLY | O_CREAT | O_APPEND), native, std::string(line) + "\r\n");
}

std::vector<std::string> ListFiles(std::string_view folder, std::string_view pattern)
{
    const std::string native = NativePath(folder);
    DIR* const directory = opendir(native.empty() ? "." : native.c_str());
    if (directory == nullptr) basic::Raise(basic::kErrPathNotFound, "Path not found: " + native);
    std::vector<std::string> names;
    const std::string wanted(pattern);
    for (const dirent* entry = readdir(directory); entry != nullptr; entry = readdir(directory)) {
        const std::string name = entry->d_name;
        if (fnmatch(wanted.c_str(), name.c_str(), FNM_CASEFOLD) == 0 && FileExists(native + "/" + name))
            names.push_back(name);
    }
    closedir(directory);
    std::ranges::sort(names, {}, [](const std::string& name) { return basic::LCase(name); });
    return names;
}

}  // namespace kvx::os
