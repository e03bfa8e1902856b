// Interrupts as console control events.
#include "terminal/interrupt.h"
#include "terminal/terminal.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <atomic>

namespace tool::interrupt {
namespace {

/// How long an interrupted command may continue, in milliseconds.
constexpr DWORD GracePeriod = 2000;
/// The exit status of a program that Ctrl-C ended, as in a shell.
constexpr UINT InterruptedStatus = 130;

std::atomic<bool> Interrupted = false;
HANDLE WakeEvent = nullptr;
std::array<wchar_t, 32768> FileToRemove{};

[[noreturn]] void ForceEnd() {
    terminal::Restore();
    if (FileToRemove[0] != L'\0') {
        DeleteFileW(FileToRemove.data());
    }
    // The thread inside the library may hold any lock, so nothing is unloaded.
    TerminateProcess(GetCurrentProcess(), InterruptedStatus);
    for (;;) {
        Sleep(INFINITE);
    }
}

/// Runs in another thread, which ends with the program if that unwinds in time.
BOOL WINAPI OnControl(DWORD) {
    if (!Interrupted.exchange(true)) {
        SetEvent(WakeEvent);
        Sleep(GracePeriod);
    }
    ForceEnd();
}

bool SizeChanged() {
    static terminal::Size before = terminal::SizeOf(terminal::Stream::Out);
    const terminal::Size now = terminal::SizeOf(terminal::Stream::Out);
    const bool changed = now.columns != before.columns || now.lines != before.lines;
    before = now;
    return changed;
}

} // namespace

void Listen() {
    WakeEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    SetConsoleCtrlHandler(nullptr, FALSE); // a parent may have disabled Ctrl-C for its children
    SetConsoleCtrlHandler(OnControl, TRUE);
}

bool Came() {
    return Interrupted;
}

void Check() {
    if (Came()) {
        throw Interruption();
    }
}

Wake WaitFor(std::chrono::milliseconds time) {
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds PollInterval{250}; // there is no event for a new size
    const Clock::time_point end = Clock::now() + time;
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        if (left.count() <= 0 && !Came()) {
            return Wake::TimeUp;
        }
        const auto step = std::clamp(left, std::chrono::milliseconds(0), PollInterval);
        if (WaitForSingleObject(WakeEvent, static_cast<DWORD>(step.count())) == WAIT_OBJECT_0) {
            return Wake::Interrupt;
        }
        if (SizeChanged()) {
            return Wake::Redraw;
        }
    }
}

void End() {
    ForceEnd();
}

void RemoveWhenForced(const std::filesystem::path& file) {
    const std::wstring& name = file.native();
    FileToRemove[0] = L'\0';
    if (!name.empty() && name.size() < FileToRemove.size()) {
        std::copy(name.begin() + 1, name.end(), FileToRemove.begin() + 1);
        FileToRemove[name.size()] = L'\0';
        FileToRemove[0] = name.front(); // valid from here on
    }
}

} // namespace tool::interrupt
