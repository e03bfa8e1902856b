#include "machine/models/ec/ec_register_banks.h"

#include "machine/models/ec/ec_generation.h"
#include "machine/models/ec/ec_units.h"

#include <string>
#include <vector>

namespace machine {
namespace {

/// What a register holds.
enum class Signal : std::uint8_t {
    CpuDegrees,
    GpuRightDegrees,
    GpuLeftDegrees,
    BoardRightDegrees,
    BoardLeftDegrees,
    Lid,
    PackMillivolts,
    PackMilliamperes,
    PackDecikelvin,
    ChargerMillivolts,
    PackCycles,
    PackMaker,
    Cell1Millivolts,
    Cell2Millivolts,
    Cell3Millivolts,
    Cell4Millivolts,
    Fan1Rpm,
    Fan2Rpm,
    Fan3Rpm,
    Fan4Rpm,
};

/// Where a generation keeps a signal. Words lie with their low byte first.
struct Placement {
    std::uint8_t command;
    std::uint16_t address;
    Signal signal;
};

constexpr Placement LegacyPlacements[] = {
    {0x80, 0x03A0, Signal::CpuDegrees},
    {0x80, 0x03A4, Signal::GpuRightDegrees},
    {0x80, 0x03A5, Signal::GpuLeftDegrees},
    {0x80, 0x03B2, Signal::PackMillivolts},
    {0x80, 0x03BC, Signal::PackMilliamperes},
    {0x80, 0x03BE, Signal::PackDecikelvin},
    {0x80, 0x03C2, Signal::ChargerMillivolts},
    {0x80, 0x0511, Signal::BoardRightDegrees},
    {0x80, 0x0512, Signal::BoardLeftDegrees},
    {0x80, 0x0633, Signal::PackMaker},
    {0x87, 0x0011, Signal::Lid},
};

constexpr Placement BankedPlacements[] = {
    {0xC4, 0x10, Signal::PackMaker},           {0xC4, 0x2E, Signal::PackCycles},
    {0xC4, 0x34, Signal::PackDecikelvin},      {0xC4, 0x36, Signal::PackMillivolts},
    {0xC4, 0x38, Signal::PackMilliamperes},    {0xC4, 0x3E, Signal::ChargerMillivolts},
    {0xC4, 0x48, Signal::Cell1Millivolts},     {0xC4, 0x4A, Signal::Cell2Millivolts},
    {0xC4, 0x4C, Signal::Cell3Millivolts},     {0xC4, 0x4E, Signal::Cell4Millivolts},
    {0xCC, 0x0000, Signal::CpuDegrees},        {0xCC, 0x0001, Signal::BoardLeftDegrees},
    {0xCC, 0x0002, Signal::BoardRightDegrees}, {0xCC, 0x0003, Signal::GpuLeftDegrees},
    {0xCC, 0x0004, Signal::GpuRightDegrees},   {0xCC, 0x0035, Signal::Fan1Rpm},
    {0xCC, 0x003C, Signal::Fan2Rpm},           {0xCC, 0x0135, Signal::Fan3Rpm},
    {0xCC, 0x013C, Signal::Fan4Rpm},           {0xE0, 0x01, Signal::Lid},
};

constexpr Placement WindowedPlacements[] = {
    {0x80, 0x03A0, Signal::CpuDegrees},       {0x80, 0x03A4, Signal::GpuRightDegrees},
    {0x80, 0x03A5, Signal::GpuLeftDegrees},   {0x80, 0x0511, Signal::BoardRightDegrees},
    {0x80, 0x0512, Signal::BoardLeftDegrees}, {0x87, 0x0011, Signal::Lid},
    {0xA4, 0x02, Signal::PackMillivolts},     {0xA4, 0x0C, Signal::PackMilliamperes},
    {0xA4, 0x0E, Signal::PackDecikelvin},     {0xA4, 0x12, Signal::ChargerMillivolts},
    {0xA4, 0x20, Signal::PackMaker},
};

constexpr Placement RelocatedPlacements[] = {
    {0x80, 0xF7A0, Signal::CpuDegrees},
    {0x80, 0xF7A4, Signal::GpuRightDegrees},
    {0x80, 0xF7A5, Signal::GpuLeftDegrees},
    {0x80, 0xF7B2, Signal::PackMillivolts},
    {0x80, 0xF7BC, Signal::PackMilliamperes},
    {0x80, 0xF7BE, Signal::PackDecikelvin},
    {0x80, 0xF7C2, Signal::ChargerMillivolts},
    {0x80, 0xF911, Signal::BoardRightDegrees},
    {0x80, 0xF912, Signal::BoardLeftDegrees},
    {0x80, 0xFA33, Signal::PackMaker},
    {0x87, 0x00B4, Signal::Lid},
};

std::span<const Placement> PlacementsOf(Generation generation) {
    switch (generation) {
    case Generation::Legacy:
        return LegacyPlacements;
    case Generation::Banked:
        return BankedPlacements;
    case Generation::Windowed:
        return WindowedPlacements;
    case Generation::Relocated:
        return RelocatedPlacements;
    case Generation::None:
        break;
    }
    return {};
}

std::vector<std::uint8_t> TwoBytes(std::uint32_t number) {
    return {static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(number >> 8)};
}

std::vector<std::uint8_t> FanRpm(const EcProfile& profile, std::size_t fan) {
    return TwoBytes(fan < profile.fans.size() ? profile.fans[fan].rpm : 0);
}

std::vector<std::uint8_t> MakerName(const std::string& name) {
    constexpr std::size_t Room = 10;
    std::vector<std::uint8_t> bytes(name.begin(), name.end());
    bytes.resize(Room);
    return bytes;
}

std::vector<std::uint8_t> BytesOf(const EcProfile& profile, Signal signal) {
    const EcBattery& pack = profile.battery;
    switch (signal) {
    case Signal::CpuDegrees:
        return {profile.temperatures.cpu};
    case Signal::GpuRightDegrees:
        return {profile.temperatures.gpuRight};
    case Signal::GpuLeftDegrees:
        return {profile.temperatures.gpuLeft};
    case Signal::BoardRightDegrees:
        return {profile.temperatures.boardRight};
    case Signal::BoardLeftDegrees:
        return {profile.temperatures.boardLeft};
    case Signal::Lid:
        return {profile.lid};
    case Signal::PackMillivolts:
        return TwoBytes(Millivolts(pack.packageVolts));
    case Signal::PackMilliamperes:
        return TwoBytes(Milliamperes(pack.amperes));
    case Signal::PackDecikelvin:
        return TwoBytes(Decikelvin(pack.degrees));
    case Signal::ChargerMillivolts:
        return TwoBytes(Millivolts(pack.chargingVolts));
    case Signal::PackCycles:
        return TwoBytes(pack.cycles);
    case Signal::PackMaker:
        return MakerName(pack.manufacturer);
    case Signal::Cell1Millivolts:
        return TwoBytes(Millivolts(pack.cellVolts[0]));
    case Signal::Cell2Millivolts:
        return TwoBytes(Millivolts(pack.cellVolts[1]));
    case Signal::Cell3Millivolts:
        return TwoBytes(Millivolts(pack.cellVolts[2]));
    case Signal::Cell4Millivolts:
        return TwoBytes(Millivolts(pack.cellVolts[3]));
    case Signal::Fan1Rpm:
        return FanRpm(profile, 0);
    case Signal::Fan2Rpm:
        return FanRpm(profile, 1);
    case Signal::Fan3Rpm:
        return FanRpm(profile, 2);
    case Signal::Fan4Rpm:
        return FanRpm(profile, 3);
    }
    return {};
}

/// How many bytes of address a reading command takes; 0 for one that reads no bank.
std::size_t AddressBytes(std::uint8_t command) {
    switch (command) {
    case 0x80:
    case 0x87:
    case 0xCC:
        return 2;
    case 0xA4:
    case 0xAC:
    case 0xC4:
    case 0xCE:
    case 0xE0:
        return 1;
    default:
        return 0;
    }
}

constexpr std::uint32_t KeyOf(std::uint8_t command, std::uint32_t address) {
    return static_cast<std::uint32_t>(command) << 16 | address;
}

constexpr bool HasSensorHub(Generation generation) {
    return generation != Generation::None && generation != Generation::Banked;
}

constexpr std::uint8_t Settled = 0x80;
constexpr std::uint8_t EverythingElse = 0x7F;

std::uint8_t Flag(bool settled) {
    return settled ? Settled : EverythingElse;
}

} // namespace

EcRegisterBanks::EcRegisterBanks(const EcProfile& profile) {
    for (const Placement& placement : PlacementsOf(GenerationOf(profile))) {
        std::uint32_t address = placement.address;
        for (const std::uint8_t byte : BytesOf(profile, placement.signal)) {
            Put(placement.command, address++, byte);
        }
    }
    LayOutSensors(profile);
}

void EcRegisterBanks::Put(std::uint8_t command, std::uint32_t address, std::uint8_t byte) {
    m_bytes[KeyOf(command, address)] = byte;
}

/// Six channels, three to a device. The hub of the older boards keeps the converters' counts in groups of its
/// devices; the banked firmware has converted them, and keeps its devices apart from its own state.
void EcRegisterBanks::LayOutSensors(const EcProfile& profile) {
    const Generation generation = GenerationOf(profile);
    const EcSensors& sensors = profile.sensors;
    const auto devices =
        static_cast<std::uint8_t>((sensors.devicePresent[0] ? 1 : 0) | (sensors.devicePresent[1] ? 2 : 0));
    if (HasSensorHub(generation)) {
        constexpr std::uint8_t Noise = 0x7C;
        constexpr std::uint8_t FlagsAt[] = {0x19, 0x1A, 0x1B, 0x29, 0x2A, 0x2B};
        constexpr std::uint8_t CountsAt[] = {0x1C, 0x1D, 0x1E, 0x2C, 0x2D, 0x2E};
        constexpr Thermistor Parts[] = {Thermistor::PowerStage, Thermistor::PowerStage,
                                        Thermistor::PowerStage, Thermistor::PowerStage,
                                        Thermistor::Chip,       Thermistor::Chip};
        Put(0xAC, 0x00, static_cast<std::uint8_t>((sensors.ready ? Settled : Noise) | devices));
        for (std::size_t channel = 0; channel < sensors.channels.size(); ++channel) {
            Put(0xAC, FlagsAt[channel], Flag(sensors.channels[channel].valid));
            Put(0xAC, CountsAt[channel], ThermistorCount(Parts[channel], sensors.channels[channel].degrees));
        }
    } else if (generation == Generation::Banked) {
        Put(0xCE, 0x00, Flag(sensors.ready));
        Put(0xCE, 0x01, devices);
        for (unsigned channel = 0; channel < sensors.channels.size(); ++channel) {
            Put(0xCE, 0x10u + channel, sensors.channels[channel].degrees);
            Put(0xCE, 0x28u + channel, Flag(sensors.channels[channel].valid));
        }
    }
}

std::optional<std::uint8_t> EcRegisterBanks::Find(std::uint8_t command,
                                                  std::span<const std::uint8_t> address) const {
    if (address.empty() || address.size() != AddressBytes(command)) {
        return std::nullopt;
    }
    std::uint32_t number = 0;
    for (const std::uint8_t byte : address) {
        number = number << 8 | byte;
    }
    const auto found = m_bytes.find(KeyOf(command, number));
    return found == m_bytes.end() ? std::nullopt : std::optional(found->second);
}

bool ReadsBank(std::uint8_t command) {
    return AddressBytes(command) != 0;
}

} // namespace machine
