// The battery exports. Nothing is cached: each call reads its source.
#include "ec/ec_identity.h"
#include "ec/ec_maps.h"
#include "frame/host_buffer.h"
#include "frame/text.h"
#include "telemetry/battery_device.h"
#include "vesk_sondrel.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

namespace sondrel {
namespace {

/// The size of the date and of the name, in bytes with the terminator.
constexpr std::size_t DateAndNameSize = 11;

struct Date {
    std::uint32_t year;
    std::uint32_t month;
    std::uint32_t day;
};

/// The word is packed as the Smart Battery Data Specification says. No field is validated.
constexpr Date DateOf(std::uint32_t word) {
    if (word == 0 || word == EcReadFailed) {
        return {1980, 1, 1};
    }
    return {1980 + (word >> 9 & 0x7F), word >> 5 & 0x0F, word & 0x1F};
}

} // namespace
} // namespace sondrel

using namespace sondrel;

uint32_t Battery_Read_DesignedCapacity(void) {
    return ReadBatteryDevice().designedCapacity;
}

uint32_t Battery_Read_FullChargedCapcity(void) {
    return ReadBatteryDevice().fullChargedCapacity;
}

uint32_t Battery_Read_Capacity(void) {
    return ReadBatteryDevice().capacity;
}

uint32_t Battery_Read_DesignVoltage(void) {
    return ReadBatteryDevice().voltage;
}

float Battery_Read_ASOC(void) {
    return ReadBatteryDevice().healthRatio;
}

uint32_t Battery_Read_CapacityPercentage(void) {
    const BatteryRecord battery = ReadBatteryDevice();
    return RoundedPercentage(battery.capacity, battery.fullChargedCapacity);
}

uint32_t Battery_Read_CycleCount(void) {
    const std::optional<EcMap> map = FirstEcMapOf(ReadEcFirmwareRevision());
    if (!map) {
        return 0;
    }
    const std::optional<EcWord>& source = ec_signal::CycleCount.In(*map);
    return source ? ReadSource(*source) : ReadBatteryDevice().cycleCount;
}

uint32_t Battery_Get_LidStatus(void) {
    return ReadEc(ec_signal::LidState);
}

uint32_t Battery_Read_ChargingVoltage(void) {
    return ReadEc(ec_signal::ChargingVoltage);
}

uint32_t Battery_Read_PackageVoltage(void) {
    return ReadEc(ec_signal::PackageVoltage);
}

uint32_t Battery_Read_Temperature(void) {
    return ReadEc(ec_signal::BatteryTemperature);
}

int32_t Battery_Read_Current(void) {
    // Only the low 16 bits, also of a failed reading, which becomes -1.
    return static_cast<std::int16_t>(ReadEc(ec_signal::Current));
}

void Battery_Read_CellVoltage(char* out) {
    if (out == nullptr) {
        return;
    }
    std::array<std::uint32_t, std::size(ec_signal::CellVoltages)> cells{};
    for (std::size_t cell = 0; cell < cells.size(); ++cell) {
        cells[cell] = ReadEc(ec_signal::CellVoltages[cell]);
    }
    const auto format = [&cells](char* buffer, std::size_t size) {
        return FormatCounted(buffer, size, "%u;%u;%u;%u", cells[0], cells[1], cells[2], cells[3]);
    };
    const int length = format(nullptr, 0);
    format(out, static_cast<std::size_t>(length) + 1);
}

void Battery_Read_ManufactureDate(char* out) {
    if (out == nullptr) {
        return;
    }
    const Date date = DateOf(ReadEc(ec_signal::ManufactureDate));
    FormatCounted(out, DateAndNameSize, "%4u-%02u-%02u", date.year, date.month, date.day);
}

void Battery_Read_ManufactureName(char* out) {
    if (out == nullptr) {
        return;
    }
    std::array<char, DateAndNameSize> name{};
    if (!ReadEcManufacturerName(std::span(name).first<EcNameLength>())) {
        name.fill('\0');
    }
    // A name that begins with a zero is no name. All ten bytes are copied, also those after an earlier
    // terminator.
    if (name.front() == '\0') {
        CopyToHost("0x7FFFFFFF", out);
    } else {
        std::ranges::copy(name, out);
    }
}
