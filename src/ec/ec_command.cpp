#include "ec/ec_command.h"

#include "frame/diagnostics.h"
#include "frame/session.h"
#include "frame/text.h"
#include "vesk_sondrel.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>

namespace sondrel {
namespace {

constexpr std::uint32_t TooMuchDataResult = 0x37;

std::string CommandLine(std::uint8_t command, std::span<const std::uint8_t> data, std::uint8_t readFlag) {
    constexpr std::size_t UsualLength = 64; // one allocation for all but the longest lines
    std::string line;
    line.reserve(UsualLength);
    line += "[RwEcCmd] cmd: 0x";
    line += HexText(command);
    line += " DataList:";
    for (const std::uint8_t byte : data) {
        line += " 0x";
        line += HexText(byte);
    }
    if (readFlag != 0) {
        line += " ReadData";
    }
    return line;
}

} // namespace

std::uint32_t RwEcCmd(std::uint8_t dataCount, std::uint8_t command, const std::uint8_t* data,
                      std::uint8_t readFlag, std::uint32_t* status) {
    const std::span<const std::uint8_t> bytes(data, dataCount);
    TraceLine([&] { return CommandLine(command, bytes, readFlag); });
    if (SessionOpen == 0) {
        *status = ec_status::NoSession;
        return 0;
    }
    EcRequest request{};
    request.command = command;
    request.dataCount = dataCount;
    request.readFlag = readFlag;
    if (dataCount > std::size(request.data)) {
        *status = ec_status::TooMuchData;
        return TooMuchDataResult;
    }
    std::ranges::copy(bytes, request.data);
    // A refused IOCTL leaves the buffer as it was sent: status 0 and byte 0.
    const std::span wire = std::as_writable_bytes(std::span(&request, 1));
    DriverExchange(driver_request::EcCommand, wire, wire);
    *status = request.status;
    return request.result;
}

} // namespace sondrel

using namespace sondrel;

uint32_t System_Read_TabletMode(void) {
    constexpr std::array<std::uint8_t, 2> Data{0x33, 0x00};
    std::uint32_t status = ec_status::Done;
    const std::uint32_t mode = RwEcCmd(Data.size(), 0x8E, Data.data(), 1, &status);
    return status == ec_status::Done ? mode : EcReadFailed;
}
