#include "fake_devices.h"

#include "library.h"
#include "tests/windows/driver/fake_driver_protocol.h"

#include <winsvc.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace test {
namespace {

constexpr const wchar_t* ServiceName = L"VeskFakeDriver";
constexpr const wchar_t* ControlPath = L"\\\\.\\VeskFakeDriver";

[[noreturn]] void Fail(const std::string& step) {
    throw std::runtime_error("fake driver: " + step + " failed with error " +
                             std::to_string(::GetLastError()));
}

struct ServiceCloser {
    using pointer = SC_HANDLE;

    void operator()(SC_HANDLE handle) const { ::CloseServiceHandle(handle); }
};

using OwnedService = std::unique_ptr<SC_HANDLE, ServiceCloser>;

/// Installs the driver as a service where that is still to be done, and starts it where it is not running.
void StartDriver() {
    const std::wstring file = ProgramDirectory() + L"fake_driver.sys";
    const OwnedService manager(::OpenSCManagerW(nullptr, nullptr, SC_MANAGER_ALL_ACCESS));
    if (!manager) {
        Fail("OpenSCManagerW");
    }
    OwnedService service(::CreateServiceW(manager.get(), ServiceName, nullptr, SERVICE_ALL_ACCESS,
                                          SERVICE_KERNEL_DRIVER, SERVICE_DEMAND_START, SERVICE_ERROR_NORMAL,
                                          file.c_str(), nullptr, nullptr, nullptr, nullptr, nullptr));
    if (!service) {
        service.reset(::OpenServiceW(manager.get(), ServiceName, SERVICE_ALL_ACCESS));
        // The tree may have moved since.
        if (!service ||
            !::ChangeServiceConfigW(service.get(), SERVICE_NO_CHANGE, SERVICE_NO_CHANGE, SERVICE_NO_CHANGE,
                                    file.c_str(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr)) {
            Fail("OpenServiceW");
        }
    }
    if (!::StartServiceW(service.get(), 0, nullptr) && ::GetLastError() != ERROR_SERVICE_ALREADY_RUNNING) {
        Fail("StartServiceW");
    }
}

} // namespace

FakeDevices::FakeDevices() {
    constexpr ULONGLONG Patience = 10'000; // milliseconds
    StartDriver();
    m_waiting = ::CreateEventW(nullptr, FALSE, FALSE, L"Global\\VeskFakeDriver");
    if (m_waiting == nullptr) {
        Fail("CreateEventW");
    }
    // A closing reaches the driver a moment after CloseHandle, so that the last owner may still be leaving.
    const ULONGLONG end = ::GetTickCount64() + Patience;
    while (!OpenControl()) {
        if (::GetTickCount64() > end) {
            throw std::runtime_error("fake driver: it is in use by another process");
        }
        ::Sleep(5);
    }
}

bool FakeDevices::OpenControl() {
    m_control =
        ::CreateFileW(ControlPath, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (m_control == INVALID_HANDLE_VALUE) {
        Fail("CreateFileW");
    }
    DWORD written = 0;
    if (::DeviceIoControl(m_control, FAKE_DRIVER_SERVE, nullptr, 0, nullptr, 0, &written, nullptr)) {
        return true;
    }
    ::CloseHandle(m_control); // it answers to another owner
    return false;
}

FakeDevices::~FakeDevices() {
    ::CloseHandle(m_control);
    ::CloseHandle(m_waiting);
}

void FakeDevices::AddDevice(std::wstring_view name) {
    FakeDriverDevice request{};
    if (name.empty() || name.size() >= std::size(request.name)) {
        throw std::invalid_argument("fake driver: a device's name has 1 to 127 characters");
    }
    std::ranges::copy(name, request.name);
    Control(FAKE_DRIVER_ADD_DEVICE, &request, sizeof request);
}

std::optional<WaitingRequest> FakeDevices::Take() {
    const Bytes bytes = Control(FAKE_DRIVER_TAKE, nullptr, 0, sizeof(FakeDriverWaiting));
    if (bytes.size() < sizeof(FakeDriverWaiting)) {
        return std::nullopt;
    }
    const auto waiting = std::make_unique<FakeDriverWaiting>();
    std::ranges::copy(bytes, reinterpret_cast<std::uint8_t*>(waiting.get()));
    const auto copied = std::min<std::size_t>(waiting->inputSize, std::size(waiting->input));
    return WaitingRequest{waiting->number, reinterpret_cast<const wchar_t*>(waiting->device), waiting->code,
                          Bytes(waiting->input, waiting->input + copied), waiting->outputCapacity};
}

void FakeDevices::Reply(const WaitingRequest& request, std::uint32_t status, const Bytes& output) {
    const auto reply = std::make_unique<FakeDriverReply>();
    reply->number = request.number;
    reply->status = status;
    if (output.size() > std::size(reply->output)) {
        throw std::invalid_argument("fake driver: too many bytes for a reply");
    }
    reply->outputSize = static_cast<std::uint32_t>(output.size());
    std::ranges::copy(output, reply->output);
    Control(FAKE_DRIVER_REPLY, reply.get(), sizeof *reply);
}

Bytes FakeDevices::Control(std::uint32_t code, const void* input, std::size_t size,
                           std::size_t capacity) const {
    Bytes output(capacity);
    DWORD written = 0;
    if (!::DeviceIoControl(m_control, code, const_cast<void*>(input), static_cast<DWORD>(size), output.data(),
                           static_cast<DWORD>(capacity), &written, nullptr)) {
        Fail("control request " + std::to_string(code >> 2 & 0xFF));
    }
    output.resize(written);
    return output;
}

} // namespace test
