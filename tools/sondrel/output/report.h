// The forms of a report, and of what `doctor` found.
#pragma once

#include "readings/examination.h"
#include "readings/reading.h"
#include "samples/sampler.h"
#include "terminal/paint.h"

#include <span>
#include <string>

namespace tool {

struct PageOptions {
    std::string file;
    /// Of the telemetry.
    Sampling sampling{.count = 20};
};

/// On standard output.
void ReportAsText(const Host& host, const ReadOptions& options, ColourMode colour);
/// docs/json.md describes it.
std::string ReportAsJson(const Host& host, const ReadOptions& options);
/// One HTML file without references to others.
void ReportAsPage(const Host& host, const ReadOptions& options, const PageOptions& pageOptions);

/// One line for each precondition; those with one cause follow the cause.
void PrintFindings(const Host& host, std::span<const PreconditionFinding> findings, ColourMode colour);
/// docs/doctor.schema.json describes it.
void PrintFindingsAsJson(const Host& host, std::span<const PreconditionFinding> findings);

/// Whether no precondition is missing.
bool AreMet(std::span<const PreconditionFinding> findings);

} // namespace tool
