#include "host/drive/DriveMain.h"

#include "host/SampleDatabase.h"

#include <cerrno>
#include <csignal>
#include <unistd.h>

namespace kvx::host::drive {

Session OpenDriven(const Options& options, const std::filesystem::path& appFolder)
{
    if (options.database) return OpenSession(options, *options.database, appFolder);
    std::string connection;
    {
        const HostStatements own;
        connection = FileConnectionString(EnsureSampleDatabase(DataFolder()), "mueller", kSamplePassword);
    }
    return OpenSession(options, connection, appFolder);
}

AnswerSink WriteAnswersTo(int descriptor)
{
    // A driver that is gone is found out by the write, not by the end of this program.
    std::signal(SIGPIPE, SIG_IGN);
    return [descriptor](std::string_view line) {
        std::string text(line);
        text += '\n';
        std::size_t written = 0;
        while (written < text.size()) {
            const ssize_t count = ::write(descriptor, text.data() + written, text.size() - written);
            if (count < 0 && errno != EINTR) return false;
            if (count > 0) written += static_cast<std::size_t>(count);
        }
        return true;
    };
}

void Drive(const Options& options, const std::filesystem::path& appFolder,
           const std::function<void(ui::Desktop& desktop)>& begin, const std::function<void()>& end)
{
    Session session = OpenDriven(options, appFolder);
    DescriptorLines input(STDIN_FILENO);
    Driver driver(
        std::move(session), [&](const std::string& connection) { return OpenSession(options, connection, appFolder); },
        input, WriteAnswersTo(STDOUT_FILENO));
    begin(driver);
    driver.Run();
    end();
}

}  // namespace kvx::host::drive
