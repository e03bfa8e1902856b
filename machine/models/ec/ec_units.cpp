#include "machine/models/ec/ec_units.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace machine {
namespace {

struct ThermistorPoint {
    int degrees;
    int count;
};

// Every ten degrees and near the ends, from hot to cold; between two points the converter's input is linear enough. Its
// counts end at 255.
constexpr ThermistorPoint PowerStagePoints[] = {{110, 26}, {109, 32}, {100, 60}, {90, 96}, {80, 137},
                                                {70, 181}, {60, 225}, {53, 255}, {51, 264}};
constexpr ThermistorPoint ChipPoints[] = {{100, 0},  {90, 27},  {80, 59},  {70, 98},
                                          {60, 142}, {50, 188}, {40, 235}, {35, 258}};

std::uint16_t Rounded(double number) {
    return static_cast<std::uint16_t>(std::lround(number));
}

} // namespace

std::uint8_t ThermistorCount(Thermistor part, std::uint8_t degrees) {
    const std::span<const ThermistorPoint> points = part == Thermistor::PowerStage
                                                        ? std::span<const ThermistorPoint>(PowerStagePoints)
                                                        : std::span<const ThermistorPoint>(ChipPoints);
    const int within = std::clamp<int>(degrees, points.back().degrees, points.front().degrees);
    const auto cold = std::ranges::find_if(
        points.subspan(1), [=](const ThermistorPoint& point) { return within >= point.degrees; });
    const ThermistorPoint& low = *cold;
    const ThermistorPoint& high = *std::prev(cold);
    const double share = double(within - low.degrees) / (high.degrees - low.degrees);
    const double input = low.count + share * (high.count - low.count);
    // The converter does not round up.
    return static_cast<std::uint8_t>(std::clamp(std::floor(input - 0.5), 0.0, 255.0));
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

std::uint16_t Thousandths(double number) {
    return Rounded(number * 1000);
}

std::uint16_t Decikelvin(double degrees) {
    return Rounded((degrees + 273.15) * 10);
}

std::uint16_t PackedDate(const EcDate& date) {
    return static_cast<std::uint16_t>(date.day + 32 * date.month + 512 * (date.year - 1980));
}

} // namespace machine
