#include "ec/ec_maps.h"

#include "ec/ec_identity.h"
#include "platform/time.h"

#include <algorithm>

namespace sondrel {
namespace {

// ---- The register maps ------------------------------------------------------------------------------------

constexpr EcRead At(std::uint8_t command, std::uint8_t first) {
    return {command, 1, {first}};
}

constexpr EcRead At(std::uint8_t command, std::uint8_t first, std::uint8_t second) {
    return {command, 2, {first, second}};
}

// Registers of the battery itself. The date is the one that the Smart Battery Data Specification names.
constexpr std::uint8_t BatteryDate = 0x1B;
constexpr std::uint8_t BatteryCell0 = 0x3F;
constexpr std::uint8_t BatteryCell1 = 0x3E;
constexpr std::uint8_t BatteryCell2 = 0x3D;
constexpr std::uint8_t BatteryCell3 = 0x3C;

constexpr std::uint8_t SensorDevice1 = 0x01;
constexpr std::uint8_t SensorDevice2 = 0x02;

constexpr EcSensorBlock SensorBlockAC{
    .command = 0xAC,
    .deviceRegister = 0x00,
    .unit = EcSensorUnit::ThermistorCounts,
    .batteryConnector = {SensorDevice1, 0x19, 0x1C},
    .acFet = {SensorDevice1, 0x1A, 0x1D},
    .chargerChoke = {SensorDevice1, 0x1B, 0x1E},
    .gpuVrm = {SensorDevice2, 0x29, 0x2C},
    .upperCpu = {SensorDevice2, 0x2A, 0x2D},
    .gpuVram = {SensorDevice2, 0x2B, 0x2E},
};

constexpr EcSensorBlock SensorBlockCE{
    .command = 0xCE,
    .deviceRegister = 0x01,
    .unit = EcSensorUnit::Degrees,
    .batteryConnector = {SensorDevice1, 0x28, 0x10},
    .acFet = {SensorDevice1, 0x29, 0x11},
    .chargerChoke = {SensorDevice1, 0x2A, 0x12},
    .gpuVrm = {SensorDevice2, 0x2B, 0x13},
    .upperCpu = {SensorDevice2, 0x2C, 0x14},
    .gpuVram = {SensorDevice2, 0x2D, 0x15},
};

constexpr EcTachometer Tachometer0{.selector = 0x20, .readyMask = 0x80};
constexpr EcTachometer Tachometer1{.selector = 0x10, .readyMask = 0x40};
constexpr EcTachometer Tachometer2{.selector = 0x04, .readyMask = 0x08};
constexpr std::monostate NoFan;

constexpr EcMap EcMapA{
    .cpuTemperature = At(0x80, 0x03, 0xA0),
    .boardTs0lTemperature = At(0x80, 0x05, 0x12),
    .boardTs0rTemperature = At(0x80, 0x05, 0x11),
    .gpuTs1lTemperature = At(0x80, 0x03, 0xA5),
    .gpuTs1rTemperature = At(0x80, 0x03, 0xA4),
    .lidState = At(0x87, 0x00, 0x11),
    .chargingVoltage = {At(0x80, 0x03, 0xC2), At(0x80, 0x03, 0xC3)},
    .current = {At(0x80, 0x03, 0xBC), At(0x80, 0x03, 0xBD)},
    .packageVoltage = {At(0x80, 0x03, 0xB2), At(0x80, 0x03, 0xB3)},
    .batteryTemperature = {At(0x80, 0x03, 0xBE), At(0x80, 0x03, 0xBF)},
    .cycleCount = std::nullopt,
    .manufacturerName = At(0x80, 0x06, 0x33),
    .manufactureDate = BatteryBusWordAB{BatteryDate},
    .cells = {BatteryBusWordAB{BatteryCell0}, BatteryBusWordAB{BatteryCell1}, BatteryBusWordAB{BatteryCell2},
              BatteryBusWordAB{BatteryCell3}},
    .sensors = SensorBlockAC,
    .fans = {Tachometer0, Tachometer1, NoFan, NoFan},
};

constexpr EcMap EcMapB{
    .cpuTemperature = At(0xCC, 0x00, 0x00),
    .boardTs0lTemperature = At(0xCC, 0x00, 0x01),
    .boardTs0rTemperature = At(0xCC, 0x00, 0x02),
    .gpuTs1lTemperature = At(0xCC, 0x00, 0x03),
    .gpuTs1rTemperature = At(0xCC, 0x00, 0x04),
    .lidState = At(0xE0, 0x01),
    .chargingVoltage = {At(0xC4, 0x3E), At(0xC4, 0x3F)},
    .current = {At(0xC4, 0x38), At(0xC4, 0x39)},
    .packageVoltage = {At(0xC4, 0x36), At(0xC4, 0x37)},
    .batteryTemperature = {At(0xC4, 0x34), At(0xC4, 0x35)},
    .cycleCount = EcWord{At(0xC4, 0x2E), At(0xC4, 0x2F)},
    .manufacturerName = At(0xC4, 0x10),
    .manufactureDate = BatteryBusWordByChip{BatteryDate},
    .cells = {EcWord{At(0xC4, 0x48), At(0xC4, 0x49)}, EcWord{At(0xC4, 0x4A), At(0xC4, 0x4B)},
              EcWord{At(0xC4, 0x4C), At(0xC4, 0x4D)}, EcWord{At(0xC4, 0x4E), At(0xC4, 0x4F)}},
    .sensors = SensorBlockCE,
    .fans = {EcWord{At(0xCC, 0x00, 0x35), At(0xCC, 0x00, 0x36)},
             EcWord{At(0xCC, 0x00, 0x3C), At(0xCC, 0x00, 0x3D)},
             EcWord{At(0xCC, 0x01, 0x35), At(0xCC, 0x01, 0x36)},
             EcWord{At(0xCC, 0x01, 0x3C), At(0xCC, 0x01, 0x3D)}},
};

constexpr EcMap EcMapC{
    .cpuTemperature = At(0x80, 0x03, 0xA0),
    .boardTs0lTemperature = At(0x80, 0x05, 0x12),
    .boardTs0rTemperature = At(0x80, 0x05, 0x11),
    .gpuTs1lTemperature = At(0x80, 0x03, 0xA5),
    .gpuTs1rTemperature = At(0x80, 0x03, 0xA4),
    .lidState = At(0x87, 0x00, 0x11),
    .chargingVoltage = {At(0xA4, 0x12), At(0xA4, 0x13)},
    .current = {At(0xA4, 0x0C), At(0xA4, 0x0D)},
    .packageVoltage = {At(0xA4, 0x02), At(0xA4, 0x03)},
    .batteryTemperature = {At(0xA4, 0x0E), At(0xA4, 0x0F)},
    .cycleCount = std::nullopt,
    .manufacturerName = At(0xA4, 0x20),
    .manufactureDate = BatteryBusWordAB{BatteryDate},
    .cells = {BatteryBusWordAB{BatteryCell0}, BatteryBusWordAB{BatteryCell1}, BatteryBusWordAB{BatteryCell2},
              BatteryBusWordAB{BatteryCell3}},
    .sensors = SensorBlockAC,
    .fans = {Tachometer0, Tachometer1, Tachometer2, NoFan},
};

constexpr EcMap EcMapD{
    .cpuTemperature = At(0x80, 0xF7, 0xA0),
    .boardTs0lTemperature = At(0x80, 0xF9, 0x12),
    .boardTs0rTemperature = At(0x80, 0xF9, 0x11),
    .gpuTs1lTemperature = At(0x80, 0xF7, 0xA5),
    .gpuTs1rTemperature = At(0x80, 0xF7, 0xA4),
    .lidState = At(0x87, 0x00, 0xB4),
    .chargingVoltage = {At(0x80, 0xF7, 0xC2), At(0x80, 0xF7, 0xC3)},
    .current = {At(0x80, 0xF7, 0xBC), At(0x80, 0xF7, 0xBD)},
    .packageVoltage = {At(0x80, 0xF7, 0xB2), At(0x80, 0xF7, 0xB3)},
    .batteryTemperature = {At(0x80, 0xF7, 0xBE), At(0x80, 0xF7, 0xBF)},
    .cycleCount = std::nullopt,
    .manufacturerName = At(0x80, 0xFA, 0x33),
    .manufactureDate = BatteryBusWord9B{BatteryDate},
    .cells = {BatteryBusWord9B{BatteryCell0}, BatteryBusWord9B{BatteryCell1}, BatteryBusWord9B{BatteryCell2},
              BatteryBusWord9B{BatteryCell3}},
    .sensors = SensorBlockAC,
    .fans = {Tachometer0, Tachometer1, NoFan, NoFan},
};

// ---- The dispatch -----------------------------------------------------------------------------------------

constexpr std::uint32_t Code(char first, char second) {
    return static_cast<std::uint32_t>(first) << 8 | static_cast<std::uint32_t>(second);
}

/// One way of getting to a map. Rows of a code are tried in their order, and each that names a chip id asks
/// for the id itself.
struct EcFamilyRow {
    std::uint32_t code;
    std::optional<std::uint32_t> chipId;
    const EcMap* map;
};

constexpr EcFamilyRow EcFamilies[] = {
    {Code('C', 'F'), std::nullopt, &EcMapB},
    {Code('G', 'L'), std::nullopt, &EcMapB},
    {Code('P', 'C'), std::nullopt, &EcMapB},
    {Code('W', 'L'), std::nullopt, &EcMapB},
    {Code('A', 'B'), 0, &EcMapA},
    {Code('A', 'R'), 0, &EcMapA},
    {Code('K', 'L'), 0, &EcMapC},
    {Code('K', 'L'), 1, &EcMapD},
};

/// Whether a family reads its cycle count from the EC is decided without the chip id.
constexpr bool CycleCountSourcesAgree() {
    return std::ranges::all_of(EcFamilies, [](const EcFamilyRow& row) {
        return std::ranges::all_of(EcFamilies, [&row](const EcFamilyRow& other) {
            return row.code != other.code ||
                   row.map->cycleCount.has_value() == other.map->cycleCount.has_value();
        });
    });
}

static_assert(CycleCountSourcesAgree());

// ---- The walkers: one for each kind of sequence -------------------------------------------------------------

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

constexpr unsigned MostTries = 20;
constexpr std::uint32_t SettleMilliseconds = 10;

/// Asks again until `done` likes the byte; `between` runs after each try that it does not like. Running out of
/// tries is no failure. Only the last read's status counts.
template <class Done, class Between>
bool Poll(const EcRead& read, Done done, Between between) {
    EcByte last;
    for (unsigned tries = 0; tries < MostTries; ++tries) {
        last = Send(read);
        if (done(last.byte)) {
            break;
        }
        between();
    }
    return last.status == ec_status::Done;
}

Raw ReadWord(const BatteryBusWordAB& word) {
    const std::array<std::uint8_t, 2> setUp[] = {
        {0x05, 0x01}, {0x06, 0x09}, {0x08, 0x16}, {0x09, word.batteryRegister}, {0x04, 0x10}};
    if (!WriteSetUp(0xAB, setUp)) {
        return std::nullopt;
    }
    return ReadWord(EcWord{At(0xAA, 0x40), At(0xAA, 0x41)});
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
        At(0x80, 0xED, 0xE3), [](std::uint32_t byte) { return (byte & BusyBit) == 0; },
        [] { platform::Sleep(BusyMilliseconds); });
    return answered ? ReadWord(EcWord{At(0x9A, 0x1C), At(0x9A, 0x1D)}) : std::nullopt;
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
    // The EC gets its time whether it took the command or not.
    platform::Sleep(SettleMilliseconds);
    if (!started) {
        return std::nullopt;
    }
    const bool answered = Poll(
        At(0xA0, 0x02), [fan](std::uint32_t byte) { return (byte & fan.readyMask) != 0; }, [] {});
    if (!answered) {
        return std::nullopt;
    }
    const Raw count = ReadWord(EcWord{At(0xA0, 0x03), At(0xA0, 0x04)});
    if (!count || *count == 0) {
        return count;
    }
    return TicksPerMinute / (*count * 2);
}

Raw ReadSensor(const EcSensorBlock& block, const EcSensor& sensor) {
    constexpr std::uint8_t StateRegister = 0x00;
    constexpr std::uint32_t ReadyBit = 0x80;
    const auto readRegister = [&block](std::uint8_t number) {
        return Read(At(block.command, number));
    };
    const Raw state = readRegister(StateRegister);
    if (!state) {
        return std::nullopt;
    }
    const Raw devices = block.deviceRegister == StateRegister ? state : readRegister(block.deviceRegister);
    if (!devices) {
        return std::nullopt;
    }
    const Raw valid = readRegister(sensor.validRegister);
    if (!valid) {
        return std::nullopt;
    }
    if ((*state & ReadyBit) == 0 || (*devices & sensor.deviceBit) == 0 || (*valid & ReadyBit) == 0) {
        return EcSensorNotReady;
    }
    return readRegister(sensor.valueRegister);
}

std::uint32_t OrFailed(Raw raw) {
    return raw.value_or(EcReadFailed);
}

std::uint32_t ReadBatteryWord(const EcBatteryWord& reading) {
    return OrFailed(std::visit([](const auto& word) { return ReadWord(word); }, reading));
}

} // namespace

const EcMap* FindEcMap() {
    const std::uint32_t code = ReadEcFirmwareRevision();
    for (const EcFamilyRow& row : EcFamilies) {
        if (row.code == code && (!row.chipId || ReadEcChipId() == *row.chipId)) {
            return row.map;
        }
    }
    return nullptr;
}

const EcMap* FirstEcMapOf(std::uint32_t code) {
    const auto* const row = std::ranges::find(EcFamilies, code, &EcFamilyRow::code);
    return row == std::end(EcFamilies) ? nullptr : row->map;
}

std::uint32_t ReadEcByte(const EcRead& reading) {
    return OrFailed(Read(reading));
}

std::uint32_t ReadEcWord(const EcWord& reading) {
    return OrFailed(ReadWord(reading));
}

std::uint32_t ReadEc(EcRead EcMap::*reading) {
    const EcMap* const map = FindEcMap();
    return map == nullptr ? 0 : ReadEcByte(map->*reading);
}

std::uint32_t ReadEc(EcWord EcMap::*reading) {
    const EcMap* const map = FindEcMap();
    return map == nullptr ? 0 : ReadEcWord(map->*reading);
}

EcSensorReading ReadEcSensor(EcSensor EcSensorBlock::*sensor) {
    const EcMap* const map = FindEcMap();
    if (map == nullptr) {
        return {0, EcSensorUnit::Degrees};
    }
    return {OrFailed(ReadSensor(map->sensors, map->sensors.*sensor)), map->sensors.unit};
}

std::uint32_t ReadEcFan(std::size_t fan) {
    const EcMap* const map = FindEcMap();
    if (map == nullptr) {
        return 0;
    }
    return OrFailed(std::visit([](const auto& source) { return ReadSpeed(source); }, map->fans[fan]));
}

std::uint32_t ReadEcCellVoltage(std::size_t cell) {
    const EcMap* const map = FindEcMap();
    return map == nullptr ? 0 : ReadBatteryWord(map->cells[cell]);
}

std::uint32_t ReadEcManufactureDate() {
    const EcMap* const map = FindEcMap();
    return map == nullptr ? 0 : ReadBatteryWord(map->manufactureDate);
}

bool ReadEcManufacturerName(std::span<char, EcNameLength> name) {
    const EcMap* const map = FindEcMap();
    if (map == nullptr) {
        return false;
    }
    EcRead read = map->manufacturerName;
    for (char& letter : name) {
        const Raw byte = Read(read);
        if (!byte) {
            return false;
        }
        letter = static_cast<char>(*byte);
        ++read.data[read.dataCount - 1];
    }
    return true;
}

} // namespace sondrel
