#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

// Benchmarks hold the library against plain SQLite: the same statement, index and collation, in one process, by turns.
namespace kvx::bench {

/// What stands behind the name of a benchmark: "--rows 1000000", "--missing".
class Arguments {
public:
    Arguments(int count, char** values) : values_(values, values + count) {}

    bool Has(std::string_view name) const;
    std::int64_t Number(std::string_view name, std::int64_t fallback) const;
    std::string Text(std::string_view name, std::string_view fallback) const;

private:
    std::vector<std::string> values_;
};

/// A benchmark prints one line of "name=value" and returns 0; other lines go to stderr.
struct Benchmark {
    std::string_view name;
    std::string_view usage;
    int (*run)(const Arguments&);
};

int RunRead(const Arguments& arguments);
int RunLookup(const Arguments& arguments);
int RunUpdate(const Arguments& arguments);
int RunTree(const Arguments& arguments);
int RunEdit(const Arguments& arguments);
int RunDrive(const Arguments& arguments);
int RunGrid(const Arguments& arguments);
int RunOdbcRead(const Arguments& arguments);

/// Milliseconds that the work takes.
double Measure(const std::function<void()>& work);
double MeasureProcessor(const std::function<void()>& work);  ///< of this thread

/// Runs the works by turns, so that a busy moment of the machine hits all, and gives the median of each in ms.
std::vector<double> MeasureByTurns(int rounds, const std::vector<std::function<void()>>& works);

struct Timing {
    double ms = 0;
    double ratio = 1;  ///< to the first work
};

/// The same, with the median of the rounds' own ratios, which a machine that gets busier or idler meanwhile disturbs
/// least.
/// @param clock  Processor for work that waits for nothing: on a busy machine the wall clock favours whatever is short
///               enough to finish before it is interrupted. Wall where the disk is part of the work.
enum class Clock : std::uint8_t { Wall, Processor };
std::vector<Timing> CompareByTurns(int rounds, const std::vector<std::function<void()>>& works,
                                   Clock clock = Clock::Wall);

/// Keeps the compiler from leaving out work whose result nobody reads.
void Consume(std::uint64_t value);

std::int64_t PeakMemoryKb();

}  // namespace kvx::bench
