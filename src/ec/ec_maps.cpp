#include "ec/ec_maps.h"

#include "ec/ec_identity.h"

#include <algorithm>
#include <iterator>

namespace sondrel {

std::optional<EcMap> FindEcMap() {
    const std::uint32_t code = ReadEcFirmwareRevision();
    for (const EcFamily& family : EcFamilies) {
        if (family.code == code && (!family.chipId || ReadEcChipId() == *family.chipId)) {
            return family.map;
        }
    }
    return std::nullopt;
}

std::optional<EcMap> FirstEcMapOf(std::uint32_t code) {
    const auto* const family = std::ranges::find(EcFamilies, code, &EcFamily::code);
    return family == std::end(EcFamilies) ? std::nullopt : std::optional(family->map);
}

EcSensorReading ReadEcSensor(const EcSensor& sensor) {
    const std::optional<EcMap> map = FindEcMap();
    if (!map) {
        return {0, EcSensorUnit::Degrees};
    }
    const EcSensorBlock& block = ec_signal::SensorBlock.In(*map);
    return {ReadSource(block, sensor), block.unit};
}

bool ReadEcManufacturerName(std::span<char, EcNameLength> name) {
    const std::optional<EcMap> map = FindEcMap();
    if (!map) {
        return false;
    }
    EcRead read = ec_signal::ManufacturerName.In(*map);
    for (char& letter : name) {
        const std::uint32_t byte = ReadSource(read);
        if (byte == EcReadFailed) {
            return false;
        }
        letter = static_cast<char>(byte);
        ++read.data[read.dataCount - 1];
    }
    return true;
}

} // namespace sondrel
