// The gate that every boundary call of the simulated machine passes.
//
// It writes the call to the transcript, makes the n-th call fail the way that operation really fails, and
// keeps the ledger of what is open.
#pragma once

#include "observer/operations.h"

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace machine {

/// Which calls fail. Calls are counted from 1, over all operations.
struct FaultPlan {
    std::uint64_t nth = 0; // 0: none
    bool andLater = false;
    Failure kind = Failure::Refused;
};

class Gate {
public:
    /// Starts counting anew, with a plan or without one. The ledger stays.
    void Restart(FaultPlan plan = {});

    /// The calls since the last restart.
    [[nodiscard]] std::uint64_t CallCount() const { return m_count; }

    /// What each call since the last restart was, while `KeepHistory` is on.
    [[nodiscard]] const std::vector<Operation>& History() const { return m_history; }

    void KeepHistory(bool keep) { m_keepHistory = keep; }

    /// Where the transcript goes; an empty function switches it off.
    void Transcribe(std::function<void(const std::string&)> sink) { m_transcript = std::move(sink); }

    [[nodiscard]] bool Transcribing() const { return static_cast<bool>(m_transcript); }

    void Write(const std::string& line) const { m_transcript(line); }

    /// Counts the call and tells how it has to fail, if it has to. A planned failure of a kind that the
    /// operation does not know is not injected.
    [[nodiscard]] Failure Enter(Operation operation);

    /// A call that was to fail has nothing that can fail in this way.
    void Withdraw() { --m_injected; }

    /// How many failures have been injected since the last restart.
    [[nodiscard]] std::uint64_t Injected() const { return m_injected; }

    /// The ledger. An opened thing gets a number that is never given twice.
    std::uintptr_t Opened(std::string what);
    /// False when the number stands for nothing that is open.
    bool Closed(std::uintptr_t number);
    [[nodiscard]] std::vector<std::string> OpenThings() const;

private:
    FaultPlan m_plan;
    std::uint64_t m_count = 0;
    std::uint64_t m_injected = 0;
    bool m_keepHistory = false;
    std::vector<Operation> m_history;
    std::function<void(const std::string&)> m_transcript;
    std::map<std::uintptr_t, std::string> m_ledger;
    std::uintptr_t m_nextNumber = 0x1000;
};

/// Somebody who is told where a thread goes behind the boundary and where it comes back: what passes between is the
/// machine's, not the library's. Calls within calls are not told.
struct CallObserver {
    void (*began)() = nullptr;
    void (*ended)() = nullptr;
};

/// For one thread at a time that calls; an empty observer ends it.
void ObserveCalls(CallObserver observer);

/// One boundary call, from its entry to its answer. Holds the machine for itself meanwhile.
class Call {
public:
    explicit Call(Operation operation);

    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    ~Call();

    [[nodiscard]] bool Refused() const { return m_failure == Failure::Refused; }

    [[nodiscard]] bool Shortened() const { return m_failure == Failure::ShortAnswer; }

    [[nodiscard]] bool Emptied() const { return m_failure == Failure::Nothing; }

    [[nodiscard]] bool SaysFailed() const { return m_failure == Failure::Status; }

    /// The code that this operation is refused with.
    [[nodiscard]] std::uint32_t RefusalCode() const { return RowOf(m_operation).refusal; }

    /// For the transcript; `describe` runs only when there is one.
    template <class Describe>
    Call& Note(Describe describe) {
        if (m_transcribing) {
            m_line += ' ';
            m_line += describe();
        }
        return *this;
    }

    /// Ends the transcript's line with an answer and gives it back.
    template <class Answer>
    Answer Answered(Answer answer, const char* base = "") {
        if (m_transcribing) {
            AppendAnswer(base, static_cast<std::int64_t>(answer));
        }
        return answer;
    }

private:
    void AppendAnswer(const char* base, std::int64_t answer);

    /// What the observer sees: first to come and last to go.
    struct Inside {
        Inside();
        Inside(const Inside&) = delete;
        Inside& operator=(const Inside&) = delete;
        ~Inside();
    };

    Inside m_inside;
    std::unique_lock<std::recursive_mutex> m_machine;
    Operation m_operation;
    Failure m_failure;
    bool m_transcribing;
    std::string m_line;
};

} // namespace machine
