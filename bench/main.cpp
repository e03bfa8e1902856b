// Measures every road and prints one table. Takes the options of google benchmark: --benchmark_filter=REGEX for some
// roads only, --benchmark_out=FILE for everything in JSON.
#include "measure.h"

int main(int argc, char** argv) {
    std::vector<bench::Road> roads = bench::SingleRoads();
    for (const bench::Road& road : roads) {
        bench::Register(road, false);
    }
    for (const bench::Road& road : bench::GrowingRoads()) {
        bench::Register(road, true);
        roads.push_back(road);
    }
    return bench::PrintTable(argc, argv, roads) ? 0 : 2;
}
