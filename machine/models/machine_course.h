// The small physical model of a profile's course: how load, heat, fans and charge follow from each other.
#pragma once

#include "machine/profile/sections/course_profile.h"
#include "machine/profile/sections/ec_profile.h"
#include "machine/profile/sections/power_profile.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

namespace machine {

/// The busy share of all processors at each moment.
class LoadCourse {
public:
    LoadCourse(std::vector<LoadStretch> stretches, double constant);

    [[nodiscard]] double At(double seconds) const;
    /// How many seconds of full load there have been since the machine's start.
    [[nodiscard]] double BusySeconds(double seconds) const;

private:
    double m_constant;
    std::vector<LoadStretch> m_stretches;
    double m_period = 0;
    double m_busyInPeriod = 0;
};

/// The state of everything that has an inertia, advanced in equal steps of the machine's time: a reading depends on
/// its time, never on earlier readings.
class MachineCourse {
public:
    MachineCourse(const CourseProfile& course, const EcProfile& ec, const SystemPowerProfile& power,
                  const std::vector<BatteryProfile>& batteries);

    /// True when there has been a step since the last time. The first time counts as one.
    bool MoveTo(std::chrono::microseconds now);

    // Replace the profile's values of a machine at rest with the present ones.
    void Measure(EcProfile& ec) const;
    void Measure(BatteryProfile& battery) const;
    [[nodiscard]] std::optional<std::uint32_t> PackagePower() const;

    // At any moment, between two steps too.
    [[nodiscard]] const LoadCourse& Load() const { return m_load; }

    /// As the platform reports it: 0 battery, 1 AC, 255 unknown.
    [[nodiscard]] std::uint8_t AcLine(std::chrono::microseconds now) const;

private:
    void Step();
    void StepBattery(double load);

    [[nodiscard]] double DegreesOf(std::size_t part) const { return m_rest[part] + m_rise[part]; }

    [[nodiscard]] double FanShare() const;
    [[nodiscard]] double BatteryWatts(double load, std::chrono::microseconds now) const;
    [[nodiscard]] double CellVolts() const;

    CourseProfile m_course;
    LoadCourse m_load;
    std::uint8_t m_acLine;
    std::int64_t m_steps = -1;
    std::array<double, WarmedPartCount> m_rest{};
    std::array<double, WarmedPartCount> m_rise{};
    std::vector<double> m_rpm;
    double m_fullJoules = 0;
    double m_joules = 0;
    double m_batteryWatts = 0; // into it
    std::size_t m_cells = 0;
    std::array<double, 4> m_cellOffsets{};
};

} // namespace machine
