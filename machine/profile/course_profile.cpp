#include "machine/profile/course_profile.h"

#include "machine/profile/profile_reader.h"

#include <algorithm>
#include <iterator>

namespace machine {
namespace {

double ReadSeconds(ProfileReader& reader, double fallback) {
    constexpr double Shortest = 0.01;
    constexpr double Day = 86400;
    return reader.Real("seconds", Shortest, Day, fallback);
}

double Needed(ProfileReader& reader, std::string_view name, double low, double high) {
    if (!reader.Has(name)) {
        reader.Fail(name, "a number from " + std::to_string(low) + " to " + std::to_string(high));
    }
    return reader.Real(name, low, high, 0);
}

Warming ReadWarming(ProfileReader reader) {
    Warming warming;
    warming.degrees = reader.Real("degrees", 0, 200, 0);
    warming.seconds = ReadSeconds(reader, 10);
    warming.cooled = reader.Real("cooled", 0, 1, 0);
    reader.Finish();
    return warming;
}

std::array<Warming, WarmedPartCount> ReadWarmings(ProfileReader reader) {
    std::array<Warming, WarmedPartCount> warmings;
    for (std::size_t part = 0; part < WarmedPartCount; ++part) {
        warmings[part] = ReadWarming(reader.Object(WarmedParts[part]));
    }
    reader.Finish();
    return warmings;
}

std::size_t ReadPart(ProfileReader& reader, std::string_view name) {
    const std::string text = reader.Text(name, WarmedParts[0]);
    const auto* const found = std::ranges::find(WarmedParts, text);
    if (found == std::end(WarmedParts)) {
        reader.Fail(name, "a part that the load warms, as \"cpu\"");
    }
    return static_cast<std::size_t>(found - WarmedParts);
}

FanCourse ReadFan(ProfileReader& reader) {
    FanCourse fan;
    fan.follows = ReadPart(reader, "follows");
    for (auto& point : reader.Objects("curve")) {
        const double degrees = Needed(point, "degrees", -50, 200);
        fan.curve.push_back({degrees, Needed(point, "rpm", 0, 65535)});
        point.Finish();
    }
    std::ranges::stable_sort(fan.curve, {}, &FanPoint::degrees);
    fan.seconds = ReadSeconds(reader, 2);
    reader.Finish();
    return fan;
}

PackagePowerCourse ReadPackagePower(ProfileReader reader) {
    PackagePowerCourse power;
    power.idle = reader.Number<std::uint32_t>("idle", 0);
    power.busy = reader.Number<std::uint32_t>("busy", 0);
    reader.Finish();
    return power;
}

BatteryCourse ReadBatteryCourse(ProfileReader reader) {
    constexpr double MostWatts = 1000;
    constexpr double MostVolts = 65.535;
    BatteryCourse battery;
    battery.idleWatts = reader.Real("idle_watts", 0, MostWatts, 5);
    battery.busyWatts = reader.Real("busy_watts", 0, MostWatts, 40);
    battery.chargerWatts = reader.Real("charger_watts", 0, MostWatts, 65);
    battery.emptyVolts = reader.Real("empty_volts", 0, MostVolts, 3.3);
    battery.fullVolts = reader.Real("full_volts", 0, MostVolts, 4.2);
    battery.cellOhms = reader.Real("cell_ohms", 0, 10, 0.02);
    reader.Finish();
    return battery;
}

} // namespace

CourseProfile ReadCourse(ProfileReader reader) {
    CourseProfile course;
    for (auto& stretch : reader.Objects("load")) {
        const double to = Needed(stretch, "to", 0, 1);
        course.load.push_back({to, ReadSeconds(stretch, 10)});
        stretch.Finish();
    }
    course.warming = ReadWarmings(reader.Object("warming"));
    for (auto& fan : reader.Objects("fans")) {
        course.fans.push_back(ReadFan(fan));
    }
    if (reader.Has("package_power")) {
        course.packagePower = ReadPackagePower(reader.Object("package_power"));
    }
    if (reader.Has("battery")) {
        course.battery = ReadBatteryCourse(reader.Object("battery"));
    }
    for (auto& stretch : reader.Objects("running_on")) {
        if (!stretch.Has("on")) {
            stretch.Fail("on", "one of \"battery\", \"ac\"");
        }
        const bool onAc = stretch.Choice("on", {"battery", "ac"}, 0) == 1;
        course.supply.push_back({onAc, ReadSeconds(stretch, 10)});
        stretch.Finish();
    }
    reader.Finish();
    return course;
}

} // namespace machine
