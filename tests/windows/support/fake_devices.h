// The fake driver: devices of any name, whose requests this program answers.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace test {

using Bytes = std::vector<std::uint8_t>;

/// A request that waits for a reply.
struct WaitingRequest {
    std::uint32_t number = 0;
    std::wstring device;
    std::uint32_t code = 0;
    Bytes in;
    std::uint32_t capacity = 0;
};

/// Owns the fake driver: installed and started when made, all devices gone when destroyed. One at a time in the
/// whole Windows. What fails throws std::runtime_error that names the step.
class FakeDevices {
public:
    FakeDevices();
    ~FakeDevices();
    FakeDevices(const FakeDevices&) = delete;
    FakeDevices& operator=(const FakeDevices&) = delete;

    /// Makes a device that CreateFileW finds as \\.\name.
    void AddDevice(std::wstring_view name);

    /// Set whenever a request begins to wait; belongs to this object.
    [[nodiscard]] HANDLE Waiting() const { return m_waiting; }

    /// The oldest request that waits and was not taken yet.
    std::optional<WaitingRequest> Take();
    void Reply(const WaitingRequest& request, std::uint32_t status, const Bytes& output);

private:
    bool OpenControl();
    Bytes Control(std::uint32_t code, const void* input, std::size_t size, std::size_t capacity = 0) const;

    HANDLE m_control = INVALID_HANDLE_VALUE;
    HANDLE m_waiting = nullptr;
};

} // namespace test
