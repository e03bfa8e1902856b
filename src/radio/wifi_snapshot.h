// The machine's Wi-Fi link at the time of the first successful read.
#pragma once

#include "radio/snapshot.h"

#include <cstdint>
#include <string>

namespace sondrel {

struct WiFiRecord {
    std::int32_t connected = RadioNotRead;
    std::u16string cardName = u"init_string";
    std::int32_t rssi = RadioNotRead; // dBm
    std::int32_t channel = RadioNotRead;
    std::string phyMode = RadioNotReadText;
    std::string apMac = RadioNotReadText; // the first three octets of the BSSID
    std::int32_t maxRate = RadioNotRead;  // Mbit/s
    std::uint8_t valid = 0;               // a read succeeded
};

/// The record of the process. The exports lock it while they use it.
extern WiFiRecord WiFiSnapshot;

/// Reads the link into the record. A field without a value in the system is unchanged; a failed read overwrites
/// all fields and leaves `valid` at 0. The client handle is closed at the end of every read.
void RF_ReadWifi_Info(WiFiRecord& snapshot);

/// The whole name of the card, as RF_WiFiCardName returns it.
std::u16string WiFiCardName();

} // namespace sondrel
