#include "machine/profile/firmware_features_profile.h"

#include "machine/profile/profile_reader.h"

namespace machine {
namespace {

void ReadFeature(ProfileReader reader, FeatureProfile& feature) {
    feature.supported = reader.Flag("supported", false);
    feature.setting = reader.Number<std::uint32_t>("setting", feature.setting);
    feature.result = reader.Number<std::uint32_t>("result", feature.result);
    reader.Finish();
}

} // namespace

FirmwareFeaturesProfile ReadFirmwareFeatures(ProfileReader reader) {
    FirmwareFeaturesProfile profile;
    ReadFeature(reader.Object("battery_health"), profile.batteryHealth);
    ReadFeature(reader.Object("quiet_fan"), profile.quietFan);
    reader.Finish();
    return profile;
}

} // namespace machine
