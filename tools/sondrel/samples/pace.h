// Samples at regular intervals.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <string>

namespace tool {

class Pace {
public:
    using Time = std::chrono::microseconds;

    explicit Pace(std::chrono::milliseconds interval) : m_interval(interval) {}

    /// When the next sample is due, after one that was taken at the present time. A late sample does not shorten the next
    /// intervals.
    [[nodiscard]] Time Next(Time now) {
        const Time late = now - (m_due + m_interval);
        m_due = std::max(m_due + m_interval, now);
        ++m_samples;
        if (late.count() > 0) {
            ++m_late;
            m_latest = std::max(m_latest, late);
        }
        return m_due;
    }

    /// What to report at the end; empty if every sample was in time.
    [[nodiscard]] std::string Remark() const {
        if (m_late == 0) {
            return {};
        }
        const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(m_interval + m_latest);
        return "--interval is too short: " + std::to_string(m_late) + " of " + std::to_string(m_samples) +
               " samples took longer, up to " + std::to_string(milliseconds.count()) + " ms";
    }

private:
    std::chrono::milliseconds m_interval;
    Time m_due{0};
    Time m_latest{0};
    std::size_t m_samples = 0;
    std::size_t m_late = 0;
};

} // namespace tool
