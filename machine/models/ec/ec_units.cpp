#include "machine/models/ec/ec_units.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace machine {
namespace {

struct ThermistorPoint {
    std::uint8_t degrees;
    std::uint8_t count;
};

// The parts' data sheets, from hot to cold.
constexpr ThermistorPoint PowerStagePoints[] = {
    {110, 26}, {109, 32}, {108, 35}, {107, 38}, {106, 41}, {105, 44}, {104, 47}, {103, 50}, {102, 54},
    {101, 57}, {100, 60}, {99, 63},  {98, 67},  {97, 71},  {96, 74},  {95, 78},  {94, 81},  {93, 85},
    {92, 89},  {91, 93},  {90, 96},  {89, 100}, {88, 104}, {87, 108}, {86, 112}, {85, 116}, {84, 120},
    {83, 124}, {82, 129}, {81, 133}, {80, 137}, {79, 141}, {78, 146}, {77, 150}, {76, 154}, {75, 159},
    {74, 163}, {73, 167}, {72, 172}, {71, 176}, {70, 181}, {69, 185}, {68, 190}, {67, 194}, {66, 198},
    {65, 203}, {64, 207}, {63, 212}, {62, 216}, {61, 221}, {60, 225}, {59, 229}, {58, 234}, {57, 238},
    {56, 242}, {55, 246}, {54, 250}, {53, 255}, {52, 255}, {51, 255},
};

constexpr ThermistorPoint ChipPoints[] = {
    {100, 0},  {99, 3},   {98, 5},   {97, 7},   {96, 10},  {95, 13},  {94, 15},  {93, 18},  {92, 21},
    {91, 24},  {90, 27},  {89, 30},  {88, 33},  {87, 36},  {86, 39},  {85, 42},  {84, 45},  {83, 49},
    {82, 52},  {81, 56},  {80, 59},  {79, 63},  {78, 66},  {77, 70},  {76, 74},  {75, 78},  {74, 82},
    {73, 86},  {72, 90},  {71, 94},  {70, 98},  {69, 102}, {68, 106}, {67, 110}, {66, 115}, {65, 119},
    {64, 124}, {63, 128}, {62, 132}, {61, 137}, {60, 142}, {59, 146}, {58, 151}, {57, 155}, {56, 160},
    {55, 165}, {54, 170}, {53, 174}, {52, 179}, {51, 184}, {50, 188}, {49, 193}, {48, 198}, {47, 203},
    {46, 207}, {45, 212}, {44, 217}, {43, 222}, {42, 226}, {41, 231}, {40, 235}, {39, 240}, {38, 244},
    {37, 249}, {36, 253}, {35, 255},
};

std::uint16_t Rounded(double number) {
    return static_cast<std::uint16_t>(std::lround(number));
}

} // namespace

std::uint8_t ThermistorCount(Thermistor part, std::uint8_t degrees) {
    const std::span<const ThermistorPoint> points = part == Thermistor::PowerStage
                                                        ? std::span<const ThermistorPoint>(PowerStagePoints)
                                                        : std::span<const ThermistorPoint>(ChipPoints);
    for (const ThermistorPoint& point : points) {
        if (degrees >= point.degrees) {
            return point.count;
        }
    }
    return points.back().count;
}

std::uint16_t TachometerCount(std::uint32_t rpm) {
    constexpr std::uint64_t ClockHertz = 71875;
    constexpr std::uint64_t SecondsPerMinute = 60;
    constexpr std::uint64_t PulsesPerTurn = 2;
    constexpr std::uint64_t Slowest = 0xFFFF;
    if (rpm == 0) {
        return 0;
    }
    const std::uint64_t halfTurnsPerMinute = PulsesPerTurn * rpm;
    const std::uint64_t ticks = (ClockHertz * SecondsPerMinute + halfTurnsPerMinute / 2) / halfTurnsPerMinute;
    return static_cast<std::uint16_t>(std::min(ticks, Slowest));
}

std::uint16_t Millivolts(double volts) {
    return Rounded(volts * 1000);
}

std::uint16_t Milliamperes(double amperes) {
    return Rounded(amperes * 1000);
}

std::uint16_t Decikelvin(double degrees) {
    return Rounded((degrees + 273.15) * 10);
}

std::uint16_t PackedDate(const EcDate& date) {
    return static_cast<std::uint16_t>(date.day + 32 * date.month + 512 * (date.year - 1980));
}

} // namespace machine
