#include "os/SystemInfo.h"

#include "basic/Error.h"
#include "basic/Text.h"
#include "os/Files.h"

#include <pwd.h>
#include <string_view>
#include <sys/utsname.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace kvx::os {
namespace {

// Value of the first "name<separator>value" line of a file of the system; empty when there is none.
std::string ValueIn(std::string_view path, std::string_view name, std::string_view separator)
{
    std::vector<std::string> lines;
    try {
        lines = ReadLines(path);
    } catch (const basic::Error&) {
        return {}; // not every system has every file: the fact is left out
    }
    for (const std::string& line : lines) {
        const std::size_t at = line.find(separator);
        if (at == std::string::npos) continue;
        std::string head = line.substr(0, at);
        while (!head.empty() && (head.back() == ' ' || head.back() == '\t'))
            head.pop_back();
        if (head != name) continue;
        std::string value = basic::Trim(line.substr(at + separator.size()));
        if (value.size() >= 2 && value.front() == '"' && value.back() == '"') value = value.substr(1, value.size() - 2);
        return value;
    }
    return {};
}

void AddFact(std::string& text, std::string_view name, std::string_view value)
{
    if (value.empty()) return;
    text.append(name).append(": ").append(value).append("\n");
}

} // namespace

std::string SystemInfoText()
{
    std::string text;
    AddFact(text, "System", ValueIn("/etc/os-release", "PRETTY_NAME", "="));
    utsname names = {};
    if (::uname(&names) == 0) {
        AddFact(text, "Kernel", std::string{names.sysname} + " " + names.release);
        AddFact(text, "Machine", names.machine);
        AddFact(text, "Host", names.nodename);
    }
    AddFact(text, "Processor", ValueIn("/proc/cpuinfo", "model name", ":"));
    if (const unsigned processors = std::thread::hardware_concurrency(); processors > 0)
        AddFact(text, "Processors", std::to_string(processors));
    AddFact(text, "Memory", ValueIn("/proc/meminfo", "MemTotal", ":"));
    if (const passwd* user = ::getpwuid(::getuid()); user != nullptr) AddFact(text, "User", user->pw_name);
    return text;
}

} // namespace kvx::os
