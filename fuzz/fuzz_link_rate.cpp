// The rate of any block whatever: no read outside it, a rate that the tables have, and no say for the part of
// the block that makes no whole element.
#include "harness.h"

#include "radio/link_rate.h"

namespace {

std::int32_t RateOf(std::span<const std::byte> bytes) {
    // In memory of its exact size, so that the sanitizer sees a read after it.
    const std::vector<std::byte> block(bytes.begin(), bytes.end());
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
    const auto has = [rate](const std::uint16_t* first, std::size_t size) {
        return std::any_of(first, first + size / sizeof *first,
                           [rate](auto units) { return units / 2 == rate; });
    };
    return rate == 0 || has(&sondrel::VhtRateTable[0][0][0][0], sizeof sondrel::VhtRateTable) ||
           has(&sondrel::HtRateTable[0][0][0], sizeof sondrel::HtRateTable);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = std::as_bytes(std::span(data, size));
    const std::int32_t rate = RateOf(bytes);
    fuzz::Demand(IsTableRate(rate) && rate == RateOf(bytes.first(WholeElements(bytes))));
    return 0;
}
