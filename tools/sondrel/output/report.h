// The forms of a report.
#pragma once

#include "readings/reading.h"
#include "readings/sampler.h"
#include "terminal/paint.h"

#include <string>

namespace tool {

struct PageOptions {
    std::string file;
    /// Of the telemetry.
    Sampling sampling{.count = 20};
};

/// On standard output.
void ReportAsText(const Host& host, const ReadOptions& options, ColourMode colour);
void ReportAsJson(const Host& host, const ReadOptions& options);
/// One HTML file without references to others.
void ReportAsPage(const Host& host, const ReadOptions& options, const PageOptions& pageOptions);

} // namespace tool
