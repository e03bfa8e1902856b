// The firmware's pass-through device, as a profile describes it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace machine {

class ProfileReader;

/// What the firmware does behind the last record of its event log. It always tells the end once, but for a log
/// without one.
enum class LogEnd : std::uint8_t { StartsAgain, StaysAtEnd, NeverEnds };

/// One record of the event log.
struct LogRecord {
    std::vector<std::uint8_t> bytes; // as many as the firmware writes into the reply
    std::uint32_t times = 1;         // so often in a row
};

/// A request that the device does not answer as it should.
struct AcpiFault {
    std::uint32_t use = 0; // the n-th request since the machine's start, counted from 1; 0: every request
    std::uint32_t error = 0;
    std::optional<std::uint32_t> replySize; // success, with no more bytes than this
};

struct AcpiProfile {
    bool present = true;
    std::uint32_t storeVersion = 0;
    std::vector<std::uint32_t> registers;
    std::uint32_t registerCount = 0; // what the firmware says; registers behind the last one hold 0
    std::vector<LogRecord> log;
    LogEnd logEnd = LogEnd::StartsAgain;
    std::uint32_t pSensor = 0;
    std::vector<AcpiFault> faults;
};

AcpiProfile ReadAcpi(ProfileReader reader);

} // namespace machine
