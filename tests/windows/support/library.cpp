#include "library.h"

#include <stdexcept>

namespace test {
namespace {

BOOL WINAPI DoNotPin(DWORD, const wchar_t*, HMODULE* module) {
    *module = nullptr;
    return TRUE;
}

} // namespace

std::wstring ProgramDirectory() {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    while (length == path.size()) {
        path.resize(path.size() * 2);
        length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    }
    path.resize(length);
    return path.substr(0, path.find_last_of(L'\\') + 1);
}

Library::Library(const std::wstring& file) : Library(ProgramDirectory() + file, Pinning()) {
    m_patch.emplace(m_module);
    m_patch->Replace("GetModuleHandleExW", &DoNotPin);
}

Library::Library(const std::wstring& path, Pinning) : m_module(::LoadLibraryW(path.c_str())) {
    if (m_module == nullptr) {
        throw std::runtime_error("VeskSondrel64.dll does not load: error " +
                                 std::to_string(::GetLastError()));
    }
}

Library::~Library() {
    m_patch.reset();
    ::FreeLibrary(m_module);
}

void* Library::Address(const char* name) const {
    // By way of void*, since a cast between function types is a warning.
    void* const address = reinterpret_cast<void*>(::GetProcAddress(m_module, name));
    if (address == nullptr) {
        throw std::runtime_error(std::string("VeskSondrel64.dll does not export ") + name);
    }
    return address;
}

} // namespace test
