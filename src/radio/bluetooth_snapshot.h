// The connected Bluetooth devices, as they were at the first read that went through.
#pragma once

#include "radio/snapshot.h"

#include <cstdint>
#include <string>

namespace sondrel {

struct BluetoothRecord {
    std::int32_t isUsed = RadioNotRead; // whether the radio searched last has a connected device
    std::int32_t connectedNum = RadioNotRead;
    std::string connectedType = RadioNotReadText; // one word with ";" behind it for each device
    std::uint8_t valid = 0;                       // a read went through
};

/// The process's record. The exports hold a lock of its own while they use it.
extern BluetoothRecord BluetoothSnapshot;

/// Reads the connected devices from the system into the record. A failed read leaves `valid` at 0.
void RF_ReadBT_Info(BluetoothRecord& snapshot);

} // namespace sondrel
