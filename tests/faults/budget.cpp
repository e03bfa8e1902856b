#include "budget.h"

#include "machine_stage.h"
#include "rules.h"

#include <fstream>
#include <functional>
#include <map>
#include <ostream>
#include <sstream>
#include <stdexcept>

namespace sweep {
namespace {

/// Each export on the machine "default": in an open session, with the EC identified, an app path set and a trace
/// consumer attached.
void ForEachRun(const std::function<void(std::string_view name, const Run& run)>& look) {
    MachineStage stage({.used = true});
    for (const exports::Export& row : exports::AllExports()) {
        stage.Restart();
        look(row.name, stage.Play(CallOf(row, stage.Where().initCom, BufferSizeOf(row))));
    }
}

struct Budget {
    std::uint64_t calls = 0;
    std::uint64_t allocations = 0;
};

std::map<std::string, Budget, std::less<>> ReadBudgets(const std::string& file) {
    std::ifstream in(file);
    if (!in) {
        throw std::runtime_error(file + ": cannot be read");
    }
    std::map<std::string, Budget, std::less<>> budgets;
    for (std::string line; std::getline(in, line);) {
        std::istringstream words(line.substr(0, line.find('#')));
        Budget budget;
        words >> budget.calls >> budget.allocations;
        for (std::string name; words >> name;) {
            budgets[name] = budget;
        }
    }
    return budgets;
}

} // namespace

void PrintCosts(std::ostream& out) {
    ForEachRun([&out](std::string_view name, const Run& run) {
        std::map<std::string_view, int> counts;
        for (const observer::Operation operation : run.calls) {
            ++counts[observer::RowOf(operation).name];
        }
        out << name << ": " << run.calls.size() << "; " << run.allocations << ';';
        for (const auto& [operation, count] : counts) {
            out << ' ' << count << ' ' << operation;
        }
        out << '\n';
    });
}

bool CheckBudget(const std::string& file, std::ostream& out) {
    const auto budgets = ReadBudgets(file);
    bool good = true;
    ForEachRun([&](std::string_view name, const Run& run) {
        const auto found = budgets.find(name);
        if (found == budgets.end()) {
            out << name << ": has no budget in " << file << '\n';
            good = false;
        } else if (run.calls.size() > found->second.calls || run.allocations > found->second.allocations) {
            out << name << ": " << run.calls.size() << " boundary calls and " << run.allocations
                << " allocations; at most " << found->second.calls << " and " << found->second.allocations
                << " are allowed\n";
            good = false;
        }
    });
    return good;
}

} // namespace sweep
