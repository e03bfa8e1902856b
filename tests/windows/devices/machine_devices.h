// The devices of a simulated machine, under the device names of a real Windows.
#pragma once

#include "fake_battery.h"
#include "fake_devices.h"
#include "thread.h"

#include "machine/machine.h"

#include <functional>
#include <list>
#include <map>
#include <string>

namespace devices {

/// Answers what programs ask the devices of a machine: the fake driver takes the requests, the simulated
/// machine's own models answer them. Where the machine is started again, the new one's answer.
class MachineDevices {
public:
    explicit MachineDevices(machine::Machine& machine);

    /// Answers until the process ends, or the event is set.
    void ServeWhile(HANDLE process);

private:
    void AnswerWaiting();

    test::FakeDevices m_driver;
    std::list<FakeBattery> m_batteries;
    std::map<std::wstring, std::function<machine::Device&(machine::Machine&)>> m_devices;
};

/// The same on a separate thread, since the devices have to answer while this one is in a call.
class ServedDevices {
public:
    explicit ServedDevices(machine::Machine& machine)
        : m_devices(machine), m_thread([this] { m_devices.ServeWhile(m_end); }) {}

    ServedDevices(const ServedDevices&) = delete;
    ServedDevices& operator=(const ServedDevices&) = delete;

    ~ServedDevices() {
        ::SetEvent(m_end);
        m_thread.Join();
        ::CloseHandle(m_end);
    }

private:
    MachineDevices m_devices;
    HANDLE m_end = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    test::Thread m_thread;
};

} // namespace devices
