#include "machine/profile/battery_profile.h"

#include "machine/profile/profile_reader.h"

namespace machine {

std::vector<BatteryProfile> ReadBatteries(ProfileReader& reader) {
    std::vector<BatteryProfile> batteries;
    for (auto& object : reader.Objects("batteries")) {
        BatteryProfile battery;
        battery.tag = object.Number<std::uint32_t>("tag", 1);
        battery.systemBattery = object.Flag("system_battery", true);
        battery.designedCapacity = object.Number<std::uint32_t>("designed_capacity", 0);
        battery.fullChargedCapacity = object.Number<std::uint32_t>("full_charged_capacity", 0);
        battery.cycleCount = object.Number<std::uint32_t>("cycle_count", 0);
        battery.capacity = object.Number<std::uint32_t>("capacity", 0);
        battery.voltage = object.Number<std::uint32_t>("voltage", 0);
        object.Finish();
        batteries.push_back(battery);
    }
    return batteries;
}

} // namespace machine
