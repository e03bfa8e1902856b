// What is open on the machine's radios, and how far each search has come.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>

namespace machine {

struct BluetoothDeviceCursor {
    std::size_t radio = 0;
    std::size_t next = 0;
};

struct Radios {
    std::set<std::uintptr_t> wlanClients;
    /// By handle: which radio it is.
    std::map<std::uintptr_t, std::size_t> bluetoothRadios;
    /// By search: the radio that comes next.
    std::map<std::uintptr_t, std::size_t> bluetoothRadioSearches;
    std::map<std::uintptr_t, BluetoothDeviceCursor> bluetoothDeviceSearches;
    /// How often the list of adapters has been looked at.
    std::size_t adapterLooks = 0;
};

} // namespace machine
