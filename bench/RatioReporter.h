// Console reporter that adds each kernel's speed relative to its reference as the counter "ratio".
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

namespace eprombench {

// Benchmarks are named "<concern>/<implementation>/<bytes>"; per concern one implementation is
// the reference, registered before the others at the same size. A summary of the ratios is
// printed at the end and appended to the file that EPROM_BENCH_SUMMARY names, so that `make
// bench` can show the ratios of every program in one table.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    explicit RatioReporter(std::map<std::string, std::string> references)
        : references(std::move(references)) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        std::vector<Run> out = runs;
        for (Run& run : out)
            addRatio(run);
        ConsoleReporter::ReportRuns(out);
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        const char* path = std::getenv("EPROM_BENCH_SUMMARY");
        std::FILE* file = path != nullptr ? std::fopen(path, "a") : nullptr;
        std::printf("\n%-10s %-12s %-10s %8s %10s %8s\n", "concern", "kernel", "reference", "bytes",
                    "GB/s", "ratio");
        for (const std::string& row : rows) {
            std::printf("%s\n", row.c_str());
            if (file != nullptr)
                std::fprintf(file, "%s\n", row.c_str());
        }
        if (file != nullptr)
            std::fclose(file);
    }

private:
    void addRatio(Run& run) {
        const std::string name = run.benchmark_name();
        const std::size_t first = name.find('/');
        const std::size_t second = name.find('/', first + 1);
        const auto rate = run.counters.find("bytes_per_second");
        if (first == std::string::npos || second == std::string::npos ||
            rate == run.counters.end() || run.error_occurred)
            return;
        const std::string concern = name.substr(0, first);
        const std::string impl = name.substr(first + 1, second - first - 1);
        const std::string size = name.substr(second + 1);
        const auto reference = references.find(concern);
        if (reference == references.end())
            return;
        const std::string key = concern + "/" + size;
        if (impl == reference->second) {
            referenceRate[key] = rate->second.value;
            return;
        }
        const auto base = referenceRate.find(key);
        if (base == referenceRate.end() || base->second <= 0)
            return;
        const double ratio = rate->second.value / base->second;
        run.counters["ratio"] = benchmark::Counter(ratio);
        char row[160];
        std::snprintf(row, sizeof row, "%-10s %-12s %-10s %8s %10.3g %8.3g", concern.c_str(),
                      impl.c_str(), reference->second.c_str(), size.c_str(),
                      rate->second.value / 1e9, ratio);
        rows.emplace_back(row);
    }

    std::map<std::string, std::string> references;
    std::map<std::string, double> referenceRate;
    std::vector<std::string> rows;
};

} // namespace eprombench
