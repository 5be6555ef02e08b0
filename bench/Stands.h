#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace kvx::bench {

/// A file in the temporary folder that goes with this object, with what the engine lays beside it.
class TemporaryDatabase {
public:
    TemporaryDatabase();
    ~TemporaryDatabase();
    TemporaryDatabase(const TemporaryDatabase&) = delete;
    TemporaryDatabase& operator=(const TemporaryDatabase&) = delete;

    const std::string& Path() const { return path_; }
    std::string ConnectionString() const { return "Provider=Korvex.SQLite;Data Source=" + path_; }

private:
    std::string path_;
};

/// Makes the table WALDORT with its index and fills it as a forest is: offices, districts, departments, stands and
/// their parts, six levels in all, each row's parents in front of it.
/// @param missingParents  every third row that others stand under is left out
void MakeStands(const TemporaryDatabase& database, std::int64_t rows, bool missingParents = false);

/// The full key of the stand with that number, as MakeStands counts them.
struct StandKey {
    std::string levels[6];  ///< empty behind the last level in use
};
StandKey KeyOfLeaf(std::int64_t number);

/// The statement of the stand tree for the common stands, as the library composes it.
std::string_view TreeStatement();

/// Plain SQLite on the same file, with the same collations, settings and no locks inside the library.
struct CloseRaw {
    void operator()(sqlite3* database) const;
};
using RawDatabase = std::unique_ptr<sqlite3, CloseRaw>;
RawDatabase OpenRaw(const TemporaryDatabase& database, std::string_view synchronous = "FULL");
struct FinalizeRaw {
    void operator()(sqlite3_stmt* statement) const;
};
using RawStatement = std::unique_ptr<sqlite3_stmt, FinalizeRaw>;
/// Ends the program with the engine's message when the text is refused.
RawStatement PrepareRaw(sqlite3* database, std::string_view sql);
void RunRaw(sqlite3* database, const char* sql);

}  // namespace kvx::bench
