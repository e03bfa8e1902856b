// What changes on a machine as its time passes: a load that heats, fans that follow, a battery that is discharged
// and charged. Without a course every reading stays the same.
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

/// The load moves evenly to a share of the whole. After the last stretch the first one follows.
struct LoadStretch {
    double to = 0;
    double seconds = 10;
};

/// How a part follows the load: so many degrees above its temperature at rest under full load, with this time
/// constant. Fans at full speed take the cooled share off.
struct Warming {
    double degrees = 0;
    double seconds = 10;
    double cooled = 0;
};

struct FanPoint {
    double degrees = 0;
    double rpm = 0;
};

struct FanCourse {
    std::size_t follows = 0;     // of WarmedParts
    std::vector<FanPoint> curve; // from cold to hot
    double seconds = 2;
};

struct PackagePowerCourse {
    std::uint32_t idle = 0;
    std::uint32_t busy = 0;
};

struct BatteryCourse {
    double idleWatts = 5;
    double busyWatts = 40;
    double chargerWatts = 65;
    double emptyVolts = 3.3; // of a cell
    double fullVolts = 4.2;
    double cellOhms = 0.02;
};

struct SupplyStretch {
    bool onAc = false;
    double seconds = 10;
};

struct CourseProfile {
    std::vector<LoadStretch> load;
    std::array<Warming, WarmedPartCount> warming;
    std::vector<FanCourse> fans;
    std::optional<PackagePowerCourse> packagePower;
    std::optional<BatteryCourse> battery;
    std::vector<SupplyStretch> supply;
};

void ReadCourse(ProfileReader& reader, CourseProfile& course);

} // namespace machine
