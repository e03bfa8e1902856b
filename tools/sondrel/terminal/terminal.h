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

/// Whether it is a terminal that supports control sequences.
[[nodiscard]] bool SupportsSequences(Stream stream);

[[nodiscard]] Size SizeOf(Stream stream);

/// The width for lines of text: of a terminal, or without an end in a pipe or a file.
[[nodiscard]] inline std::size_t ColumnsFor(Stream stream) {
    return IsTerminal(stream) ? SizeOf(stream).columns : static_cast<std::size_t>(-1);
}

/// Makes a Windows console accept UTF-8 and control sequences during its lifetime. Other terminals accept them anyway.
class Console {
public:
    Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;
    ~Console();
};

/// Switches standard output to the alternate screen, without cursor, echo and line wrap. The destructor, an interrupt
/// and a stop (Ctrl-Z) restore the terminal.
class FullScreen {
public:
    FullScreen();
    FullScreen(const FullScreen&) = delete;
    FullScreen& operator=(const FullScreen&) = delete;
    ~FullScreen();
};

/// Restores the terminal from any state, also from a signal handler.
void Restore() noexcept;

/// Sent to the terminal when a FullScreen begins and ends.
inline constexpr char EnterScreen[] = "\x1b[?1049h\x1b[?25l\x1b[?7l\x1b[2J\x1b[H";
inline constexpr char LeaveScreen[] = "\x1b[?7h\x1b[?25h\x1b[?1049l";

} // namespace tool::terminal
