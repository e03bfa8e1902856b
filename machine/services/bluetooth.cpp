#include "platform/bluetooth.h"

#include "machine/machine.h"
#include "machine/services/last_error.h"
#include "platform/back_end.h"

#include <algorithm>
#include <span>

namespace VESK_BACK_END {
namespace {

using machine::Machine;

/// A radio that is open, by its place in the profile.
struct OpenRadio {
    std::size_t place;
};

struct RadioSearch {
    std::size_t next; // radio
};

struct DeviceSearch {
    std::size_t radio;
    std::size_t next; // device
};

/// Moves the search past the next device that is connected. False at the end of the radio's devices.
bool Advance(const Machine& machine, DeviceSearch& search, BluetoothDevice& device) {
    const auto rest = std::span(machine.profile.bluetooth.radios[search.radio].devices).subspan(search.next);
    const auto found = std::ranges::find(rest, true, &machine::BluetoothPeer::connected);
    search.next += static_cast<std::size_t>(found - rest.begin());
    if (found == rest.end()) {
        return false;
    }
    ++search.next;
    device.classOfDevice = found->classOfDevice;
    return true;
}

} // namespace

BluetoothRadioFind BluetoothFindFirstRadio(Handle& radio) {
    const auto machine = machine::Current();
    const auto& bluetooth = machine->profile.bluetooth;
    if (!bluetooth.supported || bluetooth.radios.empty()) {
        machine::SetLastError(bluetooth.supported ? error::NoMoreItems : error::ModuleNotFound);
        return BluetoothRadioFind::None;
    }
    radio = machine->handles.Open<Handle>(OpenRadio{0});
    return machine->handles.Open<BluetoothRadioFind>(RadioSearch{1});
}

bool BluetoothFindNextRadio(BluetoothRadioFind search, Handle& radio) {
    const auto machine = machine::Current();
    auto* const state = machine->handles.Find<RadioSearch>(search);
    if (state == nullptr || state->next >= machine->profile.bluetooth.radios.size()) {
        return machine::Succeed(state == nullptr ? error::InvalidHandle : error::NoMoreItems);
    }
    radio = machine->handles.Open<Handle>(OpenRadio{state->next++});
    return true;
}

void BluetoothFindRadioClose(BluetoothRadioFind search) {
    machine::Current()->handles.Close(search);
}

SystemError BluetoothGetRadioInfo(Handle radio) {
    const auto machine = machine::Current();
    const auto* const open = machine->handles.Find<OpenRadio>(radio);
    return open == nullptr ? error::InvalidHandle : error::Success;
}

BluetoothDeviceFind BluetoothFindFirstDevice(const BluetoothDeviceSearch& parameters,
                                             BluetoothDevice& device) {
    const auto machine = machine::Current();
    const auto* const radio = machine->handles.Find<OpenRadio>(parameters.radio);
    if (radio == nullptr) {
        machine::SetLastError(error::InvalidHandle);
        return BluetoothDeviceFind::None;
    }
    DeviceSearch search{radio->place, 0};
    if (!parameters.returnConnected || !Advance(*machine, search, device)) {
        machine::SetLastError(error::NoMoreItems);
        return BluetoothDeviceFind::None;
    }
    return machine->handles.Open<BluetoothDeviceFind>(search);
}

bool BluetoothFindNextDevice(BluetoothDeviceFind search, BluetoothDevice& device) {
    const auto machine = machine::Current();
    auto* const state = machine->handles.Find<DeviceSearch>(search);
    if (state == nullptr) {
        return machine::Succeed(error::InvalidHandle);
    }
    return machine::Succeed(Advance(*machine, *state, device) ? error::Success : error::NoMoreItems);
}

void BluetoothFindDeviceClose(BluetoothDeviceFind search) {
    machine::Current()->handles.Close(search);
}

} // namespace VESK_BACK_END
