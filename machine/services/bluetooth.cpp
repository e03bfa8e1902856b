#include "platform/bluetooth.h"

#include "machine/machine.h"
#include "machine/profile/profile.h"
#include "machine/services/radios.h"
#include "observer/gate.h"
#include "platform/back_end.h"

#include <algorithm>
#include <span>

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;

namespace {

const std::vector<machine::BluetoothRadio>& AllRadios() {
    return Current().profile.bluetooth.radios;
}

Handle OpenRadio(std::size_t index) {
    const std::uintptr_t number = Current().gate.Opened("Bluetooth radio " + AllRadios()[index].name);
    Current().radios.bluetoothRadios[number] = index;
    return Handle{number};
}

/// Moves the cursor behind the next device that is connected. False at the end of the radio's devices.
bool Advance(machine::BluetoothDeviceCursor& cursor, BluetoothDevice& device) {
    const auto rest = std::span(AllRadios()[cursor.radio].devices).subspan(cursor.next);
    const auto found = std::ranges::find(rest, true, &machine::BluetoothPeer::connected);
    cursor.next += static_cast<std::size_t>(found - rest.begin());
    if (found == rest.end()) {
        return false;
    }
    ++cursor.next;
    device.classOfDevice = found->classOfDevice;
    return true;
}

} // namespace

BluetoothRadioFind BluetoothFindFirstRadio(Handle& radio) {
    Call call(Operation::BluetoothFindFirstRadio);
    if (!Current().profile.bluetooth.supported || call.Refused() || AllRadios().empty()) {
        machine::SetLastError(!Current().profile.bluetooth.supported ? error::ModuleNotFound
                              : call.Refused()                       ? call.RefusalCode()
                                                                     : error::NoMoreItems);
        return call.Answered(BluetoothRadioFind::None);
    }
    radio = OpenRadio(0);
    const std::uintptr_t number = Current().gate.Opened("Bluetooth radio search");
    Current().radios.bluetoothRadioSearches[number] = 1;
    return call.Answered(BluetoothRadioFind{number});
}

bool BluetoothFindNextRadio(BluetoothRadioFind search, Handle& radio) {
    Call call(Operation::BluetoothFindNextRadio);
    auto& searches = Current().radios.bluetoothRadioSearches;
    const auto cursor = searches.find(static_cast<std::uintptr_t>(search));
    if (cursor == searches.end() || call.Refused() || cursor->second >= AllRadios().size()) {
        machine::SetLastError(cursor == searches.end() ? error::InvalidHandle
                              : call.Refused()         ? call.RefusalCode()
                                                       : error::NoMoreItems);
        return call.Answered(false);
    }
    radio = OpenRadio(cursor->second++);
    return call.Answered(true);
}

void BluetoothFindRadioClose(BluetoothRadioFind search) {
    const Call call(Operation::BluetoothFindRadioClose);
    const auto number = static_cast<std::uintptr_t>(search);
    Current().gate.Closed(number);
    Current().radios.bluetoothRadioSearches.erase(number);
}

SystemError BluetoothGetRadioInfo(Handle radio) {
    Call call(Operation::BluetoothGetRadioInfo);
    if (!Current().radios.bluetoothRadios.contains(static_cast<std::uintptr_t>(radio))) {
        return call.Answered(error::InvalidHandle);
    }
    return call.Answered(call.Refused() ? call.RefusalCode() : error::Success);
}

BluetoothDeviceFind BluetoothFindFirstDevice(const BluetoothDeviceSearch& parameters,
                                             BluetoothDevice& device) {
    Call call(Operation::BluetoothFindFirstDevice);
    call.Note([&] {
        return std::string("authenticated ") + (parameters.returnAuthenticated ? '1' : '0') + " remembered " +
               (parameters.returnRemembered ? '1' : '0') + " unknown " +
               (parameters.returnUnknown ? '1' : '0') + " connected " +
               (parameters.returnConnected ? '1' : '0') + " inquiry " + (parameters.issueInquiry ? '1' : '0');
    });
    const auto& radios = Current().radios.bluetoothRadios;
    const auto radio = radios.find(static_cast<std::uintptr_t>(parameters.radio));
    if (radio == radios.end() || call.Refused()) {
        machine::SetLastError(radio == radios.end() ? error::InvalidHandle : call.RefusalCode());
        return call.Answered(BluetoothDeviceFind::None);
    }
    machine::BluetoothDeviceCursor cursor{.radio = radio->second};
    if (!parameters.returnConnected || !Advance(cursor, device)) {
        machine::SetLastError(error::NoMoreItems);
        return call.Answered(BluetoothDeviceFind::None);
    }
    const std::uintptr_t number = Current().gate.Opened("Bluetooth device search");
    Current().radios.bluetoothDeviceSearches[number] = cursor;
    return call.Answered(BluetoothDeviceFind{number});
}

bool BluetoothFindNextDevice(BluetoothDeviceFind search, BluetoothDevice& device) {
    Call call(Operation::BluetoothFindNextDevice);
    auto& searches = Current().radios.bluetoothDeviceSearches;
    const auto cursor = searches.find(static_cast<std::uintptr_t>(search));
    if (cursor == searches.end() || call.Refused()) {
        machine::SetLastError(cursor == searches.end() ? error::InvalidHandle : call.RefusalCode());
        return call.Answered(false);
    }
    const bool found = Advance(cursor->second, device);
    machine::SetLastError(found ? error::Success : error::NoMoreItems);
    return call.Answered(found);
}

void BluetoothFindDeviceClose(BluetoothDeviceFind search) {
    const Call call(Operation::BluetoothFindDeviceClose);
    const auto number = static_cast<std::uintptr_t>(search);
    Current().gate.Closed(number);
    Current().radios.bluetoothDeviceSearches.erase(number);
}

} // namespace VESK_BACK_END
