// The devices of a simulated machine, under the device names of a real Windows.
#pragma once

#include "fake_battery.h"
#include "fake_devices.h"

#include "machine/machine.h"

#include <list>
#include <map>
#include <string>

namespace devices {

/// Answers what programs ask the devices of a machine: the fake driver takes the requests, the simulated
/// machine's own models answer them.
class MachineDevices {
public:
    explicit MachineDevices(machine::Machine& machine);

    /// Answers until the process ends, or the event is set.
    void ServeWhile(HANDLE process);

private:
    void AnswerWaiting();

    test::FakeDevices m_driver;
    std::list<FakeBattery> m_batteries;
    std::map<std::wstring, machine::Device*> m_devices;
};

} // namespace devices
