#include "platform/wlan.h"

#include "machine/machine.h"
#include "machine/models/beacon.h"
#include "platform/back_end.h"

#include <algorithm>

namespace VESK_BACK_END {
namespace {

using machine::Machine;
using machine::WifiInterface;

constexpr SystemError ServiceNotActive = 1062;
constexpr SystemError NotSupported = 50;
constexpr SystemError NoSuchInterface = 1168;
constexpr SystemError InvalidState = 5023;

struct OpenClient {};

WlanSsid NativeSsid(const std::string& name) {
    WlanSsid ssid{.length = static_cast<std::uint32_t>(name.size())};
    std::ranges::transform(name, ssid.bytes.begin(),
                           [](char character) { return static_cast<std::uint8_t>(character); });
    return ssid;
}

bool IsOpen(Machine& machine, WlanClient client) {
    return machine.handles.Find<OpenClient>(client) != nullptr;
}

/// The interface that is asked about, or why it cannot be.
struct Target {
    SystemError status = error::Success;
    const WifiInterface* interface = nullptr;
};

Target TargetOf(Machine& machine, WlanClient client, const Guid& guid) {
    if (!IsOpen(machine, client)) {
        return {.status = error::InvalidHandle};
    }
    const auto& interfaces = machine.profile.wifi.interfaces;
    const auto found = std::ranges::find(interfaces, guid, &WifiInterface::guid);
    if (found == interfaces.end()) {
        return {.status = NoSuchInterface};
    }
    return {.interface = &*found};
}

} // namespace

SystemError WlanOpenHandle(std::uint32_t, WlanClient& client) {
    const auto machine = machine::Current();
    switch (machine->profile.wifi.service) {
    case machine::WifiService::Missing:
        return error::ModuleNotFound;
    case machine::WifiService::Stopped:
        return ServiceNotActive;
    case machine::WifiService::Running:
        break;
    }
    client = machine->handles.Open<WlanClient>(OpenClient{});
    return error::Success;
}

void WlanCloseHandle(WlanClient client) {
    machine::Current()->handles.Close(client);
}

SystemError WlanEnumInterfaces(WlanClient client, std::vector<WlanInterface>& interfaces) {
    const auto machine = machine::Current();
    interfaces.clear();
    if (!IsOpen(*machine, client)) {
        return error::InvalidHandle;
    }
    for (const WifiInterface& each : machine->profile.wifi.interfaces) {
        interfaces.push_back({each.guid, each.description, each.state});
    }
    return error::Success;
}

SystemError WlanQueryInterface(WlanClient client, const Guid& interfaceGuid, std::uint32_t opcode,
                               std::optional<WlanConnection>& connection) {
    const auto machine = machine::Current();
    connection.reset();
    const Target target = TargetOf(*machine, client, interfaceGuid);
    if (target.interface == nullptr) {
        return target.status;
    }
    if (opcode != wlan::CurrentConnection || target.interface->state != wlan::StateConnected) {
        return InvalidState;
    }
    const machine::WifiConnection& present = target.interface->connection;
    connection = {NativeSsid(present.ssid), present.bssid, present.phyType};
    return error::Success;
}

SystemError WlanQueryInterface(WlanClient client, const Guid& interfaceGuid, std::uint32_t opcode,
                               std::optional<std::uint32_t>& number) {
    const auto machine = machine::Current();
    number.reset();
    const Target target = TargetOf(*machine, client, interfaceGuid);
    if (target.interface == nullptr) {
        return target.status;
    }
    if (opcode != wlan::ChannelNumber || !target.interface->channel) {
        return NotSupported;
    }
    number = target.interface->channel;
    return error::Success;
}

SystemError WlanGetNetworkBssList(WlanClient client, const Guid& interfaceGuid, std::uint32_t, bool,
                                  std::vector<WlanBssEntry>& entries) {
    const auto machine = machine::Current();
    entries.clear();
    const Target target = TargetOf(*machine, client, interfaceGuid);
    if (target.interface == nullptr) {
        return target.status;
    }
    for (const machine::AccessPoint& point : target.interface->accessPoints) {
        entries.push_back({NativeSsid(point.beacon.ssid), point.bssid, point.rssi,
                           point.rawElements ? *point.rawElements : machine::EncodeElements(point.beacon)});
    }
    return error::Success;
}

} // namespace VESK_BACK_END
