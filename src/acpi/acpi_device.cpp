#include "acpi/acpi_device.h"

#include "frame/diagnostics.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>

namespace sondrel {

platform::Handle ZrnAcpiHandle = platform::Handle::Null;

namespace {

constexpr std::uint32_t CallMethodRequest = 0x0022240C;
constexpr std::size_t RequestHeaderSize = 8;

static_assert(std::endian::native == std::endian::little, "the device's words are little-endian");

/// One debug line, built on the stack because a document writes two of them for each register.
class Line {
public:
    Line& Text(std::u16string_view text) {
        const std::size_t length = std::min(text.size(), m_characters.size() - 1 - m_length);
        std::copy_n(text.begin(), length, m_characters.begin() + static_cast<std::ptrdiff_t>(m_length));
        m_length += length;
        return *this;
    }

    /// As "%x" writes it.
    Line& Hexadecimal(std::uint32_t number) {
        const int lowest = std::max(static_cast<int>(std::bit_width(number)) - 1, 0) / 4 * 4;
        for (int shift = lowest; shift >= 0; shift -= 4) {
            Text(std::u16string_view(u"0123456789abcdef").substr(number >> shift & 0xF, 1));
        }
        return *this;
    }

    void Write() {
        m_characters[m_length] = u'\0';
        TraceWide(m_characters.data());
    }

private:
    std::array<char16_t, 260> m_characters; // the size of the buffer that wsprintfW is used with
    std::size_t m_length = 0;
};

/// Calls a method that returns one number, and logs it.
template <std::size_t Count>
bool CallForNumber(std::uint32_t method, const std::array<std::uint32_t, Count>& arguments,
                   std::u16string_view returnText, std::uint32_t& value) {
    const OpenZrnAcpi device;
    std::uint32_t number = 0;
    std::uint32_t replySize = 0;
    if (!ZrnAcpiCall(method, std::as_bytes(std::span(arguments)),
                     std::as_writable_bytes(std::span(&number, 1)), replySize)) {
        return false;
    }
    value = replySize < sizeof number ? 0 : number;
    Line().Text(returnText).Hexadecimal(value).Write();
    return true;
}

} // namespace

bool InitializeZRNACPIDevice() {
    const platform::Handle opened =
        platform::CreateFileW(u"\\\\.\\ZRNACPI", platform::access::GenericReadWrite,
                              platform::share::ReadWrite, platform::OpenExisting, 0);
    const bool valid = opened != platform::Handle::Invalid && opened != platform::Handle::Null;
    ZrnAcpiHandle = valid ? opened : platform::Handle::Null;
    return valid;
}

bool UninitializeZRNACPIDevice() {
    if (ZrnAcpiHandle == platform::Handle::Null || ZrnAcpiHandle == platform::Handle::Invalid) {
        return false;
    }
    platform::CloseHandle(ZrnAcpiHandle);
    ZrnAcpiHandle = platform::Handle::Null;
    return true;
}

bool ZrnAcpiCall(std::uint32_t method, std::span<const std::byte> arguments, std::span<std::byte> reply,
                 std::uint32_t& replySize) {
    if (ZrnAcpiHandle == platform::Handle::Null || ZrnAcpiHandle == platform::Handle::Invalid) {
        return false;
    }
    const std::size_t size = RequestHeaderSize + arguments.size();
    const std::unique_ptr<std::byte[]> request(new (std::nothrow) std::byte[size]);
    if (!request) {
        return false;
    }
    const std::array<std::uint32_t, 2> header{method, static_cast<std::uint32_t>(arguments.size())};
    std::memcpy(request.get(), header.data(), RequestHeaderSize);
    std::ranges::copy(arguments, request.get() + RequestHeaderSize);

    std::array<std::byte, AcpiReplySize> answer;
    std::uint32_t reported = 0;
    if (!platform::DeviceIoControl(ZrnAcpiHandle, CallMethodRequest, {request.get(), size}, answer,
                                   reported)) {
        return false;
    }
    const std::size_t copied = std::min({std::size_t{reported}, reply.size(), answer.size()});
    std::copy_n(answer.begin(), copied, reply.begin());
    replySize = static_cast<std::uint32_t>(copied);
    return true;
}

bool ACPI_ZRN_DEVS(std::uint32_t arg0, std::uint32_t arg1, std::uint32_t& value) {
    TraceDevsArguments(arg0, arg1);
    return CallForNumber<2>(acpi_method::Control, {arg0, arg1}, u"[ACPI_ZRN_DEVS] return = 0x", value);
}

bool ACPI_ZRN_DSTS(std::uint32_t arg, std::uint32_t& value) {
    Line().Text(u"[ACPI_ZRN_DSTS] Arg = 0x").Hexadecimal(arg).Write();
    return CallForNumber<1>(acpi_method::ReadStatus, {arg}, u"[ACPI_ZRN_DSTS] return = 0x", value);
}

void TraceDevsArguments(std::uint32_t arg0, std::uint32_t arg1) {
    Line()
        .Text(u"[ACPI_ZRN_DEVS] Arg0 = 0x")
        .Hexadecimal(arg0)
        .Text(u", Arg1 = 0x")
        .Hexadecimal(arg1)
        .Write();
}

} // namespace sondrel
