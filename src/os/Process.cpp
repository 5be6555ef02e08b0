#include "os/Process.h"

#include "basic/Error.h"
#include "os/Files.h"

#include <cerrno>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kvx::os {
namespace {

std::int32_t ExitStatus(int status)
{
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

class SystemProcess final : public Process {
public:
    explicit SystemProcess(pid_t pid) : pid_(pid) {}
    ~SystemProcess() override
    {
        // A child that has ended would stay in the process table; one that still runs is the system's to collect.
        IsRunning();
    }
    SystemProcess(const SystemProcess&) = delete;
    SystemProcess& operator=(const SystemProcess&) = delete;

    std::int32_t Wait() override
    {
        while (!ended_) {
            int status = 0;
            const pid_t found = ::waitpid(pid_, &status, 0);
            if (found == pid_) {
                ended_ = true;
                exitStatus_ = ExitStatus(status);
            } else if (errno != EINTR) {
                ended_ = true; // somebody else has collected it
            }
        }
        return exitStatus_;
    }

    bool IsRunning() override
    {
        if (ended_) return false;
        int status = 0;
        const pid_t found = ::waitpid(pid_, &status, WNOHANG);
        if (found == 0) return true;
        ended_ = true;
        if (found == pid_) exitStatus_ = ExitStatus(status);
        return false;
    }

private:
    pid_t pid_;
    bool ended_ = false;
    std::int32_t exitStatus_ = 0;
};

class RealShell final : public Shell {
public:
    std::unique_ptr<Process> Start(std::string_view program, const std::vector<std::string>& arguments) override
    {
        const std::string path = NativePath(program);
        std::vector<std::string> copies{path};
        copies.insert(copies.end(), arguments.begin(), arguments.end());
        std::vector<char*> argv;
        for (std::string& copy : copies)
            argv.push_back(copy.data());
        argv.push_back(nullptr);
        pid_t pid = 0;
        switch (::posix_spawnp(&pid, path.c_str(), nullptr, nullptr, argv.data(), environ)) {
        case 0: return std::make_unique<SystemProcess>(pid);
        case ENOENT:
        case ENOTDIR: basic::Raise(basic::kErrFileNotFound);
        case EACCES:
        case EPERM: basic::Raise(basic::kErrPermissionDenied);
        default: basic::Raise(basic::kErrFileAccess);
        }
    }

    void Open(std::string_view document) override
    {
        if (!FileExists(document) && !FolderExists(document)) basic::Raise(basic::kErrFileNotFound);
        opened_.push_back(Start("xdg-open", {NativePath(document)}));
        // The opener ends as soon as it has handed the document on: collect those that did.
        std::erase_if(opened_, [](const std::unique_ptr<Process>& process) { return !process->IsRunning(); });
    }

private:
    std::vector<std::unique_ptr<Process>> opened_;
};

Shell* current = nullptr;

} // namespace

Shell& SystemShell()
{
    static RealShell shell;
    return shell;
}

Shell& CurrentShell()
{
    return current != nullptr ? *current : SystemShell();
}

void SetCurrentShell(Shell* shell)
{
    current = shell;
}

} // namespace kvx::os
