// Commands of the embedded controller. Every EC reading of the library is a sequence of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace sondrel {

/// The 16 bytes exchanged with the driver, which writes its answer into the same buffer.
#pragma pack(push, 1)

struct EcRequest {
    std::uint8_t command;
    std::uint8_t dataCount;
    std::uint8_t data[8];
    std::uint8_t readFlag;
    std::uint8_t result;
    std::uint32_t status;
};

#pragma pack(pop)

static_assert(sizeof(EcRequest) == 16 && std::is_trivially_copyable_v<EcRequest>);
static_assert(offsetof(EcRequest, data) == 2 && offsetof(EcRequest, readFlag) == 10);
static_assert(offsetof(EcRequest, result) == 11 && offsetof(EcRequest, status) == 12);

/// Status words that the library sets itself. The driver sets 0 for done and any other value for a failure.
namespace ec_status {
inline constexpr std::uint32_t Done = 0;
inline constexpr std::uint32_t NoSession = 1;
inline constexpr std::uint32_t TooMuchData = 2;
} // namespace ec_status

/// The result of a numeric EC reading when one of its commands failed.
inline constexpr std::uint32_t EcReadFailed = 0x7FFFFFFF;

/// Sends one EC command and returns the byte read, 0 to 255. `status` is always written; the byte is valid only
/// if the status is 0 and `readFlag` was 1. The command is logged first, so the log also has a command that
/// cannot be sent. No retry, no time-out, no wait: readings wait between commands.
std::uint32_t RwEcCmd(std::uint8_t dataCount, std::uint8_t command, const std::uint8_t* data,
                      std::uint8_t readFlag, std::uint32_t* status);

} // namespace sondrel
