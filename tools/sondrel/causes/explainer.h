// The state of a reading and its cause, from what it returned, what the library asked for, and the session.
#pragma once

#include "causes/boundary_call.h"
#include "causes/reading_state.h"
#include "exports/classify.h"

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace tool {

struct Explanation {
    ReadingState state = ReadingState::Ok;
    std::optional<Cause> cause;
    /// As the description has it, corrected by what is known here.
    Classification classification;
};

class Explainer {
public:
    /// `isObserved`: the calls of an export are known. Otherwise only its description counts.
    explicit Explainer(bool isObserved) : m_isObserved(isObserved) {}

    /// `calls`: of the attempt to open the session. Nothing: none was asked for.
    void SessionOpened(bool isOpen, std::span<const BoundaryCall> calls);
    void NoSessionAsked();

    /// The EC cannot be identified: readings whose zero can mean this have no value.
    void IdentityIsMissing() { m_isIdentified = false; }

    /// Another sample begins: what is not read again is stale.
    void BeginSample() { ++m_sample; }

    [[nodiscard]] Explanation Explain(const Export& row, const Answer& answer,
                                      std::vector<BoundaryCall> calls);

private:
    /// What the last reading of a record did, which the others of its group answer from.
    struct Record {
        std::vector<BoundaryCall> calls;
        std::uint64_t sample = 0;
    };

    [[nodiscard]] Explanation Judged(const Export& row, const Answer& answer,
                                     std::span<const BoundaryCall> calls) const;

    bool m_isObserved;
    bool m_isIdentified = true;
    bool m_isSessionOpen = false;
    Cause m_noSession{.call = {}, .rule = "no session is open", .remedy = {}};
    std::uint64_t m_sample = 0;
    std::array<Record, static_cast<std::size_t>(Group::Count)> m_records;
};

} // namespace tool
