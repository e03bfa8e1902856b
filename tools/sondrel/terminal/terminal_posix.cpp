// Terminals on systems that have them as files.
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

// For signal handlers: whether a screen is on, and what the terminal was like before it.
volatile std::sig_atomic_t ScreenIsOn = 0;
volatile std::sig_atomic_t ModesAreKept = 0;
termios ModesBefore{};

template <std::size_t Size>
void Send(const char (&sequence)[Size]) noexcept {
    [[maybe_unused]] const ssize_t written = write(STDOUT_FILENO, sequence, Size - 1);
}

void Enter() noexcept {
    if (ModesAreKept != 0) {
        termios quiet = ModesBefore;
        quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO | ICANON);
        tcsetattr(STDIN_FILENO, TCSANOW, &quiet);
    }
    Send(EnterScreen);
}

void Leave() noexcept {
    Send(LeaveScreen);
    if (ModesAreKept != 0) {
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &ModesBefore); // keys typed meanwhile are not the shell's
    }
}

} // namespace

bool IsTerminal(Stream stream) {
    return isatty(FileOf(stream)) == 1;
}

bool TakesSequences(Stream stream) {
    const char* const kind = std::getenv("TERM");
    return IsTerminal(stream) && kind != nullptr && *kind != '\0' && std::string_view(kind) != "dumb";
}

Size SizeOf(Stream stream) {
    winsize told{};
    Size size;
    if (ioctl(FileOf(stream), TIOCGWINSZ, &told) == 0 && told.ws_col != 0 && told.ws_row != 0) {
        size = {told.ws_col, told.ws_row};
    }
    return size;
}

Console::Console() = default;

Console::~Console() {
    PutBack();
}

FullScreen::FullScreen() {
    std::cout.flush();
    ModesAreKept = tcgetattr(STDIN_FILENO, &ModesBefore) == 0 ? 1 : 0;
    ScreenIsOn = 1;
    Enter();
    interrupt::WhenStopped(
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
    PutBack();
}

void PutBack() noexcept {
    if (ScreenIsOn != 0) {
        ScreenIsOn = 0;
        Leave();
    }
}

} // namespace tool::terminal
