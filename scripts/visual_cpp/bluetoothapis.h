// mingw-w64's header with the one difference of the Windows SDK's: to C++ the record of a device is a derived type.
#pragma once

#define BLUETOOTH_DEVICE_INFO BLUETOOTH_DEVICE_INFO_STRUCT
#include_next <bluetoothapis.h>
#undef BLUETOOTH_DEVICE_INFO

struct BLUETOOTH_DEVICE_INFO : BLUETOOTH_DEVICE_INFO_STRUCT {};
