// The tool's commands. Each returns the exit status, and throws Error if it cannot do its work.
#pragma once

#include "commands/options.h"

namespace tool {

int ListExports(const Options& options);
int CallExport(const Options& options);
int Report(const Options& options);
int Examine(const Options& options);
int TakeSnapshot(const Options& options);
int CompareSnapshots(const Options& options);
int PrintMetrics(const Options& options);
int Watch(const Options& options);
int ReadReadings(const Options& options);
int TraceExport(const Options& options);
int Record(const Options& options);
int RedactRecording(const Options& options);
int CompressRecording(const Options& options);
int ExpandRecording(const Options& options);
int ReplayRecording(const Options& options);

} // namespace tool
