// A buffer that a host gives to an export: what was written to it, and whether anything was.
#pragma once

#include "observer/export_call.h"
#include "observer/value.h"

#include <cstddef>
#include <vector>

namespace observer {

/// Fills the buffer with a pattern for the length of the export call and puts back what the export did not write: a host's
/// buffer may have held the same bytes before. Of a wide string, whose size only the export knows, this is its first character
/// alone, U+FFFF, with which none begins.
class HostBuffer {
public:
    /// The buffer is not null.
    explicit HostBuffer(const ExportArgument& argument);
    HostBuffer(HostBuffer&&) = default;

    [[nodiscard]] const char* Name() const { return m_argument->Name(); }

    /// Puts back what was there before, as far as it was not written.
    void Restore() noexcept;

    /// What was written; nothing if nothing was. After `Restore`.
    [[nodiscard]] Value Written() const;

private:
    [[nodiscard]] std::byte* Start() const;

    const ExportArgument* m_argument;
    std::vector<std::byte> m_before;
    bool m_written = true;
};

/// ASCII as a string; anything else as bytes, since the machine decides its encoding.
Value NarrowValue(std::string_view text);

} // namespace observer
