// What the library writes into its two logs, in the order in which it writes it.
#pragma once

#include "import_patch.h"

#include <string>
#include <vector>

namespace test {

/// Attaches a consumer to the trace provider of one module and catches its warnings. One at a time, and before the
/// module's first debug line, which registers the provider.
class LogCapture {
public:
    explicit LogCapture(ImportPatch& patch);

    /// The lines since the last call: "debug ..." or "event ...".
    static std::vector<std::wstring> Take();
};

} // namespace test
