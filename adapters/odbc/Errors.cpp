#include "adapters/odbc/Errors.h"

#include "adapters/odbc/Handle.h"
#include "ado/Constants.h"

#include <algorithm>
#include <array>
#include <span>

namespace kvx::adapters::odbc {
namespace {

using namespace ado;

struct NativeNumber {
    std::int32_t first, last;  // of the engine
    std::int32_t number;       // of the provider
};

// clang-format off
constexpr NativeNumber kSqlServer[] = {
    {102, 102, kErrStatement}, {105, 105, kErrStatement}, {156, 156, kErrStatement}, {170, 170, kErrStatement},
    {207, 207, kErrStatement}, {208, 208, kErrNoSuchTable}, {220, 220, kErrOutOfRange}, {229, 230, kErrNoPermission},
    {241, 242, kErrConversion}, {245, 245, kErrConversion}, {295, 296, kErrConversion}, {515, 515, kErrConstraint},
    {547, 547, kErrConstraint}, {1205, 1205, kErrUnspecified}, {1222, 1222, kErrTimeout},
    {2601, 2601, kErrConstraint}, {2627, 2627, kErrConstraint}, {2628, 2628, kErrOutOfRange},
    {2812, 2812, kErrStatement}, {4060, 4060, kErrLogin}, {8114, 8114, kErrConversion}, {8115, 8115, kErrOutOfRange},
    {8134, 8134, kErrStatement}, {8152, 8152, kErrOutOfRange}, {18452, 18470, kErrLogin}, {50000, 50000, kErrStatement},
};
constexpr NativeNumber kOracle[] = {
    {1, 1, kErrConstraint}, {54, 54, kErrTimeout}, {60, 60, kErrUnspecified}, {900, 941, kErrStatement},
    {942, 942, kErrNoSuchTable}, {943, 999, kErrStatement}, {1005, 1005, kErrLogin}, {1013, 1013, kErrTimeout},
    {1017, 1017, kErrLogin}, {1031, 1031, kErrNoPermission}, {1400, 1400, kErrConstraint},
    {1407, 1407, kErrConstraint}, {1426, 1426, kErrOutOfRange}, {1438, 1438, kErrOutOfRange},
    {1476, 1476, kErrStatement}, {1722, 1722, kErrConversion}, {1756, 1756, kErrStatement},
    {1830, 1899, kErrConversion}, {2290, 2292, kErrConstraint}, {3113, 3114, kErrUnspecified},
    {6502, 6502, kErrConversion}, {6550, 6550, kErrStatement}, {12899, 12899, kErrOutOfRange},
    {28000, 28000, kErrLogin},
};
constexpr NativeNumber kMariaDb[] = {
    {1044, 1045, kErrLogin}, {1048, 1048, kErrConstraint}, {1051, 1051, kErrNoSuchTable}, {1054, 1054, kErrStatement},
    {1062, 1062, kErrConstraint}, {1064, 1064, kErrStatement}, {1142, 1143, kErrNoPermission},
    {1146, 1146, kErrNoSuchTable}, {1205, 1205, kErrTimeout}, {1213, 1213, kErrUnspecified},
    {1264, 1264, kErrOutOfRange}, {1265, 1265, kErrConversion}, {1292, 1292, kErrConversion},
    {1364, 1364, kErrConstraint}, {1366, 1367, kErrConversion}, {1370, 1370, kErrNoPermission},
    {1406, 1406, kErrOutOfRange}, {1411, 1411, kErrConversion}, {1451, 1452, kErrConstraint},
    {1525, 1525, kErrConversion}, {1690, 1690, kErrOutOfRange}, {1698, 1698, kErrLogin}, {1969, 1969, kErrTimeout},
    {2002, 2003, kErrUnspecified}, {2006, 2006, kErrUnspecified}, {2013, 2013, kErrUnspecified},
    {3024, 3024, kErrTimeout}, {4025, 4025, kErrConstraint},
};

struct StateNumber {
    std::string_view state;  // or its beginning; the first that fits counts
    std::int32_t number;
};
constexpr StateNumber kStates[] = {
    {"22001", kErrOutOfRange}, {"22003", kErrOutOfRange}, {"22012", kErrStatement}, {"22", kErrConversion},
    {"23", kErrConstraint}, {"24", kErrUnspecified}, {"28", kErrLogin}, {"08", kErrUnspecified}, {"40", kErrUnspecified},
    {"42S02", kErrNoSuchTable}, {"42P01", kErrNoSuchTable}, {"S0002", kErrNoSuchTable}, {"42501", kErrNoPermission},
    {"42", kErrStatement}, {"37", kErrStatement}, {"S0022", kErrStatement}, {"07", kErrStatement},
    {"HYT", kErrTimeout}, {"57014", kErrTimeout}, {"70100", kErrTimeout},
};
// clang-format on

std::span<const NativeNumber> NativeNumbers(Engine engine)
{
    switch (engine) {
    case Engine::SqlServer: return kSqlServer;
    case Engine::Oracle: return kOracle;
    case Engine::MariaDb: return kMariaDb;
    default: return {};
    }
}

// "[vendor][driver 1.2][server]message": users are shown the server's words.
std::string_view WithoutNames(std::string_view message)
{
    while (message.starts_with('[')) {
        const std::size_t end = message.find(']');
        if (end == std::string_view::npos) break;
        message.remove_prefix(end + 1);
    }
    constexpr std::string_view kTail = ";\nError while executing the query";
    if (message.ends_with(kTail)) message.remove_suffix(kTail.size());
    const std::size_t first = message.find_first_not_of(" \r\n");
    if (first == std::string_view::npos) return {};  // a driver may say nothing
    return message.substr(first, message.find_last_not_of(" \r\n") - first + 1);
}

}  // namespace

Diagnosis Diagnose(SQLSMALLINT type, SQLHANDLE handle)
{
    Diagnosis first;
    for (SQLSMALLINT record = 1;; ++record) {
        std::array<SQLWCHAR, 6> state{};
        std::array<SQLWCHAR, 2048> message{};
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        const SQLRETURN result = SQLGetDiagRecW(type, handle, record, state.data(), &native, message.data(),
                                                static_cast<SQLSMALLINT>(message.size()), &length);
        if (!SQL_SUCCEEDED(result)) break;
        const std::size_t size = std::min<std::size_t>(static_cast<std::size_t>(length), message.size() - 1);
        const std::string text = FromWide(message.data(), size);
        Diagnosis found{FromWide(state.data(), 5), native, std::string(WithoutNames(text))};
        const bool warning = found.state.starts_with("01") || found.state.starts_with("00");
        if (!warning) return found;
        if (first.message.empty()) first = std::move(found);
    }
    if (first.message.empty()) first.message = "The driver tells no reason.";
    return first;
}

std::int32_t NumberOf(Engine engine, const Diagnosis& diagnosis)
{
    for (const NativeNumber& known : NativeNumbers(engine))
        if (diagnosis.native >= known.first && diagnosis.native <= known.last) return known.number;
    // One state for a missing right, table and column: a name that is not there is much the likelier.
    if (engine == Engine::HyperSql && diagnosis.state == "42501") return kErrStatement;
    for (const StateNumber& known : kStates)
        if (diagnosis.state.starts_with(known.state)) return known.number;
    return kErrUnspecified;
}

basic::Error MakeError(std::int32_t number, std::string description)
{
    return {number, std::move(description), std::string(kSource)};
}

basic::Error MakeError(Engine engine, const Diagnosis& diagnosis)
{
    return MakeError(NumberOf(engine, diagnosis), diagnosis.message);
}

bool IsLost(Engine engine, const Diagnosis& diagnosis)
{
    if (diagnosis.state.starts_with("08")) return true;
    switch (engine) {
    case Engine::MariaDb: return diagnosis.native == 2006 || diagnosis.native == 2013 || diagnosis.native == 2055;
    case Engine::Oracle: return diagnosis.native == 3113 || diagnosis.native == 3114 || diagnosis.native == 28;
    case Engine::SqlServer: return diagnosis.native == 20003 || diagnosis.native == 20006 || diagnosis.native == 20047;
    default: return false;
    }
}

}  // namespace kvx::adapters::odbc
