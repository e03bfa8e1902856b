#include "machine/models/firmware_features.h"

#include "machine/text/folding.h"

#include <cstring>

namespace machine {
namespace {

/// Of the variables that the firmware has for itself.
constexpr const char16_t* PrivateGuid = u"{00000000-0000-0000-0000-000000000000}";

constexpr std::uint32_t BatteryHealthId = 0x00120057;
constexpr std::uint32_t QuietFanId = 0x00110019;

constexpr std::uint32_t Present = 0x10000;
constexpr std::uint32_t Absent = 0xFFFFFFFE;

/// The firmware's class takes unsigned numbers; a missing one is 0.
std::uint32_t ArgumentOf(const WmiRow& in, const std::u16string& name) {
    const auto found = in.find(Folded(name));
    const auto* number = found == in.end() ? nullptr : std::get_if<std::int64_t>(&found->second.value);
    return number == nullptr ? 0 : static_cast<std::uint32_t>(*number);
}

WmiDatum Number(std::uint32_t number) {
    return {std::int64_t{number}};
}

} // namespace

WmiMethods FirmwareFeatures::Methods() {
    const auto status = [this](const WmiRow& in, WmiRow& out) {
        out[u"device_status"] = Number(Status(in));
        return platform::HResult{0};
    };
    const auto control = [this](const WmiRow& in, WmiRow& out) {
        out[u"result"] = Number(Control(in));
        return platform::HResult{0};
    };
    return {{u"DSTS", {{u"Device_ID"}, status}}, {u"DEVS", {{u"Device_ID", u"Control_status"}, control}}};
}

/// The feature that is asked for, if this firmware supports it.
const FeatureProfile* FirmwareFeatures::Find(const WmiRow& in) const {
    const std::uint32_t id = ArgumentOf(in, u"Device_ID");
    const FeatureProfile* feature = id == BatteryHealthId ? &m_profile.batteryHealth
                                    : id == QuietFanId    ? &m_profile.quietFan
                                                          : nullptr;
    return feature != nullptr && feature->supported ? feature : nullptr;
}

std::uint32_t FirmwareFeatures::Status(const WmiRow& in) {
    const FeatureProfile* const feature = Find(in);
    if (feature == nullptr) {
        return Absent;
    }
    const bool on = feature->reportsSetting && SettingOf(*feature) != 0;
    return on ? Present + 1 : Present;
}

std::uint32_t FirmwareFeatures::Control(const WmiRow& in) {
    const FeatureProfile* const feature = Find(in);
    if (feature == nullptr) {
        return 0;
    }
    if (feature->result == 1) {
        const std::uint32_t setting = ArgumentOf(in, u"Control_status");
        m_store.Set(PrivateGuid, feature->name, std::as_bytes(std::span(&setting, 1)));
    }
    return feature->result;
}

std::uint32_t FirmwareFeatures::SettingOf(const FeatureProfile& feature) {
    std::uint32_t setting = feature.setting;
    if (const auto stored = m_store.Get(PrivateGuid, feature.name);
        stored && stored->size() == sizeof setting) {
        std::memcpy(&setting, stored->data(), sizeof setting);
    }
    return setting;
}

} // namespace machine
