// The SMART attributes of every disk, as the storage stack publishes them through WMI.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace sondrel {

struct SmartAttribute {
    std::uint8_t id = 0;
    std::uint16_t flags = 0;
    std::uint8_t current = 0;
    std::uint8_t worst = 0;
    std::array<std::uint8_t, 6> raw{};
};

inline constexpr std::size_t SmartNameLength = 100;

struct SmartDiskRecord {
    std::array<char16_t, SmartNameLength + 1> InstanceName{}; // always terminated
    std::array<SmartAttribute, 30> attributes;
};

/// Zero at load and never cleared: each reading refills it from the first record and leaves later records
/// unchanged.
extern std::array<SmartDiskRecord, 10> SmartDiskTable;

/// Reads one record for each row. A row without a name or without an array of bytes is skipped; rows after the
/// tenth are dropped. A failed step leaves the table unchanged.
void ReadWMISmartData(std::u16string nameSpace, std::u16string query, std::uint8_t initCom);

} // namespace sondrel
