// Which register map this machine's EC has, and the readings that are made by it.
//
// The same reading sits behind different EC commands on different machines. Each map is one constexpr table in
// ec_maps.cpp; which of them applies is decided anew for every reading, and nothing of it is kept.
#pragma once

#include "ec/ec_command.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <variant>

namespace sondrel {

/// One command that reads one byte back.
struct EcRead {
    std::uint8_t command;
    std::uint8_t dataCount;
    std::uint8_t data[2];
};

/// Two reads that make one number; the low byte is asked for first.
struct EcWord {
    EcRead low;
    EcRead high;
};

/// One channel of the sensor block.
struct EcSensor {
    std::uint8_t deviceBit;
    std::uint8_t validRegister;
    std::uint8_t valueRegister;
};

/// What the value registers of a sensor block hold.
enum class EcSensorUnit : std::uint8_t { ThermistorCounts, Degrees };

/// Two sensor devices of three channels each, behind one command that takes a register number.
struct EcSensorBlock {
    std::uint8_t command;
    std::uint8_t deviceRegister; // which devices answer; 0x00 where the block's state register tells that too
    EcSensorUnit unit;
    EcSensor batteryConnector, acFet, chargerChoke, gpuVrm, upperCpu, gpuVram;
};

/// A fan whose tachometer has to be selected and waited for.
struct EcTachometer {
    std::uint8_t selector;
    std::uint8_t readyMask;
};

/// A fan that the machine does not have, one whose speed stands in two registers, or one with a tachometer.
using EcFan = std::variant<std::monostate, EcWord, EcTachometer>;

/// Words that the EC fetches from a register of the battery itself, each by its own command sequence.
struct BatteryBusWordAB {
    std::uint8_t batteryRegister;
};

struct BatteryBusWord9B {
    std::uint8_t batteryRegister;
};

/// Chip id 0 fetches it as BatteryBusWordAB, chip id 1 as BatteryBusWord9B; others have none.
struct BatteryBusWordByChip {
    std::uint8_t batteryRegister;
};

using EcBatteryWord = std::variant<EcWord, BatteryBusWordAB, BatteryBusWord9B, BatteryBusWordByChip>;

inline constexpr std::size_t EcFanCount = 4;
inline constexpr std::size_t EcCellCount = 4;
inline constexpr std::size_t EcNameLength = 10;

/// Every reading of one register map.
struct EcMap {
    EcRead cpuTemperature, boardTs0lTemperature, boardTs0rTemperature, gpuTs1lTemperature, gpuTs1rTemperature;
    EcRead lidState;
    EcWord chargingVoltage, current, packageVoltage, batteryTemperature;
    std::optional<EcWord> cycleCount; // without one the battery device is asked
    EcRead manufacturerName;          // the first of ten reads; the last data byte counts up
    EcBatteryWord manufactureDate;
    std::array<EcBatteryWord, EcCellCount> cells;
    EcSensorBlock sensors;
    std::array<EcFan, EcFanCount> fans;
};

/// A sensor that has nothing to tell yet.
inline constexpr std::uint32_t EcSensorNotReady = 0xFFFFFFFF;

/// The map of this machine by firmware revision code and, where the code needs it, chip id. Null when the
/// machine has none, which includes one whose EC cannot be identified.
const EcMap* FindEcMap();

/// The first map of a firmware revision code whatever the chip id, or null.
const EcMap* FirstEcMapOf(std::uint32_t code);

/// One reading by its commands: the raw number, or EcReadFailed at the first command that fails.
std::uint32_t ReadEcByte(const EcRead& reading);
std::uint32_t ReadEcWord(const EcWord& reading);

// The readings below find the map themselves. Without one they send nothing and give 0; a command that fails
// ends the reading with EcReadFailed.

std::uint32_t ReadEc(EcRead EcMap::*reading);
std::uint32_t ReadEc(EcWord EcMap::*reading);

struct EcSensorReading {
    std::uint32_t raw; // also EcReadFailed and EcSensorNotReady
    EcSensorUnit unit;
};

EcSensorReading ReadEcSensor(EcSensor EcSensorBlock::*sensor);

/// A fan's speed in revolutions per minute; 0 for a fan that stands still or is not there.
std::uint32_t ReadEcFan(std::size_t fan);

std::uint32_t ReadEcCellVoltage(std::size_t cell);

/// The packed date word of the battery.
std::uint32_t ReadEcManufactureDate();

/// The ten bytes of the battery maker's name as they come. False without a map or when a command failed; the
/// bytes mean nothing then.
bool ReadEcManufacturerName(std::span<char, EcNameLength> name);

} // namespace sondrel
