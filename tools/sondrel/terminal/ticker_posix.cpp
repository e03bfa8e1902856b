#include "terminal/ticker.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace tool {

struct Ticker::State {
    std::mutex mutex;
    std::condition_variable_any changed;
    std::thread thread;
};

Ticker::Ticker() : m_state(std::make_unique<State>()) {}

Ticker::~Ticker() = default;

void Ticker::Start(std::function<void()> run) {
    m_state->thread = std::thread(std::move(run));
}

bool Ticker::Started() const {
    return m_state->thread.joinable();
}

void Ticker::Join() {
    m_state->thread.join();
}

void Ticker::lock() {
    m_state->mutex.lock();
}

void Ticker::unlock() {
    m_state->mutex.unlock();
}

void Ticker::Notify() {
    m_state->changed.notify_all();
}

void Ticker::Wait() {
    m_state->changed.wait(m_state->mutex);
}

void Ticker::WaitFor(std::chrono::steady_clock::duration time) {
    m_state->changed.wait_for(m_state->mutex, time);
}

} // namespace tool
