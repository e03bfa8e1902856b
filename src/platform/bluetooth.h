// Bluetooth: the radios, and the devices of a radio.
//
// When a search finds nothing more, the last error is the reason: `error::NoMoreItems` at the end of the list.
// On a Windows without the API's library it is the error of loading it.
#pragma once

#include "platform/device_io.h"
#include "platform/support/owned.h"
#include "platform/types.h"

namespace platform {

enum class BluetoothRadioFind : std::uintptr_t { None = 0 };
enum class BluetoothDeviceFind : std::uintptr_t { None = 0 };

/// BLUETOOTH_DEVICE_SEARCH_PARAMS without its own size.
struct BluetoothDeviceSearch {
    bool returnAuthenticated = false;
    bool returnRemembered = false;
    bool returnUnknown = false;
    bool returnConnected = false;
    bool issueInquiry = false;
    std::uint8_t timeoutMultiplier = 0;
    Handle radio = Handle::Null;
};

/// The fields of BLUETOOTH_DEVICE_INFO that are used.
struct BluetoothDevice {
    std::uint32_t classOfDevice = 0;
};

/// `radio` is written if one was found; close it with CloseHandle.
BluetoothRadioFind BluetoothFindFirstRadio(Handle& radio);

bool BluetoothFindNextRadio(BluetoothRadioFind search, Handle& radio);

void BluetoothFindRadioClose(BluetoothRadioFind search);

/// Only the status is used, so the record is not returned.
SystemError BluetoothGetRadioInfo(Handle radio);

BluetoothDeviceFind BluetoothFindFirstDevice(const BluetoothDeviceSearch& parameters,
                                             BluetoothDevice& device);

bool BluetoothFindNextDevice(BluetoothDeviceFind search, BluetoothDevice& device);

void BluetoothFindDeviceClose(BluetoothDeviceFind search);

using OwnedBluetoothRadio = Owned<Handle, CloseHandle, Handle::Null>;
using OwnedBluetoothRadioFind = Owned<BluetoothRadioFind, BluetoothFindRadioClose, BluetoothRadioFind::None>;
using OwnedBluetoothDeviceFind =
    Owned<BluetoothDeviceFind, BluetoothFindDeviceClose, BluetoothDeviceFind::None>;

} // namespace platform
