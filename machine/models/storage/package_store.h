// The installed packages of the simulated machine, with their manifests on its disk and their resources.
#pragma once

#include "machine/profile/sections/software_profile.h"

#include <map>
#include <string>
#include <vector>

namespace machine {

class PackageStore {
public:
    explicit PackageStore(const PackagesProfile& profile);

    /// In the order in which they were installed.
    [[nodiscard]] const std::vector<const PackageProfile*>& Family(const std::u16string& name) const;

    /// Null for a package that is not installed.
    [[nodiscard]] const PackageProfile* Package(const std::u16string& fullName) const;

    /// The package whose manifest lies at a path; null when there is no such file.
    [[nodiscard]] const PackageProfile* ManifestAt(const std::u16string& path) const;

private:
    std::map<std::u16string, std::vector<const PackageProfile*>> m_families; // by folded name
    std::map<std::u16string, const PackageProfile*> m_packages;              // by folded full name
    std::map<std::u16string, const PackageProfile*> m_manifests;             // by folded path
};

} // namespace machine
