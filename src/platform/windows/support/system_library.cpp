#include "platform/windows/support/system_library.h"

#include "platform/back_end.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace VESK_BACK_END {

HMODULE LoadSystemLibrary(const wchar_t* name) {
    const std::wstring_view file(name);
    wchar_t path[MAX_PATH + 1];
    const UINT length = ::GetSystemDirectoryW(path, MAX_PATH);
    if (length == 0 || length + 1 + file.size() >= std::size(path)) {
        ::SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    path[length] = L'\\';
    *std::ranges::copy(file, path + length + 1).out = L'\0';
    return ::LoadLibraryW(path);
}

} // namespace VESK_BACK_END
