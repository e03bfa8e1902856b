#include "machine/models/ec/ec_register_banks.h"

#include "machine/models/ec/ec_units.h"

#include <string>
#include <vector>

namespace machine {
namespace {

using SignalBytes = std::vector<std::uint8_t>;

SignalBytes TwoBytes(std::uint32_t number) {
    return {static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(number >> 8)};
}

SignalBytes FanRpm(const EcProfile& ec, std::size_t fan) {
    return TwoBytes(fan < ec.fans.size() ? ec.fans[fan].rpm : 0);
}

/// What a register contains, in the firmware's bytes.
using Signal = SignalBytes (*)(const EcProfile& ec);

// clang-format off
constexpr Signal CpuDegrees = [](const EcProfile& ec) { return SignalBytes{ec.temperatures.cpu}; };
constexpr Signal GpuRightDegrees = [](const EcProfile& ec) { return SignalBytes{ec.temperatures.gpuRight}; };
constexpr Signal GpuLeftDegrees = [](const EcProfile& ec) { return SignalBytes{ec.temperatures.gpuLeft}; };
constexpr Signal BoardRightDegrees = [](const EcProfile& ec) { return SignalBytes{ec.temperatures.boardRight}; };
constexpr Signal BoardLeftDegrees = [](const EcProfile& ec) { return SignalBytes{ec.temperatures.boardLeft}; };
constexpr Signal Lid = [](const EcProfile& ec) { return SignalBytes{ec.lid}; };
constexpr Signal PackMillivolts = [](const EcProfile& ec) { return TwoBytes(Thousandths(ec.battery.packageVolts)); };
constexpr Signal PackMilliamperes = [](const EcProfile& ec) { return TwoBytes(Thousandths(ec.battery.amperes)); };
constexpr Signal PackDecikelvin = [](const EcProfile& ec) { return TwoBytes(Decikelvin(ec.battery.degrees)); };
constexpr Signal ChargerMillivolts = [](const EcProfile& ec) { return TwoBytes(Thousandths(ec.battery.chargingVolts)); };
constexpr Signal PackCycles = [](const EcProfile& ec) { return TwoBytes(ec.battery.cycles); };
constexpr Signal Cell1Millivolts = [](const EcProfile& ec) { return TwoBytes(Thousandths(ec.battery.cellVolts[0])); };
constexpr Signal Cell2Millivolts = [](const EcProfile& ec) { return TwoBytes(Thousandths(ec.battery.cellVolts[1])); };
constexpr Signal Cell3Millivolts = [](const EcProfile& ec) { return TwoBytes(Thousandths(ec.battery.cellVolts[2])); };
constexpr Signal Cell4Millivolts = [](const EcProfile& ec) { return TwoBytes(Thousandths(ec.battery.cellVolts[3])); };
constexpr Signal Fan1Rpm = [](const EcProfile& ec) { return FanRpm(ec, 0); };
constexpr Signal Fan2Rpm = [](const EcProfile& ec) { return FanRpm(ec, 1); };
constexpr Signal Fan3Rpm = [](const EcProfile& ec) { return FanRpm(ec, 2); };
constexpr Signal Fan4Rpm = [](const EcProfile& ec) { return FanRpm(ec, 3); };
// clang-format on

/// Ten bytes, zeros after the name.
constexpr Signal PackMaker = [](const EcProfile& ec) {
    SignalBytes bytes(ec.battery.manufacturer.begin(), ec.battery.manufacturer.end());
    bytes.resize(10);
    return bytes;
};

/// The command that reads a register, and its first address; command 0 for a generation that does not have it.
struct Place {
    std::uint8_t command;
    std::uint16_t address;
};

/// A signal with its place in each generation. Words have their low byte first.
struct Register {
    Signal signal;
    Place places[4];
};

// clang-format off
constexpr Register Registers[] = {
    // signal              legacy          banked          windowed        relocated
    {CpuDegrees,        {{0x80, 0x03A0}, {0xCC, 0x0000}, {0x80, 0x03A0}, {0x80, 0xF7A0}}},
    {BoardLeftDegrees,  {{0x80, 0x0512}, {0xCC, 0x0001}, {0x80, 0x0512}, {0x80, 0xF912}}},
    {BoardRightDegrees, {{0x80, 0x0511}, {0xCC, 0x0002}, {0x80, 0x0511}, {0x80, 0xF911}}},
    {GpuLeftDegrees,    {{0x80, 0x03A5}, {0xCC, 0x0003}, {0x80, 0x03A5}, {0x80, 0xF7A5}}},
    {GpuRightDegrees,   {{0x80, 0x03A4}, {0xCC, 0x0004}, {0x80, 0x03A4}, {0x80, 0xF7A4}}},
    {Lid,               {{0x87, 0x0011}, {0xE0, 0x01},   {0x87, 0x0011}, {0x87, 0x00B4}}},
    {PackMaker,         {{0x80, 0x0633}, {0xC4, 0x10},   {0xA4, 0x20},   {0x80, 0xFA33}}},
    {PackMillivolts,    {{0x80, 0x03B2}, {0xC4, 0x36},   {0xA4, 0x02},   {0x80, 0xF7B2}}},
    {PackMilliamperes,  {{0x80, 0x03BC}, {0xC4, 0x38},   {0xA4, 0x0C},   {0x80, 0xF7BC}}},
    {PackDecikelvin,    {{0x80, 0x03BE}, {0xC4, 0x34},   {0xA4, 0x0E},   {0x80, 0xF7BE}}},
    {ChargerMillivolts, {{0x80, 0x03C2}, {0xC4, 0x3E},   {0xA4, 0x12},   {0x80, 0xF7C2}}},
    {PackCycles,        {{},             {0xC4, 0x2E},   {},             {}}},
    {Cell1Millivolts,   {{},             {0xC4, 0x48},   {},             {}}},
    {Cell2Millivolts,   {{},             {0xC4, 0x4A},   {},             {}}},
    {Cell3Millivolts,   {{},             {0xC4, 0x4C},   {},             {}}},
    {Cell4Millivolts,   {{},             {0xC4, 0x4E},   {},             {}}},
    {Fan1Rpm,           {{},             {0xCC, 0x0035}, {},             {}}},
    {Fan2Rpm,           {{},             {0xCC, 0x003C}, {},             {}}},
    {Fan3Rpm,           {{},             {0xCC, 0x0135}, {},             {}}},
    {Fan4Rpm,           {{},             {0xCC, 0x013C}, {},             {}}},
};
// clang-format on

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

constexpr std::uint8_t Settled = 0x80;
constexpr std::uint8_t EverythingElse = 0x7F;

std::uint8_t Flag(bool settled) {
    return settled ? Settled : EverythingElse;
}

} // namespace

EcRegisterBanks::EcRegisterBanks(const EcProfile& profile) {
    const Generation generation = GenerationOf(profile);
    if (generation == Generation::None) {
        return;
    }
    for (const auto& [signal, places] : Registers) {
        auto [command, address] = places[static_cast<std::size_t>(generation) - 1];
        if (command != 0) {
            for (const std::uint8_t byte : signal(profile)) {
                Put(command, address++, byte);
            }
        }
    }
    LayOutSensors(profile, generation);
}

void EcRegisterBanks::Put(std::uint8_t command, std::uint32_t address, std::uint8_t byte) {
    m_bytes[KeyOf(command, address)] = byte;
}

/// Six channels, three to a device. The hub of the older boards has the converters' counts in groups of its devices;
/// the banked firmware has them in degrees, and its devices apart from its own state.
void EcRegisterBanks::LayOutSensors(const EcProfile& profile, Generation generation) {
    const EcSensors& sensors = profile.sensors;
    const auto devices =
        static_cast<std::uint8_t>((sensors.devicePresent[0] ? 1 : 0) | (sensors.devicePresent[1] ? 2 : 0));
    if (generation != Generation::Banked) {
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
    } else {
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
