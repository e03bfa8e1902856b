#include "machine/profile/applications_profile.h"

#include "machine/profile/profile.h"
#include "machine/profile/profile_reader.h"
#include "machine/text/wide_text.h"
#include "platform/registry.h"

namespace machine {
namespace {

struct UninstallList {
    const char* name;
    const char16_t* key;
};

constexpr UninstallList UninstallLists[] = {
    {"machine", u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"},
    {"machine_32", u"HKLM\\SOFTWARE\\WOW6432Node\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"},
    {"user", u"HKCU\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"},
    {"user_32", u"HKCU\\SOFTWARE\\WOW6432Node\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"},
};

void ReadApplication(ProfileReader& application, const char16_t* list, RegistryProfile& registry) {
    const std::u16string key = list + WideFromUtf8(application.Text("key"));
    registry.keys.push_back(key);
    const auto addText = [&](const char* name, const char16_t* valueName) {
        if (application.Has(name)) {
            registry.values.push_back({key, valueName, platform::value_type::String,
                                       TextData(WideFromUtf8(application.Text(name)))});
        }
    };
    addText("name", u"DisplayName");
    addText("version", u"DisplayVersion");
    if (application.Has("system_component")) {
        const auto number = application.Number<std::uint32_t>("system_component", 0);
        const auto bytes = std::as_bytes(std::span(&number, 1));
        registry.values.push_back(
            {key, u"SystemComponent", platform::value_type::Dword, {bytes.begin(), bytes.end()}});
    }
    application.Finish();
}

} // namespace

void ReadApplications(ProfileReader reader, RegistryProfile& registry) {
    for (const auto& [name, key] : UninstallLists) {
        for (ProfileReader& application : reader.Objects(name)) {
            ReadApplication(application, key, registry);
        }
    }
    reader.Finish();
}

} // namespace machine
