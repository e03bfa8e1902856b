// Differences between snapshots, for a reader and for programs.
#pragma once

#include "readings/diff.h"

#include <string>

namespace tool {

/// A snapshot and the file that it is from.
struct SnapshotFile {
    std::string file;
    Snapshot snapshot;
};

std::string DifferencesAsText(const SnapshotFile& before, const SnapshotFile& after,
                              const Differences& differences);

std::string DifferencesAsJson(const Differences& differences);

} // namespace tool
