#include "machines/machine_words.h"

#include "base/text.h"

#include <algorithm>

namespace tool {
namespace {

using Json = nlohmann::json;

constexpr std::size_t LabelColumn = 22;

std::string Bare(const Json& value) {
    return value.is_string() ? value.get<std::string>()
                             : value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string MemberOr(const Json& object, const char* name, const std::string& otherwise) {
    const auto found = object.find(name);
    return found != object.end() ? Bare(*found) : otherwise;
}

/// Texts with ", " between them.
template <class List, class Words>
std::string Joined(const List& list, Words words) {
    std::string text;
    for (const auto& each : list) {
        text.append(text.empty() ? "" : ", ").append(words(each));
    }
    return text;
}

std::string Counted(std::size_t number, const std::string& one, const std::string& many) {
    return std::to_string(number) + ' ' + (number == 1 ? one : many);
}

std::string Count(const Json& list) {
    return std::to_string(list.size());
}

std::string Members(const Json& object) {
    return Joined(object.items(), [](const auto& item) { return item.key() + ' ' + Bare(item.value()); });
}

std::string FanWords(const Json& fans) {
    return Joined(fans, [](const Json& fan) {
        return fan.value("never_ready", false) ? std::string("never ready")
                                               : MemberOr(fan, "rpm", "0") + " rpm";
    });
}

std::string Sensors(const Json& sensors) {
    return Joined(sensors.items(), [](const auto& item) {
        const Json& value = item.value();
        return item.key() + ' ' + (value.is_object() ? MemberOr(value, "degrees", "0") : Bare(value)) +
               (value.is_object() && !value.value("valid", true) ? " (not settled)" : "");
    });
}

std::string Pack(const Json& battery) {
    return Joined(battery.items(), [](const auto& item) {
        return item.key() + ' ' + (item.value().is_array() ? Joined(item.value(), Bare) : Bare(item.value()));
    });
}

std::string Faults(const Json& faults) {
    return Joined(faults, [](const Json& fault) {
        const std::string use = MemberOr(fault, "use", "0");
        return "command " + MemberOr(fault, "command", "") + (use == "0" ? " always" : ", use " + use);
    });
}

std::string SystemBatteries(const Json& batteries) {
    return Joined(batteries, [](const Json& battery) {
        return MemberOr(battery, "capacity", "0") + " of " + MemberOr(battery, "full_charged_capacity", "0") +
               " mWh, made for " + MemberOr(battery, "designed_capacity", "0") + ", " +
               MemberOr(battery, "cycle_count", "0") + " cycles";
    });
}

std::string Load(const Json& course) {
    return Joined(course, [](const Json& stretch) {
        return "to " + Bare(stretch.at("to")) + " in " + MemberOr(stretch, "seconds", "10") + " s";
    });
}

std::string Supply(const Json& course) {
    return Joined(course, [](const Json& stretch) {
        return Bare(stretch.at("on")) + " for " + MemberOr(stretch, "seconds", "10") + " s";
    });
}

std::string Warming(const Json& warming) {
    return Joined(warming.items(), [](const auto& item) {
        return item.key() + " by " + MemberOr(item.value(), "degrees", "0");
    });
}

std::string WifiInterfaces(const Json& interfaces) {
    return Joined(interfaces, [](const Json& interface) {
        const auto connection = interface.find("connection");
        return Bare(interface.at("description")) + ", " + MemberOr(interface, "state", "disconnected") +
               (connection != interface.end() ? " to " + Bare(connection->at("ssid")) : std::string()) +
               ", " +
               Counted(interface.value("access_points", Json::array()).size(), "access point",
                       "access points");
    });
}

std::string Radios(const Json& radios) {
    return Joined(radios, [](const Json& radio) {
        const Json devices = radio.value("devices", Json::array());
        return MemberOr(radio, "name", "a radio") + " with " + Counted(devices.size(), "device", "devices");
    });
}

std::string Features(const Json& features) {
    return Joined(features.items(), [](const auto& item) {
        return item.key() + (item.value().value("supported", false) ? " supported" : " not supported");
    });
}

std::string Names(const Json& list) {
    return Joined(list, [](const Json& each) { return MemberOr(each, "name", ""); });
}

std::string Wmi(const Json& namespaces) {
    std::size_t classes = 0;
    std::size_t rows = 0;
    for (const auto& space : namespaces) {
        classes += space.size();
        for (const auto& list : space) {
            rows += list.size();
        }
    }
    return Counted(namespaces.size(), "namespace", "namespaces") + ", " +
           Counted(classes, "class", "classes") + ", " + Counted(rows, "row", "rows");
}

std::string ApplicationWords(const Json& lists) {
    return Joined(lists.items(), [](const auto& item) { return Count(item.value()) + " in " + item.key(); });
}

/// One line; left out where the profile has nothing there.
struct Row {
    const char* pointer;
    const char* label;
    std::string (*words)(const Json& value);
};

constexpr Row Facts[] = {
    {"/ec/revision", "EC revision", Bare},
    {"/ec/chip_id", "EC chip id", Bare},
    {"/ec/chip_name", "EC chip name", Bare},
    {"/ec/temperatures", "Temperatures", Members},
    {"/ec/sensors", "Sensors", Sensors},
    {"/ec/fans", "Fans", FanWords},
    {"/ec/battery", "Battery pack", Pack},
    {"/ec/faults", "EC commands that fail", Faults},
    {"/batteries", "System batteries", SystemBatteries},
    {"/driver", "I/O driver", Members},
    {"/processor/vendor", "Processor", Bare},
    {"/system_power/load", "Load", Bare},
    {"/system_power/running_on", "Runs on", Bare},
    {"/course/load", "Course of the load", Load},
    {"/course/warming", "Warmed by the load", Warming},
    {"/course/fans", "Fans that answer", Count},
    {"/course/running_on", "Course of the supply", Supply},
    {"/network/adapters", "Network adapters", Count},
    {"/wifi/interfaces", "Wi-Fi", WifiInterfaces},
    {"/bluetooth/radios", "Bluetooth", Radios},
    {"/acpi/log", "Event log records", Count},
    {"/firmware_variables/variables", "Firmware variables", Names},
    {"/firmware_features", "Firmware features", Features},
    {"/registry/values", "Registry values", Count},
    {"/applications", "Applications", ApplicationWords},
    {"/packages/all", "Packages", Count},
    {"/pnp_devices", "Plug and play devices", Count},
    {"/processes", "Processes", Count},
    {"/windows", "Windows", Names},
    {"/wmi", "WMI", Wmi},
    {"/system/country", "Country", Bare},
    {"/system/date", "Starts at", Bare},
    {"/audio/volume", "Volume", Bare},
};

} // namespace

std::string MachineInWords(const Json& profile, std::size_t columns) {
    std::string text = OnOneLine(Bare(profile.at("name"))) + ": " +
                       OnOneLine(profile.value("description", "no description")) + '\n';
    const std::size_t width = std::max(columns, LabelColumn + 20) - LabelColumn - 2;
    for (const Row& row : Facts) {
        const Json::json_pointer pointer(row.pointer);
        if (!profile.contains(pointer) ||
            (profile.at(pointer).is_structured() && profile.at(pointer).empty())) {
            continue;
        }
        std::string line = "  " + std::string(row.label);
        for (const std::string& words : Wrapped(OnOneLine(row.words(profile.at(pointer))), width)) {
            line.resize(LabelColumn + 2, ' ');
            text += line + words + '\n';
            line.clear();
        }
    }
    return text;
}

} // namespace tool
