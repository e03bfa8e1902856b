// The firmware's features, which implement the methods of its WMI class. Settings are persistent.
#pragma once

#include "machine/models/storage/firmware_variable_store.h"
#include "machine/models/wmi/wmi_repository.h"
#include "machine/profile/sections/firmware_profile.h"

#include <cstdint>
#include <utility>

namespace machine {

class FirmwareFeatures {
public:
    FirmwareFeatures(FirmwareFeaturesProfile profile, FirmwareVariableStore& store)
        : m_profile(std::move(profile)), m_store(store) {}

    /// The methods of the firmware's class. They refer to this object.
    WmiMethods Methods();

    /// A feature's persistent setting.
    std::uint32_t SettingOf(const FeatureProfile& feature);

private:
    [[nodiscard]] const FeatureProfile* Find(const WmiRow& in) const;
    std::uint32_t Status(const WmiRow& in);
    std::uint32_t Control(const WmiRow& in);

    FirmwareFeaturesProfile m_profile;
    FirmwareVariableStore& m_store;
};

} // namespace machine
