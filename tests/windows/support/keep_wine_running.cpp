// Keeps a Windows up until it is ended: creates the file it is given, to say so, and sleeps.
#include <windows.h>

int wmain(int count, wchar_t** arguments) {
    if (count != 2) {
        return 2;
    }
    const HANDLE file =
        ::CreateFileW(arguments[1], GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return 1;
    }
    ::CloseHandle(file);
    ::Sleep(INFINITE);
    return 0;
}
