// sondrel diff A B: snapshots or recordings
#include "base/error.h"
#include "commands/commands.h"
#include "output/diff_text.h"
#include "recordings/recording_diff.h"
#include "recordings/recording_file.h"

#include <algorithm>
#include <iostream>

namespace tool {

int CompareSnapshots(const Options& options) {
    if (std::ranges::any_of(options.files, IsRecordingName)) {
        const std::string differences = RecordingDifferences(options.files.at(0), options.files.at(1));
        std::cout << differences;
        return differences.empty() ? ExitOk : ExitFinding;
    }
    const SnapshotFile before{options.files.at(0), LoadSnapshot(options.files.at(0))};
    const SnapshotFile after{options.files.at(1), LoadSnapshot(options.files.at(1))};
    const Differences differences = Compare(before.snapshot, after.snapshot, options.steady);
    std::cout << (options.json ? DifferencesAsJson(differences)
                               : DifferencesAsText(before, after, differences));
    return differences.all.empty() ? ExitOk : ExitFinding;
}

} // namespace tool
