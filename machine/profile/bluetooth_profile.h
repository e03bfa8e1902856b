// A machine's Bluetooth: its radios, and the devices that each of them knows.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace machine {

class ProfileReader;

struct BluetoothPeer {
    std::string name;
    std::uint32_t classOfDevice = 0;
    bool connected = true; // else paired and out of reach
};

struct BluetoothRadio {
    std::string name;
    std::vector<BluetoothPeer> devices;
};

struct BluetoothProfile {
    bool supported = true; // whether the system has the Bluetooth library at all
    std::vector<BluetoothRadio> radios;
};

BluetoothProfile ReadBluetooth(ProfileReader reader);

} // namespace machine
