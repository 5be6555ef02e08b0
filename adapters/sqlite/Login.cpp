#include "adapters/sqlite/Login.h"

#include "adapters/sqlite/Connection.h"
#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Sha256.h"
#include "ado/Constants.h"

#include <array>
#include <charconv>
#include <sqlite3.h>
#include <string>

namespace kvx::adapters::sqlite {
namespace {

constexpr std::uint32_t kIterations = 20'000;

std::string Hex(const unsigned char* bytes, std::size_t count)
{
    constexpr char kDigits[] = "0123456789abcdef";
    std::string result;
    for (std::size_t i = 0; i < count; ++i) {
        result += kDigits[bytes[i] >> 4];
        result += kDigits[bytes[i] & 15];
    }
    return result;
}

// "20000:hex"; the count stands with the hash, so that it can grow later.
std::string HashText(std::string_view password, std::string_view salt, std::uint32_t iterations)
{
    const Hash256 hash = StretchPassword(password, salt, iterations);
    return std::to_string(iterations) + ":" + Hex(hash.data(), hash.size());
}

void BindText(sqlite3_stmt* statement, int index, std::string_view text)
{
    sqlite3_bind_text(statement, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

std::string TextAt(sqlite3_stmt* statement, int column)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return text == nullptr ? std::string() : std::string(text);
}

}  // namespace

void CheckLogin(Connection& connection, std::string_view user, std::string_view password)
{
    sqlite3* database = connection.Database();
    if (sqlite3_table_column_metadata(database, nullptr, "KORVEX_LOGIN", nullptr, nullptr, nullptr, nullptr, nullptr,
                                      nullptr) != SQLITE_OK)
        return;
    const StatementPtr find =
        Prepare(database, "SELECT SALT, HASH FROM KORVEX_LOGIN WHERE NAME = ?1 COLLATE KVX", false);
    BindText(find.get(), 1, user);
    const int result = sqlite3_step(find.get());
    Check(database, result);
    if (result == SQLITE_ROW) {
        const std::string salt = TextAt(find.get(), 0), hash = TextAt(find.get(), 1);
        std::uint32_t iterations = 0;
        std::from_chars(hash.data(), hash.data() + hash.size(), iterations);
        if (iterations > 0 && HashText(password, salt, iterations) == hash) return;
    }
    throw MakeError(ado::kErrLogin, "Login failed for user '" + std::string(user) + "'.");
}

void WriteLogin(Connection& connection, std::string_view user, std::string_view password)
{
    sqlite3* database = connection.Database();
    OwnTransaction transaction(connection);
    connection.Run("CREATE TABLE IF NOT EXISTS KORVEX_LOGIN (NAME nvarchar(128) NOT NULL PRIMARY KEY COLLATE KVX, "
                   "SALT varchar(64) NOT NULL COLLATE KVX, HASH varchar(128) NOT NULL COLLATE KVX)");
    std::array<unsigned char, 16> random{};
    sqlite3_randomness(static_cast<int>(random.size()), random.data());
    const std::string salt = Hex(random.data(), random.size());
    const StatementPtr write =
        Prepare(database, "REPLACE INTO KORVEX_LOGIN (NAME, SALT, HASH) VALUES (?1, ?2, ?3)", false);
    BindText(write.get(), 1, user);
    BindText(write.get(), 2, salt);
    BindText(write.get(), 3, HashText(password, salt, kIterations));
    Check(database, sqlite3_step(write.get()));
    sqlite3_reset(write.get());
    transaction.Commit();
}

}  // namespace kvx::adapters::sqlite
