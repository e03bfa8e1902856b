#include "platform/wlan.h"

#include "machine/machine.h"
#include "machine/profile/profile.h"
#include "machine/services/radios.h"
#include "machine/text/wide_text.h"
#include "observer/gate.h"
#include "platform/back_end.h"

#include <algorithm>

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;

namespace {

constexpr SystemError ServiceNotActive = 1062;
constexpr SystemError NotSupported = 50;
constexpr SystemError NoSuchInterface = 1168;
constexpr SystemError InvalidState = 5023;

WlanSsid NativeSsid(const std::string& name) {
    WlanSsid ssid{.length = static_cast<std::uint32_t>(name.size())};
    std::ranges::transform(name, ssid.bytes.begin(),
                           [](char character) { return static_cast<std::uint8_t>(character); });
    return ssid;
}

/// The interface, and what a call on it answers before it is looked at.
struct Target {
    SystemError status = error::Success;
    const machine::WifiInterface* interface = nullptr;
};

Target Aim(const Call& call, WlanClient client, const Guid& guid) {
    if (!Current().radios.wlanClients.contains(static_cast<std::uintptr_t>(client))) {
        return {.status = error::InvalidHandle};
    }
    if (call.Refused()) {
        return {.status = call.RefusalCode()};
    }
    const auto& interfaces = Current().profile.wifi.interfaces;
    const auto found = std::ranges::find(interfaces, guid, &machine::WifiInterface::guid);
    if (found == interfaces.end()) {
        return {.status = NoSuchInterface};
    }
    return {.interface = &*found};
}

} // namespace

SystemError WlanOpenHandle(std::uint32_t clientVersion, WlanClient& client) {
    Call call(Operation::WlanOpenHandle);
    call.Note([&] { return "version " + std::to_string(clientVersion); });
    switch (Current().profile.wifi.service) {
    case machine::WifiService::Missing:
        return call.Answered(error::ModuleNotFound);
    case machine::WifiService::Stopped:
        return call.Answered(ServiceNotActive);
    case machine::WifiService::Running:
        break;
    }
    if (call.Refused()) {
        return call.Answered(call.RefusalCode());
    }
    const std::uintptr_t number = Current().gate.Opened("WLAN client");
    Current().radios.wlanClients.insert(number);
    client = WlanClient{number};
    return call.Answered(error::Success);
}

void WlanCloseHandle(WlanClient client) {
    Call call(Operation::WlanCloseHandle);
    const auto number = static_cast<std::uintptr_t>(client);
    Current().gate.Closed(number);
    Current().radios.wlanClients.erase(number);
}

SystemError WlanEnumInterfaces(WlanClient client, std::vector<WlanInterface>& interfaces) {
    Call call(Operation::WlanEnumInterfaces);
    interfaces.clear();
    if (!Current().radios.wlanClients.contains(static_cast<std::uintptr_t>(client))) {
        return call.Answered(error::InvalidHandle);
    }
    if (call.Refused()) {
        return call.Answered(call.RefusalCode());
    }
    if (!call.Emptied()) {
        for (const machine::WifiInterface& each : Current().profile.wifi.interfaces) {
            interfaces.push_back({each.guid, each.description, each.state});
        }
    }
    return call.Answered(error::Success);
}

SystemError WlanQueryInterface(WlanClient client, const Guid& interfaceGuid, std::uint32_t opcode,
                               std::optional<WlanConnection>& connection) {
    Call call(Operation::WlanQueryInterface);
    call.Note([&] { return "opcode " + std::to_string(opcode); });
    connection.reset();
    const Target target = Aim(call, client, interfaceGuid);
    if (target.interface == nullptr) {
        return call.Answered(target.status);
    }
    if (opcode != wlan::CurrentConnection || target.interface->state != wlan::StateConnected) {
        return call.Answered(InvalidState);
    }
    if (!call.Emptied()) {
        const machine::WifiConnection& present = target.interface->connection;
        connection = {NativeSsid(present.ssid), present.bssid, present.phyType};
    }
    return call.Answered(error::Success);
}

SystemError WlanQueryInterface(WlanClient client, const Guid& interfaceGuid, std::uint32_t opcode,
                               std::optional<std::uint32_t>& number) {
    Call call(Operation::WlanQueryInterface);
    call.Note([&] { return "opcode " + std::to_string(opcode); });
    number.reset();
    const Target target = Aim(call, client, interfaceGuid);
    if (target.interface == nullptr) {
        return call.Answered(target.status);
    }
    if (opcode != wlan::ChannelNumber || !target.interface->channel) {
        return call.Answered(NotSupported);
    }
    if (!call.Emptied()) {
        number = target.interface->channel;
    }
    return call.Answered(error::Success);
}

SystemError WlanGetNetworkBssList(WlanClient client, const Guid& interfaceGuid, std::uint32_t bssType,
                                  bool securityEnabled, std::vector<WlanBssEntry>& entries) {
    Call call(Operation::WlanGetNetworkBssList);
    call.Note([&] {
        return "type " + std::to_string(bssType) + " security " + std::to_string(securityEnabled ? 1 : 0);
    });
    entries.clear();
    const Target target = Aim(call, client, interfaceGuid);
    if (target.interface == nullptr) {
        return call.Answered(target.status);
    }
    if (!call.Emptied()) {
        for (const machine::AccessPoint& point : target.interface->accessPoints) {
            entries.push_back(
                {NativeSsid(point.beacon.ssid), point.bssid, point.rssi,
                 point.rawElements ? *point.rawElements : machine::EncodeElements(point.beacon)});
        }
    }
    return call.Answered(error::Success);
}

} // namespace VESK_BACK_END
