// The terminal, or the Windows console, that the tool may be writing to.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tool::terminal {

enum class Stream : std::uint8_t { Out, Error };

struct Size {
    std::size_t columns = 80;
    std::size_t lines = 24;
};

[[nodiscard]] bool IsTerminal(Stream stream);

/// Whether it is a terminal that understands control sequences.
[[nodiscard]] bool TakesSequences(Stream stream);

[[nodiscard]] Size SizeOf(Stream stream);

/// Makes the console take UTF-8 and control sequences for as long as this lives. A terminal takes them anyway.
class Console {
public:
    Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;
    ~Console();
};

/// Standard output as a screen of its own: without cursor, echo and line wrap. The end of its life, an interrupt and
/// a stop (Ctrl-Z) leave the terminal as it was before.
class FullScreen {
public:
    FullScreen();
    FullScreen(const FullScreen&) = delete;
    FullScreen& operator=(const FullScreen&) = delete;
    ~FullScreen();
};

/// Puts the terminal back from wherever the program is, a signal handler included.
void PutBack() noexcept;

/// What goes to the terminal when a FullScreen begins and ends.
inline constexpr char EnterScreen[] = "\x1b[?1049h\x1b[?25l\x1b[?7l\x1b[2J\x1b[H";
inline constexpr char LeaveScreen[] = "\x1b[?7h\x1b[?25h\x1b[?1049l";

} // namespace tool::terminal
