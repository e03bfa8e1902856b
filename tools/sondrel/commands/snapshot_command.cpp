// sondrel snapshot FILE
#include "base/error.h"
#include "commands/commands.h"
#include "output/output_file.h"
#include "output/report.h"

namespace tool {

int TakeSnapshot(const Options& options) {
    const Host host(WithObserver(options.host));
    WriteOutput(options.files.front(), ReportAsJson(host, options.reading));
    return ExitOk;
}

} // namespace tool
