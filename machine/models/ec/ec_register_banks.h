// The registers of the EC's firmware with their contents.
#pragma once

#include "machine/models/ec/ec_generation.h"
#include "machine/profile/sections/ec_profile.h"

#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>

namespace machine {

/// Bytes by command and address. How many address bytes a command takes belongs to it.
class EcRegisterBanks {
public:
    explicit EcRegisterBanks(const EcProfile& profile);

    [[nodiscard]] std::optional<std::uint8_t> Find(std::uint8_t command,
                                                   std::span<const std::uint8_t> address) const;

private:
    void Put(std::uint8_t command, std::uint32_t address, std::uint8_t byte);
    void LayOutSensors(const EcProfile& profile, Generation generation);

    std::unordered_map<std::uint32_t, std::uint8_t> m_bytes;
};

/// Whether a command reads a bank at all.
bool ReadsBank(std::uint8_t command);

} // namespace machine
