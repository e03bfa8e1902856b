// sondrel doctor
#include "base/error.h"
#include "commands/commands.h"
#include "output/report.h"

namespace tool {

int Examine(const Options& options) {
    const Host host(WithObserver(options.host));
    const std::vector<PreconditionFinding> findings = ExaminePreconditions(host, options.reading);
    if (options.json) {
        PrintFindingsAsJson(host, findings);
    } else {
        PrintFindings(host, findings, options.colour);
    }
    return AreMet(findings) ? ExitOk : ExitFinding;
}

} // namespace tool
