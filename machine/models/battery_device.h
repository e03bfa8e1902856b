// A battery of the battery class driver.
#pragma once

#include "machine/models/device.h"
#include "machine/models/machine_course.h"
#include "machine/profile/sections/power_profile.h"

#include <string>

namespace machine {

class BatteryDevice final : public Device {
public:
    explicit BatteryDevice(const BatteryProfile& profile) : m_profile(profile) {}

    /// Takes over new measurements.
    void Measure(const MachineCourse& course) { course.Measure(m_profile); }

    platform::SystemError Open(std::uint32_t access, std::uint32_t shareMode) override;
    ControlAnswer Control(std::uint32_t code, std::span<const std::byte> in, std::size_t outSize) override;

    /// The path of the machine's n-th battery, under its interface of the battery class.
    static std::u16string PathOf(std::size_t index);

private:
    [[nodiscard]] ControlAnswer Information(std::span<const std::byte> in, std::size_t outSize) const;
    [[nodiscard]] ControlAnswer Status(std::span<const std::byte> in, std::size_t outSize) const;

    BatteryProfile m_profile;
};

} // namespace machine
