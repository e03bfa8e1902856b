// Libraries and routines that not every Windows has, looked up at run time so that the DLL loads without
// them.
#pragma once

#include "platform/back_end.h"

#include <windows.h>

namespace VESK_BACK_END {

/// Loads a library from the system directory only, wherever the process runs and whatever lies beside it.
/// Null with the last error set when it is not there. The library stays loaded: what was asked for once is
/// asked for again.
HMODULE LoadSystemLibrary(const wchar_t* name);

/// A routine of a loaded library as a pointer of type `Routine`, or null, as for a null library.
template <class Routine>
Routine RoutineOf(HMODULE module, const char* name) {
    if (module == nullptr) {
        return nullptr;
    }
    // By way of void*, since no cast between function types tells the compiler that this is meant.
    return reinterpret_cast<Routine>(reinterpret_cast<void*>(::GetProcAddress(module, name)));
}

/// The same of a library that is loaded for it.
template <class Routine>
Routine SystemRoutine(const wchar_t* library, const char* name) {
    return RoutineOf<Routine>(LoadSystemLibrary(library), name);
}

} // namespace VESK_BACK_END
