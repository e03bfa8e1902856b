// The register maps of the embedded controllers: one column for each map, one row for each signal.
#pragma once

#include "ec/ec_sequences.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace sondrel {

enum EcMap : std::uint8_t { EcMapA, EcMapB, EcMapC, EcMapD };

/// Where each map has a signal.
template <class Source>
struct EcSignal {
    Source inMapA;
    Source inMapB;
    Source inMapC;
    Source inMapD;

    [[nodiscard]] constexpr const Source& In(EcMap map) const {
        switch (map) {
        case EcMapA:
            return inMapA;
        case EcMapB:
            return inMapB;
        case EcMapC:
            return inMapC;
        default:
            return inMapD;
        }
    }
};

/// A firmware revision code of two ASCII letters.
constexpr std::uint32_t EcCode(char first, char second) {
    return static_cast<std::uint32_t>(first) << 8 | static_cast<std::uint32_t>(second);
}

/// Selects a map. The rows of one code are tried in their order; each row with a chip id reads the id itself.
struct EcFamily {
    std::uint32_t code;
    std::optional<std::uint32_t> chipId;
    EcMap map;
};

inline constexpr std::optional<std::uint32_t> AnyChip = std::nullopt;

inline constexpr std::size_t EcNameLength = 10;

// clang-format off

inline constexpr EcFamily EcFamilies[] = {
    {EcCode('C', 'F'), AnyChip, EcMapB},
    {EcCode('G', 'L'), AnyChip, EcMapB},
    {EcCode('P', 'C'), AnyChip, EcMapB},
    {EcCode('W', 'L'), AnyChip, EcMapB},
    {EcCode('A', 'B'), 0,       EcMapA},
    {EcCode('A', 'R'), 0,       EcMapA},
    {EcCode('K', 'L'), 0,       EcMapC},
    {EcCode('K', 'L'), 1,       EcMapD},
};

namespace ec_signal {

// One byte: the command and its data bytes.
inline constexpr EcSignal<EcRead>
    //                       EcMapA              EcMapB              EcMapC              EcMapD
    CpuTemperature       = {{0x80, 0x03, 0xA0}, {0xCC, 0x00, 0x00}, {0x80, 0x03, 0xA0}, {0x80, 0xF7, 0xA0}},
    BoardTs0lTemperature = {{0x80, 0x05, 0x12}, {0xCC, 0x00, 0x01}, {0x80, 0x05, 0x12}, {0x80, 0xF9, 0x12}},
    BoardTs0rTemperature = {{0x80, 0x05, 0x11}, {0xCC, 0x00, 0x02}, {0x80, 0x05, 0x11}, {0x80, 0xF9, 0x11}},
    GpuTs1lTemperature   = {{0x80, 0x03, 0xA5}, {0xCC, 0x00, 0x03}, {0x80, 0x03, 0xA5}, {0x80, 0xF7, 0xA5}},
    GpuTs1rTemperature   = {{0x80, 0x03, 0xA4}, {0xCC, 0x00, 0x04}, {0x80, 0x03, 0xA4}, {0x80, 0xF7, 0xA4}},
    LidState             = {{0x87, 0x00, 0x11}, {0xE0, 0x01},       {0x87, 0x00, 0x11}, {0x87, 0x00, 0xB4}};

// The first of ten bytes: the last data byte counts up.
inline constexpr EcSignal<EcRead>
    //                       EcMapA              EcMapB              EcMapC              EcMapD
    ManufacturerName     = {{0x80, 0x06, 0x33}, {0xC4, 0x10},       {0xA4, 0x20},       {0x80, 0xFA, 0x33}};

// Two bytes: the command, its data bytes for the low byte, and the last data byte for the high byte.
inline constexpr EcSignal<EcWord>
    //                       EcMapA                    EcMapB              EcMapC              EcMapD
    ChargingVoltage      = {{0x80, 0x03, 0xC2, 0xC3}, {0xC4, 0x3E, 0x3F}, {0xA4, 0x12, 0x13}, {0x80, 0xF7, 0xC2, 0xC3}},
    Current              = {{0x80, 0x03, 0xBC, 0xBD}, {0xC4, 0x38, 0x39}, {0xA4, 0x0C, 0x0D}, {0x80, 0xF7, 0xBC, 0xBD}},
    PackageVoltage       = {{0x80, 0x03, 0xB2, 0xB3}, {0xC4, 0x36, 0x37}, {0xA4, 0x02, 0x03}, {0x80, 0xF7, 0xB2, 0xB3}},
    BatteryTemperature   = {{0x80, 0x03, 0xBE, 0xBF}, {0xC4, 0x34, 0x35}, {0xA4, 0x0E, 0x0F}, {0x80, 0xF7, 0xBE, 0xBF}};

// Maps without an entry take the count from the battery device.
inline constexpr EcSignal<std::optional<EcWord>>
    CycleCount           = {std::nullopt, EcWord{0xC4, 0x2E, 0x2F}, std::nullopt, std::nullopt};

// Words over the battery bus: the battery's register. The date has the number that the Smart Battery Data
// Specification gives it.
inline constexpr EcSignal<EcBatteryWord>
    ManufactureDate      = {BatteryBusWordAB{0x1B}, BatteryBusWordByChip{0x1B}, BatteryBusWordAB{0x1B}, BatteryBusWord9B{0x1B}};

inline constexpr EcSignal<EcBatteryWord> CellVoltages[] = {
    // EcMapA                 EcMapB                    EcMapC                  EcMapD
    {BatteryBusWordAB{0x3F}, EcWord{0xC4, 0x48, 0x49}, BatteryBusWordAB{0x3F}, BatteryBusWord9B{0x3F}},
    {BatteryBusWordAB{0x3E}, EcWord{0xC4, 0x4A, 0x4B}, BatteryBusWordAB{0x3E}, BatteryBusWord9B{0x3E}},
    {BatteryBusWordAB{0x3D}, EcWord{0xC4, 0x4C, 0x4D}, BatteryBusWordAB{0x3D}, BatteryBusWord9B{0x3D}},
    {BatteryBusWordAB{0x3C}, EcWord{0xC4, 0x4E, 0x4F}, BatteryBusWordAB{0x3C}, BatteryBusWord9B{0x3C}},
};

// A tachometer's selector and ready mask, or two bytes that hold the speed.
inline constexpr std::monostate NoFan;
inline constexpr EcSignal<EcFan> FanSpeeds[] = {
    // EcMapA                   EcMapB                          EcMapC                    EcMapD
    {EcTachometer{0x20, 0x80}, EcWord{0xCC, 0x00, 0x35, 0x36}, EcTachometer{0x20, 0x80}, EcTachometer{0x20, 0x80}},
    {EcTachometer{0x10, 0x40}, EcWord{0xCC, 0x00, 0x3C, 0x3D}, EcTachometer{0x10, 0x40}, EcTachometer{0x10, 0x40}},
    {NoFan,                    EcWord{0xCC, 0x01, 0x35, 0x36}, EcTachometer{0x04, 0x08}, NoFan},
    {NoFan,                    EcWord{0xCC, 0x01, 0x3C, 0x3D}, NoFan,                    NoFan},
};

// The sensor block: the layout that each map has, then its six channels.
inline constexpr EcSensorBlock BlockAC{0xAC, 0x00, &EcSensor::blockAC, EcSensorUnit::ThermistorCounts};
inline constexpr EcSensorBlock BlockCE{0xCE, 0x01, &EcSensor::blockCE, EcSensorUnit::Degrees};
inline constexpr EcSignal<EcSensorBlock>
    //                     EcMapA   EcMapB   EcMapC   EcMapD
    SensorBlock        = {BlockAC, BlockCE, BlockAC, BlockAC};

inline constexpr EcSensor
    //                    device   block AC      block CE
    //                    bit      valid value   valid value
    BatteryConnector   = {0x01,   {0x19, 0x1C}, {0x28, 0x10}},
    AcFet              = {0x01,   {0x1A, 0x1D}, {0x29, 0x11}},
    ChargerChoke       = {0x01,   {0x1B, 0x1E}, {0x2A, 0x12}},
    GpuVrm             = {0x02,   {0x29, 0x2C}, {0x2B, 0x13}},
    UpperCpu           = {0x02,   {0x2A, 0x2D}, {0x2C, 0x14}},
    GpuVram            = {0x02,   {0x2B, 0x2E}, {0x2D, 0x15}};

} // namespace ec_signal

// clang-format on

/// Where a machine has its cycle count is decided by the code alone, so the maps of one code have to agree.
static_assert(std::ranges::all_of(EcFamilies, [](const EcFamily& row) {
    return std::ranges::all_of(EcFamilies, [&row](const EcFamily& other) {
        return row.code != other.code || ec_signal::CycleCount.In(row.map).has_value() ==
                                             ec_signal::CycleCount.In(other.map).has_value();
    });
}));

} // namespace sondrel
