// How the EC's firmware converts measurements into the bytes of its registers.
#pragma once

#include "machine/profile/sections/ec_profile.h"

#include <cstdint>

namespace machine {

/// The two parts on the boards: a power-stage thermistor, and a more sensitive one near the chips.
enum class Thermistor : std::uint8_t { PowerStage, Chip };

/// The converter's count at a temperature; beyond the part's range it stays at the end.
std::uint8_t ThermistorCount(Thermistor part, std::uint8_t degrees);

/// Ticks of the tachometer's clock for half a turn; 0 for a stopped fan, all ones for one that is too
/// slow to be counted.
std::uint16_t TachometerCount(std::uint32_t rpm);

/// Millivolts; milliamperes in two's complement.
std::uint16_t Thousandths(double number);
/// Tenths of a kelvin, as smart batteries report temperatures.
std::uint16_t Decikelvin(double degrees);

/// As smart batteries pack a date: seven bits of years since 1980, four of months, five of days.
std::uint16_t PackedDate(const EcDate& date);

} // namespace machine
