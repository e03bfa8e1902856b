// The structures of Windows as its documentation defines them: sizes, offsets and constants that the back end relies
// on. They are compiled, never run.
#include <winsock2.h>

#include <windows.h>

#include <bluetoothapis.h>
#include <evntprov.h>
#include <iphlpapi.h>
#include <windot11.h>
#include <wlanapi.h>

#include <cstddef>

#define SIZE(type, size) static_assert(sizeof(type) == (size), #type)
#define OFFSET(type, field, offset) static_assert(offsetof(type, field) == (offset), #type "." #field)
#define VALUE(name, value) static_assert((name) == (value), #name)

SIZE(WLAN_INTERFACE_INFO, 532);
OFFSET(WLAN_INTERFACE_INFO, isState, 528);
OFFSET(WLAN_INTERFACE_INFO_LIST, InterfaceInfo, 8);
VALUE(wlan_interface_state_connected, 1);
VALUE(wlan_intf_opcode_current_connection, 7);
VALUE(wlan_intf_opcode_channel_number, 8);

SIZE(WLAN_CONNECTION_ATTRIBUTES, 604);
OFFSET(WLAN_CONNECTION_ATTRIBUTES, wlanAssociationAttributes, 520);
SIZE(WLAN_ASSOCIATION_ATTRIBUTES, 68);
OFFSET(WLAN_ASSOCIATION_ATTRIBUTES, dot11Bssid, 40);
OFFSET(WLAN_ASSOCIATION_ATTRIBUTES, dot11PhyType, 48);

SIZE(DOT11_SSID, 36);
SIZE(WLAN_BSS_ENTRY, 360);
OFFSET(WLAN_BSS_ENTRY, dot11Bssid, 40);
OFFSET(WLAN_BSS_ENTRY, lRssi, 56);
OFFSET(WLAN_BSS_ENTRY, ulIeOffset, 352);
OFFSET(WLAN_BSS_ENTRY, ulIeSize, 356);
OFFSET(WLAN_BSS_LIST, wlanBssEntries, 8);
VALUE(dot11_BSS_type_infrastructure, 1);

SIZE(IP_ADAPTER_INFO, 704);
OFFSET(IP_ADAPTER_INFO, Index, 416);
OFFSET(IP_ADAPTER_INFO, Type, 420);

SIZE(BLUETOOTH_DEVICE_INFO, 560);
OFFSET(BLUETOOTH_DEVICE_INFO, ulClassofDevice, 16);
SIZE(BLUETOOTH_RADIO_INFO, 520);
SIZE(BLUETOOTH_DEVICE_SEARCH_PARAMS, 40);
OFFSET(BLUETOOTH_DEVICE_SEARCH_PARAMS, fReturnConnected, 16);
OFFSET(BLUETOOTH_DEVICE_SEARCH_PARAMS, hRadio, 32);

SIZE(EVENT_DESCRIPTOR, 16);
SIZE(EVENT_DATA_DESCRIPTOR, 16);
OFFSET(EVENT_DATA_DESCRIPTOR, Reserved, 12);
