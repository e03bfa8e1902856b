#include "ec/ec_sequences.h"

#include "ec/ec_identity.h"
#include "platform/time.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

namespace sondrel {
namespace {

/// The raw number, or nothing when a command failed.
using Raw = std::optional<std::uint32_t>;

struct EcByte {
    std::uint32_t byte = 0;
    std::uint32_t status = ec_status::Done;
};

EcByte Send(const EcRead& read) {
    EcByte answer;
    answer.byte = RwEcCmd(read.dataCount, read.command, read.data, 1, &answer.status);
    return answer;
}

Raw Read(const EcRead& read) {
    const EcByte answer = Send(read);
    return answer.status == ec_status::Done ? Raw(answer.byte) : std::nullopt;
}

bool Write(std::uint8_t command, std::span<const std::uint8_t> data) {
    std::uint32_t status = ec_status::Done;
    RwEcCmd(static_cast<std::uint8_t>(data.size()), command, data.data(), 0, &status);
    return status == ec_status::Done;
}

/// Writes pairs of a set-up register and its value.
bool WriteSetUp(std::uint8_t command, std::span<const std::array<std::uint8_t, 2>> registers) {
    return std::ranges::all_of(registers, [command](const auto& pair) { return Write(command, pair); });
}

constexpr unsigned PollLimit = 20;
constexpr std::uint32_t SettleMilliseconds = 10;

/// Polls until done(byte) and calls `pause` after each try before that. Exhausted retries are not an error:
/// only the status of the last read counts.
template <class Done, class Pause>
bool Poll(const EcRead& read, Done done, Pause pause) {
    EcByte last;
    for (unsigned tries = 0; tries < PollLimit; ++tries) {
        last = Send(read);
        if (done(last.byte)) {
            break;
        }
        pause();
    }
    return last.status == ec_status::Done;
}

Raw ReadWord(const EcWord& word) {
    const Raw low = Read(word.low);
    if (!low) {
        return std::nullopt;
    }
    const Raw high = Read(word.high);
    if (!high) {
        return std::nullopt;
    }
    return *high * 256 + *low;
}

Raw ReadWord(const BatteryBusWordAB& word) {
    const std::array<std::uint8_t, 2> setUp[] = {
        {0x05, 0x01}, {0x06, 0x09}, {0x08, 0x16}, {0x09, word.batteryRegister}, {0x04, 0x10}};
    if (!WriteSetUp(0xAB, setUp)) {
        return std::nullopt;
    }
    return ReadWord(EcWord{0xAA, 0x40, 0x41});
}

Raw ReadWord(const BatteryBusWord9B& word) {
    constexpr std::uint32_t BusyBit = 0x01;
    constexpr std::uint32_t BusyMilliseconds = 1;
    const std::array<std::uint8_t, 2> setUp[] = {{0x18, 0x09}, {0x1A, 0x16}, {0x1B, word.batteryRegister}};
    if (!WriteSetUp(0x9B, setUp) || !Write(0x9C, {})) {
        return std::nullopt;
    }
    platform::Sleep(SettleMilliseconds);
    const bool answered = Poll(
        EcRead{0x80, 0xED, 0xE3}, [](std::uint32_t byte) { return (byte & BusyBit) == 0; },
        [] { platform::Sleep(BusyMilliseconds); });
    return answered ? ReadWord(EcWord{0x9A, 0x1C, 0x1D}) : std::nullopt;
}

Raw ReadWord(const BatteryBusWordByChip& word) {
    switch (ReadEcChipId()) {
    case 0:
        return ReadWord(BatteryBusWordAB{word.batteryRegister});
    case 1:
        return ReadWord(BatteryBusWord9B{word.batteryRegister});
    default:
        return 0;
    }
}

Raw ReadSpeed(std::monostate) {
    return 0;
}

Raw ReadSpeed(const EcWord& word) {
    return ReadWord(word);
}

Raw ReadSpeed(const EcTachometer& fan) {
    constexpr std::uint32_t TicksPerMinute = 4312500;
    const std::array<std::uint8_t, 3> start{0x02, fan.selector, fan.selector};
    const bool started = Write(0xA1, start);
    // The pause comes before the status is tested.
    platform::Sleep(SettleMilliseconds);
    if (!started) {
        return std::nullopt;
    }
    const bool answered = Poll(
        EcRead{0xA0, 0x02}, [fan](std::uint32_t byte) { return (byte & fan.readyMask) != 0; }, [] {});
    if (!answered) {
        return std::nullopt;
    }
    const Raw count = ReadWord(EcWord{0xA0, 0x03, 0x04});
    if (!count || *count == 0) {
        return count;
    }
    return TicksPerMinute / (*count * 2);
}

Raw ReadSensor(const EcSensorBlock& block, const EcSensor& sensor) {
    constexpr std::uint8_t StateRegister = 0x00;
    constexpr std::uint32_t ReadyBit = 0x80;
    const EcSensorRegisters registers = sensor.*block.registers;
    const auto readRegister = [&block](std::uint8_t number) {
        return Read({block.command, number});
    };
    const Raw state = readRegister(StateRegister);
    if (!state) {
        return std::nullopt;
    }
    // In one layout the state register has the device bits too, and is not read twice.
    const Raw devices = block.deviceRegister == StateRegister ? state : readRegister(block.deviceRegister);
    if (!devices) {
        return std::nullopt;
    }
    const Raw valid = readRegister(registers.valid);
    if (!valid) {
        return std::nullopt;
    }
    if ((*state & ReadyBit) == 0 || (*devices & sensor.deviceBit) == 0 || (*valid & ReadyBit) == 0) {
        return EcSensorNotReady;
    }
    return readRegister(registers.value);
}

} // namespace

std::uint32_t ReadSource(const EcRead& source) {
    return Read(source).value_or(EcReadFailed);
}

std::uint32_t ReadSource(const EcWord& source) {
    return ReadWord(source).value_or(EcReadFailed);
}

std::uint32_t ReadSource(const EcBatteryWord& source) {
    return std::visit([](const auto& word) { return ReadWord(word); }, source).value_or(EcReadFailed);
}

std::uint32_t ReadSource(const EcFan& source) {
    return std::visit([](const auto& fan) { return ReadSpeed(fan); }, source).value_or(EcReadFailed);
}

std::uint32_t ReadSource(const EcSensorBlock& block, const EcSensor& sensor) {
    return ReadSensor(block, sensor).value_or(EcReadFailed);
}

} // namespace sondrel
