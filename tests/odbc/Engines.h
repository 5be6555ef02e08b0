#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

// Real database servers for the tests: started on the loopback with a data folder of their own, gone with the program
// however it ends.
namespace kvx::test {

/// A server process. It dies with the test program, also when that crashes.
class ServerProcess {
public:
    ServerProcess() = default;
    ~ServerProcess();
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    const std::string& Folder() const { return folder_; }
    int Port() const { return port_; }
    /// Ends it at once, as a power cut would.
    void Kill();
    bool IsRunning() const;

protected:
    void MakeFolder(std::string_view name);
    void Launch(const std::vector<std::string>& command);
    /// The same, and waits for its end. @throws std::runtime_error with what it said when it failed
    void Run(const std::vector<std::string>& command);
    /// Waits until something listens on the port. @throws std::runtime_error with the server's last words
    void AwaitPort();
    static int FreePort();

    std::string folder_;
    int port_ = 0;
    pid_t process_ = -1;
};

/// MariaDB, in its own words or in Oracle's.
class MariaDbServer final : public ServerProcess {
public:
    explicit MariaDbServer(std::string_view sqlMode);
    /// Runs again on the same port and data.
    void Start();
    /// Makes an empty database. @return a connection string of the library to it
    std::string NewDatabase();
    std::string ConnectionString(std::string_view database) const;

    static constexpr std::string_view kOracleMode = "ORACLE,EMPTY_STRING_IS_NULL,NO_BACKSLASH_ESCAPES,STRICT_ALL_"
                                                    "TABLES,NO_ZERO_DATE,NO_ZERO_IN_DATE,ERROR_FOR_DIVISION_BY_ZERO";
    static constexpr std::string_view kPlainMode =
        "ANSI_QUOTES,PIPES_AS_CONCAT,NO_BACKSLASH_ESCAPES,STRICT_ALL_TABLES,NO_ZERO_DATE,NO_ZERO_IN_DATE";

private:
    std::string sqlMode_;
    int databases_ = 0;
};

/// HyperSQL in its SQL Server mode, which answers in PostgreSQL's protocol too.
class HyperSqlServer final : public ServerProcess {
public:
    HyperSqlServer();
    /// Makes an empty database, with what SQL Server has and HyperSQL lacks as far as HyperSQL can be given it.
    std::string NewDatabase();
    std::string ConnectionString(std::string_view database) const;

private:
    static constexpr int kDatabases = 10;  // the server serves no more, and a database can't be made while it runs
    int databases_ = 0;
};

}  // namespace kvx::test
