// The buffers in which the library writes: they tell an untouched one from an empty text, and an overrun.
#pragma once

#include "exports/answer.h"
#include "vesk_sondrel.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <string>

namespace tool {

/// Room for every text that an export writes without being told how much there is: 32 Mi characters.
class WideBuffer {
public:
    WideBuffer();

    VeskChar16* Start() { return m_characters.get(); }

    /// The text, or the mark of an untouched buffer.
    [[nodiscard]] Answer Read() const;

private:
    struct Free {
        void operator()(VeskChar16* memory) const { std::free(memory); }
    };

    std::unique_ptr<VeskChar16[], Free> m_characters;
};

/// A buffer whose size the export states, with guard bytes behind it.
class NarrowBuffer {
public:
    explicit NarrowBuffer(std::size_t size);

    char* Start() { return m_bytes.data(); }

    /// The text up to its terminator.
    [[nodiscard]] Answer ReadText() const;
    /// All bytes, in hexadecimal.
    [[nodiscard]] Answer ReadBytes() const;

private:
    /// Bytes up to the last one that is not as it was filled.
    [[nodiscard]] std::size_t Written() const;
    [[nodiscard]] std::string Overrun() const;

    std::array<char, 4096> m_bytes;
    std::size_t m_size;
};

} // namespace tool
