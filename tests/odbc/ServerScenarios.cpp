#include "odbc/ServerScenarios.h"

#include "ado/Connection.h"
#include "basic/Error.h"
#include "support/ScenarioDatabase.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace kvx::test {
namespace {

std::vector<std::string> Batches(std::string_view script)
{
    std::vector<std::string> batches;
    std::string batch;
    std::istringstream lines{std::string(script)};
    for (std::string line; std::getline(lines, line);) {
        while (line.ends_with('\r') || line.ends_with(' '))
            line.pop_back();
        if (line.starts_with("--") || line.empty()) continue;
        if (line == "GO") {
            if (!batch.empty()) batches.push_back(batch);
            batch.clear();
        } else {
            batch += batch.empty() ? line : "\n" + line;
        }
    }
    if (!batch.empty()) batches.push_back(batch);
    return batches;
}

std::string SampleSchema()
{
    std::ifstream stream(std::string(KVX_SOURCE_DIR) + "/host/sample/schema.sql", std::ios::binary);
    if (!stream) throw std::runtime_error("no sample schema");
    return {std::istreambuf_iterator<char>(stream), {}};
}

// The server's databases of this program: one, as long as no test alters its tables.
class Databases {
public:
    explicit Databases(ServerSetting setting) : setting_(std::move(setting)) {}

    std::string Make(const std::string& rows)
    {
        if (spoiled_) {
            NewTables();
        } else {
            for (const std::string& statement : emptying_)
                Run(statement, statement);
        }
        for (const std::string& batch : Batches(rows))
            Run(Replaced(batch, setting_.rowWords), batch);
        return text_;
    }

    std::string Words(std::string_view sql)
    {
        for (const std::string_view word : {"CREATE", "ALTER", "DROP"})
            if (sql.starts_with(word)) spoiled_ = true;
        return Replaced(std::string(sql), setting_.rowWords);
    }

    void Forget() { spoiled_ = true; }

private:
    void NewTables()
    {
        connection_ = {};
        text_ = setting_.newDatabase();
        connection_.Open(text_);
        std::vector<std::string> tables, counting;
        for (const std::string& batch : Batches(SampleSchema())) {
            // Each engine has words of its own for these, if it has any: ServerSetting::extra.
            if (batch.starts_with("CREATE PROCEDURE") || batch.starts_with("CREATE TRIGGER")) continue;
            const std::string words = Replaced(batch, setting_.schemaWords);
            Run(words, batch);
            constexpr std::string_view kCreate = "CREATE TABLE ";
            if (!words.starts_with(kCreate)) continue;
            tables.push_back(words.substr(kCreate.size(), words.find(" (") - kCreate.size()));
            if (batch.find("IDENTITY(1,1)") != std::string::npos) counting.push_back(tables.back());
        }
        for (const std::string& statement : setting_.extra)
            Run(statement, statement);
        emptying_ = setting_.emptyAll(tables, counting);
        spoiled_ = false;
    }

    void Run(const std::string& text, const std::string& original) const
    {
        try {
            connection_.Execute(text, nullptr, ado::adCmdText);
        } catch (const basic::Error& error) {
            throw std::runtime_error(error.Description + " in: " + original);
        }
    }

    ServerSetting setting_;
    ado::Connection connection_;
    std::string text_;
    std::vector<std::string> emptying_;
    bool spoiled_ = true;
};

// The statements that the engine refused, by shape.
class Refusals final : public ado::StatementObserver {
public:
    struct Refusal {
        std::int32_t number;
        std::string text, description;
    };
    void AfterExecute(const ado::StatementRecord& record) override
    {
        if (record.succeeded || !record.sent) return;
        const std::string shape = ShapeOf(record.text);
        if (refused_.emplace(shape, Refusal{record.errorNumber, record.text, record.errorDescription}).second) return;
    }
    const std::map<std::string, Refusal>& All() const { return refused_; }

private:
    std::map<std::string, Refusal> refused_;
};

std::shared_ptr<Databases>& TheDatabases()
{
    static std::shared_ptr<Databases> databases;
    return databases;
}

}  // namespace

std::string Replaced(std::string text, const WordPairs& words)
{
    for (const auto& [from, to] : words)
        for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
            text.replace(at, from.size(), to);
    return text;
}

void UseServer(ServerSetting setting)
{
    const auto databases = TheDatabases() = std::make_shared<Databases>(std::move(setting));
    scenarioDatabase.make = [databases](const std::string&, const std::string& rows) { return databases->Make(rows); };
    scenarioDatabase.words = [databases](std::string_view sql) { return databases->Words(sql); };
}

void MakeDatabaseAnew()
{
    TheDatabases()->Forget();
}

KnownDifferences::KnownDifferences(const std::string& file)
{
    std::ifstream stream(std::string(KVX_SOURCE_DIR) + "/tests/odbc/" + file);
    if (!stream) throw std::runtime_error("no list " + file);
    for (std::string line; std::getline(stream, line);) {
        if (line.empty() || line.starts_with('#')) continue;
        std::vector<std::string> fields;
        std::istringstream parts(line);
        for (std::string part; std::getline(parts, part, '\t');)
            fields.push_back(part);
        if (fields.size() == 3 && fields[0] == "test") {
            tests[fields[1]] = fields[2];
        } else if (fields.size() == 4 && fields[0] == "statement") {
            statements[fields[1]] = {std::stoi(fields[2]), fields[3]};
        } else {
            throw std::runtime_error(file + ": " + line);
        }
    }
}

std::string ShapeOf(std::string_view text)
{
    std::string shape;
    for (std::size_t at = 0; at < text.size();) {
        const char character = text[at];
        const bool inWord = !shape.empty() && (std::isalnum(static_cast<unsigned char>(shape.back())) != 0 ||
                                               shape.back() == '_' || shape.back() == '#');
        if (character == '\'') {
            for (++at; at < text.size(); ++at)
                if (text[at] == '\'' && (++at == text.size() || text[at] != '\'')) break;
            shape += '?';
        } else if (std::isdigit(static_cast<unsigned char>(character)) != 0 && !inWord) {
            while (at < text.size() && (std::isdigit(static_cast<unsigned char>(text[at])) != 0 || text[at] == '.'))
                ++at;
            shape += '#';
        } else {
            shape += character == '\r' || character == '\n' || character == '\t' ? ' ' : character;
            ++at;
        }
    }
    for (const std::string_view list : {"#,#", "?,?", "#, #", "?, ?"})
        for (std::size_t at = 0; (at = shape.find(list, at)) != std::string::npos;)
            shape.erase(at + 1, list.size() - 1);
    while (shape.ends_with(' '))
        shape.pop_back();
    return shape;
}

int RunOnServer(const KnownDifferences& known)
{
    const auto refusals = std::make_shared<Refusals>();
    ado::AddProcessObserver(refusals);
    if (RUN_ALL_TESTS() != 0) std::cout << "Failures are held against the known differences.\n";
    ado::RemoveProcessObserver(refusals.get());

    int wrong = 0;
    const auto tell = [&wrong](std::string_view what, std::string_view name, std::string_view more = {}) {
        std::cout << what << '\t' << name << '\t' << more << '\n';
        ++wrong;
    };
    std::size_t ran = 0;
    const ::testing::UnitTest& all = *::testing::UnitTest::GetInstance();
    for (int suite = 0; suite < all.total_test_suite_count(); ++suite) {
        const ::testing::TestSuite& tests = *all.GetTestSuite(suite);
        for (int index = 0; index < tests.total_test_count(); ++index) {
            const ::testing::TestInfo& test = *tests.GetTestInfo(index);
            if (!test.should_run()) continue;
            ++ran;
            const std::string name = std::string(test.test_suite_name()) + "." + test.name();
            const bool isKnown = known.tests.contains(name);
            if (test.result()->Failed() && !isKnown) tell("UNKNOWN test", name);
            if (test.result()->Passed() && isKnown) tell("PASSES now", name);
        }
    }
    for (const auto& [shape, refusal] : refusals->All()) {
        const auto found = known.statements.find(shape);
        if (found == known.statements.end())
            tell("UNKNOWN statement", shape, std::to_string(refusal.number) + "\t" + refusal.description);
        else if (found->second.number != refusal.number)
            tell("OTHER number", shape, std::to_string(refusal.number) + "\t" + refusal.description);
    }
    if (ran == static_cast<std::size_t>(all.total_test_count()))
        for (const auto& [shape, statement] : known.statements)
            if (!refusals->All().contains(shape)) tell("RUNS now", shape);
    std::cout << ran << " tests, " << known.tests.size() << " of them known to differ; " << known.statements.size()
              << " statements known to be refused; " << wrong << " surprises\n";
    return wrong == 0 && ran > 0 ? 0 : 1;
}

}  // namespace kvx::test
