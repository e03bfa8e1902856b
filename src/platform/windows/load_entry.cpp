#include <windows.h>

// Load and unload touch nothing: neither hardware nor registry, and no session is opened or closed. A process
// that ends with a session open leaves the handle to the operating system.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID) {
    return TRUE;
}
