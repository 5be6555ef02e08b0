// The smallest host: a database of its own, one look-up, and a scripted user who picks a stand.
#include "adapters/headless/HeadlessDesktop.h"
#include "adapters/headless/User.h"
#include "adapters/sqlite/SqliteDriver.h"
#include "common/FormInstance.h"
#include "entry/C_Version.h"
#include "entry/c_Waldort.h"
#include "korvex_loc/KorvexLoc.h"

#include <cstdio>

int main(int, char** arguments)
{
    kvx::adapters::sqlite::RegisterSqliteDriver();
    kvx::SetSiblings(&kvx::KorvexLoc());
    kvx::adapters::headless::HeadlessDesktop desktop;

    kvx::KvxVar kvxvar;
    kvxvar.strLanguage = "DEUTSCH";
    kvxvar.dbAdo.Open(std::string("Provider=Korvex.SQLite;Create=1;Data Source=") + arguments[1]);
    for (const char* statement :
         {"CREATE TABLE OPTIONEN (PROPERTY_ID nvarchar(50), NUMBER_VALUE int, TEXT_VALUE nvarchar(255))",
          "CREATE TABLE HOLZART (HA nvarchar(10))",
          "CREATE TABLE STRINGS (ID_STRING int, CUSTOM_DEUTSCH nvarchar(255))",
          "CREATE TABLE WALDORT (ID_WALDORT int IDENTITY(1,1) PRIMARY KEY, WO1 nvarchar(25), WO2 nvarchar(25), "
          "WO3 nvarchar(25), WO4 nvarchar(25), WO5 nvarchar(25), WO6 nvarchar(25), ID_ACCESS_LEVELS int, DISABLE bit, "
          "ZENTRALE bit, LANGNAME nvarchar(200), FLAECHE numeric(12,4), AL_TER numeric(8,2), HAUPT_HA nvarchar(10), "
          "GEMARKUNG nvarchar(30), FLURSTUECK nvarchar(30), PARZELLE nvarchar(30))",
          "INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE) VALUES ('WALDORTLEVEL', 2)",
          "INSERT INTO WALDORT (WO1) VALUES ('Nord')", "INSERT INTO WALDORT (WO1, WO2) VALUES ('Nord', '3')"})
        kvxvar.dbAdo.Execute(statement);

    std::int32_t level = 0;
    const std::int32_t id = kvx::c_Waldort().Waldort_ID(kvxvar, level, "Nord", "", "", "", "", "");

    desktop.In("F_Waldort", [&](kvx::ui::Form& form) {
        kvx::adapters::headless::User user(desktop, form);
        user.Select("TreeView1", {"Nord", "3"});
        user.Click("btnOK");
    });
    std::string picked;
    kvx::c_Waldort().WaldortId(kvxvar, picked, 0, 0, nullptr);
    desktop.Finish();
    for (const std::string& failure : desktop.Failures())
        std::printf("%s\n", failure.c_str());
    std::printf("Korvex Forms %s: stand %d, picked %s\n", kvx::C_Version().DLL_Version().c_str(), id, picked.c_str());
    kvx::ReleaseForms();
}
