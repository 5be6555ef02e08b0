// The stand dialogs' tests with Oracle's form of every statement, on MariaDB in Oracle's mode.
#include "host/Options.h"
#include "host/Session.h"
#include "odbc/Engines.h"
#include "odbc/ServerScenarios.h"
#include "stands/StandsTest.h"
#include "support/ScenarioDatabase.h"

namespace kvx::test {
namespace {

MariaDbServer* theServer = nullptr;

}  // namespace

TEST(ServerGone, InTheMiddleOfADialogIsShownAndTheHostGoesOnAfterwards)
{
    Scenario s;
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        theServer->Kill();
        s.Answer("*", ui::vbOK);
        f.Type("txtName", "neu");
        f.Focus("txtGemarkung");
        EXPECT_EQ(f.Text("txtName"), "neu") << "what was typed is not lost";
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Boxes().size(), 1u);
    EXPECT_EQ(s.Boxes().at(0).flags, 16) << "an error box";
    EXPECT_NE(s.Boxes().at(0).prompt.find("erver"), std::string::npos) << s.Boxes().at(0).prompt;

    theServer->Start();
    MakeDatabaseAnew();
    s.kvxvar().dbAdo.Close();
    s.kvxvar().dbAdo.Open();
    EXPECT_EQ(s.Value("SELECT LANGNAME FROM WALDORT WHERE ID_WALDORT = 2"), "Nord 1") << "nothing half-written";
    Maintain(s, [&](Dialog& f) {
        f.Select("TreeView1", {"Nord", "1"});
        f.Type("txtName", "neu");
        f.Focus("txtGemarkung");
        f.Click("btnCancel");
    });
    EXPECT_EQ(s.Value("SELECT LANGNAME FROM WALDORT WHERE ID_WALDORT = 2"), "neu");
}

TEST(HostOnAServer, OpensItsSessionByAConnectionString)
{
    Scenario s;
    s.Execute("INSERT INTO USERS (ID_USER, NAME, LONGNAME, ID_ACCESS_LEVELS) VALUES (3, 'root', 'Möller, Jörg', 2)");
    host::Options options;
    options.oracle = true;
    host::Session session = host::OpenSession(options, s.kvxvar().strConnection, s.File(""));
    EXPECT_EQ(session.kvxvar.ID_USER, 3);
    EXPECT_EQ(session.userName, "Möller, Jörg");
    EXPECT_EQ(session.levelName, "Revier Birkenhain");
    s.In("F_Waldort", [](Dialog& f) {
        EXPECT_FALSE(Nodes(f).empty());
        f.Click("btnCancel");
    });
    std::int32_t level = 2;
    c_Waldort().WaldortSimple(session.kvxvar, /*bolPrint=*/0, level, /*OnlyRead=*/0, s.ID_WALDORT_Root);
}

}  // namespace kvx::test

int main(int argc, char** argv)
{
    using namespace kvx::test;
    ::testing::InitGoogleTest(&argc, argv);
    MariaDbServer server(MariaDbServer::kOracleMode);
    theServer = &server;
    ServerSetting setting;
    setting.newDatabase = [&server] { return server.NewDatabase(); };
    // LONG is a word of the language here as on Oracle.
    setting.schemaWords = {{"int IDENTITY(1,1)", "int AUTO_INCREMENT"},
                           {"nvarchar(max)", "longtext"},
                           {"nvarchar(", "varchar("},
                           {"smalldatetime", "datetime"},
                           {" float ", " double "},
                           {" LONG varchar", " \"LONG\" varchar"},
                           {"[PLAN]", "\"PLAN\""}};
    setting.rowWords = {
        {" LONG,", " \"LONG\","}, {" LONG)", " \"LONG\")"}, {"SELECT LONG ", "SELECT \"LONG\" "}, {"ISNULL(", "NVL("}};
    setting.extra = {
        "CREATE PROCEDURE kvx_WALDORT_INS AS BEGIN INSERT INTO WALDORT () VALUES (); SELECT LAST_INSERT_ID() "
        "AS ID_WALDORT; END"};
    setting.emptyAll = [](const std::vector<std::string>& tables, const std::vector<std::string>& counting) {
        std::string text = "SET FOREIGN_KEY_CHECKS=0";
        for (const std::string& table : tables)
            text += ";DELETE FROM " + table;
        for (const std::string& table : counting)
            text += ";ALTER TABLE " + table + " AUTO_INCREMENT=1";
        return std::vector<std::string>{text + ";SET FOREIGN_KEY_CHECKS=1"};
    };
    UseServer(std::move(setting));
    scenarioDatabase.session = [](kvx::KvxVar& session) { session.bOracle = -1; };
    return RunOnServer(KnownDifferences("oracle-form.tsv"));
}
