// The radios and the memory that a library under test meets, replaced in its import table.
#include "fake_radios.h"

#include "import_patch.h"

#include <winsock2.h>

#include <bluetoothapis.h>
#include <wlanapi.h>

#include <cstdint>
#include <cstdlib>
#include <optional>

namespace {

fake_radios::Conditions Now;
unsigned DevicesFound;
std::optional<test::ImportPatch> Patch;

const auto Radio = reinterpret_cast<HANDLE>(std::uintptr_t{0x5EED'0000});
const auto Search = reinterpret_cast<void*>(std::uintptr_t{0x5EED'0004});

DWORD Failure(unsigned condition) {
    return condition == fake_radios::Failing ? ERROR_GEN_FAILURE : ERROR_SUCCESS;
}

DWORD WINAPI OpenClient(DWORD, PVOID, PDWORD, PHANDLE client) {
    *client = Radio;
    return Failure(Now.phyType);
}

DWORD WINAPI CloseClient(HANDLE, PVOID) {
    return ERROR_SUCCESS;
}

DWORD WINAPI EnumInterfaces(HANDLE, PVOID, PWLAN_INTERFACE_INFO_LIST* list) {
    // The list's structure has no element in some headers.
    *list = static_cast<WLAN_INTERFACE_INFO_LIST*>(
        std::calloc(1, sizeof(WLAN_INTERFACE_INFO_LIST) + sizeof(WLAN_INTERFACE_INFO)));
    (*list)->dwNumberOfItems = Now.phyType == 0 ? 0 : 1;
    (*list)->InterfaceInfo[0].isState = wlan_interface_state_connected;
    return ERROR_SUCCESS;
}

DWORD WINAPI QueryInterface(HANDLE, const GUID*, WLAN_INTF_OPCODE opcode, PVOID, PDWORD size, PVOID* data,
                            PWLAN_OPCODE_VALUE_TYPE) {
    if (opcode != wlan_intf_opcode_current_connection) {
        return ERROR_NOT_SUPPORTED;
    }
    auto* const connection =
        static_cast<WLAN_CONNECTION_ATTRIBUTES*>(std::calloc(1, sizeof(WLAN_CONNECTION_ATTRIBUTES)));
    connection->wlanAssociationAttributes.dot11PhyType = static_cast<DOT11_PHY_TYPE>(Now.phyType);
    *size = sizeof *connection;
    *data = connection;
    return ERROR_SUCCESS;
}

DWORD WINAPI NoAccessPoints(HANDLE, const GUID*, PDOT11_SSID, DOT11_BSS_TYPE, WINBOOL, PVOID,
                            PWLAN_BSS_LIST* list) {
    *list = nullptr;
    return ERROR_SUCCESS;
}

VOID WINAPI FreeBlock(PVOID block) {
    std::free(block);
}

/// `found`, or null with the error of a list that has no more items.
template <class Search>
Search OrNoMore(bool there, Search found) {
    ::SetLastError(there ? ERROR_SUCCESS : ERROR_NO_MORE_ITEMS);
    return there ? found : Search{};
}

HBLUETOOTH_RADIO_FIND WINAPI FindFirstRadio(const BLUETOOTH_FIND_RADIO_PARAMS*, HANDLE* radio) {
    *radio = Radio;
    return OrNoMore(Now.devices != 0, static_cast<HBLUETOOTH_RADIO_FIND>(Search));
}

WINBOOL WINAPI FindNextRadio(HBLUETOOTH_RADIO_FIND, HANDLE*) {
    return OrNoMore(false, TRUE);
}

WINBOOL WINAPI CloseRadioSearch(HBLUETOOTH_RADIO_FIND) {
    return TRUE;
}

DWORD WINAPI GetRadioInfo(HANDLE, PBLUETOOTH_RADIO_INFO) {
    return Failure(Now.devices);
}

WINBOOL WINAPI FindNextDevice(HBLUETOOTH_DEVICE_FIND, BLUETOOTH_DEVICE_INFO* info) {
    if (DevicesFound == Now.devices) {
        return OrNoMore(false, TRUE);
    }
    info->ulClassofDevice = ULONG{Now.majorClasses[DevicesFound]} << 8;
    ++DevicesFound;
    return TRUE;
}

HBLUETOOTH_DEVICE_FIND WINAPI FindFirstDevice(const BLUETOOTH_DEVICE_SEARCH_PARAMS*,
                                              BLUETOOTH_DEVICE_INFO* info) {
    DevicesFound = 0;
    return FindNextDevice(nullptr, info) != FALSE ? static_cast<HBLUETOOTH_DEVICE_FIND>(Search) : nullptr;
}

WINBOOL WINAPI CloseDeviceSearch(HBLUETOOTH_DEVICE_FIND) {
    return TRUE;
}

WINBOOL WINAPI CloseNothing(HANDLE) {
    return TRUE;
}

/// The library does not pin itself, so that the host can load it again.
BOOL WINAPI DoNotPin(DWORD, const wchar_t*, HMODULE* module) {
    *module = nullptr;
    return TRUE;
}

LPVOID WINAPI NoBlock(HANDLE, DWORD, SIZE_T) {
    return nullptr;
}

void ReplaceRadios(test::ImportPatch& patch) {
    patch.PretendLibrary(L"wlanapi.dll");
    patch.ReplaceRoutine("WlanOpenHandle", &OpenClient);
    patch.ReplaceRoutine("WlanCloseHandle", &CloseClient);
    patch.ReplaceRoutine("WlanEnumInterfaces", &EnumInterfaces);
    patch.ReplaceRoutine("WlanQueryInterface", &QueryInterface);
    patch.ReplaceRoutine("WlanGetNetworkBssList", &NoAccessPoints);
    patch.ReplaceRoutine("WlanFreeMemory", &FreeBlock);
    patch.PretendLibrary(L"bthprops.cpl");
    patch.ReplaceRoutine("BluetoothFindFirstRadio", &FindFirstRadio);
    patch.ReplaceRoutine("BluetoothFindNextRadio", &FindNextRadio);
    patch.ReplaceRoutine("BluetoothFindRadioClose", &CloseRadioSearch);
    patch.ReplaceRoutine("BluetoothGetRadioInfo", &GetRadioInfo);
    patch.ReplaceRoutine("BluetoothFindFirstDevice", &FindFirstDevice);
    patch.ReplaceRoutine("BluetoothFindNextDevice", &FindNextDevice);
    patch.ReplaceRoutine("BluetoothFindDeviceClose", &CloseDeviceSearch);
    patch.Replace("CloseHandle", &CloseNothing); // of the radio, which is no handle of Wine's
}

} // namespace

extern "C" __declspec(dllexport) void SetConditions(void* library,
                                                    const fake_radios::Conditions& conditions) {
    Patch.reset();
    Now = conditions;
    Patch.emplace(static_cast<HMODULE>(library));
    if (Now.radios) {
        ReplaceRadios(*Patch);
        Patch->Replace("GetModuleHandleExW", &DoNotPin);
    }
    if (Now.noMemory) {
        Patch->Replace("HeapAlloc", &NoBlock);
    }
}
