// The EC's answer to a command.
#pragma once

#include <cstdint>

namespace machine {

/// Status words of this firmware; 0 is success.
namespace ec_status {
inline constexpr std::uint32_t BadCommand = 0x81;
inline constexpr std::uint32_t BadData = 0x82;
} // namespace ec_status

struct EcAnswer {
    std::uint32_t status = 0;
    std::uint8_t byte = 0;
};

} // namespace machine
