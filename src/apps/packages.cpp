#include "apps/packages.h"

#include "apps/package_family.h"
#include "apps/registry_strings.h"
#include "apps/resource_names.h"
#include "frame/diagnostics.h"
#include "frame/host_buffer.h"
#include "frame/text.h"
#include "platform/packages.h"
#include "platform/xml_document.h"
#include "vesk_sondrel.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace sondrel {
namespace {

constexpr const char16_t* PackageStoreKey =
    u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Appx\\AppxAllUserStore\\Applications";

/// The first package of a family; nothing for a family without packages. Only the returned count decides: a
/// missing name becomes the empty name, which has no folder.
std::optional<std::u16string> FirstPackageOf(const std::u16string& family) {
    FamilyPackages packages = QueryFamily(family.c_str(), PackageTextSize, PackageTextSize);
    if (packages.status == platform::error::InsufficientBuffer) {
        packages = QueryFamily(family.c_str(), packages.count, packages.length);
    }
    if (packages.count == 0) {
        return std::nullopt;
    }
    std::u16string first = std::move(packages.first).value_or(std::u16string());
    first.resize(std::min<std::size_t>(first.size(), PackageTextSize - 1));
    return first;
}

/// Empty for a package without a folder, and for a path that does not fit.
std::u16string FolderOf(const std::u16string& fullName) {
    PackageText folder{};
    std::uint32_t length = folder.size();
    platform::GetPackagePathByFullName(fullName.c_str(), length, folder.data());
    folder.back() = u'\0';
    return folder.data();
}

void Configure(platform::XmlDocument parser) {
    platform::put_async(parser, platform::VariantFalse);
    platform::put_validateOnParse(parser, platform::VariantFalse);
    platform::put_resolveExternals(parser, platform::VariantFalse);
    platform::put_preserveWhiteSpace(parser, platform::VariantTrue);
}

/// Without a folder there is no manifest to load: the path would be that of a file at the root of some drive.
bool LoadManifest(platform::XmlDocument parser, const std::u16string& folder) {
    const std::u16string path = folder + u"\\AppxManifest.xml";
    platform::VariantBool loaded = platform::VariantFalse;
    if (!folder.empty() && platform::Failed(platform::load(parser, path.c_str(), loaded))) {
        return false;
    }
    if (loaded != platform::VariantTrue) {
        TraceLine("Unable to load AppxManifest.xml");
        return false;
    }
    TraceLine("AppxManifest.xml was successfully loaded");
    return true;
}

/// The resource's string, or the manifest's if there is none: at most 259 characters.
std::u16string DisplayNameFor(const std::u16string& package, std::u16string_view manifestText) {
    PackageText resolved{};
    if (LoadResourceDisplayName(package, manifestText, resolved)) {
        return resolved.data();
    }
    return std::u16string(manifestText.substr(0, PackageTextSize - 1));
}

/// The display name of an installed package; empty on failure. The parser is always released before the
/// apartment is left.
std::u16string DisplayNameFromManifest(const std::u16string& package, const std::u16string& folder) {
    platform::OwnedApartment apartment;
    if (platform::Failed(platform::CoInitializeEx(platform::apartment::SingleThreaded))) {
        return {};
    }
    apartment.Reset(platform::Apartment::Entered);
    platform::OwnedXmlDocument parser;
    if (platform::Failed(platform::CoCreateInstance(platform::ClsidDomDocument60,
                                                    platform::class_context::InprocServer,
                                                    platform::IidXmlDomDocument, parser.Receive()))) {
        return {};
    }
    Configure(parser.Get());
    if (!LoadManifest(parser.Get(), folder)) {
        return {};
    }
    std::u16string xml;
    platform::get_xml(parser.Get(), xml);
    return DisplayNameFor(package, ManifestDisplayText(xml));
}

} // namespace

std::u16string FamilyNameOf(std::u16string_view fullName) {
    std::u16string family(ShortNameOf(fullName));
    if (const std::size_t tail = fullName.rfind(u'_'); tail != std::u16string_view::npos) {
        family += fullName.substr(tail);
    }
    return family;
}

std::u16string_view ManifestDisplayText(std::u16string_view xml) {
    constexpr std::u16string_view Element = u"<DisplayName>";
    if (const std::size_t properties = FindIgnoringCase(xml, u"Properties");
        properties != std::u16string_view::npos) {
        xml.remove_prefix(properties);
    }
    const std::size_t element = xml.find(Element);
    if (element == std::u16string_view::npos) {
        return {};
    }
    xml.remove_prefix(element + Element.size());
    return xml.substr(0, xml.find(u'<'));
}

std::u16string GetUWPDisplayName(const std::u16string& fullName) {
    std::u16string displayName;
    if (const auto package = FirstPackageOf(FamilyNameOf(fullName))) {
        const std::u16string folder = FolderOf(*package);
        // When memory runs out for one manifest, only this display name is missing.
        try {
            displayName = DisplayNameFromManifest(*package, folder);
            TraceLine("GetUWPDisplayName End");
        } catch (const std::exception&) {
            TraceLine("====================  Exception in Appxmanifest !! ===========================");
        }
    }
    return u"{\"application\":\"" + fullName + u"\",\"display_name\":\"" + displayName + u"\"}";
}

std::u16string GetApplist_AllUserStore() {
    std::u16string document(u"[");
    if (const platform::OwnedKey store = OpenForReading(platform::Key::LocalMachine, PackageStoreKey)) {
        for (std::uint32_t index = 0; const auto fullName = SubkeyName(store.Get(), index); ++index) {
            if (index != 0) {
                document += u',';
            }
            document += GetUWPDisplayName(*fullName);
        }
    }
    document += u']';
    return document;
}

} // namespace sondrel

using namespace sondrel;

void GetApplist_UWP(VeskChar16* out) {
    TraceLine("GetApplist_UWP Start");
    AnswerWith(out, GetApplist_AllUserStore, u"[]");
    TraceLine("GetApplist_UWP End");
}
