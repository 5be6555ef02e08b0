#include "odbc/Engines.h"

#include "adapters/odbc/OdbcDriver.h"
#include "ado/Connection.h"
#include "basic/Error.h"

#include <arpa/inet.h>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace kvx::test {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 60s;
constexpr const char* kLog = "/server.log";

sockaddr_in Loopback(int port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    return address;
}

bool Listens(int port)
{
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = Loopback(port);
    const bool open = connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    close(socket);
    return open;
}

std::string Content(const std::string& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// The child of fork: only what is safe between fork and exec.
[[noreturn]] void Become(char* const* arguments, int log, pid_t parent)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(126);  // the test died before it could tell
    setpgid(0, 0);
    dup2(log, STDOUT_FILENO);
    dup2(log, STDERR_FILENO);
    // The sanitizer's options are for the tests; a server would read them too.
    unsetenv("LSAN_OPTIONS");
    unsetenv("ASAN_OPTIONS");
    execvp(arguments[0], arguments);
    _exit(127);
}

}  // namespace

ServerProcess::~ServerProcess()
{
    Kill();
    std::error_code ignored;
    if (!folder_.empty()) std::filesystem::remove_all(folder_, ignored);
}

void ServerProcess::Kill()
{
    if (process_ <= 0) return;
    kill(-process_, SIGKILL);
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = -1;
}

bool ServerProcess::IsRunning() const
{
    return process_ > 0 && waitpid(process_, nullptr, WNOHANG) == 0;
}

void ServerProcess::MakeFolder(std::string_view name)
{
    // In memory where there is room: the servers' data lives as long as the test.
    const bool shared = access("/dev/shm", W_OK) == 0 && std::filesystem::space("/dev/shm").available > (1u << 30);
    const std::filesystem::path parent = shared ? "/dev/shm" : std::filesystem::temp_directory_path();
    std::string pattern = (parent / (std::string(name) + "-XXXXXX")).string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    folder_ = pattern;
}

void ServerProcess::Launch(const std::vector<std::string>& command)
{
    std::vector<std::string> copies = command;
    std::vector<char*> arguments;
    for (std::string& argument : copies)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    const int log = open((folder_ + kLog).c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    const pid_t parent = getpid();
    process_ = fork();
    if (process_ == 0) Become(arguments.data(), log, parent);
    close(log);
    if (process_ < 0) throw std::runtime_error("no process for " + command.front());
}

void ServerProcess::Run(const std::vector<std::string>& command)
{
    Launch(command);
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = -1;
    if (status != 0) throw std::runtime_error(command.front() + ": " + Content(folder_ + kLog));
}

void ServerProcess::AwaitPort()
{
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!Listens(port_)) {
        const bool running = IsRunning();
        if (running && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(20ms);
            continue;
        }
        if (!running) process_ = -1;
        throw std::runtime_error("the server does not come up: " + Content(folder_ + kLog));
    }
}

int ServerProcess::FreePort()
{
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = Loopback(0);
    socklen_t size = sizeof(address);
    bind(socket, reinterpret_cast<const sockaddr*>(&address), size);
    getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
    close(socket);
    return ntohs(address.sin_port);
}

MariaDbServer::MariaDbServer(std::string_view sqlMode) : sqlMode_(sqlMode)
{
    adapters::odbc::RegisterOdbcDriver();
    MakeFolder("kvx-mariadb");
    Run({"mariadb-install-db", "--no-defaults", "--datadir=" + folder_ + "/data",
         "--auth-root-authentication-method=normal", "--skip-test-db", "--skip-name-resolve",
         geteuid() == 0 ? "--user=root" : "--force"});
    port_ = FreePort();
    Start();
}

void MariaDbServer::Start()
{
    std::vector<std::string> command = {
        "mariadbd", "--no-defaults", "--datadir=" + folder_ + "/data", "--port=" + std::to_string(port_),
        "--bind-address=127.0.0.1", "--socket=" + folder_ + "/socket", "--pid-file=" + folder_ + "/pid",
        "--skip-name-resolve", "--innodb-flush-log-at-trx-commit=2", "--innodb-flush-method=nosync",
        "--innodb-doublewrite=OFF", "--innodb-buffer-pool-size=64M", "--innodb-lock-wait-timeout=20", "--skip-log-bin",
        "--lower-case-table-names=1",
        // Case does not count, accents do: as German installations of SQL Server compare.
        "--character-set-server=utf8mb4", "--collation-server=utf8mb4_uca1400_as_ci", "--sql-mode=" + sqlMode_};
    if (geteuid() == 0) command.emplace_back("--user=root");
    Launch(command);
    AwaitPort();
}

std::string MariaDbServer::ConnectionString(std::string_view database) const
{
    return "Provider=MSDASQL;Driver={MariaDB Unicode};Server=127.0.0.1;Port=" + std::to_string(port_) +
           ";Database=" + std::string(database) + ";User ID=root";
}

std::string MariaDbServer::NewDatabase()
{
    const std::string name = "kvx" + std::to_string(++databases_);
    ado::Connection connection;
    connection.Open(ConnectionString("mysql"));
    connection.Execute("CREATE DATABASE " + name);
    return ConnectionString(name);
}

HyperSqlServer::HyperSqlServer()
{
    adapters::odbc::RegisterOdbcDriver();
    MakeFolder("kvx-hypersql");
    port_ = FreePort();
    {
        std::ofstream properties(folder_ + "/server.properties");
        properties << "server.address=127.0.0.1\nserver.port=" << port_ << "\nserver.silent=true\n";
        for (int database = 0; database < kDatabases; ++database)
            properties << "server.database." << database << "=mem:kvx" << database
                       << ";user=kvx;password=kvx;sql.syntax_mss=true\nserver.dbname." << database << "=kvx" << database
                       << "\n";
    }
    Run({"javac", "-d", folder_, std::string(KVX_SOURCE_DIR) + "/tests/odbc/StandProcedure.java"});
    Launch({"java", "-Dhsqldb.method_class_names=StandProcedure.*", "-Xshare:auto", "-XX:TieredStopAtLevel=1",
            "-XX:+UseSerialGC", "-Xmx512m", "-cp", "/usr/share/java/hsqldb.jar:" + folder_, "org.hsqldb.server.Server",
            "--props", folder_ + "/server.properties"});
    AwaitPort();
}

std::string HyperSqlServer::ConnectionString(std::string_view database) const
{
    return "Provider=MSDASQL;Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=" + std::to_string(port_) +
           ";Database=" + std::string(database) + ";User ID=kvx;Password=kvx";
}

std::string HyperSqlServer::NewDatabase()
{
    const std::string text = ConnectionString("kvx" + std::to_string(databases_++ % kDatabases));
    ado::Connection connection;
    connection.Open(text);
    connection.Execute("DROP SCHEMA PUBLIC CASCADE");
    for (const char* statement : {
             // Case does not count, accents do, trailing blanks do not: as German installations of SQL Server compare.
             "SET DATABASE COLLATION \"German 1\" PAD SPACE",
             "SET DATABASE TRANSACTION CONTROL MVCC",
             "CREATE DOMAIN SMALLDATETIME AS TIMESTAMP(0)",
             "CREATE DOMAIN MONEY AS DECIMAL(19,4)",
             "CREATE FUNCTION GETDATE() RETURNS TIMESTAMP(0) RETURN LOCALTIMESTAMP(0)",
         })
        connection.Execute(statement);
    return text;
}

}  // namespace kvx::test
