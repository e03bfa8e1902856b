// Terminals on POSIX systems.
#include "terminal/terminal.h"

#include "terminal/interrupt_posix.h"

#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string_view>

namespace tool::terminal {
namespace {

int FileOf(Stream stream) {
    return stream == Stream::Out ? STDOUT_FILENO : STDERR_FILENO;
}

// For signal handlers: whether the alternate screen is on, and the terminal's modes before it.
volatile std::sig_atomic_t ScreenIsOn = 0;
volatile std::sig_atomic_t ModesAreSaved = 0;
termios ModesBefore{};

template <std::size_t Size>
void Send(const char (&sequence)[Size]) noexcept {
    [[maybe_unused]] const ssize_t written = write(STDOUT_FILENO, sequence, Size - 1);
}

void Enter() noexcept {
    if (ModesAreSaved != 0) {
        termios quiet = ModesBefore;
        quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO | ICANON);
        tcsetattr(STDIN_FILENO, TCSANOW, &quiet);
    }
    Send(EnterScreen);
}

void Leave() noexcept {
    Send(LeaveScreen);
    if (ModesAreSaved != 0) {
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &ModesBefore); // discards keys typed meanwhile
    }
}

} // namespace

bool IsTerminal(Stream stream) {
    return isatty(FileOf(stream)) == 1;
}

bool SupportsSequences(Stream stream) {
    const char* const type = std::getenv("TERM");
    return IsTerminal(stream) && type != nullptr && *type != '\0' && std::string_view(type) != "dumb";
}

Size SizeOf(Stream stream) {
    winsize reported{};
    Size size;
    if (ioctl(FileOf(stream), TIOCGWINSZ, &reported) == 0 && reported.ws_col != 0 && reported.ws_row != 0) {
        size = {reported.ws_col, reported.ws_row};
    }
    return size;
}

Console::Console() = default;

Console::~Console() {
    Restore();
}

FullScreen::FullScreen() {
    std::cout.flush();
    ModesAreSaved = tcgetattr(STDIN_FILENO, &ModesBefore) == 0 ? 1 : 0;
    ScreenIsOn = 1;
    Enter();
    interrupt::SetStopHandlers(
        [] {
            if (ScreenIsOn != 0) {
                Leave();
            }
        },
        [] {
            if (ScreenIsOn != 0) {
                Enter();
            }
        });
}

FullScreen::~FullScreen() {
    std::cout.flush();
    Restore();
}

void Restore() noexcept {
    if (ScreenIsOn != 0) {
        ScreenIsOn = 0;
        Leave();
    }
}

} // namespace tool::terminal
