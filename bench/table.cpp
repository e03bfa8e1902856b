// The table: a line for each case, from the medians of the repetitions.
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
void PrintLine(const Case& measured, const Line& line) {
    std::string ratios;
    for (const auto& [items, figures] : line) {
        ratios += (ratios.empty() ? "" : " / ") + Formatted("%.2f", figures.ratio);
    }
    const Figures& largest = line.rbegin()->second;
    std::printf("| %-31s | %-18s | %-4s | %6s | %9.2f | %11.2f | %6.2f |\n", measured.name.c_str(),
                ratios.c_str(), measured.aim != 0 ? Formatted("%.2f", measured.aim).c_str() : "",
                line.size() > 1 ? Formatted("%.2f", Growth(line)).c_str() : "", largest.seconds * 1e6,
                largest.allocations, largest.calls);
}

class TableReporter : public benchmark::BenchmarkReporter {
public:
    explicit TableReporter(const std::vector<Case>& cases) : m_cases(cases) {}

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
        std::puts("| path                            | times bare         | aim  | growth | us / item | "
                  "allocations "
                  "| calls  |\n"
                  "|---------------------------------|--------------------|------|--------|-----------|------"
                  "-------"
                  "|--------|");
        for (const Case& measured : m_cases) {
            if (const auto found = m_lines.find(measured.name); found != m_lines.end()) {
                PrintLine(measured, found->second);
            }
        }
    }

private:
    const std::vector<Case>& m_cases;
    std::map<std::string, Line> m_lines;
};

} // namespace

bool PrintTable(int argc, char** argv, const std::vector<Case>& cases) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return false;
    }
    TableReporter reporter(cases);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return true;
}

} // namespace bench
