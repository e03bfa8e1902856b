// The connected Bluetooth devices at the time of the first successful read.
#pragma once

#include "radio/snapshot.h"

#include <cstdint>
#include <string>

namespace sondrel {

struct BluetoothRecord {
    std::int32_t isUsed = RadioNotRead; // whether the radio searched last has a connected device
    std::int32_t connectedNum = RadioNotRead;
    std::string connectedType = RadioNotReadText; // one word and ";" for each device
    std::uint8_t valid = 0;                       // a read succeeded
};

/// The record of the process. The exports lock it while they use it.
extern BluetoothRecord BluetoothSnapshot;

/// Reads the connected devices into the record. A failed read leaves `valid` at 0.
void RF_ReadBT_Info(BluetoothRecord& snapshot);

} // namespace sondrel
