// The kernel I/O driver VESKHWIO: the device and its seven IOCTLs.
#pragma once

#include "machine/models/device.h"
#include "machine/models/ec/embedded_controller.h"
#include "machine/profile/profile.h"

namespace machine {

class IoDriver final : public Device {
public:
    IoDriver(const DriverProfile& driver, ProcessorProfile processor, EmbeddedController& controller);

    /// Takes over new measurements.
    void Measure(const MachineCourse& course);

    platform::SystemError Open(std::uint32_t access, std::uint32_t shareMode) override;
    void Close() override;
    ControlAnswer Control(std::uint32_t code, std::span<const std::byte> in, std::size_t outSize) override;

private:
    ControlAnswer EcExchange(std::span<const std::byte> in);
    [[nodiscard]] ControlAnswer CpuId(std::span<const std::byte> in) const;
    [[nodiscard]] ControlAnswer PowerLimits(std::span<const std::byte> in) const;

    DriverProfile m_driver;
    ProcessorProfile m_processor;
    EmbeddedController& m_controller;
    unsigned m_openings = 0;
    bool m_heldAlone = false;
};

} // namespace machine
