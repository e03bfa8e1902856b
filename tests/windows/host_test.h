// A host's process on a Windows with the I/O driver's device and an empty product key.
#pragma once

#include "driver_stand.h"
#include "library.h"
#include "registry_stand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace test {

/// The driver's requests, as its contract numbers them.
namespace driver_request {
inline constexpr std::uint32_t Version = 0x80102040;
inline constexpr std::uint32_t RefCount = 0x80102044;
inline constexpr std::uint32_t EcCommand = 0x80102070;
} // namespace driver_request

/// How the driver answers one EC command: `sent` is the command with its data bytes, "bb 03". The answer to the
/// 16 bytes of the request holds the byte at offset 11 and the status behind it.
Rule EcRule(std::string_view sent, std::uint8_t byte, std::uint32_t status = 0);

class HostTest : public ::testing::Test {
protected:
    HostTest();

    /// A rule for the I/O driver's device.
    void Answer(const Rule& rule) { m_stand.Answer(device::IoDriver, rule); }

    /// The EC commands that reached the driver: command and data bytes, in hexadecimal, with "w" in front where
    /// nothing is read back: "80 03a0", "w a1 022020".
    [[nodiscard]] std::vector<std::string> EcCommands() const;

    DriverStand m_stand;
    RegistryStand m_registry;
    Library m_library;
};

} // namespace test
