// The firmware's features, which implement the methods of its WMI class. Settings are persistent.
#pragma once

#include "machine/models/storage/firmware_variable_store.h"
#include "machine/models/wmi/wmi_repository.h"
#include "machine/profile/sections/firmware_profile.h"

#include <utility>

namespace machine {

class FirmwareFeatures final : public WmiMethods {
public:
    FirmwareFeatures(FirmwareFeaturesProfile profile, FirmwareVariableStore& store)
        : m_profile(std::move(profile)), m_store(store) {}

    [[nodiscard]] std::optional<std::vector<std::u16string>>
    Inputs(std::u16string_view method) const override;

    WmiMethodAnswer Execute(std::u16string_view instance, std::u16string_view method,
                            const WmiArguments& in) override;

    /// A feature's persistent setting.
    std::uint32_t SettingOf(const FeatureProfile& feature);

    [[nodiscard]] const FirmwareFeaturesProfile& Profile() const { return m_profile; }

private:
    [[nodiscard]] const FeatureProfile* Find(const WmiArguments& in) const;
    WmiMethodAnswer Status(const FeatureProfile* feature);
    WmiMethodAnswer Control(const FeatureProfile* feature, const WmiArguments& in);

    FirmwareFeaturesProfile m_profile;
    FirmwareVariableStore& m_store;
};

} // namespace machine
