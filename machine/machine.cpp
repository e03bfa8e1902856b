#include "machine/machine.h"

#include "machine/text/folding.h"

#include <cmath>
#include <memory>
#include <utility>

namespace machine {
namespace {

std::unique_ptr<Machine>& Slot() {
    static std::unique_ptr<Machine> Slot;
    return Slot;
}

platform::RecursiveLock& SlotLock() {
    static platform::RecursiveLock Lock;
    return Lock;
}

} // namespace

Machine::Machine(Profile machineProfile, Storage machineStorage)
    : profile(std::move(machineProfile)), storage(std::move(machineStorage)) {
    if (profile.course) {
        course.emplace(*profile.course, profile.ec, profile.systemPower, profile.batteries);
    }
    devices = {{Folded(u"\\\\.\\VESKHWIO"), &driver}, {Folded(u"\\\\.\\ZRNACPI"), &acpi}};
    for (std::size_t index = 0; index < batteries.size(); ++index) {
        devices[Folded(BatteryDevice::PathOf(index))] = &batteries[index];
    }
    wmi.SetMethods(u"ROOT\\WMI", u"VeskZrnWmi_WMNB", firmwareFeatures.Methods());
}

void Machine::AdvanceModels() {
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

HeldMachine::HeldMachine()
    : m_lock(SlotLock()), m_machine([]() -> Machine& {
          if (!Slot()) {
              StartDefault();
          }
          return *Slot();
      }()) {}

void Start(Profile profile, Storage storage) {
    const std::lock_guard lock(SlotLock());
    Slot() = std::make_unique<Machine>(std::move(profile), std::move(storage));
}

} // namespace machine
