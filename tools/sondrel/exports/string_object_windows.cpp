#include "base/error.h"
#include "exports/string_object.h"

#include <windows.h>

#include <string_view>
#include <vector>

namespace tool {
namespace {

#ifdef _MSC_VER
constexpr std::wstring_view OwnLayout = L"msvc";
#else
constexpr std::wstring_view OwnLayout = L"libstdc++";
#endif

std::wstring FileOf(Address address) {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(address), &module);
    std::wstring file(32768, L'\0'); // the longest path there is
    file.resize(GetModuleFileNameW(module, file.data(), static_cast<DWORD>(file.size())));
    return file;
}

std::wstring LayoutOf(Address address) {
    const std::wstring file = FileOf(address);
    std::vector<std::byte> resource(GetFileVersionInfoSizeW(file.c_str(), nullptr));
    void* text = nullptr;
    UINT length = 0;
    if (resource.empty() ||
        GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(resource.size()), resource.data()) == FALSE ||
        VerQueryValueW(resource.data(), L"\\StringFileInfo\\040904B0\\StringLayout", &text, &length) ==
            FALSE) {
        return std::wstring(OwnLayout);
    }
    return static_cast<const wchar_t*>(text);
}

#ifndef _MSC_VER
/// A release std::string of Visual C++.
struct VisualCppString {
    union {
        char characters[16];
        char* block;
    };
    std::size_t size;
    std::size_t capacity;
};

/// Both compilers return an object of this size through a hidden pointer.
std::string CallForVisualCpp(Address address) {
    const auto returned = reinterpret_cast<VisualCppString (*)()>(address)();
    if (returned.capacity < sizeof returned.characters) {
        return {returned.characters, returned.size};
    }
    struct FreeBlock {
        char* block;
        ~FreeBlock() { HeapFree(GetProcessHeap(), 0, block); }
    } const owner{returned.block};
    return {returned.block, returned.size};
}
#endif

} // namespace

std::string CallStringExport(Address address) {
    const std::wstring layout = LayoutOf(address);
    if (layout == OwnLayout) {
        return reinterpret_cast<std::string (*)()>(address)();
    }
#ifndef _MSC_VER
    if (layout == L"msvc") {
        return CallForVisualCpp(address);
    }
#endif
    throw Error(
        "this tool cannot read the string objects of this library: take the tool of the library's kit");
}

} // namespace tool
