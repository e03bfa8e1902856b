// SMART blocks of any bytes and any length, on any number of disks: the temperatures are what the attributes'
// bytes say, a byte after a block's end being 0.
#include "harness.h"

#include "firmware/disk_temperature.h"
#include "machine/models/wmi/wmi_repository.h"
#include "unicode/utf.h"

namespace {

std::u16string Expected(const std::vector<std::byte>& block) {
    const auto byteAt = [&block](std::size_t place) {
        return place < block.size() ? std::to_integer<unsigned>(block[place]) : 0u;
    };
    std::u16string list;
    for (std::size_t entry = 2; entry < 2 + 30 * 12; entry += 12) {
        if (byteAt(entry) == 194) {
            list += unicode::WideFromUtf8((list.empty() ? "" : ";") + std::to_string(byteAt(entry + 5)));
        }
    }
    return list;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const auto bytes = std::as_bytes(std::span(data, size));
    std::vector<machine::WmiRow> disks;
    std::u16string expected;
    for (std::size_t disk = 0; disk <= data[0] % 12u; ++disk) {
        const auto rest = bytes.subspan(std::min(size, 1 + disk * 12));
        const std::vector<std::byte> block(rest.begin(), rest.end());
        disks.push_back({{u"InstanceName", {u"disk"}}, {u"VendorSpecific", {block}}});
        if (const std::u16string list = Expected(block); disk < 10 && !list.empty()) {
            expected += (expected.empty() ? u"" : u";") + list;
        }
    }
    fuzz::TheMachine().wmi =
        machine::WmiRepository({{u"ROOT\\WMI", {{u"MSStorageDriver_FailurePredictData", std::move(disks)}}}});
    sondrel::SmartDiskTable = {};
    fuzz::Demand(fuzz::TextOf(1200, WMIGetHDDTemp, 1) == expected);
    fuzz::DemandNothingOpen();
    return 0;
}
