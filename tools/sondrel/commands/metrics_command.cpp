// sondrel metrics
#include "base/error.h"
#include "commands/commands.h"
#include "output/metrics_page.h"
#include "output/output_file.h"

namespace tool {

int PrintMetrics(const Options& options) {
    const Host host(WithObserver(options.host));
    Reader reader(host, options.reading);
    WriteOutput(options.output, MetricsPage(reader, SONDREL_VERSION));
    return ExitOk;
}

} // namespace tool
