#include "profiles/sections.h"

#include <algorithm>
#include <cstdio>

namespace tool {
namespace {

using observer::Bytes;
using observer::Operation;
using observer::RecordedCall;
using observer::RecordedExport;
using observer::Structure;

/// Two digits for each byte, with colons.
std::string AddressOf(const Bytes& bytes) {
    std::string text;
    for (std::size_t place = 0; place < bytes.size(); ++place) {
        text.append(place == 0 ? "" : ":").append(HexOf({bytes[place]}));
    }
    return text;
}

std::string GuidText(const platform::Guid& guid) {
    char text[40] = "";
    std::snprintf(text, sizeof text, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}", guid.data1,
                  guid.data2, guid.data3, guid.data4[0], guid.data4[1], guid.data4[2], guid.data4[3],
                  guid.data4[4], guid.data4[5], guid.data4[6], guid.data4[7]);
    return text;
}

/// Nothing for a name that is not UTF-8, or of a length that no name has.
std::optional<std::string> SsidIn(const Structure& fields) {
    const auto* const bytes = Held<Bytes>(fields, "ssid");
    if (bytes == nullptr) {
        return std::nullopt;
    }
    std::string name(reinterpret_cast<const char*>(bytes->data()), bytes->size());
    return IsUtf8(name) ? std::optional(std::move(name)) : std::nullopt;
}

void AddAdapters(const RecordedExport& recorded, ProfileJson& profile, LeftOut& leftOut) {
    constexpr std::pair<std::int64_t, const char*> Types[] = {
        {6, "ethernet"}, {23, "ppp"}, {24, "loopback"}, {71, "wireless"}, {131, "tunnel"}, {243, "mobile"}};
    for (const RecordedCall& call : recorded.calls) {
        if (call.operation != Operation::GetAdaptersInfo || HasFailed(call)) {
            continue;
        }
        ProfileJson adapters = ProfileJson::array();
        for (const observer::Value& adapter : ListIn(call.outputs, "adapters")) {
            const auto* const fields = std::get_if<Structure>(&adapter.held);
            const auto* const type = fields == nullptr
                                         ? std::end(Types)
                                         : std::ranges::find(Types, NumberIn(*fields, "type"),
                                                             &std::pair<std::int64_t, const char*>::first);
            if (type == std::end(Types)) {
                leftOut.Add(recorded.name, "a network adapter of a type that a profile has not");
            } else {
                adapters.push_back({{"index", NumberIn(*fields, "index")}, {"type", type->second}});
            }
        }
        ProfileJson& known = profile["network"]["adapters"];
        if (known.is_null()) {
            known = std::move(adapters);
        } else if (known != adapters) {
            leftOut.Add(recorded.name, "the network adapters were other ones before");
        }
    }
}

/// The interfaces as one reading saw them.
class WirelessInterfaces {
public:
    WirelessInterfaces(const RecordedExport& recorded, LeftOut& leftOut)
        : m_recorded(recorded), m_leftOut(leftOut) {
        for (const RecordedCall& call : recorded.calls) {
            AddCall(call);
        }
    }

    [[nodiscard]] const ProfileJson& Section() const { return m_section; }

private:
    void AddCall(const RecordedCall& call) {
        constexpr std::uint32_t ServiceMissing = 126;
        constexpr std::uint32_t ServiceStopped = 1062;
        if (HasFailed(call)) {
            if (call.operation == Operation::WlanOpenHandle) {
                m_section["service"] = FailureOf(call) == ServiceMissing   ? "missing"
                                       : FailureOf(call) == ServiceStopped ? "stopped"
                                                                           : "running";
            }
            return;
        }
        if (call.operation == Operation::WlanEnumInterfaces) {
            for (const observer::Value& each : ListIn(call.outputs, "interfaces")) {
                AddInterface(each);
            }
            return;
        }
        const auto* const guid = Held<platform::Guid>(call.inputs, "interface");
        ProfileJson* const interface = guid == nullptr ? nullptr : InterfaceOf(GuidText(*guid));
        if (interface == nullptr) {
            return;
        }
        if (const auto* const connection = Held<Structure>(call.outputs, "connection");
            connection != nullptr) {
            if (const std::optional<std::string> ssid = Ssid(*connection)) {
                (*interface)["connection"] = {{"ssid", *ssid},
                                              {"bssid", AddressOf(BytesIn(*connection, "bssid"))},
                                              {"phy_number", NumberIn(*connection, "phy")}};
            }
        } else if (const auto* const channel = Held<observer::Number>(call.outputs, "number");
                   channel != nullptr) {
            (*interface)["channel"] = channel->value;
        }
        for (const observer::Value& entry : ListIn(call.outputs, "entries")) {
            AddAccessPoint(entry, *interface);
        }
    }

    void AddInterface(const observer::Value& each) {
        constexpr const char* States[] = {"not ready",    "connected",   "ad hoc",      "disconnecting",
                                          "disconnected", "associating", "discovering", "authenticating"};
        const auto* const fields = std::get_if<Structure>(&each.held);
        const auto* const guid = fields == nullptr ? nullptr : Held<platform::Guid>(*fields, "guid");
        const std::int64_t state = fields == nullptr ? -1 : NumberIn(*fields, "state");
        if (guid == nullptr || state < 0 || state >= static_cast<std::int64_t>(std::size(States))) {
            m_leftOut.Add(m_recorded.name, "a wireless interface in a state that a profile has not");
            return;
        }
        m_section["interfaces"].push_back(
            {{"description", Utf8Of(StringIn(*fields, "description")).value_or("")},
             {"guid", GuidText(*guid)},
             {"state", States[state]}});
    }

    void AddAccessPoint(const observer::Value& entry, ProfileJson& interface) {
        const auto* const fields = std::get_if<Structure>(&entry.held);
        const std::optional<std::string> ssid = fields == nullptr ? std::nullopt : Ssid(*fields);
        if (ssid) {
            interface["access_points"].push_back({{"ssid", *ssid},
                                                  {"bssid", AddressOf(BytesIn(*fields, "bssid"))},
                                                  {"rssi", NumberIn(*fields, "rssi")},
                                                  {"elements", HexOf(BytesIn(*fields, "elements"))}});
        }
    }

    std::optional<std::string> Ssid(const Structure& fields) {
        std::optional<std::string> ssid = SsidIn(fields);
        if (!ssid) {
            m_leftOut.Add(m_recorded.name, "the name of a wireless network is not UTF-8");
        }
        return ssid;
    }

    ProfileJson* InterfaceOf(const std::string& guid) {
        for (ProfileJson& each : m_section["interfaces"]) {
            if (each["guid"] == guid) {
                return &each;
            }
        }
        return nullptr;
    }

    const RecordedExport& m_recorded;
    LeftOut& m_leftOut;
    ProfileJson m_section{{"service", "running"}, {"interfaces", ProfileJson::array()}};
};

/// Nothing for a reading that does not look for radios.
std::optional<ProfileJson> BluetoothOf(const RecordedExport& recorded) {
    constexpr std::uint32_t NoLibrary = 126;
    ProfileJson section;
    ProfileJson radios = ProfileJson::array();
    std::map<std::uint32_t, std::size_t> places;
    std::map<std::uint32_t, std::size_t> searches; // the radio of each
    for (const RecordedCall& call : recorded.calls) {
        const bool failed = HasFailed(call);
        if (call.operation == Operation::BluetoothFindFirstRadio) {
            section = ProfileJson::object();
            if (failed && FailureOf(call) == NoLibrary) {
                section["supported"] = false;
            }
        }
        if (failed) {
            continue;
        }
        switch (call.operation) {
        case Operation::BluetoothFindFirstRadio:
        case Operation::BluetoothFindNextRadio:
            places[HandleIn(call.outputs, "radio")] = radios.size();
            radios.push_back(
                {{"name", "Radio " + std::to_string(radios.size() + 1)}, {"devices", ProfileJson::array()}});
            break;
        case Operation::BluetoothFindFirstDevice:
        case Operation::BluetoothFindNextDevice: {
            std::size_t radio = 0;
            if (const auto* const search = Held<Structure>(call.inputs, "parameters"); search != nullptr) {
                radio = places[HandleIn(*search, "radio")];
                searches[HandleOf(call.result)] = radio;
            } else {
                radio = searches[HandleIn(call.inputs, "search")];
            }
            if (radio < radios.size()) {
                radios[radio]["devices"].push_back({{"class", NumberIn(call.outputs, "class")}});
            }
            break;
        }
        default:
            break;
        }
    }
    if (section.is_null()) {
        return std::nullopt;
    }
    section["radios"] = std::move(radios);
    return section;
}

bool AsksFor(const RecordedExport& recorded, Operation operation) {
    return std::ranges::find(recorded.calls, operation, &RecordedCall::operation) != recorded.calls.end();
}

/// Every reading of radios takes them all: the first one counts.
void SetSection(ProfileJson& section, const ProfileJson& shown, const RecordedExport& recorded,
                LeftOut& leftOut) {
    if (section.is_null()) {
        section = shown;
    } else if (section != shown) {
        leftOut.Add(recorded.name, "the radios were in another state before");
    }
}

} // namespace

void AddRadios(const RecordedExports& exports, ProfileJson& profile, LeftOut& leftOut) {
    for (const RecordedExport& recorded : exports) {
        AddAdapters(recorded, profile, leftOut);
        if (AsksFor(recorded, Operation::WlanOpenHandle)) {
            SetSection(profile["wifi"], WirelessInterfaces(recorded, leftOut).Section(), recorded, leftOut);
        }
        if (const std::optional<ProfileJson> bluetooth = BluetoothOf(recorded)) {
            SetSection(profile["bluetooth"], *bluetooth, recorded, leftOut);
        }
    }
}

} // namespace tool
