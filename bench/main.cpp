#include "Bench.h"

#include "basic/Error.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <sys/resource.h>

namespace kvx::bench {
namespace {

constexpr Benchmark kBenchmarks[] = {
    {"read", "--rows N [--rounds N]", RunRead},
    {"lookup", "--n N [--rows N]", RunLookup},
    {"update", "[--rounds N] [--synchronous FULL|NORMAL|OFF]", RunUpdate},
    {"tree", "--rows N [--missing [--synchronous FULL|NORMAL|OFF]] [--rounds N]", RunTree},
    {"edit", "--rows N [--n N]", RunEdit},
    {"drive", "[--n N] [--rounds N]", RunDrive},
    {"grid", "--rows N [--rounds N]", RunGrid},
    {"odbc-read", "--rows N [--rounds N]", RunOdbcRead},
};

volatile std::uint64_t consumed = 0;

int Usage()
{
    for (const Benchmark& benchmark : kBenchmarks)
        std::fprintf(stderr, "kvx_bench %s %s\n", std::string(benchmark.name).c_str(),
                     std::string(benchmark.usage).c_str());
    return 2;
}

}  // namespace

bool Arguments::Has(std::string_view name) const
{
    return std::ranges::find(values_, name) != values_.end();
}

std::string Arguments::Text(std::string_view name, std::string_view fallback) const
{
    const auto found = std::ranges::find(values_, name);
    if (found == values_.end() || found + 1 == values_.end()) return std::string(fallback);
    return *(found + 1);
}

std::int64_t Arguments::Number(std::string_view name, std::int64_t fallback) const
{
    const std::string text = Text(name, "");
    std::int64_t value = fallback;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

double Measure(const std::function<void()>& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

double MeasureProcessor(const std::function<void()>& work)
{
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    };
    const double begin = now();
    work();
    return now() - begin;
}

std::vector<double> MeasureByTurns(int rounds, const std::vector<std::function<void()>>& works)
{
    std::vector<double> medians;
    for (const Timing& timing : CompareByTurns(rounds, works))
        medians.push_back(timing.ms);
    return medians;
}

std::vector<Timing> CompareByTurns(int rounds, const std::vector<std::function<void()>>& works, Clock clock)
{
    std::vector<std::vector<double>> times(works.size()), ratios(works.size());
    for (const auto& work : works)
        work();  // the first run fills caches
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < works.size(); ++i)
            times[i].push_back(clock == Clock::Wall ? Measure(works[i]) : MeasureProcessor(works[i]));
        for (std::size_t i = 0; i < works.size(); ++i)
            ratios[i].push_back(times[i].back() / times[0].back());
    }
    const auto median = [](std::vector<double>& values) {
        std::ranges::sort(values);
        return values[values.size() / 2];
    };
    std::vector<Timing> result;
    for (std::size_t i = 0; i < works.size(); ++i)
        result.push_back({median(times[i]), median(ratios[i])});
    return result;
}

void Consume(std::uint64_t value)
{
    consumed = consumed + value;
}

std::int64_t PeakMemoryKb()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

}  // namespace kvx::bench

int main(int argc, char** argv)
{
    using namespace kvx::bench;
    if (argc < 2) return Usage();
    const auto found = std::ranges::find(kBenchmarks, std::string_view(argv[1]), &Benchmark::name);
    if (found == std::end(kBenchmarks)) return Usage();
    try {
        return found->run(Arguments(argc - 2, argv + 2));
    } catch (const kvx::basic::Error& error) {
        std::fprintf(stderr, "%s\n", error.Description.c_str());
        return 1;
    }
}
