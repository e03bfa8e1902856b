#include "machine/services/clock.h"

#include "machine/machine.h"
#include "observer/gate.h"
#include "platform/back_end.h"
#include "platform/time.h"

#include <thread>

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

namespace VESK_BACK_END {

void Sleep(std::uint32_t milliseconds) {
    const std::chrono::milliseconds time(milliseconds);
    bool waits = false;
    {
        machine::Call call(machine::Operation::Sleep);
        call.Note([&] { return std::to_string(milliseconds) + " ms"; });
        waits = machine::Current().clock.TiedToRealTime();
        if (!waits) {
            machine::Current().clock.Advance(time);
        }
    }
    // Outside the call, which holds the machine: other threads may use it while this one waits.
    if (waits) {
        std::this_thread::sleep_for(time);
    }
}

} // namespace VESK_BACK_END
