#include "Bench.h"
#include "QuietDesktop.h"
#include "TreeForest.h"

#include "stands/F_Waldort.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <sqlite3.h>

// The stand tree of a whole forest: from the activation of the dialog to the filled tree, against stepping the same
// statement and touching its six texts.
namespace kvx::bench {
namespace {

struct Load {
    double ms = 0;
    std::int32_t nodes = 0;
    double bytesPerNode = 0;
};

Load LoadTree(QuietDesktop& desktop, const KvxVar& session)
{
    using Clock = std::chrono::steady_clock;
    Load load;
    Clock::time_point begin;
    desktop.shown = [&] { begin = Clock::now(); };
    desktop.work = [&](ui::Form& form) {
        load.ms = std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
        ui::TreeView& tree = static_cast<F_Waldort&>(form).TreeView1;
        load.nodes = tree.Count();
        tree.Find("K\r\nnowhere");  // builds the look-up by key, which counts as part of a node
        load.bytesPerNode = static_cast<double>(tree.MemoryBytes()) / std::max(1, load.nodes);
    };
    F_Waldort form;
    form.Run(session, /*ID_AL=*/0, /*OnlyRead=*/false, /*ID_WALDORT_Root=*/0, nullptr);
    return load;
}

void StepStands(sqlite3* database)
{
    const RawStatement statement = PrepareRaw(database, PlainText(TreeStatement()));
    std::uint64_t touched = 0;
    while (sqlite3_step(statement.get()) == SQLITE_ROW) {
        for (int i = 0; i < 6; ++i) {
            const unsigned char* text = sqlite3_column_text(statement.get(), i);
            touched += static_cast<std::uint64_t>(sqlite3_column_bytes(statement.get(), i));
            if (text != nullptr) touched += text[0];
        }
    }
    Consume(touched);
}

double Median(std::vector<double> times)
{
    std::ranges::sort(times);
    return times[times.size() / 2];
}

void Print(std::int64_t rows, double rawMs, double oursMs, const Load& load)
{
    std::printf("rows=%lld raw_ms=%.1f ours_ms=%.1f ratio=%.2f bytes_per_node=%.1f peak_rss_kb=%lld\n",
                static_cast<long long>(rows), rawMs, oursMs, oursMs / rawMs, load.bytesPerNode,
                static_cast<long long>(PeakMemoryKb()));
}

// The same again and again: nothing is written.
int RunLaterLoad(std::int64_t rows, int rounds)
{
    const TemporaryDatabase database;
    MakeStands(database, rows);
    MakeTablesAroundStands(database);
    QuietDesktop desktop;
    const KvxVar session = OpenSession(database);
    const RawDatabase raw = OpenRaw(database);
    std::vector<double> rawMs, oursMs;
    Load load;
    for (int round = -1; round < rounds; ++round) {  // the first fills caches
        const double rawTime = Measure([&] { StepStands(raw.get()); });
        load = LoadTree(desktop, session);
        if (round < 0) continue;
        rawMs.push_back(rawTime);
        oursMs.push_back(load.ms);
    }
    Print(rows, Median(rawMs), Median(oursMs), load);
    return 0;
}

void Copy(const TemporaryDatabase& from, const TemporaryDatabase& to)
{
    std::filesystem::copy_file(from.Path(), to.Path(), std::filesystem::copy_options::overwrite_existing);
}

// A load that makes the rows of missing parents can be done once on a file: each side works on copies.
int RunFirstLoad(std::int64_t rows, int rounds, const std::string& synchronous)
{
    const TemporaryDatabase original;
    MakeStands(original, rows, /*missingParents=*/true);
    MakeTablesAroundStands(original);
    RunRaw(OpenRaw(original).get(), "PRAGMA wal_checkpoint(TRUNCATE)");
    QuietDesktop desktop;

    std::vector<std::string> texts;
    {
        const TemporaryDatabase copy;
        Copy(original, copy);
        const KvxVar session = OpenSession(copy, "OFF");
        StatementLog log(session.dbAdo);
        LoadTree(desktop, session);
        for (const std::string& text : log.Take())
            if (!text.starts_with("SELECT")) texts.push_back(PlainText(text));
    }
    std::vector<double> rawMs, oursMs;
    Load load;
    for (int round = 0; round < rounds; ++round) {
        {
            const TemporaryDatabase copy;
            Copy(original, copy);
            const RawDatabase raw = OpenRaw(copy, synchronous);
            rawMs.push_back(Measure([&] {
                StepStands(raw.get());
                RunTexts(raw.get(), texts);
            }));
        }
        const TemporaryDatabase copy;
        Copy(original, copy);
        load = LoadTree(desktop, OpenSession(copy, synchronous));
        oursMs.push_back(load.ms);
    }
    std::fprintf(stderr, "%zu INSERT and UPDATE statements\n", texts.size());
    Print(rows, Median(rawMs), Median(oursMs), load);
    return 0;
}

}  // namespace

int RunTree(const Arguments& arguments)
{
    const std::int64_t rows = arguments.Number("--rows", 1000000);
    if (arguments.Has("--missing"))
        return RunFirstLoad(rows, static_cast<int>(arguments.Number("--rounds", 1)),
                            arguments.Text("--synchronous", "FULL"));
    return RunLaterLoad(rows, static_cast<int>(arguments.Number("--rounds", 5)));
}

}  // namespace kvx::bench
