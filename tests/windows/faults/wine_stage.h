// The stage under Wine: the DLL on a Windows that is a simulated machine throughout.
#pragma once

#include "library.h"
#include "machine_devices.h"
#include "stage.h"
#include "wine_state.h"

#include "machine/profile/profile.h"

#include <optional>

namespace sweep {

/// Which DLL, and how its allocations are counted and made to fail.
enum class Tested : std::uint8_t {
    Shipped, // all that it imports for it, the back end's and the runtime's own included; no boundary call fails
    Observed, // those of the core, by the DLL's own operator new
};

class WineStage final : public Stage {
public:
    /// The file's place is below the program's directory.
    WineStage(Situation situation, Tested tested, std::wstring file);
    ~WineStage() override;

    void Restart() override;
    void Renew() override;
    void FoundChanged() override { m_changed = true; }
    Run Play(const HostCall& call, observer::FaultPlan fault = {}, heap::Plan heapFault = {}) override;
    std::int64_t LeakedBlocks() override;
    [[nodiscard]] std::string_view MachineText() const override { return m_text; }

private:
    void Load();
    void Unload();
    /// Unless it was not used yet.
    void LoadAgain();
    void SetUp();
    void PlanFaults(const observer::FaultPlan& fault, const heap::Plan& heapFault) const;
    void ReadCounts(Run& run) const;
    /// What is wrong with what a run has left open.
    [[nodiscard]] std::string StateFault(std::size_t handlesBefore) const;

    Tested m_tested;
    std::wstring m_file;
    bool m_changed = true;
    bool m_isUnused = true;
    std::string m_text;
    machine::Profile m_profile;
    std::optional<comparison::WineState> m_state;
    std::optional<devices::ServedDevices> m_devices;
    std::optional<test::Library> m_library;
    std::optional<test::ImportPatch> m_patch;
    std::int64_t m_blocks = 0; // when the DLL was loaded
    std::int64_t m_taken = 0;  // by the host since then
    std::int64_t m_left = 0;   // by the DLL that was unloaded last
    std::int64_t m_debt =
        0; // what a DLL frees at its end without being used: it was allocated before it was watched
    std::vector<observer::Operation> m_calls;
};

} // namespace sweep
