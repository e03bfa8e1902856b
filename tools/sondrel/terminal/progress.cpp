#include "terminal/progress.h"

#include "base/text.h"
#include "terminal/terminal.h"

#include <iostream>
#include <mutex>

namespace tool {
namespace {

using namespace std::chrono_literals;

constexpr auto ShowAfter = 300ms;
constexpr auto RefreshInterval = 500ms;

} // namespace

Progress::Progress() {
    if (terminal::SupportsSequences(terminal::Stream::Error)) {
        m_ticker.Start([this] { Show(); });
    }
}

Progress::~Progress() {
    if (!m_ticker.Started()) {
        return;
    }
    {
        const std::lock_guard lock(m_ticker);
        m_ended = true;
        Erase();
    }
    m_ticker.Notify();
    m_ticker.Join();
}

void Progress::Begin(std::string activity) {
    if (!m_ticker.Started()) {
        return;
    }
    const std::lock_guard lock(m_ticker);
    m_activity = std::move(activity);
    m_since = std::chrono::steady_clock::now();
    m_ticker.Notify();
}

void Progress::Clear() {
    const std::lock_guard lock(m_ticker);
    m_activity.clear();
    Erase();
}

void Progress::Show() {
    const std::lock_guard lock(m_ticker);
    while (!m_ended) {
        const auto duration = std::chrono::steady_clock::now() - m_since;
        if (m_activity.empty()) {
            m_ticker.Wait();
        } else if (duration < ShowAfter) {
            m_ticker.WaitFor(ShowAfter - duration);
        } else {
            const std::string line =
                m_activity + " ... " +
                std::to_string(std::chrono::duration_cast<std::chrono::seconds>(duration).count()) + " s";
            std::cerr << "\r\x1b[K" << Shortened(line, terminal::SizeOf(terminal::Stream::Error).columns - 1)
                      << std::flush;
            m_shown = true;
            m_ticker.WaitFor(RefreshInterval);
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
