#include "machine/profile/packages_profile.h"

#include "machine/profile/profile.h"
#include "machine/profile/profile_reader.h"
#include "machine/text/wide_text.h"

namespace machine {
namespace {

constexpr const char16_t* StoreKey =
    u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Appx\\AppxAllUserStore\\Applications";

std::string UsualManifest(const std::string& displayName) {
    return R"(<?xml version="1.0" encoding="utf-8"?>
<Package xmlns="http://schemas.microsoft.com/appx/manifest/foundation/windows10">
  <Properties>
    <DisplayName>)" +
           displayName + R"(</DisplayName>
    <Logo>Assets\StoreLogo.png</Logo>
  </Properties>
</Package>
)";
}

std::optional<std::u16string> ReadManifest(ProfileReader& reader) {
    if (reader.Has("manifest") && reader.Has("display_name")) {
        reader.Fail("manifest", "either this or \"display_name\"");
    }
    if (reader.Has("manifest")) {
        return WideFromUtf8(reader.Text("manifest"));
    }
    if (reader.Has("display_name")) {
        return WideFromUtf8(UsualManifest(reader.Text("display_name")));
    }
    return std::nullopt;
}

PackageProfile ReadPackage(ProfileReader& reader, RegistryProfile& registry) {
    PackageProfile package;
    const std::string fullName = reader.Text("full_name");
    package.fullName = WideFromUtf8(fullName);
    package.installed = reader.Flag("installed", true);
    package.folder = WideFromUtf8(reader.Text("folder", "C:\\Program Files\\WindowsApps\\" + fullName));
    package.manifest = ReadManifest(reader);
    package.exhaustsMemory = reader.Flag("manifest_exhausts_memory", false);
    ProfileReader resources = reader.Object("resources");
    for (const std::string& reference : resources.Names()) {
        package.resources[WideFromUtf8(reference)] = WideFromUtf8(resources.Text(reference));
    }
    if (reader.Flag("in_store", true)) {
        registry.keys.push_back(StoreKey + (u'\\' + package.fullName));
    }
    reader.Finish();
    return package;
}

} // namespace

PackagesProfile ReadPackages(ProfileReader reader, RegistryProfile& registry) {
    PackagesProfile packages;
    packages.supported = reader.Flag("supported", true);
    for (ProfileReader& package : reader.Objects("all")) {
        packages.all.push_back(ReadPackage(package, registry));
    }
    reader.Finish();
    return packages;
}

} // namespace machine
