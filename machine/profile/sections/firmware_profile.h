// The firmware of a profile, as the operating system reaches it: event log, variables, switchable features.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace machine {

class ProfileReader;

/// What the firmware does after the last record of its event log. It always reports the end once, except for a log
/// without one.
enum class LogEnd : std::uint8_t { StartsAgain, StaysAtEnd, NeverEnds };

/// One record of the event log.
struct LogRecord {
    std::vector<std::byte> bytes; // as many as the firmware writes into the reply
    std::uint32_t times = 1;      // so often in a row
};

/// A request that the device does not answer as it should.
struct AcpiFault {
    std::uint32_t use = 0; // the n-th request since the machine's start, counted from 1; 0: every request
    std::uint32_t error = 0;
    std::optional<std::uint32_t> replySize; // success, with no more bytes than this
};

/// The pass-through device.
struct AcpiProfile {
    bool present = true;
    std::uint32_t storeVersion = 0;
    std::vector<std::uint32_t> registers;
    std::uint32_t registerCount = 0; // what the firmware reports; registers after the last one read 0
    std::vector<LogRecord> log;
    LogEnd logEnd = LogEnd::StartsAgain;
    std::uint32_t pSensor = 0;
    std::vector<AcpiFault> faults;
};

struct FirmwareVariable {
    std::u16string guid; // with braces, in lower case
    std::u16string name;
    std::vector<std::byte> data;
    bool readOnly = false;
};

struct FirmwareVariablesProfile {
    bool privilegeHeld = true; // whether the process gets the privilege for firmware variables when it asks
    std::vector<FirmwareVariable> variables;
};

struct FeatureProfile {
    std::u16string name; // of the firmware's variable with the setting
    bool supported = false;
    bool reportsSetting = false; // the status has the setting in its lowest bit
    std::uint32_t setting = 0;   // as it comes from the factory
    std::uint32_t result = 1;    // the firmware's answer to a new setting
};

struct FirmwareFeaturesProfile {
    FeatureProfile batteryHealth{.name = u"BatteryHealth", .setting = 100};
    FeatureProfile quietFan{.name = u"QuietFan", .reportsSetting = true};
};

void ReadAcpi(ProfileReader& reader, AcpiProfile& acpi);
void ReadFirmwareVariables(ProfileReader& reader, FirmwareVariablesProfile& variables);
void ReadFirmwareFeatures(ProfileReader& reader, FirmwareFeaturesProfile& features);

} // namespace machine
