// The devices of a simulated machine, behind the device names of a real Windows.
#pragma once

#include "battery_stand.h"
#include "driver_stand.h"

#include "machine/machine.h"

#include <list>
#include <map>
#include <string>

namespace stand_in {

/// Answers what programs ask the devices of a machine: the stand-in driver takes the requests, the simulated
/// machine's own models answer them.
class ServedMachine {
public:
    explicit ServedMachine(machine::Machine& machine);

    /// Answers until the process ends, or whatever else is waited for.
    void ServeWhile(HANDLE process);

private:
    void AnswerWaiting();

    test::DriverStand m_stand;
    std::list<BatteryStand> m_batteries;
    std::map<std::wstring, machine::Device*> m_devices;
};

} // namespace stand_in
