// The fan counter of the EC.
#pragma once

#include "machine/models/ec/ec_answer.h"
#include "machine/profile/sections/ec_profile.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace machine {

/// One counter for all fans: it is started for one of them and polled until it is done.
class EcTachometer {
public:
    explicit EcTachometer(const EcProfile& profile);

    /// Takes over new fan speeds.
    void Measure(const EcProfile& profile);

    std::optional<EcAnswer> CarryOut(std::uint8_t command, std::span<const std::uint8_t> data);

private:
    EcAnswer Start(std::span<const std::uint8_t> data);
    std::uint8_t State();

    std::vector<EcFanSpeed> m_fans;
    std::size_t m_selected = 0;
    std::uint32_t m_polls = 0;
    std::uint16_t m_count = 0;
};

} // namespace machine
