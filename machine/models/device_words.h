// The little-endian words of 32 bits that requests and answers of devices are made of.
#pragma once

#include "machine/models/device.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

namespace machine {

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

} // namespace machine
