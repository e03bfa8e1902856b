// The software that is installed on a profile's machine: uninstall keys and packages.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace machine {

class ProfileReader;
struct RegistryProfile;

struct PackageProfile {
    std::u16string fullName;
    bool installed = true;                              // the store may list what is not installed
    std::u16string folder;                              // empty: the platform does not report it
    std::optional<std::u16string> manifest;             // none: no such file
    std::map<std::u16string, std::u16string> resources; // string by reference: ms-resource://...
};

struct PackagesProfile {
    bool supported = true; // by this Windows
    std::vector<PackageProfile> all;
};

/// Adds {"machine": [...], "machine_32": [...], "user": [...], "user_32": [...]} to a registry. Each application
/// has a "key" and may have a "name", a "version" and a "system_component".
void ReadApplications(ProfileReader& reader, RegistryProfile& registry);

/// Reads {"supported": true, "all": [...]}; the entries of the store go to the registry. A package has a
/// "full_name" and may have "installed", "in_store", "folder", "manifest" (the file's text) or "display_name"
/// (for the usual manifest) and "resources".
void ReadPackages(ProfileReader& reader, PackagesProfile& packages, RegistryProfile& registry);

} // namespace machine
