#include "radio/link_rate.h"

#include <algorithm>

namespace sondrel {
namespace {

enum class Width : std::uint8_t { Mhz20, Mhz40, Mhz80, Mhz160, Mhz80Plus80 };

/// The result of all elements. Their order matters: a VHT operation element has an effect only if the width is
/// 40 MHz at that point.
struct Capabilities {
    Width width = Width::Mhz20;
    bool shortGuard = false;
    bool hasHt = false;
    bool hasVht = false;
    std::uint32_t htMcsSet = 0;
    std::uint16_t vhtMcsMap = 0;
};

std::uint32_t LittleEndian(std::span<const std::byte> bytes) {
    std::uint32_t number = 0;
    for (std::size_t index = bytes.size(); index-- != 0;) {
        number = number << 8 | std::to_integer<std::uint32_t>(bytes[index]);
    }
    return number;
}

constexpr bool Has(std::byte byte, unsigned mask) {
    return (std::to_integer<unsigned>(byte) & mask) != 0;
}

void ReadHtCapabilities(std::span<const std::byte> data, Capabilities& found) {
    found.hasHt = true;
    if (Has(data[0], 0x02)) {
        found.width = Width::Mhz40;
        found.shortGuard |= Has(data[0], 0x20);
    } else {
        found.shortGuard |= Has(data[0], 0x10);
    }
    found.htMcsSet = LittleEndian(data.subspan(3, 4));
}

void ReadHtOperation(std::span<const std::byte> data, Capabilities& found) {
    if (Has(data[0], 0x02)) {
        found.width = Width::Mhz40;
    }
}

void ReadVhtCapabilities(std::span<const std::byte> data, Capabilities& found) {
    found.hasVht = true;
    found.vhtMcsMap = static_cast<std::uint16_t>(LittleEndian(data.subspan(4, 2)));
    found.shortGuard |= Has(data[0], 0x30);
}

void ReadVhtOperation(std::span<const std::byte> data, Capabilities& found) {
    constexpr Width Widened[] = {Width::Mhz40, Width::Mhz80, Width::Mhz160, Width::Mhz80Plus80};
    const auto channelWidth = std::to_integer<std::size_t>(data[0]);
    if (found.width == Width::Mhz40 && channelWidth < std::size(Widened)) {
        found.width = Widened[channelWidth];
    }
}

struct ElementReader {
    std::uint8_t id;
    std::size_t minLength; // of the fields that `read` uses
    void (*read)(std::span<const std::byte> data, Capabilities& found);
};

constexpr ElementReader ElementReaders[] = {
    {45, 7, ReadHtCapabilities},
    {61, 1, ReadHtOperation},
    {191, 6, ReadVhtCapabilities},
    {192, 1, ReadVhtOperation},
};

Capabilities ReadElements(std::span<const std::byte> block) {
    constexpr std::size_t HeaderSize = 2; // id and length
    Capabilities found;
    while (block.size() >= HeaderSize) {
        const auto id = std::to_integer<std::uint8_t>(block[0]);
        const auto length = std::to_integer<std::size_t>(block[1]);
        block = block.subspan(HeaderSize);
        if (length > block.size()) {
            break;
        }
        const auto* reader = std::ranges::find(ElementReaders, id, &ElementReader::id);
        if (reader != std::end(ElementReaders) && length >= reader->minLength) {
            reader->read(block.first(length), found);
        }
        block = block.subspan(length);
    }
    return found;
}

/// Two bits for each stream: its highest MCS is 7, 8 or 9, or this stream and all after it are not supported.
std::int32_t HighestVhtRate(const Capabilities& found) {
    constexpr unsigned NoStream = 3;
    const auto width = static_cast<std::size_t>(found.width);
    if (width >= std::size(VhtRateTable[0])) {
        return 0;
    }
    std::int32_t highest = 0;
    for (std::size_t stream = 0; stream < std::size(VhtRateTable); ++stream) {
        const unsigned entry = found.vhtMcsMap >> (2 * stream) & 3u;
        if (entry == NoStream) {
            break;
        }
        highest = std::max<std::int32_t>(highest, VhtRateTable[stream][width][found.shortGuard][7 + entry]);
    }
    return highest;
}

std::int32_t HighestHtRate(const Capabilities& found) {
    const auto width = static_cast<std::size_t>(found.width);
    if (width >= std::size(HtRateTable)) {
        return 0;
    }
    const auto& rates = HtRateTable[width][found.shortGuard];
    std::int32_t highest = 0;
    for (std::size_t mcs = 0; mcs < std::size(rates); ++mcs) {
        if ((found.htMcsSet >> mcs & 1u) != 0) {
            highest = std::max<std::int32_t>(highest, rates[mcs]);
        }
    }
    return highest;
}

} // namespace

std::int32_t LinkRate(std::span<const std::byte> elements) {
    const Capabilities found = ReadElements(elements);
    if (found.hasVht) {
        return HighestVhtRate(found) / 2;
    }
    return found.hasHt ? HighestHtRate(found) / 2 : 0;
}

} // namespace sondrel
