#include "platform/simulated/machine.h"

#include "platform/audio.h"
#include "platform/device_io.h"
#include "platform/simulated/audio_objects.h"
#include "platform/simulated/wide_text.h"
#include "platform/simulated/wmi_objects.h"
#include "platform/simulated/xml_documents.h"
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

Machine::Machine(Profile machineProfile, const std::string& storePath)
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
      windows(profile.windows),
      devices{{Folded(u"\\\\.\\VESKHWIO"), &driver}, {Folded(u"\\\\.\\ZRNACPI"), &acpi}} {
    if (profile.course) {
        course.emplace(*profile.course, profile.ec, profile.systemPower, profile.batteries);
    }
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

namespace platform {

SystemError GetLastError() {
    return machine::LastError;
}

} // namespace platform
