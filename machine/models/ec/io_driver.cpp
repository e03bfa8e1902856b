#include "machine/models/ec/io_driver.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace machine {
namespace {

// The driver's IOCTLs, by function number of device type 0x8010.
constexpr std::uint32_t DriverRequest(std::uint32_t function) {
    return 0x80102000 | function;
}

constexpr std::uint32_t RequestVersion = DriverRequest(0x40);
constexpr std::uint32_t RequestReferences = DriverRequest(0x44);
constexpr std::uint32_t RequestCpuId = DriverRequest(0x68);
constexpr std::uint32_t RequestEc = DriverRequest(0x70);
constexpr std::uint32_t RequestPowerLimit1 = DriverRequest(0x74);
constexpr std::uint32_t RequestPowerLimit2 = DriverRequest(0x78);
constexpr std::uint32_t RequestPackagePower = DriverRequest(0x7C);

constexpr std::size_t StatusAt = 12; // of an EC request

constexpr std::uint32_t OpenedAlready = 32;

/// The vendor string in CPUID leaf 0: EBX, EDX, ECX.
CpuIdLeaf VendorLeaf(const std::string& vendor) {
    const auto bytes = std::as_bytes(std::span(vendor));
    return {0x16, WordAt(bytes, 0), WordAt(bytes, 8), WordAt(bytes, 4)};
}

/// The processor's name fills three leaves, after the one with the number of the last leaf.
void AddNameLeaves(const std::string& name, std::map<std::uint32_t, CpuIdLeaf>& leaves) {
    constexpr std::uint32_t LastLeaf = 0x80000000;
    constexpr std::uint32_t NameLeaves[] = {0x80000002, 0x80000003, 0x80000004};
    constexpr std::size_t LeafSize = 16;
    std::string text = name;
    text.resize(std::size(NameLeaves) * LeafSize, '\0');
    const auto bytes = std::as_bytes(std::span(text));
    leaves.try_emplace(LastLeaf, CpuIdLeaf{NameLeaves[2], 0, 0, 0});
    for (std::size_t i = 0; i < std::size(NameLeaves); ++i) {
        const auto leaf = bytes.subspan(i * LeafSize);
        leaves.try_emplace(NameLeaves[i],
                           CpuIdLeaf{WordAt(leaf, 0), WordAt(leaf, 4), WordAt(leaf, 8), WordAt(leaf, 12)});
    }
}

} // namespace

IoDriver::IoDriver(const DriverProfile& driver, ProcessorProfile processor, EmbeddedController& controller)
    : m_driver(driver), m_processor(std::move(processor)), m_controller(controller) {
    m_processor.leaves.try_emplace(0, VendorLeaf(m_processor.vendor));
    if (!m_processor.name.empty()) {
        AddNameLeaves(m_processor.name, m_processor.leaves);
    }
}

void IoDriver::Measure(const MachineCourse& course) {
    m_processor.packagePower = course.PackagePower().value_or(m_processor.packagePower);
}

platform::SystemError IoDriver::Open(std::uint32_t, std::uint32_t shareMode) {
    if (!m_driver.present) {
        return platform::error::FileNotFound;
    }
    const bool alone = shareMode == 0;
    const bool othersOpen = m_openings != 0 || m_driver.heldBy != DriverHolder::None;
    const bool heldAlone = m_heldAlone || m_driver.heldBy == DriverHolder::Alone;
    if (heldAlone || (alone && othersOpen)) {
        return OpenedAlready;
    }
    ++m_openings;
    m_heldAlone = alone;
    return platform::error::Success;
}

void IoDriver::Close() {
    --m_openings;
    m_heldAlone = false;
}

ControlAnswer IoDriver::Control(std::uint32_t code, std::span<const std::byte> in, std::size_t) {
    switch (code) {
    case RequestVersion:
        return Words({m_driver.version});
    case RequestReferences:
        return Words({m_driver.refCount});
    case RequestCpuId:
        return CpuId(in);
    case RequestEc:
        return EcExchange(in);
    case RequestPowerLimit1:
    case RequestPowerLimit2:
        return PowerLimits(in);
    case RequestPackagePower:
        return Words({m_processor.packagePower, 0});
    default:
        return {1}; // ERROR_INVALID_FUNCTION
    }
}

ControlAnswer IoDriver::CpuId(std::span<const std::byte> in) const {
    if (in.size() != 21 || in[20] != std::byte{0x15}) {
        return {platform::error::InvalidParameter};
    }
    const auto found = m_processor.leaves.find(WordAt(in, 0));
    const CpuIdLeaf leaf = found == m_processor.leaves.end() ? CpuIdLeaf{} : found->second;
    return Words({leaf.eax, leaf.ebx, leaf.ecx, leaf.edx});
}

ControlAnswer IoDriver::PowerLimits(std::span<const std::byte> in) const {
    if (in.size() != 12) {
        return {platform::error::InvalidParameter};
    }
    return Words({WordAt(in, 0), m_processor.powerLimit1, m_processor.powerLimit2});
}

ControlAnswer IoDriver::EcExchange(std::span<const std::byte> in) {
    constexpr std::size_t CountAt = 1;
    constexpr std::size_t DataAt = 2;
    constexpr std::size_t ReadFlagAt = 10;
    constexpr std::size_t ResultAt = 11;
    if (in.size() != 16) {
        return {platform::error::InvalidParameter};
    }
    const auto count = std::to_integer<std::size_t>(in[CountAt]);
    if (count > ReadFlagAt - DataAt) {
        return {platform::error::InvalidParameter};
    }
    std::array<std::uint8_t, ReadFlagAt - DataAt> data{};
    std::memcpy(data.data(), in.data() + DataAt, count);
    const EcAnswer answer =
        m_controller.CarryOut(std::to_integer<std::uint8_t>(in[0]), std::span(data).first(count));
    ControlAnswer reply;
    reply.bytes.assign(in.begin(), in.begin() + StatusAt);
    reply.bytes[ResultAt] = in[ReadFlagAt] != std::byte{0} ? std::byte{answer.byte} : std::byte{0};
    AppendWord(reply.bytes, answer.status);
    return reply;
}

} // namespace machine
