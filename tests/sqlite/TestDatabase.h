#pragma once

#include "adapters/sqlite/SqliteDriver.h"
#include "ado/Connection.h"
#include "basic/Convert.h"
#include "basic/Error.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::test {

/// A database file in a folder of its own, gone with the test.
class TestDatabase {
public:
    explicit TestDatabase(std::string_view script = {})
    {
        adapters::sqlite::RegisterSqliteDriver();
        std::string pattern = (std::filesystem::temp_directory_path() / "kvx-sqlite-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
        folder_ = pattern;
        Run(script);
        connection.Open(ConnectionString());
    }
    ~TestDatabase()
    {
        connection = {};
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    std::string File() const { return folder_ + "/test.db"; }
    std::string ConnectionString() const { return "Provider=Korvex.SQLite;Data Source=" + File() + ";Create=1"; }
    void Run(std::string_view script) const
    {
        const ado::ConnectionProperties properties(ConnectionString() + ";Synchronous=OFF");
        adapters::sqlite::RunScript(*adapters::sqlite::OpenSqlite(properties), script);
    }

    /// First column of every row as text; NULL is "".
    std::vector<std::string> Column(std::string_view sql) const
    {
        std::vector<std::string> values;
        ado::Recordset rows = connection.Execute(sql);
        for (; !rows.Eof(); rows.MoveNext()) values.push_back(basic::ToText(rows[0].Value()));
        return values;
    }
    std::string Value(std::string_view sql) const
    {
        const std::vector<std::string> values = Column(sql);
        return values.empty() ? "(none)" : values.front();
    }
    /// The number of the error that the statement ends with; 0 = none.
    std::int32_t ErrorOf(std::string_view sql) const
    {
        try {
            connection.Execute(sql);
            return 0;
        } catch (const basic::Error& error) {
            return error.Number;
        }
    }

    ado::Connection connection;

private:
    std::string folder_;
};

inline std::string SourceFile(std::string_view name)
{
    std::ifstream stream(std::string(KVX_SOURCE_DIR) + "/" + std::string(name), std::ios::binary);
    if (!stream) throw std::runtime_error("no file " + std::string(name));
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace kvx::test
