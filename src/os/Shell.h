#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::os {

/// What a desktop does with documents and programs; replaceable, so that tests see what would have been opened.
class Shell {
public:
    virtual ~Shell() = default;
    /// Opens a document with the application of its kind. @throws basic::Error 53: no such file; 5: it could not be opened
    virtual void OpenDocument(std::string_view path) = 0;
    /// Starts a program. @param wait true: returns when it has ended, with its exit status; else 0
    /// @throws basic::Error 53: it cannot be started
    virtual std::int32_t Run(const std::vector<std::string>& commandLine, bool wait) = 0;
};

/// The shell in use: the desktop's own until another is set.
Shell& CurrentShell();
/// @param shell not owned; nullptr = the desktop's own again
void SetCurrentShell(Shell* shell);

/// Text about this computer for the About box: system, processors, memory. One fact a line.
std::vector<std::string> SystemInformation();

}  // namespace kvx::os
