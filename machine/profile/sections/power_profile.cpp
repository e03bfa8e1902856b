#include "machine/profile/sections/power_profile.h"

#include "machine/profile/profile_reader.h"

namespace machine {

void ReadBattery(ProfileReader& reader, BatteryProfile& battery) {
    reader.Members("tag", battery.tag, "system_battery", battery.systemBattery, "voltage", battery.voltage);
    reader.Members("designed_capacity", battery.designedCapacity, "full_charged_capacity",
                   battery.fullChargedCapacity, "capacity", battery.capacity, "cycle_count",
                   battery.cycleCount);
}

void ReadSystemPower(ProfileReader& reader, SystemPowerProfile& power) {
    constexpr std::uint8_t LineStates[] = {0, 1, 255};
    reader.Number("processors", power.processors, {1, 1024});
    reader.Real("load", power.load, 0, 1);
    reader.Real("kernel_share", power.kernelShare, 0, 1);
    reader.Objects("samples", [&](ProfileReader& row) {
        SystemTimesSample& sample = power.samples.emplace_back();
        row.Members("idle", sample.idle, "kernel", sample.kernel, "user", sample.user);
    });
    if (std::size_t line = 0; reader.Choice("running_on", {"battery", "ac", "unknown"}, line)) {
        power.acLine = LineStates[line];
    }
}

} // namespace machine
