#include "ado/Errors.h"
#include "drive/Drive.h"
#include "host/Operations.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

// Calls: arguments by name, what comes back, errors, the session.
namespace kvx {

using namespace test;
using host::drive::Method;
using host::drive::Methods;
using host::drive::Parameter;

namespace {

std::string Content(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// "c_Waldort.Waldort(kvxvar,txtWO1...)" of every public method that the headers of the public classes declare.
std::set<std::string> DeclaredMethods()
{
    std::set<std::string> found;
    const std::regex comment("//[^\n]*"), method("([A-Za-z_0-9]+)\\(([^()]*)\\)( const)?;"),
        name("([A-Za-z_0-9]+)( = [^,]*)?$");
    for (const auto& entry : std::filesystem::directory_iterator(std::string(KVX_SOURCE_DIR) + "/src/entry")) {
        if (entry.path().extension() != ".h") continue;
        const std::string text = std::regex_replace(Content(entry.path()), comment, "");
        for (std::sregex_iterator at(text.begin(), text.end(), method), end; at != end; ++at) {
            std::string row = entry.path().stem().string() + "." + (*at)[1].str() + "(";
            std::string parameters = (*at)[2];
            for (std::size_t comma = 0; !parameters.empty(); parameters.erase(0, comma)) {
                comma = std::min(parameters.find(','), parameters.size());
                const std::string one = parameters.substr(0, comma);
                std::smatch words;
                EXPECT_TRUE(std::regex_search(one, words, name)) << one;
                row += words[1].str() + ",";
                comma = std::min(comma + 1, parameters.size());
            }
            found.insert(row + ")");
        }
    }
    return found;
}

}  // namespace

TEST(DriveMethods, EveryPublicMethodStandsInTheTableWithTheNamesItIsDeclaredWith)
{
    std::set<std::string> rows;
    for (const Method& method : Methods()) {
        std::string row = method.Name() + "(";
        for (const Parameter& parameter : method.Parameters())
            row += std::string(parameter.name) + ",";
        rows.insert(row + ")");
    }
    EXPECT_EQ(rows, DeclaredMethods());
    EXPECT_EQ(rows.size(), Methods().size()) << "a method stands there twice";
}

TEST(DriveMethods, EveryMethodOfTheMenuCanBeDriven)
{
    for (const host::Operation& operation : host::Operations())
        EXPECT_NO_THROW(host::drive::FindMethod(operation.className, operation.method)) << operation.Name();
}

TEST(DriveMethods, EveryMethodCanBeCalledAndEnds)
{
    for (const Method& method : Methods()) {
        Drive d;
        d.Call(method.className, method.method);
        // Whatever opens is closed again: dialogs by the close box, questions by their first button.
        for (int i = 0; i < 6; ++i) {
            d.SendLine(R"({"do":"close"})");
            d.SendLine(R"({"do":"answer","button":"ok"})");
        }
        d.Run();
        int ended = 0;
        for (const Json& answer : d.Answers())
            if (answer.contains("ended")) {
                ++ended;
                EXPECT_EQ(answer["ended"]["call"], method.Name());
                EXPECT_EQ(answer["ended"]["id"], 0);
            }
        EXPECT_EQ(ended, 1) << method.Name();
    }
}

TEST(DriveMethods, TheListTellsNamesKindsAndWhatComesBack)
{
    Drive d;
    d.Send("methods");
    d.Run();
    const Json& methods = d.Last()["methods"];
    ASSERT_EQ(methods.size(), Methods().size());
    const auto pick = std::ranges::find_if(methods, [](const Json& row) { return row["method"] == "WaldortId"; });
    ASSERT_NE(pick, methods.end());
    EXPECT_EQ((*pick)["class"], "c_Waldort");
    EXPECT_EQ((*pick)["arguments"].dump(), R"([{"name":"strWO","kind":"text","comesBack":true},)"
                                           R"({"name":"ID_AL","kind":"long"},{"name":"ID_WALDORT_Root","kind":"long"},)"
                                           R"({"name":"ListBox1","kind":"object","comesBack":true}])");
}

TEST(DriveCall, ACallWithoutADialogAnswersAtOnce)
{
    Drive d;
    d.Call("c_Waldort", "Waldort_ID", {{"ID_AL", 0}, {"WO1", "Nord"}, {"WO2", "3"}});
    d.Run();
    const Json& answer = d.Last();
    EXPECT_EQ(answer["ok"], true);
    EXPECT_EQ(answer["state"], "idle");
    EXPECT_EQ(answer["ended"]["result"], 17);
    EXPECT_EQ(answer["ended"]["arguments"].dump(), R"({"ID_AL":0})");
}

TEST(DriveCall, ArgumentNamesIgnoreCaseAndWhatIsLeftOutIsEmpty)
{
    Drive d;
    d.Call("c_Waldort", "Waldort_ID", {{"wo1", "Süd"}, {"WO3", "7"}});
    d.Run();
    EXPECT_EQ(d.Last()["ended"]["result"], 13);
}

TEST(DriveCall, TheIdIsEchoedWhateverItIs)
{
    Drive d;
    for (const char* id : {"7", "\"a\"", "[1,2]", "null"})
        d.SendLine(R"({"id":)" + std::string(id) + R"(,"do":"call","class":"C_Version","method":"DLL_Version"})");
    d.SendLine(R"({"do":"call","class":"C_Version","method":"DLL_Version"})");
    d.Run();
    EXPECT_EQ(d.At(0)["id"].dump(), "7");
    EXPECT_EQ(d.At(1)["id"].dump(), "\"a\"");
    EXPECT_EQ(d.At(2)["id"].dump(), "[1,2]");
    EXPECT_EQ(d.At(3)["id"].dump(), "null");
    EXPECT_FALSE(d.At(4).contains("id"));
    EXPECT_FALSE(d.At(4)["ended"].contains("id"));
}

TEST(DriveCall, AnErrorOfTheLibraryComesBackByNumberSourceAndText)
{
    Drive d;
    d.World().FailStatement(1, ado::kErrTimeout, "zu langsam");
    d.Call("c_Waldort", "Waldort_ID", {{"WO1", "Nord"}});
    d.Call("c_Message", "MessageBoxNL", {{"strLabel", "Datei"}, {"strFileName", d.World().File("fehlt.txt")}});
    d.Run();
    const Json& ended = d.At(0)["ended"];
    EXPECT_EQ(d.At(0)["ok"], true);
    EXPECT_EQ(ended["error"]["number"], ado::kErrTimeout);
    EXPECT_EQ(ended["error"]["text"], "zu langsam");
    EXPECT_EQ(ended["error"]["source"], "test");
    EXPECT_FALSE(ended.contains("result"));
    EXPECT_EQ(ended["arguments"]["ID_AL"], 0);
    EXPECT_EQ(d.At(1)["ended"]["error"]["number"], 53);
    EXPECT_EQ(d.At(1)["ended"]["error"]["source"], "Korvex_Forms");
    EXPECT_EQ(d.At(1)["ended"]["error"]["text"], "File not found");
}

TEST(DriveCall, AnErrorInADialogEndsTheCallThatOpenedIt)
{
    Drive d("lists.sql");
    d.Call("c_Tabellen2", "Tabellen2", {{"intIdString_dll", 1130}});
    d.Then([&] { d.World().FailStatement(1, ado::kErrTimeout, "zu langsam"); });
    d.Send("cell", {{"control", "DataGrid1"}, {"row", 0}, {"col", 0}});
    d.Send("click", {{"control", "btnNeu"}});
    d.Send("type", {{"control", "txtField1"}, {"text", "XX"}});
    d.Send("type", {{"control", "txtField2"}, {"text", "Neu"}});
    d.Send("click", {{"control", "btnSpeichern"}});
    d.Run();
    bool failed = false;
    for (const Json& answer : d.Answers())
        if (answer.contains("ended")) {
            failed = true;
            EXPECT_EQ(answer["ended"]["error"]["number"], ado::kErrTimeout);
            EXPECT_EQ(answer["state"], "idle");
        }
    EXPECT_TRUE(failed);
}

TEST(DriveCall, BooleansCrossAsTrueAndFalseOrAsNumbers)
{
    Drive d;
    d.Call("c_Message", "CheckArtikelWaren", {{"intId", 999}});
    d.Call("c_Waldort", "WaldortSimple", {{"OnlyRead", true}});
    d.Send("get", {{"control", "txtName"}, {"member", "Locked"}});
    d.Send("close");
    d.Call("c_Waldort", "WaldortSimple", {{"OnlyRead", -1}});
    d.Send("close");
    d.Run();
    EXPECT_EQ(d.At(0)["ended"]["result"], true);
    EXPECT_EQ(d.At(1)["form"], "F_Waldort");
    EXPECT_TRUE(d.At(3).contains("ended"));
    EXPECT_TRUE(d.At(5).contains("ended"));
}

TEST(DriveCall, HostBoxesComeBackAsTheDialogFilledThem)
{
    Drive d;
    Json boxes = {{"strHolzart", "?"}, {"txtWO4", nullptr}};
    for (const char* box : {"txtWO1", "txtWO2", "txtWO3", "txtFlaeche", "txtAlter"})
        boxes[box] = {{"object", "TextBox"}, {"Text", "vorher"}};
    d.Call("c_Waldort", "Waldort", boxes);
    d.Send("objects");
    d.Send("select", {{"control", "TreeView1"}, {"path", {"Nord", "3"}}});
    d.Send("click", {{"control", "btnOK"}});
    d.Run();
    EXPECT_EQ(d.At(0)["state"], "dialog");
    EXPECT_EQ(d.At(1)["objects"]["txtWO2"]["Text"], "vorher");
    const Json& arguments = d.At(3)["ended"]["arguments"];
    EXPECT_EQ(arguments["txtWO1"]["Text"], "Nord");
    EXPECT_EQ(arguments["txtWO2"]["Text"], "3");
    EXPECT_EQ(arguments["txtWO3"]["Text"], "");
    EXPECT_EQ(arguments["txtAlter"]["Text"], "55,00");
    EXPECT_EQ(arguments["strHolzart"], "FI");
    EXPECT_FALSE(arguments.contains("txtWO4")) << "Nothing comes back as nothing";
}

TEST(DriveCall, AListBoxIsFilledWhileTheDialogIsOpen)
{
    Drive d;
    d.Call("c_Waldort", "WaldortId", {{"ListBox1", {{"object", "ListBox"}}}});
    d.Send("select", {{"control", "TreeView1"}, {"path", {"Nord", "3"}}});
    d.Send("dblclick", {{"control", "TreeView1"}});
    d.Send("click", {{"control", "btnOK"}});
    d.Send("objects");
    d.Run();
    const Json& list =
        d.At(3).contains("ended") ? d.At(3)["ended"]["arguments"]["ListBox1"] : d.At(4)["objects"]["ListBox1"];
    ASSERT_EQ(list["List"].size(), 1U) << list;
    EXPECT_EQ(list["ItemData"][0], 17);
}

TEST(DriveCall, AComboBoxGivesItsItemsToTheListMessageBox)
{
    Drive d;
    d.Call("c_Message", "MessageBoxCmb",
           {{"strLabel", "Wert:"},
            {"Parameter", "rm"},
            {"cmbBox", {{"object", "ComboBox"}, {"List", {"fm", "rm", "srm"}}, {"ItemData", {1, 2, 3}}}}});
    d.Send("forms");
    d.Send("rows", {{"control", "List1"}});
    d.Send("pick", {{"control", "List1"}, {"text", "srm"}});
    d.Send("click", {{"control", "btnOK"}});
    d.Run();
    EXPECT_EQ(d.At(0)["form"], "F_MessageBox");
    EXPECT_EQ(d.At(2)["count"], 3);
    ASSERT_TRUE(d.Last().contains("ended")) << d.At(1);
    EXPECT_EQ(d.Last()["ended"]["result"], "srm");
    EXPECT_EQ(d.Last()["ended"]["arguments"]["cmbBox"]["List"].dump(), R"(["fm","rm","srm"])");
}

TEST(DriveCall, ALineOfAMessageBoxIsKeptFromCallToCall)
{
    Drive d;
    d.Call("c_Message", "MessageBox_Clear");
    d.Call("c_Message", "MessageBox_AddItem", {{"s", "erste"}});
    d.Call("c_Message", "MessageBox_AddItem", {{"s", "zweite"}});
    d.Call("c_Message", "MessageBox_ItemCount");
    d.Run();
    EXPECT_EQ(d.Last()["ended"]["result"], 2);
}

TEST(DriveCall, AListOfTextsComesBack)
{
    Drive d;
    d.Call("c_DBLogin", "DBLogin",
           {{"strDBServer_dll", "S"}, {"strDBName_dll", {"A", "B"}}, {"strLanguage_dll", "DEUTSCH"}});
    d.Send("close");
    d.Run();
    EXPECT_EQ(d.At(0)["form"], "F_DBLogin");
    const Json& arguments = d.Last()["ended"]["arguments"];
    EXPECT_EQ(arguments["strDBName_dll"].dump(), R"(["A","B"])");
    EXPECT_EQ(arguments["blnOK_dll"], false);
    EXPECT_EQ(d.Last()["ended"]["result"], nullptr);
}

// --- session

TEST(DriveSession, FieldsAreReadAndSetByName)
{
    Drive d;
    d.Send("session", {{"set",
                        {{"strLanguage", "ENGLISH"},
                         {"g_Client", "BB"},
                         {"ID_USER", 9},
                         {"ID_ACCESS_LEVELS", 2},
                         {"bOracle", true},
                         {"strAppPath", "/opt/korvex"},
                         {"numReserved", {1, 2, 3, 4, 5, 6, 7, 8}},
                         {"numReserved2", 9},
                         {"strReserved7", "r"}}}});
    d.Call("c_Waldort", "Waldort_ID", {{"WO1", "Nord"}});
    d.Run();
    const Json& session = d.At(0)["session"];
    EXPECT_EQ(session["dbAdo"], "open");
    EXPECT_EQ(session["strLanguage"], "ENGLISH");
    EXPECT_EQ(session["bOracle"], true);
    EXPECT_EQ(session["numReserved"].dump(), "[1,2,3,4,5,6,7,8]");
    const KvxVar& kvxvar = d.Host().CurrentSession().kvxvar;
    EXPECT_EQ(kvxvar.g_Client, "BB");
    EXPECT_EQ(kvxvar.ID_USER, 9);
    EXPECT_EQ(kvxvar.ID_ACCESS_LEVELS, 2);
    EXPECT_EQ(kvxvar.strAppPath, "/opt/korvex");
    EXPECT_EQ(kvxvar.numReserved2, 9);
    EXPECT_NE(kvxvar.bOracle, 0);
}

TEST(DriveSession, AWrongFieldChangesNone)
{
    Drive d;
    d.Send("session", {{"set", {{"strLanguage", "ENGLISH"}, {"ID_USER", "nine"}}}});
    d.Send("session", {{"set", {{"strLanguage", "ENGLISH"}, {"strSprache", "x"}}}});
    d.Send("session", {{"set", {{"strLanguage", "ENGLISH"}, {"dbAdo", "closed"}}}});
    d.Send("session", {{"set", {{"strLanguage", "ENGLISH"}, {"numReserved", {1}}}}});
    d.Run();
    EXPECT_EQ(d.FaultAt(0), "bad-message");
    EXPECT_EQ(d.FaultAt(1), "unknown-field");
    EXPECT_EQ(d.FaultAt(2), "bad-message");
    EXPECT_EQ(d.FaultAt(3), "bad-message");
    EXPECT_EQ(d.Host().CurrentSession().kvxvar.strLanguage, "DEUTSCH");
}

TEST(DriveSession, AnOpenDialogDoesNotSeeTheHostsChanges)
{
    Drive d;
    d.Call("c_Waldort", "WaldortSimple");
    d.Send("session", {{"set", {{"strLanguage", "ENGLISH"}}}});
    d.Send("select", {{"control", "TreeView1"}, {"path", {"Nord"}}});
    d.Send("click", {{"control", "btnLoschen"}});
    d.Run();
    EXPECT_EQ(d.At(1)["session"]["strLanguage"], "ENGLISH");
    ASSERT_EQ(d.At(3)["state"], "question") << d.At(3);
    EXPECT_EQ(d.At(3)["question"]["prompt"], d.World().Text(186));
}

TEST(DriveSession, ADatabaseIsConnectedAnewOrRefused)
{
    Drive d;
    d.Send("session", {{"set", {{"g_Client", "BB"}}}});
    d.Send("connect", {{"connection", "Provider=again"}});
    d.Send("connect", {{"connection", "Provider=other"}});
    d.Send("session");
    d.Run();
    EXPECT_EQ(d.At(1)["ok"], true);
    EXPECT_EQ(d.FaultAt(2), "not-connected");
    EXPECT_EQ(d.At(2)["error"]["text"], "no such database");
    EXPECT_EQ(d.At(3)["session"]["g_Client"], "");
}

// --- statements, clock, clipboard

TEST(DriveStatements, AnAnswerTellsWhatWasSentSinceTheAnswerBefore)
{
    Drive d;
    d.Call("c_Waldort", "Waldort_ID", {{"WO1", "Nord"}});
    d.Send(
        "call",
        {{"class", "c_Message"}, {"method", "GetArtikelNameWaren"}, {"arguments", {{"ID", 6}}}, {"statements", true}});
    d.Send("session", {{"statements", true}});
    d.Run();
    EXPECT_FALSE(d.At(0).contains("statements"));
    ASSERT_EQ(d.At(1)["statements"].size(), 1U);
    EXPECT_TRUE(d.At(1)["statements"][0].get<std::string>().find("WARENKATALOG") != std::string::npos);
    EXPECT_EQ(d.At(2)["statements"].size(), 0U);
}

TEST(DriveStatements, TheyCanBeAskedForAfterwardsAndTwice)
{
    Drive d;
    d.Call("c_Waldort", "Waldort_ID", {{"WO1", "Nord"}});
    d.Send("statements");
    d.Send("statements");
    d.Run();
    ASSERT_EQ(d.At(1)["statements"].size(), 1U);
    EXPECT_EQ(d.At(1)["statements"][0], d.World().Log().back());
    EXPECT_EQ(d.At(2)["statements"], d.At(1)["statements"]);
}

TEST(DriveClock, ItStandsOnceItIsSetAndGoesOnByWaiting)
{
    Drive d;
    d.Send("clock", {{"set", "2024-02-29T10:00:00"}});
    d.Send("wait", {{"milliseconds", 90'000}});
    d.Send("clock");
    d.Send("clock", {{"set", "2023-02-29"}});
    d.Run();
    EXPECT_EQ(d.At(0)["clock"], "2024-02-29T10:00:00");
    EXPECT_EQ(d.At(2)["clock"], "2024-02-29T10:01:30");
    EXPECT_EQ(d.FaultAt(3), "bad-value");
}

TEST(DriveClock, ItIsTheMachinesUntilItIsSet)
{
    Drive d;
    const double now = d.Host().Now().days;
    EXPECT_GT(now, 45'000.0) << "after 2023";
    d.Host().Advance(86'400'000);
    EXPECT_NEAR(d.Host().Now().days, now + 1, 0.01);
}

TEST(DriveClipboard, ItIsSetAndRead)
{
    Drive d;
    d.Send("clipboard", {{"set", "Müritz"}});
    d.Send("clipboard");
    d.Run();
    EXPECT_EQ(d.Last()["clipboard"], "Müritz");
}

}  // namespace kvx
