#include "TreeForest.h"

#include "Bench.h"

#include "adapters/sqlite/SqliteDriver.h"
#include "ado/StatementObserver.h"
#include "basic/Text.h"
#include "korvex_loc/KorvexLoc.h"

#include <sqlite3.h>
#include <utility>

namespace kvx::bench {
namespace {

constexpr std::string_view kTables = R"(
CREATE TABLE OPTIONEN (PROPERTY_ID nvarchar(50) NOT NULL, NUMBER_VALUE int NULL, TEXT_VALUE nvarchar(255) NULL,
    CONSTRAINT PK_OPTIONEN PRIMARY KEY (PROPERTY_ID))
GO
CREATE TABLE STRINGS (ID_STRING int NOT NULL, CUSTOM_DEUTSCH nvarchar(255) NULL,
    CONSTRAINT PK_STRINGS PRIMARY KEY (ID_STRING))
GO
CREATE TABLE T_WALDORT (ID int NOT NULL, WONR smallint NOT NULL, SHORT nvarchar(25) NOT NULL, LONG nvarchar(50) NULL,
    CONSTRAINT PK_T_WALDORT PRIMARY KEY (ID))
GO
CREATE TABLE HOLZART (ID int NOT NULL, HA nvarchar(5) NULL, CONSTRAINT PK_HOLZART PRIMARY KEY (ID))
GO
INSERT INTO HOLZART (ID, HA) VALUES (1, 'FI')
INSERT INTO HOLZART (ID, HA) VALUES (2, 'BU')
INSERT INTO HOLZART (ID, HA) VALUES (3, 'EI')
INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE) VALUES ('WALDORTLEVEL', 6)
GO
CREATE TABLE LOGS (ID_LOG int NOT NULL, LISTE nvarchar(20) NULL, ID_WALDORT int NULL)
GO
CREATE INDEX IX_LOGS_STAND ON LOGS (ID_WALDORT)
GO
CREATE TABLE PERSONAL (ID_PERSONAL int NOT NULL, KURZBEZEICHNUNG nvarchar(50) NULL,
    CONSTRAINT PK_PERSONAL PRIMARY KEY (ID_PERSONAL))
GO
CREATE TABLE WB_WALDORT_ZUORD (ID_PERSONAL int NOT NULL, ID_WALDORT int NOT NULL)
GO
CREATE INDEX IX_WB_WALDORT_ZUORD_STAND ON WB_WALDORT_ZUORD (ID_WALDORT)
GO
CREATE TABLE NN_POSITIONEN (ID int NOT NULL, NN_NAME nvarchar(30) NULL, WALDORT_ID int NULL)
GO
CREATE INDEX IX_NN_POSITIONEN_STAND ON NN_POSITIONEN (WALDORT_ID)
GO
CREATE TABLE ARBEITSAUFTRAG_KOPF (ID int NOT NULL, NAME nvarchar(50) NULL)
GO
CREATE TABLE ARBEITSAUFTRAG (ID int NOT NULL, ARBEITSAUFTRAG_KOPF_ID int NULL, WO_ID int NULL)
GO
CREATE INDEX IX_ARBEITSAUFTRAG_STAND ON ARBEITSAUFTRAG (WO_ID)
GO
CREATE TABLE ARBEITSAUFTRAG_KOPF_PLANN (ID int NOT NULL, NAME nvarchar(50) NULL)
GO
CREATE TABLE ARBEITSAUFTRAG_PLANN (ID int NOT NULL, AA_PLANN_ID int NULL, WO_ID int NULL)
GO
CREATE INDEX IX_ARBEITSAUFTRAG_PLANN_STAND ON ARBEITSAUFTRAG_PLANN (WO_ID)
GO
CREATE PROCEDURE kvx_WALDORT_INS AS
SET NOCOUNT ON
INSERT INTO WALDORT DEFAULT VALUES
SELECT CAST(SCOPE_IDENTITY() AS int) AS ID_WALDORT
)";

}  // namespace

void MakeTablesAroundStands(const TemporaryDatabase& database)
{
    const auto connection = adapters::sqlite::OpenSqlite(ado::ConnectionProperties(database.ConnectionString()));
    adapters::sqlite::RunScript(*connection, kTables);
}

KvxVar OpenSession(const TemporaryDatabase& database, std::string_view synchronous)
{
    adapters::sqlite::RegisterSqliteDriver();
    SetSiblings(&KorvexLoc());
    KvxVar session;
    session.dbAdo.Open(database.ConnectionString() + ";Synchronous=" + std::string(synchronous));
    session.strConnection = database.ConnectionString();
    session.strLanguage = "DEUTSCH";
    return session;
}

class StatementLog::Observer final : public ado::StatementObserver {
public:
    void BeforeExecute(std::string_view text) override { texts.emplace_back(text); }
    std::vector<std::string> texts;
};

StatementLog::StatementLog(ado::Connection connection)
    : connection_(std::move(connection)), observer_(std::make_shared<Observer>())
{
    connection_.AddStatementObserver(observer_);
}

StatementLog::~StatementLog()
{
    connection_.RemoveStatementObserver(observer_.get());
}

std::vector<std::string> StatementLog::Take()
{
    return std::exchange(observer_->texts, {});
}

std::string PlainText(std::string_view statement)
{
    if (statement.find("kvx_WALDORT_INS") != std::string_view::npos) return "INSERT INTO WALDORT DEFAULT VALUES";
    std::string text = basic::Replace(statement, "ISNULL(", "IFNULL(");
    if (text.find("SELECT TOP 1 ") != std::string::npos)
        text = basic::Replace(text, "SELECT TOP 1 ", "SELECT ") + " LIMIT 1";
    return text;
}

void RunTexts(sqlite3* database, const std::vector<std::string>& statements)
{
    std::uint64_t touched = 0;
    for (const std::string& text : statements) {
        const RawStatement statement = PrepareRaw(database, text);
        while (sqlite3_step(statement.get()) == SQLITE_ROW)
            touched += static_cast<std::uint64_t>(sqlite3_column_bytes(statement.get(), 0));
    }
    Consume(touched);
}

}  // namespace kvx::bench
