#include "machine_devices.h"

#include "machine/models/acpi_firmware.h"
#include "machine/models/battery_device.h"
#include "machine/models/ec/io_driver.h"
#include "machine/profile/profile.h"

#include <algorithm>
#include <array>
#include <span>

namespace devices {
namespace {

/// The driver's status for the error that a program receives, which the models return.
std::uint32_t StatusOf(platform::SystemError error) {
    switch (error) {
    case platform::error::Success:
        return 0;
    case ERROR_INVALID_FUNCTION:
        return 0xC0000010; // STATUS_INVALID_DEVICE_REQUEST
    case platform::error::FileNotFound:
        return 0xC000000F; // STATUS_NO_SUCH_FILE
    case platform::error::AccessDenied:
        return 0xC0000022; // STATUS_ACCESS_DENIED
    case platform::error::InvalidParameter:
        return 0xC000000D; // STATUS_INVALID_PARAMETER
    case platform::error::InsufficientBuffer:
        return 0xC0000023; // STATUS_BUFFER_TOO_SMALL
    default:
        return 0xC0000001; // STATUS_UNSUCCESSFUL
    }
}

machine::Device& DriverOf(machine::Machine& machine) {
    return machine.driver;
}

machine::Device& AcpiOf(machine::Machine& machine) {
    return machine.acpi;
}

} // namespace

MachineDevices::MachineDevices(machine::Machine& machine) {
    if (machine.profile.driver.present) {
        m_devices[L"VESKHWIO"] = &DriverOf;
    }
    if (machine.profile.acpi.present) {
        m_devices[L"ZRNACPI"] = &AcpiOf;
    }
    for (const auto& [name, device] : m_devices) {
        m_driver.AddDevice(name);
    }
    for (unsigned place = 0; place < machine.batteries.size(); ++place) {
        m_batteries.emplace_back(m_driver, place);
        m_devices[FakeBattery::DeviceOf(place)] = [place](machine::Machine& current) -> machine::Device& {
            return current.batteries[place];
        };
    }
}

void MachineDevices::ServeWhile(HANDLE process) {
    const std::array<HANDLE, 2> handles{process, m_driver.Waiting()};
    while (::WaitForMultipleObjects(handles.size(), handles.data(), FALSE, INFINITE) == WAIT_OBJECT_0 + 1) {
        AnswerWaiting();
    }
}

void MachineDevices::AnswerWaiting() {
    const auto machine = machine::Current();
    while (const auto request = m_driver.Take()) {
        const machine::ControlAnswer answer = m_devices.at(request->device)(*machine).Control(
            request->code, std::as_bytes(std::span(request->in)), request->capacity);
        test::Bytes output(std::min<std::size_t>(answer.bytes.size(), request->capacity));
        std::transform(answer.bytes.begin(),
                       answer.bytes.begin() + static_cast<std::ptrdiff_t>(output.size()), output.begin(),
                       [](std::byte byte) { return std::to_integer<std::uint8_t>(byte); });
        m_driver.Reply(*request, StatusOf(answer.error), output);
    }
}

} // namespace devices
