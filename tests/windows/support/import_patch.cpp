#include "import_patch.h"

#include <cstdint>
#include <map>
#include <ranges>
#include <stdexcept>
#include <string_view>

namespace test {
namespace {

// What the redirected look-ups answer with. They are plain functions, so this cannot be a member.
struct Redirections {
    std::map<std::string, void*, std::less<>> routines;
    std::map<std::wstring, bool, std::less<>> libraries; // there or not
};

Redirections Redirected;

// The real ones, also where this program's own imports are replaced.
const auto RealGetProcAddress = &::GetProcAddress;
const auto RealLoadLibraryExW = &::LoadLibraryExW;

template <class Type>
const Type* At(HMODULE module, std::size_t offset) {
    return reinterpret_cast<const Type*>(reinterpret_cast<const std::byte*>(module) + offset);
}

std::string ImportName(HMODULE module, const IMAGE_THUNK_DATA& import) {
    if (IMAGE_SNAP_BY_ORDINAL(import.u1.Ordinal)) {
        return '#' + std::to_string(IMAGE_ORDINAL(import.u1.Ordinal));
    }
    return At<IMAGE_IMPORT_BY_NAME>(module, import.u1.AddressOfData)->Name;
}

/// The places in the module's import table through which it calls a function of that name.
std::vector<void**> FindSlots(HMODULE module, std::string_view name) {
    const auto* dos = At<IMAGE_DOS_HEADER>(module, 0);
    const auto* headers = At<IMAGE_NT_HEADERS>(module, static_cast<std::size_t>(dos->e_lfanew));
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    std::vector<void**> slots;
    if (directory.VirtualAddress == 0) {
        return slots;
    }
    for (const auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(module, directory.VirtualAddress);
         library->Name != 0; ++library) {
        const auto* import = At<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        const auto* address = At<IMAGE_THUNK_DATA>(module, library->FirstThunk);
        for (; import->u1.AddressOfData != 0; ++import, ++address) {
            if (ImportName(module, *import) == name) {
                slots.push_back(reinterpret_cast<void**>(const_cast<IMAGE_THUNK_DATA*>(address)));
            }
        }
    }
    return slots;
}

void Write(void** slot, void* address) {
    DWORD protection = 0;
    ::VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    *slot = address;
    ::VirtualProtect(slot, sizeof *slot, protection, &protection);
}

FARPROC WINAPI RedirectedGetProcAddress(HMODULE module, const char* name) {
    // The lower 64 K are ordinals.
    const auto number = reinterpret_cast<std::uintptr_t>(name);
    const std::string key = number <= 0xFFFF ? '#' + std::to_string(number) : name;
    const auto found = Redirected.routines.find(key);
    if (found == Redirected.routines.end()) {
        return RealGetProcAddress(module, name);
    }
    ::SetLastError(found->second != nullptr ? ERROR_SUCCESS : ERROR_PROC_NOT_FOUND);
    return reinterpret_cast<FARPROC>(found->second);
}

HMODULE WINAPI RedirectedLoadLibraryExW(const wchar_t* path, HANDLE file, DWORD flags) {
    const std::wstring_view whole(path);
    const std::size_t nameAt = whole.find_last_of(L"\\/") + 1; // 0 where there is no directory
    const auto found = Redirected.libraries.find(whole.substr(nameAt));
    if (found == Redirected.libraries.end()) {
        return RealLoadLibraryExW(path, file, flags);
    }
    if (!found->second) {
        ::SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    // The test program is used instead: a module that exists and has none of these names.
    return ::GetModuleHandleW(nullptr);
}

} // namespace

ImportPatch::ImportPatch(HMODULE module) : m_module(module) {}

ImportPatch::~ImportPatch() {
    for (const Slot& slot : std::views::reverse(m_slots)) {
        Write(slot.place, slot.original);
    }
    Redirected = {};
}

void ImportPatch::PretendLibrary(const wchar_t* name) {
    RedirectLibraries();
    Redirected.libraries[name] = true;
}

void ImportPatch::HideLibrary(const wchar_t* name) {
    RedirectLibraries();
    Redirected.libraries[name] = false;
}

void ImportPatch::ReplaceAddress(const std::string& name, void* replacement) {
    const std::vector<void**> places = FindSlots(m_module, name);
    if (places.empty()) {
        throw std::runtime_error("the module does not import " + name);
    }
    for (void** place : places) {
        m_slots.push_back({place, *place});
        Write(place, replacement);
    }
}

void ImportPatch::RedirectRoutine(const std::string& name, void* replacement) {
    if (Redirected.routines.empty()) {
        Replace("GetProcAddress", &RedirectedGetProcAddress);
    }
    Redirected.routines[name] = replacement;
}

void ImportPatch::RedirectLibraries() {
    if (Redirected.libraries.empty()) {
        Replace("LoadLibraryExW", &RedirectedLoadLibraryExW);
    }
}

} // namespace test
