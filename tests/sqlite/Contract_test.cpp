#include "adapters/sqlite/SqliteDriver.h"
#include "ado/DriverContract.h"

#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

namespace kvx::ado::testing {

namespace {

std::vector<std::string>& Files()
{
    static std::vector<std::string> files;
    return files;
}

std::string FreshDatabase()
{
    adapters::sqlite::RegisterSqliteDriver();
    const std::string name = "kvx-contract-" + std::to_string(getpid()) + "-" + std::to_string(Files().size()) + ".db";
    Files().push_back((std::filesystem::temp_directory_path() / name).string());
    return "Provider=SQLite;Data Source=" + Files().back() + ";Create=1;Synchronous=OFF";
}

void RemoveFiles()
{
    std::error_code ignored;
    for (const std::string& file : Files())
        for (const char* suffix : {"", "-wal", "-shm"})
            std::filesystem::remove(file + suffix, ignored);
}

}  // namespace

// The embedded engine differs from SQL Server's provider in nothing that the suite asks for.
INSTANTIATE_TEST_SUITE_P(Sqlite, DriverContract,
                         ::testing::Values(DriverCase{
                             .name = "sqlite", .freshDatabase = FreshDatabase, .cleanUp = RemoveFiles}));

}  // namespace kvx::ado::testing
