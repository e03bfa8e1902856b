// The simulated machine: its models, in memory, and its storage on disk.
#pragma once

#include "machine/models/acpi_firmware.h"
#include "machine/models/battery_device.h"
#include "machine/models/clock.h"
#include "machine/models/ec/embedded_controller.h"
#include "machine/models/ec/io_driver.h"
#include "machine/models/firmware_features.h"
#include "machine/models/handle_table.h"
#include "machine/models/machine_course.h"
#include "machine/models/processor_times.h"
#include "machine/models/storage/package_store.h"
#include "machine/models/storage/storage.h"
#include "machine/models/trace_sink.h"
#include "machine/models/window_stack.h"
#include "machine/models/wmi/wmi_repository.h"
#include "machine/profile/profile.h"
#include "platform/lock.h"

#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace machine {

/// One record of the event log.
struct LoggedEvent {
    std::uint16_t type = 0;
    std::u16string source;
    std::vector<std::u16string> strings;
};

/// The models, in the order in which they are made of each other.
struct Machine {
    Machine(Profile machineProfile, Storage machineStorage);
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    /// Moves what a course moves to the present moment: before something that is measured is reported.
    void AdvanceModels();

    /// What is traced outlives a machine; its use is the machine's, which one thread holds at a time.
    static TraceSink& Traces() { return machine::Traces(); }

    const Profile profile;
    const Storage storage;
    HandleTable handles;
    Clock clock;
    std::optional<MachineCourse> course;
    EmbeddedController controller{profile.ec};
    IoDriver driver{profile.driver, profile.processor, controller};
    std::vector<BatteryDevice> batteries{profile.batteries.begin(), profile.batteries.end()};
    ProcessorTimes processorTimes{profile.systemPower};
    AcpiFirmware acpi{profile.acpi};
    FirmwareFeatures firmwareFeatures{profile.firmwareFeatures, *storage.firmwareVariables};
    WmiRepository wmi{profile.wmi};
    PackageStore packages{profile.packages};
    WindowStack windows{profile.windows};
    /// By path, folded.
    std::map<std::u16string, Device*> devices;
    std::vector<LoggedEvent> eventLog;
    std::function<void(const LoggedEvent&)> onLoggedEvent;
    std::size_t adapterListings = 0; // how often the list of adapters has been read
};

/// The machine, held for the calling thread as long as this lives. A thread may hold it several times.
class HeldMachine {
public:
    HeldMachine();

    Machine* operator->() const { return &m_machine; }

    Machine& operator*() const { return m_machine; }

private:
    std::unique_lock<platform::RecursiveLock> m_lock;
    Machine& m_machine;
};

/// The machine of this process. The first use starts the default one if none has been started.
inline HeldMachine Current() {
    return {};
}

/// Puts another machine in place of the present one. What was open on that is forgotten with it.
void Start(Profile profile, Storage storage);

/// The same with its storage in a file.
void Start(Profile profile, const std::string& storePath);

/// Where a machine's storage is unless another place is named: a file for each machine below the user's state directory.
/// Throws StoreError when there is no such directory.
std::string DefaultStorePath(const Profile& profile);

/// A built-in machine, a profile's file or a recording, in place of the present one. The store's default is the machine's
/// own file. Throws with what is wrong.
void StartNamed(const std::string& name, const char* store);

/// What a host gets that never says which machine it wants.
void StartDefault();

} // namespace machine
