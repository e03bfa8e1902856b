#include "machine/profile/device_nodes_profile.h"

#include "machine/profile/profile.h"
#include "machine/profile/profile_reader.h"
#include "machine/text/wide_text.h"
#include "platform/registry.h"

namespace machine {
namespace {

std::optional<std::u16string> OptionalText(ProfileReader& reader, std::string_view name) {
    return reader.Has(name) ? std::optional(WideFromUtf8(reader.Text(name))) : std::nullopt;
}

} // namespace

std::vector<DeviceNodeProfile> ReadDeviceNodes(std::vector<ProfileReader> readers,
                                               RegistryProfile& registry) {
    std::vector<DeviceNodeProfile> devices;
    for (ProfileReader& reader : readers) {
        DeviceNodeProfile device;
        device.id = WideFromUtf8(reader.Text("id"));
        device.present = reader.Flag("present", true);
        device.description = OptionalText(reader, "description");
        device.driverKey = OptionalText(reader, "driver_key");
        if (const auto version = OptionalText(reader, "driver_version")) {
            registry.values.push_back(
                {u"HKLM\\SYSTEM\\ControlSet001\\Control\\Class\\" + device.driverKey.value_or(u""),
                 u"DriverVersion", platform::value_type::String, TextData(*version)});
        }
        reader.Finish();
        devices.push_back(std::move(device));
    }
    return devices;
}

} // namespace machine
