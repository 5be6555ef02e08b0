#include "support/Scenario.h"

#include "adapters/sqlite/SqliteDriver.h"
#include "basic/Convert.h"
#include "basic/Locale.h"
#include "basic/Text.h"
#include "common/FormInstance.h"
#include "common/ModuleState.h"
#include "korvex_loc/KorvexLoc.h"
#include "session/SiblingClasses.h"
#include "support/NewDesktop.h"
#include "support/ScenarioDatabase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace kvx::test {

namespace {

std::string NewFolder()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "kvx-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    return pattern;
}

// The tables are those of the sample database: tests run on what hosts set up.
std::string SampleSchema()
{
    std::ifstream stream(std::string(KVX_SOURCE_DIR) + "/host/sample/schema.sql", std::ios::binary);
    if (!stream) throw std::runtime_error("no sample schema");
    return {std::istreambuf_iterator<char>(stream), {}};
}

void RunScriptOnce(const std::string& connectionString, std::string_view script)
{
    const ado::ConnectionProperties properties(connectionString + ";Create=1;Synchronous=OFF");
    const auto connection = adapters::sqlite::OpenSqlite(properties);
    adapters::sqlite::RunScript(*connection, script);
}

// The sibling reads the customer's wording once a c_Loc; it is no statement of a dialog.
bool IsWordingStatement(std::string_view text)
{
    return text.find("CUSTOM_") != std::string_view::npos && text.find("FROM STRINGS") != std::string_view::npos &&
           text.find("LABEL_GROUP") == std::string_view::npos && text.starts_with("SELECT ID_STRING");
}

}  // namespace

std::string TestData(std::string_view name)
{
    std::ifstream stream(std::string(KVX_SOURCE_DIR) + "/tests/data/" + std::string(name), std::ios::binary);
    if (!stream) throw std::runtime_error("no test data " + std::string(name));
    return {std::istreambuf_iterator<char>(stream), {}};
}

void Dialog::Answer(std::int32_t textId, std::int32_t button)
{
    scenario_.Answer(textId, button);
}

void Dialog::Answer(std::string_view prompt, std::int32_t button)
{
    scenario_.Answer(prompt, button);
}

void Dialog::Wait(std::int64_t milliseconds)
{
    scenario_.Advance(milliseconds);
}

bool Dialog::Shown(std::string_view control)
{
    return basic::CBool(Read(control, "Visible"));
}

bool Dialog::Enabled(std::string_view control)
{
    return basic::CBool(Read(control, "Enabled"));
}

Scenario::Scenario(std::string_view script)
    : folder_(NewFolder()), log_(std::make_shared<StatementLog>()),
      desktop_(NewDesktop())
{
    basic::SetLocale(basic::GermanLocale());
    adapters::sqlite::RegisterSqliteDriver();
    SetSiblings(&KorvexLoc());

    const bool isFile = script.ends_with(".sql") && script.find(' ') == std::string_view::npos;
    const std::string rows = isFile ? TestData(script) : std::string(script);
    const std::string connectionString = scenarioDatabase.make ? scenarioDatabase.make(folder_, rows) : NewFile(rows);

    kvxvar_.strConnection = connectionString;
    kvxvar_.dbAdo.Open(connectionString);
    kvxvar_.strLanguage = "DEUTSCH";
    kvxvar_.strDateFormat = "DD.MM.YYYY";
    kvxvar_.strAppPath = folder_;
    kvxvar_.strIniFile = "korvex.ini";
    kvxvar_.ID_USER = 1;
    if (scenarioDatabase.session) scenarioDatabase.session(kvxvar_);
    ado::AddProcessObserver(log_);
}

// A fresh file of the embedded database.
std::string Scenario::NewFile(std::string_view rows) const
{
    const std::string connectionString = "Provider=Korvex.SQLite;Data Source=" + File("forest.db");
    RunScriptOnce(connectionString, SampleSchema() + "\nGO\n" + std::string(rows));
    return connectionString;
}

// Opened when it is needed: on a server that costs more than many a scenario.
ado::Connection& Scenario::Own()
{
    if (own_.State() != ado::adStateOpen) own_.Open(kvxvar_.strConnection);
    return own_;
}

std::string Scenario::Words(std::string_view sql)
{
    return scenarioDatabase.words ? scenarioDatabase.words(sql) : std::string(sql);
}

Scenario::~Scenario()
{
    ado::RemoveProcessObserver(log_.get());
    desktop_->Finish();
    for (const std::string& failure : TakeFailures()) ADD_FAILURE() << failure;
    ReleaseForms();
    Module() = {};
    kvxvar_ = {};
    own_ = {};
    desktop_.reset();
    SetSiblings(nullptr);
    basic::SetLocale(basic::LocaleFromEnvironment());
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

void Scenario::In(std::string_view form, std::function<void(Dialog&)> script)
{
    desktop_->In(form, [this, script = std::move(script)](ui::Form& shown) {
        Dialog dialog(*this, *desktop_, shown);
        script(dialog);
    });
}

void Scenario::Answer(std::string_view prompt, std::int32_t button)
{
    desktop_->Answer(prompt, button);
}

void Scenario::AnswerInput(std::string_view prompt, std::string_view text)
{
    desktop_->AnswerInput(prompt, text);
}

void Scenario::CancelInput(std::string_view prompt)
{
    desktop_->CancelInput(prompt);
}

void Scenario::Advance(std::int64_t milliseconds)
{
    desktop_->Advance(milliseconds);
}

std::string Scenario::Text(std::int32_t id)
{
    log_->paused = true;
    const std::string text = Siblings().NewLoc()->GetText(id, kvxvar_);
    log_->paused = false;
    return text;
}

void Scenario::Execute(std::string_view sql)
{
    log_->paused = true;
    Own().Execute(Words(sql));
    log_->paused = false;
}

std::string Scenario::Value(std::string_view sql)
{
    const Lines values = Column(sql);
    return values.empty() ? "(none)" : values.front();
}

Lines Scenario::Column(std::string_view sql)
{
    log_->paused = true;
    Lines values;
    ado::Recordset rows = Own().Execute(Words(sql));
    for (; !rows.Eof(); rows.MoveNext()) values.push_back(basic::ToText(rows[0].Value()));
    rows.Close();
    log_->paused = false;
    return values;
}

std::vector<std::string> Scenario::Statements() const
{
    std::vector<std::string> statements;
    std::ranges::copy_if(Log(), std::back_inserter(statements),
                         [](const std::string& text) { return !IsWordingStatement(text); });
    return statements;
}

std::ptrdiff_t Scenario::CountStatements(std::string_view start) const
{
    return std::ranges::count_if(Log(), [start](const std::string& text) { return text.starts_with(start); });
}

bool Scenario::WasSent(std::string_view statement) const
{
    return std::ranges::find(Log(), statement) != Log().end();
}

void Scenario::FailStatement(std::size_t k, std::int32_t number, std::string description)
{
    log_->FailStatement(k, number, std::move(description));
}

void Scenario::WriteFile(std::string_view name, std::string_view bytes) const
{
    std::ofstream(File(name), std::ios::binary) << bytes;
}

std::string Scenario::ReadFile(std::string_view name) const
{
    std::ifstream stream(File(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> Scenario::TakeFailures()
{
    const std::vector<std::string>& all = desktop_->Failures();
    std::vector<std::string> fresh(all.begin() + static_cast<std::ptrdiff_t>(failuresSeen_), all.end());
    failuresSeen_ = all.size();
    return fresh;
}

}  // namespace kvx::test
