#include "adapters/sqlite/Errors.h"

#include "ado/Constants.h"

#include <sqlite3.h>

namespace kvx::adapters::sqlite {
namespace {

// "CHECK constraint failed: KVX_LENGTH WALDORT.WO1 25"
basic::Error CheckError(const std::string& message)
{
    constexpr std::string_view kPrefix = "CHECK constraint failed: ";
    if (!message.starts_with(kPrefix)) return MakeError(ado::kErrConstraint, message);
    const std::string_view name = std::string_view(message).substr(kPrefix.size());
    const std::size_t blank = name.find(' ');
    if (blank == std::string_view::npos) return MakeError(ado::kErrConstraint, message);
    const std::string_view kind = name.substr(0, blank);
    const std::string what(name.substr(blank + 1));
    if (kind == "KVX_LENGTH") {  // "WALDORT.WO1 25"
        const std::size_t size = what.rfind(' ');
        return MakeError(ado::kErrOutOfRange, "String or binary data would be truncated: column " +
                                                  what.substr(0, size) + " takes" + what.substr(size) + " characters.");
    }
    if (kind == "KVX_RANGE") {
        return MakeError(ado::kErrOutOfRange, "Arithmetic overflow error: column " + what + ".");
    }
    if (kind == "KVX_TYPE") {
        return MakeError(ado::kErrConversion,
                         "Conversion failed when converting a value to the type of column " + what + ".");
    }
    return MakeError(ado::kErrConstraint, message);
}

}  // namespace

basic::Error MakeError(std::int32_t number, std::string description)
{
    return {number, std::move(description), std::string(kSource)};
}

basic::Error MakeError(sqlite3* database, int result)
{
    const int extended = database != nullptr ? sqlite3_extended_errcode(database) : result;
    std::string message = database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(result);
    switch (extended & 0xFF) {
    case SQLITE_ERROR:
        if (message.starts_with("no such table: ")) return MakeError(ado::kErrNoSuchTable, std::move(message));
        if (message == "integer overflow") return MakeError(ado::kErrOutOfRange, std::move(message));
        return MakeError(ado::kErrStatement, std::move(message));
    case SQLITE_CONSTRAINT:
        if (extended == SQLITE_CONSTRAINT_CHECK) return CheckError(message);
        if (extended == SQLITE_CONSTRAINT_DATATYPE) return MakeError(ado::kErrConversion, std::move(message));
        return MakeError(ado::kErrConstraint, std::move(message));
    case SQLITE_MISMATCH: return MakeError(ado::kErrConversion, std::move(message));  // also raised by our functions
    case SQLITE_TOOBIG: return MakeError(ado::kErrOutOfRange, std::move(message));
    case SQLITE_INTERRUPT: return MakeError(ado::kErrTimeout, "Timeout expired.");
    case SQLITE_READONLY:
    case SQLITE_AUTH:
    case SQLITE_PERM: return MakeError(ado::kErrNoPermission, std::move(message));
    default: return MakeError(ado::kErrUnspecified, std::move(message));
    }
}

void Check(sqlite3* database, int result)
{
    if (result != SQLITE_OK && result != SQLITE_ROW && result != SQLITE_DONE) throw MakeError(database, result);
}

}  // namespace kvx::adapters::sqlite
