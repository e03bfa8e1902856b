#include "machine/models/storage/package_store.h"

#include "machine/text/folding.h"

namespace machine {
namespace {

/// Name and publisher id are the outer two of the fields of a full name.
std::u16string FamilyOf(const std::u16string& fullName) {
    const std::size_t nameEnd = fullName.find(u'_');
    return nameEnd == std::u16string::npos
               ? fullName
               : fullName.substr(0, nameEnd) + u'_' + fullName.substr(fullName.rfind(u'_') + 1);
}

template <class Value>
const Value& Found(const std::map<std::u16string, Value>& map, const std::u16string& name) {
    static const Value None{};
    const auto found = map.find(Folded(name));
    return found == map.end() ? None : found->second;
}

} // namespace

PackageStore::PackageStore(const PackagesProfile& profile) {
    for (const PackageProfile& package : profile.all) {
        if (!package.installed) {
            continue;
        }
        m_families[Folded(FamilyOf(package.fullName))].push_back(&package);
        m_packages[Folded(package.fullName)] = &package;
        if (package.manifest && !package.folder.empty()) {
            m_manifests[Folded(package.folder + u"\\AppxManifest.xml")] = &package;
        }
    }
}

const std::vector<const PackageProfile*>& PackageStore::Family(const std::u16string& name) const {
    return Found(m_families, name);
}

const PackageProfile* PackageStore::Package(const std::u16string& fullName) const {
    return Found(m_packages, fullName);
}

const PackageProfile* PackageStore::ManifestAt(const std::u16string& path) const {
    return Found(m_manifests, path);
}

} // namespace machine
