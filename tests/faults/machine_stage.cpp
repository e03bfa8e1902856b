#include "machine_stage.h"

#include "acpi/acpi_device.h"
#include "firmware/disk_temperature.h"
#include "frame/diagnostics.h"
#include "frame/session.h"
#include "machine/models/com_objects.h"
#include "machine/models/trace_sink.h"
#include "machine/profile/built_in_machines.h"
#include "platform/com.h"
#include "radio/bluetooth_snapshot.h"
#include "radio/wifi_snapshot.h"
#include "vesk_sondrel.h"
#include "vesk_sondrel_observer.h"

#include <dlfcn.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>

namespace sweep {
namespace {

void ForgetRecords() {
    sondrel::WiFiSnapshot = {};
    sondrel::BluetoothSnapshot = {};
    sondrel::SmartDiskTable = {};
}

/// The library as it is at load. Its first debug line registers the trace provider.
void ResetLibrary() {
    sondrel::DriverHandle = platform::Handle::Invalid;
    sondrel::SessionOpen = 0;
    sondrel::SessionRefCount = 0;
    sondrel::ZrnAcpiHandle = platform::Handle::Null;
    sondrel::TraceProvider.TraceRegistered = false;
    sondrel::TraceProvider.TraceLevelPlus1 = 0;
    sondrel::TraceProvider.TraceRegHandle = 0;
    ForgetRecords();
}

/// Whether the machine may keep something of it that no later run undoes.
bool IsPersisted(observer::Operation operation) {
    using enum observer::Operation;
    constexpr observer::Operation Keeping[] = {RegCreateKeyExW,
                                               RegSetValueExW,
                                               SetFirmwareEnvironmentVariableW,
                                               AdjustTokenPrivileges,
                                               WriteFile,
                                               SetFileInformationByHandle,
                                               ExecMethod};
    return std::ranges::find(Keeping, operation) != std::end(Keeping);
}

std::string ChangedProfile(const Situation& situation) {
    const auto machines = machine::BuiltInMachineTexts();
    const auto found = std::ranges::find(machines, situation.machine, &machine::BuiltInMachine::name);
    if (found == machines.end()) {
        throw std::runtime_error("there is no machine " + situation.machine);
    }
    nlohmann::json profile = nlohmann::json::parse(found->text);
    profile.merge_patch(nlohmann::json::parse(situation.changes));
    return profile.dump();
}

} // namespace

void* AddressOf(const std::string& name) {
    return ::dlsym(RTLD_DEFAULT, name.c_str());
}

MachineStage::MachineStage(Situation situation, bool logsCalls)
    : Stage(std::move(situation)),
      m_text(ChangedProfile(Where())),
      m_profile(machine::ParseProfile(m_text, Where().machine)) {
    observer::AddSink(*this);
    if (logsCalls) {
        const auto log = [](void* context, const VeskObserver_Call* call) {
            static_cast<MachineStage*>(context)->m_logged.push_back(*tool::BoundaryCallOf(*call));
        };
        VeskObserver_SetSink(log, this);
    }
}

MachineStage::~MachineStage() {
    VeskObserver_SetSink(nullptr, nullptr);
    observer::RemoveSink(*this);
}

void MachineStage::Ended(const observer::Record& record) {
    m_calls.push_back(record.operation);
}

std::string MachineStage::StateFault() const {
    for (const observer::OpenThing& thing : observer::OpenThings()) {
        const std::string what = Printed(thing);
        const bool isSession = sondrel::SessionOpen != 0 && what == "file \\\\.\\VESKHWIO";
        const bool isHosts = Where().initCom == 0 && thing.count == 1 && what == "apartment";
        if (!isSession && !isHosts) {
            return "left open: " + what;
        }
    }
    if ((sondrel::SessionOpen != 0) != (sondrel::SessionRefCount != 0)) {
        return "the session and its count do not agree";
    }
    return sondrel::ZrnAcpiHandle == platform::Handle::Null ? "" : "the firmware's device counts as open";
}

void MachineStage::Restart() {
    machine::Start(m_profile, ":memory:");
    observer::ForgetOpenThings();
    machine::CurrentApartment() = {};
    m_changed = false;
    ResetLibrary();
    InitializeSondrel();
    if (Where().used) {
        EC_ReadEcFwRev();
        EC_ReadEcChipId();
        EC_ReadEcChipName();
        WMISetAppPath(u"C:\\ProgramData\\Vesk\\VeskTessaly", 1);
        WMISetBatteryHealth(60, 1);
        WMISetQuietFan(3, 1);
    }
    ShutdownSondrel();
    SetUp();
    if (Where().initCom == 0) {
        platform::CoInitializeEx(platform::apartment::Multithreaded);
    }
}

void MachineStage::Renew() {
    if (m_changed) {
        Restart();
    } else {
        SetUp();
    }
}

void MachineStage::SetUp() {
    if (sondrel::SessionOpen != 0) {
        platform::CloseHandle(sondrel::DriverHandle);
    }
    ResetLibrary();
    if (Where().session) {
        InitializeSondrel();
    }
    m_blocks = heap::Live();
}

Run MachineStage::Play(const HostCall& call, observer::FaultPlan fault, heap::Plan heapFault) {
    Run run;
    m_calls.clear();
    m_logged.clear();
    observer::Restart(fault);
    heap::Restart(heapFault);
    try {
        run.answer = call();
    } catch (const std::exception& raised) {
        run.fault = std::string("raised across the boundary: ") + raised.what();
    }
    run.calls = m_calls;
    run.logged = std::exchange(m_logged, {});
    m_changed = m_changed || std::ranges::any_of(run.calls, IsPersisted) || !run.fault.empty();
    run.allocations = heap::Count();
    run.injected = observer::CurrentCosts().injected + heap::Injected();
    observer::Restart();
    heap::Restart();
    machine::Traces().Take();
    if (run.fault.empty()) {
        run.fault = !run.answer.fault.empty() ? run.answer.fault : StateFault();
    }
    return run;
}

std::int64_t MachineStage::LeakedBlocks() {
    ForgetRecords();
    return heap::Live() - m_blocks;
}

} // namespace sweep
