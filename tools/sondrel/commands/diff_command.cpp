// sondrel diff A B
#include "base/error.h"
#include "commands/commands.h"
#include "output/diff_text.h"

#include <iostream>

namespace tool {

int CompareSnapshots(const Options& options) {
    const SnapshotFile before{options.files.at(0), LoadSnapshot(options.files.at(0))};
    const SnapshotFile after{options.files.at(1), LoadSnapshot(options.files.at(1))};
    const Differences differences = Compare(before.snapshot, after.snapshot, options.steady);
    std::cout << (options.json ? DifferencesAsJson(differences)
                               : DifferencesAsText(before, after, differences));
    return differences.all.empty() ? ExitOk : ExitFinding;
}

} // namespace tool
