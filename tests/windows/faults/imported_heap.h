// The heap functions that a DLL imports: its allocations are counted, and one of them can be made to fail (heap.h).
#pragma once

#include "import_patch.h"

namespace sweep {

/// From now on what the patched module allocates counts as the library's.
void WatchImports(test::ImportPatch& patch);

} // namespace sweep
