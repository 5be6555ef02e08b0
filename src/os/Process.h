#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::os {

/// A program that was started. Letting it go does not end the program.
class Process {
public:
    virtual ~Process() = default;
    /// Waits for its end. @return exit status; 128 + signal when a signal ended it
    virtual std::int32_t Wait() = 0;
    virtual bool IsRunning() = 0;
};

/// Starts programs and opens documents; replaced by tests and by hosts.
class Shell {
public:
    virtual ~Shell() = default;
    /// @param program    path, or a name that is looked up in PATH
    /// @throws basic::Error 53: no such program; 70: not allowed; 75: it could not be started
    virtual std::unique_ptr<Process> Start(std::string_view program, const std::vector<std::string>& arguments) = 0;
    /// Opens a document with the program that the desktop has for its kind; returns at once.
    /// @throws basic::Error 53: no such document, or no program to open it
    virtual void Open(std::string_view document) = 0;
};

/// Starts real processes; opens documents with xdg-open.
Shell& SystemShell();

/// What the library uses: SystemShell until another one is set.
Shell& CurrentShell();
void SetCurrentShell(Shell* shell); ///< not owned; nullptr = SystemShell again

} // namespace kvx::os
