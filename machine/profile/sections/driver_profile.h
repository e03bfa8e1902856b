// The I/O driver of a profile, with the processor that it reads.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace machine {

class ProfileReader;

/// Whether another process has the I/O driver open, and how.
enum class DriverHolder : std::uint8_t { None, Sharing, Alone };

struct DriverProfile {
    bool present = true;
    DriverHolder heldBy = DriverHolder::None;
    std::uint32_t version = 0;
    std::uint32_t refCount = 0;
};

struct CpuIdLeaf {
    std::uint32_t eax, ebx, ecx, edx;
};

struct ProcessorProfile {
    std::string vendor = std::string(12, '\0'); // twelve characters
    std::string name;                           // of the leaves 0x80000002 to 0x80000004
    std::map<std::uint32_t, CpuIdLeaf> leaves;
    std::uint32_t packagePower = 0;
    std::uint32_t powerLimit1 = 0;
    std::uint32_t powerLimit2 = 0;
};

void ReadDriver(ProfileReader& reader, DriverProfile& driver);
void ReadProcessor(ProfileReader& reader, ProcessorProfile& processor);

} // namespace machine
