// The thread that shows what a command is waiting for, and the lock that it shares with the command.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace tool {

class Ticker {
public:
    Ticker();
    Ticker(const Ticker&) = delete;
    Ticker& operator=(const Ticker&) = delete;
    ~Ticker();

    /// Starts the thread, once.
    void Start(std::function<void()> run);
    [[nodiscard]] bool Started() const;
    void Join();

    void lock();
    void unlock();

    /// Wakes the thread from its wait.
    void Notify();

    /// Waits until Notify, or a little less; the lock is held before and after.
    void Wait();
    void WaitFor(std::chrono::steady_clock::duration time);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace tool
