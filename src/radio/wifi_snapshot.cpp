#include "radio/wifi_snapshot.h"

#include "frame/host_buffer.h"
#include "frame/text.h"
#include "platform/com.h"
#include "platform/wlan.h"
#include "radio/link_rate.h"
#include "vesk_sondrel.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace sondrel {

WiFiRecord WiFiSnapshot;

namespace {

platform::Lock WiFiGuard;

constexpr std::u16string_view WiFiNameFailed = u"error_string";

/// By PHY type, from 1.
constexpr const char* PhyModes[] = {"FHSS", "DHSS",    "IR baseband", "OFDM",     "HRDSSS",
                                    "ERP",  "802.11n", "802.11ac",    "802.11ad", "802.11ax"};

const char* PhyModeOf(std::uint32_t phyType) {
    return phyType >= 1 && phyType <= std::size(PhyModes) ? PhyModes[phyType - 1] : "Other";
}

std::string VendorPrefix(const platform::MacAddress& bssid) {
    char text[128];
    FormatInto128(text, "%02X:%02X:%02X", bssid[0], bssid[1], bssid[2]);
    return text;
}

/// The name up to its first zero byte or the end of the field.
std::string_view NameOf(const platform::WlanSsid& ssid) {
    const std::size_t length = std::min<std::size_t>(ssid.length, ssid.bytes.size());
    const std::string_view name(reinterpret_cast<const char*>(ssid.bytes.data()), length);
    return name.substr(0, name.find('\0'));
}

void TraceInterfaceGuid(const platform::Guid& guid) {
    std::array<char16_t, 39> text{};
    TraceLine(platform::StringFromGUID2(guid, text) != 0 ? "[DLL][Wrieless]InterfaceGUID"
                                                         : "[DLL][Wrieless]StringFromGUID2 failed");
}

/// Signal and highest rate of the access point that the interface is connected to. False if the BSS list cannot
/// be read; a list without that access point is no failure.
bool ReadAccessPoint(platform::WlanClient client, const platform::Guid& guid,
                     const platform::WlanConnection& connection, WiFiRecord& snapshot) {
    std::vector<platform::WlanBssEntry> entries;
    if (platform::WlanGetNetworkBssList(client, guid, platform::wlan::InfrastructureNetworks, true,
                                        entries) != platform::error::Success) {
        return false;
    }
    const auto found = std::ranges::find_if(entries, [&](const platform::WlanBssEntry& entry) {
        return entry.bssid == connection.bssid && NameOf(entry.ssid) == NameOf(connection.ssid);
    });
    if (found != entries.end()) {
        snapshot.rssi = found->rssi;
        snapshot.maxRate = LinkRate(found->informationElements);
    }
    return true;
}

bool ReadLink(platform::WlanClient client, const platform::Guid& guid, WiFiRecord& snapshot) {
    std::optional<platform::WlanConnection> connection;
    if (platform::WlanQueryInterface(client, guid, platform::wlan::CurrentConnection, connection) !=
            platform::error::Success ||
        !connection) {
        return false;
    }
    snapshot.apMac = VendorPrefix(connection->bssid);
    snapshot.phyMode = PhyModeOf(connection->phyType);
    std::optional<std::uint32_t> channel;
    if (platform::WlanQueryInterface(client, guid, platform::wlan::ChannelNumber, channel) ==
            platform::error::Success &&
        channel) {
        snapshot.channel = static_cast<std::int32_t>(*channel);
    }
    return ReadAccessPoint(client, guid, *connection, snapshot);
}

bool ReadInterfaces(platform::OwnedWlanClient& client, WiFiRecord& snapshot) {
    const auto opened = platform::WlanOpenHandle(platform::wlan::ClientVersion, client.Receive());
    if (opened != platform::error::Success) {
        TraceLine([=] { return "WlanOpenHandle failed with error:" + std::to_string(opened); });
        return false;
    }
    std::vector<platform::WlanInterface> interfaces;
    const auto listed = platform::WlanEnumInterfaces(client.Get(), interfaces);
    if (listed != platform::error::Success) {
        TraceLine([=] { return "WlanEnumInterfaces failed with error:" + std::to_string(listed); });
        return false;
    }
    for (const platform::WlanInterface& interface : interfaces) {
        TraceInterfaceGuid(interface.guid);
        const bool connected = interface.state == platform::wlan::StateConnected;
        snapshot.cardName = interface.description;
        snapshot.connected = connected ? 1 : 0;
        if (connected && !ReadLink(client.Get(), interface.guid, snapshot)) {
            return false;
        }
    }
    return true;
}

WiFiRecord FailedRead() {
    return {.connected = RadioReadFailed,
            .cardName = std::u16string(WiFiNameFailed),
            .rssi = RadioReadFailed,
            .channel = RadioReadFailed,
            .phyMode = RadioReadFailedText,
            .apMac = RadioReadFailedText,
            .maxRate = RadioReadFailed,
            .valid = 0};
}

template <class Field>
Field WiFiField(Field WiFiRecord::*field, const char* exportName) {
    return SnapshotAnswer(WiFiGuard, WiFiSnapshot, RF_ReadWifi_Info, field, exportName);
}

} // namespace

void RF_ReadWifi_Info(WiFiRecord& snapshot) {
    TraceLine("RF_ReadWifi_Info Start");
    platform::OwnedWlanClient client;
    if (!ReadInterfaces(client, snapshot)) {
        snapshot = FailedRead();
        return;
    }
    TraceLine("RF_ReadWifi_Info End");
    snapshot.valid = 1;
}

std::u16string WiFiCardName() {
    return SnapshotField(WiFiGuard, WiFiSnapshot, RF_ReadWifi_Info, &WiFiRecord::cardName, "RF_WiFiCardName");
}

} // namespace sondrel

using namespace sondrel;

int32_t RF_WiFiIsConnected(void) {
    return WiFiField(&WiFiRecord::connected, "RF_WiFiIsConnected");
}

void RF_WiFiCardName(VeskChar16* out) {
    AnswerWith(out, sondrel::WiFiCardName, WiFiNameFailed);
}

int32_t RF_WiFiRssi(void) {
    return WiFiField(&WiFiRecord::rssi, "RF_WiFiRssi");
}

int32_t RF_WiFiChannel(void) {
    return WiFiField(&WiFiRecord::channel, "RF_WiFiChannel");
}

std::string RF_PhyMode() {
    return WiFiField(&WiFiRecord::phyMode, "RF_PhyMode");
}

void RF_AP_MAC(char* out) {
    CopyToHost(WiFiField(&WiFiRecord::apMac, "RF_AP_MAC"), out);
}

int32_t RF_WiFiMaxRate(void) {
    return WiFiField(&WiFiRecord::maxRate, "RF_WiFiMaxRate");
}
