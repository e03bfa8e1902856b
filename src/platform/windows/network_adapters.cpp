#include "platform/network_adapters.h"

#include "platform/back_end.h"

#include <winsock2.h>

#include <iphlpapi.h>

#include <cstdint>

namespace VESK_BACK_END {
namespace {

/// The record at `place`, or null where no whole record lies there.
const IP_ADAPTER_INFO* RecordAt(const void* place, const std::vector<std::byte>& buffer) {
    const auto at = reinterpret_cast<std::uintptr_t>(place);
    const auto begin = reinterpret_cast<std::uintptr_t>(buffer.data());
    if (at < begin || at - begin > buffer.size() || buffer.size() - (at - begin) < sizeof(IP_ADAPTER_INFO)) {
        return nullptr;
    }
    return static_cast<const IP_ADAPTER_INFO*>(place);
}

} // namespace

SystemError GetAdaptersInfo(std::uint32_t& size, std::vector<NetworkAdapter>& adapters) {
    adapters.clear();
    std::vector<std::byte> buffer(size);
    ULONG needed = size;
    const DWORD status = ::GetAdaptersInfo(reinterpret_cast<IP_ADAPTER_INFO*>(buffer.data()), &needed);
    size = needed;
    if (status != ERROR_SUCCESS) {
        return status;
    }
    // No list has more records than there is room for, however they are linked.
    const std::size_t most = buffer.size() / sizeof(IP_ADAPTER_INFO);
    const auto* record = RecordAt(buffer.data(), buffer);
    while (record != nullptr && adapters.size() < most) {
        adapters.push_back({.index = record->Index, .type = record->Type});
        record = RecordAt(record->Next, buffer);
    }
    return status;
}

} // namespace VESK_BACK_END
