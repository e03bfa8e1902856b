// Measures every case and prints one table. Takes the options of google benchmark: --benchmark_filter=REGEX for some
// cases only, --benchmark_out=FILE for everything in JSON.
#include "measure.h"

int main(int argc, char** argv) {
    std::vector<bench::Case> cases = bench::SingleCases();
    for (const bench::Case& measured : cases) {
        bench::Register(measured, false);
    }
    for (const bench::Case& measured : bench::ListCases()) {
        bench::Register(measured, true);
        cases.push_back(measured);
    }
    return bench::PrintTable(argc, argv, cases) ? 0 : 2;
}
