#include "machine/profile/sections/course_profile.h"

#include "machine/profile/profile_reader.h"

#include <algorithm>

namespace machine {
namespace {

void ReadSeconds(ProfileReader& reader, double& seconds) {
    constexpr double Shortest = 0.01;
    constexpr double Day = 86400;
    reader.Real("seconds", seconds, Shortest, Day);
}

void ReadLoadStretch(ProfileReader& reader, LoadStretch& stretch) {
    reader.Real("to", stretch.to, 0, 1, Presence::Required);
    ReadSeconds(reader, stretch.seconds);
}

void ReadWarming(ProfileReader& reader, Warming& warming) {
    reader.Real("degrees", warming.degrees, 0, 200);
    ReadSeconds(reader, warming.seconds);
    reader.Real("cooled", warming.cooled, 0, 1);
}

void ReadFanPoint(ProfileReader& reader, FanPoint& point) {
    reader.Real("degrees", point.degrees, -50, 200, Presence::Required);
    reader.Real("rpm", point.rpm, 0, 65535, Presence::Required);
}

std::size_t PartOf(const std::string& name) {
    return static_cast<std::size_t>(std::ranges::find(WarmedParts, name) - std::begin(WarmedParts));
}

void ReadFanCourse(ProfileReader& reader, FanCourse& fan) {
    std::string part;
    if (reader.String("follows", part, Presence::Optional,
                      {"a part that the load warms, as \"cpu\"", [](const std::string& name) {
                           return PartOf(name) < WarmedPartCount;
                       }})) {
        fan.follows = PartOf(part);
    }
    reader.Objects("curve", fan.curve, ReadFanPoint);
    std::ranges::stable_sort(fan.curve, {}, &FanPoint::degrees);
    ReadSeconds(reader, fan.seconds);
}

void ReadPackagePower(ProfileReader& reader, PackagePowerCourse& power) {
    reader.Members("idle", power.idle, "busy", power.busy);
}

void ReadBatteryCourse(ProfileReader& reader, BatteryCourse& battery) {
    constexpr double MostWatts = 1000;
    constexpr double MostCellVolts = 65.535;
    reader.Real("idle_watts", battery.idleWatts, 0, MostWatts);
    reader.Real("busy_watts", battery.busyWatts, 0, MostWatts);
    reader.Real("charger_watts", battery.chargerWatts, 0, MostWatts);
    reader.Real("empty_volts", battery.emptyVolts, 0, MostCellVolts);
    reader.Real("full_volts", battery.fullVolts, 0, MostCellVolts);
    reader.Real("cell_ohms", battery.cellOhms, 0, 10);
}

void ReadSupplyStretch(ProfileReader& reader, SupplyStretch& stretch) {
    reader.Choice("on", {"battery", "ac"}, stretch.onAc, Presence::Required);
    ReadSeconds(reader, stretch.seconds);
}

} // namespace

void ReadCourse(ProfileReader& reader, CourseProfile& course) {
    reader.Objects("load", course.load, ReadLoadStretch);
    reader.Object("warming", [&](ProfileReader& parts) {
        for (std::size_t part = 0; part < WarmedPartCount; ++part) {
            parts.Object(WarmedParts[part], course.warming[part], ReadWarming);
        }
    });
    reader.Objects("fans", course.fans, ReadFanCourse);
    reader.Object("package_power", course.packagePower, ReadPackagePower);
    reader.Object("battery", course.battery, ReadBatteryCourse);
    reader.Objects("running_on", course.supply, ReadSupplyStretch);
}

} // namespace machine
