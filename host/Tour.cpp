#include "host/Tour.h"

#include "adapters/qt/QtDesktop.h"
#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Text.h"
#include "host/Login.h"
#include "host/MainWindow.h"
#include "host/Operations.h"
#include "host/Stage.h"
#include "host/Trace.h"
#include "os/Files.h"
#include "ui/Constants.h"

#include <QDialog>
#include <QLineEdit>
#include <QListView>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <unistd.h>

namespace kvx::host {

namespace {

/// A saved row is shown half a second later.
constexpr int kSavedMilliseconds = 700;

/// The list whose first code lists of logs refer to.
constexpr std::int32_t kUsedList = 1130;

/// What the scenes need.
struct Set {
    Stage& stage;
    MainWindow& window;
    const Options& options;
    std::filesystem::path folder;

    bool English() const { return options.English(); }
};

// Calls an operation of the menu; what came back goes to the transcript.
void CallOperation(Set& set, std::string_view name, std::size_t which = 0)
{
    for (const Operation& operation : Operations()) {
        if (operation.Name() != name || which-- != 0) continue;
        const Outcome& outcome = set.window.Run(operation);
        for (const Outcome::Line& line : outcome.lines)
            set.stage.Note("  came back: " + line.name + " = " + line.after +
                           (line.before.empty() || line.before == line.after ? "" : " (was \"" + line.before + "\")"));
        if (outcome.error)
            set.stage.Fail(std::string(name) + " failed: " + ErrorNumberText(outcome.error->Number) + " " +
                           outcome.error->Description);
        return;
    }
    set.stage.Fail("there is no operation " + std::string(name));
}

// How many documents the tour has printed so far.
std::ptrdiff_t Documents(const Set& set)
{
    return std::ranges::count_if(std::filesystem::directory_iterator(set.folder),
                                 [](const auto& entry) { return entry.path().extension() == ".docx"; });
}

// What prints must leave a document.
void CallPrinting(Set& set, std::string_view name, std::size_t which)
{
    const std::ptrdiff_t before = Documents(set);
    CallOperation(set, name, which);
    set.stage.Settle();
    if (Documents(set) <= before) set.stage.Fail(std::string(name) + " has printed nothing");
}

// --- the login

void LoginStandard(Set& set)
{
    set.stage.Expect("F_DBLogin", [](Dialog& f) {
        f.Type("txtName", "gast");
        f.Type("txtPassword", "wald");
        f.Picture("standard");
        f.Click("btnAbbrechen");
    });
    CallOperation(set, "c_DBLogin.DBLogin");
}

void LoginWindows(Set& set)
{
    set.stage.Expect("F_DBLogin", [](Dialog& f) {
        f.Click("Check1");
        f.Picture("windows");
        f.Click("btnAbbrechen");
    });
    CallOperation(set, "c_DBLogin.DBLogin");
}

void LoginByNameAlone(Set& set)
{
    set.stage.Expect("F_DBLogin", [](Dialog& f) {
        f.Picture("BB");
        f.Click("btnAbbrechen");
    });
    Options options = set.options;
    options.client = "BB";
    AskLogin({std::string(kLocalServer), {"sample"}, "mueller", "", false, false}, options);
}

// --- the stands

void PickStand(Set& set)
{
    set.stage.Expect("F_Waldort", [](Dialog& f) {
        f.SelectNode("TreeView1", {"Harz", "04", "III", "62", "a", "2"});
        f.Picture("pick");
        f.Click("btnOK");
    });
    CallOperation(set, "c_Waldort.Waldort");
    set.stage.Picture(set.window, "Korvex-picked");
    if (basic::ToText(set.window.HostBoxes().txtWO[0]->Get("Text")) != "Harz")
        set.stage.Fail("the host's boxes were not filled");
    CallOperation(set, "c_Waldort.Waldort_ID");
}

void MaintainStands(Set& set)
{
    Stage& stage = set.stage;
    stage.Expect("F_Waldort", [&stage](Dialog& f) {
        f.SelectNode("TreeView1", {"Eifel", "01", "IV", "19", "c", "0"});
        f.Picture("maintenance");

        stage.Expect("F_Waldort_Info", [](Dialog& info) {
            info.Picture("view");
            info.Click("btnBearbeiten");
            info.Picture("edit");
            info.Click("btnAbbrechen");
            info.Click("btnClose");
        });
        f.Click("btnInfo");

        // A field saves itself when it is left.
        f.Type("txtName", "Alte Buchen am Bach{TAB}");

        // The fifth level takes certain letters only: a wrong one leads to the picker.
        f.SelectNode("TreeView1", {"Eifel", "01", "IV", "19"});
        f.Click("btnNeuerWO");
        f.Picture("naming");
        stage.ExpectMessage(ui::vbOK);
        stage.Expect("F_Picker", [](Dialog& picker) {
            picker.Picture("list");
            picker.Type("txtFilter", "g e");
            picker.Picture("filtered");
            picker.Click("btnOK");
        });
        f.Keys("x~");

        // A stand that is in use stays.
        f.SelectNode("TreeView1", {"Harz", "04", "III", "62", "a", "2"});
        stage.ExpectMessage(ui::vbYes, "MessageBox-delete");
        stage.Expect("F_MessageBox", [](Dialog& used) {
            used.Picture("where-used");
            used.Click("btnOK");
        });
        f.Click("btnLoschen");
        f.Click("btnCancel");
    });
    CallOperation(set, "c_Waldort.WaldortSimple", 0);
}

void ViewStands(Set& set)
{
    set.stage.Expect("F_Waldort", [](Dialog& f) {
        f.SelectNode("TreeView1", {"Harz", "04", "III", "62", "a", "2"});
        f.Picture("viewer");
        f.Click("btnCancel");
    });
    CallOperation(set, "c_Waldort.WaldortSimple", 1);
}

void ViewSubtree(Set& set)
{
    const auto readId = [&set](const std::string& where) {
        const HostStatements own;
        ado::Recordset row;
        row.Open("SELECT ID_WALDORT FROM WALDORT WHERE " + where, set.window.CurrentSession().kvxvar.dbAdo);
        return row.Eof() ? 0 : basic::CLng(row[0].Value());
    };
    Arguments& arguments = set.window.CallArguments();
    arguments.ID_WALDORT_Root = readId("WO1 = 'Harz' AND WO2 = '04' AND WO3 IS NULL");
    set.window.ShowArguments();
    set.stage.Expect("F_Waldort", [](Dialog& f) {
        f.SelectNode("TreeView1", {"Harz", "04", "III", "62"});
        f.Picture("subtree");
        f.Click("btnCancel");
    });
    CallOperation(set, "c_Waldort.WaldortSimple", 0);
    arguments.ID_WALDORT_Root = 0;
    set.window.ShowArguments();
}

void PickManyStands(Set& set)
{
    set.stage.Expect("F_Waldort", [](Dialog& f) {
        for (const std::string_view last : {"1", "2"}) {
            f.SelectNode("TreeView1", {"Harz", "04", "III", "62", "a", last});
            f.Click("btnOK");
        }
        f.Picture("multipick");
        f.Click("btnCancel");
    });
    CallOperation(set, "c_Waldort.WaldortId", 1);
    if (basic::CLng(set.window.HostBoxes().lstWaldorte->Get("ListCount")) != 2)
        set.stage.Fail("the host's list does not hold two stands");
}

void PickOneStandId(Set& set)
{
    set.stage.Expect("F_Waldort", [](Dialog& f) {
        f.SelectNode("TreeView1", {"Taunus"});
        f.Click("btnOK");
    });
    CallOperation(set, "c_Waldort.WaldortId", 0);
}

void PickWorkStand(Set& set)
{
    set.stage.Expect("F_Waldort", [](Dialog& f) {
        f.SelectNode("TreeView1", {"Harz", "05", "III", "100", "c", "1"});
        f.Click("btnOK");
    });
    CallOperation(set, "c_Waldort.WaldortArbeits");
}

// Client BB: the outside application chooses, here the host's stand-in for it.
void PickOutside(Set& set)
{
    set.stage.ExpectWindow("DSW2", [&set](QWidget& window) {
        window.findChild<QLineEdit*>(QStringLiteral("search"))->setText(QStringLiteral("Müritz/ 01/ "));
        auto* list = window.findChild<QListView*>(QStringLiteral("list"));
        list->setCurrentIndex(list->model()->index(3, 0));
        set.stage.Picture(window, "DSW2-choose");
        dynamic_cast<QDialog&>(window).accept();
    });
    CallOperation(set, "c_Waldort.WaldortArbeits");
}

// Some clients see other fields and buttons, and shorter keys.
void MaintainAs(Set& set, std::string_view mode)
{
    set.stage.Expect("F_Waldort", [mode](Dialog& f) {
        f.SelectNode("TreeView1", {"Eifel", "01", "IV", "19", "c", "0"});
        f.Picture(mode);
        f.Click("btnCancel");
    });
    CallOperation(set, "c_Waldort.WaldortSimple", 0);
}
void MaintainForBB(Set& set)
{
    MaintainAs(set, "maintenance-BB");
}
void MaintainForSaxony(Set& set)
{
    MaintainAs(set, "maintenance-SACHSEN");
}
void MaintainOnOracle(Set& set)
{
    MaintainAs(set, "maintenance-Oracle");
}

void PrintStands(Set& set)
{
    CallPrinting(set, "c_Waldort.WaldortSimple", 2);
}

// --- the list message box

void MessageFromCombo(Set& set)
{
    set.stage.Expect("F_MessageBox", [](Dialog& f) {
        f.SelectRow("List1", 3);
        f.Picture("combo");
        f.Click("btnOK");
    });
    CallOperation(set, "c_Message.MessageBoxCmb");
}

void MessageOfLines(Set& set)
{
    Stage& stage = set.stage;
    CallOperation(set, "c_Message.MessageBox_Clear");
    const Words lines[] = {{"Einschlag 2024 ist abgeschlossen.", "Logging 2024 is closed."},
                           {"3 Listen ohne Rechnung", "3 lists without an invoice"},
                           {"1 Waldort ohne Fläche", "1 stand without an area"}};
    for (const Words& line : lines) {
        stage.ExpectWindow("InputBox", [&stage, &line, &set](QWidget& window) {
            window.findChild<QLineEdit*>()->setText(QString::fromUtf8(
                line.In(set.English()).data(), static_cast<qsizetype>(line.In(set.English()).size())));
            if (line.german.starts_with("Einschlag")) stage.Picture(window, "InputBox-line");
            dynamic_cast<QDialog&>(window).accept();
        });
        CallOperation(set, "c_Message.MessageBox_AddItem");
    }
    CallOperation(set, "c_Message.MessageBox_ItemCount");
    stage.Expect("F_MessageBox", [](Dialog& f) {
        f.Picture("lines");
        f.Click("btnOK");
    });
    CallOperation(set, "c_Message.MessageBox_Show");
}

void MessageOfFile(Set& set)
{
    const std::string file = (set.folder / "protocol.txt").string();
    std::string text;
    for (int i = 1; i <= 40; ++i)
        text += "2024-03-" + std::string(i % 28 < 9 ? "0" : "") + std::to_string(i % 28 + 1) + "  FI2B  " +
                std::to_string(i * 7 % 100) + ",4 fm  Müritz/ 01/ II/ " + std::to_string(i) + "\r\n";
    os::WriteText(file, text);
    set.window.fileToShow = file;
    set.stage.Expect("F_MessageBox", [](Dialog& f) {
        f.Picture("file");
        f.Click("btnOK");
    });
    CallOperation(set, "c_Message.MessageBoxNL");
    set.window.fileToShow.clear();
    std::filesystem::remove(file);
}

// --- the code lists

void CallCodeList(Set& set, std::int32_t textId)
{
    std::size_t which = 0;
    for (const Operation& operation : Operations()) {
        if (operation.Name() != "c_Tabellen2.Tabellen2") continue;
        if (operation.textId == textId) {
            CallOperation(set, operation.Name(), which);
            return;
        }
        ++which;
    }
    set.stage.Fail("there is no code list " + std::to_string(textId));
}

void EditColours(Set& set)
{
    set.stage.Expect("F_Tabellen2", [](Dialog& f) {
        f.SelectRow("DataGrid1", 2);
        f.Picture("browse");
        f.Click("btnNeu");
        f.Type("txtField1", "LI");
        f.Type("txtField2", "Lila");
        f.Picture("new");
        f.Click("btnAbrechen");
        f.Click("btnOK");
    });
    CallCodeList(set, 496);
}

// A row's whole life: saved, found again, deleted; then the list is printed. The protocol tells of it.
void SaveAndDeleteCode(Set& set)
{
    Stage& stage = set.stage;
    const std::filesystem::path protocol = set.folder / "protocol.txt";
    set.window.CallArguments().strProtokolPath = protocol.string();
    stage.Expect("F_Tabellen2", [&stage](Dialog& f) {
        f.SelectRow("DataGrid1", 1);
        f.Click("btnNeu");
        f.Type("txtField1", "ZK");
        f.Type("txtField2", "Zukauf");
        f.Click("btnSpeichern");
        f.Wait(kSavedMilliseconds);
        f.Picture("saved");
        if (f.Text("txtField1") != "ZK") stage.Fail("the saved row is not the current one");
        stage.ExpectMessage(ui::vbYes);
        f.Click("btnLoschen");
        f.Wait(kSavedMilliseconds);
        f.SelectRow("DataGrid1", 0);
        f.Click("cmdPrint");
        f.Click("btnOK");
    });
    const std::ptrdiff_t before = Documents(set);
    CallCodeList(set, kUsedList);
    stage.Settle();
    if (Documents(set) <= before) stage.Fail("the list was not printed");
    if (!os::FileExists(protocol.string()) || os::ReadLines(protocol.string()).size() < 2)
        stage.Fail("the protocol does not tell what was saved and deleted");
    set.window.CallArguments().strProtokolPath.clear();
}

// A code that lists of logs refer to cannot be deleted.
void DeleteUsedCode(Set& set)
{
    Stage& stage = set.stage;
    stage.Expect("F_Tabellen2", [&](Dialog& f) {
        f.SelectRow("DataGrid1", 0);
        stage.ExpectMessage(ui::vbYes, "MessageBox-delete-code");
        stage.Expect("F_MessageBox", [](Dialog& used) {
            used.Picture("code-used");
            used.Click("btnOK");
        });
        f.Click("btnLoschen");
        f.Click("btnOK");
    });
    CallCodeList(set, kUsedList);
}

void EditOrganisation(Set& set)
{
    set.stage.Expect("F_Tabellen2", [](Dialog& f) {
        f.SelectTab("SSTab1", 1);
        f.SelectRow("DataGrid1", 1);
        f.Picture("tabs");
        f.Click("btnOK");
    });
    CallCodeList(set, 480);
}

void EditFieldLabels(Set& set)
{
    set.stage.Expect("F_Tabellen2", [](Dialog& f) {
        f.SelectRow("DataGrid1", 1);
        f.Picture("labels");
        f.Click("btnOK");
    });
    CallCodeList(set, 80);
}

void EditOccasions(Set& set)
{
    set.stage.Expect("F_Tabellen2", [](Dialog& f) {
        f.SelectRow("DataGrid1", 1);
        f.Picture("onefield");
        f.Click("btnOK");
    });
    CallCodeList(set, 4735);
}

// Every other kind opens and closes too.
void OpenEveryCodeList(Set& set)
{
    for (const std::int32_t textId : {687, 1127, 1128, 1129, 1130, 1131, 1132, 1170, 1303, 4245, 4767, 6224}) {
        set.stage.Expect("F_Tabellen2", [textId](Dialog& f) {
            if (textId == 1128) f.Picture("units");
            if (textId == 1170) f.Picture("groups");
            f.Click("btnOK");
        });
        CallCodeList(set, textId);
    }
}

// --- the usage checks

void CheckUsage(Set& set)
{
    Stage& stage = set.stage;
    for (const std::string_view name : {"c_Message.CheckForstamt", "c_Message.CheckPersonal", "c_Message.CheckPerson",
                                        "c_Message.CheckArtikelWaren", "c_Message.CheckBBFTables"}) {
        stage.ExpectWindow("InputBox", [](QWidget& window) { dynamic_cast<QDialog&>(window).accept(); });
        stage.Expect("F_MessageBox", [name](Dialog& f) {
            f.Picture(basic::Mid(name, basic::InStr(name, ".") + 1));
            f.Click("btnOK");
        });
        CallOperation(set, name);
    }
    stage.ExpectWindow("InputBox", [](QWidget& window) { dynamic_cast<QDialog&>(window).accept(); });
    CallOperation(set, "c_Message.GetArtikelNameWaren");
    set.window.HostBoxes().cmbWert->Put("Text", "FI");
    stage.Expect("F_MessageBox", [](Dialog& f) {
        f.Picture("CheckTableToDel");
        f.Click("btnOK");
    });
    CallOperation(set, "c_Message.CheckTableToDel");
}

void Version(Set& set)
{
    CallOperation(set, "C_Version.DLL_Version");
}

struct Scene {
    std::string_view name;
    void (*play)(Set& set);
    std::string_view client = {};  ///< as the session's from here on, if one is named
    std::optional<bool> oracle = {};
};

constexpr std::string_view kStandard = "*";  ///< no client of its own

// A dialog that the library gains gets its row here.
constexpr Scene kScenes[] = {
    {"Version", Version},
    {"Login: server, database, user", LoginStandard, kStandard},
    {"Login: Windows authentication", LoginWindows},
    {"Login: client BB, name and password alone", LoginByNameAlone},
    {"Stands: pick one into the host's boxes", PickStand},
    {"Stands: id of one", PickOneStandId},
    {"Stands: maintenance, free fields, naming, delete", MaintainStands},
    {"Stands: viewer", ViewStands},
    {"Stands: one subtree", ViewSubtree},
    {"Stands: several into the host's list", PickManyStands},
    {"Stands: of a work order", PickWorkStand},
    {"Stands: of a work order, outside application", PickOutside, "BB"},
    {"Stands: maintenance, client BB", MaintainForBB, "BB"},
    {"Stands: maintenance, client SACHSEN", MaintainForSaxony, "SACHSEN"},
    {"Stands: maintenance, Oracle's statements", MaintainOnOracle, kStandard, true},
    {"Stands: print", PrintStands, kStandard, false},
    {"Message: pick from a combo box", MessageFromCombo},
    {"Message: lines of the host", MessageOfLines},
    {"Message: text file", MessageOfFile},
    {"Usage checks", CheckUsage},
    {"Code lists: colours, a new row", EditColours},
    {"Code lists: a row saved, deleted, the list printed", SaveAndDeleteCode},
    {"Code lists: a code in use", DeleteUsedCode},
    {"Code lists: organisational units, ten tabs", EditOrganisation},
    {"Code lists: field labels", EditFieldLabels},
    {"Code lists: occasions, one field", EditOccasions},
    {"Code lists: every other kind", OpenEveryCodeList},
};

}  // namespace

void PrepareTourFolder(const std::filesystem::path& folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!error && access(folder.c_str(), W_OK | X_OK) != 0) error = {errno, std::generic_category()};
    if (error) throw StartError("the tour folder \"" + folder.string() + "\" cannot be used: " + error.message());
}

int RunTour(adapters::qt::QtDesktop& desktop, MainWindow& window, const Options& options)
{
    Stage stage(desktop, options.tourFolder);
    Set set{stage, window, options, options.tourFolder};
    const Trace statements([&stage](const ado::StatementRecord& record) {
        stage.Note("  sql: " + TraceLine(record.text) +
                   (record.succeeded ? "" : "   -- " + ErrorNumberText(record.errorNumber)));
    });
    stage.Settle();
    stage.Picture(window, "Korvex-start");
    for (const Scene& scene : kScenes)
        stage.Play(scene.name, [&] {
            if (!scene.client.empty()) window.UseClient(scene.client == kStandard ? std::string_view{} : scene.client);
            if (scene.oracle) window.UseOracle(*scene.oracle);
            scene.play(set);
        });
    stage.Picture(window, "Korvex-end");

    const std::vector<std::string>& failures = stage.Failures();
    stage.Note("\n" + std::to_string(stage.Pictures().size()) + " pictures, " + std::to_string(failures.size()) +
               " failures");
    for (const std::string& failure : failures)
        std::fprintf(stderr, "korvex_host: tour: %s\n", failure.c_str());
    std::printf("%zu pictures in %s\n", stage.Pictures().size(), options.tourFolder.c_str());
    return failures.empty() ? 0 : StartError::kFailed;
}

}  // namespace kvx::host
