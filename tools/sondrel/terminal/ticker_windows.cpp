// By the functions of Windows: not every standard library of a compiler for Windows has threads.
#include "terminal/ticker.h"

#include <windows.h>

#include <stdexcept>

namespace tool {

struct Ticker::State {
    SRWLOCK lock = SRWLOCK_INIT;
    CONDITION_VARIABLE changed = CONDITION_VARIABLE_INIT;
    std::function<void()> run;
    HANDLE thread = nullptr;
};

namespace {

DWORD WINAPI Run(void* run) {
    (*static_cast<std::function<void()>*>(run))();
    return 0;
}

} // namespace

Ticker::Ticker() : m_state(std::make_unique<State>()) {}

Ticker::~Ticker() {
    if (m_state->thread != nullptr) {
        ::CloseHandle(m_state->thread);
    }
}

void Ticker::Start(std::function<void()> run) {
    m_state->run = std::move(run);
    m_state->thread = ::CreateThread(nullptr, 0, Run, &m_state->run, 0, nullptr);
    if (m_state->thread == nullptr) {
        throw std::runtime_error("no thread can be started");
    }
}

bool Ticker::Started() const {
    return m_state->thread != nullptr;
}

void Ticker::Join() {
    ::WaitForSingleObject(m_state->thread, INFINITE);
}

void Ticker::lock() {
    ::AcquireSRWLockExclusive(&m_state->lock);
}

void Ticker::unlock() {
    ::ReleaseSRWLockExclusive(&m_state->lock);
}

void Ticker::Notify() {
    ::WakeAllConditionVariable(&m_state->changed);
}

void Ticker::Wait() {
    ::SleepConditionVariableSRW(&m_state->changed, &m_state->lock, INFINITE, 0);
}

void Ticker::WaitFor(std::chrono::steady_clock::duration time) {
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(time).count();
    ::SleepConditionVariableSRW(&m_state->changed, &m_state->lock, static_cast<DWORD>(milliseconds) + 1, 0);
}

} // namespace tool
