// One boundary call from its entry to its end, as the decorators see it (observe.h).
#pragma once

#include "observer/operations.h"
#include "observer/record.h"
#include "platform/types.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

namespace observer {

struct RecordedCall;

/// Counts the call, decides whether it fails, and makes its record where a sink wants one. What it notes needs memory
/// and may be missing for lack of it; the call itself is made in any case.
class Call {
public:
    explicit Call(Operation operation) noexcept;
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    /// Hands the record to the sinks.
    ~Call();

    /// Within another boundary call of this thread: from a back end or a sink. Nothing of it is observed.
    [[nodiscard]] bool IsNested() const { return m_nested; }

    [[nodiscard]] Failure Injected() const { return m_injected; }

    /// The injected failure does not exist for this answer.
    void Withdraw() noexcept;

    /// In a replay the back end is not called, except by what only reports.
    [[nodiscard]] bool IsReplayed() const { return m_replayed; }

    /// What was recorded for this call; null where it is refused.
    const RecordedCall* Recorded();

    /// What was recorded is no answer.
    void CannotAnswer(const RecordedCall& recorded);

    /// A number for a handle of the recording.
    std::uintptr_t ReplayedHandle(const HandleName& name);

    /// The inputs have been noted.
    void Began() noexcept;

    /// Null where none is wanted.
    [[nodiscard]] Record* TheRecord() { return m_record ? &*m_record : nullptr; }

    /// Notes something, as far as there is memory for it.
    template <class Work>
    void Note(Work work) noexcept {
        try {
            work();
        } catch (...) {
            Lost();
        }
    }

    void Opened(HandleKind kind, std::uintptr_t handle, std::u16string_view openedOn);
    void Closed(HandleKind kind, std::uintptr_t handle) noexcept;
    /// The name that a transcript shows; numbers a window or a device node where it is met first.
    HandleName NameOf(HandleKind kind, std::uintptr_t handle);

    /// Around the back end. `Left` comes first after it: what lies between could change the last error.
    void Entered() noexcept;
    void Left() noexcept;

    /// The call has an answer. Without it, the back end has raised something.
    void Answered(bool succeeded, bool setsLastError) noexcept;

private:
    void Lost() noexcept;

    bool m_nested;
    bool m_replayed = false;
    Failure m_injected = Failure::None;
    std::chrono::steady_clock::time_point m_entered;
    bool m_answered = false;
    std::optional<Record> m_record;
};

/// The calling thread's last error, as the last boundary call left it.
platform::SystemError LastErrorOfThread() noexcept;
void SetLastErrorOfThread(platform::SystemError error) noexcept;

/// A trace consumer's callback is the core's own code, which comes from below the boundary.
class AboveBoundary {
public:
    AboveBoundary() noexcept;
    AboveBoundary(const AboveBoundary&) = delete;
    AboveBoundary& operator=(const AboveBoundary&) = delete;
    ~AboveBoundary();

private:
    unsigned m_below;
};

} // namespace observer
