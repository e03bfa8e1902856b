// What moves on a machine as its time passes: a load that heats, fans that answer, a battery that is drained and
// charged. A profile without a course stands still.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace machine {

class ProfileReader;

/// Everything that a load can warm, in the order of `EcTemperatures` and `EcSensors`; the battery last.
inline constexpr std::string_view WarmedParts[] = {
    "cpu",    "board_left",    "board_right", "gpu_left",  "gpu_right", "battery_connector",
    "ac_fet", "charger_choke", "gpu_vrm",     "upper_cpu", "gpu_vram",  "battery"};
inline constexpr std::size_t WarmedPartCount = std::size(WarmedParts);

/// The load moves evenly to a share of the whole. Behind the last stretch comes the first.
struct LoadStretch {
    double to = 0;
    double seconds = 0;
};

/// How a part follows the load: so many degrees above its temperature at rest under full load, all but a third of
/// it after so many seconds. Fans at full speed take the cooled share off.
struct Warming {
    double degrees = 0;
    double seconds = 0;
    double cooled = 0;
};

struct FanPoint {
    double degrees = 0;
    double rpm = 0;
};

struct FanCourse {
    std::size_t follows = 0;     // of WarmedParts
    std::vector<FanPoint> curve; // from cold to hot
    double seconds = 0;
};

struct PackagePowerCourse {
    std::uint32_t idle = 0;
    std::uint32_t busy = 0;
};

struct BatteryCourse {
    double idleWatts = 0;
    double busyWatts = 0;
    double chargerWatts = 0;
    double emptyVolts = 0; // of a cell
    double fullVolts = 0;
    double cellOhms = 0;
};

struct SupplyStretch {
    bool onAc = false;
    double seconds = 0;
};

struct CourseProfile {
    std::vector<LoadStretch> load;
    std::array<Warming, WarmedPartCount> warming;
    std::vector<FanCourse> fans;
    std::optional<PackagePowerCourse> packagePower;
    std::optional<BatteryCourse> battery;
    std::vector<SupplyStretch> supply;
};

CourseProfile ReadCourse(ProfileReader reader);

} // namespace machine
