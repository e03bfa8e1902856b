/**
 * @file
 * Loading the library, and what its kit decides: the layout of the strings that two exports return. Include
 * vesk_sondrel.hpp.
 */
#ifndef VESK_SONDREL_MODULE_HPP
#define VESK_SONDREL_MODULE_HPP

#include "result.hpp"

#include <atomic>
#include <cstring>
#include <memory>
#include <new>
#include <string>

#ifdef _WIN32
// Declared here as windows.h declares them, so that a host includes windows.h in its own way, or not at all.
struct HINSTANCE__;
struct HRSRC__;
#else
#include <dlfcn.h>
#endif

namespace vesk {

#ifdef _WIN32
/// A character of a file's path.
using PathChar = wchar_t;
#else
/// A character of a file's path.
using PathChar = char;
#endif

namespace detail {

#ifdef _WIN32

namespace windows {
extern "C" {
__declspec(dllimport) HINSTANCE__* __stdcall LoadLibraryExW(const wchar_t*, void*, unsigned long);
__declspec(dllimport) HINSTANCE__* __stdcall GetModuleHandleW(const wchar_t*);
__declspec(dllimport) int __stdcall FreeLibrary(HINSTANCE__*);
__declspec(dllimport) long long(__stdcall* __stdcall GetProcAddress(HINSTANCE__*, const char*))();
__declspec(dllimport) HRSRC__* __stdcall FindResourceW(HINSTANCE__*, const wchar_t*, const wchar_t*);
__declspec(dllimport) void* __stdcall LoadResource(HINSTANCE__*, HRSRC__*);
__declspec(dllimport) void* __stdcall LockResource(void*);
__declspec(dllimport) unsigned long __stdcall SizeofResource(HINSTANCE__*, HRSRC__*);
__declspec(dllimport) unsigned long __stdcall GetLastError();
__declspec(dllimport) void* __stdcall GetProcessHeap();
__declspec(dllimport) int __stdcall HeapFree(void*, unsigned long, void*);
}
} // namespace windows

using Handle = HINSTANCE__*;

inline constexpr const PathChar* DefaultPath = L"VeskSondrel64.dll";

inline Handle open_library(const PathChar* path) noexcept {
    constexpr unsigned long InvalidParameter = 87;
    constexpr unsigned long AlteredSearchPath = 0x8;
    constexpr unsigned long ApplicationDirectoryAndSystem32 = 0x200 | 0x800;
    if (std::char_traits<wchar_t>::find(path, std::char_traits<wchar_t>::length(path), L'\\') != nullptr) {
        return windows::LoadLibraryExW(path, nullptr, AlteredSearchPath);
    }
    // A bare name: next to the program, and never in the current directory. A Windows 7 without its update 2533623
    // does not know the flags.
    const Handle handle = windows::LoadLibraryExW(path, nullptr, ApplicationDirectoryAndSystem32);
    return handle != nullptr || windows::GetLastError() != InvalidParameter
               ? handle
               : windows::LoadLibraryExW(path, nullptr, 0);
}

inline Handle linked_library() noexcept {
    return windows::GetModuleHandleW(DefaultPath);
}

inline std::string open_problem(const PathChar* path) {
    const unsigned long code = windows::GetLastError();
    return utf8(path) + ": Windows error " + std::to_string(code) +
           (code == 126 ? " (the file or a DLL that it needs was not found)" : "");
}

inline void close_library(Handle handle) noexcept {
    windows::FreeLibrary(handle);
}

template <class Function>
bool find_export(Handle handle, const char* name, Function& function) noexcept {
    const auto address = reinterpret_cast<void (*)()>(windows::GetProcAddress(handle, name));
    function = reinterpret_cast<Function>(address);
    return function != nullptr;
}

#else

using Handle = void*;

inline constexpr const PathChar* DefaultPath = "libVeskSondrel64.so";

inline Handle open_library(const PathChar* path) noexcept {
    return dlopen(path, RTLD_NOW | RTLD_LOCAL);
}

inline Handle linked_library() noexcept {
    return dlopen(nullptr, RTLD_NOW); // the program, which has the library among what it is linked with
}

inline std::string open_problem(const PathChar*) {
    const char* const problem = dlerror();
    return problem == nullptr ? "the library cannot be loaded" : problem;
}

inline void close_library(Handle handle) noexcept {
    dlclose(handle);
}

template <class Function>
bool find_export(Handle handle, const char* name, Function& function) noexcept {
    void* const address = dlsym(handle, name);
    static_assert(sizeof address == sizeof function, "a function's address is a pointer");
    std::memcpy(&function, &address, sizeof function);
    return function != nullptr;
}

#endif

/// The layout of the string objects that two exports return, which need not be that of the host's compiler.
enum class StringLayout : std::uint8_t {
    libstdcxx, // pointer, size, 16 bytes of small form or capacity
    msvc       // Visual C++, release: 16 bytes of small form or pointer, size, capacity
};

#ifdef _WIN32

/// A string of the version resource, or an empty one.
inline std::wstring version_string(Handle module, const wchar_t* key) {
    const auto by_number = [](std::uintptr_t number) {
        return reinterpret_cast<const wchar_t*>(number);
    };
    HRSRC__* const resource = windows::FindResourceW(module, by_number(1), by_number(16)); // 16: RT_VERSION
    void* const loaded = resource == nullptr ? nullptr : windows::LoadResource(module, resource);
    if (loaded == nullptr) {
        return {};
    }
    // Each string of the block: three words, the key with its terminator, padding to four bytes, the value.
    const std::wstring_view block(static_cast<const wchar_t*>(windows::LockResource(loaded)),
                                  windows::SizeofResource(module, resource) / sizeof(wchar_t));
    const std::wstring with_end = std::wstring(key) + L'\0';
    std::size_t place = block.find(with_end);
    if (place == std::wstring_view::npos) {
        return {};
    }
    place += with_end.size();
    place += place % 2;
    const std::wstring_view value = block.substr(place < block.size() ? place : block.size());
    return std::wstring(value.substr(0, value.find(L'\0')));
}

inline StringLayout string_layout(Handle module) {
    return version_string(module, L"StringLayout") == L"msvc" ? StringLayout::msvc : StringLayout::libstdcxx;
}

/// Frees the block of a string object as the library's own runtime would.
inline void free_string_block(void* block, StringLayout layout) noexcept {
    if (layout == StringLayout::msvc) {
        windows::HeapFree(windows::GetProcessHeap(), 0, block); // the heap of the release runtime
        return;
    }
    // The runtime that the library imports is loaded as long as the library is.
    void (*free_block)(void*) = nullptr;
    if (find_export(windows::GetModuleHandleW(L"msvcrt.dll"), "free", free_block)) {
        free_block(block);
    }
}

#else

inline StringLayout string_layout(Handle) noexcept {
    return StringLayout::libstdcxx;
}

inline void free_string_block(void* block, StringLayout) noexcept {
    ::operator delete(block);
}

#endif

/// The loaded library, shared by the Library and Session objects of a host.
class Module {
public:
    explicit Module(Handle handle) : layout(string_layout(handle)), m_handle(handle) {
        missing = find_all(
            exports, [&](const char* name, auto& function) { return find_export(handle, name, function); });
    }

    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    ~Module() {
        if (owned) {
            close_library(m_handle);
        }
    }

    Exports exports;
    /// The name of an export that the library does not have.
    const char* missing = nullptr;
    StringLayout layout;
    /// To be unloaded with the last object that uses it.
    bool owned = true;
    /// Those that were opened through this binding.
    std::atomic<int> sessions{0};

private:
    Handle m_handle;
};

} // namespace detail
} // namespace vesk

#endif // VESK_SONDREL_MODULE_HPP
