#include "open_handles.h"

#include "library.h"

#include <algorithm>
#include <stdexcept>

namespace sweep {
namespace {

struct HandleTable { // SYSTEM_HANDLE_INFORMATION_EX
    ULONG_PTR count;
    ULONG_PTR reserved;
    HandleEntry entries[1];
};

[[noreturn]] void Fail() {
    throw std::runtime_error("this Windows does not list its handles");
}

} // namespace

OpenHandles::OpenHandles() {
    HKEY key = nullptr;
    HANDLE token = nullptr;
    ::RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE", 0, KEY_READ, &key);
    ::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &token);
    const std::wstring path = test::ProgramDirectory() + L"VeskSondrel64.dll";
    const HANDLE file =
        ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    Read();
    for (const void* const sample : {static_cast<void*>(key), token, file}) {
        const auto found =
            std::ranges::find(m_entries, reinterpret_cast<ULONG_PTR>(sample), &HandleEntry::handle);
        if (found == m_entries.end()) {
            Fail();
        }
        m_types.push_back(found->type);
    }
    ::RegCloseKey(key);
    ::CloseHandle(token);
    ::CloseHandle(file);
}

std::size_t OpenHandles::Count() {
    Read();
    return static_cast<std::size_t>(std::ranges::count_if(m_entries, [this](const HandleEntry& entry) {
        return std::ranges::find(m_types, entry.type) != m_types.end();
    }));
}

void OpenHandles::Read() {
    constexpr ULONG ExtendedHandles = 64; // winternl.h does not list it
    using Query = LONG(WINAPI*)(ULONG, void*, ULONG, ULONG*);
    static const auto Ask = reinterpret_cast<Query>(reinterpret_cast<void*>(
        ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
    ULONG size = 0;
    while (Ask(ExtendedHandles, m_table.data(), static_cast<ULONG>(m_table.size()), &size) < 0) {
        if (m_table.size() > 1U << 24) {
            Fail();
        }
        m_table.resize(m_table.size() * 2);
    }
    const auto* const table = reinterpret_cast<const HandleTable*>(m_table.data());
    m_entries.assign(table->entries, table->entries + table->count);
    std::erase_if(m_entries,
                  [](const HandleEntry& entry) { return entry.process != ::GetCurrentProcessId(); });
}

} // namespace sweep
