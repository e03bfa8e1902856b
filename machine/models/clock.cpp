#include "machine/models/clock.h"

namespace machine {

std::chrono::microseconds Clock::Now() const {
    if (!m_tied) {
        return m_own;
    }
    return m_own + std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() -
                                                                         m_tiedSince);
}

void Clock::TieToRealTime(bool tied) {
    m_own = Now();
    m_tied = tied;
    m_tiedSince = std::chrono::steady_clock::now();
}

} // namespace machine
