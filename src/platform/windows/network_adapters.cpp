#include "platform/network_adapters.h"

#include "platform/back_end.h"
#include "platform/windows/support/system_library.h"

#include <winsock2.h>

#include <iphlpapi.h>

#include <cstdint>

namespace VESK_BACK_END {
namespace {

/// The record at `address`, or null if no whole record of the buffer is there.
const IP_ADAPTER_INFO* RecordAt(const void* address, const std::vector<std::byte>& buffer) {
    const auto at = reinterpret_cast<std::uintptr_t>(address);
    const auto begin = reinterpret_cast<std::uintptr_t>(buffer.data());
    if (at < begin || at - begin > buffer.size() || buffer.size() - (at - begin) < sizeof(IP_ADAPTER_INFO)) {
        return nullptr;
    }
    return static_cast<const IP_ADAPTER_INFO*>(address);
}

} // namespace

SystemError GetAdaptersInfo(std::uint32_t& size, std::vector<NetworkAdapter>& adapters) {
    adapters.clear();
    // Looked up, since what the DLL imports could also be found in the host's directory.
    const auto getInfo = SystemRoutine<decltype(&::GetAdaptersInfo)>(L"iphlpapi.dll", "GetAdaptersInfo");
    if (getInfo == nullptr) {
        return error::ProcedureNotFound;
    }
    std::vector<std::byte> buffer(size);
    ULONG needed = size;
    const DWORD status = getInfo(reinterpret_cast<IP_ADAPTER_INFO*>(buffer.data()), &needed);
    size = needed;
    if (status != ERROR_SUCCESS) {
        return status;
    }
    // The limit also ends a list whose links form a cycle.
    const std::size_t maxRecords = buffer.size() / sizeof(IP_ADAPTER_INFO);
    const auto* record = RecordAt(buffer.data(), buffer);
    while (record != nullptr && adapters.size() < maxRecords) {
        adapters.push_back({.index = record->Index, .type = record->Type});
        record = RecordAt(record->Next, buffer);
    }
    return status;
}

} // namespace VESK_BACK_END
