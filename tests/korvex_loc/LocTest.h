#pragma once

#include "adapters/sqlite/SqliteDriver.h"
#include "ado/Recordset.h"
#include "ado/StatementObserver.h"
#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/UseLocale.h"
#include "session/KvxVar.h"

#include <gtest/gtest.h>

#include <fstream>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::loc {

/// A session on an empty database of its own, on a German machine. The log begins empty.
class LocTest : public testing::Test {
protected:
    LocTest()
    {
        adapters::sqlite::RegisterSqliteDriver();
        kvxvar.dbAdo.Open("Provider=SQLite;Data Source=:memory:");
        kvxvar.dbAdo.AddStatementObserver(log_);
        kvxvar.strLanguage = "DEUTSCH";
        kvxvar.strDateFormat = "DD.MM.YYYY";
        kvxvar.ID_USER = 5;
        kvxvar.ID_ACCESS_LEVELS = 3;
    }

    /// Makes tables as the sample schema has them.
    void CreateTables(std::initializer_list<std::string_view> names)
    {
        std::ifstream file(KVX_SOURCE_DIR "/host/sample/schema.sql");
        const std::string schema{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        for (const std::string_view name : names) {
            const std::string head = "CREATE TABLE " + std::string(name) + " (";
            const std::size_t start = schema.find(head);
            ASSERT_NE(start, std::string::npos) << name;
            Execute(schema.substr(start, schema.find("\nGO", start) - start));
        }
    }
    /// Prepares data; leaves no trace in the log.
    void Execute(std::string_view text)
    {
        const std::vector<std::string> before = log_->texts;
        kvxvar.dbAdo.Execute(text);
        log_->texts = before;
    }
    /// First column of the first row as text; "(none)" without a row.
    std::string Value(std::string_view select)
    {
        const std::vector<std::string> before = log_->texts;
        const ado::Recordset rows = kvxvar.dbAdo.Execute(select);
        log_->texts = before;
        return rows.Eof() ? "(none)" : basic::ToText(rows[0].Value());
    }
    /// The statements sent so far; the log is empty again.
    std::vector<std::string> Statements() { return std::exchange(log_->texts, {}); }

    basic::UseLocale locale{basic::GermanLocale()};
    KvxVar kvxvar;

private:
    struct Log final : ado::StatementObserver {
        void AfterExecute(const ado::StatementRecord& record) override { texts.push_back(record.text); }
        std::vector<std::string> texts;
    };
    std::shared_ptr<Log> log_ = std::make_shared<Log>();
};

using Texts = std::vector<std::string>;

/// Number of the error that the call raises; 0 = none.
template <class Call>
std::int32_t ErrorOf(Call call)
{
    try {
        call();
    } catch (const basic::Error& error) {
        return error.Number;
    }
    return 0;
}

}  // namespace kvx::loc
