#include "terminal/progress.h"

#include "base/text.h"
#include "terminal/terminal.h"

#include <iostream>

namespace tool {
namespace {

using namespace std::chrono_literals;

constexpr auto ShowAfter = 300ms;
constexpr auto RefreshInterval = 500ms;

} // namespace

Progress::Progress() {
    if (terminal::SupportsSequences(terminal::Stream::Error)) {
        m_ticker = std::thread([this] { Show(); });
    }
}

Progress::~Progress() {
    if (!m_ticker.joinable()) {
        return;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_ended = true;
        Erase();
    }
    m_changed.notify_all();
    m_ticker.join();
}

void Progress::Begin(std::string activity) {
    if (!m_ticker.joinable()) {
        return;
    }
    const std::lock_guard lock(m_mutex);
    m_activity = std::move(activity);
    m_since = std::chrono::steady_clock::now();
    m_changed.notify_all();
}

void Progress::Clear() {
    const std::lock_guard lock(m_mutex);
    m_activity.clear();
    Erase();
}

void Progress::Show() {
    std::unique_lock lock(m_mutex);
    while (!m_ended) {
        const auto duration = std::chrono::steady_clock::now() - m_since;
        if (m_activity.empty()) {
            m_changed.wait(lock);
        } else if (duration < ShowAfter) {
            m_changed.wait_for(lock, ShowAfter - duration);
        } else {
            const std::string line =
                m_activity + " ... " +
                std::to_string(std::chrono::duration_cast<std::chrono::seconds>(duration).count()) + " s";
            std::cerr << "\r\x1b[K" << Shortened(line, terminal::SizeOf(terminal::Stream::Error).columns - 1)
                      << std::flush;
            m_shown = true;
            m_changed.wait_for(lock, RefreshInterval);
        }
    }
}

void Progress::Erase() {
    if (m_shown) {
        std::cerr << "\r\x1b[K" << std::flush;
        m_shown = false;
    }
}

} // namespace tool
