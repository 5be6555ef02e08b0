#include "adapters/sqlite/SqliteDriver.h"
#include "basic/Text.h"
#include "sqlite/TestDatabase.h"

#include <sstream>

namespace kvx::test {

namespace {

std::string Unescape(std::string_view text)
{
    return basic::Replace(basic::Replace(text, "\\r\\n", "\r\n"), "\\t", "\t");
}

}  // namespace

// tests/data/translations.tsv: a SQL Server text, and what SQLite is given for it (statements parted by " ;; ").
TEST(Translations, EveryConstructOfTheLibrarysTextsBecomesItsSqliteForm)
{
    TestDatabase database(SourceFile("host/sample/schema.sql"));
    const auto raw = adapters::sqlite::OpenSqlite(ado::ConnectionProperties(database.ConnectionString()));
    std::istringstream cases(SourceFile("tests/data/translations.tsv"));
    int count = 0;
    for (std::string line; std::getline(cases, line);) {
        if (line.empty() || line.starts_with("#")) continue;
        const std::vector<std::string> cells = basic::Split(line, "\t");
        ASSERT_EQ(cells.size(), 2U) << line;
        ++count;
        const std::vector<std::string> translated = adapters::sqlite::TranslateText(*raw, Unescape(cells[0]));
        EXPECT_EQ(basic::Join(translated, " ;; "), Unescape(cells[1])) << cells[0];
    }
    EXPECT_GE(count, 30);
}

TEST(Translations, EveryTextOfTheTableRuns)
{
    TestDatabase database(SourceFile("host/sample/schema.sql"));
    std::istringstream cases(SourceFile("tests/data/translations.tsv"));
    for (std::string line; std::getline(cases, line);) {
        if (line.empty() || line.starts_with("#")) continue;
        const std::string text = Unescape(basic::Split(line, "\t")[0]);
        EXPECT_EQ(database.ErrorOf(text), 0) << text;
    }
}

}  // namespace kvx::test
