#include "machine/models/acpi_firmware.h"

#include <string_view>

namespace machine {
namespace {

// CTL_CODE(device type 0x22, function 0x903, METHOD_BUFFERED, FILE_ANY_ACCESS)
constexpr std::uint32_t EvaluateMethod = 0x22 << 16 | 0x903 << 2;

constexpr std::uint32_t EventStoreId = 393305;
constexpr std::uint32_t PSensorId = 393320;
constexpr std::uint32_t UnknownId = 0xFFFFFFFE; // this firmware's answer to an id that it does not know

constexpr std::size_t ReplySize = 1024;

constexpr platform::SystemError UnknownRequest = 1;

} // namespace

platform::SystemError AcpiFirmware::Open(std::uint32_t, std::uint32_t) {
    return m_profile.present ? platform::error::Success : platform::error::FileNotFound;
}

ControlAnswer AcpiFirmware::Control(std::uint32_t code, std::span<const std::byte> in, std::size_t outSize) {
    if (code != EvaluateMethod) {
        return {UnknownRequest, {}};
    }
    if (outSize < ReplySize) {
        return {platform::error::InsufficientBuffer, {}};
    }
    const AcpiFault fault = FaultOf(++m_requests);
    if (fault.error != platform::error::Success) {
        return {fault.error, {}};
    }
    ControlAnswer answer = CarryOut(in);
    if (fault.replySize && answer.bytes.size() > *fault.replySize) {
        answer.bytes.resize(*fault.replySize);
    }
    return answer;
}

AcpiFault AcpiFirmware::FaultOf(std::uint32_t request) const {
    for (const AcpiFault& fault : m_profile.faults) {
        if (fault.use == 0 || fault.use == request) {
            return fault;
        }
    }
    return {};
}

/// A request is the method's four letters, the size of its arguments and the arguments.
ControlAnswer AcpiFirmware::CarryOut(std::span<const std::byte> in) {
    if (in.size() < 8 || WordAt(in, 4) != in.size() - 8) {
        return {platform::error::InvalidParameter, {}};
    }
    const std::string_view method(reinterpret_cast<const char*>(in.data()), 4);
    if (method == "DSTS" && in.size() == 12) {
        return Words({WordAt(in, 8) == PSensorId ? m_profile.pSensor : UnknownId});
    }
    if (method == "DEVS" && in.size() == 16) {
        return ControlById(WordAt(in, 8), WordAt(in, 12));
    }
    return {platform::error::InvalidParameter, {}};
}

ControlAnswer AcpiFirmware::ControlById(std::uint32_t id, std::uint32_t what) {
    if (id != EventStoreId) {
        return Words({UnknownId});
    }
    switch (what) {
    case 224:
        return Words({m_profile.storeVersion});
    case 229:
        return NextRecord();
    case 65507: // also what register 255 would be asked for with
        return Words({m_profile.registerCount});
    default:
        break;
    }
    if (what % 256 != 227) {
        return Words({UnknownId});
    }
    const std::uint32_t index = what / 256;
    return Words({index < m_profile.registers.size() ? m_profile.registers[index] : 0});
}

ControlAnswer AcpiFirmware::NextRecord() {
    if (m_record == m_profile.log.size()) {
        if (m_profile.logEnd == LogEnd::StartsAgain) {
            m_record = 0;
        }
        return Words({0});
    }
    const LogRecord& record = m_profile.log[m_record];
    if (++m_returned == record.times) {
        m_returned = 0;
        ++m_record;
        if (m_record == m_profile.log.size() && m_profile.logEnd == LogEnd::NeverEnds) {
            m_record = 0;
        }
    }
    return {platform::error::Success, record.bytes};
}

} // namespace machine
