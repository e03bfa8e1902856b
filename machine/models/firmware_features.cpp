#include "machine/models/firmware_features.h"

#include "machine/text/folding.h"

#include <array>
#include <cstring>

namespace machine {
namespace {

/// Of the variables that the firmware has for itself.
constexpr const char16_t* PrivateGuid = u"{00000000-0000-0000-0000-000000000000}";

constexpr std::uint32_t BatteryHealthId = 0x00120057;
constexpr std::uint32_t QuietFanId = 0x00110019;

constexpr std::uint32_t Present = 0x10000;
constexpr std::uint32_t Absent = 0xFFFFFFFE;

WmiMethodAnswer Output(std::u16string name, std::uint32_t number) {
    WmiMethodAnswer answer;
    answer.out = WmiRow{{std::move(name), WmiDatum{std::int64_t{number}}}};
    return answer;
}

/// The firmware's class takes unsigned numbers; a missing one is 0.
std::uint32_t ArgumentOf(const WmiArguments& in, const std::u16string& name) {
    const auto found = in.find(name);
    return found == in.end() ? 0 : found->second;
}

} // namespace

std::optional<std::vector<std::u16string>> FirmwareFeatures::Inputs(std::u16string_view method) const {
    const std::u16string folded = Folded(method);
    if (folded == u"DSTS") {
        return std::vector<std::u16string>{u"Device_ID"};
    }
    if (folded == u"DEVS") {
        return std::vector<std::u16string>{u"Device_ID", u"Control_status"};
    }
    return std::nullopt;
}

WmiMethodAnswer FirmwareFeatures::Execute(std::u16string_view, std::u16string_view method,
                                          const WmiArguments& in) {
    const FeatureProfile* feature = Find(in);
    return Folded(method) == u"DSTS" ? Status(feature) : Control(feature, in);
}

const FeatureProfile* FirmwareFeatures::Find(const WmiArguments& in) const {
    switch (ArgumentOf(in, u"Device_ID")) {
    case BatteryHealthId:
        return &m_profile.batteryHealth;
    case QuietFanId:
        return &m_profile.quietFan;
    default:
        return nullptr;
    }
}

WmiMethodAnswer FirmwareFeatures::Status(const FeatureProfile* feature) {
    if (feature == nullptr || !feature->supported) {
        return Output(u"device_status", Absent);
    }
    const bool on = feature->reportsSetting && SettingOf(*feature) != 0;
    return Output(u"device_status", on ? Present + 1 : Present);
}

WmiMethodAnswer FirmwareFeatures::Control(const FeatureProfile* feature, const WmiArguments& in) {
    if (feature == nullptr || !feature->supported) {
        return Output(u"result", 0);
    }
    if (feature->result == 1) {
        const std::uint32_t setting = ArgumentOf(in, u"Control_status");
        m_store.Set(PrivateGuid, feature->name, std::as_bytes(std::span(&setting, 1)));
    }
    return Output(u"result", feature->result);
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
