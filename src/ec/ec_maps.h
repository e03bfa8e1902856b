// Which register map this machine's EC has, and readings through it. The map is looked up for each reading;
// nothing is cached.
#pragma once

#include "ec/ec_register_tables.h"
#include "ec/ec_sequences.h"

#include <cstdint>
#include <optional>
#include <span>

namespace sondrel {

/// The map of this machine by firmware revision code and, where the code needs it, chip id. Nothing when the
/// machine has none, which includes one whose EC cannot be identified.
std::optional<EcMap> FindEcMap();

/// The first map of a firmware revision code, whatever the chip id.
std::optional<EcMap> FirstEcMapOf(std::uint32_t code);

/// Reads a signal through the machine's map. Without a map the result is 0 and no command is sent; EcReadFailed
/// when a command fails.
template <class Source>
std::uint32_t ReadEc(const EcSignal<Source>& signal) {
    const std::optional<EcMap> map = FindEcMap();
    return map ? ReadSource(signal.In(*map)) : 0;
}

struct EcSensorReading {
    std::uint32_t raw; // also EcReadFailed and EcSensorNotReady
    EcSensorUnit unit;
};

/// The same for a channel of the sensor block.
EcSensorReading ReadEcSensor(const EcSensor& sensor);

/// Reads the ten bytes of the battery manufacturer's name, unchanged. False without a map and when a command
/// fails; the bytes mean nothing then.
bool ReadEcManufacturerName(std::span<char, EcNameLength> name);

} // namespace sondrel
