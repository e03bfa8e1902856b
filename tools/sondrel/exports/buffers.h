// The buffers that the library writes to: they distinguish an untouched buffer from an empty string, and detect an
// overrun.
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

/// Large enough for every string that an export writes without a size: 32 Mi characters.
class WideBuffer {
public:
    WideBuffer();

    VeskChar16* Start() { return m_characters.get(); }

    /// The string, or BufferUntouched.
    [[nodiscard]] Answer Read() const;

private:
    struct Free {
        void operator()(VeskChar16* memory) const { std::free(memory); }
    };

    std::unique_ptr<VeskChar16[], Free> m_characters;
};

/// A buffer of the described size, with guard bytes after it.
class NarrowBuffer {
public:
    explicit NarrowBuffer(std::size_t size);

    char* Start() { return m_bytes.data(); }

    /// The string up to its terminator.
    [[nodiscard]] Answer ReadText() const;
    /// All bytes, in hexadecimal.
    [[nodiscard]] Answer ReadBytes() const;

private:
    /// The number of bytes up to the last one that differs from the fill.
    [[nodiscard]] std::size_t Written() const;
    [[nodiscard]] std::string Overrun() const;

    std::array<char, 4096> m_bytes;
    std::size_t m_size;
};

} // namespace tool
