#include "platform/bluetooth.h"

#include "machine/machine.h"
#include "machine/models/radio_searches.h"
#include "machine/services/last_error.h"
#include "platform/back_end.h"

#include <algorithm>
#include <span>

namespace VESK_BACK_END {
namespace {

using machine::BluetoothDeviceSearchState;
using machine::BluetoothRadioSearch;
using machine::Machine;
using machine::OpenBluetoothRadio;

Handle OpenRadio(Machine& machine, std::size_t index) {
    return Handle{machine.handles.Open("Bluetooth radio", OpenBluetoothRadio{index})};
}

/// Moves the search past the next device that is connected. False at the end of the radio's devices.
bool Advance(const Machine& machine, BluetoothDeviceSearchState& search, BluetoothDevice& device) {
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
    radio = OpenRadio(*machine, 0);
    return BluetoothRadioFind{machine->handles.Open("Bluetooth radio search", BluetoothRadioSearch{1})};
}

bool BluetoothFindNextRadio(BluetoothRadioFind search, Handle& radio) {
    const auto machine = machine::Current();
    auto* const state = machine->handles.Find<BluetoothRadioSearch>(static_cast<std::uintptr_t>(search));
    if (state == nullptr || state->next >= machine->profile.bluetooth.radios.size()) {
        return machine::Succeed(state == nullptr ? error::InvalidHandle : error::NoMoreItems);
    }
    radio = OpenRadio(*machine, state->next++);
    return true;
}

void BluetoothFindRadioClose(BluetoothRadioFind search) {
    machine::Current()->handles.Close(static_cast<std::uintptr_t>(search));
}

SystemError BluetoothGetRadioInfo(Handle radio) {
    const auto machine = machine::Current();
    const auto* const open = machine->handles.Find<OpenBluetoothRadio>(static_cast<std::uintptr_t>(radio));
    return open == nullptr ? error::InvalidHandle : error::Success;
}

BluetoothDeviceFind BluetoothFindFirstDevice(const BluetoothDeviceSearch& parameters,
                                             BluetoothDevice& device) {
    const auto machine = machine::Current();
    const auto* const radio =
        machine->handles.Find<OpenBluetoothRadio>(static_cast<std::uintptr_t>(parameters.radio));
    if (radio == nullptr) {
        machine::SetLastError(error::InvalidHandle);
        return BluetoothDeviceFind::None;
    }
    BluetoothDeviceSearchState search{.radio = radio->radio};
    if (!parameters.returnConnected || !Advance(*machine, search, device)) {
        machine::SetLastError(error::NoMoreItems);
        return BluetoothDeviceFind::None;
    }
    return BluetoothDeviceFind{machine->handles.Open("Bluetooth device search", search)};
}

bool BluetoothFindNextDevice(BluetoothDeviceFind search, BluetoothDevice& device) {
    const auto machine = machine::Current();
    auto* const state =
        machine->handles.Find<BluetoothDeviceSearchState>(static_cast<std::uintptr_t>(search));
    if (state == nullptr) {
        return machine::Succeed(error::InvalidHandle);
    }
    return machine::Succeed(Advance(*machine, *state, device) ? error::Success : error::NoMoreItems);
}

void BluetoothFindDeviceClose(BluetoothDeviceFind search) {
    machine::Current()->handles.Close(static_cast<std::uintptr_t>(search));
}

} // namespace VESK_BACK_END
