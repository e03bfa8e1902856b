#include "machine/profile/sections/software_profile.h"

#include "machine/profile/profile_reader.h"
#include "machine/profile/sections/disk_profile.h"
#include "unicode/utf.h"

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

constexpr const char16_t* StoreKey =
    u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Appx\\AppxAllUserStore\\Applications\\";

void ReadApplication(ProfileReader& reader, const char16_t* list, RegistryProfile& registry) {
    std::u16string key;
    std::u16string text;
    std::uint32_t number = 0;
    reader.String("key", key, Presence::Required);
    key.insert(0, list);
    registry.keys.push_back(key);
    if (reader.String("name", text)) {
        registry.AddString(key, u"DisplayName", text);
    }
    if (reader.String("version", text)) {
        registry.AddString(key, u"DisplayVersion", text);
    }
    if (reader.Number("system_component", number)) {
        registry.AddNumber(key, u"SystemComponent", number);
    }
}

std::u16string UsualManifest(const std::u16string& displayName) {
    return uR"(<?xml version="1.0" encoding="utf-8"?>
<Package xmlns="http://schemas.microsoft.com/appx/manifest/foundation/windows10">
  <Properties>
    <DisplayName>)" +
           displayName + uR"(</DisplayName>
    <Logo>Assets\StoreLogo.png</Logo>
  </Properties>
</Package>
)";
}

void ReadPackage(ProfileReader& reader, PackageProfile& package, RegistryProfile& registry) {
    reader.String("full_name", package.fullName, Presence::Required);
    package.folder = u"C:\\Program Files\\WindowsApps\\" + package.fullName;
    bool inStore = true;
    reader.Members("folder", package.folder, "installed", package.installed, "in_store", inStore, "manifest",
                   package.manifest);
    if (std::u16string name; reader.String("display_name", name)) {
        if (package.manifest) {
            reader.Fail("manifest", "either this or \"display_name\"");
        }
        package.manifest = UsualManifest(name);
    }
    reader.Object("resources", [&](ProfileReader& resources) {
        for (const std::string& reference : resources.Names()) {
            resources.String(reference, package.resources[unicode::WideFromUtf8(reference)]);
        }
    });
    if (inStore) {
        registry.keys.push_back(StoreKey + package.fullName);
    }
}

} // namespace

void ReadApplications(ProfileReader& reader, RegistryProfile& registry) {
    for (const auto& [name, key] : UninstallLists) {
        reader.Objects(name, [&, list = key](ProfileReader& row) { ReadApplication(row, list, registry); });
    }
}

void ReadPackages(ProfileReader& reader, PackagesProfile& packages, RegistryProfile& registry) {
    reader.Flag("supported", packages.supported);
    reader.Objects("all",
                   [&](ProfileReader& row) { ReadPackage(row, packages.all.emplace_back(), registry); });
}

} // namespace machine
