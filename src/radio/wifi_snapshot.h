// The machine's Wi-Fi link, as it was at the first read that went through.
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
    std::string apMac = RadioNotReadText; // the maker's half of the access point's address
    std::int32_t maxRate = RadioNotRead;  // Mbit/s
    std::uint8_t valid = 0;               // a read went through
};

/// The process's record. The exports hold a lock of its own while they use it.
extern WiFiRecord WiFiSnapshot;

/// Reads the link from the system into the record. A field that the machine has nothing for keeps what it had;
/// a failed read overwrites all of them and leaves `valid` at 0. The client handle is closed when the read is over,
/// whichever way it went.
void RF_ReadWifi_Info(WiFiRecord& snapshot);

/// The card's name, whole, as RF_WiFiCardName copies it out.
std::u16string WiFiCardName();

} // namespace sondrel
