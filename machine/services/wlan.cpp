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

/// The interface that is asked for; null with `status` set.
const WifiInterface* Find(Machine& machine, WlanClient client, const Guid& guid, SystemError& status) {
    const auto& interfaces = machine.profile.wifi.interfaces;
    const auto found = std::ranges::find(interfaces, guid, &WifiInterface::guid);
    const bool isOpen = machine.handles.Find<OpenClient>(client) != nullptr;
    status = !isOpen ? error::InvalidHandle : found == interfaces.end() ? NoSuchInterface : error::Success;
    return status == error::Success ? &*found : nullptr;
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
    if (machine->handles.Find<OpenClient>(client) == nullptr) {
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
    SystemError status = error::Success;
    const WifiInterface* const interface = Find(*machine, client, interfaceGuid, status);
    if (interface == nullptr) {
        return status;
    }
    if (opcode != wlan::CurrentConnection || interface->state != wlan::StateConnected) {
        return InvalidState;
    }
    const machine::WifiConnection& present = interface->connection;
    connection = {NativeSsid(present.ssid), present.bssid, present.phyType};
    return error::Success;
}

SystemError WlanQueryInterface(WlanClient client, const Guid& interfaceGuid, std::uint32_t opcode,
                               std::optional<std::uint32_t>& number) {
    const auto machine = machine::Current();
    number.reset();
    SystemError status = error::Success;
    const WifiInterface* const interface = Find(*machine, client, interfaceGuid, status);
    if (interface == nullptr) {
        return status;
    }
    if (opcode != wlan::ChannelNumber || !interface->channel) {
        return NotSupported;
    }
    number = interface->channel;
    return error::Success;
}

SystemError WlanGetNetworkBssList(WlanClient client, const Guid& interfaceGuid, std::uint32_t, bool,
                                  std::vector<WlanBssEntry>& entries) {
    const auto machine = machine::Current();
    entries.clear();
    SystemError status = error::Success;
    const WifiInterface* const interface = Find(*machine, client, interfaceGuid, status);
    if (interface == nullptr) {
        return status;
    }
    for (const machine::AccessPoint& point : interface->accessPoints) {
        entries.push_back({NativeSsid(point.beacon.ssid), point.bssid, point.rssi,
                           point.rawElements ? *point.rawElements : machine::EncodeElements(point.beacon)});
    }
    return error::Success;
}

} // namespace VESK_BACK_END
