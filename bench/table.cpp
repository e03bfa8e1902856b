// The table: a line for each road, from the medians of the repetitions.
#include "measure.h"

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <map>

namespace bench {
namespace {

struct Figures {
    double seconds, ratio, allocations, calls;
};

/// By number of items.
using Line = std::map<double, Figures>;

/// The slope of the line through the logarithms, whose middle point does not tilt it: 1 is in proportion to the items,
/// 2 their square.
double Growth(const Line& line) {
    const auto& [few, least] = *line.begin();
    const auto& [many, most] = *line.rbegin();
    return std::log(most.seconds * many / (least.seconds * few)) / std::log(many / few);
}

std::string Formatted(const char* format, double number) {
    char text[32];
    std::snprintf(text, sizeof text, format, number);
    return text;
}

/// One line of Markdown, so that it can be pasted into a document as it is.
void PrintLine(const Road& road, const Line& line) {
    std::string ratios;
    for (const auto& [items, figures] : line) {
        ratios += (ratios.empty() ? "" : " / ") + Formatted("%.2f", figures.ratio);
    }
    const Figures& largest = line.rbegin()->second;
    std::printf("| %-31s | %-18s | %-4s | %6s | %9.2f | %11.2f | %6.2f |\n", road.name.c_str(),
                ratios.c_str(), road.aim != 0 ? Formatted("%.2f", road.aim).c_str() : "",
                line.size() > 1 ? Formatted("%.2f", Growth(line)).c_str() : "", largest.seconds * 1e6,
                largest.allocations, largest.calls);
}

class TableReporter : public benchmark::BenchmarkReporter {
public:
    explicit TableReporter(const std::vector<Road>& roads) : m_roads(roads) {}

    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.aggregate_name != "median") {
                continue;
            }
            const auto counter = [&run](const char* name) {
                return run.counters.at(name).value;
            };
            m_lines[run.run_name.function_name][std::stod(run.run_name.args)] = {
                counter("seconds"), counter("ratio"), counter("allocations"), counter("calls")};
            if (isatty(STDERR_FILENO) != 0) {
                std::fprintf(stderr, "\r%-60s\r", run.run_name.function_name.c_str());
            }
        }
    }

    void Finalize() override {
        std::puts("| road                            | times bare         | aim  | growth | us / item | "
                  "allocations "
                  "| calls  |\n"
                  "|---------------------------------|--------------------|------|--------|-----------|------"
                  "-------"
                  "|--------|");
        for (const Road& road : m_roads) {
            if (const auto found = m_lines.find(road.name); found != m_lines.end()) {
                PrintLine(road, found->second);
            }
        }
    }

private:
    const std::vector<Road>& m_roads;
    std::map<std::string, Line> m_lines;
};

} // namespace

bool PrintTable(int argc, char** argv, const std::vector<Road>& roads) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return false;
    }
    TableReporter reporter(roads);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return true;
}

} // namespace bench
