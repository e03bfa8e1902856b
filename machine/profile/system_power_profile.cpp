#include "machine/profile/system_power_profile.h"

#include "machine/profile/profile_reader.h"

namespace machine {

SystemPowerProfile ReadSystemPower(ProfileReader reader) {
    constexpr std::uint8_t LineStates[] = {0, 1, 255};
    SystemPowerProfile power;
    power.processors = static_cast<std::uint32_t>(reader.Number("processors", 1, 1024, 1));
    power.load = reader.Real("load", 0, 1, 0);
    power.kernelShare = reader.Real("kernel_share", 0, 1, 0.25);
    for (auto& object : reader.Objects("samples")) {
        power.samples.push_back({object.Number<std::uint64_t>("idle", 0),
                                 object.Number<std::uint64_t>("kernel", 0),
                                 object.Number<std::uint64_t>("user", 0)});
        object.Finish();
    }
    power.acLine = LineStates[reader.Choice("running_on", {"battery", "ac", "unknown"}, 2)];
    reader.Finish();
    return power;
}

} // namespace machine
