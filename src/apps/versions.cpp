#include "apps/versions.h"

#include "apps/package_family.h"
#include "apps/registry_strings.h"
#include "frame/diagnostics.h"
#include "frame/host_buffer.h"
#include "frame/memory_guard.h"
#include "frame/text.h"
#include "platform/device_nodes.h"
#include "vesk_sondrel.h"

#include <array>
#include <span>
#include <utility>

namespace sondrel {
namespace {

constexpr std::u16string_view DriverDevice = u"Vesk Kelvane";
// The installer writes to this fixed control set.
constexpr const char16_t* ClassKey = u"SYSTEM\\ControlSet001\\Control\\Class\\";
constexpr const char16_t* AssistantFamily = u"F3A1C07E.VESKBrisenda_r4wkp8tz2yhnc";

/// The ids of all present devices, each with its terminator, and an empty one at the end.
std::u16string DeviceIdList() {
    std::uint32_t length = 0;
    platform::CM_Get_Device_ID_List_SizeW(length, platform::FilterPresent);
    std::u16string list(length, u'\0');
    if (length != 0) {
        platform::CM_Get_Device_ID_ListW(list.data(), length, platform::FilterPresent);
    }
    return list;
}

std::optional<std::u16string> DeviceText(platform::DeviceNode node, std::uint32_t property) {
    constexpr std::size_t PropertyBytes = 8192;
    // One character more than the size that is passed: the terminator of a string that fills the buffer.
    std::array<char16_t, PropertyBytes / sizeof(char16_t) + 1> text{};
    std::uint32_t size = PropertyBytes;
    if (platform::CM_Get_DevNode_Registry_PropertyW(node, property,
                                                    std::as_writable_bytes(std::span(text)).data(),
                                                    size) != platform::config_return::Success) {
        return std::nullopt;
    }
    return text.data();
}

/// Empty if the key cannot be opened or has no version. The driver key is not cut; an empty one, without such a
/// device, selects the key above all drivers.
std::u16string DriverVersionAt(const std::u16string& driverKey) {
    constexpr std::uint32_t VersionSize = 1024 / sizeof(char16_t);
    const platform::OwnedKey key =
        OpenForReading(platform::Key::LocalMachine, (ClassKey + driverKey).c_str());
    // Whether the key opened is seen by the query: without a key it fails.
    return ValueString(key.Get(), u"DriverVersion", VersionSize).value_or(u"");
}

/// The full name of the assistant package; nothing when it is not installed.
std::optional<std::u16string> AssistantPackage() {
    const FamilyPackages needed = QueryFamily(AssistantFamily, 0, 0);
    if (needed.status != platform::error::InsufficientBuffer) {
        return std::nullopt;
    }
    FamilyPackages packages = QueryFamily(AssistantFamily, needed.count, needed.length);
    return packages.status == platform::error::Success ? std::move(packages.first) : std::nullopt;
}

} // namespace

std::u16string GetDeviceDriverKey() {
    const std::u16string list = DeviceIdList();
    std::u16string driverKey;
    const char16_t* const end = list.c_str() + list.size();
    for (const char16_t* id = list.c_str(); id < end && *id != u'\0';
         id += std::u16string_view(id).size() + 1) {
        platform::DeviceNode node{};
        if (platform::CM_Locate_DevNodeW(node, id, platform::LocatePhantom) !=
                platform::config_return::Success ||
            DeviceText(node, platform::DeviceDescription) != DriverDevice) {
            continue;
        }
        if (auto driver = DeviceText(node, platform::DeviceDriverKey)) {
            driverKey = std::move(*driver);
        }
    }
    return driverKey;
}

std::optional<std::u16string_view> VersionOfFullName(std::u16string_view fullName) {
    const std::size_t nameEnd = fullName.find(u'_');
    if (nameEnd == std::u16string_view::npos || nameEnd + 1 == fullName.size()) {
        return std::nullopt;
    }
    fullName.remove_prefix(nameEnd + 1);
    return fullName.substr(0, fullName.find(u'_'));
}

} // namespace sondrel

using namespace sondrel;

void GetInfVersion(VeskChar16* out) {
    AnswerWith(out, [] {
        std::u16string version = DriverVersionAt(GetDeviceDriverKey());
        TraceLine([&] { return "strValueOfDriverVersion = " + WideToUtf8(version); });
        return version;
    });
}

void GetUWPVersion(VeskChar16* out) {
    const auto fullName = OnOutOfMemory(std::optional<std::u16string>(), AssistantPackage);
    if (!fullName) {
        return;
    }
    if (const auto version = VersionOfFullName(*fullName)) {
        CopyToHost(*version, out);
    }
}
