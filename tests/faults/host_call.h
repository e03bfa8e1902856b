// One call of an export as a careful host makes it: into a buffer of the described size, between guard units.
#pragma once

#include "exports/answer.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace sweep {

struct HostAnswer {
    /// A number in decimal, a string in UTF-8, bytes in hexadecimal, or the text for an untouched buffer.
    std::string text;
    /// A violation of the library: it wrote outside its string, or threw. Usually empty.
    std::string fault;
    /// Blocks of the library's that the call has left to the host, which has freed them on its own.
    int blocksTaken = 0;
};

/// A call with all its arguments.
using HostCall = std::function<HostAnswer()>;

/// Where the library has this export now, or null: a DLL may have been loaded again. Each stage defines it.
void* AddressOf(const std::string& name);

/// An export of the library. `size` is in characters, the terminator included.
HostCall CallOf(const exports::Export& row, std::uint8_t initCom, std::size_t size);

/// The same for a function that writes a wide string.
HostAnswer CallWide(const std::function<void(char16_t*)>& read, std::size_t size);

} // namespace sweep
