#include "platform/network_adapters.h"

#include "machine/machine.h"
#include "machine/profile/profile.h"
#include "machine/services/radios.h"
#include "observer/gate.h"
#include "platform/back_end.h"

#include <algorithm>
#include <span>

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;

namespace {

constexpr SystemError NoData = 232;
constexpr std::uint32_t RecordSize = 704; // IP_ADAPTER_INFO on 64 bits

} // namespace

SystemError GetAdaptersInfo(std::uint32_t& size, std::vector<NetworkAdapter>& adapters) {
    Call call(Operation::GetAdaptersInfo);
    call.Note([&] { return "size " + std::to_string(size); });
    adapters.clear();
    if (call.Refused()) {
        return call.Answered(call.RefusalCode());
    }
    const machine::NetworkProfile& network = Current().profile.network;
    const std::size_t arrived = std::min(Current().radios.adapterLooks++, network.arriving.size());
    const auto needed = static_cast<std::uint32_t>((network.adapters.size() + arrived) * RecordSize);
    if (needed == 0) {
        return call.Answered(NoData);
    }
    if (size < needed) {
        size = needed;
        call.Note([&] { return "needs " + std::to_string(needed); });
        return call.Answered(error::BufferOverflow);
    }
    for (const auto list : {std::span(network.adapters), std::span(network.arriving).first(arrived)}) {
        for (const machine::AdapterProfile& each : list) {
            adapters.push_back({each.index, each.type});
        }
    }
    return call.Answered(error::Success);
}

} // namespace VESK_BACK_END
