#include "frame/session.h"

#include "vesk_sondrel.h"

namespace sondrel {

platform::Handle DriverHandle = platform::Handle::Invalid;
std::uint8_t SessionOpen = 0;
std::uint32_t SessionRefCount = 0;

namespace {

constexpr std::uint32_t IoDllVersion = 0x00010001;

platform::Handle OpenDriver(std::uint32_t shareMode) {
    return platform::CreateFileW(u"\\\\.\\VESKHWIO", platform::access::GenericReadWrite, shareMode,
                                 platform::OpenExisting, platform::FileAttributeNormal);
}

/// The word as the driver leaves it, even if the request fails; 0 if the driver writes none. After a session nothing is
/// sent: the handle value that it left may belong to something else by now.
std::uint32_t DriverWord(std::uint32_t code) {
    std::uint32_t word = 0;
    const bool isClosed = SessionOpen == 0 && DriverHandle != platform::Handle::Invalid;
    if (!isClosed) {
        DriverExchange(code, {}, std::as_writable_bytes(std::span(&word, 1)));
    }
    return word;
}

} // namespace

bool DriverExchange(std::uint32_t code, std::span<const std::byte> in, std::span<std::byte> out) {
    std::uint32_t returned = 0;
    return platform::DeviceIoControl(DriverHandle, code, in, out, returned);
}

} // namespace sondrel

using namespace sondrel;

int32_t InitializeSondrel(void) {
    if (SessionRefCount == 0 && SessionOpen == 0) {
        // Exclusive if possible, shared if another process has the device open.
        DriverHandle = OpenDriver(platform::share::None);
        if (DriverHandle == platform::Handle::Invalid) {
            DriverHandle = OpenDriver(platform::share::ReadWrite);
        }
        if (DriverHandle == platform::Handle::Invalid) {
            return 0;
        }
    }
    ++SessionRefCount;
    SessionOpen = 1;
    return 1;
}

void ShutdownSondrel(void) {
    if (SessionOpen == 0 || --SessionRefCount != 0) {
        return;
    }
    if (DriverHandle != platform::Handle::Invalid) {
        platform::CloseHandle(DriverHandle);
    }
    SessionOpen = 0;
}

uint32_t GetDriverVersion(void) {
    return DriverWord(driver_request::Version);
}

uint32_t GetRefCount(void) {
    return DriverWord(driver_request::RefCount);
}

uint32_t GetIoDllVersion(void) {
    return IoDllVersion;
}
