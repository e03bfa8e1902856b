// How many handles of Windows' are open in this process.
#pragma once

#include <windows.h>

#include <cstddef>
#include <vector>

namespace sweep {

/// One row of the system's table (SYSTEM_HANDLE_TABLE_ENTRY_INFO_EX).
struct HandleEntry {
    void* object;
    ULONG_PTR process;
    ULONG_PTR handle;
    ULONG access;
    USHORT backTrace;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};

/// Those of the kinds that the library opens, keys, files and tokens: the others of Wine's own threads come and go.
class OpenHandles {
public:
    OpenHandles();

    std::size_t Count();

private:
    void Read();

    std::vector<std::byte> m_table = std::vector<std::byte>(1U << 16);
    std::vector<HandleEntry> m_entries; // this process's
    std::vector<USHORT> m_types;
};

} // namespace sweep
