#include <windows.h>

// Load and unload do nothing: no hardware, no registry, no session. If a process ends with an open session, the
// operating system closes the handle.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID) {
    return TRUE;
}
