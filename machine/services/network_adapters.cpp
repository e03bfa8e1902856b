#include "platform/network_adapters.h"

#include "machine/machine.h"
#include "platform/back_end.h"

#include <algorithm>
#include <span>

namespace VESK_BACK_END {
namespace {

constexpr SystemError NoData = 232;
constexpr std::uint32_t RecordSize = 704; // IP_ADAPTER_INFO on 64 bits

} // namespace

SystemError GetAdaptersInfo(std::uint32_t& size, std::vector<NetworkAdapter>& adapters) {
    const auto machine = machine::Current();
    adapters.clear();
    const machine::NetworkProfile& network = machine->profile.network;
    const std::size_t arrived = std::min(machine->adapterListings++, network.arriving.size());
    const auto needed = static_cast<std::uint32_t>((network.adapters.size() + arrived) * RecordSize);
    if (needed == 0) {
        return NoData;
    }
    if (size < needed) {
        size = needed;
        return error::BufferOverflow;
    }
    for (const auto list : {std::span(network.adapters), std::span(network.arriving).first(arrived)}) {
        for (const machine::AdapterProfile& each : list) {
            adapters.push_back({each.index, each.type});
        }
    }
    return error::Success;
}

} // namespace VESK_BACK_END
