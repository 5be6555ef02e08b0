#include "host/SampleDatabase.h"

#include "adapters/sqlite/SqliteDriver.h"
#include "ado/Driver.h"
#include "basic/Error.h"
#include "host/Options.h"
#include "host/SampleScripts.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>

namespace kvx::host {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void CannotMake(const fs::path& file, std::string_view why)
{
    throw StartError("the sample database \"" + file.string() + "\" cannot be made: " + std::string(why));
}

// One host at a time works in the folder; the system lets go when the process ends, however it ends.
class FolderLock {
public:
    explicit FolderLock(const fs::path& folder) : handle_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        while (handle_ >= 0 && flock(handle_, LOCK_EX) != 0) {
            if (errno == EINTR) continue;
            close(handle_);
            handle_ = -1;
        }
    }
    ~FolderLock()
    {
        if (handle_ >= 0) close(handle_);
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    bool Held() const { return handle_ >= 0; }

private:
    int handle_;
};

// A database and what the engine keeps beside it while it is open.
void RemoveDatabase(const fs::path& file)
{
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        std::error_code ignored;
        fs::remove(file.string() + suffix, ignored);
    }
}

}  // namespace

fs::path DataFolder()
{
    const auto variable = [](const char* name) -> fs::path {
        const char* value = std::getenv(name);
        return value == nullptr ? "" : value;
    };
    if (const fs::path data = variable("XDG_DATA_HOME"); data.is_absolute()) return data / "korvex";
    if (const fs::path home = variable("HOME"); home.is_absolute()) return home / ".local" / "share" / "korvex";
    throw StartError("no place for the sample database: neither XDG_DATA_HOME nor HOME is set");
}

std::string FileConnectionString(const fs::path& file, std::string_view user, std::string_view password)
{
    ado::ConnectionProperties properties;
    properties.Set("Provider", "Korvex.SQLite");
    properties.Set("Data Source", file.string());
    if (!user.empty()) {
        properties.Set("User ID", user);
        properties.Set("Password", password);
    }
    return properties.ToString();
}

void CreateSampleDatabase(const fs::path& file)
{
    {
        ado::ConnectionProperties properties(FileConnectionString(file));
        properties.Set("Create", "1");
        const auto connection = adapters::sqlite::OpenSqlite(properties);
        for (const std::string_view script : SampleScripts())
            adapters::sqlite::RunScript(*connection, script);
    }
    // Once there is a login the next one needs it to come in.
    std::string connectionString = FileConnectionString(file);
    for (const SampleUser& user : kSampleUsers) {
        adapters::sqlite::SetLogin(connectionString, user.name, kSamplePassword);
        connectionString = FileConnectionString(file, user.name, kSamplePassword);
    }
}

fs::path EnsureSampleDatabase(const fs::path& folder)
{
    const fs::path file = folder / "sample.db";
    std::error_code error;
    if (fs::exists(file, error)) return file;
    fs::create_directories(folder, error);
    if (error) CannotMake(file, error.message());

    const FolderLock lock(folder);
    if (!lock.Held()) CannotMake(file, std::strerror(errno));
    if (fs::exists(file, error)) return file;  // another host was faster

    // Made under another name: who looks meanwhile, or after a power cut, sees either no database or a whole one.
    const fs::path draft = folder / "sample.db.new";
    RemoveDatabase(draft);
    try {
        CreateSampleDatabase(draft);
        fs::rename(draft, file);
    } catch (const basic::Error& refusal) {
        RemoveDatabase(draft);
        CannotMake(file, refusal.Description);
    } catch (const fs::filesystem_error& refusal) {
        RemoveDatabase(draft);
        CannotMake(file, refusal.code().message());
    }
    return file;
}

}  // namespace kvx::host
