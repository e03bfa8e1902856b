#include "golden.h"

#include "rules.h"
#include "stage.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <sstream>

namespace sweep {
namespace {

constexpr const char* Heading =
    "# What one call of each export costs on the machine \"default\", in an open session, with the EC "
    "identified,\n"
    "# an app path set and a trace consumer attached: boundary calls; heap allocations of the library's own; "
    "the\n"
    "# calls by operation.\n"
    "# A change that is meant is taken over by: build/native/bin/fault_sweep --renew tests/sweep/costs.txt\n";

std::string CostLine(Stage& stage, const tool::Export& row) {
    stage.Restart();
    const Run run = stage.Play(CallOf(row, stage.Where().initCom, RoomOf(row)));
    std::map<std::string_view, int> counts;
    for (const machine::Operation operation : run.calls) {
        ++counts[machine::RowOf(operation).name];
    }
    std::ostringstream line;
    line << row.name << ": " << run.calls.size() << "; " << run.allocations << ';';
    for (const auto& [name, count] : counts) {
        line << ' ' << count << ' ' << name;
    }
    line << '\n';
    return line.str();
}

} // namespace

std::string CostTable() {
    Stage stage({.used = true});
    std::string table = Heading;
    for (const tool::Export& row : tool::AllExports()) {
        table += CostLine(stage, row);
    }
    return table;
}

bool CompareCosts(const std::string& file) {
    std::ifstream kept(file, std::ios::binary);
    std::istringstream now(CostTable());
    std::string keptLine;
    std::string line;
    bool same = true;
    while (std::getline(now, line)) {
        keptLine.clear();
        std::getline(kept, keptLine);
        if (line != keptLine) {
            std::cout << "it was  " << keptLine << "\nit is   " << line << '\n';
            same = false;
        }
    }
    if (!same || std::getline(kept, keptLine)) {
        std::cout << "What an export costs is not what " << file
                  << " says.\nIf that is meant: fault_sweep --renew " << file << '\n';
        return false;
    }
    return true;
}

bool RenewCosts(const std::string& file) {
    std::ofstream out(file, std::ios::binary);
    out << CostTable();
    return out.flush().good();
}

} // namespace sweep
