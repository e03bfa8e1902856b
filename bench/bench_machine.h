// The machine that is measured on, and what a piece of work costs there.
#pragma once

#include "platform/device_io.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace bench {

/// Heap allocations of this process so far.
std::uint64_t Allocations();

/// A built-in machine whose store keeps nothing, with a session open and its identity kept. No trace consumer
/// is attached.
class SessionOnMachine {
public:
    explicit SessionOnMachine(const std::string& name);
    SessionOnMachine(const SessionOnMachine&) = delete;
    SessionOnMachine& operator=(const SessionOnMachine&) = delete;
    ~SessionOnMachine();
};

using EcBytes = std::array<std::byte, 16>;

/// Exchanges one EC command with the driver by the platform's own call and nothing else.
void BareExchange(const EcBytes& request);

/// What a piece of work asked of the platform: every line of the machine's transcript.
std::vector<std::string> Transcript(const std::function<void()>& work);

/// How many calls of one operation a transcript holds.
std::size_t CountOf(const std::vector<std::string>& transcript, const std::string& operation);

/// One platform call, ready to be made again.
using PlatformCall = std::function<void()>;

/// The EC commands and waits of a transcript, bare; with `registry` its registry reads too.
std::vector<PlatformCall> Replay(const std::vector<std::string>& transcript, bool registry);

/// The shortest time that a piece of work takes in a run of batches: what is above it is the machine's other
/// work. Two pieces that are to be compared are offered batches in turn.
class BestOf {
public:
    template <class Work>
    void Batch(std::size_t times, Work work) {
        const auto start = std::chrono::steady_clock::now();
        for (std::size_t time = 0; time < times; ++time) {
            work();
        }
        const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
        const double each = taken.count() / static_cast<double>(times);
        m_best = m_best == 0 || each < m_best ? each : m_best;
    }

    [[nodiscard]] double Nanoseconds() const { return m_best; }

private:
    double m_best = 0;
};

} // namespace bench
