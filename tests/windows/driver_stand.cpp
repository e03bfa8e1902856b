#include "driver_stand.h"

#include "driver/stand_in_protocol.h"
#include "library.h"

#include <winsvc.h>

#include <algorithm>
#include <memory>
#include <ostream>
#include <span>
#include <stdexcept>

namespace test {
namespace {

constexpr const wchar_t* ServiceName = L"VeskStandIn";
constexpr const wchar_t* ControlPath = L"\\\\.\\VeskStandIn";

[[noreturn]] void Fail(const std::string& step) {
    throw std::runtime_error("stand-in driver: " + step + " failed with error " +
                             std::to_string(::GetLastError()));
}

struct ServiceCloser {
    using pointer = SC_HANDLE;

    void operator()(SC_HANDLE handle) const { ::CloseServiceHandle(handle); }
};

using OwnedService = std::unique_ptr<SC_HANDLE, ServiceCloser>;

/// Installs the driver as a service where that is still to be done, and starts it where it is not running.
void StartDriver() {
    const std::wstring file = ProgramDirectory() + L"stand_in.sys";
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

/// A text into a protocol field, which is zeroed.
template <std::size_t Room>
void CopyName(std::wstring_view name, std::uint16_t (&field)[Room]) {
    if (name.empty() || name.size() >= Room) {
        throw std::invalid_argument("stand-in driver: a device's name has 1 to 127 characters");
    }
    std::ranges::copy(name, field);
}

template <std::size_t Room>
std::uint32_t CopyBytes(const Bytes& bytes, std::uint8_t (&field)[Room]) {
    if (bytes.size() > Room) {
        throw std::invalid_argument("stand-in driver: too many bytes for a rule");
    }
    std::ranges::copy(bytes, field);
    return static_cast<std::uint32_t>(bytes.size());
}

bool IsNamed(const StandInLogEntry& entry, std::wstring_view name) {
    return std::equal(name.begin(), name.end(), entry.device) && entry.device[name.size()] == 0;
}

DriverRequest RequestOf(const StandInLogEntry& entry) {
    const auto kept = std::min<std::size_t>(entry.inputSize, std::size(entry.input));
    return {entry.code, ToHex(Bytes(entry.input, entry.input + kept)), entry.outputRoom, entry.status};
}

} // namespace

Bytes FromHex(std::string_view pairs) {
    Bytes bytes;
    std::string digits;
    for (const char digit : pairs) {
        if (digit != ' ') {
            digits += digit;
        }
        if (digits.size() == 2) {
            bytes.push_back(static_cast<std::uint8_t>(std::stoul(digits, nullptr, 16)));
            digits.clear();
        }
    }
    return bytes;
}

std::string ToHex(const Bytes& bytes) {
    constexpr const char* Digits = "0123456789abcdef";
    std::string pairs;
    for (const std::uint8_t byte : bytes) {
        pairs += Digits[byte >> 4];
        pairs += Digits[byte & 0xF];
    }
    return pairs;
}

Bytes Words(std::initializer_list<std::uint32_t> words) {
    Bytes bytes;
    for (const std::uint32_t word : words) {
        for (unsigned shift = 0; shift < 32; shift += 8) {
            bytes.push_back(static_cast<std::uint8_t>(word >> shift));
        }
    }
    return bytes;
}

void PrintTo(const DriverRequest& request, std::ostream* out) {
    *out << std::hex << "0x" << request.code << " in " << (request.in.empty() ? "-" : request.in) << " room "
         << std::dec << request.room << std::hex << " = 0x" << request.status << std::dec;
}

DriverStand::DriverStand() {
    constexpr ULONGLONG Patience = 10'000; // milliseconds
    StartDriver();
    // A closing reaches the driver a moment after CloseHandle, so that the last owner may still be leaving.
    const ULONGLONG end = ::GetTickCount64() + Patience;
    while (!OpenControl()) {
        if (::GetTickCount64() > end) {
            throw std::runtime_error("stand-in driver: it is in use by another process");
        }
        ::Sleep(5);
    }
}

bool DriverStand::OpenControl() {
    m_control =
        ::CreateFileW(ControlPath, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (m_control == INVALID_HANDLE_VALUE) {
        Fail("CreateFileW");
    }
    DWORD written = 0;
    if (::DeviceIoControl(m_control, STAND_IN_CLEAR_LOG, nullptr, 0, nullptr, 0, &written, nullptr)) {
        return true;
    }
    ::CloseHandle(m_control); // it answers to another owner
    return false;
}

DriverStand::~DriverStand() {
    ::CloseHandle(m_control);
    if (m_waiting != nullptr) {
        ::CloseHandle(m_waiting);
    }
}

void DriverStand::AddDevice(std::wstring_view name) {
    StandInDevice request{};
    CopyName(name, request.name);
    Control(STAND_IN_ADD_DEVICE, &request, sizeof request);
}

void DriverStand::RemoveDevice(std::wstring_view name) {
    StandInDevice request{};
    CopyName(name, request.name);
    Control(STAND_IN_REMOVE_DEVICE, &request, sizeof request);
}

void DriverStand::Answer(std::wstring_view name, const Rule& rule) {
    StandInRule request{};
    CopyName(name, request.device);
    request.code = rule.code;
    request.prefixSize = CopyBytes(rule.prefix, request.prefix);
    request.status = rule.status;
    request.outputSize = CopyBytes(rule.output, request.output);
    request.uses = rule.uses;
    Control(STAND_IN_ADD_RULE, &request, sizeof request);
}

void DriverStand::ForgetRules() {
    Control(STAND_IN_CLEAR_RULES, nullptr, 0);
}

void DriverStand::ForgetLog() {
    Control(STAND_IN_CLEAR_LOG, nullptr, 0);
}

std::vector<DriverRequest> DriverStand::Log(std::wstring_view name) const {
    constexpr std::uint32_t AtOnce = 256;
    std::vector<DriverRequest> requests;
    for (std::uint32_t first = 0;; first += AtOnce) {
        const Bytes bytes =
            Control(STAND_IN_READ_LOG, &first, sizeof first, AtOnce * sizeof(StandInLogEntry));
        std::vector<StandInLogEntry> entries(bytes.size() / sizeof(StandInLogEntry));
        std::ranges::copy(bytes, reinterpret_cast<std::uint8_t*>(entries.data()));
        for (const StandInLogEntry& entry : entries) {
            if (IsNamed(entry, name)) {
                requests.push_back(RequestOf(entry));
            }
        }
        if (entries.size() < AtOnce) {
            return requests;
        }
    }
}

std::vector<DriverRequest> DriverStand::Requests(std::wstring_view name) const {
    std::vector<DriverRequest> requests = Log(name);
    std::erase_if(requests, [](const DriverRequest& request) {
        return request.code == Opening || request.code == Closing;
    });
    return requests;
}

HANDLE DriverStand::Serve() {
    if (m_waiting == nullptr) {
        m_waiting = ::CreateEventW(nullptr, FALSE, FALSE, L"Global\\VeskStandIn");
        if (m_waiting == nullptr) {
            Fail("CreateEventW");
        }
        Control(STAND_IN_SERVE, nullptr, 0);
    }
    return m_waiting;
}

std::optional<WaitingRequest> DriverStand::Take() {
    const Bytes bytes = Control(STAND_IN_TAKE, nullptr, 0, sizeof(StandInWaiting));
    if (bytes.size() < sizeof(StandInWaiting)) {
        return std::nullopt;
    }
    const auto waiting = std::make_unique<StandInWaiting>();
    std::ranges::copy(bytes, reinterpret_cast<std::uint8_t*>(waiting.get()));
    const auto kept = std::min<std::size_t>(waiting->inputSize, std::size(waiting->input));
    return WaitingRequest{waiting->number, reinterpret_cast<const wchar_t*>(waiting->device), waiting->code,
                          Bytes(waiting->input, waiting->input + kept), waiting->outputRoom};
}

void DriverStand::Reply(const WaitingRequest& request, std::uint32_t status, const Bytes& output) {
    const auto reply = std::make_unique<StandInReply>();
    reply->number = request.number;
    reply->status = status;
    reply->outputSize = CopyBytes(output, reply->output);
    Control(STAND_IN_REPLY, reply.get(), sizeof *reply);
}

Bytes DriverStand::Control(std::uint32_t code, const void* input, std::size_t size, std::size_t room) const {
    Bytes output(room);
    DWORD written = 0;
    if (!::DeviceIoControl(m_control, code, const_cast<void*>(input), static_cast<DWORD>(size), output.data(),
                           static_cast<DWORD>(room), &written, nullptr)) {
        Fail("control request " + std::to_string(code >> 2 & 0xFF));
    }
    output.resize(written);
    return output;
}

} // namespace test
