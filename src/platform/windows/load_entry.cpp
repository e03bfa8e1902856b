#include <windows.h>

#ifdef __GNUC__
#include "platform/windows/support/thread_variables.h"

namespace __gnu_cxx { // libstdc++ declares it in no header
void __freeres();
} // namespace __gnu_cxx

namespace {

/// libstdc++ allocates memory when it is loaded, for exceptions that are thrown when there is none, and leaves it to the
/// end of the process.
void FreeExceptionMemory() {
    FreeThreadVariables();
    __gnu_cxx::__freeres();
}

} // namespace
#else
namespace {

void FreeExceptionMemory() {}

} // namespace
#endif

#ifdef VESK_OBSERVED_DLL
namespace observer {
void ForgetOpenThings();
} // namespace observer
#endif

// Load and unload do nothing but that: no hardware, no registry, no session. If a process ends with an open session, the
// operating system closes the handle. At the end of a process nothing is freed: its other threads were stopped where they
// were, in the heap perhaps.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID processEnds) {
    if (reason == DLL_PROCESS_DETACH && processEnds == nullptr) {
#ifdef VESK_OBSERVED_DLL
        observer::ForgetOpenThings(); // the list of them is in the heap
#endif
        FreeExceptionMemory();
    }
    return TRUE;
}
