// What is open on the machine's radios, and how far each search has come.
#pragma once

#include <cstddef>

namespace machine {

/// A radio that is open, by its place in the profile.
struct OpenBluetoothRadio {
    std::size_t radio;
};

struct BluetoothRadioSearch {
    std::size_t next; // radio
};

struct BluetoothDeviceSearchState {
    std::size_t radio = 0;
    std::size_t next = 0; // device
};

struct OpenWlanClient {};

} // namespace machine
