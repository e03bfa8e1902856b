// What can be opened by a device path on the simulated machine, and the little-endian words of 32 bits that its requests
// and answers are made of.
#pragma once

#include "platform/types.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

namespace machine {

/// How a device answers one control request.
struct ControlAnswer {
    platform::SystemError error = platform::error::Success;
    std::vector<std::byte> bytes{};
};

/// The word at `offset`, which the caller knows to be there.
inline std::uint32_t WordAt(std::span<const std::byte> bytes, std::size_t offset) {
    std::uint32_t word = 0;
    for (unsigned index = 0; index < 4; ++index) {
        word |= std::to_integer<std::uint32_t>(bytes[offset + index]) << (8 * index);
    }
    return word;
}

inline void AppendWord(std::vector<std::byte>& bytes, std::uint32_t word) {
    for (unsigned shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<std::byte>(word >> shift));
    }
}

inline ControlAnswer Words(std::initializer_list<std::uint32_t> words) {
    ControlAnswer answer;
    for (const std::uint32_t word : words) {
        AppendWord(answer.bytes, word);
    }
    return answer;
}

/// One device. Requests are buffered, as a driver of METHOD_BUFFERED sees them: the input is a copy, and the
/// answer reaches the caller's buffer only when the request worked.
class Device {
public:
    virtual ~Device() = default;

    /// Whether this opening is granted, in addition to those that are open.
    virtual platform::SystemError Open(std::uint32_t access, std::uint32_t shareMode) = 0;
    virtual void Close() {}
    virtual ControlAnswer Control(std::uint32_t code, std::span<const std::byte> in,
                                  std::size_t capacity) = 0;
};

/// One opening of a device.
struct OpenDevice {
    Device* device;
};

} // namespace machine
