// The processor and power exports.
#include "ec/ec_identity.h"
#include "frame/session.h"
#include "platform/system_power.h"
#include "platform/time.h"
#include "vesk_sondrel.h"

#include <array>
#include <cstddef>
#include <cstring>

namespace sondrel {
namespace {

/// The registers in CPUID's order.
struct CpuIdWords {
    std::uint32_t eax;
    std::uint32_t ebx;
    std::uint32_t ecx;
    std::uint32_t edx;
};

/// The IOCTL's input is the leaf, 16 unused bytes and a mark. 21 bytes are not the size of a structure.
CpuIdWords CpuId(std::uint32_t leaf) {
    constexpr std::size_t MarkOffset = 20;
    std::array<std::byte, MarkOffset + 1> request{};
    std::memcpy(request.data(), &leaf, sizeof leaf);
    request[MarkOffset] = std::byte{0x15};
    CpuIdWords words{};
    DriverExchange(driver_request::CpuId, request, std::as_writable_bytes(std::span(&words, 1)));
    return words;
}

constexpr std::uint8_t IsIntel = 1;
constexpr std::uint8_t IsNotIntel = 2;

/// The driver has power values only for processors with the vendor string "GenuineIntel".
std::uint8_t IsGenuineIntelCpu() {
    if (SessionOpen == 0) {
        return IsNotIntel;
    }
    const CpuIdWords vendor = CpuId(0);
    const bool genuine = vendor.ebx == 0x756E6547 && vendor.edx == 0x49656E69 && vendor.ecx == 0x6C65746E;
    return genuine ? IsIntel : IsNotIntel;
}

/// Input and output of the driver, in one buffer.
struct PowerLimits {
    std::uint32_t revisionCode;
    std::uint32_t limit1;
    std::uint32_t limit2;
};

/// The driver selects the limits by firmware revision code. The code is sent unchecked, also EcReadFailed.
PowerLimits ReadPowerLimits(std::uint32_t request) {
    if (IsGenuineIntelCpu() != IsIntel) {
        return {};
    }
    PowerLimits limits{.revisionCode = ReadEcFirmwareRevision(), .limit1 = 0, .limit2 = 0};
    const std::span wire = std::as_writable_bytes(std::span(&limits, 1));
    DriverExchange(request, wire, wire);
    return limits;
}

/// The difference of two counters, negative if they went backwards.
float Elapsed(std::uint64_t first, std::uint64_t second) {
    return static_cast<float>(static_cast<std::int64_t>(second - first));
}

/// The idle fraction of the time between two samples. Kernel time includes idle time.
float IdleRatio(const platform::SystemTimes& first, const platform::SystemTimes& second) {
    const float total = Elapsed(first.user + first.kernel, second.user + second.kernel);
    return total == 0 ? 0.0F : Elapsed(first.idle, second.idle) / total;
}

} // namespace
} // namespace sondrel

using namespace sondrel;

double CPU_ReadCPUUsage(void) {
    constexpr std::uint32_t SampleMilliseconds = 1000;
    platform::SystemTimes first;
    if (!platform::GetSystemTimes(first)) {
        return 0.0;
    }
    platform::Sleep(SampleMilliseconds);
    platform::SystemTimes second;
    if (!platform::GetSystemTimes(second)) {
        return 0.0;
    }
    return 1.0F - IdleRatio(first, second);
}

void CPU_ReadCpuId(uint32_t leaf, uint32_t* eax, uint32_t* ebx, uint32_t* ecx, uint32_t* edx) {
    if (SessionOpen == 0) {
        return;
    }
    const CpuIdWords words = CpuId(leaf);
    *eax = words.eax;
    *ebx = words.ebx;
    *ecx = words.ecx;
    *edx = words.edx;
}

uint32_t Thermal_Read_CpuPackagePower(void) {
    if (IsGenuineIntelCpu() != IsIntel) {
        return 0;
    }
    std::array<std::uint32_t, 2> power{};
    DriverExchange(driver_request::PackagePower, {}, std::as_writable_bytes(std::span(power)));
    return power.front();
}

uint32_t Thermal_Read_CpuDptf_PowerLimit1(void) {
    return ReadPowerLimits(driver_request::PowerLimit1).limit1;
}

uint32_t Thermal_Read_CpuDptf_PowerLimit2(void) {
    return ReadPowerLimits(driver_request::PowerLimit2).limit2;
}

uint32_t Power_Read_ACDCMode(void) {
    constexpr std::uint32_t Unknown = 255;
    platform::SystemPowerStatus status{};
    return platform::GetSystemPowerStatus(status) ? status.acLineStatus : Unknown;
}
