#include "wine_stage.h"

#include "imported_heap.h"
#include "open_handles.h"
#include "planted.h"
#include "shims.h"
#include "vesk_sondrel_observer.h"

#include "machine/machine.h"
#include "machine/profile/built_in_machines.h"
#include "memory_storage.h"

#include <evntprov.h>

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>

namespace sweep {
namespace {

constexpr const wchar_t* AppPath = L"C:\\ProgramData\\Vesk\\VeskTessaly";

const test::Library* Loaded = nullptr;

/// A trace session that wants every level, so that each debug line is made.
ULONG WINAPI RegisterAndEnable(const GUID*, PENABLECALLBACK callback, void* context,
                               REGHANDLE* registration) {
    constexpr ULONG EnableProvider = 1;
    constexpr UCHAR EveryLevel = 0;
    *registration = 1;
    callback(nullptr, EnableProvider, EveryLevel, 0, 0, nullptr, context);
    return ERROR_SUCCESS;
}

/// Nothing says that a debug line leaves the thread's last error alone: here it does not.
ULONG WINAPI WriteEvent(REGHANDLE, const EVENT_DESCRIPTOR*, const GUID*, const GUID*, ULONG,
                        EVENT_DATA_DESCRIPTOR*) {
    ::SetLastError(ERROR_MORE_DATA);
    return ERROR_SUCCESS;
}

LONG WINAPI CreateKey(HKEY parent, LPCWSTR path, DWORD reserved, LPWSTR type, DWORD options, REGSAM access,
                      const LPSECURITY_ATTRIBUTES security, PHKEY key, LPDWORD disposition) {
    comparison::NoteChange();
    return ::RegCreateKeyExW(parent, path, reserved, type, options, access, security, key, disposition);
}

WINBOOL WINAPI Write(HANDLE file, LPCVOID data, DWORD size, LPDWORD written, LPOVERLAPPED overlapped) {
    comparison::NoteChange();
    return ::WriteFile(file, data, size, written, overlapped);
}

std::size_t HandlesOpen() {
    static OpenHandles handles;
    return handles.Count() - comparison::DevicesOpen();
}

std::string_view TextOfMachine(const std::string& name) {
    const auto machines = machine::BuiltInMachineTexts();
    const auto found = std::ranges::find(machines, name, &machine::BuiltInMachine::name);
    if (found == machines.end()) {
        throw std::runtime_error("there is no machine " + name);
    }
    return found->text;
}

} // namespace

void* AddressOf(const std::string& name) {
    return reinterpret_cast<void*>(::GetProcAddress(Loaded->Module(), name.c_str()));
}

std::span<const Planted> PlantedReadings() {
    return reinterpret_cast<std::span<const Planted> (*)()>(AddressOf("VeskPlantedReadings"))();
}

WineStage::WineStage(Situation situation, Tested tested, std::wstring file)
    : Stage(std::move(situation)),
      m_tested(tested),
      m_file(std::move(file)),
      m_text(TextOfMachine(Where().machine)),
      m_profile(machine::ParseProfile(m_text, Where().machine)) {
    machine::Start(m_profile, machine::MemoryStorage(m_profile));
    m_state.emplace(machine::Current()->profile);
    m_devices.emplace(*machine::Current());
    Load();
    Unload();
    m_debt = m_left;
    Load();
}

WineStage::~WineStage() {
    Unload();
}

void WineStage::Load() {
    m_library.emplace(m_file);
    Loaded = &*m_library;
    m_patch.emplace(m_library->Module());
    comparison::PutUpAll(*m_patch);
    m_patch->Replace("EventRegister", &RegisterAndEnable);
    m_patch->Replace("EventWriteTransfer", &WriteEvent);
    m_patch->Replace("RegCreateKeyExW", &CreateKey);
    m_patch->Replace("WriteFile", &Write);
    WatchImports(*m_patch);
    m_blocks = heap::Live();
    m_taken = 0;
    m_isUnused = true;
    if (m_tested == Tested::Observed) {
        const auto note = [](void* stage, const VeskObserver_Call* call) {
            const auto* const row = std::ranges::find(
                observer::OperationTable, std::string_view(call->operation), &observer::OperationRow::name);
            static_cast<WineStage*>(stage)->m_calls.push_back(
                static_cast<observer::Operation>(row - std::begin(observer::OperationTable)));
        };
        VESK_CALL(*m_library, VeskObserver_SetSink)(note, this);
    }
}

void WineStage::Unload() {
    comparison::CloseDevices();
    m_patch->Abandon();
    m_library.reset();
    m_patch.reset();
    m_left = heap::Live() - m_blocks - m_taken;
}

void WineStage::LoadAgain() {
    if (!m_isUnused) {
        Unload();
        Load();
    }
}

void WineStage::Restart() {
    LoadAgain();
    machine::Start(m_profile, machine::MemoryStorage(m_profile));
    m_state->Undo(m_profile);
    m_changed = false;
    if (Where().used) {
        m_isUnused = false;
        VESK_CALL(*m_library, InitializeSondrel)();
        VESK_CALL(*m_library, EC_ReadEcFwRev)();
        VESK_CALL(*m_library, EC_ReadEcChipId)();
        VESK_CALL(*m_library, WMISetAppPath)(reinterpret_cast<const VeskChar16*>(AppPath), 1);
        VESK_CALL(*m_library, WMISetBatteryHealth)(60, 1);
        VESK_CALL(*m_library, WMISetQuietFan)(3, 1);
        VESK_CALL(*m_library, ShutdownSondrel)();
    }
    SetUp();
}

void WineStage::Renew() {
    if (m_changed) {
        Restart();
    } else {
        SetUp();
    }
}

void WineStage::SetUp() {
    LoadAgain();
    if (Where().session) {
        m_isUnused = false;
        VESK_CALL(*m_library, InitializeSondrel)();
    }
}

void WineStage::PlanFaults(const observer::FaultPlan& fault, const heap::Plan& heapFault) const {
    if (m_tested == Tested::Shipped) {
        heap::Restart(heapFault);
        return;
    }
    const VeskObserver_Fault planned{.size = sizeof planned,
                                     .operation = nullptr,
                                     .nth = fault.nth,
                                     .andLater = fault.andLater ? 1 : 0,
                                     .kind = observer::Bit(fault.kind)};
    VESK_CALL(*m_library, VeskObserver_InjectFault)(fault.nth != 0 ? &planned : nullptr);
    VESK_CALL(*m_library, VeskObserver_FailAllocation)(heapFault.nth, heapFault.andLater ? 1 : 0);
}

void WineStage::ReadCounts(Run& run) const {
    if (m_tested == Tested::Shipped) {
        run.allocations = heap::Count();
        run.injected = heap::Injected();
        return;
    }
    VeskObserver_Costs costs{.size = sizeof costs};
    VESK_CALL(*m_library, VeskObserver_GetCosts)(&costs);
    VeskObserver_Heap heap{.size = sizeof heap};
    VESK_CALL(*m_library, VeskObserver_GetHeap)(&heap);
    run.allocations = heap.allocations;
    run.injected = costs.injected + heap.failed;
}

Run WineStage::Play(const HostCall& call, observer::FaultPlan fault, heap::Plan heapFault) {
    Run run;
    m_calls.clear();
    m_isUnused = false;
    const std::size_t handles = HandlesOpen();
    const std::size_t changes = comparison::ChangesMade();
    PlanFaults(fault, heapFault);
    try {
        run.answer = call();
    } catch (const std::exception& raised) {
        run.fault = std::string("raised across the boundary: ") + raised.what();
    }
    ReadCounts(run);
    PlanFaults({}, {});
    run.calls = m_calls;
    m_taken += run.answer.blocksTaken;
    m_changed = m_changed || comparison::ChangesMade() != changes || !run.fault.empty();
    if (run.fault.empty()) {
        run.fault = !run.answer.fault.empty() ? run.answer.fault : StateFault(handles);
    }
    return run;
}

std::string WineStage::StateFault(std::size_t handlesBefore) const {
    if (m_tested == Tested::Observed) {
        std::string left;
        const auto note = [](void* context, const char* what) {
            auto& found = *static_cast<std::string*>(context);
            if (std::string_view(what) != "file \\\\.\\VESKHWIO") {
                found = std::string("left open: ") + what;
            }
        };
        VESK_CALL(*m_library, VeskObserver_ListOpen)(note, &left);
        if (!left.empty()) {
            return left;
        }
    }
    if (HandlesOpen() > handlesBefore) {
        return "left open: a handle of Windows'";
    }
    return !machine::Current()->handles.IsEmpty() ? "left open: a handle of the machine's"
           : comparison::BlocksOut() != 0         ? "left open: memory of the WLAN service"
           : comparison::DevicesOpen() > 1        ? "left open: a device"
                                                  : "";
}

std::int64_t WineStage::LeakedBlocks() {
    LoadAgain();
    return m_left - m_debt;
}

} // namespace sweep
