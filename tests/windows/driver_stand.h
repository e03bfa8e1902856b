// The stand-in driver: devices of any name that answer as a test dictates and note what reached them.
#pragma once

#include <windows.h>

#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace test {

using Bytes = std::vector<std::uint8_t>;

/// Bytes from hexadecimal pairs; blanks between them are for the reader.
Bytes FromHex(std::string_view pairs);
std::string ToHex(const Bytes& bytes);

/// Little-endian 32-bit words.
Bytes Words(std::initializer_list<std::uint32_t> words);

namespace device {
inline constexpr const wchar_t* IoDriver = L"VESKHWIO";
inline constexpr const wchar_t* Acpi = L"ZRNACPI";
} // namespace device

/// In place of a request's code in the log. An opening's input is one word, the share mode; a driver sees no more
/// of it under Wine and cannot refuse it either (ImportPatch on CreateFileW can).
inline constexpr std::uint32_t Opening = 0xFFFFFFFF;
inline constexpr std::uint32_t Closing = 0xFFFFFFFE;

/// What a driver answers with when it does not carry a request out.
namespace nt_status {
inline constexpr std::uint32_t Success = 0;
inline constexpr std::uint32_t Unsuccessful = 0xC0000001;
inline constexpr std::uint32_t InvalidDeviceRequest = 0xC0000010;
inline constexpr std::uint32_t AccessDenied = 0xC0000022;
inline constexpr std::uint32_t BufferTooSmall = 0xC0000023;
inline constexpr std::uint32_t SharingViolation = 0xC0000043;
} // namespace nt_status

/// How a device answers one kind of request. The newest rule that matches wins; one that is used up is gone and
/// an older one comes to light again: so the answer that stays is given first, and what comes before it last.
struct Rule {
    std::uint32_t code = 0;
    Bytes prefix; // the request's input has to begin with these
    Bytes output; // fewer than the caller has room for is a short answer
    std::uint32_t status = nt_status::Success;
    std::uint32_t uses = 0; // 0: for ever
};

/// One request, opening or closing as the driver saw it.
struct DriverRequest {
    std::uint32_t code = 0;
    std::string in; // hexadecimal pairs; at most the first 64 bytes
    std::uint32_t room = 0;
    std::uint32_t status = 0;

    friend bool operator==(const DriverRequest&, const DriverRequest&) = default;
};

void PrintTo(const DriverRequest& request, std::ostream* out);

/// A request that waits for a reply.
struct WaitingRequest {
    std::uint32_t number = 0;
    std::wstring device;
    std::uint32_t code = 0;
    Bytes in;
    std::uint32_t room = 0;
};

/// Owns the stand-in driver: installed and started when made, all devices, rules and log entries gone when
/// destroyed. One at a time in the whole Windows. What fails throws std::runtime_error that names the step.
class DriverStand {
public:
    DriverStand();
    ~DriverStand();
    DriverStand(const DriverStand&) = delete;
    DriverStand& operator=(const DriverStand&) = delete;

    /// Makes a device that CreateFileW finds as \\.\name.
    void AddDevice(std::wstring_view name);
    /// Takes the name away: the device is absent from now on. A handle that is open stays open.
    void RemoveDevice(std::wstring_view name);

    void Answer(std::wstring_view name, const Rule& rule);
    void ForgetRules();

    /// What the device saw since it was made or since ForgetLog, oldest first.
    [[nodiscard]] std::vector<DriverRequest> Log(std::wstring_view name) const;
    /// The same without openings and closings.
    [[nodiscard]] std::vector<DriverRequest> Requests(std::wstring_view name) const;
    void ForgetLog();

    /// From now on a request without a rule waits for a reply. The handle is of an event that is set whenever one
    /// begins to wait; it belongs to the stand.
    HANDLE Serve();
    /// The oldest request that waits and was not taken yet.
    std::optional<WaitingRequest> Take();
    void Reply(const WaitingRequest& request, std::uint32_t status, const Bytes& output);

private:
    bool OpenControl();
    Bytes Control(std::uint32_t code, const void* input, std::size_t size, std::size_t room = 0) const;

    HANDLE m_control = INVALID_HANDLE_VALUE;
    HANDLE m_waiting = nullptr;
};

} // namespace test
