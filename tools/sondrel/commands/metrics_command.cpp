// sondrel metrics
#include "base/error.h"
#include "commands/commands.h"
#include "output/metrics_page.h"
#include "output/output_file.h"

namespace tool {

int PrintMetrics(const Options& options) {
    const Host host(options.host);
    WriteOutput(options.output, MetricsPage(Reader(host, options.reading), SONDREL_VERSION));
    return ExitOk;
}

} // namespace tool
