// The machine's own time.
#pragma once

#include <chrono>
#include <cstdint>

namespace machine {

/// Does not move except by sleeping, so that a reading of ten seconds takes no time and every wait can be asserted. Tied
/// to real time, it moves with it, and a sleep takes as long as it says.
class Clock {
public:
    [[nodiscard]] std::chrono::microseconds Now() const;

    void Advance(std::chrono::microseconds time) { m_own += time; }

    void TieToRealTime(bool tied);

    [[nodiscard]] bool TiedToRealTime() const { return m_tied; }

private:
    std::chrono::microseconds m_own{0};
    bool m_tied = false;
    std::chrono::steady_clock::time_point m_tiedSince;
};

} // namespace machine
