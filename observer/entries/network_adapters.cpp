#include "platform/network_adapters.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

SystemError GetAdaptersInfo(std::uint32_t& size, std::vector<NetworkAdapter>& adapters) {
    return Observe<Operation::GetAdaptersInfo>(back_end::GetAdaptersInfo, InOut("size", size),
                                               OutAlways("adapters", adapters));
}

} // namespace platform
