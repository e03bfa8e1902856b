#include "machine/profile/sections/ec_profile.h"

#include "machine/profile/profile_reader.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

namespace machine {
namespace {

constexpr double MostVolts = 65.535;

void ReadTemperatures(ProfileReader& reader, EcTemperatures& degrees) {
    reader.Members("cpu", degrees.cpu, "board_left", degrees.boardLeft, "board_right", degrees.boardRight);
    reader.Members("gpu_left", degrees.gpuLeft, "gpu_right", degrees.gpuRight);
}

void ReadChannel(ProfileReader& reader, EcSensorChannel& channel) {
    reader.Members("degrees", channel.degrees, "valid", channel.valid);
}

void ReadSensors(ProfileReader& reader, EcSensors& sensors) {
    constexpr std::string_view Names[] = {"battery_connector", "ac_fet",    "charger_choke",
                                          "gpu_vrm",           "upper_cpu", "gpu_vram"};
    reader.Members("ready", sensors.ready, "device_1_present", sensors.devicePresent[0], "device_2_present",
                   sensors.devicePresent[1]);
    for (std::size_t index = 0; index < sensors.channels.size(); ++index) {
        reader.Object(Names[index], sensors.channels[index], ReadChannel);
    }
}

void ReadFan(ProfileReader& reader, EcFanSpeed& fan) {
    reader.Members("rpm", fan.rpm, "ready_after", fan.readyAfter, "never_ready", fan.neverReady);
}

/// "2017-10-28", with any month and day that the packed form of the battery can hold.
std::optional<EcDate> DateOf(const std::string& text) {
    constexpr EcDate Least{1980, 0, 0};
    constexpr EcDate Most{2107, 15, 31};
    EcDate date;
    const auto number = [&text](std::size_t at, std::size_t length, std::uint32_t& into) {
        const char* const end = text.data() + at + length;
        return std::from_chars(text.data() + at, end, into).ptr == end;
    };
    const bool read = text.size() == 10 && text[4] == '-' && text[7] == '-' && number(0, 4, date.year) &&
                      number(5, 2, date.month) && number(8, 2, date.day);
    const bool fits =
        date.year >= Least.year && date.year <= Most.year && date.month <= Most.month && date.day <= Most.day;
    return read && fits ? std::optional(date) : std::nullopt;
}

void ReadPack(ProfileReader& reader, EcBattery& battery) {
    reader.Real("charging_voltage", battery.chargingVolts, 0, MostVolts);
    reader.Real("package_voltage", battery.packageVolts, 0, MostVolts);
    reader.Real("current", battery.amperes, -32.768, 32.767);
    reader.Real("temperature", battery.degrees, -273.15, 6000);
    std::vector<double> cells;
    reader.Reals("cell_voltages", cells, 0, MostVolts);
    if (cells.size() > battery.cellVolts.size()) {
        reader.Fail("cell_voltages", "at most four cells");
        cells.clear();
    }
    std::ranges::copy(cells, battery.cellVolts.begin());
    std::string date;
    if (reader.String("manufacture_date", date, Presence::Optional,
                      {"a date from \"1980-00-00\" to \"2107-15-31\"", [](const std::string& text) {
                           return DateOf(text).has_value();
                       }})) {
        battery.manufactured = *DateOf(date);
    }
    constexpr std::size_t MostLetters = 10;
    reader.String("manufacturer", battery.manufacturer, Presence::Optional,
                  {"a string of at most 10 bytes", [](const std::string& text) {
                       return text.size() <= MostLetters;
                   }});
    reader.Members("cycle_count", battery.cycles, "bus_busy_polls", battery.busyPolls, "bus_busy_for_ever",
                   battery.busyForEver);
}

void ReadEcFault(ProfileReader& reader, EcFault& fault) {
    reader.Number("command", fault.command, Presence::Required);
    reader.Number("status", fault.status, {1, 0xFFFFFFFF}, Presence::Required);
    reader.Members("use", fault.use, "byte", fault.byte);
}

} // namespace

void ReadEc(ProfileReader& reader, EcProfile& ec) {
    reader.String("revision", ec.revision, Presence::Required, PrintableAscii(2));
    reader.String("chip_name", ec.chipName, Presence::Required, PrintableAscii(4));
    reader.Members("chip_id", ec.chipId, "tablet_mode", ec.tabletMode, "lid", ec.lid);
    reader.Object("temperatures", ec.temperatures, ReadTemperatures);
    reader.Object("sensors", ec.sensors, ReadSensors);
    reader.Objects("fans", ec.fans, ReadFan);
    reader.Object("battery", ec.battery, ReadPack);
    reader.Objects("faults", ec.faults, ReadEcFault);
}

} // namespace machine
