// The simulated machine: everything that stands behind the boundary, in memory, beside one store on disk.
#pragma once

#include "platform/simulated/acpi_firmware.h"
#include "platform/simulated/battery_device.h"
#include "platform/simulated/clock.h"
#include "platform/simulated/com_objects.h"
#include "platform/simulated/devices.h"
#include "platform/simulated/embedded_controller.h"
#include "platform/simulated/file_system.h"
#include "platform/simulated/firmware_features.h"
#include "platform/simulated/firmware_store.h"
#include "platform/simulated/gate.h"
#include "platform/simulated/io_driver.h"
#include "platform/simulated/machine_course.h"
#include "platform/simulated/package_store.h"
#include "platform/simulated/profile.h"
#include "platform/simulated/radios.h"
#include "platform/simulated/registry_hive.h"
#include "platform/simulated/store.h"
#include "platform/simulated/system_power.h"
#include "platform/simulated/trace_sink.h"
#include "platform/simulated/window_stack.h"
#include "platform/simulated/wmi_repository.h"

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace machine {

/// A registry key that is open, with the rights it was opened with.
struct OpenKey {
    std::int64_t number;
    std::uint32_t access;
    RegistryHive::Listing subkeys{};
};

class Machine {
public:
    /// Throws ProfileError or StoreError.
    Machine(Profile machineProfile, const std::string& storePath);

    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    /// Brings what moves to the present moment. Whoever answers with something that is measured asks for it first.
    void CatchUp();

    const Profile profile;
    Gate gate;
    Clock clock;
    std::optional<MachineCourse> course;
    Store store;
    RegistryHive registry;
    EmbeddedController controller;
    IoDriver driver;
    std::vector<BatteryDevice> batteries;
    ProcessorTimes processorTimes;
    AcpiFirmware acpi;
    FirmwareStore firmwareStore;
    FirmwareFeatures firmwareFeatures;
    FileSystem files;
    WmiRepository wmi;
    ComObjects com;
    PackageStore packages;
    WindowStack windows;

    /// By path, folded.
    std::map<std::u16string, Device*> devices;
    /// By handle.
    std::map<std::uintptr_t, Device*> openDevices;

    std::map<std::uintptr_t, OpenKey> openKeys;

    std::map<std::uintptr_t, const ProcessProfile*> openProcesses;
    /// By handle, with the number of interfaces in the set.
    std::map<std::uintptr_t, std::size_t> deviceInfoSets;
    Radios radios;

    std::map<std::uintptr_t, std::u16string> eventSources;
    std::vector<LoggedEvent> eventLog;
    std::function<void(const LoggedEvent&)> onLoggedEvent;
};

/// The machine of this process. The first use starts the default one if none has been started.
Machine& Current();

/// Puts another machine in place of the present one. What was open on that is forgotten with it.
void Start(Profile profile, const std::string& storePath);

/// ETW outlives a machine that is replaced: a provider registers once per process.
TraceSink& Traces();

/// Held during every boundary call.
std::recursive_mutex& MachineMutex();

/// The calling thread's last error.
void SetLastError(platform::SystemError error);

/// Where a machine keeps its state unless it is told otherwise: a file per machine below the user's state
/// directory. Throws StoreError when there is no such directory to be had.
std::string DefaultStorePath(const Profile& profile);

} // namespace machine
