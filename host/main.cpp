// The demonstration host: logs in, offers every operation of the library in a window, or shows them all in a tour.
#include "adapters/odbc/OdbcDriver.h"
#include "adapters/qt/QtDesktop.h"
#include "adapters/sqlite/SqliteDriver.h"
#include "basic/Error.h"
#include "basic/Locale.h"
#include "common/FormInstance.h"
#include "common/ModuleState.h"
#include "entry/C_Version.h"
#include "host/Login.h"
#include "host/MainWindow.h"
#include "host/SampleDatabase.h"
#include "host/StandChooser.h"
#include "host/Tour.h"
#include "host/Trace.h"
#include "host/drive/DriveMain.h"
#include "host/drive/ShownDriver.h"
#include "korvex_loc/KorvexLoc.h"
#include "os/Files.h"
#include "os/Objects.h"
#include "os/Process.h"
#include "os/WordProcessor.h"
#include "ui/Constants.h"

#ifdef KVX_HOST_OFFICE
#include "adapters/office/OfficeWordProcessor.h"
#endif

#include <QApplication>
#include <QLocale>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using namespace kvx;
using namespace kvx::host;

bool IsSet(const char* variable)
{
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool HasDisplay()
{
    return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY") || IsSet("QT_QPA_PLATFORM");
}

// Numbers and dates are the user's business; where the machine says nothing, and in a tour, they follow the language.
void ChooseLocale(const Options& options)
{
    bool said = false;
    for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LC_TIME", "LANG"}) {
        const std::string_view value = IsSet(variable) ? std::getenv(variable) : "";
        if (!value.empty() && value != "C" && value != "POSIX" && !value.starts_with("C.")) said = true;
    }
    if (!said || !options.tourFolder.empty())
        basic::SetLocale(options.English() ? basic::EnglishLocale() : basic::GermanLocale());
    QLocale::setDefault(QLocale(QString::fromStdString(basic::CurrentLocale().name).replace('-', '_')));
}

// Shows the login dialog until somebody is logged in. @return nothing: the user gave up
std::optional<Session> LogIn(const Options& options, const std::filesystem::path& appFolder, ui::Desktop& desktop)
{
    const std::filesystem::path folder = DataFolder();
    Login login = LoginTo(EnsureSampleDatabase(folder));
    // A demonstration should not begin with a riddle: the sample's user and password stand there already.
    login.user = "mueller";
    login.password = kSamplePassword;
    for (;;) {
        login = AskLogin(login, options);
        if (!login.ok) return std::nullopt;
        try {
            return OpenSession(options, ConnectionStringOf(login, folder), appFolder);
        } catch (const StartError& error) {
            desktop.MessageBox(error.what(), ui::vbExclamation, "Korvex");
            login.password.clear();
        }
    }
}

// The sample database of a tour: nobody else's, and gone afterwards.
class ScratchFolder {
public:
    ScratchFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "korvex-tour-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw StartError("no temporary folder can be made: " + pattern);
        path_ = pattern;
    }
    ~ScratchFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

// A tour opens its documents for nobody: they are laid beside the pictures.
class TourShell final : public os::Shell {
public:
    explicit TourShell(std::filesystem::path folder) : folder_(std::move(folder)) { os::SetCurrentShell(this); }
    ~TourShell() override { os::SetCurrentShell(nullptr); }
    TourShell(const TourShell&) = delete;
    TourShell& operator=(const TourShell&) = delete;
    std::unique_ptr<os::Process> Start(std::string_view program, const std::vector<std::string>& arguments) override
    {
        return os::SystemShell().Start(program, arguments);
    }
    void Open(std::string_view document) override
    {
        const std::filesystem::path path(document);
        std::error_code error;
        std::filesystem::copy_file(path, folder_ / path.filename(), std::filesystem::copy_options::overwrite_existing,
                                   error);
        if (error) basic::Raise(basic::kErrFileNotFound);
    }

private:
    std::filesystem::path folder_;
};

// @param folder where printed documents go; empty: the user's own folder for documents
void UseWordProcessor([[maybe_unused]] ui::Desktop& desktop, [[maybe_unused]] const std::string& folder)
{
#ifdef KVX_HOST_OFFICE
    adapters::office::RegisterOfficeWordProcessor(folder, [&desktop](std::function<void()> work) {
        desktop.Post([&desktop, work = std::move(work)] {
            try {
                work();
            } catch (const basic::Error& error) {
                desktop.MessageBox(error.Description, ui::vbExclamation, "Korvex");
            }
        });
    });
#endif
}

// Forms that a launcher has left, and the word processor: they go with the desktop that shows them.
void EndLibrary()
{
    ReleaseForms();
    Module() = {};
    os::RegisterWordProcessor({});
}

// Another program drives, and somebody may watch.
int DriveShown(const Options& options, Session session, const std::filesystem::path& appFolder)
{
    drive::LinesBesideWindows input(STDIN_FILENO);
    drive::ShownDriver driver(
        std::move(session), [&](const std::string& connection) { return OpenSession(options, connection, appFolder); },
        input, drive::WriteAnswersTo(STDOUT_FILENO));
    UseWordProcessor(driver, {});
    driver.Run();
    EndLibrary();
    return 0;
}

int Run(int argc, char** argv)
{
    const std::vector<std::string_view> arguments(argv + 1, argv + argc);
    const Options options = ParseOptions(arguments);
    if (options.help) {
        std::fputs(HelpText().c_str(), stdout);
        return 0;
    }
    if (options.version) {
        std::printf("Korvex Forms %s\n", C_Version().DLL_Version().c_str());
        return 0;
    }

    adapters::sqlite::RegisterSqliteDriver();
    adapters::odbc::RegisterOdbcDriver();
    SetSiblings(&KorvexLoc());
    ChooseLocale(options);
    const std::filesystem::path appFolder = std::filesystem::read_symlink("/proc/self/exe").parent_path();

    std::optional<Trace> trace;
    if (!options.traceFile.empty()) trace.emplace(WriteTraceTo(options.traceFile));

    if (options.drive && !options.show) {
        drive::Drive(
            options, appFolder, [](ui::Desktop& desktop) { UseWordProcessor(desktop, {}); }, EndLibrary);
        return 0;
    }

    // What is wrong with the database is told without a window.
    std::optional<Session> session;
    std::optional<ScratchFolder> scratch;
    const bool tour = !options.tourFolder.empty();
    if (tour) {
        PrepareTourFolder(options.tourFolder);
        const HostStatements own;
        scratch.emplace();
        const std::filesystem::path file = EnsureSampleDatabase(scratch->Path());
        session = OpenSession(options, FileConnectionString(file, "mueller", kSamplePassword), appFolder);
    } else if (options.drive) {
        session = drive::OpenDriven(options, appFolder);
    } else if (options.database) {
        session = OpenSession(options, *options.database, appFolder);
    }

    if (!HasDisplay()) {
        if (!tour) throw StartError("there is no display; --tour DIR needs none");
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    }
    int qtArguments = 1;  // ours are read already, and Qt's own go by environment variables
    QApplication app(qtArguments, argv);
    QApplication::setApplicationName(QStringLiteral("Korvex"));
    adapters::qt::QtDesktop::UseDefaultLook(app);
    if (options.drive) return DriveShown(options, std::move(*session), appFolder);
    adapters::qt::QtDesktop desktop;
    desktop.SetLanguage(options.language);
    ui::SetCurrentDesktop(&desktop);
    std::optional<TourShell> tourShell;
    if (tour) tourShell.emplace(options.tourFolder);
    UseWordProcessor(desktop, tour ? scratch->Path().string() : std::string());

    if (!session) session = LogIn(options, appFolder, desktop);
    if (!session) return 0;
    int status = 0;
    {
        MainWindow window(options, std::move(*session));
        session.reset();
        const Trace dock([&window](const ado::StatementRecord& record) { window.ShowStatement(record); });
        os::RegisterObject(kStandChooserId, [&window] {
            return MakeStandChooser([&window]() -> const Session& { return window.CurrentSession(); });
        });
        window.show();
        status = tour ? RunTour(desktop, window, options) : QApplication::exec();
        os::RegisterObject(kStandChooserId, {});
        EndLibrary();
    }
    return status;
}

}  // namespace

int main(int argc, char** argv)
{
    try {
        return Run(argc, argv);
    } catch (const StartError& error) {
        std::fprintf(stderr, "korvex_host: %s\n", error.what());
        return error.Status();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "korvex_host: %s\n", StartError(error.what()).what());
        return StartError::kFailed;
    }
}
