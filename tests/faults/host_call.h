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
};

/// A call with all its arguments.
using HostCall = std::function<HostAnswer()>;

/// An export of the linked library. `size` is in characters, the terminator included.
HostCall CallOf(const exports::Export& row, std::uint8_t initCom, std::size_t size);

/// The same for a function that writes a wide string.
HostAnswer CallWide(const std::function<void(char16_t*)>& read, std::size_t size);

} // namespace sweep
