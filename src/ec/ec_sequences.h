// The kinds of sources that a number of the EC has, and the command sequence that reads each kind.
#pragma once

#include "ec/ec_command.h"

#include <cstdint>
#include <variant>

namespace sondrel {

/// One command that reads one byte: the command and its data bytes.
struct EcRead {
    constexpr EcRead(std::uint8_t ecCommand, std::uint8_t first)
        : command(ecCommand), dataCount(1), data{first, 0} {}
    constexpr EcRead(std::uint8_t ecCommand, std::uint8_t first, std::uint8_t second)
        : command(ecCommand), dataCount(2), data{first, second} {}

    std::uint8_t command;
    std::uint8_t dataCount;
    std::uint8_t data[2];
};

/// Two bytes that make one number. The low byte is read first; the commands differ in the last data byte.
struct EcWord {
    constexpr EcWord(std::uint8_t command, std::uint8_t lowByte, std::uint8_t highByte)
        : low(command, lowByte), high(command, highByte) {}
    constexpr EcWord(std::uint8_t command, std::uint8_t bank, std::uint8_t lowByte, std::uint8_t highByte)
        : low(command, bank, lowByte), high(command, bank, highByte) {}

    EcRead low;
    EcRead high;
};

/// A word of the battery itself, which the EC fetches over its battery bus by commands 0xAB and 0xAA.
struct BatteryBusWordAB {
    std::uint8_t batteryRegister;
};

/// The same by commands 0x9B, 0x9C and 0x9A.
struct BatteryBusWord9B {
    std::uint8_t batteryRegister;
};

/// BatteryBusWordAB on chip id 0, BatteryBusWord9B on chip id 1. On other chips the word is 0 and no command is
/// sent.
struct BatteryBusWordByChip {
    std::uint8_t batteryRegister;
};

using EcBatteryWord = std::variant<EcWord, BatteryBusWordAB, BatteryBusWord9B, BatteryBusWordByChip>;

/// A tachometer that measures one fan at a time: the fan is selected, then the ready bit is polled.
struct EcTachometer {
    std::uint8_t selector;
    std::uint8_t readyMask;
};

/// A fan that is not installed, one whose speed is in two registers, or one with a tachometer.
using EcFan = std::variant<std::monostate, EcWord, EcTachometer>;

struct EcSensorRegisters {
    std::uint8_t valid;
    std::uint8_t value;
};

/// One channel of the sensor block, with its registers in either layout of the block.
struct EcSensor {
    std::uint8_t deviceBit;
    EcSensorRegisters blockAC;
    EcSensorRegisters blockCE;
};

/// What the value registers of a sensor block hold.
enum class EcSensorUnit : std::uint8_t { ThermistorCounts, Degrees };

/// Two sensor devices of three channels each, read by one command that takes a register number.
struct EcSensorBlock {
    std::uint8_t command;
    std::uint8_t deviceRegister; // its bits say which devices answer
    EcSensorRegisters EcSensor::*registers;
    EcSensorUnit unit;
};

/// The raw number of a sensor that has no value yet.
inline constexpr std::uint32_t EcSensorNotReady = 0xFFFFFFFF;

// Each reads the raw number. The first command that fails ends the sequence, and the result is EcReadFailed.
std::uint32_t ReadSource(const EcRead& source);
std::uint32_t ReadSource(const EcWord& source);
std::uint32_t ReadSource(const EcBatteryWord& source);
std::uint32_t ReadSource(const EcFan& source);

/// The same; EcSensorNotReady when the block, the device or the channel is not ready.
std::uint32_t ReadSource(const EcSensorBlock& block, const EcSensor& sensor);

} // namespace sondrel
