// The stage of one run: a machine, and the library in its state at load.
#pragma once

#include "host_call.h"

#include "causes/boundary_call.h"
#include "heap.h"
#include "observer/observer.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sweep {

/// Where a run begins.
struct Situation {
    std::string machine = "default";
    bool session = true;
    /// The library was used here before: the EC's identity is cached, there is an app path with settings in it.
    bool used = false;
    /// What the exports get that use COM; 0: this thread has entered an apartment.
    std::uint8_t initCom = 1;
    /// The machine itself lacks values.
    bool lacking = false;
    /// A JSON merge patch on the machine's profile.
    std::string changes = "{}";
};

struct Run {
    HostAnswer answer;
    /// The boundary calls that were made, in their order.
    std::vector<observer::Operation> calls;
    /// The same as the tool logs them, if the stage was asked to.
    std::vector<tool::BoundaryCall> logged;
    std::uint64_t allocations = 0;
    /// Failures that were injected, of either kind.
    std::uint64_t injected = 0;
    /// What is not as it has to be whatever failed: open things, broken state, an exception, a bad write.
    std::string fault;
};

class Stage {
public:
    explicit Stage(Situation situation) : m_situation(std::move(situation)) {}

    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
    virtual ~Stage() = default;

    /// Sets everything up again.
    virtual void Restart() = 0;

    /// The same for the library; the machine is started again only if the last runs may have changed it, or if
    /// it was found changed.
    virtual void Renew() = 0;

    virtual void FoundChanged() = 0;

    /// One run from where the last one left off.
    virtual Run Play(const HostCall& call, observer::FaultPlan fault = {}, heap::Plan heapFault = {}) = 0;

    /// Blocks that the library has not released since the restart, its records aside, which this forgets.
    virtual std::int64_t LeakedBlocks() = 0;

    /// The machine's profile.
    [[nodiscard]] virtual std::string_view MachineText() const = 0;

    [[nodiscard]] const Situation& Where() const { return m_situation; }

private:
    Situation m_situation;
};

} // namespace sweep
