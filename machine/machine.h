// The simulated machine: everything that stands behind the boundary, in memory, beside one store on disk.
#pragma once

#include "observer/gate.h"
#include "platform/types.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace machine {

class AcpiFirmware;
class BatteryDevice;
class Clock;
class ComObjects;
class Device;
class EmbeddedController;
class FileSystem;
class FirmwareFeatures;
class FirmwareStore;
class IoDriver;
class MachineCourse;
class PackageStore;
class ProcessorTimes;
class RegistryHive;
class Store;
class TraceSink;
class WindowStack;
class WmiRepository;
struct LoggedEvent;
struct OpenKey;
struct ProcessProfile;
struct Profile;
struct Radios;

/// Its models are made in one place: who asks one of them includes that one's header.
class Machine {
    struct Models;
    const std::unique_ptr<Models> m_models;

public:
    /// Throws ProfileError or StoreError.
    Machine(Profile machineProfile, const std::string& storePath);

    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;
    ~Machine();

    /// Brings what moves to the present moment. Whoever answers with something that is measured asks for it first.
    void CatchUp();

    const Profile& profile;
    Gate gate;
    Clock& clock;
    std::optional<MachineCourse>& course;
    Store& store;
    RegistryHive& registry;
    EmbeddedController& controller;
    IoDriver& driver;
    std::vector<BatteryDevice>& batteries;
    ProcessorTimes& processorTimes;
    AcpiFirmware& acpi;
    FirmwareStore& firmwareStore;
    FirmwareFeatures& firmwareFeatures;
    FileSystem& files;
    WmiRepository& wmi;
    ComObjects& com;
    PackageStore& packages;
    WindowStack& windows;
    Radios& radios;

    /// By path, folded.
    std::map<std::u16string, Device*> devices;
    /// By handle.
    std::map<std::uintptr_t, Device*> openDevices;

    std::map<std::uintptr_t, OpenKey>& openKeys;

    std::map<std::uintptr_t, const ProcessProfile*> openProcesses;
    /// By handle, with the number of interfaces in the set.
    std::map<std::uintptr_t, std::size_t> deviceInfoSets;

    std::map<std::uintptr_t, std::u16string> eventSources;
    std::vector<LoggedEvent>& eventLog;
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
