// The information elements of an access point's beacon, in the terms of IEEE 802.11.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace machine {

/// A channel's width. The numbers are those of the VHT operation element, where 0 stands for both 20 and 40 MHz.
enum class VhtWidth : std::uint8_t { UpTo40, Mhz80, Mhz160, Mhz80Plus80 };

/// High throughput, 802.11n.
struct HtStation {
    bool present = false;
    bool forty = false; // 20/40 MHz channels, else 20 MHz alone
    bool greenfield = false;
    bool shortGuard20 = false;
    bool shortGuard40 = false;
    std::uint32_t rates = 0; // one bit for each MCS it receives
};

/// Very high throughput, 802.11ac.
struct VhtStation {
    bool present = false;
    VhtWidth width = VhtWidth::UpTo40;
    bool ldpc = false;
    bool shortGuard80 = false;
    bool shortGuard160 = false;
    std::vector<std::uint8_t> highestMcs; // by stream: 7, 8 or 9; 0 for a stream it does not receive
};

/// High efficiency, 802.11ax.
struct HeStation {
    bool present = false;
    std::vector<std::uint8_t> highestMcs; // by stream: 7, 9 or 11
};

struct Beacon {
    std::string ssid;
    std::uint8_t channel = 1;
    HtStation ht;
    VhtStation vht;
    HeStation he;
};

/// The elements in the order in which a beacon carries them.
std::vector<std::byte> EncodeElements(const Beacon& beacon);

} // namespace machine
