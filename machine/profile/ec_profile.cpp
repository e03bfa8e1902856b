#include "machine/profile/ec_profile.h"

#include "machine/profile/profile_reader.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace machine {
namespace {

EcTemperatures ReadTemperatures(ProfileReader reader) {
    EcTemperatures degrees;
    degrees.cpu = reader.Number<std::uint8_t>("cpu", 0);
    degrees.boardLeft = reader.Number<std::uint8_t>("board_left", 0);
    degrees.boardRight = reader.Number<std::uint8_t>("board_right", 0);
    degrees.gpuLeft = reader.Number<std::uint8_t>("gpu_left", 0);
    degrees.gpuRight = reader.Number<std::uint8_t>("gpu_right", 0);
    reader.Finish();
    return degrees;
}

EcSensors ReadSensors(ProfileReader reader) {
    constexpr std::string_view Names[] = {"battery_connector", "ac_fet",    "charger_choke",
                                          "gpu_vrm",           "upper_cpu", "gpu_vram"};
    EcSensors sensors;
    sensors.ready = reader.Flag("ready", true);
    sensors.devicePresent = {reader.Flag("device_1_present", true), reader.Flag("device_2_present", true)};
    for (std::size_t index = 0; index < sensors.channels.size(); ++index) {
        ProfileReader channel = reader.Object(Names[index]);
        sensors.channels[index].degrees = channel.Number<std::uint8_t>("degrees", 0);
        sensors.channels[index].valid = channel.Flag("valid", true);
        channel.Finish();
    }
    reader.Finish();
    return sensors;
}

/// "2017-10-28", with any month and day that the packed form of the battery can hold.
EcDate ReadDate(ProfileReader& reader, std::string_view name) {
    constexpr EcDate Least{1980, 0, 0};
    constexpr EcDate Most{2107, 15, 31};
    const std::string text = reader.Text(name, "1980-00-00");
    EcDate date;
    const auto number = [&text](std::size_t at, std::size_t length, std::uint32_t& into) {
        const char* const end = text.data() + at + length;
        return std::from_chars(text.data() + at, end, into).ptr == end;
    };
    const bool read = text.size() == 10 && text[4] == '-' && text[7] == '-' && number(0, 4, date.year) &&
                      number(5, 2, date.month) && number(8, 2, date.day);
    if (!read || date.year < Least.year || date.year > Most.year || date.month > Most.month ||
        date.day > Most.day) {
        reader.Fail(name, "a date from \"1980-00-00\" to \"2107-15-31\"");
    }
    return date;
}

EcBattery ReadEcBattery(ProfileReader reader) {
    constexpr double MostVolts = 65.535;
    constexpr std::size_t MostLetters = 10;
    EcBattery battery;
    battery.chargingVolts = reader.Real("charging_voltage", 0, MostVolts, 0);
    battery.packageVolts = reader.Real("package_voltage", 0, MostVolts, 0);
    battery.amperes = reader.Real("current", -32.768, 32.767, 0);
    battery.degrees = reader.Real("temperature", -273.15, 6000, 0);
    battery.cycles = reader.Number<std::uint16_t>("cycle_count", 0);
    const auto cells = reader.Reals("cell_voltages", 0, MostVolts);
    if (cells.size() > battery.cellVolts.size()) {
        reader.Fail("cell_voltages", "at most four cells");
    }
    std::ranges::copy(cells, battery.cellVolts.begin());
    battery.manufactured = ReadDate(reader, "manufacture_date");
    battery.manufacturer = reader.Text("manufacturer", "");
    if (battery.manufacturer.size() > MostLetters) {
        reader.Fail("manufacturer", "at most 10 bytes");
    }
    battery.busyPolls = reader.Number<std::uint32_t>("bus_busy_polls", 0);
    battery.busyForEver = reader.Flag("bus_busy_for_ever", false);
    reader.Finish();
    return battery;
}

} // namespace

EcProfile ReadEc(ProfileReader reader) {
    EcProfile ec;
    ec.revision = reader.FixedText("revision", 2);
    ec.chipId = reader.Number<std::uint8_t>("chip_id", 0);
    ec.chipName = reader.FixedText("chip_name", 4);
    ec.tabletMode = reader.Number<std::uint8_t>("tablet_mode", 0);
    ec.lid = reader.Number<std::uint8_t>("lid", 0);
    ec.temperatures = ReadTemperatures(reader.Object("temperatures"));
    ec.sensors = ReadSensors(reader.Object("sensors"));
    for (auto& fan : reader.Objects("fans")) {
        EcFanSpeed row;
        row.rpm = fan.Number<std::uint32_t>("rpm", 0);
        row.readyAfter = fan.Number<std::uint32_t>("ready_after", 0);
        row.neverReady = fan.Flag("never_ready", false);
        fan.Finish();
        ec.fans.push_back(row);
    }
    ec.battery = ReadEcBattery(reader.Object("battery"));
    for (auto& fault : reader.Objects("faults")) {
        EcFault row;
        row.command = static_cast<std::uint8_t>(fault.Number("command", 0, 0xFF));
        row.use = fault.Number<std::uint32_t>("use", 0);
        row.status = static_cast<std::uint32_t>(fault.Number("status", 1, 0xFFFFFFFF));
        row.byte = fault.Number<std::uint8_t>("byte", 0);
        fault.Finish();
        ec.faults.push_back(row);
    }
    reader.Finish();
    return ec;
}

} // namespace machine
