#include "machine/machine.h"
#include "machine/models/acpi_firmware.h"
#include "machine/models/battery_device.h"
#include "machine/models/ec/embedded_controller.h"
#include "machine/models/ec/io_driver.h"
#include "machine/models/firmware_features.h"
#include "machine/models/machine_course.h"
#include "machine/models/storage/file_system.h"
#include "machine/models/storage/firmware_store.h"
#include "machine/models/storage/package_store.h"
#include "machine/models/storage/registry_hive.h"
#include "machine/models/storage/store.h"
#include "machine/models/window_stack.h"
#include "machine/models/wmi/wmi_repository.h"
#include "machine/profile/profile.h"
#include "machine/services/clock.h"
#include "machine/services/com_objects.h"
#include "machine/services/radios.h"
#include "machine/services/system_power.h"
#include "machine/services/trace_sink.h"
#include "platform/back_end.h"

#include "machine/models/wmi/wmi_objects.h"
#include "machine/services/audio_objects.h"
#include "machine/services/xml_documents.h"
#include "machine/text/wide_text.h"
#include "platform/audio.h"
#include "platform/device_io.h"
#include "platform/wmi.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>

namespace machine {
namespace {

std::unique_ptr<Machine>& Slot() {
    static std::unique_ptr<Machine> Machine;
    return Machine;
}

/// A host that never says which machine it wants gets the default one. Without a place for its state the
/// machine forgets it at the end, and says so once.
void StartDefault() {
    Profile profile = LoadProfile(BuiltInMachines().front());
    try {
        const std::string path = DefaultStorePath(profile);
        Start(profile, path);
    } catch (const StoreError& problem) {
        std::cerr << "simulated machine: " << problem.what() << "; its state is not kept\n";
        Start(std::move(profile), ":memory:");
    }
}

thread_local platform::SystemError LastError = platform::error::Success;

} // namespace

/// In the order in which they are made of each other.
struct Machine::Models {
    Models(Profile machineProfile, const std::string& storePath)
        : profile(std::move(machineProfile)),
          store(storePath),
          registry(store, profile.registry),
          controller(profile.ec),
          driver(profile.driver, profile.processor, controller),
          batteries(profile.batteries.begin(), profile.batteries.end()),
          processorTimes(profile.systemPower),
          acpi(profile.acpi),
          firmwareStore(store, profile.firmwareVariables),
          firmwareFeatures(profile.firmwareFeatures, firmwareStore),
          files(storePath, store.IsNew(), profile.files),
          wmi(profile.wmi),
          packages(profile.packages),
          windows(profile.windows) {
        if (profile.course) {
            course.emplace(*profile.course, profile.ec, profile.systemPower, profile.batteries);
        }
    }

    const Profile profile;
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
    Radios radios;
    std::map<std::uintptr_t, OpenKey> openKeys;
    std::vector<LoggedEvent> eventLog;
};

Machine::Machine(Profile machineProfile, const std::string& storePath)
    : m_models(std::make_unique<Models>(std::move(machineProfile), storePath)),
      profile(m_models->profile),
      clock(m_models->clock),
      course(m_models->course),
      store(m_models->store),
      registry(m_models->registry),
      controller(m_models->controller),
      driver(m_models->driver),
      batteries(m_models->batteries),
      processorTimes(m_models->processorTimes),
      acpi(m_models->acpi),
      firmwareStore(m_models->firmwareStore),
      firmwareFeatures(m_models->firmwareFeatures),
      files(m_models->files),
      wmi(m_models->wmi),
      com(m_models->com),
      packages(m_models->packages),
      windows(m_models->windows),
      radios(m_models->radios),
      devices{{Folded(u"\\\\.\\VESKHWIO"), &driver}, {Folded(u"\\\\.\\ZRNACPI"), &acpi}},
      openKeys(m_models->openKeys),
      eventLog(m_models->eventLog) {
    for (std::size_t index = 0; index < batteries.size(); ++index) {
        devices[Folded(BatteryDevice::PathOf(index))] = &batteries[index];
    }
    com.Register({platform::ClsidWbemLocator, platform::IidWbemLocator, [] {
                      return std::make_shared<WbemLocatorObject>();
                  }});
    wmi.AnswerMethods(u"ROOT\\WMI", u"VeskZrnWmi_WMNB", firmwareFeatures);
    com.Register(XmlDocumentClass());
    com.Register({platform::ClsidDeviceEnumerator, platform::IidDeviceEnumerator, [] {
                      return std::make_shared<DeviceEnumeratorObject>();
                  }});
}

Machine::~Machine() = default;

void Machine::CatchUp() {
    if (!course || !course->MoveTo(clock.Now())) {
        return;
    }
    controller.Measure(*course);
    driver.Measure(*course);
    if (!batteries.empty()) {
        batteries.front().Measure(*course);
    }
    const double load = course->Load().At(std::chrono::duration<double>(clock.Now()).count());
    wmi.Measure(u"ROOT\\CIMV2", u"Win32_Processor", u"LoadPercentage",
                {std::int64_t{std::lround(load * 100)}});
}

Machine& Current() {
    const std::lock_guard lock(MachineMutex());
    if (!Slot()) {
        StartDefault();
    }
    return *Slot();
}

void Start(Profile profile, const std::string& storePath) {
    const std::lock_guard lock(MachineMutex());
    Slot() = std::make_unique<Machine>(std::move(profile), storePath);
}

TraceSink& Traces() {
    static TraceSink Sink;
    return Sink;
}

std::recursive_mutex& MachineMutex() {
    static std::recursive_mutex Mutex;
    return Mutex;
}

void SetLastError(platform::SystemError error) {
    LastError = error;
}

std::string DefaultStorePath(const Profile& profile) {
    namespace fs = std::filesystem;
    fs::path directory;
    if (const char* state = std::getenv("XDG_STATE_HOME"); state != nullptr && *state == '/') {
        directory = state;
    } else if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/') {
        directory = fs::path(home) / ".local" / "state";
    } else {
        throw StoreError("no directory for the machine's state: neither XDG_STATE_HOME nor HOME is set");
    }
    directory /= "vesk-sondrel";
    std::error_code problem;
    fs::create_directories(directory, problem);
    if (problem) {
        throw StoreError(directory.string() + ": " + problem.message());
    }
    char digest[17];
    std::snprintf(digest, sizeof digest, "%016llx", static_cast<unsigned long long>(profile.digest));
    return (directory / (profile.name + "-" + digest + ".sqlite")).string();
}

} // namespace machine

namespace VESK_BACK_END {

SystemError GetLastError() {
    return machine::LastError;
}

} // namespace VESK_BACK_END
