#include "golden.h"

#include "rules.h"
#include "stage.h"

#include <map>
#include <ostream>

namespace sweep {

void PrintCosts(std::ostream& out) {
    out << "# What one call of each export costs on the machine \"default\", in an open session, with the EC "
           "identified,\n# an app path set and a trace consumer attached: boundary calls; heap allocations "
           "of the "
           "library's own; the\n# calls by operation.\n"
           "# A change that is meant is taken over by: build/native/bin/fault_sweep --costs "
           ">tests/faults/costs.txt\n";
    Stage stage({.used = true});
    for (const tool::Export& row : tool::AllExports()) {
        stage.Restart();
        const Run run = stage.Play(CallOf(row, stage.Where().initCom, RoomOf(row)));
        std::map<std::string_view, int> counts;
        for (const machine::Operation operation : run.calls) {
            ++counts[machine::RowOf(operation).name];
        }
        out << row.name << ": " << run.calls.size() << "; " << run.allocations << ';';
        for (const auto& [name, count] : counts) {
            out << ' ' << count << ' ' << name;
        }
        out << '\n';
    }
}

} // namespace sweep
