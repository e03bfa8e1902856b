#include "profiles/sections.h"

#include <algorithm>

namespace tool {
namespace {

using observer::Operation;
using observer::RecordedCall;
using observer::RecordedExport;

constexpr std::u16string_view UsualFolder = u"C:\\Program Files\\WindowsApps\\";
constexpr std::u16string_view ManifestName = u"\\AppxManifest.xml";
constexpr std::uint32_t NoSuchRoutine = 127;

struct Package {
    bool stored = false;
    bool installed = false;
    std::u16string folder;
    std::optional<std::u16string> manifest;
    std::map<std::u16string, std::u16string> resources;
};

class Packages {
public:
    explicit Packages(const std::vector<std::u16string>& stored) {
        for (const std::u16string& name : stored) {
            PackageOf(name).stored = true;
        }
    }

    void Add(const RecordedExport& recorded) {
        std::map<std::uint32_t, std::u16string> documents; // what each was loaded from
        for (const RecordedCall& call : recorded.calls) {
            AddCall(call, documents);
        }
    }

    void WriteTo(ProfileJson& profile, LeftOut& leftOut) const {
        ProfileJson& section = profile["packages"];
        if (m_missing) {
            section["supported"] = false;
        }
        for (const std::u16string& name : m_order) {
            const Package& package = m_packages.at(name);
            const std::optional<std::string> fullName = Utf8Of(name);
            if (!fullName) {
                leftOut.Add("packages", "a name that is no Unicode");
                continue;
            }
            ProfileJson made{{"full_name", *fullName}};
            if (!package.stored) {
                made["in_store"] = false;
            }
            if (m_asked && !package.installed) {
                made["installed"] = false;
            }
            if (!package.folder.empty() && package.folder != std::u16string(UsualFolder) + name) {
                made["folder"] = Utf8Of(package.folder).value_or("");
            }
            if (package.manifest) {
                made["manifest"] = Utf8Of(*package.manifest).value_or("");
            }
            for (const auto& [reference, text] : package.resources) {
                made["resources"][Utf8Of(reference).value_or("")] = Utf8Of(text).value_or("");
            }
            section["all"].push_back(std::move(made));
        }
    }

private:
    void AddCall(const RecordedCall& call, std::map<std::uint32_t, std::u16string>& documents) {
        if (HasFailed(call)) {
            m_missing = m_missing || (call.operation == Operation::GetPackagesByPackageFamily &&
                                      FailureOf(call) == NoSuchRoutine);
            return;
        }
        switch (call.operation) {
        case Operation::GetPackagesByPackageFamily:
            m_asked = true;
            for (const observer::Value& name : ListIn(call.outputs, "names")) {
                if (const auto* const text = std::get_if<std::u16string>(&name.held); text != nullptr) {
                    PackageOf(*text).installed = true;
                }
            }
            break;
        case Operation::GetPackagePathByFullName:
            PackageOf(StringIn(call.inputs, "name")).folder = StringIn(call.outputs, "path");
            break;
        case Operation::load:
            documents[HandleIn(call.inputs, "document")] = StringIn(call.inputs, "path");
            break;
        case Operation::get_xml:
            AddManifest(documents[HandleIn(call.inputs, "document")], StringIn(call.outputs, "xml"));
            break;
        case Operation::SHLoadIndirectString:
            AddResource(StringIn(call.inputs, "source"), StringIn(call.outputs, "text"));
            break;
        default:
            break;
        }
    }

    void AddManifest(const std::u16string& file, std::u16string xml) {
        const auto found = std::ranges::find_if(m_packages, [&](const auto& each) {
            return !each.second.folder.empty() && file == each.second.folder + std::u16string(ManifestName);
        });
        if (found != m_packages.end()) {
            found->second.manifest = std::move(xml);
        }
    }

    /// "@{FULLNAME? ms-resource://...}"
    void AddResource(std::u16string_view source, std::u16string text) {
        const std::size_t mark = source.find(u'?');
        if (!source.starts_with(u"@{") || !source.ends_with(u'}') || mark == std::u16string_view::npos) {
            return;
        }
        const std::u16string_view reference = source.substr(mark + 2, source.size() - mark - 3);
        PackageOf(std::u16string(source.substr(2, mark - 2))).resources[std::u16string(reference)] =
            std::move(text);
    }

    Package& PackageOf(const std::u16string& name) {
        const auto [place, isNew] = m_packages.try_emplace(name);
        if (isNew) {
            m_order.push_back(name);
        }
        return place->second;
    }

    std::map<std::u16string, Package> m_packages;
    std::vector<std::u16string> m_order;
    bool m_missing = false; // Windows without packages
    bool m_asked = false;
};

/// The string of a device's property, which has a terminator.
std::optional<std::string> PropertyString(const observer::Bytes& bytes) {
    std::u16string text;
    for (std::size_t place = 0; place + 1 < bytes.size(); place += 2) {
        text += static_cast<char16_t>(WordAt(bytes, place) & 0xFFFF);
    }
    return Utf8Of(text.substr(0, text.find(u'\0')));
}

void AddDeviceNodes(const RecordedExport& recorded, ProfileJson& profile) {
    constexpr std::int64_t Description = 1;
    constexpr std::int64_t DriverKey = 10;
    ProfileJson devices = ProfileJson::array();
    std::map<std::uint32_t, std::size_t> places;
    const auto placeOf = [&](const std::string& id) {
        const auto found =
            std::ranges::find_if(devices, [&](const ProfileJson& each) { return each["id"] == id; });
        return static_cast<std::size_t>(found - devices.begin());
    };
    for (const RecordedCall& call : recorded.calls) {
        if (HasFailed(call)) {
            continue;
        }
        if (call.operation == Operation::CM_Get_Device_ID_ListW) {
            for (const observer::Value& id : ListIn(call.outputs, "list")) {
                const auto* const text = std::get_if<std::u16string>(&id.held);
                devices.push_back({{"id", Utf8Of(text == nullptr ? u"" : *text).value_or("")}});
            }
        } else if (call.operation == Operation::CM_Locate_DevNodeW) {
            places[HandleIn(call.outputs, "node")] =
                placeOf(Utf8Of(StringIn(call.inputs, "id")).value_or(""));
        } else if (call.operation == Operation::CM_Get_DevNode_Registry_PropertyW) {
            const auto place = places.find(HandleIn(call.inputs, "node"));
            const std::int64_t property = NumberIn(call.inputs, "property");
            const std::optional<std::string> text = PropertyString(BytesIn(call.outputs, "value"));
            if (place != places.end() && place->second < devices.size() && text &&
                (property == Description || property == DriverKey)) {
                devices[place->second][property == Description ? "description" : "driver_key"] = *text;
            }
        }
    }
    if (!devices.empty()) {
        profile["pnp_devices"] = std::move(devices);
    }
}

} // namespace

void AddSoftware(const RecordedExports& exports, const std::vector<std::u16string>& stored,
                 ProfileJson& profile, LeftOut& leftOut) {
    Packages packages(stored);
    for (const RecordedExport& recorded : exports) {
        packages.Add(recorded);
        AddDeviceNodes(recorded, profile);
    }
    packages.WriteTo(profile, leftOut);
}

} // namespace tool
