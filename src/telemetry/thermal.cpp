// The temperature and fan exports.
#include "ec/ec_maps.h"
#include "frame/text.h"
#include "telemetry/thermistor_curves.h"
#include "vesk_sondrel.h"

#include <array>
#include <iterator>

namespace sondrel {
namespace {

std::uint32_t SensorDegrees(const EcSensor& sensor, const ThermistorCurve& curve) {
    const EcSensorReading reading = ReadEcSensor(sensor);
    if (reading.raw == EcReadFailed) {
        return EcReadFailed;
    }
    if (reading.raw == EcSensorNotReady) {
        return 0;
    }
    return reading.unit == EcSensorUnit::Degrees ? reading.raw : DegreesOf(curve, reading.raw);
}

} // namespace
} // namespace sondrel

using namespace sondrel;

uint32_t Thermal_Read_Cpu_Temperature(void) {
    return ReadEc(ec_signal::CpuTemperature);
}

uint32_t Thermal_Read_BoardTS0L_Temperature(void) {
    return ReadEc(ec_signal::BoardTs0lTemperature);
}

uint32_t Thermal_Read_BoardTS0R_Temperature(void) {
    return ReadEc(ec_signal::BoardTs0rTemperature);
}

uint32_t Thermal_Read_GpuTS1L_Temperature(void) {
    return ReadEc(ec_signal::GpuTs1lTemperature);
}

uint32_t Thermal_Read_GpuTS1R_Temperature(void) {
    return ReadEc(ec_signal::GpuTs1rTemperature);
}

uint32_t Thermal_Read_BatteryConnector_Temperature(void) {
    return SensorDegrees(ec_signal::BatteryConnector, ThermistorCurve1);
}

uint32_t Thermal_Read_ACFET_Temperature(void) {
    return SensorDegrees(ec_signal::AcFet, ThermistorCurve1);
}

uint32_t Thermal_Read_ChargerChoke_Temperature(void) {
    return SensorDegrees(ec_signal::ChargerChoke, ThermistorCurve1);
}

uint32_t Thermal_Read_GpuVrm_Temperature(void) {
    return SensorDegrees(ec_signal::GpuVrm, ThermistorCurve1);
}

uint32_t Thermal_Read_UpCpu_Temperature(void) {
    return SensorDegrees(ec_signal::UpperCpu, ThermistorCurve2);
}

uint32_t Thermal_Read_GpuVram_Temperature(void) {
    return SensorDegrees(ec_signal::GpuVram, ThermistorCurve2);
}

void Thermal_Read_Fan(char* out) {
    if (out == nullptr) {
        return;
    }
    std::array<std::int32_t, std::size(ec_signal::FanSpeeds)> speeds{};
    for (std::size_t fan = 0; fan < speeds.size(); ++fan) {
        speeds[fan] = static_cast<std::int32_t>(ReadEc(ec_signal::FanSpeeds[fan]));
    }
    const auto format = [&speeds](char* buffer, std::size_t size) {
        return FormatCounted(buffer, size, "%d;%d;%d;%d", speeds[0], speeds[1], speeds[2], speeds[3]);
    };
    const int length = format(nullptr, 0);
    format(out, static_cast<std::size_t>(length) + 1);
}
