// Bluetooth: the radios, and the devices that a radio knows.
//
// A search that finds nothing, or nothing more, says why in the last error: `error::NoMoreItems` is the end of
// the list. A Windows without the API's library has the error of the look-up there.
#pragma once

#include "platform/device_io.h"
#include "platform/owned.h"
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

/// What is read of BLUETOOTH_DEVICE_INFO.
struct BluetoothDevice {
    std::uint32_t classOfDevice = 0;
};

/// `radio` is written when one was found, and is closed with CloseHandle.
BluetoothRadioFind BluetoothFindFirstRadio(Handle& radio);

bool BluetoothFindNextRadio(BluetoothRadioFind search, Handle& radio);

void BluetoothFindRadioClose(BluetoothRadioFind search);

/// Only whether the radio answers is wanted, so that what it answers stays on the other side.
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
