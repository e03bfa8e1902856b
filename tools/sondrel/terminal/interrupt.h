// Ctrl-C and similar signals: the current command unwinds, releases what it holds, and the program ends with the usual
// status.
//
// A call into the library cannot be interrupted. If one lasts longer than a few seconds, or at a second Ctrl-C, the
// end is forced: the terminal is restored, a half-written file is removed, and nothing else.
#pragma once

#include <chrono>
#include <exception>
#include <filesystem>

namespace tool::interrupt {

/// Unwinds a command.
class Interruption : public std::exception {
public:
    [[nodiscard]] const char* what() const noexcept override { return "interrupted"; }
};

/// Begins to catch interrupts; before, they end the program immediately.
void Listen();

[[nodiscard]] bool Came();

/// Throws Interruption after an interrupt.
void Check();

enum class Wake : std::uint8_t {
    TimeUp,
    Interrupt,
    Redraw // the terminal has another size, or the program continues after a stop (Ctrl-Z)
};

/// Waits for the time, or for one of the other events.
[[nodiscard]] Wake WaitFor(std::chrono::milliseconds time);

/// Ends the program as an interrupted one.
[[noreturn]] void End();

/// The file that a forced end removes; an empty path for none.
void RemoveWhenForced(const std::filesystem::path& file);

} // namespace tool::interrupt
