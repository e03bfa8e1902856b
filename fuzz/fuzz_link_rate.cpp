// The rate of any block whatever: no read outside it, a rate that the tables have, and no say for the part of
// the block that makes no whole element.
#include "radio/link_rate.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace {

using Block = std::vector<std::byte>;

std::int32_t RateOf(std::span<const std::byte> bytes) {
    // In memory of its exact size, so that the sanitizer sees a read behind it.
    const Block block(bytes.begin(), bytes.end());
    return sondrel::LinkRate(block);
}

std::size_t WholeElements(std::span<const std::byte> bytes) {
    std::size_t end = 0;
    while (bytes.size() - end >= 2) {
        const std::size_t next = end + 2 + std::to_integer<std::size_t>(bytes[end + 1]);
        if (next > bytes.size()) {
            break;
        }
        end = next;
    }
    return end;
}

bool IsTableRate(std::int32_t rate) {
    constexpr auto Begin = &sondrel::VhtRateTable[0][0][0][0];
    constexpr auto HtBegin = &sondrel::HtRateTable[0][0][0];
    const auto halved = [rate](std::uint16_t units) {
        return units / 2 == rate;
    };
    return rate == 0 || std::any_of(Begin, Begin + sizeof sondrel::VhtRateTable / sizeof *Begin, halved) ||
           std::any_of(HtBegin, HtBegin + sizeof sondrel::HtRateTable / sizeof *HtBegin, halved);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = std::as_bytes(std::span(data, size));
    const std::int32_t rate = RateOf(bytes);
    if (!IsTableRate(rate) || rate != RateOf(bytes.first(WholeElements(bytes)))) {
        std::abort();
    }
    return 0;
}
