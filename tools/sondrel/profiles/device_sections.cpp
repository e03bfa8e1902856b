#include "profiles/sections.h"

#include <algorithm>

namespace tool {
namespace {

using observer::Bytes;
using observer::Operation;
using observer::RecordedCall;
using observer::RecordedExport;

namespace request {
constexpr std::uint32_t DriverVersion = 0x80102040;
constexpr std::uint32_t DriverUsers = 0x80102044;
constexpr std::uint32_t ReadCpuId = 0x80102068;
constexpr std::uint32_t ReadPowerLimits = 0x80102074;
constexpr std::uint32_t ReadPackagePower = 0x8010207C;
constexpr std::uint32_t BatteryTag = 0x294040;
constexpr std::uint32_t BatteryInformation = 0x294044;
constexpr std::uint32_t BatteryStatus = 0x29404C;
constexpr std::uint32_t EvaluateMethod = 0x22240C;
} // namespace request

constexpr std::uint32_t NotFound = 2;
constexpr std::uint32_t InvalidHandle = 6; // of a session that could not be opened
constexpr std::uint32_t SharingViolation = 32;

constexpr std::u16string_view DriverPath = u"\\\\.\\VESKHWIO";
constexpr std::u16string_view AcpiPath = u"\\\\.\\ZRNACPI";

std::uint32_t CodeOf(const RecordedCall& call) {
    return static_cast<std::uint32_t>(NumberIn(call.inputs, "code"));
}

/// The value that the first call showed; another one later is left out.
void Set(ProfileJson& object, const char* member, const ProfileJson& value, const RecordedExport& recorded,
         LeftOut& leftOut) {
    if (!object.contains(member)) {
        object[member] = value;
    } else if (object[member] != value) {
        leftOut.Add(recorded.name, std::string(member) + " was another one before");
    }
}

/// Whether a device could not be opened whenever it was tried, for this reason.
bool IsRefused(const RecordedExports& exports, std::u16string_view path, std::uint32_t error) {
    bool tried = false;
    for (const RecordedExport& recorded : exports) {
        for (const RecordedCall& call : recorded.calls) {
            if (call.operation == Operation::CreateFileW && StringIn(call.inputs, "path") == path) {
                tried = true;
                if (!HasFailed(call) || FailureOf(call) != error) {
                    return false;
                }
            }
        }
    }
    return tried;
}

void AddDriverCall(const RecordedExport& recorded, const RecordedCall& call, ProfileJson& profile,
                   LeftOut& leftOut) {
    const Bytes in = BytesIn(call.inputs, "in");
    const Bytes out = BytesIn(call.outputs, "out");
    switch (CodeOf(call)) {
    case request::DriverVersion:
        Set(profile["driver"], "version", WordAt(out, 0), recorded, leftOut);
        break;
    case request::DriverUsers:
        Set(profile["driver"], "ref_count", WordAt(out, 0), recorded, leftOut);
        break;
    case request::ReadPackagePower:
        Set(profile["processor"], "package_power", WordAt(out, 0), recorded, leftOut);
        break;
    case request::ReadPowerLimits:
        Set(profile["processor"], "power_limit_1", WordAt(out, 4), recorded, leftOut);
        Set(profile["processor"], "power_limit_2", WordAt(out, 8), recorded, leftOut);
        break;
    case request::ReadCpuId: {
        const ProfileJson leaf{{"leaf", WordAt(in, 0)},
                               {"eax", WordAt(out, 0)},
                               {"ebx", WordAt(out, 4)},
                               {"ecx", WordAt(out, 8)},
                               {"edx", WordAt(out, 12)}};
        ProfileJson& leaves = profile["processor"]["cpuid"];
        if (std::ranges::none_of(leaves,
                                 [&](const ProfileJson& known) { return known["leaf"] == leaf["leaf"]; })) {
            leaves.push_back(leaf);
        }
        break;
    }
    default:
        break;
    }
}

/// The devices of one reading; readings that come further show more of them.
ProfileJson BatteriesOf(const RecordedExport& recorded) {
    constexpr std::uint32_t IsSystemBattery = 0x80000000;
    std::map<std::uint32_t, std::size_t> places; // by the open device
    ProfileJson batteries = ProfileJson::array();
    for (const RecordedCall& call : recorded.calls) {
        const std::uint32_t device = HandleIn(call.inputs, "device");
        const Bytes out = BytesIn(call.outputs, "out");
        if (call.operation == Operation::CreateFileW &&
            StringIn(call.inputs, "path").starts_with(u"\\\\?\\")) {
            places.emplace(HandleOf(call.result), batteries.size());
            batteries.push_back({{"tag", 0}});
        } else if (call.operation == Operation::DeviceIoControl && places.contains(device)) {
            ProfileJson& battery = batteries[places[device]];
            switch (CodeOf(call)) {
            case request::BatteryTag:
                battery["tag"] = WordAt(out, 0);
                break;
            case request::BatteryInformation:
                battery["system_battery"] = (WordAt(out, 0) & IsSystemBattery) != 0;
                battery["designed_capacity"] = WordAt(out, 12);
                battery["full_charged_capacity"] = WordAt(out, 16);
                battery["cycle_count"] = WordAt(out, 32);
                break;
            case request::BatteryStatus:
                battery["capacity"] = WordAt(out, 4);
                battery["voltage"] = WordAt(out, 8);
                break;
            default:
                break;
            }
        }
    }
    return batteries;
}

/// What the event store answers, in the order of the requests.
class EventStore {
public:
    explicit EventStore(LeftOut& leftOut) : m_leftOut(leftOut) {}

    void Add(const RecordedExport& recorded, const RecordedCall& call) {
        constexpr std::uint32_t Sensor = 393320;
        constexpr std::uint32_t MostRegisters = 65536;
        constexpr std::size_t Prefix = 8; // the method's name and the size of its arguments
        const Bytes in = BytesIn(call.inputs, "in");
        const Bytes out = BytesIn(call.outputs, "out");
        m_use = m_recorded == &recorded ? m_use + 1 : 1;
        m_recorded = &recorded;
        const std::uint32_t what = WordAt(in, Prefix + 4);
        if (HasFailed(call)) {
            AddFault({{"use", m_use}, {"error", FailureOf(call)}});
        } else if (in.size() == Prefix + 4 && WordAt(in, Prefix) == Sensor) {
            Set(m_acpi, "p_sensor", WordAt(out, 0), recorded, m_leftOut);
        } else if (what == 229) {
            AddRecord(out);
        } else if (out.size() < 4) {
            AddFault({{"use", m_use}, {"reply_size", out.size()}});
        } else if (what == 224) {
            Set(m_acpi, "store_version", WordAt(out, 0), recorded, m_leftOut);
        } else if (what == 65507) {
            Set(m_acpi, "register_count", WordAt(out, 0), recorded, m_leftOut);
        } else if (what % 256 == 227 && what / 256 < MostRegisters) {
            const std::size_t index = what / 256;
            while (m_acpi["registers"].size() <= index) {
                m_acpi["registers"].push_back(0);
            }
            m_acpi["registers"][index] = WordAt(out, 0);
        }
    }

    /// "acpi"; nothing was asked: null.
    [[nodiscard]] ProfileJson Section() const {
        ProfileJson section = m_acpi;
        if (m_hasLog && !m_ended) {
            section["log_end"] = "never ends";
        }
        return section;
    }

private:
    void AddRecord(const Bytes& reply) {
        m_hasLog = true;
        const bool end = std::ranges::none_of(reply, [](std::byte each) { return each != std::byte{0}; });
        if (end && reply.size() <= 4) {
            m_ended = true;
        } else if (!m_ended) {
            m_acpi["log"].push_back({{"reply", HexOf(reply)}});
        }
    }

    /// Requests are counted from the machine's start: the first one may be that of any reading.
    void AddFault(ProfileJson fault) {
        if (m_use == 1) {
            m_leftOut.Add(m_recorded->name, "the event store refused its first request");
        } else if (std::ranges::find(m_acpi["faults"], fault) == m_acpi["faults"].end()) {
            m_acpi["faults"].push_back(std::move(fault));
        }
    }

    ProfileJson m_acpi;
    LeftOut& m_leftOut;
    const RecordedExport* m_recorded = nullptr;
    std::uint32_t m_use = 0; // of the reading
    bool m_hasLog = false;
    bool m_ended = false;
};

} // namespace

void AddDevices(const RecordedExports& exports, ProfileJson& profile, LeftOut& leftOut) {
    ProfileJson batteries = ProfileJson::array();
    EventStore store(leftOut);
    for (const RecordedExport& recorded : exports) {
        std::uint32_t acpi = 0; // the open device
        for (const RecordedCall& call : recorded.calls) {
            if (call.operation == Operation::CreateFileW && StringIn(call.inputs, "path") == AcpiPath) {
                acpi = HandleOf(call.result);
            }
            if (call.operation != Operation::DeviceIoControl) {
                continue;
            }
            const std::uint32_t code = CodeOf(call);
            const std::uint32_t failure = HasFailed(call) ? FailureOf(call) : 0;
            const bool emptyBay = code == request::BatteryTag && failure == NotFound;
            if (code == request::EvaluateMethod && HandleIn(call.inputs, "device") == acpi) {
                store.Add(recorded, call);
            } else if (failure == 0) {
                AddDriverCall(recorded, call, profile, leftOut);
            } else if (!emptyBay && failure != InvalidHandle) {
                leftOut.Add(recorded.name,
                            "a device refused a request with error " + std::to_string(FailureOf(call)));
            }
        }
        if (ProfileJson found = BatteriesOf(recorded); found.size() > batteries.size()) {
            batteries = std::move(found);
        }
    }
    profile["acpi"] = store.Section();
    profile["batteries"] = std::move(batteries);
    if (IsRefused(exports, DriverPath, NotFound)) {
        profile["driver"]["present"] = false;
    } else if (IsRefused(exports, DriverPath, SharingViolation)) {
        profile["driver"]["held_by_other"] = "alone";
    }
    if (IsRefused(exports, AcpiPath, NotFound)) {
        profile["acpi"] = {{"present", false}};
    }
}

} // namespace tool
