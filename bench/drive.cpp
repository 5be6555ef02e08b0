#include "Bench.h"

#include "adapters/sqlite/SqliteDriver.h"
#include "host/SampleDatabase.h"
#include "host/drive/DriveMain.h"
#include "korvex_loc/KorvexLoc.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <vector>

// What a message costs beside the work that it asks for.
namespace kvx::bench {

namespace {

class Repeated final : public host::drive::LineSource {
public:
    std::optional<std::string> Next(const std::function<bool()>&) override
    {
        if (next == lines.size()) return std::nullopt;
        return lines[next++];
    }
    std::vector<std::string> lines;
    std::size_t next = 0;
};

}  // namespace

int RunDrive(const Arguments& arguments)
{
    const auto count = static_cast<std::size_t>(arguments.Number("--n", 2000));
    const int rounds = static_cast<int>(arguments.Number("--rounds", 9));
    std::string folder = (std::filesystem::temp_directory_path() / "korvex-bench-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) return 1;
    adapters::sqlite::RegisterSqliteDriver();
    SetSiblings(&KorvexLoc());
    {
        host::Options options;
        options.database =
            host::FileConnectionString(host::EnsureSampleDatabase(folder), "mueller", host::kSamplePassword);
        host::Session session = host::drive::OpenDriven(options, folder);
        const auto serve = [&](const std::string& message, bool inDialog) {
            Repeated lines;
            if (inDialog)
                lines.lines.push_back(R"({"do":"call","class":"c_Tabellen2","method":"Tabellen2","arguments":)"
                                      R"({"intIdString_dll":496}})");
            lines.lines.insert(lines.lines.end(), message.empty() ? 0 : count, message);
            std::uint64_t bytes = 0;
            host::drive::Driver driver(session, {}, lines, [&](std::string_view answer) {
                bytes += answer.size();
                return true;
            });
            driver.Run();
            Consume(bytes);
        };
        const auto direct = [&] {
            for (std::size_t i = 0; i < count; ++i) {
                host::drive::Frame frame(session, {{"WO1", "Harz"}, {"WO2", "04"}});
                host::drive::Perform(host::drive::FindMethod("c_Waldort", "Waldort_ID"), frame);
                Consume(frame.result.get<std::uint64_t>());
            }
        };
        const std::vector<Timing> timings = CompareByTurns(
            rounds, {direct,
                     [&] {
                         serve(R"({"id":1,"do":"call","class":"c_Waldort","method":"Waldort_ID",)"
                               R"("arguments":{"WO1":"Harz","WO2":"04"}})",
                               false);
                     },
                     [&] { serve("", true); },
                     [&] { serve(R"({"id":1,"do":"get","control":"txtField1","member":"Text"})", true); },
                     [&] { serve(R"({"id":1,"do":"forms"})", true); }});
        const auto each = [count](double ms) { return ms * 1000.0 / static_cast<double>(count); };
        std::printf("messages=%zu call_us=%.1f work_us=%.1f exchange_us=%.1f get_us=%.1f forms_us=%.1f\n", count,
                    each(timings[1].ms), each(timings[0].ms), each(timings[1].ms - timings[0].ms),
                    each(timings[3].ms - timings[2].ms), each(timings[4].ms - timings[2].ms));
    }
    SetSiblings(nullptr);
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return 0;
}

}  // namespace kvx::bench
