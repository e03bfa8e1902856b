#include "platform/wlan.h"

#include "platform/back_end.h"
#include "platform/windows/support/system_library.h"

#include <wlanapi.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>
#include <span>

namespace VESK_BACK_END {
namespace {

// Not every server or older client has the wireless services.
template <class Routine>
Routine WlanRoutine(const char* name) {
    return SystemRoutine<Routine>(L"wlanapi.dll", name);
}

/// Each block is freed as soon as its content is copied, not all of them at the end of a read: the core sees no memory of
/// the API, and only a trace of the API's own calls shows the difference.
struct FreeBlock {
    void operator()(void* block) const {
        if (const auto free = WlanRoutine<decltype(&::WlanFreeMemory)>("WlanFreeMemory")) {
            free(block);
        }
    }
};

/// A block of the API's memory.
template <class Content>
using Block = std::unique_ptr<Content, FreeBlock>;

HANDLE Native(WlanClient client) {
    return reinterpret_cast<HANDLE>(client);
}

const GUID* NativeAddress(const Guid& guid) {
    static_assert(sizeof(Guid) == sizeof(GUID));
    return reinterpret_cast<const GUID*>(&guid);
}

WlanSsid Plain(const DOT11_SSID& native) {
    WlanSsid ssid{.length = native.uSSIDLength};
    static_assert(sizeof native.ucSSID == sizeof ssid.bytes);
    std::ranges::copy(native.ucSSID, ssid.bytes.begin());
    return ssid;
}

MacAddress Plain(const DOT11_MAC_ADDRESS& native) {
    MacAddress address;
    std::copy_n(native, address.size(), address.begin());
    return address;
}

WlanInterface Plain(const WLAN_INTERFACE_INFO& native) {
    const auto& name = native.strInterfaceDescription;
    WlanInterface found;
    std::memcpy(&found.guid, &native.InterfaceGuid, sizeof found.guid);
    found.description.assign(std::begin(name), std::ranges::find(name, L'\0'));
    found.state = native.isState;
    return found;
}

/// The entry's elements, or nothing if they are not inside the list.
std::span<const std::byte> ElementsOf(const WLAN_BSS_ENTRY& entry, const WLAN_BSS_LIST& list) {
    const std::span bytes(reinterpret_cast<const std::byte*>(&list), list.dwTotalSize);
    const auto entryAt = static_cast<std::size_t>(reinterpret_cast<const std::byte*>(&entry) - bytes.data());
    const std::size_t begin = entryAt + entry.ulIeOffset;
    if (begin > bytes.size() || entry.ulIeSize > bytes.size() - begin) {
        return {};
    }
    return bytes.subspan(begin, entry.ulIeSize);
}

WlanBssEntry Plain(const WLAN_BSS_ENTRY& native, const WLAN_BSS_LIST& list) {
    const auto elements = ElementsOf(native, list);
    return {.ssid = Plain(native.dot11Ssid),
            .bssid = Plain(native.dot11Bssid),
            .rssi = native.lRssi,
            .informationElements = {elements.begin(), elements.end()}};
}

std::span<const WLAN_BSS_ENTRY> EntriesOf(const WLAN_BSS_LIST& list) {
    constexpr std::size_t HeaderSize = offsetof(WLAN_BSS_LIST, wlanBssEntries);
    const std::size_t maxEntries =
        list.dwTotalSize < HeaderSize ? 0 : (list.dwTotalSize - HeaderSize) / sizeof(WLAN_BSS_ENTRY);
    return {list.wlanBssEntries, std::min<std::size_t>(list.dwNumberOfItems, maxEntries)};
}

/// WlanQueryInterface. `content` is the returned data, or null if that is smaller than a `Content`.
template <class Content>
SystemError Query(WlanClient client, const Guid& interfaceGuid, std::uint32_t opcode, Block<void>& memory,
                  const Content*& content) {
    content = nullptr;
    const auto query = WlanRoutine<decltype(&::WlanQueryInterface)>("WlanQueryInterface");
    if (query == nullptr) {
        return ::GetLastError();
    }
    DWORD size = 0;
    void* data = nullptr;
    const DWORD status = query(Native(client), NativeAddress(interfaceGuid),
                               static_cast<WLAN_INTF_OPCODE>(opcode), nullptr, &size, &data, nullptr);
    if (status != ERROR_SUCCESS) {
        return status;
    }
    memory.reset(data);
    if (size >= sizeof(Content)) {
        content = static_cast<const Content*>(data);
    }
    return status;
}

} // namespace

SystemError WlanOpenHandle(std::uint32_t clientVersion, WlanClient& client) {
    const auto open = WlanRoutine<decltype(&::WlanOpenHandle)>("WlanOpenHandle");
    if (open == nullptr) {
        return ::GetLastError();
    }
    DWORD negotiatedVersion = 0;
    HANDLE handle = nullptr;
    const DWORD status = open(clientVersion, nullptr, &negotiatedVersion, &handle);
    if (status == ERROR_SUCCESS) {
        client = WlanClient{reinterpret_cast<std::uintptr_t>(handle)};
    }
    return status;
}

void WlanCloseHandle(WlanClient client) {
    if (const auto close = WlanRoutine<decltype(&::WlanCloseHandle)>("WlanCloseHandle")) {
        close(Native(client), nullptr);
    }
}

SystemError WlanEnumInterfaces(WlanClient client, std::vector<WlanInterface>& interfaces) {
    interfaces.clear();
    const auto enumerate = WlanRoutine<decltype(&::WlanEnumInterfaces)>("WlanEnumInterfaces");
    if (enumerate == nullptr) {
        return ::GetLastError();
    }
    WLAN_INTERFACE_INFO_LIST* list = nullptr;
    const DWORD status = enumerate(Native(client), nullptr, &list);
    if (status != ERROR_SUCCESS || list == nullptr) {
        return status;
    }
    const Block<WLAN_INTERFACE_INFO_LIST> memory(list);
    for (const WLAN_INTERFACE_INFO& each : std::span(list->InterfaceInfo, list->dwNumberOfItems)) {
        interfaces.push_back(Plain(each));
    }
    return status;
}

SystemError WlanQueryInterface(WlanClient client, const Guid& interfaceGuid, std::uint32_t opcode,
                               std::optional<WlanConnection>& connection) {
    connection.reset();
    Block<void> memory;
    const WLAN_CONNECTION_ATTRIBUTES* attributes = nullptr;
    const SystemError status = Query(client, interfaceGuid, opcode, memory, attributes);
    if (attributes != nullptr) {
        const WLAN_ASSOCIATION_ATTRIBUTES& association = attributes->wlanAssociationAttributes;
        connection = WlanConnection{.ssid = Plain(association.dot11Ssid),
                                    .bssid = Plain(association.dot11Bssid),
                                    .phyType = static_cast<std::uint32_t>(association.dot11PhyType)};
    }
    return status;
}

SystemError WlanQueryInterface(WlanClient client, const Guid& interfaceGuid, std::uint32_t opcode,
                               std::optional<std::uint32_t>& number) {
    number.reset();
    Block<void> memory;
    const ULONG* data = nullptr;
    const SystemError status = Query(client, interfaceGuid, opcode, memory, data);
    if (data != nullptr) {
        number = *data;
    }
    return status;
}

SystemError WlanGetNetworkBssList(WlanClient client, const Guid& interfaceGuid, std::uint32_t bssType,
                                  bool securityEnabled, std::vector<WlanBssEntry>& entries) {
    entries.clear();
    const auto getList = WlanRoutine<decltype(&::WlanGetNetworkBssList)>("WlanGetNetworkBssList");
    if (getList == nullptr) {
        return ::GetLastError();
    }
    WLAN_BSS_LIST* list = nullptr;
    const DWORD status = getList(Native(client), NativeAddress(interfaceGuid), nullptr,
                                 static_cast<DOT11_BSS_TYPE>(bssType), securityEnabled, nullptr, &list);
    if (status != ERROR_SUCCESS || list == nullptr) {
        return status;
    }
    const Block<WLAN_BSS_LIST> memory(list);
    for (const WLAN_BSS_ENTRY& each : EntriesOf(*list)) {
        entries.push_back(Plain(each, *list));
    }
    return status;
}

} // namespace VESK_BACK_END
