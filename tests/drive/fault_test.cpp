#include "drive/DemoForms.h"
#include "drive/Drive.h"

#include <algorithm>

// Faults: each names what was wrong, and the session goes on.
namespace kvx {

using namespace test;

namespace {

struct Wrong {
    const char* line;
    const char* kind;
    const char* text;  // part of what it says
};

// Sends wrong lines, and after each one a right one.
void ExpectFaults(Drive& d, const std::vector<Wrong>& lines, const char* state)
{
    for (const Wrong& wrong : lines) {
        d.SendLine(wrong.line);
        d.SendLine(R"({"do":"clock"})");
    }
    d.Run();
    ASSERT_EQ(d.Answers().size(), 2 * lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const Json& answer = d.At(2 * i);
        EXPECT_EQ(answer["ok"], false) << lines[i].line;
        EXPECT_EQ(d.FaultAt(2 * i), lines[i].kind) << lines[i].line << "\n" << answer;
        const auto text = answer["error"]["text"].get<std::string>();
        EXPECT_NE(text.find(lines[i].text), std::string::npos) << lines[i].line << "\n" << text;
        EXPECT_EQ(answer["state"], state);
        EXPECT_EQ(d.At(2 * i + 1)["ok"], true);
    }
}

}  // namespace

TEST(DriveFault, WithoutADialog)
{
    Drive d;
    ExpectFaults(
        d,
        {
            {"nonsense", "bad-json", "byte 2"},
            {R"({"do":"call")", "bad-json", "byte"},
            {"\xff\xfe", "bad-json", "byte"},
            {"[1,2]", "bad-message", "object"},
            {"7", "bad-message", "object"},
            {"{}", "bad-message", "\"do\" is missing"},
            {R"({"do":3})", "bad-message", "\"do\" must be a text"},
            {R"({"do":"fly"})", "unknown-message", "fly"},
            {R"({"do":"wait","millis":3})", "unknown-field", "millis"},
            {R"({"do":"wait","milliseconds":"3"})", "bad-message", "whole number"},
            {R"({"do":"wait","milliseconds":-1})", "bad-message", "0 to"},
            {R"({"do":"wait","milliseconds":99999999999})", "bad-message", "32 bits"},
            {R"({"do":"clock","statements":1})", "bad-message", "true or false"},
            {R"({"do":"session","set":[]})", "bad-message", "set"},
            {R"({"do":"call","class":"c_Wald","method":"Waldort"})", "unknown-class", "c_Wald"},
            {R"({"do":"call","class":"c_Waldort","method":"Wald"})", "unknown-method", "Wald"},
            {R"({"do":"call","class":"c_Waldort"})", "bad-message", "method"},
            {R"({"do":"call","class":"c_Waldort","method":"Waldort_ID","arguments":[]})", "bad-message", "arguments"},
            {R"({"do":"call","class":"c_Waldort","method":"Waldort_ID","arguments":{"WO7":""}})", "unknown-argument",
             "WO7"},
            {R"({"do":"call","class":"c_Waldort","method":"Waldort_ID","arguments":{"WO1":3}})", "bad-argument",
             "WO1 must be a text"},
            {R"({"do":"call","class":"c_Waldort","method":"Waldort_ID","arguments":{"ID_AL":"x"}})", "bad-argument",
             "32 bits"},
            {R"({"do":"call","class":"c_Waldort","method":"Waldort_ID","arguments":{"ID_AL":4000000000}})",
             "bad-argument", "32 bits"},
            {R"({"do":"call","class":"c_Waldort","method":"Waldort_ID","arguments":{"ID_AL":true}})", "bad-argument",
             "32 bits"},
            {R"({"do":"call","class":"c_Waldort","method":"Waldort_ID","arguments":{"kvxvar":{}}})", "bad-argument",
             "session"},
            {R"({"do":"call","class":"c_Message","method":"CheckPerson","arguments":{"intKey":256}})", "bad-argument",
             "8 bits"},
            {R"({"do":"call","class":"c_DBLogin","method":"DBLogin","arguments":{"strDBName_dll":"x"}})",
             "bad-argument", "list of texts"},
            {R"({"do":"call","class":"c_DBLogin","method":"DBLogin","arguments":{"bolWinNTAut_dll":"x"}})",
             "bad-argument", "true or false"},
            {R"({"do":"call","class":"c_Message","method":"MessageBoxCmb","arguments":{"cmbBox":"fm"}})", "bad-object",
             "cmbBox"},
            {R"({"do":"call","class":"c_Message","method":"MessageBoxCmb","arguments":{"cmbBox":{"object":"Slider"}}})",
             "unknown-object", "Slider"},
            {R"({"do":"call","class":"c_Message","method":"MessageBoxCmb","arguments":{"cmbBox":{"same":"box"}}})",
             "unknown-object", "box"},
            {R"({"do":"call","class":"c_Message","method":"MessageBoxCmb","arguments":{"cmbBox":)"
             R"({"object":"ComboBox","Colour":1}}})",
             "library", "Colour"},
            {R"({"do":"connect"})", "bad-message", "connection"},
            {R"({"do":"answer","button":"ok"})", "wrong-time", "no question waits"},
            {R"({"do":"click","control":"btnOK"})", "wrong-time", "no dialog is open"},
            {R"({"do":"get","member":"Caption"})", "wrong-time", "no dialog is open"},
        },
        "idle");
}

TEST(DriveFault, InADialog)
{
    Drive d;
    DemoForm form;
    d.Host().Post([&] { form.Show(); });
    ExpectFaults(
        d,
        {
            {R"({"do":"call","class":"C_Version","method":"DLL_Version"})", "wrong-time", "F_Demo is open"},
            {R"({"do":"connect","connection":"x"})", "wrong-time", "F_Demo is open"},
            {R"({"do":"answer","button":"ok"})", "wrong-time", "no question waits"},
            {R"({"do":"click"})", "bad-message", "\"control\" is missing"},
            {R"({"do":"click","control":"btnNone"})", "unknown-control", "btnNone"},
            {R"({"do":"get","control":"btnNone"})", "unknown-control", "btnNone"},
            {R"({"do":"click","form":"F_None","control":"btnOK"})", "unknown-form", "F_None"},
            {R"({"do":"click","control":"txtLocked"})", "not-reachable", "txtLocked"},
            {R"({"do":"type","control":"txtPage","text":"x"})", "not-reachable", "txtPage"},
            {R"json({"do":"get","control":"grid","member":"TextMatrix(1"})json", "bad-member", "TextMatrix(1"},
            {R"json({"do":"get","control":"grid","member":"TextMatrix(a)"})json", "bad-member", "TextMatrix(a)"},
            {R"json({"do":"get","control":"grid","member":"TextMatrix('a)"})json", "bad-member", "TextMatrix"},
            {R"json({"do":"get","control":"grid","member":"TextMatrix(1)x"})json", "bad-member", "TextMatrix(1)x"},
            {R"({"do":"set","control":"txtName","member":"Text"})", "bad-message", "\"value\" is missing"},
            {R"({"do":"set","control":"txtName","member":"Text","value":{"a":1}})", "bad-value", "no value"},
            {R"({"do":"set","control":"dtpDay","member":"Value","value":{"date":"gestern"}})", "bad-value", "gestern"},
            {R"({"do":"invoke","control":"cmbUnit","member":"AddItem","arguments":"x"})", "bad-message", "list"},
            {R"({"do":"keys","keys":"{NOKEY}"})", "bad-message", "NOKEY"},
            {R"({"do":"key"})", "bad-message", "code"},
            {R"({"do":"key","code":300})", "bad-message", "255"},
            {R"({"do":"key","character":"ab"})", "bad-message", "one character"},
            {R"({"do":"pick","control":"cmbUnit","text":"fuder"})", "no-such-item", "fuder"},
            {R"({"do":"pick","control":"cmbUnit","index":3})", "no-such-item", "entry 3"},
            {R"({"do":"pick","control":"lvwRows","key":"K9"})", "no-such-item", "K9"},
            {R"({"do":"pick","control":"lvwRows","row":0})", "no-such-item", "row 0"},
            {R"({"do":"pick","control":"lvwRows","text":"Kiefer"})", "no-such-item", "Kiefer"},
            {R"({"do":"pick","control":"txtName","index":0})", "wrong-kind", "txtName"},
            {R"({"do":"tick","control":"txtName"})", "wrong-kind", "txtName"},
            {R"({"do":"tick","control":"optA","checked":false})", "wrong-kind", "optA"},
            {R"({"do":"tick","control":"tree"})", "bad-message", "path"},
            {R"({"do":"column","control":"lvwRows","index":3})", "no-such-item", "column 3"},
            {R"({"do":"column","control":"grid","index":1})", "wrong-kind", "list view"},
            {R"({"do":"tab","control":"tabs","tab":2})", "no-such-item", "tab 2"},
            {R"({"do":"tab","control":"tabs","caption":"Seite"})", "no-such-item", "Seite"},
            {R"({"do":"tab","control":"grid","tab":0})", "wrong-kind", "tab strip"},
            {R"({"do":"date","control":"dtpDay","date":"2024-13-01"})", "bad-value", "2024-13-01"},
            {R"({"do":"date","control":"txtName","date":"2024-01-01"})", "wrong-kind", "date box"},
            {R"({"do":"select","control":"tree","path":["Nord","x"]})", "no-such-item", "\"x\""},
            {R"({"do":"select","control":"tree","path":"Nord"})", "bad-message", "list of texts"},
            {R"({"do":"select","control":"tree","key":"N9"})", "no-such-item", "N9"},
            {R"({"do":"expand","control":"lstSource","key":"N9"})", "wrong-kind", "tree"},
            {R"({"do":"nodes","control":"lstSource"})", "wrong-kind", "tree"},
            {R"({"do":"rows","control":"txtName"})", "wrong-kind", "no rows"},
            {R"({"do":"cell","control":"grid","row":3,"col":0})", "no-such-item", "cell 3, 0"},
            {R"({"do":"cell","control":"lstSource","row":0,"col":0})", "wrong-kind", "grid"},
            {R"({"do":"drag","control":"lstSource","entry":9,"target":"lstTarget"})", "no-such-item", "entry 9"},
            {R"({"do":"drag","control":"lstSource","target":"lstTarget","onto":5})", "no-such-item", "entry 5"},
            {R"({"do":"drag","control":"lstSource","target":"lstNone"})", "unknown-control", "lstNone"},
            {R"({"do":"resize","width":100})", "bad-message", "height"},
        },
        "dialog");
}

TEST(DriveFault, ADisabledFormTakesNoInput)
{
    Drive d;
    DemoForm form;
    d.Host().Post([&] { form.Show(); });
    d.Send("set", {{"member", "Enabled"}, {"value", false}});
    d.Send("click", {{"control", "btnOK"}});
    d.Send("set", {{"member", "Enabled"}, {"value", true}});
    d.Send("click", {{"control", "btnOK"}});
    d.Run();
    EXPECT_EQ(d.FaultAt(1), "not-reachable");
    EXPECT_EQ(d.At(3)["state"], "idle");
}

TEST(DriveFault, ABlankLineIsNoMessage)
{
    Drive d;
    d.SendLine("");
    d.SendLine("  \t");
    d.Send("clock");
    d.Run();
    EXPECT_EQ(d.Answers().size(), 1U);
}

TEST(DriveFault, DeepAndLongLinesAreFaultsLikeOthers)
{
    Drive d;
    d.SendLine(std::string(100'000, '['));
    d.SendLine(R"({"do":")" + std::string(1'000'000, 'x') + R"("})");
    d.Send("clock");
    d.Run();
    EXPECT_EQ(d.FaultAt(0), "bad-json");
    EXPECT_EQ(d.FaultAt(1), "unknown-message");
    EXPECT_EQ(d.At(2)["ok"], true);
}

TEST(DriveFault, ANestedFaultDoesNotReachTheMessageThatOpenedTheDialog)
{
    Drive d;
    DemoForm outer, inner("F_Inner");
    outer.onAsk = [&] { inner.Show(); };
    d.Host().Post([&] { outer.Show(); });
    d.Send("click", {{"control", "btnAsk"}});
    d.Send("click", {{"control", "txtLocked"}});
    d.Send("click", {{"control", "btnOK"}});
    d.Send("click", {{"control", "btnOK"}});
    d.Run();
    EXPECT_EQ(d.FaultAt(0), "");
    EXPECT_EQ(d.FaultAt(1), "not-reachable");
    EXPECT_EQ(d.At(2)["form"], "F_Demo");
    EXPECT_EQ(d.FaultAt(2), "");
}

}  // namespace kvx
