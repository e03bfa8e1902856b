// sondrel report
#include "base/error.h"
#include "commands/commands.h"

#include <iostream>

namespace tool {

int Report(const Options& options) {
    const Host host(WithObserver(options.host));
    if (!options.page.file.empty()) {
        ReportAsPage(host, options.reading, options.page);
    } else if (options.json) {
        std::cout << ReportAsJson(host, options.reading);
    } else {
        ReportAsText(host, options.reading, options.colour);
    }
    return ExitOk;
}

} // namespace tool
