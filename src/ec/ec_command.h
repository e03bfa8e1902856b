// The one door to the embedded controller.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace sondrel {

/// The 16 bytes exchanged with the driver: it reads them and answers in place.
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

/// Status words that the library itself produces. 0 is done; any other value is the driver's own.
namespace ec_status {
inline constexpr std::uint32_t Done = 0;
inline constexpr std::uint32_t NoSession = 1;
inline constexpr std::uint32_t TooMuchData = 2;
} // namespace ec_status

/// What a numeric EC reading returns when one of its commands failed.
inline constexpr std::uint32_t EcReadFailed = 0x7FFFFFFF;

/// Sends one EC command and gives the byte read back, 0 to 255. `status` is always written; the byte means
/// something only when it came back as 0 and `readFlag` was 1. The command is logged before anything else, so
/// that one which cannot be sent shows as well. No retry, no time-out, no wait: readings wait between
/// commands.
std::uint32_t RwEcCmd(std::uint8_t dataCount, std::uint8_t command, const std::uint8_t* data,
                      std::uint8_t readFlag, std::uint32_t* status);

} // namespace sondrel
