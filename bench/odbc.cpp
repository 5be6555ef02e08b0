#include "Bench.h"

#include "adapters/odbc/Handle.h"
#include "adapters/odbc/OdbcDriver.h"
#include "ado/Connection.h"
#include "ado/Recordset.h"
#include "basic/Error.h"
#include "odbc/Engines.h"

#include <array>
#include <cstdio>

// Stands read from a MariaDB that the benchmark starts for itself: a plain loop of SQLFetch with bound columns, and
// GetRows of our recordset. Both take every value.
namespace kvx::bench {
namespace {

using adapters::odbc::Handle;

constexpr const char* kStatement = "SELECT ID_WALDORT,WO1,WO2,WO3,WO4,LANGNAME,FLAECHE FROM WALDORT";
constexpr std::size_t kTexts = 6;  // the area comes as digits
constexpr std::array<std::size_t, kTexts> kCharacters = {50, 50, 50, 50, 200, 20};

void MakeStands(const ado::Connection& connection, std::int64_t rows)
{
    connection.Execute(
        "CREATE TABLE WALDORT (ID_WALDORT int NOT NULL PRIMARY KEY, WO1 varchar(50), WO2 varchar(50), WO3 "
        "varchar(50), WO4 varchar(50), LANGNAME varchar(200), FLAECHE decimal(12,4))");
    connection.Execute(
        "INSERT INTO WALDORT SELECT seq, CONCAT('Revier ', seq DIV 5000), CONCAT('Abteilung ', seq DIV "
        "100), CONCAT(seq DIV 10), IF(seq % 3 = 0, NULL, CONCAT('u', seq % 10)), CONCAT('Wälder am Berg ', "
        "seq), seq / 7 FROM seq_1_to_" +
        std::to_string(rows));
}

void Require(SQLRETURN result, const char* what)
{
    if (!SQL_SUCCEEDED(result)) throw basic::Error(basic::kErrInvalidCall, what);
}

// ODBC with nothing between.
class PlainReader {
public:
    explicit PlainReader(const std::string& connectionString) : environment_(nullptr)
    {
        SQLSetEnvAttr(environment_.Get(), SQL_ATTR_ODBC_VERSION, adapters::odbc::NumberValue(SQL_OV_ODBC3), 0);
        connection_ = Handle<SQL_HANDLE_DBC>(environment_.Get());
        const std::string text = adapters::odbc::OdbcConnectionString(ado::ConnectionProperties(connectionString), {});
        std::vector<SQLWCHAR> wide = adapters::odbc::ToWide(text);
        Require(SQLDriverConnectW(connection_.Get(), nullptr, wide.data(), SQL_NTS, nullptr, 0, nullptr,
                                  SQL_DRIVER_NOPROMPT),
                "no plain connection");
    }
    ~PlainReader() { SQLDisconnect(connection_.Get()); }
    PlainReader(const PlainReader&) = delete;
    PlainReader& operator=(const PlainReader&) = delete;

    std::size_t Read()
    {
        const adapters::odbc::StatementHandle statement(connection_.Get());
        std::vector<SQLWCHAR> wide = adapters::odbc::ToWide(kStatement);
        Require(SQLExecDirectW(statement.Get(), wide.data(), SQL_NTS), "the plain statement fails");
        std::int64_t id = 0;
        SQLLEN idLength = 0;
        std::array<std::vector<char>, kTexts> texts;
        std::array<SQLLEN, kTexts> lengths{};
        SQLBindCol(statement.Get(), 1, SQL_C_SBIGINT, &id, sizeof(id), &idLength);
        for (std::size_t index = 0; index < kTexts; ++index) {
            texts[index].resize(kCharacters[index] * 4 + 1);
            SQLBindCol(statement.Get(), static_cast<SQLUSMALLINT>(index + 2), SQL_C_CHAR, texts[index].data(),
                       static_cast<SQLLEN>(texts[index].size()), &lengths[index]);
        }
        std::size_t rows = 0;
        std::uint64_t sum = 0;
        while (SQL_SUCCEEDED(SQLFetch(statement.Get()))) {
            ++rows;
            sum += static_cast<std::uint64_t>(id);
            for (std::size_t index = 0; index < kTexts; ++index)
                if (lengths[index] > 0) sum += static_cast<unsigned char>(texts[index].front());
        }
        Consume(sum);
        return rows;
    }

private:
    Handle<SQL_HANDLE_ENV> environment_;
    Handle<SQL_HANDLE_DBC> connection_;
};

std::size_t ReadRows(const ado::Connection& connection)
{
    ado::Recordset rows;
    rows.Open(kStatement, connection);
    return rows.GetRows().Rows();
}

}  // namespace

int RunOdbcRead(const Arguments& arguments)
{
    const std::int64_t count = arguments.Number("--rows", 100'000);
    const int rounds = static_cast<int>(arguments.Number("--rounds", 7));
    test::MariaDbServer server(test::MariaDbServer::kPlainMode);
    const std::string text = server.NewDatabase();
    ado::Connection connection;
    connection.Open(text);
    connection.SetCommandTimeout(0);
    MakeStands(connection, count);
    PlainReader plain(text);

    std::size_t rows = 0;
    const auto readPlain = [&] {
        if (plain.Read() != static_cast<std::size_t>(count))
            throw basic::Error(basic::kErrInvalidCall, "rows are missing");
    };
    const auto readOurs = [&] { rows = ReadRows(connection); };
    // The processor's time is the measure: the wall clock has the server's share in it, on a machine that both share.
    const std::vector<Timing> wall = CompareByTurns(rounds, {readPlain, readOurs}, Clock::Wall);
    const std::vector<Timing> processor = CompareByTurns(rounds, {readPlain, readOurs}, Clock::Processor);
    std::printf("rows=%zu fetch_ms=%.1f getrows_ms=%.1f getrows_ratio=%.3f wall_fetch_ms=%.1f wall_getrows_ms=%.1f "
                "wall_ratio=%.3f\n",
                rows, processor[0].ms, processor[1].ms, processor[1].ratio, wall[0].ms, wall[1].ms, wall[1].ratio);
    return rows == static_cast<std::size_t>(count) ? 0 : 1;
}

}  // namespace kvx::bench
