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

/// Milliseconds that the work takes.
double Measure(const std::function<void()>& work);

/// Runs the works by turns, so that a busy moment of the machine hits all, and gives the median of each in ms.
std::vector<double> MeasureByTurns(int rounds, const std::vector<std::function<void()>>& works);

/// Keeps the compiler from leaving out work whose result nobody reads.
void Consume(std::uint64_t value);

std::int64_t PeakMemoryKb();

}  // namespace kvx::bench
