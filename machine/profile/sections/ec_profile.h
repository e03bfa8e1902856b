// The embedded controller of a profile: what a person would measure on the machine, and how its firmware
// misbehaves.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace machine {

class ProfileReader;

/// A command that the EC fails to carry out.
struct EcFault {
    std::uint8_t command = 0;
    std::uint32_t use = 0; // the n-th use of the command, counted from 1; 0: every use
    std::uint32_t status = 0;
    std::uint8_t byte = 0; // what the answer contains all the same
};

/// Plain temperatures, in whole degrees Celsius.
struct EcTemperatures {
    std::uint8_t cpu = 0;
    std::uint8_t boardLeft = 0;
    std::uint8_t boardRight = 0;
    std::uint8_t gpuLeft = 0;
    std::uint8_t gpuRight = 0;
};

/// One channel of the sensor devices. A channel that has not settled is not valid.
struct EcSensorChannel {
    std::uint8_t degrees = 0;
    bool valid = true;
};

/// Two devices of three channels each: battery connector, AC FET, charger choke; GPU VRM, upper CPU, GPU VRAM.
struct EcSensors {
    bool ready = true;
    std::array<bool, 2> devicePresent{true, true};
    std::array<EcSensorChannel, 6> channels;
};

struct EcFanSpeed {
    std::uint32_t rpm = 0;
    std::uint32_t readyAfter = 0; // polls that the tachometer answers with "running"
    bool neverReady = false;
};

struct EcDate {
    std::uint32_t year = 1980;
    std::uint32_t month = 0;
    std::uint32_t day = 0;
};

/// The pack on the EC's battery bus.
struct EcBattery {
    double chargingVolts = 0;
    double packageVolts = 0;
    double amperes = 0; // negative while discharging
    double degrees = 0;
    std::uint16_t cycles = 0;
    std::array<double, 4> cellVolts{};
    EcDate manufactured;
    std::string manufacturer;    // up to ten bytes
    std::uint32_t busyPolls = 0; // polls that the battery bus answers with "busy"
    bool busyForEver = false;
};

struct EcProfile {
    std::string revision; // two characters
    std::uint8_t chipId = 0;
    std::string chipName; // four characters
    std::uint8_t tabletMode = 0;
    std::uint8_t lid = 0;
    EcTemperatures temperatures;
    EcSensors sensors;
    std::vector<EcFanSpeed> fans;
    EcBattery battery;
    std::vector<EcFault> faults;
};

void ReadEc(ProfileReader& reader, EcProfile& ec);

} // namespace machine
