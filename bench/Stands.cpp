#include "Stands.h"

#include "adapters/sqlite/Collation.h"
#include "adapters/sqlite/Functions.h"
#include "adapters/sqlite/SqliteDriver.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sqlite3.h>
#include <unistd.h>

namespace kvx::bench {
namespace {

constexpr std::string_view kSchema = R"(
CREATE TABLE WALDORT (
    ID_WALDORT int IDENTITY(1,1) NOT NULL,
    WO1 nvarchar(50) NULL, WO2 nvarchar(50) NULL, WO3 nvarchar(50) NULL,
    WO4 nvarchar(50) NULL, WO5 nvarchar(50) NULL, WO6 nvarchar(50) NULL,
    ID_ACCESS_LEVELS int NULL, DISABLE smallint NULL, ZENTRALE smallint NULL,
    LANGNAME nvarchar(200) NULL, FLAECHE numeric(12,4) NULL, HAUPT_HA nvarchar(5) NULL, AL_TER numeric(8,2) NULL,
    GEMARKUNG nvarchar(30) NULL, FLURSTUECK nvarchar(30) NULL, PARZELLE nvarchar(30) NULL,
    CONSTRAINT PK_WALDORT PRIMARY KEY (ID_WALDORT)
)
GO
CREATE INDEX IX_WALDORT_KEY ON WALDORT (WO1, WO2, WO3, WO4, WO5, WO6, DISABLE, ID_ACCESS_LEVELS, ZENTRALE)
)";

constexpr std::array kOffices = {"Eifel", "Harz", "Müritz", "Rhön", "Söhre", "Spree", "Taunus", "Wörth"};
constexpr std::array kDepartments = {"I", "II", "III", "IV", "V", "VI", "VII", "VIII"};

// How many stand under one of the level above.
constexpr std::array<std::int64_t, 6> kBranches = {1 << 20, 10, 8, 20, 5, 6};

std::string TwoDigits(std::int64_t number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string LevelText(std::size_t level, std::int64_t number)
{
    switch (level) {
    case 0: {
        const auto offices = static_cast<std::int64_t>(kOffices.size());
        const std::string name = kOffices[static_cast<std::size_t>(number % offices)];
        return number < offices ? name : name + " " + TwoDigits(number / offices);
    }
    case 1: return TwoDigits(number + 1);
    case 2: return kDepartments[static_cast<std::size_t>(number)];
    case 3: return std::to_string(number + 40);
    case 4: return std::string(1, static_cast<char>('a' + number));
    default: return std::to_string(number + 1);
    }
}

[[noreturn]] void Fail(sqlite3* database)
{
    std::fprintf(stderr, "%s\n", sqlite3_errmsg(database));
    std::exit(1);
}

class Filler {
public:
    Filler(sqlite3* database, std::int64_t rows, bool missingParents)
        : database_(database), left_(rows), missingParents_(missingParents),
          insert_(PrepareRaw(database,
                             "INSERT INTO WALDORT (WO1,WO2,WO3,WO4,WO5,WO6,DISABLE,ZENTRALE,LANGNAME,FLAECHE) "
                             "VALUES (?,?,?,?,?,?,?,?,?,?)"))
    {
    }

    void Run() { Fill(0); }

private:
    void Fill(std::size_t level)
    {
        for (std::int64_t number = 0; number < kBranches[level] && left_ > 0; ++number) {
            texts_[level] = LevelText(level, number);
            const bool leaf = level + 1 == texts_.size();
            if (leaf || !missingParents_ || ++parents_ % 3 != 0) Insert(level + 1);
            if (!leaf) Fill(level + 1);
        }
    }

    void Insert(std::size_t levels)
    {
        sqlite3_stmt* sql = insert_.get();
        std::string name;
        for (std::size_t i = 0; i < texts_.size(); ++i) {
            const int index = static_cast<int>(i) + 1;
            if (i < levels) {
                sqlite3_bind_text(sql, index, texts_[i].c_str(), -1, SQLITE_STATIC);
                name += (i > 0 ? " " : "") + texts_[i];
            } else {
                sqlite3_bind_null(sql, index);
            }
        }
        if (left_ % 7 == 0)
            sqlite3_bind_int(sql, 7, 0);
        else
            sqlite3_bind_null(sql, 7);
        sqlite3_bind_int(sql, 8, left_ % 101 == 0 ? 1 : 0);
        sqlite3_bind_text(sql, 9, name.c_str(), -1, SQLITE_STATIC);
        sqlite3_bind_double(sql, 10, static_cast<double>(left_ % 1000) / 100);
        if (sqlite3_step(sql) != SQLITE_DONE) Fail(database_);
        sqlite3_reset(sql);
        --left_;
    }

    sqlite3* database_;
    std::int64_t left_;
    bool missingParents_;
    RawStatement insert_;
    std::array<std::string, 6> texts_;
    std::int64_t parents_ = 0;
};

}  // namespace

TemporaryDatabase::TemporaryDatabase()
{
    std::string name = (std::filesystem::temp_directory_path() / "kvx_bench_XXXXXX").string();
    const int file = mkstemp(name.data());
    if (file < 0) {
        std::perror("mkstemp");
        std::exit(1);
    }
    close(file);
    path_ = name;
}

TemporaryDatabase::~TemporaryDatabase()
{
    for (const char* part : {"", "-wal", "-shm"}) {
        std::error_code ignored;
        std::filesystem::remove(path_ + part, ignored);
    }
}

void MakeStands(const TemporaryDatabase& database, std::int64_t rows, bool missingParents)
{
    const auto connection = adapters::sqlite::OpenSqlite(ado::ConnectionProperties(database.ConnectionString()));
    const std::size_t go = kSchema.find("GO");
    adapters::sqlite::RunScript(*connection, kSchema.substr(0, go));
    const RawDatabase raw = OpenRaw(database, "OFF");
    RunRaw(raw.get(), "BEGIN");
    Filler(raw.get(), rows, missingParents).Run();
    RunRaw(raw.get(), "COMMIT");
    adapters::sqlite::RunScript(*connection, kSchema.substr(go + 3));  // the index comes faster behind the rows
    RunRaw(raw.get(), "PRAGMA wal_checkpoint(TRUNCATE)");
}

StandKey KeyOfLeaf(std::int64_t number)
{
    StandKey key;
    for (std::size_t level = 6; level-- > 0;) {
        key.levels[level] = LevelText(level, number % kBranches[level]);
        number /= kBranches[level];
    }
    return key;
}

std::string_view TreeStatement()
{
    return "SELECT * FROM (SELECT WO1,WO2,WO3,WO4,WO5,WO6,1 AS AL, (CASE WHEN ZENTRALE = 1 THEN 1 ELSE 0 END) AS "
           "ZENTRALE "
           "FROM WALDORT WHERE ISNULL(DISABLE,0) = 0 AND WALDORT.ID_ACCESS_LEVELS IS NULL) A ORDER BY "
           "WO1,WO2,WO3,WO4,WO5,WO6";
}

void CloseRaw::operator()(sqlite3* database) const
{
    sqlite3_close_v2(database);
}

void FinalizeRaw::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

RawDatabase OpenRaw(const TemporaryDatabase& database, std::string_view synchronous)
{
    sqlite3* raw = nullptr;
    const int result =
        sqlite3_open_v2(database.Path().c_str(), &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    RawDatabase owner(raw);
    if (result != SQLITE_OK) Fail(raw);
    adapters::sqlite::RegisterCollations(raw);
    adapters::sqlite::RegisterFunctions(raw);
    RunRaw(raw, "PRAGMA journal_mode = WAL");
    RunRaw(raw, ("PRAGMA synchronous = " + std::string(synchronous)).c_str());
    RunRaw(raw, "PRAGMA foreign_keys = ON");
    return owner;
}

RawStatement PrepareRaw(sqlite3* database, std::string_view sql)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &statement, nullptr) != SQLITE_OK)
        Fail(database);
    return RawStatement(statement);
}

void RunRaw(sqlite3* database, const char* sql)
{
    if (sqlite3_exec(database, sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail(database);
}

}  // namespace kvx::bench
