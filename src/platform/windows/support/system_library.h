// Libraries and routines that not every Windows has. They are looked up at run time, so that the DLL loads
// without them.
#pragma once

#include "platform/back_end.h"

#include <windows.h>

namespace VESK_BACK_END {

/// Loads a library from the system directory, and what it imports from there too, never from the directory of the host.
/// Null with the last error of the last try on failure. The library stays loaded: later calls need it again. Allocates nothing: what is acquired is released
/// by routines that are looked up here.
HMODULE LoadSystemLibrary(const wchar_t* name);

/// A routine of a loaded library as a pointer of type `Routine`; null if it is missing or the library is null.
template <class Routine>
Routine RoutineOf(HMODULE module, const char* name) {
    if (module == nullptr) {
        return nullptr;
    }
    // A direct cast between function types is a compiler warning.
    return reinterpret_cast<Routine>(reinterpret_cast<void*>(::GetProcAddress(module, name)));
}

/// The same for a library that is loaded first.
template <class Routine>
Routine SystemRoutine(const wchar_t* library, const char* name) {
    return RoutineOf<Routine>(LoadSystemLibrary(library), name);
}

} // namespace VESK_BACK_END
