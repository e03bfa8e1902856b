#include "served_machine.h"

#include "platform/simulated/acpi_firmware.h"
#include "platform/simulated/battery_device.h"
#include "platform/simulated/io_driver.h"
#include "platform/simulated/profile.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <span>

namespace stand_in {
namespace {

/// The driver's status for what the models tell as the error that a program sees in the end.
std::uint32_t StatusOf(platform::SystemError error) {
    constexpr std::uint32_t InvalidParameter = 0xC000000D;
    constexpr std::uint32_t NoSuchFile = 0xC000000F;
    switch (error) {
    case platform::error::Success:
        return test::nt_status::Success;
    case ERROR_INVALID_FUNCTION:
        return test::nt_status::InvalidDeviceRequest;
    case platform::error::FileNotFound:
        return NoSuchFile;
    case platform::error::AccessDenied:
        return test::nt_status::AccessDenied;
    case platform::error::InvalidParameter:
        return InvalidParameter;
    case platform::error::InsufficientBuffer:
        return test::nt_status::BufferTooSmall;
    default:
        return test::nt_status::Unsuccessful;
    }
}

} // namespace

ServedMachine::ServedMachine(machine::Machine& machine) {
    if (machine.profile.driver.present) {
        m_devices[test::device::IoDriver] = &machine.driver;
    }
    if (machine.profile.acpi.present) {
        m_devices[test::device::Acpi] = &machine.acpi;
    }
    for (const auto& [name, device] : m_devices) {
        m_stand.AddDevice(name);
    }
    for (unsigned place = 0; place < machine.batteries.size(); ++place) {
        m_batteries.emplace_back(m_stand, place);
        m_devices[test::BatteryStand::DeviceOf(place)] = &machine.batteries[place];
    }
    m_stand.Serve();
}

void ServedMachine::ServeWhile(HANDLE process) {
    const std::array<HANDLE, 2> handles{process, m_stand.Serve()};
    while (::WaitForMultipleObjects(handles.size(), handles.data(), FALSE, INFINITE) == WAIT_OBJECT_0 + 1) {
        AnswerWaiting();
    }
}

void ServedMachine::AnswerWaiting() {
    const std::lock_guard lock(machine::MachineMutex());
    while (const auto request = m_stand.Take()) {
        const machine::ControlAnswer answer =
            m_devices.at(request->device)
                ->Control(request->code, std::as_bytes(std::span(request->in)), request->room);
        test::Bytes output(std::min<std::size_t>(answer.bytes.size(), request->room));
        std::transform(answer.bytes.begin(),
                       answer.bytes.begin() + static_cast<std::ptrdiff_t>(output.size()), output.begin(),
                       [](std::byte byte) { return std::to_integer<std::uint8_t>(byte); });
        m_stand.Reply(*request, StatusOf(answer.error), output);
    }
}

} // namespace stand_in
