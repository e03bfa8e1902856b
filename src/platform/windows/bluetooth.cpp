#include "platform/bluetooth.h"

#include "platform/back_end.h"
#include "platform/windows/support/native.h"
#include "platform/windows/support/system_library.h"

#include <bluetoothapis.h>

namespace VESK_BACK_END {
namespace {

/// Every client has bthprops.cpl; some servers and embedded images have only bluetoothapis.dll, which is newer. Without
/// either the last error is that of loading it.
HMODULE BluetoothLibrary() {
    if (const HMODULE library = LoadSystemLibrary(L"bthprops.cpl")) {
        return library;
    }
    const HMODULE library = LoadSystemLibrary(L"bluetoothapis.dll");
    if (library == nullptr && ::GetLastError() == ERROR_NO_MORE_ITEMS) {
        ::SetLastError(ERROR_MOD_NOT_FOUND); // the other one says that there is no radio
    }
    return library;
}

template <class Routine>
Routine BluetoothRoutine(const char* name) {
    return RoutineOf<Routine>(BluetoothLibrary(), name);
}

HBLUETOOTH_RADIO_FIND Native(BluetoothRadioFind search) {
    return reinterpret_cast<HBLUETOOTH_RADIO_FIND>(search);
}

HBLUETOOTH_DEVICE_FIND Native(BluetoothDeviceFind search) {
    return reinterpret_cast<HBLUETOOTH_DEVICE_FIND>(search);
}

BLUETOOTH_DEVICE_INFO EmptyDevice() {
    static_assert(sizeof(BLUETOOTH_DEVICE_INFO) == 560);
    BLUETOOTH_DEVICE_INFO device{}; // in the Windows SDK a derived type, without members to designate
    device.dwSize = sizeof device;
    return device;
}

} // namespace

BluetoothRadioFind BluetoothFindFirstRadio(Handle& radio) {
    const auto findFirst = BluetoothRoutine<decltype(&::BluetoothFindFirstRadio)>("BluetoothFindFirstRadio");
    if (findFirst == nullptr) {
        return BluetoothRadioFind::None;
    }
    static_assert(sizeof(BLUETOOTH_FIND_RADIO_PARAMS) == 4);
    BLUETOOTH_FIND_RADIO_PARAMS parameters{.dwSize = sizeof(BLUETOOTH_FIND_RADIO_PARAMS)};
    HANDLE found = nullptr;
    const HBLUETOOTH_RADIO_FIND search = findFirst(&parameters, &found);
    if (search != nullptr) {
        radio = Handle{reinterpret_cast<std::uintptr_t>(found)};
    }
    return BluetoothRadioFind{reinterpret_cast<std::uintptr_t>(search)};
}

bool BluetoothFindNextRadio(BluetoothRadioFind search, Handle& radio) {
    const auto findNext = BluetoothRoutine<decltype(&::BluetoothFindNextRadio)>("BluetoothFindNextRadio");
    HANDLE found = nullptr;
    if (findNext == nullptr || findNext(Native(search), &found) == FALSE) {
        return false;
    }
    radio = Handle{reinterpret_cast<std::uintptr_t>(found)};
    return true;
}

void BluetoothFindRadioClose(BluetoothRadioFind search) {
    if (const auto close =
            BluetoothRoutine<decltype(&::BluetoothFindRadioClose)>("BluetoothFindRadioClose")) {
        close(Native(search));
    }
}

SystemError BluetoothGetRadioInfo(Handle radio) {
    const auto getInfo = BluetoothRoutine<decltype(&::BluetoothGetRadioInfo)>("BluetoothGetRadioInfo");
    if (getInfo == nullptr) {
        return ::GetLastError();
    }
    static_assert(sizeof(BLUETOOTH_RADIO_INFO) == 520);
    BLUETOOTH_RADIO_INFO info{.dwSize = sizeof(BLUETOOTH_RADIO_INFO)};
    return getInfo(Native(radio), &info);
}

BluetoothDeviceFind BluetoothFindFirstDevice(const BluetoothDeviceSearch& parameters,
                                             BluetoothDevice& device) {
    const auto findFirst =
        BluetoothRoutine<decltype(&::BluetoothFindFirstDevice)>("BluetoothFindFirstDevice");
    if (findFirst == nullptr) {
        return BluetoothDeviceFind::None;
    }
    static_assert(sizeof(BLUETOOTH_DEVICE_SEARCH_PARAMS) == 40);
    const BLUETOOTH_DEVICE_SEARCH_PARAMS native{.dwSize = sizeof native,
                                                .fReturnAuthenticated = parameters.returnAuthenticated,
                                                .fReturnRemembered = parameters.returnRemembered,
                                                .fReturnUnknown = parameters.returnUnknown,
                                                .fReturnConnected = parameters.returnConnected,
                                                .fIssueInquiry = parameters.issueInquiry,
                                                .cTimeoutMultiplier = parameters.timeoutMultiplier,
                                                .hRadio = Native(parameters.radio)};
    BLUETOOTH_DEVICE_INFO found = EmptyDevice();
    const HBLUETOOTH_DEVICE_FIND search =
        findFirst(const_cast<BLUETOOTH_DEVICE_SEARCH_PARAMS*>(&native), &found);
    device.classOfDevice = found.ulClassofDevice;
    return BluetoothDeviceFind{reinterpret_cast<std::uintptr_t>(search)};
}

bool BluetoothFindNextDevice(BluetoothDeviceFind search, BluetoothDevice& device) {
    const auto findNext = BluetoothRoutine<decltype(&::BluetoothFindNextDevice)>("BluetoothFindNextDevice");
    BLUETOOTH_DEVICE_INFO found = EmptyDevice();
    if (findNext == nullptr || findNext(Native(search), &found) == FALSE) {
        return false;
    }
    device.classOfDevice = found.ulClassofDevice;
    return true;
}

void BluetoothFindDeviceClose(BluetoothDeviceFind search) {
    if (const auto close =
            BluetoothRoutine<decltype(&::BluetoothFindDeviceClose)>("BluetoothFindDeviceClose")) {
        close(Native(search));
    }
}

} // namespace VESK_BACK_END
