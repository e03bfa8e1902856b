#include "shims.h"

#include <winsock2.h>

#include <bluetoothapis.h>
#include <iphlpapi.h>
#include <windot11.h>
#include <wlanapi.h>

#include "machine/machine.h"
#include "machine/profile/profile.h"
#include "platform/bluetooth.h"
#include "platform/network_adapters.h"
#include "platform/wlan.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <new>
#include <set>

namespace comparison {
namespace {

/// What no field says is not nothing: a reader that takes a neighbour shows.
constexpr int Unsaid = 0xA5;

/// The service's memory that is out.
std::set<void*> Blocks;

void* NewBlock(std::size_t size) {
    void* const block = std::memset(::operator new(size), Unsaid, size);
    Blocks.insert(block);
    return block;
}

platform::WlanClient ClientOf(HANDLE handle) {
    return platform::WlanClient{reinterpret_cast<std::uintptr_t>(handle)};
}

DOT11_SSID NativeSsid(const platform::WlanSsid& ssid) {
    DOT11_SSID native{};
    native.uSSIDLength = ssid.length;
    std::ranges::copy(ssid.bytes, native.ucSSID);
    return native;
}

DWORD WINAPI OpenHandle(DWORD version, PVOID reserved, PDWORD negotiated, PHANDLE client) {
    if (reserved != nullptr || negotiated == nullptr || client == nullptr) {
        return ERROR_INVALID_PARAMETER;
    }
    platform::WlanClient opened{};
    const DWORD status = platform::WlanOpenHandle(version, opened);
    *negotiated = version;
    *client = reinterpret_cast<HANDLE>(opened);
    return status;
}

DWORD WINAPI CloseClient(HANDLE client, PVOID) {
    platform::WlanCloseHandle(ClientOf(client));
    return ERROR_SUCCESS;
}

DWORD WINAPI EnumInterfaces(HANDLE client, PVOID, PWLAN_INTERFACE_INFO_LIST* list) {
    std::vector<platform::WlanInterface> interfaces;
    if (const DWORD status = platform::WlanEnumInterfaces(ClientOf(client), interfaces);
        status != ERROR_SUCCESS) {
        return status;
    }
    *list = static_cast<WLAN_INTERFACE_INFO_LIST*>(NewBlock(
        offsetof(WLAN_INTERFACE_INFO_LIST, InterfaceInfo) + interfaces.size() * sizeof(WLAN_INTERFACE_INFO)));
    (*list)->dwNumberOfItems = static_cast<DWORD>(interfaces.size());
    WLAN_INTERFACE_INFO* native = (*list)->InterfaceInfo;
    for (const platform::WlanInterface& each : interfaces) {
        native->InterfaceGuid = std::bit_cast<GUID>(each.guid);
        constexpr std::size_t Capacity = std::size(decltype(native->strInterfaceDescription){});
        const std::size_t length = std::min(each.description.size(), Capacity - 1);
        *std::copy_n(each.description.data(), length, native->strInterfaceDescription) = L'\0';
        native->isState = static_cast<WLAN_INTERFACE_STATE>(each.state);
        ++native;
    }
    return ERROR_SUCCESS;
}

DWORD QueryConnection(HANDLE client, const platform::Guid& guid, PDWORD size, PVOID* data) {
    std::optional<platform::WlanConnection> connection;
    const DWORD status =
        platform::WlanQueryInterface(ClientOf(client), guid, platform::wlan::CurrentConnection, connection);
    if (connection) {
        auto* native = static_cast<WLAN_CONNECTION_ATTRIBUTES*>(NewBlock(sizeof(WLAN_CONNECTION_ATTRIBUTES)));
        native->isState = wlan_interface_state_connected;
        WLAN_ASSOCIATION_ATTRIBUTES& association = native->wlanAssociationAttributes;
        association.dot11Ssid = NativeSsid(connection->ssid);
        std::ranges::copy(connection->bssid, association.dot11Bssid);
        association.dot11PhyType = static_cast<DOT11_PHY_TYPE>(connection->phyType);
        *size = sizeof *native;
        *data = native;
    }
    return status;
}

DWORD WINAPI QueryInterface(HANDLE client, const GUID* guid, WLAN_INTF_OPCODE opcode, PVOID, PDWORD size,
                            PVOID* data, PWLAN_OPCODE_VALUE_TYPE) {
    const auto plainGuid = std::bit_cast<platform::Guid>(*guid);
    if (opcode == wlan_intf_opcode_current_connection) {
        return QueryConnection(client, plainGuid, size, data);
    }
    std::optional<std::uint32_t> number;
    const DWORD status = platform::WlanQueryInterface(ClientOf(client), plainGuid, opcode, number);
    if (number) {
        *size = sizeof(ULONG);
        *data = NewBlock(*size);
        std::memcpy(*data, &*number, *size);
    }
    return status;
}

/// The list as the service lays it out: the entries, then each one's elements, located by their offset in it.
WLAN_BSS_LIST* NativeList(const std::vector<platform::WlanBssEntry>& entries) {
    constexpr std::size_t HeadSize = offsetof(WLAN_BSS_LIST, wlanBssEntries);
    std::size_t size = HeadSize + entries.size() * sizeof(WLAN_BSS_ENTRY);
    std::size_t elementsAt = size;
    for (const platform::WlanBssEntry& each : entries) {
        size += each.informationElements.size();
    }
    auto* const bytes = static_cast<std::byte*>(NewBlock(size));
    auto* const list = reinterpret_cast<WLAN_BSS_LIST*>(bytes);
    list->dwTotalSize = static_cast<DWORD>(size);
    list->dwNumberOfItems = static_cast<DWORD>(entries.size());
    std::size_t entryAt = HeadSize;
    for (const platform::WlanBssEntry& each : entries) {
        auto* const native = reinterpret_cast<WLAN_BSS_ENTRY*>(bytes + entryAt);
        native->dot11Ssid = NativeSsid(each.ssid);
        std::ranges::copy(each.bssid, native->dot11Bssid);
        native->lRssi = each.rssi;
        native->ulIeOffset = static_cast<ULONG>(elementsAt - entryAt);
        native->ulIeSize = static_cast<ULONG>(each.informationElements.size());
        std::ranges::copy(each.informationElements, bytes + elementsAt);
        elementsAt += each.informationElements.size();
        entryAt += sizeof *native;
    }
    return list;
}

DWORD WINAPI GetBssList(HANDLE client, const GUID* guid, const PDOT11_SSID, DOT11_BSS_TYPE type,
                        WINBOOL security, PVOID, PWLAN_BSS_LIST* list) {
    std::vector<platform::WlanBssEntry> entries;
    const DWORD status = platform::WlanGetNetworkBssList(
        ClientOf(client), std::bit_cast<platform::Guid>(*guid), type, security != FALSE, entries);
    if (status == ERROR_SUCCESS) {
        *list = NativeList(entries);
    }
    return status;
}

VOID WINAPI FreeBlock(PVOID block) {
    if (Blocks.erase(block) != 0) {
        ::operator delete(block);
    }
}

void PutUpWlan(test::ImportPatch& patch) {
    if (machine::Current()->profile.wifi.service == machine::WifiService::Missing) {
        patch.HideLibrary(L"wlanapi.dll");
        return;
    }
    patch.PretendLibrary(L"wlanapi.dll");
    patch.ReplaceRoutine("WlanOpenHandle", &OpenHandle);
    patch.ReplaceRoutine("WlanCloseHandle", &CloseClient);
    patch.ReplaceRoutine("WlanEnumInterfaces", &EnumInterfaces);
    patch.ReplaceRoutine("WlanQueryInterface", &QueryInterface);
    patch.ReplaceRoutine("WlanGetNetworkBssList", &GetBssList);
    patch.ReplaceRoutine("WlanFreeMemory", &FreeBlock);
}

/// The two kinds of search are one type to the platform's headers.
template <class Search>
Search SearchOf(HANDLE search) {
    return Search{reinterpret_cast<std::uintptr_t>(search)};
}

/// Bluetooth refuses a record that does not say its own size.
template <class Record>
bool HasItsSize(const Record* record) {
    if (record == nullptr || record->dwSize != sizeof(Record)) {
        ::SetLastError(ERROR_REVISION_MISMATCH);
        return false;
    }
    return true;
}

HBLUETOOTH_RADIO_FIND WINAPI FindFirstRadio(const BLUETOOTH_FIND_RADIO_PARAMS* parameters, HANDLE* radio) {
    if (!HasItsSize(parameters)) {
        return nullptr;
    }
    platform::Handle found{};
    const auto search = WithLastError(platform::BluetoothFindFirstRadio(found));
    *radio = search == platform::BluetoothRadioFind::None ? nullptr : Marked(found);
    return reinterpret_cast<HBLUETOOTH_RADIO_FIND>(search);
}

WINBOOL WINAPI FindNextRadio(HBLUETOOTH_RADIO_FIND search, HANDLE* radio) {
    platform::Handle found{};
    const bool done = WithLastError(
        platform::BluetoothFindNextRadio(SearchOf<platform::BluetoothRadioFind>(search), found));
    *radio = done ? Marked(found) : nullptr;
    return Truth(done);
}

WINBOOL WINAPI RadioClose(HBLUETOOTH_RADIO_FIND search) {
    platform::BluetoothFindRadioClose(SearchOf<platform::BluetoothRadioFind>(search));
    return TRUE;
}

DWORD WINAPI GetRadioInfo(HANDLE radio, PBLUETOOTH_RADIO_INFO info) {
    return HasItsSize(info) ? platform::BluetoothGetRadioInfo(Unmarked(radio)) : ERROR_REVISION_MISMATCH;
}

void Fill(BLUETOOTH_DEVICE_INFO& native, const platform::BluetoothDevice& device) {
    std::memset(&native, Unsaid, sizeof native);
    native.dwSize = sizeof native;
    native.ulClassofDevice = device.classOfDevice;
}

HBLUETOOTH_DEVICE_FIND WINAPI FindFirstDevice(const BLUETOOTH_DEVICE_SEARCH_PARAMS* parameters,
                                              BLUETOOTH_DEVICE_INFO* info) {
    if (!HasItsSize(parameters) || !HasItsSize(info)) {
        return nullptr;
    }
    platform::BluetoothDevice device;
    const auto search = WithLastError(
        platform::BluetoothFindFirstDevice({.returnAuthenticated = parameters->fReturnAuthenticated != FALSE,
                                            .returnRemembered = parameters->fReturnRemembered != FALSE,
                                            .returnUnknown = parameters->fReturnUnknown != FALSE,
                                            .returnConnected = parameters->fReturnConnected != FALSE,
                                            .issueInquiry = parameters->fIssueInquiry != FALSE,
                                            .timeoutMultiplier = parameters->cTimeoutMultiplier,
                                            .radio = Unmarked(parameters->hRadio)},
                                           device));
    if (search != platform::BluetoothDeviceFind::None) {
        Fill(*info, device);
    }
    return reinterpret_cast<HBLUETOOTH_DEVICE_FIND>(search);
}

WINBOOL WINAPI FindNextDevice(HBLUETOOTH_DEVICE_FIND search, BLUETOOTH_DEVICE_INFO* info) {
    if (!HasItsSize(info)) {
        return FALSE;
    }
    platform::BluetoothDevice device;
    const bool found = WithLastError(
        platform::BluetoothFindNextDevice(SearchOf<platform::BluetoothDeviceFind>(search), device));
    if (found) {
        Fill(*info, device);
    }
    return Truth(found);
}

WINBOOL WINAPI DeviceClose(HBLUETOOTH_DEVICE_FIND search) {
    platform::BluetoothFindDeviceClose(SearchOf<platform::BluetoothDeviceFind>(search));
    return TRUE;
}

void PutUpBluetooth(test::ImportPatch& patch) {
    if (!machine::Current()->profile.bluetooth.supported) {
        patch.HideLibrary(L"bthprops.cpl");
        patch.HideLibrary(L"bluetoothapis.dll");
        return;
    }
    patch.PretendLibrary(L"bthprops.cpl");
    patch.ReplaceRoutine("BluetoothFindFirstRadio", &FindFirstRadio);
    patch.ReplaceRoutine("BluetoothFindNextRadio", &FindNextRadio);
    patch.ReplaceRoutine("BluetoothFindRadioClose", &RadioClose);
    patch.ReplaceRoutine("BluetoothGetRadioInfo", &GetRadioInfo);
    patch.ReplaceRoutine("BluetoothFindFirstDevice", &FindFirstDevice);
    patch.ReplaceRoutine("BluetoothFindNextDevice", &FindNextDevice);
    patch.ReplaceRoutine("BluetoothFindDeviceClose", &DeviceClose);
}

/// Each record points to the next one in the caller's own buffer.
ULONG WINAPI ListAdapters(PIP_ADAPTER_INFO buffer, PULONG size) {
    std::uint32_t capacity = *size;
    std::vector<platform::NetworkAdapter> adapters;
    const ULONG status = platform::GetAdaptersInfo(capacity, adapters);
    *size = capacity;
    for (std::size_t place = 0; place < adapters.size(); ++place) {
        IP_ADAPTER_INFO& native = buffer[place];
        std::memset(&native, Unsaid, sizeof native);
        native.Next = place + 1 < adapters.size() ? &native + 1 : nullptr;
        native.Index = adapters[place].index;
        native.Type = adapters[place].type;
    }
    return status;
}

} // namespace

std::size_t BlocksOut() {
    return Blocks.size();
}

void PutUpRadios(test::ImportPatch& patch) {
    PutUpWlan(patch);
    PutUpBluetooth(patch);
    patch.ReplaceRoutine("GetAdaptersInfo", &ListAdapters);
}

} // namespace comparison
