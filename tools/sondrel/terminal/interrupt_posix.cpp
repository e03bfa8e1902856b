// Interrupts as signals.
#include "terminal/interrupt_posix.h"
#include "terminal/interrupt.h"
#include "terminal/terminal.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <string>

namespace tool::interrupt {
namespace {

/// How long an interrupted command may continue, in seconds.
constexpr unsigned GracePeriod = 2;

volatile std::sig_atomic_t TheSignal = 0;
volatile std::sig_atomic_t RedrawRequested = 0;
std::array<int, 2> WakePipe{-1, -1};
std::array<char, PATH_MAX> FileToRemove{};
void (*BeforeStop)() = nullptr;
void (*AfterStop)() = nullptr;

void WakeUp() {
    const int savedErrno = errno;
    [[maybe_unused]] const ssize_t written = write(WakePipe[1], "", 1);
    errno = savedErrno;
}

/// Ends the program by the signal itself, so that a shell sees an interrupt and not an exit status.
[[noreturn]] void EndBySignal(int signal) {
    std::signal(signal, SIG_DFL);
    sigset_t only;
    sigemptyset(&only);
    sigaddset(&only, signal);
    raise(signal);
    pthread_sigmask(SIG_UNBLOCK, &only, nullptr);
    _exit(128 + signal);
}

[[noreturn]] void ForceEnd(int signal) {
    terminal::Restore();
    if (FileToRemove[0] != '\0') {
        unlink(FileToRemove.data());
    }
    EndBySignal(signal);
}

void OnInterrupt(int signal) {
    if (TheSignal != 0) {
        ForceEnd(TheSignal);
    }
    TheSignal = signal;
    alarm(GracePeriod);
    WakeUp();
}

void OnQuit(int signal) {
    ForceEnd(signal);
}

void OnGracePeriodOver(int) {
    ForceEnd(TheSignal != 0 ? TheSignal : SIGALRM);
}

void OnResized(int) {
    RedrawRequested = 1;
    WakeUp();
}

void OnStop(int) {
    if (BeforeStop != nullptr) {
        BeforeStop();
    }
    kill(getpid(), SIGSTOP); // returns when the program is continued
    if (AfterStop != nullptr) {
        AfterStop();
    }
    OnResized(0);
}

void Catch(int signal, void (*handler)(int)) {
    struct sigaction action {};

    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

} // namespace

void Listen() {
    if (pipe2(WakePipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return; // no descriptor left: the system's default handling remains
    }
    for (const int signal : {SIGINT, SIGTERM}) {
        Catch(signal, OnInterrupt);
    }

    struct sigaction present {};

    if (sigaction(SIGHUP, nullptr, &present) == 0 && present.sa_handler != SIG_IGN) { // nohup
        Catch(SIGHUP, OnInterrupt);
    }
    Catch(SIGALRM, OnGracePeriodOver);
    Catch(SIGQUIT, OnQuit);
    std::signal(SIGXFSZ, SIG_IGN); // a write beyond the limit fails, and the half-written file is removed
    Catch(SIGWINCH, OnResized);
}

void SetStopHandlers(void (*before)(), void (*after)()) {
    BeforeStop = before;
    AfterStop = after;
    Catch(SIGTSTP, OnStop);
}

bool Came() {
    return TheSignal != 0;
}

void Check() {
    if (Came()) {
        throw Interruption();
    }
}

Wake WaitFor(std::chrono::milliseconds time) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + time;
    for (;;) {
        std::array<char, 64> bytes{};
        while (read(WakePipe[0], bytes.data(), bytes.size()) > 0) {
        }
        if (Came()) {
            return Wake::Interrupt;
        }
        if (RedrawRequested != 0) {
            RedrawRequested = 0;
            return Wake::Redraw;
        }
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        if (left.count() <= 0) {
            return Wake::TimeUp;
        }
        pollfd wake{.fd = WakePipe[0], .events = POLLIN, .revents = 0};
        poll(&wake, 1, static_cast<int>(std::min<std::chrono::milliseconds::rep>(left.count(), INT_MAX)));
    }
}

void End() {
    ForceEnd(TheSignal);
}

void RemoveWhenForced(const std::filesystem::path& file) {
    const std::string& name = file.native();
    FileToRemove[0] = '\0';
    if (!name.empty() && name.size() < FileToRemove.size()) {
        std::copy(name.begin() + 1, name.end(), FileToRemove.begin() + 1);
        FileToRemove[name.size()] = '\0';
        FileToRemove[0] = name.front(); // valid from here on
    }
}

} // namespace tool::interrupt
