#include "adapters/odbc/OdbcDriver.h"

#include "adapters/odbc/Connection.h"
#include "adapters/odbc/Handle.h"
#include "ado/Constants.h"
#include "basic/Object.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace kvx::adapters::odbc {
namespace {

constexpr std::int32_t kConnectTimeout = 15;

// Parts that only the providers of old knew, or that are ours.
constexpr std::array<std::string_view, 17> kOwnParts = {"Provider",
                                                        "Persist Security Info",
                                                        "Connect Timeout",
                                                        "Connection Timeout",
                                                        "Data Source",
                                                        "Server",
                                                        "DSN",
                                                        "Driver",
                                                        "Initial Catalog",
                                                        "Database",
                                                        "User ID",
                                                        "UID",
                                                        "Password",
                                                        "PWD",
                                                        "Integrated Security",
                                                        "Trusted_Connection",
                                                        "Extended Properties"};

bool Contains(std::string_view text, std::string_view part)
{
    return Upper(text).find(part) != std::string::npos;
}

// The string for ODBC, part by part.
class Builder {
public:
    void Add(std::string_view name, std::string_view value)
    {
        if (value.empty()) return;
        names_.push_back(Upper(name));
        text_ += std::string(name) + "=" + Quoted(value) + ";";
    }
    bool Has(std::string_view name) const { return std::ranges::find(names_, Upper(name)) != names_.end(); }
    void AddIfMissing(std::string_view name, std::string_view value)
    {
        if (!Has(name)) Add(name, value);
    }
    const std::string& Text() const { return text_; }

private:
    static std::string Quoted(std::string_view value)
    {
        if (value.starts_with('{') || value.find_first_of(";{}[]()=") == std::string_view::npos)
            return std::string(value);
        std::string quoted = "{";
        for (const char character : value) {
            quoted += character;
            if (character == '}') quoted += '}';
        }
        return quoted + "}";
    }

    std::vector<std::string> names_;
    std::string text_;
};

std::string WithoutBraces(std::string value)
{
    if (value.starts_with('{') && value.ends_with('}')) return value.substr(1, value.size() - 2);
    return value;
}

// The first installed driver whose name holds one of the words, in their order.
std::string FindInstalled(std::span<const std::string> installed, std::initializer_list<std::string_view> words,
                          std::string_view server)
{
    for (const std::string_view word : words)
        for (const std::string& name : installed)
            if (Contains(name, word)) return name;
    throw MakeError(ado::kErrUnspecified, "No ODBC driver for " + std::string(server) + " is installed.");
}

// "host,1433" and "host\instance" as the free driver takes them.
void AddServer(Builder& builder, const std::string& source, bool freeDriver)
{
    const std::size_t comma = source.find(',');
    if (!freeDriver || comma == std::string::npos) {
        builder.Add("Server", source);
        if (freeDriver && source.find('\\') == std::string::npos) builder.Add("Port", "1433");
        return;
    }
    builder.Add("Server", source.substr(0, comma));
    builder.Add("Port", source.substr(comma + 1));
}

std::vector<std::string> InstalledDrivers()
{
    std::vector<std::string> names;
    const Handle<SQL_HANDLE_ENV> environment(nullptr);
    SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION, NumberValue(SQL_OV_ODBC3), 0);
    std::array<SQLCHAR, 256> name{};
    std::array<SQLCHAR, 1024> attributes{};
    SQLSMALLINT nameSize = 0, attributesSize = 0;
    for (SQLUSMALLINT direction = SQL_FETCH_FIRST; SQL_SUCCEEDED(
             SQLDrivers(environment.Get(), direction, name.data(), static_cast<SQLSMALLINT>(name.size()), &nameSize,
                        attributes.data(), static_cast<SQLSMALLINT>(attributes.size()), &attributesSize));
         direction = SQL_FETCH_NEXT)
        names.emplace_back(reinterpret_cast<const char*>(name.data()));
    return names;
}

std::int32_t Seconds(const std::string& text)
{
    std::int32_t seconds = kConnectTimeout;
    std::from_chars(text.data(), text.data() + text.size(), seconds);
    return seconds;
}

}  // namespace

std::string OdbcConnectionString(const ado::ConnectionProperties& properties, std::span<const std::string> installed)
{
    const std::string provider = properties.Get({"provider"});
    const bool sqlServer =
        Contains(provider, "SQLOLEDB") || Contains(provider, "SQLNCLI") || Contains(provider, "MSOLEDBSQL");
    const bool oracle = Contains(provider, "ORAOLEDB") || Contains(provider, "MSDAORA");
    const std::string source = properties.Get({"data source", "server"});
    std::string driver = WithoutBraces(properties.Get({"driver"}));
    const std::string dsn = properties.Get({"dsn"});
    if (driver.empty() && dsn.empty() && sqlServer)
        driver = FindInstalled(installed, {"ODBC DRIVER 18 FOR SQL SERVER", "FOR SQL SERVER", "FREETDS"}, "SQL Server");
    if (driver.empty() && dsn.empty() && oracle) driver = FindInstalled(installed, {"ORACLE"}, "Oracle");

    Builder builder;
    const bool freeDriver = Contains(driver, "FREETDS") || Contains(driver, "TDSODBC");
    if (!driver.empty()) {
        builder.Add("Driver", "{" + driver + "}");
        if (oracle)
            builder.Add("DBQ", source);
        else
            AddServer(builder, source, sqlServer && freeDriver);
    } else {
        builder.Add("DSN", dsn.empty() ? source : dsn);
    }
    builder.Add("Database", properties.Get({"initial catalog", "database"}));
    builder.Add("UID", properties.Get({"user id", "uid"}));
    builder.Add("PWD", properties.Get({"password", "pwd"}));
    const std::string integrated = properties.Get({"integrated security", "trusted_connection"});
    if (!integrated.empty() && !basic::SameName(integrated, "false") && !basic::SameName(integrated, "no"))
        builder.Add("Trusted_Connection", "Yes");
    // Whatever else was given belongs to the driver.
    std::string rest =
        properties.ToString({kOwnParts[0], kOwnParts[1], kOwnParts[2], kOwnParts[3], kOwnParts[4], kOwnParts[5],
                             kOwnParts[6], kOwnParts[7], kOwnParts[8], kOwnParts[9], kOwnParts[10], kOwnParts[11],
                             kOwnParts[12], kOwnParts[13], kOwnParts[14], kOwnParts[15], kOwnParts[16]});
    for (const std::string& text : {rest, properties.Get({"extended properties"})}) {
        std::size_t at = 0;
        while (at < text.size()) {
            const std::size_t end = std::min(text.find(';', at), text.size());
            const std::string_view part = std::string_view(text).substr(at, end - at);
            const std::size_t equals = part.find('=');
            if (equals != std::string_view::npos) builder.AddIfMissing(part.substr(0, equals), part.substr(equals + 1));
            at = end + 1;
        }
    }
    // What the adapter counts on, unless the host knows better.
    if (freeDriver) {
        builder.AddIfMissing("ClientCharset", "UTF-8");
        builder.AddIfMissing("TDS_Version", "7.4");
    } else if (sqlServer) {
        // As the provider of old did it: a statement may run while the rows of another are still being read.
        builder.AddIfMissing("MARS_Connection", "Yes");
    } else if (Contains(driver, "MARIADB") || Contains(driver, "MAODBC") || Contains(driver, "MYSQL") ||
               Contains(driver, "MYODBC")) {
        builder.AddIfMissing("CharSet", "utf8mb4");
        builder.AddIfMissing("Option", "67108866");  // several statements in one text; rows matched, not rows changed
    }
    return builder.Text();
}

std::unique_ptr<ado::DriverConnection> OpenOdbc(const ado::ConnectionProperties& properties)
{
    const std::vector<std::string> installed = InstalledDrivers();
    return std::make_unique<Connection>(OdbcConnectionString(properties, installed),
                                        Seconds(properties.Get({"connect timeout", "connection timeout"})));
}

void RegisterOdbcDriver()
{
    for (const char* name :
         {"MSDASQL", "MSDASQL.1", "SQLOLEDB", "SQLOLEDB.1", "SQLNCLI", "SQLNCLI10", "SQLNCLI11", "MSOLEDBSQL",
          "MSOLEDBSQL19", "OraOLEDB.Oracle", "OraOLEDB.Oracle.1", "MSDAORA", "MSDAORA.1"})
        ado::RegisterDriver(name, OpenOdbc);
}

}  // namespace kvx::adapters::odbc
