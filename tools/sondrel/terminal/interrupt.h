// Ctrl-C and its like: the command in progress unwinds, gives back what it holds, and the program ends with the
// usual status.
//
// A call into the library cannot be broken off. Where one lasts longer than the patience of a user, or at a
// second Ctrl-C, the end is forced: the terminal is put back, a half-written file is removed, no more.
#pragma once

#include <chrono>
#include <exception>
#include <filesystem>

namespace tool::interrupt {

/// What unwinds a command.
class Interruption : public std::exception {
public:
    [[nodiscard]] const char* what() const noexcept override { return "interrupted"; }
};

/// From here on interrupts are noticed.
void Listen();

[[nodiscard]] bool Came();

/// Throws Interruption if an interrupt came.
void Check();

enum class Wake : std::uint8_t {
    TimeUp,
    Interrupt,
    Redraw // the terminal has another size, or the program goes on after having been stopped
};

/// Waits for the time, or until something happens.
[[nodiscard]] Wake WaitFor(std::chrono::milliseconds time);

/// Ends the program in the way of a program that was interrupted.
[[noreturn]] void End();

/// What a forced end removes; the empty path for nothing.
void RemoveWhenForced(const std::filesystem::path& file);

} // namespace tool::interrupt
