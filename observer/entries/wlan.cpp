#include "platform/wlan.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

namespace {

/// Of the two that are overloaded by what is asked for.
constexpr auto Query = [](WlanClient client, const Guid& interfaceGuid, std::uint32_t opcode, auto& answer) {
    return back_end::WlanQueryInterface(client, interfaceGuid, opcode, answer);
};

} // namespace

SystemError WlanOpenHandle(std::uint32_t clientVersion, WlanClient& client) {
    return Observe<Operation::WlanOpenHandle>(back_end::WlanOpenHandle, In("version", clientVersion),
                                              Opens("client", client));
}

void WlanCloseHandle(WlanClient client) {
    Observe<Operation::WlanCloseHandle>(back_end::WlanCloseHandle, Closes("client", client));
}

SystemError WlanEnumInterfaces(WlanClient client, std::vector<WlanInterface>& interfaces) {
    return Observe<Operation::WlanEnumInterfaces>(back_end::WlanEnumInterfaces, In("client", client),
                                                  OutAlways("interfaces", interfaces));
}

SystemError WlanQueryInterface(WlanClient client, const Guid& interfaceGuid, std::uint32_t opcode,
                               std::optional<WlanConnection>& connection) {
    return Observe<Operation::WlanQueryInterface>(Query, In("client", client), In("interface", interfaceGuid),
                                                  In("opcode", opcode), OutAlways("connection", connection));
}

SystemError WlanQueryInterface(WlanClient client, const Guid& interfaceGuid, std::uint32_t opcode,
                               std::optional<std::uint32_t>& number) {
    return Observe<Operation::WlanQueryInterface>(Query, In("client", client), In("interface", interfaceGuid),
                                                  In("opcode", opcode), OutAlways("number", number));
}

SystemError WlanGetNetworkBssList(WlanClient client, const Guid& interfaceGuid, std::uint32_t bssType,
                                  bool securityEnabled, std::vector<WlanBssEntry>& entries) {
    return Observe<Operation::WlanGetNetworkBssList>(
        back_end::WlanGetNetworkBssList, In("client", client), In("interface", interfaceGuid),
        In("type", bssType), In("security", securityEnabled), OutAlways("entries", entries));
}

} // namespace platform
