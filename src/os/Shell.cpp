#include "os/Shell.h"

#include "basic/Error.h"
#include "os/Files.h"

#include <cerrno>
#include <spawn.h>
#include <sys/utsname.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace kvx::os {

namespace {

class DesktopShell final : public Shell {
public:
    void OpenDocument(std::string_view path) override
    {
        const std::string native = NativePath(path);
        if (!FileExists(native)) basic::Raise(basic::kErrFileNotFound, "File not found: " + native);
        try {
            Run({"xdg-open", native}, false);
        } catch (const basic::Error&) {
            basic::Raise(basic::kErrInvalidCall, "No application opens documents on this desktop: " + native);
        }
    }

    std::int32_t Run(const std::vector<std::string>& commandLine, bool wait) override
    {
        if (commandLine.empty()) basic::Raise(basic::kErrInvalidCall);
        std::vector<char*> arguments;
        for (const std::string& argument : commandLine) arguments.push_back(const_cast<char*>(argument.c_str()));
        arguments.push_back(nullptr);
        pid_t process = 0;
        if (posix_spawnp(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0)
            basic::Raise(basic::kErrFileNotFound, "File not found: " + commandLine[0]);
        if (!wait) {
            // Somebody must take the exit status, or the process stays in the table until the host ends.
            std::thread([process] { waitpid(process, nullptr, 0); }).detach();
            return 0;
        }
        int status = 0;
        while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
        }
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
};

Shell* currentShell = nullptr;

}  // namespace

Shell& CurrentShell()
{
    static DesktopShell desktopShell;
    return currentShell != nullptr ? *currentShell : desktopShell;
}

void SetCurrentShell(Shell* shell)
{
    currentShell = shell;
}

std::vector<std::string> SystemInformation()
{
    utsname system{};
    uname(&system);
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long pageBytes = sysconf(_SC_PAGESIZE);
    const std::int64_t megabytes = static_cast<std::int64_t>(pages) * pageBytes / (1024 * 1024);
    return {
        std::string("System: ") + system.sysname + " " + system.release,
        std::string("Host: ") + system.nodename,
        std::string("Architecture: ") + system.machine,
        "Processors: " + std::to_string(std::thread::hardware_concurrency()),
        "Memory: " + std::to_string(megabytes) + " MiB",
    };
}

}  // namespace kvx::os
