// One call of an export as a careful host makes it: into a buffer of the stated size, between guard characters.
#pragma once

#include "exports/answer.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace sweep {

struct HostAnswer {
    /// A number in decimal, a text in UTF-8, bytes in hexadecimal, or the mark of an untouched buffer.
    std::string text;
    /// What the library did that it must not: wrote beyond its text, raised something. Empty as a rule.
    std::string fault;
};

/// What is called, by which arguments and into how much room is settled.
using HostCall = std::function<HostAnswer()>;

/// An export of the library that is linked in. `room` is in characters and counts the terminator.
HostCall CallOf(const exports::Export& row, std::uint8_t initCom, std::size_t room);

/// The same for a reading that writes a wide text.
HostAnswer CallWide(const std::function<void(char16_t*)>& read, std::size_t room);

} // namespace sweep
