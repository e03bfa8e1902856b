#include "machine/models/beacon.h"

#include <algorithm>
#include <initializer_list>

namespace machine {
namespace {

// Element identifiers, table 9-92 of the standard.
constexpr std::uint8_t Ssid = 0;
constexpr std::uint8_t SupportedRates = 1;
constexpr std::uint8_t DsParameterSet = 3;
constexpr std::uint8_t HtCapabilities = 45;
constexpr std::uint8_t HtOperation = 61;
constexpr std::uint8_t VhtCapabilities = 191;
constexpr std::uint8_t VhtOperation = 192;
constexpr std::uint8_t Extension = 255;
constexpr std::uint8_t HeCapabilities = 35; // after Extension

using Bytes = std::vector<std::byte>;

class Element {
public:
    Element(Bytes& target, std::uint8_t id) : m_target(target), m_lengthAt(target.size() + 1) {
        Add({id, 0});
    }

    Element(const Element&) = delete;
    Element& operator=(const Element&) = delete;

    ~Element() { m_target[m_lengthAt] = static_cast<std::byte>(m_target.size() - m_lengthAt - 1); }

    Element& Add(std::initializer_list<std::uint8_t> bytes) {
        for (const std::uint8_t byte : bytes) {
            m_target.push_back(std::byte{byte});
        }
        return *this;
    }

    Element& Add(std::uint32_t value, unsigned octets) {
        for (unsigned octet = 0; octet < octets; ++octet) {
            m_target.push_back(static_cast<std::byte>(value >> (8 * octet)));
        }
        return *this;
    }

    Element& Zeros(std::size_t count) {
        m_target.resize(m_target.size() + count);
        return *this;
    }

private:
    Bytes& m_target;
    std::size_t m_lengthAt;
};

constexpr std::uint32_t Bit(unsigned number, bool set) {
    return set ? 1u << number : 0;
}

/// Capability information, A-MPDU parameters, supported MCS set, extended capabilities, beam forming, antenna
/// selection: 26 octets.
void AddHtCapabilities(Bytes& elements, const HtStation& ht) {
    constexpr std::uint32_t SmPowerSaveOff = 3u << 2;
    const std::uint32_t information = Bit(1, ht.forty) | SmPowerSaveOff | Bit(4, ht.greenfield) |
                                      Bit(5, ht.shortGuard20) | Bit(6, ht.shortGuard40);
    Element(elements, HtCapabilities).Add(information, 2).Add({0x17}).Add(ht.rates, 4).Zeros(12 + 2 + 4 + 1);
}

/// Primary channel, operation information, basic MCS set: 22 octets.
void AddHtOperation(Bytes& elements, const Beacon& beacon) {
    constexpr std::uint8_t SecondaryAbove = 0x01;
    constexpr std::uint8_t AnyWidth = 0x04;
    const std::uint8_t widths = beacon.ht->forty ? SecondaryAbove | AnyWidth : 0;
    Element(elements, HtOperation).Add({beacon.channel, widths}).Zeros(4 + 16);
}

/// Two bits for each of eight streams: 0, 1, 2 for the three highest MCS there are, 3 for no such stream.
std::uint32_t McsMap(const std::vector<std::uint8_t>& highestMcs,
                     std::initializer_list<std::uint8_t> choices) {
    std::uint32_t map = 0;
    for (unsigned stream = 0; stream < 8; ++stream) {
        const std::uint8_t highest = stream < highestMcs.size() ? highestMcs[stream] : 0;
        const auto choice = std::ranges::find(choices, highest) - choices.begin();
        map |= static_cast<std::uint32_t>(choice) << (2 * stream);
    }
    return map;
}

/// Capability information and supported MCS and NSS set: 12 octets.
void AddVhtCapabilities(Bytes& elements, const VhtStation& vht) {
    const std::uint32_t widthSet = vht.width == VhtWidth::Mhz80Plus80 ? 2
                                   : vht.width == VhtWidth::Mhz160    ? 1
                                                                      : 0;
    constexpr std::uint32_t LongestMpdu = 2;
    const std::uint32_t information =
        LongestMpdu | widthSet << 2 | Bit(4, vht.ldpc) | Bit(5, vht.shortGuard80) | Bit(6, vht.shortGuard160);
    const std::uint32_t map = McsMap(vht.highestMcs, {7, 8, 9});
    Element(elements, VhtCapabilities).Add(information, 4).Add(map, 2).Zeros(2).Add(map, 2).Zeros(2);
}

/// Channel width, two centre channels, basic MCS and NSS set: 5 octets.
void AddVhtOperation(Bytes& elements, const Beacon& beacon) {
    const auto centre = static_cast<std::uint8_t>(beacon.channel + 6);
    Element(elements, VhtOperation)
        .Add({static_cast<std::uint8_t>(beacon.vht->width), centre, 0})
        .Add(0xFFFC, 2);
}

/// MAC capabilities, PHY capabilities, supported MCS and NSS set for channels of up to 80 MHz.
void AddHeCapabilities(Bytes& elements, const HeStation& he) {
    const std::uint32_t map = McsMap(he.highestMcs, {7, 9, 11});
    Element(elements, Extension).Add({HeCapabilities}).Zeros(6 + 11).Add(map, 2).Add(map, 2);
}

} // namespace

std::vector<std::byte> EncodeElements(const Beacon& beacon) {
    Bytes elements;
    {
        Element name(elements, Ssid);
        for (const char character : beacon.ssid) {
            name.Add({static_cast<std::uint8_t>(character)});
        }
    }
    // 6 to 54 Mbit/s, the basic ones marked.
    Element(elements, SupportedRates).Add({0x8C, 0x12, 0x98, 0x24, 0xB0, 0x48, 0x60, 0x6C});
    Element(elements, DsParameterSet).Add({beacon.channel});
    if (beacon.ht) {
        AddHtCapabilities(elements, *beacon.ht);
        AddHtOperation(elements, beacon);
    }
    if (beacon.vht) {
        AddVhtCapabilities(elements, *beacon.vht);
        AddVhtOperation(elements, beacon);
    }
    if (beacon.he) {
        AddHeCapabilities(elements, *beacon.he);
    }
    return elements;
}

} // namespace machine
