#include "platform/windows/support/system_library.h"

#include "platform/back_end.h"

#include <string>

namespace VESK_BACK_END {

HMODULE LoadSystemLibrary(const wchar_t* name) {
    wchar_t directory[MAX_PATH];
    const UINT length = ::GetSystemDirectoryW(directory, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) {
        ::SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    return ::LoadLibraryW((std::wstring(directory, length) + L'\\' + name).c_str());
}

} // namespace VESK_BACK_END
