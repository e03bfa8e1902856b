// A profile of a simulated machine, made of what a recording shows of a real one.
#pragma once

#include "observer/recording/recording.h"

#include <string>
#include <vector>

namespace tool {

struct MadeProfile {
    std::string text;
    /// "NAME: why" for each export whose answer the machine does not give, as far as that is known, and for whatever else
    /// a profile has no place for.
    std::vector<std::string> leftOut;
};

/// WMI rows, registry, applications, packages, adapters, radios, batteries and identity as they were read; the EC's
/// measurements from the answers of the exports. What an earlier call has shown counts: a later one that shows something
/// else is left out. Throws Error where the recording has values that no profile can have.
MadeProfile ProfileFrom(const observer::Recording& recording, const std::string& name);

} // namespace tool
