// Packages of a profile, in the field's terms.
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
    bool installed = true;                              // what is not installed may still stand in the store
    std::u16string folder;                              // empty: the platform does not tell
    std::optional<std::u16string> manifest;             // none: no such file
    bool exhaustsMemory = false;                        // the manifest's text does not fit the process
    std::map<std::u16string, std::u16string> resources; // text by reference: ms-resource://...
};

struct PackagesProfile {
    bool supported = true; // by this Windows
    std::vector<PackageProfile> all;
};

/// Reads {"supported": true, "all": [...]}; the entries of the store go to the registry. A package has a
/// "full_name" and may have "installed", "in_store", "folder", "manifest" (the file's text) or "display_name"
/// (what a usual manifest says), "manifest_exhausts_memory" and "resources".
PackagesProfile ReadPackages(ProfileReader reader, RegistryProfile& registry);

} // namespace machine
