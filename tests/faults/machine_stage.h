// The stage on the simulated machine, with the library linked in.
#pragma once

#include "stage.h"

#include "machine/machine.h"
#include "machine/profile/profile.h"

namespace sweep {

class MachineStage final : public Stage, private observer::Sink {
public:
    explicit MachineStage(Situation situation, bool logsCalls = false);
    ~MachineStage() override;

    void Restart() override;
    void Renew() override;
    void FoundChanged() override { m_changed = true; }
    Run Play(const HostCall& call, observer::FaultPlan fault = {}, heap::Plan heapFault = {}) override;
    std::int64_t LeakedBlocks() override;
    [[nodiscard]] std::string_view MachineText() const override { return m_text; }

private:
    void SetUp();
    void Ended(const observer::Record& record) override;
    /// What is wrong with the state that a run has left.
    [[nodiscard]] std::string StateFault() const;

    bool m_changed = true;
    std::string m_text;
    machine::Profile m_profile;
    std::int64_t m_blocks = 0;
    std::vector<observer::Operation> m_calls;
    std::vector<tool::BoundaryCall> m_logged;
};

} // namespace sweep
