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
    // The path alone says where the library is; the flag, where the libraries are that it imports. The first Windows 7
    // does not know the flag.
    const HMODULE library = ::LoadLibraryExW(path, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return library == nullptr && ::GetLastError() == ERROR_INVALID_PARAMETER ? ::LoadLibraryW(path) : library;
}

} // namespace VESK_BACK_END
