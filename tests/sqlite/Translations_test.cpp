#include "adapters/sqlite/SqliteDriver.h"
#include "basic/Text.h"
#include "sqlite/TestDatabase.h"

#include <sstream>

namespace kvx::test {

namespace {

std::string Unescape(std::string_view text)
{
    return basic::Replace(basic::Replace(basic::Replace(text, "\\r", "\r"), "\\n", "\n"), "\\t", "\t");
}

struct TranslationCase {
    std::string text;
    bool withRowKeys = false;
    std::string translation, outcome;
};

// Parses tests/data/translations.tsv; its head tells the columns.
std::vector<TranslationCase> Cases()
{
    std::vector<TranslationCase> result;
    std::istringstream lines(SourceFile("tests/data/translations.tsv"));
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line.starts_with("#")) continue;
        const std::vector<std::string> cells = basic::Split(line, "\t");
        if (cells.size() != 3) throw std::runtime_error("translations.tsv: " + line);
        TranslationCase one;
        one.withRowKeys = cells[0].starts_with("!");
        one.text = Unescape(cells[0].substr(one.withRowKeys ? 1 : 0));
        one.translation = Unescape(cells[1]);
        one.outcome = cells[2];
        result.push_back(one);
    }
    return result;
}

class Translations : public ::testing::Test {
protected:
    Translations()
        : database_(SourceFile("host/sample/schema.sql")), driver_(adapters::sqlite::OpenSqlite(Properties()))
    {
        adapters::sqlite::RunScript(*driver_, SourceFile("tests/data/translations.sql"));
    }

    ado::ConnectionProperties Properties() const
    {
        return ado::ConnectionProperties(database_.ConnectionString() + ";Synchronous=OFF");
    }

    static ado::ExecuteOptions Options(const TranslationCase& one)
    {
        ado::ExecuteOptions options;
        options.withRowKeys = one.withRowKeys;
        return options;
    }

    std::string Translate(const TranslationCase& one)
    {
        try {
            return basic::Join(adapters::sqlite::TranslateText(*driver_, one.text, Options(one)), " ;; ");
        } catch (const basic::Error& error) {
            return "error: " + error.Description;
        }
    }

    std::string Run(const TranslationCase& one)
    {
        driver_->Execute("BEGIN TRAN", {});
        std::string outcome;
        try {
            const auto statement = driver_->Execute(one.text, Options(one));
            std::size_t rows = 0;
            while (statement->Step())
                ++rows;
            const std::size_t columns = statement->Columns().size();
            outcome = columns == 0 ? "affected " + std::to_string(statement->RowsAffected())
                                   : "rows " + std::to_string(rows) + " cols " + std::to_string(columns);
        } catch (const basic::Error& error) {
            outcome = "error " + std::to_string(error.Number);
        }
        driver_->Execute("ROLLBACK", {});
        return outcome;
    }

    TestDatabase database_;
    std::unique_ptr<ado::DriverConnection> driver_;
};

}  // namespace

TEST_F(Translations, EveryConstructBecomesItsSqliteForm)
{
    for (const TranslationCase& one : Cases())
        EXPECT_EQ(Translate(one), one.translation) << one.text;
}

TEST_F(Translations, EveryTextEndsAsOnSqlServer)
{
    for (const TranslationCase& one : Cases())
        EXPECT_EQ(Run(one), one.outcome) << one.text;
}

// The first time a text keeps its values, from then on they are bound: both must find the same.
TEST_F(Translations, ATextGivesTheSameHoweverOftenItCame)
{
    for (const TranslationCase& one : Cases())
        for (int time = 0; time < 3; ++time)
            EXPECT_EQ(Run(one), one.outcome) << one.text << " time " << time;
}

TEST_F(Translations, MoreThanFiveHundredFilesAreOneList)
{
    std::string text = "SELECT 'a''0' AS Files";
    for (int i = 1; i < 700; ++i)
        text += " UNION ALL SELECT '" + std::to_string(i) + "' AS Files";
    const auto statement = driver_->Execute(text + " ORDER BY Files DESC", {});
    ASSERT_EQ(statement->Columns().size(), 1U);
    EXPECT_EQ(statement->Columns()[0].name, "Files");
    EXPECT_EQ(statement->Columns()[0].type, ado::adVarChar);
    ASSERT_TRUE(statement->Step());
    EXPECT_EQ(statement->At(0).text, "a'0");
    int rows = 1;
    while (statement->Step())
        ++rows;
    EXPECT_EQ(rows, 700);
}

TEST_F(Translations, AListOfSixtyThousandIdsPasses)
{
    std::string text = "SELECT COUNT(*) FROM WALDORT WHERE ID_WALDORT IN (1";
    for (int i = 2; i <= 60'000; ++i)
        text += "," + std::to_string(i);
    const auto statement = driver_->Execute(text + ")", {});
    ASSERT_TRUE(statement->Step());
    EXPECT_EQ(statement->At(0).integer, 4);
}

TEST_F(Translations, ManyRowsInOneInsertAreConvertedToo)
{
    std::string text = "INSERT INTO HOLZART (ID, HA, ZUORD_MSZ, DISABLE) VALUES (1000, 'x', -1.4, -1)";
    for (int i = 1; i < 60; ++i)
        text += ", (" + std::to_string(1000 + i) + ", 'x', 2.5, 'True')";
    driver_->Execute(text, {});
    const auto statement =
        driver_->Execute("SELECT DISTINCT ZUORD_MSZ, DISABLE FROM HOLZART WHERE ID >= 1000 ORDER BY 1", {});
    ASSERT_TRUE(statement->Step());
    EXPECT_EQ(statement->At(0).integer, -1);
    EXPECT_EQ(statement->At(1).integer, 1);
    ASSERT_TRUE(statement->Step());
    EXPECT_EQ(statement->At(0).integer, 3);
    EXPECT_EQ(statement->At(1).integer, 1);
    EXPECT_FALSE(statement->Step());
}

// Nothing a user types may end the translator; the engine has the last word on it.
TEST_F(Translations, PiecesOfStatementsNeverEndIt)
{
    const std::vector<TranslationCase> cases = Cases();
    std::size_t pieces = 0;
    for (const TranslationCase& one : cases) {
        for (std::size_t size = 0; size < one.text.size(); size += 3) {
            Translate({one.text.substr(0, size), one.withRowKeys, "", ""});
            Translate({one.text.substr(size), one.withRowKeys, "", ""});
            Translate({one.text.substr(0, size / 2) + one.text.substr(size), one.withRowKeys, "", ""});
            pieces += 3;
        }
    }
    EXPECT_GT(pieces, 10'000U);
}

}  // namespace kvx::test
